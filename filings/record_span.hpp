// SPDX-License-Identifier: MIT
#pragma once

#include "company/typed_figures.hpp"
#include "filings/fiscal_calendar.hpp"
#include "record/datum_changes.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// Where a stored figure comes from; nothing where nobody knows.
using OriginQuery = std::function<std::optional<Origin>(Datum, std::optional<int> element)>;

// Whether years or quarters after the last one of a record are added to it.
enum class Adding {
    never,
    // The table at its other end, nor what may have been typed; and where the stored figures are
    // not those of before a split.
    whereNothingTypedLeaves,
    always,
};

// Where the years or quarters of filings lie in the series of a record, once `changes` are made.
struct RecordSpan {
    int later = 0; // periods of the filings after the record's last one
    int added = 0; // by how many of them the record is moved on: all or none
    // What moves it, or dates a record that has no figures of such periods.
    std::vector<DatumChange> changes;
    // What was typed, or may have been, and has no place once all later ones are added.
    std::vector<ReplacedFigure> leaving;
    // For people: of the changes, and of what is left out, be they made or not.
    std::vector<std::string> toldOfChanges;
    std::vector<std::string> told;
    bool placed = false; // the record's series have a place for any of the periods
    int newestYear = 0;  // at element 1
    Date newestQuarter;  // at element 0

    [[nodiscard]] int elementOfYear(int year) const { return newestYear - year + 1; }
    [[nodiscard]] int elementOfQuarter(Date end) const {
        return -nearestQuarters(newestQuarter, end);
    }
};

// A record without figures in its yearly series takes the years of the filings. In any other one
// the last fiscal year stays where it is, but that later years are added where `adding` says so.
// Without `originOf` nobody knows where figures come from.
[[nodiscard]] RecordSpan yearSpan(const FiscalCalendar& calendar, const iVKR_Company& company,
                                  Adding adding, const OriginQuery& originOf);
[[nodiscard]] RecordSpan quarterSpan(const FiscalCalendar& calendar, const iVKR_Company& company,
                                     Adding adding, const OriginQuery& originOf);

} // namespace vkr
