// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace vkr {

// Where words for people go: standard error. Messages stand there line by line, progress on one
// line that is written over. At any time
//
//   progress is on show only where standard error is a terminal;
//   standard output counts as on the same terminal only where both are one;
//   a line of it without its end is known of only there, and no progress is on show meanwhile.
class Terminal {
  public:
    Terminal();

    void say(const std::string& words);
    // So often as a person can read it.
    void progress(std::size_t done, std::size_t total, const std::string& what);
    void endProgress();
    // Before this goes to standard output.
    void makeWayFor(std::string_view text);

    // Whether somebody wants the program to end: it does so at the next clean point.
    [[nodiscard]] static bool isToStop();

  private:
    void checkInvariants() const;

    bool isTerminal_;
    bool hasOutput_;        // as well
    bool isInLine_ = false; // of the output
    bool isShown_ = false;  // progress
    std::chrono::steady_clock::time_point last_{};
};

// From now on SIGINT and SIGTERM are noted, a second one ends the program at once, and a reader
// that goes away is no more than an error of writing.
void catchSignals();

// The text without what a terminal would take for a command.
[[nodiscard]] std::string printable(const std::string& text);
// Columns of a terminal that the text takes.
[[nodiscard]] int shownWidth(const std::string& text);

} // namespace vkr
