// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <utility>

namespace vkr {

// One statement under its own trap: whatever the record, the localizer, the desktop, a handler of
// the host or a conversion throws, be it an exception of the standard library or not, ends this
// statement alone, and the caller goes on with the next. Returns whether it ran to its end.
template <typename Statement>
bool attempt(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (...) {
        return false;
    }
}

// Why a statement failed, as far as that is told; nothing where it ran to its end.
template <typename Statement>
std::optional<std::string> failureOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return std::nullopt;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return std::string();
    }
}

// What the statement answers; the fallback where it fails.
template <typename Answer, typename Statement>
Answer attemptOr(Answer fallback, Statement&& statement) {
    attempt([&] { fallback = std::forward<Statement>(statement)(); });
    return fallback;
}

} // namespace vkr
