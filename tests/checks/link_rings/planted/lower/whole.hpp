// SPDX-License-Identifier: MIT
#pragma once

#include "lower/part.hpp"

namespace vkr {

struct Whole {
    Part part;
};

[[nodiscard]] int weightOf(const Whole& whole);

} // namespace vkr
