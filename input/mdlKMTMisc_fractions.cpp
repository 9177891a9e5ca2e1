// SPDX-License-Identifier: MIT
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"
#include "platform/ascii.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>

namespace vkr {

namespace {

// "007" as "7", "-.5" as "-0.5": places are counted in this form.
std::string withOneLeadingDigit(std::string_view text) {
    const auto start = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    std::string plain(text.substr(start));
    if (plain.starts_with('+'))
        plain.erase(0, 1);
    const std::size_t first = plain.starts_with('-') ? 1 : 0;
    std::size_t zeros = first;
    while (plain[zeros] == '0' && isAsciiDigit(plain[zeros + 1])) // there is a 0 behind the end
        ++zeros;
    plain.erase(first, zeros - first);
    if (plain[first] == '.')
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
    if (found != point + 1)
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

} // namespace

std::string DecimalToFraction(std::string_view text, bool keepZero) {
    std::string result;
    ifPossible([&] { result = toFraction(text, keepZero); });
    return result;
}

} // namespace vkr
