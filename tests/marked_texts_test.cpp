// SPDX-License-Identifier: MIT
#include "tests/support/failing_memory.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

// A text that was refused, or taken in part, stays with its figure, whatever the form comes to
// show.
struct MarkedTexts : testing::Test {
    using Names = std::vector<std::string>;

    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany();
    std::shared_ptr<ScriptedRecord> record = std::make_shared<ScriptedRecord>(company);

    MarkedTexts() { scene.load(record); }

    // "txtSales(9)=1e400" for every field whose text is not stored, those in doubt behind them.
    [[nodiscard]] Names marked() const {
        Names names;
        for (const auto& fields : {scene.entry->unstoredFields(), scene.entry->doubtfulFields()})
            for (const auto& field : fields)
                names.push_back(field.control + "=" + field.text);
        return names;
    }
    void choose(std::string_view option) {
        scene.entry->put_CurrentTab(toOptions);
        desktop.click(option);
    }
    void press(std::string_view button, MessageAnswer answer = MessageAnswer::yes) {
        scene.entry->put_CurrentTab(button == "cmdAddQuarter" ? toQuarterly : toYearly);
        desktop.answerNext(answer);
        desktop.click(button);
    }
    void spin(int steps) {
        scene.entry->put_CurrentTab(toQuarterly);
        desktop.spin("spnQuarter", steps);
    }
    void leaveAgain(std::string_view id) {
        goTo(scene, id);
        desktop.type("{TAB}");
    }
};

constexpr const char* thousands = "optCurrency(0)";
constexpr const char* millions = "optCurrency(1)";

// --- the unit ------------------------------------------------------------------------------------

TEST_F(MarkedTexts, OutliveAnotherUnitAndSayWhichOneTheyWereTypedIn) {
    company->put_TotalCap(40);
    putElement(*company, "YRevenueSeries", 1, 900);
    scene.load(record);
    pasteOver(scene, "txtTotalCap", "-5");
    pasteOver(scene, "txtSales(9)", "1e400");
    pasteOver(scene, "txtHigh(9)", "1e400"); // no amount
    const std::string negative = "A negative figure makes no sense here and was not stored.";
    const std::string large = "This number is too large and was not stored.";
    const std::string units = " It was typed in (M). Type it anew in ";
    const Names texts{"txtTotalCap=-5", "txtSales(9)=1e400", "txtHigh(9)=1e400"};
    struct {
        const char* unit;
        std::string told;
    } steps[] = {{thousands, units + "(K)."},
                 {"optCurrency(2)", units + "(B)."},
                 {millions, ""},
                 {thousands, units + "(K)."}};
    for (const auto& step : steps) {
        SCOPED_TRACE(step.unit);
        choose(step.unit);
        EXPECT_EQ(marked(), texts);
        EXPECT_EQ(markOf(scene, "txtTotalCap"), negative + step.told);
        EXPECT_EQ(markOf(scene, "txtSales(9)"), large + step.told);
        EXPECT_EQ(markOf(scene, "txtHigh(9)"), large);
    }
    for (const char* id : {"txtTotalCap", "txtSales(9)"}) {
        typeOver(scene, id, "7");
        EXPECT_EQ(markOf(scene, id), "");
        EXPECT_EQ(textOf(scene, id), "7.00");
    }
    EXPECT_EQ(company->get_TotalCap(), 0.007);
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 0.007);
}

TEST_F(MarkedTexts, AreNotReadInAnotherUnitThanTheyWereTypedIn) {
    record->failing = {"write TotalDebt", "write YRevenueSeries"};
    typeOver(scene, "txtTotalDebt", "900");
    typeOver(scene, "txtSales(9)", "900");
    record->failing.clear();
    choose(thousands);
    leaveAgain("txtTotalDebt");
    leaveAgain("txtSales(9)");
    EXPECT_EQ(company->get_TotalDebt(), 0);
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 0);
    EXPECT_EQ(marked(), (Names{"txtTotalDebt=900", "txtSales(9)=900"}));
    typeOver(scene, "txtTotalDebt", "900000");
    EXPECT_EQ(company->get_TotalDebt(), 900);
    choose(millions);
    leaveAgain("txtSales(9)"); // tried again, as it was meant
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 900);
    EXPECT_EQ(marked(), Names{});
}

TEST_F(MarkedTexts, ThatTookThePlaceOfOneOfAnotherUnitAreTriedAgain) {
    for (const char* id : {"txtTotalDebt", "txtSales(9)"}) {
        SCOPED_TRACE(id);
        const auto stored = [&] {
            return std::string_view(id) == "txtTotalDebt"
                       ? company->get_TotalDebt()
                       : elementOf(*company, "YRevenueSeries", 1);
        };
        const std::set<std::string, std::less<>> refusing = {"write TotalDebt",
                                                             "write YRevenueSeries"};
        choose(millions);
        record->failing = refusing;
        typeOver(scene, id, "900");
        choose(thousands);
        record->failing.clear();
        typeOver(scene, id, "200");
        EXPECT_EQ(stored(), 0.2);
        record->failing = refusing;
        typeOver(scene, id, "300");
        EXPECT_EQ(marked(), Names{std::string(id) + "=300"});
        record->failing.clear();
        leaveAgain(id);
        EXPECT_EQ(stored(), 0.3);
        EXPECT_EQ(marked(), Names{});
    }
}

TEST_F(MarkedTexts, InDoubtAreShownInTheUnitAndSayWhatTheySaid) {
    pasteOver(scene, "txtTotalDebt", "1.5M");
    pasteOver(scene, "txtSales(9)", "1.5M");
    pasteOver(scene, "txtEPS(1)", "1.5M");
    choose(thousands);
    EXPECT_EQ(marked(), (Names{"txtTotalDebt=1500.00", "txtSales(9)=1500.00", "txtEPS(1)=1.50"}));
    EXPECT_EQ(markOf(scene, "txtSales(9)"), "Taken as 1.50; \"M\" was left out.");
    goTo(scene, "txtSales(9)");
    desktop.type("~");
    goTo(scene, "txtTotalDebt");
    desktop.type("^a2");
    EXPECT_EQ(marked(), Names{"txtEPS(1)=1.50"});
}

TEST_F(MarkedTexts, KnowTheUnitAlsoWhereTheHostChangesIt) {
    record->failing = {"write TotalDebt", "write YRevenueSeries"};
    typeOver(scene, "txtTotalDebt", "900");
    typeOver(scene, "txtSales(9)", "900");
    typeOver(scene, "txtSales(8)", "5");
    record->failing.clear();
    company->get_Settings()->put(setting::unit, 3);
    scene.entry->recordChanged();
    leaveAgain("txtTotalDebt");
    leaveAgain("txtSales(9)");
    EXPECT_EQ(company->get_TotalDebt(), 0);
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 0);
    EXPECT_EQ(markOf(scene, "txtSales(9)"),
              "This value could not be stored. write YRevenueSeries fails It was typed in (M). "
              "Type it anew in (K).");
}

TEST_F(MarkedTexts, AreThoseThatAreBeingTypedWhenTheHostChangesTheUnit) {
    const auto setUnit = [&](int unit) {
        company->get_Settings()->put(setting::unit, unit);
        scene.entry->recordChanged();
    };
    for (const char* id : {"txtTotalDebt", "txtTotalCap", "txtSales(9)", "txtSales(0)",
                           "txtYOption(9)", "txtRevenue(1)"}) {
        SCOPED_TRACE(id);
        const auto before = company->clone();
        const auto changed = [&] {
            auto names = changedData(*before, *company);
            std::erase(names, "intUnit");
            return names;
        };
        setUnit(6);
        typeAt(scene, id, "^a90");
        setUnit(3);
        EXPECT_EQ(marked(), Names{std::string(id) + "=90"});
        EXPECT_EQ(markOf(scene, id),
                  "This value could not be stored. It was typed in (M). Type it anew in (K).");
        // Who looks at the keys goes on in the unit that was there before.
        desktop.type("{BACKSPACE}00{TAB}");
        EXPECT_EQ(marked(), Names{std::string(id) + "=900"});
        leaveAgain(id);
        EXPECT_EQ(marked(), Names{std::string(id) + "=900"});
        EXPECT_EQ(changed(), Names{});
        typeAt(scene, id, "{END}000{TAB}"); // another entry, in the unit of now
        EXPECT_EQ(marked(), Names{});
        EXPECT_EQ(textOf(scene, id), "900000.00");
        EXPECT_EQ(changed().size(), 1U);
        setUnit(6);
        EXPECT_EQ(textOf(scene, id), "900.00");
    }
}

TEST_F(MarkedTexts, ThatWereBeingTypedAreStoredWithTheirUnitBack) {
    typeAt(scene, "txtSales(9)", "^a90");
    for (const int unit : {3, 9, 6}) {
        company->get_Settings()->put(setting::unit, unit);
        scene.entry->recordChanged();
        EXPECT_EQ(marked(), Names{"txtSales(9)=90"});
    }
    desktop.type("0{TAB}");
    EXPECT_EQ(marked(), Names{});
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 900);
}

TEST_F(MarkedTexts, ThatWereBeingTypedEndWithEscapeAndWithAnEmptyField) {
    putElement(*company, "YRevenueSeries", 1, 40);
    putElement(*company, "YRevenueSeries", 2, 50);
    scene.load(record);
    typeAt(scene, "txtSales(9)", "^a90");
    company->get_Settings()->put(setting::unit, 3);
    scene.entry->recordChanged();
    desktop.type("{ESC}");
    EXPECT_EQ(scene.text("txtSales", 9), "40000.00");
    desktop.type("{TAB}");
    EXPECT_EQ(marked(), Names{});
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 1), 40);
    typeAt(scene, "txtSales(8)", "^a90");
    company->get_Settings()->put(setting::unit, 6);
    scene.entry->recordChanged();
    desktop.type("^a{DEL}{TAB}"); // nothing is nothing in every unit
    EXPECT_EQ(marked(), Names{});
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 2), 0);
}

TEST_F(MarkedTexts, ThatWereTakenBackLeaveNoUnitBehind) {
    company->put_TotalDebt(40);
    scene.load(record);
    typeAt(scene, "txtTotalDebt", "^a90");
    company->get_Settings()->put(setting::unit, 3);
    scene.entry->recordChanged();
    desktop.type("{ESC}{TAB}");
    record->failing = {"write TotalDebt"};
    typeOver(scene, "txtTotalDebt", "900");
    record->failing.clear();
    leaveAgain("txtTotalDebt"); // typed in the unit of now
    EXPECT_EQ(company->get_TotalDebt(), 0.9);
    EXPECT_EQ(marked(), Names{});
}

TEST_F(MarkedTexts, AreNoneWhereTheUnitMakesNoDifference) {
    typeAt(scene, "txtYEPS(9)", "^a1.5");
    company->get_Settings()->put(setting::unit, 3);
    scene.entry->recordChanged();
    desktop.type("{TAB}");
    typeAt(scene, "txtEPS(1)", "^a2.5");
    company->get_Settings()->put(setting::unit, 9);
    scene.entry->recordChanged();
    desktop.type("{TAB}");
    EXPECT_EQ(marked(), Names{});
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 1.5);
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 1), 2.5);
}

// --- the rows of a pair --------------------------------------------------------------------------

TEST_F(MarkedTexts, WaitWhereTheirRowIsSwitchedAway) {
    pasteOver(scene, "txtYOption(9)", "1e400");
    pasteOver(scene, "txtYOption2(3)", "1e400");
    pasteOver(scene, "txtQOption(1)", "12.5x");
    choose("optPTI(1)");
    choose("optCommEq(1)");
    EXPECT_EQ(markOf(scene, "txtYOption(9)"), "");
    EXPECT_EQ(textOf(scene, "txtYOption2(3)"), "");
    const auto unstored = scene.entry->unstoredFields();
    ASSERT_EQ(unstored.size(), 2U);
    EXPECT_EQ(unstored[0].control, "YPTISeries(1)");
    EXPECT_EQ(unstored[0].label, "Pre-Tax Income (M) 2025");
    EXPECT_EQ(unstored[0].text, "1e400");
    EXPECT_EQ(unstored[0].reason, "This number is too large and was not stored.");
    EXPECT_EQ(unstored[1].label, "Common Equity (M) 2019");
    ASSERT_EQ(scene.entry->doubtfulFields().size(), 1U);
    EXPECT_EQ(scene.entry->doubtfulFields()[0].label, "Pre-Tax Income (M) 6/30/2026");
    // A text of the other row stays beside it.
    pasteOver(scene, "txtYOption(9)", "2e400");
    choose("optPTI(0)");
    choose("optCommEq(0)");
    EXPECT_EQ(marked(), (Names{"txtYOption(9)=1e400", "txtYOption2(3)=1e400",
                               "YTaxRateSeries(1)=2e400", "txtQOption(1)=12.50"}));
    EXPECT_EQ(scene.entry->unstoredFields()[2].label, "Tax Rate (%) 2025");
}

TEST_F(MarkedTexts, ThatWaitAreCalledWithTheUnitOfTheirSeries) {
    const auto label = [&] {
        const auto fields = scene.entry->unstoredFields();
        return fields.size() == 1 ? fields[0].label : std::to_string(fields.size());
    };
    const struct {
        const char* cell;
        const char* row;
        const char* other;
        const char* label;
    } cases[] = {{"txtYOption(9)", "optPTI(1)", "optPTI(0)", "Tax Rate (%) 2025"},
                 {"txtYOption(9)", "optPTI(0)", "optPTI(1)", "Pre-Tax Income (M) 2025"},
                 {"txtYOption2(9)", "optCommEq(1)", "optCommEq(0)", "Book Value 2025"},
                 {"txtYOption2(9)", "optCommEq(0)", "optCommEq(1)", "Common Equity (M) 2025"}};
    for (const auto& one : cases) {
        choose(one.row);
        pasteOver(scene, one.cell, "1e400");
        choose(one.other);
        EXPECT_EQ(label(), one.label);
        choose(one.row);
        typeOver(scene, one.cell, "");
        EXPECT_EQ(label(), "0");
    }
}

TEST_F(MarkedTexts, ThatWaitAreLedToByTheirRow) {
    pasteOver(scene, "txtYOption(9)", "1e400");
    pasteOver(scene, "txtYOption2(3)", "1e400");
    pasteOver(scene, "txtQOption(1)", "1e400");
    for (const auto& [option, way, cell] :
         {std::tuple{"optPTI(1)", "YPTISeries(1)", "txtYOption(9)"},
          std::tuple{"optCommEq(1)", "YCommEqSeries(7)", "txtYOption2(3)"},
          std::tuple{"optPTI(1)", "QPTISeries(1)", "txtQOption(1)"}}) {
        SCOPED_TRACE(way);
        choose(option);
        scene.entry->showField(way);
        EXPECT_EQ(desktop.focusedId(), cell);
        EXPECT_EQ(textOf(scene, cell), "1e400");
        EXPECT_NE(markOf(scene, cell), "");
        desktop.type("^a5{TAB}");
    }
    EXPECT_EQ(elementOf(*company, "YPTISeries", 1), 5);
    EXPECT_EQ(elementOf(*company, "YCommEqSeries", 7), 5);
    EXPECT_EQ(elementOf(*company, "QPTISeries", 1), 5);
    EXPECT_EQ(marked(), Names{});
}

TEST_F(MarkedTexts, ThatWaitTogetherAreLedToByTheirNames) {
    for (const char* cell : {"txtYOption(9)", "txtYOption(8)", "txtQOption(1)"})
        pasteOver(scene, cell, "1e400");
    for (const auto& [way, cell] : {std::pair{"YPTISeries(2)", "txtYOption(8)"},
                                    std::pair{"QPTISeries(1)", "txtQOption(1)"}}) {
        choose("optPTI(1)");
        scene.entry->showField(way);
        EXPECT_EQ(desktop.focusedId(), cell);
    }
}

TEST_F(MarkedTexts, KeepTheirUnitWhileTheyWait) {
    record->failing = {"write YPTISeries"};
    typeOver(scene, "txtYOption(9)", "900");
    record->failing.clear();
    choose("optPTI(1)");
    choose(thousands);
    EXPECT_NE(scene.entry->unstoredFields().at(0).reason.find("typed in (M)"), std::string::npos);
    choose("optPTI(0)");
    leaveAgain("txtYOption(9)");
    EXPECT_EQ(marked(), Names{"txtYOption(9)=900"});
    EXPECT_EQ(elementOf(*company, "YPTISeries", 1), 0);
}

TEST_F(MarkedTexts, InDoubtGoWithTheFigureThatTheyAreAbout) {
    typeOver(scene, "txtYNetInc(9)", "75");
    pasteOver(scene, "txtYOption(9)", "100M");
    choose("optPTI(1)");
    EXPECT_EQ(marked(), Names{"YPTISeries(1)=100.00"});
    typeOver(scene, "txtYOption(9)", "50");
    (void)scene.entry->get_objCompany(); // pre-tax income follows: 150
    choose("optPTI(0)");
    EXPECT_EQ(scene.text("txtYOption", 9), "150.00");
    EXPECT_EQ(marked(), Names{});
}

TEST_F(MarkedTexts, StandInNoOtherRowWhereTheHostSwitchesThem) {
    pasteOver(scene, "txtYOption(9)", "1e400");
    company->get_Settings()->put(setting::taxRate, true);
    scene.entry->recordChanged();
    EXPECT_EQ(textOf(scene, "txtYOption(9)"), "");
    EXPECT_EQ(marked(), Names{"YPTISeries(1)=1e400"});
    company->get_Settings()->put(setting::taxRate, false);
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names{"txtYOption(9)=1e400"});
}

// --- years ---------------------------------------------------------------------------------------

TEST_F(MarkedTexts, GoWithTheirYear) {
    pasteOver(scene, "txtSales(9)", "1e400");
    pasteOver(scene, "txtYEPS(9)", "1.5M");
    pasteOver(scene, "txtYOption(9)", "1e400");
    choose("optPTI(1)");
    press("cmdAddYear", MessageAnswer::no);
    EXPECT_EQ(marked(), (Names{"txtSales(9)=1e400", "YPTISeries(1)=1e400", "txtYEPS(9)=1.50"}));
    press("cmdAddYear");
    EXPECT_EQ(marked(), (Names{"txtSales(8)=1e400", "YPTISeries(2)=1e400", "txtYEPS(8)=1.50"}));
    EXPECT_EQ(textOf(scene, "txtSales(9)"), "");
    EXPECT_EQ(scene.entry->unstoredFields()[1].label, "Pre-Tax Income (M) 2025");
    press("cmdRemoveYear");
    EXPECT_EQ(marked(), (Names{"txtSales(9)=1e400", "YPTISeries(1)=1e400", "txtYEPS(9)=1.50"}));
}

TEST_F(MarkedTexts, StayInTheirRowWhereTheYearComes) {
    record->failing = {"read LastFY"};
    scene.load(record);
    pasteOver(scene, "txtSales(9)", "1e400");
    ASSERT_EQ(scene.text("txtLastFY"), "");
    record->failing.clear();
    scene.entry->recordChanged();
    EXPECT_EQ(scene.text("txtLastFY"), "2025");
    EXPECT_EQ(marked(), Names{"txtSales(9)=1e400"});
    company->put_LastFY(9999); // which is none
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names{"txtSales(9)=1e400"});
}

TEST_F(MarkedTexts, ThatWaitWithoutAYearAreCalledWithoutOne) {
    company->put_LastFY(9999);
    scene.load(record);
    pasteOver(scene, "txtYOption(9)", "1e400");
    choose("optPTI(1)");
    ASSERT_EQ(scene.entry->unstoredFields().size(), 1U);
    EXPECT_EQ(scene.entry->unstoredFields()[0].label, "Pre-Tax Income (M)");
}

TEST_F(MarkedTexts, OfAYearThatDropsOutGoWithIt) {
    pasteOver(scene, "txtSales(0)", "1e400");
    pasteOver(scene, "txtYOption(0)", "1e400");
    choose("optPTI(1)");
    press("cmdAddYear");
    EXPECT_EQ(marked(), Names{}); // also those of a row that is not on show
    choose("optPTI(0)");
    EXPECT_EQ(marked(), Names{});
    press("cmdRemoveYear");
    EXPECT_EQ(marked(), Names{});
    EXPECT_EQ(textOf(scene, "txtSales(0)"), "");
    pasteOver(scene, "txtYOption2(10)", "1e400");
    choose("optCommEq(1)");
    press("cmdRemoveYear");
    EXPECT_EQ(marked(), Names{});
}

TEST_F(MarkedTexts, StayWithFiguresThatCouldNotBeMoved) {
    pasteOver(scene, "txtSales(9)", "1e400");
    pasteOver(scene, "txtYNetInc(9)", "1e400");
    record->failing = {"write YRevenueSeries"};
    press("cmdAddYear");
    EXPECT_EQ(marked(), (Names{"txtSales(9)=1e400", "txtYNetInc(8)=1e400"}));
}

// --- quarters ------------------------------------------------------------------------------------

TEST_F(MarkedTexts, GoWithTheirQuarter) {
    pasteOver(scene, "txtRevenue(0)", "1e400");
    pasteOver(scene, "txtEPS(1)", "1.5M");
    press("cmdAddQuarter");
    EXPECT_EQ(marked(), (Names{"txtRevenue(1)=1e400", "txtEPS(2)=1.50"}));
    spin(-2);
    EXPECT_EQ(marked(), (Names{"QRevenueSeries(1)=1e400", "txtEPS(0)=1.50"}));
    EXPECT_EQ(scene.entry->unstoredFields()[0].label, "Revenue (M) 9/30/2026");
    EXPECT_EQ(textOf(scene, "txtRevenue(0)"), "");
    scene.entry->showField("QRevenueSeries(1)");
    EXPECT_EQ(desktop.focusedId(), "txtRevenue(0)"); // as near as it gets
    spin(2);
    EXPECT_EQ(marked(), (Names{"txtRevenue(1)=1e400", "txtEPS(2)=1.50"}));
    leaveAgain("txtRevenue(1)");
    typeOver(scene, "txtRevenue(1)", "7");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 7);
    EXPECT_EQ(marked(), Names{"txtEPS(2)=1.50"});
}

TEST_F(MarkedTexts, WaitWhereTheirRowIsTakenAway) {
    pasteOver(scene, "txtRevenue(0)", "1e400");
    pasteOver(scene, "txtRevenue(5)", "1e400");
    pasteOver(scene, "txtEPS(6)", "1.5M");
    const std::string doubt = markOf(scene, "txtEPS(6)");
    ASSERT_NE(doubt, "");
    scene.entry->put_VisibleQuarters(2);
    EXPECT_EQ(marked(),
              (Names{"txtRevenue(0)=1e400", "QRevenueSeries(5)=1e400", "QEPSSeries(6)=1.50"}));
    scene.entry->put_VisibleQuarters(12);
    EXPECT_EQ(marked(), (Names{"txtRevenue(0)=1e400", "txtRevenue(5)=1e400", "txtEPS(6)=1.50"}));
    EXPECT_EQ(markOf(scene, "txtEPS(6)"), doubt);
}

TEST_F(MarkedTexts, WaitForTheirQuarterWhereTheHostAddsOnes) {
    pasteOver(scene, "txtRevenue(0)", "1e400");
    spin(-1);
    company->put_LastQDate(*makeDate(2026, 12, 31));
    company->put_LastQDateForGrid(*makeDate(2026, 12, 31));
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names{"txtRevenue(1)=1e400"});
    EXPECT_EQ(scene.form().get<Label>("lblQLabel", 1).caption(), "9/30/2026");
}

TEST_F(MarkedTexts, AreThoseThatAreBeingTypedWhenTheHostMovesTheQuarters) {
    spin(-2);
    typeAt(scene, "txtRevenue(3)", "^a90");
    company->put_LastQDate(*makeDate(2025, 12, 31));
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names{"txtRevenue(2)=90"});
    typeOver(scene, "txtRevenue(2)", "7");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 5), 7);
    EXPECT_EQ(marked(), Names{});
    typeAt(scene, "txtRevenue(0)", "^a90");
    company->put_LastQDate(*makeDate(2025, 9, 30));
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names{"QRevenueSeries(3)=90"});
    spin(1);
    EXPECT_EQ(marked(), Names{"txtRevenue(0)=90"});
}

TEST_F(MarkedTexts, GoOnToTheirRowWhereNoneIsLeftInTheirPlace) {
    pasteOver(scene, "txtRevenue(0)", "1e400");
    company->put_LastQDate(*makeDate(2026, 12, 31)); // a quarter without figures on top
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names{"txtRevenue(1)=1e400"});
}

TEST_F(MarkedTexts, StayInTheirRowWhereTheDateComesAndGoes) {
    record->failing = {"read LastQDate", "read LastQDateForGrid"};
    scene.load(record);
    pasteOver(scene, "txtRevenue(1)", "1e400");
    const Names texts{"txtRevenue(1)=1e400"};
    ASSERT_EQ(marked(), texts);
    for (const bool dated : {true, false}) {
        if (dated)
            record->failing.clear();
        else
            record->failing = {"read LastQDate", "read LastQDateForGrid"};
        scene.entry->recordChanged();
        EXPECT_EQ(scene.form().get<Label>("lblQLabel", 0).caption() != "", dated);
        EXPECT_EQ(marked(), texts) << dated;
        EXPECT_NE(markOf(scene, "txtRevenue(1)"), "") << dated;
    }
}

// --- what ends them ------------------------------------------------------------------------------

TEST_F(MarkedTexts, OfAnotherRecordAreNone) {
    pasteOver(scene, "txtYOption(9)", "1e400");
    pasteOver(scene, "txtRevenue(5)", "1e400");
    pasteOver(scene, "txtQOption(1)", "1e400");
    pasteOver(scene, "txtTotalCap", "-5");
    choose("optPTI(1)");
    scene.load(datedCompany());
    EXPECT_EQ(marked(), Names{});
    choose("optPTI(0)");
    EXPECT_EQ(marked(), Names{});
    pasteOver(scene, "txtYOption(9)", "1e400");
    choose("optPTI(1)");
    scene.entry->Clear();
    EXPECT_EQ(marked(), Names{});
}

TEST_F(MarkedTexts, OfAnotherRecordLeaveNoUnitBehind) {
    typeAt(scene, "txtTotalDebt", "^a90");
    company->get_Settings()->put(setting::unit, 3);
    scene.entry->recordChanged();
    const auto other = datedCompany(3);
    scene.load(other);
    typeAt(scene, "txtTotalDebt", "^a90");
    other->get_Settings()->put(setting::unit, 9);
    scene.entry->recordChanged();
    EXPECT_EQ(markOf(scene, "txtTotalDebt"),
              "This value could not be stored. It was typed in (K). Type it anew in (B).");
}

TEST_F(MarkedTexts, ThatAreEmptyAreNoneOnceNothingIsStored) {
    putElement(*company, "YRevenueSeries", 1, 900);
    scene.load(record);
    record->failing = {"write YRevenueSeries"};
    goTo(scene, "txtSales(9)");
    desktop.type("^a{DEL}{TAB}");
    record->failing.clear();
    ASSERT_EQ(marked(), Names{"txtSales(9)="});
    putElement(*company, "YRevenueSeries", 1, 0);
    scene.entry->recordChanged();
    EXPECT_EQ(marked(), Names());
}

// Where a cell is entered whose series can't be read for a moment, its text waits.
TEST_F(MarkedTexts, ThatWaitGiveWayToWhatIsPutIntoTheirCell) {
    company->get_Settings()->put(setting::unit, 3);
    for (const auto& [keys, figure] : {std::pair{"5{TAB}", 5}, {"+{DOWN}{DEL}", 0}}) {
        SCOPED_TRACE(keys);
        putElement(*company, "QEPSSeries", 0, 4);
        scene.load(record);
        pasteOver(scene, "txtEPS(0)", "1e400");
        goTo(scene, "txtRevenue(0)");
        record->failing = {"read QEPSSeries"};
        goTo(scene, "txtEPS(0)");
        EXPECT_EQ(marked(), Names{"QEPSSeries(0)=1e400"});
        record->failing.clear();
        desktop.type(keys);
        EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), figure);
        EXPECT_EQ(marked(), Names{});
    }
}

TEST_F(MarkedTexts, AreToldOnceHoweverMemoryFailsWhereTheyAreShownAnew) {
    bool failed = true;
    for (int round = 1; failed; round += 1 + round / 8) {
        SCOPED_TRACE(round);
        pasteOver(scene, "txtSales(9)", "1e400");
        {
            const FailingMemory memory(round);
            scene.entry->recordChanged();
            failed = memory.hasFailed();
        }
        ASSERT_EQ(marked().size(), 1U);
        const auto& cell = scene.field("txtSales", 9);
        const bool isMarked = cell.isUnstored(); // else it waits
        const bool isShown = cell.enabled();
        if (isShown)
            typeAt(scene, "txtSales(9)", "^a5");
        scene.entry->recordChanged();
        ASSERT_EQ(marked(), isMarked  ? Names{"txtSales(9)=5"}
                            : isShown ? Names{}
                                      : Names{"txtSales(9)=1e400"});
        typeOver(scene, "txtSales(9)", "");
        ASSERT_EQ(marked(), Names{});
    }
}

TEST_F(MarkedTexts, OfAnotherRecordAreNoneHoweverMemoryFailsWhereItComes) {
    const auto other = datedCompany();
    bool failed = true;
    for (int round = 1; failed; round += 1 + round / 8) {
        SCOPED_TRACE(round);
        scene.load(record);
        pasteOver(scene, "txtSales(9)", "1e400");
        pasteOver(scene, "txtRevenue(1)", "1e400");
        {
            const FailingMemory memory(round);
            scene.load(other);
            failed = memory.hasFailed();
        }
        ASSERT_EQ(marked(), Names{});
        scene.load(other);
        ASSERT_EQ(marked(), Names{});
    }
}

TEST_F(MarkedTexts, GiveWayToWhatTakesTheirPlace) {
    pasteOver(scene, "txtSales(9)", "1e400");
    pasteOver(scene, "txtSales(8)", "1.5M");
    goTo(scene, "txtSales(8)");
    desktop.type("+{DOWN}{DEL}");
    EXPECT_EQ(marked(), Names{});
    choose(thousands);
    press("cmdAddYear");
    EXPECT_EQ(marked(), Names{});
}

} // namespace
} // namespace vkr
