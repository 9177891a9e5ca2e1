// SPDX-License-Identifier: MIT
#pragma once

#include "record/figure_place.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// How sure it is that a figure is wrong. The surest last.
enum class Sureness {
    hint,   // there may well be a reason in the filing
    likely, // such a figure is rarely right
    sure,   // two stored figures contradict each other
};

// Something about a company's figures that a person should look at.
struct Finding {
    std::string_view rule; // its name in plausibilityRules()
    Sureness sureness{};
    // All figures that it goes by, the one to look at first in front.
    std::vector<FigurePlace> places;
    std::string text; // one sentence for people, with the figures
    // Names this finding for good: the rule, what it speaks of and when, and what the figures are.
    // The same while they stay the same, also when the years or quarters have moved on.
    std::string key;
};

} // namespace vkr
