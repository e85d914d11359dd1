// The rotary encoder. Five keys of the keyboard stand in for its hardware.
#pragma once

#include "store/shared.h"

#include <cstdint>
#include <optional>

namespace panel {

enum class EncoderKey : std::uint8_t { Clockwise = 0, CounterClockwise = 1, Key1 = 2, Key2 = 3, Key3 = 4 };

/// The event that waits for a page with an encoder, an EncoderKey, or NoEncoderEvent. Main thread writes,
/// engine takes.
inline constexpr std::uint8_t NoEncoderEvent = 0xFF;
inline Shared<std::uint8_t> EncoderEvent{NoEncoderEvent};

/// What the page's encoder record makes of events: 0 none, 1 menu, 2 single entry, 3 page change. Engine
/// only.
inline std::uint8_t EncoderState = 0;

/// 1 while the page has a background widget, which keeps the BaseSurface. Engine only.
inline std::uint8_t BaseInUse = 0;
/// The word that picks the picture of the last such widget, also after its page has gone. Engine only.
inline std::uint16_t BaseVariable = 0xFFFF;

/// Any key press, `key` empty for one that is no encoder key. It ends the idle time; on a dimmed panel it
/// wakes the panel and does nothing else. Main thread.
void PressKey(std::optional<EncoderKey> key);

} // namespace panel
