// SPDX-License-Identifier: MIT
// Dates of a company against each other and against today. A date by itself, without the figures
// that go by it, is only a suggestion.
#include "plausibility/checks.hpp"
#include "record/datum_titles.hpp"

#include <cmath>

namespace vkr::checks {

using enum Sureness;
using enum Datum;

namespace {

constexpr int quarterDays = 92;

bool hasAny(const CompanyFigures& figures, std::initializer_list<Datum> series) {
    for (const Datum one : series)
        for (int element = 0; element <= rowOf(one).upper; ++element)
            if (figures.at(one, element) != 0)
                return true;
    return false;
}

bool hasYears(const CompanyFigures& figures) {
    return hasAny(figures, {YRevenueSeries, YEPSSeries, YNetIncSeries, YCommEqSeries, YHighSeries});
}

bool hasQuarters(const CompanyFigures& figures) {
    return hasAny(figures, {QRevenueSeries, QEPSSeries, QNetIncSeries, QPTISeries});
}

} // namespace

// A year that ends in the first days of January belongs to the one before.
void yearUnlikeItsEnd(const CompanyFigures& figures, Report& report) {
    constexpr int firstDays = 7;
    const Date end = figures.date(LastFYDate);
    const int year = figures.lastFiscalYear();
    if (isAbsent(end) || year == 0 || !hasYears(figures))
        return;
    const int byDate = civil(addDays(end, -firstDays)).year;
    if (year == civil(end).year || year == byDate)
        return;
    report.speak(likely, {{LastFY, {}}, {LastFYDate, {}}}, 2,
                 {std::to_string(year), Report::day(end)});
}

void quarterBeforeYearEnd(const CompanyFigures& figures, Report& report) {
    const Date quarter = figures.date(LastQDateForGrid);
    const Date year = figures.date(LastFYDate);
    if (isAbsent(quarter) || isAbsent(year) || !hasQuarters(figures) || !hasYears(figures) ||
        daysBetween(quarter, year) < quarterDays / 2)
        return;
    report.speak(likely, {{LastQDateForGrid, {}}, {LastFYDate, {}}}, 2,
                 {Report::day(quarter), Report::day(year)});
}

void yearBehindQuarters(const CompanyFigures& figures, Report& report) {
    constexpr int yearDays = 4 * quarterDays - 10;
    const Date quarter = figures.date(LastQDateForGrid);
    const Date year = figures.date(LastFYDate);
    if (isAbsent(quarter) || isAbsent(year) || !hasQuarters(figures) || !hasYears(figures) ||
        daysBetween(year, quarter) < yearDays)
        return;
    report.speak(hint, {{LastFYDate, {}}, {LastQDateForGrid, {}}}, 2,
                 {Report::day(quarter), Report::day(year)});
}

void sourceBeforeQuarter(const CompanyFigures& figures, Report& report) {
    const Date source = figures.date(DateOfSource);
    const Date quarter = figures.date(LastQDateForGrid);
    if (isAbsent(source) || isAbsent(quarter) || daysBetween(source, quarter) <= 0 ||
        figures.at(QRevenueSeries, 0) == 0)
        return;
    report.speak(hint, {{DateOfSource, {}}, {LastQDateForGrid, {}}}, 2,
                 {Report::day(source), Report::day(quarter)});
}

void dayToCome(const CompanyFigures& figures, Report& report) {
    if (isAbsent(report.today()))
        return;
    const auto look = [&](Datum datum) {
        const Date date = figures.date(datum);
        if (!isAbsent(date) && daysBetween(report.today(), date) > 0)
            report.speak(likely, {{datum, {}}}, 1, {wordsOf(datum), Report::day(date)});
    };
    if (figures.number(CurrentPrice) != 0)
        look(PriceUpdatedDate);
    if (figures.at(YRevenueSeries, 1) != 0 || figures.at(YEPSSeries, 1) != 0)
        look(LastFYDate);
    if (figures.at(QRevenueSeries, 0) != 0 || figures.at(QEPSSeries, 0) != 0)
        look(LastQDateForGrid);
    look(DateOfSource);
    look(LastUpdate);
}

} // namespace vkr::checks
