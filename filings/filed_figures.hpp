// SPDX-License-Identifier: MIT
#pragma once

#include "filings/fact_book.hpp"
#include "record/datum_table.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vkr {

// A figure for one datum of a record and one period, in the units of a record: money and share
// counts in millions, per share in dollars, rates in percent.
//
// What is counted or reported is exact. What is divided (by a split, or one figure by another) is
// rounded half away from zero: per share to 4 places, rates to 2.
struct FiledFigure {
    Datum datum{};
    Date end; // of the year or quarter; the date of what is no series
    double value = 0;
    double exact = 0;     // before that rounding
    double basis = 1;     // today's shares for one on the day of its filing
    bool derived = false; // no filing gives it; worked out from the year and its quarters
    FigureSource source;
    std::vector<FigureNote> notes;
    std::vector<OtherValue> others; // for the same period, oldest first, in the figure's units

    [[nodiscard]] bool isDoubtful() const;
};

// A document, turned into figures.
struct FiledCompany {
    std::string name;
    std::int64_t cik = 0;
    FiscalCalendar calendar;
    std::vector<FiledSplit> splits;
    std::vector<FiledFigure> figures; // by datum, the newest first
    std::vector<std::string> notes;   // what is true of the document as a whole
    std::string refusal; // why nothing can be taken: another currency, other rules of accounting
};

[[nodiscard]] FiledCompany filedFigures(const FilingsDocument& document);

} // namespace vkr
