// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "plausibility/finding.hpp"
#include "sheet/sheet_content.hpp"
#include "store/stored_company.hpp"

#include <functional>
#include <memory>

namespace vkr {

// A company with all its notes: what is odd about its figures but for what a person has called
// right, then where they come from. Without `today` no day is still to come.
[[nodiscard]] SheetCompany sheetOf(std::shared_ptr<const CompanyRecord> company,
                                   const FigureOrigins& origins = {},
                                   const std::function<bool(const Finding&)>& isSilenced = {},
                                   Date today = {});

// One that is stored. What is damaged or can't be read is said before all else.
[[nodiscard]] SheetCompany sheetOf(const LoadedCompany& stored, Date today);

} // namespace vkr
