// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

namespace vkr {

class FrameView final : public ControlView {
  public:
    FrameView(ViewHost& host, Frame& frame, QWidget& parent);
    void show(Property property) override;

  protected:
    void showColors() override;

  private:
    void showBorder();
    void showCaption();
    void tellNotice(); // it came up by itself
};

} // namespace vkr
