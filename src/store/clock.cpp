#include "store/clock.h"

#include "store/host_time.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "widgets/display/uitimer.h"

#include <QDate>

#include <algorithm>
#include <array>

namespace panel {
namespace {

const QDate DayZero(2010, 1, 1);

constexpr std::array<std::uint8_t, 12> MonthLengths{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr std::array<std::uint8_t, 12> WeekdayOfMonth{0, 3, 3, 6, 1, 4, 6, 2, 5, 0, 3, 5};

/// Days from 2010-01-01 to a date of 2010 or later. A day past its month's end counts on into the next.
std::uint16_t daysSince2010(int year, int month, int day) {
    int days = 0;
    for (int y = 2010; y < year; ++y) days += QDate::isLeapYear(y) ? 366 : 365;
    for (int m = 1; m < std::min(month, 13); ++m)
        days += MonthLengths[static_cast<std::size_t>(m - 1)] + (m == 2 && QDate::isLeapYear(year));
    return static_cast<std::uint16_t>(days + day - 1);
}

void updateWeekday() { Clock.Weekday = WeekdayOf(Clock.Year, Clock.Month, Clock.Day); }

void daysToDate() {
    const auto days = static_cast<std::uint16_t>(Clock.DayCount);
    if (days == Clock.DayCountCache) return;
    Clock.DayCountCache = days;
    const QDate date = DayZero.addDays(days);
    Clock.Year = static_cast<std::uint16_t>(date.year());
    Clock.Month = static_cast<std::uint8_t>(date.month());
    Clock.Day = static_cast<std::uint8_t>(date.day());
}

/// Adds 1; at `limit` the value returns to 0 and the result is true.
bool carry(Shared<std::uint8_t>& value, int limit) {
    value = static_cast<std::uint8_t>(value + 1);
    if (value < limit) return false;
    value = 0;
    return true;
}

void advanceClock() {
    if (!carry(Clock.Second, 60) || !carry(Clock.Minute, 60) || !carry(Clock.Hour, 24)) return;
    Clock.DayCount += 1;
    daysToDate();
    updateWeekday();
}

} // namespace

std::uint8_t WeekdayOf(std::uint16_t year, std::uint8_t month, std::uint8_t day) {
    const int century = year / 100;
    const int y = year % 100 + (century > 19 ? 100 : 0);
    const std::size_t index = month >= 1 && month <= 12 ? month - 1u : 0u;
    int w = (y / 4 + y) % 7 + WeekdayOfMonth[index] + day;
    if (y % 4 == 0 && index < 2) w -= 1;
    return static_cast<std::uint8_t>((w + 7) % 7);
}

int SetClock(std::uint16_t year, std::uint8_t month, std::uint8_t day, std::uint8_t hour, std::uint8_t minute,
             std::uint8_t second) {
    if (year < 2010 || year > 2099) return 1;
    Clock.DayCount = daysSince2010(year, month, day);
    daysToDate();
    Clock.Hour = std::min<std::uint8_t>(hour, 23);
    Clock.Minute = std::min<std::uint8_t>(minute, 59);
    Clock.Second = std::min<std::uint8_t>(second, 59);
    updateWeekday();
    return 0;
}

void InitClock() {
    const QDateTime now = HostTime();
    Clock.Year = static_cast<std::uint16_t>(now.date().year());
    Clock.Month = static_cast<std::uint8_t>(now.date().month());
    Clock.Day = static_cast<std::uint8_t>(now.date().day());
    Clock.Hour = static_cast<std::uint8_t>(now.time().hour());
    Clock.Minute = static_cast<std::uint8_t>(now.time().minute());
    Clock.Second = static_cast<std::uint8_t>(now.time().second());
    updateWeekday();
    CopyTimeToWords();
    if (Clock.Year < 2010 || Clock.Year > 2099) return; // the time runs, but midnight will bring a wrong date
    Clock.DayCount = daysSince2010(Clock.Year, Clock.Month, Clock.Day);
}

void OncePerSecond() {
    advanceClock();
    ClockSecondFlag = 1;
    SecondTick = 1;
    UiTimerSecondFlag = 1;
    CountUiTimers();
}

void ReadClockWords() {
    Clock.Year = static_cast<std::uint16_t>(2000 + ReadLowByte(word::Year));
    Clock.Month = ReadLowByte(word::Month);
    Clock.Day = ReadLowByte(word::Day);
    Clock.Hour = ReadLowByte(word::Hour);
    Clock.Minute = ReadLowByte(word::Minute);
    Clock.Second = ReadLowByte(word::Second);
    updateWeekday();
}

void CopyTimeToWords() {
    StoreLowByte(word::Year, static_cast<std::uint8_t>(Clock.Year + 0x30)); // year - 2000, modulo 256
    StoreLowByte(word::Month, Clock.Month);
    StoreLowByte(word::Day, Clock.Day);
    StoreLowByte(word::Hour, Clock.Hour);
    StoreLowByte(word::Minute, Clock.Minute);
    StoreLowByte(word::Second, Clock.Second);
}

void CopyClockToWords() {
    CopyTimeToWords();
    StoreLowByte(word::SetTime, Clock.Weekday);
}

void SetClockFromWords() {
    ReadClockWords();
    SetClock(Clock.Year, Clock.Month, Clock.Day, Clock.Hour, Clock.Minute, Clock.Second);
}

} // namespace panel
