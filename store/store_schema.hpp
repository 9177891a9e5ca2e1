// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"

#include <functional>

namespace vkr {

// What a file holds, told without writing to it.
enum class SchemaState { empty, current, older, newer, foreign };

// How many migrations there are.
extern const int schemaVersion;

[[nodiscard]] SchemaState inspectSchema(StoreConnection& connection);
// From whatever older version to the current one, in one transaction. `before` is done first, in
// the same transaction, unless another window was faster.
void migrateSchema(StoreConnection& connection, const std::function<void()>& before = {});

} // namespace vkr
