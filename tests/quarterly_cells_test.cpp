// SPDX-License-Identifier: MIT
#include "quarterly/quarterly_grid.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

struct QuarterlyCells : testing::Test {
    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = fullCompany();

    QuarterlyCells() { open(company); }
    void open(const std::shared_ptr<iVKR_Company>& record) {
        scene.load(record);
        desktop.clickTab(toQuarterly);
    }
    [[nodiscard]] std::string after(std::string_view id, std::string_view keys) {
        goTo(scene, id);
        desktop.type(keys);
        return desktop.focusedId();
    }
};

TEST_F(QuarterlyCells, LeavingAnUnchangedOneIsNoChange) {
    const auto before = company->clone();
    for (const auto& column : quarterlyColumns())
        for (int row = 0; row < QuarterlyGrid::startRows; ++row)
            EXPECT_NE(after(std::string(column.cells) + "(" + std::to_string(row) + ")", "{TAB}"),
                      "");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_TRUE(sameAs(*before, *company));
}

TEST_F(QuarterlyCells, EndsFollowTheNumberOfRows) {
    scene.entry->put_VisibleQuarters(20);
    EXPECT_EQ(after("txtRevenue(19)", "~"), "txtEPS(0)");
    EXPECT_EQ(after("txtEPS(0)", "{UP}"), "txtRevenue(19)");
    EXPECT_TRUE(desktop.canReach("txtRevenue", 19));
    scene.entry->put_VisibleQuarters(1);
    EXPECT_EQ(after("txtRevenue(0)", "~~~~"), "txtNetInc(0)");
}

// Rows that reach beyond the oldest quarter of the record take no focus.
TEST_F(QuarterlyCells, KeysPassOverRowsWithoutAQuarter) {
    desktop.spin("spnQuarter", -32);
    ASSERT_FALSE(scene.field("txtRevenue", 3).enabled());
    EXPECT_EQ(after("txtRevenue(2)", "~"), "txtEPS(0)");
    EXPECT_EQ(after("txtRevenue(0)", "^{UP}"), "txtNetInc(2)");
    EXPECT_EQ(after("txtNetInc(2)", "^{DOWN}"), "txtRevenue(0)");
}

TEST_F(QuarterlyCells, MoneyFollowsTheUnitAndTheOtherFiguresDoNot) {
    const struct {
        const char* cell;
        const char* series;
        double stored; // of 1500 in thousands
    } rows[] = {{"txtRevenue(2)", "QRevenueSeries", 1.5},
                {"txtEPS(2)", "QEPSSeries", 1500},
                {"txtQOption(2)", "QPTISeries", 1.5},
                {"txtNetInc(2)", "QNetIncSeries", 1.5}};
    desktop.clickTab(toOptions);
    desktop.click("optCurrency", 0);
    for (const auto& row : rows) {
        typeOver(scene, row.cell, "1500");
        EXPECT_EQ(elementOf(*company, row.series, 2), row.stored);
        EXPECT_EQ(textOf(scene, row.cell), "1500.00");
    }
    desktop.clickTab(toOptions);
    desktop.click("optPTI", 1);
    typeOver(scene, "txtQOption(2)", "-12.5");
    EXPECT_EQ(elementOf(*company, "QTaxRateSeries", 2), -12.5);
    EXPECT_EQ(elementOf(*company, "QPTISeries", 2), 1.5);
}

TEST_F(QuarterlyCells, AMinusCanBeTypedInEveryColumnButRevenue) {
    for (const auto& column : quarterlyColumns()) {
        const auto id = std::string(column.cells) + "(1)";
        typeOver(scene, id, "-4");
        EXPECT_EQ(textOf(scene, id), column.cells == "txtRevenue" ? "4.00" : "-4.00");
    }
}

TEST_F(QuarterlyCells, TheElementIsThatOfTheQuarterBesideTheCell) {
    desktop.spin("spnQuarter", -5);
    typeOver(scene, "txtRevenue(3)", "42");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 8), 42);
}

TEST_F(QuarterlyCells, WithoutADateNothingIsWrittenUntilThereIsOne) {
    auto empty = datedCompany();
    const auto record = std::make_shared<ScriptedRecord>(empty);
    record->failing = {"read LastQDate", "read LastQDateForGrid"};
    open(record);
    EXPECT_EQ(scene.text("txtLastQDate"), "");
    EXPECT_EQ(scene.form().get<Label>("lblQLabel", 0).caption(), "");
    empty->put_Last4QEPS(3);
    typeOver(scene, "txtEPS(1)", "2.5");
    EXPECT_EQ(elementOf(*empty, "QEPSSeries", 1), 0);
    EXPECT_EQ(empty->get_Last4QEPS(), 3);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "");
    EXPECT_EQ(scene.text("txtEPS", 1), "2.5");
    EXPECT_NE(markOf(scene, "txtEPS(1)"), "");
    record->failing.clear();
    typeOver(scene, "txtLastQDate", "6/30/2026");
    EXPECT_EQ(elementOf(*empty, "QEPSSeries", 1), 2.5);
    EXPECT_EQ(scene.text("txtEPS", 1), "2.50");
    EXPECT_EQ(markOf(scene, "txtEPS(1)"), "");
    EXPECT_EQ(scene.form().get<Label>("lblQLabel", 1).caption(), "3/31/2026");
}

TEST_F(QuarterlyCells, EarningsTypedWithoutADateAreSummedOnceThereIsOne) {
    auto empty = datedCompany();
    const auto record = std::make_shared<ScriptedRecord>(empty);
    record->failing = {"read LastQDate", "read LastQDateForGrid"};
    open(record);
    for (int row = 0; row < 4; ++row)
        typeOver(scene, "txtEPS(" + std::to_string(row) + ")", "1.5");
    record->failing.clear();
    typeOver(scene, "txtLastQDate", "6/30/2026");
    EXPECT_EQ(empty->get_Last4QEPS(), 6);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "6.00");
}

// More or fewer rows show the same quarters: no reason to lose what is waiting to be stored.
TEST_F(QuarterlyCells, UnstoredOnesOutliveAChangeOfTheRows) {
    auto empty = datedCompany();
    const auto record = std::make_shared<ScriptedRecord>(empty);
    record->failing = {"read LastQDate", "read LastQDateForGrid"};
    open(record);
    typeOver(scene, "txtEPS(1)", "2.5");
    for (const int rows : {12, 5}) {
        scene.entry->put_VisibleQuarters(static_cast<std::int16_t>(rows));
        EXPECT_EQ(scene.text("txtEPS", 1), "2.5") << rows;
        EXPECT_NE(markOf(scene, "txtEPS(1)"), "") << rows;
    }
    record->failing.clear();
    typeOver(scene, "txtLastQDate", "6/30/2026");
    EXPECT_EQ(elementOf(*empty, "QEPSSeries", 1), 2.5);
}

TEST_F(QuarterlyCells, UnstoredOnesKnowTheStoredFigureAfterAChangeOfTheRows) {
    putElement(*company, "QNetIncSeries", 1, 1234.5678);
    open(company);
    pasteOver(scene, "txtNetInc(1)", "1e400");
    scene.entry->put_VisibleQuarters(12);
    ASSERT_NE(markOf(scene, "txtNetInc(1)"), "");
    typeOver(scene, "txtNetInc(1)", "1234.57");
    EXPECT_EQ(elementOf(*company, "QNetIncSeries", 1), 1234.5678);
    EXPECT_EQ(markOf(scene, "txtNetInc(1)"), "");
}

TEST_F(QuarterlyCells, UnstoredOnesOutliveTheFirstDate) {
    const auto record = std::make_shared<ScriptedRecord>(datedCompany());
    record->failing = {"read LastQDate", "read LastQDateForGrid"};
    open(record);
    pasteOver(scene, "txtEPS(1)", "1e400");
    record->failing.clear();
    typeOver(scene, "txtLastQDate", "6/30/2026");
    EXPECT_EQ(scene.text("txtEPS", 1), "1e400");
    EXPECT_NE(markOf(scene, "txtEPS(1)"), "");
}

TEST_F(QuarterlyCells, UnstoredOnesOutliveACorrectedDate) {
    pasteOver(scene, "txtEPS(2)", "1e400");
    const Date other = addDays(company->get_LastQDate(), -1);
    const auto day = civil(other);
    typeOver(scene, "txtLastQDate",
             std::to_string(day.month) + "/" + std::to_string(day.day) + "/" +
                 std::to_string(day.year));
    ASSERT_EQ(company->get_LastQDate(), other);
    EXPECT_EQ(scene.text("txtEPS", 2), "1e400");
    EXPECT_NE(markOf(scene, "txtEPS(2)"), "");
}

TEST_F(QuarterlyCells, TypedIntoAClearedFormBelongToTheQuartersBelowTheTypedDate) {
    const struct {
        const char* typed;
        int moved; // before the form was cleared
        int element;
    } rows[] = {
        {"9/30/2026", 0, 0},  {"6/30/2026", 0, 1},   {"9/30/2026", -2, 0},
        {"6/30/2026", -2, 1}, {"12/31/2026", -2, 0}, {"3/31/2027", 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.typed) + " " + std::to_string(row.moved));
        company = datedCompany();
        for (int i = 0; i < 6; ++i)
            putElement(*company, "QEPSSeries", i, i + 1);
        open(company);
        if (row.moved != 0)
            desktop.spin("spnQuarter", row.moved);
        scene.entry->Clear();
        typeOver(scene, "txtRevenue(0)", "77");
        EXPECT_NE(markOf(scene, "txtRevenue(0)"), "");
        desktop.answerNext(MessageAnswer::yes); // a later quarter is added
        typeOver(scene, "txtLastQDate", row.typed);
        EXPECT_EQ(markOf(scene, "txtRevenue(0)"), "");
        EXPECT_EQ(scene.text("txtRevenue", 0), "77.00");
        EXPECT_EQ(elementOf(*company, "QRevenueSeries", row.element), 77);
    }
}

TEST_F(QuarterlyCells, LeadOnThoughTheHostAnswersWithOtherRows) {
    for (const int rows : {5, 20}) {
        scene.entry->put_VisibleQuarters(QuarterlyGrid::startRows);
        scene.entry->put_blnDirty(false);
        scene.entry->stateChanged = [&] {
            scene.entry->put_VisibleQuarters(static_cast<std::int16_t>(rows));
        };
        EXPECT_EQ(after("txtRevenue(2)", "7{TAB}"), "txtRevenue(3)") << rows;
        EXPECT_EQ(scene.entry->get_VisibleQuarters(), rows);
        scene.entry->stateChanged = nullptr;
    }
}

} // namespace
} // namespace vkr
