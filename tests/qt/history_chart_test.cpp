// SPDX-License-Identifier: MIT
#include "desktop/readable_colors.hpp"
#include "host/history_chart.hpp"
#include "tools/themes.hpp"

#include <QApplication>

#include <gtest/gtest.h>

namespace vkr {
namespace {

History threeYears() {
    History history;
    history.title = "Revenue by fiscal year";
    history.periods = {
        {"fiscal year 2023", "2023"}, {"fiscal year 2024", "2024"}, {"fiscal year 2025", "2025"}};
    history.series = {{"Revenue", {60.0, 80.0, 100.0}}};
    return history;
}

// How many points of the chart have that colour.
int points(const History& history, const QPalette& palette, const QColor& color) {
    HistoryChart chart;
    chart.setPalette(palette);
    chart.setHistory(history);
    chart.resize(300, 200);
    const QImage image = chart.grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    return count;
}

class HistoryChartColors : public testing::TestWithParam<const Theme*> {
  protected:
    [[nodiscard]] static QPalette palette() { return paletteOf(*GetParam()); }
};

TEST_P(HistoryChartColors, BarsStandOutFromTheWindowAndTheMarkedOneFromTheOthers) {
    const QColor window = palette().color(QPalette::Window);
    const QColor marked = HistoryChart::markedColor(palette());
    const QColor others = HistoryChart::barColor(palette());
    EXPECT_GE(contrast(others, window), signContrast);
    EXPECT_GE(contrast(marked, window), textContrast);
    EXPECT_GE(contrast(marked, others), 1.5);

    History history = threeYears();
    EXPECT_EQ(points(history, palette(), others), 0);
    const int all = points(history, palette(), marked);
    history.marked = 1;
    const int one = points(history, palette(), marked);
    EXPECT_GT(one, 1000);
    EXPECT_LT(one, all);
    EXPECT_EQ(one + points(history, palette(), others), all);
}

TEST_P(HistoryChartColors, AFigureOfTheCompanyIsALineThatStandsOutFromTheBars) {
    const QColor line = palette().color(QPalette::WindowText);
    EXPECT_GE(contrast(line, HistoryChart::barColor(palette())), signContrast);
    History history = threeYears();
    const int without = points(history, palette(), line);
    history.level = 90;
    history.levelName = "Sales now";
    EXPECT_GT(points(history, palette(), line), without + 200);
    EXPECT_EQ(points(history, palette(), HistoryChart::markedColor(palette())), 0);
}

TEST_P(HistoryChartColors, APeriodThatIsMarkedForHavingNoFigureHasItsPlaceMarked) {
    History history = threeYears();
    history.marked = 1;
    history.series.front().figures[1].reset();
    EXPECT_GT(points(history, palette(), HistoryChart::markedColor(palette())), 100);
}

INSTANTIATE_TEST_SUITE_P(All, HistoryChartColors, testing::Values(&light, &dark));

TEST(HistoryChart, TheLineHasItsPlaceAlsoAboveAllBarsAndIsReadOut) {
    History history = threeYears();
    history.suffix = " million";
    history.level = 100000;
    history.levelName = "Sales now";
    HistoryChart chart;
    chart.setHistory(history);
    const QString line = "; Sales now: " + QLocale().toString(100000) + " million";
    EXPECT_TRUE(chart.accessibleDescription().endsWith(line))
        << chart.accessibleDescription().toStdString();
    // The bars are a thousandth of the line: hardly a point is left of them.
    EXPECT_LT(points(history, paletteOf(light), HistoryChart::barColor(paletteOf(light))), 600);
}

} // namespace
} // namespace vkr
