// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <span>
#include <string_view>

namespace vkr {

// One page of the help. Empty parts are left out of the text.
struct HelpPage {
    std::int16_t number; // as the component's MoreHelp event names it; 1 to 9 are the host's own
    std::string_view title;
    std::string_view what;    // what it is
    std::string_view where;   // where in a report or statement it is found
    std::string_view unit;    // how it is typed and kept
    std::string_view example; // something to type
};

// Numbers of the host's own pages.
namespace help {
inline constexpr std::int16_t list = 1;
inline constexpr std::int16_t importAndExport = 2;
inline constexpr std::int16_t saving = 3;
inline constexpr std::int16_t keyboard = 4;
} // namespace help

// In order of their numbers: the host's own, the objects on screen, the tabs.
[[nodiscard]] std::span<const HelpPage> helpPages();
// Null where there is no page of that number.
[[nodiscard]] const HelpPage* helpPage(int number);

[[nodiscard]] QString helpText(const HelpPage& page); // as HTML
[[nodiscard]] QString helpContents();                 // the list of all pages, as HTML

} // namespace vkr
