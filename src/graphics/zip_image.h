// Palette-compressed pictures: their head, and the decoder of their segments.
#pragma once

#include <QImage>

#include <cstdint>
#include <optional>

namespace panel {

/// What the words of a palette mean; stands in the data of the picture.
namespace zip_mode {
inline constexpr std::uint8_t Opaque = 3; // opaque colours
inline constexpr std::uint8_t Keyed = 4;  // opaque colours, word 0 is transparent
inline constexpr std::uint8_t Alpha = 5;  // colours with alpha
} // namespace zip_mode

/// Pictures of more pixels than this are not loaded, compressed or PNG: no panel has use for them, and a few
/// bytes of a broken image can ask for any size.
inline constexpr std::int64_t LargestPicturePixels = 16 << 20;

struct ZipHead {
    std::uint16_t Width = 0;  // px
    std::uint16_t Height = 0; // px
    std::uint8_t SegmentCount = 0;
    std::uint8_t Mode = 0; // 0..15; only those of zip_mode give pixels
};

/// The head at a byte address of the image; none when no compressed picture is there, or one that is too
/// large.
std::optional<ZipHead> ReadZipHead(std::uint32_t address);

/// Bytes of the whole picture: head, table of segments and their data.
std::uint64_t ZipPictureBytes(std::uint32_t address, const ZipHead& head);

/// Decodes a picture of head.Width x head.Height pixels, premultiplied. Pixels that are transparent or that
/// the data do not give are 0. Null for a picture without pixels.
QImage DecodeZipImage(std::uint32_t address, const ZipHead& head);

} // namespace panel
