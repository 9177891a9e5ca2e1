// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

// Two arrows, one above the other.
class SpinnerWindow final : public ControlWindow {
  public:
    SpinnerWindow(ViewHost& host, Spinner& spinner, HWND parent);
    std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    void press(const Pointer& pointer) override;
    void releaseButton(const Pointer& pointer) override { pass(pointer); }
    void doubleClick(const Pointer& pointer) override { press(pointer); }
};

} // namespace vkr
