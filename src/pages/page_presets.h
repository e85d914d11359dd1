// The preset table of the page on show: named sets of word writes. Engine thread.
#pragma once

#include <cstddef>
#include <cstdint>

namespace panel {

/// Bytes of the preset table of one page; what is behind them is cut off.
inline constexpr std::size_t PagePresetCapacity = 0x400;
inline constexpr std::uint32_t PagePresetRowBytes = 8; // u32 address, u16 length, u16 not used

/// Takes the preset table of a page, as much of it as the buffer holds.
void LoadPagePresets(std::uint16_t page);

/// Writes the words of the preset `id` and applies the system words among them, then applies word 0x7000,
/// with or without such a preset: so a preset may change the page.
void ApplyPagePreset(std::uint16_t id);

} // namespace panel
