// SPDX-License-Identifier: MIT
#pragma once

#include "binding/session.hpp"

#include <vector>

namespace vkr {

// The lock that chkLockInfo sets: no field takes an edit, and the labels beside the fields of the
// company and of its address are shaded.
class DataLock {
  public:
    explicit DataLock(Session& session);

    void apply(); // as the box has it
    void set(bool locked);
    [[nodiscard]] Color shadeColor() const { return shadeColor_; }
    void setShade(Color color);

  private:
    Session& session_;
    std::vector<Label*> labels_; // that show the lock
    Color shadeColor_ = colors::paleCyan;
};

} // namespace vkr
