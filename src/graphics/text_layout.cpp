#include "graphics/text_layout.h"

#include "graphics/text.h"
#include "host/config_block.h"

#include <algorithm>

namespace panel {
namespace {

constexpr std::uint8_t Asterisk = '*';
constexpr std::uint8_t LastBoxAnchor = 8;

std::vector<std::uint8_t> asterisks(std::size_t count, bool wide) {
    std::vector<std::uint8_t> text;
    text.reserve(2 * count);
    for (std::size_t i = 0; i < count; ++i) {
        if (wide) text.push_back(0);
        text.push_back(Asterisk);
    }
    return text;
}

} // namespace

TextLayout LayOutText(const FontReader& font, std::span<const std::uint8_t> text, const LineRules& rules) {
    TextLayout layout;
    LaidLine line;
    std::size_t position = 0;
    int usedHeight = 0;
    for (;;) {
        const TextUnit unit = font.unitAt(text, position);
        const int advance = unit.width + rules.charSpacing;
        if (unit.kind == TextUnit::Kind::Character && line.width + advance <= rules.width + rules.tolerance) {
            layout.glyphs.push_back({advance, unit.glyph});
            ++line.count;
            line.width += advance;
            position += unit.bytes;
            continue;
        }
        layout.lines.push_back(line);
        usedHeight += rules.glyphHeight + rules.lineSpacing;
        if (unit.kind == TextUnit::Kind::End || rules.height < usedHeight + rules.glyphHeight) return layout;
        if (unit.kind == TextUnit::Kind::LineBreak) position += unit.bytes;
        line = {.first = layout.glyphs.size()};
    }
}

TextLayout MaskedLayout(const TextLayout& layout, const FontReader& font, const LineRules& rules, int extra) {
    const std::size_t count = layout.glyphs.size();
    SetLastTextWidth(static_cast<int>(count) * (font.asciiWidth(Asterisk) + extra + rules.charSpacing));
    return LayOutText(font, asterisks(count, HasWideUnits(font.encoding())), rules);
}

int LinesInside(const TextLayout& layout, int glyphHeight, int height) {
    return std::min(static_cast<int>(layout.lines.size()), std::max(height, 0) / glyphHeight);
}

void SetLastTextWidth(int width) { LastTextWidth = static_cast<std::uint16_t>(width); }

Side HorizontalSide(std::uint8_t anchor) {
    return anchor > LastBoxAnchor ? Side::Near : static_cast<Side>(anchor % 3);
}

Side VerticalSide(std::uint8_t anchor) {
    if (anchor > LastBoxAnchor) return Side::Near;
    constexpr Side rows[] = {Side::Centre, Side::Near, Side::Far};
    return rows[anchor / 3];
}

QSize TurnedSize(QSize size) { return Rotation == 1 || Rotation == 3 ? size.transposed() : size; }

} // namespace panel
