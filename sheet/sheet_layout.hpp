// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_content.hpp"
#include "sheet/sheet_page.hpp"

namespace vkr {

// The pages of a company: its data, the years and their charts on the first one, the quarters on
// the second, notes below them. Long notes go on on further pages.
//
// Nothing is cut off. A text that is longer than its place goes on in the next line. A figure has
// all its digits where there is room for them, in smaller letters if need be; where there is none
// it is rounded to the digits that there is room for, behind "≈".
[[nodiscard]] QList<SheetPage> sheetPages(const SheetContent& content, Paper paper,
                                          const QString& footer);

} // namespace vkr
