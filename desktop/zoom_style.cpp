// SPDX-License-Identifier: MIT
#include "desktop/zoom_style.hpp"

#include <cmath>

namespace vkr {

int ZoomStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    const int own = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
    case PM_ScrollBarExtent:
    case PM_ScrollBarSliderMin:
    case PM_MenuButtonIndicator:
        return static_cast<int>(std::lround(own * factor_));
    default:
        return own;
    }
}

} // namespace vkr
