// SPDX-License-Identifier: MIT
#pragma once

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

// "Revenue", "Earnings per share (quarter)".
[[nodiscard]] std::string figureTitle(Datum datum);
[[nodiscard]] std::string_view stateName(ReviewState state);
// "typed", "imported"; "" for none.
[[nodiscard]] std::string_view originName(const std::optional<Origin>& origin);
// Notes and other values of a figure, a line each.
[[nodiscard]] std::string reviewDetails(const ReviewRow& row);

} // namespace vkr
