// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

class Part {
  public:
    [[nodiscard]] int size() const;
    [[nodiscard]] int weight() const;
};

} // namespace vkr
