// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_list.hpp"
#include "store/store_connection.hpp"

#include <cstdint>
#include <vector>

namespace vkr {

// By name, then symbol, straight from the companies. Both within a transaction of the caller.
[[nodiscard]] std::vector<CompanySummary> allSummaries(StoreConnection& connection);
// At most so many of the companies of the query, from a place in its order on.
[[nodiscard]] std::vector<CompanySummary> summaryPage(StoreConnection& connection,
                                                      const ListQuery& query, std::int64_t from,
                                                      std::int64_t most);

// Those that have this text there, as CompanyStore::find() says.
[[nodiscard]] std::vector<CompanySummary> summariesWith(StoreConnection& connection,
                                                        ListColumn column, const std::string& text);

} // namespace vkr
