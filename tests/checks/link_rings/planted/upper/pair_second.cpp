// SPDX-License-Identifier: MIT
#include "upper/pair.hpp"

namespace vkr {

int Pair::second(int depth) const {
    return depth == 0 ? 0 : first();
}

} // namespace vkr
