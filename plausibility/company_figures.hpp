// SPDX-License-Identifier: MIT
#pragma once

#include "record/figure_place.hpp"

#include <array>
#include <string>

namespace vkr {

inline constexpr int quartersPerYear = 4;

// The figures and dates of a company, read once. What the record can't read, what it has no place
// for and what is no finite number is no value, which is 0 as in the record.
class CompanyFigures {
  public:
    explicit CompanyFigures(const iVKR_Company& company);

    // Years: 1 is the last fiscal year. Quarters: 0 is the newest.
    static constexpr int oldestYear = datum_kind::Yearly::upper;
    static constexpr int oldestQuarter = datum_kind::Quarterly::upper;

    [[nodiscard]] double at(Datum series, int element) const; // 0 outside of the series
    [[nodiscard]] double number(Datum datum) const { return at(datum, 0); }
    [[nodiscard]] double figure(const FigurePlace& place) const {
        return at(place.datum, place.element.value_or(0));
    }
    [[nodiscard]] Date date(Datum datum) const { return Date{number(datum)}; }
    [[nodiscard]] int lastFiscalYear() const;

    // The element of the newest quarter that a fiscal year has, which has four from there on. Below
    // 0 where that quarter is still to come, or the dates to count by are missing.
    [[nodiscard]] int newestQuarterOf(int year) const;
    // The fiscal year that a quarter lies in; the last one for what came after it, too, and where
    // no date says.
    [[nodiscard]] int yearOf(int quarter) const;
    // The day on which a quarter ends, as the grid counts it; absent where no date is known.
    [[nodiscard]] Date endOf(int quarter) const;

  private:
    static constexpr int longest = oldestQuarter + 1;

    std::array<std::array<double, longest>, datumCount> values_{};
};

} // namespace vkr
