// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "record/figure_place.hpp"

#include <QList>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace vkr {

// What stands below a figure's page: where it comes from, or what is odd about it.
struct SheetNote {
    std::vector<FigurePlace> places; // figures that get its number; none: of the company
    QString text;
};

// One company for its data sheet. What is stored is printed as it is stored.
struct SheetCompany {
    std::shared_ptr<const CompanyRecord> record;
    std::vector<SheetNote> notes;
};

// --- what is on the sheet, before it has a place ----------------------------------------------

// A figure keeps its plain decimal text, so that it can be rounded where it has no room.
struct SheetValue {
    QString label;
    QString text;   // as people read it; "" where nothing is stored
    QString figure; // plain decimal; "" for what is none
    QString marks;  // numbers of its notes: "1, 4"
};

struct SheetBlock {
    QString title;
    QList<SheetValue> values;
};

struct SheetTable {
    struct Head {
        QString name;
        QString unit;
    };
    struct Row {
        QList<SheetValue> cells; // the period first
    };
    QString title;
    QList<Head> heads;
    QList<Row> rows;
};

// Bars over time, the oldest first: from 0, or from `lower` on where there is one.
struct SheetChart {
    struct Bar {
        QString period;
        std::optional<double> value;
        std::optional<double> lower;
    };
    QString title;
    QString unit;
    QList<Bar> bars;

    [[nodiscard]] bool hasFigures() const;
};

struct SheetContent {
    QString name;
    QString identity; // symbol, exchange and industry
    QList<SheetBlock> blocks;
    SheetTable yearly;
    SheetTable quarterly;
    QList<SheetChart> charts;
    QString notes;         // the company's own
    QStringList footnotes; // in the order of their numbers, from 1
};

[[nodiscard]] SheetContent sheetContent(const SheetCompany& company);

// A plain decimal with the marks of the user's locale, all its digits.
[[nodiscard]] QString localizedFigure(const QString& plain);
// The same rounded to so many significant digits, behind "≈", with an exponent where it is large.
[[nodiscard]] QString roundedFigure(const QString& plain, int digits);

} // namespace vkr
