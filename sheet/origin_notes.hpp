// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "sheet/sheet_content.hpp"

#include <vector>

namespace vkr {

// Where the figures of a company come from, a note for each document and for what was typed, pasted
// or worked out. Where these are few figures, each has the number of its note.
[[nodiscard]] std::vector<SheetNote> originNotes(const CompanyRecord& company,
                                                 const FigureOrigins& origins);

} // namespace vkr
