#include "graphics/glyphs.h"

#include "graphics/colour.h"
#include "graphics/pieces.h"
#include "graphics/pixels.h"
#include "host/config_block.h"
#include "host/flash_image.h"

#include <algorithm>

namespace panel {
namespace {

constexpr std::size_t LargestSide = 255; // px, and no more than half a byte a pixel
constexpr std::size_t LargestGlyph = (LargestSide + 1) / 2 * LargestSide;

struct Channel {
    int shift;
    std::uint32_t mask;
};
constexpr Channel ShortChannels[] = {{11, 0x1F}, {5, 0x3F}, {0, 0x1F}};
constexpr Channel LongChannels[] = {{16, 0xFF}, {8, 0xFF}, {0, 0xFF}};

/// A colour word between two others, `value` being that of a glyph's pixel.
std::uint32_t mixedWord(std::uint32_t back, std::uint32_t fore, std::uint32_t value, int depth) {
    const std::uint32_t whole = depth == 2 ? 4 : 15;
    std::uint32_t word = 0;
    for (const Channel& channel : ColourMode == 0 ? ShortChannels : LongChannels) {
        const std::uint32_t low = back >> channel.shift & channel.mask;
        const std::uint32_t high = fore >> channel.shift & channel.mask;
        word |= (low * (whole - value) + high * value) / whole << channel.shift;
    }
    return word;
}

Pixel blendedPixel(std::uint32_t word, std::uint32_t value, int depth) {
    const std::uint32_t alpha = value * (depth == 2 ? 0x55 : 0x12);
    return Premultiplied((ExpandPixel(word, ColourKind::Opaque) & ~OpaqueBlack) | alpha << 24);
}

/// What a pixel value of a glyph lays over the surface. Values that draw nothing lay a transparent pixel.
Pixel paletteEntry(const TextStyle& style, std::uint32_t value, int depth) {
    const std::uint32_t full = (1u << depth) - 1;
    if (value == full) return ExpandPixel(style.colour, ColourKind::Opaque);
    if (depth == 1 || value > full) return 0;
    if (!style.opaque) return blendedPixel(style.colour, value, depth);
    return ExpandPixel(mixedWord(style.backColour, style.colour, value, depth), ColourKind::Opaque);
}

/// The bytes of a glyph where they lie, or, of a glyph that is not wholly in the image, a copy filled up with
/// zeros.
class GlyphBytes {
public:
    GlyphBytes(std::uint32_t address, std::size_t count) : bytes_(FlashBytes(address, count)) {
        if (bytes_.size() == count) return;
        FlashRead(copy_.data(), address, count);
        bytes_ = std::span(copy_).first(count);
    }
    GlyphBytes(const GlyphBytes&) = delete;
    GlyphBytes& operator=(const GlyphBytes&) = delete;

    const std::uint8_t* from(int offset) const { return bytes_.data() + offset; }

private:
    std::array<std::uint8_t, LargestGlyph> copy_; // only set when it is needed
    std::span<const std::uint8_t> bytes_;
};

/// Sets the pixels of up to eight set bits; the highest is bit 7.
void paintByte(Pixel* row, std::uint8_t bits, int count, Pixel pixel) {
    static constexpr std::uint32_t bitOf[8] = {0x80, 0x40, 0x20, 0x10, 8, 4, 2, 1};
    if (bits == 0) return;
    for (int i = 0; i < count; ++i) {
        const Pixel kept = row[i];
        row[i] = (bits & bitOf[i]) != 0 ? pixel : kept;
    }
}

/// A row of one bit a pixel, from column `first` on.
void paintBits(Pixel* row, const std::uint8_t* bytes, int first, int count, Pixel pixel) {
    const std::uint8_t* byte = bytes + first / 8;
    if (const int skipped = first % 8; skipped != 0) {
        const int part = std::min(8 - skipped, count);
        paintByte(row, static_cast<std::uint8_t>(*byte++ << skipped), part, pixel);
        row += part;
        count -= part;
    }
    for (; count >= 8; row += 8, count -= 8) paintByte(row, *byte++, 8, pixel);
    if (count > 0) paintByte(row, *byte, count, pixel);
}

} // namespace

GlyphPainter::GlyphPainter(const TextStyle& style, std::uint8_t depthCode)
    : width_(style.font.width), height_(style.font.height), depth_(GlyphDepth(depthCode)),
      rowBytes_(static_cast<int>(GlyphRowBytes(width_, depthCode))), coversAll_(style.opaque && depth_ > 1) {
    for (std::uint32_t value = 0; value < palette_.size(); ++value)
        palette_[value] = paletteEntry(style, value, depth_);
}

void GlyphPainter::paint(QImage& surface, QPoint at, int cellWidth, std::uint32_t glyph) const {
    const GlyphBytes bytes(glyph, static_cast<std::size_t>(rowBytes_) * height_);
    const QSize size(std::min<int>(width_, cellWidth), height_);
    ForEachRow(surface, at, size, [&](Pixel* row, int x, int y, int count) {
        const std::uint8_t* line = bytes.from(y * rowBytes_);
        if (depth_ == 1) return paintBits(row, line, x, count, palette_[1]);
        std::array<Pixel, LargestSide> source;
        Pixel* pixels = coversAll_ ? row : source.data();
        expandRow(line, x, count, pixels);
        if (!coversAll_) OverRow(row, pixels, count);
    });
}

void GlyphPainter::expandRow(const std::uint8_t* line, int first, int count, Pixel* pixels) const {
    const int perByte = 8 / depth_;
    const std::uint32_t full = (1u << depth_) - 1;
    for (int i = 0; i < count; ++i) {
        const int column = first + i;
        const int shift = (perByte - 1 - column % perByte) * depth_;
        pixels[i] = palette_[line[column / perByte] >> shift & full];
    }
}

} // namespace panel
