// SPDX-License-Identifier: MIT
#pragma once

// What scripts/mutants adds to its copy of the component: every mutant is in the code, and one of
// them at most is on.

namespace mutants {

inline constexpr int most = 1 << 15;

// The environment's VKR_MUTANT.
extern int active;

// Whose place the test that runs has come by.
extern bool reached[most];

inline bool isOn(int number) {
    reached[number] = true;
    return number == active;
}

} // namespace mutants
