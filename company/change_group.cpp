// SPDX-License-Identifier: MIT
#include "company/change_group.hpp"

#include "company/company_record.hpp"
#include "company/period_moves.hpp"
#include "record/setting_table.hpp"

#include <algorithm>

namespace vkr {

namespace {

// The elements that `change` gives another value than they have in `reached`.
void addElements(std::vector<Change>& all, const Change& change, const Variant& reached) {
    const VariantArray& after = change.after.array();
    for (int i = after.lower(); i <= after.upper(); ++i)
        if (reached.array().number(i) != after.number(i))
            all.push_back({{change.datum, i, reached.array().number(i), after.number(i)},
                           {},
                           change.origin,
                           change.document});
}

} // namespace

NewestPeriods newestPeriods(const iVKR_Company& company) {
    return {company.get_LastFY(), company.get_LastQDateForGrid()};
}

ChangeGroup changesBetween(const CompanyRecord& before, const CompanyRecord& after,
                           const Action& action) {
    ChangeGroup group{
        action.name, {}, {}, CountedFrom{newestPeriods(before), newestPeriods(after)}};
    const auto add = [&](DatumChange change, std::string_view setting) {
        group.changes.push_back(
            {std::move(change), std::string(setting), action.origin, action.document});
    };
    for (const DatumRow& row : datumTable()) {
        const Variant& left = before.stored(row.datum);
        const Variant& right = after.stored(row.datum);
        if (left != right)
            add({row.datum, std::nullopt, left, right}, {});
    }
    for (const SettingRow& row : settingTable) {
        const Variant left = before.get_Settings()->get(row.name);
        const Variant right = after.get_Settings()->get(row.name);
        if (left.toText() != right.toText())
            add({Datum{}, std::nullopt, left, right}, row.name);
    }
    return group;
}

ChangeGroup withMovesApart(const ChangeGroup& group) {
    ChangeGroup apart{group.name, group.at, {}, group.counted};
    for (const Change& change : group.changes) {
        const DatumPeriod period =
            change.setting.empty() ? rowOf(change.datum).period : DatumPeriod::none;
        const auto dated = std::ranges::find_if(group.changes, [&](const Change& one) {
            return one.setting.empty() && one.datum == firstPeriodOf(period);
        });
        const int moved = period == DatumPeriod::none || dated == group.changes.end()
                              ? 0
                              : periodsBetween(period, dated->before, dated->after);
        if (moved == 0) {
            apart.changes.push_back(change);
            continue;
        }
        const Variant reached = movedOn(change.before, moved);
        if (reached != change.before)
            apart.changes.push_back(
                {{change.datum, std::nullopt, change.before, reached}, {}, Origin::shifted, {}});
        addElements(apart.changes, change, reached);
    }
    return apart;
}

ChangeGroup elementByElement(const ChangeGroup& group) {
    ChangeGroup single{group.name, group.at, {}, group.counted};
    for (const Change& change : group.changes)
        if (change.setting.empty() && change.after.isArray() && change.origin != Origin::shifted)
            addElements(single.changes, change, change.before);
        else
            single.changes.push_back(change);
    return single;
}

} // namespace vkr
