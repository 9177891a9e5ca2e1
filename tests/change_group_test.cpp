// SPDX-License-Identifier: MIT
#include "company/change_group.hpp"
#include "company/company_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(ChangeGroup, LeadsFromOneRecordToTheOtherByDataAndSettings) {
    CompanyRecord before;
    CompanyRecord after;
    before.get_Settings()->put(setting::unit, std::int16_t{6});
    after.get_Settings()->put(setting::unit, std::int16_t{6});
    after.get_Settings()->put(setting::currencySymbol, "EUR");
    after.put_TotalDebt(12);
    const Action import{Origin::imported, "Import", "0001-24"};
    const ChangeGroup group = changesBetween(before, after, import);
    EXPECT_EQ(group.name, "Import");
    ASSERT_EQ(group.changes.size(), 2U);
    EXPECT_EQ(group.changes[0].datum, Datum::TotalDebt);
    EXPECT_EQ(group.changes[0].setting, "");
    EXPECT_EQ(group.changes[1].setting, setting::currencySymbol);
    EXPECT_EQ(group.changes[1].after, Variant("EUR"));
    for (const Change& change : group.changes) {
        EXPECT_EQ(change.origin, Origin::imported);
        EXPECT_EQ(change.document, "0001-24");
    }
    EXPECT_TRUE(changesBetween(after, after, import).changes.empty());
}

} // namespace
} // namespace vkr
