// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vkr {

// What people and programs write around a figure, in UTF-8.
inline constexpr std::string_view blanks[] = {" ",      "\t",     "\r",     "\n",    "\u00A0",
                                              "\u2007", "\u2009", "\u202F", "\uFEFF"};
inline constexpr std::string_view minusSigns[] = {"-", "\u2212", "\u2012", "\u2013"};
inline constexpr std::string_view currencySigns[] = {"$", "\u20AC", "\u00A3", "\u00A5"};

// Takes one of the signs off the front of a text; whether there was one.
template <typename Signs>
bool skipFront(std::string_view& text, const Signs& signs) {
    for (const std::string_view sign : signs)
        if (text.starts_with(sign)) {
            text.remove_prefix(sign.size());
            return true;
        }
    return false;
}

// The same at its end.
template <typename Signs>
bool skipBack(std::string_view& text, const Signs& signs) {
    for (const std::string_view sign : signs)
        if (text.ends_with(sign)) {
            text.remove_suffix(sign.size());
            return true;
        }
    return false;
}

[[nodiscard]] inline std::string_view withoutBlanks(std::string_view text) {
    while (skipFront(text, blanks)) {
    }
    while (skipBack(text, blanks)) {
    }
    return text;
}

} // namespace vkr
