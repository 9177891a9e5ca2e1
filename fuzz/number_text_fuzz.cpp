// SPDX-License-Identifier: MIT
// What is read from a field's text is shown and read back as the same figure, to fifteen digits.
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vkr;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const NumericKind kind : {NumericKind::PlainNumber, NumericKind::PriceText})
        for (const int exponent : {-3, 0, 3}) {
            const NumericText clean = cleanNumericText(text, kind, exponent);
            if (!clean.fits)
                continue;
            const double value = shiftDecimal(clean.text, exponent);
            if (!std::isfinite(value))
                std::abort();
            if (std::abs(value) >= 1e308) // its fifteen digits may be beyond all numbers
                continue;
            const double read = leadingNumber(plainNumberText(value));
            if (!(std::abs(read - value) <= std::abs(value) * 5.1e-15) ||
                leadingNumber(plainNumberText(read)) != read)
                std::abort();
        }
    static_cast<void>(FractionToDecimal(text));
    static_cast<void>(DecimalToFraction(text, false));
    static_cast<void>(formatNumber(leadingNumber(text), text));
    return 0;
}
