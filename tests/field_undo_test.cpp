// SPDX-License-Identifier: MIT
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

// What a field can take back belongs to the figure that it was typed for, and to one stay in it.
struct FieldUndo : testing::Test {
    EntryScene scene;
    std::shared_ptr<CompanyRecord> company = datedCompany();

    void load() { scene.load(company); }
    void takeBack(std::string_view id) { typeAt(scene, id, "^z{TAB}"); }
};

TEST_F(FieldUndo, EndsWhereTheUnitIsAnother) {
    company->put_TotalDebt(1.2345678);
    company->get_Settings()->put(setting::unit, 3);
    load();
    typeOver(scene, "txtTotalDebt", "");
    ASSERT_EQ(company->get_TotalDebt(), 0);
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("optCurrency(1)");
    takeBack("txtTotalDebt");
    EXPECT_EQ(company->get_TotalDebt(), 0);
}

TEST_F(FieldUndo, EndsWithTheCompany) {
    company->put_TotalDebt(777);
    load();
    typeOver(scene, "txtTotalDebt", "");
    const auto next = datedCompany();
    next->put_TotalDebt(0);
    scene.load(next);
    takeBack("txtTotalDebt");
    EXPECT_EQ(next->get_TotalDebt(), 0);
    EXPECT_EQ(company->get_TotalDebt(), 0);
}

TEST_F(FieldUndo, EndsWhereTheCellIsOfAnotherPeriod) {
    putElement(*company, "QRevenueSeries", 0, 100);
    putElement(*company, "QRevenueSeries", 1, 0);
    load();
    typeOver(scene, "txtRevenue(0)", "");
    scene.desktop.spin("spnQuarter", -1);
    takeBack("txtRevenue(0)");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 0);
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 0);
}

TEST_F(FieldUndo, EndsWhereTheColumnIsOfAnotherSeries) {
    putElement(*company, "YPTISeries", 1, 50);
    putElement(*company, "YTaxRateSeries", 1, 0);
    load();
    typeOver(scene, "txtYOption(9)", "");
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("optPTI(1)");
    takeBack("txtYOption(9)");
    EXPECT_EQ(elementOf(*company, "YTaxRateSeries", 1), 0);
    EXPECT_EQ(elementOf(*company, "YPTISeries", 1), 0);
}

TEST_F(FieldUndo, NeverBringsBackTheShownDigitsForAllDigits) {
    company->put_TotalDebt(1.2345678);
    load();
    typeOver(scene, "txtTotalDebt", "");
    takeBack("txtTotalDebt");
    EXPECT_EQ(company->get_TotalDebt(), 0);
    EXPECT_EQ(scene.text("txtTotalDebt"), "");
}

TEST_F(FieldUndo, EndsWhereTheMarkIsAnother) {
    company->put_CurrentPrice(1.234);
    load();
    typeOver(scene, "txtCurrentPrice", "");
    scene.entry->put_NumberMarks({.decimal = ',', .grouping = "."});
    takeBack("txtCurrentPrice");
    EXPECT_EQ(company->get_CurrentPrice(), 0);
}

TEST_F(FieldUndo, IsNotOfferedByTheMenuForAnotherStay) {
    company->put_TotalDebt(1.2345678);
    load();
    typeOver(scene, "txtTotalDebt", "");
    scene.desktop.rightClick("txtTotalDebt");
    ASSERT_EQ(scene.desktop.menus().back().entries.front().caption, "Undo");
    EXPECT_FALSE(scene.desktop.menus().back().entries.front().enabled);
}

TEST_F(FieldUndo, TakesBackWhatWasTypedInThisStay) {
    company->put_TotalDebt(1.2345678);
    load();
    typeAt(scene, "txtTotalDebt", "^a{DEL}^z{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), 1.2345678);
    typeAt(scene, "txtTotalDebt", "5{TAB}");
    typeAt(scene, "txtTotalDebt", "7^z{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), 5);
}

} // namespace
} // namespace vkr
