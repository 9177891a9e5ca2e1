// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QList>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace vkr {

// A page of paper with everything at its place, in twentieths of a point.

enum class Paper { a4, letter };

enum class SheetInk { plain, pale, strong };
enum class SheetWeight { plain, bold };

struct SheetText {
    QRectF box; // the text is as wide as this at most
    QString text;
    double size = 0; // of the font, in the units of the page
    SheetWeight weight = SheetWeight::plain;
    SheetInk ink = SheetInk::plain;
    Qt::Alignment alignment = Qt::AlignLeft;

    [[nodiscard]] QFont font() const;
    [[nodiscard]] double width() const;
};

struct SheetArea {
    QRectF box;
    SheetInk ink = SheetInk::plain; // filled with it
};

struct SheetPage {
    QSizeF size;
    QList<SheetArea> areas; // rules, bands and bars, below the texts
    QList<SheetText> texts;
};

inline constexpr double point = 20;

[[nodiscard]] QSizeF sizeOf(Paper paper);

// A font of the sheet, and how wide and high texts are in it.
[[nodiscard]] QFont sheetFont(double size, SheetWeight weight = SheetWeight::plain);
[[nodiscard]] double textWidth(const QString& text, double size,
                               SheetWeight weight = SheetWeight::plain);
[[nodiscard]] double lineHeight(double size);

} // namespace vkr
