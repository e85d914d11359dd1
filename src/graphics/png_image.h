// PNG files inside the image.
#pragma once

#include <QImage>

#include <cstdint>

namespace panel {

/// Decodes the picture file of `length` bytes at a byte address of the image. Format_ARGB32_Premultiplied
/// when it has an alpha channel, Format_RGB32 when not; null when it cannot be read or has more than
/// LargestPicturePixels.
QImage DecodePng(std::uint32_t address, std::uint32_t length);

/// The size of that picture by its head alone; empty when it cannot be read or is too large.
QSize PngSize(std::uint32_t address, std::uint32_t length);

/// Whether the data at an address begin as a PNG file does.
bool IsPngAt(std::uint32_t address);

} // namespace panel
