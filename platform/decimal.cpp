// SPDX-License-Identifier: MIT
#include "platform/decimal.hpp"

#include "platform/ascii.hpp"
#include "platform/nearest_double.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace vkr {

namespace {

void dropTrailingZeros(Decimal& number) {
    while (number.count > 0 && number.digit(number.count - 1) == '0')
        --number.count;
    if (number.count == 0)
        number.point = 0;
}

// Exponents beyond this lie far outside of what a double holds, whatever the mantissa.
constexpr std::int64_t exponentLimit = 1'000'000'000;

} // namespace

Decimal toDecimal(double value) {
    Decimal number;
    if (value == 0 || !std::isfinite(value))
        return number;
    char text[32];
    const auto written = std::to_chars(std::begin(text), std::end(text), std::fabs(value),
                                       std::chars_format::scientific);
    number.negative = value < 0;
    const char* const mark = std::find<const char*>(text, written.ptr, 'e');
    number.digits[0] = text[0];
    if (text[1] == '.')
        std::copy<const char*>(text + 2, mark, number.digits.begin() + 1);
    number.count = static_cast<int>(std::max<std::ptrdiff_t>(mark - text - 1, 1));
    const char* next = mark + 1;
    if (*next == '+')
        ++next;
    int exponent = 0;
    std::from_chars(next, written.ptr, exponent);
    number.point = exponent + 1;
    roundToDigits(number, Decimal::capacity);
    return number;
}

void roundToDigits(Decimal& number, int significant) {
    if (significant >= number.count)
        return;
    const bool up = significant >= 0 && number.digit(significant) >= '5';
    number.count = std::max(significant, 0);
    if (up) {
        while (number.count > 0 && number.digit(number.count - 1) == '9')
            --number.count;
        if (number.count == 0) {
            number.digits[0] = '1';
            number.count = 1;
            ++number.point;
        } else {
            ++number.digits[static_cast<std::size_t>(number.count - 1)];
        }
    }
    dropTrailingZeros(number);
}

void roundToPlaces(Decimal& number, int places) {
    const std::int64_t significant = std::int64_t{number.point} + places;
    roundToDigits(number,
                  static_cast<int>(std::clamp<std::int64_t>(significant, -1, number.count)));
}

double toDouble(const Decimal& number) {
    if (number.isZero())
        return 0;
    std::array<char, Decimal::capacity + 24> text; // digits, a mark and the longest exponent
    char* end = std::copy_n(number.digits.data(), number.count, text.data());
    *end++ = 'e';
    end = std::to_chars(end, text.data() + text.size(), std::int64_t{number.point} - number.count)
              .ptr;
    const auto value = nearestDouble({text.data(), static_cast<std::size_t>(end - text.data())});
    if (!value && number.point <= 0)
        return 0; // too small
    const double size = value.value_or(std::numeric_limits<double>::infinity());
    return number.negative ? -size : size;
}

NumberSpan scanNumber(std::string_view text) {
    NumberSpan number;
    std::size_t place = 0;
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        number.negative = text[0] == '-';
        ++place;
    }
    const std::size_t start = place;
    bool hasDigits = false;
    bool hasPoint = false;
    for (; place < text.size(); ++place) {
        if (isAsciiDigit(text[place]))
            hasDigits = true;
        else if (text[place] == '.' && !hasPoint)
            hasPoint = true;
        else
            break;
    }
    if (!hasDigits)
        return {};
    number.mantissa = text.substr(start, place - start);
    number.length = place;
    if (place < text.size() && (text[place] == 'e' || text[place] == 'E')) {
        ++place;
        bool negative = false;
        if (place < text.size() && (text[place] == '-' || text[place] == '+'))
            negative = text[place++] == '-';
        const std::size_t first = place;
        std::int64_t exponent = 0;
        for (; place < text.size() && isAsciiDigit(text[place]); ++place)
            exponent = std::min(exponent * 10 + (text[place] - '0'), exponentLimit);
        if (place > first) {
            number.exponent = negative ? -exponent : exponent;
            number.length = place;
        }
    }
    return number;
}

std::optional<double> valueOf(const NumberSpan& number, int shift) {
    std::string text(number.mantissa);
    text += 'e';
    text += std::to_string(number.exponent + shift);
    if (const auto value = nearestDouble(text))
        return number.negative ? -*value : *value;
    // Too large or too small: the place of the first digit that counts tells which.
    const auto first = number.mantissa.find_first_of("123456789");
    const auto point = std::min(number.mantissa.find('.'), number.mantissa.size());
    const auto magnitude = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) +
                           number.exponent + shift;
    if (first != std::string_view::npos && magnitude > 0)
        return std::nullopt;
    return 0.0;
}

} // namespace vkr
