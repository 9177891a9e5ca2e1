// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace vkr {

// One text of a localizer, in UTF-8.
struct StringRow {
    int number;
    std::string_view text;
};

// Rows in ascending order of their numbers, each number once, no text blank.
using StringTable = std::span<const StringRow>;

[[nodiscard]] constexpr bool isStringTable(StringTable rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0 && rows[i - 1].number >= rows[i].number)
            return false;
        if (rows[i].text.find_first_not_of(" \r\n\t") == std::string_view::npos)
            return false;
    }
    return true;
}

// The text of a number; the empty text where the table has no such row.
[[nodiscard]] constexpr std::string_view findString(StringTable rows, int number) {
    const auto found =
        std::lower_bound(rows.begin(), rows.end(), number,
                         [](const StringRow& row, int wanted) { return row.number < wanted; });
    return found != rows.end() && found->number == number ? found->text : std::string_view{};
}

// The English texts. docs/string-numbers.md lists them and says what each range is for.
[[nodiscard]] StringTable standardStrings();

// The texts in which the ZX platform differs from the standard platform.
[[nodiscard]] StringTable zxStrings();

} // namespace vkr
