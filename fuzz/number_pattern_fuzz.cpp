// SPDX-License-Identifier: MIT
// Any pattern shows any number; what a plain pattern shows is read back as the same figure within
// the digits of the pattern, and is shown the same again.
#include "fuzz/fuzz_input.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"

#include <cmath>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    FuzzInput input(data, size);
    const auto raw = input.take<double>();
    const int divisor = input.below(12);
    const int digits = input.below(4);
    const int decimals = input.below(16);
    const int optional = input.below(16);
    const bool grouped = input.below(2) == 1;
    const std::string_view any = input.rest();

    require(NumberPattern(any).format(raw) == formatNumber(raw, any), "the pattern that was kept");

    if (!std::isfinite(raw))
        return 0;
    // Figures as people type them, beside those of any bits.
    const double value =
        divisor == 0 ? raw
                     : static_cast<double>(static_cast<std::int64_t>(std::fmod(raw, 1e15))) /
                           std::pow(10, divisor);
    std::string pattern =
        (grouped ? "#,##" : "#") + std::string(static_cast<std::size_t>(digits), '0');
    if (decimals > 0)
        pattern += "." +
                   std::string(static_cast<std::size_t>(std::max(0, decimals - optional)), '0') +
                   std::string(static_cast<std::size_t>(std::min(decimals, optional)), '#');
    const std::string shown = formatNumber(value, pattern);
    const double read = numericValue(cleanNumericText(shown, NumericKind::PlainNumber).text);
    const double half = 0.5 * std::pow(10, -decimals);
    const double fifteenDigits = std::abs(value) * 5.1e-15;
    require(std::abs(read - value) <= half * (1 + 1e-9) + fifteenDigits, pattern, " of ", value,
            " is ", shown, ", read as ", read);
    require(read == 0 || std::signbit(read) == std::signbit(value), shown, " of ", value);
    require(formatNumber(read, pattern) == shown, pattern, " of ", value, " is ", shown, ", then ",
            formatNumber(read, pattern));
    return 0;
}
