// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

namespace vkr {

// Shapes and pictures: painted, and never under the pointer.
class PaintedView final : public ControlView {
  public:
    PaintedView(ViewHost& host, Control& control, QWidget& parent);
    void show(Property property) override;

  protected:
    void showColors() override { widget().update(); }
};

} // namespace vkr
