// SPDX-License-Identifier: MIT
#pragma once

#include "filings/fact_book.hpp"
#include "record/datum_table.hpp"

#include <optional>

namespace vkr {

// Figures made of several amounts. Nothing where one that is needed is missing; what is known of
// the parts is known of the whole, and its filing is the latest of theirs.

// left + sign x right.
[[nodiscard]] std::optional<FiledAmount> sum(const std::optional<FiledAmount>& left,
                                             const std::optional<FiledAmount>& right, int sign);
// The one there is, where there is one alone.
[[nodiscard]] std::optional<FiledAmount> total(const std::optional<FiledAmount>& left,
                                               const std::optional<FiledAmount>& right);
// Nothing for a divisor of 0.
[[nodiscard]] std::optional<FiledAmount> quotient(const std::optional<FiledAmount>& left,
                                                  const std::optional<FiledAmount>& right);
[[nodiscard]] std::optional<FiledAmount> percentOf(const std::optional<FiledAmount>& part,
                                                   const std::optional<FiledAmount>& whole);
// The one there is, or the larger one; that they differ is noted.
[[nodiscard]] std::optional<FiledAmount> larger(const std::optional<FiledAmount>& left,
                                                const std::optional<FiledAmount>& right);

[[nodiscard]] bool sameSign(const std::optional<FiledAmount>& left,
                            const std::optional<FiledAmount>& right);

// Marks a share count that earnings say is a thousand or a million times off.
void noteScale(const std::optional<FiledAmount>& netIncome,
               const std::optional<FiledAmount>& earningsPerShare,
               std::optional<FiledAmount>& shares);

// A figure in a record's units as it is imported: without the digits that binary sums add, and of a
// quotient without those that dividing adds.
[[nodiscard]] double roundedFigure(DatumUnit unit, double exact);
[[nodiscard]] double roundedQuotient(DatumUnit unit, double exact);

} // namespace vkr
