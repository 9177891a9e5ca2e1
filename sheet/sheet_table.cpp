// SPDX-License-Identifier: MIT
#include "sheet/sheet_table.hpp"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>
#include <numeric>

namespace vkr {

namespace {

constexpr double markShare = 0.65; // of the type, for the number of a note
constexpr double smallestGap = 5 * point;

// What stands before the decimal point, and all of it.
struct Parts {
    double whole;
    double all;
};
Parts partsOf(const QString& text, double size, SheetWeight weight = SheetWeight::plain) {
    const auto decimal = text.indexOf(QLocale().decimalPoint());
    return {textWidth(decimal < 0 ? text : text.left(decimal), size, weight),
            textWidth(text, size, weight)};
}

// One column in one size of type.
struct TableColumn {
    double whole = 0;    // of the widest figure, before the point
    double fraction = 0; // and behind it
    double marks = 0;
    double head = 0;
    double width = 0;

    [[nodiscard]] double figures() const { return whole + fraction + marks; }
};

double widestWord(const QString& text, double size) {
    double widest = 0;
    for (const QString& word : text.split(u' '))
        widest = std::max(widest, textWidth(word, size, SheetWeight::bold));
    return widest;
}

class TableLayout {
  public:
    TableLayout(SheetFlow& flow, const SheetTable& table) : flow_(flow), table_(table) {
        for (size_ = plainType; !measure() && size_ > smallestType; size_ -= point / 4) {
        }
    }

    void add() {
        addHeads();
        for (qsizetype row = 0; row < table_.rows.size(); ++row)
            addRow(row);
    }

  private:
    // Whether all of it fits as it is; where it does not the widest columns are cut down.
    bool measure() {
        columns_.fill({}, table_.heads.size());
        for (qsizetype i = 0; i < columns_.size(); ++i) {
            TableColumn& column = columns_[i];
            const SheetTable::Head& head = table_.heads.at(i);
            column.head = std::max(widestWord(head.name, size_), textWidth(head.unit, size_));
            for (const SheetTable::Row& row : table_.rows) {
                const Parts parts = partsOf(row.cells.at(i).text, size_,
                                            i == 0 ? SheetWeight::bold : SheetWeight::plain);
                column.whole = std::max(column.whole, parts.whole);
                column.fraction = std::max(column.fraction, parts.all - parts.whole);
                column.marks =
                    std::max(column.marks, textWidth(row.cells.at(i).marks, size_ * markShare));
            }
            column.width = std::max(column.head, column.figures());
        }
        const double gaps = smallestGap * static_cast<double>(columns_.size() - 1);
        const bool isFitting = total() + gaps <= flow_.width();
        if (!isFitting)
            cutDown(flow_.width() - gaps);
        gap_ = smallestGap + (flow_.width() - gaps - total()) /
                                 static_cast<double>(std::max<qsizetype>(1, columns_.size() - 1));
        return isFitting;
    }

    [[nodiscard]] double total() const {
        return std::accumulate(
            columns_.begin(), columns_.end(), 0.0,
            [](double sum, const TableColumn& column) { return sum + column.width; });
    }

    // All columns that are wider than a limit get it; what the others leave makes it larger.
    void cutDown(double room) {
        QList<double> widths;
        for (const TableColumn& column : columns_)
            widths.append(column.width);
        std::ranges::sort(widths);
        double limit = 0;
        auto open = static_cast<double>(widths.size());
        for (const double width : widths) {
            limit = room / open;
            if (width > limit)
                break;
            room -= width;
            open -= 1;
        }
        for (TableColumn& column : columns_)
            column.width = std::min(column.width, limit);
    }

    void addHeads() {
        QList<QStringList> names;
        qsizetype most = 1;
        for (qsizetype i = 0; i < columns_.size(); ++i) {
            names.append(wrappedLines(table_.heads.at(i).name, columns_.at(i).width + 0.5, size_,
                                      SheetWeight::bold));
            most = std::max(most, names.last().size());
        }
        const double height = lineHeight(size_);
        flow_.need((static_cast<double>(most) + 4) * height);
        for (qsizetype i = 0; i < columns_.size(); ++i) {
            double y = flow_.top() + static_cast<double>(most - names.at(i).size()) * height;
            const QRectF place(x(i), 0, columns_.at(i).width, height);
            for (const QString& line : names.at(i)) {
                flow_.text(place.translated(0, y), line, size_, SheetWeight::bold, SheetInk::plain,
                           side(i));
                y += height;
            }
            const SheetValue unit{{}, table_.heads.at(i).unit, {}, {}};
            if (!unit.text.isEmpty()) {
                const FittedText fitted = shrunk(unit.text, place.width());
                flow_.text(place.translated(0, y), fitted.text, fitted.size, SheetWeight::plain,
                           SheetInk::strong, side(i));
            }
        }
        flow_.skip(static_cast<double>(most + 1) * height);
        flow_.area({flow_.left(), flow_.top(), flow_.width(), 0.5 * point}, SheetInk::plain);
        flow_.skip(2 * point);
    }

    // A unit is never wider than its column but where that was cut down.
    [[nodiscard]] FittedText shrunk(const QString& text, double width) const {
        const double natural = textWidth(text, size_);
        return {text, natural <= width ? size_ : size_ * width / natural * 0.98};
    }

    void addRow(qsizetype number) {
        const double height = lineHeight(size_);
        if (flow_.room() < height) {
            flow_.newPage();
            addHeads();
        }
        if (number % 2 == 1)
            flow_.area({flow_.left(), flow_.top(), flow_.width(), height}, SheetInk::pale);
        const SheetTable::Row& row = table_.rows.at(number);
        for (qsizetype i = 0; i < columns_.size(); ++i)
            addCell(row.cells.at(i), i, height);
        flow_.skip(height);
    }

    void addCell(const SheetValue& cell, qsizetype number, double height) {
        const TableColumn& column = columns_.at(number);
        const double y = flow_.top();
        if (number == 0) {
            flow_.text({x(0), y, column.width + 0.5, height}, cell.text, size_, SheetWeight::bold);
            return;
        }
        const double room = column.width - column.marks;
        const Parts parts = partsOf(cell.text, size_);
        const double right = x(number) + column.width - column.marks;
        double end = right - column.fraction + (parts.all - parts.whole);
        FittedText fitted{cell.text, size_};
        if (column.figures() > column.width + 0.5) { // cut down: no points to stand by
            fitted = fittedFigure(cell, room, size_);
            end = right;
        }
        const double width = textWidth(fitted.text, fitted.size);
        flow_.text({end - width, y, width + 0.5, height}, fitted.text, fitted.size);
        if (!cell.marks.isEmpty())
            flow_.text({end + 0.5, y - 0.1 * height, column.marks + 0.5, height}, cell.marks,
                       size_ * markShare);
    }

    [[nodiscard]] double x(qsizetype number) const {
        double at = flow_.left();
        for (qsizetype i = 0; i < number; ++i)
            at += columns_.at(i).width + gap_;
        return at;
    }
    [[nodiscard]] static Qt::Alignment side(qsizetype number) {
        return number == 0 ? Qt::AlignLeft : Qt::AlignRight;
    }

    SheetFlow& flow_;
    const SheetTable& table_;
    double size_ = plainType;
    double gap_ = smallestGap;
    QList<TableColumn> columns_;
};

} // namespace

void addTable(SheetFlow& flow, const SheetTable& table) {
    flow.title(table.title);
    if (table.rows.isEmpty())
        flow.lines({QCoreApplication::translate("sheet", "No figures are stored.")}, plainType);
    else
        TableLayout(flow, table).add();
}

} // namespace vkr
