// SPDX-License-Identifier: MIT
#include "filings/filed_splits.hpp"

#include "filings/concepts.hpp"
#include "filings/forms.hpp"

#include <algorithm>
#include <cmath>
#include <map>

namespace vkr {

namespace {

// Counts in thousands beside counts in ones look like a split of 1000.
constexpr double largestRatio = 100;

std::vector<FiledSplit> toldSplits(std::span<const FiledConcept> concepts) {
    std::vector<FiledSplit> splits;
    for (const FiledConcept& one : concepts) {
        const bool isRatio = std::ranges::any_of(conceptTable(), [&](const ConceptRow& row) {
            return row.item == FiledItem::splitRatio && row.tag == one.name && row.unit == one.unit;
        });
        if (!isRatio)
            continue;
        for (const FiledFact& fact : one.facts)
            if (isReportForm(fact.form) && fact.value > 0 && fact.value != 1 &&
                fact.value <= largestRatio && 1 / fact.value <= largestRatio)
                splits.push_back({fact.value, fact.end, std::nullopt});
    }
    std::ranges::sort(splits, {}, &FiledSplit::effective);
    return splits;
}

std::optional<bool> isProven(const FiledSplit& split, std::span<const FiledConcept> concepts) {
    std::optional<bool> proven;
    for (const FiledConcept& one : concepts) {
        if (one.unit != filed_unit::shares)
            continue;
        // The counts of a period before and after.
        std::map<std::pair<double, double>, std::pair<double, double>> counts;
        for (const FiledFact& fact : one.facts) {
            auto& count = counts[{fact.start ? fact.start->serial : 0, fact.end.serial}];
            if (fact.value > 0 && isReportForm(fact.form))
                (fact.filed < split.effective ? count.first : count.second) = fact.value;
        }
        for (const auto& [period, count] : counts) {
            if (count.first == 0 || count.second == 0)
                continue;
            if (std::abs(count.second / count.first / split.ratio - 1) < 0.005)
                return true;
            proven = false;
        }
    }
    return proven;
}

} // namespace

std::vector<FiledSplit> filedSplits(std::span<const FiledConcept> concepts) {
    std::vector<FiledSplit> splits;
    for (const FiledSplit& told : toldSplits(concepts)) {
        const auto same = std::ranges::find_if(splits, [&](const FiledSplit& one) {
            return one.ratio == told.ratio && daysBetween(one.effective, told.effective) <= 366;
        });
        if (same == splits.end())
            splits.push_back(told);
        else
            same->effective = told.effective;
    }
    std::ranges::sort(splits, {}, &FiledSplit::effective);
    for (FiledSplit& one : splits)
        one.proven = isProven(one, concepts);
    return splits;
}

double sharesSince(std::span<const FiledSplit> splits, Date filed) {
    double shares = 1;
    for (const FiledSplit& one : splits)
        if (filed < one.effective && one.proven.value_or(true))
            shares *= one.ratio;
    return shares;
}

} // namespace vkr
