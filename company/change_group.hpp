// SPDX-License-Identifier: MIT
#pragma once

#include "record/actions.hpp"
#include "record/datum_changes.hpp"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// A datum, an element of a series or a setting of a record that has changed, and where what stands
// there now comes from.
struct Change : DatumChange {
    std::string setting; // a name of vkr::setting; then it is that, and neither datum nor element
    std::optional<Origin> origin = Origin::typed; // nothing: not known
    std::string document;                         // that an imported figure was taken from

    friend bool operator==(const Change&, const Change&) = default;
};

// The last fiscal year and quarter of a record, which elements of its series are counted from; 0
// and absent where none is known.
struct NewestPeriods {
    std::int16_t year = 0;
    Date quarter;

    friend bool operator==(const NewestPeriods&, const NewestPeriods&) = default;
};
[[nodiscard]] NewestPeriods newestPeriods(const iVKR_Company& company);

// Those of the record before a group was made and after it, as which its elements are counted.
struct CountedFrom {
    NewestPeriods before;
    NewestPeriods after;

    friend bool operator==(const CountedFrom&, const CountedFrom&) = default;
};

// What one action of a person changed. No datum, element or setting comes twice, but for a series
// whose figures were moved to other periods: that is one change of the whole series, and what was
// written beside follows element by element, as the series counts then.
struct ChangeGroup {
    std::string name; // for people: "Paste of 30 Figures", "Revenue 2024"; may be empty
    std::chrono::system_clock::time_point at{};
    std::vector<Change> changes; // the one that was made first comes first
    // Nothing: not known, or not the same for all series.
    std::optional<CountedFrom> counted = std::nullopt;

    friend bool operator==(const ChangeGroup&, const ChangeGroup&) = default;
};

class CompanyRecord;
// What leads from one record to the other, datum by datum as they were set, then the settings. Each
// change has the action's origin and document.
[[nodiscard]] ChangeGroup changesBetween(const CompanyRecord& before, const CompanyRecord& after,
                                         const Action& action);

// The same changes of whole series, as an import means them, which goes by periods: where it begins
// with another year or quarter figures have moved there, with all that is known of them, and only
// those that differ then have become other ones.
[[nodiscard]] ChangeGroup withMovesApart(const ChangeGroup& group);

// The same changes, each whole series element by element but one whose figures have moved.
[[nodiscard]] ChangeGroup elementByElement(const ChangeGroup& group);

} // namespace vkr
