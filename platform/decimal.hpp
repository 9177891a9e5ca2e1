// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vkr {

// A finite number by its decimal digits, at most 15 of them: the digits a person can tell apart,
// free of binary noise such as 0.30000000000000004. Its value is 0.d1d2d3... x 10^point.
struct Decimal {
    static constexpr int capacity = 15;

    std::array<char, capacity + 2> digits{}; // '0' to '9', the first one not '0'
    int count = 0;                           // 0 for zero
    int point = 0;
    bool negative = false;

    [[nodiscard]] bool isZero() const { return count == 0; }
    [[nodiscard]] char digit(int index) const {
        return index >= 0 && index < count ? digits[static_cast<std::size_t>(index)] : '0';
    }
};

// The shortest text that stands for the value, rounded to 15 digits where it has more. Zero for
// what is not finite.
[[nodiscard]] Decimal toDecimal(double value);

// Half away from zero to `significant` leading digits; with fewer than 1 the result is zero or the
// next power of ten.
void roundToDigits(Decimal& number, int significant);
// Half away from zero to `places` digits behind the decimal mark.
void roundToPlaces(Decimal& number, int places);

// The nearest double; infinite when there is none.
[[nodiscard]] double toDouble(const Decimal& number);

// A text such as "12.5", "-.5" or "1e3", read as far as it is a number. No blanks are skipped.
struct NumberSpan {
    bool negative = false;
    std::string_view mantissa; // digits with at most one "."
    std::int64_t exponent = 0; // as written
    std::size_t length = 0;    // bytes read; 0 when the text starts with no number
};
[[nodiscard]] NumberSpan scanNumber(std::string_view text);

// mantissa x 10^(exponent + shift), correctly rounded; what is too small is 0, what is too large
// is nothing.
[[nodiscard]] std::optional<double> valueOf(const NumberSpan& number, int shift = 0);

} // namespace vkr
