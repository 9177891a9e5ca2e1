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
    void pickDate(std::string_view id, Date date) {
        goTo(scene, id);
        desktop.answerNextDate(date);
        desktop.doubleClick(id);
        desktop.type("{TAB}");
    }
    void loadQuarters() {
        for (int i = 0; i < 6; ++i)
            putElement(*company, "QEPSSeries", i, i + 1);
        scene.load(record);
        desktop.clickTab(toQuarterly);
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

TEST_F(RefusedTexts, ADoubtIsGoneWithTheFigureItWasAbout) {
    scene.load(record);
    typeOver(scene, "txt52WHigh", "50 1");
    EXPECT_TRUE(scene.form().get<TextBox>("txt52WHigh").isDoubtful());
    typeOver(scene, "txtCurrentPrice", "60");
    EXPECT_EQ(company->get_High52W(), 60);
    EXPECT_FALSE(scene.form().get<TextBox>("txt52WHigh").isDoubtful());
}

TEST_F(RefusedTexts, EarningsTypedAsTheyAreStoredAreNone) {
    company->get_Settings()->put(setting::unit, 3);
    putElement(*company, "QEPSSeries", 1, 1.5);
    scene.load(record);
    EXPECT_EQ(scene.text("txtEPS", 1), "1500.00"); // until it is entered
    record->failing = {"write QEPSSeries"};
    typeOver(scene, "txtEPS(1)", "1.50");
    EXPECT_EQ(unstored(), Names{});
    typeOver(scene, "txtEPS(1)", "1500.00");
    scene.entry->put_VisibleQuarters(10);
    EXPECT_EQ(unstored(), Names{"txtEPS(1)=1500.00"});
    record->failing.clear();
    leaveAgain("txtEPS(1)");
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 1), 1500);
}

TEST_F(RefusedTexts, AnEndOfTheRangeStaysAsTypedWhenThePriceMovesIt) {
    company->put_High52W(50);
    company->put_Low52W(40);
    scene.load(record);
    record->failing = {"write High52W"};
    typeOver(scene, "txt52WHigh", "55");
    record->failing.clear();
    typeOver(scene, "txtCurrentPrice", "52");
    EXPECT_EQ(company->get_High52W(), 52);
    EXPECT_EQ(unstored(), Names{"txt52WHigh=55"});
    leaveAgain("txt52WHigh");
    EXPECT_EQ(company->get_High52W(), 55);
    EXPECT_EQ(unstored(), Names{});
}

TEST_F(RefusedTexts, TrailingEarningsStayAsTypedUntilASumIsStored) {
    company->put_Last4QEPS(9);
    scene.load(record);
    record->failing = {"write Last4QEPS"};
    typeOver(scene, "txtLast4QEPS", "12.5");
    typeOver(scene, "txtEPS(0)", "1"); // one quarter is no sum
    EXPECT_EQ(unstored(), Names{"txtLast4QEPS=12.5"});
    desktop.spin("spnQuarter", -1);
    desktop.spin("spnQuarter", 1);
    for (const char* cell : {"txtEPS(1)", "txtEPS(2)", "txtEPS(3)"})
        typeOver(scene, cell, "2");
    EXPECT_EQ(unstored(), Names{"txtLast4QEPS=12.5"});
    record->failing.clear();
    typeOver(scene, "txtEPS(3)", "3");
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(scene.text("txtLast4QEPS"), "8.00");
}

// --- dates ---------------------------------------------------------------------------------------

TEST_F(RefusedTexts, TheLastQuarterThatTheRecordHasIsNone) {
    loadQuarters();
    record->failing = {"write LastQDate"};
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(unstored(), Names{"txtLastQDate=Jun/30/2026"});
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 30));
    EXPECT_EQ(unstored(), Names{});
}

TEST_F(RefusedTexts, TheDateOfTheLastFiscalYearThatTheRecordHasIsNone) {
    scene.load(record);
    record->failing = {"write LastFYDate"};
    desktop.clickTab(toYearly);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddYear");
    EXPECT_EQ(unstored(), Names{"txtDateofLastFY=Dec/31/2026"});
    typeOver(scene, "txtDateofLastFY", "12/31/2025");
    EXPECT_EQ(unstored(), Names{});
    typeOver(scene, "txtDateofLastFY", "12/31/2026");
    EXPECT_EQ(unstored(), Names{"txtDateofLastFY=12/31/2026"});
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdRemoveYear");
    EXPECT_EQ(unstored(), Names{});
}

TEST_F(RefusedTexts, QuartersFollowTheFiscalYearThatIsTypedBack) {
    scene.load(record);
    record->failing = {"write LastFYDate"};
    typeOver(scene, "txtDateofLastFY", "6/30/2025");
    scene.entry->put_VisibleQuarters(10);
    typeOver(scene, "txtDateofLastFY", "Dec/31/2025");
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(scene.form().get<Label>("lblDatOfLastFY").caption(), "Dec/31/2025");
}

TEST_F(RefusedTexts, ALastQuarterThatTheCommitStoresIsNoLongerOne) {
    loadQuarters();
    record->failing = {"write LastQDate"};
    desktop.spin("spnQuarter", -1);
    (void)scene.entry->get_objCompany();
    EXPECT_EQ(unstored(), Names{"txtLastQDate=Jun/30/2026"});
    record->failing.clear();
    scene.entry->put_blnDirty(false);
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 6, 30));
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(company->get_Last4QEPS(), 14);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "14.00");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST_F(RefusedTexts, ALastQuarterThatIsStoredBeforeAWrongOneTakesItsEarningsAlong) {
    loadQuarters();
    record->failing = {"write LastQDate"};
    desktop.spin("spnQuarter", -1);
    record->failing.clear();
    typeOver(scene, "txtLastQDate", "1/1/1990");
    EXPECT_EQ(scene.text("txtLastQDate"), "Jun/30/2026");
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(company->get_Last4QEPS(), 14);
}

TEST_F(RefusedTexts, ALastQuarterThatIsStillRefusedStaysMarkedBehindAWrongOne) {
    loadQuarters();
    record->failing = {"write LastQDate"};
    desktop.spin("spnQuarter", -1);
    typeOver(scene, "txtLastQDate", "1/1/1990");
    EXPECT_EQ(scene.text("txtLastQDate"), "Jun/30/2026");
    EXPECT_EQ(unstored(), Names{"txtLastQDate=Jun/30/2026"});
}

TEST_F(RefusedTexts, EveryPickedDayIsKeptBehindItsMonth) {
    scene.entry->put_DateFormat("MMM YYYY");
    scene.load(record);
    record->failing = {"write LastUpdate", "write PriceUpdatedDate"};
    pickDate("txtLastUpdate", *makeDate(2026, 5, 17));
    pickDate("txtPriceUpdate", *makeDate(2026, 4, 16));
    EXPECT_EQ(unstored().size(), 2U);
    record->failing.clear();
    leaveAgain("txtLastUpdate");
    leaveAgain("txtPriceUpdate");
    EXPECT_EQ(unstored(), Names{});
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 5, 17));
    EXPECT_EQ(company->get_PriceUpdatedDate(), *makeDate(2026, 4, 16));
}

TEST_F(RefusedTexts, AFieldThatIsEmptiedAfterADayOfTheSameMonthStaysOne) {
    scene.entry->put_DateFormat("MMM YYYY");
    scene.load(record);
    record->failing = {"write LastUpdate"};
    pickDate("txtLastUpdate", *makeDate(2026, 11, 3));
    EXPECT_EQ(unstored(), Names{"txtLastUpdate=Nov 2026"});
    typeOver(scene, "txtLastUpdate", "");
    EXPECT_EQ(unstored(), Names{"txtLastUpdate="});
}

} // namespace
} // namespace vkr
