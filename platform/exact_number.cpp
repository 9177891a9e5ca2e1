// SPDX-License-Identifier: MIT
#include "platform/exact_number.hpp"

#include "platform/ascii.hpp"
#include "platform/nearest_double.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace vkr {

std::string exactNumberText(double value) {
    // The smallest double has its first digit at the 324th decimal place, and 17 of them at most.
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

std::string shiftDecimalPoint(std::string_view number, int places) {
    std::string sign;
    if (!number.empty() && (number.front() == '-' || number.front() == '+')) {
        if (number.front() == '-')
            sign = "-";
        number.remove_prefix(1);
    }
    const auto point = std::min(number.find('.'), number.size());
    std::string digits(number.substr(0, point));
    auto whole = static_cast<std::ptrdiff_t>(digits.size()) + places;
    if (point < number.size())
        digits += number.substr(point + 1);
    if (whole < 1) {
        digits.insert(0, static_cast<std::size_t>(1 - whole), '0');
        whole = 1;
    }
    digits.resize(std::max(digits.size(), static_cast<std::size_t>(whole)), '0');
    std::string decimals = digits.substr(static_cast<std::size_t>(whole));
    digits.resize(static_cast<std::size_t>(whole));
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    decimals.erase(decimals.find_last_not_of('0') + 1);
    return sign + digits + (decimals.empty() ? "" : "." + decimals);
}

bool isPlainNumber(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits = std::count_if(text.begin(), text.end(), isAsciiDigit);
    return digits > 0 && points <= 1 && points + digits == static_cast<std::ptrdiff_t>(text.size());
}

std::optional<double> exactNumber(std::string_view text) {
    if (!isPlainNumber(text))
        return std::nullopt;
    if (text.front() == '+')
        text.remove_prefix(1);
    return nearestDouble(text);
}

} // namespace vkr
