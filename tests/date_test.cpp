// SPDX-License-Identifier: MIT
#include "platform/date.hpp"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace vkr {
namespace {

Date on(int year, int month, int day) {
    return makeDate(year, month, day).value();
}

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

TEST(Date, CountsDaysFrom30December1899) {
    EXPECT_EQ(on(1899, 12, 30).serial, 0);
    EXPECT_EQ(on(1899, 12, 31).serial, 1);
    EXPECT_EQ(on(1900, 1, 1).serial, 2);
    EXPECT_EQ(on(1899, 12, 29).serial, -1);
    EXPECT_EQ(on(1970, 1, 1).serial, 25569);
    EXPECT_EQ(on(2005, 12, 31).serial, 38717);
    EXPECT_EQ(on(100, 1, 1).serial, -657434);
    EXPECT_EQ(on(9999, 12, 31).serial, 2958465);
}

TEST(Date, RefusesDaysThatDoNotExist) {
    const int rows[][3] = {{2004, 2, 30}, {2005, 2, 29}, {1900, 2, 29}, {2005, 4, 31},
                           {2005, 0, 1},  {2005, 13, 1}, {2005, 1, 0},  {2005, 1, 32},
                           {99, 12, 31},  {10000, 1, 1}, {0, 1, 1},     {2005, -1, 1}};
    for (const auto& row : rows)
        EXPECT_FALSE(makeDate(row[0], row[1], row[2])) << row[0] << '-' << row[1] << '-' << row[2];
    EXPECT_TRUE(makeDate(2000, 2, 29));
    EXPECT_TRUE(makeDate(2004, 2, 29));
}

TEST(Date, EveryDayComesBackWithItsNeighbours) {
    const double last = on(9999, 12, 31).serial;
    CivilDate before = civil(Date{-657434});
    int weekdayBefore = weekday(Date{-657434});
    for (double serial = -657433; serial <= last; ++serial) {
        const CivilDate day = civil(Date{serial});
        ASSERT_EQ(makeDate(day.year, day.month, day.day), Date{serial});
        if (day.day == 1)
            ASSERT_EQ(before.day, daysInMonth(before.year, before.month)) << serial;
        else
            ASSERT_EQ(day.day, before.day + 1) << serial;
        ASSERT_EQ(weekday(Date{serial}), weekdayBefore % 7 + 1) << serial;
        before = day;
        weekdayBefore = weekday(Date{serial});
    }
}

TEST(Date, KnowsWeekdayDayOfYearAndQuarter) {
    EXPECT_EQ(weekday(on(2005, 12, 31)), 7);
    EXPECT_EQ(weekday(on(2006, 1, 1)), 1);
    EXPECT_EQ(weekday(on(1899, 12, 30)), 7);
    EXPECT_EQ(weekday(on(1899, 12, 29)), 6);
    EXPECT_EQ(dayOfYear(on(2004, 12, 31)), 366);
    EXPECT_EQ(dayOfYear(on(2005, 3, 1)), 60);
    const int quarters[] = {1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(quarter(on(2005, month, 15)), quarters[month - 1]) << month;
}

TEST(Date, ReadsTheTimeOfDayToTheSecond) {
    EXPECT_EQ(clock(Date{38717.75}), (ClockTime{18, 0, 0}));
    EXPECT_EQ(clock(Date{38717 + 1.0 / 86400}), (ClockTime{0, 0, 1}));
    EXPECT_EQ(clock(Date{38717}), (ClockTime{}));
    // Within half a second of midnight.
    EXPECT_EQ(clock(Date{38716.999999}), (ClockTime{}));
    EXPECT_EQ(civil(Date{38716.999999}), (CivilDate{2005, 12, 31}));
    EXPECT_EQ(daysBetween(Date{38716.999999}, Date{38717}), 0);
}

TEST(Date, EverySecondOfADayComesBack) {
    for (int second = 0; second < 86400; ++second) {
        const ClockTime time{second / 3600, second / 60 % 60, second % 60};
        ASSERT_EQ(clock(atTime(on(2005, 12, 31), time).value()), time);
        ASSERT_EQ(clock(atTime(on(1850, 12, 31), time).value()), time);
        ASSERT_EQ(civil(atTime(on(1850, 12, 31), time).value()), (CivilDate{1850, 12, 31}));
    }
    for (const ClockTime none : {ClockTime{24, 0, 0}, ClockTime{0, 60, 0}, ClockTime{0, 0, 60},
                                 ClockTime{-1, 0, 0}, ClockTime{0, -1, 0}, ClockTime{0, 0, -1}})
        EXPECT_FALSE(atTime(on(2005, 12, 31), none));
}

TEST(Date, CountsTheFractionForwardBeforeTheFirstDay) {
    EXPECT_EQ(civil(Date{-1.25}), (CivilDate{1899, 12, 29}));
    EXPECT_EQ(clock(Date{-1.25}), (ClockTime{6, 0, 0}));
    EXPECT_EQ(addDays(Date{-1.25}, -1).serial, -2.25);
    EXPECT_EQ(addDays(Date{-1.25}, 3).serial, 2.25);
    EXPECT_EQ(addDays(Date{-1.25}, 1).serial, 0.25);
}

TEST(Date, AddsMonthsOntoTheLastDayOfAShorterMonth) {
    struct Row {
        Date from;
        int months;
        Date to;
    };
    const Row rows[] = {
        {on(2005, 1, 31), 1, on(2005, 2, 28)},    {on(2004, 1, 31), 1, on(2004, 2, 29)},
        {on(2005, 3, 31), -1, on(2005, 2, 28)},   {on(2005, 11, 30), 3, on(2006, 2, 28)},
        {on(2005, 12, 31), 12, on(2006, 12, 31)}, {on(2004, 2, 29), 12, on(2005, 2, 28)},
        {on(2005, 1, 15), -1, on(2004, 12, 15)},  {on(2005, 1, 15), -13, on(2003, 12, 15)},
        {on(2005, 5, 31), 0, on(2005, 5, 31)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(addMonths(row.from, row.months), row.to) << row.from.serial;
    EXPECT_EQ(addYears(on(2004, 2, 29), 1), on(2005, 2, 28));
    EXPECT_EQ(addYears(on(2004, 2, 29), 4), on(2008, 2, 29));
}

TEST(Date, AQuarterThatEndsOnALastDayLiesAmongOthersThatDo) {
    struct Row {
        Date from;
        int quarters;
        Date to;
    };
    const Row rows[] = {
        {on(2024, 6, 30), -1, on(2024, 3, 31)},  {on(2024, 6, 30), -2, on(2023, 12, 31)},
        {on(2005, 12, 31), -1, on(2005, 9, 30)}, {on(2005, 11, 30), 1, on(2006, 2, 28)},
        {on(2006, 2, 28), 1, on(2006, 5, 31)},   {on(2024, 2, 28), 1, on(2024, 5, 28)},
        {on(2026, 5, 30), -1, on(2026, 2, 28)},  {on(2026, 3, 28), 4, on(2027, 3, 28)},
        {on(2024, 6, 30), 0, on(2024, 6, 30)},   {on(1899, 9, 30), 1, on(1899, 12, 31)},
        {on(2024, 2, 29), -4, on(2023, 2, 28)},
    };
    for (const Row& row : rows)
        EXPECT_EQ(addQuarters(row.from, row.quarters), row.to) << row.from.serial;
}

TEST(Date, AQuarterIsThatOfTheNearestEnd) {
    EXPECT_EQ(nearestQuarters(on(2022, 12, 31), on(2023, 4, 1)), 1);
    EXPECT_EQ(nearestQuarters(on(2024, 12, 31), on(2024, 8, 16)), -1);
    // A day nearer to 31 March than to 30 June, and as far from 30 March.
    EXPECT_EQ(nearestQuarters(on(2024, 6, 30), on(2024, 5, 15)), -1);
    EXPECT_EQ(nearestQuarters(on(2024, 6, 30), on(2024, 5, 16)), 0);
    EXPECT_EQ(nearestQuarters(on(2025, 8, 15), on(2025, 9, 30)), 0) << "as far from 15 November";
}

TEST(Date, ArithmeticEndsAtTheFirstAndTheLastMonth) {
    EXPECT_EQ(addMonths(on(9999, 11, 15), 1), on(9999, 12, 15));
    EXPECT_EQ(addMonths(on(9999, 11, 15), 2), on(9999, 12, 15));
    EXPECT_EQ(addMonths(on(100, 2, 15), -1), on(100, 1, 15));
    EXPECT_EQ(addMonths(on(100, 2, 15), -2), on(100, 1, 15));
    EXPECT_EQ(addDays(on(9999, 12, 30), 1), on(9999, 12, 31));
    EXPECT_EQ(addDays(on(9999, 12, 31), 1), on(9999, 12, 31));
    EXPECT_EQ(addDays(on(100, 1, 2), -1), on(100, 1, 1));
    EXPECT_EQ(addDays(on(100, 1, 1), -1), on(100, 1, 1));
    EXPECT_TRUE(makeDate(100, 1, 1));
    EXPECT_TRUE(makeDate(9999, 12, 31));
}

TEST(Date, ADayBeyondTheEndsIsTheLastOrFirstOneAtMidnight) {
    for (const double beyond : {0.0, 0.25, 0.999}) {
        EXPECT_EQ(civil(Date{2958466 + beyond}), (CivilDate{9999, 12, 31}));
        EXPECT_EQ(clock(Date{2958466 + beyond}), ClockTime{});
        EXPECT_EQ(civil(Date{-657435 - beyond}), (CivilDate{100, 1, 1}));
        EXPECT_EQ(clock(Date{-657435 - beyond}), ClockTime{});
    }
    EXPECT_EQ(clock(Date{2958465.25}), (ClockTime{6, 0, 0}));
    EXPECT_EQ(clock(Date{-657434.25}), (ClockTime{6, 0, 0}));
}

TEST(Date, HalfASecondBeforeMidnightTheNextDayBegins) {
    constexpr double second = 1.0 / 86400;
    EXPECT_EQ(civil(Date{38717 - 0.6 * second}), (CivilDate{2005, 12, 30}));
    EXPECT_EQ(clock(Date{38717 - 0.6 * second}), (ClockTime{23, 59, 59}));
    EXPECT_EQ(civil(Date{38717 - 0.4 * second}), (CivilDate{2005, 12, 31}));
    EXPECT_EQ(clock(Date{38717 - 0.4 * second}), ClockTime{});
    EXPECT_EQ(addDays(Date{38717 - 0.4 * second}, 1), on(2006, 1, 1));
}

TEST(Date, ArithmeticKeepsTheTimeOfDay) {
    const Date noon{on(2005, 1, 31).serial + 0.5};
    EXPECT_EQ(addMonths(noon, 1).serial, on(2005, 2, 28).serial + 0.5);
    EXPECT_EQ(addQuarters(noon, -1).serial, on(2004, 10, 31).serial + 0.5);
    EXPECT_EQ(addDays(noon, 1).serial, on(2005, 2, 1).serial + 0.5);
}

TEST(Date, CountsCalendarQuartersAndWholeDays) {
    EXPECT_EQ(quartersBetween(on(2005, 3, 31), on(2005, 4, 1)), 1);
    EXPECT_EQ(quartersBetween(on(2005, 4, 1), on(2005, 6, 30)), 0);
    EXPECT_EQ(quartersBetween(on(2005, 12, 31), on(2004, 12, 31)), -4);
    EXPECT_EQ(quartersBetween(on(1999, 12, 31), on(2000, 1, 1)), 1);
    EXPECT_EQ(daysBetween(on(2005, 1, 1), on(2006, 1, 1)), 365);
    EXPECT_EQ(daysBetween(Date{38717.9}, Date{38718.1}), 1);
    EXPECT_EQ(daysBetween(Date{38717.1}, Date{38717.9}), 0);
    EXPECT_EQ(daysBetween(on(2005, 1, 2), on(2005, 1, 1)), -1);
}

TEST(Date, AnAbsentDateStaysAbsent) {
    for (const double serial : {0.0, -0.0, noNumber, infinite, -infinite}) {
        const Date none{serial};
        EXPECT_TRUE(isAbsent(none));
        EXPECT_TRUE(isAbsent(addDays(none, 1)));
        EXPECT_TRUE(isAbsent(addMonths(none, 1)));
        EXPECT_TRUE(isAbsent(addQuarters(none, 1)));
        EXPECT_TRUE(isAbsent(addYears(none, 1)));
    }
    EXPECT_FALSE(isAbsent(Date{0.5}));
}

TEST(Date, WhatIsNoNumberIsTheDayBeforeTheFirst) {
    for (const double serial : {0.0, noNumber, infinite, -infinite}) {
        EXPECT_EQ(civil(Date{serial}), (CivilDate{1899, 12, 30}));
        EXPECT_EQ(clock(Date{serial}), ClockTime{});
    }
}

TEST(Date, EverySerialHasAnAnswer) {
    const double largest = std::numeric_limits<double>::max();
    const std::vector<double> serials = {
        noNumber, infinite,        -infinite, largest,         -largest,   1e-320,   -1e-320,
        2958466,  2958465.9999999, -657435,   -657434.9999999, -0.9999999, 0.9999999};
    for (const double serial : serials) {
        const Date date{serial};
        const CivilDate day = civil(date);
        EXPECT_TRUE(makeDate(day.year, day.month, day.day)) << serial;
        EXPECT_TRUE(atTime(date, clock(date))) << serial;
        EXPECT_GE(weekday(date), 1) << serial;
        EXPECT_LE(weekday(date), 7) << serial;
        EXPECT_GE(dayOfYear(date), 1) << serial;
        EXPECT_LE(dayOfYear(date), 366) << serial;
        for (const int step : {INT_MIN, -1, 0, 1, INT_MAX}) {
            for (const Date moved : {addDays(date, step), addMonths(date, step),
                                     addQuarters(date, step), addYears(date, step)}) {
                EXPECT_GE(moved.serial, on(100, 1, 1).serial - 1) << serial << ' ' << step;
                EXPECT_LT(moved.serial, on(9999, 12, 31).serial + 1) << serial << ' ' << step;
            }
        }
        for (const double other : serials) {
            EXPECT_EQ(daysBetween(date, Date{other}), -daysBetween(Date{other}, date));
            EXPECT_EQ(quartersBetween(date, Date{other}), -quartersBetween(Date{other}, date));
        }
    }
    EXPECT_EQ(civil(Date{largest}), (CivilDate{9999, 12, 31}));
    EXPECT_EQ(civil(Date{-largest}), (CivilDate{100, 1, 1}));
    EXPECT_EQ(addYears(on(2005, 12, 31), INT_MAX), on(9999, 12, 31));
    EXPECT_EQ(addYears(on(2005, 1, 1), INT_MIN), on(100, 1, 1));
}

TEST(Date, MonthsHaveTheirDays) {
    EXPECT_EQ(daysInMonth(2000, 2), 29);
    EXPECT_EQ(daysInMonth(1900, 2), 28);
    std::vector<int> days;
    for (int month = 0; month <= 13; ++month)
        days.push_back(daysInMonth(2005, month));
    EXPECT_EQ(days, (std::vector{0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31, 0}));
}

TEST(Date, ComparesByTime) {
    EXPECT_LT(on(2005, 12, 30), on(2005, 12, 31));
    EXPECT_LT(Date{38717.1}, Date{38717.2});
    EXPECT_EQ(Date{38717}, on(2005, 12, 31));
}

} // namespace
} // namespace vkr
