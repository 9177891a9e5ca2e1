// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vkr {

// The data of a record at one time; without a value where it does not answer. Settings are no part:
// a record may lend a copy of them, which is not to be asked for in between.
using RecordSnapshot = std::array<std::optional<Variant>, datumCount>;

[[nodiscard]] RecordSnapshot snapshotOf(const iVKR_Company& company);

// Equal for people who enter figures: what is no number equals itself.
[[nodiscard]] bool isSame(const Variant& left, const Variant& right);

// What differs, element by element where the bounds are the same.
[[nodiscard]] std::vector<Change> changesBetween(const RecordSnapshot& before,
                                                 const RecordSnapshot& after);

// What the changes that lead from the one to the other are counted from. Nothing where that can't
// be told, as some series were moved to other periods and others with figures were not.
[[nodiscard]] std::optional<CountedFrom> countedFrom(const RecordSnapshot& before,
                                                     const RecordSnapshot& after,
                                                     const std::vector<Change>& changes);

// Puts every `after` into the record, settings included. All or none: where one is refused, or is
// not there afterwards, the record is brought back. No value where all are there. A value where
// they are not: the record's words, which may be empty.
[[nodiscard]] std::optional<std::string> putChanges(iVKR_Company& company,
                                                    std::span<const Change> changes);

} // namespace vkr
