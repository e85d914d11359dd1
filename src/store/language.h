// The language of the panel: which one is in force, and what a change of it brings.
#pragma once

#include "store/shared.h"

#include <cstdint>

namespace panel {

inline constexpr std::uint32_t LanguagePresetRowBytes = 8; // u32 address and u32 length of a stream

/// The language in force, below LanguageCount. The engine writes, the window may look.
inline Shared<std::uint8_t> Language{0};

/// Takes the language of word 0x703F: loads its presets and shows page and pop-up again. One that does not
/// exist, or is in force already, is put back in the word. Engine thread.
void ChangeLanguage();

} // namespace panel
