// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_content.hpp"
#include "sheet/sheet_page.hpp"

namespace vkr {

// The two pages of a company: its data, the years and their charts on the first one, the quarters
// on the second, notes below them.
//
// Nothing is cut off without a word. A text that is longer than its place goes on in the next line;
// what has no room even in small type is counted, and left to the program. A figure has
// all its digits where there is room for them, in smaller letters if need be; where there is none
// it is rounded to the digits that there is room for, behind "≈".
[[nodiscard]] QList<SheetPage> sheetPages(const SheetContent& content, Paper paper,
                                          const QString& footer);

} // namespace vkr
