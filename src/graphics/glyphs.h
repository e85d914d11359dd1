// Paints the glyphs of bitmap fonts, a row at a time. Engine thread.
#pragma once

#include "graphics/font.h"
#include "graphics/pixels.h"

#include <QImage>
#include <QPoint>

#include <array>
#include <cstdint>

namespace panel {

/// What a text looks like: font, colours and spacing.
struct TextStyle {
    TextFont font{};
    std::uint8_t anchor = 0;  // see text.h
    std::uint32_t colour = 0; // words of the image, in its colour mode
    std::uint32_t backColour = 0;
    bool opaque = false; // whether the box is filled with backColour; what lies behind shows through if not
    std::uint8_t charSpacing = 0; // px added to the width of every character
    std::uint8_t lineSpacing = 0; // px between two lines
};

/// Paints glyphs of one font in one style: the full pixel value in the text colour, those between blended
/// with what is there or, in an opaque style, mixed with the background colour.
class GlyphPainter {
public:
    using Pair = std::array<Pixel, 2>;

    GlyphPainter(const TextStyle& style, std::uint8_t depthCode);

    /// Paints the glyph at address `glyph` of the image, no wider than its cell, on a surface. What is not in
    /// the image has no set pixels.
    void paint(QImage& surface, QPoint at, int cellWidth, std::uint32_t glyph) const;

private:
    /// Whether a row has no set pixels.
    bool isEmpty(const std::uint8_t* line) const;
    /// The pixels of `count` columns of a row of 2 or 4 bits a pixel.
    void expandRow(const std::uint8_t* line, int first, int count, Pixel* pixels) const;

    std::uint8_t width_, height_; // px
    int depth_;                   // bits per pixel
    int rowBytes_;
    bool coversAll_;              // every pixel value replaces what is there
    Pixel colour_;                // of the full value
    std::array<Pair, 256> pairs_; // by two values side by side; of 2 and 4 bits a pixel
};

} // namespace panel
