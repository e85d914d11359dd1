#include "widgets/display/ring_gauge.h"

#include "graphics/image_blit.h"
#include "pages/page_switch.h"
#include "store/variable_store.h"
#include "widgets/display/group.h"
#include "widgets/display/placement.h"
#include "widgets/display/ring_picture.h"
#include "widgets/display/sector.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Value = 5;
constexpr std::size_t X = 7;
constexpr std::size_t Y = 9;
constexpr std::size_t Foreground = 0x0B;
constexpr std::size_t Background = 0x0D;
constexpr std::size_t Lowest = 0x0F;
constexpr std::size_t Highest = 0x11;
constexpr std::size_t StartAngle = 0x13;
constexpr std::size_t EndAngle = 0x15;
constexpr std::size_t ReadoutX = 0x17;
constexpr std::size_t ReadoutY = 0x19;
constexpr std::size_t IntegerDigits = 0x1B;
constexpr std::size_t DecimalDigits = 0x1C;
constexpr std::size_t Alignment = 0x1D;
constexpr std::size_t Font = 0x1E;
constexpr std::size_t Colour = 0x1F;
constexpr std::size_t FirstDigit = 0x22;
constexpr std::size_t Mode = 0x26;
constexpr std::size_t Group = 0x27;
} // namespace field

RingScale scaleOf(const Parameters& p) {
    return {.lowest = p.i16(field::Lowest),
            .highest = p.i16(field::Highest),
            .start = p.u16(field::StartAngle),
            .end = p.u16(field::EndAngle)};
}

RingReadout readoutOf(const Parameters& p) {
    return {
        .at = QPoint(p.u16(field::ReadoutX), p.u16(field::ReadoutY)) + PopupShift(),
        .format = {.integerDigits = p.u8(field::IntegerDigits), .decimalDigits = p.u8(field::DecimalDigits)},
        .alignment = static_cast<NumberAlignment>(p.u8(field::Alignment)),
        .font = p.u8(field::Font),
        .colour = p.u24(field::Colour),
        .firstImage = p.u16(field::FirstDigit),
        .mode = static_cast<ReadoutMode>(p.u8(field::Mode))};
}

} // namespace

void DisplayRingGauge(const Parameters& p) {
    const std::uint16_t address = p.u16(field::Value);
    if (!IsStoreWord(address)) return;
    const ImageRow foreground = TableImageRow(p.u16(field::Foreground));
    CurrentImage = foreground;
    if (!foreground.hasPicture()) return;
    BackdropRow = {foreground};
    const QPoint at = QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift();
    const QRect area(at, QSize(foreground.Width, foreground.Height));
    const std::uint16_t value = ReadWord(address);
    DrawRingBackground(p.u16(field::Background), area);
    BlitSector(foreground, scaleOf(p).angleOf(value)); // here the value has no sign
    DrawRingReadout(readoutOf(p), area, static_cast<std::int16_t>(value));
    if (p.u16(field::Group) != NoGroup) DrawGroupInRect(CurrentPage, p.u16(field::Group), area);
    LandWork({at, QSize(CurrentImage.Width, CurrentImage.Height)}, 0);
}

} // namespace panel
