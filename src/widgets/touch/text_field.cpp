#include "widgets/touch/text_field.h"

#include "store/variable_store.h"

namespace panel {
namespace {

namespace field {
constexpr std::size_t Address = 11;
constexpr std::size_t Capacity = 13;
constexpr std::size_t Prefilled = 15;
} // namespace field

std::size_t startOf(const TextVariable& variable) { return 2 * std::size_t{variable.Address}; }

} // namespace

TextVariable ReadTextVariable(const Parameters& p) {
    return {.Address = p.u16(field::Address),
            .Capacity = p.u16(field::Capacity),
            .Prefilled = p.u8(field::Prefilled) == 1};
}

TextFont ReadEntryFont(const Parameters& p, std::size_t at, Encoding encoding) {
    TextFont font = TableFont(p.u8(at));
    font.encoding = encoding;
    font.width = p.u8(at + 1);
    font.height = p.u8(at + 2);
    return font;
}

void PrefillText(const TextVariable& variable, TextBytesTaken taken) {
    const std::size_t start = startOf(variable);
    for (std::size_t i = start; i < start + variable.capacityBytes(); ++i) {
        const std::uint8_t byte = ReadByte(i);
        if (byte == 0 && ReadByte(i + 1) == 0) return;
        if (taken == TextBytesTaken::Ascii && (byte & 0x80) != 0) return;
        TypeByte(byte);
    }
}

void StoreText(const TextVariable& variable) {
    constexpr std::uint8_t end[2] = {0, 0};
    StoreBytes(startOf(variable), EntryText());
    StoreBytes(startOf(variable) + EntryLength, end);
}

QRect TextLine() {
    const QPoint at = OpenField->textPlace();
    return QRect(at, QPoint(KeyboardRect().right(), at.y() + OpenField->Font.height - 1));
}

void DrawTextLine() {
    const QRect line = TextLine();
    DrawEntryText({line.left(), line.top(), line.right(), line.bottom()},
                  OpenField->Masked ? TextMode::Masked : TextMode::Draw);
}

void TypeKeyCode(const TextVariable& variable, std::uint16_t code) {
    const auto byte = static_cast<std::uint8_t>(EntryShift ? code >> 8 : code & 0xFF);
    if (TypeByte(byte, variable.capacityBytes())) DrawTextLine();
}

} // namespace panel
