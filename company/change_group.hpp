// SPDX-License-Identifier: MIT
#pragma once

#include "record/actions.hpp"
#include "record/datum_changes.hpp"

#include <chrono>
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

// What one action of a person changed. No datum, element or setting comes twice, but for a series
// whose figures were moved to other periods: that is one change of the whole series, and what was
// written beside follows element by element, as the series counts then.
struct ChangeGroup {
    std::string name; // for people: "Paste of 30 Figures", "Revenue 2024"; may be empty
    std::chrono::system_clock::time_point at{};
    std::vector<Change> changes; // the one that was made first comes first

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
