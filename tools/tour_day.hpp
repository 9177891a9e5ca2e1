// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace vkr {

class TourSteps;

// What docs/analyst-guide.md tells, from a new company to its data sheet: each picture of it is
// drawn on the way. `facts` is the companyfacts document of the company.
void spendDay(TourSteps& tour, const QString& facts);

} // namespace vkr
