// SPDX-License-Identifier: MIT
#include "tests/support/company_on_form.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace vkr {
namespace {

using namespace test;

// Figures that were stored though not all of the text was taken: which fields say so, and for how
// long.
struct DoubtfulTexts : CompanyOnFullForm {
    using Names = std::vector<std::string>;

    DoubtfulTexts() : CompanyOnFullForm(datedCompany()) { load(); }

    // "txtEPS(1): Taken as ..." for every field in doubt.
    [[nodiscard]] Names doubts() const {
        Names names;
        for (const auto& field : scene.entry->doubtfulFields())
            names.push_back(field.control + ": " + field.reason);
        return names;
    }
    void expectNoDoubt(std::string_view id) {
        EXPECT_EQ(doubts(), Names{}) << id;
        EXPECT_EQ(markOf(scene, id), "");
    }
};

TEST_F(DoubtfulTexts, WhatIsLeftOutOfAFigureIsTold) {
    struct {
        const char* pasted;
        double stored;
        const char* shown;
        const char* reason;
    } cases[] = {
        {"1.5M", 1.5, "1.50", "Taken as 1.50; \"M\" was left out."},
        {"1 234,5", 1, "1.00", "Taken as 1.00; \"234,5\" was left out."},
        {"12,5", 12, "12.00", "Taken as 12.00; \",5\" was left out."},
        {"1/2", 1, "1.00", "Taken as 1.00; \"/2\" was left out."},
        {"-3.25 (restated)", -3.25, "-3.25", "Taken as -3.25; \"(restated)\" was left out."},
        {"USD 12.5", 0, "", "Taken as 0; \"USD 12.5\" was left out."},
        {"n/a", 0, "", "Taken as 0; \"n/a\" was left out."},
        {"-", 0, "", "Taken as 0; \"-\" was left out."},
        {"1e-400", 0, "", "Taken as 0; \"1e-400\" was left out."},
    };
    for (const char* id : {"txtEPSProj", "txtLast4QEPS", "txtTotalDebt", "txtYEPS(9)", "txtEPS(0)",
                           "txtTaxRate", "txtYNetInc(4)"})
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(id) + " " + one.pasted);
            typeOver(scene, id, "77");
            EXPECT_EQ(doubts(), Names{});
            pasteOver(scene, id, one.pasted);
            EXPECT_EQ(doubts(), Names{std::string(id) + ": " + one.reason});
            EXPECT_EQ(textOf(scene, id), one.shown);
            EXPECT_TRUE(scene.entry->unstoredFields().empty());
            typeOver(scene, id, "77");
        }
    pasteOver(scene, "txtEPSProj", "1.5M");
    EXPECT_EQ(company->get_ORBEPSProj(), 1.5);
    pasteOver(scene, "txtInsiderHolding", "12.5 % p.a.");
    EXPECT_EQ(markOf(scene, "txtInsiderHolding"), "Taken as 12.5%; \"% p.a.\" was left out.");
    EXPECT_EQ(company->get_InsiderHolding(), 12.5);
}

TEST_F(DoubtfulTexts, TheFigureIsToldInTheUnitOfItsField) {
    company->get_Settings()->put(setting::unit, 9);
    scene.load(company);
    pasteOver(scene, "txtTotalDebt", "90.509bn");
    EXPECT_EQ(company->get_TotalDebt(), 90509);
    EXPECT_EQ(doubts(), Names{"txtTotalDebt: Taken as 90.51; \"bn\" was left out."});
}

TEST_F(DoubtfulTexts, AFractionThatLosesAPartIsInDoubt) {
    struct {
        const char* typed;
        double stored;
        const char* reason;
    } cases[] = {
        {"3 0/8", 0, "Taken as 0; \"3 0/8\" was left out."},
        {"12/", 0, "Taken as 0; \"12/\" was left out."},
        {"4 1/0", 4, "Taken as 4.000; \"1/0\" was left out."},
        {"3 1/", 3, "Taken as 3.000; \"1/\" was left out."},
        {"1/0", 0, "Taken as 0; \"1/0\" was left out."},
    };
    for (const char* id : {"txt52WHigh", "txtHigh(9)"})
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(id) + " " + one.typed);
            typeOver(scene, id, one.typed);
            EXPECT_EQ(doubts(), Names{std::string(id) + ": " + one.reason});
            EXPECT_EQ(id[3] == '5' ? company->get_High52W() : elementOf(*company, "YHighSeries", 1),
                      one.stored);
            typeOver(scene, id, "3 1/8");
            expectNoDoubt(id);
        }
    pasteOver(scene, "txt52WHigh", "3 1/8 USD");
    EXPECT_EQ(company->get_High52W(), 3.125);
    EXPECT_EQ(doubts(), Names{"txt52WHigh: Taken as 3.125; \"USD\" was left out."});
}

TEST_F(DoubtfulTexts, AFigureThatIsReadAsAWholeRaisesNone) {
    for (const char* text :
         {"1,234.5", "(1,234.00)", "1,234,567", "$5", "-$5", "$(5.5)", "5.5-", "1e3", "\t42\t",
          "42\r\n", "\u00a07\u00a0", "+5", "5.", ".5", "0", "", "0.00", "1 234 567"}) {
        SCOPED_TRACE(text);
        pasteOver(scene, "txtEPSProj", text);
        expectNoDoubt("txtEPSProj");
    }
    for (const char* text : {"3 1/8", "3-1/8", "3/8", "3\u215B", "0/8", "0 0/8", "12.25"}) {
        SCOPED_TRACE(text);
        pasteOver(scene, "txt52WHigh", text);
        expectNoDoubt("txt52WHigh");
    }
    typeOver(scene, "txtInsiderHolding", "12.5");
    pasteOver(scene, "txtInsiderHolding", "12.5%");
    expectNoDoubt("txtInsiderHolding");
}

TEST_F(DoubtfulTexts, SignsOfAnotherUnitThanTheFieldsAreLeftOut) {
    company->get_Settings()->put(setting::currencySymbol, "EUR");
    scene.load(company);
    struct {
        const char* id;
        const char* pasted;
        const char* leftOut; // "" for a text that says just what is stored
    } const cases[] = {
        {"txtEPSProj", "5%", "%"},
        {"txtTotalDebt", "5 %", "%"},
        {"txtSales(9)", "+5%", "%"},
        {"txt52WHigh", "5%", "%"},
        {"txtCommonShares", "5%", "%"},
        {"txtInsiderHolding", "5%", ""},
        {"txtTaxRate", "5%", ""},
        {"txtTotalDebt", "\u20ac5", ""}, // the euro is called EUR
        {"txtHigh(9)", "5 \u20ac", ""},
        {"txtTotalDebt", "$5", "$"},
        {"txtYEPS(9)", "-$5", "$"},
        {"txtEPS(0)", "\u00a35", "\u00a3"},
        {"txtCommonShares", "\u20ac5", "\u20ac"},
        {"txtInsiderHolding", "\u20ac5", "\u20ac"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(std::string(one.id) + " " + one.pasted);
        typeOver(scene, one.id, "7");
        pasteOver(scene, one.id, one.pasted);
        const std::string told =
            *one.leftOut == '\0'
                ? ""
                : "Taken as " + textOf(scene, one.id) + "; \"" + one.leftOut + "\" was left out.";
        EXPECT_EQ(markOf(scene, one.id), told);
    }
    EXPECT_EQ(company->get_TotalDebt(), 5);
    scene.entry->put_NumberFormat("$#0.00");
    pasteOver(scene, "txtTotalDebt", "$6");
    EXPECT_EQ(textOf(scene, "txtTotalDebt"), "$6.00");
    EXPECT_EQ(markOf(scene, "txtTotalDebt"), "");
    typeOver(scene, "txtCurSymbol", "US$");
    scene.entry->put_NumberFormat("#0.00");
    pasteOver(scene, "txtTotalDebt", "$7");
    EXPECT_EQ(markOf(scene, "txtTotalDebt"), "");
}

TEST_F(DoubtfulTexts, TheOnlyGroupOfAFigureThatRarelyHasThousandsIsOne) {
    struct {
        const char* id;
        const char* pasted;
        bool doubt;
    } const cases[] = {
        {"txtCurrentPrice", "1,125", true},      {"txtHigh(9)", "1,125", true},
        {"txtYEPS(9)", "(1,125)", true},         {"txtEPS(0)", "-1,125", true},
        {"txtEPSProj", "1,125", true},           {"txtInsiderHolding", "1,125", true},
        {"txtYOption2(9)", "1,125", false},      {"txtTotalDebt", "1,125", false},
        {"txtSales(9)", "1,125", false},         {"txtRevenue(0)", "1,125", false},
        {"txtCommonShares", "1,125", false},     {"txtCurrentPrice", "1,125.0", false},
        {"txtYEPS(9)", "1,125,000", false},      {"txtEPSProj", "1125", false},
        {"txtCurrentPrice", "1,125 1/8", false},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(std::string(one.id) + " " + one.pasted);
        pasteOver(scene, one.id, one.pasted);
        EXPECT_EQ(markOf(scene, one.id).ends_with("; \",\" was left out."), one.doubt)
            << markOf(scene, one.id);
        typeOver(scene, one.id, "7");
    }
    pasteOver(scene, "txtCurrentPrice", "1,125");
    EXPECT_EQ(company->get_CurrentPrice(), 1125);
    EXPECT_EQ(markOf(scene, "txtCurrentPrice"), "Taken as 1125.000; \",\" was left out.");
    scene.entry->put_NumberFormat("#,##0");
    pasteOver(scene, "txtEPSProj", "1,126"); // as it is shown
    EXPECT_EQ(markOf(scene, "txtEPSProj"), "");
}

TEST_F(DoubtfulTexts, AFigureThatWasCopiedInAnotherUnitIsOne) {
    const auto setUnit = [&](int unit) {
        company->get_Settings()->put(setting::unit, unit);
        scene.entry->recordChanged();
    };
    const std::string doubt = "Copied in (M), and stored as it stands in (K).";
    desktop.answerNextMenu("Copy");
    int next = 900;
    for (const char* keys : {"^c", "^{INSERT}", "^x", "+{DEL}", ""}) {
        SCOPED_TRACE(keys);
        const std::string figure = std::to_string(next++);
        setUnit(6);
        typeOver(scene, "txtTotalDebt", figure);
        goTo(scene, "txtTotalDebt");
        if (*keys == '\0')
            desktop.rightClick("txtTotalDebt");
        desktop.type(std::string(keys) + "^z{TAB}");
        for (const char* id : {"txtTotalCap", "txtSales(9)", "txtRevenue(0)", "txtEPS(0)"}) {
            typeAt(scene, id, "^a^v{TAB}");
            EXPECT_EQ(markOf(scene, id), "") << id;
        }
        setUnit(3);
        for (const char* id : {"txtTotalCap", "txtSales(9)", "txtRevenue(0)"}) {
            typeAt(scene, id, "^a^v{TAB}");
            EXPECT_EQ(textOf(scene, id), figure + ".00");
            EXPECT_EQ(markOf(scene, id), doubt) << id;
            typeOver(scene, id, "1");
        }
        EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 0.001);
        typeAt(scene, "txtEPS(0)", "^a{DEL}^v{TAB}"); // has no unit
        EXPECT_EQ(doubts(), Names{});
    }
    // What is only selected meanwhile is not what was copied.
    setUnit(6);
    typeOver(scene, "txtTotalDebt", "900");
    typeAt(scene, "txtTotalDebt", "^a^c{TAB}");
    for (const char* keys : {"{HOME}+{END}+{LEFT}", "^a^{HOME}", "^a{RIGHT}+{HOME}"})
        typeAt(scene, "txtName", std::string("^aACME") + keys);
    setUnit(3);
    typeAt(scene, "txtTotalCap", "^a^v{TAB}");
    EXPECT_EQ(markOf(scene, "txtTotalCap"), doubt);
    typeOver(scene, "txtTotalCap", "1");
    // A single digit, and what it was while nothing is selected.
    setUnit(6);
    typeAt(scene, "txtTotalDebt", "^a{DEL}5^a^c{END}^c{TAB}");
    setUnit(3);
    typeAt(scene, "txtTotalCap", "^a^v{TAB}");
    EXPECT_EQ(markOf(scene, "txtTotalCap"), doubt);
    typeOver(scene, "txtTotalCap", "1");
    desktop.setClipboardText("9"); // by another program
    desktop.setClipboardText("900.00");
    setUnit(6);
    typeAt(scene, "txtTotalCap", "^a^v{TAB}");
    typeAt(scene, "txtTotalDebt", "^a{DEL}7{TAB}^c");
    EXPECT_EQ(doubts(), Names{});
}

TEST_F(DoubtfulTexts, WhatTheDisplayAddsIsNotLeftOut) {
    scene.entry->put_NumberFormat("#0.00 \"USD\"");
    typeOver(scene, "txtEPSProj", "7");
    EXPECT_EQ(scene.text("txtEPSProj"), "7.00 USD");
    goTo(scene, "txtEPSProj");
    desktop.type("{HOME}1{TAB}");
    EXPECT_EQ(scene.text("txtEPSProj"), "17.00 USD");
    expectNoDoubt("txtEPSProj");
    typeOver(scene, "txtEPSProj", "8.5 USD");
    EXPECT_EQ(scene.text("txtEPSProj"), "8.50 USD");
    expectNoDoubt("txtEPSProj");
}

TEST_F(DoubtfulTexts, DigitsThatAreLeftOutAreToldAlsoWhereTheFigureEndsAlike) {
    pasteOver(scene, "txtSales(9)", "12.50 50");
    EXPECT_EQ(textOf(scene, "txtSales(9)"), "12.50");
    EXPECT_EQ(markOf(scene, "txtSales(9)"), "Taken as 12.50; \"50\" was left out.");
}

TEST_F(DoubtfulTexts, ADoubtStaysUntilItsFieldIsEditedOrEnterAgrees) {
    pasteOver(scene, "txtEPSProj", "1.5M");
    pasteOver(scene, "txtYEPS(9)", "1.5M");
    pasteOver(scene, "txtYEPS(8)", "1.5M");
    EXPECT_EQ(doubts().size(), 3U);
    // Tabbing through is not looking at it, nor is the mouse.
    goTo(scene, "txtEPSProj");
    desktop.type("{TAB}");
    goTo(scene, "txtYEPS(9)");
    desktop.type("{DOWN}+{TAB}");
    EXPECT_EQ(doubts().size(), 3U);

    goTo(scene, "txtEPSProj");
    desktop.type("~");
    EXPECT_EQ(markOf(scene, "txtEPSProj"), "");
    EXPECT_EQ(scene.text("txtEPSProj"), "1.50");
    goTo(scene, "txtYEPS(9)");
    desktop.type("+~"); // up
    EXPECT_EQ(doubts(), Names{"txtYEPS(8): Taken as 1.50; \"M\" was left out."});
    desktop.type("{END}{BACKSPACE}");
    EXPECT_EQ(doubts(), Names{});
    desktop.type("0{TAB}");
    EXPECT_EQ(doubts(), Names{});
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 2), 1.5);
}

TEST_F(DoubtfulTexts, TheEnterThatStoresAFigureDoesNotAgreeWithIt) {
    desktop.setClipboardText("1.5M");
    goTo(scene, "txtYEPS(9)");
    desktop.type("^v~");
    EXPECT_EQ(doubts().size(), 1U);
    desktop.setClipboardText("12345678901234567890123");
    goTo(scene, "txtZip");
    desktop.type("^a^v~");
    EXPECT_EQ(doubts().size(), 2U);
}

TEST_F(DoubtfulTexts, AnotherRecordHasNone) {
    pasteOver(scene, "txtEPSProj", "1.5M");
    pasteOver(scene, "txtYEPS(9)", "1.5M");
    scene.load(datedCompany());
    EXPECT_EQ(doubts(), Names{});
}

TEST_F(DoubtfulTexts, ADoubtStaysWhereItsFigureIsShownAnew) {
    pasteOver(scene, "txt52WHigh", "12.5 USD");
    pasteOver(scene, "txtHigh(9)", "12.5 USD");
    pasteOver(scene, "txtEPS(0)", "1.5M");
    scene.entry->put_FractionDisplay(true);
    scene.entry->put_VisibleQuarters(12);
    EXPECT_EQ(scene.text("txt52WHigh"), "12 1/2");
    EXPECT_EQ(scene.text("txtHigh", 9), "12 1/2");
    EXPECT_EQ(doubts().size(), 3U);
}

TEST_F(DoubtfulTexts, TheEndOfAPasteThatHasNoRoomIsTold) {
    desktop.setClipboardText("12345678901234567890XYZ");
    goTo(scene, "txtZip");
    desktop.type("^a^v");
    EXPECT_EQ(scene.text("txtZip"), "12345678901234567890");
    EXPECT_EQ(doubts(), Names{"txtZip: Taken as 12345678901234567890; \"XYZ\" was left out."});
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_Zip(), "12345678901234567890");
    EXPECT_EQ(doubts().size(), 1U);

    desktop.answerNextMenu("Paste");
    goTo(scene, "txtState");
    desktop.type("^a");
    desktop.setClipboardText(std::string(200, 'x'));
    desktop.rightClick("txtState");
    desktop.type("{TAB}");
    EXPECT_EQ(doubts().size(), 2U);
    goTo(scene, "txtState");
    desktop.type("NY{TAB}");
    EXPECT_EQ(doubts().size(), 1U);
}

// But for dates and the last fiscal year, which are taken as a whole or not at all.
TEST_F(DoubtfulTexts, APasteThatIsCutIsStillToldOfOnceItsFieldWasLeft) {
    for (const TextField* field : allFields(scene)) {
        const std::string id = field->id();
        if (field->maxLength() == 0 || id.find("Date") != std::string::npos ||
            id.find("Update") != std::string::npos || id == "txtLastFY")
            continue;
        const std::string taken(static_cast<std::size_t>(field->maxLength()), 'X');
        pasteOver(scene, id, taken + "END");
        EXPECT_EQ(textOf(scene, id), taken) << id;
        if (!field->isUnstored()) {
            EXPECT_TRUE(markOf(scene, id).ends_with("\"END\" was left out.")) << id;
        }
    }
}

TEST_F(DoubtfulTexts, ALastQuarterThatGaveWayLeavesNone) {
    pasteOver(scene, "txtLastQDate", std::string(45, '1'));
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    expectNoDoubt("txtLastQDate");
}

TEST_F(DoubtfulTexts, OfALongTextTheBeginningIsTold) {
    const std::string taken(20, '1');
    for (const int length : {40, 41}) {
        const std::string rest(static_cast<std::size_t>(length), 'x');
        typeOver(scene, "txtZip", "1");
        desktop.setClipboardText(taken + rest);
        goTo(scene, "txtZip");
        desktop.type("^a^v");
        const std::string told = length == 40 ? rest : std::string(40, 'x') + "\u2026";
        EXPECT_EQ(doubts(),
                  Names{"txtZip: Taken as " + taken + "; \"" + told + "\" was left out."});
    }
}

TEST_F(DoubtfulTexts, APasteIntoAnOverlongTextIsToldAsAWhole) {
    const std::string overlong = "123456789012345678901234567890";
    company->put_Zip(overlong);
    scene.load(company);
    goTo(scene, "txtZip");
    desktop.setClipboardText("ABC");
    desktop.type("{HOME}+{RIGHT}+{RIGHT}^v");
    EXPECT_EQ(scene.text("txtZip"), overlong);
    EXPECT_EQ(doubts(), Names{"txtZip: Taken as " + overlong + "; \"ABC\" was left out."});
}

TEST_F(DoubtfulTexts, UnderTheCommaTheyAreWrittenWithIt) {
    scene.entry->put_NumberMarks({',', "."});
    struct {
        const char* pasted;
        const char* shown;
        const char* reason;
    } cases[] = {
        {"1.234", "1234,00", "Taken as 1234,00; \".\" was left out."},
        {"12.5", "12,00", "Taken as 12,00; \".5\" was left out."},
        {"1,5M", "1,50", "Taken as 1,50; \"M\" was left out."},
    };
    for (const char* id : {"txtEPSProj", "txtTotalDebt", "txtYEPS(9)", "txtEPS(0)"})
        for (const auto& one : cases) {
            pasteOver(scene, id, one.pasted);
            EXPECT_EQ(textOf(scene, id), one.shown);
            EXPECT_EQ(markOf(scene, id), one.reason);
        }
}

TEST_F(DoubtfulTexts, AYearThatGivesWaySaysSo) {
    const std::string year = scene.text("txtLastFY");
    typeOver(scene, "txtLastFY", "20");
    EXPECT_EQ(scene.text("txtLastFY"), year);
    EXPECT_EQ(doubts(), Names{"txtLastFY: Taken as " + year + "; \"20\" was left out."});
    goTo(scene, "txtLastFY");
    desktop.setClipboardText("2019E");
    desktop.type("^a^v");
    EXPECT_EQ(scene.text("txtLastFY"), "2019");
    EXPECT_EQ(company->get_LastFY(), 2019);
    EXPECT_EQ(doubts(), Names{"txtLastFY: Taken as 2019; \"E\" was left out."});
    for (const std::string text : {"FY 2020", "2,020", "-2020"}) {
        pasteOver(scene, "txtLastFY", text);
        EXPECT_EQ(company->get_LastFY(), 2019);
        EXPECT_EQ(doubts(), Names{"txtLastFY: Taken as 2019; \"" + text + "\" was left out."});
    }
}

TEST_F(DoubtfulTexts, ANegativeWhereNoneIsTakenIsNotStored) {
    company->put_High52W(90);
    company->put_Low52W(10);
    company->put_CurrentPrice(50);
    company->put_TotalCap(-7);
    company->put_CommDiv(-3);
    putElement(*company, "YDividendSeries", 1, -2);
    scene.load(company);
    const std::string reason = "A negative figure makes no sense here and was not stored.";
    for (const char* id :
         {"txtCurrentPrice", "txt52WHigh", "txt52WLow", "txtCommDiv", "txtTotalCap", "txtSales(3)",
          "txtDiv(9)", "txtHigh(3)", "txtLow(3)", "txtRevenue(0)"})
        for (const char* text : {"-5", "(5)", "\u22125", "5-", "-5M"}) {
            SCOPED_TRACE(std::string(id) + " " + text);
            const auto before = company->clone();
            goTo(scene, id);
            desktop.setClipboardText(text);
            desktop.type("^a^v{TAB}");
            EXPECT_EQ(textOf(scene, id), text);
            EXPECT_EQ(markOf(scene, id), reason);
            EXPECT_TRUE(changedData(*before, *company).empty());
        }
    EXPECT_EQ(scene.entry->unstoredFields().size(), 10U);
    EXPECT_EQ(doubts(), Names{});
    typeOver(scene, "txtCurrentPrice", "60");
    EXPECT_EQ(company->get_CurrentPrice(), 60);
    EXPECT_EQ(markOf(scene, "txtCurrentPrice"), "");
    pasteOver(scene, "txtSales(3)", "-0"); // no negative figure
    EXPECT_EQ(markOf(scene, "txtSales(3)"), "");
}

TEST_F(DoubtfulTexts, ANegativeFigureOfTheRecordStays) {
    company->put_CommDiv(-3);
    company->put_CommDivAlternate(-3);
    putElement(*company, "YRevenueSeries", 1, -2);
    scene.load(company);
    for (const char* id : {"txtCommDiv", "txtSales(9)"}) {
        goTo(scene, id);
        desktop.type("{TAB}");
        EXPECT_EQ(markOf(scene, id), "");
    }
    EXPECT_EQ(company->get_CommDiv(), -3);
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), -2);
}

struct PastedText {
    NumberMarks marks;
    const char* pasted;
    bool doubtful;
};

void expectDoubts(std::span<const PastedText> rows, std::initializer_list<const char*> ids,
                  std::string_view numberFormat = {}) {
    for (const auto& row : rows)
        for (const char* id : ids) {
            SCOPED_TRACE(std::string(row.pasted) + " " + id);
            EntryScene scene;
            if (!numberFormat.empty())
                scene.entry->put_NumberFormat(numberFormat);
            scene.entry->put_NumberMarks(row.marks);
            scene.load(datedCompany());
            pasteOver(scene, id, row.pasted);
            EXPECT_EQ(!scene.entry->doubtfulFields().empty(), row.doubtful);
        }
}

// Group marks that a pattern shows are passed over where groups stand, not behind the decimal mark.
TEST(DoubtfulPastes, AGroupMarkBehindTheDecimalMarkIsTold) {
    const PastedText rows[] = {{{}, "1.234,56", true},
                               {{}, "1,2345.50", false},
                               {{}, "1,234.56", false},
                               {{}, "1.234,567,890", true},
                               {{.decimal = ',', .grouping = "."}, "1,234.56", true},
                               {{.decimal = ',', .grouping = "."}, "1.234,56", false}};
    expectDoubts(rows, {"txtTotalDebt", "txtSales(9)", "txtEPS(0)"}, "#,##0.00");
}

// Two figures of one line of a document, as well as one in groups.
TEST(DoubtfulPastes, AWholeFigureWithOneBlankInItIsTold) {
    const PastedText rows[] = {{{}, "125 130", true},
                               {{}, "12 500", true},
                               {{}, "1 234 567", false},
                               {{.decimal = ',', .grouping = "."}, "125 130", true},
                               {{.decimal = ',', .grouping = "\u202F"}, "125 130", false}};
    expectDoubts(rows, {"txtTotalDebt", "txtCurrentPrice"});
}

TEST(DoubtfulPastes, OneCellIsReadByTheMarkOfItsProgramAsABlockIs) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    const auto paste = [&](std::string_view id, const char* text) {
        scene.desktop.setClipboardText(text);
        scene.desktop.setClipboardDecimalMark(',');
        typeAt(scene, id, "^a^v{TAB}");
    };
    paste("txtTotalDebt", "1.234");
    EXPECT_EQ(company->get_TotalDebt(), 1234);
    paste("txtCurrentPrice", "12,5");
    EXPECT_EQ(company->get_CurrentPrice(), 12.5);
    paste("txtSales(9)", "-1.234,5");
    paste("txtYNetInc(9)", "-1.234,5");
    EXPECT_EQ(elementOf(*company, "YNetIncSeries", 1), -1234.5);
    paste("txtName", "1.234");
    EXPECT_EQ(company->get_Name(), "1.234");
}

TEST(DoubtfulPastes, AFigureThatIsTooSmallIsToldAsItWasCopied) {
    EntryScene scene;
    scene.load(datedCompany());
    scene.desktop.setClipboardText("1e-324");
    scene.desktop.setClipboardDecimalMark(',');
    typeAt(scene, "txtCurrentPrice", "^a^v");
    EXPECT_EQ(scene.text("txtCurrentPrice"), "1e-324");
    scene.desktop.type("{TAB}");
    ASSERT_EQ(scene.entry->doubtfulFields().size(), 1U);
    EXPECT_EQ(scene.entry->doubtfulFields()[0].reason, "Taken as 0; \"1e-324\" was left out.");
}

} // namespace
} // namespace vkr
