// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// Numbers as plain text and back, every one exactly as it was.

// The shortest decimal text that reads back as the same number, without exponent; the decimal
// mark is a point.
[[nodiscard]] std::string exactNumberText(double value);
// The text times ten to the `places`, by moving its decimal point, so that nothing is rounded.
// The text is one that isPlainNumber() accepts.
[[nodiscard]] std::string shiftDecimalPoint(std::string_view number, int places);
// An optional sign, digits and at most one point; at least one digit.
[[nodiscard]] bool isPlainNumber(std::string_view text);
// Nothing where the text is no plain number or beyond what a double can hold.
[[nodiscard]] std::optional<double> exactNumber(std::string_view text);

} // namespace vkr
