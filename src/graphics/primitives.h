// Pixel writers, fills and rectangle copies. Engine thread, but for FillRectOver(). What falls outside a
// surface is dropped.
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>

#include <cstdint>

class QPaintDevice;

namespace panel {

/// Replaces a pixel of the WorkSurface with the opaque colour of `word`.
void PlotWork(int x, int y, std::uint32_t word);
/// Lays one pixel of `colour` over what is there.
void BlendPixel(QImage& surface, int x, int y, const QColor& colour);
/// PlotWork() by coverage: 1 replaces, more than 0 blends with that alpha, 0 and less leaves the pixel.
void PlotCoverage(int x, int y, float coverage, std::uint32_t word);

void FillFrameRect(QRect rect, std::uint32_t word);
void FillListRect(QRect rect, std::uint32_t word);
void FillWorkRect(QRect rect, std::uint32_t word);
/// Lays `colour` over a rectangle of any paint device. The thread that owns the device.
void FillRectOver(QPaintDevice& device, QRect rect, const QColor& colour);

// Copies carry alpha over, and nothing of the destination survives. What lies outside the source comes out
// transparent.

/// On small chips the height is limited, unless a compressed opaque picture was decoded last; LastZipMode is
/// cleared there.
void CopyToFrame(const QImage& source, QRect sourceRect, QPoint at);
void CopySurfaceRect(const QImage& source, QRect sourceRect, QImage& destination, QPoint at);
void CopyToSlide(const QImage& source, QRect sourceRect, QPoint at);

/// The rows that a small chip can draw of a rectangle: 40000 / width when width x height x 2 is above 80000.
int SmallChipHeight(int width, int height);

} // namespace panel
