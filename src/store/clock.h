// The panel's own real-time clock. It starts from the computer's time and then runs by the tick.
#pragma once

#include "store/shared.h"

#include <cstdint>

namespace panel {

/// The running clock. The main thread advances it; the engine sets it at start and by command.
struct ClockRecord {
    Shared<std::uint16_t> Year{2010};
    Shared<std::uint8_t> Month{1};
    Shared<std::uint8_t> Day{1};
    Shared<std::uint8_t> Hour{0};
    Shared<std::uint8_t> Minute{0};
    Shared<std::uint8_t> Second{0};
    Shared<std::uint8_t> Weekday{5};        // 0 is Sunday
    Shared<std::uint64_t> DayCount{0};      // days since 2010-01-01
    Shared<std::uint16_t> DayCountCache{0}; // the day that Year, Month and Day were computed from
};
inline ClockRecord Clock;

// Second flags: raised each second for the widgets that follow the time.
inline Shared<std::uint8_t> ClockSecondFlag{0};
inline Shared<std::uint8_t> SecondTick{0};
inline Shared<std::uint8_t> UiTimerSecondFlag{0};

/// Takes the host's date and time. Engine thread, at start.
void InitClock();

/// Advances the clock by a second, raises the second flags and counts the timers. Main thread.
void OncePerSecond();

/// Sets date and time; hour, minute and second are held to their ranges. Returns 1 and changes nothing for a
/// year outside 2010..2099, else 0. Any month and day are counted on from the year's start.
int SetClock(std::uint16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour, std::uint8_t minute,
             std::uint8_t second);

/// The clock takes words 0x7002..0x7007 as they stand, without a change of the day count.
void ReadClockWords();
/// Words 0x7002..0x7007 take the time, low bytes only.
void CopyTimeToWords();
/// The same, and word 0x7008 takes the weekday.
void CopyClockToWords();
/// SetClock() from words 0x7002..0x7007.
void SetClockFromWords();

/// 0 for Sunday to 6 for Saturday, by the Gregorian calendar from 1900 on. A month outside 1..12 counts as
/// January.
std::uint8_t WeekdayOf(std::uint16_t year, std::uint8_t month, std::uint8_t day);

} // namespace panel
