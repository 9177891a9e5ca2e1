// SPDX-License-Identifier: MIT
#include "filings/record_span.hpp"

#include "company/exact_text.hpp"
#include "company/period_moves.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <utility>

namespace vkr {

namespace {

constexpr int sameYearEnd = 20; // days by which two ends of a fiscal year may differ

const char* nameOf(DatumPeriod period) {
    return period == DatumPeriod::year ? "year" : "quarter";
}

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

// The elements that leave their series when these are moved on, and have a figure.
template <typename Visit>
void forEachLeaving(const iVKR_Company& company, DatumPeriod period, int periods, Visit visit) {
    forEachSeries(company, period, [&](Datum datum, const Variant& series) {
        const VariantArray& held = series.array();
        for (int i = std::max(held.lower(), held.upper() - periods + 1); i <= held.upper(); ++i)
            if (held.number(i) != 0)
                visit(datum, i, held.number(i));
    });
}

std::vector<ReplacedFigure> typedOnesLeaving(const iVKR_Company& company, DatumPeriod period,
                                             int periods, const OriginQuery& originOf) {
    std::vector<ReplacedFigure> leaving;
    forEachLeaving(company, period, periods, [&](Datum datum, int element, double figure) {
        if (!mayBeByHand(originOf ? originOf(datum, element) : std::nullopt))
            return;
        leaving.push_back({.datum = datum,
                           .element = element,
                           .period = periodText(rowOf(datum), company, element),
                           .stored = exactNumberText(figure),
                           .imported = {},
                           .leaves = ReplacedFigure::Leaves::tooOld});
    });
    return leaving;
}

// "Yearly Revenue 2015: 999, ...", as many as people read.
std::string listed(const std::vector<ReplacedFigure>& figures) {
    constexpr std::size_t most = 12;
    std::string text;
    for (std::size_t i = 0; i < std::min(most, figures.size()); ++i)
        text += (i == 0 ? "" : ", ") + titleOf(figures[i]) + ": " + figures[i].stored;
    return figures.size() <= most
               ? text
               : text + " and " + std::to_string(figures.size() - most) + " more";
}

void change(RecordSpan& span, const iVKR_Company& company, Datum datum, const Variant& after) {
    Variant before = readDatum(company, datum);
    if (before != after)
        span.changes.push_back({datum, std::nullopt, std::move(before), after});
}

std::string counted(int count, const char* one) {
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

// "The oldest years of the company leave the table: 2014 to 2015, with 18 figures that were
// imported or worked out." Nothing where they have no figure.
std::string toldLeaving(const RecordSpan& span, const iVKR_Company& company, DatumPeriod period,
                        int periods) {
    std::map<int, std::string> leaving; // by element, the newest first
    int figures = -static_cast<int>(span.leaving.size());
    forEachLeaving(company, period, periods, [&](Datum datum, int element, double) {
        leaving.try_emplace(element, periodText(rowOf(datum), company, element));
        ++figures;
    });
    if (leaving.empty())
        return {};
    const bool isOne = leaving.size() == 1;
    std::string told = std::string("The oldest ") + nameOf(period) +
                       (isOne ? " of the company leaves" : "s of the company leave") +
                       " the table: " + leaving.rbegin()->second;
    if (!isOne)
        told += " to " + leaving.begin()->second;
    if (figures > 0)
        told += ", with " + counted(figures, "figure") + " that " +
                (figures == 1 ? "was" : "were") + " imported or worked out";
    if (!span.leaving.empty())
        told += std::string(figures > 0 ? ", and" : ", with") +
                " what was typed, or may have been: " + listed(span.leaving);
    return told + ".";
}

// " It takes the place of 2025-09-30, which was typed.": of dates that a person has put there, or
// may have.
std::string toldReplaced(const iVKR_Company& company, std::initializer_list<Datum> dates,
                         Date after, const OriginQuery& originOf) {
    struct Known {
        bool byHand = false;
        bool otherwise = false; // then a second date only follows it
    };
    std::map<Date, Known> replaced;
    for (const Datum datum : dates) {
        Date before;
        ifPossible([&] { before = readDate(company, datum); });
        if (isAbsent(before) || before == after)
            continue;
        const auto origin = originOf ? originOf(datum, std::nullopt) : std::nullopt;
        Known& known = replaced[before];
        known.byHand |= origin == Origin::typed || origin == Origin::pasted;
        known.otherwise |= !mayBeByHand(origin);
    }
    std::string told;
    for (const auto& [date, known] : replaced)
        if (known.byHand || !known.otherwise)
            told += (told.empty() ? " It takes the place of " : ", and of ") + isoDateText(date) +
                    (known.byHand ? ", which was typed" : ", which may be typed");
    return told.empty() ? told : told + ".";
}

void moveOn(RecordSpan& span, const iVKR_Company& company, DatumPeriod period, int periods) {
    span.added = periods;
    forEachSeries(company, period, [&](Datum datum, const Variant& series) {
        change(span, company, datum, movedOn(series, periods));
    });
    if (std::string told = toldLeaving(span, company, period, periods); !told.empty())
        span.toldOfChanges.push_back(std::move(told));
}

void leaveOut(RecordSpan& span, const char* one) {
    const bool isOne = span.later == 1;
    span.told.push_back(counted(span.later, one) + " after the last one of the company " +
                        (isOne ? "is" : "are") + " left out");
    span.told.back() += span.leaving.empty()
                            ? "."
                            : std::string(". With ") + (isOne ? "it" : "them") +
                                  " what was typed, or may have been, would leave the table: " +
                                  listed(span.leaving) + ".";
}

// How many later periods there are, what they would push out, and whether they are added.
bool addsLater(RecordSpan& span, int later, const iVKR_Company& company, DatumPeriod period,
               Adding adding, const OriginQuery& originOf) {
    span.later = std::max(0, later);
    if (span.later > 0)
        span.leaving = typedOnesLeaving(company, period, span.later, originOf);
    return span.later > 0 && (adding == Adding::always ||
                              (adding == Adding::whereNothingTypedLeaves && span.leaving.empty()));
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

RecordSpan yearSpan(const FiscalCalendar& calendar, const iVKR_Company& company, Adding adding,
                    const OriginQuery& originOf) {
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
    const bool adds =
        addsLater(span, newest.year - *last, company, DatumPeriod::year, adding, originOf);
    span.placed = true;
    span.newestYear = adds ? newest.year : *last;
    if (span.later > 0 && !adds)
        leaveOut(span, "fiscal year");
    if (isEmpty || adds) {
        // A company may count its years otherwise.
        const int held = isEmpty ? newest.year : company.get_LastFY() + span.later;
        change(span, company, Datum::LastFY, static_cast<std::int16_t>(held));
        change(span, company, Datum::LastFYDate, newest.end);
        span.toldOfChanges.push_back(
            (isEmpty ? "The last fiscal year becomes "
                     : counted(span.later, "fiscal year") + " added: the last one is ") +
            std::to_string(held) + ", to " + isoDateText(newest.end) + "." +
            toldReplaced(company, {Datum::LastFYDate}, newest.end, originOf));
    }
    if (adds)
        moveOn(span, company, DatumPeriod::year, span.later);
    return span;
}

RecordSpan quarterSpan(const FiscalCalendar& calendar, const iVKR_Company& company, Adding adding,
                       const OriginQuery& originOf) {
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
    const bool adds = addsLater(span, nearestQuarters(last, newest), company, DatumPeriod::quarter,
                                adding, originOf);
    span.placed = true;
    span.newestQuarter = adds ? newest : last;
    if (span.later > 0 && !adds)
        leaveOut(span, "quarter");
    if (isEmpty || adds) {
        change(span, company, Datum::LastQDate, newest);
        change(span, company, Datum::LastQDateForGrid, newest);
        span.toldOfChanges.push_back(
            (isEmpty ? "The last quarter becomes that to "
                     : counted(span.later, "quarter") + " added: the last one is that to ") +
            isoDateText(newest) + "." +
            toldReplaced(company, {Datum::LastQDate, Datum::LastQDateForGrid}, newest, originOf));
    }
    if (adds)
        moveOn(span, company, DatumPeriod::quarter, span.later);
    return span;
}

} // namespace vkr
