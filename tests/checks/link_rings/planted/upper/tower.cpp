// SPDX-License-Identifier: MIT
#include "lower/bell.hpp"

namespace vkr {

void ring() {}

} // namespace vkr
