#include "widgets/touch/sliding_list.h"

#include "graphics/image_blit.h"
#include "graphics/primitives.h"
#include "graphics/surfaces.h"
#include "host/config_block.h"
#include "widgets/display/placement.h"
#include "widgets/touch/pointer.h"
#include "widgets/touch/slider.h"
#include "widgets/touch/touch_families.h"
#include "widgets/touch/touch_row.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Window = 5;
constexpr std::size_t ListPage = 14;
constexpr std::size_t Mode = 16;
constexpr std::size_t BarAtRest = 22;
constexpr std::size_t BarMoving = 24;
constexpr std::size_t BarMargin = 26;
constexpr std::size_t BarOffset = 28;
} // namespace field

struct BarSettings {
    std::uint16_t atRest = NoImage, moving = NoImage; // pictures
    int margin = 0, offset = 0;                       // px
    QSize size{};

    bool exists() const { return atRest != NoImage && moving != NoImage; }
};
BarSettings Bar;

constexpr int StepPixels = 4;
constexpr int StartPixels = 25;            // a finger that has moved further drags the list
constexpr int LargestPicture = 16'000'000; // px

int length() { return ListIsVertical() ? ListH : ListW; }
int view() { return ListIsVertical() ? ListWindow.height() : ListWindow.width(); }
/// A place or size along the list's axis.
QPoint along(int value) { return ListIsVertical() ? QPoint(0, value) : QPoint(value, 0); }

bool isKnownMode() { return (ListMode & 0x7E) == 0; }

/// Copies a piece of the list that begins at `from` to the window, `at` px behind its start.
void showPiece(int from, int at, int count) {
    const QSize size =
        ListIsVertical() ? QSize(ListWindow.width(), count) : QSize(count, ListWindow.height());
    CopyToFrame(ListSurfaceA, {along(from), size}, ListWindow.topLeft() + along(at));
}

/// Behind its end an endless list begins again.
void showAt(int position) {
    if (!isKnownMode()) return;
    const int beforeSeam = ListIsEndless() ? std::min(view(), length() - position) : view();
    showPiece(position, 0, beforeSeam);
    if (beforeSeam < view()) showPiece(0, beforeSeam, view() - beforeSeam);
}

// The bar.

bool isBarFormat(const ImageRow& image) {
    return image.hasPicture()
           && (image.Format == format::aRGB4444 || image.Format == format::aRGB8888
               || image.Format == format::PngOpaque || image.Format == format::PngAlpha);
}

QSize barSize() {
    for (const std::uint16_t index : {Bar.atRest, Bar.moving}) {
        const ImageRow image = TableImageRow(index);
        if (image.hasPicture()) return {image.Width, image.Height};
    }
    return {};
}

void drawBarAt(const ImageRow& image, QPoint at) {
    const QRect area(at, Bar.size);
    BackdropToWork(area, 0);
    BlitToWork(image, {0, 0});
    LandWork(area, 0);
}

/// The bar's way is as long as the window, but for the margins.
void drawVerticalBar(const ImageRow& image, int position) {
    const int x = ListWindow.right() + 1 + Bar.offset, viewLength = ListWindow.height();
    const int hidden = ListH - viewLength, way = viewLength - Bar.size.height() - 2 * Bar.margin;
    const QRect column(x, ListWindow.top(), Bar.size.width(), viewLength);
    CopyBackgroundToFrame(column);
    const int moved = hidden == 0 ? 0 : static_cast<int>(std::int64_t{way} * position / hidden);
    drawBarAt(image, {x, ListWindow.top() + Bar.margin + moved});
}

// The drag.

/// Where the pointer is along the list's axis.
int coordinate() { return ListIsVertical() ? TouchY : TouchX; }

/// The coordinate by which a press becomes a drag; on a turned panel it is that of the other axis, and
/// endless lists cannot be dragged there.
std::optional<int> startCoordinate() {
    const bool turned = Rotation == 1 || Rotation == 3;
    if (!turned) return coordinate();
    if (ListIsEndless()) return std::nullopt;
    return ListIsVertical() ? TouchX : TouchY;
}

bool pointerIsInWindow() { return ListWindow.contains(TouchX, TouchY); }

void endDrag() {
    if (ListDragging) {
        ListDragging = 0;
        if (ListStart == 0) TouchBusy = 0; // the drag ended at the edge of the panel, which reads as no press
        DrawListBar(ListShown);
    } else if (ListStart != 0) {
        ListStart = 0;
        TouchBusy = 0;
    }
}

void beginDrag(int at) {
    ListStart = static_cast<std::uint16_t>(at);
    ShowTouchFamiliesAtRest();
    ListDragging = 1;
    TouchBusy = 1;
    LetGoOfTouchFamilies();
    CloseTextFields();
    PopupActive = 0;
}

/// Inside the window a press is a tap until it has moved far enough.
void awaitDrag() {
    const std::optional<int> at = startCoordinate();
    if (!pointerIsInWindow() || SliderActive || !at) return;
    if (ListStart == 0) ListStart = static_cast<std::uint16_t>(*at);
    if (std::abs(*at - ListStart) > StartPixels) beginDrag(*at);
}

/// Moves the picture on show towards a position, in whole steps; only the last of them is seen.
void moveTo(int target) {
    const int steps = (target - ListShown) / StepPixels;
    const int shown = ListShown + steps * StepPixels;
    ListShown = target;
    if (steps != 0) DrawListBar(shown);
}

void moveBetweenEnds() {
    ListPosition = std::max(0, std::min(ListPosition, length() - view()));
    moveTo(ListPosition / StepPixels * StepPixels);
}

/// The position goes on beyond the end for a step, and is brought back then.
void moveAround() {
    const int target = ListPosition / StepPixels * StepPixels;
    ListShown = (target % length() + length()) % length();
    if (target > length()) ListPosition -= length();
    if (target < 0) ListPosition += length();
}

void followFinger() {
    const int delta = ListStart - coordinate();
    if (delta == 0) return;
    ListStart = static_cast<std::uint16_t>(coordinate());
    ListPosition += delta;
    if (ListIsEndless())
        moveAround();
    else
        moveBetweenEnds();
}

} // namespace

void AddSlidingList(const Parameters& p) {
    ListWindow = ReadCorners(p, field::Window).translated(PopupShift());
    ListMode = p.u8(field::Mode);
    Bar = {.atRest = p.u16(field::BarAtRest),
           .moving = p.u16(field::BarMoving),
           .margin = p.u16(field::BarMargin),
           .offset = p.u16(field::BarOffset)};
    PrepareList(p.u16(field::ListPage));
}

void ResetSlidingList() {
    SlideListActive = 0;
    ListDragging = 0;
    ListStart = 0;
}

void PrepareList(std::uint16_t page) {
    const ImageRow picture = PageImageRow(page);
    const QSize size(picture.Width, picture.Height);
    const std::int64_t pixels = std::int64_t{size.width()} * size.height();
    SlideListActive = pixels > 0 && pixels <= LargestPicture && !ListWindow.isEmpty() ? 1 : 0;
    if (!SlideListActive) return;
    ListSurfaceA = QImage(size, QImage::Format_ARGB32_Premultiplied);
    ListSurfaceA.fill(Qt::transparent);
    ListW = picture.Width;
    ListH = picture.Height;
    ListPosition = ListShown = 0;
    Bar.size = barSize();
    if (picture.Format == format::PngOpaque)
        BlitImage(ListSurfaceA, {0, 0}, picture, {{0, 0}, size}, picture.Width);
    ListSurfaceB = ListSurfaceA.copy();
    if (picture.Format == format::PngOpaque) showAt(0);
    DrawListBar(0);
}

void DrawListBar(int position) {
    if (!Bar.exists() || ListIsEndless()) return;
    const ImageRow image = TableImageRow(ListDragging ? Bar.moving : Bar.atRest);
    if (!isBarFormat(image)) return;
    if (ListMode == list_mode::Vertical) drawVerticalBar(image, position);
    if (ListMode == list_mode::Horizontal)
        drawBarAt(image, {ListWindow.left() + Bar.offset, ListWindow.bottom() + Bar.margin});
}

void SlideListDrag() {
    if (!SlideListActive) return;
    if (!TouchPressed)
        endDrag();
    else if (ListDragging)
        followFinger();
    else
        awaitDrag();
}

void SlideListCoast() {}

void SlideListRefresh() {
    if (SlideListActive) showAt(ListShown);
}

} // namespace panel
