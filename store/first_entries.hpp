// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"

namespace vkr {

// The texts that combo boxes offer before anybody has changed their lists. Part of a migration:
// what stands here is never changed.
void insertFirstEntries(StoreConnection& connection);

} // namespace vkr
