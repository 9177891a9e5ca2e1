// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

namespace vkr {

// The letters and digits of patterns, numbers and dates, whatever the locale.

constexpr bool isAsciiDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr bool areAsciiDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), isAsciiDigit);
}

constexpr char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isAsciiLetter(char c) {
    return asciiLower(c) >= 'a' && asciiLower(c) <= 'z';
}

constexpr bool startsWithAscii(std::string_view text, std::string_view start) {
    return text.size() >= start.size() &&
           std::equal(start.begin(), start.end(), text.begin(),
                      [](char a, char b) { return asciiLower(a) == asciiLower(b); });
}

constexpr bool equalsAscii(std::string_view left, std::string_view right) {
    return left.size() == right.size() && startsWithAscii(left, right);
}

} // namespace vkr
