// SPDX-License-Identifier: MIT
#pragma once

#include "company/exact_text.hpp"
#include "filings/filings_review.hpp"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vkr {

// A review as a table, for windows and terminals alike.
struct ReviewColumn {
    std::string_view title; // for people
    std::string_view key;   // for programs
    // One of the two. A figure that is not there is nothing.
    std::string (*text)(const ReviewRow&) = nullptr;
    std::optional<double> (*number)(const ReviewRow&) = nullptr;
};

[[nodiscard]] std::span<const ReviewColumn> reviewColumns();
// A cell for programs: figures are plain decimals with all their digits.
[[nodiscard]] std::string reviewCell(const ReviewRow& row, const ReviewColumn& column);

[[nodiscard]] std::string_view stateName(ReviewState state);
// Where a figure was read, its notes, and other values of its period, a line each.
[[nodiscard]] std::string reviewDetails(const ReviewRow& row,
                                        std::string (*figureText)(double) = exactNumberText);

} // namespace vkr
