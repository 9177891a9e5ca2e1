// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_table.hpp"
#include "store/finding_verdicts.hpp"
#include "store/history_table.hpp"

#include <optional>

namespace vkr {

// What is to be told of a company that is not as it was saved.
[[nodiscard]] CompanyDamage damageOf(std::int64_t id, const CompanyTable::Row& row,
                                     HistoryTable& history);

// What has become another one without a save, as a group of the history: nobody knows where it
// comes from.
[[nodiscard]] ChangeGroup changedOutside(const CompanyRecord& saved, const CompanyRecord& stored);

// Looks at everything that is stored of a company: its data, its history, what was said of its
// findings, its row in the list, who saved it last. Nothing where all of it is sound; within a
// transaction of the caller.
[[nodiscard]] std::optional<CompanyDamage> checkCompany(StoreConnection& connection,
                                                        CompanyTable& companies,
                                                        HistoryTable& history,
                                                        FindingVerdicts& verdicts, std::int64_t id);

} // namespace vkr
