// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

// A benchmark as a multiple of another one, and what that has to stay below.
struct Ratio {
    std::string name;
    std::string subject;
    std::string reference;
    std::optional<double> target; // none: its time is shown, its instructions are judged
};

// Of `name | subject | reference | target` a line, the target "-" where there is none; throws where
// a line is none.
std::vector<Ratio> readRatios(const std::string& file);

// Measures every ratio again and again, subject and reference right after one another and each in
// turn the first, so that what the machine does meanwhile falls on both: until the middle half of
// what was measured is on one side of the target, or often enough. Prints the table; false where a
// ratio is above its target, or was not measured.
bool measureRatios(const std::vector<Ratio>& ratios);
