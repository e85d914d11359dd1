#include "widgets/display/image_bar.h"

#include "graphics/image_blit.h"
#include "graphics/surfaces.h"
#include "store/variable_store.h"
#include "widgets/display/placement.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Value = 5;
constexpr std::size_t BarX = 7;
constexpr std::size_t BarY = 9;
constexpr std::size_t BarImage = 0x0B;
constexpr std::size_t Direction = 0x0D;
constexpr std::size_t Maximum = 0x0E;
constexpr std::size_t Minimum = 0x10;
constexpr std::size_t BackX = 0x12;
constexpr std::size_t BackY = 0x14;
constexpr std::size_t BackImage = 0x16;
} // namespace field

enum class Growth : std::uint8_t { Right = 0, Left = 1, Down = 2, Up = 3 };

/// The part of `length` px that the value fills; nothing where the limits leave no room between them.
int filled(const Parameters& p, int length) {
    const int minimum = p.i16(field::Minimum), maximum = p.i16(field::Maximum);
    if (minimum >= maximum) return 0;
    const int value =
        std::clamp<int>(static_cast<std::int16_t>(ReadWord(p.u16(field::Value))), minimum, maximum);
    return static_cast<int>(std::int64_t{value - minimum} * length / (maximum - minimum));
}

/// The piece of the bar's picture that shows. It keeps its place in the whole.
QRect visiblePiece(const Parameters& p, QSize bar) {
    const int width = bar.width(), height = bar.height();
    switch (static_cast<Growth>(p.u8(field::Direction))) {
    case Growth::Right: return {0, 0, filled(p, width), height};
    case Growth::Left: {
        const int length = filled(p, width);
        return {width - length, 0, length, height};
    }
    case Growth::Down: return {0, 0, width, filled(p, height)};
    case Growth::Up: {
        const int length = filled(p, height);
        return {0, height - length, width, length};
    }
    }
    return {};
}

void blitBar(const Parameters& p, const ImageRow& bar, QPoint at) {
    const QRect piece = visiblePiece(p, {bar.Width, bar.Height});
    if (DrawsSomething(bar) && !piece.isEmpty())
        BlitImage(WorkSurface, at + piece.topLeft(), bar, piece, bar.Width);
}

} // namespace

void DisplayImageBar(const Parameters& p) {
    const std::uint16_t barIndex = p.u16(field::BarImage), backIndex = p.u16(field::BackImage);
    if (!IsStoreWord(p.u16(field::Value)) || barIndex == NoImage) return;
    const ImageRow bar = TableImageRow(barIndex), back = TableImageRow(backIndex);
    const QPoint backAt = QPoint(p.u16(field::BackX), p.u16(field::BackY)) + PopupShift();
    const QPoint barAt = QPoint(p.u16(field::BarX), p.u16(field::BarY)) + PopupShift();
    const bool plain = backIndex == NoImage;
    const ImageRow& whole = plain ? bar : back;
    const QRect area(backAt, QSize(whole.Width, whole.Height));
    BackdropToWork(area, 0);
    if (!plain) BlitToWork(back, {0, 0});
    blitBar(p, bar, plain ? QPoint(0, 0) : barAt - backAt);
    LandWork(area, 0);
}

} // namespace panel
