// SPDX-License-Identifier: MIT
#include "lower/whole.hpp"

namespace vkr {

int weightOf(const Whole& whole) {
    return 2 * whole.part.size();
}

} // namespace vkr
