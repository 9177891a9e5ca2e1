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

    friend bool operator==(const FigurePlace&, const FigurePlace&) = default;
    // Not every standard library orders optionals by itself. A datum comes before its elements.
    friend std::strong_ordering operator<=>(const FigurePlace& left, const FigurePlace& right) {
        if (const auto order = left.datum <=> right.datum; std::is_neq(order))
            return order;
        if (left.element.has_value() != right.element.has_value())
            return left.element.has_value() ? std::strong_ordering::greater
                                            : std::strong_ordering::less;
        return left.element.value_or(0) <=> right.element.value_or(0);
    }
};

} // namespace vkr
