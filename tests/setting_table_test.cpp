// SPDX-License-Identifier: MIT
#include "record/setting_table.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

TEST(SettingTable, HasEachNameKeyAndTitleOnce) {
    std::set<std::string_view> names;
    std::set<std::string_view> keys;
    std::set<std::string_view> titles;
    for (const SettingRow& row : settingTable) {
        EXPECT_TRUE(names.insert(row.name).second) << row.name;
        EXPECT_TRUE(keys.insert(row.key).second) << row.key;
        EXPECT_TRUE(titles.insert(row.title).second) << row.title;
        EXPECT_EQ(settingNamed(row.name), &row);
        EXPECT_FALSE(row.title.empty()) << row.name;
    }
    EXPECT_EQ(settingNamed("TotalDebt"), nullptr);
}

TEST(SettingTable, TheObjectThatAnswersIsAskedAndTakenOver) {
    for (const SettingRow& row : settingTable) {
        ScriptedRecord record(std::make_shared<CompanyRecord>());
        const bool isPeriod = row.name == setting::leadPeriod;
        EXPECT_EQ(readSetting(record, row.name), CompanyRecord().get_Settings()->get(row.name));
        EXPECT_EQ(record.log.front(), isPeriod ? "read ReportingPeriod" : "read Settings");
        record.log.clear();
        applySettings(record, holderOf(row.name));
        EXPECT_EQ(record.log, Names{isPeriod ? "read ReportingPeriodEnd" : "read SettingsApply"});
    }
}

TEST(SettingTable, ARecordWithoutObjectsHasNoSettings) {
    ScriptedRecord record(std::make_shared<CompanyRecord>());
    record.withoutObjects = true;
    for (const SettingRow& row : settingTable)
        EXPECT_THROW(static_cast<void>(readSetting(record, row.name)), std::runtime_error);
}

} // namespace
} // namespace vkr
