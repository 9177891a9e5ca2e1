// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"

#include <string>
#include <string_view>

namespace vkr {

// Texts: UTF-8 on the side of the models, UTF-16 on that of the system. What is not valid becomes
// U+FFFD.
[[nodiscard]] std::wstring toWide(std::string_view text);
[[nodiscard]] std::string fromWide(std::wstring_view text);

// The same text with CR LF for every line break, also for CR and LF.
[[nodiscard]] std::wstring withNativeBreaks(std::wstring_view text);

// Positions: characters on the side of the models, UTF-16 units on that of the system. A surrogate
// pair is one character, and so is CR LF.
[[nodiscard]] int unitsOf(std::wstring_view text, int characters);
[[nodiscard]] int charactersOf(std::wstring_view text, int units);

[[nodiscard]] std::wstring windowText(HWND window);

} // namespace vkr
