// SPDX-License-Identifier: MIT
#pragma once

#include <QFontMetrics>
#include <QHeaderView>
#include <QProxyStyle>
#include <QTreeView>

namespace vkr {

// A list whose columns keep apart, where one that ends on the right stands before one that begins
// on the left.
class WideMargins : public QProxyStyle {
  public:
    static void giveTo(QTreeView& list) {
        auto* style = new WideMargins;
        style->setParent(&list);
        for (QWidget* part : {static_cast<QWidget*>(&list), static_cast<QWidget*>(list.header())})
            part->setStyle(style);
    }

    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option,
                                  const QWidget* widget) const override {
        const bool isMargin = metric == PM_HeaderMargin || metric == PM_FocusFrameHMargin;
        if (isMargin && widget != nullptr)
            return widget->fontMetrics().averageCharWidth();
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

} // namespace vkr
