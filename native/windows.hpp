// SPDX-License-Identifier: MIT
#pragma once

#include "native/control_window.hpp"

#include <memory>

namespace vkr {

// The window of a control's kind; null for those that have none.
[[nodiscard]] std::shared_ptr<ControlWindow> makeWindow(ViewHost& host, Control& control,
                                                        HWND parent);

} // namespace vkr
