// SPDX-License-Identifier: MIT
// The new field in the whole component: shown, typed, stored, cleared.
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "platform/virtual_desktop.hpp"

#include <gtest/gtest.h>
#include <memory>

namespace vkr {
namespace {

TEST(NewFieldEntry, ShowsItsDatumAndStoresWhatIsTyped) {
    VirtualDesktop desktop;
    VKRDataEntry entry(desktop);
    desktop.attach(entry.form());
    const auto company = std::make_shared<CompanyRecord>();
    company->put_Goodwill(12.5);
    entry.put_objCompany(company);
    const auto& field = entry.form().get<TextField>("txtGoodwill");
    EXPECT_EQ(field.text(), "12.50");
    EXPECT_EQ(entry.form().get<Label>("lblUnit", 11).caption(), "Goodwill (M)");
    desktop.click("txtGoodwill");
    desktop.type("7.25{TAB}");
    EXPECT_EQ(company->get_Goodwill(), 7.25);
    EXPECT_TRUE(entry.get_blnDirty());
    entry.put_CurrentTab(toOptions);
    desktop.click("optCurrency(0)");
    EXPECT_EQ(field.text(), "7250.00");
    entry.Clear();
    EXPECT_EQ(field.text(), "");
}

} // namespace
} // namespace vkr
