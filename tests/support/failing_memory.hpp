// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// While one lives, the n-th allocation from its beginning on fails, and maybe all that follow.
class FailingMemory {
  public:
    enum class Fails { once, fromThenOn };

    explicit FailingMemory(int nth, Fails fails = Fails::once);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    [[nodiscard]] bool hasFailed() const; // as many were asked for
};

} // namespace vkr
