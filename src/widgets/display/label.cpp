#include "widgets/display/label.h"

#include "graphics/text.h"
#include "pages/language_strings.h"
#include "store/variable_store.h"
#include "widgets/display/image_animation.h"
#include "widgets/display/placement.h"

#include <algorithm>
#include <array>
#include <optional>

namespace panel {
namespace {

namespace field {
constexpr std::size_t Text = 5;
constexpr std::size_t X1 = 7;
constexpr std::size_t Y1 = 9;
constexpr std::size_t X2 = 0x0B;
constexpr std::size_t Y2 = 0x0D;
constexpr std::size_t Colour = 0x0F;
constexpr std::size_t BackColour = 0x13;
constexpr std::size_t Font = 0x17;
constexpr std::size_t TextLength = 0x19; // words
constexpr std::size_t CharSpacing = 0x1B;
constexpr std::size_t LineSpacing = 0x1C;
constexpr std::size_t Anchor = 0x1D;
constexpr std::size_t Flags = 0x1E;
constexpr std::size_t UseString = 0x1F;
constexpr std::size_t StringIndex = 0x20; // from 1; 0: none
} // namespace field

constexpr std::uint8_t OpaqueFlag = 0x01;
constexpr std::uint8_t MaskedFlag = 0x02;
constexpr std::uint16_t NoOffset = 0xFFFE; // of the word address 0xFFFF, in bytes

std::optional<LanguageString> stringOf(const Parameters& p) {
    if (p.u8(field::UseString) != 1) return std::nullopt;
    const std::uint32_t address = StringAddress(p.u16(field::StringIndex));
    return address == NoString ? std::nullopt : std::optional(ReadString(address));
}

/// A copy of the text that the store holds now; valid until the next call.
TextBytes variableText(const Parameters& p) {
    static std::array<std::uint8_t, StoreByteCount> copy;
    const std::size_t offset = static_cast<std::uint16_t>(2 * p.u16(field::Text));
    if (offset >= StoreByteCount) return {};
    const std::size_t length = std::min(2 * std::size_t{p.u16(field::TextLength)}, StoreByteCount - offset);
    const auto text = std::span(copy).first(length);
    ReadBytes(offset, text);
    return text;
}

/// Byte addresses have 16 bits. Beyond the store there is only the address of a label that has but a string.
bool hasText(const Parameters& p, bool withString) {
    const auto offset = static_cast<std::uint16_t>(2 * p.u16(field::Text));
    return offset == NoOffset ? withString : offset < StoreByteCount;
}

TextStyle styleOf(const Parameters& p, const std::optional<LanguageString>& string) {
    return {.font = TableFont(string ? string->font : p.u8(field::Font)),
            .anchor = p.u8(field::Anchor),
            .colour = string ? string->colour : p.u24(field::Colour),
            .backColour = p.u24(field::BackColour),
            .opaque = (p.u8(field::Flags) & OpaqueFlag) != 0,
            .charSpacing = p.u8(field::CharSpacing),
            .lineSpacing = string ? std::uint8_t{0} : p.u8(field::LineSpacing)};
}

bool isMasked(const Parameters& p) { return (p.u8(field::Flags) & MaskedFlag) != 0; }

QRect boxOf(const Parameters& p) {
    return QRect(QPoint(p.u16(field::X1), p.u16(field::Y1)), QPoint(p.u16(field::X2), p.u16(field::Y2)))
        .translated(PopupShift());
}

} // namespace

void DisplayLabel(const Parameters& p) {
    const auto string = stringOf(p);
    if (!hasText(p, string.has_value())) return;
    const QRect box = boxOf(p);
    const TextBackground background{.source = IsUnderAnimation(box.left(), box.top()) ? BackSource::Text
                                                                                      : BackSource::Page};
    const auto draw = p.inList() ? DrawTextList : DrawTextFrame;
    draw(styleOf(p, string), background, {box.left(), box.top(), box.right(), box.bottom()},
         string ? string->text : variableText(p), isMasked(p) ? TextMode::Masked : TextMode::Draw);
}

void DisplayLabelInGroup(const Parameters& p, QRect host) {
    const auto string = stringOf(p);
    if (!hasText(p, string.has_value())) return;
    TextStyle style = styleOf(p, string);
    if (string) style.charSpacing = 0;
    DrawTextWork(style, boxOf(p).translated(QPoint(1, 1) - host.topLeft()),
                 string ? string->text : variableText(p), isMasked(p));
}

} // namespace panel
