#include "widgets/display/analog_clock.h"

#include "graphics/image_blit.h"
#include "graphics/shapes.h"
#include "store/clock.h"
#include "widgets/display/placement.h"
#include "widgets/touch/open_entry.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t X = 5;
constexpr std::size_t Y = 7;
constexpr std::size_t Face = 9;
constexpr std::size_t HourHand = 0x0B;
constexpr std::size_t MinuteHand = 0x11;
constexpr std::size_t SecondHand = 0x17;
constexpr std::size_t Cap = 0x1D;
} // namespace field

/// Within the bytes of a hand.
namespace hand {
constexpr std::size_t Ahead = 0;
constexpr std::size_t Behind = 1;
constexpr std::size_t Width = 2;
constexpr std::size_t Colour = 3; // u24
} // namespace hand

ClockHand handAt(const Parameters& p, std::size_t at) {
    return {.Ahead = p.u8(at + hand::Ahead),
            .Behind = p.u8(at + hand::Behind),
            .Width = p.u8(at + hand::Width),
            .Colour = p.u24(at + hand::Colour)};
}

void takeParameters(AnalogClockRow& row, const Parameters& p) {
    const QPoint shift = PopupShift();
    row.InList = p.inList();
    row.X = static_cast<std::uint16_t>(p.u16(field::X) + shift.x());
    row.Y = static_cast<std::uint16_t>(p.u16(field::Y) + shift.y());
    row.Face = TableImageRow(p.u16(field::Face));
    row.Cap = TableImageRow(p.u16(field::Cap));
    row.HourHand = handAt(p, field::HourHand);
    row.MinuteHand = handAt(p, field::MinuteHand);
    row.SecondHand = handAt(p, field::SecondHand);
}

/// `degrees` clockwise from twelve o'clock. The centre is a whole pixel, also in a face of odd size.
void drawHand(const ClockHand& hand, QPoint centre, int degrees) {
    const float sine = SinDeg(degrees), cosine = CosDeg(degrees);
    const auto x = static_cast<float>(centre.x()), y = static_cast<float>(centre.y());
    const float ahead = hand.Ahead, behind = hand.Behind;
    const auto radius = static_cast<float>(hand.Width / 2);
    DrawCapsule(x + ahead * sine, y - ahead * cosine, x - behind * sine, y + behind * cosine, radius,
                hand.Colour);
}

void drawHands(const AnalogClockRow& row, QPoint centre) {
    const int hours = Clock.Hour, minutes = Clock.Minute, seconds = Clock.Second;
    drawHand(row.HourHand, centre, minutes / 2 + hours % 12 * 30);
    drawHand(row.MinuteHand, centre, seconds / 10 + minutes * 6);
    drawHand(row.SecondHand, centre, seconds * 6);
}

} // namespace

void DisplayAnalogClock(const Parameters& p) {
    AnalogClockRow* row = AnalogClocks.append();
    if (!row) return;
    takeParameters(*row, p);
    DrawAnalogClock(*row);
}

void ForgetAnalogClocks() { AnalogClocks.clear(); }

void AnalogClockTick() {
    if (AnalogClocks.empty() || !SecondTick.exchange(0)) return;
    for (const AnalogClockRow& row : AnalogClocks.rows()) DrawAnalogClock(row);
}

void DrawAnalogClock(const AnalogClockRow& row) {
    const QRect area(row.X, row.Y, row.Face.Width, row.Face.Height);
    if (!DrawsSomething(row.Face) || OverlapsOpenEntry(area.x(), area.y(), area.width(), area.height()))
        return;
    BackdropToWork(area, row.InList);
    BlitToWork(row.Face, {0, 0});
    const QPoint centre(row.Face.Width / 2, row.Face.Height / 2);
    drawHands(row, centre);
    BlitToWork(row.Cap, centre - QPoint(row.Cap.Width / 2, row.Cap.Height / 2));
    LandWork(area, row.InList);
}

void RefreshAnalogClock(std::uint16_t /*page*/, const Parameters& p, bool blockChanged) {
    AnalogClockRow* row = AnalogClocks.at(AnalogClockCursor);
    if (row && blockChanged) takeParameters(*row, p);
}

} // namespace panel
