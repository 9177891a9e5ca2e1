// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"
#include "platform/variant.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace vkr {

// The conversions of mdlKMTMisc that need no figure read from a text. One that fails leaves the
// result it had reached, usually the empty string, and throws nothing unless said so.

// "3 1/8" as "3.125". A text without "/" comes back unchanged; a zero numerator is "".
[[nodiscard]] std::string FractionToDecimal(std::string_view text);

// Throws std::domain_error when the second argument is 0.
[[nodiscard]] std::int32_t GreatestCommonDivisor(std::int32_t first, std::int32_t second);

// Numerator / denominator; valueIfNegative when checkSign is set and one of them is negative, else
// valueIfZero for a zero denominator. Without trueDivision the quotient is cut to a whole number.
[[nodiscard]] Variant SafeDivide(const Variant& numerator, const Variant& denominator,
                                 bool trueDivision, const Variant& valueIfZero, bool checkSign,
                                 const Variant& valueIfNegative);

// Every occurrence, from the left; what was put in is not searched again. An empty search text
// changes nothing.
void ReplaceAll(std::string& text, std::string_view search, std::string_view replacement);

// After 1 January 1900 and before 1 December 2999, by whole days.
[[nodiscard]] bool IsDateInRange(Date date);

// Last day of the date's month, without a time of day.
[[nodiscard]] Date EndOfMonth(Date date);

} // namespace vkr
