// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QString>

namespace vkr {

// The axis of a bar chart: from a nice figure to a nice figure by steps of 1, 2 or 5 times a power
// of ten, with 0 on it.
struct ChartScale {
    double low = 0;
    double high = 1;
    double step = 1;

    // Over all of these figures; what cannot be reckoned with, as 1e308, counts as the last that
    // can.
    static ChartScale over(double least, double most);
    [[nodiscard]] static double drawn(double figure);

    [[nodiscard]] int steps() const;
    [[nodiscard]] double at(int index) const;
    // Beyond what has room, with an exponent.
    [[nodiscard]] QString text(int index, const QLocale& locale = {}) const;
};

} // namespace vkr
