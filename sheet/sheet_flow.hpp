// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_content.hpp"
#include "sheet/sheet_page.hpp"

namespace vkr {

inline constexpr double margin = 36 * point;
inline constexpr double smallestType = 5 * point;
inline constexpr double valueType = 7 * point;
inline constexpr double plainType = 8 * point;
inline constexpr double titleType = 9 * point;
inline constexpr double columnGap = 7 * point;

// Pages that are filled from top to bottom.
class SheetFlow {
  public:
    explicit SheetFlow(Paper paper) : size_(sizeOf(paper)) {}

    void newPage();
    [[nodiscard]] double left() const { return margin; }
    [[nodiscard]] double width() const { return size_.width() - 2 * margin; }
    [[nodiscard]] double top() const { return top_; }
    // Of what is left of the page, above the footer.
    [[nodiscard]] double room() const { return size_.height() - margin - footerHeight - top_; }
    void skip(double height) { top_ += height; }
    [[nodiscard]] qsizetype pageCount() const { return pages_.size(); }
    // Goes to a new page where so much does not fit any more.
    void need(double height) {
        if (room() < height)
            newPage();
    }

    void text(const QRectF& box, const QString& text, double size,
              SheetWeight weight = SheetWeight::plain, SheetInk ink = SheetInk::plain,
              Qt::Alignment alignment = Qt::AlignLeft);
    void area(const QRectF& box, SheetInk ink);
    void rule();
    // Each of them below the one before, over the pages that it takes.
    void title(const QString& text);
    [[nodiscard]] static double titleHeight();
    void lines(const QStringList& lines, double size, SheetWeight weight = SheetWeight::plain,
               SheetInk ink = SheetInk::plain, double indent = 0);

    // With a footer on each page: the text, and which page of how many it is.
    [[nodiscard]] QList<SheetPage> finish(const QString& footer) &&;

  private:
    static constexpr double footerHeight = 16 * point;

    QSizeF size_;
    double top_ = 0;
    QList<SheetPage> pages_;
};

// Lines of at most this width, broken between words, and within a word that is wider.
[[nodiscard]] QStringList wrappedLines(const QString& text, double width, double size,
                                       SheetWeight weight = SheetWeight::plain);

// So many of them at most; the last one then says how many more there are.
[[nodiscard]] QStringList cutLines(QStringList lines, qsizetype most);

// The value as it fits into the width: smaller, or rounded as the last resort.
struct FittedText {
    QString text;
    double size;
};
[[nodiscard]] FittedText fittedFigure(const SheetValue& value, double width, double size);

} // namespace vkr
