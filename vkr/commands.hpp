// SPDX-License-Identifier: MIT
#pragma once

#include "vkr/command_line.hpp"

#include <span>
#include <string>

namespace vkr {

[[nodiscard]] std::span<const CommandRow> commandTable();

// What --help prints: of all commands, or of one.
[[nodiscard]] std::string helpText(const CommandRow* command);

} // namespace vkr
