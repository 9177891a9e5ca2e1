// SPDX-License-Identifier: MIT
#pragma once

#include "filings/review_rows.hpp"

#include <span>

namespace vkr {

// Whether a record's figures stand on other shares than the filed ones, which are on those of
// today.

// Where figures per share and share counts of at least two periods, and most of those that differ,
// are off by the ratio of a split: tells it in the review, and makes doubtful what an import would
// put beside them. First come the splits that the filings tell, then those that are usual.
void compareShareBasis(FilingsReview& review, std::span<const FiledSplit> splits);

} // namespace vkr
