#include "graphics/font.h"

#include "host/flash_image.h"

#include <cstring>

namespace panel {
namespace {

// Byte offsets from the address of a font.
constexpr std::uint32_t GlyphWidthOffset = 2;
constexpr std::uint32_t GlyphHeightOffset = 3;
constexpr std::uint32_t FirstCodeOffset = 4;
constexpr std::uint32_t LastCodeOffset = 6;
constexpr std::uint32_t DepthOffset = 8;
constexpr std::uint32_t WidthTableOffset = 9;
constexpr std::uint32_t CodeListOffset = 9; // in a sparse font, which has no table of widths
constexpr std::uint32_t GlyphsOffset = 0x68;

constexpr std::uint32_t AsciiFirst = 0x20;
constexpr std::uint32_t AsciiGlyphs = 0x5F; // the characters 0x20..0x7E, at the start of the glyphs
constexpr std::uint16_t LineBreakCode = 10;
constexpr std::uint16_t LastSingle = 0x7F;

Encoding encodingOfKind(std::uint32_t address) {
    std::array<char, 2> kind{};
    FlashRead(kind.data(), address, kind.size());
    const auto is = [&](const char* letters) { return std::memcmp(kind.data(), letters, kind.size()) == 0; };
    if (is("GK")) return Encoding::Gbk;
    if (is("BG")) return Encoding::Big5;
    if (is("AS")) return Encoding::Ascii;
    if (is("un")) return Encoding::Proportional;
    if (is("SS")) return Encoding::Sparse;
    return Encoding::Gb2312;
}

bool isPair(Encoding encoding, std::uint8_t lead, std::uint8_t second) {
    switch (encoding) {
    case Encoding::Gb2312: return lead >= 0xA1 && lead <= 0xFE;
    case Encoding::Gbk: return lead >= 0x81 && lead <= 0xFE && second >= 0x40;
    case Encoding::Big5: return lead >= 0xA1 && second >= 0x40;
    default: return false;
    }
}

/// The place of a pair among the double-byte glyphs. Pairs that no character has may lie before the first
/// one, which wraps around.
std::uint32_t pairIndex(Encoding encoding, std::uint32_t lead, std::uint32_t second) {
    switch (encoding) {
    case Encoding::Gbk: return (lead - 0x81) * 0xBE + second - (second < 0x80 ? 0x40 : 0x41);
    case Encoding::Big5: {
        const std::uint32_t column = second < 0x80 ? second - 0x40 : second >= 0xA0 ? second - 0x60 : 0;
        return (lead - 0xA1) * 0xA0 + column;
    }
    default: return (lead - 0xA1) * 0x5E + second - 0xA1;
    }
}

/// Index of the first of the codes (two bytes each, low byte first) that equals `code`, or their number.
/// A font has up to 65535 codes and a text half as many characters, so the search goes by blocks that the
/// compiler turns into vectors.
std::size_t findCode(std::span<const std::uint8_t> codes, std::uint16_t code) {
    constexpr std::size_t block = 64;
    const std::uint8_t bytes[] = {static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(code >> 8)};
    std::uint16_t wanted;
    std::memcpy(&wanted, bytes, sizeof wanted);
    const auto differs = [&](std::size_t index) -> std::uint16_t {
        std::uint16_t there;
        std::memcpy(&there, &codes[2 * index], sizeof there);
        return there != wanted;
    };
    const auto blockHasIt = [&](std::size_t first) {
        std::uint16_t allDiffer = 1;
        for (std::size_t i = 0; i < block; ++i) allDiffer &= differs(first + i);
        return allDiffer == 0;
    };
    const std::size_t count = codes.size() / 2;
    std::size_t index = 0;
    while (index + block <= count && !blockHasIt(index)) index += block;
    while (index < count && differs(index)) ++index;
    return index;
}

} // namespace

TextFont FontAt(std::uint32_t address) {
    return {encodingOfKind(address), address, ReadU8(address + GlyphWidthOffset),
            ReadU8(address + GlyphHeightOffset)};
}

TextFont TableFont(std::uint8_t index) { return FontAt(ReadU32(Sections.FontTable + FontRowBytes * index)); }

std::uint64_t FontBytes(const TextFont& font) {
    const std::uint64_t glyph =
        GlyphRowBytes(font.width, ReadU8(font.address + DepthOffset)) * std::uint64_t{font.height};
    const std::uint64_t first = ReadU16(font.address + FirstCodeOffset);
    const std::uint64_t last = ReadU16(font.address + LastCodeOffset);
    if (font.encoding == Encoding::Sparse) return CodeListOffset + first * (2 + 1 + glyph);
    const std::uint64_t ascii = GlyphsOffset + AsciiGlyphs * glyph;
    if (font.encoding != Encoding::Proportional || last < first) return ascii;
    return ascii + (last + 1 - first) * (1 + glyph);
}

FontReader::FontReader(const TextFont& font)
    : font_(font), firstCode_(ReadU16(font.address + FirstCodeOffset)),
      lastCode_(ReadU16(font.address + LastCodeOffset)), depthCode_(ReadU8(font.address + DepthOffset)),
      glyphBytes_(GlyphRowBytes(font.width, depthCode_) * std::uint32_t{font.height}) {
    FlashRead(widthTable_.data(), font.address + WidthTableOffset, widthTable_.size());
}

std::uint8_t FontReader::asciiWidth(std::uint16_t code) const {
    const std::uint32_t index = code - AsciiFirst;
    return index < widthTable_.size() ? widthTable_[index] : std::uint8_t{0};
}

TextUnit FontReader::unitAt(std::span<const std::uint8_t> text, std::size_t position) const {
    if (position >= text.size() || !IsKnownEncoding(font_.encoding)) return {};
    const auto rest = text.subspan(position);
    if (!HasWideUnits(font_.encoding)) return byteUnit(rest);
    return rest.size() < 2 ? TextUnit{} : wideUnit(static_cast<std::uint16_t>(rest[0] << 8 | rest[1]));
}

TextUnit FontReader::byteUnit(std::span<const std::uint8_t> rest) const {
    const std::uint8_t first = rest[0];
    if (first == 0) return {};
    if (first == LineBreakCode) return {TextUnit::Kind::LineBreak, 1};
    if (first <= LastSingle) return asciiUnit(first, 1);
    if (rest.size() < 2 || !isPair(font_.encoding, first, rest[1])) return {};
    return {TextUnit::Kind::Character, 2, font_.width,
            blockGlyph(AsciiGlyphs + pairIndex(font_.encoding, first, rest[1]))};
}

TextUnit FontReader::wideUnit(std::uint16_t code) const {
    if (code == 0) return {};
    if (code == LineBreakCode) return {TextUnit::Kind::LineBreak, 2};
    if (font_.encoding == Encoding::Sparse) return sparseUnit(code);
    if (code <= LastSingle) return asciiUnit(code, 2);
    if (code < firstCode_ || code > lastCode_) return {};
    const std::uint32_t index = code - firstCode_;
    if (font_.encoding == Encoding::Proportional) return entryUnit(blockGlyph(AsciiGlyphs), index);
    return {TextUnit::Kind::Character, 2, font_.width, blockGlyph(AsciiGlyphs + index)};
}

TextUnit FontReader::sparseUnit(std::uint16_t code) const {
    const std::uint32_t listBytes = 2u * firstCode_;
    const std::uint32_t list = font_.address + CodeListOffset;
    const auto codes = FlashBytes(list, listBytes);
    const std::size_t index = findCode(codes, code);
    if (index >= codes.size() / 2) return {};
    return entryUnit(list + listBytes, static_cast<std::uint32_t>(index));
}

TextUnit FontReader::asciiUnit(std::uint16_t code, std::uint8_t bytes) const {
    return {TextUnit::Kind::Character, bytes, asciiWidth(code), blockGlyph(code - AsciiFirst)};
}

TextUnit FontReader::entryUnit(std::uint32_t entries, std::uint32_t index) const {
    const std::uint32_t entry = entries + index * (1 + glyphBytes_);
    return {TextUnit::Kind::Character, 2, ReadU8(entry), entry + 1};
}

std::uint32_t FontReader::blockGlyph(std::uint32_t index) const {
    return font_.address + GlyphsOffset + index * glyphBytes_;
}

} // namespace panel
