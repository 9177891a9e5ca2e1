// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"
#include "platform/exact_number.hpp"
#include "platform/variant.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// The plain text in which a record's data leave the program and come back: every value returns
// exactly as it was.

// "2025-09-27"; "" for an absent date.
[[nodiscard]] std::string isoDateText(Date date);
// Nothing where the text is not of that form or there is no such day. 1899-12-30 is nothing
// either: its number stands for "no date".
[[nodiscard]] std::optional<Date> dateFromIso(std::string_view text);

// A date or a number exactly as it is, anything else as its text.
[[nodiscard]] std::string exactText(const Variant& value);

// One field of a line: tabs, line breaks and backslashes are written as two letters.
[[nodiscard]] std::string escapedLine(std::string_view text);
[[nodiscard]] std::string unescapedLine(std::string_view line);

// Bytes from the start that are valid UTF-8; the whole size where all of it is.
[[nodiscard]] std::size_t validUtf8Length(std::string_view text);
[[nodiscard]] inline bool isValidUtf8(std::string_view text) {
    return validUtf8Length(text) == text.size();
}
// The text; throws std::invalid_argument where it is not valid UTF-8.
[[nodiscard]] std::string validText(std::string text);

} // namespace vkr
