// Brightness and dimming: the level in force, the idle count-down and the press that wakes the panel.
#pragma once

#include "store/shared.h"

#include <cstdint>

namespace panel {

/// Alpha of the black veil over each frame: 0 is full brightness, 255 is black. Engine writes, window reads.
inline Shared<std::uint8_t> DimValue{0};
/// 1 while the panel is bright and the idle count-down runs.
inline Shared<std::uint8_t> ScreenBright{0};
/// 1 while the press that woke the panel lasts; such a press acts on no widget. Engine only.
inline std::uint8_t WakePress = 0;
/// Idle time, 200 a second. The tick raises it, presses and keys clear it.
inline Shared<std::uint32_t> IdleTicks{0};

inline constexpr std::uint8_t LargestBrightness = 63;
/// DimValue of a brightness level; a level above 63 counts as 63, which is full brightness.
std::uint8_t DimValueOf(std::uint8_t level);

/// Brings the panel to normal brightness, as word 0x7001 sets it.
void ShowNormalBrightness();

/// One step of the automatic dimming, each cycle while word 0x700E is 1. Engine thread.
void BacklightTask();

} // namespace panel
