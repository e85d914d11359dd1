// uitimer: a timer in seconds that lives in three words of the store and shows its count in digit pictures.
// Engine thread, but for the counting.
#pragma once

#include "pages/parameters.h"
#include "widgets/display/running_timers.h"

#include <cstddef>
#include <cstdint>

namespace panel {

/// What is shown of the count.
enum class TimerFormat : std::uint8_t {
    Nothing = 0,
    HoursMinutesSeconds = 1,
    HoursMinutes = 2,
    MinutesSeconds = 3, // of the hour
    Plain = 4           // the count with as many digits as the preset asks for
};

/// One widget of the page.
struct UiTimerRow : TimerCount {
    std::uint16_t X = 0, Y = 0;   // px on the panel
    std::uint16_t FirstImage = 0; // picture of digit 0; the colon is 10 behind it
    TimerFormat Format = TimerFormat::Nothing;
    std::uint8_t Background = 0; // 1: goes on counting when the page is left
    std::uint16_t LastWidth = 0; // px, of the digits on the screen
};

/// The timers of the page on show, in stream order; a page holds at most 10. Changed under TimerRowsLock.
inline RowTable<UiTimerRow, 10> UiTimerTable;
inline std::size_t UiTimerCursor = 0;

/// Appends the row of a record, which takes over from a background timer of the same id, and shows it.
void AddUiTimer(const Parameters& p);
/// Shows the count, or takes it off the screen.
void DrawUiTimer(UiTimerRow& row);
/// Redraws the timers after each second. Once a cycle.
void UiTimerTick();

/// The page's rows go: those that run on in the background move to RunningTimers.
void MergeUiTimers();

/// The refresh of one record, and that of all rows behind it.
void RefreshUiTimer(std::uint16_t page, const Parameters& p, bool blockChanged);
void RefreshUiTimers(std::uint16_t page);

/// A second of all timers, page first. Main thread.
void CountUiTimers();

} // namespace panel
