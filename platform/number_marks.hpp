// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vkr {

// How figures stand on a form. The record, CSV, patterns and everything that is computed have "."
// as the decimal mark.
struct NumberMarks {
    char decimal = '.';         // '.' or ','
    std::string grouping = ","; // where a pattern groups thousands; may be empty

    friend bool operator==(const NumberMarks&, const NumberMarks&) = default;
};

// A text of the form as one with "." for its decimal mark, and back: where the comma is the decimal
// mark, comma and point change places.
[[nodiscard]] std::string exchangeMarks(std::string_view text, const NumberMarks& marks);

} // namespace vkr
