// SPDX-License-Identifier: MIT
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

// Texts that the record does not take: which fields say so, and for how long.
struct RefusedTexts : testing::Test {
    using Names = std::vector<std::string>;

    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany();
    std::shared_ptr<ScriptedRecord> record = std::make_shared<ScriptedRecord>(company);

    // "txtName=A" for every field whose text is not stored.
    [[nodiscard]] Names unstored() const {
        Names names;
        for (const auto& field : scene.entry->unstoredFields())
            names.push_back(field.control + "=" + field.text);
        return names;
    }
    void leaveAgain(std::string_view id) {
        goTo(scene, id);
        desktop.type("{TAB}");
    }
};

TEST_F(RefusedTexts, APriceThatLooksLikeTheStoredOneInTheOtherDisplayIsTriedAgain) {
    company->put_High52W(3.13);
    putElement(*company, "YHighSeries", 1, 3.13);
    scene.load(record);
    record->failing = {"write High52W", "write YHighSeries"};
    typeOver(scene, "txt52WHigh", "3 1/8");
    typeOver(scene, "txtHigh(9)", "3 1/8");
    scene.entry->put_FractionDisplay(true); // 3.13 is 3 1/8 there
    EXPECT_EQ(unstored().size(), 2U);
    leaveAgain("txtHigh(9)");
    EXPECT_EQ(unstored().size(), 2U);
    record->failing.clear();
    leaveAgain("txt52WHigh");
    leaveAgain("txtHigh(9)");
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(company->get_High52W(), 3.125);
    EXPECT_EQ(elementOf(*company, "YHighSeries", 1), 3.125);
}

TEST_F(RefusedTexts, EarningsThatLookLikeTheStoredOnesAreTriedAgain) {
    company->get_Settings()->put(setting::unit, 3);
    putElement(*company, "QEPSSeries", 1, 1.5);
    scene.load(record);
    EXPECT_EQ(scene.text("txtEPS", 1), "1500.00"); // until the first edit
    record->failing = {"write QEPSSeries"};
    typeOver(scene, "txtEPS(1)", "1.50");
    scene.entry->put_VisibleQuarters(10);
    EXPECT_EQ(unstored(), Names{"txtEPS(1)=1.50"});
    record->failing.clear();
    leaveAgain("txtEPS(1)");
    EXPECT_EQ(unstored(), Names{});
}

} // namespace
} // namespace vkr
