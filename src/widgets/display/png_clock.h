// pngClock on the page: shows the panel's clock in digit pictures, redrawn once a second. Engine thread.
#pragma once

#include "pages/parameters.h"
#include "store/row_table.h"
#include "widgets/display/clock_glyphs.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// One widget of the page.
struct ClockRow : PngClockFields {
    std::uint8_t InList = 0;
    std::uint16_t LastWidth = 0; // px, of what is on the screen
};

/// The clocks of the page on show, in stream order; a page holds at most 6, and those behind them are not
/// shown.
inline RowTable<ClockRow, 6> ClockTable;
inline std::size_t ClockCursor = 0;

/// Appends the row of a record and shows it.
void AddClock(const Parameters& p);
void ForgetClocks();

/// Refreshes the page and redraws the clocks after each second. Once a cycle.
void ClockTick();
/// Shows the time, unless an open entry box is in the way. `eraseTail` takes off what a longer text has left.
void DrawClock(ClockRow& row, bool eraseTail);

/// The refresh of one record.
void RefreshClock(std::uint16_t page, const Parameters& p, bool blockChanged);

} // namespace panel
