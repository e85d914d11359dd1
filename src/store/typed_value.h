// Numeric variables of the store, read by the data type code that a record gives for them.
#pragma once

#include <cstddef>
#include <cstdint>

namespace panel {

// The low nibble of a code is the binary logarithm of the value's bytes, bit 7 tells a signed type. A value
// of one byte lies in the low byte of its word; a wider one begins with the word, its highest byte first.
inline constexpr std::uint8_t TypeSizeMask = 0x0F;
inline constexpr std::uint8_t TypeSignedBit = 0x80;
/// Without the sign bit, but widgets show it as signed.
inline constexpr std::uint8_t TypePlain64 = 0x03;

/// A value as sign and magnitude, in which every type fits.
struct NumericValue {
    std::uint64_t magnitude = 0;
    bool negative = false;

    bool operator==(const NumericValue&) const = default;
};

/// Bytes that a frame to the host holds of such a value: whole words.
std::size_t ValueFrameBytes(std::uint8_t typeCode);

/// The variable at a word address; 0 for a code that names no type. Any thread.
NumericValue ReadNumeric(std::uint16_t address, std::uint8_t typeCode);
/// The same for widgets that show 64 bits only in their signed type: 0 for TypePlain64 too.
NumericValue ReadNumericStrictly(std::uint16_t address, std::uint8_t typeCode);

/// Writes a variable of that size; nothing for a code that names no type. Any thread.
void StoreNumeric(std::uint16_t address, std::uint8_t typeCode, std::int64_t value);

} // namespace panel
