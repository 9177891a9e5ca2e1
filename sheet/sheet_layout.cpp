// SPDX-License-Identifier: MIT
#include "sheet/sheet_layout.hpp"

#include "sheet/sheet_chart.hpp"
#include "sheet/sheet_flow.hpp"
#include "sheet/sheet_notes.hpp"
#include "sheet/sheet_table.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

namespace {

constexpr double nameType = 15 * point;
constexpr double markShare = 0.65;
constexpr qsizetype mostLines = 4; // of one text, where pages would run over
constexpr double blockGap = 14 * point;
constexpr double lowestChart = 90 * point;
constexpr double lowChart = 130 * point;
constexpr double highestChart = 220 * point;

void addHeader(SheetFlow& flow, const SheetContent& content, double type) {
    flow.lines(
        cutLines(wrappedLines(content.name, flow.width(), type, SheetWeight::bold), mostLines),
        type, SheetWeight::bold);
    if (!content.identity.isEmpty())
        flow.lines(cutLines(wrappedLines(content.identity, flow.width(), plainType), mostLines),
                   plainType);
    flow.skip(3 * point);
    flow.rule();
}

// Label on the left, value on the right; a value that has no room there goes below its label.
class BlockLayout {
  public:
    BlockLayout(SheetFlow& flow, const SheetBlock& block, double left, double width, double type)
        : flow_(flow), left_(left), width_(width), type_(type), y_(flow.top()) {
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
        const double height = lineHeight(type_);
        const double label = textWidth(value.label, type_) + 0.5;
        const double marks =
            value.marks.isEmpty() ? 0 : textWidth(value.marks, type_ * markShare) + 0.5 * point;
        const double room = width_ - label - columnGap - marks;
        flow_.text({left_, y_, label, height}, value.label, type_, SheetWeight::plain,
                   SheetInk::strong);
        if (textWidth(value.text, type_) <= room) {
            flow_.text({left_ + label + columnGap, y_, room, height}, value.text, type_,
                       SheetWeight::plain, SheetInk::plain, Qt::AlignRight);
            addMarks(value, marks);
            y_ += height;
            return;
        }
        y_ += height;
        if (!value.figure.isEmpty()) {
            const FittedText fitted = fittedFigure(value, width_ - marks, type_);
            flow_.text({left_, y_, width_ - marks, height}, fitted.text, fitted.size,
                       SheetWeight::plain, SheetInk::plain, Qt::AlignRight);
            addMarks(value, marks);
            y_ += height;
            return;
        }
        constexpr double indent = 6 * point;
        QStringList lines = wrappedLines(value.text, width_ - indent, type_);
        if (type_ <= smallestType)
            lines = cutLines(std::move(lines), mostLines);
        for (const QString& text : lines)
            line(text, type_, SheetWeight::plain, indent, Qt::AlignLeft);
    }

    void addMarks(const SheetValue& value, double width) {
        const double height = lineHeight(type_);
        flow_.text({left_ + width_ - width + 0.25 * point, y_ - 0.1 * height, width, height},
                   value.marks, type_ * markShare);
    }

    SheetFlow& flow_;
    double left_;
    double width_;
    double type_;
    double y_;
};

void addBlocks(SheetFlow& flow, const QList<SheetBlock>& blocks, double type) {
    const auto count = static_cast<double>(blocks.size());
    const double width = (flow.width() - blockGap * (count - 1)) / count;
    double left = flow.left();
    double bottom = flow.top();
    for (const SheetBlock& block : blocks) {
        bottom = std::max(bottom, BlockLayout(flow, block, left, width, type).bottom());
        left += width + blockGap;
    }
    flow.skip(bottom - flow.top());
}

// The data in the largest type that leaves room for the years and their charts.
void addFirstPage(SheetFlow& flow, const SheetContent& content) {
    flow.newPage();
    addHeader(flow, content, nameType);
    const SheetFlow begun = flow;
    for (const double type : {valueType, 6 * point, smallestType}) {
        flow = begun;
        addBlocks(flow, content.blocks, type);
        flow.skip(4 * point);
        addTable(flow, content.yearly);
        flow.skip(12 * point);
        addCharts(
            flow, content.charts,
            std::clamp(flow.room(), type > smallestType ? lowChart : lowestChart, highestChart));
        if (flow.pageCount() == 1)
            return;
    }
}

} // namespace

QList<SheetPage> sheetPages(const SheetContent& content, Paper paper, const QString& footer) {
    SheetFlow flow(paper);
    addFirstPage(flow, content);
    flow.newPage();
    addHeader(flow, content, titleType);
    addTable(flow, content.quarterly);
    addNotes(flow, content.notes, content.footnotes);
    return std::move(flow).finish(footer);
}

} // namespace vkr
