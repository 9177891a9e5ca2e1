// SPDX-License-Identifier: MIT
#include "input/mdlKMTMisc_values.hpp"

#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

std::string toDecimalText(std::string_view text) {
    const auto slash = text.find('/');
    if (slash == std::string_view::npos || slash == 0)
        return std::string(text);
    const auto blank = text.find(' ');
    if (blank != std::string_view::npos && blank > slash)
        return {};
    const std::size_t wholeSize = blank == std::string_view::npos ? 0 : blank;
    const double numerator = leadingNumber(text.substr(wholeSize));
    if (numerator == 0)
        return {};
    const std::string_view wholeText = text.substr(0, wholeSize);
    const double whole = isNumberText(wholeText) ? leadingNumber(wholeText) : 0;
    const double quotient =
        SafeDivide(numerator, leadingNumber(text.substr(slash + 1)), true, 0.0, false, {})
            .toDouble();
    return decimalNumberText(whole < 0 ? whole - quotient : whole + quotient);
}

} // namespace

std::string FractionToDecimal(std::string_view text) {
    std::string result;
    ifPossible([&] { result = toDecimalText(text); });
    return result;
}

std::int32_t GreatestCommonDivisor(std::int32_t first, std::int32_t second) {
    if (second == 0)
        throw std::domain_error("a zero second argument is a division error");
    std::int64_t larger = std::abs(std::int64_t{first});
    std::int64_t smaller = std::abs(std::int64_t{second});
    while (smaller != 0)
        larger = std::exchange(smaller, larger % smaller);
    if (larger > std::numeric_limits<std::int32_t>::max())
        throw std::overflow_error("overflow");
    return static_cast<std::int32_t>(larger);
}

Variant SafeDivide(const Variant& numerator, const Variant& denominator, bool trueDivision,
                   const Variant& valueIfZero, bool checkSign, const Variant& valueIfNegative) {
    Variant result;
    ifPossible([&] {
        const double dividend = numerator.toDouble();
        const double divisor = denominator.toDouble();
        if (checkSign && (dividend < 0 || divisor < 0)) {
            result = valueIfNegative;
        } else if (divisor == 0) {
            result = valueIfZero;
        } else {
            const double quotient = dividend / divisor;
            if (!std::isfinite(quotient))
                throw std::overflow_error("overflow");
            result = trueDivision ? quotient : std::trunc(quotient);
        }
    });
    return result;
}

void ReplaceAll(std::string& text, std::string_view search, std::string_view replacement) {
    if (search.empty())
        return;
    std::string result;
    std::string_view rest = text;
    for (auto found = rest.find(search); found != std::string_view::npos;
         found = rest.find(search)) {
        result += rest.substr(0, found);
        result += replacement;
        rest.remove_prefix(found + search.size());
    }
    result += rest;
    text = std::move(result);
}

bool IsDateInRange(Date date) {
    static const Date first = *makeDate(1900, 1, 1);
    static const Date last = *makeDate(2999, 12, 1);
    return daysBetween(first, date) > 0 && daysBetween(date, last) > 0;
}

Date EndOfMonth(Date date) {
    if (isAbsent(date))
        return {};
    const CivilDate day = civil(date);
    return makeDate(day.year, day.month, daysInMonth(day.year, day.month)).value_or(Date{});
}

} // namespace vkr
