// Text by the plain definition: character after character, pixel after pixel, from a synthetic font whose
// pixels are computed and not read. What the text entries draw is held against this.
#pragma once

#include "graphics/text.h"
#include "imagekit/font.h"

#include <optional>

namespace panel {

using imagekit::FontKind;
using imagekit::FontShape;

struct PlainText {
    FontShape shape;
    TextStyle style;
    TextBackground background;
    std::vector<std::uint8_t> text;
    TextMode mode = TextMode::Draw;

    int drawInBox(TextBox box, bool list);
    void drawOnWork(QRect box);

private:
    struct Unit {
        int bytes, advance;
        std::uint16_t code;
    };
    struct Measured {
        std::vector<int> widths; // of the lines
        int characters = 0;
    };
    std::optional<Unit> unitAt(std::size_t p) const; // nullopt: the text ends
    std::optional<std::uint16_t> pairAt(std::size_t p) const;
    bool wide() const;
    bool sparse() const { return shape.Kind == FontKind::Sparse; }
    Measured measure(int width, int height, int pitch, int tolerance);
    void mask(int characters, int extra);
    void plotGlyph(std::uint16_t code, int x, int y, int cellWidth) const;
    void drawCell(std::uint16_t code, int x, int y, int cellWidth, bool list) const;
    void clean(int x, int y, int w, int h, bool list) const;
};

Encoding EncodingOf(FontKind kind);

} // namespace panel
