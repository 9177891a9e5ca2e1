// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <string>
#include <string_view>

namespace vkr {

// Of dates whose pattern is none: one of more than maxDatePatternLength bytes.
inline constexpr std::string_view fallbackDatePattern = "MMM/DD/YYYY";
inline constexpr std::size_t maxDatePatternLength = 255;

// The date as text. "" for an absent date. en-US names and marks; tokens in any case:
//
//   d dd ddd dddd      day, two digits, Sat, Saturday       y yy yyyy   day of the year, 05, 2005
//   m mm mmm mmmm      month, two digits, Dec, December     q w ww      quarter, weekday, week
//   h hh n nn s ss     hour, minute, second                 AM/PM am/pm A/P a/p AMPM
//   ddddd dddddd       Short Date, Long Date                ttttt c     Long Time, General Date
//   "text" \c          as it stands                         / :         the marks themselves
//
// m and mm next after h or before s are minutes. Other characters stand as they are. The names
// "General Date", "Long Date", "Medium Date", "Short Date", "Long Time", "Medium Time" and
// "Short Time" are patterns too; an empty one is "General Date".
[[nodiscard]] std::string formatDate(Date date, std::string_view pattern);

enum class DateOrder {
    MonthDayYear,
    DayMonthYear,
    YearMonthDay,
    YearDayMonth,
    MonthShortYear, // without a day, the year with two digits
    ShortYearMonth,
};

// The order in which a pattern writes day, month and year; MonthDayYear where it leaves it open.
[[nodiscard]] DateOrder dateOrder(std::string_view pattern);

// English names, numbered as month and weekday are.
[[nodiscard]] std::string_view monthName(int month);     // 1 to 12, else ""
[[nodiscard]] std::string_view weekdayName(int weekday); // 1 = Sunday to 7, else ""

} // namespace vkr
