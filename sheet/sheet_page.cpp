// SPDX-License-Identifier: MIT
#include "sheet/sheet_page.hpp"

#include <QFontMetricsF>
#include <QPageSize>

#include <cmath>

namespace vkr {

QSizeF sizeOf(Paper paper) {
    return QPageSize(paper == Paper::a4 ? QPageSize::A4 : QPageSize::Letter)
               .size(QPageSize::Point) *
           point;
}

QFont sheetFont(double size, SheetWeight weight) {
    QFont font(QStringLiteral("Sans Serif"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::lround(size)));
    font.setBold(weight == SheetWeight::bold);
    font.setHintingPreference(QFont::PreferNoHinting); // else widths would not be those on paper
    return font;
}

double textWidth(const QString& text, double size, SheetWeight weight) {
    return QFontMetricsF(sheetFont(size, weight)).horizontalAdvance(text);
}

double lineHeight(double size) {
    return 1.25 * size;
}

QFont SheetText::font() const {
    return sheetFont(size, weight);
}

double SheetText::width() const {
    return textWidth(text, size, weight);
}

} // namespace vkr
