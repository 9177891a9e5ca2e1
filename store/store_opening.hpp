// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_connection.hpp"
#include "store/store_options.hpp"

#include <QString>

#include <memory>

namespace vkr {

struct OpenedStore {
    std::unique_ptr<StoreConnection> connection;
    // The copy from before an update: a path, or on a server the name of a schema; "" without one.
    QString backup;
};

// Opens what is there, makes what is asked for, and brings what is older up to date. Throws
// StoreFailure; what was there before is then as it was.
[[nodiscard]] OpenedStore openStore(const StoreLocation& location, OpenMode mode,
                                    const StoreOptions& options);

} // namespace vkr
