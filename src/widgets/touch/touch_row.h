// What the rows of the touch families begin with. Engine thread.
#pragma once

#include "pages/parameters.h"
#include "widgets/display/placement.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// Of a type word: the family, without NotifyFlag and the list bits.
inline constexpr std::uint16_t FamilyMask = 0xB0FF;
/// Of a type word: the widget tells the host of its actions.
inline constexpr std::uint16_t NotifyFlag = 0x4000;

/// In a record in place of a page, or a position that the pointer can reach.
inline constexpr std::uint16_t NoPage = 0xFFFF;
inline constexpr std::uint16_t NoPosition = 0xFFFF;

/// Type word and rectangle of a touch widget.
struct TouchHead {
    std::uint16_t typeWord = 0;
    std::uint16_t x0 = 0, y0 = 0, x1 = 0, y1 = 0; // px, all inside

    /// Not 0: the widget lies on the sliding list.
    std::uint8_t inList() const { return typeWord >> 8 & 0x0F; }
    /// Whether the host hears of the widget. One on a sliding list never sends.
    bool notifies() const { return typeWord == ((typeWord & FamilyMask) | NotifyFlag); }
    /// Otherwise only a virtual key reaches the row, by the code in y0, and nothing of it is drawn at first.
    bool onScreen() const { return x0 != NoPosition; }
    QPoint topLeft() const { return {x0, y0}; }
};

/// A coordinate of a record on the panel: moved by the origin of the open pop-up.
inline std::uint16_t ShiftedX(std::uint16_t x) { return static_cast<std::uint16_t>(x + PopupShift().x()); }
inline std::uint16_t ShiftedY(std::uint16_t y) { return static_cast<std::uint16_t>(y + PopupShift().y()); }

/// Reads the head of a record, the rectangle at record offset `area` on, moved by the open pop-up.
inline TouchHead ReadMovedHead(const Parameters& p, std::size_t area) {
    return {.typeWord = p.typeWord(),
            .x0 = ShiftedX(p.u16(area)),
            .y0 = ShiftedY(p.u16(area + 2)),
            .x1 = ShiftedX(p.u16(area + 4)),
            .y1 = ShiftedY(p.u16(area + 6))};
}

/// The same for a key, of which a row that only a virtual key reaches is not moved.
inline TouchHead ReadTouchHead(const Parameters& p) {
    constexpr std::size_t area = 3;
    if (p.u16(area) != NoPosition) return ReadMovedHead(p, area);
    return {.typeWord = p.typeWord(), .x0 = NoPosition, .y0 = p.u16(area + 2)};
}

} // namespace panel
