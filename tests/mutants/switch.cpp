// SPDX-License-Identifier: MIT
#include "tests/mutants/switch.hpp"

#include <cstdlib>

namespace mutants {

int active = -1;
bool reached[most] = {};

namespace {

// Before the component's own tables, which may ask.
__attribute__((constructor(101))) void readEnvironment() {
    if (const char* text = std::getenv("VKR_MUTANT"))
        active = std::atoi(text);
}

} // namespace

} // namespace mutants
