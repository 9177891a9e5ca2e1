// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"
#include "record/ivkr_company.hpp"

#include <memory>
#include <vkr_company.h>

namespace vkr::automation {

// Whether whoever has the record reads and writes files with it. What a control hands out does not:
// it is safe for scripts that nobody trusts.
enum class Files { none, allowed };

// A record of the component as it is seen outside: VKR_Company.Company.
[[nodiscard]] ComPtr<::iVKR_CompanyRecord> outsideRecord(std::shared_ptr<vkr::iVKR_Company> record,
                                                         Files files);
[[nodiscard]] ComPtr<IUnknown> newCompanyObject(); // an empty one, with files

// An object outside as a record. Null for null; one of ours is itself again. Throws
// DISP_E_TYPEMISMATCH for one that can't be called by name.
[[nodiscard]] std::shared_ptr<vkr::iVKR_Company> insideRecord(IUnknown* object);

// The object behind a record that came from outside; null for one of ours.
[[nodiscard]] IDispatch* outsideOf(const vkr::iVKR_Company& record);

} // namespace vkr::automation
