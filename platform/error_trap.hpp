// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace vkr {

// What only a mistake in the program throws, such as to ask for a control that the form has not.
class ProgramError : public std::out_of_range {
  public:
    using std::out_of_range::out_of_range;
};

// Called by the traps with what was thrown: a mistake in the program stops it where assertions are
// on, so that no trap hides it.
void assertNoProgramError() noexcept;

// One statement under its own trap: whatever the record, the localizer, the desktop, a handler of
// the host or a conversion throws, be it an exception of the standard library or not, ends this
// statement alone, and the caller goes on. Returns whether it ran to its end.
template <typename Statement>
[[nodiscard]] bool attempt(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (...) {
        assertNoProgramError();
        return false;
    }
}

// The same where it makes no difference to the caller whether the statement failed.
template <typename Statement>
void ifPossible(Statement&& statement) {
    static_cast<void>(attempt(std::forward<Statement>(statement)));
}

// The same, tried once more where it fails before anything was done: memory may be back by then.
template <typename Statement>
void ifPossibleAtLast(Statement&& statement) {
    if (!attempt(statement))
        ifPossible(statement);
}

// Why a statement failed, as far as that is told; nothing where it ran to its end.
template <typename Statement>
[[nodiscard]] std::optional<std::string> failureOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return std::nullopt;
    } catch (const std::bad_alloc&) {
        return std::string();
    } catch (const std::exception& error) {
        assertNoProgramError();
        return error.what();
    } catch (...) {
        return std::string();
    }
}

// What the statement answers; the fallback where it fails.
template <typename Answer, typename Statement>
[[nodiscard]] Answer attemptOr(Answer fallback, Statement&& statement) {
    ifPossible([&] { fallback = std::forward<Statement>(statement)(); });
    return fallback;
}

} // namespace vkr
