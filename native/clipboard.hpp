// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// Plain text on the clipboard.
namespace vkr::clipboard {

[[nodiscard]] bool hasText();
[[nodiscard]] std::wstring text(); // empty where another program holds the clipboard
void clear();
void setText(const std::wstring& text);

} // namespace vkr::clipboard
