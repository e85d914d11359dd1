// The arithmetic of pixels: single premultiplied words, and rows of them. The row routines give bit for bit
// what the one-pixel functions give, which is what Qt's painter gives.
#pragma once

#include <cstdint>

namespace panel {

/// A premultiplied pixel 0xAARRGGBB, as the surfaces hold it. Straight pixels of the image data have the same
/// layout.
using Pixel = std::uint32_t;

inline constexpr Pixel OpaqueBlack = 0xFF000000;

/// colour x alpha / 255, rounded to nearest: how a colour is stored in a surface.
constexpr std::uint32_t RoundedProduct(std::uint32_t colour, std::uint32_t alpha) {
    return ((colour * alpha + 128) * 257) >> 16;
}

/// The painter's product of two bytes, for the part of a pixel that shows through another one. It differs
/// from RoundedProduct() for 24 pairs.
constexpr std::uint32_t PainterProduct(std::uint32_t byte, std::uint32_t alpha) {
    const std::uint32_t t = byte * alpha;
    return (t + (t >> 8) + 128) >> 8;
}

constexpr std::uint32_t AlphaOf(Pixel pixel) { return pixel >> 24; }

constexpr Pixel Premultiplied(Pixel straight) {
    const std::uint32_t alpha = AlphaOf(straight);
    return alpha << 24 | RoundedProduct(straight >> 16 & 0xFF, alpha) << 16
           | RoundedProduct(straight >> 8 & 0xFF, alpha) << 8 | RoundedProduct(straight & 0xFF, alpha);
}

/// `source` laid over `below`, both premultiplied.
constexpr Pixel Over(Pixel source, Pixel below) {
    const std::uint32_t through = 255 - AlphaOf(source);
    return source
           + (PainterProduct(below >> 24, through) << 24 | PainterProduct(below >> 16 & 0xFF, through) << 16
              | PainterProduct(below >> 8 & 0xFF, through) << 8 | PainterProduct(below & 0xFF, through));
}

/// An RGB565 word as an opaque pixel, each channel rounded to nearest.
constexpr Pixel FromRgb565(std::uint32_t word) {
    const std::uint32_t red = ((word >> 11 & 0x1F) * 527 + 23) >> 6;
    const std::uint32_t green = ((word >> 5 & 0x3F) * 259 + 33) >> 6;
    const std::uint32_t blue = ((word & 0x1F) * 527 + 23) >> 6;
    return OpaqueBlack | red << 16 | green << 8 | blue;
}

/// An aRGB4444 word as a straight pixel.
constexpr Pixel FromArgb4444(std::uint32_t word) {
    const std::uint32_t nibbles =
        (word & 0xF000) << 12 | (word & 0x0F00) << 8 | (word & 0x00F0) << 4 | (word & 0x000F);
    return nibbles * 17;
}

/// How raw pixels are stored.
enum class PixelLayout : std::uint8_t {
    None,     // undefined: nothing can be read
    Rgb565,   // 2 bytes
    Rgb888,   // 3 bytes, blue first
    Argb4444, // 2 bytes
    Rgb565A8, // 3 bytes, alpha last
    Argb8888, // 4 bytes, blue first
};
constexpr std::uint32_t BytesPerPixel(PixelLayout layout) {
    switch (layout) {
    case PixelLayout::None: return 0;
    case PixelLayout::Rgb565:
    case PixelLayout::Argb4444: return 2;
    case PixelLayout::Rgb888:
    case PixelLayout::Rgb565A8: return 3;
    case PixelLayout::Argb8888: return 4;
    }
    return 0;
}
constexpr bool HasAlpha(PixelLayout layout) { return layout >= PixelLayout::Argb4444; }

// Rows of `count` pixels; count may be 0. Source and destination are the same row or do not overlap.

/// Expands raw pixels to straight ones. Reads count x BytesPerPixel(layout) bytes.
void DecodeRow(PixelLayout layout, const std::uint8_t* bytes, Pixel* straight, int count);
void PremultiplyRow(const Pixel* straight, Pixel* stored, int count);
/// Replaces the pixels of `row` whose straight colour is not black, by those of `stored`.
void KeyedRow(Pixel* row, const Pixel* straight, const Pixel* stored, int count);
/// Lays premultiplied pixels over those of `row`.
void OverRow(Pixel* row, const Pixel* source, int count);
/// Copies premultiplied pixels as they look on black.
void OnBlackRow(Pixel* row, const Pixel* source, int count);

} // namespace panel
