// The kinds of display widgets: one row a kind tells how the page display treats its records.
#pragma once

#include "pages/parameters.h"

#include <cstdint>
#include <span>

namespace panel {

struct DisplayKind {
    std::uint16_t code; // the type word under KindMask
    const char* name;
    /// Brings the ShadowStore in line with the value that the record depends on; null: with nothing.
    void (*syncValue)(const Parameters&) = nullptr;
    /// Draws the widget from nothing, and sets up its table row where the kind has one; null: draws nothing.
    void (*display)(const Parameters&) = nullptr;
    // Where the kind takes part beside the plain display pass.
    bool hasBlock = true;  // its parameters may lie in the store
    bool inGroups = false; // lives in group streams too
    bool onTop = false;    // drawn a second time, over the rest of the page
    bool background =
        false; // the page's background widget; drawn before all others and never by the plain pass
};

/// Ascending by code.
std::span<const DisplayKind> DisplayKinds();
/// The row of a masked type word, or nullptr for one that nobody knows.
const DisplayKind* FindDisplayKind(std::uint16_t code);

} // namespace panel
