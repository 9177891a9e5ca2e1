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

// The English texts:
//
//     1, 100 to 163   help texts, a few sentences each; but 108 and 163 are captions
//     404 to 407      questions before a year is added or removed
//     412             question before a quarter is added
//     413 to 422, 428 entries of the right-click menu
//     500 to 579      captions; "&" stands before the letter to press with Alt
//     613, 614        captions that differ on the ZX platform
//     615, 616        warning about a last-quarter date that is not accepted
//
// A question is put together with blanks and a carriage return:
// 404, 407 or 412 + " " + the year or quarter + " " + 405 + "\r" + 406.
[[nodiscard]] StringTable standardStrings();

// The texts in which the ZX platform differs from the standard platform.
[[nodiscard]] StringTable zxStrings();

} // namespace vkr
