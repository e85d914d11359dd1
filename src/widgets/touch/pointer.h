// The one pointer of the panel: the main thread feeds it, the engine's touch scan reads it.
#pragma once

#include "store/shared.h"

#include <QPoint>

#include <cstdint>

namespace panel {

// The main thread writes; the engine reads, and clears the flags when the page changes or a press only wakes
// the panel. The two halves of a position may come from two moves; nothing relies on a consistent pair.
inline Shared<std::uint8_t> TouchPressed{0}; // 1 while the pointer is down inside the panel
inline Shared<std::uint16_t> TouchX{0};      // last position, px
inline Shared<std::uint16_t> TouchY{0};
inline Shared<std::uint16_t> TouchStartX{0}; // first position of this press, px
inline Shared<std::uint16_t> TouchStartY{0};
inline Shared<std::uint8_t> TouchStartLatched{0}; // 1 once that is stored

/// 1 while a widget owns the press. Engine only.
inline std::uint8_t TouchBusy = 0;

/// The position up to which a widget that a finger turns has followed it, px. Engine only.
inline std::uint16_t RingLastX = 0;
inline std::uint16_t RingLastY = 0;

// Main thread. Positions are panel pixels. A press at a negative place changes nothing, and one beyond the
// right or lower edge ends the press; a move to any place outside ends it, as a release does.
void PressPointer(QPoint at);
void MovePointer(QPoint at);
void ReleasePointer();

/// Ends the press and its start position, as a page change does. Engine thread.
void ForgetPress();

} // namespace panel
