// SPDX-License-Identifier: MIT
#include "desktop/readable_colors.hpp"

#include "desktop/qt_values.hpp"

namespace vkr {

double contrast(const QColor& one, const QColor& other) {
    return contrast(fromQt(one), fromQt(other));
}

QColor between(const QColor& one, const QColor& other, double part) {
    return toQt(between(fromQt(one), fromQt(other), part));
}

QColor readable(const QColor& wanted, const QColor& behind, double least) {
    return toQt(readable(fromQt(wanted), fromQt(behind), least));
}

} // namespace vkr
