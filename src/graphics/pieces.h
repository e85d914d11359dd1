// Pieces of pictures on their way to a surface: clipped once, then painted row by row.
#pragma once

#include "graphics/pixels.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <cstdint>

namespace panel {

/// The part of a piece laid at `at` that falls on the surface, in the piece's own coordinates. Empty when
/// nothing does, or when a side of the piece is 0 or less. Any values will do.
QRect VisiblePart(QSize surface, QPoint at, QSize piece);

/// Calls `paintRow(row, x, y, count)` for each row of the visible part: `count` pixels of the target from
/// `row` on are those of the piece from (x, y) on. The target detaches once, and not at all when nothing is
/// visible.
template <class PaintRow>
void ForEachRow(QImage& target, QPoint at, QSize piece, PaintRow paintRow) {
    const QRect part = VisiblePart(target.size(), at, piece);
    if (part.isEmpty()) return;
    std::uint8_t* bits = target.bits();
    const qsizetype bytesPerLine = target.bytesPerLine();
    for (int y = part.top(); y <= part.bottom(); ++y) {
        std::uint8_t* line = bits + (at.y() + y) * bytesPerLine;
        paintRow(reinterpret_cast<Pixel*>(line) + (at.x() + part.left()), part.left(), y, part.width());
    }
}

/// The rows of a 32-bit picture, readable at any place. Outside the picture lies what QImage::copy() finds
/// there: opaque black when the picture has no alpha channel, nothing when it has. Borrows the picture.
class PictureRows {
public:
    explicit PictureRows(const QImage& picture);

    void copy(Pixel* row, std::int64_t x, std::int64_t y, int count) const;
    void over(Pixel* row, std::int64_t x, std::int64_t y, int count) const;
    void onBlack(Pixel* row, std::int64_t x, std::int64_t y, int count) const;

private:
    /// The pixels [begin, end) of a run that the picture has, the first of them at `pixels`.
    struct Inside {
        int begin, end;
        const Pixel* pixels;
        int count() const { return end - begin; }
    };
    Inside inside(std::int64_t x, std::int64_t y, int count) const;

    const std::uint8_t* bits_;
    std::int64_t bytesPerLine_, width_, height_;
    Pixel outside_;
};

/// Copies the rectangle `source` of a picture to the target; alpha is carried over.
void CopyPiece(QImage& target, QPoint at, const QImage& picture, QRect source);
/// Lays it over what is on the target, which is another image.
void BlendPiece(QImage& target, QPoint at, const QImage& picture, QRect source);
/// Copies it as it looks on black.
void CopyPieceOnBlack(QImage& target, QPoint at, const QImage& picture, QRect source);
void FillPiece(QImage& target, QPoint at, QSize size, Pixel pixel);

} // namespace panel
