// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"

#include <vector>

namespace vkr {

// The lock that chkLockInfo sets: no field takes an edit, and the labels beside the fields of the
// company and of its address are shaded.
class DataLock {
  public:
    explicit DataLock(EntryContext& context);

    void apply(); // as the box has it
    void set(bool locked);
    [[nodiscard]] Color shadeColor() const { return shadeColor_; }
    void setShade(Color color);

  private:
    EntryContext& context_;
    std::vector<Label*> labels_; // that show the lock
    Color shadeColor_ = colors::paleCyan;
};

} // namespace vkr
