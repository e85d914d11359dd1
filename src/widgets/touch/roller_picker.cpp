#include "widgets/touch/roller_picker.h"

#include "graphics/surfaces.h"
#include "host/reply_frame.h"
#include "store/variable_store.h"
#include "widgets/touch/key_family.h"
#include "widgets/touch/touch_write.h"

#include <QDate>

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 3;
constexpr std::size_t Window = 5;
constexpr std::size_t MarginA = 13;
constexpr std::size_t MarginB = 15;
constexpr std::size_t Flags = 17;
constexpr std::size_t SelectedStrip = 18;
constexpr std::size_t NormalStrip = 20;
constexpr std::size_t Lowest = 22;
constexpr std::size_t Highest = 24;
constexpr std::size_t Step = 26;
} // namespace field

constexpr std::uint8_t HorizontalFlag = 0x01;
constexpr std::uint8_t StopFlag = 0x80;

// From the variable to the place of the strip, and back.

std::int16_t offsetOf(const Roller& roller, std::uint16_t value) {
    if (!roller.turns()) return 0;
    return static_cast<std::int16_t>(std::int64_t{(value - roller.Lowest) / roller.Step} * roller.cell());
}

void turnToVariable(Roller& roller) {
    const std::uint16_t value = ReadWord(roller.Address);
    const std::uint16_t held = value > roller.Highest ? roller.Highest : std::max(value, roller.Lowest);
    if (held != value) StoreWord(roller.Address, held);
    roller.Offset = offsetOf(roller, held);
    roller.Behind = false;
}

/// Turns on to the nearest cell; exactly half a cell past one is still that one's.
void snapToCell(Roller& roller) {
    const int cell = roller.cell();
    const int index = roller.Offset / cell + (roller.Offset % cell > cell / 2 ? 1 : 0);
    roller.Offset = static_cast<std::int16_t>(index * cell);
}

/// The value of the cell in the band. Behind the last one in use the strip begins anew.
std::uint16_t valueInBand(const Roller& roller) {
    const std::int64_t value = std::int64_t{roller.Offset / roller.cell()} * roller.Step + roller.Lowest;
    const bool inUse = value >= roller.Lowest && value <= roller.Highest - RollerAdjust;
    return inUse ? static_cast<std::uint16_t>(value) : roller.Lowest;
}

// The strip under the finger.

/// The days of the month that the time words name; 0 when they name none.
int daysOfMonth() { return QDate(2000 + ReadLowByte(word::Year), ReadLowByte(word::Month), 1).daysInMonth(); }

/// The length of the strip without the days that the month lacks. Only vertical rollers know the day.
std::int64_t lengthInUse(const Roller& roller) {
    constexpr int longestMonth = 31;
    if (roller.Horizontal || roller.Address != word::Day) return StripLength;
    const int days = daysOfMonth();
    if (days == 0) return StripLength;
    RollerAdjust = static_cast<std::uint8_t>(longestMonth - days);
    return StripLength - std::int64_t{roller.cell()} * std::max(roller.Highest - days, 0);
}

std::int64_t onEndlessStrip(std::int64_t offset, std::int64_t length) {
    if (length <= 0) return 0;
    while (offset < 0) offset += length;
    while (offset > length) offset -= length;
    return offset;
}

std::int16_t heldToStrip(const Roller& roller, int offset) {
    const std::int64_t length = lengthInUse(roller);
    const std::int64_t held =
        roller.StopsAtEnds ? std::max<std::int64_t>(std::min<std::int64_t>(offset, length - roller.cell()), 0)
                           : onEndlessStrip(offset, length);
    return static_cast<std::int16_t>(held);
}

/// The window is a place on the panel whatever the list bits say.
bool isHit(const TouchHead& window) { return HitTest(window.x0, window.x1, window.y0, window.y1, 0); }

void takePress() {
    if (TouchBusy) return;
    const auto rollers = Rollers.rows();
    const auto hit = std::ranges::find_if(
        rollers, [](const Roller& roller) { return roller.turns() && isHit(roller.head); });
    if (hit == rollers.end()) return;
    RollerRow = static_cast<std::uint8_t>(hit - rollers.begin());
    RollerActive = 1;
    RollerAdjust = 0;
    RingLastX = TouchX;
    RingLastY = TouchY;
    OwnPress();
}

/// Goes on outside the window too.
void drag() {
    Roller* roller = Rollers.at(RollerRow);
    if (!roller) return;
    std::uint16_t& last = roller->Horizontal ? RingLastX : RingLastY;
    const std::uint16_t pointer = roller->Horizontal ? TouchX : TouchY;
    const int moved = last - pointer;
    SetRollerPosition(*roller); // a refresh may have looked at another one
    roller->Offset = heldToStrip(*roller, roller->Offset + moved);
    if (moved == 0) return;
    DrawRoller(*roller);
    last = pointer;
}

void takeValue(Roller& roller) {
    snapToCell(roller);
    roller.Behind = false;
    const std::uint16_t address = roller.Address; // the write may bring another page and other rows
    const std::uint16_t value = valueInBand(roller);
    StoreWord(address, value);
    if (roller.head.notifies()) SendNotification(address, value);
    SetRollerPosition(roller);
    DrawRoller(roller);
    PassOnInput(address);
}

void letGo() {
    if (!RollerActive) return;
    if (Roller* roller = Rollers.at(RollerRow)) takeValue(*roller);
    RollerActive = 0;
    TouchBusy = 0;
}

// The picture in the window.

/// A strip that can be drawn; no picture otherwise.
ImageRow stripRow(std::uint16_t image) {
    const ImageRow row = TableImageRow(image);
    return DrawsSomething(row) ? row : ImageRow{};
}

bool hidesBackground(const ImageRow& strip) {
    return strip.hasPicture() && !strip.showsWhatIsBehind() && strip.Format != format::RGB565A8;
}

QRect alongAxis(const Roller& roller, int at, int length, int across) {
    return roller.Horizontal ? QRect(at, 0, length, across) : QRect(0, at, across, length);
}

/// As wide as the strips, within the window.
int acrossWindow(const Roller& roller) {
    const TouchHead& head = roller.head;
    const int inside = (roller.Horizontal ? head.y1 - head.y0 : head.x1 - head.x0) + 1;
    return std::min<int>(StripCross, inside);
}

/// Of the window, as far as it can reach on the panel.
int visibleLength(const Roller& roller) {
    return std::min(roller.windowLength(), roller.Horizontal ? WorkSurface.width() : WorkSurface.height());
}

int positionInStrip(int position) {
    const int rest = position % StripLength;
    return rest < 0 ? rest + StripLength : rest;
}

/// Draws the places `begin` to `end` of the window from a strip, in one block up to each end of the strip.
void blitStrip(const Roller& roller, const ImageRow& strip, int begin, int end) {
    if (!strip.hasPicture()) return;
    const int across = acrossWindow(roller);
    for (int at = begin, count = 0; at < end; at += count) {
        const int from = positionInStrip(roller.Offset + at - roller.MarginA);
        count = std::min(end - at, StripLength - from);
        const QPoint place = alongAxis(roller, at, count, across).topLeft();
        BlitImage(WorkSurface, place, strip, alongAxis(roller, from, count, across), strip.Width);
    }
}

bool isUnderFinger(const Roller& roller) { return RollerActive && &roller == Rollers.at(RollerRow); }

} // namespace

void ResetRollers() {
    Rollers.clear();
    RollerActive = 0;
    RollerRow = 0;
}

void AddRoller(const Parameters& p) {
    Roller* roller = Rollers.append();
    if (!roller) return;
    const std::uint8_t flags = p.u8(field::Flags);
    *roller = {.head = ReadMovedHead(p, field::Window),
               .Address = p.u16(field::Address),
               .MarginA = p.u16(field::MarginA),
               .MarginB = p.u16(field::MarginB),
               .Horizontal = (flags & HorizontalFlag) != 0,
               .StopsAtEnds = (flags & StopFlag) != 0,
               .SelectedStrip = p.u16(field::SelectedStrip),
               .NormalStrip = p.u16(field::NormalStrip),
               .Lowest = p.u16(field::Lowest),
               .Highest = p.u16(field::Highest),
               .Step = p.u16(field::Step)};
    turnToVariable(*roller);
    SetRollerPosition(*roller);
    DrawRoller(*roller);
}

void TouchRollerPickers() {
    if (!TouchPressed) return letGo();
    if (!RollerActive) takePress();
    if (RollerActive) drag();
}

void SetRollerPosition(const Roller& roller) {
    const ImageRow selected = TableImageRow(roller.SelectedStrip);
    const ImageRow strip = selected.hasPicture() ? selected : TableImageRow(roller.NormalStrip);
    StripLength = roller.Horizontal ? strip.Width : strip.Height;
    StripCross = roller.Horizontal ? strip.Height : strip.Width;
}

void DrawRoller(Roller& roller) {
    const ImageRow selected = stripRow(roller.SelectedStrip);
    const ImageRow normal = stripRow(roller.NormalStrip);
    if (StripLength == 0 || (!selected.hasPicture() && !normal.hasPicture())) return;
    roller.Offset = static_cast<std::int16_t>(std::min<int>(roller.Offset, StripLength));

    const int end = visibleLength(roller);
    const QRect window = alongAxis(roller, 0, end, acrossWindow(roller)).translated(roller.head.topLeft());
    if (!hidesBackground(selected) || !hidesBackground(normal)) BackdropToWork(window, 0);
    const int bandBegin = roller.cell() > 0 ? std::min<int>(roller.MarginA, end) : 0;
    const int bandEnd = roller.cell() > 0 ? std::min(bandBegin + roller.cell(), end) : 0;
    blitStrip(roller, normal, 0, bandBegin);
    blitStrip(roller, selected, bandBegin, bandEnd);
    blitStrip(roller, normal, bandEnd, end);
    LandWork(window, 0);
}

void RefreshRollers(std::uint16_t /*page*/) {
    for (Roller& roller : Rollers.rows()) {
        if (isUnderFinger(roller) || !(roller.Behind || WordDiffers(roller.Address))) continue;
        turnToVariable(roller);
        SetRollerPosition(roller);
        DrawRoller(roller);
    }
}

void RedrawRollersAfterTouch(std::uint16_t /*page*/) {
    for (Roller& roller : Rollers.rows()) {
        if (isUnderFinger(roller) || !WordDiffers(roller.Address)) continue;
        roller.Behind = true;
        SetRollerPosition(roller);
        DrawRoller(roller);
    }
}

void SyncRollers() {
    for (const Roller& roller : Rollers.rows()) SyncWord(roller.Address);
}

} // namespace panel
