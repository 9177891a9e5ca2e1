// SPDX-License-Identifier: MIT
#include "plausibility/ratios.hpp"

#include "platform/decimal.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

std::optional<double> powerOfTenNear(double ratio, double tolerance) {
    constexpr int most = 9; // what stands in billions was typed as units
    const double exponent = std::round(std::log10(ratio));
    if (exponent == 0 || std::abs(exponent) > most)
        return std::nullopt;
    const double power = std::pow(10.0, exponent);
    return isWithin(ratio, power, tolerance) ? std::optional(power) : std::nullopt;
}

std::optional<double> splitRatioNear(double ratio, double tolerance) {
    constexpr double usual[] = {1.5, 2, 3, 4, 5, 6, 7, 8, 10, 15, 20, 25, 50};
    for (const double one : usual)
        for (const double split : {one, 1 / one})
            if (isWithin(ratio, split, tolerance))
                return split;
    return std::nullopt;
}

double unitOfFigure(double figure) {
    constexpr int mostZeros = 6;
    const Decimal decimal = toDecimal(figure);
    return std::pow(10.0, std::min(decimal.point - decimal.count, mostZeros));
}

double roundedTo(double unit, double value) {
    const double rounded = std::round(value / unit) * unit;
    return std::isfinite(rounded) ? rounded : value;
}

double roundedToPart(double parts, double value) {
    const double rounded = std::round(value * parts) / parts;
    return std::isfinite(rounded) ? rounded : value;
}

bool isWithin(double one, double other, double times) {
    return one <= other * times && other <= one * times;
}

} // namespace vkr
