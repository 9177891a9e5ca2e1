// SPDX-License-Identifier: MIT
#pragma once

#include "plausibility/finding.hpp"

#include <span>
#include <string_view>

namespace vkr {

class CompanyFigures;
class Report;

// One thing that is odd about figures. A rule speaks and never stops anybody.
struct PlausibilityRule {
    std::string_view name; // in keys of findings: never changed, never used again
    std::string_view title;
    std::string_view looksAt;
    std::string_view speaksWhen;
    std::string_view says; // the sentence of a finding; %1, %2, ... are its figures
    std::string_view sureness;
    void (*look)(const CompanyFigures&, Report&);
};

// All rules, in the order in which they look. docs/plausibility.md is written from them.
[[nodiscard]] std::span<const PlausibilityRule> plausibilityRules();
// Null for a name that no rule has.
[[nodiscard]] const PlausibilityRule* findPlausibilityRule(std::string_view name);

} // namespace vkr
