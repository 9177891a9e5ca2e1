// SPDX-License-Identifier: MIT
#include "host/assistant_facts.hpp"

#include "host/help_pages.hpp"
#include "host/texts.hpp"
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/number_text.hpp"
#include "platform/date.hpp"
#include "platform/form.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>
#include <cmath>

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

constexpr int quartersBeside = 4;

QString tr(const char* text) {
    return QCoreApplication::translate("assistant", text);
}

// What a series holds for a period; a stored 0 is no figure.
std::optional<double> figureAt(const iVKR_Company& company, Datum series, int element) {
    const Variant value = readSeries(company, series);
    if (!value.isArray() || !value.array().contains(element))
        return std::nullopt;
    const double figure = value.array().number(element);
    return figure == 0 ? std::nullopt : std::optional(figure);
}

// The object of a series, whose help page has its name.
QString seriesTitle(Datum series) {
    const auto named = [series](const AssistantTopic& topic) { return topic.datum == series; };
    return helpPage(helpObjectBase + std::ranges::find_if(topics, named)->object)->title;
}

FigureUnit unitOf(Datum series) {
    return std::ranges::find(topics, std::optional(series), &AssistantTopic::datum)->unit;
}

History::Period yearAt(const iVKR_Company& company, int element) {
    const int last = company.get_LastFY();
    const int age = element - 1; // in years before the last fiscal year
    if (last != 0) {
        const QString number = QString::number(last - age);
        return {(age < 0 ? tr("coming fiscal year %1") : tr("fiscal year %1")).arg(number), number};
    }
    if (age < 0)
        return {tr("coming fiscal year"), QStringLiteral("+1")};
    if (age == 0)
        return {tr("last fiscal year"), tr("last")};
    return {tr("fiscal year %1 before the last").arg(age), QStringLiteral("-%1").arg(age)};
}

std::optional<Date> quarterEnd(const iVKR_Company& company, int element) {
    const Date newest = company.get_LastQDateForGrid();
    return isAbsent(newest) ? std::nullopt : std::optional(addQuarters(newest, -element));
}

History::Period quarterAt(const iVKR_Company& company, int element) {
    if (const auto end = quarterEnd(company, element))
        return {tr("quarter ended %1").arg(isoDate(*end)), fromUtf8(formatDate(*end, "MMM YYYY"))};
    if (element == 0)
        return {tr("last quarter"), tr("last")};
    return {tr("quarter %1 before the last").arg(element), QStringLiteral("-%1").arg(element)};
}

// Whether the chart is one of quarters.
bool showsQuarters(const AssistantTopic& topic) {
    return !topic.yearly.front() && topic.quarterly;
}

struct Span {
    int newest;
    int oldest;
    History::Period (*at)(const iVKR_Company&, int);
};

// The coming year and quarters older than the oldest figure are left out while they have none.
Span spanOf(const AssistantTopic& topic, const iVKR_Company& company) {
    if (!showsQuarters(topic)) {
        const bool isComing = std::ranges::any_of(topic.yearly, [&](const auto& series) {
            return series && figureAt(company, *series, 0);
        });
        return {isComing ? 0 : 1, YearlyGrid::oldestAge + 1, yearAt};
    }
    int oldest = QuarterlyGrid::mostRows - 1;
    while (oldest >= quartersBeside && !figureAt(company, *topic.quarterly, oldest))
        --oldest;
    return {0, oldest, quarterAt};
}

QString suffixOf(FigureUnit unit) {
    switch (unit) {
    case money:
        return tr(" million");
    case shares:
        return tr(" million shares");
    case percent:
        return tr(" %");
    default:
        return {};
    }
}

QString unitText(FigureUnit unit, const iVKR_Company& company) {
    const QString symbol =
        fromUtf8(company.get_Settings()->get(setting::currencySymbol).toText()).trimmed();
    const QString currency = symbol.isEmpty() ? tr("the company's currency")
                                              : tr("the company's currency (%1)").arg(symbol);
    switch (unit) {
    case nothing:
        return {};
    case text:
        return tr("Text");
    case date:
        return tr("Date, as year-month-day");
    case year:
        return tr("Year");
    case choice:
        return tr("One of the choices offered");
    case money:
        return tr("In millions of %1").arg(currency);
    case shares:
        return tr("In millions of shares");
    case perShare:
        return tr("Per share, in %1").arg(currency);
    case percent:
        return tr("In percent");
    }
    return {};
}

History historyOf(const AssistantTopic& topic, const iVKR_Company& company,
                  std::optional<int> element) {
    History history;
    QList<Datum> data;
    if (showsQuarters(topic))
        data = {*topic.quarterly};
    else
        for (const auto& series : topic.yearly)
            if (series)
                data.append(*series);
    if (data.isEmpty())
        return history;

    const Span span = spanOf(topic, company);
    QStringList names;
    for (const Datum series : data) {
        History::Series one{seriesTitle(series), {}};
        for (int at = span.oldest; at >= span.newest; --at)
            one.figures.append(figureAt(company, series, at));
        names.append(one.name);
        history.series.append(one);
    }
    for (int at = span.oldest; at >= span.newest; --at)
        history.periods.append(span.at(company, at));
    history.title = (showsQuarters(topic) ? tr("%1 by quarter") : tr("%1 by fiscal year"))
                        .arg(names.join(tr(" and ")));
    history.suffix = suffixOf(unitOf(data.front()));
    constexpr int quartersPerYear = 4;
    history.cycle = showsQuarters(topic) ? quartersPerYear : 1;
    if (element && *element >= span.newest && *element <= span.oldest)
        history.marked = span.oldest - *element;
    return history;
}

QString numberWithUnit(double figure, FigureUnit unit) {
    return figure == 0 ? QString() : figureText(figure) + suffixOf(unit);
}

// How a record's settings stand, in the words of the Options tab.
QString choiceText(DataEntryObject object, const iVKR_Company& company) {
    const auto settings = company.get_Settings();
    const auto flag = [&](std::string_view name, const char* off, const char* on) {
        return settings->get(name).toBoolean() ? tr(on) : tr(off);
    };
    switch (object) {
    case doReportingPeriod: {
        constexpr std::array<int, 3> months{3, 6, 12};
        const auto index = company.get_ReportingPeriod()->get(setting::leadPeriod).toLong();
        return index >= 0 && index < std::ssize(months)
                   ? tr("%1 months").arg(months[static_cast<std::size_t>(index)])
                   : QString();
    }
    case doUnit:
        switch (settings->get(setting::unit).toLong()) {
        case 3:
            return tr("Thousands");
        case 9:
            return tr("Billions");
        default: // also where none was ever chosen
            return tr("Millions");
        }
    case doPTI_TaxRate:
        return flag(setting::taxRate, "Pre-tax income", "Tax rate");
    case doCommEq_BookVal:
        return flag(setting::bookValue, "Common equity", "Book value");
    case doLockInfo:
        return flag(setting::lockBasicInfo, "Off", "On");
    default:
        return {};
    }
}

double derived(DataEntryObject object, const iVKR_Company& company) {
    constexpr double hundred = 100;
    const auto share = [](double part, double whole) {
        constexpr double hundredths = 100; // two decimals
        return whole == 0 ? 0 : std::round(part / whole * hundred * hundredths) / hundredths;
    };
    if (object == doPercentTotalCap)
        return share(company.get_TotalDebt(), company.get_TotalCap());
    const double diluted = company.get_DilutedShares();
    return diluted == 0 ? 0 : share(diluted - company.get_CommShares(), company.get_CommShares());
}

QString storedText(const AssistantTopic& topic, const iVKR_Company& company,
                   std::optional<int> element) {
    if (!topic.datum) {
        if (topic.unit == nothing)
            return QString();
        return topic.unit == choice ? choiceText(topic.object, company)
                                    : numberWithUnit(derived(topic.object, company), topic.unit);
    }
    switch (topic.unit) {
    case text:
        return fromUtf8(readText(company, *topic.datum));
    case date:
        return isoDate(readDate(company, *topic.datum));
    case year:
        return company.get_LastFY() == 0 ? QString() : QString::number(company.get_LastFY());
    default:
        break;
    }
    if (isSeries(rowOf(*topic.datum)))
        return element ? numberWithUnit(figureAt(company, *topic.datum, *element).value_or(0),
                                        topic.unit)
                       : QString();
    double figure = readNumber(company, *topic.datum);
    if (topic.object == doCommDiv && company.get_CommDivAlternate() != 0)
        figure = company.get_CommDivAlternate();
    return numberWithUnit(figure, topic.unit);
}

std::optional<int> newestElement(const AssistantTopic& topic, const iVKR_Company& company) {
    const int oldest = (showsQuarters(topic) ? QuarterlyGrid::mostRows : YearlyGrid::rows) - 1;
    for (int element = showsQuarters(topic) ? 0 : 1; element <= oldest; ++element)
        if (figureAt(company, *topic.datum, element))
            return element;
    return std::nullopt;
}

Date today() {
    const QDate day = QDate::currentDate();
    return makeDate(day.year(), day.month(), day.day()).value_or(Date{});
}

bool saysElse(const AssistantTopic& topic, const iVKR_Company& company, std::optional<int> element,
              const QString& shown, const QString& dateFormat, const NumberMarks& marks) {
    if (!topic.datum || shown.isEmpty())
        return false;
    const std::string typed = shown.toStdString();
    switch (topic.unit) {
    case text:
        return typed != readText(company, *topic.datum);
    case date: {
        const Date stored = readDate(company, *topic.datum);
        const auto read = readDate(typed, today(), dateFormat.toStdString());
        return isAbsent(stored) || !read || daysBetween(*read, stored) != 0;
    }
    case year:
        return shown != QString::number(company.get_LastFY());
    default:
        break;
    }
    const double stored =
        isSeries(rowOf(*topic.datum))
            ? (element ? figureAt(company, *topic.datum, *element) : std::nullopt).value_or(0)
            : readNumber(company, *topic.datum);
    return numericValue(cleanNumericText(typed, NumericKind::PriceText, 0, marks).text) != stored;
}

} // namespace

std::span<const AssistantTopic> assistantTopics() {
    return topics;
}

const AssistantTopic* assistantTopic(int object) {
    return object >= 0 && object < std::ssize(topics) ? &topics[static_cast<std::size_t>(object)]
                                                      : nullptr;
}

std::optional<int> focusedElement(const Form& form, int object, const iVKR_Company& company) {
    const Control* control = form.activeControl();
    if (control == nullptr || control->index() == Control::noIndex)
        return std::nullopt;
    const auto holds = [&](const GridColumn& column) {
        return column.cells == control->name() &&
               (column.first.object == object || column.second.object == object);
    };
    if (std::ranges::any_of(yearlyColumns(), holds))
        return YearlyGrid::rows - 1 - control->index();
    if (!std::ranges::any_of(quarterlyColumns(), holds))
        return std::nullopt;
    // The top row is the last quarter, which need not be the newest of the record.
    const Date top = company.get_LastQDate();
    const Date newest = company.get_LastQDateForGrid();
    return control->index() +
           (isAbsent(top) || isAbsent(newest) ? 0 : nearestQuarters(top, newest));
}

AssistantFacts assistantFacts(const AssistantTopic& topic, const iVKR_Company& company,
                              std::optional<int> element, const QString& shown,
                              const QString& dateFormat, const NumberMarks& marks) {
    AssistantFacts facts;
    facts.title = helpPage(helpObjectBase + topic.object)->title;
    const bool isOfPeriods = topic.datum && isSeries(rowOf(*topic.datum));
    if (!isOfPeriods)
        element.reset();
    else if (!element)
        element = newestElement(topic, company);

    facts.stored = storedText(topic, company, element);
    facts.isStored = !facts.stored.isEmpty();
    if (!facts.isStored) {
        if (topic.unit == nothing)
            facts.stored = tr("A company's record holds nothing for this.");
        else
            facts.stored = tr("Nothing is stored.");
    }
    facts.unit = unitText(topic.unit, company);
    if (element)
        facts.period = (showsQuarters(topic) ? quarterAt : yearAt)(company, *element).name;
    facts.differs = saysElse(topic, company, element, shown, dateFormat, marks);
    facts.history = historyOf(topic, company, element);
    if (topic.quarterly) {
        facts.quartersTitle = seriesTitle(*topic.quarterly);
        facts.quartersUnit = suffixOf(unitOf(*topic.quarterly)).trimmed();
        for (int quarter = 0; quarter < quartersBeside; ++quarter) {
            const auto figure = figureAt(company, *topic.quarterly, quarter);
            const auto end = quarterEnd(company, quarter);
            facts.quarters.append({end ? isoDate(*end) : quarterAt(company, quarter).name,
                                   figure ? figureText(*figure) : tr("nothing stored")});
        }
    }
    return facts;
}

} // namespace vkr
