// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// Which characters a field takes.
struct KeyFilter {
    bool numeric = true;
    bool freeText = false;
    bool allowNegative = false;
    bool upperCase = false;
};

} // namespace vkr
