// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <string>

namespace vkr {

// Writes what a window shows, without its frame, as PNG; null is the
// whole screen. Throws std::runtime_error where it can't.
void writePicture(HWND window, const std::string& file);

} // namespace vkr
