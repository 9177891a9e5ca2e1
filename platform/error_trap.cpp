// SPDX-License-Identifier: MIT
#include "platform/error_trap.hpp"

#include <cassert>

namespace vkr {

void assertNoProgramError() noexcept {
#ifndef NDEBUG
    try {
        throw;
    } catch (const ProgramError&) {
        assert(false && "a mistake in the program, which no trap is to hide");
    } catch (...) { // what the traps are for
    }
#endif
}

} // namespace vkr
