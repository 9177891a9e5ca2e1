// SPDX-License-Identifier: MIT
#include "record/setting_table.hpp"

#include <algorithm>
#include <stdexcept>

namespace vkr {

const SettingRow* settingNamed(std::string_view name) {
    const auto* const row = std::ranges::find(settingTable, name, &SettingRow::name);
    return row == std::end(settingTable) ? nullptr : row;
}

SettingHolder holderOf(std::string_view name) {
    const SettingRow* row = settingNamed(name);
    return row == nullptr ? SettingHolder::settings : row->holder;
}

std::shared_ptr<Object> settingObject(const iVKR_Company& company, SettingHolder holder) {
    auto object = holder == SettingHolder::reportingPeriod ? company.get_ReportingPeriod()
                                                           : company.get_Settings();
    if (object == nullptr)
        throw std::runtime_error("The record has no settings.");
    return object;
}

Variant readSetting(const iVKR_Company& company, std::string_view name) {
    return settingObject(company, holderOf(name))->get(name);
}

void applySettings(const iVKR_Company& company, SettingHolder holder) {
    static_cast<void>(holder == SettingHolder::reportingPeriod ? company.get_ReportingPeriodEnd()
                                                               : company.get_SettingsApply());
}

} // namespace vkr
