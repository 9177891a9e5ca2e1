// SPDX-License-Identifier: MIT
#include "upper/pair.hpp"

namespace vkr {

int Pair::first() const {
    return second(1);
}

} // namespace vkr
