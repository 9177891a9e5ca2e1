// SPDX-License-Identifier: MIT
#pragma once

#include "host/options.hpp"
#include "host/workspace.hpp"

namespace vkr {

// Opens the database that the options name, or makes it on the first start; asks and tells what
// there is to it. Null when the user gave up.
[[nodiscard]] std::unique_ptr<Workspace> start(const Options& options);

} // namespace vkr
