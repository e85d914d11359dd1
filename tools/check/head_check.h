// The head of an image: settings, integrity, and the tables that the section table names.
#pragma once

#include "check/findings.h"

#include <cstdint>

namespace check {

// Counts of the section table that the panel does not read.
std::uint32_t FontCount();
std::uint32_t SequenceCount();

/// Languages that the tables of the image have blocks for, at least one.
int LanguageBlocks();

/// The page rows that are wholly in the image, at most as many as there are pages.
std::uint32_t WholePageRows();

/// Checks the head. Sections and settings must have been loaded.
void CheckHead(Findings& findings);

} // namespace check
