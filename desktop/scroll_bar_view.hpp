// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

class QScrollBar;

namespace vkr {

class ScrollBarView final : public ControlView {
  public:
    ScrollBarView(ViewHost& host, ScrollBar& bar, QWidget& parent);
    void show(Property property) override;

  protected:
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void showColors() override {}

  private:
    void showValue();
    void showOrientation();

    QScrollBar* bar_;
};

} // namespace vkr
