// SPDX-License-Identifier: MIT
// One figure against another of the same company.
#include "plausibility/checks.hpp"
#include "plausibility/ratios.hpp"
#include "record/datum_titles.hpp"

#include <cmath>

namespace vkr::checks {

using enum Sureness;
using enum Datum;

namespace {

struct PeriodData {
    Datum earnings;
    Datum netIncome;
    Datum preTaxIncome;
    Datum taxRate;
    int first;
    int last;
};
constexpr PeriodData periods[] = {
    {YEPSSeries, YNetIncSeries, YPTISeries, YTaxRateSeries, 1, CompanyFigures::oldestYear},
    {QEPSSeries, QNetIncSeries, QPTISeries, QTaxRateSeries, 0, CompanyFigures::oldestQuarter},
};

bool differ(double one, double other) {
    return one * other < 0;
}

} // namespace

void highBelowLow(const CompanyFigures& figures, Report& report) {
    for (int year = 0; year <= CompanyFigures::oldestYear; ++year) {
        const FigurePlace high{YHighSeries, year};
        const FigurePlace low{YLowSeries, year};
        if (figures.figure(high) > 0 && figures.figure(high) < figures.figure(low))
            report.speak(sure, {high, low}, 2,
                         {report.period(high), report.text(high), report.text(low)});
    }
}

void rangeTooWide(const CompanyFigures& figures, Report& report) {
    constexpr double most = 12;
    for (int year = 0; year <= CompanyFigures::oldestYear; ++year) {
        const FigurePlace high{YHighSeries, year};
        const FigurePlace low{YLowSeries, year};
        if (figures.figure(low) > 0 && figures.figure(high) > figures.figure(low) * most)
            report.speak(hint, {high, low}, 2,
                         {report.period(high), report.text(high),
                          report.times(figures.figure(high) / figures.figure(low)),
                          report.text(low)});
    }
}

void rangeReversed(const CompanyFigures& figures, Report& report) {
    const FigurePlace high{High52W, {}};
    const FigurePlace low{Low52W, {}};
    if (figures.figure(high) > 0 && figures.figure(high) < figures.figure(low))
        report.speak(sure, {high, low}, 2, {report.text(high), report.text(low)});
}

void priceOutsideRange(const CompanyFigures& figures, Report& report) {
    const FigurePlace price{CurrentPrice, {}};
    const FigurePlace high{High52W, {}};
    const FigurePlace low{Low52W, {}};
    const double at = figures.figure(price);
    const double top = figures.figure(high);
    const double bottom = figures.figure(low);
    if (at <= 0 || (top > 0 && top < bottom))
        return; // the range itself has been told of
    if (at < bottom)
        report.speak(likely, {price, low}, 2,
                     {report.text(price), "below the 52-week low", report.text(low)});
    else if (top > 0 && at > top)
        report.speak(likely, {price, high}, 2,
                     {report.text(price), "above the 52-week high", report.text(high)});
}

void negativeFigure(const CompanyFigures& figures, Report& report) {
    constexpr Datum positive[] = {CurrentPrice,   CommDiv,         High52W,         Low52W,
                                  CommShares,     DilutedShares,   TotalDebt,       TotalCap,
                                  PrefDiv,        PrefShares,      InsiderHolding,  Institutional,
                                  YRevenueSeries, YDividendSeries, YHighSeries,     YLowSeries,
                                  YCSOSeries,     QRevenueSeries,  CommDivAlternate};
    for (const Datum datum : positive) {
        const DatumRow& row = rowOf(datum);
        for (int element = 0; element <= row.upper; ++element) {
            const FigurePlace place{datum, isSeries(row) ? std::optional(element) : std::nullopt};
            if (figures.figure(place) < 0)
                report.speak(sure, {place}, 1,
                             {wordsOf(datum),
                              isSeries(row) ? " of " + report.period(place) : std::string(),
                              report.text(place)});
        }
    }
}

void signOfEarnings(const CompanyFigures& figures, Report& report) {
    for (const PeriodData& of : periods)
        for (int element = of.first; element <= of.last; ++element) {
            const FigurePlace earnings{of.earnings, element};
            const FigurePlace income{of.netIncome, element};
            if (differ(figures.figure(earnings), figures.figure(income)))
                report.speak(sure, {earnings, income}, 2,
                             {report.period(earnings), report.text(earnings), report.text(income)});
        }
}

void signOfBookValue(const CompanyFigures& figures, Report& report) {
    for (int year = 0; year <= CompanyFigures::oldestYear; ++year) {
        const FigurePlace book{YBookValSeries, year};
        const FigurePlace equity{YCommEqSeries, year};
        if (differ(figures.figure(book), figures.figure(equity)))
            report.speak(sure, {book, equity}, 2,
                         {report.period(book), report.text(book), report.text(equity)});
    }
}

// Above 100 % of taxes a gain becomes a loss: then the rate says so.
void signOfPreTaxIncome(const CompanyFigures& figures, Report& report) {
    constexpr double whole = 100;
    for (const PeriodData& of : periods)
        for (int element = of.first; element <= of.last; ++element) {
            const FigurePlace before{of.preTaxIncome, element};
            const FigurePlace income{of.netIncome, element};
            if (differ(figures.figure(before), figures.figure(income)) &&
                figures.at(of.taxRate, element) <= whole)
                report.speak(hint, {before, income}, 2,
                             {report.period(before), report.text(before), report.text(income)});
        }
}

void preferredAboveIncome(const CompanyFigures& figures, Report& report) {
    const FigurePlace preferred{PrefDiv, {}};
    const FigurePlace income{YNetIncSeries, 1};
    if (figures.figure(income) > 0 && figures.figure(preferred) > figures.figure(income))
        report.speak(likely, {preferred, income}, 2,
                     {report.text(preferred), report.text(income), report.period(income)});
}

void dilutedBelowCommon(const CompanyFigures& figures, Report& report) {
    const FigurePlace diluted{DilutedShares, {}};
    const FigurePlace common{CommShares, {}};
    const double fewer = figures.figure(diluted);
    const double more = figures.figure(common);
    constexpr double byDates = 0.95; // an average over a year against the count of a day
    if (fewer > 0 && fewer < more)
        report.speak(fewer < more * byDates ? likely : hint, {diluted, common}, 2,
                     {report.text(diluted), report.text(common)});
}

void shareCountsApart(const CompanyFigures& figures, Report& report) {
    constexpr double apart = 1.4;
    constexpr double near = 1.2;
    const FigurePlace last{YCSOSeries, 1};
    for (const Datum datum : {CommShares, DilutedShares}) {
        const FigurePlace card{datum, {}};
        const double ratio = figures.figure(card) / figures.figure(last);
        if (figures.figure(card) > 0 && figures.figure(last) > 0 && !isWithin(ratio, 1, apart))
            report.speak(powerOfTenNear(ratio, near) ? sure : likely, {card, last}, 2,
                         {wordsOf(datum), report.text(card), report.times(ratio),
                          report.period(last), report.text(last)});
    }
}

} // namespace vkr::checks
