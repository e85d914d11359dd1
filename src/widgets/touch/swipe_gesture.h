// SwipeGesture: a flick across the panel changes the page, in one of four directions. Engine thread.
#pragma once

#include "pages/parameters.h"

#include <cstdint>

namespace panel {

inline std::uint8_t GestureActive = 0; // 1: the page has a gesture
inline std::uint8_t GestureArmed = 0;  // 1 from the first look at a press until its end

/// Takes the record of a gesture; the last one of a page counts.
void AddSwipeGesture(const Parameters& p);
void ResetSwipeGesture();
/// Follows the press and acts at its end. Once a cycle, before the families: a swipe that changes the page
/// wins over the key that it began on.
void GestureTick();

} // namespace panel
