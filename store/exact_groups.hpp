// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "store/company_history.hpp"

#include <vector>

namespace vkr {

// The groups that lead from the stored company to the saved one, exactly: `before` of each change
// is what stood there then, and what nobody accounted for comes last. One at least, be it empty.
[[nodiscard]] std::vector<ChangeGroup>
exactGroups(const CompanyRecord& stored, const CompanyRecord& saved, const SaveAccount& account);

// Puts the change into the company; whether it made any difference. `before` becomes what stood
// there, `after` what stands there now.
bool replay(CompanyRecord& company, Change& change);

} // namespace vkr
