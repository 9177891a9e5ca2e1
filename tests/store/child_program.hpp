// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace vkr::test {

// A second process that runs a function of the test and reports numbers while it does. It is
// killed at the end of the scope, if not before.
class ChildProgram {
  public:
    using Report = std::function<void(std::int64_t)>;

    explicit ChildProgram(const std::function<void(Report)>& body) {
        int ends[2];
        if (pipe(ends) != 0)
            throw std::runtime_error("no pipe");
        child_ = fork();
        if (child_ < 0)
            throw std::runtime_error("no process");
        if (child_ == 0) {
            close(ends[0]);
            body([&](std::int64_t number) {
                if (write(ends[1], &number, sizeof number) != sizeof number)
                    _exit(2);
            });
            _exit(0); // what belongs to the parent is not torn down here
        }
        close(ends[1]);
        reports_ = ends[0];
    }
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;
    ~ChildProgram() {
        kill();
        close(reports_);
    }

    // The next report, waited for; none when the program has ended without one.
    std::optional<std::int64_t> next() {
        std::int64_t number = 0;
        return read(reports_, &number, sizeof number) == sizeof number ? std::optional(number)
                                                                       : std::nullopt;
    }
    // At once, as by the system; what it has reported until then can still be read.
    void kill() {
        if (child_ <= 0)
            return;
        ::kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
        child_ = 0;
    }

  private:
    pid_t child_ = 0;
    int reports_ = 0;
};

} // namespace vkr::test
