// SPDX-License-Identifier: MIT
#pragma once

#include "platform/readable_color.hpp"

#include <QColor>

namespace vkr {

// The same of colours of Qt, without what can be seen through them.

[[nodiscard]] double contrast(const QColor& one, const QColor& other);
[[nodiscard]] QColor between(const QColor& one, const QColor& other, double part);
[[nodiscard]] QColor readable(const QColor& wanted, const QColor& behind,
                              double least = textContrast);

// Colours that Qt has by name would else pass for numbers of the platform's.
[[nodiscard]] inline double contrast(Qt::GlobalColor one, Qt::GlobalColor other) {
    return contrast(QColor(one), QColor(other));
}
[[nodiscard]] inline QColor between(Qt::GlobalColor one, Qt::GlobalColor other, double part) {
    return between(QColor(one), QColor(other), part);
}
[[nodiscard]] inline QColor readable(Qt::GlobalColor wanted, Qt::GlobalColor behind,
                                     double least = textContrast) {
    return readable(QColor(wanted), QColor(behind), least);
}

} // namespace vkr
