// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <utility>

namespace vkr {

// One statement under its own trap: a failure that the record, the localizer or a conversion
// reports ends this statement alone, and the caller goes on with the next. Returns whether the
// statement ran to its end.
template <typename Statement>
bool attempt(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace vkr
