// SPDX-License-Identifier: MIT
#pragma once

#include "vkr/command_line.hpp"
#include "vkr/output.hpp"
#include "vkr/terminal.hpp"

namespace vkr {

// What a command works with.
struct Call {
    const CommandLine& line;
    Output& output;     // data
    Terminal& terminal; // words, progress, and whether to stop
};

// What carries out the commands. Each reads and writes one database.
ExitCode listCompanies(const Call& call);
ExitCode showCompany(const Call& call);
ExitCode exportCompanies(const Call& call);
ExitCode importCompanies(const Call& call);
ExitCode importFacts(const Call& call);
ExitCode checkCompanies(const Call& call);
ExitCode tellHistory(const Call& call);

} // namespace vkr
