// SPDX-License-Identifier: MIT
#include "quarterly/quarterly_grid.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/hostile_desktop.hpp"
#include "tests/support/scripted_record.hpp"

#include <functional>
#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

constexpr const char* rowArrays[] = {"lblQLabel", "txtRevenue", "txtQOption", "txtNetInc",
                                     "txtEPS"};
constexpr const char* cellArrays[] = {"txtRevenue", "txtEPS", "txtQOption", "txtNetInc"};
constexpr const char* series[] = {"QRevenueSeries", "QEPSSeries", "QPTISeries", "QTaxRateSeries",
                                  "QNetIncSeries"};

struct QuarterSpan : testing::Test {
    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany();

    // Each figure names its element as it was at first.
    void fill(int count = 35) {
        for (const char* name : series)
            for (int i = 0; i < 35; ++i)
                putElement(*company, name, i, i < count ? 100 + i : 0);
    }
    void load(Date last, Date fiscalYear = *makeDate(2025, 12, 31)) {
        company->put_LastQDate(last);
        company->put_LastQDateForGrid(last);
        company->put_LastFYDate(fiscalYear);
        open(company);
    }
    void open(const std::shared_ptr<iVKR_Company>& record) {
        scene.load(record);
        desktop.clickTab(toQuarterly);
        desktop.forget();
    }
    [[nodiscard]] std::string label(int row) const {
        return scene.form().get<Label>("lblQLabel", row).caption();
    }
    [[nodiscard]] ScrollBar& bar() const { return scene.form().get<ScrollBar>("vscrQuarterly"); }
    [[nodiscard]] Color back(std::string_view name, int row) const {
        return desktop.control(name, row).backColor();
    }
    void typeDate(std::string_view date) { typeOver(scene, "txtLastQDate", date); }
};

// --- adding a quarter ----------------------------------------------------------------------------

TEST_F(QuarterSpan, AddingNamesTheQuarterThatLeavesAndKeepsEveryFigureInItsQuarter) {
    fill();
    load(*makeDate(2006, 3, 31));
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].text,
              "Adding a new quarter removes the oldest one: the figures of Sep 1997 will leave "
              "the table.\rDo you want to go on?");
    EXPECT_EQ(desktop.messages()[0].buttons, 292);
    EXPECT_EQ(desktop.messages()[0].title, "VKRDataEntry");
    EXPECT_EQ(scene.text("txtLastQDate"), "Jun/30/2006");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2006, 6, 30));
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2006, 6, 30));
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(label(0), "6/30/2006");
    EXPECT_EQ(label(1), "3/31/2006");
    for (const char* name : series) {
        EXPECT_EQ(elementOf(*company, name, 0), 0) << name;
        for (int i = 1; i < 35; ++i)
            EXPECT_EQ(elementOf(*company, name, i), 99 + i) << name;
    }
    EXPECT_EQ(scene.text("txtRevenue", 0), "");
    EXPECT_EQ(scene.text("txtRevenue", 1), "100.00");
}

TEST_F(QuarterSpan, AddingNamesAllQuartersWhereNoneOfThemStays) {
    fill();
    company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
    company->put_LastQDate(*makeDate(2036, 9, 30));
    open(company);
    desktop.click("cmdAddQuarter");
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_NE(desktop.messages()[0].text.find("of Mar 2018 - Sep 2026 will"), std::string::npos)
        << desktop.messages()[0].text;
}

TEST_F(QuarterSpan, NoAndTheDefaultChangeNothing) {
    fill();
    load(*makeDate(2006, 3, 31));
    const auto before = company->clone();
    desktop.answerNext(MessageAnswer::no);
    desktop.click("cmdAddQuarter");
    desktop.click("cmdAddQuarter");
    desktop.spin("spnQuarter", 1);
    typeDate("Jun/30/2006");
    EXPECT_EQ(desktop.messages().size(), 4U);
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_EQ(scene.text("txtLastQDate"), "Mar/31/2006");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// Also for those who press without a pointer, as a screen reader does.
TEST(AddingAPeriod, ClosesTheHelpFrameBeforeItAsks) {
    const auto enter = [](VirtualDesktop& desktop) { desktop.type("~"); };
    const struct {
        TABObject tab;
        std::function<void(VirtualDesktop&)> press;
        const char* focus = "cmdOK";
    } ways[] = {
        {toYearly, enter, "cmdAddYear"},
        {toQuarterly, enter, "cmdAddQuarter"},
        {toYearly, [](auto& desktop) { desktop.form().click(desktop.control("cmdAddYear")); }},
        {toQuarterly,
         [](auto& desktop) { desktop.form().click(desktop.control("cmdAddQuarter")); }},
        {toQuarterly, [](auto& desktop) { desktop.spin("spnQuarter", 1); }},
    };
    for (const auto& way : ways) {
        HostileScene scene;
        scene.start();
        scene.entry->put_objCompany(fullCompany());
        scene.entry->put_CurrentTab(way.tab);
        auto& frame = scene.desktop.control("fraDE", 0);
        scene.desktop.form().focus(scene.desktop.control(way.focus));
        frame.setVisible(true);
        std::optional<bool> seen;
        scene.desktop.duringMessage = [&] { seen = frame.visible(); };
        way.press(scene.desktop);
        EXPECT_EQ(seen, false);
    }
}

TEST_F(QuarterSpan, AddingFromAnOlderLastQuarterGoesOnAtTheNewest) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", -3);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(scene.text("txtLastQDate"), "Dec/31/2026");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 100);
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 2), 101);
}

TEST_F(QuarterSpan, AddingForgetsTheDaysOfTheQuartersThatWereVisitedBefore) {
    company->put_LastQDateForGrid(*makeDate(2026, 9, 26));
    company->put_LastQDate(*makeDate(2026, 6, 27));
    fill();
    open(company);
    desktop.spin("spnQuarter", 1);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    ASSERT_EQ(scene.text("txtLastQDate"), "Dec/26/2026");
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/26/2026");
}

TEST_F(QuarterSpan, AddingSettlesADateThatCancelHasSkipped) {
    fill();
    load(*makeDate(2026, 9, 30));
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}no date");
    desktop.click("cmdCancel"); // the host stays open
    typeOver(scene, "txtRevenue(1)", "7");
    desktop.forget();
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 7);
    EXPECT_EQ(desktop.messages().size(), 2U) << "that it was put back, and the question";
}

TEST_F(QuarterSpan, ARecordThatRefusesTheNewDateKeepsItsFiguresWhereTheyAre) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"write LastQDateForGrid"};
    const auto before = company->clone();
    open(record);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    ASSERT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(desktop.messages()[1].text,
              "This value could not be stored. write LastQDateForGrid fails");
    desktop.answerNext(MessageAnswer::yes);
    typeDate("Dec/31/2026");
    ASSERT_EQ(desktop.messages().size(), 4U);
    EXPECT_EQ(desktop.messages()[3].text,
              "LastQDate Lost Focus error: write LastQDateForGrid fails");
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    company->put_Last4QEPS(before->get_Last4QEPS());
    EXPECT_TRUE(sameAs(*before, *company));
}

TEST_F(QuarterSpan, ARecordThatRefusesTheNewDateKeepsTheOneThatTheHostHasGivenIt) {
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"write LastQDateForGrid"};
    open(record);
    company->put_LastQDate(*makeDate(2026, 9, 29));
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 29));
}

TEST_F(QuarterSpan, FiguresThatTheRecordDoesNotLetMoveAreToldOf) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"write QEPSSeries"};
    open(record);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), 100);
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 100) << "the others go on";
    ASSERT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(
        desktop.messages()[1].text,
        "These figures could not be moved. They stand in another period now:\rEarnings Per Share");
}

TEST_F(QuarterSpan, SeriesThatAreNoneStayWithoutAWord) {
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->everySeries = Variant("none");
    open(record);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(desktop.messages().size(), 1U) << "the question";
    EXPECT_EQ(record->logged("write QRevenueSeries"), std::vector<std::string>{});
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 12, 31));
}

TEST_F(QuarterSpan, FiguresThatTheRecordCouldNotReadAreToldOf) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    record->failing = {"read QTaxRateSeries", "read QNetIncSeries"};
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(elementOf(*company, "QNetIncSeries", 0), 100) << "not moved";
    EXPECT_EQ(elementOf(*company, "QPTISeries", 1), 100);
    ASSERT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(desktop.messages()[1].text, "These figures could not be moved. They stand in another "
                                          "period now:\rTax Rate, Net Income");
}

TEST_F(QuarterSpan, ARecordThatRefusesTheLastQuarterOnAnAddKeepsItsFiguresWhereTheyAre) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    const auto before = company->clone();
    record->failing = {"write LastQDate"};
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    ASSERT_EQ(desktop.messages().size(), 2U);
    EXPECT_EQ(desktop.messages()[1].text, "This value could not be stored. write LastQDate fails");
    desktop.answerNext(MessageAnswer::yes);
    typeDate("Dec/31/2026");
    EXPECT_EQ(desktop.messages().back().text, "LastQDate Lost Focus error: write LastQDate fails");
    desktop.answerNext(MessageAnswer::yes);
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(markOf(scene, "txtLastQDate"), "");
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST_F(QuarterSpan, ALastQuarterThatTheRecordRefusedIsTriedAgain) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    record->failing = {"write LastQDate"};
    typeDate("9/29/2026");
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/29/2026");
    EXPECT_NE(markOf(scene, "txtLastQDate"), "");
    scene.entry->put_blnDirty(false);
    goTo(scene, "txtLastQDate");
    desktop.type("{TAB}");
    EXPECT_NE(markOf(scene, "txtLastQDate"), "");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    record->failing.clear();
    goTo(scene, "txtLastQDate");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 29));
    EXPECT_EQ(markOf(scene, "txtLastQDate"), "");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 100);
    EXPECT_TRUE(desktop.messages().empty());
}

// --- moving the last quarter ---------------------------------------------------------------------

TEST_F(QuarterSpan, TheSpinnerMovesBackAndForthInsideOfTheRecord) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(scene.text("txtLastQDate"), "Mar/31/2026");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 3, 31));
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
    EXPECT_EQ(label(0), "3/31/2026");
    EXPECT_EQ(scene.text("txtRevenue", 0), "102.00");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    desktop.spin("spnQuarter", 2);
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(scene.text("txtRevenue", 0), "100.00");
    EXPECT_TRUE(desktop.messages().empty());
    desktop.answerNext(MessageAnswer::yes);
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(scene.text("txtRevenue", 1), "100.00");
}

TEST_F(QuarterSpan, MovingBackStopsAtTheOldestQuarter) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", -100);
    EXPECT_EQ(scene.text("txtLastQDate"), "Mar/31/2018");
    EXPECT_EQ(scene.text("txtRevenue", 0), "134.00");
    for (const char* cells : cellArrays)
        EXPECT_FALSE(scene.field(cells, 1).enabled()) << "no such element";
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 34), 134);
}

// A record of which only the last quarter is known lets the grid's date follow it.
TEST_F(QuarterSpan, MovingBackNeverRenamesTheFigures) {
    fill();
    company->put_LastQDateForGrid({});
    company->put_LastQDate(*makeDate(2026, 9, 30));
    open(company);
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
    EXPECT_EQ(label(0), "6/30/2026");
    EXPECT_EQ(scene.text("txtRevenue", 0), "101.00");
}

TEST_F(QuarterSpan, ADoubleClickOnAQuarterMakesItTheLastOne) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.doubleClick("lblQLabel(3)");
    EXPECT_EQ(scene.text("txtLastQDate"), "Dec/31/2025");
    EXPECT_EQ(scene.text("txtEPS", 0), "103.00");
    desktop.doubleClick("lblQLabel(0)");
    EXPECT_EQ(scene.text("txtLastQDate"), "Dec/31/2025");
}

TEST_F(QuarterSpan, AFigureThatIsBeingTypedIsStoredInItsQuarterFirst) {
    fill();
    load(*makeDate(2026, 9, 30));
    goTo(scene, "txtRevenue(2)");
    desktop.type("7.5");
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 2), 7.5);
    EXPECT_EQ(scene.text("txtRevenue", 1), "7.50");
    EXPECT_EQ(scene.text("txtRevenue", 2), "103.00");
    EXPECT_EQ(desktop.focusedId(), "txtRevenue(2)");
    desktop.type("8{TAB}"); // over the figure of the quarter that stands there now
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 3), 8);
}

TEST_F(QuarterSpan, ALastQuarterBehindTheNewestOneComesBackWithItsOwnDay) {
    fill();
    company->put_LastQDateForGrid(*makeDate(2026, 9, 26));
    company->put_LastQDate(*makeDate(2026, 6, 27));
    open(company);
    EXPECT_EQ(scene.text("txtRevenue", 0), "101.00");
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/26/2026");
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(scene.text("txtLastQDate"), "Jun/27/2026");
}

// The newest figures are those of the grid's date, whatever the last quarter says.
TEST_F(QuarterSpan, ALastQuarterAfterTheNewestOneHasEmptyRowsInFront) {
    fill();
    company->put_LastQDateForGrid(*makeDate(2026, 6, 30));
    company->put_LastQDate(*makeDate(2026, 9, 30));
    open(company);
    EXPECT_EQ(label(1), "6/30/2026");
    EXPECT_EQ(scene.text("txtRevenue", 0), "");
    EXPECT_FALSE(scene.field("txtRevenue", 0).enabled());
    EXPECT_EQ(scene.text("txtRevenue", 1), "100.00");
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 12, 31));
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 2), 100) << "still June";
    EXPECT_EQ(label(2), "6/30/2026");
}

// --- quarter ends --------------------------------------------------------------------------------

TEST_F(QuarterSpan, LabelsFollowTheEndsOfMonthsAndTheDayOtherwise) {
    const struct {
        Date last;
        const char* labels[5];
    } rows[] = {
        {*makeDate(2026, 6, 30),
         {"6/30/2026", "3/31/2026", "12/31/2025", "9/30/2025", "6/30/2025"}},
        {*makeDate(2024, 2, 29),
         {"2/29/2024", "11/30/2023", "8/31/2023", "5/31/2023", "2/28/2023"}},
        {*makeDate(2026, 5, 30),
         {"5/30/2026", "2/28/2026", "11/30/2025", "8/30/2025", "5/30/2025"}},
        {*makeDate(2026, 3, 28),
         {"3/28/2026", "12/28/2025", "9/28/2025", "6/28/2025", "3/28/2025"}},
        {*makeDate(2023, 4, 1), {"4/1/2023", "1/1/2023", "10/1/2022", "7/1/2022", "4/1/2022"}},
    };
    for (const auto& row : rows) {
        load(row.last);
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(label(i), row.labels[i]);
            EXPECT_EQ(civil(Variant(desktop.control("lblQLabel", i).tag()).toDouble() == 0
                                ? Date{}
                                : Date{Variant(desktop.control("lblQLabel", i).tag()).toDouble()}),
                      civil(addQuarters(row.last, -i)));
        }
        desktop.spin("spnQuarter", -1);
        EXPECT_EQ(label(0), row.labels[1]);
        EXPECT_EQ(label(1), row.labels[2]) << "a quarter has one name wherever it is shown";
        desktop.spin("spnQuarter", 1);
        EXPECT_EQ(label(0), row.labels[0]) << "and the day comes back";
    }
}

// Ends that wander from December into January and from March into April stay one quarter apart.
TEST_F(QuarterSpan, AQuarterIsCountedToTheNearestDate) {
    fill();
    company->put_LastQDateForGrid(*makeDate(2023, 4, 1));
    company->put_LastQDate(*makeDate(2022, 12, 31));
    company->put_LastFYDate(*makeDate(2022, 9, 24));
    open(company);
    EXPECT_EQ(scene.text("txtRevenue", 0), "101.00");
    typeOver(scene, "txtRevenue(0)", "5");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 1), 5);
    EXPECT_EQ(back("txtRevenue", 1), colors::paleCyan) << "September, the end of the fiscal year";
    EXPECT_EQ(back("txtRevenue", 0), colors::white);
}

// --- the last quarter, typed ---------------------------------------------------------------------

TEST_F(QuarterSpan, TypedDatesOfTheNextThreeQuartersAreAdded) {
    const struct {
        Date last;
        const char* typed;
        int added;
        const char* leaving;
    } rows[] = {
        {*makeDate(2006, 3, 31), "6/30/2006", 1, "Sep 1997"},
        {*makeDate(2006, 3, 31), "6/1/2006", 1, "Sep 1997"},
        {*makeDate(2006, 3, 31), "9/30/2006", 2, "Sep 1997 - Dec 1997"},
        {*makeDate(2006, 3, 31), "12/31/2006", 3, "Sep 1997 - Mar 1998"},
        {*makeDate(2025, 12, 27), "3/28/2026", 1, "Jun 2017"},
        {*makeDate(2022, 12, 31), "4/1/2023", 1, "Jun 2014"},
        {*makeDate(2025, 9, 27), "1/3/2026", 1, "Mar 2017"}, // a week later than it would be
        {*makeDate(2023, 4, 1), "9/30/2023", 2, "Oct 2014 - Jan 2015"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        fill();
        load(row.last);
        desktop.answerNext(MessageAnswer::yes);
        typeDate(row.typed);
        ASSERT_EQ(desktop.messages().size(), 1U);
        EXPECT_NE(desktop.messages()[0].text.find(std::string("of ") + row.leaving + " will"),
                  std::string::npos)
            << desktop.messages()[0].text;
        EXPECT_EQ(desktop.messages()[0].buttons, 292);
        for (int i = row.added; i < 35; ++i)
            EXPECT_EQ(elementOf(*company, "QRevenueSeries", i), 100 + i - row.added);
        const auto typed = scene.text("txtLastQDate");
        EXPECT_EQ(civil(company->get_LastQDate()), civil(company->get_LastQDateForGrid()));
        EXPECT_EQ(Variant(civil(company->get_LastQDate()).month).toText() + "/" +
                      Variant(civil(company->get_LastQDate()).day).toText() + "/" +
                      Variant(civil(company->get_LastQDate()).year).toText(),
                  row.typed)
            << "the very day";
    }
}

TEST_F(QuarterSpan, AnyOtherDateIsRefusedAndTheOldOneReturns) {
    fill();
    load(*makeDate(2006, 3, 31));
    const auto before = company->clone();
    for (const char* typed : {"3/31/2007", "12/31/2005", "5/15/2006", "no date", "", "2/30/2006"}) {
        desktop.forget();
        typeDate(typed);
        ASSERT_EQ(desktop.messages().size(), 1U) << typed;
        EXPECT_EQ(desktop.messages()[0].text,
                  "The new date must lie in the month in which one of the next three quarters "
                  "ends.\rThe previous date has been put back.");
        EXPECT_EQ(desktop.messages()[0].buttons, message_box::exclamationIcon);
        EXPECT_EQ(scene.text("txtLastQDate"), "Mar/31/2006");
    }
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_FALSE(scene.entry->get_blnDirty());
    load(*makeDate(2025, 9, 27));
    const auto isRejected = [&](const char* typed) {
        desktop.forget();
        typeDate(typed);
        return desktop.messages().size() == 1 &&
               desktop.messages()[0].buttons == message_box::exclamationIcon;
    };
    EXPECT_TRUE(isRejected("1/4/2026")) << "more than a week later than the next one would be";
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/27/2025");
    scene.entry->Clear();
    for (const char* typed : {"no date", "9/26/2026"}) {
        EXPECT_TRUE(isRejected(typed)) << typed;
        EXPECT_EQ(scene.text("txtLastQDate"), "") << typed;
    }
}

TEST_F(QuarterSpan, WithoutALastQuarterNoneIsAdded) {
    fill();
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"read LastQDate"};
    open(record);
    desktop.click("cmdAddQuarter");
    desktop.spin("spnQuarter", 1);
    desktop.click("chkLockInfo");
    desktop.spin("spnQuarter", -1);
    desktop.click("chkLockInfo");
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_EQ(scene.text("txtLastQDate"), "");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 100);
}

TEST_F(QuarterSpan, ANextQuarterThatIsTypedInsideOfTheRecordLeavesTheNewestOne) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", -3);
    typeDate("Mar/29/2026");
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_EQ(scene.text("txtLastQDate"), "Mar/29/2026");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 3, 29));
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
    EXPECT_EQ(scene.text("txtRevenue", 0), "102.00");
}

TEST_F(QuarterSpan, TheSameDateInOtherWordsIsStoredOnlyWhereTheRecordHasAnother) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    for (const char* failing : {"", "read LastQDate"}) {
        open(record);
        scene.entry->put_blnDirty(false);
        record->failing = {failing};
        record->log.clear();
        typeDate("9/30/2026");
        EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
        EXPECT_EQ(record->logged("write LastQ"), std::vector<std::string>{}) << failing;
        EXPECT_FALSE(scene.entry->get_blnDirty()) << failing;
        record->failing.clear();
    }
    company->put_LastQDate(*makeDate(2026, 6, 30)); // by the host
    typeDate("9/30/2026");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 30));
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

TEST_F(QuarterSpan, AnotherDayOfTheSameQuarterCorrectsTheDate) {
    fill();
    load(*makeDate(2026, 3, 27));
    typeDate("3/28/2026");
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 3, 28));
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 3, 28));
    EXPECT_EQ(label(0), "3/28/2026");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 100);
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

TEST_F(QuarterSpan, WithoutFiguresAnyDateIsTheLastQuarter) {
    load(*makeDate(2025, 12, 31));
    desktop.spin("spnQuarter", -1);
    desktop.spin("spnQuarter", -1);
    scene.entry->put_blnDirty(false);
    typeDate("4/26/2022");
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2022, 4, 26));
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2022, 4, 26));
    typeOver(scene, "txtNetInc(1)", "4");
    EXPECT_EQ(label(1), "1/26/2022");
    EXPECT_EQ(elementOf(*company, "QNetIncSeries", 1), 4);
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(scene.text("txtLastQDate"), "Jan/26/2022") << "not that which was visited before";
}

TEST_F(QuarterSpan, ARefusedLastQuarterThatIsTypedAgainIsFollowedByTheTrailingEarnings) {
    for (int i = 0; i < 8; ++i)
        putElement(*company, "QEPSSeries", i, 1 + i);
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    for (const char* typed : {"6/30/2026", "Jun/30/2026"}) {
        company->put_LastQDate(*makeDate(2026, 9, 30));
        open(record);
        ASSERT_EQ(company->get_Last4QEPS(), 10);
        record->failing = {"write LastQDate"};
        desktop.spin("spnQuarter", -1);
        record->failing.clear();
        typeDate(typed);
        EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 6, 30));
        EXPECT_EQ(company->get_Last4QEPS(), 14) << typed;
        EXPECT_EQ(scene.text("txtLast4QEPS"), "14.00");
        EXPECT_EQ(markOf(scene, "txtLastQDate"), "");
    }
}

TEST_F(QuarterSpan, ARefusedLastQuarterThatACommitFindsStoredIsFollowedUnlessItIsTypedOrLocked) {
    for (int i = 0; i < 8; ++i)
        putElement(*company, "QEPSSeries", i, 1 + i);
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    const auto refuse = [&] {
        record->failing.clear();
        company->put_LastQDate(*makeDate(2026, 9, 30));
        open(record);
        record->failing = {"write LastQDate"};
        desktop.spin("spnQuarter", -1);
        record->failing.clear();
        ASSERT_NE(markOf(scene, "txtLastQDate"), "");
        ASSERT_EQ(company->get_Last4QEPS(), 10);
    };
    const auto commit = [&] {
        std::ignore = scene.entry->get_objCompany();
        EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 6, 30));
        return markOf(scene, "txtLastQDate").empty();
    };
    refuse();
    EXPECT_TRUE(commit());
    EXPECT_EQ(company->get_Last4QEPS(), 14);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "14.00");
    refuse();
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}6/30/2026");
    EXPECT_FALSE(commit());
    EXPECT_EQ(company->get_Last4QEPS(), 10) << "until it is left";
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_Last4QEPS(), 14);
    refuse();
    record->failing = {"write LastQDate", "read LastQDate"};
    std::ignore = scene.entry->get_objCompany();
    EXPECT_NE(markOf(scene, "txtLastQDate"), "") << "nobody knows";
    refuse();
    desktop.click("chkLockInfo");
    company->put_LastQDate(*makeDate(2026, 6, 30)); // by the host
    EXPECT_FALSE(commit());
    EXPECT_EQ(company->get_Last4QEPS(), 10);
}

TEST_F(QuarterSpan, ARefusedLastQuarterIsTriedAgainWhereAnotherTextIsRejected) {
    for (int i = 0; i < 8; ++i)
        putElement(*company, "QEPSSeries", i, 1 + i);
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    using Failing = std::set<std::string, std::less<>>;
    for (const auto& failing : {Failing{"write LastQDate"}, Failing{"read LastQDate"}, Failing{}}) {
        record->failing.clear();
        company->put_LastQDate(*makeDate(2026, 9, 30));
        open(record);
        record->failing = {"write LastQDate"};
        desktop.spin("spnQuarter", -1);
        record->failing = failing;
        typeDate("no date");
        EXPECT_EQ(scene.text("txtLastQDate"), "Jun/30/2026");
        EXPECT_EQ(markOf(scene, "txtLastQDate").empty(), failing.empty());
        EXPECT_EQ(scene.text("txtLast4QEPS"), failing.empty() ? "14.00" : "10.00");
    }
}

TEST_F(QuarterSpan, ARefusedLastQuarterKeepsItsDayWhereThePatternHasNone) {
    scene.entry->put_DateFormat("MMM YYYY");
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    record->failing = {"write LastQDate"};
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(scene.text("txtLastQDate"), "Jun 2026");
    record->failing.clear();
    goTo(scene, "txtLastQDate");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 6, 30));
}

TEST_F(QuarterSpan, AFigureThatWasTypedOverAnotherTakesItsPlaceOnceThereIsADate) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"read LastQDate"};
    open(record);
    ASSERT_EQ(scene.text("txtRevenue", 2), "102.00");
    typeOver(scene, "txtRevenue(2)", "7");
    pasteOver(scene, "txtRevenue(4)", "1e400");
    record->failing.clear();
    typeDate("6/30/2026");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 2), 7);
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 3), 103);
    EXPECT_EQ(scene.text("txtRevenue", 1), "7.00");
    EXPECT_EQ(scene.text("txtRevenue", 4), "105.00") << "another quarter by now";
}

// A record that has no last quarter may still say what quarters its figures are of.
TEST_F(QuarterSpan, ADateThatIsTypedWhereNoneIsShownRenamesNothing) {
    const struct {
        const char* typed;
        const char* shown; // afterwards
        int element;       // of the top row
        int row;           // that shows an element
    } rows[] = {{"9/30/2026", "Sep/30/2026", 0, 2},
                {"6/30/2026", "Jun/30/2026", 1, 2},
                {"3/31/2018", "Mar/31/2018", 34, 0}, // the oldest one
                {"12/31/2017", "", 0, 2},
                {"12/31/2026", "Dec/31/2026", -1, 2},
                {"6/30/2027", "Jun/30/2027", -3, 4},
                {"9/30/2027", "", 0, 2},
                {"no date", "", 0, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.typed);
        fill();
        load(*makeDate(2026, 9, 30));
        const auto record = std::make_shared<ScriptedRecord>(company);
        record->failing = {"read LastQDate"};
        open(record);
        ASSERT_EQ(scene.text("txtLastQDate"), "");
        record->failing.clear();
        typeDate(row.typed);
        EXPECT_EQ(desktop.messages().size(), *row.shown == 0 ? 1U : 0U);
        EXPECT_EQ(scene.text("txtLastQDate"), row.shown);
        EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
        for (int i = 0; i < 35; ++i)
            EXPECT_EQ(elementOf(*company, "QRevenueSeries", i), 100 + i);
        if (*row.shown != 0) {
            if (row.element >= 0 && row.element <= 31) {
                EXPECT_EQ(company->get_Last4QEPS(), 4 * (100 + row.element) + 6) << "of that one";
            }
            EXPECT_EQ(scene.text("txtRevenue", row.row),
                      std::to_string(100 + row.row + row.element) + ".00");
            typeOver(scene, "txtRevenue(" + std::to_string(row.row) + ")", "7");
            EXPECT_EQ(elementOf(*company, "QRevenueSeries", row.row + row.element), 7);
        }
    }
}

// A commit in the middle of typing writes the date as the text stands; leaving the field settles
// it.
TEST_F(QuarterSpan, ACommitWhileADateIsTypedRenamesNothing) {
    fill();
    company->put_LastQDateForGrid({});
    company->put_LastQDate(*makeDate(2026, 9, 30));
    open(company);
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}3/31/2020");
    scene.entry->put_blnDirty(false);
    EXPECT_EQ(company->get_LastQDateForGrid(), *makeDate(2026, 9, 30));
    desktop.type("{TAB}");
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 30));
    EXPECT_EQ(label(0), "9/30/2026");
}

// --- rows ----------------------------------------------------------------------------------------

TEST_F(QuarterSpan, TheNumberOfRowsIsCutToWhatThereIs) {
    load(*makeDate(2026, 9, 30));
    for (const auto& [asked, shown] : {std::pair{0, 1}, {40, 35}, {-3, 1}, {12, 12}, {9, 9}}) {
        scene.entry->put_VisibleQuarters(static_cast<std::int16_t>(asked));
        EXPECT_EQ(scene.entry->get_VisibleQuarters(), shown);
        for (const char* array : rowArrays)
            EXPECT_EQ(scene.form().upperBound(array), shown - 1) << array;
    }
    const Control* kept = scene.form().find("txtEPS", 8);
    desktop.forget();
    scene.entry->put_VisibleQuarters(9);
    EXPECT_EQ(scene.form().find("txtEPS", 8), kept);
    EXPECT_TRUE(desktop.propertyChanges().empty());
}

TEST_F(QuarterSpan, NewRowsContinueTheOldOnes) {
    fill();
    load(*makeDate(2026, 9, 30));
    scene.entry->put_VisibleQuarters(3);
    scene.entry->put_VisibleQuarters(7);
    for (const char* array : rowArrays)
        for (int row = 1; row < 7; ++row) {
            const Control& above = desktop.control(array, row - 1);
            const Control& added = desktop.control(array, row);
            EXPECT_EQ(added.left(), above.left());
            EXPECT_EQ(added.width(), above.width());
            EXPECT_EQ(added.top(), above.top() + above.height() +
                                       (std::string_view(array) == "lblQLabel" ? 45 : 15));
            EXPECT_TRUE(added.visible());
            EXPECT_EQ(added.container(), above.container());
            if (row > 2) {
                EXPECT_EQ(added.tabIndex(), above.tabIndex() + 1) << array << row;
            }
        }
    for (const char* array : cellArrays) {
        const auto& first = scene.form().get<TextBox>(array, 0);
        for (int row = 1; row < 7; ++row) {
            const auto& added = scene.form().get<TextBox>(array, row);
            EXPECT_EQ(added.height(), first.height());
            EXPECT_EQ(added.alignment(), first.alignment());
            EXPECT_EQ(added.maxLength(), first.maxLength());
            EXPECT_EQ(added.foreColor(), first.foreColor());
            EXPECT_FALSE(added.locked());
        }
    }
    for (int row = 0; row < 7; ++row) {
        EXPECT_EQ(scene.text("txtRevenue", row), std::to_string(100 + row) + ".00");
        EXPECT_EQ(desktop.control("lblQLabel", row).foreColor(),
                  desktop.control("lblQLabel", 0).foreColor());
        EXPECT_EQ(scene.form().get<Label>("lblQLabel", row).alignment(), Alignment::right);
    }
    EXPECT_EQ(label(6), "3/31/2025");
}

TEST_F(QuarterSpan, NewRowsOfALockedFormAreLocked) {
    fill();
    company->get_Settings()->put(setting::lockBasicInfo, true);
    load(*makeDate(2026, 9, 30));
    scene.entry->put_VisibleQuarters(3);
    scene.entry->put_VisibleQuarters(7);
    for (const char* array : cellArrays)
        for (int row = 0; row < 7; ++row)
            EXPECT_TRUE(scene.form().get<TextBox>(array, row).locked()) << array << row;
}

TEST_F(QuarterSpan, TheBarIsThereAsSoonAsARowHasNoRoom) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto& panel = desktop.control("fraDE", 3);
    const auto& view = *panel.container();
    const int fitting = bar().largeChange();
    for (const int count : {1, fitting, fitting + 1, fitting + 2, 35}) {
        scene.entry->put_VisibleQuarters(static_cast<std::int16_t>(count));
        EXPECT_EQ(bar().visible(), count > fitting) << count;
        EXPECT_EQ(bar().minimum(), 0) << count;
        EXPECT_EQ(bar().maximum(), std::max(0, count - fitting)) << count;
        EXPECT_EQ(bar().smallChange(), 1) << count;
        EXPECT_EQ(bar().largeChange(), fitting) << count;
        const auto& last = desktop.control("txtEPS", count - 1);
        EXPECT_EQ(panel.height(), std::max(view.height(), last.top() + last.height() + 15))
            << count;
        if (bar().visible())
            desktop.scroll("vscrQuarterly", bar().maximum());
        EXPECT_LE(panel.top() + last.top() + last.height(), view.height()) << count;
    }
    EXPECT_GT(desktop.control("txtEPS", fitting).top() +
                  desktop.control("txtEPS", fitting).height(),
              view.height())
        << "a row more has no room";
}

TEST_F(QuarterSpan, ARowThatGoesAwayWithTheFocusIsStoredFirst) {
    fill();
    load(*makeDate(2026, 9, 30));
    goTo(scene, "txtNetInc(8)");
    desktop.type("55");
    scene.entry->put_VisibleQuarters(8);
    EXPECT_EQ(elementOf(*company, "QNetIncSeries", 8), 55);
    EXPECT_EQ(desktop.focusedId(), "txtNetInc(7)");
    scene.entry->put_VisibleQuarters(4);
    EXPECT_EQ(desktop.focusedId(), "txtNetInc(3)");
    desktop.type("66{TAB}");
    EXPECT_EQ(elementOf(*company, "QNetIncSeries", 3), 66);
    scene.entry->put_VisibleQuarters(9);
    EXPECT_EQ(scene.text("txtNetInc", 8), "55.00");
}

TEST_F(QuarterSpan, NewRowsStoreNothingOfACellThatWasLeftForAnotherWindow) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    goTo(scene, "txtRevenue(8)");
    ASSERT_TRUE(desktop.leaveForm());
    record->log.clear();
    scene.entry->put_VisibleQuarters(12);
    EXPECT_EQ(record->logged("write "), std::vector<std::string>{});
}

TEST_F(QuarterSpan, AFigureThatIsBeingTypedSurvivesNewRows) {
    fill();
    load(*makeDate(2026, 9, 30));
    goTo(scene, "txtNetInc(8)");
    desktop.type("55");
    scene.entry->put_VisibleQuarters(12);
    EXPECT_EQ(elementOf(*company, "QNetIncSeries", 8), 55);
    EXPECT_EQ(desktop.focusedId(), "txtNetInc(8)");
    EXPECT_EQ(scene.field("txtNetInc", 8).selText(), "55.00");
}

// --- colours -------------------------------------------------------------------------------------

TEST_F(QuarterSpan, TheFifthRowIsYellow) {
    load(*makeDate(2026, 9, 30));
    const auto yellowRows = [&] {
        for (const char* array : rowArrays)
            for (int row = 0; row <= scene.form().upperBound(array); ++row)
                EXPECT_EQ(back(array, row) == Color{0xFFFF}, row == 4) << array << row;
    };
    yellowRows();
    scene.entry->put_VisibleQuarters(3);
    yellowRows();
    scene.entry->put_VisibleQuarters(9);
    yellowRows();
    scene.entry->put_ShadeColorQuarter(0x00FF00);
    yellowRows();
    desktop.spin("spnQuarter", -1);
    yellowRows();
    desktop.click("chkLockInfo");
    yellowRows();
}

TEST_F(QuarterSpan, TheFourQuartersOfTheLastFiscalYearAreShaded) {
    const struct {
        Date last;
        Date fiscalYear;
        std::vector<int> rows;
    } rows[] = {
        {*makeDate(2026, 9, 30), *makeDate(2025, 12, 31), {3, 5, 6}},
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {0, 1, 2, 3}},
        {*makeDate(2026, 5, 31), *makeDate(2025, 11, 30), {2, 3, 5}},
        {*makeDate(2026, 3, 28), *makeDate(2025, 9, 27), {2, 3, 5}},
        {*makeDate(2025, 12, 31), *makeDate(2026, 6, 30), {0, 1}},
        {*makeDate(2026, 9, 30), *makeDate(2020, 12, 31), {}},
    };
    for (const auto& row : rows) {
        load(row.last, row.fiscalYear);
        for (const char* cells : cellArrays) {
            std::vector<int> shaded;
            for (int i = 0; i < 9; ++i)
                if (back(cells, i) == colors::paleCyan)
                    shaded.push_back(i);
            EXPECT_EQ(shaded, row.rows) << cells;
        }
    }
    load(*makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", -3);
    EXPECT_EQ(back("txtEPS", 0), colors::paleCyan) << "with their quarters";
}

TEST_F(QuarterSpan, TheShadeFollowsTheDateOfTheLastFiscalYear) {
    load(*makeDate(2026, 9, 30));
    ASSERT_EQ(back("txtEPS", 3), colors::paleCyan);
    typeOver(scene, "txtDateofLastFY", "Sep/30/2026");
    EXPECT_EQ(back("txtEPS", 0), colors::paleCyan);
    EXPECT_EQ(back("txtEPS", 3), colors::paleCyan);
    EXPECT_EQ(back("txtEPS", 5), colors::white);
}

// --- scrolling -----------------------------------------------------------------------------------

TEST_F(QuarterSpan, TheBarBringsARowToTheTopWithItsCurrencySigns) {
    load(*makeDate(2026, 9, 30));
    EXPECT_FALSE(bar().visible()) << "nine rows fit";
    scene.entry->put_VisibleQuarters(35);
    ASSERT_TRUE(bar().visible());
    const auto before = company->clone();
    for (const int row : {5, bar().maximum(), 0}) {
        desktop.scroll("vscrQuarterly", row);
        const Twips top = desktop.control("txtEPS", row).top();
        EXPECT_EQ(desktop.control("fraDE", 3).top(), 15 - top);
        for (int i = 0; i <= 2; ++i)
            EXPECT_EQ(desktop.control("lblQCurrency", i).top(), top + 30);
        EXPECT_TRUE(desktop.canReach("txtEPS", row));
    }
    EXPECT_EQ(bar().maximum() + bar().largeChange(), 35) << "the last row stops at the bottom";
    EXPECT_TRUE(sameAs(*before, *company));
    goTo(scene, "txtEPS(12)");
    desktop.type("{DOWN}{DOWN}{DOWN}");
    EXPECT_EQ(desktop.focusedId(), "txtEPS(15)");
    EXPECT_TRUE(desktop.canReach("txtEPS", 15));
    scene.entry->put_VisibleQuarters(9);
    EXPECT_EQ(desktop.control("fraDE", 3).top(), 0);
}

TEST_F(QuarterSpan, PageKeysLookAtAllQuartersAndChangeNothing) {
    fill();
    load(*makeDate(2026, 9, 30));
    scene.entry->put_VisibleQuarters(35);
    const auto before = company->clone();
    goTo(scene, "txtEPS(2)");
    const int page = bar().largeChange();
    desktop.type("{PGDN}");
    EXPECT_EQ(bar().value(), page);
    EXPECT_EQ(desktop.focusedId(), "txtEPS(" + std::to_string(2 + page) + ")");
    EXPECT_TRUE(desktop.canReach(desktop.focusedId()));
    for (int i = 0; i < 5; ++i)
        desktop.type("{PGDN}");
    EXPECT_EQ(bar().value(), bar().maximum());
    EXPECT_EQ(desktop.focusedId(), "txtEPS(34)");
    EXPECT_FALSE(scene.form().keyDown(keys::pageDown, shifts::none)) << "no key of the cell's";
    for (int i = 0; i < 5; ++i)
        desktop.type("{PGUP}");
    EXPECT_EQ(bar().value(), 0);
    EXPECT_EQ(desktop.focusedId(), "txtEPS(0)");
    goTo(scene, "txtLastQDate");
    desktop.type("{PGDN}");
    EXPECT_EQ(bar().value(), page) << "from anywhere on the tab";
    EXPECT_EQ(desktop.focusedId(), "txtLastQDate");
    desktop.type("^{PGDN}");
    EXPECT_EQ(scene.entry->get_CurrentTab(), toOther) << "with Ctrl it is the next tab";
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST_F(QuarterSpan, ThePageKeysStoreWhatIsBeingTypedAndStopAtTheLastQuarterOfTheRecord) {
    fill();
    const Date last = *makeDate(2026, 9, 30);
    load(last);
    scene.entry->put_VisibleQuarters(35);
    goTo(scene, "txtRevenue(0)");
    desktop.type("^a7{PGDN}");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 7);
    desktop.spin("spnQuarter", -20); // the rows below show no quarter of the record
    goTo(scene, "txtRevenue(0)");
    for (int i = 0; i < 4; ++i)
        desktop.type("{PGDN}");
    EXPECT_EQ(desktop.focusedId(), "txtRevenue(14)");
}

// --- whether there is any data -------------------------------------------------------------------

TEST_F(QuarterSpan, DataIsFoundInTheRecordAndOnTheScreen) {
    EXPECT_FALSE(scene.entry->blnExistsQuarterlyData()) << "no record";
    load(*makeDate(2026, 9, 30));
    EXPECT_FALSE(scene.entry->blnExistsQuarterlyData());
    for (const char* name : {"QRevenueSeries", "QEPSSeries", "QPTISeries", "QNetIncSeries"})
        for (const int element : {0, 34}) {
            putElement(*company, name, element, -0.5);
            EXPECT_TRUE(scene.entry->blnExistsQuarterlyData()) << name << element;
            putElement(*company, name, element, 0);
        }
    putElement(*company, "QTaxRateSeries", 1, 20);
    EXPECT_FALSE(scene.entry->blnExistsQuarterlyData()) << "not on show";
    goTo(scene, "txtRevenue(3)");
    desktop.type("1.5");
    EXPECT_TRUE(scene.entry->blnExistsQuarterlyData()) << "being typed";
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 3), 0);
}

TEST_F(QuarterSpan, TheFocusGoesOnFromACellThatASmallerRecordDoesNotReach) {
    load(*makeDate(2026, 9, 30));
    goTo(scene, "txtRevenue(4)");
    const auto smaller = std::make_shared<ScriptedRecord>(company);
    smaller->missing = 32; // three quarters
    scene.load(smaller);
    EXPECT_FALSE(desktop.control("txtRevenue(4)").enabled());
    EXPECT_EQ(desktop.focusedId(), "txtEPS(0)");
    smaller->missing = 0;
    scene.load(smaller);
    goTo(scene, "txtEPS(5)");
    smaller->missing = 29; // six quarters, of which the view leaves out one
    desktop.spin("spnQuarter", -1);
    EXPECT_FALSE(desktop.control("txtEPS(5)").enabled());
    EXPECT_TRUE(desktop.control(desktop.focusedId()).canTakeFocus()) << desktop.focusedId();
}

TEST_F(QuarterSpan, ADateThatIsRejectedAfterACommitLeavesTheCompanyChanged) {
    fill();
    for (const Date before : {*makeDate(2026, 9, 30), Date{-346306}}) { // which shows as none
        SCOPED_TRACE(before.serial);
        company->put_LastQDate(before);
        company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
        open(company);
        desktop.click("txtLastQDate");
        desktop.type("^a12/31/2005");
        scene.entry->put_blnDirty(false); // as a host does that saves meanwhile
        ASSERT_EQ(company->get_LastQDate(), *makeDate(2005, 12, 31));
        desktop.type("{TAB}");
        EXPECT_EQ(desktop.messages().size(), 1U);
        EXPECT_EQ(company->get_LastQDate(), before);
        EXPECT_TRUE(scene.entry->get_blnDirty());
    }
}

TEST_F(QuarterSpan, ADateThatTheRecordDoesNotTakeBackAfterACommitIsMarked) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    desktop.click("txtLastQDate");
    desktop.type("^a12/31/2005");
    scene.entry->put_blnDirty(false);
    record->failing = {"write LastQDate"};
    desktop.type("{TAB}");
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    EXPECT_TRUE(scene.field("txtLastQDate").isUnstored());
}

TEST_F(QuarterSpan, ADateThatIsTakenBackAfterACommitIsTakenBackInTheRecord) {
    fill();
    for (const char* takenBack : {"{ESC}", "^z", "^aSep/30/2026"}) {
        SCOPED_TRACE(takenBack);
        load(*makeDate(2026, 9, 30));
        desktop.click("txtLastQDate");
        desktop.type("^a12/31/2005");
        scene.entry->put_blnDirty(false); // as a host does that saves meanwhile
        ASSERT_EQ(company->get_LastQDate(), *makeDate(2005, 12, 31));
        desktop.type(takenBack + std::string("{TAB}"));
        EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
        EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 30));
        EXPECT_TRUE(scene.entry->get_blnDirty());
        scene.entry->put_blnDirty(false);
        desktop.click("txtLastQDate");
        company->put_LastQDate(*makeDate(2026, 9, 29)); // by the host
        desktop.type("{TAB}");
        EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 29)) << "nothing was typed";
    }
}

TEST_F(QuarterSpan, WhatWasCommittedIntoOneRecordIsNotTakenBackInTheNext) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.click("txtLastQDate");
    desktop.type("^a12/31/2005");
    scene.entry->put_blnDirty(false);
    const auto next = datedCompany();
    scene.load(next);
    ASSERT_EQ(desktop.focusedId(), "txtLastQDate");
    next->put_LastQDate(*makeDate(2026, 9, 29)); // by the host
    desktop.type("{TAB}");
    EXPECT_EQ(next->get_LastQDate(), *makeDate(2026, 9, 29));
}

TEST_F(QuarterSpan, ADateThatIsRejectedWhereNoneCouldBeReadLeavesThatOfNoOtherRecord) {
    load(*makeDate(2020, 3, 31));
    company = datedCompany();
    fill();
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"read LastQDate"};
    open(record);
    record->failing.clear();
    desktop.click("txtLastQDate");
    desktop.type("^a12/31/2005");
    std::ignore = scene.entry->get_objCompany();
    ASSERT_EQ(company->get_LastQDate(), *makeDate(2005, 12, 31));
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 30)) << "as the newest quarter says";
}

TEST_F(QuarterSpan, ALastQuarterThatCanNotBeReadAnewNamesNoQuarters) {
    fill();
    load(*makeDate(2026, 9, 30));
    const auto record = std::make_shared<ScriptedRecord>(company);
    open(record);
    record->failing = {"read LastQDate"};
    scene.entry->recordChanged();
    EXPECT_EQ(label(0), "");
    typeOver(scene, "txtRevenue(0)", "7");
    EXPECT_EQ(elementOf(*company, "QRevenueSeries", 0), 100);
    record->failing.clear();
    scene.entry->recordChanged();
    EXPECT_EQ(label(0), "9/30/2026");
}

TEST_F(QuarterSpan, AClearedFormNamesNoQuartersAndNoFiscalYear) {
    fill();
    load(*makeDate(2026, 9, 30));
    ASSERT_EQ(desktop.control("txtRevenue(1)").accessibleName(), "Revenue (M) 6/30/2026");
    ASSERT_NE(scene.form().get<Label>("lblDatOfLastFY").caption(), "");
    scene.entry->Clear();
    for (int row = 0; row < 9; ++row)
        EXPECT_EQ(label(row), "");
    EXPECT_EQ(desktop.control("txtRevenue(1)").accessibleName(), "Revenue (M)");
    EXPECT_EQ(desktop.control("txtSales(1)").accessibleName(), "Revenue (M)");
    EXPECT_EQ(scene.form().get<Label>("lblDatOfLastFY").caption(), "");
}

TEST_F(QuarterSpan, ADateThatIsRejectedInAClearedFormLeavesTheRecordsOwn) {
    fill();
    load(*makeDate(2026, 9, 30));
    desktop.spin("spnQuarter", -1);
    const Date before = company->get_LastQDate();
    ASSERT_EQ(before, *makeDate(2026, 6, 30));
    scene.entry->Clear();
    for (const bool committed : {false, true}) {
        SCOPED_TRACE(committed);
        desktop.click("txtLastQDate");
        desktop.type("^a12/31/2005");
        if (committed)
            std::ignore = scene.entry->get_objCompany();
        desktop.type("{TAB}");
        EXPECT_EQ(company->get_LastQDate(), before);
    }
}

TEST_F(QuarterSpan, ARowJustOutOfViewComesIntoItByOneRow) {
    fill();
    load(*makeDate(2026, 9, 30));
    scene.entry->put_VisibleQuarters(35);
    const int last = bar().largeChange() - 1; // in view
    desktop.click("txtRevenue(0)");
    for (int row = 0; row < last; ++row)
        desktop.type("{DOWN}");
    EXPECT_EQ(bar().value(), 0);
    desktop.type("{DOWN}");
    EXPECT_EQ(bar().value(), 1);
    desktop.type("{DOWN}");
    EXPECT_EQ(bar().value(), 2);
    for (int row = 0; row < last; ++row)
        desktop.type("{UP}");
    EXPECT_EQ(bar().value(), 2);
    desktop.type("{UP}");
    EXPECT_EQ(bar().value(), 1);
}

} // namespace
} // namespace vkr
