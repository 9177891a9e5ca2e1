// SPDX-License-Identifier: MIT
#include "tests/support/contract.hpp"

#include <gtest/gtest.h>

namespace vkr {

namespace {

using Desktop = ContractDriver;
using Names = std::vector<std::string>;

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

#define VKR_SCENE(name)                                                                            \
    { #name, name }

constexpr ContractScene scenes[] = {
    VKR_SCENE(aTextIsStoredWhenItsFieldIsLeft),
    VKR_SCENE(enterMovesOnBeforeTheNextKey),
    VKR_SCENE(lettersAreSwallowedInNumbers),
    VKR_SCENE(theSecondMinusTakesTheSignOff),
    VKR_SCENE(theSymbolIsTypedInCapitals),
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
    VKR_SCENE(arrowsWalkTheCells),
    VKR_SCENE(aQuestionIsAnsweredNoByDefault),
    VKR_SCENE(enterBreaksTheLineInNotes),
    VKR_SCENE(helpNamesTheTab),
};

#undef VKR_SCENE

} // namespace

std::span<const ContractScene> contractScenes() {
    return scenes;
}

} // namespace vkr
