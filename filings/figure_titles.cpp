// SPDX-License-Identifier: MIT
#include "filings/figure_titles.hpp"

#include <algorithm>
#include <string_view>

namespace vkr {

namespace {

struct TitleRow {
    Datum datum;
    std::string_view title;
};

constexpr TitleRow titles[] = {
    {Datum::YRevenueSeries, "Revenue"},
    {Datum::YPTISeries, "Pre-tax income"},
    {Datum::YTaxRateSeries, "Tax rate"},
    {Datum::YNetIncSeries, "Net income"},
    {Datum::YCommEqSeries, "Common equity"},
    {Datum::YBookValSeries, "Book value per share"},
    {Datum::YEPSSeries, "Earnings per share"},
    {Datum::YDividendSeries, "Dividend per share"},
    {Datum::YCSOSeries, "Diluted shares"},
    {Datum::QRevenueSeries, "Revenue of the quarter"},
    {Datum::QPTISeries, "Pre-tax income of the quarter"},
    {Datum::QTaxRateSeries, "Tax rate of the quarter"},
    {Datum::QNetIncSeries, "Net income of the quarter"},
    {Datum::QEPSSeries, "Earnings per share of the quarter"},
    {Datum::CommShares, "Common shares"},
    {Datum::DilutedShares, "Diluted shares, newest"},
    {Datum::TotalDebt, "Total debt"},
    {Datum::PrefShares, "Preferred stock"},
};

} // namespace

std::string figureTitle(Datum datum) {
    const auto* row = std::ranges::find(titles, datum, &TitleRow::datum);
    return std::string(row == std::end(titles) ? rowOf(datum).name : row->title);
}

int figureOrder(Datum datum) {
    return static_cast<int>(std::ranges::find(titles, datum, &TitleRow::datum) - titles);
}

} // namespace vkr
