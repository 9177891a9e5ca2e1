// SPDX-License-Identifier: MIT
#include "platform/readable_color.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

// Relative luminance, 0 to 1.
double lightness(Color color) {
    const auto linear = [](int of255) {
        const double part = of255 / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(redOf(color)) + 0.7152 * linear(greenOf(color)) +
           0.0722 * linear(blueOf(color));
}

} // namespace

double contrast(Color one, Color other) {
    const auto [dark, light] = std::minmax({lightness(one), lightness(other)});
    return (light + 0.05) / (dark + 0.05);
}

Color between(Color one, Color other, double part) {
    const auto mixed = [part](int from, int to) {
        return static_cast<int>(from + (to - from) * part);
    };
    return colorOf(mixed(redOf(one), redOf(other)), mixed(greenOf(one), greenOf(other)),
                   mixed(blueOf(one), blueOf(other)));
}

Color readable(Color wanted, Color behind, double least) {
    // One of the two is readable on any colour.
    const Color end = contrast(colors::black, behind) > contrast(colors::white, behind)
                          ? colors::black
                          : colors::white;
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step)
        if (const Color color = between(wanted, end, static_cast<double>(step) / steps);
            contrast(color, behind) >= least)
            return color;
    return end;
}

Color markColor(MarkKind kind) {
    return kind == MarkKind::unstored   ? mark_colors::unstored
           : kind == MarkKind::doubtful ? mark_colors::doubtful
                                        : mark_colors::quiet;
}

std::optional<OriginCorner> originCorner(const TextField& field, double height) {
    if (!field.origin().marked)
        return std::nullopt;
    const auto* box = dynamic_cast<const TextBox*>(&field);
    OriginCorner corner;
    corner.atLeft = box != nullptr && box->alignment() == Alignment::right;
    corner.side = (height - 2 * corner.inset) / 3.5;
    return corner;
}

} // namespace vkr
