// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"
#include "store/stored_company.hpp"

#include <string>

namespace vkr {

struct CompanySummary {
    CompanyKey key;
    std::string name;
    std::string symbol;
    std::string exchange;
    std::string industry;
    std::string source;
    int lastFY = 0; // 0 where none is known
    double currentPrice = 0;
    Date priceUpdated;
    std::string lastSaved; // UTC, 2026-01-31T12:00:00Z

    friend bool operator==(const CompanySummary&, const CompanySummary&) = default;
};

enum class ListColumn { name, symbol, exchange, industry, price, priceDate, lastSaved };

// A choice of companies in an order.
struct ListQuery {
    // Words, each of which a company has somewhere in its name, symbol, exchange or industry, in
    // upper or lower case; none: all companies.
    std::string search;
    // Without regard to case and accents, numbers by their value. Equal ones stand by name, then
    // as they were entered; all of it backwards when descending.
    ListColumn sortedBy = ListColumn::name;
    bool isDescending = false;

    friend bool operator==(const ListQuery&, const ListQuery&) = default;
};

// Whether `narrower` finds some of what `wider` finds and no others, in the same order: its words
// only go on.
[[nodiscard]] bool goesOn(const ListQuery& wider, const ListQuery& narrower);
// Whether the company has the words of the query.
[[nodiscard]] bool isFound(const CompanySummary& company, const ListQuery& query);

} // namespace vkr
