// The samples of the trend curves: a ring of 1024 for each channel, kept across pages. Engine thread.
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace panel {

inline constexpr std::size_t CurveChannelCount = 12;
inline constexpr std::size_t CurveRingSize = 1024;

inline std::array<std::array<std::uint16_t, CurveRingSize>, CurveChannelCount> CurveSamples{};
/// Where the next sample of a channel goes, 0..1023; the newest lies before it.
inline std::array<std::uint16_t, CurveChannelCount> CurveHead{};
/// New samples since the channel's curves were drawn.
inline std::array<std::uint8_t, CurveChannelCount> CurveDirty{};

/// Deals samples out to the channels of `mask` (bit n: channel n) in turn. A channel that gets one less than
/// the others repeats its last sample, so that all stay in step.
void AppendCurveSamples(std::uint16_t mask, std::span<const std::uint16_t> samples);

/// Sets the rings of the channels of `mask` to 0.
void ClearCurveChannels(std::uint16_t mask);

} // namespace panel
