// The sector of a ring: the part of a square picture that a sweep has passed, from straight down clockwise.
// Engine thread.
#pragma once

#include "graphics/image_row.h"

#include <QPoint>
#include <QRect>
#include <QSize>

#include <array>

namespace panel {

/// Whether a pixel lies beyond the line from (x0, y0) to (x1, y1). Seen along the line on a surface whose y
/// grows downwards, a pixel for which this is false lies on the side of the sweep, or on the line.
bool SideOfLine(int x0, int y0, int x1, int y1, int px, int py);

/// The pieces of a sector. Pieces may overlap by a column or a row, which is then drawn twice.
struct Sector {
    std::array<QRect, 2> blocks{}; // passed as a whole; empty ones do not count
    QRect rim{};                   // where the sweep ends: of it the pixels that SideOfLine() leaves
    QPoint centre{}, edge{};       // of that line
};

/// The sector of a picture of that size at an angle in whole degrees: 0 down, 90 left, 180 up, 270 right, 360
/// down again. No sector for any other.
Sector SectorOf(QSize size, int angle);

/// The pixels of a row that belong to the sector's rim; they are always side by side.
QRect RimRow(const Sector& sector, int y);

/// Reveals the sector of a picture on the WorkSurface, at its own place.
void BlitSector(const ImageRow& image, int angle);

} // namespace panel
