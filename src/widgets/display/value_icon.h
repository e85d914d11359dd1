// Icons that show one picture of a run by the value of a variable. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

#include <cstdint>

namespace panel {

/// An icon whose first picture has this index or a higher one is not on the screen at all.
inline constexpr std::uint16_t ValueIconImageBound = 10000;

/// Draws the icon; a value out of its range brings back what lies behind. Obeys and clears IconPass.
void DisplayValueIcon(const Parameters& p);
void DisplayValueIconInGroup(const Parameters& p, QRect host);

} // namespace panel
