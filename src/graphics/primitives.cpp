#include "graphics/primitives.h"

#include "graphics/colour.h"
#include "graphics/image_blit.h"
#include "graphics/pieces.h"
#include "graphics/surfaces.h"
#include "graphics/zip_image.h"
#include "host/config_block.h"

#include <QPainter>

namespace panel {
namespace {

/// Bytes that a small chip keeps for the 16-bit pixels of one picture.
constexpr std::int64_t SmallChipPictureBytes = 80000;

/// The pixel at (x, y), or nullptr outside.
Pixel* pixelAt(QImage& surface, int x, int y) {
    if (!surface.valid(x, y)) return nullptr;
    return reinterpret_cast<Pixel*>(surface.scanLine(y)) + x;
}

} // namespace

void PlotWork(int x, int y, std::uint32_t word) {
    if (Pixel* pixel = pixelAt(WorkSurface, x, y)) *pixel = ExpandPixel(word, ColourKind::Opaque);
}

void BlendPixel(QImage& surface, int x, int y, const QColor& colour) {
    if (Pixel* pixel = pixelAt(surface, x, y)) *pixel = Over(Premultiplied(colour.rgba()), *pixel);
}

void PlotCoverage(int x, int y, float coverage, std::uint32_t word) {
    if (coverage == 1.0F) {
        PlotWork(x, y, word);
    } else if (coverage > 0.0F) {
        QColor colour = ExpandColour(word, ColourKind::Opaque);
        colour.setAlpha(static_cast<int>(coverage * 255.0F));
        BlendPixel(WorkSurface, x, y, colour);
    }
}

void FillFrameRect(QRect rect, std::uint32_t word) {
    FillPiece(FrameSurface, rect.topLeft(), rect.size(), ExpandPixel(word, ColourKind::Opaque));
}

void FillListRect(QRect rect, std::uint32_t word) {
    FillPiece(ListSurfaceA, rect.topLeft(), rect.size(), ExpandPixel(word, ColourKind::Opaque));
}

void FillWorkRect(QRect rect, std::uint32_t word) {
    FillPiece(WorkSurface, rect.topLeft(), rect.size(), ExpandPixel(word, ColourKind::Opaque));
}

void FillRectOver(QPaintDevice& device, QRect rect, const QColor& colour) {
    QPainter(&device).fillRect(rect, colour);
}

void CopyToFrame(const QImage& source, QRect sourceRect, QPoint at) {
    QSize size = sourceRect.size();
    if (SmallChip() && LastZipMode != zip_mode::Opaque) {
        size.setHeight(SmallChipHeight(size.width(), size.height()));
        LastZipMode = 0;
    }
    CopyPiece(FrameSurface, at, source, {sourceRect.topLeft(), size});
}

void CopySurfaceRect(const QImage& source, QRect sourceRect, QImage& destination, QPoint at) {
    CopyPiece(destination, at, source, sourceRect);
}

void CopyToSlide(const QImage& source, QRect sourceRect, QPoint at) {
    CopyPiece(SlideSurface, at, source, sourceRect);
}

int SmallChipHeight(int width, int height) {
    if (width <= 0 || height <= 0) return height;
    const bool fits = std::int64_t{2} * width * height <= SmallChipPictureBytes;
    return fits ? height : static_cast<int>(SmallChipPictureBytes / 2 / width);
}

} // namespace panel
