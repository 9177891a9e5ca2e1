// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vkr {

// Carries out a command line, without the program's name, and answers the exit code. Needs a
// QCoreApplication that has a name and a version.
int runProgram(const std::vector<std::string>& words);

} // namespace vkr
