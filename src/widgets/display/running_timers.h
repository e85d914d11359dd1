// The counting of uitimer widgets, a second at a time: those of the page on show, and those that run on in
// the background after their page was left.
#pragma once

#include "store/row_table.h"

#include <cstdint>
#include <mutex>
#include <span>

namespace panel {

enum class TimerControl : std::uint16_t {
    Stopped = 0,
    Counting = 1,
    Hidden = 2
}; // any other: not counting, shown

/// What counting needs of a timer. All addresses are word addresses.
struct TimerCount {
    std::uint16_t Preset = 0;  // holds the limit of a count up; the address is the timer's id as well
    std::uint16_t Timer = 0;   // holds the count in seconds
    std::uint16_t Control = 0; // holds the command
    std::uint8_t Direction = 0;
    std::uint8_t Notify = 0;         // 1: sends a frame at the end
    std::uint16_t TargetAddress = 0; // set at the end to TargetValue; outside the store: none
    std::uint16_t TargetValue = 0;
};

inline constexpr std::uint8_t CountsDown = 0;
inline constexpr std::uint8_t CountsUp = 1;

/// Held by the main thread while it counts the rows of both tables, and by the engine while it changes them
/// or moves one from table to table. So a second counts each timer once, and meets no row half built.
inline std::mutex TimerRowsLock;

/// The background timers. They outlive pages and loads.
inline RowTable<TimerCount, 21> RunningTimers;

/// The page's row takes over from the background. The caller holds the lock.
void RemoveRunningTimer(std::uint16_t preset);
/// Enters a timer, unless its id is in or the table is full. The caller holds the lock.
void AddRunningTimer(const TimerCount& timer);

/// A second of a timer on the page. It ends in the second that finds the count at its end. Main thread.
void CountPageTimer(const TimerCount& timer);
/// A second of all background timers. They end in the second that brings the count to its end. Main thread,
/// which holds the lock.
void CountRunningTimers();

} // namespace panel
