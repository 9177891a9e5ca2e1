// SPDX-License-Identifier: MIT
#include "filings/filed_figures.hpp"

#include "company/exact_text.hpp"
#include "filings/figure_sums.hpp"

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

using Amount = std::optional<FiledAmount>;

constexpr double million = 1e6;
constexpr int coverDays = 100; // within which the cover of a year's filing counts its shares

class Builder {
  public:
    Builder(const FilingsDocument& document, FiledCompany& company)
        : book_(document), company_(company) {
        company_.splits = book_.splits();
        company_.calendar = fiscalCalendar(document.concepts);
    }

    void build() {
        const auto& years = company_.calendar.years;
        for (auto year = years.rbegin(); year != years.rend(); ++year)
            addYear(*year);
        for (std::size_t i = 0; i < company_.calendar.running.size(); ++i)
            if (const auto& quarter = company_.calendar.running[i])
                addQuarter(*quarter, nullptr);
        for (const FiscalYear& year : years)
            for (const auto& quarter : year.quarters)
                if (quarter)
                    addQuarter(*quarter, &year);
        addCard();
        std::ranges::stable_sort(
            company_.figures, [](const FiledFigure& left, const FiledFigure& right) {
                return left.datum != right.datum ? left.datum < right.datum : right.end < left.end;
            });
    }

  private:
    // --- figures ---------------------------------------------------------------------------------

    void add(Datum datum, Date end, const Amount& amount, bool derived = false) {
        if (!amount)
            return;
        FiledFigure figure;
        figure.datum = datum;
        figure.end = end;
        const DatumUnit unit = unitOf(datum);
        figure.exact = inUnits(unit, amount->value);
        figure.value = amount->divided ? roundedQuotient(unit, figure.exact)
                                       : roundedFigure(unit, figure.exact);
        figure.basis = amount->basis;
        figure.derived = derived;
        figure.source = amount->source;
        figure.notes = amount->notes;
        for (OtherValue other : amount->others) {
            other.value = roundedQuotient(unit, inUnits(unit, other.value));
            figure.others.push_back(std::move(other));
        }
        std::ranges::stable_sort(figure.others, {},
                                 [](const OtherValue& other) { return other.source.filed; });
        if (amount->basis != 1)
            figure.notes.push_back({"adjusted for splits, " + exactNumberText(amount->basis) +
                                    " for 1" + asFiled(*amount)});
        if (amount->basis != 1 && !splitsProven(amount->source.filed))
            figure.notes.push_back({"no share count proves the split", true});
        company_.figures.push_back(std::move(figure));
    }

    [[nodiscard]] static std::string asFiled(const FiledAmount& amount) {
        return amount.asFiled ? "; " + exactNumberText(*amount.asFiled) + " as filed" : "";
    }

    [[nodiscard]] static double inUnits(DatumUnit unit, double value) {
        return unit == DatumUnit::money || unit == DatumUnit::shares ? value / million : value;
    }

    [[nodiscard]] bool splitsProven(Date filed) const {
        return std::ranges::all_of(company_.splits, [&](const FiledSplit& one) {
            return one.effective <= filed || one.proven.has_value();
        });
    }

    // --- years -----------------------------------------------------------------------------------

    void addYear(const FiscalYear& year) {
        const auto over = [&](FiledItem item) {
            return book_.over(item, year.start, year.end, yearDays);
        };
        const Amount pretax = over(FiledItem::pretaxIncome);
        const Amount equity = commonEquity(year.end);
        const Amount netIncome = over(FiledItem::netIncome);
        const Amount earnings = over(FiledItem::earningsPerShare);
        Amount shares = over(FiledItem::dilutedShares);
        noteScale(netIncome, earnings, shares);
        add(Datum::YRevenueSeries, year.end, over(FiledItem::revenue));
        add(Datum::YPTISeries, year.end, pretax);
        add(Datum::YTaxRateSeries, year.end, percentOf(over(FiledItem::incomeTax), pretax));
        add(Datum::YNetIncSeries, year.end, netIncome);
        add(Datum::YCommEqSeries, year.end, equity);
        add(Datum::YBookValSeries, year.end, quotient(equity, sharesAt(year.end)));
        add(Datum::YEPSSeries, year.end, earnings);
        add(Datum::YDividendSeries, year.end,
            larger(over(FiledItem::dividendDeclared), over(FiledItem::dividendPaid)));
        add(Datum::YCSOSeries, year.end, shares);
    }

    [[nodiscard]] Amount commonEquity(Date date) const {
        const Amount equity = book_.at(FiledItem::equity, date);
        const Amount preferred = book_.at(FiledItem::preferredStock, date);
        return preferred && preferred->value != 0 ? sum(equity, preferred, -1) : equity;
    }

    [[nodiscard]] Amount sharesAt(Date date) const {
        if (Amount shares = book_.at(FiledItem::sharesOutstanding, date))
            return shares;
        const auto cover = book_.newestDate(FiledItem::coverShares, date, addDays(date, coverDays));
        Amount shares = cover ? book_.at(FiledItem::coverShares, *cover) : std::nullopt;
        if (shares)
            shares->notes.push_back({"by the shares of " + isoDateText(*cover)});
        return shares;
    }

    // --- quarters --------------------------------------------------------------------------------

    struct QuarterAmount {
        Amount amount;
        bool derived = false;
    };

    [[nodiscard]] Amount stated(FiledItem item, const FiledQuarter& quarter) const {
        Amount amount = book_.over(item, quarter.start, quarter.end,
                                   quarter.isLong ? longQuarterDays : quarterDays);
        if (amount && quarter.isLong)
            amount->notes.push_back({"a quarter of 16 weeks"});
        return amount;
    }

    // As stated, else the year less its three quarters, else less its nine months.
    [[nodiscard]] QuarterAmount inQuarter(FiledItem item, const FiledQuarter& quarter,
                                          const FiscalYear* year) const {
        if (Amount amount = stated(item, quarter); amount || year == nullptr || quarter.number != 4)
            return {amount, false};
        const Amount whole = book_.over(item, year->start, year->end, yearDays);
        if (Amount rest = lessQuarters(item, whole, *year))
            return {rest, true};
        const auto& third = year->quarters[2];
        if (item == FiledItem::earningsPerShare || !third)
            return {};
        Amount rest = sum(whole, book_.over(item, year->start, third->end, nineMonthsDays), -1);
        if (rest)
            rest->notes.push_back({"the year less its first nine months"});
        return {rest, true};
    }

    [[nodiscard]] Amount lessQuarters(FiledItem item, const Amount& whole,
                                      const FiscalYear& year) const {
        Amount rest = whole;
        for (std::size_t i = 0; i < 3; ++i)
            rest = year.quarters[i] ? sum(rest, stated(item, *year.quarters[i]), -1) : std::nullopt;
        if (!rest)
            return rest;
        rest->source.concepts = whole->source.concepts;
        rest->source.form = whole->source.form;
        rest->source.filed = whole->source.filed;
        rest->source.accession = whole->source.accession;
        rest->others.clear();
        rest->notes.push_back({"the year less its first three quarters"});
        return rest;
    }

    void addQuarter(const FiledQuarter& quarter, const FiscalYear* year) {
        const auto of = [&](FiledItem item) { return inQuarter(item, quarter, year); };
        const QuarterAmount revenue = of(FiledItem::revenue);
        const QuarterAmount pretax = of(FiledItem::pretaxIncome);
        const QuarterAmount tax = of(FiledItem::incomeTax);
        const QuarterAmount netIncome = of(FiledItem::netIncome);
        const QuarterAmount earnings = of(FiledItem::earningsPerShare);
        add(Datum::QRevenueSeries, quarter.end, revenue.amount, revenue.derived);
        add(Datum::QPTISeries, quarter.end, pretax.amount, pretax.derived);
        add(Datum::QTaxRateSeries, quarter.end, percentOf(tax.amount, pretax.amount),
            tax.derived || pretax.derived);
        add(Datum::QNetIncSeries, quarter.end, netIncome.amount, netIncome.derived);
        if (earnings.derived && !sameSign(earnings.amount, netIncome.amount)) {
            company_.notes.push_back("Earnings per share of the quarter to " +
                                     isoDateText(quarter.end) +
                                     " are left empty: the year less its three quarters has not "
                                     "the sign of net income.");
            return;
        }
        add(Datum::QEPSSeries, quarter.end, earnings.amount, earnings.derived);
    }

    // --- what is no series -----------------------------------------------------------------------

    void addCard() {
        const Date never = Date{1};
        const Date always = *makeDate(9999, 12, 31);
        if (const auto date = book_.newestDate(FiledItem::coverShares, never, always))
            add(Datum::CommShares, *date, coverCount(*date));
        const auto quarters = company_.calendar.quarters();
        for (auto quarter = quarters.rbegin(); quarter != quarters.rend(); ++quarter)
            if (const Amount shares = stated(FiledItem::dilutedShares, *quarter)) {
                add(Datum::DilutedShares, quarter->end, shares);
                break;
            }
        if (const auto date = book_.newestDate(FiledItem::equity, never, always)) {
            add(Datum::TotalDebt, *date, debtAt(*date));
            add(Datum::PrefShares, *date, book_.at(FiledItem::preferredStock, *date));
        }
    }

    // Nothing where one filing gives several, for classes of shares of their own.
    [[nodiscard]] Amount coverCount(Date date) {
        Amount count = book_.at(FiledItem::coverShares, date);
        const bool several = count && std::ranges::any_of(count->others, [&](const auto& other) {
                                 return other.source.accession == count->source.accession;
                             });
        if (!several)
            return count;
        company_.notes.emplace_back("Common shares are left out: the filing counts several classes "
                                    "of shares.");
        return std::nullopt;
    }

    [[nodiscard]] Amount debtAt(Date date) const {
        Amount current = book_.at(FiledItem::debtCurrent, date);
        if (!current)
            current = total(book_.at(FiledItem::commercialPaper, date),
                            book_.at(FiledItem::longTermDebtCurrent, date));
        const Amount later = book_.at(FiledItem::longTermDebt, date);
        Amount debt = total(current, later);
        if (debt && (!current || !later))
            debt->notes.push_back({current ? "no long-term debt is given at that date"
                                           : "no debt due within a year is given at that date"});
        return debt;
    }

    FactBook book_;
    FiledCompany& company_;
};

// Why nothing of a document can be taken.
std::string refusalOf(const FilingsDocument& document) {
    if (!document.taxonomies.contains("us-gaap"))
        return document.taxonomies.contains("ifrs-full")
                   ? "The company reports by IFRS, of which nothing can be imported."
                   : "The document holds no figures of a company's reports.";
    if (document.units.contains(std::string(filed_unit::money)))
        return {};
    std::string units;
    for (const auto& [unit, facts] : document.units)
        if (unit.size() == 3)
            units += (units.empty() ? "" : ", ") + unit;
    return units.empty() ? "The document holds no figure in US dollars."
                         : "The company reports in " + units + ", not in US dollars.";
}

} // namespace

bool FiledFigure::isDoubtful() const {
    return std::ranges::any_of(notes, &FigureNote::doubt);
}

FiledCompany filedFigures(const FilingsDocument& document) {
    FiledCompany company;
    company.name = document.entityName;
    company.cik = document.cik;
    company.refusal = refusalOf(document);
    if (!company.refusal.empty())
        return company;
    Builder(document, company).build();
    if (company.figures.empty())
        company.refusal = "The document holds no figure that can be taken.";
    for (const FiledSplit& one : company.splits)
        if (one.proven == false)
            company.notes.push_back("A split of " + exactNumberText(one.ratio) + " for 1 of " +
                                    isoDateText(one.effective) +
                                    " is left out: share counts contradict it.");
    if (document.taxonomies.contains("ifrs-full"))
        company.notes.emplace_back("What is reported by IFRS is left out.");
    if (document.unusable > 0)
        company.notes.push_back(std::to_string(document.unusable) +
                                " facts without a value, a date or a filing are left out.");
    return company;
}

} // namespace vkr
