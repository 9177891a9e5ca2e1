// SPDX-License-Identifier: MIT
// Decimals in eighths and back: never further away than half an eighth and what the last digit
// rounds, with their sign; eighths are what they were.
#include "fuzz/fuzz_input.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"

#include <cmath>
#include <numeric>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    FuzzInput input(data, size);
    const auto thousandths = input.take<std::int32_t>();
    const std::string_view any = input.rest();
    for (const bool keepZero : {false, true})
        static_cast<void>(DecimalToFraction(any, keepZero));
    static_cast<void>(FractionToDecimal(any));
    static_cast<void>(FractionToDecimal(DecimalToFraction(any, true)));

    Form form;
    auto& field = form.add<TextBox>("price");
    const double value = thousandths / 1000.0;
    const std::string decimal = formatNumber(value, "#0.000");
    field.setText(decimal);
    ConvertPriceText(false, field);
    const std::string eighths = field.text();
    ConvertPriceText(true, field);
    const double back = numericValue(cleanNumericText(field.text(), NumericKind::PlainNumber).text);
    require(std::abs(back - value) <= 0.0635, decimal, " is ", eighths, ", is ", field.text());
    require(back == 0 || std::signbit(back) == std::signbit(value), decimal, " is ", eighths);
    require(cleanNumericText(eighths, NumericKind::PriceText).text ==
                cleanNumericText(field.text(), NumericKind::PlainNumber).text,
            eighths, " typed, and ", field.text());

    const int whole = std::abs(thousandths % 100'000);
    const int eighth = std::abs(thousandths / 100'000 % 8);
    if (eighth == 0)
        return 0;
    const int common = std::gcd(eighth, 8);
    const std::string fraction = (whole == 0 ? "" : std::to_string(whole) + " ") +
                                 std::to_string(eighth / common) + "/" + std::to_string(8 / common);
    const std::string asDecimal = FractionToDecimal(fraction);
    require(numericValue(asDecimal) == whole + eighth / 8.0, fraction, " is ", asDecimal);
    require(DecimalToFraction(asDecimal, false) == fraction, fraction, " is ", asDecimal, ", is ",
            DecimalToFraction(asDecimal, false));
    return 0;
}
