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
constexpr std::size_t Scale = 0x0F; // and the read-out
constexpr std::size_t Group = 0x27;
} // namespace field

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
    CurrentImage = foreground; // a compressed background has left its height there
    BlitSector(foreground, ReadRingScale(p, field::Scale).angleOf(value)); // here the value has no sign
    DrawRingReadout(ReadRingReadout(p, field::Scale + RingScaleBytes), area,
                    static_cast<std::int16_t>(value));
    if (p.u16(field::Group) != NoGroup) DrawGroupInRect(CurrentPage, p.u16(field::Group), area);
    LandWork({at, QSize(CurrentImage.Width, CurrentImage.Height)}, 0);
}

} // namespace panel
