// SPDX-License-Identifier: MIT
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

struct TrailingEarnings : testing::Test {
    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany();

    void quarters(std::vector<double> earnings) {
        for (int i = 0; i < static_cast<int>(earnings.size()); ++i)
            putElement(*company, "QEPSSeries", i, earnings[static_cast<std::size_t>(i)]);
    }
    void load() {
        scene.load(company);
        desktop.clickTab(toQuarterly);
    }
    [[nodiscard]] std::string shown() const { return scene.text("txtLast4QEPS"); }
};

TEST_F(TrailingEarnings, AreTheSumOfFourQuartersOnLoading) {
    const struct {
        std::vector<double> earnings;
        double sum; // 9 was stored before
    } rows[] = {
        {{1, 2, 3, 4, 5}, 10},
        {{0.1, 0.2, 0.3, 0.4}, 1},
        {{-1, 2, -3, 4}, 2},
        {{0, 2, 3, 4, 5}, 14}, // the newest is still empty
        {{1, 2, 3}, 9},        // three are no four
        {{0, 1, 2, 3}, 9},
        {{1, 0, 3, 4, 5}, 9},
        {{0, 0, 3, 4, 5, 6}, 9},
        {{1, -1, 1, -1, 5}, 0},
        {{}, 9},
    };
    for (const auto& row : rows) {
        company = datedCompany();
        company->put_Last4QEPS(9);
        quarters(row.earnings);
        load();
        EXPECT_EQ(company->get_Last4QEPS(), row.sum);
        EXPECT_FALSE(scene.entry->get_blnDirty());
    }
}

TEST_F(TrailingEarnings, FollowEveryTypedQuarterAtOnce) {
    quarters({1, 2, 3, 4});
    load();
    EXPECT_EQ(shown(), "10.00");
    typeOver(scene, "txtEPS(2)", "3.5");
    EXPECT_EQ(shown(), "10.50");
    EXPECT_EQ(company->get_Last4QEPS(), 10.5);
    EXPECT_EQ(scene.field("txtLast4QEPS").tag(), "10.50");
    typeOver(scene, "txtEPS(6)", "100");
    EXPECT_EQ(shown(), "10.50") << "not one of the four";
    typeOver(scene, "txtEPS(3)", "");
    EXPECT_EQ(shown(), "10.50") << "three are no four";
    EXPECT_EQ(company->get_Last4QEPS(), 10.5);
    typeOver(scene, "txtEPS(3)", "-4");
    EXPECT_EQ(shown(), "2.50");
}

TEST_F(TrailingEarnings, AnAddedQuarterLeavesTheSumUntilItIsTyped) {
    quarters({1, 2, 3, 4});
    load();
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(shown(), "10.00");
    typeOver(scene, "txtEPS(0)", "5");
    EXPECT_EQ(shown(), "11.00");
}

TEST_F(TrailingEarnings, ThoseOfTheLastFiscalYearAreTheYearlyFigure) {
    const struct {
        Date quarter;
        Date fiscalYear;
        std::vector<double> earnings;
        double expected;
    } rows[] = {
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {1, 2, 3, 4}, 10.1},
        {*makeDate(2026, 3, 31), *makeDate(2025, 12, 31), {1, 2, 3, 4, 5}, 10},
        {*makeDate(2026, 3, 31), *makeDate(2025, 12, 31), {0, 1, 2, 3, 4}, 10.1},
        {*makeDate(2023, 4, 1), *makeDate(2022, 12, 31), {0, 1, 2, 3, 4}, 10.1},
        {*makeDate(2022, 12, 31), *makeDate(2022, 9, 24), {1, 2, 3, 4, 5}, 10},
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {1, 2, 3}, 9},
    };
    for (const auto& row : rows) {
        company = datedCompany();
        company->put_Last4QEPS(9);
        company->put_LastQDate(row.quarter);
        company->put_LastQDateForGrid(row.quarter);
        company->put_LastFYDate(row.fiscalYear);
        putElement(*company, "YEPSSeries", 1, 10.1);
        quarters(row.earnings);
        load();
        EXPECT_EQ(company->get_Last4QEPS(), row.expected);
    }
}

TEST_F(TrailingEarnings, TheYearlyFigureCountsAsSoonAsItIsTyped) {
    company->put_LastQDate(*makeDate(2025, 12, 31));
    company->put_LastQDateForGrid(*makeDate(2025, 12, 31));
    quarters({1, 2, 3, 4});
    load();
    EXPECT_EQ(company->get_Last4QEPS(), 10);
    typeOver(scene, "txtYEPS(8)", "8");
    EXPECT_EQ(shown(), "10.00") << "of another year";
    typeOver(scene, "txtYEPS(9)", "10.1");
    EXPECT_EQ(shown(), "10.10");
    typeOver(scene, "txtDateofLastFY", "9/30/2025");
    EXPECT_EQ(shown(), "10.00") << "the four are not those of that fiscal year";
    typeOver(scene, "txtDateofLastFY", "12/31/2025");
    EXPECT_EQ(shown(), "10.10");
    typeOver(scene, "txtYEPS(9)", "");
    EXPECT_EQ(shown(), "10.00") << "taken back";
    EXPECT_EQ(company->get_Last4QEPS(), 10);
}

TEST_F(TrailingEarnings, FollowTheFiscalYearThatIsAddedOrRemoved) {
    company->put_LastQDate(*makeDate(2025, 12, 31));
    company->put_LastQDateForGrid(*makeDate(2025, 12, 31));
    putElement(*company, "YEPSSeries", 1, 10.1);
    quarters({1, 2, 3, 4});
    load();
    const struct {
        const char* button;
        double earnings;
    } rows[] = {{"cmdAddYear", 10}, {"cmdRemoveYear", 10.1}, {"cmdRemoveYear", 10}};
    for (const auto& row : rows) {
        desktop.clickTab(toYearly);
        desktop.answerNext(MessageAnswer::yes);
        desktop.click(row.button);
        EXPECT_EQ(company->get_Last4QEPS(), row.earnings);
        scene.load(company);
        EXPECT_EQ(company->get_Last4QEPS(), row.earnings) << "as on loading";
    }
}

TEST_F(TrailingEarnings, TypedByHandOutliveAFiscalYearThatHasNoPartInThem) {
    quarters({1, 2, 3, 4});
    load();
    typeOver(scene, "txtLast4QEPS", "10.25");
    typeOver(scene, "txtYEPS(9)", "8");
    typeOver(scene, "txtDateofLastFY", "6/30/2025");
    EXPECT_EQ(company->get_Last4QEPS(), 10.25);
}

TEST_F(TrailingEarnings, TheYearlyFigureCountsWhicheverQuarterIsOnShowWhenItIsTyped) {
    company->put_LastQDate(*makeDate(2025, 12, 31));
    company->put_LastQDateForGrid(*makeDate(2025, 12, 31));
    putElement(*company, "YEPSSeries", 1, 10.1);
    quarters({1, 2, 3, 4, 5});
    load();
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(shown(), "14.00");
    typeOver(scene, "txtYEPS(9)", "10.2");
    EXPECT_EQ(shown(), "14.00");
    desktop.clickTab(toQuarterly);
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(shown(), "10.20");
    EXPECT_EQ(company->get_Last4QEPS(), 10.2);
    typeOver(scene, "txtYEPS(9)", "");
    EXPECT_EQ(shown(), "10.00");
}

// Of a quarter that is out of sight.
TEST_F(TrailingEarnings, TypedByHandComeBackWhereTheYearlyFigureHasNoPartInThem) {
    for (const bool complete : {false, true}) {
        company = datedCompany();
        company->put_LastQDate(*makeDate(2026, 9, 30));
        company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
        company->put_LastFYDate(*makeDate(2024, 12, 31));
        quarters({complete ? 1.0 : 0.0, complete ? 1.0 : 0.0, 2.5, 2.5, 2.5, 2.5});
        load();
        typeOver(scene, "txtLast4QEPS", "9.99");
        desktop.clickTab(toQuarterly);
        desktop.spin("spnQuarter", -2);
        EXPECT_EQ(shown(), "10.00");
        typeOver(scene, "txtYEPS(9)", "7");
        desktop.clickTab(toQuarterly);
        desktop.spin("spnQuarter", 2);
        EXPECT_EQ(company->get_Last4QEPS(), 9.99) << complete;
        EXPECT_EQ(shown(), "9.99") << complete;
    }
}

TEST_F(TrailingEarnings, FollowAQuarterThatIsStoredAtTheSecondTry) {
    quarters({1, 2, 3, 4});
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->failing = {"write QEPSSeries"};
    typeOver(scene, "txtEPS(0)", "2");
    EXPECT_EQ(company->get_Last4QEPS(), 10);
    record->failing.clear();
    goTo(scene, "txtEPS(0)");
    desktop.type("{TAB}");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), 2);
    EXPECT_EQ(company->get_Last4QEPS(), 11);
    EXPECT_EQ(shown(), "11.00");
}

// Looking at older quarters and coming back loses nothing that was typed by hand.
TEST_F(TrailingEarnings, BelongToTheLastQuarterOnShow) {
    quarters({1, 2, 3, 4, 5, 6});
    load();
    typeOver(scene, "txtLast4QEPS", "10.25");
    desktop.clickTab(toQuarterly);
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(shown(), "18.00");
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(shown(), "18.00") << "not all four are there";
    desktop.spin("spnQuarter", 4);
    EXPECT_EQ(shown(), "10.25");
    EXPECT_EQ(company->get_Last4QEPS(), 10.25);
    desktop.spin("spnQuarter", -1);
    typeOver(scene, "txtEPS(0)", "2.5");
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(shown(), "10.50") << "a quarter was typed since";
}

} // namespace
} // namespace vkr
