// SPDX-License-Identifier: MIT
#pragma once

#include "filings/fiscal_calendar.hpp"
#include "record/datum_changes.hpp"

#include <optional>
#include <string>
#include <vector>

namespace vkr {

// Where the years or quarters of filings lie in the series of a record, once `changes` are made.
struct RecordSpan {
    int later = 0; // periods of the filings after the record's last one
    int added = 0; // by how many of them the record is moved on: all or none
    // What moves it, or dates a record that has no figures of such periods.
    std::vector<DatumChange> changes;
    std::vector<std::string> told; // of the changes, and of what is left out, for people
    bool placed = false;           // the record's series have a place for any of the periods
    int newestYear = 0;            // at element 1
    Date newestQuarter;            // at element 0

    [[nodiscard]] int elementOfYear(int year) const { return newestYear - year + 1; }
    [[nodiscard]] int elementOfQuarter(Date end) const {
        return -nearestQuarters(newestQuarter, end);
    }
};

// A record without figures in its yearly series takes the years of the filings. In any other one
// the last fiscal year stays where it is, but that later years are added where `adds` says so.
[[nodiscard]] RecordSpan yearSpan(const FiscalCalendar& calendar, const iVKR_Company& company,
                                  bool adds);
[[nodiscard]] RecordSpan quarterSpan(const FiscalCalendar& calendar, const iVKR_Company& company,
                                     bool adds);

} // namespace vkr
