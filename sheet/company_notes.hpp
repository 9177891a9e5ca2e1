// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "sheet/sheet_content.hpp"

#include <memory>

namespace vkr {

// A company with all its notes: what is odd about its figures, then where they come from.
[[nodiscard]] SheetCompany sheetOf(std::shared_ptr<const CompanyRecord> company,
                                   const FigureOrigins& origins = {});

} // namespace vkr
