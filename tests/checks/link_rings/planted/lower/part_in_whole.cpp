// SPDX-License-Identifier: MIT
#include "lower/whole.hpp"

namespace vkr {

int Part::weight() const {
    return weightOf(Whole{});
}

} // namespace vkr
