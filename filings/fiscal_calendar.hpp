// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filings_document.hpp"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace vkr {

// How many days a period may have, both of its end days counted.
struct DayWindow {
    int least;
    int most;

    [[nodiscard]] constexpr bool holds(int days) const { return days >= least && days <= most; }
};
inline constexpr DayWindow yearDays{350, 380};
inline constexpr DayWindow nineMonthsDays{255, 290};
inline constexpr DayWindow quarterDays{80, 100};
// A quarter of 16 weeks, where nothing else ends on that day.
inline constexpr DayWindow longQuarterDays{101, 120};

[[nodiscard]] int daysOf(Date start, Date end);

struct FiledQuarter {
    Date start;
    Date end;
    int number = 0;      // 1 to 4 within its fiscal year
    bool isLong = false; // of 16 weeks
};

struct FiscalYear {
    int year =
        0; // the calendar year in which it ends; one that ends on 1 to 7 January is the year before
    Date start;
    Date end;
    // Those of which any figure was filed, and the fourth always.
    std::array<std::optional<FiledQuarter>, 4> quarters;
};

// The fiscal years and quarters that a company's filings are about, told by the periods of their
// facts: what filings say of their own year and quarter is not that of each fact in them.
struct FiscalCalendar {
    std::vector<FiscalYear> years;                      // oldest first
    std::array<std::optional<FiledQuarter>, 3> running; // of the year after the last one

    // All of them, oldest first.
    [[nodiscard]] std::vector<FiledQuarter> quarters() const;
};

[[nodiscard]] FiscalCalendar fiscalCalendar(std::span<const FiledConcept> concepts);

} // namespace vkr
