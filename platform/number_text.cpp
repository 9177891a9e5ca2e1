// SPDX-License-Identifier: MIT
#include "platform/number_text.hpp"

#include "platform/decimal.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vkr {

namespace {

constexpr std::string_view blanks = " \t\r\n";

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

} // namespace

std::optional<double> readLeadingNumber(std::string_view text) {
    const NumberSpan number = scanNumber(withoutLeadingBlanks(text));
    if (number.length == 0)
        return 0.0;
    return valueOf(number);
}

double leadingNumber(std::string_view text) {
    return readLeadingNumber(text).value_or(0.0);
}

bool isNumberText(std::string_view text) {
    const std::string_view body = withoutLeadingBlanks(text);
    const NumberSpan number = scanNumber(body);
    return number.length > 0 && withoutLeadingBlanks(body.substr(number.length)).empty() &&
           valueOf(number).has_value();
}

std::string plainNumberText(double value) {
    const double magnitude = std::fabs(value);
    const bool plain = magnitude == 0 || (magnitude >= 1e-7 && magnitude <= 1e15);
    if (plain || !std::isfinite(value))
        return decimalNumberText(value);
    const Decimal number = toDecimal(value);
    std::string text;
    if (number.negative)
        text += '-';
    text += number.digit(0);
    if (number.count > 1) {
        text += '.';
        text.append(number.digits.data() + 1, static_cast<std::size_t>(number.count - 1));
    }
    const int exponent = number.point - 1;
    text += exponent < 0 ? "E-" : "E+";
    const std::string size = std::to_string(std::abs(exponent));
    if (size.size() < 2)
        text += '0';
    return text + size;
}

std::string decimalNumberText(double value) {
    if (!std::isfinite(value))
        return {};
    const Decimal number = toDecimal(value);
    if (number.isZero())
        return "0";
    std::string text;
    if (number.negative)
        text += '-';
    if (number.point <= 0)
        text += '0';
    for (int index = 0; index < number.point; ++index)
        text += number.digit(index);
    if (number.count > number.point) {
        text += '.';
        for (int index = number.point; index < number.count; ++index)
            text += number.digit(index);
    }
    return text;
}

} // namespace vkr
