// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"
#include "platform/error_trap.hpp"

#include <utility>

namespace vkr {

// What the system calls: no exception gets out, where it would end the program.
template <typename Answer, typename Work>
[[nodiscard]] Answer guarded(Answer fallback, Work&& work) noexcept {
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        assertNoProgramError();
        return fallback;
    }
}

// Counts up while it lives.
class [[nodiscard]] Nested {
  public:
    explicit Nested(int& depth) : depth_(depth) { ++depth_; }
    ~Nested() { --depth_; }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

  private:
    int& depth_;
};

} // namespace vkr
