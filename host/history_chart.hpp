// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/chart_scale.hpp"

#include <QList>
#include <QString>
#include <QWidget>

#include <optional>

namespace vkr {

// Figures over time, the oldest first.
struct History {
    struct Period {
        QString name;  // "fiscal year 2025"
        QString label; // "2025", below the axis
    };
    struct Series {
        QString name;
        QList<std::optional<double>> figures; // one a period; nothing where none is known
    };

    QString title;
    QList<Period> periods;
    QList<Series> series; // one or two
    QString suffix;       // behind a figure, such as " %"
    int marked = -1;      // the period that stands out
    // A figure of the company as a whole that belongs beside the series: a line across all of them.
    std::optional<double> level;
    QString levelName;
    int cycle = 1; // periods a year; where not all are named, the same of each year are

    [[nodiscard]] bool hasFigures() const;
};

// A small bar chart. Losses hang below the zero line, a period without a figure is a gap. What it
// shows is read out period by period, and told by the pointer.
class HistoryChart : public QWidget {
    Q_OBJECT
  public:
    explicit HistoryChart(QWidget* parent = nullptr);

    void setHistory(const History& history);
    [[nodiscard]] const History& history() const { return history_; }
    // The colours on a window of that palette; both can be told from it, and from each other.
    [[nodiscard]] static QColor markedColor(const QPalette& palette);
    [[nodiscard]] static QColor barColor(const QPalette& palette); // of those beside a marked one

    // The figures of a period in words; empty for a period that is none.
    [[nodiscard]] QString description(qsizetype period) const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    struct Places;
    [[nodiscard]] ChartScale scale() const;
    [[nodiscard]] Places places(const ChartScale& scale) const;
    void paintScale(QPainter& painter, const ChartScale& scale, const Places& places) const;
    void paintBars(QPainter& painter, const Places& places) const;
    void paintGap(QPainter& painter, const Places& places) const;
    void paintPeriods(QPainter& painter, const Places& places) const;
    void paintLevel(QPainter& painter, const Places& places) const;
    void paintLegend(QPainter& painter) const;
    [[nodiscard]] int legendLines() const;
    [[nodiscard]] QString levelText() const;
    [[nodiscard]] QFont smallFont() const;
    [[nodiscard]] double widestLabel() const;

    History history_;
};

} // namespace vkr
