// SPDX-License-Identifier: MIT
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"
#include "yearly/yearly_grid.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

struct YearSpan : testing::Test {
    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany();

    void load(int year = 2005) {
        company->put_LastFY(static_cast<std::int16_t>(year));
        company->put_LastFYDate(*makeDate(year, 12, 31));
        // Each figure names its year.
        for (const auto& row : datumTable())
            if (isSeries(row) && isYearly(row.datum)) {
                Variant series = readSeries(*company, row.datum);
                for (int i = 0; i <= 10; ++i)
                    series.array().setNumber(i, year + 1 - i);
                writeSeries(*company, row.datum, series);
            }
        scene.load(company);
        desktop.clickTab(toYearly);
    }
    void press(const char* button, MessageAnswer answer) {
        desktop.answerNext(answer);
        desktop.click(button);
    }
    [[nodiscard]] std::string label(int row) const {
        return scene.form().get<Label>("lblYear", row).caption();
    }
    [[nodiscard]] Color back(std::string_view name, int row) const {
        return desktop.control(name, row).backColor();
    }
    // "8 9" for the cells of a column that have a colour.
    [[nodiscard]] std::string shaded(std::string_view cells, Color color) const {
        std::string rows;
        for (int row = 0; row < YearlyGrid::rows; ++row)
            if (back(cells, row) == color)
                rows += (rows.empty() ? "" : " ") + std::to_string(row);
        return rows;
    }
};

// --- adding and removing -------------------------------------------------------------------------

TEST_F(YearSpan, AddingNamesTheYearThatLeavesAndKeepsEveryFigureInItsYear) {
    load();
    press("cmdAddYear", MessageAnswer::yes);
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].text,
              "Adding a new year removes the oldest one: the figures of 1996 will leave the table."
              "\rDo you want to go on?");
    EXPECT_EQ(desktop.messages()[0].buttons, 260);
    EXPECT_EQ(desktop.messages()[0].title, "VKRDataEntry");
    EXPECT_EQ(scene.text("txtLastFY"), "2006");
    EXPECT_EQ(scene.field("txtLastFY").tag(), "2006");
    EXPECT_EQ(scene.text("txtDateofLastFY"), "Dec/31/2006");
    EXPECT_EQ(company->get_LastFY(), 2006);
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2006, 12, 31));
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(label(0), "1997");
    EXPECT_EQ(label(10), "2007");
    for (const auto& column : yearlyColumns()) {
        if (column.choice != ColumnChoice::none)
            continue;
        for (int row = 0; row < 10; ++row)
            EXPECT_EQ(scene.text(column.cells.name, row).substr(0, 4), label(row))
                << column.cells.name;
        EXPECT_EQ(scene.text(column.cells.name, 10), "");
        const Variant series = readSeries(*company, column.usual.series);
        EXPECT_EQ(series.array().number(0), 0);
        EXPECT_EQ(series.array().number(1), 2006) << "the year after has become the last one";
        EXPECT_EQ(series.array().number(10), 1997);
    }
}

TEST_F(YearSpan, RemovingNamesTheNewestYearAndAddingAgainRestoresIt) {
    load();
    press("cmdRemoveYear", MessageAnswer::yes);
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].text,
              "This removes the newest year: the figures of 2005 will leave the table."
              "\rDo you want to go on?");
    EXPECT_EQ(desktop.messages()[0].buttons, 260);
    EXPECT_EQ(scene.text("txtLastFY"), "2004");
    EXPECT_EQ(scene.text("txtDateofLastFY"), "Dec/31/2004");
    EXPECT_EQ(label(0), "1995");
    EXPECT_EQ(label(10), "2005");
    for (int row = 1; row <= 10; ++row)
        EXPECT_EQ(scene.text("txtYEPS", row), label(row) + ".00");
    EXPECT_EQ(scene.text("txtYEPS", 0), "");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 0), 2005);
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_EQ(scene.text("txtYEPS", 9), "2005.00");
    EXPECT_EQ(label(9), "2005");
}

TEST_F(YearSpan, BothSeriesOfAPairMoveWhicheverIsOnShow) {
    load();
    for (const char* series : {"YNetIncSeries", "YCSOSeries", "YBookValSeries"})
        for (int i = 0; i <= 10; ++i) // nothing to derive the hidden ones from
            putElement(*company, series, i, 0);
    press("cmdAddYear", MessageAnswer::yes);
    for (const char* series : {"YPTISeries", "YTaxRateSeries", "YCommEqSeries"})
        for (int i = 1; i <= 10; ++i)
            EXPECT_EQ(elementOf(*company, series, i), 2007 - i) << series;
}

TEST_F(YearSpan, NoAndTheDefaultChangeNothing) {
    load();
    const auto before = company->clone();
    const auto screen = desktop.snapshot();
    for (const char* button : {"cmdAddYear", "cmdRemoveYear"}) {
        press(button, MessageAnswer::no);
        desktop.click(button); // No is the default
    }
    EXPECT_EQ(desktop.messages().size(), 4U);
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_FALSE(scene.entry->get_blnDirty());
    desktop.click("txtLastFY");
    EXPECT_EQ(desktop.snapshot(), screen);
}

TEST_F(YearSpan, IsRefusedAtItsLimitsBeforeTheQuestion) {
    load(YearlyGrid::lastYear);
    auto before = company->clone();
    desktop.click("cmdAddYear");
    EXPECT_TRUE(sameAs(*before, *company));
    load(YearlyGrid::firstYear);
    before = company->clone();
    desktop.click("cmdRemoveYear");
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_EQ(scene.text("txtLastFY"), "1980");
}

TEST_F(YearSpan, IsMovedUpToItsLimits) {
    load(YearlyGrid::lastYear - 1);
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_EQ(company->get_LastFY(), YearlyGrid::lastYear);
    load(YearlyGrid::firstYear + 1);
    press("cmdRemoveYear", MessageAnswer::yes);
    EXPECT_EQ(company->get_LastFY(), YearlyGrid::firstYear);
}

TEST_F(YearSpan, TheDateKeepsItsDayWhereThereIsOneAndStaysWhereItIsNone) {
    const struct {
        Date end;
        const char* button;
        const char* after;
    } rows[] = {
        {*makeDate(2005, 12, 31), "cmdAddYear", "Dec/31/2006"},
        {*makeDate(2005, 12, 31), "cmdRemoveYear", "Dec/31/2004"},
        {*makeDate(2004, 2, 29), "cmdAddYear", "Feb/28/2005"},
        {*makeDate(2005, 6, 30), "cmdAddYear", "Jun/30/2006"},
        {*makeDate(2005, 9, 24), "cmdRemoveYear", "Sep/24/2004"},
    };
    for (const auto& row : rows) {
        load();
        company->put_LastFYDate(row.end);
        scene.load(company);
        press(row.button, MessageAnswer::yes);
        EXPECT_EQ(scene.text("txtDateofLastFY"), row.after);
    }
    for (const char* text : {"", "no date"}) {
        load();
        typeOver(scene, "txtDateofLastFY", text);
        press("cmdAddYear", MessageAnswer::yes);
        EXPECT_EQ(scene.text("txtDateofLastFY"), text);
        EXPECT_EQ(company->get_LastFYDate(), *makeDate(2005, 12, 31));
        EXPECT_EQ(company->get_LastFY(), 2006);
    }
}

TEST_F(YearSpan, TheSeriesMoveInTheOrderOfTheirColumns) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->log.clear();
    press("cmdAddYear", MessageAnswer::yes);
    std::vector<std::string> moved;
    for (const auto& operation : record->logged("write "))
        if (operation.ends_with("Series") && moved.size() < 11)
            moved.push_back(operation.substr(6));
    EXPECT_EQ(moved, (std::vector<std::string>{"YRevenueSeries", "YPTISeries", "YTaxRateSeries",
                                               "YNetIncSeries", "YCommEqSeries", "YBookValSeries",
                                               "YEPSSeries", "YDividendSeries", "YHighSeries",
                                               "YLowSeries", "YCSOSeries"}));
}

// Records may be far away.
TEST_F(YearSpan, EachSeriesThatMovesIsReadAndWrittenOnce) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->log.clear();
    press("cmdAddYear", MessageAnswer::yes);
    const auto& log = record->log;
    const auto first = std::ranges::find(log, "write YRevenueSeries");
    const auto last = std::ranges::find(log, "write YCSOSeries");
    ASSERT_NE(first, log.begin());
    ASSERT_LT(first, last);
    std::vector<std::string> expected;
    for (const char* series : {"YRevenue", "YPTI", "YTaxRate", "YNetInc", "YCommEq", "YBookVal",
                               "YEPS", "YDividend", "YHigh", "YLow", "YCSO"})
        for (const char* operation : {"read ", "write "})
            expected.push_back(operation + std::string(series) + "Series");
    EXPECT_EQ(std::vector<std::string>(first - 1, last + 1), expected);
}

// Where a record has no element for the year after, the last fiscal year is its first one.
TEST_F(YearSpan, SeriesThatBeginWithTheLastFiscalYearKeepTheirYears) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->first = 1;
    const struct {
        const char* button;
        int year;    // afterwards
        int missing; // the year without a figure
    } rows[] = {{"cmdAddYear", 2006, 2006}, {"cmdRemoveYear", 2004, 1995}};
    for (const auto& row : rows) {
        load();
        scene.load(record);
        for (const auto& column : yearlyColumns()) {
            EXPECT_FALSE(scene.field(column.cells.name, 10).enabled()) << column.cells.name;
            EXPECT_EQ(scene.text(column.cells.name, 10), "") << column.cells.name;
            EXPECT_TRUE(scene.field(column.cells.name, 9).enabled()) << column.cells.name;
        }
        EXPECT_EQ(scene.text("txtYEPS", 9), "2005.00");
        EXPECT_EQ(scene.text("txtYEPS", 0), "1996.00");
        press(row.button, MessageAnswer::yes);
        EXPECT_EQ(company->get_LastFY(), row.year);
        for (const char* series : {"YEPSSeries", "YRevenueSeries", "YCSOSeries", "YLowSeries"})
            for (int i = 1; i <= 10; ++i) {
                const int year = row.year + 1 - i;
                EXPECT_EQ(elementOf(*company, series, i), year == row.missing ? 0 : year)
                    << series << " " << i;
            }
        for (int cell = 0; cell < 10; ++cell)
            EXPECT_EQ(scene.text("txtYEPS", cell),
                      label(cell) == std::to_string(row.missing) ? "" : label(cell) + ".00");
        typeOver(scene, "txtDiv(9)", "1.25");
        EXPECT_EQ(elementOf(*company, "YDividendSeries", 1), 1.25);
        goTo(scene, "txtSales(9)");
        desktop.type("~");
        EXPECT_EQ(desktop.focusedId(), "txtYOption(0)") << "the row after takes no focus";
    }
}

TEST_F(YearSpan, ASeriesThatTheRecordDoesNotHandOutIsSkipped) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"read YEPSSeries"};
    scene.load(record);
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 2005) << "not moved";
    EXPECT_EQ(elementOf(*company, "YDividendSeries", 1), 2006);
    EXPECT_EQ(elementOf(*company, "YCSOSeries", 1), 2006);
    EXPECT_EQ(company->get_LastFY(), 2006);
    ASSERT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(desktop.messages()[1].text,
              "These figures could not be moved. They stand in another period now:\rBasic EPS");
    for (int row = 0; row <= 10; ++row) {
        EXPECT_EQ(scene.text("txtYEPS", row), "");
        EXPECT_FALSE(scene.field("txtYEPS", row).enabled());
    }
}

// Figures that move while the record keeps its year would stand in a wrong one.
TEST_F(YearSpan, ARecordThatRefusesTheNewYearKeepsItsFiguresWhereTheyAre) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    for (const char* button : {"cmdAddYear", "cmdRemoveYear"}) {
        record->failing.clear();
        scene.load(record);
        desktop.clickTab(toYearly);
        desktop.forget();
        record->failing = {"write LastFY"};
        const auto before = company->clone();
        press(button, MessageAnswer::yes);
        ASSERT_EQ(desktop.messages().size(), 2U);
        EXPECT_EQ(desktop.messages()[1].text, "This value could not be stored. write LastFY fails");
        EXPECT_TRUE(sameAs(*before, *company)) << button;
        EXPECT_EQ(scene.text("txtLastFY"), "2005");
        EXPECT_EQ(label(9), "2005");
        EXPECT_FALSE(scene.entry->get_blnDirty());
    }
}

TEST_F(YearSpan, ADateThatFollowsTheYearInTheRecordMovesOnce) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->datesFollowYear = true;
    for (const auto& [button, year] : {std::pair{"cmdAddYear", 2006}, {"cmdRemoveYear", 2004}}) {
        load();
        scene.load(record);
        press(button, MessageAnswer::yes);
        EXPECT_EQ(company->get_LastFY(), year);
        EXPECT_EQ(company->get_LastFYDate(), makeDate(year, 12, 31));
        EXPECT_EQ(scene.text("txtDateofLastFY"), "Dec/31/" + std::to_string(year));
    }
}

TEST_F(YearSpan, ARefusedDateKeepsItsDayWhereThePatternHasNone) {
    scene.entry->put_DateFormat("MMM YYYY");
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->failing = {"write LastFYDate"};
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_NE(markOf(scene, "txtDateofLastFY"), "");
    record->failing.clear();
    goTo(scene, "txtDateofLastFY");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastFYDate(), makeDate(2006, 12, 31));
    EXPECT_EQ(markOf(scene, "txtDateofLastFY"), "");
}

TEST_F(YearSpan, FiguresThatTheRecordDoesNotLetMoveAreToldOf) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    desktop.forget();
    record->failing = {"write YEPSSeries"};
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 2005);
    EXPECT_EQ(elementOf(*company, "YDividendSeries", 2), 2005) << "the others go on";
    EXPECT_EQ(company->get_LastFY(), 2006);
    ASSERT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(desktop.messages()[1].text,
              "These figures could not be moved. They stand in another period now:\rBasic EPS");
}

TEST_F(YearSpan, FiguresThatStayAreNamedOneByOne) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    for (const char* button : {"cmdAddYear", "cmdRemoveYear"}) {
        desktop.forget();
        record->failing = {"read YRevenueSeries", "write YTaxRateSeries", "read YBookValSeries",
                           "write YHighSeries", "read YCSOSeries"};
        press(button, MessageAnswer::yes);
        ASSERT_EQ(desktop.messages().size(), 2U);
        EXPECT_EQ(desktop.messages()[1].text,
                  "These figures could not be moved. They stand in another period now:\rRevenue, "
                  "Tax Rate, Book Value, High, Shares Outstanding");
        EXPECT_EQ(desktop.messages()[1].buttons, message_box::exclamationIcon);
        record->failing.clear();
    }
}

// What is being typed belongs to the year beside it, though the focus stays.
TEST_F(YearSpan, AFigureThatIsBeingTypedIsStoredInItsYearFirst) {
    load();
    goTo(scene, "txtSales(9)");
    desktop.type("777");
    desktop.answerNext(MessageAnswer::yes);
    desktop.type("%a");
    EXPECT_EQ(company->get_LastFY(), 2006);
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 2), 777);
    EXPECT_EQ(scene.text("txtSales", 8), "777.00");
}

// A screen reader presses a button and leaves the focus where it is.
TEST_F(YearSpan, WhatHasTheFocusIsSettledFirstAndSelectedAnew) {
    load();
    goTo(scene, "txtSales(9)");
    desktop.type("^a7");
    desktop.answerNext(MessageAnswer::yes);
    desktop.form().click(desktop.control("cmdAddYear"));
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 2), 7);
    EXPECT_EQ(desktop.focusedId(), "txtSales(9)");
    EXPECT_EQ(scene.field("txtSales", 9).selText(), "2006.00");
    goTo(scene, "txtLastFY");
    desktop.type("^a20");
    desktop.answerNext(MessageAnswer::yes);
    desktop.form().click(desktop.control("cmdAddYear"));
    EXPECT_EQ(company->get_LastFY(), 2007) << "a year that is half typed is none";
}

TEST_F(YearSpan, AYearThatIsNoneNamesNoRows) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    for (const auto& [year, shown] : {std::pair{0, ""}, {9999, "9999"}, {2005, "2005"}}) {
        record->failing.clear();
        company->put_LastFY(static_cast<std::int16_t>(year));
        company->put_LastFYDate({});
        record->failing = {"write LastFY", "write LastFYDate"};
        scene.load(record);
        EXPECT_EQ(scene.text("txtLastFY"), shown);
        EXPECT_EQ(label(9), year == 2005 ? "2005" : "");
        EXPECT_EQ(label(10), year == 2005 ? "2006" : "");
    }
}

TEST_F(YearSpan, TheHelpFrameClosesWhenTheSpanIsAskedFor) {
    load();
    desktop.control("fraDE", 0).setVisible(true);
    desktop.form().focus(desktop.control("cmdAddYear"));
    desktop.control("fraDE", 0).setVisible(true);
    desktop.type("~");
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_FALSE(desktop.control("fraDE", 0).visible());
}

// --- the last fiscal year, typed ---------------------------------------------------------------

TEST_F(YearSpan, TypedYearsAreTakenWhenTheyAreComplete) {
    const struct {
        const char* typed;
        const char* shown; // while the focus is there
        const char* kept;  // afterwards
    } rows[] = {
        {"1979", "2005", "2005"}, {"9901", "2005", "2005"}, {"1980", "1980", "1980"},
        {"9900", "9900", "9900"}, {"200", "200", "2005"},   {"", "", "2005"},
        {"2 10", "2005", "2005"}, {"-199", "2005", "2005"}, {"2005", "2005", "2005"},
        {"2010", "2010", "2010"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        load();
        scene.entry->put_blnDirty(false);
        desktop.click("txtLastFY");
        desktop.type("^a{DEL}" + std::string(row.typed));
        EXPECT_EQ(scene.text("txtLastFY"), row.shown);
        desktop.type("{TAB}");
        EXPECT_EQ(scene.text("txtLastFY"), row.kept);
        EXPECT_EQ(scene.field("txtLastFY").tag(), row.kept);
        EXPECT_EQ(company->get_LastFY(), std::stoi(row.kept));
        EXPECT_EQ(label(9), row.kept);
        EXPECT_EQ(label(0), std::to_string(std::stoi(row.kept) - 9));
        EXPECT_EQ(scene.entry->get_blnDirty(), std::string(row.kept) != "2005");
        EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 2005) << "figures stay in their cells";
    }
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(YearSpan, ARefusedYearCanBeTypedOverAtOnce) {
    load();
    desktop.click("txtLastFY");
    desktop.type("^a19791999{TAB}");
    EXPECT_EQ(scene.text("txtLastFY"), "1999");
    EXPECT_EQ(company->get_LastFY(), 1999);
}

TEST_F(YearSpan, ARefusedYearKeepsItsMarkUntilItIsStored) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->failing = {"write LastFY"};
    for (const char* typed : {"2010", "20", "1979"}) {
        desktop.click("txtLastFY");
        desktop.type("^a{DEL}" + std::string(typed) + "{TAB}");
        EXPECT_EQ(scene.text("txtLastFY"), "2010") << typed;
        EXPECT_EQ(markOf(scene, "txtLastFY"), "This value could not be stored. write LastFY fails")
            << typed;
        EXPECT_EQ(company->get_LastFY(), 2005);
    }
    ASSERT_EQ(scene.entry->unstoredFields().size(), 1U);
    EXPECT_EQ(scene.entry->unstoredFields()[0].control, "txtLastFY");
    typeOver(scene, "txtLastFY", "2005");
    EXPECT_EQ(markOf(scene, "txtLastFY"), "") << "which the record has";
    typeOver(scene, "txtLastFY", "2010");
    ASSERT_TRUE(scene.field("txtLastFY").isUnstored());
    record->failing.clear();
    desktop.click("txtLastFY");
    desktop.type("{TAB}");
    EXPECT_FALSE(scene.field("txtLastFY").isUnstored());
    EXPECT_EQ(company->get_LastFY(), 2010);
}

TEST_F(YearSpan, AYearThatIsTypedOverFiguresIsInDoubt) {
    const auto doubt = [](int now, int before) {
        return "The yearly figures stand in other years now: the newest ones in " +
               std::to_string(now) + ", not in " + std::to_string(before) +
               ". To keep them in their years, type " + std::to_string(before) +
               " again, and add or remove years.";
    };
    load();
    const auto type = [&](const char* year) {
        typeOver(scene, "txtLastFY", year);
        return markOf(scene, "txtLastFY");
    };
    EXPECT_EQ(type("2006"), doubt(2006, 2005));
    EXPECT_TRUE(scene.field("txtLastFY").isDoubtful());
    EXPECT_EQ(company->get_LastFY(), 2006);
    scene.entry->recordChanged();
    EXPECT_EQ(markOf(scene, "txtLastFY"), doubt(2006, 2005));
    EXPECT_EQ(type("2008"), doubt(2008, 2005));
    EXPECT_EQ(type("2005"), "") << "where they were";
    EXPECT_EQ(type("2006"), doubt(2006, 2005));
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_EQ(markOf(scene, "txtLastFY"), doubt(2007, 2006)) << "still a year off";
    press("cmdRemoveYear", MessageAnswer::yes);
    EXPECT_EQ(type("2005"), "");
    press("cmdAddYear", MessageAnswer::yes);
    EXPECT_EQ(markOf(scene, "txtLastFY"), "") << "they are moved along";
    EXPECT_EQ(type("2005"), doubt(2005, 2006));
    company->put_LastFY(2004); // and the figures with it, by a host
    scene.entry->recordChanged();
    EXPECT_EQ(markOf(scene, "txtLastFY"), "");
    EXPECT_EQ(type("2003"), doubt(2003, 2004));
}

TEST_F(YearSpan, AYearThatIsTypedWhereNoneWasShownIsNot) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"read LastFY"};
    scene.load(record);
    record->failing.clear();
    typeOver(scene, "txtLastFY", "2004");
    EXPECT_EQ(company->get_LastFY(), 2004);
    EXPECT_EQ(markOf(scene, "txtLastFY"), "");
}

TEST_F(YearSpan, AYearThatTheRecordRefusesAndDoesNotShowIsMarked) {
    load();
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->failing = {"write LastFY", "read LastFY"};
    typeOver(scene, "txtLastFY", "2004");
    EXPECT_EQ(markOf(scene, "txtLastFY"), "This value could not be stored. write LastFY fails");
}

TEST_F(YearSpan, ADateThatTheLockComesUponIsNotStored) {
    load();
    goTo(scene, "txtDateofLastFY");
    desktop.type("^a12/31/2004");
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.entry->recordChanged();
    ASSERT_EQ(scene.text("txtDateofLastFY"), "12/31/2004");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2005, 12, 31));
}

TEST_F(YearSpan, AYearThatIsTypedWhereThereAreNoFiguresIsNot) {
    company = datedCompany();
    scene.load(company);
    for (const char* year : {"2010", "2005"}) {
        typeOver(scene, "txtLastFY", year);
        EXPECT_EQ(markOf(scene, "txtLastFY"), "");
    }
    for (const int element : {0, 3, 10}) {
        company = datedCompany();
        putElement(*company, "YEPSSeries", element, 1.5);
        scene.load(company);
        typeOver(scene, "txtLastFY", "2006");
        EXPECT_NE(markOf(scene, "txtLastFY"), "") << element;
    }
}

// --- the date of the last fiscal year ------------------------------------------------------------

TEST_F(YearSpan, ATypedDateIsStoredAndShownInTheDateFormat) {
    load();
    typeOver(scene, "txtDateofLastFY", "6/30/2005");
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2005, 6, 30));
    EXPECT_EQ(scene.text("txtDateofLastFY"), "Jun/30/2005");
    EXPECT_EQ(scene.form().get<Label>("lblDatOfLastFY").caption(), "Jun/30/2005");
    EXPECT_EQ(company->get_LastFY(), 2005);
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

TEST_F(YearSpan, ATextThatIsNoDateStaysMarkedUntilItIsCorrected) {
    load();
    typeOver(scene, "txtDateofLastFY", "Feb 30 2005");
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2005, 12, 31));
    EXPECT_EQ(scene.text("txtDateofLastFY"), "Feb 30 2005");
    EXPECT_NE(markOf(scene, "txtDateofLastFY"), "");
    typeOver(scene, "txtDateofLastFY", "Feb 28 2005");
    EXPECT_EQ(markOf(scene, "txtDateofLastFY"), "");
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2005, 2, 28));
}

// --- panning and shading -------------------------------------------------------------------------

TEST_F(YearSpan, TheBarMovesThePanelAloneAndClosesTheHelpFrame) {
    load();
    const auto& bar = scene.form().get<ScrollBar>("hscrYearly");
    const auto& panel = desktop.control("fraDE", 2);
    const auto before = company->clone();
    ASSERT_TRUE(bar.visible());
    EXPECT_EQ(bar.maximum(), panel.width() - panel.container()->width());
    EXPECT_EQ(bar.smallChange(), bar.maximum() / 4);
    EXPECT_EQ(bar.largeChange(), bar.maximum());
    const Twips top = panel.top();
    desktop.control("fraDE", 0).setVisible(true);
    desktop.scroll("hscrYearly", 700);
    EXPECT_EQ(panel.left(), -700);
    EXPECT_EQ(panel.top(), top);
    EXPECT_FALSE(desktop.control("fraDE", 0).visible());
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST_F(YearSpan, ACellThatTakesTheFocusComesIntoView) {
    load();
    goTo(scene, "txtSales(3)");
    desktop.type("^{END}");
    EXPECT_EQ(desktop.focusedId(), "txtCSO(3)");
    EXPECT_TRUE(desktop.canReach("txtCSO(3)"));
    const auto& panel = desktop.control("fraDE", 2);
    const auto& last = desktop.control("txtCSO", 3);
    EXPECT_EQ(panel.left() + last.left() + last.width(), panel.container()->width())
        << "no farther than it takes";
    const Twips before = panel.left();
    for (const char* cell : {"txtLow(3)", "txtHigh(3)"}) {
        desktop.type("^{LEFT}");
        EXPECT_EQ(desktop.focusedId(), cell);
        EXPECT_EQ(panel.left(), before) << "in view already";
    }
    desktop.type("^{HOME}");
    EXPECT_EQ(panel.left(), -desktop.control("txtSales", 3).left());
    EXPECT_EQ(desktop.focusedId(), "txtSales(3)");
    EXPECT_TRUE(desktop.canReach("txtSales(3)"));
}

TEST_F(YearSpan, RequiredCellsAreShadedByPlatform) {
    load();
    const Color shade = colors::paleCyan;
    EXPECT_EQ(shaded("txtSales", shade), "3 4 8 9");
    for (const char* cells : {"txtYEPS", "txtHigh", "txtLow"})
        EXPECT_EQ(shaded(cells, shade), "5 6 7 8 9") << cells;
    for (const char* cells : {"txtYOption", "txtYNetInc", "txtYOption2", "txtDiv", "txtCSO"})
        EXPECT_EQ(shaded(cells, colors::white), "0 1 2 3 4 5 6 7 8 9 10") << cells;
    scene.entry->put_Platform(ptZX);
    for (const char* cells : {"txtSales", "txtYNetInc", "txtYEPS"})
        EXPECT_EQ(shaded(cells, shade), "5 6 7 8 9") << cells;
    for (const char* cells : {"txtHigh", "txtLow"})
        EXPECT_EQ(shaded(cells, shade), "") << cells;
}

TEST_F(YearSpan, TheLegendIsShownWhileTheShadeIsNotWhite) {
    load();
    for (const auto& [color, shown] :
         {std::pair{colors::white, false}, {Color{0x00FF00}, true}, {colors::white, false}}) {
        scene.entry->put_ShadeColorYear(color);
        for (const char* legend : {"lblLegend", "lblLabel(28)"})
            EXPECT_EQ(desktop.control(legend).visible(), shown) << legend;
        EXPECT_EQ(back("txtYEPS", 5), color);
    }
    scene.entry->put_ShadeColorYear(0x00FF00);
    EXPECT_EQ(desktop.control("lblLegend").backColor(), 0x00FF00U);
    EXPECT_EQ(back("txtYEPS", 4), colors::white);
}

} // namespace
} // namespace vkr
