// SPDX-License-Identifier: MIT
#include "lower/bell.hpp"

namespace vkr {

void call();
void call() {
    ring();
}

} // namespace vkr
