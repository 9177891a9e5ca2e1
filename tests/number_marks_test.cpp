// SPDX-License-Identifier: MIT
#include "binding/entry_context.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_pattern.hpp"
#include "input/number_text.hpp"
#include "platform/number_marks.hpp"
#include "tests/support/field_steps.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace vkr {
namespace {

using namespace test;

const NumberMarks american{'.', ","};
const NumberMarks german{',', "."};
const NumberMarks french{',', "\u202F"};
const NumberMarks swiss{'.', "\u2019"};

struct MarkScene : EntryScene {
    explicit MarkScene(const NumberMarks& marks,
                       const std::shared_ptr<CompanyRecord>& company = datedCompany()) {
        showEveryField(*this);
        entry->put_NumberMarks(marks);
        load(company);
    }
    [[nodiscard]] iVKR_Company& company() const { return *entry->get_objCompany(); }
};

// --- the marks themselves ------------------------------------------------------------------------

TEST(NumberMarks, PointAndCommaChangePlacesWhereTheCommaIsTheMark) {
    EXPECT_EQ(exchangeMarks("1.234,56", german), "1,234.56");
    EXPECT_EQ(exchangeMarks("1,234.56", german), "1.234,56");
    EXPECT_EQ(exchangeMarks("1\u202F234,5", french), "1\u202F234.5");
    EXPECT_EQ(exchangeMarks("1,234.56", american), "1,234.56");
    EXPECT_EQ(exchangeMarks("1\u2019234.5", swiss), "1\u2019234.5");
}

TEST(NumberMarks, AFormTakesPointAndCommaAndKeepsThemApart) {
    Form form;
    EXPECT_EQ(form.numberMarks(), american);
    form.setNumberMarks({',', ","});
    EXPECT_EQ(form.numberMarks(), german);
    form.setNumberMarks({'.', "."});
    EXPECT_EQ(form.numberMarks(), american);
    form.setNumberMarks({'x', "'"});
    EXPECT_EQ(form.numberMarks(), (NumberMarks{'.', "'"}));
    form.setNumberMarks({',', ""});
    EXPECT_EQ(form.numberMarks(), (NumberMarks{',', ""}));
}

// --- display -------------------------------------------------------------------------------------

TEST(NumberMarks, APatternShowsThem) {
    const struct {
        double value;
        const char* pattern;
        const NumberMarks& marks;
        const char* shown;
    } cases[] = {
        {1234567.891, "#,##0.00", american, "1,234,567.89"},
        {1234567.891, "#,##0.00", german, "1.234.567,89"},
        {1234567.891, "#,##0.00", french, "1\u202F234\u202F567,89"},
        {1234567.891, "#,##0.00", swiss, "1\u2019234\u2019567.89"},
        {-0.5, "#0.000", german, "-0,500"},
        {1234.5, "", german, "1234,5"},
        {1.5e20, "General Number", german, "1,5E+20"},
        {1234.5, "0.00E+00", german, "1,23E+03"},
        {12.5, "#0.0\\%", french, "12,5%"},
        // What a pattern quotes stands as it is.
        {12.5, "\"a.b,c\" 0.0\\.", german, "a.b,c 12,5."},
    };
    for (const auto& one : cases)
        EXPECT_EQ(formatNumber(one.value, one.pattern, one.marks), one.shown) << one.pattern;
}

TEST(NumberMarks, EveryFigureOfTheFormIsShownWithThem) {
    for (const NumberMarks& marks : {american, german, french, swiss}) {
        MarkScene scene(marks);
        scene.entry->put_NumberFormat("#,##0.00");
        scene.company().put_TotalDebt(1234567.5);
        scene.company().put_CurrentPrice(12.125);
        scene.company().put_InsiderHolding(12.5);
        scene.load(scene.entry->get_objCompany());
        const std::string point(1, marks.decimal);
        EXPECT_EQ(scene.text("txtTotalDebt"),
                  "1" + marks.grouping + "234" + marks.grouping + "567" + point + "50");
        EXPECT_EQ(scene.text("txtCurrentPrice"), "12" + point + "125");
        EXPECT_EQ(scene.text("txtInsiderHolding"), "12" + point + "5%");
    }
}

// --- reading -------------------------------------------------------------------------------------

TEST(NumberMarks, ATextIsReadByThem) {
    const struct {
        const NumberMarks& marks;
        const char* text;
        const char* plain;
    } cases[] = {
        {german, "12,5", "12.5"},
        {german, "-12,5", "-12.5"},
        {german, ",5", "0.5"},
        {german, "1.234,56", "1234.56"},
        {german, "1.234.567", "1234567"},
        {german, "1.234.567,89 \u20AC", "1234567.89"},
        {german, "(1.234,56)", "-1234.56"},
        {german, "1 234,56", "1234.56"},
        {german, "1'234,56", "1234.56"},
        {german, "12,5%", "12.5"},
        {german, "1,5e3", "1500"},
        {german, "12.5", "12"},
        {german, "1,234.56", "1.234"},
        {german, "1,234,567", "1.234"},
        {french, "1\u202F234,56", "1234.56"},
        {french, "1\u00A0234,56", "1234.56"},
        {french, "1 234,56", "1234.56"},
        {french, "1\u202F234\u202F567", "1234567"},
        {french, "12.5", "12"},
        {swiss, "1\u2019234.56", "1234.56"},
        {swiss, "1'234.56", "1234.56"},
        {swiss, "1'234'567", "1234567"},
        {swiss, "12.5", "12.5"},
        {american, "1,234.56", "1234.56"},
        {american, "12,5", "12"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(cleanNumericText(one.text, NumericKind::PlainNumber, 0, one.marks).text,
                  one.plain)
            << one.text << " with " << one.marks.decimal;
    EXPECT_EQ(cleanNumericText("3 1/8", NumericKind::PriceText, 0, german).text, "3.125");
    EXPECT_EQ(cleanNumericText("1.234 1/8", NumericKind::PriceText, 0, german).text, "1234.125");
}

TEST(NumberMarks, OneGroupThatMayBeMeantAsDecimalsIsInDoubt) {
    const struct {
        const NumberMarks& marks;
        const char* text;
        const char* leftOut;
    } cases[] = {
        {german, "1.234", "."},    {german, "$1.234", "."},    {german, "(1.234)", "."},
        {french, "1.234", "."},    {swiss, "1,234", ","},      {german, "1.234,5", ""},
        {german, "1.234.567", ""}, {french, "1\u202F234", ""}, {swiss, "1\u2019234", ""},
        {american, "1,234", ""},   {american, "1.234", ""},    {german, "1,234", ""},
    };
    for (const auto& one : cases) {
        const auto read = cleanNumericText(one.text, NumericKind::PlainNumber, 0, one.marks);
        EXPECT_EQ(read.leftOut, one.leftOut) << one.text << " with " << one.marks.decimal;
        if (!read.leftOut.empty()) {
            EXPECT_EQ(std::abs(numericValue(read.text)), 1234) << one.text;
        }
    }
}

TEST(NumberMarks, WhatAGroupedPatternPassesOverIsInDoubtWithoutADecimalMark) {
    Form form;
    VirtualDesktop desktop;
    EntryContext context(form, desktop);
    context.numberFormat = "#,##0.00";
    const struct {
        const NumberMarks& marks;
        const char* text;
        const char* number;
        const char* leftOut;
    } cases[] = {
        {american, "12,5", "125", ","},
        {american, "1,234", "1234", ""},
        {american, "1,2345.50", "12345.50", ""},
        {german, "12.5", "125", "."},
        {german, "1.234", "1234", "."},
        {german, "1.2345,50", "12345.50", ""},
        {german, "1234", "1234", ""},
        {american, "", "", ""},
        {american, "5.-", "5", ""},
        {american, "5,-", "5", ",-"},
        {american, "5,\u2013", "5", ",\u2013"},
        {american, "1,234-", "-1234", ""},
        {german, "5.-", "5", ".-"},
        {german, "1.234,-", "1234", ""},
    };
    for (const auto& one : cases) {
        form.setNumberMarks(one.marks);
        const NumericText read = context.typedNumber(one.text, 0);
        EXPECT_EQ(read.text, one.number) << one.text;
        EXPECT_EQ(read.leftOut, one.leftOut) << one.text;
    }
}

TEST(NumberMarks, WhatIsTypedAndPastedIsStoredByThem) {
    const struct {
        const NumberMarks& marks;
        const char* typed;
        const char* pasted;
        const char* shown;
    } cases[] = {
        {american, "1234.56", "1,234.56", "1234.56"},
        {german, "1234,56", "1.234,56", "1234,56"},
        {french, "1234,56", "1\u202F234,56", "1234,56"},
        {french, "1 234,56", "1\u00A0234,56", "1234,56"},
        {swiss, "1234.56", "1\u2019234.56", "1234.56"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.typed);
        MarkScene scene(one.marks);
        for (const std::string id : {"txtTotalDebt", "txtEPSProj", "txtSales(10)", "txtYEPS(3)"}) {
            typeOver(scene, id, one.typed);
            EXPECT_EQ(textOf(scene, id), one.shown) << id;
        }
        EXPECT_EQ(scene.company().get_TotalDebt(), 1234.56);
        EXPECT_EQ(scene.company().get_ORBEPSProj(), 1234.56);
        EXPECT_EQ(elementOf(scene.company(), "YRevenueSeries", 0), 1234.56);
        EXPECT_EQ(elementOf(scene.company(), "YEPSSeries", 7), 1234.56);
        pasteOver(scene, "txtTotalDebt", "1");
        pasteOver(scene, "txtTotalDebt", one.pasted);
        EXPECT_EQ(scene.company().get_TotalDebt(), 1234.56);
    }
}

TEST(NumberMarks, WhereThePatternGroupsTheirPlacesDoNotCount) {
    MarkScene scene(german);
    scene.entry->put_NumberFormat("#,##0.00");
    scene.company().put_TotalDebt(1234.5);
    scene.load(scene.entry->get_objCompany());
    ASSERT_EQ(scene.text("txtTotalDebt"), "1.234,50");
    typeAt(scene, "txtTotalDebt", "{END}{LEFT 3}9{TAB}");
    EXPECT_EQ(scene.company().get_TotalDebt(), 12349.5);
    EXPECT_EQ(scene.text("txtTotalDebt"), "12.349,50");
}

TEST(NumberMarks, AnUntouchedFigureKeepsItsDigits) {
    MarkScene scene(german);
    scene.company().put_TotalDebt(1234.5678);
    scene.load(scene.entry->get_objCompany());
    typeAt(scene, "txtTotalDebt", "{TAB}");
    EXPECT_EQ(scene.text("txtTotalDebt"), "1234,57");
    EXPECT_EQ(scene.company().get_TotalDebt(), 1234.5678);
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// --- keys ----------------------------------------------------------------------------------------

TEST(NumberMarks, TheFilterTakesTheMarkAndNotTheOtherOne) {
    const struct {
        const NumberMarks& marks;
        const char* id;
        const char* keys;
        const char* text;
    } cases[] = {
        {american, "txtTotalDebt", "1,2.5.7", "12.57"},
        {german, "txtTotalDebt", "1.2,5,7", "12,57"},
        {french, "txtSales(10)", "1.2,5,7", "12,57"},
        {swiss, "txtSales(10)", "1,2.5.7", "12.57"},
        {german, "txtCurrentPrice", "3 1/8,5", "3 1/85"},
        {german, "txtCurrentPrice", "3,/", "3,"},
        {german, "txtName", "1.2,3", "1.2,3"},
        // Over a selection that holds the mark.
        {german, "txtTotalDebt", "1,2^a,5", ",5"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.keys);
        MarkScene scene(one.marks);
        typeAt(scene, one.id, "^a{DEL}" + std::string(one.keys));
        EXPECT_EQ(textOf(scene, one.id), one.text);
    }
}

TEST(NumberMarks, TheDecimalKeyOfTheKeypadAlwaysGivesTheMark) {
    for (const NumberMarks& marks : {american, german}) {
        MarkScene scene(marks);
        const std::string text = std::string("12") + marks.decimal + "5";
        for (const std::string id : {"txtTotalDebt", "txtSales(10)", "txtEPS(0)"}) {
            typeAt(scene, id, "^a{DEL}12{DECIMAL}5{DECIMAL}");
            EXPECT_EQ(textOf(scene, id), text) << id;
        }
        // Beyond figures it types what the keyboard has on it.
        typeAt(scene, "txtName", "^a{DEL}a{DECIMAL}b");
        EXPECT_EQ(textOf(scene, "txtName"), "a.b");
    }
}

// --- prices --------------------------------------------------------------------------------------

TEST(NumberMarks, PricesTurnIntoEighthsAndBack) {
    MarkScene scene(german);
    typeOver(scene, "txtCurrentPrice", "3,125");
    scene.entry->put_FractionDisplay(true);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "3 1/8");
    scene.entry->put_FractionDisplay(false);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "3,125");
    typeOver(scene, "txtCurrentPrice", "3 3/8");
    EXPECT_EQ(scene.text("txtCurrentPrice"), "3,375");
    EXPECT_EQ(scene.company().get_CurrentPrice(), 3.375);
    // What is being typed changes its form too.
    typeAt(scene, "txtCurrentPrice", "^a{DEL}4,5");
    scene.entry->put_FractionDisplay(true);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "4 1/2");
    scene.entry->put_FractionDisplay(false);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "4,5");
    scene.desktop.type("{TAB}");
    EXPECT_EQ(scene.company().get_CurrentPrice(), 4.5);
}

// --- a change of the marks -----------------------------------------------------------------------

TEST(NumberMarks, AChangeShowsAllFiguresAnewAndMarksNothingChanged) {
    MarkScene scene(american, fullCompany());
    scene.entry->put_UserMode(umDefault);
    scene.desktop.forget();
    std::vector<std::string> before;
    for (const auto* field : allFields(scene))
        before.push_back(field->text());
    scene.entry->put_NumberMarks(german);
    EXPECT_EQ(scene.desktop.propertyChanges(), std::vector<std::string>{"NumberMarks"});
    EXPECT_FALSE(scene.entry->get_blnDirty());
    std::size_t figures = 0;
    for (const auto* field : allFields(scene)) {
        figures += field->text().find(',') != std::string::npos ? 1U : 0U;
        EXPECT_EQ(field->text(), field->tag()) << field->id();
    }
    EXPECT_GT(figures, 100U);
    scene.entry->put_NumberMarks(american);
    std::size_t i = 0;
    for (const auto* field : allFields(scene))
        EXPECT_EQ(field->text(), before[i++]) << field->id();
    scene.desktop.forget();
    scene.entry->put_NumberMarks(american);
    EXPECT_TRUE(scene.desktop.propertyChanges().empty());
}

TEST(NumberMarks, AChangeLeavesTextsAndDatesThatAreBeingTypedAlone) {
    for (const char* id : {"txtName", "txtNotes", "txtLastUpdate"}) {
        MarkScene scene(american);
        test::typeAt(scene, id, "^a{DEL}1.5,2");
        scene.entry->put_NumberMarks(german);
        EXPECT_EQ(textOf(scene, id), "1.5,2") << id;
    }
}

TEST(NumberMarks, AChangeKeepsAFigureThatIsBeingTyped) {
    for (const std::string id : {"txtTotalDebt", "txtCurrentPrice", "txtSales(10)"}) {
        SCOPED_TRACE(id);
        MarkScene scene(american);
        goTo(scene, id);
        const std::string stored = textOf(scene, id);
        scene.desktop.type("^a{DEL}12.5+{HOME}");
        const auto& field = dynamic_cast<const TextField&>(*scene.form().activeControl());
        scene.entry->put_NumberMarks(german);
        EXPECT_EQ(textOf(scene, id), "12,5");
        EXPECT_EQ(field.selText(), "12,5") << "all of it, as before";
        scene.desktop.type("{END}");
        scene.entry->put_NumberMarks(american);
        EXPECT_EQ(field.selStart(), 4);
        scene.entry->put_NumberMarks(german);
        EXPECT_FALSE(scene.entry->get_blnDirty());
        scene.desktop.type("{TAB}");
        EXPECT_TRUE(scene.entry->get_blnDirty());
        EXPECT_EQ(
            numericValue(
                cleanNumericText(textOf(scene, id), NumericKind::PlainNumber, 0, german).text),
            12.5);
    }
}

TEST(NumberMarks, EscapeGoesBackBeyondAChange) {
    MarkScene scene(american);
    scene.company().put_TotalDebt(7.25);
    scene.load(scene.entry->get_objCompany());
    typeAt(scene, "txtTotalDebt", "^a{DEL}12.5");
    scene.entry->put_NumberMarks(german);
    scene.desktop.type("{ESC}");
    EXPECT_EQ(scene.text("txtTotalDebt"), "7,25");
    scene.desktop.type("{TAB}");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(NumberMarks, ARefusedTextIsTriedAgainAsTheFigureItWas) {
    MarkScene scene(american);
    typeOver(scene, "txtEPSProj", "1.5e4");
    pasteOver(scene, "txtEPSProj", "1.5e400");
    ASSERT_FALSE(markOf(scene, "txtEPSProj").empty());
    scene.entry->put_NumberMarks(german);
    EXPECT_EQ(scene.text("txtEPSProj"), "1,5e400");
    EXPECT_FALSE(markOf(scene, "txtEPSProj").empty());
    EXPECT_EQ(scene.entry->unstoredFields().size(), 1U);
    typeAt(scene, "txtEPSProj", "{END}{BS}{BS}{TAB}");
    EXPECT_EQ(scene.text("txtEPSProj"), "15000,00");
    EXPECT_TRUE(markOf(scene, "txtEPSProj").empty());
}

TEST(NumberMarks, RecordAndPatternsKeepThePoint) {
    MarkScene scene(german);
    EXPECT_EQ(scene.entry->get_NumberFormat(), "#0.00");
    typeOver(scene, "txtEPSProj", "1,25");
    EXPECT_EQ(readDatum(scene.company(), Datum::ORBEPSProj).toText(), "1.25");
    EXPECT_EQ(DecimalToFraction("3.125", false), "3 1/8");
    EXPECT_EQ(FractionToDecimal("3 1/8"), "3.125");
}

} // namespace
} // namespace vkr
