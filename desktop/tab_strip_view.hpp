// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

class QTabBar;

namespace vkr {

class TabStripView final : public ControlView {
  public:
    TabStripView(ViewHost& host, TabStrip& strip, QWidget& parent);
    void show(Property property) override;

  protected:
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void drag(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;

  private:
    [[nodiscard]] TabStrip& strip() const { return static_cast<TabStrip&>(*control()); }
    void showTabs();
    void showSelected();

    QTabBar* tabs_;
};

} // namespace vkr
