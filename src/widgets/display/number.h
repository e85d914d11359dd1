// number: shows a numeric variable as decimal text with a unit. Keeps no row; the record is read again at
// each drawing. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

#include <array>
#include <cstddef>
#include <cstdint>

namespace panel {

/// The widest text in px that each number of the page has had since the page came up, by NumberCursor: a
/// number that shrinks still clears that width. A number beyond the last entry is drawn without a memory.
inline std::array<std::uint16_t, 30> NumberWidthMemory{};
/// Numbers before the one being drawn, in stream order.
inline std::size_t NumberCursor = 0;
void ForgetNumberWidths();

void DisplayNumber(const Parameters& p);
/// Draws the number on the WorkSurface, whose (0, 0) stands for the top left corner of `host`, along the
/// direction of the panel's Rotation.
void DisplayNumberInGroup(const Parameters& p, QRect host);

} // namespace panel
