// SPDX-License-Identifier: MIT
#include "host/history_chart.hpp"

#include "desktop/readable_colors.hpp"
#include "host/texts.hpp"

#include <QHelpEvent>
#include <QLocale>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <cmath>

namespace vkr {

namespace {

constexpr double smaller = 0.9; // of the window's font
constexpr int gap = 6;          // between a text and what it belongs to
constexpr double barShare = 0.72;

// The line across all periods, and its sample in the legend.
QPen levelPen(const QPalette& palette) {
    constexpr double width = 2;
    return {palette.color(QPalette::WindowText), width, Qt::DashLine, Qt::FlatCap};
}

} // namespace

bool History::hasFigures() const {
    return std::ranges::any_of(series, [](const Series& one) {
        return std::ranges::any_of(one.figures,
                                   [](const auto& figure) { return figure.has_value(); });
    });
}

struct HistoryChart::Places {
    QRectF plot;
    double slot = 1; // width of a period
    double low = 0;
    double high = 1;

    [[nodiscard]] double y(double value) const {
        return plot.bottom() - (value - low) / (high - low) * plot.height();
    }
    [[nodiscard]] double x(qsizetype period) const {
        return plot.left() + static_cast<double>(period) * slot;
    }
};

HistoryChart::HistoryChart(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::TabFocus); // so that it can be read out
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void HistoryChart::setHistory(const History& history) {
    history_ = history;
    setAccessibleName(history.title);
    QStringList lines;
    for (qsizetype period = 0; period < history_.periods.size(); ++period)
        lines.append(description(period));
    if (history_.level)
        lines.append(levelText());
    setAccessibleDescription(lines.join(QStringLiteral("; ")));
    updateGeometry();
    update();
}

QString HistoryChart::description(qsizetype period) const {
    if (period < 0 || period >= history_.periods.size())
        return {};
    QStringList figures;
    for (const History::Series& one : history_.series) {
        const auto& figure = one.figures.at(period);
        const QString text = figure ? figureText(*figure) + history_.suffix : tr("nothing stored");
        figures.append(history_.series.size() == 1 ? text
                                                   : QStringLiteral("%1 %2").arg(one.name, text));
    }
    return QStringLiteral("%1: %2").arg(history_.periods.at(period).name,
                                        figures.join(QStringLiteral(", ")));
}

QString HistoryChart::levelText() const {
    return QStringLiteral("%1: %2").arg(history_.levelName,
                                        figureText(*history_.level) + history_.suffix);
}

QColor HistoryChart::markedColor(const QPalette& palette) {
    constexpr double least = 2 * signContrast; // about twice that of the others
    return readable(palette.color(QPalette::Highlight), palette.color(QPalette::Window), least);
}

QColor HistoryChart::barColor(const QPalette& palette) {
    constexpr double pale = 0.45;
    const QColor back = palette.color(QPalette::Window);
    return readable(between(palette.color(QPalette::Highlight), back, pale), back, signContrast);
}

QFont HistoryChart::smallFont() const {
    QFont small = font();
    if (small.pointSizeF() > 0)
        small.setPointSizeF(small.pointSizeF() * smaller);
    return small;
}

double HistoryChart::widestLabel() const {
    QFont bold = smallFont();
    bold.setBold(true);
    const QFontMetricsF metrics(bold);
    double widest = 1;
    for (const History::Period& period : history_.periods)
        widest = std::max(widest, metrics.horizontalAdvance(period.label));
    return widest;
}

QSize HistoryChart::sizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 64, metrics.height() * 13};
}

QSize HistoryChart::minimumSizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.averageCharWidth() * 40, metrics.height() * 11};
}

ChartScale HistoryChart::scale() const {
    double least = 0;
    double most = 0;
    for (const History::Series& one : history_.series)
        for (const auto& figure : one.figures) {
            least = std::min(least, figure.value_or(0));
            most = std::max(most, figure.value_or(0));
        }
    least = std::min(least, history_.level.value_or(0));
    most = std::max(most, history_.level.value_or(0));
    return ChartScale::over(least, most);
}

HistoryChart::Places HistoryChart::places(const ChartScale& scale) const {
    const QFontMetricsF metrics(smallFont());
    double widest = 0;
    for (int index = 0; index <= scale.steps(); ++index)
        widest = std::max(widest, metrics.horizontalAdvance(scale.text(index)));
    const double top =
        metrics.height() / 2 + legendLines() * metrics.height() + (legendLines() > 0 ? gap : 0);
    Places places;
    places.plot = QRectF(rect()).adjusted(widest + gap + 2, top, -1, -metrics.height() - gap);
    const auto count = static_cast<double>(std::max<qsizetype>(1, history_.periods.size()));
    // The newest period's name stays inside, in the middle below its bar.
    const double beyond = (widestLabel() - places.plot.width() / count) / 2;
    places.plot.setRight(places.plot.right() - std::max(0.0, beyond));
    places.slot = places.plot.width() / count;
    places.low = scale.low;
    places.high = scale.high;
    return places;
}

void HistoryChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setFont(smallFont());
    if (!history_.hasFigures()) {
        painter.setFont(font());
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                         tr("No figures are stored yet."));
        return;
    }
    const ChartScale axis = scale();
    const Places where = places(axis);
    paintScale(painter, axis, where);
    paintBars(painter, where);
    paintGap(painter, where);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(QPointF(where.plot.left(), where.y(0)),
                     QPointF(where.plot.right(), where.y(0)));
    paintPeriods(painter, where);
    if (history_.level)
        paintLevel(painter, where);
    if (history_.series.size() > 1)
        paintLegend(painter);
    if (hasFocus()) {
        painter.setPen(QPen(markedColor(palette()), 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void HistoryChart::paintScale(QPainter& painter, const ChartScale& scale,
                              const Places& places) const {
    constexpr double faint = 0.15;
    const QColor ink = palette().color(QPalette::WindowText);
    const double height = QFontMetricsF(painter.font()).height();
    for (int index = 0; index <= scale.steps(); ++index) {
        const double y = places.y(scale.at(index));
        painter.setPen(between(palette().color(QPalette::Window), ink, faint));
        painter.drawLine(QPointF(places.plot.left(), y), QPointF(places.plot.right(), y));
        painter.setPen(ink);
        painter.drawText(QRectF(0, y - height / 2, places.plot.left() - gap, height),
                         Qt::AlignRight | Qt::AlignVCenter, scale.text(index));
    }
}

void HistoryChart::paintBars(QPainter& painter, const Places& places) const {
    const QColor strong = markedColor(palette());
    const QColor plain = barColor(palette());
    const bool standsOut = history_.marked >= 0 || history_.level;
    const auto count = static_cast<double>(history_.series.size());
    const double width = places.slot * barShare / count;
    for (qsizetype number = 0; number < history_.series.size(); ++number) {
        const auto& figures = history_.series.at(number).figures;
        for (qsizetype period = 0; period < figures.size(); ++period) {
            if (!figures.at(period))
                continue;
            const QColor color = standsOut && period != history_.marked ? plain : strong;
            const double left = places.x(period) + places.slot * (1 - barShare) / 2 +
                                static_cast<double>(number) * width;
            const QRectF bar =
                QRectF(QPointF(left, places.y(0)),
                       QPointF(left + width, places.y(ChartScale::drawn(*figures.at(period)))))
                    .normalized();
            // The second series is hollow, so that no colour has to tell them apart.
            if (number == 0) {
                painter.fillRect(bar, color);
            } else {
                painter.setPen(QPen(color, 1));
                painter.setBrush(Qt::NoBrush);
                painter.drawRect(bar.adjusted(0.5, 0.5, -0.5, -0.5));
            }
        }
    }
}

// Of a period that is marked for having no figure, its place.
void HistoryChart::paintGap(QPainter& painter, const Places& places) const {
    const auto isThere = [this](const History::Series& one) {
        return one.figures.at(history_.marked).has_value();
    };
    if (history_.marked < 0 || std::ranges::any_of(history_.series, isThere))
        return;
    painter.setPen(QPen(markedColor(palette()), 1, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    const double margin = places.slot * (1 - barShare) / 2;
    painter.drawRect(QRectF(places.x(history_.marked) + margin, places.plot.top(),
                            places.slot * barShare, places.plot.height()));
}

void HistoryChart::paintPeriods(QPainter& painter, const Places& places) const {
    const double widest = widestLabel();
    auto every = static_cast<qsizetype>(std::ceil((widest + gap) / places.slot));
    if (every > 1)
        every = (every + history_.cycle - 1) / history_.cycle * history_.cycle;
    // The marked one is always named, else the newest.
    const qsizetype named = history_.marked >= 0 ? history_.marked : history_.periods.size() - 1;
    const QFont plain = painter.font();
    for (qsizetype period = named % every; period < history_.periods.size(); period += every) {
        QFont font = plain;
        font.setBold(period == history_.marked);
        painter.setFont(font);
        const double middle = places.x(period) + places.slot / 2;
        painter.drawText(QRectF(middle - widest, places.plot.bottom() + gap / 2.0, 2 * widest,
                                QFontMetricsF(font).height()),
                         Qt::AlignHCenter | Qt::AlignTop, history_.periods.at(period).label);
    }
    painter.setFont(plain);
}

int HistoryChart::legendLines() const {
    return (history_.series.size() > 1 ? 1 : 0) + (history_.level ? 1 : 0);
}

void HistoryChart::paintLevel(QPainter& painter, const Places& places) const {
    const QFontMetricsF metrics(painter.font());
    painter.setPen(levelPen(palette()));
    const double y = places.y(ChartScale::drawn(*history_.level));
    painter.drawLine(QPointF(places.plot.left(), y), QPointF(places.plot.right(), y));

    // Its name is the last line of the legend.
    const double top = (legendLines() - 1) * metrics.height();
    const double sample = 2 * metrics.height();
    const QString text = metrics.elidedText(levelText(), Qt::ElideMiddle, width() - sample - gap);
    const double left = width() - 1 - metrics.horizontalAdvance(text) - 1;
    painter.drawLine(QPointF(left - gap - sample, top + metrics.height() / 2),
                     QPointF(left - gap, top + metrics.height() / 2));
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRectF(left, top, width() - left, metrics.height()),
                     Qt::AlignLeft | Qt::AlignVCenter, text);
}

void HistoryChart::paintLegend(QPainter& painter) const {
    const QFontMetricsF metrics(painter.font());
    const double side = std::floor(metrics.ascent());
    const QColor color =
        history_.level && history_.marked < 0 ? barColor(palette()) : markedColor(palette());
    double right = width() - 1;
    for (qsizetype number = history_.series.size() - 1; number >= 0; --number) {
        const QString& name = history_.series.at(number).name;
        const double wide = metrics.horizontalAdvance(name) + 1;
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRectF(right - wide, 0, wide, metrics.height()),
                         Qt::AlignLeft | Qt::AlignVCenter, name);
        right -= wide + gap + side;
        const QRectF box(right, (metrics.height() - side) / 2, side, side);
        if (number == 0) {
            painter.fillRect(box, color);
        } else {
            painter.setPen(QPen(color, 1));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(box.adjusted(0.5, 0.5, -0.5, -0.5));
        }
        right -= 3 * gap;
    }
}

bool HistoryChart::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const Places where = places(scale());
    const auto period =
        static_cast<qsizetype>(std::floor((help->pos().x() - where.plot.left()) / where.slot));
    const QString text = history_.hasFigures() ? description(period) : QString();
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), text, this);
    return true;
}

} // namespace vkr
