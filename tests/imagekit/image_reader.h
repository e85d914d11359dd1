// Reads a finished image back by plain offsets, with nothing of the library that wrote it. What lies outside
// is 0.
#pragma once

#include <QByteArray>

#include <cstdint>
#include <vector>

class ImageReader {
public:
    explicit ImageReader(QByteArray image) : image_(std::move(image)) {}

    std::uint32_t u8(std::uint32_t at) const { return number(at, 1); }
    std::uint32_t u16(std::uint32_t at) const { return number(at, 2); }
    std::uint32_t u24(std::uint32_t at) const { return number(at, 3); }
    std::uint32_t u32(std::uint32_t at) const { return number(at, 4); }
    /// A word of the section table.
    std::uint32_t section(std::uint32_t word) const { return u32(4 * word); }
    std::vector<std::uint8_t> bytes(std::uint32_t at, std::uint32_t count) const {
        std::vector<std::uint8_t> out;
        for (std::uint32_t i = 0; i < count; ++i) out.push_back(static_cast<std::uint8_t>(u8(at + i)));
        return out;
    }
    std::uint32_t size() const { return static_cast<std::uint32_t>(image_.size()); }

private:
    std::uint32_t number(std::uint32_t at, std::uint32_t count) const {
        std::uint32_t value = 0;
        for (std::uint32_t i = 0; i < count && at + i < size(); ++i)
            value |=
                static_cast<std::uint32_t>(static_cast<std::uint8_t>(image_.at(static_cast<int>(at + i))))
                << 8 * i;
        return value;
    }

    QByteArray image_;
};
