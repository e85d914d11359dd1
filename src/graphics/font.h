// The bitmap fonts of the image: their encodings, and how a text falls into characters with a width and a
// glyph. Engine thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace panel {

/// How the bytes of a text name glyphs. A record can hold any number; one that is not listed draws no text.
enum class Encoding : std::uint16_t {
    Gb2312 = 0, // byte pairs beside single bytes below 0x80, as in the next two
    Gbk = 1,
    Big5 = 2,
    Wide = 3, // 16-bit codes, high byte first, all of one width but for ASCII; no font names it
    Ascii = 4,
    Proportional = 6, // 16-bit codes, each with a width of its own
    Sparse = 9,       // the same, by a list of the codes that the font has
};

constexpr bool IsKnownEncoding(Encoding encoding) {
    const auto number = static_cast<std::uint16_t>(encoding);
    return number <= 4 || encoding == Encoding::Proportional || encoding == Encoding::Sparse;
}
/// Whether every character takes two bytes.
constexpr bool HasWideUnits(Encoding encoding) {
    return encoding == Encoding::Wide || encoding == Encoding::Proportional || encoding == Encoding::Sparse;
}

/// A font of the image, as the text entries take it.
struct TextFont {
    Encoding encoding = Encoding::Gb2312;
    std::uint32_t address = 0;
    std::uint8_t width = 0; // px, of a glyph; what a double-byte character moves the pen
    std::uint8_t height = 0;
};

inline constexpr std::uint32_t FontRowBytes = 8; // of the font table

/// The font at an address, in the encoding that its kind names; a kind that nobody knows counts as GB2312.
TextFont FontAt(std::uint32_t address);
/// The font of a row of the font table.
TextFont TableFont(std::uint8_t index);

/// Bytes of a font from its address on, as its head tells them. Nothing tells how many double-byte characters
/// a font has: without a range of codes only the ASCII characters count.
std::uint64_t FontBytes(const TextFont& font);

constexpr bool IsKnownDepth(std::uint8_t depthCode) { return depthCode <= 2; }
/// Bits per pixel of a depth code; an unknown one counts as 1 bit.
constexpr int GlyphDepth(std::uint8_t depthCode) { return IsKnownDepth(depthCode) ? 1 << depthCode : 1; }

/// Bytes of a row of a glyph.
constexpr std::uint32_t GlyphRowBytes(std::uint8_t width, std::uint8_t depthCode) {
    return (static_cast<std::uint32_t>(GlyphDepth(depthCode)) * width + 7) / 8;
}

/// A character of a text, or what stands in its place.
struct TextUnit {
    enum class Kind : std::uint8_t {
        End,       // the text ends here: at its length, at a zero byte, at what the encoding does not know
        LineBreak, // code 10
        Character,
    };
    Kind kind = Kind::End;
    std::uint8_t bytes = 0;  // length in the text: 1 or 2, 0 at the end
    std::uint8_t width = 0;  // px that the pen moves, without spacing
    std::uint32_t glyph = 0; // address of the bitmap, which may lie outside the image
};

/// Reads texts in one font. Takes a copy of the font's head; glyphs and code lists are read where they lie.
class FontReader {
public:
    explicit FontReader(const TextFont& font);

    Encoding encoding() const { return font_.encoding; }
    std::uint8_t depthCode() const { return depthCode_; }
    /// The width of a character 0x20..0x7E in px; 0 for other codes. A sparse font has no such widths: what
    /// stands in their place there is taken, as the panel takes it.
    std::uint8_t asciiWidth(std::uint16_t code) const;
    /// What stands at text[position]. A character that the end of the text cuts in two ends it.
    TextUnit unitAt(std::span<const std::uint8_t> text, std::size_t position) const;

private:
    TextUnit byteUnit(std::span<const std::uint8_t> rest) const;
    TextUnit wideUnit(std::uint16_t code) const;
    TextUnit sparseUnit(std::uint16_t code) const;
    TextUnit asciiUnit(std::uint16_t code, std::uint8_t bytes) const;
    /// An entry of one byte for the width and the bitmap behind it.
    TextUnit entryUnit(std::uint32_t entries, std::uint32_t index) const;
    /// The address of a bitmap in the block that starts with the ASCII characters.
    std::uint32_t blockGlyph(std::uint32_t index) const;

    TextFont font_;
    std::uint16_t firstCode_; // in a sparse font: the number of codes
    std::uint16_t lastCode_;
    std::uint8_t depthCode_;
    std::uint32_t glyphBytes_;
    std::array<std::uint8_t, 95> widthTable_;
};

} // namespace panel
