// pngNumber: shows a numeric variable in digit pictures. Keeps no row; the record is read again at each
// drawing. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <QRect>

#include <array>
#include <cstddef>
#include <cstdint>

namespace panel {

/// The width in px of the text that each pngNumber of the page drew last, by PngNumberCursor: one that
/// shrinks clears that width once. One beyond the last entry is drawn without a memory.
inline std::array<std::uint16_t, 30> PngNumberWidthMemory{};
/// Records before the one being drawn, in stream order.
inline std::size_t PngNumberCursor = 0;
void ForgetPngNumberWidths();

void DisplayPngNumber(const Parameters& p);
/// Draws the number on the WorkSurface, whose (0, 0) stands for the top left corner of `host`, along the
/// direction of the panel's Rotation.
void DisplayPngNumberInGroup(const Parameters& p, QRect host);

} // namespace panel
