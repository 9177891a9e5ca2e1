// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace vkr {

// The factor by which a figure is off where it was typed in another unit: 10, 100, ... or 1/10,
// 1/100, ... if the ratio is within `tolerance` times of one.
[[nodiscard]] std::optional<double> powerOfTenNear(double ratio, double tolerance);
// The same for the ratios by which shares are usually split: 1.5, 2, 3, ... and their inverses.
[[nodiscard]] std::optional<double> splitRatioNear(double ratio, double tolerance);
// The last place that a figure was given to: 0.01 for 12.5 and 12.25 together is that of 12.25,
// 1000 for 45000. At most a million.
[[nodiscard]] double unitOfFigure(double figure);
// To whole units; as it is where that is no number, as at the ends of what numbers can be.
[[nodiscard]] double roundedTo(double unit, double value);
// The same to a part of one: 1000 for thousandths.
[[nodiscard]] double roundedToPart(double parts, double value);
// Whether one is within so many times of the other, which is above 0.
[[nodiscard]] bool isWithin(double one, double other, double times);

} // namespace vkr
