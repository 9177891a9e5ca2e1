// SPDX-License-Identifier: MIT
#include "platform/text.hpp"
#include "tests/support/company_on_form.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

constexpr const char* figureNote = "Figures only. A loss begins with a minus sign.";
constexpr const char* positiveNote = "Figures only, without a minus sign.";
constexpr const char* priceNote =
    "Figures only, without a minus sign. Eighths are written as 3 1/8.";
constexpr const char* yearNote = "A year in four figures, from 1980 to 9900.";
constexpr const char* markNote = "The decimal mark is \".\", once in a figure.";
constexpr const char* oneFigureNote =
    "This field takes one figure. Several cells can't be pasted into it.";

// Keys and pastes that a field does not take, and the voice that they have.
struct RefusedInput : CompanyOnFullForm {
    RefusedInput() : CompanyOnFullForm(datedCompany()) {
        load();
        desktop.forget();
    }
};

TEST_F(RefusedInput, ASwallowedKeySaysWhatTheFieldTakes) {
    struct {
        const char* field;
        const char* before;
        const char* key;
        const char* note;
    } cases[] = {
        {"txtYEPS(9)", "", "x", figureNote},         {"txtEPS(0)", "5", "%", figureNote},
        {"txtTotalDebt", "5", "(", figureNote},      {"txtTotalDebt", "5", ")", figureNote},
        {"txtSales(9)", "", "-", positiveNote},      {"txtRevenue(0)", "", "(", positiveNote},
        {"txtTotalCap", "", "\u20ac", positiveNote}, {"txtCommDiv", "", "-", positiveNote},
        {"txtCurrentPrice", "", "/", priceNote},     {"txtHigh(9)", "", "-", priceNote},
        {"txtLow(9)", "5", "+", priceNote},          {"txtLastFY", "20", "x", yearNote},
        {"txtEPS(0)", "1.5", ".", markNote},         {"txtEPS(0)", "1", ",", markNote},
        {"txtLastFY", "20", ",", yearNote},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(std::string(one.field) + " " + one.before + " " + one.key);
        goTo(scene, one.field);
        desktop.type("^a{DEL}" + std::string(one.before));
        desktop.forget();
        desktop.type(keysOf(one.key));
        EXPECT_EQ(textOf(scene, one.field), one.before);
        ASSERT_EQ(desktop.refusals().size(), 1U);
        EXPECT_EQ(desktop.refusals()[0].field, one.field);
        EXPECT_EQ(desktop.refusals()[0].note, one.note);
        EXPECT_TRUE(desktop.note().has_value());
    }
}

TEST_F(RefusedInput, WhatIsTakenOrHasAnEffectIsSilent) {
    goTo(scene, "txtYEPS(9)");
    desktop.type("^a{DEL}-12.5{BACKSPACE}{LEFT}{HOME} {ESC}{F1}");
    desktop.type("{END}-"); // takes the sign off
    goTo(scene, "txtName");
    desktop.type(keysOf("A%(+x"));
    goTo(scene, "txtYEPS(8)");
    desktop.type("~");
    desktop.click("cmdAddYear"); // where nothing can be typed
    desktop.forget();
    desktop.type("x5{BS}");
    EXPECT_TRUE(desktop.refusals().empty());
}

// A hyphen between digits is no sign: once it is gone they are one figure.
TEST_F(RefusedInput, ASecondMinusThatJoinsTwoFiguresHasAVoice) {
    for (const char* id : {"txtYEPS(9)", "txtTotalDebt"}) {
        goTo(scene, id);
        desktop.type("^a{DEL}2025-12");
        desktop.forget();
        desktop.type("-");
        EXPECT_EQ(textOf(scene, id), "202512");
        ASSERT_EQ(desktop.refusals().size(), 1U) << id;
        EXPECT_EQ(desktop.refusals()[0].note, figureNote);
    }
}

TEST_F(RefusedInput, ASecondMinusThatJoinsNoFiguresIsSilent) {
    for (const char* text : {"5- 2", "5 -2", "5-", "-5"}) {
        goTo(scene, "txtYEPS(9)");
        desktop.type("^a{DEL}" + std::string(text));
        desktop.forget();
        desktop.type("-");
        EXPECT_EQ(textOf(scene, "txtYEPS(9)").find('-'), std::string::npos) << text;
        EXPECT_TRUE(desktop.refusals().empty()) << text;
    }
}

TEST_F(RefusedInput, UnderTheCommaTheVoiceNamesTheComma) {
    scene.entry->put_NumberMarks({',', "."});
    for (const char* id : {"txtYEPS(9)", "txtTotalDebt", "txtCurrentPrice"}) {
        goTo(scene, id);
        desktop.forget();
        desktop.type("^a12.5");
        EXPECT_EQ(textOf(scene, id), "125");
        ASSERT_EQ(desktop.refusals().size(), 1U);
        EXPECT_EQ(desktop.refusals()[0].note, "The decimal mark is \",\", once in a figure.");
    }
}

TEST_F(RefusedInput, ACharacterThatHasNoRoomSaysSo) {
    const std::string full(20, '7');
    for (const char* id : {"txtZip", "txtSymbol"}) {
        SCOPED_TRACE(id);
        goTo(scene, id);
        desktop.type("^a" + full);
        EXPECT_TRUE(desktop.refusals().empty());
        for (const char* key : {" ", "x"}) {
            desktop.forget();
            desktop.type(key);
            EXPECT_EQ(textOf(scene, id), full);
            ASSERT_EQ(desktop.refusals().size(), 1U) << key;
            EXPECT_EQ(desktop.refusals()[0].note, "There is room for 20 characters.");
        }
        desktop.hold("x", 20);
        EXPECT_EQ(desktop.refusals().size(), 2U);
        desktop.forget();
        desktop.type("{BS}x^ax"); // there is room again
        EXPECT_TRUE(desktop.refusals().empty());
    }
    goTo(scene, "txtLastFY");
    desktop.type("{END}1");
    ASSERT_EQ(desktop.refusals().size(), 1U);
    EXPECT_EQ(desktop.refusals()[0].note, yearNote);
}

TEST_F(RefusedInput, AHeldKeySoundsOnce) {
    goTo(scene, "txtYEPS(9)");
    desktop.hold("x", 20);
    EXPECT_EQ(desktop.refusals().size(), 1U);
    EXPECT_TRUE(desktop.note().has_value());
    desktop.hold("x", 20);
    EXPECT_EQ(desktop.refusals().size(), 2U);
    desktop.forget();
    desktop.type("^a{DEL}");
    desktop.hold(".", 20); // the first one is taken
    EXPECT_EQ(desktop.refusals().size(), 1U);
    desktop.forget();
    desktop.type("{x 3}"); // three presses
    EXPECT_EQ(desktop.refusals().size(), 3U);
}

TEST_F(RefusedInput, TheNoteGoesWithTheNextThingThatHappens) {
    const auto refuse = [&] {
        goTo(scene, "txtYEPS(9)");
        desktop.type("x");
        ASSERT_TRUE(desktop.note().has_value());
    };
    refuse();
    desktop.type("5");
    EXPECT_FALSE(desktop.note().has_value());
    refuse();
    desktop.type("{LEFT}");
    EXPECT_FALSE(desktop.note().has_value());
    refuse();
    desktop.click("txtYEPS(8)");
    EXPECT_FALSE(desktop.note().has_value());
    refuse();
    EXPECT_TRUE(desktop.leaveForm());
    EXPECT_FALSE(desktop.note().has_value());
    refuse();
    scene.entry->put_CurrentTab(toCompany);
    EXPECT_FALSE(desktop.note().has_value());
    refuse();
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.load(company);
    EXPECT_FALSE(desktop.note().has_value());
}

TEST_F(RefusedInput, ALockedFieldHasNoVoice) {
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.load(company);
    goTo(scene, "txtYEPS(9)");
    desktop.setClipboardText("12");
    desktop.type("x^v");
    EXPECT_TRUE(desktop.refusals().empty());
}

TEST_F(RefusedInput, BracketsAreAMinusWhereOneIsTaken) {
    goTo(scene, "txtYEPS(9)");
    desktop.type("{(}350{)}{TAB}");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), -350);
    EXPECT_EQ(scene.text("txtYEPS", 9), "-350.00");
    goTo(scene, "txtYEPS(9)"); // all of it is selected
    desktop.type("{(}1.5{)}{TAB}");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), -1.5);
    EXPECT_TRUE(desktop.refusals().empty());
    EXPECT_TRUE(scene.entry->doubtfulFields().empty());

    goTo(scene, "txtSales(9)");
    desktop.type("{(}350{)}{TAB}");
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 350);
    EXPECT_EQ(desktop.refusals().size(), 2U);
}

TEST_F(RefusedInput, AMinusOverTheWholeTextReplacesIt) {
    typeOver(scene, "txtYEPS(9)", "-3");
    goTo(scene, "txtYEPS(9)");
    desktop.type("-5{TAB}");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), -5);
    goTo(scene, "txtYEPS(9)");
    desktop.type("{END}-{TAB}"); // with the caret in the text it takes the sign off
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 5);
    goTo(scene, "txtYEPS(9)");
    desktop.type("-7{TAB}");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), -7);
    EXPECT_TRUE(desktop.refusals().empty());
}

TEST_F(RefusedInput, ABlockOfCellsIsNotSqueezedIntoOneFigure) {
    for (const char* id : {"txtYEPS(9)", "txtRevenue(0)", "txtTotalDebt", "txtCurrentPrice",
                           "txtInsiderHolding", "txtLastFY"}) {
        goTo(scene, id);
        const std::string before = textOf(scene, id);
        const bool ofGrid = std::string_view(id).ends_with(')');
        for (const char* block : {"1\t2", "1\n2", "1\r\n2\r\n3\r\n", "1\u20282", "1\u00852",
                                  "1\x1e"
                                  "2",
                                  "a\tb"}) {
            SCOPED_TRACE(std::string(id) + " " + block);
            if (ofGrid && std::string_view(block).find_first_of("\t\n") != std::string_view::npos)
                continue; // a place for each: CellCommands, ShowABlockBeforeItIsPasted
            desktop.forget();
            desktop.setClipboardText(block);
            desktop.type("^v");
            EXPECT_EQ(textOf(scene, id), before);
            ASSERT_EQ(desktop.refusals().size(), 1U);
            EXPECT_EQ(desktop.refusals()[0].note, oneFigureNote);
            desktop.answerNextMenu("Paste");
            desktop.rightClick(id);
            EXPECT_EQ(textOf(scene, id), before);
            EXPECT_EQ(desktop.refusals().size(), 2U);
        }
    }
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST_F(RefusedInput, ACellWithItsLineBreakIsNoBlock) {
    for (const char* cell : {"42\r\n", "42\n", "42\r", "42\t", " 42 ", "42\u0085"}) {
        typeOver(scene, "txtYEPS(9)", "7");
        pasteOver(scene, "txtYEPS(9)", cell);
        EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 42);
    }
    typeOver(scene, "txtTotalDebt", "7");
    pasteOver(scene, "txtTotalDebt", "\t42\t");
    EXPECT_EQ(company->get_TotalDebt(), 42);
    pasteOver(scene, "txtName", "Acme\tInc.\r\n"); // texts take blocks
    EXPECT_EQ(company->get_Name(), "Acme Inc.");
    EXPECT_TRUE(desktop.refusals().empty());
}

TEST_F(RefusedInput, AYearThatIsOutOfReachHasAVoice) {
    goTo(scene, "txtLastFY");
    desktop.type("^a1979");
    ASSERT_EQ(desktop.refusals().size(), 1U);
    EXPECT_EQ(desktop.refusals()[0].note, yearNote);
}

} // namespace
} // namespace vkr
