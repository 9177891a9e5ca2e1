// SPDX-License-Identifier: MIT
#include "quarterly/quarterly_grid.hpp"
#include "tests/support/company_on_form.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

struct QuarterlyCells : CompanyOnForm {
    QuarterlyCells() : CompanyOnForm(fullCompany()) { open(company); }
    void open(const std::shared_ptr<iVKR_Company>& record) {
        scene.load(record);
        desktop.clickTab(toQuarterly);
    }
};

TEST_F(QuarterlyCells, LeavingAnUnchangedOneIsNoChange) {
    const auto before = company->clone();
    for (const auto& column : quarterlyColumns())
        for (int row = 0; row < QuarterlyGrid::startRows; ++row)
            EXPECT_NE(
                after(std::string(column.cells.name) + "(" + std::to_string(row) + ")", "{TAB}"),
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

struct EarningsInUnit : testing::TestWithParam<int> {
    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany(static_cast<std::int16_t>(GetParam()));

    EarningsInUnit() {
        for (int i = 0; i < 35; ++i)
            putElement(*company, "QEPSSeries", i, i == 2 ? -1.23456 : 1.5 + i);
        scene.load(company);
        desktop.clickTab(toQuarterly);
        desktop.forget();
    }
    [[nodiscard]] std::string loaded(const char* thousands, const char* billions) const {
        return GetParam() == 3 ? thousands : billions;
    }
};

TEST_P(EarningsInUnit, AreShownPerShareInTheCellThatIsEntered) {
    EXPECT_EQ(scene.text("txtEPS", 0), loaded("1500.00", "0.00"));
    EXPECT_EQ(scene.text("txtEPS", 2), loaded("-1234.56", "0.00"));
    goTo(scene, "txtEPS(0)");
    EXPECT_EQ(scene.text("txtEPS", 0), "1.50");
    EXPECT_EQ(scene.field("txtEPS", 0).selText(), "1.50");
    desktop.type("~~");
    EXPECT_EQ(scene.text("txtEPS", 2), "-1.23");
    desktop.rightClick("txtEPS(3)");
    EXPECT_EQ(scene.text("txtEPS", 3), "4.50");
    EXPECT_EQ(scene.text("txtEPS", 4), "5.50");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 2), -1.23456);
}

TEST_P(EarningsInUnit, AreShownPerShareWhereALoadingMeetsTheFocus) {
    goTo(scene, "txtEPS(1)");
    scene.load(company);
    EXPECT_EQ(scene.text("txtEPS", 1), "2.50");
    EXPECT_EQ(scene.field("txtEPS", 1).selText(), "2.50");
    EXPECT_EQ(scene.text("txtEPS", 0), "1.50");
    desktop.type("{END}5{TAB}");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 1), 2.505);
}

TEST_P(EarningsInUnit, AreShownPerShareInTheWholeRowOnceTheUnitIsChanged) {
    for (const int unit : {1, GetParam() / 3 - 1}) {
        desktop.clickTab(toOptions);
        desktop.click("optCurrency", unit);
        for (int row = 0; row < 9; ++row)
            EXPECT_EQ(scene.text("txtEPS", row),
                      row == 2 ? "-1.23" : std::to_string(1 + row) + ".50");
    }
}

TEST_P(EarningsInUnit, ThatCanNotBeReadAreNotShownInTheCellThatIsEntered) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->failing = {"read QEPSSeries"};
    goTo(scene, "txtEPS(0)");
    EXPECT_EQ(scene.text("txtEPS", 0), "") << "digits in the unit would be typed on";
    record->failing.clear();
    desktop.type("{TAB}");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), 1.5);
}

// Whatever is typed, the figures become those that the same keys make of them in millions.
TEST_P(EarningsInUnit, BecomeByAnyKeysWhatTheyBecomeInMillions) {
    const auto after = [](int unit, const std::string& keys, int menuEntry) {
        EntryScene typed;
        const auto record = datedCompany(static_cast<std::int16_t>(unit));
        for (int i = 0; i < 35; ++i)
            putElement(*record, "QEPSSeries", i, i == 2 ? -1.23456 : 1.5 + i);
        typed.load(record);
        typed.desktop.setClipboardText("7.25");
        typeAt(typed, "txtEPS(2)", keys);
        if (menuEntry >= 0) {
            typed.desktop.answerNextMenu(menuEntry);
            typed.desktop.rightClick("txtEPS(3)");
        }
        typed.desktop.type("~");
        typed.entry->leaveField();
        return *readSeries(*record, Datum::QEPSSeries).array().numbers();
    };
    const char* const keys[] = {"{TAB}",
                                "7{TAB}",
                                "7^z{TAB}",
                                "^z{TAB}",
                                "{END}5",
                                "{END}{BS}",
                                "{HOME}{DEL}",
                                "-",
                                "^a^c^v",
                                "^a^x^z",
                                "^v",
                                "^a^x~+~^v",
                                "{END}5^z~",
                                "7~+~^z~",
                                "{ESC}",
                                "7{ESC}",
                                "{END}5{ESC}~",
                                "~~{UP}",
                                "{RIGHT}4",
                                "^a{DEL}",
                                "^a{DEL}^z",
                                "1{TAB}+{TAB}",
                                "{ESC}{TAB}+{TAB}5"};
    for (const char* sequence : keys)
        for (int entry = -1; entry < 6; ++entry)
            EXPECT_EQ(after(GetParam(), sequence, entry), after(6, sequence, entry))
                << sequence << " and entry " << entry;
}

// Else a figure on the scale of its neighbours would be taken as one per share.
TEST_P(EarningsInUnit, AreShownPerShareInTheWholeColumnOnceOneIsEntered) {
    ASSERT_EQ(scene.text("txtEPS", 1), loaded("2500.00", "0.00"));
    goTo(scene, "txtEPS(0)");
    EXPECT_EQ(scene.text("txtEPS", 1), "2.50");
    EXPECT_EQ(scene.text("txtEPS", 2), "-1.23");
    typeAt(scene, "txtEPS(1)", "7{TAB}");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 1), 7);
}

TEST_P(EarningsInUnit, AreShownPerShareInTheWholeColumnOnceSeveralCellsAreChanged) {
    for (const char* keys : {"+{RIGHT}{DEL}", "+{RIGHT}^'", "+{RIGHT}+{DOWN}^d", "^v"}) {
        putElement(*company, "QEPSSeries", 0, 1.5);
        scene.load(company);
        ASSERT_EQ(scene.text("txtEPS", 2), loaded("-1234.56", "0.00")) << keys;
        scene.desktop.setClipboardText("8\t9\n8\t9");
        scene.desktop.acceptNextPaste();
        goTo(scene, "txtRevenue(3)");
        goTo(scene, "txtRevenue(0)");
        scene.desktop.type(keys);
        EXPECT_EQ(scene.text("txtEPS", 2), "-1.23") << keys;
        goTo(scene, "txtNetInc(0)");
    }
}

INSTANTIATE_TEST_SUITE_P(Units, EarningsInUnit, testing::Values(3, 9));

TEST_F(QuarterlyCells, EarningsInMillionsAreNotReadAgainWhereOneIsEntered) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    record->log.clear();
    goTo(scene, "txtEPS(1)");
    EXPECT_EQ(record->logged("read QEPSSeries"), std::vector<std::string>{});
}

TEST_F(QuarterlyCells, AMinusCanBeTypedInEveryColumnButRevenue) {
    for (const auto& column : quarterlyColumns()) {
        const auto id = std::string(column.cells.name) + "(1)";
        typeOver(scene, id, "-4");
        EXPECT_EQ(textOf(scene, id), column.cells.name == "txtRevenue" ? "4.00" : "-4.00");
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

TEST_F(QuarterlyCells, WhereNoDateIsShownOneUpToThreeQuartersLaterIsTaken) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"read LastQDate"};
    open(record);
    ASSERT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
    ASSERT_EQ(scene.text("txtLastQDate"), "");
    typeOver(scene, "txtLastQDate", "9/30/2027");
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].text,
              "The new date must lie in the month in which one of the next three quarters ends.\r"
              "The previous date has been put back.");
    EXPECT_EQ(scene.text("txtLastQDate"), "");
    typeOver(scene, "txtLastQDate", "6/30/2027");
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(scene.text("txtLastQDate"), "Jun/30/2027");
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
}

// Cancel skips what it leaves: a host that stays open has the date on show as it was typed.
TEST_F(QuarterlyCells, WithTheDateEmptiedOrUnreadableNothingIsWrittenUntilItIsBack) {
    const struct {
        const char* date;
        const char* cell;
        const char* series;
    } rows[] = {{"", "txtRevenue(1)", "QRevenueSeries"},
                {"soon", "txtEPS(1)", "QEPSSeries"},
                {"2/30/2026", "txtQOption(1)", "QPTISeries"},
                {"1/1/1900", "txtNetInc(1)", "QNetIncSeries"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.date);
        const auto before = company->clone();
        goTo(scene, "txtLastQDate");
        desktop.type("^a{DEL}" + std::string(row.date));
        desktop.click("cmdCancel");
        ASSERT_EQ(scene.text("txtLastQDate"), row.date);
        typeOver(scene, row.cell, "42.5");
        EXPECT_TRUE(sameAs(*before, *company));
        EXPECT_EQ(markOf(scene, row.cell), "Without a date of the last quarter this figure has no "
                                           "quarter and was not stored.");
        EXPECT_EQ(textOf(scene, row.cell), "42.5");
        goTo(scene, "txtLastQDate");
        desktop.type("{TAB}"); // refused, and the old date is back
        EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
        EXPECT_EQ(elementOf(*company, row.series, 1), 42.5);
        EXPECT_EQ(markOf(scene, row.cell), "");
    }
}

TEST_F(QuarterlyCells, FiguresThatWaitForADateThatCancelHasSkippedAreStoredOnceItIsBack) {
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}no date");
    desktop.click("cmdCancel"); // the host stays open
    typeOver(scene, "txtRevenue(1)", "7");
    ASSERT_NE(markOf(scene, "txtRevenue(1)"), "");
    goTo(scene, "txtLastQDate");
    const std::string date = scene.entry->form().get<TextBox>("txtLastQDate").tag();
    desktop.type("^a" + date + "{TAB}");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 7);
    EXPECT_EQ(markOf(scene, "txtRevenue(1)"), "");
}

TEST_F(QuarterlyCells, FiguresThatWaitForTheDateGoIntoTheQuartersBesideThem) {
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}");
    desktop.click("cmdCancel");
    typeOver(scene, "txtRevenue(1)", "42.5");
    desktop.answerNext(MessageAnswer::yes);
    typeOver(scene, "txtLastQDate", "12/31/2026");
    EXPECT_EQ(scene.text("txtLastQDate"), "Dec/31/2026");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 2), 42.5) << "still June";
    EXPECT_EQ(scene.text("txtRevenue", 2), "42.50");
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}");
    desktop.click("cmdCancel");
    typeOver(scene, "txtRevenue(0)", "43");
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 43);
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(scene.text("txtRevenue", 1), "42.50");
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
        {"9/30/2026", 0, 0},   {"6/30/2026", 0, 1}, {"9/30/2026", -2, 0}, {"6/30/2026", -2, 1},
        {"12/31/2026", -2, 0}, {"3/31/2027", 0, 0}, {"6/30/2027", 0, 0},
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
