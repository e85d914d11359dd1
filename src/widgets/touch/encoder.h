// The rotary encoder: a knob that turns, with three keys. Five keys of the keyboard stand in for it. A record
// in the page's display stream tells what they do. Engine thread, but for PressKey().
#pragma once

#include "store/shared.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace panel {

enum class EncoderKey : std::uint8_t { Clockwise = 0, CounterClockwise = 1, Key1 = 2, Key2 = 3, Key3 = 4 };

/// Entries of a menu; those behind are left out.
inline constexpr std::size_t MostMenuEntries = 48;

/// The event that waits for a page with an encoder, an EncoderKey, or NoEncoderEvent. Main thread writes,
/// engine takes.
inline constexpr std::uint8_t NoEncoderEvent = 0xFF;
inline Shared<std::uint8_t> EncoderEvent{NoEncoderEvent};

/// What the page's encoder record makes of events: 0 none, 1 menu, 2 single entry, 3 page change.
inline std::uint8_t EncoderState = 0;
/// 1 while the knob adjusts a value. It outlives the page; the key that set it ends it, and so does a pop-up.
inline std::uint8_t AdjustMode = 0;
inline std::uint8_t EntryIndex = 0;       // the current entry of a menu
inline std::uint8_t EntryCount = 0;       // the number of its last entry, from 0
inline std::uint16_t SelectorAddress = 0; // the word that shows the current entry

/// 1 while the page has an encoder record, which keeps the BaseSurface.
inline std::uint8_t BaseInUse = 0;
/// The word that picks the entry of the last menu, also after its page has gone.
inline std::uint16_t BaseVariable = 0xFFFF;

/// Any key press, `key` empty for one that is no encoder key. It ends the idle time; on a dimmed panel it
/// wakes the panel and does nothing else. Main thread.
void PressKey(std::optional<EncoderKey> key);

/// Takes the record that the bytes begin with; it is kept, since its stream's buffer does not stay. A menu
/// may be longer than its length byte tells, and the bytes go on to the end of the stream.
void PrepareBackgroundSwitcher(std::span<const std::uint8_t> record);
/// Serves the event that waits, if the page has a use for it. Once a cycle.
void EncoderTick();

} // namespace panel
