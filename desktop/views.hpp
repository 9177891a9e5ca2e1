// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

namespace vkr {

// The view of a control, its widget made within the widget of its container. Menu entries have
// none: null.
[[nodiscard]] ControlView* makeView(ViewHost& host, Control& control, QWidget& parent);

} // namespace vkr
