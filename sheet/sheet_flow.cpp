// SPDX-License-Identifier: MIT
#include "sheet/sheet_flow.hpp"

#include <QCoreApplication>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace vkr {

namespace {

// The longest beginning of a word that fits, one letter at least.
qsizetype fittingLetters(const QString& word, double width, double size, SheetWeight weight) {
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, word);
    qsizetype fitting = 0;
    for (qsizetype end = letters.toNextBoundary(); end > 0; end = letters.toNextBoundary()) {
        if (fitting > 0 && textWidth(word.left(end), size, weight) > width)
            break;
        fitting = end;
    }
    return fitting;
}

void wrapLine(const QString& paragraph, double width, double size, SheetWeight weight,
              QStringList& lines) {
    QString line;
    for (QString word : paragraph.simplified().split(u' ')) {
        const QString longer = line.isEmpty() ? word : line + u' ' + word;
        if (textWidth(longer, size, weight) <= width) {
            line = longer;
            continue;
        }
        if (!line.isEmpty())
            lines.append(line);
        while (textWidth(word, size, weight) > width) {
            const qsizetype letters = fittingLetters(word, width, size, weight);
            if (letters >= word.size())
                break;
            lines.append(word.left(letters));
            word.remove(0, letters);
        }
        line = word;
    }
    lines.append(line);
}

} // namespace

void SheetFlow::newPage() {
    pages_.append({size_, {}, {}});
    top_ = margin;
}

void SheetFlow::text(const QRectF& box, const QString& text, double size, SheetWeight weight,
                     SheetInk ink, Qt::Alignment alignment) {
    if (!text.isEmpty())
        pages_.last().texts.append({box, text, size, weight, ink, alignment});
}

void SheetFlow::area(const QRectF& box, SheetInk ink) {
    pages_.last().areas.append({box, ink});
}

void SheetFlow::rule() {
    area({left(), top_, width(), 0.75 * point}, SheetInk::plain);
    skip(6 * point);
}

constexpr double aboveTitle = 5 * point;
constexpr double belowTitle = 2 * point;

double SheetFlow::titleHeight() {
    return aboveTitle + lineHeight(titleType) + belowTitle;
}

void SheetFlow::title(const QString& text) {
    need(3 * lineHeight(titleType));
    skip(aboveTitle);
    lines({text}, titleType, SheetWeight::bold);
    skip(belowTitle);
}

void SheetFlow::lines(const QStringList& texts, double size, SheetWeight weight, SheetInk ink,
                      double indent) {
    const double height = lineHeight(size);
    for (const QString& line : texts) {
        need(height);
        text({left() + indent, top_, width() - indent, height}, line, size, weight, ink);
        skip(height);
    }
}

QList<SheetPage> SheetFlow::finish(const QString& footer) && {
    const double height = lineHeight(smallestType);
    const double y = size_.height() - margin - height;
    const auto count = pages_.size();
    for (qsizetype number = 1; number <= count; ++number) {
        const QString place = QStringLiteral("%1 / %2").arg(number).arg(count);
        const double right = textWidth(place, smallestType) + columnGap;
        pages_[number - 1].texts.append(
            {{left(), y, width() - right, height},
             wrappedLines(footer, width() - right, smallestType).first(),
             smallestType,
             SheetWeight::plain,
             SheetInk::strong,
             Qt::AlignLeft});
        pages_[number - 1].texts.append({{left() + width() - right, y, right, height},
                                         place,
                                         smallestType,
                                         SheetWeight::plain,
                                         SheetInk::strong,
                                         Qt::AlignRight});
    }
    return std::move(pages_);
}

QStringList wrappedLines(const QString& text, double width, double size, SheetWeight weight) {
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n'))
        wrapLine(paragraph, width, size, weight, lines);
    return lines;
}

QStringList cutLines(QStringList lines, qsizetype most) {
    const qsizetype left = lines.size() - most + 1;
    if (left <= 1)
        return lines;
    lines.resize(most - 1);
    lines.append(
        QCoreApplication::translate("sheet", "and %1 more lines: see the program").arg(left));
    return lines;
}

FittedText fittedFigure(const SheetValue& value, double width, double size) {
    constexpr double smaller = point / 4;
    for (; size >= smallestType; size -= smaller)
        if (textWidth(value.text, size) <= width)
            return {value.text, size};
    constexpr int mostDigits = 15;
    QString rounded;
    for (int digits = mostDigits; digits > 0; --digits) {
        rounded = roundedFigure(value.figure, digits);
        if (textWidth(rounded, smallestType) <= width)
            break;
    }
    return {rounded, smallestType};
}

} // namespace vkr
