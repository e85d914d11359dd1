// Fonts on their way into an image: drawn from an installed face, or synthetic, with glyphs that are a
// pattern of their code, so that a test can predict every pixel. And texts in the encoding of a font.
#pragma once

#include "imagekit/byte_writer.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace imagekit {

/// The kinds of fonts. All but a sparse font begin with the characters 0x20..0x7E.
enum class FontKind : std::uint8_t {
    Gb2312, // all pairs A1..FE x A1..FE
    Gbk,    // all pairs 81..FE x 40..FE without 7F; 766 KB at 16 x 16 pixels of one bit
    Big5,   // all pairs A1..FF x 40..FF without 80..9F
    Ascii,  // no more characters
    Wide,   // a range of 16-bit codes, all as wide as the cell; the panel uses it for rolling texts alone
    Proportional, // the same, each with a width of its own
    Sparse,       // any 16-bit codes, by a list
};

struct FontShape {
    FontKind Kind = FontKind::Ascii;
    std::uint8_t Width = 8; // px of a cell, 1 or more
    std::uint8_t Height = 16;
    std::uint8_t Depth = 1;                    // bits a pixel: 1, 2 or 4
    std::uint16_t FirstCode = 0, LastCode = 0; // of Wide and Proportional, both inclusive
    std::vector<std::uint16_t> Codes{};        // of Sparse, in the order of the list
};

/// A character as it is to be stored.
struct Glyph {
    std::uint8_t Advance = 0; // px; of no meaning where all are as wide as the cell
    std::vector<std::uint8_t>
        Values{}; // Width x Height pixel values from the top left on; empty: none is set
};

/// Gives the glyph of a code: an ASCII character, a pair (lead byte high) or a 16-bit code.
using GlyphSource = std::function<Glyph(std::uint16_t code)>;

struct StoredFont {
    FontKind Kind = FontKind::Ascii;
    Bytes Data{};
};

/// Throws for a cell, depth, range or list that no font has.
StoredFont EncodeFont(const FontShape& shape, const GlyphSource& glyphs);

/// An installed face. A QGuiApplication must exist.
struct Face {
    QString Family{};
    int PixelSize = 0;    // px of the em square; 0: the height of the cell
    int Weight = 50;      // as QFont::Weight
    QString Characters{}; // draws these alone, to save time; empty: all that the font has room for
};

/// The face's glyphs, on one line, cut to the cell. Codes of 16 bits are UTF-16.
StoredFont RasterFont(const FontShape& shape, const Face& face);
/// A sparse font of the characters of a text, each once.
StoredFont SparseRasterFont(FontShape shape, Face face, const QString& characters);

/// A font whose glyphs have the pixels of SyntheticPixel() and the widths of SyntheticAdvance().
StoredFont SyntheticFont(const FontShape& shape);
/// Every pixel value occurs, and no two codes look alike.
std::uint8_t SyntheticPixel(const FontShape& shape, std::uint16_t code, int x, int y);
/// 1 to Width + 2 px, so that some characters are narrower than the cell and some wider.
std::uint8_t SyntheticAdvance(const FontShape& shape, std::uint16_t code);

/// The bytes of a text in the encoding of a font, without an end. Throws when the encoding lacks a character.
Bytes EncodeText(const QString& text, FontKind kind);

} // namespace imagekit
