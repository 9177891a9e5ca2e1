// SPDX-License-Identifier: MIT
#include "binding/form_settings.hpp"
#include "record/setting_table.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(FormSettings, TheFormHasARowForEachSetting) {
    ASSERT_EQ(formSettings().size(), settingCount);
    for (const SettingRow& row : settingTable)
        EXPECT_EQ(formSetting(row.name).name, row.name);
}

} // namespace
} // namespace vkr
