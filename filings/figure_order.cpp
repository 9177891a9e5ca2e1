// SPDX-License-Identifier: MIT
#include "filings/figure_order.hpp"

#include <algorithm>

namespace vkr {

namespace {

constexpr Datum order[] = {
    Datum::YRevenueSeries, Datum::YPTISeries,     Datum::YTaxRateSeries, Datum::YNetIncSeries,
    Datum::YCommEqSeries,  Datum::YBookValSeries, Datum::YEPSSeries,     Datum::YDividendSeries,
    Datum::YCSOSeries,     Datum::QRevenueSeries, Datum::QPTISeries,     Datum::QTaxRateSeries,
    Datum::QNetIncSeries,  Datum::QEPSSeries,     Datum::Last4QEPS,      Datum::CommShares,
    Datum::DilutedShares,  Datum::TotalDebt,      Datum::PrefShares,
};

} // namespace

int figureOrder(Datum datum) {
    return static_cast<int>(std::ranges::find(order, datum) - order);
}

} // namespace vkr
