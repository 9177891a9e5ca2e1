// SPDX-License-Identifier: MIT
#include "filings/review_table.hpp"

#include "company/exact_text.hpp"

#include <algorithm>

namespace vkr {

namespace {

struct TitleRow {
    Datum datum;
    std::string_view title;
};

constexpr TitleRow titles[] = {
    {Datum::YRevenueSeries, "Revenue"},
    {Datum::YPTISeries, "Pre-tax income"},
    {Datum::YTaxRateSeries, "Tax rate"},
    {Datum::YNetIncSeries, "Net income"},
    {Datum::YCommEqSeries, "Common equity"},
    {Datum::YBookValSeries, "Book value per share"},
    {Datum::YEPSSeries, "Earnings per share"},
    {Datum::YDividendSeries, "Dividend per share"},
    {Datum::YCSOSeries, "Diluted shares"},
    {Datum::QRevenueSeries, "Revenue of the quarter"},
    {Datum::QPTISeries, "Pre-tax income of the quarter"},
    {Datum::QTaxRateSeries, "Tax rate of the quarter"},
    {Datum::QNetIncSeries, "Net income of the quarter"},
    {Datum::QEPSSeries, "Earnings per share of the quarter"},
    {Datum::CommShares, "Common shares"},
    {Datum::DilutedShares, "Diluted shares, newest"},
    {Datum::TotalDebt, "Total debt"},
    {Datum::PrefShares, "Preferred stock"},
};

std::string notesText(const ReviewRow& row) {
    std::string text;
    for (const FigureNote& note : row.figure.notes)
        text += (text.empty() ? "" : "; ") + note.text;
    return text;
}

std::optional<double> storedNumber(const ReviewRow& row) {
    return row.stored == 0 ? std::nullopt : std::optional(row.stored);
}

std::optional<double> differenceNumber(const ReviewRow& row) {
    return row.state == ReviewState::differs ? std::optional(row.difference()) : std::nullopt;
}

constexpr ReviewColumn columns[] = {
    {.title = "Figure",
     .key = "figure",
     .text = [](const ReviewRow& row) { return figureTitle(row.figure.datum); }},
    {.title = "Period", .key = "period", .text = [](const ReviewRow& row) { return row.period; }},
    {.title = "Stored", .key = "stored", .number = storedNumber},
    {.title = "Filed",
     .key = "filed",
     .number = [](const ReviewRow& row) { return std::optional(row.figure.value); }},
    {.title = "Difference", .key = "difference", .number = differenceNumber},
    {.title = "State",
     .key = "state",
     .text = [](const ReviewRow& row) { return std::string(stateName(row.state)); }},
    {.title = "Stored By",
     .key = "origin",
     .text = [](const ReviewRow& row) { return std::string(originName(row.origin)); }},
    {.title = "Form",
     .key = "form",
     .text = [](const ReviewRow& row) { return row.figure.source.form; }},
    {.title = "Filed On",
     .key = "filed_on",
     .text = [](const ReviewRow& row) { return isoDateText(row.figure.source.filed); }},
    {.title = "Accession Number",
     .key = "accession",
     .text = [](const ReviewRow& row) { return row.figure.source.accession; }},
    {.title = "Notes", .key = "notes", .text = notesText},
    {.title = "Concept",
     .key = "concept",
     .text = [](const ReviewRow& row) { return row.figure.source.concepts; }},
};

} // namespace

std::span<const ReviewColumn> reviewColumns() {
    return columns;
}

std::string reviewCell(const ReviewRow& row, const ReviewColumn& column) {
    if (column.text != nullptr)
        return column.text(row);
    const auto number = column.number(row);
    return number ? exactNumberText(*number) : std::string();
}

std::string figureTitle(Datum datum) {
    const auto* row = std::ranges::find(titles, datum, &TitleRow::datum);
    return std::string(row == std::end(titles) ? rowOf(datum).name : row->title);
}

std::string_view stateName(ReviewState state) {
    switch (state) {
    case ReviewState::fresh:
        return "new";
    case ReviewState::differs:
        return "differs";
    case ReviewState::same:
        return "same";
    }
    return {};
}

std::string_view originName(const std::optional<Origin>& origin) {
    if (!origin)
        return {};
    switch (*origin) {
    case Origin::typed:
        return "typed";
    case Origin::pasted:
        return "pasted";
    case Origin::imported:
        return "imported";
    case Origin::derived:
        return "derived";
    case Origin::shifted:
        return "shifted";
    }
    return {};
}

std::string reviewDetails(const ReviewRow& row) {
    std::string text;
    const auto line = [&](const std::string& one) { text += (text.empty() ? "" : "\n") + one; };
    const FigureSource& source = row.figure.source;
    line(exactNumberText(row.figure.value) + ": " + source.concepts + ", " + source.form + " of " +
         isoDateText(source.filed) + " (" + source.accession + ")");
    for (const FigureNote& note : row.figure.notes)
        line(note.doubt ? "Doubtful: " + note.text : note.text);
    for (const OtherValue& other : row.figure.others)
        line(exactNumberText(other.value) + " in " + other.source.form + " of " +
             isoDateText(other.source.filed) + " (" + other.source.accession +
             "): " + other.remark);
    return text;
}

} // namespace vkr
