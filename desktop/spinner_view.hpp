// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

namespace vkr {

// Two arrows, one above the other.
class SpinnerView final : public ControlView {
  public:
    SpinnerView(ViewHost& host, Spinner& spinner, QWidget& parent);

  protected:
    void showColors() override {}
};

} // namespace vkr
