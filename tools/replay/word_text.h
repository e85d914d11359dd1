// How words and bytes are written in answers and messages.
#pragma once

#include <QString>

#include <cstdint>
#include <span>

namespace replay {

/// 0x1000
QString AddressText(int address);
/// 00ff
QString WordText(std::uint16_t value);
/// Words of the store, as in 0x1000: 0005 000a
QString WordsText(int address, int count);
/// 41 10 00, or none
QString BytesText(std::span<const std::uint8_t> bytes);

} // namespace replay
