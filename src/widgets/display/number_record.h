// What the records of the widgets that show a number have in common. Engine thread.
#pragma once

#include "pages/parameters.h"
#include "store/variable_store.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// What of the number stands at the X of its record. Other values occur.
enum class NumberAlignment : std::uint8_t { Left = 0, Centre = 1, Right = 2 };

/// A byte of a record that tells the alignment and, in bit 7, leading zeros.
constexpr NumberAlignment AlignmentIn(std::uint8_t byte) { return static_cast<NumberAlignment>(byte & 0x7F); }
constexpr bool LeadingZerosIn(std::uint8_t byte) { return (byte & 0x80) != 0; }

/// The word address of the value. Byte addresses have 16 bits, so one above 0x7FFF stands for one below.
inline std::uint16_t NumberAddress(const Parameters& p) {
    constexpr std::size_t value = 5;
    return p.u16(value) & 0x7FFF;
}

/// Whether the word that may hide a number does.
inline bool HidesNumber(std::uint16_t address) {
    constexpr std::uint16_t none = 0xFFFF;
    return address != none && ReadWord(address) != 0;
}

} // namespace panel
