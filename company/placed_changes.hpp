// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"
#include "company/company_record.hpp"

#include <map>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <vector>

namespace vkr {

// Why a change has no place in a record.
enum class NotPlaced {
    outsideTable, // its year or quarter is none of the record's any more
    changedSince, // there is something else by now than before or after the change
    periodsMoved, // years or quarters were added or removed, and not those of the change
    notDated,     // which year or quarter it is of can't be told
    besideOthers, // others of a split that is made whole or not at all have no place
};

struct UnplacedChange {
    Change change; // as it was noted
    NotPlaced why{};
    Variant found; // what is there, for changedSince
};

// Changes that were noted of a record, and are to be made to it as it is by now: others may have
// added years or quarters to it, or changed figures. A figure goes to its year or quarter, and only
// where what it has replaced is still there. Years and quarters that were added or removed are so
// here, where the record has not come to have the same ones already. What is there already is left
// out, and so is what was worked out of other figures than there are.
class ChangePlacing {
  public:
    // Anything may take the place of `suggested` data, which nobody has stated.
    explicit ChangePlacing(const std::vector<ChangeGroup>& groups,
                           std::vector<Datum> suggested = {});

    struct Placed {
        ChangeGroup group; // as the record counts
        std::vector<UnplacedChange> left;
    };
    // Of each group in turn, once those before it were made.
    [[nodiscard]] Placed place(const ChangeGroup& group, const CompanyRecord& record) const;

    [[nodiscard]] bool isSuggested(Datum datum) const;
    // What the last one of the groups makes of the place of this change.
    [[nodiscard]] bool isLast(const ChangeGroup& group, const Change& change,
                              const Variant& value) const;

  private:
    using Key = std::tuple<std::string, Datum, std::optional<int>>;
    [[nodiscard]] std::optional<Key> keyOf(const ChangeGroup& group, const Change& change) const;

    std::vector<Datum> suggested_;
    std::optional<NewestPeriods> base_; // that elements are compared by
    std::map<Key, Variant> last_;
};

} // namespace vkr
