#include "graphics/pieces.h"

#include <algorithm>

namespace panel {
namespace {

struct Stretch {
    int begin, end;
};

/// The pixels of 0..count that lie on a line of `length` when the first one lies at `start`.
Stretch overlap(std::int64_t start, int count, std::int64_t length) {
    const auto within = [count](std::int64_t at) {
        return static_cast<int>(std::clamp<std::int64_t>(at, 0, std::max(count, 0)));
    };
    const int begin = within(-start);
    return {begin, std::max(begin, within(length - start))};
}

} // namespace

QRect VisiblePart(QSize surface, QPoint at, QSize piece) {
    const Stretch columns = overlap(at.x(), piece.width(), surface.width());
    const Stretch rows = overlap(at.y(), piece.height(), surface.height());
    return {columns.begin, rows.begin, columns.end - columns.begin, rows.end - rows.begin};
}

PictureRows::PictureRows(const QImage& picture)
    : bits_(picture.constBits()), bytesPerLine_(picture.bytesPerLine()), width_(picture.width()),
      height_(picture.height()), outside_(picture.hasAlphaChannel() ? 0 : OpaqueBlack) {}

PictureRows::Inside PictureRows::inside(std::int64_t x, std::int64_t y, int count) const {
    if (y < 0 || y >= height_) return {count, count, nullptr};
    const Stretch there = overlap(x, count, width_);
    if (there.begin == there.end) return {count, count, nullptr};
    const auto* line = reinterpret_cast<const Pixel*>(bits_ + y * bytesPerLine_);
    return {there.begin, there.end, line + x + there.begin};
}

void PictureRows::copy(Pixel* row, std::int64_t x, std::int64_t y, int count) const {
    const Inside there = inside(x, y, count);
    std::fill_n(row, there.begin, outside_);
    std::copy_n(there.pixels, there.count(), row + there.begin);
    std::fill_n(row + there.end, count - there.end, outside_);
}

void PictureRows::over(Pixel* row, std::int64_t x, std::int64_t y, int count) const {
    const Inside there = inside(x, y, count);
    if (outside_ != 0) {
        std::fill_n(row, there.begin, outside_);
        std::fill_n(row + there.end, count - there.end, outside_);
    }
    OverRow(row + there.begin, there.pixels, there.count());
}

void PictureRows::onBlack(Pixel* row, std::int64_t x, std::int64_t y, int count) const {
    const Inside there = inside(x, y, count);
    std::fill_n(row, there.begin, OpaqueBlack);
    OnBlackRow(row + there.begin, there.pixels, there.count());
    std::fill_n(row + there.end, count - there.end, OpaqueBlack);
}

void CopyPiece(QImage& target, QPoint at, const QImage& picture, QRect source) {
    if (&target == &picture) {
        const QRect part = VisiblePart(target.size(), at, source.size());
        if (part.isEmpty()) return;
        const QImage copied = picture.copy(part.translated(source.topLeft()));
        CopyPiece(target, at + part.topLeft(), copied, {{0, 0}, part.size()});
        return;
    }
    const PictureRows rows(picture);
    ForEachRow(target, at, source.size(), [&](Pixel* row, int x, int y, int count) {
        rows.copy(row, std::int64_t{source.x()} + x, std::int64_t{source.y()} + y, count);
    });
}

void BlendPiece(QImage& target, QPoint at, const QImage& picture, QRect source) {
    const PictureRows rows(picture);
    ForEachRow(target, at, source.size(), [&](Pixel* row, int x, int y, int count) {
        rows.over(row, std::int64_t{source.x()} + x, std::int64_t{source.y()} + y, count);
    });
}

void CopyPieceOnBlack(QImage& target, QPoint at, const QImage& picture, QRect source) {
    const PictureRows rows(picture);
    ForEachRow(target, at, source.size(), [&](Pixel* row, int x, int y, int count) {
        rows.onBlack(row, std::int64_t{source.x()} + x, std::int64_t{source.y()} + y, count);
    });
}

void FillPiece(QImage& target, QPoint at, QSize size, Pixel pixel) {
    ForEachRow(target, at, size,
               [pixel](Pixel* row, int, int, int count) { std::fill_n(row, count, pixel); });
}

} // namespace panel
