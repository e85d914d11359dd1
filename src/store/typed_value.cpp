#include "store/typed_value.h"

#include "store/variable_store.h"

#include <array>
#include <span>

namespace panel {
namespace {

constexpr unsigned LargestSizeCode = 3; // 8 bytes

bool namesType(std::uint8_t typeCode) {
    return (typeCode & ~(TypeSignedBit | TypeSizeMask)) == 0 && (typeCode & TypeSizeMask) <= LargestSizeCode;
}

std::uint64_t readBigEndian(std::size_t offset, std::size_t count) {
    std::array<std::uint8_t, 8> bytes{};
    const auto value = std::span(bytes).first(count);
    ReadBytes(offset, value);
    std::uint64_t result = 0;
    for (const std::uint8_t byte : value) result = result << 8 | byte;
    return result;
}

} // namespace

std::size_t ValueFrameBytes(std::uint8_t typeCode) {
    switch (typeCode & ~TypeSignedBit) {
    case 0x02: return 4;
    case 0x03: return 8;
    default: return 2;
    }
}

NumericValue ReadNumeric(std::uint16_t address, std::uint8_t typeCode) {
    if (!namesType(typeCode)) return {};
    const std::size_t count = std::size_t{1} << (typeCode & TypeSizeMask);
    const std::uint64_t value = readBigEndian(2 * std::size_t{address} + (count == 1 ? 1 : 0), count);
    const std::uint64_t signBit = std::uint64_t{1} << (8 * count - 1);
    const bool isSigned = (typeCode & TypeSignedBit) != 0 || typeCode == TypePlain64;
    if (!isSigned || (value & signBit) == 0) return {.magnitude = value, .negative = false};
    return {.magnitude = (signBit << 1) - value,
            .negative = true}; // 2^64 is 0 here, and 0 - value is right too
}

NumericValue ReadNumericStrictly(std::uint16_t address, std::uint8_t typeCode) {
    return typeCode == TypePlain64 ? NumericValue{} : ReadNumeric(address, typeCode);
}

void StoreNumeric(std::uint16_t address, std::uint8_t typeCode, std::int64_t value) {
    if (!namesType(typeCode)) return;
    const std::size_t count = std::size_t{1} << (typeCode & TypeSizeMask);
    if (count == 1)
        StoreLowByte(address, static_cast<std::uint8_t>(value));
    else
        StoreNumber(address, static_cast<std::uint64_t>(value), count);
}

} // namespace panel
