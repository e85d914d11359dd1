#include "widgets/touch/slider.h"

#include "graphics/surfaces.h"
#include "host/reply_frame.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/variable_store.h"
#include "widgets/display/placement.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/sliding_list.h"
#include "widgets/touch/touch_write.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t FillX = 3;
constexpr std::size_t FillY = 5;
constexpr std::size_t FillImage = 7;
constexpr std::size_t Address = 9;
constexpr std::size_t TrackArea = 11;
constexpr std::size_t ThumbImage = 19;
constexpr std::size_t Direction = 21;
constexpr std::size_t Highest = 22;
constexpr std::size_t Lowest = 24;
constexpr std::size_t BackX = 26;
constexpr std::size_t BackY = 28;
constexpr std::size_t BackImage = 30;
constexpr std::size_t TouchFlag = 32;
constexpr std::size_t OverlayGroup = 33;
} // namespace field

constexpr std::uint8_t ReversedBit = 0x01; // the value rises to the left or upwards
constexpr std::uint8_t VerticalBit = 0x02;
constexpr std::uint8_t DirectionMask = ReversedBit | VerticalBit;

bool isVertical(const SliderRecord& row) { return (row.Direction & VerticalBit) != 0; }
bool isReversed(const SliderRecord& row) { return (row.Direction & ReversedBit) != 0; }

// A slider is worked out as if its axis were x. Of a vertical one x and y are exchanged on the way in and
// out.

QPoint alongAxis(const SliderRecord& row, QPoint at) { return isVertical(row) ? at.transposed() : at; }
QSize alongAxis(const SliderRecord& row, QSize size) { return isVertical(row) ? size.transposed() : size; }
QRect exchanged(const SliderRecord& row, QRect rect) {
    return isVertical(row) ? QRect(rect.topLeft().transposed(), rect.size().transposed()) : rect;
}

/// The bounds of the track along the axis.
std::uint16_t& trackStart(SliderRecord& row) { return isVertical(row) ? row.head.y0 : row.head.x0; }
std::uint16_t& trackEnd(SliderRecord& row) { return isVertical(row) ? row.head.y1 : row.head.x1; }

std::uint16_t coordinate(int value) { return static_cast<std::uint16_t>(std::clamp(value, 0, 0xFFFF)); }

/// A picture of the slider. One that cannot be drawn is as one that is not there.
struct Picture {
    ImageRow image{};
    bool drawn = false;
    QSize size{}; // along and across the axis; of no picture (0, 0)

    Picture(const SliderRecord& row, std::uint16_t index) {
        if (index == NoImage) return;
        image = TableImageRow(index);
        drawn = DrawsSomething(image);
        if (drawn) size = alongAxis(row, QSize(image.Width, image.Height));
    }
};

/// The pictures of a slider and where they stand, all along the axis.
struct Layout {
    Picture fill, thumb, back;
    QRect area{};        // of the whole widget
    QPoint fillAt{};     // within the area
    int thumbAcross = 0; // within the area

    explicit Layout(const SliderRecord& row)
        : fill(row, row.FillImage), thumb(row, row.ThumbImage), back(row, row.BackImage) {
        const QPoint fillPlace = alongAxis(row, QPoint(row.FillX, row.FillY));
        if (back.drawn)
            placeOnBack(fillPlace, alongAxis(row, QPoint(row.BackX, row.BackY)));
        else
            placeAlone(fillPlace);
    }
    int halfThumb() const { return thumb.size.width() / 2; }

private:
    void placeOnBack(QPoint fillPlace, QPoint backPlace) {
        area = {backPlace, back.size};
        fillAt = fillPlace - backPlace;
        thumbAcross = fillAt.y() + (fill.size.height() - thumb.size.height()) / 2;
    }
    /// Fill and thumb are centred on each other.
    void placeAlone(QPoint fillPlace) {
        const int overhang = std::max(0, thumb.size.height() - fill.size.height()) / 2;
        area = {fillPlace - QPoint(0, overhang),
                QSize(fill.size.width(), std::max(fill.size.height(), thumb.size.height()))};
        fillAt = {0, overhang};
        thumbAcross = std::max(0, fill.size.height() - thumb.size.height()) / 2;
    }
};

/// The thumb's middle stays where the whole thumb is within the widget.
void narrowTrack(SliderRecord& row, const Layout& layout) {
    if (!layout.thumb.drawn) return;
    const int half = layout.halfThumb();
    const int start = layout.area.x(), end = start + layout.area.width();
    if (trackStart(row) - start < half) trackStart(row) = coordinate(start + half);
    if (end - trackEnd(row) < half) trackEnd(row) = coordinate(end - half);
}

void blit(const SliderRecord& row, const Picture& part, QPoint at, QRect piece) {
    if (part.drawn)
        BlitImage(WorkSurface, alongAxis(row, at), part.image, exchanged(row, piece), part.image.Width);
}

void blitFill(const SliderRecord& row, const Layout& layout, std::int16_t value) {
    const QSize size = layout.fill.size;
    const int shown = SliderPixels(row.Range, value, size.width());
    const int from = isReversed(row) ? size.width() - shown : 0;
    blit(row, layout.fill, layout.fillAt + QPoint(from, 0), {from, 0, shown, size.height()});
}

void blitThumb(SliderRecord& row, const Layout& layout, std::int16_t value) {
    const int moved = SliderPixels(row.Range, value, trackEnd(row) - trackStart(row));
    const int middle = isReversed(row) ? trackEnd(row) - moved : trackStart(row) + moved;
    const QPoint at(middle - layout.halfThumb() - layout.area.x(), layout.thumbAcross);
    blit(row, layout.thumb, at, {{0, 0}, layout.thumb.size});
}

/// The page comes behind opaque pictures too: on small chips one may have fewer rows than its rectangle.
void blitBack(const SliderRecord& row, const Layout& layout) {
    BackdropToWork(exchanged(row, layout.area), row.head.inList());
    blit(row, layout.back, {0, 0}, {{0, 0}, layout.back.size});
}

/// With a group the widget lands where its background picture has its place, be there one or not.
void landWithGroup(const SliderRecord& row, QRect area) {
    if (row.OverlayGroup != NoGroup) {
        area.moveTo(row.BackX, row.BackY);
        DrawGroupInRect(CurrentPage, row.OverlayGroup, area);
    }
    LandWork(area, row.head.inList());
}

// The finger.

bool isDragged(const SliderRecord& row) { return SliderActive && &row == Sliders.at(SliderRow); }

bool isBetween(int value, int first, int last) { return first <= value && value <= last; }

/// A drag goes on past the ends of the track, and of the window of a list, but not off them sideways.
bool reaches(const SliderRecord& row) {
    const TouchHead& head = row.head;
    if (!isDragged(row)) return HitTest(head);
    const QRect window = exchanged(row, ListWindow);
    const int pointer = alongAxis(row, QPoint(TouchX, TouchY)).y();
    if (head.inList() && !isBetween(pointer, window.top(), window.bottom())) return false;
    const int across = alongAxis(row, PointerPlace(head.inList())).y();
    return isVertical(row) ? isBetween(across, head.x0, head.x1) : isBetween(across, head.y0, head.y1);
}

std::uint16_t& lastPlace(SliderRecord& row) { return isVertical(row) ? row.ThumbY : row.ThumbX; }

/// The place of the pointer along the axis. A finger that crosses the seam of an endless list is still on the
/// same side of the track.
int placeOfPointer(SliderRecord& row, bool pressIsNew) {
    const int place = alongAxis(row, PointerPlace(row.head.inList())).x();
    const bool seamAcross = ListIsEndless() && ListIsVertical() == isVertical(row);
    if (!row.head.inList() || !seamAcross || pressIsNew) return place;
    const int length = ListIsVertical() ? ListH : ListW;
    const int moved = place - lastPlace(row);
    if (moved > length / 2) return place - length;
    return moved < -length / 2 ? place + length : place;
}

void writeValue(SliderRecord& row, bool pressIsNew) {
    const int start = trackStart(row), end = trackEnd(row);
    const int place = std::min(std::max(placeOfPointer(row, pressIsNew), start), end);
    lastPlace(row) = coordinate(place);
    if (row.Range.span() == 0) return;
    const std::int16_t value = isReversed(row) ? SliderValue(row.Range, place, end, start)
                                               : SliderValue(row.Range, place, start, end);
    StoreWord(row.Address, static_cast<std::uint16_t>(value));
}

void rememberPointer(SliderRecord& row) {
    const std::uint16_t x = TouchX, y = TouchY;
    if (isVertical(row) ? y != row.LastY : x != row.LastX) SliderChanged = 1;
    row.LastX = x;
    row.LastY = y;
}

void follow(SliderRecord& row, bool pressIsNew) {
    writeValue(row, pressIsNew);
    rememberPointer(row);
    if (!SliderChanged) return;
    PassOnInput(row.Address);
    if (!SliderActive) return; // the value was a page
    DrawSlider(row);
    SliderChanged = 0;
}

/// A press on the pixel where the last one ended is no move either.
bool moved(const SliderRecord& row) { return row.LastX != TouchX || row.LastY != TouchY; }

/// Whether the row may have the press: it has it, or nobody has.
bool mayFollow(const SliderRecord& row) { return SliderActive ? isDragged(row) : !TouchBusy; }

void letGo() {
    const SliderRecord* row = Sliders.at(SliderRow);
    if (!SliderActive || !row) return;
    SliderActive = 0;
    TouchBusy = 0;
    if (row->head.notifies() && IsStoreWord(row->Address)) SendVariable(row->Address);
}

template <class Also>
void refreshRows(Also alsoChanged) {
    for (SliderRecord& row : Sliders.rows()) {
        SliderChanged = 0;
        if ((WordDiffers(row.Address) && !isDragged(row)) || alsoChanged(row)) DrawSlider(row);
    }
}

} // namespace

void ResetSliders() {
    Sliders.clear();
    SliderActive = 0;
    SliderRow = 0;
    SliderChanged = 0;
}

void AddSlider(const Parameters& p) {
    SliderRecord* row = Sliders.append();
    if (!row) return;
    *row = {.head = ReadMovedHead(p, field::TrackArea),
            .FillX = ShiftedX(p.u16(field::FillX)),
            .FillY = ShiftedY(p.u16(field::FillY)),
            .FillImage = p.u16(field::FillImage),
            .Address = p.u16(field::Address),
            .ThumbImage = p.u16(field::ThumbImage),
            .Direction = static_cast<std::uint8_t>(p.u8(field::Direction) & DirectionMask),
            .Range = {.lowest = p.i16(field::Lowest), .highest = p.i16(field::Highest)},
            .BackX = ShiftedX(p.u16(field::BackX)),
            .BackY = ShiftedY(p.u16(field::BackY)),
            .BackImage = p.u16(field::BackImage),
            .Touchable = p.u8(field::TouchFlag) != 0,
            .OverlayGroup = p.u16(field::OverlayGroup)};
    SliderActive = 0;
    trackStart(*row) = std::max(trackStart(*row), isVertical(*row) ? row->FillY : row->FillX);
    SyncWord(row->Address);
    DrawSlider(*row);
}

void DrawSlider(SliderRecord& row) {
    const Layout layout(row);
    if (!layout.fill.drawn) return;
    const auto value = static_cast<std::int16_t>(ReadWord(row.Address));
    narrowTrack(row, layout);
    blitBack(row, layout);
    blitFill(row, layout, value);
    blitThumb(row, layout, value);
    landWithGroup(row, exchanged(row, layout.area));
}

void TouchSlider() {
    if (!TouchPressed) return letGo();
    for (SliderRecord& row : Sliders.rows()) {
        if (!row.Touchable || !moved(row) || !reaches(row) || !mayFollow(row)) continue;
        const bool pressIsNew = !SliderActive;
        if (pressIsNew) OwnPress();
        SliderActive = 1;
        SliderRow = static_cast<std::uint8_t>(&row - Sliders.rows().data());
        follow(row, pressIsNew);
        if (!SliderActive) return;
    }
}

void RefreshSliders(std::uint16_t page) {
    refreshRows([page](const SliderRecord& row) {
        return row.OverlayGroup != NoGroup && GroupChanged(page, row.OverlayGroup);
    });
}

void RefreshSlidersAfterTouch(std::uint16_t /*page*/) {
    refreshRows([](const SliderRecord&) { return false; });
}

void SyncSliders() {
    for (const SliderRecord& row : Sliders.rows()) SyncWord(row.Address);
}

} // namespace panel
