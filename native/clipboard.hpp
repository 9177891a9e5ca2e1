// SPDX-License-Identifier: MIT
#pragma once

#include <string>

// The texts on the clipboard.
namespace vkr::clipboard {

[[nodiscard]] bool hasText();
[[nodiscard]] std::wstring text(); // empty where another program holds the clipboard
[[nodiscard]] std::string html();  // beside the text, as programs write it
void clear();
void setText(const std::wstring& text); // throws where another program holds it

} // namespace vkr::clipboard
