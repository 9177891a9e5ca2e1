// SPDX-License-Identifier: MIT
#pragma once

#include "company/record_snapshot.hpp"
#include "company/split.hpp"

#include <vector>

// What a host hands in to be changed as one action.
namespace vkr::test {

inline std::vector<DatumChange> changesOf(const SplitChanges& split) {
    std::vector<DatumChange> changes;
    for (const SplitChange& one : split.changes)
        changes.push_back(one.change);
    return changes;
}

// The elements of series that lead from one company to another, as an import has them.
inline std::vector<DatumChange> elementChanges(const iVKR_Company& before,
                                               const iVKR_Company& after) {
    std::vector<DatumChange> changes;
    for (const Change& one : changesBetween(vkr::snapshotOf(before), vkr::snapshotOf(after)))
        if (one.element)
            changes.push_back(one);
    return changes;
}

} // namespace vkr::test
