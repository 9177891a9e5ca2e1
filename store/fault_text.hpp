// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_location.hpp"
#include "store/store_result.hpp"

#include <string>

namespace vkr {

// The error in the words that people read: where, what happened, what to do, then the detail.
[[nodiscard]] StoreError describeFault(StoreFault fault, const StoreLocation& location,
                                       const std::string& detail = {});
// Throws it as a StoreFailure.
[[noreturn]] void fail(StoreFault fault, const StoreLocation& location,
                       const std::string& detail = {});

} // namespace vkr
