// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <string>

namespace vkr {

// "Revenue", "Earnings per share of the quarter"; the name of the datum for one that is in no
// filing.
[[nodiscard]] std::string figureTitle(Datum datum);
// The place of its figures in a review: years before quarters, from revenue on.
[[nodiscard]] int figureOrder(Datum datum);

} // namespace vkr
