// SPDX-License-Identifier: MIT
#include "company/taken_back.hpp"

#include "company/period_moves.hpp"
#include "company/record_snapshot.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace vkr {

namespace {

// A series that was moved, which no other change was, is moved back first, and what stands
// elsewhere than before comes then.
void moveBackFirst(ChangeGroup& back, const Change& moved) {
    const auto periods = periodsMoved(moved.before, moved.after);
    if (!periods)
        return;
    Variant reached = moved.after;
    std::vector<Change> changes;
    for (const Change& change : back.changes)
        if (change.setting.empty() && change.datum == moved.datum && change.element)
            reached.array().set(*change.element, change.before);
    std::erase_if(back.changes, [&](const Change& change) {
        return change.setting.empty() && change.datum == moved.datum;
    });
    const Variant movedBack = movedOn(reached, -*periods);
    changes.push_back(
        {{moved.datum, std::nullopt, std::move(reached), movedBack}, {}, moved.origin, {}});
    RecordSnapshot from;
    RecordSnapshot to;
    from[static_cast<std::size_t>(moved.datum)] = movedBack;
    to[static_cast<std::size_t>(moved.datum)] = moved.before;
    std::ranges::copy(changesBetween(from, to), std::back_inserter(changes));
    back.changes.insert(back.changes.end(), changes.begin(), changes.end());
}

bool isSameChange(const Change& one, const Change& other) {
    return static_cast<const DatumChange&>(one) == other && one.setting == other.setting;
}

} // namespace

ChangeGroup inverse(ChangeGroup group) {
    std::ranges::reverse(group.changes);
    for (Change& change : group.changes)
        std::swap(change.before, change.after);
    if (group.counted)
        std::swap(group.counted->before, group.counted->after);
    return group;
}

ChangeGroup takenBack(const ChangeGroup& group) {
    ChangeGroup back = inverse(group);
    for (const Change& change : group.changes)
        if (change.origin == Origin::shifted)
            moveBackFirst(back, change);
    return back;
}

bool takesBack(const ChangeGroup& one, const ChangeGroup& other) {
    return one.at == other.at &&
           std::ranges::equal(one.changes, takenBack(other).changes, isSameChange);
}

} // namespace vkr
