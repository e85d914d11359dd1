// Requests of the engine to the media objects of the main thread. The engine raises them and takes each one
// back when it has passed it on, so each is passed on once.
#pragma once

#include "store/shared.h"

#include <cstdint>

namespace panel {

inline Shared<std::uint32_t> VideoRequest{0};
/// 1 a start is pending. 4 until the first start has passed: then a page change asks for no close.
inline Shared<std::uint32_t> CameraRequest{4};
inline Shared<std::uint32_t> VideoCloseRequest{0};
inline Shared<std::uint32_t> MusicStopRequest{0};
inline Shared<std::uint32_t> CameraCloseRequest{0};
inline Shared<std::uint8_t> MusicPlaying{0}; // 1 asks for the sound that stands ready

/// 1 while the page on show has such a widget.
inline Shared<std::uint32_t> VideoOnPage{0};
inline Shared<std::uint32_t> CameraOnPage{0};
inline Shared<std::uint32_t> CameraResetPending{0};

} // namespace panel
