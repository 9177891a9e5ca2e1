// SPDX-License-Identifier: MIT
#include "host/assistant_facts.hpp"

#include "host/texts.hpp"
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/number_text.hpp"
#include "platform/date.hpp"
#include "platform/form.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "record/setting_table.hpp"
#include "sheet/today.hpp"
#include "yearly/yearly_grid.hpp"

#include <QCoreApplication>
#include <QDate>

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

using enum FigureUnit;

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
        return {isComing ? 0 : 1, YearlyGrid::lastYearRow + 1, yearAt};
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

// A figure of the company as a whole; 0 where the topic has none.
double figureOf(const AssistantTopic& topic, const iVKR_Company& company) {
    const bool isFigure = topic.unit == money || topic.unit == shares || topic.unit == perShare ||
                          topic.unit == percent;
    if (!topic.datum || !isFigure || isSeries(rowOf(*topic.datum)))
        return 0;
    if (topic.object == doCommDiv && company.get_CommDivAlternate() != 0)
        return company.get_CommDivAlternate();
    return readNumber(company, *topic.datum);
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
        History::Series one{helpTitleOf(topicOf(series)), {}};
        for (int at = span.oldest; at >= span.newest; --at)
            one.figures.append(figureAt(company, series, at));
        names.append(one.name);
        history.series.append(one);
    }
    for (int at = span.oldest; at >= span.newest; --at)
        history.periods.append(span.at(company, at));
    history.title = (showsQuarters(topic) ? tr("%1 by quarter") : tr("%1 by fiscal year"))
                        .arg(names.join(tr(" and ")));
    history.suffix = suffixOf(topicOf(data.front()).unit);
    if (const double level = figureOf(topic, company); level != 0) {
        history.level = level;
        history.levelName = helpTitleOf(topic);
    }
    constexpr int quartersPerYear = 4;
    history.cycle = showsQuarters(topic) ? quartersPerYear : 1;
    if (element && *element >= span.newest && *element <= span.oldest)
        history.marked = span.oldest - *element;
    return history;
}

QString numberWithUnit(double figure, FigureUnit unit) {
    return figure == 0 ? QString() : figureText(figure) + suffixOf(unit);
}

// A setting in the words of the Options tab, where it has the value; the last of its rows stands
// for any other one.
struct ChoiceWords {
    DataEntryObject object;
    std::string_view setting;
    std::optional<int> value;
    const char* words;
};
constexpr ChoiceWords choices[] = {
    {doReportingPeriod, setting::leadPeriod, 0, QT_TRANSLATE_NOOP("assistant", "3 months")},
    {doReportingPeriod, setting::leadPeriod, 1, QT_TRANSLATE_NOOP("assistant", "6 months")},
    {doReportingPeriod, setting::leadPeriod, 2, QT_TRANSLATE_NOOP("assistant", "12 months")},
    {doUnit, setting::unit, 3, QT_TRANSLATE_NOOP("assistant", "Thousands")},
    {doUnit, setting::unit, 9, QT_TRANSLATE_NOOP("assistant", "Billions")},
    {doUnit,
     setting::unit,
     {},
     QT_TRANSLATE_NOOP("assistant", "Millions")}, // also where none was ever chosen
    {doPTI_TaxRate, setting::taxRate, 0, QT_TRANSLATE_NOOP("assistant", "Pre-tax income")},
    {doPTI_TaxRate, setting::taxRate, {}, QT_TRANSLATE_NOOP("assistant", "Tax rate")},
    {doCommEq_BookVal, setting::bookValue, 0, QT_TRANSLATE_NOOP("assistant", "Common equity")},
    {doCommEq_BookVal, setting::bookValue, {}, QT_TRANSLATE_NOOP("assistant", "Book value")},
    {doLockInfo, setting::lockBasicInfo, 0, QT_TRANSLATE_NOOP("assistant", "Off")},
    {doLockInfo, setting::lockBasicInfo, {}, QT_TRANSLATE_NOOP("assistant", "On")},
};

QString choiceText(DataEntryObject object, const iVKR_Company& company) {
    for (const ChoiceWords& row : choices)
        if (row.object == object &&
            (!row.value || readSetting(company, row.setting).toLong() == *row.value))
            return tr(row.words);
    return {};
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
        return topic.unit == choice ? choiceText(*topic.object, company)
                                    : numberWithUnit(derived(*topic.object, company), topic.unit);
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
    return numberWithUnit(figureOf(topic, company), topic.unit);
}

std::optional<int> newestElement(const AssistantTopic& topic, const iVKR_Company& company) {
    const int oldest = (showsQuarters(topic) ? QuarterlyGrid::mostRows : YearlyGrid::rows) - 1;
    for (int element = showsQuarters(topic) ? 0 : 1; element <= oldest; ++element)
        if (figureAt(company, *topic.datum, element))
            return element;
    return std::nullopt;
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

std::optional<int> focusedElement(const Form& form, int object, const iVKR_Company& company) {
    const Control* control = form.activeControl();
    if (control == nullptr || control->index() == Control::noIndex)
        return std::nullopt;
    const auto holds = [&](const GridColumn& column) {
        return column.cells.holds(*control) &&
               (column.usual.object == object ||
                (column.alternative && column.alternative->object == object));
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
    facts.title = helpTitleOf(topic);
    const bool isOfPeriods = topic.datum && isSeries(rowOf(*topic.datum));
    if (!isOfPeriods)
        element.reset();
    else if (!element)
        element = newestElement(topic, company);

    facts.element = element;
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
        facts.quartersTitle = helpTitleOf(topicOf(*topic.quarterly));
        facts.quartersUnit = suffixOf(topicOf(*topic.quarterly).unit).trimmed();
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
