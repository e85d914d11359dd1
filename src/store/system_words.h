// The panel's control registers, words 0x7000 to 0x70FE: their addresses, and what a write to each one does.
#pragma once

#include "store/shared.h"

#include <atomic>
#include <cstdint>

namespace panel {

namespace word {
inline constexpr std::uint16_t Page = 0x7000;
inline constexpr std::uint16_t Brightness = 0x7001; // low byte
inline constexpr std::uint16_t Year = 0x7002;       // low byte: year - 2000
inline constexpr std::uint16_t Month = 0x7003;      // low byte, as all of the time
inline constexpr std::uint16_t Day = 0x7004;
inline constexpr std::uint16_t Hour = 0x7005;
inline constexpr std::uint16_t Minute = 0x7006;
inline constexpr std::uint16_t Second = 0x7007;
inline constexpr std::uint16_t SetTime = 0x7008; // written: sets the clock; read: the weekday
inline constexpr std::uint16_t Music = 0x700A;
inline constexpr std::uint16_t Volume = 0x700B; // low byte
inline constexpr std::uint16_t Redraw = 0x700C; // low byte, serial commands only
inline constexpr std::uint16_t VirtualKey = 0x700D;
inline constexpr std::uint16_t AutoDimming = 0x700E;      // low byte
inline constexpr std::uint16_t DimmedBrightness = 0x700F; // low byte
inline constexpr std::uint16_t SleepTime = 0x7010;        // half seconds
inline constexpr std::uint16_t PagePreset = 0x7014;
inline constexpr std::uint16_t Language = 0x703F; // low byte
} // namespace word

inline constexpr std::uint8_t LargestVolume = 16;
/// Of the player's 0..96 for one of the panel's 0..16.
inline constexpr int PlayerSteps = 6;
/// The volume in force, 0..16. Engine or inspector writes, engine and window read.
inline Shared<std::uint8_t> Volume{0};
/// The last volume that was given to the player. Engine only.
inline std::uint8_t VolumeApplied = 0;

/// A virtual key that waits for a row with its code, from word 0x700D. Either thread raises the flag after it
/// has set the code; who sees the flag sees the code.
inline std::atomic<std::uint8_t> VirtualKeyPending{0};
inline Shared<std::uint16_t> VirtualKeyCode{0};

/// Takes the key back. The flag falls last: a key that the other side raises meanwhile may get lost, but
/// never waits with the code 0. Engine thread.
inline void ForgetVirtualKey() {
    VirtualKeyCode = 0;
    VirtualKeyPending = 0;
}

/// Acts on a word after it was written. Engine thread; a word without an action does nothing.
void ApplySystemWord(std::uint16_t address);

/// Acts on a word that the main thread wrote. Words that draw or read files (page, language, page preset,
/// music) are handed to the engine, which serves them at the end of its cycle; all others act at once. Main
/// thread.
void ApplySystemWordFromMainThread(std::uint16_t address);

/// What ApplySystemWordFromMainThread() handed over. Main thread raises, engine clears.
inline Shared<std::uint8_t> PageRequestFromInspector{0};
inline Shared<std::uint8_t> LanguageRequestFromInspector{0};
inline Shared<std::uint8_t> PresetRequestFromInspector{0};
inline Shared<std::uint8_t> MusicRequestFromInspector{0};

/// Serves those requests, the page first. Engine thread.
void ServeInspectorRequests();

/// Drops them: they were for another image. While no engine runs.
void ForgetInspectorRequests();

} // namespace panel
