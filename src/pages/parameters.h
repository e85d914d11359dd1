// The fields of one widget record, wherever they lie.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace panel {

/// Record offset of the first parameter of an inline record.
inline constexpr std::size_t FirstParameter = 5;
/// For records whose fields always stand in the record itself.
inline constexpr std::size_t WithoutBlock = SIZE_MAX;

/// Reads the fields of a record of a display stream by their record offset. In the inline form they are the
/// bytes of the record; in the pointer form a block of the same layout in the VariableStore holds them, and a
/// host can rewrite it. A field that is not wholly inside reads as 0. Borrows the record's bytes: valid as
/// long as the stream's buffer is not reloaded.
class Parameters {
public:
    /// `record` begins with the type word. `blockStart` is the record offset of the block's first byte, at
    /// most that of the first inline parameter.
    explicit Parameters(std::span<const std::uint8_t> record, std::size_t blockStart = FirstParameter)
        : record_(record), blockStart_(blockStart) {}

    std::uint16_t typeWord() const { return recordU16(0); }
    /// Bits 8 to 11 of the type word: not 0 for a widget that lies on a sliding list.
    std::uint8_t inList() const { return typeWord() >> 8 & 0x0F; }
    /// Whether the fields lie in the VariableStore.
    bool inStore() const { return blockStart_ != WithoutBlock && recordU16(2) != 0xFFFF; }
    /// Byte offset of the block in the VariableStore, and its length in bytes; meaningful in the pointer
    /// form.
    std::size_t blockOffset() const { return 2 * std::size_t{recordU16(2)}; }
    std::size_t blockLength() const;

    std::uint8_t u8(std::size_t at) const;
    std::uint16_t u16(std::size_t at) const { return static_cast<std::uint16_t>(u8(at) | u8(at + 1) << 8); }
    std::uint32_t u24(std::size_t at) const { return u16(at) | static_cast<std::uint32_t>(u8(at + 2)) << 16; }
    std::uint32_t u32(std::size_t at) const {
        return u16(at) | static_cast<std::uint32_t>(u16(at + 2)) << 16;
    }
    std::int16_t i16(std::size_t at) const { return static_cast<std::int16_t>(u16(at)); }

private:
    std::uint16_t recordU16(std::size_t at) const {
        return at + 1 < record_.size() ? static_cast<std::uint16_t>(record_[at] | record_[at + 1] << 8) : 0;
    }

    std::span<const std::uint8_t> record_;
    std::size_t blockStart_;
};

} // namespace panel
