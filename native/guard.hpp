// SPDX-License-Identifier: MIT
#pragma once

#include "native/windows_api.hpp"
#include "platform/error_trap.hpp"

#include <utility>

namespace vkr {

// What the system calls: no exception gets out, where it would end the program.
template <typename Answer, typename Work>
[[nodiscard]] Answer guarded(Answer fallback, Work&& work) noexcept {
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        assertNoProgramError();
        return fallback;
    }
}

} // namespace vkr
