// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"
#include "platform/variant.hpp"

#include <cstdint>
#include <string>

namespace vkr {

// Every datum of a record that can be read and written, declared once, at the end of this file. The
// enumeration of data, their table, the members of the record classes, the columns of the store and
// the rows and columns of the CSV files follow from it.

// What an element of a series stands for.
enum class DatumPeriod { none, year, quarter };

// What a datum is: the type that it is read as, the one that it is written as, and "no value".
namespace datum_kind {

struct Single {
    static constexpr auto period = DatumPeriod::none;
    static constexpr int upper = 0;
};
struct Text : Single {
    using Value = std::string;
    using Argument = const std::string&;
    static Value absent() { return {}; }
};
struct Number : Single {
    using Value = double;
    using Argument = double;
    static Value absent() { return 0; }
};
struct Year : Single {
    using Value = std::int16_t;
    using Argument = std::int16_t;
    static Value absent() { return 0; }
};
struct Day : Single {
    using Value = Date;
    using Argument = Date;
    static Value absent() { return {}; }
};
// A series has the bounds 0 to `upper` in a record that has all of it.
struct Series {
    using Value = Variant;
    using Argument = const Variant&;
    static Value absent() { return VariantArray(); } // without elements
};
struct Yearly : Series {
    static constexpr auto period = DatumPeriod::year;
    static constexpr int upper = 10;
};
struct Quarterly : Series {
    static constexpr auto period = DatumPeriod::quarter;
    static constexpr int upper = 34;
};

} // namespace datum_kind

// What a figure is given in.
enum class DatumUnit {
    none,     // no figure
    money,    // millions of the company's currency
    perShare, // of that currency
    percent,  // 35.5 for 35.5 %
    shares,   // millions
};

// kind   a type of datum_kind
// name   of the property: iVKR_Company has get_<name> and put_<name> of that kind
// unit   a value of DatumUnit
// key    names the datum's row in a company's CSV file, a series' column in the file of its period;
//        ends with _musd for money, with _pct for percent
// place  of that row or column in its file, rising; of equal ones the upper one here comes first
//
// To be used with a macro of these five arguments, which declares what is wanted of one datum.
//
// clang-format off
#define VKR_DATA(ROW)                                                           \
    /*  kind       name              unit      key                       place */ \
    ROW(Text,      Exchange,         none,     "exchange",                   3) \
    ROW(Text,      Industry,         none,     "industry",                   4) \
    ROW(Text,      Source,           none,     "source",                     5) \
    ROW(Number,    CurrentPrice,     perShare, "current_price",             17) \
    ROW(Number,    CommDiv,          perShare, "common_dividend",           21) \
    ROW(Year,      LastFY,           none,     "last_fiscal_year",          36) \
    ROW(Number,    High52W,          perShare, "high_52_weeks",             19) \
    ROW(Number,    Low52W,           perShare, "low_52_weeks",              20) \
    ROW(Number,    CommShares,       shares,   "common_shares",             25) \
    ROW(Number,    DilutedShares,    shares,   "diluted_shares",            26) \
    ROW(Number,    TotalDebt,        money,    "total_debt_musd",           27) \
    ROW(Number,    Last4QEPS,        perShare, "eps_last_4_quarters",       23) \
    ROW(Number,    TaxRate,          percent,  "tax_rate_pct",              31) \
    ROW(Number,    PrefDiv,          money,    "preferred_dividends_musd",  30) \
    ROW(Number,    TotalCap,         money,    "total_capitalization_musd", 28) \
    ROW(Number,    InsiderHolding,   percent,  "insider_holding_pct",       32) \
    ROW(Number,    Institutional,    percent,  "institutional_holding_pct", 33) \
    ROW(Text,      Name,             none,     "name",                       1) \
    ROW(Text,      Symbol,           none,     "symbol",                     2) \
    ROW(Day,       DateOfSource,     none,     "source_date",                6) \
    ROW(Day,       PriceUpdatedDate, none,     "price_date",                18) \
    ROW(Number,    PrefShares,       money,    "preferred_stock_musd",      29) \
    ROW(Day,       LastQDate,        none,     "last_quarter_end",          38) \
    ROW(Day,       LastFYDate,       none,     "last_fiscal_year_end",      37) \
    ROW(Number,    ORBEPSProj,       perShare, "eps_projected",             24) \
    ROW(Text,      Address1,         none,     "address1",                   8) \
    ROW(Text,      Address2,         none,     "address2",                   9) \
    ROW(Text,      City,             none,     "city",                      10) \
    ROW(Text,      State,            none,     "state",                     11) \
    ROW(Text,      Zip,              none,     "zip",                       12) \
    ROW(Text,      Country,          none,     "country",                   13) \
    ROW(Text,      Internet,         none,     "internet",                  14) \
    ROW(Text,      Tel,              none,     "tel",                       15) \
    ROW(Text,      ContactPerson,    none,     "contact_person",            16) \
    ROW(Text,      VLTimeliness,     none,     "timeliness",                34) \
    ROW(Text,      VLSafety,         none,     "safety",                    35) \
    ROW(Number,    CommDivAlternate, perShare, "common_dividend_alternate", 22) \
    ROW(Day,       LastQDateForGrid, none,     "grid_quarter_end",          39) \
    ROW(Day,       LastUpdate,       none,     "last_update",                7) \
    ROW(Text,      Notes,            none,     "notes",                     40) \
    ROW(Quarterly, QPTISeries,       money,    "pretax_income_musd",         3) \
    ROW(Yearly,    YCSOSeries,       shares,   "shares_musd",               11) \
    ROW(Yearly,    YTaxRateSeries,   percent,  "tax_rate_pct",               3) \
    ROW(Yearly,    YCommEqSeries,    money,    "common_equity_musd",         5) \
    ROW(Quarterly, QNetIncSeries,    money,    "net_income_musd",            5) \
    ROW(Quarterly, QRevenueSeries,   money,    "revenue_musd",               1) \
    ROW(Quarterly, QTaxRateSeries,   percent,  "tax_rate_pct",               4) \
    ROW(Quarterly, QEPSSeries,       perShare, "eps",                        2) \
    ROW(Yearly,    YPTISeries,       money,    "pretax_income_musd",         2) \
    ROW(Yearly,    YDividendSeries,  perShare, "dividend",                   8) \
    ROW(Yearly,    YRevenueSeries,   money,    "revenue_musd",               1) \
    ROW(Yearly,    YHighSeries,      perShare, "high",                       9) \
    ROW(Yearly,    YNetIncSeries,    money,    "net_income_musd",            4) \
    ROW(Yearly,    YBookValSeries,   perShare, "book_value_per_share",       6) \
    ROW(Yearly,    YLowSeries,       perShare, "low",                       10) \
    ROW(Yearly,    YEPSSeries,       perShare, "eps",                        7) \
    /* The next datum stands here, its operations at the end of iVKR_Company. */
// clang-format on

} // namespace vkr
