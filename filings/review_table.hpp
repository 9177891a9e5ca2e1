// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filings_review.hpp"

#include <span>
#include <string>
#include <string_view>

namespace vkr {

// A review as a table, for windows and terminals alike.
struct ReviewColumn {
    std::string_view title; // for people
    std::string_view key;   // for programs
    bool isNumber = false;
    std::string (*text)(const ReviewRow&);
};

// Figures are plain decimals with all their digits, an absent one is "".
[[nodiscard]] std::span<const ReviewColumn> reviewColumns();

// "Revenue", "Earnings per share (quarter)".
[[nodiscard]] std::string figureTitle(Datum datum);
[[nodiscard]] std::string_view stateName(ReviewState state);
// "typed", "imported"; "" for none.
[[nodiscard]] std::string_view originName(const std::optional<Origin>& origin);
// Notes and other values of a figure, a line each.
[[nodiscard]] std::string reviewDetails(const ReviewRow& row);

} // namespace vkr
