// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

namespace vkr {

// The place of its figures in a review: years before quarters, from revenue on.
[[nodiscard]] int figureOrder(Datum datum);

} // namespace vkr
