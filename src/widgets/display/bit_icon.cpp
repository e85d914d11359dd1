#include "widgets/display/bit_icon.h"

#include "store/variable_store.h"
#include "widgets/display/placement.h"
#include "widgets/touch/key_image.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Value = 5;
constexpr std::size_t X = 7;
constexpr std::size_t Y = 9;
constexpr std::size_t Bit = 0x0B;
constexpr std::size_t ClearImage = 0x0C;
constexpr std::size_t SetImage = 0x0E;
constexpr std::size_t Backdrop = 0x10;
constexpr std::size_t Group = 0x11;
} // namespace field

/// Bits 16 to 31 can be named, and are never set.
bool testBit(const Parameters& p, std::uint16_t word) {
    return (std::uint32_t{word} >> (p.u8(field::Bit) & 0x1F) & 1) != 0;
}

QPoint placeOf(const Parameters& p) { return QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift(); }

std::uint16_t currentImage(const Parameters& p) {
    return p.u16(testBit(p, ReadWord(p.u16(field::Value))) ? field::SetImage : field::ClearImage);
}

} // namespace

void DisplayBitIcon(const Parameters& p) {
    const std::uint16_t group = p.u16(field::Group);
    if (group != NoGroup)
        DrawKeyImageWithGroup(currentImage(p), placeOf(p), group, p.inList());
    else
        DrawKeyImage(currentImage(p), placeOf(p), static_cast<Backdrop>(p.u8(field::Backdrop)), p.inList());
}

void DisplayBitIconInGroup(const Parameters& p, QRect host) {
    BlitKeyImage(currentImage(p), placeOf(p) - host.topLeft());
}

bool BitChanged(const Parameters& p) {
    const std::uint16_t address = p.u16(field::Value);
    return testBit(p, ReadWord(address) ^ ShadowWord(address));
}

bool BitChangedInGroup(const Parameters& p) { return !p.inStore() && BitChanged(p); }

} // namespace panel
