// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

class ScrollBarWindow final : public ControlWindow {
  public:
    ScrollBarWindow(ViewHost& host, ScrollBar& bar, HWND parent);
    void show(Property property) override;
    std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam) override;

  protected:
    void press(const Pointer& pointer) override { pass(pointer); }
    void releaseButton(const Pointer& pointer) override { pass(pointer); }
    void doubleClick(const Pointer& pointer) override { pass(pointer); }

  private:
    void showValue();
    [[nodiscard]] ScrollBar& bar() const { return static_cast<ScrollBar&>(*control()); }
};

} // namespace vkr
