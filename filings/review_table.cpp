// SPDX-License-Identifier: MIT
#include "filings/review_table.hpp"

#include "company/figure_origins.hpp"
#include "record/datum_titles.hpp"

#include <algorithm>

namespace vkr {

namespace {

std::string notesText(const ReviewRow& row) {
    std::string text;
    for (const FigureNote& note : row.figure.notes)
        text += (text.empty() ? "" : "; ") + (note.doubt ? "doubtful: " + note.text : note.text);
    return text;
}

std::optional<double> storedNumber(const ReviewRow& row) {
    return row.stored == 0 ? std::nullopt : std::optional(row.stored);
}

// 0 is a filed one in the place of another figure only.
std::optional<double> filedNumber(const ReviewRow& row) {
    return row.stored == 0 && row.figure.value == 0 ? std::nullopt
                                                    : std::optional(row.figure.value);
}

std::optional<double> differenceNumber(const ReviewRow& row) {
    return row.state == ReviewState::differs ? std::optional(row.difference()) : std::nullopt;
}

constexpr ReviewColumn columns[] = {
    {.title = "Figure",
     .key = "figure",
     .text = [](const ReviewRow& row) { return fullTitleOf(row.figure.datum); }},
    {.title = "Period", .key = "period", .text = [](const ReviewRow& row) { return row.period; }},
    {.title = "Stored", .key = "stored", .number = storedNumber},
    {.title = "Filed", .key = "filed", .number = filedNumber},
    {.title = "Difference", .key = "difference", .number = differenceNumber},
    {.title = "State",
     .key = "state",
     .text = [](const ReviewRow& row) { return std::string(stateName(row.state)); }},
    {.title = "Stored By",
     .key = "origin",
     .text =
         [](const ReviewRow& row) {
             return row.origin ? std::string(originName(*row.origin)) : std::string();
         }},
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

std::string reviewDetails(const ReviewRow& row, std::string (*figureText)(double)) {
    std::string text;
    const auto line = [&](const std::string& one) { text += (text.empty() ? "" : "\n") + one; };
    const FigureSource& source = row.figure.source;
    const bool isFiled = !source.accession.empty(); // else it follows from what is
    line(figureText(row.figure.value) + ": " + source.concepts +
         (isFiled ? ", " + source.form + " of " + isoDateText(source.filed) + " (" +
                        source.accession + ")"
                  : ""));
    for (const FigureNote& note : row.figure.notes)
        line(note.doubt ? "Doubtful: " + note.text : note.text);
    for (const OtherValue& other : row.figure.others)
        line(figureText(other.value) + " in " + other.source.form + " of " +
             isoDateText(other.source.filed) + " (" + other.source.accession +
             "): " + other.remark);
    return text;
}

} // namespace vkr
