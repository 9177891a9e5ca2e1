// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// How large a JSON text may be inside. A parser that keeps the whole text as a tree needs memory
// for each of these.
struct JsonBounds {
    std::size_t depth = 32;
    std::size_t containers = 2'000'000; // objects and arrays
    std::size_t values = 20'000'000;
    std::size_t names = 100'000; // of the objects that are open at a time
};

// Looks at a text before it is parsed: whether it stays within the bounds, is closed at its end,
// and no object has the same name twice, of which a parser would silently keep the last one. What
// is wrong with it, in words for people; nothing where it can be parsed. It needs memory for the
// names of the objects that are open.
[[nodiscard]] std::optional<std::string> jsonOutOfBounds(std::string_view json,
                                                         const JsonBounds& bounds = {});

} // namespace vkr
