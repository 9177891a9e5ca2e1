// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/readable_colors.hpp"

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <unordered_map>

namespace vkr {

// As it is drawn, enlarged so that letters have their full colour somewhere.
inline QImage drawn(QWidget& widget) {
    constexpr int enlarged = 2;
    QPixmap pixmap(widget.size() * enlarged);
    pixmap.setDevicePixelRatio(enlarged);
    pixmap.fill(Qt::magenta);
    widget.render(&pixmap);
    return pixmap.toImage();
}

inline QRect enlarged(const QRect& place, const QImage& image) {
    const double ratio = image.devicePixelRatio();
    return QRectF(place.topLeft() * ratio, QSizeF(place.size()) * ratio).toRect() &
           QRect(QPoint(), image.size());
}

struct Seen {
    QColor ground;   // what most of the place is filled with
    double contrast; // of whatever stands out most in it
};

inline Seen look(const QImage& image, const QRect& place) {
    const QRect part = enlarged(place, image);
    std::unordered_map<QRgb, int> counts;
    for (int y = part.top(); y <= part.bottom(); ++y)
        for (int x = part.left(); x <= part.right(); ++x)
            ++counts[image.pixel(x, y)];
    if (counts.empty())
        return {QColor(), 0};
    const auto most =
        std::ranges::max_element(counts, {}, [](const auto& counted) { return counted.second; });
    Seen seen{QColor(most->first), 1};
    for (const auto& [color, count] : counts)
        seen.contrast = std::max(seen.contrast, contrast(QColor(color), seen.ground));
    return seen;
}

} // namespace vkr
