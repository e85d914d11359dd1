// Whether the pointer lies on a touch widget.
#pragma once

#include "widgets/touch/touch_row.h"

#include <cstdint>

namespace panel {

/// Whether the pointer lies in the rectangle, bounds included: px on the panel, or, with `inList` not 0, on
/// the picture of the sliding list, of which only what its window shows can be hit. Engine thread.
bool HitTest(std::uint16_t x0, std::uint16_t x1, std::uint16_t y0, std::uint16_t y1, std::uint8_t inList);

/// The place of the pointer in the coordinates of a widget: on the panel, or on the picture of the list.
QPoint PointerPlace(std::uint8_t inList);

inline bool HitTest(const TouchHead& head) {
    return HitTest(head.x0, head.x1, head.y0, head.y1, head.inList());
}

} // namespace panel
