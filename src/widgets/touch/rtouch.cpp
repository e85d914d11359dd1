#include "widgets/touch/rtouch.h"

#include "graphics/picture_cache.h"
#include "graphics/shapes.h"
#include "graphics/surfaces.h"
#include "host/reply_frame.h"
#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/variable_store.h"
#include "widgets/display/group.h"
#include "widgets/display/placement.h"
#include "widgets/display/sector.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_row.h"
#include "widgets/touch/touch_write.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 3;
constexpr std::size_t X = 5;
constexpr std::size_t Y = 7;
constexpr std::size_t Foreground = 9;
constexpr std::size_t Background = 11;
constexpr std::size_t Thumb = 13;
constexpr std::size_t Radius = 15;
constexpr std::size_t HalfWidth = 17;
constexpr std::size_t Scale = 18; // and the read-out
constexpr std::size_t TouchFlag = 42;
constexpr std::size_t OverlayGroup = 43;
} // namespace field

constexpr int HalfTurn = 180;
constexpr int Snap = 9; // degrees beside an end that still count as the end

std::int16_t valueOf(const RtouchRecord& row) { return static_cast<std::int16_t>(ReadWord(row.Address)); }

/// Whether angles and values can be told from each other.
bool canTurn(const RtouchRecord& row) {
    return row.Scale.start != row.Scale.end && row.Scale.lowest != row.Scale.highest;
}

int angleOfValue(const RtouchRecord& row) {
    return canTurn(row) ? row.Scale.angleOf(valueOf(row)) : row.Scale.start;
}

// The picture.

/// A PNG with alpha is decoded to the scratch surface, and drawn from there.
ImageRow decoded(ImageRow foreground) {
    if (foreground.Format != format::PngAlpha) return foreground;
    ImageScratchSurface = PngPicture(foreground.Address, foreground.Extra);
    foreground.Format = format::ScratchAlpha;
    return foreground;
}

void blitThumb(const RtouchRecord& row, int angle) {
    if (row.Thumb == NoImage) return;
    const ImageRow thumb = TableImageRow(row.Thumb);
    const auto middle = static_cast<float>(row.Size.width() / 2), radius = static_cast<float>(row.Radius);
    const auto half = [](int size) { return static_cast<float>(size / 2); };
    const QPoint at(static_cast<int>(middle - SinDeg(angle) * radius - half(thumb.Width)),
                    static_cast<int>(CosDeg(angle) * radius + middle - half(thumb.Height)));
    BlitToWork(thumb, at);
}

// The finger.

/// Where the pointer is, seen from the centre; y grows downwards.
QPoint fromCentre(const RtouchRecord& row) { return QPoint(TouchX, TouchY) - row.Centre; }

bool isInBand(const RtouchRecord& row) {
    const QPoint at = fromCentre(row);
    const auto squared = [](std::int64_t length) { return length * length; };
    const std::int64_t distance = squared(at.x()) + squared(at.y());
    return distance >= squared(row.Radius - row.HalfWidth) && distance <= squared(row.Radius + row.HalfWidth);
}

/// The angle of the axis that the pointer is on, or a pixel beside.
std::optional<int> angleOnAxis(const RtouchRecord& row) {
    const QPoint at = fromCentre(row);
    if (std::abs(at.x()) <= 1) return at.y() < 0 ? 180 : 0;
    if (std::abs(at.y()) <= 1) return at.x() < 0 ? 90 : 270;
    return std::nullopt;
}

/// From the pointer to the point of the ring in that direction, clockwise from the top.
float distanceTo(const RtouchRecord& row, int degrees) {
    const QPoint at = fromCentre(row);
    const auto radius = static_cast<float>(row.Radius);
    const float x = static_cast<float>(at.x()) - radius * SinDeg(degrees);
    const float y = static_cast<float>(at.y()) + radius * CosDeg(degrees);
    return std::sqrt(x * x + y * y);
}

/// Whole degrees of the pointer's quadrant, of which the first is taken that is as near as its neighbours.
std::optional<int> searchAngle(const RtouchRecord& row) {
    const QPoint at = fromCentre(row);
    const bool left = at.x() < 0;
    const bool below = at.y() > 0;
    const int first = left ? (below ? 180 : 270) : (below ? 90 : 0);
    for (int degrees = first; degrees <= first + 90; ++degrees) {
        const float distance = distanceTo(row, degrees);
        if (distance <= distanceTo(row, degrees - 1) && distance <= distanceTo(row, degrees + 1))
            return left ? degrees - HalfTurn : degrees + HalfTurn;
    }
    return std::nullopt;
}

std::optional<int> angleOfPointer(const RtouchRecord& row) {
    const std::optional<int> onAxis = angleOnAxis(row);
    return onAxis ? onAxis : searchAngle(row);
}

int valueAt(const RingScale& scale, int angle) {
    const std::int64_t range = scale.highest - scale.lowest;
    return static_cast<int>((angle - scale.start) * range / (scale.end - scale.start) + scale.lowest);
}

/// The angle that the ring goes to; none in the dead zone between the ends.
std::optional<int> reachedAngle(const RingScale& scale, int angle) {
    if (scale.start <= angle && angle <= scale.end) return angle;
    if (scale.end < angle && angle <= scale.end + Snap) return scale.end;
    if (angle < scale.start && scale.start <= angle + Snap) return scale.start;
    return std::nullopt;
}

void turn(RtouchRecord& row) {
    const std::optional<int> pointed = angleOfPointer(row);
    if (!pointed || !canTurn(row)) return;
    const std::optional<int> reached = reachedAngle(row.Scale, *pointed);
    if (!reached) return;
    StoreWord(row.Address, static_cast<std::uint16_t>(valueAt(row.Scale, *reached)));
    DrawRtouchKnob(row, *reached);
    PassOnInput(row.Address);
}

bool isDragged(const RtouchRecord& row) { return RingActive && &row == Rtouches.at(RingRow); }

void rememberPointer() {
    RingLastX = TouchX;
    RingLastY = TouchY;
}

void takePress(RtouchRecord& row) {
    OwnPress();
    RingActive = 1;
    RingRow = static_cast<std::uint8_t>(&row - Rtouches.rows().data());
    DrawRtouchBack(row);
}

void letGo() {
    const RtouchRecord* row = Rtouches.at(RingRow);
    if (!RingActive || !row) return;
    RingActive = 0;
    TouchBusy = 0;
    if (row->Notifies && IsStoreWord(row->Address)) SendVariable(row->Address);
}

void redraw(RtouchRecord& row) {
    DrawRtouchBack(row);
    DrawRtouchKnob(row, angleOfValue(row));
}

} // namespace

void AddRtouch(const Parameters& p) {
    RtouchRecord* row = Rtouches.append();
    if (!row) return;
    *row = {.Notifies = p.typeWord() == (0x8007 | NotifyFlag),
            .Address = p.u16(field::Address),
            .At = QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift(),
            .Foreground = p.u16(field::Foreground),
            .Background = p.u16(field::Background),
            .Thumb = p.u16(field::Thumb),
            .Radius = p.u16(field::Radius),
            .HalfWidth = p.u8(field::HalfWidth),
            .Scale = ReadRingScale(p, field::Scale),
            .Readout = ReadRingReadout(p, field::Scale + RingScaleBytes),
            .Touchable = p.u8(field::TouchFlag) != 0,
            .OverlayGroup = p.u16(field::OverlayGroup)};
    constexpr int lastAngle = 359; // of a ring that has not been touched
    SyncWord(row->Address);
    DrawRtouchBack(*row);
    DrawRtouchKnob(*row, std::min(angleOfValue(*row), lastAngle));
}

void ResetRtouches() {
    Rtouches.clear();
    RingActive = 0;
    RingRow = 0;
}

void DrawRtouchBack(RtouchRecord& row) {
    const ImageRow foreground = TableImageRow(row.Foreground);
    row.Size = {foreground.Width, foreground.Height};
    row.Centre = row.At + QPoint(foreground.Width / 2, foreground.Height / 2);
}

void DrawRtouchKnob(RtouchRecord& row, int position) {
    const ImageRow foreground = TableImageRow(row.Foreground);
    if (!foreground.hasPicture()) return;
    const QRect area(row.At, row.Size);
    DrawRingBackground(row.Background, area);
    BlitSector(decoded(foreground), position);
    blitThumb(row, position);
    DrawRingReadout(row.Readout, area, valueOf(row));
    if (row.OverlayGroup != NoGroup) DrawGroupInRect(CurrentPage, row.OverlayGroup, area);
    LandWork(area, 0);
}

void TouchRtouch() {
    if (!TouchPressed) return letGo();
    for (RtouchRecord& row : Rtouches.rows()) {
        if (!row.Touchable) continue;
        if (RingLastX == TouchX && RingLastY == TouchY) return;
        if (!isInBand(row) || (RingActive ? !isDragged(row) : TouchBusy)) continue;
        rememberPointer();
        if (!RingActive) takePress(row);
        turn(row);
        if (!RingActive) return; // the value was a page
    }
}

void RefreshRtouches(std::uint16_t page) {
    for (RtouchRecord& row : Rtouches.rows()) {
        const bool turned = WordDiffers(row.Address) && !isDragged(row);
        if (turned || (row.OverlayGroup != NoGroup && GroupChanged(page, row.OverlayGroup))) redraw(row);
    }
}

void RefreshRtouchesAfterTouch(std::uint16_t /*page*/) {
    for (RtouchRecord& row : Rtouches.rows())
        if (WordDiffers(row.Address) && !isDragged(row)) redraw(row);
}

void SyncRtouches() {
    for (const RtouchRecord& row : Rtouches.rows()) SyncWord(row.Address);
}

} // namespace panel
