// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace vkr {

// Something that is under way for as long as its scope lives, be it left by an exception. Scopes
// nest.
class [[nodiscard]] During {
  public:
    explicit During(bool& underWay) : underWay_(underWay), before_(std::exchange(underWay, true)) {}
    ~During() { underWay_ = before_; }
    During(const During&) = delete;
    During& operator=(const During&) = delete;

  private:
    bool& underWay_;
    bool before_;
};

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
