// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"

#include <string>
#include <string_view>

namespace vkr::virtual_desktop {

// Wrong use of the desktop.
[[noreturn]] void refuse(const std::string& why);

struct ControlName {
    std::string_view name;
    int index;
};

// "txtSales(3)" is name and index; what has no such end is a name as a whole.
[[nodiscard]] ControlName splitId(std::string_view id, int index);

// Why a person can't point at a control; empty when one can.
[[nodiscard]] std::string reasonOutOfReach(const Control& control);

[[nodiscard]] std::string quoted(std::string_view text);

} // namespace vkr::virtual_desktop
