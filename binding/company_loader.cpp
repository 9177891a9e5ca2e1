// SPDX-License-Identifier: MIT
#include "binding/company_loader.hpp"

#include "binding/form_settings.hpp"
#include "form/controls.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "platform/error_trap.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace vkr {

namespace {

// --- loading -----------------------------------------------------------------------------------

Date today(const EntryContext& context) {
    return context.services.today();
}

Date endOfLastYear(const EntryContext& context) {
    return makeDate(civil(today(context)).year - 1, 12, 31).value_or(Date{});
}

// Whether the record has no valid date here, or won't say.
bool lacksDate(const EntryContext& context, Datum datum) {
    Date stored{};
    return attempt([&] { stored = readDate(*context.company, datum); }) &&
           !EntryContext::isValidDate(stored);
}

// Writes a date where the record has no valid one.
void suggest(EntryContext& context, Datum missing, Datum written, Date date(const EntryContext&)) {
    const ActionScope derived(context.company, {Origin::derived, {}, {}});
    Date suggested{};
    if (lacksDate(context, missing) && attempt([&] {
            suggested = date(context);
            writeDate(*context.company, written, suggested);
        }))
        context.dates.suggest(written, suggested);
}

// What the options choose is shown once they are known.
void showColumn(const EntryContext& context, SeriesGrid& grid, int number) {
    const GridColumn& column = grid.columns()[static_cast<std::size_t>(number)];
    if (column.choice == ColumnChoice::none)
        ifPossible([&] {
            grid.show(number,
                      column.loadedInUnit ? std::optional(context.unitFactor()) : std::nullopt);
        });
}

// The yearly columns from the last to the first, the quarterly ones from the first.
void showColumns(const EntryContext& context, SeriesGrid& yearly, SeriesGrid& quarterly) {
    for (int column = static_cast<int>(yearly.columns().size()); column-- > 0;)
        showColumn(context, yearly, column);
    for (int column = 0; column < static_cast<int>(quarterly.columns().size()); ++column)
        showColumn(context, quarterly, column);
}

void loadSettings(EntryContext& context) {
    loadSetting(context, setting::currencySymbol);
    if (auto& symbol = context[controls::currencySymbol]; symbol.text().empty())
        symbol.showStored("$");
    loadSetting(context, setting::taxRate);
    loadSetting(context, setting::bookValue);
}

// A setting of the record, which counts as seen from then on.
Variant lookAt(EntryContext& context, std::string_view name) {
    return context.settingsSeen[name] = readSetting(*context.company, name);
}

// --- committing ---------------------------------------------------------------------------------

using Derive = Variant (*)(double, double);

Variant quotient(double numerator, double denominator) {
    constexpr bool trueDivision = true;
    constexpr bool checkSign = false;
    return SafeDivide(numerator, denominator, trueDivision, Variant(), checkSign, Variant());
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
    Datum one;
    Datum other;
    Derive derive;
    Derive back;
    bool (*wanted)(const EntryContext&);
};

bool showsBookValue(const EntryContext& s) {
    return s.equityRow == EquityRow::bookValue;
}
bool showsIncome(const EntryContext& s) {
    return s.incomeRow == IncomeRow::preTaxIncome;
}
bool showsTaxRate(const EntryContext& s) {
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
    if (!std::isfinite(apart)) // from a host's record
        return false;
    return apart <= 5e-16 * size ||
           (apart <= 1.1e-14 * size && withoutStrayDigits(one) == withoutStrayDigits(other));
}

void derive(iVKR_Company& company, const DerivedSeries& rule) {
    const Variant ones = readSeries(company, rule.one);
    const Variant others = readSeries(company, rule.other);
    Variant hidden = readSeries(company, rule.hidden);
    VariantArray& figures = hidden.array();
    const int lower = std::max({figures.lower(), ones.array().lower(), others.array().lower()});
    const int upper = std::min({figures.upper(), ones.array().upper(), others.array().upper()});
    for (std::int64_t next = lower; next <= upper; ++next) { // the bounds may be the ends of int
        const int i = static_cast<int>(next);
        const double one = ones.array().number(i);
        const double other = others.array().number(i);
        if (one > 0 && other > 0 && std::isfinite(one) && std::isfinite(other))
            ifPossible([&] {
                const double held = figures.number(i);
                if (rule.back != nullptr && agree(rule.back(one, held).toDouble(), other))
                    return;
                const double derived = withoutStrayDigits(rule.derive(one, other).toDouble());
                if (std::isfinite(derived) && !agree(derived, held))
                    figures.setNumber(i, derived);
            });
    }
    writeSeries(company, rule.hidden, hidden);
}

void putSetting(EntryContext& context, Object& held, const FormSetting& row) {
    const Variant chosen = row.chosen(context);
    held.put(row.name, chosen);
    context.settingsSeen[row.name] = chosen;
}

// One and the same object: a record may hand out a copy that it takes over at the end.
void commitSettings(EntryContext& context, SettingHolder holder) {
    ifPossible([&] {
        const auto held = settingObject(*context.company, holder);
        for (const auto& row : formSettings())
            if (row.isKept && holderOf(row.name) == holder && row.isToStore(context))
                ifPossible([&] { putSetting(context, *held, row); });
    });
    ifPossible([&] { applySettings(*context.company, holder); });
}

} // namespace

void loadCompany(EntryContext& context, CompanyFields& fields, SeriesGrid& yearly,
                 SeriesGrid& quarterly) {
    iVKR_Company& company = *context.company;
    fields.load(LoadStep::otherNumbers);
    fields.load(LoadStep::otherTexts);

    suggest(context, Datum::LastQDateForGrid, Datum::LastQDate, endOfLastYear);
    ifPossible([&] { quarterly.showSpan(); });
    suggest(context, Datum::LastFYDate, Datum::LastFYDate, endOfLastYear);
    ifPossible([&] { company.put_LastFY(company.get_LastFY()); });
    ifPossible([&] { yearly.showSpan(); });

    fields.load(LoadStep::choices);
    loadSetting(context, setting::leadPeriod);
    fields.load(LoadStep::companyNumbers);
    for (const Datum datum : {Datum::PriceUpdatedDate, Datum::LastUpdate})
        suggest(context, datum, datum, today);
    fields.load(LoadStep::dates);
    fields.load(LoadStep::prices);
    fields.load(LoadStep::identity);

    showColumns(context, yearly, quarterly);
    loadSettings(context);
    ifPossible([&] { yearly.showChoice(ColumnChoice::income); });
    ifPossible([&] { yearly.showChoice(ColumnChoice::equity); });
    ifPossible([&] { quarterly.showChoice(ColumnChoice::income); });
}

PeriodsMoved showCompany(CompanyFields& fields, SeriesGrid& yearly, SeriesGrid& quarterly) {
    for (const auto step :
         {LoadStep::otherNumbers, LoadStep::otherTexts, LoadStep::choices, LoadStep::companyNumbers,
          LoadStep::dates, LoadStep::prices, LoadStep::identity})
        fields.load(step);
    PeriodsMoved moved;
    ifPossible([&] { moved.years = yearly.followSpan(); });
    ifPossible([&] { moved.quarters = quarterly.followSpan(); });
    yearly.showAll();
    quarterly.showAll();
    return moved;
}

void loadSetting(EntryContext& context, std::string_view name) {
    const FormSetting& row = formSetting(name);
    if (!attempt([&] { row.take(context, lookAt(context, name)); }))
        ifPossible([&] { row.take(context, row.absent()); });
}

void followSettings(EntryContext& context) {
    for (const auto& row : formSettings())
        if (row.isKept)
            ifPossible([&] {
                const auto seen = context.settingsSeen.find(row.name);
                const bool known = seen != context.settingsSeen.end();
                const std::string before = known ? seen->second.toText() : std::string();
                const Variant held = lookAt(context, row.name);
                if (!known || before != held.toText())
                    row.take(context, held);
            });
}

void commitCompany(EntryContext& context, std::optional<Date> lastQuarter) {
    iVKR_Company& company = *context.company;
    // A choice was an action when it was made. These writes are derived.
    const ActionScope derived(context.company, {Origin::derived, {}, {}});
    for (const auto& rule : derivedSeries)
        if (!context.isLocked() && rule.wanted(context))
            ifPossible([&] { derive(company, rule); });
    // A record may move the quarter of its series with the last quarter. A date that is still being
    // typed must not do that.
    if (const auto& field = context[controls::lastQuarterDate]; field.isTyped())
        ifPossible([&] { company.put_LastQDateForGrid(company.get_LastQDateForGrid()); });
    if (lastQuarter)
        ifPossible([&] { company.put_LastQDate(*lastQuarter); });
    commitSettings(context, SettingHolder::reportingPeriod);
    commitSettings(context, SettingHolder::settings);
}

void noteChoice(EntryContext& context, std::string_view name) {
    const auto& company = context.company;
    const FormSetting& row = formSetting(name);
    if (std::dynamic_pointer_cast<ActionListener>(company) == nullptr || !row.isToStore(context))
        return;
    ifPossible([&] {
        const SettingHolder holder = holderOf(name);
        putSetting(context, *settingObject(*company, holder), row);
        applySettings(*company, holder);
    });
}

} // namespace vkr
