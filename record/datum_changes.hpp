// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vkr {

// A datum, or one element of a series, that is to become another one. Without an element the whole
// series is meant, its bounds included.
struct DatumChange {
    Datum datum{};
    std::optional<int> element; // of a series, as iVKR_Company counts them
    Variant before;             // a number for an element, else of the datum's own kind
    Variant after;

    friend bool operator==(const DatumChange&, const DatumChange&) = default;
};

// The same changes taken back: last to first, from after to before.
[[nodiscard]] std::vector<DatumChange> inverted(std::span<const DatumChange> changes);

// Puts every `after` into the record, in order; each series is read once and written once. All or
// none: where one is refused, or an element lies outside of its series, what was written before it
// is put back. No value where all are there. A value where they are not: the words of the refusal,
// which may be empty. Does not look at `before`.
[[nodiscard]] std::optional<std::string> applyChanges(iVKR_Company& company,
                                                      std::span<const DatumChange> changes);

} // namespace vkr
