// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <optional>

namespace vkr {

// A point in time as days from 30 December 1899; the fraction is the time of day. 0 is "no date".
// Before that day the fraction still counts forward from the start of the day: -1.25 is 06:00 on
// 29 December 1899.
struct Date {
    double serial = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): not what it takes the generated comparison for
    friend auto operator<=>(const Date&, const Date&) = default;
};

struct CivilDate {
    int year = 1899;
    int month = 12; // 1 to 12
    int day = 30;   // 1 to 31

    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

struct ClockTime {
    int hour = 0; // 0 to 23
    int minute = 0;
    int second = 0;

    friend bool operator==(const ClockTime&, const ClockTime&) = default;
};

// Every function takes any serial: one that is not finite counts as absent, one outside of the
// years 100 to 9999 as the nearest day inside. Times are to the second; what is within half a
// second of midnight belongs to the next day.

// True for serial 0 and for what is not finite.
[[nodiscard]] bool isAbsent(Date date);

// Nothing when there is no such day, or the year is outside of 100 to 9999.
[[nodiscard]] std::optional<Date> makeDate(int year, int month, int day);
// The same day at a time of day; nothing when there is no such time.
[[nodiscard]] std::optional<Date> atTime(Date day, ClockTime time);

[[nodiscard]] CivilDate civil(Date date);
[[nodiscard]] ClockTime clock(Date date);
[[nodiscard]] int weekday(Date date);               // 1 = Sunday to 7 = Saturday
[[nodiscard]] int dayOfYear(Date date);             // 1 to 366
[[nodiscard]] int quarter(Date date);               // calendar quarter, 1 to 4
[[nodiscard]] int daysInMonth(int year, int month); // 0 when there is no such month

// Arithmetic keeps the time of day and stays within the years 100 to 9999; an absent date stays
// absent. Where the month reached is shorter, the day becomes its last one.
[[nodiscard]] Date addDays(Date date, int days);
[[nodiscard]] Date addMonths(Date date, int months);
// The end of a quarter some quarters away: the last day of a month leads to the last day of
// another, so that 31 March comes a quarter before 30 June.
[[nodiscard]] Date addQuarters(Date date, int quarters);
[[nodiscard]] Date addYears(Date date, int years);

// Calendar quarters from one date to the other, negative when `to` is the earlier one.
[[nodiscard]] int quartersBetween(Date from, Date to);
// Quarters from one date to the other where quarters end on days of their own: of the dates that
// lie whole quarters away from `from`, how many to the one nearest to `to`. From 31 December to
// 1 April it is one.
[[nodiscard]] int nearestQuarters(Date from, Date to);
// Whole days, the time of day ignored.
[[nodiscard]] int daysBetween(Date from, Date to);

} // namespace vkr
