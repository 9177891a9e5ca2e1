// SPDX-License-Identifier: MIT
#pragma once

#include "binding/datum_table.hpp"

#include <QString>

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace vkr {

// A figure or text that an example takes from a sample company, so that it can be checked.
struct HelpQuote {
    std::string_view symbol;
    Datum datum;
    std::string_view figure; // as the example writes it
    std::string_view period; // of a series: "2025", or the day on which the quarter ended
};

// One page of the help. Empty parts are left out of the text.
struct HelpPage {
    std::int16_t number; // as the component's MoreHelp event names it; 1 to 9 are the host's own
    std::string_view title;
    std::string_view what;           // what it is
    std::string_view why;            // what it tells about a company
    std::string_view where;          // where in a report or statement it is found
    std::string_view unit;           // how it is typed and kept
    std::string_view example;        // from a sample company
    std::array<HelpQuote, 4> quotes; // of the example; those without a symbol are none
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
