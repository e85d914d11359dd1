// The palette-compressed form of a picture.
#pragma once

#include "imagekit/byte_writer.h"

#include <cstdint>
#include <span>
#include <string>

namespace imagekit {

enum class ZipCoding {
    Shortest, // of the two, for each segment
    Raw,      // a byte a pixel
    Runs,     // two bytes a run of up to 256 pixels
};

/// Compresses `words`, the colours of width x height pixels row by row. Pixels go into segments in order, a
/// new one where the next pixel would be a segment's 257th colour. Throws when that takes more than 255
/// segments.
Bytes EncodeZip(std::span<const std::uint16_t> words, std::uint16_t width, std::uint16_t height,
                std::uint8_t zipMode, ZipCoding coding, const std::string& where);

} // namespace imagekit
