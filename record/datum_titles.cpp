// SPDX-License-Identifier: MIT
#include "record/datum_titles.hpp"

#include "platform/ascii.hpp"
#include "platform/text.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

namespace {

struct TitleRow {
    Datum datum;
    std::string_view title;
};

// Those of the captions, but for a unit in one, words that the place on the form stands for, and
// two that the form has one caption for.
constexpr TitleRow rows[] = {
    {Datum::Name, "Name"},
    {Datum::Symbol, "Symbol"},
    {Datum::Exchange, "Exchange"},
    {Datum::Industry, "Industry"},
    {Datum::Source, "Source"},
    {Datum::DateOfSource, "Date of Source"},
    {Datum::LastUpdate, "Last Update"},
    {Datum::CurrentPrice, "Current Price"},
    {Datum::High52W, "52 Week High"},
    {Datum::Low52W, "52 Week Low"},
    {Datum::PriceUpdatedDate, "Price Update Date"},
    {Datum::CommDiv, "Common Dividends"},
    {Datum::CommDivAlternate, "Common Dividends, Alternate"},
    {Datum::ORBEPSProj, "ORB EPS Projection"},
    {Datum::Last4QEPS, "Last 4Q EPS"},
    {Datum::TotalDebt, "Total Debt"},
    {Datum::TotalCap, "Total Capital"},
    {Datum::PrefShares, "Preferred Shares"},
    {Datum::PrefDiv, "Preferred Dividends"},
    {Datum::CommShares, "Common Shares"},
    {Datum::DilutedShares, "Diluted Shares"},
    {Datum::InsiderHolding, "Insider Holding"},
    {Datum::Institutional, "Institutional Holding"},
    {Datum::TaxRate, "Est. Tax Rate"},
    {Datum::VLTimeliness, "VL Timeliness"},
    {Datum::VLSafety, "VL Safety"},
    {Datum::LastFY, "Last Fiscal Year"},
    {Datum::LastFYDate, "Date of Last FY"},
    {Datum::LastQDate, "Date of Last Quarter"},
    {Datum::LastQDateForGrid, "Newest Quarter of the Table"},
    {Datum::Address1, "Address"},
    {Datum::Address2, "Address, Second Line"},
    {Datum::City, "City"},
    {Datum::State, "State/Province"},
    {Datum::Zip, "Zip/Postal"},
    {Datum::Country, "Country"},
    {Datum::Internet, "Internet"},
    {Datum::ContactPerson, "Contact Person"},
    {Datum::Tel, "Telephone"},
    {Datum::Notes, "Notes"},
    {Datum::YRevenueSeries, "Revenue"},
    {Datum::YPTISeries, "Pre-Tax Income"},
    {Datum::YTaxRateSeries, "Tax Rate"},
    {Datum::YNetIncSeries, "Net Income"},
    {Datum::YCommEqSeries, "Common Equity"},
    {Datum::YBookValSeries, "Book Value"},
    {Datum::YEPSSeries, "Earnings Per Share"},
    {Datum::YDividendSeries, "Dividends Declared"},
    {Datum::YHighSeries, "High Price"},
    {Datum::YLowSeries, "Low Price"},
    {Datum::YCSOSeries, "Shares Outstanding"},
    {Datum::QRevenueSeries, "Revenue"},
    {Datum::QPTISeries, "Pre-Tax Income"},
    {Datum::QTaxRateSeries, "Tax Rate"},
    {Datum::QNetIncSeries, "Net Income"},
    {Datum::QEPSSeries, "Earnings Per Share"},
};

constexpr const TitleRow* rowIn(Datum datum) {
    return std::ranges::find(rows, datum, &TitleRow::datum);
}

constexpr bool isComplete() {
    for (int datum = 0; datum < datumCount; ++datum)
        if (rowIn(static_cast<Datum>(datum)) == std::end(rows))
            return false;
    return std::size(rows) == datumCount;
}
static_assert(isComplete(), "each datum has one title above");

constexpr bool isCapital(char letter) {
    return letter >= 'A' && letter <= 'Z';
}
constexpr bool isSmall(char letter) {
    return letter >= 'a' && letter <= 'z';
}

} // namespace

std::string_view titleOf(Datum datum) {
    return rowIn(datum)->title;
}

std::string fullTitleOf(Datum datum) {
    const DatumPeriod period = rowOf(datum).period;
    return (period == DatumPeriod::year      ? "Yearly "
            : period == DatumPeriod::quarter ? "Quarterly "
                                             : "") +
           std::string(titleOf(datum));
}

std::string calledDatum(std::string_view name) {
    if (const auto row = std::ranges::find(datumTable(), name, &DatumRow::name);
        row != datumTable().end())
        return fullTitleOf(row->datum);
    const SettingRow* const row = settingNamed(name);
    return std::string(row == nullptr ? name : row->title);
}

std::string_view datumCalled(std::string_view text) {
    for (const DatumRow& row : datumTable())
        if (text == row.name || equalsIgnoringCase(text, fullTitleOf(row.datum)))
            return row.name;
    for (const SettingRow& row : settingTable)
        if (text == row.name || equalsIgnoringCase(text, row.title))
            return row.name;
    return {};
}

// Short forms such as FY stay as they are.
std::string wordsOf(Datum datum) {
    std::string words(titleOf(datum));
    for (std::size_t at = 0; at + 1 < words.size(); ++at)
        if (isCapital(words[at]) && isSmall(words[at + 1]))
            words[at] = asciiLower(words[at]);
    return words;
}

} // namespace vkr
