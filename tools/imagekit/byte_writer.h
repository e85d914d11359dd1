// Bytes of an image, written one little-endian number after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace imagekit {

using Bytes = std::vector<std::uint8_t>;

/// Every call gives the writer back, so that a record reads as one chain of its fields. Numbers are cut to
/// the width of the field.
class ByteWriter {
public:
    ByteWriter& u8(std::uint32_t value) { return number(value, 1); }
    ByteWriter& u16(std::uint32_t value) { return number(value, 2); }
    ByteWriter& u24(std::uint32_t value) { return number(value, 3); }
    ByteWriter& u32(std::uint32_t value) { return number(value, 4); }

    ByteWriter& bytes(std::span<const std::uint8_t> data) {
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        return *this;
    }
    ByteWriter& text(std::string_view characters) {
        bytes_.insert(bytes_.end(), characters.begin(), characters.end());
        return *this;
    }
    ByteWriter& zeros(std::size_t count) {
        bytes_.resize(bytes_.size() + count);
        return *this;
    }
    /// Zeros up to offset `size`, which must not lie before the end.
    ByteWriter& zerosUpTo(std::size_t size) {
        bytes_.resize(size);
        return *this;
    }

    std::size_t size() const { return bytes_.size(); }
    const Bytes& data() const { return bytes_; }
    Bytes take() { return std::move(bytes_); }

private:
    ByteWriter& number(std::uint32_t value, int byteCount) {
        for (int i = 0; i < byteCount; ++i) bytes_.push_back(static_cast<std::uint8_t>(value >> 8 * i));
        return *this;
    }

    Bytes bytes_;
};

} // namespace imagekit
