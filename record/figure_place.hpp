// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <compare>
#include <optional>

namespace vkr {

// A datum of a record, or one element of a series, as iVKR_Company counts them.
struct FigurePlace {
    Datum datum{};
    std::optional<int> element;

    // NOLINTNEXTLINE(modernize-use-nullptr): not what it takes the generated comparison for
    friend auto operator<=>(const FigurePlace&, const FigurePlace&) = default;
};

} // namespace vkr
