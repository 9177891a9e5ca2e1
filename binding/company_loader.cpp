// SPDX-License-Identifier: MIT
#include "binding/company_loader.hpp"

#include "form/controls.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace vkr {

namespace {

// Those that the form keeps until a commit writes them.
constexpr std::string_view followedSettings[] = {setting::currencySymbol, setting::bookValue,
                                                 setting::taxRate, setting::lockBasicInfo,
                                                 setting::leadPeriod};

// --- loading -----------------------------------------------------------------------------------

Date today(const Session& session) {
    return session.services.today();
}

Date endOfLastYear(const Session& session) {
    return makeDate(civil(today(session)).year - 1, 12, 31).value_or(Date{});
}

// Whether the record has no valid date here, or won't say.
bool lacksDate(const Session& session, Datum datum) {
    Date stored{};
    return attempt([&] { stored = readDate(*session.company, datum); }) &&
           !Session::isValidDate(stored);
}

// Writes a date where the record has no valid one.
void suggest(Session& session, Datum missing, Datum written, Date date(const Session&)) {
    const ActionScope derived(session.company, {Origin::derived, {}, {}});
    Date suggested{};
    if (lacksDate(session, missing) && attempt([&] {
            suggested = date(session);
            writeDate(*session.company, written, suggested);
        }))
        session.dates.suggest(written, suggested);
}

// What the options choose is shown once they are known.
void showColumn(const Session& session, SeriesGrid& grid, int number) {
    const GridColumn& column = grid.columns()[static_cast<std::size_t>(number)];
    if (column.choice == ColumnChoice::none)
        ifPossible([&] {
            grid.show(number,
                      column.loadedInUnit ? std::optional(session.unitFactor) : std::nullopt);
        });
}

// The yearly columns from the last to the first, the quarterly ones from the first.
void showColumns(const Session& session, SeriesGrid& yearly, SeriesGrid& quarterly) {
    for (int column = static_cast<int>(yearly.columns().size()); column-- > 0;)
        showColumn(session, yearly, column);
    for (int column = 0; column < static_cast<int>(quarterly.columns().size()); ++column)
        showColumn(session, quarterly, column);
}

void loadSettings(Session& session) {
    std::string symbol;
    ifPossible([&] { symbol = readSetting(session, setting::currencySymbol).toText(); });
    session[controls::currencySymbol].showStored(symbol.empty() ? "$" : symbol);
    const auto flag = [&](std::string_view name) {
        bool value = false;
        ifPossible([&] { value = readSetting(session, name).toBoolean(); });
        return value;
    };
    session.incomeRow = flag(setting::taxRate) ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
    session.equityRow = flag(setting::bookValue) ? EquityRow::bookValue : EquityRow::commonEquity;
}

// --- committing ---------------------------------------------------------------------------------

using Derive = Variant (*)(double, double);

Variant quotient(double numerator, double denominator) {
    return SafeDivide(numerator, denominator, true, Variant(), false, Variant());
}

Variant equityOf(double bookValue, double shares) {
    return bookValue * shares;
}
Variant taxRateOf(double netIncome, double preTaxIncome) {
    return (1 - quotient(netIncome, preTaxIncome).toDouble()) * 100;
}
Variant preTaxIncomeOf(double netIncome, double taxRate) {
    return quotient(netIncome, 1 - taxRate / 100);
}

// The hidden member of a pair, from two series on show, where both have a figure. `back` leads from
// the hidden figure to the shown one: a pair that agrees stays as it was typed.
struct DerivedSeries {
    Datum hidden;
    Datum first;
    Datum second;
    Derive derive;
    Derive back;
    bool (*wanted)(const Session&);
};

bool showsBookValue(const Session& s) {
    return s.equityRow == EquityRow::bookValue;
}
bool showsIncome(const Session& s) {
    return s.incomeRow == IncomeRow::preTaxIncome;
}
bool showsTaxRate(const Session& s) {
    return s.incomeRow == IncomeRow::taxRate;
}

constexpr DerivedSeries derivedSeries[] = {
    {Datum::YCommEqSeries, Datum::YBookValSeries, Datum::YCSOSeries, equityOf, nullptr,
     showsBookValue},
    {Datum::YTaxRateSeries, Datum::YNetIncSeries, Datum::YPTISeries, taxRateOf, preTaxIncomeOf,
     showsIncome},
    {Datum::QTaxRateSeries, Datum::QNetIncSeries, Datum::QPTISeries, taxRateOf, preTaxIncomeOf,
     showsIncome},
    {Datum::YPTISeries, Datum::YNetIncSeries, Datum::YTaxRateSeries, preTaxIncomeOf, taxRateOf,
     showsTaxRate},
    {Datum::QPTISeries, Datum::QNetIncSeries, Datum::QTaxRateSeries, preTaxIncomeOf, taxRateOf,
     showsTaxRate},
};

// To fifteen digits: a product or quotient of typed figures has stray digits behind them that
// nobody typed. Most pairs are told by their distance, which takes a tenth of the time.
bool agree(double one, double other) {
    const double apart = std::abs(one - other);
    const double size = std::abs(other);
    return apart <= 5e-16 * size ||
           (apart <= 1.1e-14 * size && withoutStrayDigits(one) == withoutStrayDigits(other));
}

void derive(iVKR_Company& company, const DerivedSeries& rule) {
    const Variant first = readSeries(company, rule.first);
    const Variant second = readSeries(company, rule.second);
    Variant hidden = readSeries(company, rule.hidden);
    VariantArray& figures = hidden.array();
    const int lower = std::max({figures.lower(), first.array().lower(), second.array().lower()});
    const int upper = std::min({figures.upper(), first.array().upper(), second.array().upper()});
    for (std::int64_t next = lower; next <= upper; ++next) { // the bounds may be the ends of int
        const int i = static_cast<int>(next);
        const double one = first.array().number(i);
        const double other = second.array().number(i);
        if (one > 0 && other > 0 && std::isfinite(one) && std::isfinite(other))
            ifPossible([&] {
                const double held = figures.number(i);
                if (rule.back != nullptr && agree(rule.back(one, held).toDouble(), other))
                    return;
                const double derived = rule.derive(one, other).toDouble();
                if (std::isfinite(derived) && !agree(derived, held))
                    figures.setNumber(i, derived);
            });
    }
    writeSeries(company, rule.hidden, hidden);
}

// What the form has chosen and keeps until a commit.
Variant choiceOf(const Session& session, std::string_view name) {
    if (name == setting::currencySymbol)
        return session[controls::currencySymbol].text();
    if (name == setting::leadPeriod)
        return session[controls::reportingPeriod].listIndex();
    return name == setting::bookValue ? showsBookValue(session)
           : name == setting::taxRate ? showsTaxRate(session)
                                      : session.isLocked();
}

void putSetting(Session& session, Object& held, std::string_view name) {
    const Variant chosen = choiceOf(session, name);
    held.put(name, chosen);
    session.settingsSeen[name] = chosen;
}

} // namespace

void loadCompany(Session& session, CompanyFields& fields, SeriesGrid& yearly,
                 SeriesGrid& quarterly) {
    iVKR_Company& company = *session.company;
    fields.load(LoadStep::otherNumbers);
    fields.load(LoadStep::otherTexts);

    suggest(session, Datum::LastQDateForGrid, Datum::LastQDate, endOfLastYear);
    ifPossible([&] { quarterly.showSpan(); });
    suggest(session, Datum::LastFYDate, Datum::LastFYDate, endOfLastYear);
    ifPossible([&] { company.put_LastFY(company.get_LastFY()); });
    ifPossible([&] { yearly.showSpan(); });

    fields.load(LoadStep::choices);
    ifPossible([&] { loadReportingPeriod(session); });
    fields.load(LoadStep::companyNumbers);
    for (const Datum datum : {Datum::PriceUpdatedDate, Datum::LastUpdate})
        suggest(session, datum, datum, today);
    fields.load(LoadStep::dates);
    fields.load(LoadStep::prices);
    fields.load(LoadStep::identity);

    showColumns(session, yearly, quarterly);
    ifPossible([&] { loadSettings(session); });
    ifPossible([&] { yearly.showChoice(ColumnChoice::income); });
    ifPossible([&] { yearly.showChoice(ColumnChoice::equity); });
    ifPossible([&] { quarterly.showChoice(ColumnChoice::income); });
}

void showCompany(CompanyFields& fields, SeriesGrid& yearly, SeriesGrid& quarterly) {
    for (const auto step :
         {LoadStep::otherNumbers, LoadStep::otherTexts, LoadStep::choices, LoadStep::companyNumbers,
          LoadStep::dates, LoadStep::prices, LoadStep::identity})
        fields.load(step);
    ifPossible([&] { yearly.showSpan(); });
    ifPossible([&] { quarterly.showSpan(); });
    yearly.showAll();
    quarterly.showAll();
}

std::vector<std::pair<std::string_view, Variant>> changedSettings(Session& session) {
    std::vector<std::pair<std::string_view, Variant>> changed;
    for (const auto name : followedSettings)
        ifPossible([&] {
            const auto seen = session.settingsSeen.find(name);
            const bool known = seen != session.settingsSeen.end();
            const std::string before = known ? seen->second.toText() : std::string();
            const Variant held = readSetting(session, name);
            if (!known || before != held.toText())
                changed.emplace_back(name, held);
        });
    return changed;
}

Variant readSetting(Session& session, std::string_view name) {
    return session.settingsSeen[name] = name == setting::leadPeriod
                                            ? session.reportingPeriod()->get(name)
                                            : session.settings()->get(name);
}

void loadReportingPeriod(Session& session) {
    auto& list = session[controls::reportingPeriod];
    ifPossible([&] {
        const int chosen = readSetting(session, setting::leadPeriod).toLong();
        list.setListIndex(chosen >= 0 && chosen < std::ssize(list.list()) ? chosen : -1);
    });
    list.acceptText();
}

void commitCompany(Session& session, std::optional<Date> lastQuarter) {
    iVKR_Company& company = *session.company;
    // A record that listens has heard of every choice when it was made: what is left is but shown.
    const ActionScope derived(session.company, {Origin::derived, {}, {}});
    for (const auto& rule : derivedSeries)
        if (!session.isLocked() && rule.wanted(session))
            ifPossible([&] { derive(company, rule); });
    // A record may let the quarter of its series follow the last quarter: not what is being typed.
    if (const auto& field = session[controls::lastQuarterDate]; field.isTyped())
        ifPossible([&] { company.put_LastQDateForGrid(company.get_LastQDateForGrid()); });
    if (lastQuarter)
        ifPossible([&] { company.put_LastQDate(*lastQuarter); });
    if (choiceOf(session, setting::leadPeriod).toLong() >= 0)
        ifPossible([&] { putSetting(session, *session.reportingPeriod(), setting::leadPeriod); });
    ifPossible([&] { static_cast<void>(company.get_ReportingPeriodEnd()); });
    // One and the same object: a record may hand out a copy that SettingsApply takes over.
    ifPossible([&] {
        const auto held = session.settings();
        for (const auto name : followedSettings)
            if (name != setting::leadPeriod)
                ifPossible([&] { putSetting(session, *held, name); });
    });
    ifPossible([&] { static_cast<void>(company.get_SettingsApply()); });
}

void noteChoice(Session& session, std::string_view name) {
    const auto& company = session.company;
    if (std::dynamic_pointer_cast<ActionListener>(company) == nullptr)
        return;
    ifPossible([&] {
        const bool isPeriod = name == setting::leadPeriod;
        if (isPeriod && choiceOf(session, name).toLong() < 0)
            return;
        putSetting(session, isPeriod ? *session.reportingPeriod() : *session.settings(), name);
        static_cast<void>(isPeriod ? company->get_ReportingPeriodEnd()
                                   : company->get_SettingsApply());
    });
}

} // namespace vkr
