// SPDX-License-Identifier: MIT
#include "host/assistant_topics.hpp"

#include "form/form_layout.hpp"
#include "host/help_pages.hpp"
#include "host/texts.hpp"
#include "record/datum_titles.hpp"

#include <algorithm>
#include <vector>

namespace vkr {

namespace {

using enum FigureUnit;
using Yearly = std::array<std::optional<Datum>, 2>;

constexpr Yearly none{};
constexpr Yearly prices{Datum::YHighSeries, Datum::YLowSeries};

constexpr Yearly only(Datum series) {
    return {series, std::nullopt};
}

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
    case DatumUnit::none:
        break;
    }
    return isOf<datum_kind::Day>(datum) ? date : isOf<datum_kind::Year>(datum) ? year : text;
}

// What stands on the form without a datum in its row: shown by code of its own, chosen or worked
// out.
struct Shown {
    DataEntryObject object;
    FigureUnit unit;
    std::optional<Datum> datum{};
};
constexpr Shown shownOtherwise[] = {
    {doLastFY, year, Datum::LastFY},
    {doLastFYDate, date, Datum::LastFYDate},
    {doLastQDate, date, Datum::LastQDate},
    {doReportingPeriod, choice},
    {doUnit, choice},
    {doPTI_TaxRate, choice},
    {doCommEq_BookVal, choice},
    {doLockInfo, choice},
    {doYearLabel, year, Datum::LastFY},
    {doQuarterLabel, date, Datum::LastQDate},
    {doPercentDilution, percent},
    {doPercentTotalCap, percent},
};

// Histories that tell about what is no column itself.
struct Histories {
    DataEntryObject object;
    Yearly yearly;
    std::optional<Datum> quarterly{};
};
constexpr Histories historiesBeside[] = {
    {doTotalCap, only(Datum::YCommEqSeries)},
    {doCurrentPrice, prices},
    {do52WHigh, prices},
    {do52WLow, prices},
    {doLast4QEPS, only(Datum::YEPSSeries), Datum::QEPSSeries},
    {doORBEPSProj, only(Datum::YEPSSeries), Datum::QEPSSeries},
    {doTotalDebt, only(Datum::YCommEqSeries)},
    {doCommShares, only(Datum::YCSOSeries)},
    {doDilutedShares, only(Datum::YCSOSeries)},
    {doPrefDiv, only(Datum::YNetIncSeries), Datum::QNetIncSeries},
    {doCommDiv, only(Datum::YDividendSeries)},
    {doEstTaxRate, only(Datum::YTaxRateSeries), Datum::QTaxRateSeries},
    {doPTI_TaxRate, only(Datum::YTaxRateSeries), Datum::QTaxRateSeries},
    {doCommEq_BookVal, only(Datum::YBookValSeries)},
    {doYearLabel, only(Datum::YRevenueSeries)},
    {doQuarterLabel, none, Datum::QRevenueSeries},
    {doPercentDilution, only(Datum::YCSOSeries)},
    {doPercentTotalCap, only(Datum::YCommEqSeries)},
    {doTabYearly, only(Datum::YRevenueSeries)},
    {doTabQuarterly, none, Datum::QRevenueSeries},
};

// The quarters of what a series has by year.
std::optional<Datum> quarterlyOf(Datum yearly) {
    for (const DatumRow& row : datumTable())
        if (row.period == DatumPeriod::quarter && row.title == titleOf(yearly))
            return row.datum;
    return std::nullopt;
}

// What the rows of the form say, and what they don't.
class Topics {
  public:
    Topics() {
        for (int object = 0; object < dataEntryObjectCount; ++object)
            all.push_back({static_cast<DataEntryObject>(object), nothing, {}, none, {}});
        for (const FieldRow& field : fieldRows())
            if (field.object && field.datum)
                show(*field.object, figureUnitOf(*field.datum), field.datum);
        forEachSeries(yearlyColumns(), [this](const GridSeries& shown) {
            show(shown.object, figureUnitOf(shown.series), shown.series);
            of(shown.object).yearly = only(shown.series);
            of(shown.object).quarterly = quarterlyOf(shown.series);
        });
        forEachSeries(quarterlyColumns(), [this](const GridSeries& shown) {
            show(shown.object, figureUnitOf(shown.series), shown.series);
            of(shown.object).quarterly = shown.series;
        });
        for (const Shown& shown : shownOtherwise)
            show(shown.object, shown.unit, shown.datum);
        for (const Histories& beside : historiesBeside) {
            of(beside.object).yearly = beside.yearly;
            of(beside.object).quarterly = beside.quarterly;
        }
    }

    std::vector<AssistantTopic> all; // by the numbers of the objects

  private:
    AssistantTopic& of(DataEntryObject object) { return all.at(static_cast<std::size_t>(object)); }
    void show(DataEntryObject object, FigureUnit unit, std::optional<Datum> datum) {
        of(object).unit = unit;
        of(object).datum = datum;
    }
};

} // namespace

std::span<const AssistantTopic> assistantTopics() {
    static const Topics topics;
    return topics.all;
}

const AssistantTopic* assistantTopic(int object) {
    const auto topics = assistantTopics();
    return object >= 0 && object < std::ssize(topics) ? &topics[static_cast<std::size_t>(object)]
                                                      : nullptr;
}

AssistantTopic topicOf(Datum datum) {
    if (datum == Datum::CommDivAlternate) // these two are shown by the field of another datum
        datum = Datum::CommDiv;
    else if (datum == Datum::LastQDateForGrid)
        datum = Datum::LastQDate;
    const auto topics = assistantTopics();
    const auto topic = std::ranges::find(topics, std::optional(datum), &AssistantTopic::datum);
    return topic != topics.end() ? *topic
                                 : AssistantTopic{{}, figureUnitOf(datum), datum, none, {}};
}

QString helpTitleOf(const AssistantTopic& topic) {
    return topic.object ? helpPage(helpObjectBase + *topic.object)->title
                        : fromUtf8(fullTitleOf(*topic.datum));
}

} // namespace vkr
