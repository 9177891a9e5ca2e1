// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace vkr {

class iVKR_Company;

// An empty vkr::CompanyRecord: what the component takes where no record is handed in, and no class
// of a host's is registered as companyRecordId.
[[nodiscard]] std::shared_ptr<iVKR_Company> newCompanyRecord();

} // namespace vkr
