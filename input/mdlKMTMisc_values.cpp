// SPDX-License-Identifier: MIT
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

// "007" as "7", "-.5" as "-0.5": places are counted in this form.
std::string withOneLeadingDigit(std::string_view text) {
    const auto start = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    std::string plain(text.substr(start));
    const std::size_t sign = plain.starts_with('-') || plain.starts_with('+') ? 1 : 0;
    if (plain.starts_with('+'))
        plain.erase(0, 1);
    const std::size_t first = plain.starts_with('-') ? sign : 0;
    std::size_t zeros = first;
    while (zeros + 1 < plain.size() && plain[zeros] == '0' && plain[zeros + 1] >= '0' &&
           plain[zeros + 1] <= '9')
        ++zeros;
    plain.erase(first, zeros - first);
    if (first < plain.size() && plain[first] == '.')
        plain.insert(first, 1, '0');
    return plain;
}

std::string toFraction(std::string_view text, bool keepZero) {
    if (text.empty() || (!keepZero && leadingNumber(text) == 0))
        return {};
    // Groups of thousands come from the display pattern, exponents from very small figures.
    std::string input =
        withOneLeadingDigit(text.find_first_of(",eE") == std::string_view::npos
                                ? std::string(text)
                                : cleanNumericText(text, NumericKind::PlainNumber).text);
    auto point = input.find('.');
    if (point == std::string::npos)
        return input;
    const double behindPoint = leadingNumber(std::string_view(input).substr(point + 1));
    if (behindPoint <= 0)
        return behindPoint == 0 ? input.substr(0, point) : input;

    const std::string reformatted = formatNumber(leadingNumber(input), "0.000");
    // Where rounding adds a digit (9.9999), the place before rounding holds.
    const auto found = reformatted.find('.');
    if (found != point + 1 || input.find_first_not_of("-9") != point)
        point = found;
    std::string whole = reformatted.substr(0, point) + ' ';
    if (leadingNumber(whole) == 0)
        whole.clear();
    const std::string digits = reformatted.substr(point + 1);
    auto thousandths = static_cast<std::int32_t>(leadingNumber(digits));
    std::int32_t denominator = 1;
    for (std::size_t i = 0; i < digits.size(); ++i)
        denominator *= 10;
    constexpr std::int32_t eighth = 125;
    const std::int32_t remainder = thousandths % eighth;
    thousandths += remainder <= 62 ? -remainder : eighth - remainder;
    if (thousandths == 0)
        return reformatted.substr(0, point);
    const std::int32_t divisor = GreatestCommonDivisor(thousandths, denominator);
    return whole + std::to_string(thousandths / divisor) + '/' +
           std::to_string(denominator / divisor);
}

std::string toDecimalText(std::string_view text) {
    const auto slash = text.find('/');
    if (slash == std::string_view::npos || slash == 0)
        return std::string(text);
    const auto blank = text.find(' ');
    if (blank != std::string_view::npos && blank > slash)
        return {};
    const std::size_t wholeSize = blank == std::string_view::npos ? 0 : blank + 1;
    const double numerator = leadingNumber(text.substr(wholeSize, slash - wholeSize));
    if (numerator == 0)
        return {};
    const std::string_view wholeText = text.substr(0, wholeSize);
    const double whole = isNumberText(wholeText) ? leadingNumber(wholeText) : 0;
    const double quotient =
        SafeDivide(numerator, leadingNumber(text.substr(slash + 1)), true, 0.0, false, 0.0)
            .toDouble();
    return decimalNumberText(whole < 0 ? whole - quotient : whole + quotient);
}

} // namespace

std::string DecimalToFraction(std::string_view text, bool keepZero) {
    std::string result;
    attempt([&] { result = toFraction(text, keepZero); });
    return result;
}

std::string FractionToDecimal(std::string_view text) {
    std::string result;
    attempt([&] { result = toDecimalText(text); });
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
    attempt([&] {
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
