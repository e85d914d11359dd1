#include "graphics/raw_picture.h"

#include "graphics/image_row.h"
#include "host/config_block.h"
#include "host/flash_image.h"

#include <algorithm>

namespace panel {
namespace {

PixelLayout layoutInMode0(std::uint8_t format) {
    switch (format) {
    case format::RGB565:
    case format::RGB565Key: return PixelLayout::Rgb565;
    case format::aRGB4444: return PixelLayout::Argb4444;
    case format::aRGB8888: return PixelLayout::Argb8888;
    case format::RGB565A8: return PixelLayout::Rgb565A8;
    default: return PixelLayout::None;
    }
}

PixelLayout layoutInMode1(std::uint8_t format) {
    switch (format) {
    case format::RGB565:
    case format::RGB565Key: return FileMediaChip() ? PixelLayout::Argb8888 : PixelLayout::Rgb888;
    case format::aRGB4444: return FileMediaChip() ? PixelLayout::Argb8888 : PixelLayout::Argb4444;
    case format::aRGB8888: return PixelLayout::Argb8888;
    default: return PixelLayout::None;
    }
}

PixelLayout layoutOf(std::uint8_t format) {
    switch (ColourMode) {
    case 0: return layoutInMode0(format);
    case 1: return layoutInMode1(format);
    default: return PixelLayout::None;
    }
}

} // namespace

int PaddedStride(int stride) { return NandFlash && stride % 4 != 0 ? stride / 4 * 4 + 4 : stride; }

std::uint64_t RawPictureBytes(int width, int height, std::uint8_t format) {
    return static_cast<std::uint64_t>(PaddedStride(width)) * static_cast<std::uint64_t>(height)
           * BytesPerPixel(layoutOf(format));
}

RawPicture::RawPicture(std::uint32_t address, int stride, std::uint8_t format)
    : address_(address), stride_(static_cast<std::uint32_t>(PaddedStride(stride))),
      layout_(layoutOf(format)) {}

const std::uint8_t* RawPicture::bytesAt(std::uint32_t index, int count, ChunkBytes& scratch) const {
    const std::uint32_t start = address_ + index * BytesPerPixel(layout_);
    const std::size_t needed = static_cast<std::size_t>(count) * BytesPerPixel(layout_);
    const auto there = FlashBytes(start, needed);
    if (there.size() == needed) return there.data();
    FlashRead(scratch.data(), start, needed);
    return scratch.data();
}

/// Calls `use(rowPixels, bytes, count)` for the row, chunk by chunk.
template <class UseChunk>
void RawPicture::forEachChunk(Pixel* row, int x, int y, int count, UseChunk use) const {
    ChunkBytes scratch; // written before it is read
    std::uint32_t index = static_cast<std::uint32_t>(y) * stride_ + static_cast<std::uint32_t>(x);
    while (count > 0) {
        const int chunk = std::min(count, ChunkPixels);
        use(row, bytesAt(index, chunk, scratch), chunk);
        index += static_cast<std::uint32_t>(chunk);
        row += chunk;
        count -= chunk;
    }
}

void RawPicture::copy(Pixel* row, int x, int y, int count) const {
    forEachChunk(row, x, y, count, [this](Pixel* to, const std::uint8_t* bytes, int n) {
        DecodeRow(layout_, bytes, to, n);
        if (HasAlpha(layout_)) PremultiplyRow(to, to, n);
    });
}

void RawPicture::key(Pixel* row, int x, int y, int count) const {
    Chunk straight, stored; // written before they are read
    forEachChunk(row, x, y, count, [&](Pixel* to, const std::uint8_t* bytes, int n) {
        DecodeRow(layout_, bytes, straight.data(), n);
        if (!HasAlpha(layout_)) return KeyedRow(to, straight.data(), straight.data(), n);
        PremultiplyRow(straight.data(), stored.data(), n);
        KeyedRow(to, straight.data(), stored.data(), n);
    });
}

void RawPicture::over(Pixel* row, int x, int y, int count) const {
    Chunk pixels; // written before it is read
    forEachChunk(row, x, y, count, [&](Pixel* to, const std::uint8_t* bytes, int n) {
        DecodeRow(layout_, bytes, pixels.data(), n);
        if (HasAlpha(layout_)) PremultiplyRow(pixels.data(), pixels.data(), n);
        OverRow(to, pixels.data(), n);
    });
}

} // namespace panel
