// SPDX-License-Identifier: MIT
#include "tests/support/contract.hpp"

#include "platform/text.hpp"
#include "tests/support/entry_object_rows.hpp"
#include "tests/support/field_steps.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {

namespace {

using Desktop = ContractDriver;
using Names = std::vector<std::string>;
using test::changedData;
using test::datedCompany;
using test::elementOf;
using test::putElement;

void aTextIsStoredWhenItsFieldIsLeft(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtName");
    desktop.type("Acme Ltd.");
    EXPECT_EQ(desktop.company->get_Name(), "Name text") << "before leaving";
    desktop.type("{TAB}");
    EXPECT_EQ(desktop.company->get_Name(), "Acme Ltd.");
    EXPECT_EQ(desktop.focusedId(), "txtSymbol");
    EXPECT_TRUE(desktop.entry().get_blnDirty());
}

void enterMovesOnBeforeTheNextKey(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtCurrentPrice");
    desktop.type("150~160~90~");
    EXPECT_EQ(desktop.company->get_CurrentPrice(), 150);
    EXPECT_EQ(desktop.company->get_High52W(), 160);
    EXPECT_EQ(desktop.company->get_Low52W(), 90);
    EXPECT_EQ(desktop.focusedId(), "txtPriceUpdate");
}

void lettersAreSwallowedInNumbers(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtTotalDebt");
    desktop.type("a1b2x.y5");
    EXPECT_EQ(desktop.shownText("txtTotalDebt"), "12.5");
}

void theSecondMinusTakesTheSignOff(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtEPSProj");
    desktop.type("-12-3");
    EXPECT_EQ(desktop.shownText("txtEPSProj"), "123");
    desktop.type("{TAB}");
    EXPECT_EQ(desktop.company->get_ORBEPSProj(), 123);
}

void theSymbolIsTypedInCapitals(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtSymbol");
    desktop.type("abc.d");
    EXPECT_EQ(desktop.shownText("txtSymbol"), "ABC.D");
}

void aPastedSymbolComesInCapitals(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.setClipboard("brk.b");
    desktop.click("txtSymbol");
    desktop.type("^v");
    EXPECT_EQ(desktop.shownText("txtSymbol"), "BRK.B");
    desktop.type("^z");
    EXPECT_EQ(desktop.shownText("txtSymbol"), "FULL");
    desktop.type("^a");
    desktop.nextMenuEntry("Paste");
    desktop.rightClick("txtSymbol");
    EXPECT_EQ(desktop.shownText("txtSymbol"), "BRK.B");
}

void aSymbolHasTwentyCharacters(Desktop& desktop) {
    const auto company = fullCompany();
    company->put_Symbol("\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4\u00C4");
    desktop.load(company);
    desktop.click("txtSymbol");
    desktop.type("{END}1234567890AB");
    EXPECT_EQ(textLength(desktop.shownText("txtSymbol")), 20);
    EXPECT_TRUE(desktop.shownText("txtSymbol").ends_with("12345678"));
    // Characters beyond the first plane are no longer than others.
    std::string smiles;
    for (int i = 0; i < 24; ++i)
        smiles += "\U0001F600";
    desktop.setClipboard(smiles);
    desktop.type("^a^v");
    EXPECT_EQ(desktop.shownText("txtSymbol"), textLeft(smiles, 20));
    desktop.setClipboard("xyz");
    desktop.type("{LEFT}^v");
    EXPECT_EQ(desktop.shownText("txtSymbol"), textLeft(smiles, 20)) << "there is no room";
    desktop.type("{BS}^v");
    EXPECT_EQ(desktop.shownText("txtSymbol"),
              std::string(textLeft(smiles, 18)) + "X" + std::string(textLeft(smiles, 1)));
}

void escapeTakesAnEditBack(Desktop& desktop) {
    desktop.load(fullCompany());
    const auto before = desktop.company->clone();
    for (const auto& [tab, id] : {std::pair{toCompany, "txtTotalDebt"},
                                  {toCompany, "cmbExchange"},
                                  {toYearly, "txtSales(9)"},
                                  {toQuarterly, "txtEPS(0)"},
                                  {toOther, "txtNotes"}}) {
        desktop.clickTab(tab);
        desktop.click(id);
        const std::string shown = desktop.shownText(id);
        desktop.type("12");
        EXPECT_NE(desktop.shownText(id), shown) << id;
        desktop.type("{ESC}");
        EXPECT_EQ(desktop.shownText(id), shown);
        EXPECT_EQ(desktop.focusedId(), id);
    }
    desktop.clickTab(toCompany);
    EXPECT_FALSE(desktop.entry().get_blnDirty());
    EXPECT_EQ(changedData(*before, *desktop.company), Names{});
}

void theCommaIsTheDecimalMark(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.entry().put_NumberMarks({',', "."});
    EXPECT_FALSE(desktop.entry().get_blnDirty());
    desktop.click("txtTotalDebt");
    desktop.type("1.2,5{TAB}");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 12.5);
    EXPECT_EQ(desktop.shownText("txtTotalDebt"), "12,50");
    desktop.click("txtTotalDebt");
    desktop.type("7{DECIMAL}25{TAB}");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 7.25);
    desktop.setClipboard("1.234,56");
    desktop.click("txtTotalDebt");
    desktop.type("^v{TAB}");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 1234.56);
    EXPECT_EQ(desktop.shownText("txtTotalDebt"), "1234,56");
    desktop.click("txtTotalDebt");
    desktop.type("9,5");
    desktop.entry().put_NumberMarks({'.', ","});
    EXPECT_EQ(desktop.shownText("txtTotalDebt"), "9.5");
    desktop.type("{DECIMAL}{TAB}");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 9.5);
}

void aPriceAboveTheHighRaisesIt(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtCurrentPrice");
    desktop.type("1234.5{TAB}");
    EXPECT_EQ(desktop.company->get_High52W(), 1234.5);
    EXPECT_EQ(desktop.shownText("txt52WHigh"), "1234.500");
}

void aPastedTextArrivesWhole(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.setClipboard("12,345.75");
    desktop.click("txtTotalDebt");
    desktop.type("^v{TAB}");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 12345.75);
    EXPECT_EQ(desktop.shownText("txtTotalDebt"), "12345.75");
}

void undoTakesAnEditBack(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toOther);
    desktop.click("txtCity");
    desktop.type("X^z");
    EXPECT_EQ(desktop.shownText("txtCity"), "City text");
    desktop.type("{TAB}");
    EXPECT_EQ(desktop.company->get_City(), "City text");
    EXPECT_FALSE(desktop.entry().get_blnDirty());
}

void aLockedFieldTakesNoKey(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("chkLockInfo");
    desktop.setClipboard("pasted");
    desktop.click("txtName");
    desktop.type("abc{DEL}{BS}^x^v^z");
    EXPECT_EQ(desktop.shownText("txtName"), "Name text");
    desktop.type("{TAB}");
    EXPECT_EQ(desktop.company->get_Name(), "Name text");
}

void anImpossibleDateStaysInItsField(Desktop& desktop) {
    desktop.load(fullCompany());
    const Date before = desktop.company->get_PriceUpdatedDate();
    desktop.click("txtPriceUpdate");
    desktop.type("Feb 31, 2026{TAB}");
    EXPECT_EQ(desktop.company->get_PriceUpdatedDate(), before);
    EXPECT_EQ(desktop.shownText("txtPriceUpdate"), "Feb 31, 2026");
    ASSERT_EQ(desktop.entry().unstoredFields().size(), 1U);
    desktop.click("txtPriceUpdate");
    desktop.type("2/28/2026{TAB}");
    EXPECT_EQ(desktop.shownText("txtPriceUpdate"), "Feb/28/2026");
    EXPECT_TRUE(desktop.entry().unstoredFields().empty());
}

void aListEntryIsStoredAtOnce(Desktop& desktop) {
    desktop.entry().put_vntExchange(textArray({"NYSE", "Nasdaq"}));
    desktop.load(fullCompany());
    desktop.pick("cmbExchange", "Nasdaq");
    EXPECT_EQ(desktop.company->get_Exchange(), "Nasdaq");
    EXPECT_EQ(desktop.shownText("cmbExchange"), "Nasdaq");
}

void anotherWindowDoesNotLeaveTheField(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtName");
    desktop.type("Half");
    desktop.switchAway();
    EXPECT_EQ(desktop.company->get_Name(), "Name text");
    desktop.switchBack();
    desktop.type(" done{TAB}");
    EXPECT_EQ(desktop.company->get_Name(), "Half done");
}

void tabsAreReachedByTheirLetter(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtName");
    desktop.type("%y");
    EXPECT_EQ(desktop.focusedId(), "txtLastFY");
    desktop.type("%q");
    EXPECT_EQ(desktop.focusedId(), "txtRevenue(0)");
    desktop.type("^{PGUP}");
    EXPECT_EQ(desktop.focusedId(), "txtLastFY");
    EXPECT_EQ(desktop.events(), (Names{"TabChange 2", "TabChange 3", "TabChange 2"}));
}

void okSettlesAPendingDateFirst(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtDateofLastFY");
    desktop.type("9/30/2025");
    desktop.click("cmdOK");
    EXPECT_EQ(desktop.company->get_LastFYDate(), makeDate(2025, 9, 30));
    EXPECT_EQ(desktop.events(), (Names{"TabChange 2"}));
    desktop.click("cmdOK");
    EXPECT_EQ(desktop.events(), (Names{"TabChange 2", "UnloadRequest 0"}));
}

void cancelSkipsAPendingDate(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtDateofLastFY");
    desktop.type("rubbish");
    desktop.click("cmdCancel");
    EXPECT_EQ(desktop.events(), (Names{"TabChange 2", "UnloadRequest -1"}));
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_EQ(desktop.company->get_LastFYDate(), makeDate(2025, 12, 31));
}

void aCellIsTypedInTheUnitOnShow(Desktop& desktop) {
    const auto company = fullCompany();
    company->get_Settings()->put("intUnit", 3);
    desktop.load(company);
    desktop.clickTab(toYearly);
    desktop.click("txtSales(8)");
    desktop.type("1500~");
    EXPECT_EQ(company->get_YRevenueSeries().array().number(2), 1.5);
    EXPECT_EQ(desktop.shownText("txtSales(8)"), "1500.00");
    EXPECT_EQ(desktop.focusedId(), "txtSales(9)");
}

// Loading shows quarterly earnings in the unit; what is typed on to them is per share.
void earningsThatAreEnteredArePerShare(Desktop& desktop) {
    const auto company = datedCompany(3);
    putElement(*company, "QEPSSeries", 0, 1.5);
    putElement(*company, "QEPSSeries", 1, 2.5);
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    EXPECT_EQ(desktop.shownText("txtEPS(0)"), "1500.00");
    desktop.click("txtEPS(0)");
    EXPECT_EQ(desktop.shownText("txtEPS(0)"), "1.50");
    desktop.type("^z{END}5~"); // there is nothing to undo
    EXPECT_EQ(desktop.shownText("txtEPS(1)"), "2.50");
    desktop.type("7^z{TAB}");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), 1.505);
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 1), 2.5);
}

void arrowsWalkTheCells(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtYEPS(0)");
    desktop.type("{DOWN 10}~");
    EXPECT_EQ(desktop.focusedId(), "txtDiv(0)");
    desktop.type("{UP}");
    EXPECT_EQ(desktop.focusedId(), "txtYEPS(10)");
    desktop.type("^{RIGHT}");
    EXPECT_EQ(desktop.focusedId(), "txtDiv(10)");
}

void aQuestionIsAnsweredNoByDefault(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.answerNext(MessageAnswer::no);
    desktop.click("cmdAddYear");
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.company->get_LastFY(), 2025);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddYear");
    EXPECT_EQ(desktop.company->get_LastFY(), 2026);
    EXPECT_EQ(desktop.shownText("txtLastFY"), "2026");
}

void enterBreaksTheLineInNotes(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toOther);
    desktop.click("txtNotes");
    desktop.type("one~two{TAB}");
    EXPECT_EQ(desktop.company->get_Notes(), "one\ntwo");
}

void helpNamesTheTab(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toOptions);
    desktop.click("cmdHelp");
    desktop.type("{F1}");
    EXPECT_EQ(desktop.events(), (Names{"TabChange 5", "MoreHelp 3068", "MoreHelp 3068"}));
}

struct CellStep {
    const char* from;
    const char* keys;
    const char* to;
};

constexpr CellStep yearlySteps[] = {
    {"txtYEPS(3)", "~", "txtYEPS(4)"},
    {"txtYEPS(3)", "+~", "txtYEPS(2)"},
    {"txtYEPS(3)", "{DOWN}", "txtYEPS(4)"},
    {"txtYEPS(3)", "{UP}", "txtYEPS(2)"},
    {"txtYEPS(10)", "~", "txtDiv(0)"},
    {"txtYEPS(10)", "{DOWN}", "txtDiv(0)"},
    {"txtYEPS(0)", "+~", "txtYOption2(10)"},
    {"txtYEPS(0)", "{UP}", "txtYOption2(10)"},
    {"txtLow(10)", "~", "txtCSO(0)"},
    {"txtSales(0)", "+~", "txtSales(0)"},
    {"txtSales(0)", "{UP}", "txtSales(0)"},
    {"txtCSO(10)", "~", "txtCSO(10)"},
    {"txtCSO(10)", "{DOWN}", "txtCSO(10)"},
    // With Ctrl the row is kept, and the grid comes round.
    {"txtYEPS(3)", "^{RIGHT}", "txtDiv(3)"},
    {"txtYEPS(3)", "^{LEFT}", "txtYOption2(3)"},
    {"txtCSO(3)", "^{RIGHT}", "txtSales(3)"},
    {"txtSales(3)", "^{LEFT}", "txtCSO(3)"},
    {"txtYEPS(10)", "^{DOWN}", "txtDiv(10)"},
    {"txtYEPS(0)", "^{UP}", "txtYEPS(10)"},
    {"txtCSO(10)", "^{DOWN}", "txtSales(0)"},
    {"txtSales(0)", "^{UP}", "txtCSO(10)"},
    {"txtYEPS(3)", "^{HOME}", "txtSales(3)"},
    {"txtYEPS(3)", "^{END}", "txtCSO(3)"},
    {"txtYEPS(3)", "^~", "txtYEPS(3)"},
    {"txtYEPS(3)", "{LEFT}{RIGHT}{HOME}{END}", "txtYEPS(3)"},
};

constexpr CellStep quarterlySteps[] = {
    {"txtEPS(3)", "~", "txtEPS(4)"},
    {"txtEPS(3)", "+~", "txtEPS(2)"},
    {"txtEPS(3)", "{DOWN}", "txtEPS(4)"},
    {"txtEPS(3)", "{UP}", "txtEPS(2)"},
    {"txtEPS(8)", "~", "txtQOption(0)"},
    {"txtEPS(8)", "{DOWN}", "txtQOption(0)"},
    {"txtEPS(0)", "+~", "txtRevenue(8)"},
    {"txtEPS(0)", "{UP}", "txtRevenue(8)"},
    {"txtRevenue(0)", "+~", "txtRevenue(0)"},
    {"txtNetInc(8)", "~", "txtNetInc(8)"},
    // With Ctrl the row is kept, and the grid comes round.
    {"txtEPS(3)", "^{RIGHT}", "txtQOption(3)"},
    {"txtEPS(3)", "^{LEFT}", "txtRevenue(3)"},
    {"txtRevenue(3)", "^{LEFT}", "txtNetInc(3)"},
    {"txtNetInc(3)", "^{RIGHT}", "txtRevenue(3)"},
    {"txtRevenue(0)", "^{UP}", "txtNetInc(8)"},
    {"txtNetInc(8)", "^{DOWN}", "txtRevenue(0)"},
    {"txtEPS(0)", "^{UP}", "txtEPS(8)"},
    {"txtEPS(8)", "^{DOWN}", "txtQOption(8)"},
    {"txtEPS(3)", "^{HOME}", "txtRevenue(3)"},
    {"txtEPS(3)", "^{END}", "txtNetInc(3)"},
};

// The lows are in view wherever the yearly grid is panned to.
void clickYearlyCell(Desktop& desktop, std::string_view id) {
    const std::string row(id.substr(id.find('(')));
    const bool last = id.substr(0, id.find('(')) == "txtCSO";
    desktop.click("txtLow" + row);
    desktop.type(last ? "^{RIGHT}" : "^{HOME}");
    desktop.click(id);
}

void yearlyCellsFollowOneAnother(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    for (const auto& step : yearlySteps) {
        clickYearlyCell(desktop, step.from);
        ASSERT_EQ(desktop.focusedId(), step.from);
        desktop.type(step.keys);
        EXPECT_EQ(desktop.focusedId(), step.to) << step.from << " " << step.keys;
    }
    EXPECT_FALSE(desktop.entry().get_blnDirty());
}

void quarterlyCellsFollowOneAnother(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toQuarterly);
    for (const auto& step : quarterlySteps) {
        desktop.click(step.from);
        ASSERT_EQ(desktop.focusedId(), step.from);
        desktop.type(step.keys);
        EXPECT_EQ(desktop.focusedId(), step.to) << step.from << " " << step.keys;
    }
    EXPECT_FALSE(desktop.entry().get_blnDirty());
}

// The first or the last cell of the years: the keys that lead on elsewhere find no other cell.
struct CornerCell {
    const char* cell;
    const char* moves[2];
    const char* series;
    int element;
    const char* typed;
    double stored;
    const char* shown;
};

void cornerStoresAndSelects(Desktop& desktop, const CornerCell& corner) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    for (const char* move : corner.moves) {
        clickYearlyCell(desktop, corner.cell);
        desktop.type(std::string("^a{DEL}") + corner.typed + move);
        EXPECT_EQ(desktop.focusedId(), corner.cell);
        EXPECT_EQ(elementOf(*desktop.company, corner.series, corner.element), corner.stored);
        EXPECT_EQ(desktop.shownText(corner.cell), corner.shown);
        desktop.type("7");
        EXPECT_EQ(desktop.shownText(corner.cell), "7") << "typed over what was selected";
        desktop.type("{TAB}");
        EXPECT_EQ(elementOf(*desktop.company, corner.series, corner.element), 7);
    }
}

void theVeryLastYearlyCellStoresAndSelects(Desktop& desktop) {
    cornerStoresAndSelects(desktop, {.cell = "txtCSO(10)",
                                     .moves = {"~", "{DOWN}"},
                                     .series = "YCSOSeries",
                                     .element = 0,
                                     .typed = "12.5",
                                     .stored = 12.5,
                                     .shown = "12.50"});
}

void theVeryFirstYearlyCellStoresAndSelects(Desktop& desktop) {
    cornerStoresAndSelects(desktop, {.cell = "txtSales(0)",
                                     .moves = {"+~", "{UP}"},
                                     .series = "YRevenueSeries",
                                     .element = 10,
                                     .typed = "3",
                                     .stored = 3,
                                     .shown = "3.00"});
}

void theSharesArePannedIntoView(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    EXPECT_FALSE(desktop.canReach("txtCSO(4)"));
    desktop.click("txtLow(4)");
    desktop.type("^{RIGHT}");
    EXPECT_EQ(desktop.focusedId(), "txtCSO(4)");
    EXPECT_TRUE(desktop.canReach("txtCSO(4)"));
    EXPECT_FALSE(desktop.canReach("txtSales(4)"));
    desktop.type("12.5~");
    EXPECT_EQ(elementOf(*desktop.company, "YCSOSeries", 6), 12.5);
    EXPECT_EQ(desktop.shownText("txtCSO(4)"), "12.50");
    EXPECT_EQ(desktop.focusedId(), "txtCSO(5)");
    desktop.type("^{RIGHT}");
    EXPECT_EQ(desktop.focusedId(), "txtSales(5)");
    EXPECT_TRUE(desktop.canReach("txtSales(5)"));
    EXPECT_FALSE(desktop.canReach("txtCSO(5)"));
}

void noMinusIsTypedInSales(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtSales(8)");
    desktop.type("-4~");
    EXPECT_EQ(desktop.shownText("txtSales(8)"), "4.00");
    EXPECT_EQ(elementOf(*desktop.company, "YRevenueSeries", 2), 4);
    desktop.click("txtYNetInc(8)");
    desktop.type("-4~");
    EXPECT_EQ(desktop.shownText("txtYNetInc(8)"), "-4.00");
    EXPECT_EQ(elementOf(*desktop.company, "YNetIncSeries", 2), -4);
}

void aPriceIsTypedAsAFraction(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtHigh(9)");
    desktop.type("3 1/8~");
    EXPECT_EQ(elementOf(*desktop.company, "YHighSeries", 1), 3.125);
    EXPECT_EQ(desktop.shownText("txtHigh(9)"), "3.125");
    EXPECT_EQ(desktop.focusedId(), "txtHigh(10)");
}

void quarterlyMoneyIsTypedInTheUnitOnShow(Desktop& desktop) {
    const struct {
        const char* cell;
        const char* series;
        double stored; // of 1500 in thousands
        const char* next;
    } rows[] = {{"txtRevenue(2)", "QRevenueSeries", 1.5, "txtRevenue(3)"},
                {"txtEPS(2)", "QEPSSeries", 1500, "txtEPS(3)"},
                {"txtQOption(2)", "QPTISeries", 1.5, "txtQOption(3)"},
                {"txtNetInc(2)", "QNetIncSeries", 1.5, "txtNetInc(3)"}};
    const auto company = fullCompany();
    company->get_Settings()->put("intUnit", 3);
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    for (const auto& row : rows) {
        desktop.click(row.cell);
        desktop.type("1500~");
        EXPECT_EQ(elementOf(*company, row.series, 2), row.stored) << row.cell;
        EXPECT_EQ(desktop.shownText(row.cell), "1500.00") << row.cell;
        EXPECT_EQ(desktop.focusedId(), row.next);
    }
}

void aTypedQuarterMovesTheTrailingSum(Desktop& desktop) {
    const auto company = datedCompany();
    for (int i = 0; i < 4; ++i)
        putElement(*company, "QEPSSeries", i, i + 1);
    desktop.load(company);
    desktop.clickTab(toYearly);
    EXPECT_EQ(desktop.shownText("txtLast4QEPS"), "10.00");
    desktop.clickTab(toQuarterly);
    desktop.click("txtEPS(2)");
    desktop.type("3.5~");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 2), 3.5);
    EXPECT_EQ(company->get_Last4QEPS(), 10.5);
    desktop.clickTab(toYearly);
    EXPECT_EQ(desktop.shownText("txtLast4QEPS"), "10.50");
}

void theSpinnerMovesTheLastQuarter(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    const auto newest = desktop.shownText("txtRevenue(0)");
    const auto older = desktop.shownText("txtRevenue(2)");
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(desktop.shownText("txtLastQDate"), "Mar/31/2026");
    EXPECT_EQ(desktop.shownText("txtRevenue(0)"), older);
    EXPECT_EQ(company->get_LastQDate(), makeDate(2026, 3, 31));
    EXPECT_EQ(company->get_LastQDateForGrid(), makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", 2);
    EXPECT_EQ(desktop.shownText("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(desktop.shownText("txtRevenue(0)"), newest);
    EXPECT_TRUE(desktop.messages().empty());
    desktop.answerNext(MessageAnswer::yes);
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(desktop.messages().size(), 1U) << "beyond the newest one it adds";
    EXPECT_EQ(company->get_LastQDateForGrid(), makeDate(2026, 12, 31));
    EXPECT_EQ(desktop.shownText("txtRevenue(1)"), newest);
}

void aDoubleClickPutsAQuarterOnTop(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    const auto fourth = desktop.shownText("txtRevenue(3)");
    desktop.doubleClick("lblQLabel(3)");
    EXPECT_EQ(desktop.shownText("txtLastQDate"), "Dec/31/2025");
    EXPECT_EQ(desktop.shownText("txtRevenue(0)"), fourth);
    EXPECT_EQ(company->get_LastQDate(), makeDate(2025, 12, 31));
    EXPECT_EQ(company->get_LastQDateForGrid(), makeDate(2026, 9, 30));
}

void aTypedQuarterIsAdded(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    const auto newest = elementOf(*company, "QRevenueSeries", 0);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("txtLastQDate");
    desktop.type("^a{DEL}12/31/2026{TAB}");
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(company->get_LastQDate(), makeDate(2026, 12, 31));
    EXPECT_EQ(company->get_LastQDateForGrid(), makeDate(2026, 12, 31));
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), newest);
    EXPECT_EQ(desktop.shownText("txtLastQDate"), "Dec/31/2026");
    EXPECT_EQ(desktop.shownText("txtRevenue(0)"), "");
    desktop.click("txtRevenue(0)");
    desktop.type("42~");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 42);
    EXPECT_EQ(desktop.focusedId(), "txtRevenue(1)");
}

void aTypedQuarterOutOfTurnIsRefused(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    const auto before = company->clone();
    desktop.click("txtLastQDate");
    desktop.type("^a{DEL}5/15/2026{TAB}");
    ASSERT_EQ(desktop.messages().size(), 1U);
    const std::string told = desktop.messages()[0]; // desktops break the line their own way
    EXPECT_EQ(told.substr(0, told.find_first_of("\r\n")),
              "The new date must lie in the month in which one of the next three quarters ends.");
    EXPECT_EQ(desktop.shownText("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(changedData(*before, *company), Names{});
    EXPECT_FALSE(desktop.entry().get_blnDirty());
}

void aQuarterIsAdded(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    desktop.clickTab(toQuarterly);
    const auto newest = desktop.shownText("txtEPS(0)");
    desktop.answerNext(MessageAnswer::no);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(company->get_LastQDateForGrid(), makeDate(2026, 9, 30));
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(company->get_LastQDateForGrid(), makeDate(2026, 12, 31));
    EXPECT_EQ(desktop.shownText("txtLastQDate"), "Dec/31/2026");
    EXPECT_EQ(desktop.shownText("txtEPS(0)"), "");
    EXPECT_EQ(desktop.shownText("txtEPS(1)"), newest);
}

void aYearIsRemoved(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    desktop.clickTab(toYearly);
    const auto kept = desktop.shownText("txtSales(9)");
    const auto figure = elementOf(*company, "YRevenueSeries", 1);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdRemoveYear");
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(company->get_LastFY(), 2024);
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 0), figure);
    EXPECT_EQ(desktop.shownText("txtLastFY"), "2024");
    EXPECT_EQ(desktop.shownText("txtSales(10)"), kept);
}

// --- menus, calendar and help --------------------------------------------------------------------

Names captionsOf(const std::vector<test::ExpectedEntry>& entries) {
    Names captions;
    for (const auto& entry : entries)
        captions.push_back(entry.enabled ? entry.caption : "(" + entry.caption + ")");
    return captions;
}

void choose(Desktop& desktop, std::string_view id, const char* caption) {
    desktop.nextMenuEntry(caption);
    desktop.rightClick(id);
}

// Every entry below those of the text, chosen once.
void chooseExtras(Desktop& desktop, const test::EntryObjectRow& row, std::string_view id) {
    for (const char extra : row.extras) {
        if (extra == 'd' || extra == 'q') {
            const auto before = desktop.shownText(row.control);
            if (extra == 'd')
                desktop.nextDate(makeDate(2026, 2, 28));
            choose(desktop, id, extra == 'd' ? "Pick a Date..." : "Use Date of Last Quarter");
            EXPECT_EQ(desktop.shownText(row.control), extra == 'd' ? "Feb/28/2026" : "Sep/30/2026");
            EXPECT_EQ(desktop.focusedId(), row.control);
            choose(desktop, row.control, "Undo");
            EXPECT_EQ(desktop.shownText(row.control), before);
        } else if (extra == 'y') {
            const auto before = desktop.messages().size();
            desktop.answerNext(MessageAnswer::no);
            choose(desktop, id, "Add New Year");
            desktop.answerNext(MessageAnswer::no);
            choose(desktop, id, "Remove Year");
            EXPECT_EQ(desktop.messages().size(), before + 2);
        } else {
            desktop.events().clear();
            choose(desktop, id, "Ask the Assistant...");
            ASSERT_EQ(desktop.events().size(), 1U);
            const auto asked = "Assistant " + std::to_string(row.object) + " ";
            EXPECT_EQ(desktop.events()[0].substr(0, asked.size()), asked);
            EXPECT_GT(desktop.events()[0].size(), asked.size());
        }
    }
    desktop.events().clear();
    choose(desktop, id, "What's This?");
    EXPECT_TRUE(desktop.canReach("lblMoreHelp"));
    EXPECT_TRUE(desktop.liesInside("fraDE(0)"));
    desktop.click("lblMoreHelp");
    EXPECT_EQ(desktop.events(), Names{"MoreHelp " + std::to_string(3000 + row.object)});
    EXPECT_FALSE(desktop.canReach("lblMoreHelp"));
}

void chooseTextCommands(Desktop& desktop, std::string_view id) {
    const auto text = desktop.shownText(id);
    choose(desktop, id, "Select All");
    choose(desktop, id, "Copy");
    EXPECT_EQ(desktop.clipboard(), text);
    choose(desktop, id, "Clear");
    EXPECT_EQ(desktop.shownText(id), "");
    EXPECT_EQ(desktop.clipboard(), text);
    choose(desktop, id, "Paste");
    EXPECT_EQ(desktop.shownText(id), text);
    desktop.setClipboard("other");
    choose(desktop, id, "Select All");
    choose(desktop, id, "Cut");
    EXPECT_EQ(desktop.shownText(id), "");
    EXPECT_EQ(desktop.clipboard(), text);
    choose(desktop, id, "Undo");
    EXPECT_EQ(desktop.shownText(id), text);
}

void bringIntoView(Desktop& desktop, std::string_view id) {
    if (desktop.canReach(id))
        return;
    desktop.click("txtLow(3)");
    desktop.type(id == "txtCSO(3)" || id == "lblUnit(6)" ? "^{RIGHT}" : "^{HOME}");
}

// One control and one label of every object on a page, or of those that the Options tab puts there.
template <int Tab, bool Alternatives = false>
void everyMenuEntryIsChosen(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.entry().put_ShowVLs(true);
    desktop.entry().put_ShowReportingPeriod(true);
    desktop.load(company);
    if (Alternatives) {
        desktop.clickTab(toOptions);
        desktop.click("optPTI(1)");
        desktop.click("optCommEq(1)");
    }
    const auto loaded =
        std::dynamic_pointer_cast<CompanyRecord>(desktop.entry().get_objCompany())->clone();
    desktop.clickTab(Tab);
    int met = 0;
    for (const auto& row : test::entryObjectRows) {
        const bool below = row.tab == 0 && Tab == toCompany;
        if ((row.tab != Tab && !below) || row.control[0] == '\0' || test::isTab(row) ||
            (row.choice != test::Choice::none) != Alternatives)
            continue;
        ++met;
        SCOPED_TRACE(row.control);
        const std::string_view id = row.control;
        bringIntoView(desktop, id);
        const bool isText = id.starts_with("txt");
        desktop.setClipboard("held");
        if (isText)
            desktop.click(id);
        desktop.rightClick(id);
        EXPECT_EQ(desktop.lastMenu().back(), "What's This?");
        EXPECT_EQ(desktop.lastMenu().size(),
                  isText ? test::expectedTextMenu(row.extras, true, true, true, true).size()
                         : test::expectedExtras(row.extras, true).size());
        if (isText)
            chooseTextCommands(desktop, id);
        chooseExtras(desktop, row, id);
        const std::string_view label = row.label;
        if (!label.empty()) {
            bringIntoView(desktop, label);
            desktop.rightClick(label);
            EXPECT_EQ(desktop.lastMenu(), captionsOf(test::expectedExtras(row.extras, true)));
            chooseExtras(desktop, row, label);
        }
    }
    EXPECT_GT(met, 0);
    desktop.clickTab(Tab == toOther ? toCompany : toOther); // leaves the last field
    EXPECT_EQ(changedData(*loaded, *company), Names{});
}

void everyTabHasItsHelp(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toOther);
    desktop.events().clear();
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        desktop.nextMenuEntry("What's This?");
        desktop.rightClickTab(tab);
        EXPECT_EQ(desktop.lastMenu(), Names{"What's This?"});
        EXPECT_TRUE(desktop.liesInside("fraDE(0)"));
        desktop.click("lblMoreHelp");
        EXPECT_EQ(desktop.events(), Names{"MoreHelp " + std::to_string(3063 + tab)}) << tab;
        desktop.events().clear();
    }
    EXPECT_EQ(desktop.entry().get_CurrentTab(), toOther);
}

void theMenuKeyOpensTheMenu(Desktop& desktop) {
    desktop.load(fullCompany());
    for (const char* keys : {"{MENU}", "+{F10}"}) {
        desktop.click("txtName");
        desktop.type("^a");
        desktop.nextMenuEntry("Clear");
        desktop.type(keys);
        EXPECT_EQ(desktop.lastMenu().size(), 11U);
        EXPECT_EQ(desktop.shownText("txtName"), "") << keys;
        desktop.nextMenuEntry("Undo");
        desktop.type(keys);
        EXPECT_EQ(desktop.shownText("txtName"), "Name text") << keys;
        desktop.nextMenuEntry("What's This?");
        desktop.type(keys);
        EXPECT_TRUE(desktop.canReach("lblMoreHelp")) << "its own key does not hide it";
        desktop.type("{F1}");
        EXPECT_FALSE(desktop.canReach("lblMoreHelp"));
        EXPECT_EQ(desktop.events().back(), "MoreHelp 3000");
        EXPECT_EQ(desktop.focusedId(), "txtName");
    }
    EXPECT_EQ(desktop.events().size(), 2U);
    desktop.click("chkLockInfo");
    desktop.type("{MENU}");
    EXPECT_EQ(desktop.lastMenu(), Names{"What's This?"});
}

void theMenuChangesNothingUnderTheLock(Desktop& desktop) {
    const auto company = fullCompany();
    desktop.load(company);
    const auto loaded = company->clone();
    desktop.click("chkLockInfo");
    desktop.setClipboard("held");
    desktop.click("txtLastUpdate");
    desktop.rightClick("txtLastUpdate");
    EXPECT_EQ(desktop.lastMenu(),
              captionsOf(test::expectedTextMenu("da", true, false, false, true)));
    for (const char* caption : {"Undo", "Cut", "Paste", "Clear", "Pick a Date..."})
        choose(desktop, "txtLastUpdate", caption);
    desktop.doubleClick("txtLastUpdate");
    desktop.type("{F4}%{DOWN}");
    EXPECT_EQ(desktop.shownText("txtLastUpdate"), "Nov/19/2026");
    EXPECT_TRUE(desktop.calendars().empty());
    EXPECT_EQ(desktop.clipboard(), "held");
    choose(desktop, "txtLastUpdate", "Copy");
    EXPECT_EQ(desktop.clipboard(), "Nov/19/2026");
    EXPECT_EQ(changedData(*loaded, *company), Names{});
}

void aDateIsPicked(Desktop& desktop) {
    const struct {
        const char* field;
        int tab;
        Date (*stored)(const CompanyRecord& company);
        Date picked;
    } rows[] = {
        {"txtLastUpdate", toCompany, [](const auto& company) { return company.get_LastUpdate(); },
         *makeDate(2026, 2, 28)},
        {"txtPriceUpdate", toCompany,
         [](const auto& company) { return company.get_PriceUpdatedDate(); },
         *makeDate(2024, 2, 29)},
        {"txtDateOfSource", toCompany,
         [](const auto& company) { return company.get_DateOfSource(); }, *makeDate(2026, 12, 1)},
        {"txtDateofLastFY", toYearly, [](const auto& company) { return company.get_LastFYDate(); },
         *makeDate(2025, 6, 30)},
        {"txtLastQDate", toQuarterly,
         [](const auto& company) { return company.get_LastQDateForGrid(); },
         *makeDate(2026, 12, 31)},
    };
    for (const auto& row : rows)
        for (const char* way : {"", "{F4}", "%{DOWN}"}) {
            SCOPED_TRACE(std::string(row.field) + way);
            const auto company = fullCompany();
            desktop.load(company);
            const Date before = row.stored(*company);
            desktop.clickTab(row.tab);
            const auto text = desktop.shownText(row.field);
            for (const auto& answer : {std::optional<Date>(), std::optional(row.picked)}) {
                desktop.nextDate(answer);
                if (*way == '\0') {
                    desktop.doubleClick(row.field);
                } else {
                    desktop.click(row.field);
                    desktop.type(way);
                }
                EXPECT_EQ(desktop.calendars().back(), before);
                EXPECT_EQ(desktop.shownText(row.field) == text, !answer);
                EXPECT_EQ(desktop.focusedId(), row.field);
                EXPECT_EQ(row.stored(*company), before);
            }
            if (row.tab == toQuarterly)
                desktop.answerNext(MessageAnswer::yes); // to the new quarter
            desktop.type("{TAB}");
            EXPECT_EQ(row.stored(*company), row.picked);
        }
    EXPECT_EQ(desktop.calendars().size(), 30U);
}

void theHostsShortcutsAreThoseTheFormHasNoUseFor(Desktop& desktop) {
    desktop.load(fullCompany());
    for (const char* shortcut : {"^s", "^a", "{F1}", "{ESC}", "%y", "%{LEFT}", "{DEL}"})
        desktop.addHostShortcut(shortcut);
    desktop.click("txtName");
    desktop.type("^s");
    EXPECT_EQ(desktop.hostShortcutsFired(), 1);
    desktop.type("%{LEFT}");
    EXPECT_EQ(desktop.hostShortcutsFired(), 2);
    desktop.type("^ab"); // all of the text is replaced
    EXPECT_EQ(desktop.shownText("txtName"), "b");
    desktop.type("{ESC}");
    EXPECT_EQ(desktop.shownText("txtName"), "Name text");
    desktop.type("{DEL}");
    EXPECT_EQ(desktop.shownText("txtName"), "");
    EXPECT_EQ(desktop.hostShortcutsFired(), 2);
    desktop.type("{TAB}{ESC}"); // nothing was edited here
    EXPECT_EQ(desktop.hostShortcutsFired(), 3);
    desktop.type("%y");
    EXPECT_EQ(desktop.focusedId(), "txtLastFY");
    desktop.type("{F1}");
    EXPECT_EQ(desktop.hostShortcutsFired(), 3);
    desktop.clickTab(toCompany);
    desktop.click("chkLockInfo");
    desktop.type("{DEL}^a"); // no field has the keys
    EXPECT_EQ(desktop.hostShortcutsFired(), 5);
}

void theFocusGoesToTheHostAndComesBack(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtName");
    desktop.type("Acme Ltd.");
    desktop.leaveToHost();
    EXPECT_EQ(desktop.focusedId(), "");
    EXPECT_EQ(desktop.company->get_Name(), "Acme Ltd.");
    desktop.tabFromHost(FocusDirection::forward);
    EXPECT_EQ(desktop.focusedId(), "tbsDataEntry");
    desktop.leaveToHost();
    desktop.tabFromHost(FocusDirection::backward);
    EXPECT_EQ(desktop.focusedId(), "cmdCancel");
}

void aPressThatEndsElsewhereDoesNothing(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtName");
    desktop.dragOff("chkLockInfo");
    EXPECT_FALSE(desktop.entry().form().get<CheckBox>("chkLockInfo").value());
    desktop.dragOff("cmdOK");
    EXPECT_TRUE(desktop.events().empty());
}

void aNoteSaysWhyAKeyIsRefused(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtTotalDebt");
    desktop.type("x");
    EXPECT_NE(desktop.note(), "");
    desktop.type("5");
    EXPECT_EQ(desktop.note(), "");
    EXPECT_EQ(desktop.shownText("txtTotalDebt"), "5");
}

void aHeldKeyIsRefusedOnce(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtTotalDebt");
    const int before = desktop.refusals();
    desktop.hold("x", 20);
    EXPECT_EQ(desktop.refusals(), before + 1);
    EXPECT_NE(desktop.note(), "");
    desktop.hold("x", 20);
    EXPECT_EQ(desktop.refusals(), before + 2);
    desktop.type("{x 3}");
    EXPECT_EQ(desktop.refusals(), before + 5);
}

void bracketsAreALoss(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtYNetInc(9)");
    desktop.type("{(}350");
    EXPECT_EQ(desktop.shownText("txtYNetInc(9)"), "-350");
    desktop.type("{)}{TAB}");
    EXPECT_EQ(elementOf(*desktop.company, "YNetIncSeries", 1), -350);
    EXPECT_EQ(desktop.refusals(), 0);
    EXPECT_EQ(desktop.heardMark("txtYNetInc(9)"), "");
    desktop.click("txtYNetInc(9)");
    desktop.type("-5"); // over the minus of the whole text
    EXPECT_EQ(desktop.shownText("txtYNetInc(9)"), "-5");
}

void whatIsTakenInPartIsInDoubt(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.click("txtTotalDebt");
    desktop.setClipboard("1.5M");
    desktop.type("^a^v{TAB}");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 1.5);
    EXPECT_EQ(desktop.heardMark("txtTotalDebt"), "Taken as 1.50; \"M\" was left out.");
    EXPECT_EQ(desktop.entry().doubtfulFields().size(), 1U);
    desktop.click("txtTotalDebt");
    desktop.type("~"); // on purpose
    EXPECT_EQ(desktop.heardMark("txtTotalDebt"), "");
    EXPECT_EQ(desktop.company->get_TotalDebt(), 1.5);
    // What makes no sense is not stored at all.
    desktop.clickTab(toYearly);
    desktop.click("txtSales(9)");
    desktop.setClipboard("-5");
    desktop.type("^a^v{TAB}");
    EXPECT_EQ(desktop.heardMark("txtSales(9)"),
              "A negative figure makes no sense here and was not stored.");
    EXPECT_EQ(desktop.entry().unstoredFields().size(), 1U);
}

void marksAndNamesAreHeard(Desktop& desktop) {
    desktop.load(fullCompany());
    EXPECT_EQ(desktop.heardName("txtName"),
              desktop.entry().form().find("txtName")->accessibleName());
    EXPECT_EQ(desktop.heardMark("txtPriceUpdate"), "");
    desktop.click("txtPriceUpdate");
    desktop.type("Feb 31, 2026{TAB}");
    EXPECT_NE(desktop.heardMark("txtPriceUpdate"), "");
    desktop.click("txtPriceUpdate");
    desktop.type("2/28/2026{TAB}");
    EXPECT_EQ(desktop.heardMark("txtPriceUpdate"), "");
}

void aRemarkIsHeardWhereNothingGraverIs(Desktop& desktop) {
    desktop.load(fullCompany());
    VKRDataEntry& entry = desktop.entry();
    entry.setRemarks({{{Datum::PriceUpdatedDate, {}}, "Is still to come."}});
    EXPECT_EQ(desktop.heardMark("txtPriceUpdate"), "Is still to come.");
    desktop.click("txtPriceUpdate");
    desktop.type("Feb 31, 2026{TAB}");
    EXPECT_NE(desktop.heardMark("txtPriceUpdate"), "Is still to come.");
    desktop.click("txtPriceUpdate");
    desktop.type("2/28/2026{TAB}");
    EXPECT_EQ(desktop.heardMark("txtPriceUpdate"), "Is still to come.");
    entry.setRemarks({});
    EXPECT_EQ(desktop.heardMark("txtPriceUpdate"), "");
}

void aBlockIsPastedAfterAPreview(Desktop& desktop) {
    desktop.load(datedCompany());
    desktop.clickTab(toYearly);
    desktop.setClipboard("1.5\tn/a\r\n(2)\t4\r\n");
    desktop.click("txtYNetInc(8)");
    desktop.nextPaste({}, false);
    desktop.type("^v");
    EXPECT_EQ(desktop.lastPaste(),
              (Names{"2024|Net Inc. (M)|1.5||1.5|", "2024|Common Equity (M)|n/a|||Not available.",
                     "2025|Net Inc. (M)|(2)||-2|In brackets: a loss.",
                     "2025|Common Equity (M)|4||4|", "Paste 3 Figures"}));
    EXPECT_EQ(desktop.shownText("txtYNetInc(8)"), "") << "Cancel";
    desktop.nextPaste({{3, 1}, {4, 1}}, true); // the other way round, in thousands
    desktop.type("^v");
    EXPECT_EQ(elementOf(*desktop.company, "YNetIncSeries", 2), -0.002);
    EXPECT_EQ(elementOf(*desktop.company, "YNetIncSeries", 1), 0.0015);
    EXPECT_EQ(elementOf(*desktop.company, "YCommEqSeries", 2), 0.004);
    EXPECT_EQ(desktop.focusedId(), "txtYNetInc(8)");
    EXPECT_TRUE(desktop.entry().get_blnDirty());
}

void severalCellsAreSelectedAndCopied(Desktop& desktop) {
    desktop.load(fullCompany());
    desktop.clickTab(toYearly);
    desktop.drag("txtSales(3)", "txtYOption(4)");
    for (const char* id : {"txtSales(3)", "txtSales(4)", "txtYOption(3)", "txtYOption(4)"})
        EXPECT_TRUE(desktop.isHighlighted(id)) << id;
    EXPECT_FALSE(desktop.isHighlighted("txtSales(5)"));
    EXPECT_EQ(desktop.focusedId(), "txtSales(3)");
    desktop.type("^c");
    const std::string copied = desktop.clipboard();
    EXPECT_EQ(std::count(copied.begin(), copied.end(), '\t'), 2);
    EXPECT_EQ(std::count(copied.begin(), copied.end(), '\n'), 1);
    desktop.type("^+c");
    EXPECT_NE(desktop.clipboard(), copied);
    desktop.type("{ESC}");
    EXPECT_FALSE(desktop.isHighlighted("txtSales(3)"));
    desktop.type("+{DOWN}");
    EXPECT_TRUE(desktop.isHighlighted("txtSales(4)"));
    desktop.type("{DEL}");
    EXPECT_EQ(desktop.shownText("txtSales(4)"), "");
    desktop.type("{DOWN}");
    EXPECT_FALSE(desktop.isHighlighted("txtSales(4)"));
    desktop.click("txtSales(6)");
    desktop.type("^a^a");
    EXPECT_TRUE(desktop.isHighlighted("txtSales(0)"));
    EXPECT_TRUE(desktop.isHighlighted("txtLow(10)"));
}

void figuresAreCarriedOn(Desktop& desktop) {
    desktop.load(datedCompany());
    desktop.clickTab(toYearly);
    desktop.click("txtYNetInc(3)");
    desktop.type("-12.5{TAB}");
    desktop.click("txtYNetInc(4)");
    desktop.addHostShortcut("^d");
    desktop.type("^'");
    EXPECT_EQ(desktop.shownText("txtYNetInc(4)"), "-12.50");
    desktop.type("{DOWN}^d");
    EXPECT_EQ(desktop.shownText("txtYNetInc(5)"), "-12.50");
    EXPECT_EQ(desktop.hostShortcutsFired(), 0);
}

// Also where the page was on show before.
void aPageShowsWhatWasLoadedWhileItWasAway(Desktop& desktop) {
    for (const char* city : {"Oslo", "Lima"}) {
        const auto company = fullCompany();
        company->put_City(city);
        desktop.load(company);
        desktop.clickTab(toOther);
        EXPECT_EQ(desktop.shownText("txtCity"), city);
        desktop.clickTab(toCompany);
    }
}

#define VKR_SCENE(name)                                                                            \
    { #name, name }

constexpr ContractScene scenes[] = {
    VKR_SCENE(aTextIsStoredWhenItsFieldIsLeft),
    VKR_SCENE(enterMovesOnBeforeTheNextKey),
    VKR_SCENE(lettersAreSwallowedInNumbers),
    VKR_SCENE(theSecondMinusTakesTheSignOff),
    VKR_SCENE(theSymbolIsTypedInCapitals),
    VKR_SCENE(aPastedSymbolComesInCapitals),
    VKR_SCENE(aSymbolHasTwentyCharacters),
    VKR_SCENE(escapeTakesAnEditBack),
    VKR_SCENE(theCommaIsTheDecimalMark),
    VKR_SCENE(aPriceAboveTheHighRaisesIt),
    VKR_SCENE(aPastedTextArrivesWhole),
    VKR_SCENE(undoTakesAnEditBack),
    VKR_SCENE(aLockedFieldTakesNoKey),
    VKR_SCENE(anImpossibleDateStaysInItsField),
    VKR_SCENE(aListEntryIsStoredAtOnce),
    VKR_SCENE(anotherWindowDoesNotLeaveTheField),
    VKR_SCENE(tabsAreReachedByTheirLetter),
    VKR_SCENE(okSettlesAPendingDateFirst),
    VKR_SCENE(cancelSkipsAPendingDate),
    VKR_SCENE(aCellIsTypedInTheUnitOnShow),
    VKR_SCENE(earningsThatAreEnteredArePerShare),
    VKR_SCENE(arrowsWalkTheCells),
    VKR_SCENE(aQuestionIsAnsweredNoByDefault),
    VKR_SCENE(enterBreaksTheLineInNotes),
    VKR_SCENE(helpNamesTheTab),
    VKR_SCENE(yearlyCellsFollowOneAnother),
    VKR_SCENE(quarterlyCellsFollowOneAnother),
    VKR_SCENE(theVeryLastYearlyCellStoresAndSelects),
    VKR_SCENE(theVeryFirstYearlyCellStoresAndSelects),
    VKR_SCENE(theSharesArePannedIntoView),
    VKR_SCENE(noMinusIsTypedInSales),
    VKR_SCENE(aPriceIsTypedAsAFraction),
    VKR_SCENE(quarterlyMoneyIsTypedInTheUnitOnShow),
    VKR_SCENE(aTypedQuarterMovesTheTrailingSum),
    VKR_SCENE(theSpinnerMovesTheLastQuarter),
    VKR_SCENE(aDoubleClickPutsAQuarterOnTop),
    VKR_SCENE(aTypedQuarterIsAdded),
    VKR_SCENE(aTypedQuarterOutOfTurnIsRefused),
    VKR_SCENE(aQuarterIsAdded),
    VKR_SCENE(aYearIsRemoved),
    {"everyMenuEntryOfTheCompanyPage", everyMenuEntryIsChosen<toCompany>},
    {"everyMenuEntryOfTheYearlyPage", everyMenuEntryIsChosen<toYearly>},
    {"everyMenuEntryOfTheQuarterlyPage", everyMenuEntryIsChosen<toQuarterly>},
    {"everyMenuEntryOfTheOtherPage", everyMenuEntryIsChosen<toOther>},
    {"everyMenuEntryOfTheOptionsPage", everyMenuEntryIsChosen<toOptions>},
    {"everyMenuEntryOfTheOtherYearlyRows", everyMenuEntryIsChosen<toYearly, true>},
    {"everyMenuEntryOfTheOtherQuarterlyRow", everyMenuEntryIsChosen<toQuarterly, true>},
    VKR_SCENE(everyTabHasItsHelp),
    VKR_SCENE(theMenuKeyOpensTheMenu),
    VKR_SCENE(theMenuChangesNothingUnderTheLock),
    VKR_SCENE(aDateIsPicked),
    VKR_SCENE(theHostsShortcutsAreThoseTheFormHasNoUseFor),
    VKR_SCENE(theFocusGoesToTheHostAndComesBack),
    VKR_SCENE(aPressThatEndsElsewhereDoesNothing),
    VKR_SCENE(aNoteSaysWhyAKeyIsRefused),
    VKR_SCENE(aHeldKeyIsRefusedOnce),
    VKR_SCENE(bracketsAreALoss),
    VKR_SCENE(whatIsTakenInPartIsInDoubt),
    VKR_SCENE(marksAndNamesAreHeard),
    VKR_SCENE(aRemarkIsHeardWhereNothingGraverIs),
    VKR_SCENE(aPageShowsWhatWasLoadedWhileItWasAway),
    VKR_SCENE(aBlockIsPastedAfterAPreview),
    VKR_SCENE(severalCellsAreSelectedAndCopied),
    VKR_SCENE(figuresAreCarriedOn),
};

#undef VKR_SCENE

} // namespace

std::span<const ContractScene> contractScenes() {
    return scenes;
}

} // namespace vkr
