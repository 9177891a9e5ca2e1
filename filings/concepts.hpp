// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string_view>

namespace vkr {

// What figures are made of. Where a concept stands for the same thing as another one, the first of
// the two in the table goes before.
enum class FiledItem {
    revenue,
    pretaxIncome,
    incomeTax,
    netIncome,
    equity,
    preferredStock,
    sharesOutstanding, // at the date of the balance sheet
    coverShares,       // on the cover of the filing, some weeks later
    earningsPerShare,
    dividendDeclared,
    dividendPaid,
    dilutedShares,
    debtCurrent, // all that is due within a year
    commercialPaper,
    longTermDebtCurrent,
    longTermDebt, // without what is due within a year
    splitRatio,
};

struct ConceptRow {
    FiledItem item;
    std::string_view tag; // the concept, with its taxonomy
    std::string_view unit;
    std::string_view doubt = {}; // why the figure is not quite what the datum means
};

[[nodiscard]] std::span<const ConceptRow> conceptTable();
// Whether a document's concept is one of them.
[[nodiscard]] bool isUsedConcept(std::string_view tag);

namespace filed_unit {
inline constexpr std::string_view money = "USD";
inline constexpr std::string_view shares = "shares";
inline constexpr std::string_view perShare = "USD/shares";
inline constexpr std::string_view ratio = "pure";
} // namespace filed_unit

} // namespace vkr
