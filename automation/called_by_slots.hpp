// SPDX-License-Identifier: MIT
#pragma once

#include "automation/com.hpp"

#include <vkr_company.h>

namespace vkr::automation {

// The names of a record that has the interface and answers to none itself: each is called by its
// slot, as the type library tells it.
[[nodiscard]] ComPtr<IDispatch> calledBySlots(ComPtr<::iVKR_Company> record);

} // namespace vkr::automation
