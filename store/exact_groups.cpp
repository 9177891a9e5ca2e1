// SPDX-License-Identifier: MIT
#include "store/exact_groups.hpp"

#include "platform/error_trap.hpp"

#include <utility>

namespace vkr {

bool replay(CompanyRecord& company, Change& change) {
    if (!change.setting.empty()) {
        const auto settings = company.get_Settings();
        change.before = settings->get(change.setting);
        settings->put(change.setting, change.after);
        return change.before != settings->get(change.setting);
    }
    const Variant held = company.stored(change.datum);
    if (change.element) {
        Variant series = held;
        change.before = series.array().at(*change.element);
        series.array().set(*change.element, change.after);
        writeDatum(company, change.datum, series);
        change.after = company.stored(change.datum).array().at(*change.element);
    } else {
        change.before = held;
        writeDatum(company, change.datum, change.after);
        change.after = company.stored(change.datum);
    }
    return change.before != change.after;
}

std::vector<ChangeGroup> exactGroups(const CompanyRecord& stored, const CompanyRecord& saved,
                                     const SaveAccount& account) {
    const auto reached = stored.clone();
    std::vector<ChangeGroup> groups;
    for (const ChangeGroup& told : account.groups) {
        ChangeGroup group{told.name, told.at, {}};
        for (Change change : told.changes) {
            bool isDone = false;
            if (attempt([&] { isDone = replay(*reached, change); }) && isDone)
                group.changes.push_back(std::move(change));
        }
        if (!group.changes.empty())
            groups.push_back(std::move(group));
    }
    ChangeGroup others = changesBetween(*reached, saved, account.rest);
    for (Change& change : others.changes)
        if (const auto found = account.documents.find(change.datum);
            change.setting.empty() && found != account.documents.end())
            change.document = found->second;
    if (account.rest.origin == Origin::imported)
        others = withMovesApart(others);
    else if (account.origins && (account.overwrites || sameAs(stored, CompanyRecord()))) {
        others = elementByElement(others); // it begins with figures of another one
        account.origins->tellIn(others);
        for (Change& change : others.changes)
            if (account.overwrites && isAbsentValue(change.after))
                change.origin = account.rest.origin;
    }
    for (Change& change : others.changes)
        if (!change.setting.empty() && change.origin == Origin::derived)
            change.origin = Origin::typed; // how figures are shown is chosen by people
    if (!others.changes.empty() || groups.empty())
        groups.push_back(std::move(others));
    return groups;
}

} // namespace vkr
