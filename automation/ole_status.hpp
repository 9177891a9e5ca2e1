// SPDX-License-Identifier: MIT
#pragma once

#include "automation/component_model.hpp"

namespace vkr::automation {

// What a container may expect of the control, in the registry as from the control itself.
inline constexpr DWORD miscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                    OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                    OLEMISC_SETCLIENTSITEFIRST;

} // namespace vkr::automation
