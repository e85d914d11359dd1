// The texts of the image that exist in every language. Any thread while an image is loaded.
#pragma once

#include <cstdint>
#include <span>

namespace panel {

inline constexpr std::uint32_t StringRowBytes = 4;  // u32 address of the record, or NoString
inline constexpr std::uint32_t StringHeadBytes = 6; // u24 colour, u8 font, u16 length
inline constexpr std::uint32_t NoString = 0xFFFFFFFF;
/// Bytes of a text; what is behind them is cut off.
inline constexpr std::uint16_t LongestString = 1024;

/// A string of the image, which brings its own look.
struct LanguageString {
    std::uint32_t colour = 0;
    std::uint8_t font = 0;
    std::uint16_t length = 0;           // bytes, as the record tells it
    std::span<const std::uint8_t> text; // in place; what the image has of it
};

/// The record of a string, counted from 1, in the language in force: its address, or NoString.
std::uint32_t StringAddress(std::uint16_t index);
/// The record at an address.
LanguageString ReadString(std::uint32_t address);

} // namespace panel
