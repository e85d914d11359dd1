#include "widgets/display/number.h"

#include "graphics/text.h"
#include "host/config_block.h"
#include "widgets/display/number_record.h"
#include "widgets/display/number_text.h"
#include "widgets/display/placement.h"

#include <algorithm>

namespace panel {
namespace {

namespace field {
constexpr std::size_t X = 7;
constexpr std::size_t Y = 9;
constexpr std::size_t Colour = 0x0B;
constexpr std::size_t Font = 0x0F;
constexpr std::size_t Alignment = 0x11; // bit 7: leading zeros
constexpr std::size_t IntegerDigits = 0x12;
constexpr std::size_t DecimalDigits = 0x13;
constexpr std::size_t DataType = 0x14;
constexpr std::size_t UnitLength = 0x15;
constexpr std::size_t Unit = 0x16; // then the address of the hide word
} // namespace field

/// The unit text of a record, up to 255 bytes.
class Unit {
public:
    explicit Unit(const Parameters& p) : count_(p.u8(field::UnitLength)) {
        for (std::size_t i = 0; i < count_; ++i) bytes_[i] = p.u8(field::Unit + i);
    }
    std::span<const std::uint8_t> bytes() const { return std::span(bytes_).first(count_); }

private:
    std::array<std::uint8_t, 255> bytes_{};
    std::size_t count_;
};

NumberAlignment alignmentOf(const Parameters& p) { return AlignmentIn(p.u8(field::Alignment)); }

NumberFormat formatOf(const Parameters& p) {
    return {.integerDigits = p.u8(field::IntegerDigits),
            .decimalDigits = p.u8(field::DecimalDigits),
            .leadingZeros = LeadingZerosIn(p.u8(field::Alignment))};
}

/// Digits and unit are single-byte characters in any font.
TextStyle styleOf(const Parameters& p) {
    TextFont font = TableFont(p.u8(field::Font));
    font.encoding = Encoding::Ascii;
    return {
        .font = font, .anchor = static_cast<std::uint8_t>(alignmentOf(p)), .colour = p.u24(field::Colour)};
}

QPoint positionOf(const Parameters& p) { return QPoint(p.u16(field::X), p.u16(field::Y)) + PopupShift(); }

bool isHidden(const Parameters& p) { return HidesNumber(p.u16(field::Unit + p.u8(field::UnitLength))); }

/// The width in px of a text in a box that has room for `characters` of them.
int measure(const TextStyle& style, int characters, TextBytes text, bool upright) {
    constexpr int longestSide = 0xFFFF;
    const int length = std::min(style.font.width * characters, longestSide);
    const int height = style.font.height;
    const TextBox box =
        upright ? TextBox{0, 0, length - 1, height - 1} : TextBox{0, 0, height - 1, length - 1};
    return DrawTextFrame(style, {}, box, text, TextMode::Measure);
}

/// The characters that the page's box has room for. A sign has some only in a signed type, and the 0 before
/// the point where there are no integer digits.
int charactersOnPage(const Parameters& p) {
    const NumberFormat format = formatOf(p);
    const int point = format.decimalDigits > 0 ? 1 : 0;
    const int sign = (p.u8(field::DataType) & TypeSignedBit) != 0 ? 1 : 0;
    const int zero = format.integerDigits == 0 ? 1 : 0;
    return format.digits() + p.u8(field::UnitLength) + point + sign + zero;
}

/// The larger of the width and all that this number had before on this page.
int widthInForce(int width) {
    if (NumberCursor >= NumberWidthMemory.size()) return width;
    std::uint16_t& widest = NumberWidthMemory[NumberCursor];
    widest = std::max(widest, static_cast<std::uint16_t>(width));
    return widest;
}

QRect clipRight(QRect box) {
    box.setRight(std::min(box.right(), DisplayWidth - 1));
    return box;
}
QRect clipBottom(QRect box) {
    box.setBottom(std::min(box.bottom(), DisplayHeight - 1));
    return box;
}

QRect boxOnPage(NumberAlignment alignment, QPoint at, int width, int height) {
    switch (alignment) {
    case NumberAlignment::Left: return clipRight({at.x(), at.y(), width, height});
    case NumberAlignment::Centre: return clipRight({at.x() - width / 2, at.y(), width, height});
    case NumberAlignment::Right: return {at.x() - width, at.y(), width, height};
    default: return {0, at.y(), width, height};
    }
}

// The box of a number in a group, by the panel's Rotation: the text of `width` px runs right, down, left or
// up.

QRect leftInGroup(int rotation, QPoint at, int width, int height) {
    switch (rotation) {
    case 1: return {at.x() - height, at.y(), height, width};
    case 2: {
        const int left = at.x() < width ? 0 : at.x() + 1 - width;
        return clipRight({left, at.y() + 1 - height, width, height});
    }
    case 3: return {at.x(), at.y() - width, height, width};
    default: return clipRight({at.x(), at.y(), width, height});
    }
}

QRect centredInGroup(int rotation, QPoint at, int width, int height) {
    switch (rotation) {
    case 1: return {at.x() - height, at.y() + 1 - width / 2, height, width};
    case 2: {
        const int left = at.x() < width ? 0 : at.x() + 1 - width / 2;
        return clipRight({left, at.y() + 1 - height, width, height});
    }
    case 3: {
        const int top = at.y() < width / 2 ? 0 : at.y() + 1 - width / 2;
        return clipBottom({at.x(), top, height, width});
    }
    default: return clipRight({std::max(at.x() - width / 2, 0), at.y(), width, height});
    }
}

QRect rightInGroup(int rotation, QPoint at, int width, int height) {
    switch (rotation) {
    case 1: return {at.x() - height, at.y() - width, height, width};
    case 2: return clipRight({at.x(), at.y() + 1 - height, width, height});
    case 3: return clipBottom({at.x(), at.y(), height, width});
    default:
        if (at.x() + 1 < width) return {0, at.y(), at.x(), height};
        return {at.x() + 1 - width, at.y(), width, height};
    }
}

QRect boxInGroup(NumberAlignment alignment, int rotation, QPoint at, int width, int height) {
    switch (alignment) {
    case NumberAlignment::Left: return leftInGroup(rotation, at, width, height);
    case NumberAlignment::Centre: return centredInGroup(rotation, at, width, height);
    case NumberAlignment::Right: return rightInGroup(rotation, at, width, height);
    default: return {0, 0, width, height};
    }
}

} // namespace

void ForgetNumberWidths() { NumberWidthMemory.fill(0); }

void DisplayNumber(const Parameters& p) {
    const std::uint16_t address = NumberAddress(p);
    if (!IsStoreWord(address)) return;
    const TextStyle style = styleOf(p);
    const NumericValue value = ReadNumeric(address, p.u8(field::DataType));
    const NumberText text = PageNumberText(value, formatOf(p), Unit(p).bytes());
    const int width = widthInForce(measure(style, charactersOnPage(p), text.bytes(), true));
    const QRect box = boxOnPage(alignmentOf(p), positionOf(p), width, style.font.height);
    if (box.isEmpty()) return;
    const auto draw = p.inList() ? DrawTextList : DrawTextFrame;
    draw(style, {}, {box.left(), box.top(), box.right(), box.bottom()}, text.bytes(), TextMode::Draw);
    if (isHidden(p)) RestoreBackground(box);
}

void DisplayNumberInGroup(const Parameters& p, QRect host) {
    if (isHidden(p)) return;
    const TextStyle style = styleOf(p);
    const NumberFormat format = formatOf(p);
    const NumberText text = GroupNumberText(ReadNumericStrictly(NumberAddress(p), p.u8(field::DataType)),
                                            format, Unit(p).bytes());
    const int characters = format.digits() + 2 + p.u8(field::UnitLength);
    const bool upright = Rotation != 1 && Rotation != 3;
    const int width = measure(style, characters, text.bytes(), upright);
    const QRect box = boxInGroup(alignmentOf(p), Rotation, positionOf(p), width, style.font.height);
    DrawTextWork(style, box.translated(QPoint(1, 1) - host.topLeft()), text.bytes());
}

} // namespace panel
