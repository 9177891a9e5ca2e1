// SPDX-License-Identifier: MIT
#include "company/change_group.hpp"

#include "company/company_record.hpp"
#include "company/setting_table.hpp"

namespace vkr {

ChangeGroup changesBetween(const CompanyRecord& before, const CompanyRecord& after,
                           const Action& action) {
    ChangeGroup group{action.name, {}, {}};
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

} // namespace vkr
