// SPDX-License-Identifier: MIT
#include "sheet/chart_scale.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

constexpr int fewestSteps = 3;
constexpr double smallestRange = 1e-6;
constexpr double longestPlain = 1e12;

// 1, 2 or 5 times a power of ten.
double niceStep(double range) {
    const double rough = range / fewestSteps;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {5.0, 2.0})
        if (factor * power <= rough)
            return factor * power;
    return power;
}

} // namespace

double ChartScale::drawn(double figure) {
    constexpr double farthest = 1e300;
    return std::clamp(figure, -farthest, farthest);
}

ChartScale ChartScale::over(double least, double most) {
    least = std::min(0.0, drawn(least));
    most = std::max(0.0, drawn(most));
    ChartScale scale;
    scale.step = niceStep(std::max(most - least, smallestRange));
    scale.low = std::floor(least / scale.step) * scale.step;
    scale.high = std::max(std::ceil(most / scale.step) * scale.step, scale.low + scale.step);
    return scale;
}

int ChartScale::steps() const {
    return static_cast<int>(std::lround((high - low) / step));
}

double ChartScale::at(int index) const {
    const double value = low + index * step;
    return std::abs(value) < step / 2 ? 0 : value;
}

QString ChartScale::text(int index, const QLocale& locale) const {
    if (std::max(-low, high) >= longestPlain)
        return locale.toString(at(index), 'g', 2);
    const int decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + 1e-9)));
    return locale.toString(at(index), 'f', decimals);
}

} // namespace vkr
