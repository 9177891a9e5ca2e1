// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

class QLabel;

namespace vkr {

class LabelView final : public ControlView {
  public:
    LabelView(ViewHost& host, Label& label, QWidget& parent);
    void show(Property property) override;

  protected:
    bool handleOwn(QEvent& event, QWidget& source, NativeEvent native) override;

  private:
    [[nodiscard]] QLabel& label() const;
    void showCaption();
    void showLook();
};

} // namespace vkr
