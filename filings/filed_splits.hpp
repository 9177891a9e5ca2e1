// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filings_document.hpp"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vkr {

// A split as the filings tell it: 10 new shares for 1 old one.
struct FiledSplit {
    double ratio = 1;
    Date effective;
    // Whether share counts of one period were filed before and after it at this ratio. Nothing
    // where no period was.
    std::optional<bool> proven;
};

// What the filings tell of splits, oldest first. The same ratio within a year is one split, in
// effect from the later date: one date is often that of the decision.
[[nodiscard]] std::vector<FiledSplit> filedSplits(std::span<const FiledConcept> concepts);

// How many of today's shares one share was on the day of a filing. A split that share counts
// contradict is none.
[[nodiscard]] double sharesSince(std::span<const FiledSplit> splits, Date filed);

} // namespace vkr
