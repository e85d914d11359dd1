#include "graphics/pixels.h"

#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace panel {
namespace {

std::uint32_t loadU16(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8;
}
std::uint32_t loadU24(const std::uint8_t* bytes) {
    return loadU16(bytes) | static_cast<std::uint32_t>(bytes[2]) << 16;
}
std::uint32_t loadU32(const std::uint8_t* bytes) {
    return loadU24(bytes) | static_cast<std::uint32_t>(bytes[3]) << 24;
}

Pixel decodePixel(PixelLayout layout, const std::uint8_t* bytes) {
    switch (layout) {
    case PixelLayout::None: return 0;
    case PixelLayout::Rgb565: return FromRgb565(loadU16(bytes));
    case PixelLayout::Rgb888: return OpaqueBlack | loadU24(bytes);
    case PixelLayout::Argb4444: return FromArgb4444(loadU16(bytes));
    case PixelLayout::Rgb565A8:
        return (FromRgb565(loadU16(bytes)) & ~OpaqueBlack) | static_cast<Pixel>(bytes[2]) << 24;
    case PixelLayout::Argb8888: return loadU32(bytes);
    }
    return 0;
}

// Each block routine does what it can in whole blocks and gives the number of pixels done; the caller's plain
// loop does the rest. Without SSE2 that is everything.
#if defined(__SSE2__)

__m128i load(const void* from) { return _mm_loadu_si128(static_cast<const __m128i*>(from)); }
void store(Pixel* to, __m128i pixels) { _mm_storeu_si128(reinterpret_cast<__m128i*>(to), pixels); }
__m128i lanes16(int value) { return _mm_set1_epi16(static_cast<short>(value)); }
__m128i lanes32(std::uint32_t value) { return _mm_set1_epi32(static_cast<int>(value)); }

/// Eight RGB565 words with eight alphas, which stand in the high bytes of their lanes.
void storeRgb565(Pixel* to, __m128i words, __m128i highAlpha) {
    const __m128i five = lanes16(0x1F), times = lanes16(527), bias = lanes16(23);
    const __m128i red =
        _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(_mm_srli_epi16(words, 11), times), bias), 6);
    const __m128i blue =
        _mm_srli_epi16(_mm_add_epi16(_mm_mullo_epi16(_mm_and_si128(words, five), times), bias), 6);
    // The green bits stay where they are: the multiplier brings the product down by itself.
    const __m128i green =
        _mm_mulhi_epu16(_mm_add_epi16(_mm_and_si128(words, lanes16(0x07E0)), lanes16(4)), lanes16(8290));
    const __m128i blueGreen = _mm_or_si128(blue, _mm_slli_epi16(green, 8));
    const __m128i redAlpha = _mm_or_si128(red, highAlpha);
    store(to, _mm_unpacklo_epi16(blueGreen, redAlpha));
    store(to + 4, _mm_unpackhi_epi16(blueGreen, redAlpha));
}

int decodeRgb565Blocks(const std::uint8_t* bytes, Pixel* straight, int count) {
    int i = 0;
    for (; i + 8 <= count; i += 8) storeRgb565(straight + i, load(bytes + 2 * i), lanes16(0xFF00));
    return i;
}

int decodeArgb4444Blocks(const std::uint8_t* bytes, Pixel* straight, int count) {
    const __m128i low = lanes16(0x000F), times = lanes16(17);
    int i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i words = load(bytes + 2 * i);
        const __m128i high = _mm_srli_epi16(words, 8);
        const auto spread = [&](__m128i twoNibbles) { // 0x00ab to 0xaabb
            const __m128i upper = _mm_and_si128(_mm_slli_epi16(twoNibbles, 4), lanes16(0x0F00));
            return _mm_mullo_epi16(_mm_or_si128(upper, _mm_and_si128(twoNibbles, low)), times);
        };
        const __m128i blueGreen = spread(words), redAlpha = spread(high);
        store(straight + i, _mm_unpacklo_epi16(blueGreen, redAlpha));
        store(straight + i + 4, _mm_unpackhi_epi16(blueGreen, redAlpha));
    }
    return i;
}

/// Four pixels of three bytes each, one a lane; the top byte of a lane belongs to the next pixel. Reads 16
/// bytes.
__m128i load3x4(const std::uint8_t* bytes) {
    const __m128i all = load(bytes);
    const __m128i first = _mm_unpacklo_epi32(all, _mm_srli_si128(all, 3));
    const __m128i second = _mm_unpacklo_epi32(_mm_srli_si128(all, 6), _mm_srli_si128(all, 9));
    return _mm_unpacklo_epi64(first, second);
}

int decodeRgb888Blocks(const std::uint8_t* bytes, Pixel* straight, int count) {
    int i = 0;
    for (; i + 6 <= count; i += 4)
        store(straight + i, _mm_or_si128(load3x4(bytes + 3 * i), lanes32(OpaqueBlack)));
    return i;
}

int decodeRgb565A8Blocks(const std::uint8_t* bytes, Pixel* straight, int count) {
    // Sign-extended on purpose: the pack saturates signed values and so leaves all 16 bits as they are.
    const auto lower16 = [](__m128i pixels) { return _mm_srai_epi32(_mm_slli_epi32(pixels, 16), 16); };
    const auto alpha = [](__m128i pixels) { return _mm_srli_epi32(_mm_slli_epi32(pixels, 8), 24); };
    int i = 0;
    for (; i + 10 <= count; i += 8) {
        const __m128i a = load3x4(bytes + 3 * i), b = load3x4(bytes + 3 * i + 12);
        const __m128i words = _mm_packs_epi32(lower16(a), lower16(b));
        storeRgb565(straight + i, words, _mm_slli_epi16(_mm_packs_epi32(alpha(a), alpha(b)), 8));
    }
    return i;
}

/// Two straight pixels in 16-bit lanes; `alphaLane` has 255 in the lanes of alpha, which keeps alpha itself.
__m128i premultiplyPair(__m128i pair, __m128i alphaLane) {
    const __m128i alpha = _mm_shufflehi_epi16(_mm_shufflelo_epi16(pair, 0xFF), 0xFF);
    const __m128i product = _mm_mullo_epi16(pair, _mm_or_si128(alpha, alphaLane));
    return _mm_mulhi_epu16(_mm_add_epi16(product, lanes16(128)), lanes16(257));
}

int premultiplyBlocks(const Pixel* straight, Pixel* stored, int count) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i alphaLane = _mm_set_epi16(255, 0, 0, 0, 255, 0, 0, 0);
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i pixels = load(straight + i);
        store(stored + i, _mm_packus_epi16(premultiplyPair(_mm_unpacklo_epi8(pixels, zero), alphaLane),
                                           premultiplyPair(_mm_unpackhi_epi8(pixels, zero), alphaLane)));
    }
    return i;
}

__m128i overFour(__m128i source, __m128i below) {
    const __m128i evenBytes = lanes32(0x00FF00FF);
    const __m128i alpha = _mm_srli_epi32(source, 24);
    const __m128i through = _mm_sub_epi16(lanes16(255), _mm_or_si128(alpha, _mm_slli_epi32(alpha, 16)));
    const auto product = [through](__m128i bytes) { // in the high byte of each lane
        const __m128i t = _mm_mullo_epi16(bytes, through);
        return _mm_add_epi16(_mm_add_epi16(t, _mm_srli_epi16(t, 8)), lanes16(128));
    };
    const __m128i low = _mm_srli_epi16(product(_mm_and_si128(below, evenBytes)), 8);
    const __m128i high = _mm_andnot_si128(evenBytes, product(_mm_srli_epi16(below, 8)));
    return _mm_add_epi8(source, _mm_or_si128(low, high));
}

bool allOnes(__m128i mask) { return _mm_movemask_epi8(mask) == 0xFFFF; }

/// Pictures are opaque or empty over long stretches, where a block needs no arithmetic.
int overBlocks(Pixel* row, const Pixel* source, int count) {
    const __m128i alphaByte = lanes32(OpaqueBlack);
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        const __m128i pixels = load(source + i);
        const __m128i alpha = _mm_and_si128(pixels, alphaByte);
        if (allOnes(_mm_cmpeq_epi32(alpha, alphaByte)))
            store(row + i, pixels);
        else if (!allOnes(_mm_cmpeq_epi32(pixels, _mm_setzero_si128())))
            store(row + i, overFour(pixels, load(row + i)));
    }
    return i;
}

#else

int decodeRgb565Blocks(const std::uint8_t*, Pixel*, int) { return 0; }
int decodeRgb888Blocks(const std::uint8_t*, Pixel*, int) { return 0; }
int decodeArgb4444Blocks(const std::uint8_t*, Pixel*, int) { return 0; }
int decodeRgb565A8Blocks(const std::uint8_t*, Pixel*, int) { return 0; }
int premultiplyBlocks(const Pixel*, Pixel*, int) { return 0; }
int overBlocks(Pixel*, const Pixel*, int) { return 0; }

#endif

/// On a little-endian machine the stored pixels are the words themselves.
int copyArgb8888(const std::uint8_t* bytes, Pixel* straight, int count) {
    if constexpr (std::endian::native != std::endian::little) return 0;
    if (count > 0) std::memcpy(straight, bytes, static_cast<std::size_t>(count) * sizeof(Pixel));
    return count;
}

int decodeBlocks(PixelLayout layout, const std::uint8_t* bytes, Pixel* straight, int count) {
    switch (layout) {
    case PixelLayout::Rgb565: return decodeRgb565Blocks(bytes, straight, count);
    case PixelLayout::Rgb888: return decodeRgb888Blocks(bytes, straight, count);
    case PixelLayout::Argb4444: return decodeArgb4444Blocks(bytes, straight, count);
    case PixelLayout::Rgb565A8: return decodeRgb565A8Blocks(bytes, straight, count);
    case PixelLayout::Argb8888: return copyArgb8888(bytes, straight, count);
    case PixelLayout::None: break;
    }
    return 0;
}

} // namespace

void DecodeRow(PixelLayout layout, const std::uint8_t* bytes, Pixel* straight, int count) {
    const std::uint32_t step = BytesPerPixel(layout);
    int i = decodeBlocks(layout, bytes, straight, count);
    for (; i < count; ++i) straight[i] = decodePixel(layout, bytes + static_cast<std::size_t>(i) * step);
}

void PremultiplyRow(const Pixel* straight, Pixel* stored, int count) {
    for (int i = premultiplyBlocks(straight, stored, count); i < count; ++i)
        stored[i] = Premultiplied(straight[i]);
}

void KeyedRow(Pixel* row, const Pixel* straight, const Pixel* stored, int count) {
    for (int i = 0; i < count; ++i) {
        const Pixel kept = row[i], drawn = stored[i]; // both read in any case, so that the loop vectorises
        row[i] = (straight[i] & ~OpaqueBlack) != 0 ? drawn : kept;
    }
}

void OverRow(Pixel* row, const Pixel* source, int count) {
    for (int i = overBlocks(row, source, count); i < count; ++i) row[i] = Over(source[i], row[i]);
}

void OnBlackRow(Pixel* row, const Pixel* source, int count) {
    // Black has no colour to show through and its alpha fills up what the source lacks.
    for (int i = 0; i < count; ++i) row[i] = source[i] | OpaqueBlack;
}

} // namespace panel
