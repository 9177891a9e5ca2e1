// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

// A command button, an option or a check box.
class ButtonWindow final : public ControlWindow {
  public:
    ButtonWindow(ViewHost& host, Control& control, HWND parent);
    void show(Property property) override;
    void pressEnded() override;

  protected:
    void press(const Pointer& pointer) override;
    void drag(const Pointer& pointer) override;
    void doubleClick(const Pointer& pointer) override { press(pointer); }

  private:
    void showCaption();
    void showChoice();
};

} // namespace vkr
