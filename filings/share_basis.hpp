// SPDX-License-Identifier: MIT
#pragma once

#include "filings/review_rows.hpp"

#include <span>

namespace vkr {

// Whether a record's figures stand on other shares than the filed ones, which are on those of
// today.

// Where figures per share and share counts are off by the ratio of a split: tells it in the review,
// and makes doubtful what an import would put beside them. Of the splits that the filings tell two
// figures speak, of data most of whose differences it explains; else of one that is usual those of
// two periods, and most of all differences.
void compareShareBasis(FilingsReview& review, std::span<const FiledSplit> splits);

} // namespace vkr
