#include "store/clock.h"

#include "store/host_time.h"
#include "store/system_words.h"
#include "store/variable_store.h"

#include <gtest/gtest.h>

#include <QDate>

namespace panel {
namespace {

QDateTime clockTime() {
    return {QDate(Clock.Year, Clock.Month, Clock.Day), QTime(Clock.Hour, Clock.Minute, Clock.Second)};
}

void startAt(const QString& time) {
    SetHostTime(QDateTime::fromString(time, Qt::ISODate));
    InitClock();
}

TEST(Clock, FollowsTheCalendarOverEveryMidnight) {
    QDateTime expected(QDate(2010, 1, 1), QTime(23, 59, 59));
    startAt("2010-01-01T23:59:59");
    for (int day = 0; day < 365 * 89; ++day) {
        OncePerSecond();
        expected = expected.addSecs(1);
        ASSERT_EQ(clockTime(), expected);
        ASSERT_EQ(Clock.Weekday, expected.date().dayOfWeek() % 7) << expected.toString().toStdString();
        Clock.Hour = 23;
        Clock.Minute = Clock.Second = 59;
        expected.setTime(QTime(23, 59, 59));
    }
}

TEST(Clock, RunsThroughMinutesAndHours) {
    startAt("2026-11-18T22:58:57");
    for (int i = 0; i < 3725; ++i) OncePerSecond();
    EXPECT_EQ(clockTime(), QDateTime::fromString("2026-11-19T00:01:02", Qt::ISODate));
}

TEST(Clock, CountsADayPastItsMonthOnAndRefusesYearsItCannotCount) {
    startAt("2024-06-01T00:00:00");
    SetClock(2023, 2, 29, 0, 0, 0);
    EXPECT_EQ(clockTime().date(), QDate(2023, 3, 1));
    SetClock(2024, 2, 29, 0, 0, 0);
    EXPECT_EQ(SetClock(2100, 1, 1, 0, 0, 0), 1);
    EXPECT_EQ(SetClock(2009, 12, 31, 0, 0, 0), 1);
    EXPECT_EQ(clockTime().date(), QDate(2024, 2, 29));
    EXPECT_EQ(SetClock(2099, 12, 31, 99, 99, 99), 0);
    EXPECT_EQ(clockTime(), QDateTime(QDate(2099, 12, 31), QTime(23, 59, 59)));
    SetClock(2024, 200, 255, 0, 0, 0); // any bytes a host may send
    EXPECT_TRUE(clockTime().isValid());
}

TEST(Clock, WordSetTimeTakesTheTimeWords) {
    startAt("2026-11-22T21:45:27");
    EXPECT_EQ(ReadWord(word::Year), 26);
    EXPECT_EQ(ReadWord(word::SetTime), 0) << "a Sunday";
    const std::uint16_t values[] = {24, 2, 29, 1, 2, 3};
    for (std::uint16_t i = 0; i < 6; ++i) StoreWord(static_cast<std::uint16_t>(word::Year + i), values[i]);
    ApplySystemWord(word::SetTime);
    EXPECT_EQ(clockTime(), QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3)));
    EXPECT_EQ(Clock.Weekday, 4);

    StoreWord(word::Year, 5); // 2005 cannot be counted, but the words take effect until midnight
    ApplySystemWord(word::SetTime);
    EXPECT_EQ(Clock.Year, 2005);
}

} // namespace
} // namespace panel
