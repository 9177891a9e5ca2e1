// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// Takes a flag back when its scope is left, be it by an exception.
struct Reset {
    bool& flag;
    ~Reset() { flag = false; }
};

} // namespace vkr
