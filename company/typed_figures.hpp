// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/figure_origins.hpp"

#include <string>
#include <vector>

namespace vkr {

// Whether a person has locked the company against changes.
[[nodiscard]] bool isLocked(const iVKR_Company& company);

// Puts what a person has typed or pasted, or what nobody knows the origin of, into an imported
// record in place of what would come in for it; years and quarters by their periods. What was kept,
// a line each: "YRevenueSeries 2024: 391035, not 391000". A typed figure whose period the import
// has no place for any more is told, too.
std::vector<std::string> keepTyped(const CompanyRecord& stored, const FigureOrigins& origins,
                                   CompanyRecord& imported);

} // namespace vkr
