// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

namespace vkr {

class TabStripWindow final : public ControlWindow {
  public:
    TabStripWindow(ViewHost& host, TabStrip& strip, HWND parent);
    void show(Property property) override;
    void showAll() override;
    [[nodiscard]] std::wstring tip() const override; // of the tab under the pointer

  protected:
    void press(const Pointer& pointer) override;
    void releaseButton(const Pointer& pointer) override;
    void doubleClick(const Pointer& pointer) override { press(pointer); }

  private:
    [[nodiscard]] int tabAt(POINT place) const; // 0: none
    void showTabs();
    void showSelected();
    void showWidths();
    [[nodiscard]] TabStrip& strip() const { return static_cast<TabStrip&>(*control()); }
};

} // namespace vkr
