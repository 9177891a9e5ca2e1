// SPDX-License-Identifier: MIT
#include "filings/record_span.hpp"

#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cstdlib>

namespace vkr {

namespace {

constexpr int sameYearEnd = 20; // days by which two ends of a fiscal year may differ

// Each series of the period that can be read, as an array.
template <typename Visit>
void forEachSeries(const iVKR_Company& company, DatumPeriod period, Visit visit) {
    for (const DatumRow& row : datumTable()) {
        if (row.period != period)
            continue;
        Variant series;
        ifPossible([&] { series = readSeries(company, row.datum); });
        if (series.isArray())
            visit(row.datum, series);
    }
}

// Whether the record keeps such periods at all.
bool hasPlaces(const iVKR_Company& company, DatumPeriod period) {
    bool found = false;
    forEachSeries(company, period, [&](Datum, const Variant& series) {
        found = found || series.array().size() > 0;
    });
    return found;
}

bool hasFigures(const iVKR_Company& company, DatumPeriod period) {
    bool found = false;
    forEachSeries(company, period, [&](Datum, const Variant& series) {
        for (int i = series.array().lower(); i <= series.array().upper(); ++i)
            found = found || series.array().number(i) != 0;
    });
    return found;
}

// Whether figures leave the series when it is moved on.
bool losesFigures(const iVKR_Company& company, DatumPeriod period, int periods) {
    bool loses = false;
    forEachSeries(company, period, [&](Datum, const Variant& series) {
        const VariantArray& held = series.array();
        for (int i = std::max(held.lower(), held.upper() - periods + 1); i <= held.upper(); ++i)
            loses = loses || held.number(i) != 0;
    });
    return loses;
}

void change(RecordSpan& span, const iVKR_Company& company, Datum datum, const Variant& after) {
    Variant before = readDatum(company, datum);
    if (before != after)
        span.changes.push_back({datum, std::nullopt, std::move(before), after});
}

void moveOn(RecordSpan& span, const iVKR_Company& company, DatumPeriod period, int periods) {
    span.added = periods;
    forEachSeries(company, period, [&](Datum datum, const Variant& series) {
        change(span, company, datum, movedOn(series, periods));
    });
    if (losesFigures(company, period, periods))
        span.told.emplace_back(period == DatumPeriod::year
                                   ? "The oldest years of the company leave the table."
                                   : "The oldest quarters of the company leave the table.");
}

std::string counted(int count, const char* one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

void leaveOut(RecordSpan& span, int periods, const char* one) {
    span.told.push_back(counted(periods, one) + " after the last one of the company " +
                        (periods == 1 ? "is" : "are") + " left out.");
}

// The year of the filings that the record has as its last one; nothing where it does not say.
std::optional<int> lastYearOf(const FiscalCalendar& calendar, const iVKR_Company& company) {
    const Date end = company.get_LastFYDate();
    for (const FiscalYear& year : calendar.years)
        if (!isAbsent(end) && std::abs(daysBetween(year.end, end)) <= sameYearEnd)
            return year.year;
    const int last = company.get_LastFY();
    return last == 0 ? std::nullopt : std::optional(last);
}

} // namespace

RecordSpan yearSpan(const FiscalCalendar& calendar, const iVKR_Company& company, bool adds) {
    RecordSpan span;
    if (calendar.years.empty() || !hasPlaces(company, DatumPeriod::year))
        return span;
    const FiscalYear& newest = calendar.years.back();
    const bool isEmpty = !hasFigures(company, DatumPeriod::year);
    const auto last = isEmpty ? newest.year : lastYearOf(calendar, company);
    if (!last) {
        span.told.emplace_back("Yearly figures are left out: the company has no last fiscal year.");
        return span;
    }
    const int later = std::max(0, newest.year - *last);
    span.later = later;
    span.placed = true;
    span.newestYear = later > 0 && adds ? newest.year : *last;
    if (later > 0 && !adds)
        leaveOut(span, later, "fiscal year");
    if (isEmpty || (later > 0 && adds)) {
        // A company may count its years otherwise.
        const int held = isEmpty ? newest.year : company.get_LastFY() + later;
        change(span, company, Datum::LastFY, static_cast<std::int16_t>(held));
        change(span, company, Datum::LastFYDate, newest.end);
        span.told.push_back((isEmpty ? "The last fiscal year becomes "
                                     : counted(later, "fiscal year") + " added: the last one is ") +
                            std::to_string(held) + ", to " + isoDateText(newest.end) + ".");
    }
    if (later > 0 && adds)
        moveOn(span, company, DatumPeriod::year, later);
    return span;
}

RecordSpan quarterSpan(const FiscalCalendar& calendar, const iVKR_Company& company, bool adds) {
    RecordSpan span;
    const auto quarters = calendar.quarters();
    if (quarters.empty() || !hasPlaces(company, DatumPeriod::quarter))
        return span;
    const Date newest = quarters.back().end;
    const bool isEmpty = !hasFigures(company, DatumPeriod::quarter);
    Date last = isEmpty ? newest : company.get_LastQDateForGrid();
    if (isAbsent(last))
        last = company.get_LastQDate();
    if (isAbsent(last)) {
        span.told.emplace_back("Quarterly figures are left out: the company has no last quarter.");
        return span;
    }
    const int later = std::max(0, nearestQuarters(last, newest));
    span.later = later;
    span.placed = true;
    span.newestQuarter = later > 0 && adds ? newest : last;
    if (later > 0 && !adds)
        leaveOut(span, later, "quarter");
    if (isEmpty || (later > 0 && adds)) {
        change(span, company, Datum::LastQDate, newest);
        change(span, company, Datum::LastQDateForGrid, newest);
        span.told.push_back((isEmpty
                                 ? "The last quarter becomes that to "
                                 : counted(later, "quarter") + " added: the last one is that to ") +
                            isoDateText(newest) + ".");
    }
    if (later > 0 && adds)
        moveOn(span, company, DatumPeriod::quarter, later);
    return span;
}

} // namespace vkr
