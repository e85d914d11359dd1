// Raw pixels in the image, read as rows.
#pragma once

#include "graphics/pixels.h"

#include <array>
#include <cstdint>

namespace panel {

/// The stored row length of a picture `stride` pixels wide: NAND images pad it to a multiple of 4.
int PaddedStride(int stride);

/// Bytes that a raw picture of that size takes; 0 for a format that the colour mode does not define.
std::uint64_t RawPictureBytes(int width, int height, std::uint8_t format);

/// A raw picture knows no size: it can be read at any place, and gives zero bytes where the image has ended.
/// Addresses wrap in 32 bits.
class RawPicture {
public:
    /// `stride` in pixels, before padding. How the format is stored depends on colour mode and chip.
    RawPicture(std::uint32_t address, int stride, std::uint8_t format);

    /// False for a format that the colour mode does not define; nothing may be read then.
    bool isReadable() const { return layout_ != PixelLayout::None; }

    // `count` pixels from (x, y) of the picture on; negative places wrap as addresses do.

    /// As they are, premultiplied.
    void copy(Pixel* row, int x, int y, int count) const;
    /// Those that are not pure black replace the pixels of the row, as they are.
    void key(Pixel* row, int x, int y, int count) const;
    /// Laid over the pixels of the row.
    void over(Pixel* row, int x, int y, int count) const;

private:
    /// Rows are worked on in chunks that fit the processor's first cache.
    static constexpr int ChunkPixels = 1024;
    using ChunkBytes = std::array<std::uint8_t, std::size_t{4} * ChunkPixels>;
    using Chunk = std::array<Pixel, ChunkPixels>;

    template <class UseChunk>
    void forEachChunk(Pixel* row, int x, int y, int count, UseChunk use) const;
    const std::uint8_t* bytesAt(std::uint32_t index, int count, ChunkBytes& scratch) const;

    std::uint32_t address_;
    std::uint32_t stride_; // px, padded
    PixelLayout layout_;
};

} // namespace panel
