// Dates as they are written and shown; the values are a calendar's.
#include "simulator/runtime/date.hpp"

#include <gtest/gtest.h>

#include "simulator/runtime/clock.hpp"

namespace simulator {
namespace {

// `date -u -d TEXT +%s` says the same.
constexpr double inJune = 1622581500;        // 2021-06-01 21:05:00
constexpr double leapMidnight = 1582934400;  // 2020-02-29 00:00:00

double secondsAt(const char* day, const char* time) {
    return static_cast<double>((dayFrom(day)->time_since_epoch() + *timeOfDayFrom(time)).count());
}

TEST(Date, IsReadAsItIsWritten) {
    EXPECT_EQ(secondsAt("2021-06-01", "21:05"), inJune);
    EXPECT_EQ(secondsAt("2021-06-01", "21:05:09"), inJune + 9);
    EXPECT_EQ(secondsAt("2020-02-29", "0:00"), leapMidnight);
    EXPECT_EQ(writtenDate(inJune + 9), "2021-06-01 21:05:09");
    EXPECT_EQ(writtenDate(leapMidnight), "2020-02-29 00:00:00");
}

TEST(Date, KnowsTheCalendarAndTheClock) {
    for (const char* day : {"", "2021-02-29", "2021-13-01", "2021-06-00", "2021-6-1", "2021-06-011",
                            "21-06-01", "2021/06/01", "2021-06", "+021-06-01"})
        EXPECT_FALSE(dayFrom(day)) << day;
    for (const char* time : {"", "24:00", "09:60", "09:41:60", "09", "09:", "009:41", "09:4",
                             "-9:41", "09:41:", "09:41:1", "09:41 "})
        EXPECT_FALSE(timeOfDayFrom(time)) << time;
}

TEST(Date, IsShownInTwelveHours) {
    EXPECT_EQ(shownTime(firstDate), "9:41");
    EXPECT_EQ(shownDay(firstDate), "Tuesday, January 9");
    EXPECT_EQ(shownTime(inJune), "9:05");
    EXPECT_EQ(shownDay(inJune), "Tuesday, June 1");
    EXPECT_EQ(shownTime(leapMidnight), "12:00");
    EXPECT_EQ(shownTime(leapMidnight - 0.5), "11:59");
    EXPECT_EQ(shownDay(leapMidnight - 0.5), "Friday, February 28");
    EXPECT_EQ(shownTime(leapMidnight + 12 * 3600), "12:00");
}

TEST(Date, GoesOnWithTheClockFromWhereItWasSet) {
    Clock clock;
    EXPECT_EQ(clock.date(), firstDate);
    clock.advance(1.5);
    EXPECT_DOUBLE_EQ(clock.date(), firstDate + 1.5);
    clock.setDate(inJune);
    clock.advance(60);
    EXPECT_DOUBLE_EQ(clock.date(), inJune + 60);
    EXPECT_DOUBLE_EQ(clock.now(), 61.5);
}

}  // namespace
}  // namespace simulator
