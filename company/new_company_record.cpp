// SPDX-License-Identifier: MIT
#include "company/new_company_record.hpp"

#include "company/company_record.hpp"

namespace vkr {

std::shared_ptr<iVKR_Company> newCompanyRecord() {
    return std::make_shared<CompanyRecord>();
}

} // namespace vkr
