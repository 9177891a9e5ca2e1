// SPDX-License-Identifier: MIT
#include "host/assistant_topics.hpp"

#include "host/help_pages.hpp"
#include "host/texts.hpp"
#include "record/datum_titles.hpp"

#include <algorithm>

namespace vkr {

namespace {

using enum FigureUnit;
using Yearly = std::array<std::optional<Datum>, 2>;

constexpr Yearly none{};
constexpr Yearly prices{Datum::YHighSeries, Datum::YLowSeries};

constexpr Yearly only(Datum series) {
    return {series, std::nullopt};
}
constexpr AssistantTopic kept(DataEntryObject object, FigureUnit unit, Datum datum,
                              Yearly yearly = none, std::optional<Datum> quarterly = {}) {
    return {object, unit, datum, yearly, quarterly};
}
constexpr AssistantTopic without(DataEntryObject object, FigureUnit unit, Yearly yearly = none,
                                 std::optional<Datum> quarterly = {}) {
    return {object, unit, std::nullopt, yearly, quarterly};
}
constexpr AssistantTopic ofYears(DataEntryObject object, FigureUnit unit, Datum series,
                                 std::optional<Datum> quarterly = {}) {
    return {object, unit, series, only(series), quarterly};
}
constexpr AssistantTopic ofQuarters(DataEntryObject object, FigureUnit unit, Datum series) {
    return {object, unit, series, none, series};
}

constexpr auto topics = std::to_array<AssistantTopic>({
    kept(doName, text, Datum::Name),
    kept(doSymbol, text, Datum::Symbol),
    kept(doExchange, text, Datum::Exchange),
    kept(doIndustry, text, Datum::Industry),
    kept(doTotalCap, money, Datum::TotalCap, only(Datum::YCommEqSeries)),
    kept(doSource, text, Datum::Source),
    kept(doLastStudied, date, Datum::LastUpdate),
    without(doUpdatedBy, nothing),
    kept(doCurrentPrice, perShare, Datum::CurrentPrice, prices),
    kept(do52WHigh, perShare, Datum::High52W, prices),
    kept(do52WLow, perShare, Datum::Low52W, prices),
    kept(doPriceUpdatedDate, date, Datum::PriceUpdatedDate),
    kept(doLast4QEPS, perShare, Datum::Last4QEPS, only(Datum::YEPSSeries), Datum::QEPSSeries),
    kept(doORBEPSProj, perShare, Datum::ORBEPSProj, only(Datum::YEPSSeries), Datum::QEPSSeries),
    kept(doTotalDebt, money, Datum::TotalDebt, only(Datum::YCommEqSeries)),
    kept(doInsiderHolding, percent, Datum::InsiderHolding),
    kept(doInstitutional, percent, Datum::Institutional),
    kept(doPrefShares, money, Datum::PrefShares),
    kept(doCommShares, shares, Datum::CommShares, only(Datum::YCSOSeries)),
    kept(doDilutedShares, shares, Datum::DilutedShares, only(Datum::YCSOSeries)),
    kept(doLastFY, year, Datum::LastFY),
    kept(doLastFYDate, date, Datum::LastFYDate),
    ofYears(doYRevenue, money, Datum::YRevenueSeries, Datum::QRevenueSeries),
    ofYears(doYPTI, money, Datum::YPTISeries, Datum::QPTISeries),
    ofYears(doYTaxRate, percent, Datum::YTaxRateSeries, Datum::QTaxRateSeries),
    ofYears(doYNetInc, money, Datum::YNetIncSeries, Datum::QNetIncSeries),
    ofYears(doYCommEq, money, Datum::YCommEqSeries),
    ofYears(doYBookVal, perShare, Datum::YBookValSeries),
    ofYears(doYEPS, perShare, Datum::YEPSSeries, Datum::QEPSSeries),
    ofYears(doYDividend, perShare, Datum::YDividendSeries),
    ofYears(doYHigh, perShare, Datum::YHighSeries),
    ofYears(doYLow, perShare, Datum::YLowSeries),
    ofYears(doYCSO, shares, Datum::YCSOSeries),
    kept(doLastQDate, date, Datum::LastQDate),
    ofQuarters(doQRevenue, money, Datum::QRevenueSeries),
    ofQuarters(doQEPS, perShare, Datum::QEPSSeries),
    ofQuarters(doQPTI, money, Datum::QPTISeries),
    ofQuarters(doQTaxRate, percent, Datum::QTaxRateSeries),
    ofQuarters(doQNetInc, money, Datum::QNetIncSeries),
    kept(doAddress1, text, Datum::Address1),
    kept(doAddress2, text, Datum::Address2),
    kept(doCity, text, Datum::City),
    kept(doState, text, Datum::State),
    kept(doZip, text, Datum::Zip),
    kept(doCountry, text, Datum::Country),
    kept(doInternetURL, text, Datum::Internet),
    kept(doContactPerson, text, Datum::ContactPerson),
    kept(doTel, text, Datum::Tel),
    kept(doVLTimelines, text, Datum::VLTimeliness),
    kept(doVLSafety, text, Datum::VLSafety),
    without(doReportingPeriod, choice),
    kept(doNotes, text, Datum::Notes),
    kept(doPrefDiv, money, Datum::PrefDiv, only(Datum::YNetIncSeries), Datum::QNetIncSeries),
    kept(doCommDiv, perShare, Datum::CommDiv, only(Datum::YDividendSeries)),
    kept(doEstTaxRate, percent, Datum::TaxRate, only(Datum::YTaxRateSeries), Datum::QTaxRateSeries),
    without(doUnit, choice),
    without(doPTI_TaxRate, choice, only(Datum::YTaxRateSeries), Datum::QTaxRateSeries),
    without(doCommEq_BookVal, choice, only(Datum::YBookValSeries)),
    without(doLockInfo, choice),
    without(doDisplayOption, nothing),
    kept(doYearLabel, year, Datum::LastFY, only(Datum::YRevenueSeries)),
    kept(doQuarterLabel, date, Datum::LastQDate, none, Datum::QRevenueSeries),
    without(doPercentDilution, percent, only(Datum::YCSOSeries)),
    without(doPercentTotalCap, percent, only(Datum::YCommEqSeries)),
    without(doTabCompany, nothing),
    without(doTabYearly, nothing, only(Datum::YRevenueSeries)),
    without(doTabQuarterly, nothing, none, Datum::QRevenueSeries),
    without(doTabOther, nothing),
    without(doTabOptions, nothing),
    kept(doDateOfSource, date, Datum::DateOfSource),
});

constexpr bool isInOrder() {
    for (std::size_t i = 0; i < topics.size(); ++i)
        if (topics[i].object != static_cast<DataEntryObject>(i))
            return false;
    return topics.size() == dataEntryObjectCount;
}
static_assert(isInOrder());

FigureUnit figureUnitOf(Datum datum) {
    switch (unitOf(datum)) {
    case DatumUnit::money:
        return money;
    case DatumUnit::perShare:
        return perShare;
    case DatumUnit::percent:
        return percent;
    case DatumUnit::shares:
        return shares;
    default:
        return text;
    }
}

} // namespace

std::span<const AssistantTopic> assistantTopics() {
    return topics;
}

const AssistantTopic* assistantTopic(int object) {
    return object >= 0 && object < std::ssize(topics) ? &topics[static_cast<std::size_t>(object)]
                                                      : nullptr;
}

AssistantTopic topicOf(Datum datum) {
    if (datum == Datum::CommDivAlternate) // these two are shown by the field of another datum
        datum = Datum::CommDiv;
    else if (datum == Datum::LastQDateForGrid)
        datum = Datum::LastQDate;
    const auto* topic = std::ranges::find(topics, std::optional(datum), &AssistantTopic::datum);
    return topic != topics.end() ? *topic : AssistantTopic{{}, figureUnitOf(datum), datum, {}, {}};
}

QString helpTitleOf(const AssistantTopic& topic) {
    return topic.object ? helpPage(helpObjectBase + *topic.object)->title
                        : fromUtf8(fullTitleOf(*topic.datum));
}

} // namespace vkr
