// Reads a finished image back by plain offsets, with nothing of the library that wrote it. What lies outside
// is 0.
#pragma once

#include "host/flash_image.h"
#include "host/memory_image.h"

#include <QByteArray>

#include <vector>

/// There is one loaded image, that of the last reader.
class ImageReader {
public:
    explicit ImageReader(const QByteArray& image) { panel::TakeImage(image); }

    std::uint32_t u8(std::uint32_t at) const { return panel::ReadU8(at); }
    std::uint32_t u16(std::uint32_t at) const { return panel::ReadU16(at); }
    std::uint32_t u24(std::uint32_t at) const { return panel::ReadU24(at); }
    std::uint32_t u32(std::uint32_t at) const { return panel::ReadU32(at); }
    /// A word of the section table.
    std::uint32_t section(std::uint32_t word) const { return u32(4 * word); }
    std::vector<std::uint8_t> bytes(std::uint32_t at, std::uint32_t count) const {
        std::vector<std::uint8_t> out;
        for (std::uint32_t i = 0; i < count; ++i) out.push_back(panel::ReadU8(at + i));
        return out;
    }
};
