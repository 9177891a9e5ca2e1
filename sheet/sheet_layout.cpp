// SPDX-License-Identifier: MIT
#include "sheet/sheet_layout.hpp"

#include "sheet/sheet_chart.hpp"
#include "sheet/sheet_flow.hpp"
#include "sheet/sheet_table.hpp"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr double nameType = 15 * point;
constexpr double valueType = 7 * point;
constexpr double markShare = 0.65;
constexpr double blockGap = 14 * point;
constexpr double lowestChart = 130 * point;
constexpr double highestChart = 220 * point;

QString tr(const char* text) {
    return QCoreApplication::translate("sheet", text);
}

void addHeader(SheetFlow& flow, const SheetContent& content, double type) {
    flow.lines(wrappedLines(content.name, flow.width(), type, SheetWeight::bold), type,
               SheetWeight::bold);
    if (!content.identity.isEmpty())
        flow.lines(wrappedLines(content.identity, flow.width(), plainType), plainType);
    flow.skip(3 * point);
    flow.rule();
}

// Label on the left, value on the right; a value that has no room there goes below its label.
class BlockLayout {
  public:
    BlockLayout(SheetFlow& flow, const SheetBlock& block, double left, double width)
        : flow_(flow), left_(left), width_(width), y_(flow.top()) {
        line(block.title, titleType, SheetWeight::bold, 0, Qt::AlignLeft);
        y_ += 2 * point;
        for (const SheetValue& value : block.values)
            add(value);
    }
    [[nodiscard]] double bottom() const { return y_; }

  private:
    void line(const QString& text, double size, SheetWeight weight, double indent,
              Qt::Alignment alignment) {
        const double height = lineHeight(size);
        flow_.text({left_ + indent, y_, width_ - indent, height}, text, size, weight,
                   SheetInk::plain, alignment);
        y_ += height;
    }

    void add(const SheetValue& value) {
        const double height = lineHeight(valueType);
        const double label = textWidth(value.label, valueType) + 0.5;
        const double marks =
            value.marks.isEmpty() ? 0 : textWidth(value.marks, valueType * markShare) + 0.5 * point;
        const double room = width_ - label - columnGap - marks;
        flow_.text({left_, y_, label, height}, value.label, valueType, SheetWeight::plain,
                   SheetInk::strong);
        if (textWidth(value.text, valueType) <= room) {
            flow_.text({left_ + label + columnGap, y_, room, height}, value.text, valueType,
                       SheetWeight::plain, SheetInk::plain, Qt::AlignRight);
            addMarks(value, marks);
            y_ += height;
            return;
        }
        y_ += height;
        if (!value.figure.isEmpty()) {
            const FittedText fitted = fittedFigure(value, width_ - marks, valueType);
            flow_.text({left_, y_, width_ - marks, height}, fitted.text, fitted.size,
                       SheetWeight::plain, SheetInk::plain, Qt::AlignRight);
            addMarks(value, marks);
            y_ += height;
            return;
        }
        constexpr double indent = 6 * point;
        for (const QString& text : wrappedLines(value.text, width_ - indent, valueType))
            line(text, valueType, SheetWeight::plain, indent, Qt::AlignLeft);
    }

    void addMarks(const SheetValue& value, double width) {
        const double height = lineHeight(valueType);
        flow_.text({left_ + width_ - width + 0.25 * point, y_ - 0.1 * height, width, height},
                   value.marks, valueType * markShare);
    }

    SheetFlow& flow_;
    double left_;
    double width_;
    double y_;
};

void addBlocks(SheetFlow& flow, const QList<SheetBlock>& blocks) {
    const auto count = static_cast<double>(blocks.size());
    const double width = (flow.width() - blockGap * (count - 1)) / count;
    double left = flow.left();
    double bottom = flow.top();
    for (const SheetBlock& block : blocks) {
        bottom = std::max(bottom, BlockLayout(flow, block, left, width).bottom());
        left += width + blockGap;
    }
    flow.skip(bottom - flow.top());
}

// Footnotes beside one another, as many in a column as in the next.
class FootnoteColumns {
  public:
    FootnoteColumns(const QStringList& footnotes, double width, int count)
        : step_((width + blockGap) / count), count_(count) {
        for (qsizetype i = 0; i < footnotes.size(); ++i) {
            QString number = QString::number(i + 1);
            for (const QString& line :
                 wrappedLines(footnotes.at(i), step_ - blockGap - indent, valueType))
                lines_.append({std::exchange(number, {}), line});
        }
    }
    [[nodiscard]] double height() const {
        return static_cast<double>(linesOfColumn()) * lineHeight(valueType);
    }
    void add(SheetFlow& flow) const {
        const double height = lineHeight(valueType);
        for (qsizetype row = 0; row < linesOfColumn(); ++row) {
            flow.need(height);
            double left = flow.left();
            for (qsizetype i = row; i < lines_.size(); i += linesOfColumn()) {
                flow.text({left, flow.top(), indent, height}, lines_.at(i).number, valueType);
                flow.text({left + indent, flow.top(), step_ - blockGap - indent, height},
                          lines_.at(i).text, valueType);
                left += step_;
            }
            flow.skip(height);
        }
    }

  private:
    static constexpr double indent = 14 * point;
    struct Line {
        QString number; // of the first one of a footnote
        QString text;
    };
    [[nodiscard]] qsizetype linesOfColumn() const { return (lines_.size() + count_ - 1) / count_; }

    double step_; // from one column to the next
    qsizetype count_;
    QList<Line> lines_;
};

void addFootnotes(SheetFlow& flow, const QStringList& footnotes) {
    if (footnotes.isEmpty())
        return;
    flow.title(tr("To look at, and where figures come from"));
    constexpr int mostColumns = 3;
    for (int count = 1; count <= mostColumns; ++count)
        if (const FootnoteColumns columns(footnotes, flow.width(), count);
            columns.height() <= flow.room()) {
            columns.add(flow);
            return;
        }
    FootnoteColumns(footnotes, flow.width(), 1).add(flow); // on the pages that they take
}

} // namespace

QList<SheetPage> sheetPages(const SheetContent& content, Paper paper, const QString& footer) {
    SheetFlow flow(paper);
    flow.newPage();
    addHeader(flow, content, nameType);
    addBlocks(flow, content.blocks);
    flow.skip(4 * point);
    addTable(flow, content.yearly);
    flow.skip(12 * point);
    addCharts(flow, content.charts, std::clamp(flow.room(), lowestChart, highestChart));
    flow.newPage();
    addHeader(flow, content, titleType);
    addTable(flow, content.quarterly);
    if (!content.notes.isEmpty()) {
        flow.title(tr("Notes"));
        flow.lines(wrappedLines(content.notes, flow.width(), valueType), valueType);
    }
    addFootnotes(flow, content.footnotes);
    return std::move(flow).finish(footer);
}

} // namespace vkr
