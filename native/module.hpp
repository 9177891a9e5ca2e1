// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

namespace vkr {

// The program or library that this code is in: window classes belong to it.
[[nodiscard]] HINSTANCE ownModule();

// Registers a window class of ours, once for each name. It goes when the library is unloaded.
[[nodiscard]] const wchar_t* registeredKind(const wchar_t* name, WNDPROC procedure, UINT style = 0);

} // namespace vkr
