// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_flow.hpp"

namespace vkr {

// The table over the whole width, figures below one another by their decimal points, in the largest
// type in which all of them fit.
void addTable(SheetFlow& flow, const SheetTable& table);

} // namespace vkr
