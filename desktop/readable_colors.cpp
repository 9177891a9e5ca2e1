// SPDX-License-Identifier: MIT
#include "desktop/readable_colors.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

// Relative luminance, 0 to 1.
double lightness(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({lightness(one), lightness(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor between(const QColor& one, const QColor& other, double part) {
    const auto mixed = [part](int from, int to) {
        return static_cast<int>(from + (to - from) * part);
    };
    return {mixed(one.red(), other.red()), mixed(one.green(), other.green()),
            mixed(one.blue(), other.blue())};
}

QColor readable(const QColor& wanted, const QColor& behind, double least) {
    const QColor black(Qt::black);
    const QColor white(Qt::white);
    // One of the two is readable on any colour.
    const QColor end = contrast(black, behind) > contrast(white, behind) ? black : white;
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step)
        if (const QColor color = between(wanted, end, static_cast<double>(step) / steps);
            contrast(color, behind) >= least)
            return color;
    return end;
}

} // namespace vkr
