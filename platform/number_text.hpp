// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// The number at the start of a text: leading blanks, one sign, digits with "." as the mark, an
// exponent ("1e3"). What follows is ignored; a text that starts with no number is 0. Nothing when
// the number is too large for a double.
[[nodiscard]] std::optional<double> readLeadingNumber(std::string_view text);
// The same, 0 for a number that is too large.
[[nodiscard]] double leadingNumber(std::string_view text);

// Whether the whole text, apart from surrounding blanks, is one finite number of that form.
[[nodiscard]] bool isNumberText(std::string_view text);

// The shortest text of at most 15 digits: without an exponent from 1e-7 to 1e15, beyond that as
// "1.5E+20". "0" for zero of either sign, "" for what is not finite.
[[nodiscard]] std::string plainNumberText(double value);
// The same without an exponent, however many zeros that takes.
[[nodiscard]] std::string decimalNumberText(double value);

} // namespace vkr
