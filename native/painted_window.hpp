// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

// A shape, or the place of a picture. The pointer goes through to what is behind.
class PaintedWindow final : public ControlWindow {
  public:
    PaintedWindow(ViewHost& host, Control& control, HWND parent);
    void show(Property property) override;

  protected:
    std::optional<LRESULT> handleOwn(const Part& part, UINT message, WPARAM wParam,
                                     LPARAM lParam) override;

  private:
    void showShape();
};

} // namespace vkr
