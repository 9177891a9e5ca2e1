// SPDX-License-Identifier: MIT
#include "plausibility/company_figures.hpp"

#include "platform/error_trap.hpp"

#include <algorithm>
#include <cmath>
#include <variant>

namespace vkr {

namespace {

double finite(double value) {
    return std::isfinite(value) ? value : 0;
}

} // namespace

CompanyFigures::CompanyFigures(const iVKR_Company& company) {
    for (const DatumRow& row : datumTable()) {
        auto& values = values_[static_cast<std::size_t>(row.datum)];
        ifPossible([&] {
            const Variant value = readDatum(company, row.datum);
            if (const auto* date = std::get_if<Date>(&value.value())) {
                values[0] = isAbsent(*date) ? 0 : date->serial;
            } else if (!isSeries(row)) {
                values[0] = finite(value.toDouble());
            } else {
                const VariantArray& series = value.array();
                for (int element = 0; element <= row.upper; ++element)
                    if (series.contains(element))
                        values[static_cast<std::size_t>(element)] = finite(series.number(element));
            }
        });
    }
}

double CompanyFigures::at(Datum series, int element) const {
    return element < 0 || element >= longest
               ? 0
               : values_[static_cast<std::size_t>(series)][static_cast<std::size_t>(element)];
}

int CompanyFigures::lastFiscalYear() const {
    return static_cast<int>(number(Datum::LastFY));
}

Date CompanyFigures::endOf(int quarter) const {
    return addQuarters(date(Datum::LastQDateForGrid), -quarter);
}

int CompanyFigures::newestQuarterOf(int year) const {
    const Date yearEnd = date(Datum::LastFYDate);
    const Date newest = date(Datum::LastQDateForGrid);
    if (isAbsent(yearEnd) || isAbsent(newest))
        return -1;
    return nearestQuarters(yearEnd, newest) + quartersPerYear * (year - 1);
}

int CompanyFigures::yearOf(int quarter) const {
    const Date yearEnd = date(Datum::LastFYDate);
    const Date newest = date(Datum::LastQDateForGrid);
    if (isAbsent(yearEnd) || isAbsent(newest))
        return 1;
    const int beforeYearEnd = quarter - nearestQuarters(yearEnd, newest);
    return std::max(1 + beforeYearEnd / quartersPerYear, 1);
}

} // namespace vkr
