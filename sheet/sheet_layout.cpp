// SPDX-License-Identifier: MIT
#include "sheet/sheet_layout.hpp"

#include "sheet/sheet_chart.hpp"
#include "sheet/sheet_flow.hpp"
#include "sheet/sheet_table.hpp"

#include <QCoreApplication>

#include <algorithm>

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
    flow.lines(wrappedLines(content.name, flow.width(), type, true), type, true);
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
        line(block.title, titleType, true, 0, Qt::AlignLeft);
        y_ += 2 * point;
        for (const SheetValue& value : block.values)
            add(value);
    }
    [[nodiscard]] double bottom() const { return y_; }

  private:
    void line(const QString& text, double size, bool isBold, double indent,
              Qt::Alignment alignment) {
        const double height = lineHeight(size);
        flow_.text({left_ + indent, y_, width_ - indent, height}, text, size, isBold,
                   SheetInk::plain, alignment);
        y_ += height;
    }

    void add(const SheetValue& value) {
        const double height = lineHeight(valueType);
        const double label = textWidth(value.label, valueType) + 0.5;
        const double marks =
            value.marks.isEmpty() ? 0 : textWidth(value.marks, valueType * markShare) + 0.5 * point;
        const double room = width_ - label - columnGap - marks;
        flow_.text({left_, y_, label, height}, value.label, valueType, false, SheetInk::strong);
        if (textWidth(value.text, valueType) <= room) {
            flow_.text({left_ + label + columnGap, y_, room, height}, value.text, valueType, false,
                       SheetInk::plain, Qt::AlignRight);
            addMarks(value, marks);
            y_ += height;
            return;
        }
        y_ += height;
        if (!value.figure.isEmpty()) {
            const FittedText fitted = fittedFigure(value, width_ - marks, valueType);
            flow_.text({left_, y_, width_ - marks, height}, fitted.text, fitted.size, false,
                       SheetInk::plain, Qt::AlignRight);
            addMarks(value, marks);
            y_ += height;
            return;
        }
        constexpr double indent = 6 * point;
        for (const QString& text : wrappedLines(value.text, width_ - indent, valueType))
            line(text, valueType, false, indent, Qt::AlignLeft);
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

void addFootnotes(SheetFlow& flow, const QStringList& footnotes) {
    if (footnotes.isEmpty())
        return;
    flow.title(tr("To look at, and where figures come from"));
    constexpr double indent = 14 * point;
    const double height = lineHeight(valueType);
    for (qsizetype i = 0; i < footnotes.size(); ++i) {
        flow.need(height);
        flow.text({flow.left(), flow.top(), indent, height}, QString::number(i + 1), valueType);
        flow.lines(wrappedLines(footnotes.at(i), flow.width() - indent, valueType), valueType,
                   false, SheetInk::plain, indent);
    }
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
