// SPDX-License-Identifier: MIT
#include "lower/part.hpp"

namespace vkr {

int Part::size() const {
    return 1;
}

} // namespace vkr
