#include "graphics/glyphs.h"

#include "graphics/colour.h"
#include "graphics/pieces.h"
#include "graphics/pixels.h"
#include "host/config_block.h"
#include "host/flash_image.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

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
    if (depth == 1) return 0;
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

/// Four pixels by the bits of a nibble, the highest first.
constexpr Pixel NibbleMasks[16][4] = {
    {0, 0, 0, 0},     {0, 0, 0, ~0u},     {0, 0, ~0u, 0},     {0, 0, ~0u, ~0u},
    {0, ~0u, 0, 0},   {0, ~0u, 0, ~0u},   {0, ~0u, ~0u, 0},   {0, ~0u, ~0u, ~0u},
    {~0u, 0, 0, 0},   {~0u, 0, 0, ~0u},   {~0u, 0, ~0u, 0},   {~0u, 0, ~0u, ~0u},
    {~0u, ~0u, 0, 0}, {~0u, ~0u, 0, ~0u}, {~0u, ~0u, ~0u, 0}, {~0u, ~0u, ~0u, ~0u},
};

void paintNibble(Pixel* row, int nibble, Pixel pixel) {
    const Pixel* mask = NibbleMasks[nibble];
    for (int i = 0; i < 4; ++i) row[i] = (row[i] & ~mask[i]) | (pixel & mask[i]);
}

/// Sets the pixels of the first `count` bits, up to eight, that are set; the highest is the first.
void paintSomeBits(Pixel* row, std::uint8_t bits, int count, Pixel pixel) {
    for (int i = 0; i < count; ++i)
        if ((bits & 0x80 >> i) != 0) row[i] = pixel;
}

void paintByte(Pixel* row, std::uint8_t bits, Pixel pixel) {
    if (bits == 0) return;
    paintNibble(row, bits >> 4, pixel);
    paintNibble(row + 4, bits & 15, pixel);
}

/// A row of one bit a pixel, from column `first` on.
void paintBits(Pixel* row, const std::uint8_t* bytes, int first, int count, Pixel pixel) {
    const std::uint8_t* byte = bytes + first / 8;
    if (const int skipped = first % 8; skipped != 0) {
        const int part = std::min(8 - skipped, count);
        paintSomeBits(row, static_cast<std::uint8_t>(*byte++ << skipped), part, pixel);
        row += part;
        count -= part;
    }
    for (; count >= 8; row += 8, count -= 8) paintByte(row, *byte++, pixel);
    if (count > 0) paintSomeBits(row, *byte, count, pixel);
}

/// The place of a pair of pixels in the table of pairs: its values, the left one in the higher bits.
template <int Depth>
std::size_t pairAt(const std::uint8_t* line, int pair) {
    if constexpr (Depth == 4) return line[pair];
    return line[pair / 2] >> (pair % 2 == 0 ? 4 : 0) & 15;
}

/// Stores two pairs side by side, in one piece: OverRow() reads four pixels at once, and waits for them
/// longer when they were stored in two.
void storePairs(Pixel* pixels, const GlyphPainter::Pair& left, const GlyphPainter::Pair& right) {
#if defined(__SSE2__)
    const auto load = [](const GlyphPainter::Pair& pair) {
        return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pair.data()));
    };
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pixels), _mm_unpacklo_epi64(load(left), load(right)));
#else
    std::ranges::copy(right, std::ranges::copy(left, pixels).out);
#endif
}

/// The pixels of a row of values from column `first` on, two or four at a time where there are so many.
template <int Depth>
void expandValues(const std::uint8_t* line, int first, int count, Pixel* pixels,
                  const GlyphPainter::Pair* pairs) {
    int column = first;
    const int end = first + count;
    if (column % 2 != 0 && column < end) *pixels++ = pairs[pairAt<Depth>(line, column++ / 2)][1];
    for (; column + 4 <= end; column += 4, pixels += 4)
        storePairs(pixels, pairs[pairAt<Depth>(line, column / 2)],
                   pairs[pairAt<Depth>(line, column / 2 + 1)]);
    for (; column + 2 <= end; column += 2, pixels += 2)
        std::ranges::copy(pairs[pairAt<Depth>(line, column / 2)], pixels);
    if (column < end) *pixels = pairs[pairAt<Depth>(line, column / 2)][0];
}

} // namespace

GlyphPainter::GlyphPainter(const TextStyle& style, std::uint8_t depthCode)
    : width_(style.font.width), height_(style.font.height), depth_(GlyphDepth(depthCode)),
      rowBytes_(static_cast<int>(GlyphRowBytes(width_, depthCode))), coversAll_(style.opaque && depth_ > 1) {
    const std::uint32_t values = 1u << depth_;
    std::array<Pixel, 16> palette;
    for (std::uint32_t value = 0; value < values; ++value)
        palette[value] = paletteEntry(style, value, depth_);
    colour_ = palette[values - 1];
    if (depth_ == 1) return;
    for (std::uint32_t left = 0; left < values; ++left)
        for (std::uint32_t right = 0; right < values; ++right)
            pairs_[left * values + right] = {palette[left], palette[right]};
}

void GlyphPainter::paint(QImage& surface, QPoint at, int cellWidth, std::uint32_t glyph) const {
    const GlyphBytes bytes(glyph, static_cast<std::size_t>(rowBytes_) * height_);
    const QSize size(std::min<int>(width_, cellWidth), height_);
    ForEachRow(surface, at, size, [&](Pixel* row, int x, int y, int count) {
        const std::uint8_t* line = bytes.from(y * rowBytes_);
        if (depth_ == 1) return paintBits(row, line, x, count, colour_);
        if (coversAll_) return expandRow(line, x, count, row);
        if (isEmpty(line)) return;
        std::array<Pixel, LargestSide> source;
        expandRow(line, x, count, source.data());
        OverRow(row, source.data(), count);
    });
}

bool GlyphPainter::isEmpty(const std::uint8_t* line) const {
    return std::all_of(line, line + rowBytes_, [](std::uint8_t byte) { return byte == 0; });
}

void GlyphPainter::expandRow(const std::uint8_t* line, int first, int count, Pixel* pixels) const {
    depth_ == 4 ? expandValues<4>(line, first, count, pixels, pairs_.data())
                : expandValues<2>(line, first, count, pixels, pairs_.data());
}

} // namespace panel
