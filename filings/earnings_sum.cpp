// SPDX-License-Identifier: MIT
#include "filings/earnings_sum.hpp"

#include "company/exact_text.hpp"
#include "filings/figure_sums.hpp"

#include <algorithm>

namespace vkr {

namespace {

// Which of the last quarters, the newest is 0; nothing for any other figure.
std::optional<std::size_t> quarterOf(const FilingsReview& review, const ReviewRow& row) {
    if (row.figure.datum != Datum::QEPSSeries || !row.element)
        return std::nullopt;
    const int quarter = *row.element - review.lastQuarter;
    const bool counts = quarter >= 0 && quarter < static_cast<int>(review.lastEarnings.size());
    return counts ? std::optional(static_cast<std::size_t>(quarter)) : std::nullopt;
}

// The last quarter that the form shows may lie before the newest one.
int lastQuarterOf(const FilingsReview& review, const iVKR_Company& company) {
    const Date shown = company.get_LastQDate();
    const bool isMoved = !review.quarters.changes.empty() || isAbsent(shown);
    return isMoved ? 0 : std::max(0, nearestQuarters(shown, review.quarters.newestQuarter));
}

} // namespace

void addEarningsSum(FilingsReview& review, const iVKR_Company& company) {
    if (!review.quarters.placed)
        return;
    review.lastQuarter = lastQuarterOf(review, company);
    const Variant series = company.get_QEPSSeries();
    if (!series.isArray())
        return;
    int place = review.lastQuarter - review.quarters.added;
    for (double& stored : review.lastEarnings) {
        if (series.array().contains(place))
            stored = series.array().number(place);
        ++place;
    }
    auto known = review.lastEarnings;
    bool follows = review.quarters.added > 0;
    for (const ReviewRow& row : review.rows)
        if (const auto quarter = quarterOf(review, row)) {
            known[*quarter] = row.figure.value;
            follows = follows || row.state != ReviewState::same;
        }
    if (!follows || std::ranges::find(known, 0) != known.end())
        return;
    ReviewRow row;
    row.figure.datum = Datum::Last4QEPS;
    row.figure.end = addQuarters(review.quarters.newestQuarter, -review.lastQuarter);
    row.figure.derived = true;
    row.figure.source.concepts = "the sum of the last four quarters";
    row.period = isoDateText(row.figure.end);
    row.stored = company.get_Last4QEPS();
    review.rows.push_back(std::move(row));
}

std::optional<double> earningsSum(const FilingsReview& review) {
    auto earnings = review.lastEarnings;
    bool changes = review.quarters.added > 0;
    for (const ReviewRow& row : review.rows)
        if (const auto quarter = quarterOf(review, row); quarter && row.ticked) {
            earnings[*quarter] = row.figure.value;
            changes = true;
        }
    if (!changes || std::ranges::find(earnings, 0) != earnings.end())
        return std::nullopt;
    double sum = 0;
    for (const double one : earnings)
        sum += one;
    return roundedFigure(DatumUnit::perShare, sum);
}

ReviewRow* earningsSumRow(FilingsReview& review) {
    const auto row = std::ranges::find_if(
        review.rows, [](const ReviewRow& one) { return one.figure.datum == Datum::Last4QEPS; });
    return row == review.rows.end() ? nullptr : &*row;
}

} // namespace vkr
