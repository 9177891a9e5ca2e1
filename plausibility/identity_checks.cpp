// SPDX-License-Identifier: MIT
// Several figures that make up another one.
#include "plausibility/checks.hpp"
#include "plausibility/ratios.hpp"
#include "record/datum_titles.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <utility>

namespace vkr::checks {

using enum Sureness;
using enum Datum;

namespace {

constexpr double whole = 100; // of a percentage
constexpr double byPowerOfTen = 1.1;

// A year and its four quarters, all of them known.
struct YearOfQuarters {
    std::vector<FigurePlace> places; // the year in front
    double year;
    double sum;
    double unit;   // that of the coarsest of them
    double finest; // and of the finest quarter
};

// Figures of some size that end on noughts do so by chance, or were rounded a little: a unit above
// one counts as far as a thousandth of the figure.
double likelyUnit(double unit, double figure) {
    constexpr double share = 0.001;
    return std::min(unit, std::max(1.0, share * std::abs(figure)));
}

// The quarters of a year come from like documents: the finest of them tells what they are given
// in, as a figure may end on a nought by chance.
std::optional<YearOfQuarters> gather(const CompanyFigures& figures, Datum yearly, Datum quarterly,
                                     int year) {
    const int newest = figures.newestQuarterOf(year);
    const double ofYear = figures.at(yearly, year);
    if (ofYear == 0)
        return std::nullopt;
    std::vector<FigurePlace> places{{yearly, year}};
    double sum = 0;
    double finest = unitOfFigure(figures.at(quarterly, newest));
    for (int quarter = newest; quarter < newest + quartersPerYear; ++quarter) {
        const double figure = figures.at(quarterly, quarter);
        if (figure == 0)
            return std::nullopt;
        places.push_back({quarterly, quarter});
        sum += figure;
        finest = std::min(finest, unitOfFigure(figure));
    }
    const double unit = likelyUnit(std::max(finest, unitOfFigure(ofYear)), ofYear);
    return YearOfQuarters{std::move(places), ofYear, sum, unit, finest};
}

void tellSum(Report& report, Sureness sureness, const YearOfQuarters& found) {
    const FigurePlace& year = found.places.front();
    const DatumUnit unit = unitOf(year.datum);
    report.speak(sureness, found.places, found.places.size(),
                 {wordsOf(year.datum), report.period(year),
                  report.text(roundedTo(found.finest, found.sum), unit), report.text(year)});
}

// A product of two figures against a third, by its own bound.
struct Product {
    FigurePlace one;
    FigurePlace other;
    FigurePlace whole;
    double made;
    double bound; // relative
};

void compareProduct(const CompanyFigures& figures, Report& report, const Product& product,
                    Sureness sureness) {
    const double expected = figures.figure(product.whole);
    const double ratio = product.made / expected;
    if (!(ratio > 0) || !std::isfinite(ratio) || std::abs(ratio - 1) <= product.bound)
        return;
    const double shown = roundedToPart(1000, product.made);
    report.speak(powerOfTenNear(ratio, byPowerOfTen) ? sure : sureness,
                 {product.one, product.other, product.whole}, 3,
                 {report.period(product.whole), report.text(product.one),
                  report.text(product.other), report.text(shown, unitOf(product.whole.datum)),
                  report.text(product.whole)});
}

} // namespace

void quartersAgainstYear(const CompanyFigures& figures, Report& report) {
    struct Pair {
        Datum yearly;
        Datum quarterly;
    };
    constexpr Pair pairs[] = {
        {YRevenueSeries, QRevenueSeries}, {YPTISeries, QPTISeries}, {YNetIncSeries, QNetIncSeries}};
    constexpr double units = 2.0001; // two, but for binary noise
    constexpr double much = 0.1;
    for (const auto& [yearly, quarterly] : pairs)
        for (int year = 1; year <= CompanyFigures::oldestYear; ++year) {
            const auto found = gather(figures, yearly, quarterly, year);
            if (!found)
                continue;
            const double off = std::abs(found->sum - found->year);
            if (off > units * found->unit)
                tellSum(report, off > much * std::abs(found->year) ? sure : likely, *found);
        }
}

void quarterlyEarningsAgainstYear(const CompanyFigures& figures, Report& report) {
    constexpr double cents = 0.03;
    constexpr double centsBeforeSplit = 0.015; // with more than two decimals
    constexpr double cent = 0.01;
    constexpr double share = 0.02;
    constexpr double much = 0.1;
    for (int year = 1; year <= CompanyFigures::oldestYear; ++year) {
        const auto found = gather(figures, YEPSSeries, QEPSSeries, year);
        if (!found)
            continue;
        const double off = std::abs(found->sum - found->year);
        const double least = found->unit < cent * 0.99 ? centsBeforeSplit : cents;
        if (off > std::max(least, share * std::abs(found->year)) + 1e-9)
            tellSum(report, off > much * std::abs(found->year) ? likely : hint, *found);
    }
}

// The preferred dividends are those of one year alone, and part of earlier ones, too.
void earningsTimesShares(const CompanyFigures& figures, Report& report) {
    constexpr double share = 0.05;
    constexpr double halfCent = 0.005;
    constexpr double beyondHalfCent = 0.01;
    for (int year = 1; year <= CompanyFigures::oldestYear; ++year) {
        const double earnings = figures.at(YEPSSeries, year);
        const double shares = figures.at(YCSOSeries, year);
        const double income = figures.at(YNetIncSeries, year);
        const double bound = std::max(share, halfCent / std::abs(earnings) + beyondHalfCent);
        const double toCommon = income - figures.number(PrefDiv);
        if (std::abs(earnings * shares / toCommon - 1) <= bound)
            continue;
        compareProduct(figures, report,
                       {{YEPSSeries, year},
                        {YCSOSeries, year},
                        {YNetIncSeries, year},
                        earnings * shares,
                        bound},
                       likely);
    }
}

// Shares are known by the year: those of a quarter lie between the years beside it.
void quarterlyEarningsTimesShares(const CompanyFigures& figures, Report& report) {
    constexpr double share = 1.15;
    constexpr double halfCent = 0.005;
    for (int quarter = 0; quarter <= CompanyFigures::oldestQuarter; ++quarter) {
        const double earnings = figures.at(QEPSSeries, quarter);
        const double income = figures.at(QNetIncSeries, quarter);
        const int year = figures.yearOf(quarter);
        const double shares = figures.at(YCSOSeries, year);
        const double implied = income / earnings;
        if (!(implied > 0) || !std::isfinite(implied) || shares <= 0)
            continue;
        double fewest = shares;
        double most = shares;
        for (const int beside : {year - 1, year + 1})
            if (const double count = figures.at(YCSOSeries, beside); count > 0) {
                fewest = std::min(fewest, count);
                most = std::max(most, count);
            }
        const double nearest = std::clamp(implied, fewest / share, most * share);
        if (implied == nearest || std::abs(earnings - income / nearest) <= halfCent)
            continue;
        report.speak(powerOfTenNear(implied / shares, share) ? sure : hint,
                     {{QEPSSeries, quarter}, {QNetIncSeries, quarter}, {YCSOSeries, year}}, 3,
                     {report.period({QEPSSeries, quarter}), report.text({QEPSSeries, quarter}),
                      report.text({QNetIncSeries, quarter}),
                      report.text(roundedToPart(10, implied), DatumUnit::shares),
                      report.period({YCSOSeries, year}), report.text({YCSOSeries, year})});
    }
}

void bookValueTimesShares(const CompanyFigures& figures, Report& report) {
    constexpr double share =
        0.25; // the shares are an average of the year, the equity that of a day
    for (int year = 1; year <= CompanyFigures::oldestYear; ++year)
        compareProduct(figures, report,
                       {{YBookValSeries, year},
                        {YCSOSeries, year},
                        {YCommEqSeries, year},
                        figures.at(YBookValSeries, year) * figures.at(YCSOSeries, year),
                        share},
                       hint);
}

void incomeAfterTax(const CompanyFigures& figures, Report& report) {
    struct Data {
        Datum before;
        Datum rate;
        Datum after;
        int first;
        double share; // of pre-tax income
    };
    constexpr Data all[] = {{YPTISeries, YTaxRateSeries, YNetIncSeries, 1, 0.15},
                            {QPTISeries, QTaxRateSeries, QNetIncSeries, 0, 0.25}};
    constexpr double units = 2;
    constexpr double much = 0.5;
    for (const auto& [before, rate, after, first, share] : all)
        for (int element = first; element <= rowOf(before).upper; ++element) {
            const double income = figures.at(before, element);
            const double taken = figures.at(rate, element);
            const double left = figures.at(after, element);
            if (income == 0 || taken == 0 || left == 0)
                continue;
            const double expected = income * (1 - taken / whole);
            const auto [finest, unit] = std::minmax({unitOfFigure(income), unitOfFigure(left)});
            const double off = std::abs(expected - left);
            if (off <= std::max(units * likelyUnit(unit, income), share * std::abs(income)))
                continue;
            report.speak(
                powerOfTenNear(expected / left, byPowerOfTen) ? sure
                : off > much * std::abs(income)               ? likely
                                                              : hint,
                {{after, element}, {before, element}, {rate, element}}, 3,
                {report.period({after, element}), report.text({before, element}),
                 report.text({rate, element}),
                 report.text(roundedTo(likelyUnit(finest, expected), expected), DatumUnit::money),
                 report.text({after, element})});
        }
}

} // namespace vkr::checks
