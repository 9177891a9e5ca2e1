// SPDX-License-Identifier: MIT
#pragma once

#include "vkr/command_line.hpp"

#include <span>
#include <string>
#include <vector>

namespace vkr {

// What the last word of a command line may go on to be, for a shell that completes it; nothing
// where files are meant. The words are those behind the program's name. Symbols are asked of the
// database that the line names, which is neither changed nor waited for.
[[nodiscard]] std::vector<std::string> completions(std::span<const CommandRow> commands,
                                                   const std::vector<std::string>& words);

} // namespace vkr
