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
// title  what people call it: the caption of its field or column, but for a unit in one, words that
//        the place on the form stands for, and two data that have one caption between them
// unit   a value of DatumUnit
// key    names the datum's row in a company's CSV file, a series' column in the file of its period;
//        ends with _musd for money, with _pct for percent
// place  of that row or column in its file, rising; of equal ones the upper one here comes first
//
// To be used with a macro of these six arguments, which declares what is wanted of one datum.
//
// Of the first data iVKR_Company declares the operations itself, in the order of the interface. It
// has those of a further datum from its line.
//
// clang-format off
#define VKR_FIRST_DATA(ROW)                                                                                    \
    /*  kind       name              title                          unit      key                      place */\
    ROW(Text,      Exchange,         "Exchange",                    none,     "exchange",                   3) \
    ROW(Text,      Industry,         "Industry",                    none,     "industry",                   4) \
    ROW(Text,      Source,           "Source",                      none,     "source",                     5) \
    ROW(Number,    CurrentPrice,     "Current Price",               perShare, "current_price",             17) \
    ROW(Number,    CommDiv,          "Common Dividends",            perShare, "common_dividend",           21) \
    ROW(Year,      LastFY,           "Last Fiscal Year",            none,     "last_fiscal_year",          36) \
    ROW(Number,    High52W,          "52 Week High",                perShare, "high_52_weeks",             19) \
    ROW(Number,    Low52W,           "52 Week Low",                 perShare, "low_52_weeks",              20) \
    ROW(Number,    CommShares,       "Common Shares",               shares,   "common_shares",             25) \
    ROW(Number,    DilutedShares,    "Diluted Shares",              shares,   "diluted_shares",            26) \
    ROW(Number,    TotalDebt,        "Total Debt",                  money,    "total_debt_musd",           27) \
    ROW(Number,    Last4QEPS,        "Last 4Q EPS",                 perShare, "eps_last_4_quarters",       23) \
    ROW(Number,    TaxRate,          "Est. Tax Rate",               percent,  "tax_rate_pct",              31) \
    ROW(Number,    PrefDiv,          "Preferred Dividends",         money,    "preferred_dividends_musd",  30) \
    ROW(Number,    TotalCap,         "Total Capital",               money,    "total_capitalization_musd", 28) \
    ROW(Number,    InsiderHolding,   "Insider Holding",             percent,  "insider_holding_pct",       32) \
    ROW(Number,    Institutional,    "Institutional Holding",       percent,  "institutional_holding_pct", 33) \
    ROW(Text,      Name,             "Name",                        none,     "name",                       1) \
    ROW(Text,      Symbol,           "Symbol",                      none,     "symbol",                     2) \
    ROW(Day,       DateOfSource,     "Date of Source",              none,     "source_date",                6) \
    ROW(Day,       PriceUpdatedDate, "Price Update Date",           none,     "price_date",                18) \
    ROW(Number,    PrefShares,       "Preferred Shares",            money,    "preferred_stock_musd",      29) \
    ROW(Day,       LastQDate,        "Date of Last Quarter",        none,     "last_quarter_end",          38) \
    ROW(Day,       LastFYDate,       "Date of Last FY",             none,     "last_fiscal_year_end",      37) \
    ROW(Number,    ORBEPSProj,       "ORB EPS Projection",          perShare, "eps_projected",             24) \
    ROW(Text,      Address1,         "Address",                     none,     "address1",                   8) \
    ROW(Text,      Address2,         "Address, Second Line",        none,     "address2",                   9) \
    ROW(Text,      City,             "City",                        none,     "city",                      10) \
    ROW(Text,      State,            "State/Province",              none,     "state",                     11) \
    ROW(Text,      Zip,              "Zip/Postal",                  none,     "zip",                       12) \
    ROW(Text,      Country,          "Country",                     none,     "country",                   13) \
    ROW(Text,      Internet,         "Internet",                    none,     "internet",                  14) \
    ROW(Text,      Tel,              "Telephone",                   none,     "tel",                       15) \
    ROW(Text,      ContactPerson,    "Contact Person",              none,     "contact_person",            16) \
    ROW(Text,      VLTimeliness,     "VL Timeliness",               none,     "timeliness",                34) \
    ROW(Text,      VLSafety,         "VL Safety",                   none,     "safety",                    35) \
    ROW(Number,    CommDivAlternate, "Common Dividends, Alternate", perShare, "common_dividend_alternate", 22) \
    ROW(Day,       LastQDateForGrid, "Newest Quarter of the Table", none,     "grid_quarter_end",          39) \
    ROW(Day,       LastUpdate,       "Last Update",                 none,     "last_update",                7) \
    ROW(Text,      Notes,            "Notes",                       none,     "notes",                     40) \
    ROW(Quarterly, QPTISeries,       "Pre-Tax Income",              money,    "pretax_income_musd",         3) \
    ROW(Yearly,    YCSOSeries,       "Shares Outstanding",          shares,   "shares_musd",               11) \
    ROW(Yearly,    YTaxRateSeries,   "Tax Rate",                    percent,  "tax_rate_pct",               3) \
    ROW(Yearly,    YCommEqSeries,    "Common Equity",               money,    "common_equity_musd",         5) \
    ROW(Quarterly, QNetIncSeries,    "Net Income",                  money,    "net_income_musd",            5) \
    ROW(Quarterly, QRevenueSeries,   "Revenue",                     money,    "revenue_musd",               1) \
    ROW(Quarterly, QTaxRateSeries,   "Tax Rate",                    percent,  "tax_rate_pct",               4) \
    ROW(Quarterly, QEPSSeries,       "Earnings Per Share",          perShare, "eps",                        2) \
    ROW(Yearly,    YPTISeries,       "Pre-Tax Income",              money,    "pretax_income_musd",         2) \
    ROW(Yearly,    YDividendSeries,  "Dividends Declared",          perShare, "dividend",                   8) \
    ROW(Yearly,    YRevenueSeries,   "Revenue",                     money,    "revenue_musd",               1) \
    ROW(Yearly,    YHighSeries,      "High Price",                  perShare, "high",                       9) \
    ROW(Yearly,    YNetIncSeries,    "Net Income",                  money,    "net_income_musd",            4) \
    ROW(Yearly,    YBookValSeries,   "Book Value",                  perShare, "book_value_per_share",       6) \
    ROW(Yearly,    YLowSeries,       "Low Price",                   perShare, "low",                       10) \
    ROW(Yearly,    YEPSSeries,       "Earnings Per Share",          perShare, "eps",                        7)

#define VKR_FURTHER_DATA(ROW) \
    /* The next datum stands here. */

#define VKR_DATA(ROW) VKR_FIRST_DATA(ROW) VKR_FURTHER_DATA(ROW)
// clang-format on

} // namespace vkr
