// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

class Pair {
  public:
    [[nodiscard]] int first() const;
    [[nodiscard]] int second(int depth) const;
};

} // namespace vkr
