// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// While one lives, the n-th allocation from its beginning on fails, once.
class FailingMemory {
  public:
    explicit FailingMemory(int nth);
    ~FailingMemory();
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    [[nodiscard]] bool hasFailed() const; // as many were asked for
};

} // namespace vkr
