// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

// What these parts are called on every form that has them.
namespace vkr::part_name {
inline constexpr std::string_view ok = "cmdOK";
inline constexpr std::string_view cancel = "cmdCancel";
inline constexpr std::string_view calendar = "Calendar1";
} // namespace vkr::part_name
