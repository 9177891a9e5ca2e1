// SPDX-License-Identifier: MIT
// A figure among those of the periods beside it. A figure is left out of what it is held against.
#include "plausibility/checks.hpp"
#include "plausibility/ratios.hpp"
#include "record/datum_titles.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

namespace vkr::checks {

using enum Sureness;
using enum Datum;

namespace {

constexpr Datum allSeries[] = {YRevenueSeries, YPTISeries,     YNetIncSeries,  YTaxRateSeries,
                               YCommEqSeries,  YBookValSeries, YEPSSeries,     YDividendSeries,
                               YHighSeries,    YLowSeries,     YCSOSeries,     QRevenueSeries,
                               QPTISeries,     QNetIncSeries,  QTaxRateSeries, QEPSSeries};
// Income and what goes with it turns over within a year.
constexpr Datum steadySeries[] = {YRevenueSeries, YCommEqSeries, YBookValSeries, YDividendSeries,
                                  YHighSeries,    YLowSeries,    YCSOSeries,     QRevenueSeries};

// A figure, what it is beside, and how many times those it is, on the average.
struct Jump {
    FigurePlace place;
    FigurePlace older;
    FigurePlace newer;
    // Where one of the three is missing neither is within any bounds.
    double times;
    double apart; // the larger of the other two by the smaller
};

Jump jumpOf(const CompanyFigures& figures, Datum series, int element, int older, int newer) {
    const double at = std::abs(figures.at(series, element));
    const double one = std::abs(figures.at(series, older));
    const double other = std::abs(figures.at(series, newer));
    return {{series, element},
            {series, older},
            {series, newer},
            std::sqrt(at / one * (at / other)),
            std::max(one, other) / std::min(one, other)};
}

// Between an older and a newer one.
Jump innerJump(const CompanyFigures& figures, Datum series, int element) {
    return jumpOf(figures, series, element, element + 1, element - 1);
}

int firstElement(Datum series) {
    return rowOf(series).period == DatumPeriod::year ? 1 : 0;
}

// Rates near zero jump by hundreds for no reason; what is worth telling is a fraction of one among
// percentages.
bool counts(const CompanyFigures& figures, const Jump& jump) {
    constexpr double usualRate = 5;
    return unitOf(jump.place.datum) != DatumUnit::percent ||
           std::min(figures.figure(jump.older), figures.figure(jump.newer)) >= usualRate;
}

void tell(Report& report, Sureness sureness, const Jump& jump) {
    report.speak(sureness, {jump.place, jump.older, jump.newer}, 1,
                 {wordsOf(jump.place.datum), report.period(jump.place), report.text(jump.place),
                  report.times(jump.times), report.text(jump.older), report.text(jump.newer)});
}

bool isByHundreds(const Jump& jump) {
    constexpr double apart = 10;
    constexpr double least = 31.7; // 100 divided by the root of ten
    constexpr double most = 3162;  // 1000 times it
    const double times = std::max(jump.times, 1 / jump.times);
    return jump.apart <= apart && times >= least && times <= most;
}

} // namespace

void jumpOfHundreds(const CompanyFigures& figures, Report& report) {
    for (const Datum series : allSeries)
        for (int element = firstElement(series) + 1; element < rowOf(series).upper; ++element)
            if (const Jump jump = innerJump(figures, series, element);
                isByHundreds(jump) && counts(figures, jump))
                tell(report, sure, jump);
}

void jumpOfTen(const CompanyFigures& figures, Report& report) {
    constexpr double apart = 3;
    constexpr double within = 1.3;
    for (const Datum series : steadySeries)
        for (int element = firstElement(series) + 1; element < rowOf(series).upper; ++element) {
            const Jump jump = innerJump(figures, series, element);
            if (jump.apart <= apart && !isByHundreds(jump) && powerOfTenNear(jump.times, within))
                tell(report, likely, jump);
        }
}

// The newest and the oldest figure have neighbours on one side alone.
void jumpAtEnd(const CompanyFigures& figures, Report& report) {
    for (const Datum series : allSeries) {
        const int first = firstElement(series);
        int newest = first;
        int oldest = rowOf(series).upper;
        while (newest < oldest && figures.at(series, newest) == 0)
            ++newest;
        while (oldest > newest && figures.at(series, oldest) == 0)
            --oldest;
        if (oldest - newest < 3)
            continue;
        const Jump ends[] = {jumpOf(figures, series, newest, newest + 2, newest + 1),
                             jumpOf(figures, series, oldest, oldest - 1, oldest - 2)};
        for (const Jump& jump : ends)
            if (isByHundreds(jump) && counts(figures, jump))
                tell(report, likely, jump);
    }
}

// Share counts and dividends that were left on another basis than those beside them.
void splitRatioJump(const CompanyFigures& figures, Report& report) {
    constexpr double apart = 1.15;
    constexpr double within = 1.05;
    for (const Datum series : {YCSOSeries, YDividendSeries})
        for (int year = 2; year < CompanyFigures::oldestYear; ++year) {
            const Jump jump = innerJump(figures, series, year);
            if (jump.apart <= apart && !powerOfTenNear(jump.times, within) &&
                splitRatioNear(jump.times, within))
                tell(report, likely, jump);
        }
}

// One price may double for a year; high and low together by the same ratio hardly do.
void pricesBySplitRatio(const CompanyFigures& figures, Report& report) {
    constexpr double apart = 1.5;
    constexpr double within = 1.1;
    constexpr double alike = 1.1;
    for (int year = 2; year < CompanyFigures::oldestYear; ++year) {
        const Jump high = innerJump(figures, YHighSeries, year);
        const Jump low = innerJump(figures, YLowSeries, year);
        if (!(high.apart <= apart) || !(low.apart <= apart) ||
            !isWithin(high.times, low.times, alike) ||
            !splitRatioNear(std::sqrt(high.times * low.times), within))
            continue;
        report.speak(likely, {high.place, low.place, high.older, high.newer, low.older, low.newer},
                     2,
                     {report.period(high.place), report.text(high.place), report.text(low.place),
                      report.times(high.times)});
    }
}

// The price at which one year ends is the one at which the next begins, but for a night.
void rangesApart(const CompanyFigures& figures, Report& report) {
    constexpr double overNight = 1.25;
    for (int year = 0; year < CompanyFigures::oldestYear; ++year) {
        const FigurePlace high{YHighSeries, year};
        const FigurePlace low{YLowSeries, year};
        const FigurePlace highBefore{YHighSeries, year + 1};
        const FigurePlace lowBefore{YLowSeries, year + 1};
        const auto above = [&](const FigurePlace& one, const FigurePlace& other) {
            return figures.figure(one) > figures.figure(other) * overNight;
        };
        if (figures.figure(high) > 0 && figures.figure(highBefore) > 0 &&
            (above(low, highBefore) || above(lowBefore, high)))
            report.speak(likely, {high, low, highBefore, lowBefore}, 4,
                         {report.period(highBefore), report.text(lowBefore),
                          report.text(highBefore), report.period(high), report.text(low),
                          report.text(high)});
    }
}

// More shares and smaller earnings from one year to the next, and so before it.
void splitStep(const CompanyFigures& figures, Report& report) {
    constexpr double step = 1.4;
    for (int year = 1; year < CompanyFigures::oldestYear; ++year) {
        const double shares = figures.at(YCSOSeries, year) / figures.at(YCSOSeries, year + 1);
        const double earnings =
            std::abs(figures.at(YEPSSeries, year + 1) / figures.at(YEPSSeries, year));
        if (!std::isfinite(shares) || !std::isfinite(earnings))
            continue;
        const bool up = shares > step && earnings > step;
        const bool down = shares > 0 && shares < 1 / step && earnings > 0 && earnings < 1 / step;
        if (!up && !down)
            continue;
        const FigurePlace after{YCSOSeries, year};
        const FigurePlace before{YCSOSeries, year + 1};
        report.speak(hint, {before, after, {YEPSSeries, year + 1}, {YEPSSeries, year}}, 2,
                     {report.period(before), report.period(after), report.text(before),
                      report.text(after), report.text({YEPSSeries, year + 1}),
                      report.text({YEPSSeries, year})});
    }
}

namespace {

// Figures of which a period should have either all or none, while those beside it have them. Of a
// pair the commit works one out from the other: either will do.
struct Expected {
    Datum datum;
    Datum standsIn;
};

std::string listed(const std::vector<FigurePlace>& places) {
    std::string text;
    for (std::size_t at = 0; at < places.size(); ++at) {
        if (at > 0)
            text += at + 1 == places.size() ? " and " : ", ";
        text += wordsOf(places[at].datum);
    }
    return text;
}

void tellGaps(const CompanyFigures& figures, Report& report, std::span<const Expected> expected,
              int first, int last) {
    const auto has = [&](const Expected& one, int element) {
        return figures.at(one.datum, element) != 0 || figures.at(one.standsIn, element) != 0;
    };
    for (int element = first + 1; element < last; ++element) {
        std::vector<FigurePlace> missing;
        for (const Expected& one : expected) {
            bool newer = false;
            bool older = false;
            for (int other = first; other < element && !newer; ++other)
                newer = has(one, other);
            for (int other = element + 1; other <= last && !older; ++other)
                older = has(one, other);
            if (newer && older && !has(one, element))
                missing.push_back({one.datum, element});
        }
        if (missing.empty())
            continue;
        const std::string names = listed(missing);
        const std::string period = report.period(missing.front());
        report.speak(likely, std::move(missing), 1, {period, names});
    }
}

} // namespace

void missingYear(const CompanyFigures& figures, Report& report) {
    static constexpr Expected expected[] = {
        {YRevenueSeries, YRevenueSeries}, {YPTISeries, YTaxRateSeries},
        {YNetIncSeries, YNetIncSeries},   {YEPSSeries, YEPSSeries},
        {YCommEqSeries, YBookValSeries},  {YHighSeries, YHighSeries},
        {YLowSeries, YLowSeries},         {YCSOSeries, YCSOSeries}};
    tellGaps(figures, report, expected, 1, CompanyFigures::oldestYear);
}

void missingQuarter(const CompanyFigures& figures, Report& report) {
    static constexpr Expected expected[] = {{QRevenueSeries, QRevenueSeries},
                                            {QEPSSeries, QEPSSeries},
                                            {QPTISeries, QTaxRateSeries},
                                            {QNetIncSeries, QNetIncSeries}};
    tellGaps(figures, report, expected, 0, CompanyFigures::oldestQuarter);
}

} // namespace vkr::checks
