// SPDX-License-Identifier: MIT
#pragma once

#include "company/figure_origins.hpp"
#include "sheet/sheet_content.hpp"

#include <vector>

namespace vkr {

// Where the figures of a company come from, a note for each document and for what was typed, pasted
// or worked out, each with the figures that bear its number. What most figures of the yearly, of
// the quarterly or of the company's own table have in common is told last, without numbers.
[[nodiscard]] std::vector<SheetNote> originNotes(const CompanyRecord& company,
                                                 const FigureOrigins& origins);

} // namespace vkr
