// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace vkr {

// What the program ends with.
enum class ExitCode {
    done = 0,
    findings = 1, // done, and there is something that a person should look at
    usage = 2,    // the command line was not understood
    input = 3,    // what was to be read is not there, is unreadable, or is not what was named
    refused = 4, // what was to be written was not taken: locked, changed elsewhere, read-only, full
    partly = 5,  // some of it was done; the rest is listed
    stopped = 130,
};

struct ExitCodeRow {
    ExitCode code;
    std::string_view meaning;
};
inline constexpr ExitCodeRow exitCodes[] = {
    {ExitCode::done, "done"},
    {ExitCode::findings, "done, and there is something to look at"},
    {ExitCode::usage, "the command line was not understood"},
    {ExitCode::input, "what was to be read is missing, unreadable, or another company's"},
    {ExitCode::refused, "not written: locked, changed elsewhere, read-only, or the disk is full"},
    {ExitCode::partly, "done in part; what was not done is listed"},
    {ExitCode::stopped, "stopped by a signal, between two companies"},
};

// Ends a command; the message goes to people.
class CommandFailure : public std::runtime_error {
  public:
    CommandFailure(ExitCode code, const std::string& message)
        : std::runtime_error(message), code_(code) {}
    [[nodiscard]] ExitCode code() const { return code_; }

  private:
    ExitCode code_;
};

} // namespace vkr
