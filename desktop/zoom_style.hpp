// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace vkr {

// The desktop's style with the parts scaled that do not follow the font: marks of options and check
// boxes, arrows and scroll bars.
class ZoomStyle final : public QProxyStyle {
  public:
    void setFactor(double factor) { factor_ = factor; }
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;

  private:
    double factor_ = 1;
};

} // namespace vkr
