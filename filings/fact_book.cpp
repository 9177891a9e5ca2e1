// SPDX-License-Identifier: MIT
#include "filings/fact_book.hpp"

#include "company/exact_text.hpp"
#include "filings/forms.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <tuple>

namespace vkr {

namespace {

constexpr int sameStart = 10;            // days
constexpr double leastShareCount = 1000; // up to it a count is a placeholder
constexpr double coarsestUnit = 1e6;
constexpr double perShareRounding = 0.005; // of a figure per share as it is filed

// The largest power of ten, up to a million, that a whole amount is a multiple of.
double unitOfAmount(double value) {
    double unit = 1;
    while (unit < coarsestUnit && value != 0 && std::fmod(value, unit * 10) == 0)
        unit *= 10;
    return unit;
}

// Whether one is the other, rounded to thousands or millions: one that has few digits by chance is
// not as much finer.
bool isCoarser(double coarse, double fine) {
    const double unit = unitOfAmount(coarse);
    return unit >= 100 * unitOfAmount(fine) && std::abs(coarse - fine) <= unit / 2;
}

FigureSource sourceOf(const ConceptRow& row, const FiledFact& fact) {
    return {std::string(row.tag), fact.form, fact.filed, fact.accession};
}

std::string told(const FiledFact& fact) {
    return fact.form + " of " + isoDateText(fact.filed);
}

} // namespace

FactBook::FactBook(const FilingsDocument& document)
    : document_(document), splits_(filedSplits(document.concepts)) {}

template <typename Wanted>
std::vector<FactBook::Entry> FactBook::entries(const ConceptRow& row, Wanted wanted) const {
    std::vector<Entry> found;
    for (const FiledConcept& one : document_.concepts) {
        if (one.name != row.tag || one.unit != row.unit)
            continue;
        for (const FiledFact& fact : one.facts) {
            if (!isReportForm(fact.form) || !wanted(fact))
                continue;
            if (row.unit == filed_unit::shares && fact.value <= leastShareCount)
                continue;
            const double shares = sharesSince(splits_, fact.filed);
            const double value = row.unit == filed_unit::shares     ? fact.value * shares
                                 : row.unit == filed_unit::perShare ? fact.value / shares
                                                                    : fact.value;
            found.push_back({&fact, value, row.unit == filed_unit::money ? 1 : shares});
        }
    }
    std::ranges::sort(
        found, {}, [](const Entry& one) { return std::tie(one.fact->filed, one.fact->accession); });
    return found;
}

bool FactBook::sameRounded(const ConceptRow& row, const Entry& left, const Entry& right) {
    if (row.unit != filed_unit::perShare)
        return isCoarser(left.value, right.value) || isCoarser(right.value, left.value);
    // A cent before a split is less than one after it.
    return left.basis != right.basis &&
           std::abs(left.value - right.value) <=
               perShareRounding / std::min(left.basis, right.basis) * 1.0001;
}

FiledAmount FactBook::choose(const ConceptRow& row, std::vector<Entry> entries) {
    std::size_t chosen = entries.size() - 1;
    const Entry& latest = entries.back();
    const bool wholeAmounts = row.unit != filed_unit::perShare;
    for (std::size_t i = chosen; i-- > 0 && wholeAmounts;) {
        if (entries[i].value == entries[chosen].value)
            continue;
        if (entries[i].basis != latest.basis || !isCoarser(latest.value, entries[i].value))
            break;
        chosen = i;
    }
    const Entry& taken = entries[chosen];
    FiledAmount amount;
    amount.value = taken.value;
    amount.basis = taken.basis;
    amount.divided = taken.basis != 1;
    amount.asFiled = taken.fact->value;
    amount.source = sourceOf(row, *taken.fact);
    if (!row.doubt.empty())
        amount.notes.push_back({std::string(row.doubt), true});
    if (chosen + 1 < entries.size())
        amount.notes.push_back({"same, rounded, in " + told(*latest.fact)});
    bool restated = false;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& one = entries[i];
        if (i == chosen || one.value == taken.value)
            continue;
        const bool isOdd =
            i > 0 && i + 1 < entries.size() && entries[i - 1].value == entries[i + 1].value;
        const char* remark = sameRounded(row, one, taken) ? "the same, rounded"
                             : isOdd ? "contradicted by the filings before and after it"
                                     : "restated later";
        restated = restated || remark == std::string_view("restated later");
        amount.others.push_back({one.value, sourceOf(row, *one.fact), remark});
    }
    if (restated)
        amount.notes.push_back({"restated"});
    return amount;
}

template <typename Wanted>
std::optional<FiledAmount> FactBook::find(FiledItem item, Wanted wanted) const {
    std::optional<FiledAmount> amount;
    for (const ConceptRow& row : conceptTable()) {
        if (row.item != item)
            continue;
        auto found = entries(row, wanted);
        if (found.empty())
            continue;
        if (!amount) {
            amount = choose(row, std::move(found));
            continue;
        }
        const FiledAmount second = choose(row, std::move(found));
        const bool differs = second.value != amount->value &&
                             !isCoarser(second.value, amount->value) &&
                             !isCoarser(amount->value, second.value);
        // What is not quite the item is expected to differ.
        if (!differs || !row.doubt.empty())
            continue;
        amount->others.push_back({second.value, second.source, "another concept"});
        if (second.source.filed > amount->source.filed)
            amount->notes.push_back(
                {"a later filing gives another value as " + second.source.concepts, true});
    }
    return amount;
}

std::optional<FiledAmount> FactBook::over(FiledItem item, Date start, Date end,
                                          DayWindow window) const {
    return find(item, [&](const FiledFact& fact) {
        return fact.start && fact.end == end && window.holds(daysOf(*fact.start, end)) &&
               std::abs(daysBetween(start, *fact.start)) <= sameStart;
    });
}

std::optional<FiledAmount> FactBook::at(FiledItem item, Date date) const {
    return find(item, [&](const FiledFact& fact) { return !fact.start && fact.end == date; });
}

std::optional<Date> FactBook::newestDate(FiledItem item, Date from, Date to) const {
    std::optional<Date> newest;
    for (const ConceptRow& row : conceptTable()) {
        if (row.item != item)
            continue;
        for (const Entry& one : entries(row, [&](const FiledFact& fact) {
                 return !fact.start && from <= fact.end && fact.end <= to;
             }))
            newest = std::max(newest.value_or(one.fact->end), one.fact->end);
    }
    return newest;
}

} // namespace vkr
