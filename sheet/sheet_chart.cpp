// SPDX-License-Identifier: MIT
#include "sheet/sheet_chart.hpp"

#include "sheet/chart_scale.hpp"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

constexpr double chartType = 6 * point;
constexpr double barShare = 0.65; // of the width of a period
constexpr double hair = 0.5 * point;

ChartScale scaleOf(const SheetChart& chart) {
    double least = 0;
    double most = 0;
    for (const SheetChart::Bar& bar : chart.bars)
        for (const auto& figure : {bar.value, bar.lower}) {
            least = std::min(least, ChartScale::drawn(figure.value_or(0)));
            most = std::max(most, ChartScale::drawn(figure.value_or(0)));
        }
    return ChartScale::over(least, most);
}

class ChartLayout {
  public:
    ChartLayout(SheetFlow& flow, const SheetChart& chart, const QRectF& box)
        : flow_(flow), chart_(chart), box_(box), scale_(scaleOf(chart)) {
        double widest = 0;
        for (int index = 0; index <= scale_.steps(); ++index)
            widest = std::max(widest, textWidth(scale_.text(index), chartType));
        const double line = lineHeight(chartType);
        plot_ =
            box.adjusted(widest + 3 * point, lineHeight(plainType) + line, 0, -line - 2 * point);
    }

    void add() {
        addTitle();
        if (!chart_.hasFigures()) {
            const double line = lineHeight(chartType);
            flow_.text({box_.left(), plot_.top(), box_.width(), line},
                       QCoreApplication::translate("sheet", "No figures are stored."), chartType);
            return;
        }
        addScale();
        addBars();
        flow_.area({plot_.left(), y(0) - hair / 2, plot_.width(), hair}, SheetInk::plain);
        addPeriods();
    }

  private:
    [[nodiscard]] double y(double value) const {
        return plot_.bottom() - (value - scale_.low) / (scale_.high - scale_.low) * plot_.height();
    }
    [[nodiscard]] double slot() const {
        return plot_.width() / static_cast<double>(std::max<qsizetype>(1, chart_.bars.size()));
    }

    void addTitle() {
        const double line = lineHeight(plainType);
        const double width = textWidth(chart_.title, plainType, SheetWeight::bold) + 1;
        flow_.text({box_.left(), box_.top(), width, line}, chart_.title, plainType,
                   SheetWeight::bold);
        const QStringList unit =
            wrappedLines(chart_.unit, box_.width() - width - 3 * point, chartType);
        if (!chart_.unit.isEmpty())
            flow_.text({box_.left() + width + 3 * point, box_.top() + 0.15 * line,
                        box_.width() - width - 3 * point, line},
                       unit.first(), chartType, SheetWeight::plain, SheetInk::strong);
    }

    void addScale() {
        const double line = lineHeight(chartType);
        for (int index = 0; index <= scale_.steps(); ++index) {
            const double at = y(scale_.at(index));
            flow_.area({plot_.left(), at - hair / 2, plot_.width(), hair}, SheetInk::pale);
            flow_.text({box_.left(), at - line / 2, plot_.left() - box_.left() - 2 * point, line},
                       scale_.text(index), chartType, SheetWeight::plain, SheetInk::plain,
                       Qt::AlignRight);
        }
    }

    void addBars() {
        for (qsizetype i = 0; i < chart_.bars.size(); ++i) {
            const SheetChart::Bar& bar = chart_.bars.at(i);
            const bool isRange = std::ranges::any_of(
                chart_.bars, [](const SheetChart::Bar& one) { return one.lower.has_value(); });
            if (!bar.value && !bar.lower)
                continue;
            // Of a range with one end only that end is a line.
            const double from = isRange ? bar.lower.value_or(bar.value.value_or(0)) : 0;
            const double upTo = bar.value.value_or(from);
            double top = y(ChartScale::drawn(std::max(from, upTo)));
            const double bottom = y(ChartScale::drawn(std::min(from, upTo)));
            top = std::min(top, bottom - hair);
            const double width = slot() * barShare;
            flow_.area({plot_.left() + (static_cast<double>(i) + 0.5) * slot() - width / 2, top,
                        width, bottom - top},
                       SheetInk::strong);
        }
    }

    void addPeriods() {
        double widest = 1;
        for (const SheetChart::Bar& bar : chart_.bars)
            widest = std::max(widest, textWidth(bar.period, chartType));
        const auto every = static_cast<qsizetype>(std::ceil((widest + 2 * point) / slot()));
        // The newest one is always named.
        for (qsizetype i = chart_.bars.size() - 1; i >= 0; i -= every) {
            const double middle = plot_.left() + (static_cast<double>(i) + 0.5) * slot();
            const double left = std::min(middle - widest / 2, box_.right() - widest);
            flow_.text({left, plot_.bottom() + point, widest + 0.5, lineHeight(chartType)},
                       chart_.bars.at(i).period, chartType, SheetWeight::plain, SheetInk::plain,
                       Qt::AlignHCenter);
        }
    }

    SheetFlow& flow_;
    const SheetChart& chart_;
    QRectF box_;
    QRectF plot_;
    ChartScale scale_;
};

} // namespace

void addCharts(SheetFlow& flow, const QList<SheetChart>& charts, double height) {
    constexpr double gap = 14 * point;
    flow.need(height);
    const auto count = static_cast<double>(charts.size());
    const double width = (flow.width() - gap * (count - 1)) / count;
    double left = flow.left();
    for (const SheetChart& chart : charts) {
        ChartLayout(flow, chart, {left, flow.top(), width, height}).add();
        left += width + gap;
    }
    flow.skip(height);
}

} // namespace vkr
