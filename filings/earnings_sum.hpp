// SPDX-License-Identifier: MIT
#pragma once

#include "filings/review_rows.hpp"

#include <optional>

namespace vkr {

// The earnings of the last four quarters, which the form sums up: what they are once an import is
// in.

// Where the earnings of one of these quarters are new or other ones, or quarters are added: the row
// of the sum, and the quarters in the review. Passes on what the record throws.
void addEarningsSum(FilingsReview& review, const iVKR_Company& company);

// The sum by the rows that are ticked. Nothing where none of these changes it, or a quarter is
// missing: it stays as it is then.
[[nodiscard]] std::optional<double> earningsSum(const FilingsReview& review);

// Null where the review has none.
[[nodiscard]] ReviewRow* earningsSumRow(FilingsReview& review);

} // namespace vkr
