// SPDX-License-Identifier: MIT
#pragma once

#include "sheet/sheet_flow.hpp"

namespace vkr {

// Side by side over the whole width.
void addCharts(SheetFlow& flow, const QList<SheetChart>& charts, double height);

} // namespace vkr
