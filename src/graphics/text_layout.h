// Breaks a text into lines, and what the text entries share about boxes, anchors and masking.
#pragma once

#include "graphics/font.h"

#include <QSize>

#include <cstdint>
#include <span>
#include <vector>

namespace panel {

/// The room that a text has, in px.
struct LineRules {
    int width = 0;
    int height = 0;
    int glyphHeight = 0; // 1 or more
    int charSpacing = 0;
    int lineSpacing = 0;
    int tolerance = 0; // px that a line may be wider than the room
};

struct LaidGlyph {
    int advance = 0;         // px, with spacing
    std::uint32_t glyph = 0; // address of the bitmap
};

struct LaidLine {
    std::size_t first = 0; // of the glyphs
    std::size_t count = 0;
    int width = 0; // px
};

struct TextLayout {
    std::vector<LaidLine> lines; // one at least, which may not fit into the height
    std::vector<LaidGlyph> glyphs;

    std::span<const LaidGlyph> glyphsOf(const LaidLine& line) const {
        return std::span(glyphs).subspan(line.first, line.count);
    }
};

/// Lines are broken between any two characters and at code 10, until the text or the height ends. A character
/// wider than the room leaves the rest of the lines empty.
TextLayout LayOutText(const FontReader& font, std::span<const std::uint8_t> text, const LineRules& rules);
/// As many asterisks as the layout has characters, by the same rules. Sets LastTextWidth to their width, with
/// `extra` px more for each.
TextLayout MaskedLayout(const TextLayout& layout, const FontReader& font, const LineRules& rules, int extra);

/// How many lines of the layout a box of `height` px has room for; spacing between them does not count.
int LinesInside(const TextLayout& layout, int glyphHeight, int height);

void SetLastTextWidth(int width);

/// Where an anchor puts a text in its box; left and top are near. Anchors above 8 are taken as left and top.
enum class Side : std::uint8_t { Near, Centre, Far };
Side HorizontalSide(std::uint8_t anchor);
Side VerticalSide(std::uint8_t anchor);

/// The size with width and height exchanged when the panel's Rotation is a quarter turn.
QSize TurnedSize(QSize size);

} // namespace panel
