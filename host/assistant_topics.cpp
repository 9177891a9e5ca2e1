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

constexpr FigureUnit figureUnitOf(Datum datum) {
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

constexpr AssistantTopic kept(DataEntryObject object, FigureUnit unit, Datum datum,
                              Yearly yearly = none, std::optional<Datum> quarterly = {}) {
    return {object, unit, datum, yearly, quarterly};
}
constexpr AssistantTopic without(DataEntryObject object, FigureUnit unit, Yearly yearly = none,
                                 std::optional<Datum> quarterly = {}) {
    return {object, unit, std::nullopt, yearly, quarterly};
}
constexpr AssistantTopic figure(DataEntryObject object, Datum datum, Yearly yearly = none,
                                std::optional<Datum> quarterly = {}) {
    return {object, figureUnitOf(datum), datum, yearly, quarterly};
}
constexpr AssistantTopic ofYears(DataEntryObject object, Datum series,
                                 std::optional<Datum> quarterly = {}) {
    return figure(object, series, only(series), quarterly);
}
constexpr AssistantTopic ofQuarters(DataEntryObject object, Datum series) {
    return figure(object, series, none, series);
}

constexpr auto topics = std::to_array<AssistantTopic>({
    kept(doName, text, Datum::Name),
    kept(doSymbol, text, Datum::Symbol),
    kept(doExchange, text, Datum::Exchange),
    kept(doIndustry, text, Datum::Industry),
    figure(doTotalCap, Datum::TotalCap, only(Datum::YCommEqSeries)),
    kept(doSource, text, Datum::Source),
    kept(doLastStudied, date, Datum::LastUpdate),
    without(doUpdatedBy, nothing),
    figure(doCurrentPrice, Datum::CurrentPrice, prices),
    figure(do52WHigh, Datum::High52W, prices),
    figure(do52WLow, Datum::Low52W, prices),
    kept(doPriceUpdatedDate, date, Datum::PriceUpdatedDate),
    figure(doLast4QEPS, Datum::Last4QEPS, only(Datum::YEPSSeries), Datum::QEPSSeries),
    figure(doORBEPSProj, Datum::ORBEPSProj, only(Datum::YEPSSeries), Datum::QEPSSeries),
    figure(doTotalDebt, Datum::TotalDebt, only(Datum::YCommEqSeries)),
    figure(doInsiderHolding, Datum::InsiderHolding),
    figure(doInstitutional, Datum::Institutional),
    figure(doPrefShares, Datum::PrefShares),
    figure(doCommShares, Datum::CommShares, only(Datum::YCSOSeries)),
    figure(doDilutedShares, Datum::DilutedShares, only(Datum::YCSOSeries)),
    kept(doLastFY, year, Datum::LastFY),
    kept(doLastFYDate, date, Datum::LastFYDate),
    ofYears(doYRevenue, Datum::YRevenueSeries, Datum::QRevenueSeries),
    ofYears(doYPTI, Datum::YPTISeries, Datum::QPTISeries),
    ofYears(doYTaxRate, Datum::YTaxRateSeries, Datum::QTaxRateSeries),
    ofYears(doYNetInc, Datum::YNetIncSeries, Datum::QNetIncSeries),
    ofYears(doYCommEq, Datum::YCommEqSeries),
    ofYears(doYBookVal, Datum::YBookValSeries),
    ofYears(doYEPS, Datum::YEPSSeries, Datum::QEPSSeries),
    ofYears(doYDividend, Datum::YDividendSeries),
    ofYears(doYHigh, Datum::YHighSeries),
    ofYears(doYLow, Datum::YLowSeries),
    ofYears(doYCSO, Datum::YCSOSeries),
    kept(doLastQDate, date, Datum::LastQDate),
    ofQuarters(doQRevenue, Datum::QRevenueSeries),
    ofQuarters(doQEPS, Datum::QEPSSeries),
    ofQuarters(doQPTI, Datum::QPTISeries),
    ofQuarters(doQTaxRate, Datum::QTaxRateSeries),
    ofQuarters(doQNetInc, Datum::QNetIncSeries),
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
    figure(doPrefDiv, Datum::PrefDiv, only(Datum::YNetIncSeries), Datum::QNetIncSeries),
    figure(doCommDiv, Datum::CommDiv, only(Datum::YDividendSeries)),
    figure(doEstTaxRate, Datum::TaxRate, only(Datum::YTaxRateSeries), Datum::QTaxRateSeries),
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
    return topic != topics.end() ? *topic
                                 : AssistantTopic{{}, figureUnitOf(datum), datum, none, {}};
}

QString helpTitleOf(const AssistantTopic& topic) {
    return topic.object ? helpPage(helpObjectBase + *topic.object)->title
                        : fromUtf8(fullTitleOf(*topic.datum));
}

} // namespace vkr
