// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"
#include "control/property_table.hpp"

namespace vkr::automation::member {

// Numbers of the interface description that code goes by; a test holds them to it.
[[nodiscard]] constexpr DISPID of(EntryProperty property) {
    return static_cast<DISPID>(property) + 1;
}
inline constexpr DISPID scrollMouse = interfaceProperties + 4;
inline constexpr DISPID decimalMark = 101;
inline constexpr DISPID groupingMark = 102;

inline constexpr DISPID tabChange = 1;
inline constexpr DISPID moreHelp = 2;
inline constexpr DISPID assistant = 3;
inline constexpr DISPID unloadRequest = 4;

} // namespace vkr::automation::member
