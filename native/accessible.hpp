// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <memory>
#include <string>

namespace vkr {

// What people hear of a control who do not see it; empty where the system knows better.
class Heard {
  public:
    virtual ~Heard() = default;
    [[nodiscard]] virtual std::wstring heardName() const = 0;
    [[nodiscard]] virtual std::wstring heardDescription() const = 0;
};

// The answer to WM_GETOBJECT: what the system says of a window to screen readers, with the name
// that the model gives the control, and with what its mark says.
[[nodiscard]] LRESULT accessibleOf(HWND window, const std::weak_ptr<const Heard>& heard,
                                   WPARAM wParam);

} // namespace vkr
