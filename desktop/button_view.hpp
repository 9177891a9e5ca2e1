// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

class QAbstractButton;

namespace vkr {

// Push button, option or check box. The form presses it; the widget shows that it is down.
class ButtonView final : public ControlView {
  public:
    ButtonView(ViewHost& host, Control& control, QWidget& parent);
    void show(Property property) override;
    void pressEnded() override;

  protected:
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void drag(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;

  private:
    void showCaption();
    void showChoice();

    QAbstractButton* button_;
};

} // namespace vkr
