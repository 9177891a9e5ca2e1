// SPDX-License-Identifier: MIT
#pragma once

#include "plausibility/finding.hpp"
#include "sheet/sheet_content.hpp"

#include <functional>
#include <vector>

namespace vkr {

// What is odd about the figures of a company, a note for each finding, but for those that a person
// has called right. Without `today` no day is still to come.
[[nodiscard]] std::vector<SheetNote>
findingNotes(const iVKR_Company& company,
             const std::function<bool(const Finding&)>& isSilenced = {}, Date today = {});

} // namespace vkr
