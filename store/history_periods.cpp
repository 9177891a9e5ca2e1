// SPDX-License-Identifier: MIT
#include "store/history_periods.hpp"

#include "company/exact_text.hpp"
#include "store/company_history.hpp"

#include <charconv>

namespace vkr {

std::string firstPeriod(const CompanyRecord& company, DatumPeriod period) {
    if (period == DatumPeriod::none)
        return {};
    if (period == DatumPeriod::quarter)
        return isoDateText(company.get_LastQDateForGrid());
    return company.get_LastFY() == 0 ? std::string() : std::to_string(company.get_LastFY());
}

std::optional<int> periodNumber(std::string_view period) {
    if (const auto date = dateFromIso(period)) {
        const auto [year, month, day] = civil(*date);
        return year * 4 + (month - 1) / 3;
    }
    int year = 0;
    const auto [end, error] = std::from_chars(period.data(), period.data() + period.size(), year);
    return error == std::errc() && end == period.data() + period.size() ? std::optional(year)
                                                                        : std::nullopt;
}

std::string periodOf(const DatumRow& row, std::string_view first, int element) {
    if (row.period == DatumPeriod::quarter) {
        const auto date = dateFromIso(first);
        return date ? isoDateText(addQuarters(*date, -element)) : std::string();
    }
    const auto year = periodNumber(first);
    return year ? std::to_string(*year + 1 - element) : std::string();
}

std::string historyPeriod(const CompanyRecord& company, Datum datum, std::optional<int> element) {
    const DatumRow& row = rowOf(datum);
    return element ? periodOf(row, firstPeriod(company, row.period), *element) : std::string();
}

bool isPeriod(const std::string& period, const std::string& asked) {
    const auto number = periodNumber(period);
    return number && number == periodNumber(asked);
}

} // namespace vkr
