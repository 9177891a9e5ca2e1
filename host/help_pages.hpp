// SPDX-License-Identifier: MIT
#pragma once

#include "host/help_book.hpp"

#include <span>

namespace vkr {

// The pages of host/help_pages.md, in order of their numbers.
[[nodiscard]] std::span<const HelpPage> helpPages();
// Null where there is no page of that number.
[[nodiscard]] const HelpPage* helpPage(int number);

[[nodiscard]] QString helpText(const HelpPage& page); // as HTML
[[nodiscard]] QString helpContents();                 // the list of all pages, as HTML

} // namespace vkr
