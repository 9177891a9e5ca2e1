// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"

#include <QString>

#include <chrono>

namespace vkr {

// Copies from before an update.

// A copy is made by the database itself, which other windows may be writing to, and counts only
// when it was opened again and found sound. Its path.
[[nodiscard]] QString backUpFile(const StoreLocation& file, std::chrono::milliseconds patience);
// On a server the copy stands in the same database, as a schema; within a transaction of the
// caller. Its name.
[[nodiscard]] QString backUpTables(StoreConnection& connection);

} // namespace vkr
