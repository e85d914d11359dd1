// AnalogClock: a dial with three hands that follow the panel's clock, redrawn once a second. Engine thread.
#pragma once

#include "graphics/image_row.h"
#include "pages/parameters.h"
#include "store/row_table.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// A round-ended stroke through the centre of the dial.
struct ClockHand {
    std::uint8_t Ahead = 0;   // px, from the centre to the tip
    std::uint8_t Behind = 0;  // px, from the centre to the tail
    std::uint8_t Width = 0;   // px
    std::uint32_t Colour = 0; // colour word
};

/// One widget of the page.
struct AnalogClockRow {
    std::uint8_t InList = 0;
    std::uint16_t X = 0, Y = 0; // px on the panel, of the face
    ImageRow Face;
    ImageRow Cap; // lies over the hands, in the middle of the face
    ClockHand HourHand, MinuteHand, SecondHand;
};

/// The analog clocks of the page on show, in stream order; a page holds at most 2, and those behind them are
/// not shown.
inline RowTable<AnalogClockRow, 2> AnalogClocks;
inline std::size_t AnalogClockCursor = 0;

/// Appends the row of a record and shows it.
void DisplayAnalogClock(const Parameters& p);
void ForgetAnalogClocks();

/// Redraws the clocks after each second. Once a cycle.
void AnalogClockTick();
/// Shows the time, unless an open entry box is in the way or the face has no picture.
void DrawAnalogClock(const AnalogClockRow& row);

/// The refresh of one record.
void RefreshAnalogClock(std::uint16_t page, const Parameters& p, bool blockChanged);

} // namespace panel
