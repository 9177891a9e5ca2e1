// SPDX-License-Identifier: MIT
#pragma once

#include "record/enumerations.hpp"

#include <string>
#include <string_view>

namespace vkr::test {

// What is chosen on the Options tab before an object can be seen.
enum class Choice { none, taxRate, bookValue };

enum class FieldContent { words, list, number, money, price, percent, day, year };

// Which characters a field takes.
enum class FieldKeys { words, capitals, signedFigure, figure };

// A field of the form, or a column of cells, as a person meets it.
struct FormField {
    std::string_view control; // of cells the name of their array
    TABObject tab;
    DataEntryObject object;
    std::string_view datum; // empty for a setting
    FieldContent kind;
    FieldKeys keys;
    std::string_view shown;  // of fullCompany(); of cells nothing is said
    std::string_view typed;  // a text that a person may type
    std::string_view stored; // what the record has then, of a series "element=value"
    int rows = 0;            // of cells
    int row = 0;             // where it is typed
    Choice choice = Choice::none;

    [[nodiscard]] bool isCell() const { return rows > 0; }
    // On the form when it is made, a cell of the first rows.
    [[nodiscard]] std::string id() const { return id(row); }
    [[nodiscard]] std::string id(int cell) const {
        std::string text(control);
        if (isCell())
            text += "(" + std::to_string(cell) + ")";
        return text;
    }
    [[nodiscard]] bool takesMinus() const { return keys != FieldKeys::figure; }
    [[nodiscard]] bool isText() const {
        return kind == FieldContent::words || kind == FieldContent::list;
    }
};

// Every field of the form, written down a second time on purpose: a row of the component's own
// tables that is wrong, or mixed up with another, contradicts it. The tests know no other list.
// clang-format off
inline constexpr FormField formFields[] = {
    {"txtName", toCompany, doName, "Name", FieldContent::words, FieldKeys::words, "Name text", "Acme", "Acme"},
    {"txtSymbol", toCompany, doSymbol, "Symbol", FieldContent::words, FieldKeys::capitals, "FULL", "acm", "ACM"},
    {"cmbExchange", toCompany, doExchange, "Exchange", FieldContent::list, FieldKeys::words, "Exchange text", "NYSE", "NYSE"},
    {"cmbIndustry", toCompany, doIndustry, "Industry", FieldContent::list, FieldKeys::words, "Industry text", "Tools", "Tools"},
    {"cmbSource", toCompany, doSource, "Source", FieldContent::list, FieldKeys::words, "Source text", "10-K", "10-K"},
    {"txtDateOfSource", toCompany, doDateOfSource, "DateOfSource", FieldContent::day, FieldKeys::words, "Oct/01/2026", "5 Jan 2026", "2026-01-05"},
    {"txtLastUpdate", toCompany, doLastStudied, "LastUpdate", FieldContent::day, FieldKeys::words, "Nov/19/2026", "2026-02-06", "2026-02-06"},
    {"txtCurrentPrice", toCompany, doCurrentPrice, "CurrentPrice", FieldContent::price, FieldKeys::figure, "104.123", "105.25", "105.25"},
    {"txt52WHigh", toCompany, do52WHigh, "High52W", FieldContent::price, FieldKeys::figure, "107.123", "207 1/8", "207.125"},
    {"txt52WLow", toCompany, do52WLow, "Low52W", FieldContent::price, FieldKeys::figure, "108.123", "51.5", "51.5"},
    {"txtPriceUpdate", toCompany, doPriceUpdatedDate, "PriceUpdatedDate", FieldContent::day, FieldKeys::words, "Nov/20/2026", "Mar/07/2026", "2026-03-07"},
    {"txtCommDiv", toCompany, doCommDiv, "CommDiv", FieldContent::number, FieldKeys::figure, "105.12", "1.11", "1.11"},
    {"txtEPSProj", toCompany, doORBEPSProj, "ORBEPSProj", FieldContent::number, FieldKeys::signedFigure, "125.12", "-2.22", "-2.22"},
    {"txtTotalDebt", toCompany, doTotalDebt, "TotalDebt", FieldContent::money, FieldKeys::signedFigure, "111.12", "333.3", "333.3"},
    {"txtTotalCap", toCompany, doTotalCap, "TotalCap", FieldContent::money, FieldKeys::figure, "115.12", "444.4", "444.4"},
    {"txtPreferredShares", toCompany, doPrefShares, "PrefShares", FieldContent::money, FieldKeys::signedFigure, "122.12", "55.5", "55.5"},
    {"txtCommonShares", toCompany, doCommShares, "CommShares", FieldContent::money, FieldKeys::signedFigure, "109.12", "66.6", "66.6"},
    {"txtDilutedShares", toCompany, doDilutedShares, "DilutedShares", FieldContent::money, FieldKeys::signedFigure, "110.12", "77.7", "77.7"},
    {"txtInsiderHolding", toCompany, doInsiderHolding, "InsiderHolding", FieldContent::percent, FieldKeys::signedFigure, "116.1%", "8.8", "8.8"},
    {"txtInstitutional", toCompany, doInstitutional, "Institutional", FieldContent::number, FieldKeys::signedFigure, "117.12", "99.9", "99.9"},
    {"txtDateofLastFY", toYearly, doLastFYDate, "LastFYDate", FieldContent::day, FieldKeys::words, "Dec/31/2025", "Sep 30, 2024", "2024-09-30"},
    {"txtLastFY", toYearly, doLastFY, "LastFY", FieldContent::year, FieldKeys::signedFigure, "2025", "2024", "2024"},
    {"txtSales", toYearly, doYRevenue, "YRevenueSeries", FieldContent::money, FieldKeys::figure, "", "1001", "1=1001", 11, 9},
    {"txtYOption", toYearly, doYPTI, "YPTISeries", FieldContent::money, FieldKeys::signedFigure, "", "-1002", "2=-1002", 11, 8},
    {"txtYOption", toYearly, doYTaxRate, "YTaxRateSeries", FieldContent::number, FieldKeys::signedFigure, "", "31.5", "2=31.5", 11, 8, Choice::taxRate},
    {"txtYNetInc", toYearly, doYNetInc, "YNetIncSeries", FieldContent::money, FieldKeys::signedFigure, "", "-1003", "3=-1003", 11, 7},
    {"txtYOption2", toYearly, doYCommEq, "YCommEqSeries", FieldContent::money, FieldKeys::signedFigure, "", "-1004", "4=-1004", 11, 6},
    {"txtYOption2", toYearly, doYBookVal, "YBookValSeries", FieldContent::number, FieldKeys::signedFigure, "", "12.75", "4=12.75", 11, 6, Choice::bookValue},
    {"txtYEPS", toYearly, doYEPS, "YEPSSeries", FieldContent::number, FieldKeys::signedFigure, "", "-10.05", "5=-10.05", 11, 5},
    {"txtDiv", toYearly, doYDividend, "YDividendSeries", FieldContent::number, FieldKeys::figure, "", "10.06", "6=10.06", 11, 4},
    {"txtHigh", toYearly, doYHigh, "YHighSeries", FieldContent::price, FieldKeys::figure, "", "10 7/8", "7=10.875", 11, 3},
    {"txtLow", toYearly, doYLow, "YLowSeries", FieldContent::price, FieldKeys::figure, "", "10.08", "8=10.08", 11, 2},
    {"txtCSO", toYearly, doYCSO, "YCSOSeries", FieldContent::money, FieldKeys::signedFigure, "", "1009", "9=1009", 11, 1},
    {"txtLastQDate", toQuarterly, doLastQDate, "LastQDate", FieldContent::day, FieldKeys::words, "Sep/30/2026", "Sep/30/2026", "2026-09-30"},
    {"txtRevenue", toQuarterly, doQRevenue, "QRevenueSeries", FieldContent::money, FieldKeys::figure, "", "2001", "0=2001", 9, 0},
    {"txtEPS", toQuarterly, doQEPS, "QEPSSeries", FieldContent::number, FieldKeys::signedFigure, "", "-2.02", "1=-2.02", 9, 1},
    {"txtQOption", toQuarterly, doQPTI, "QPTISeries", FieldContent::money, FieldKeys::signedFigure, "", "-2003", "2=-2003", 9, 2},
    {"txtQOption", toQuarterly, doQTaxRate, "QTaxRateSeries", FieldContent::number, FieldKeys::signedFigure, "", "27.5", "2=27.5", 9, 2, Choice::taxRate},
    {"txtNetInc", toQuarterly, doQNetInc, "QNetIncSeries", FieldContent::money, FieldKeys::signedFigure, "", "-2004", "3=-2004", 9, 3},
    {"txtAddress1", toOther, doAddress1, "Address1", FieldContent::words, FieldKeys::words, "Address1 text", "1 Main St", "1 Main St"},
    {"txtAddress2", toOther, doAddress2, "Address2", FieldContent::words, FieldKeys::words, "Address2 text", "Floor 2", "Floor 2"},
    {"txtCity", toOther, doCity, "City", FieldContent::words, FieldKeys::words, "City text", "Springfield", "Springfield"},
    {"txtState", toOther, doState, "State", FieldContent::words, FieldKeys::words, "State text", "IL", "IL"},
    {"txtZip", toOther, doZip, "Zip", FieldContent::words, FieldKeys::words, "Zip text", "62701", "62701"},
    {"txtCountry", toOther, doCountry, "Country", FieldContent::words, FieldKeys::words, "Country text", "USA", "USA"},
    {"txtInternet", toOther, doInternetURL, "Internet", FieldContent::words, FieldKeys::words, "Internet text", "acme.example", "acme.example"},
    {"txtContactPerson", toOther, doContactPerson, "ContactPerson", FieldContent::words, FieldKeys::words, "ContactPerson text", "J. Doe", "J. Doe"},
    {"txtTel", toOther, doTel, "Tel", FieldContent::words, FieldKeys::words, "Tel text", "555 0100", "555 0100"},
    {"txtPrefDiv", toOther, doPrefDiv, "PrefDiv", FieldContent::money, FieldKeys::signedFigure, "114.12", "3.03", "3.03"},
    {"txtTaxRate", toOther, doEstTaxRate, "TaxRate", FieldContent::number, FieldKeys::signedFigure, "113.12", "21.5", "21.5"},
    {"txtVLTimelines", toOther, doVLTimelines, "VLTimeliness", FieldContent::words, FieldKeys::words, "VLTimeliness text", "2", "2"},
    {"txtVLSafety", toOther, doVLSafety, "VLSafety", FieldContent::words, FieldKeys::words, "VLSafety text", "1", "1"},
    {"cmbReportingPeriod", toOther, doReportingPeriod, "", FieldContent::list, FieldKeys::words, "6 months", "3 months", ""},
    {"txtNotes", toOther, doNotes, "Notes", FieldContent::words, FieldKeys::words, "Notes text", "remember", "remember"},
    {"txtCurSymbol", toOptions, doUnit, "", FieldContent::words, FieldKeys::words, "$", "EUR", ""},
    // Follows the quarters, so it comes after them.
    {"txtLast4QEPS", toYearly, doLast4QEPS, "Last4QEPS", FieldContent::number, FieldKeys::signedFigure, "", "4.44", "4.44"},
};
// clang-format on

} // namespace vkr::test
