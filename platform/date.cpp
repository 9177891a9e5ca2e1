// SPDX-License-Identifier: MIT
#include "platform/date.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace vkr {

namespace {

constexpr int firstYear = 100;
constexpr int lastYear = 9999;
constexpr int secondsPerDay = 86400;

constexpr bool isLeapYear(int year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

// Days from 30 December 1899, for years from 1 on. The year is counted from March, so that the
// leap day is its last.
constexpr int dayNumber(int year, int month, int day) {
    const int marchYear = month > 2 ? year : year - 1;
    const int era = marchYear / 400;
    const int yearOfEra = marchYear % 400;
    const int dayOfMarchYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
    const int dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfMarchYear;
    return era * 146097 + dayOfEra - 693899;
}
static_assert(dayNumber(1899, 12, 30) == 0);
static_assert(dayNumber(2005, 12, 31) == 38717);

constexpr int firstDay = dayNumber(firstYear, 1, 1);
constexpr int lastDay = dayNumber(lastYear, 12, 31);

constexpr CivilDate civilOfDay(int days) {
    const int shifted = days + 693899;
    const int era = shifted / 146097;
    const int dayOfEra = shifted % 146097;
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfMarchYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int marchMonth = (5 * dayOfMarchYear + 2) / 153;
    const int month = marchMonth < 10 ? marchMonth + 3 : marchMonth - 9;
    return {yearOfEra + era * 400 + (month <= 2 ? 1 : 0), month,
            dayOfMarchYear - (153 * marchMonth + 2) / 5 + 1};
}

struct Parts {
    int day = 0;
    int second = 0; // of the day
    double fraction = 0;
};

Parts split(Date date) {
    if (!std::isfinite(date.serial))
        return {};
    // One day beyond either end is enough to know that it has to be clamped.
    const double serial = std::clamp(date.serial, firstDay - 1.0, lastDay + 1.0);
    const double whole = std::trunc(serial);
    const double fraction = std::fabs(serial - whole);
    Parts parts{static_cast<int>(whole), static_cast<int>(std::lround(fraction * secondsPerDay)),
                fraction};
    if (parts.second == secondsPerDay)
        parts = {parts.day + 1, 0, 0};
    if (parts.day < firstDay)
        return {firstDay, 0, 0};
    if (parts.day > lastDay)
        return {lastDay, 0, 0};
    return parts;
}

Date join(int day, double fraction) {
    return {day < 0 ? day - fraction : day + fraction};
}

enum class MonthEnd { likeAnyDay, stays };

Date shiftMonths(Date date, std::int64_t months, MonthEnd monthEnd = MonthEnd::likeAnyDay) {
    if (isAbsent(date))
        return {};
    const Parts parts = split(date);
    const CivilDate from = civilOfDay(parts.day);
    const std::int64_t target = std::clamp<std::int64_t>(
        std::int64_t{from.year} * 12 + from.month - 1 + months, firstYear * 12, lastYear * 12 + 11);
    const int year = static_cast<int>(target / 12);
    const int month = static_cast<int>(target % 12) + 1;
    const int last = daysInMonth(year, month);
    const bool toLast =
        monthEnd == MonthEnd::stays && from.day == daysInMonth(from.year, from.month);
    return join(dayNumber(year, month, toLast ? last : std::min(from.day, last)), parts.fraction);
}

} // namespace

bool isAbsent(Date date) {
    return date.serial == 0 || !std::isfinite(date.serial);
}

std::optional<Date> makeDate(int year, int month, int day) {
    if (year < firstYear || year > lastYear || day < 1 || day > daysInMonth(year, month))
        return std::nullopt;
    return Date{static_cast<double>(dayNumber(year, month, day))};
}

std::optional<Date> atTime(Date day, ClockTime time) {
    if (time.hour < 0 || time.hour > 23 || time.minute < 0 || time.minute > 59 || time.second < 0 ||
        time.second > 59)
        return std::nullopt;
    const int second = (time.hour * 60 + time.minute) * 60 + time.second;
    return join(split(day).day, static_cast<double>(second) / secondsPerDay);
}

CivilDate civil(Date date) {
    return civilOfDay(split(date).day);
}

ClockTime clock(Date date) {
    const int second = split(date).second;
    return {second / 3600, second / 60 % 60, second % 60};
}

int weekday(Date date) {
    const int remainder = split(date).day % 7;
    return remainder <= 0 ? remainder + 7 : remainder;
}

int dayOfYear(Date date) {
    const int day = split(date).day;
    return day - dayNumber(civilOfDay(day).year, 1, 1) + 1;
}

int quarter(Date date) {
    return (civil(date).month + 2) / 3;
}

int daysInMonth(int year, int month) {
    static constexpr std::array days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && isLeapYear(year) ? 29 : days[static_cast<std::size_t>(month) - 1];
}

Date addDays(Date date, int days) {
    if (isAbsent(date))
        return {};
    const Parts parts = split(date);
    const std::int64_t day = std::int64_t{parts.day} + days;
    return join(static_cast<int>(std::clamp<std::int64_t>(day, firstDay, lastDay)), parts.fraction);
}

Date addMonths(Date date, int months) {
    return shiftMonths(date, months);
}
Date addQuarters(Date date, int quarters) {
    return shiftMonths(date, std::int64_t{quarters} * 3, MonthEnd::stays);
}
Date addYears(Date date, int years) {
    return shiftMonths(date, std::int64_t{years} * 12);
}

int quartersBetween(Date from, Date to) {
    return (civil(to).year - civil(from).year) * 4 + quarter(to) - quarter(from);
}

int nearestQuarters(Date from, Date to) {
    const auto distance = [&](int quarters) {
        return std::abs(daysBetween(addQuarters(from, quarters), to));
    };
    const int calendar = quartersBetween(from, to);
    int nearest = calendar;
    for (const int quarters : {calendar - 1, calendar + 1})
        if (distance(quarters) < distance(nearest))
            nearest = quarters;
    return nearest;
}

int daysBetween(Date from, Date to) {
    return split(to).day - split(from).day;
}

} // namespace vkr
