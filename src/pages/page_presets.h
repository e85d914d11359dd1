// The preset table of the page on show: named sets of word writes. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// Takes the preset table of a page, as much of it as the buffer of 1024 bytes holds.
void LoadPagePresets(std::uint16_t page);

/// Writes the words of the preset `id` and applies the system words among them, then applies word 0x7000,
/// with or without such a preset: so a preset may change the page.
void ApplyPagePreset(std::uint16_t id);

} // namespace panel
