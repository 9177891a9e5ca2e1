// SPDX-License-Identifier: MIT
#include "binding/trailing_earnings.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>

namespace vkr {
namespace {

using namespace test;

struct LastFourQuarters : testing::Test {
    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = datedCompany();

    void quarters(std::vector<double> earnings) {
        for (int i = 0; i < static_cast<int>(earnings.size()); ++i)
            putElement(*company, "QEPSSeries", i, earnings[static_cast<std::size_t>(i)]);
    }
    void load() {
        scene.load(company);
        desktop.clickTab(toQuarterly);
    }
    [[nodiscard]] std::string shown() const { return scene.text("txtLast4QEPS"); }
};

TEST_F(LastFourQuarters, AreTheSumOfFourQuartersOnLoading) {
    const struct {
        std::vector<double> earnings;
        double sum; // 9 was stored before
    } rows[] = {
        {{1, 2, 3, 4, 5}, 10},
        {{0.1, 0.2, 0.3, 0.4}, 1},
        {{-1, 2, -3, 4}, 2},
        {{0, 2, 3, 4, 5}, 9}, // the newest is still empty
        {{1, 2, 3}, 9},       // three are no four
        {{0, 1, 2, 3}, 9},
        {{1, 0, 3, 4, 5}, 9},
        {{0, 0, 3, 4, 5, 6}, 9},
        {{1, -1, 1, -1, 5}, 0},
        {{}, 9},
    };
    for (const auto& row : rows) {
        company = datedCompany();
        company->put_Last4QEPS(9);
        quarters(row.earnings);
        load();
        EXPECT_EQ(company->get_Last4QEPS(), row.sum);
        EXPECT_FALSE(scene.entry->get_blnDirty());
    }
}

TEST_F(LastFourQuarters, FollowEveryTypedQuarterAtOnce) {
    quarters({1, 2, 3, 4});
    load();
    EXPECT_EQ(shown(), "10.00");
    typeOver(scene, "txtEPS(2)", "3.5");
    EXPECT_EQ(shown(), "10.50");
    EXPECT_EQ(company->get_Last4QEPS(), 10.5);
    EXPECT_EQ(scene.field("txtLast4QEPS").tag(), "10.50");
    typeOver(scene, "txtEPS(6)", "100");
    EXPECT_EQ(shown(), "10.50") << "not one of the four";
    typeOver(scene, "txtEPS(3)", "");
    EXPECT_EQ(shown(), "10.50") << "three are no four";
    EXPECT_EQ(company->get_Last4QEPS(), 10.5);
    typeOver(scene, "txtEPS(3)", "-4");
    EXPECT_EQ(shown(), "2.50");
}

TEST_F(LastFourQuarters, AnAddedQuarterLeavesTheSumUntilItIsTyped) {
    quarters({1, 2, 3, 4});
    load();
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    EXPECT_EQ(shown(), "10.00");
    typeOver(scene, "txtEPS(0)", "5");
    EXPECT_EQ(shown(), "11.00");
}

TEST_F(LastFourQuarters, OfAQuarterThatIsMissingAreTheYearlyFigureOfTheirFiscalYear) {
    const struct {
        Date quarter;
        Date fiscalYear;
        std::vector<double> earnings;
        double expected; // 9 was stored before
    } rows[] = {
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {1, 2, 3, 4}, 10},
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {0, 2, 3, 4}, 10.1},
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {1, 2, 3}, 10.1},
        {*makeDate(2025, 12, 31), *makeDate(2025, 12, 31), {}, 10.1},
        {*makeDate(2026, 3, 31), *makeDate(2025, 12, 31), {1, 2, 3, 4, 5}, 10},
        {*makeDate(2026, 3, 31), *makeDate(2025, 12, 31), {0, 1, 2, 3, 4}, 9},
        {*makeDate(2023, 1, 1), *makeDate(2022, 12, 31), {1, 0, 3, 4}, 10.1},
        {*makeDate(2022, 12, 31), *makeDate(2022, 9, 24), {1, 2, 3, 4, 5}, 10},
        {*makeDate(2022, 12, 31), *makeDate(2022, 9, 24), {1, 2, 3}, 9},
    };
    for (const auto& row : rows) {
        company = datedCompany();
        company->put_Last4QEPS(9);
        company->put_LastQDate(row.quarter);
        company->put_LastQDateForGrid(row.quarter);
        company->put_LastFYDate(row.fiscalYear);
        putElement(*company, "YEPSSeries", 1, 10.1);
        quarters(row.earnings);
        load();
        EXPECT_EQ(company->get_Last4QEPS(), row.expected);
    }
}

// The four quarters of 2025, of which the last may be missing.
struct FiscalYearEarnings : LastFourQuarters {
    void load(double last) {
        company->put_LastQDate(*makeDate(2025, 12, 31));
        company->put_LastQDateForGrid(*makeDate(2025, 12, 31));
        quarters({last, 2, 3, 4, 5});
        LastFourQuarters::load();
    }
};

TEST_F(FiscalYearEarnings, AreTheYearlyFigureAsSoonAsItIsTyped) {
    company->put_Last4QEPS(9);
    load(0);
    EXPECT_EQ(company->get_Last4QEPS(), 9);
    typeOver(scene, "txtYEPS(8)", "8");
    EXPECT_EQ(shown(), "9.00") << "of another year";
    typeOver(scene, "txtYEPS(9)", "10.1");
    EXPECT_EQ(shown(), "10.10");
    EXPECT_EQ(company->get_Last4QEPS(), 10.1);
    typeOver(scene, "txtLast4QEPS", "9");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "Stored for now. The earnings in the tables give "
                                             "another figure, which will replace this one: 10.10");
    typeOver(scene, "txtEPS(0)", "1.5");
    EXPECT_EQ(shown(), "10.50") << "all four are there";
    typeOver(scene, "txtYEPS(9)", "11");
    EXPECT_EQ(shown(), "10.50");
    typeOver(scene, "txtEPS(0)", "");
    EXPECT_EQ(shown(), "11.00");
}

TEST_F(FiscalYearEarnings, AreTheYearlyFigureAsSoonAsTheirYearIsTheLastOne) {
    company->put_Last4QEPS(9);
    company->put_LastFYDate(*makeDate(2025, 9, 30));
    putElement(*company, "YEPSSeries", 1, 10.1);
    load(0);
    EXPECT_EQ(shown(), "9.00");
    typeOver(scene, "txtDateofLastFY", "12/31/2025");
    EXPECT_EQ(shown(), "10.10");
    typeOver(scene, "txtDateofLastFY", "9/30/2025");
    EXPECT_EQ(shown(), "10.10") << "what is stored stays";
}

TEST_F(FiscalYearEarnings, FollowTheFiscalYearThatIsAddedOrRemoved) {
    company->put_Last4QEPS(9);
    company->put_LastFYDate(*makeDate(2024, 12, 31));
    putElement(*company, "YEPSSeries", 0, 10.1);
    load(0);
    EXPECT_EQ(company->get_Last4QEPS(), 9);
    desktop.clickTab(toYearly);
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddYear");
    EXPECT_EQ(company->get_Last4QEPS(), 10.1);
    scene.load(company);
    EXPECT_EQ(company->get_Last4QEPS(), 10.1) << "as on loading";
}

TEST_F(FiscalYearEarnings, AreWorkedOutWhicheverQuarterWasOnShowWhenTheYearWasTyped) {
    load(0);
    desktop.spin("spnQuarter", -1);
    EXPECT_EQ(shown(), "14.00");
    typeOver(scene, "txtYEPS(9)", "10.2");
    EXPECT_EQ(shown(), "14.00");
    desktop.clickTab(toQuarterly);
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(shown(), "10.20");
    EXPECT_EQ(company->get_Last4QEPS(), 10.2);
}

TEST_F(LastFourQuarters, TypedByHandOutliveAFiscalYearThatHasNoPartInThem) {
    quarters({1, 2, 3, 4});
    load();
    typeOver(scene, "txtLast4QEPS", "10.25");
    typeOver(scene, "txtYEPS(9)", "8");
    typeOver(scene, "txtDateofLastFY", "6/30/2025");
    EXPECT_EQ(company->get_Last4QEPS(), 10.25);
}

TEST_F(LastFourQuarters, TypedByHandComeBackWhereTheQuartersAreNotAllThere) {
    quarters({0, 0, 2.5, 2.5, 2.5, 2.5});
    load();
    typeOver(scene, "txtLast4QEPS", "9.99");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "");
    desktop.clickTab(toQuarterly);
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(shown(), "10.00");
    typeOver(scene, "txtYEPS(9)", "7");
    desktop.clickTab(toQuarterly);
    desktop.spin("spnQuarter", 2);
    EXPECT_EQ(company->get_Last4QEPS(), 9.99);
    EXPECT_EQ(shown(), "9.99");
}

TEST_F(LastFourQuarters, TypedByHandAreDoubtfulWhereTheQuartersSaySomethingElse) {
    quarters({1, 2, 3, 4});
    load();
    typeOver(scene, "txtLast4QEPS", "10.25");
    EXPECT_EQ(company->get_Last4QEPS(), 10.25) << "stored all the same";
    EXPECT_EQ(
        scene.field("txtLast4QEPS").mark(),
        (FieldMark{MarkKind::doubtful, "Stored for now. The earnings in the tables give another "
                                       "figure, which will replace this one: 10.00"}));
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    goTo(scene, "txtEPS(7)");
    desktop.type("{TAB}"); // the company is a changed one
    EXPECT_EQ(shown(), "10.00");
    EXPECT_EQ(company->get_Last4QEPS(), 10);
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "");
    typeOver(scene, "txtLast4QEPS", "11");
    ASSERT_NE(markOf(scene, "txtLast4QEPS"), "");
    typeOver(scene, "txtLast4QEPS", "10");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "") << "what they add up to";
}

TEST_F(LastFourQuarters, TypedByHandStayDoubtfulWhoeverAgrees) {
    const std::string doubt = "Stored for now. The earnings in the tables give another figure, "
                              "which will replace this one: 10.00";
    quarters({1, 2, 3, 4});
    load();
    pasteOver(scene, "txtLast4QEPS", "10.25M");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "Taken as 10.25; \"M\" was left out. " + doubt);
    for (const char* keys : {"~", "~", "5{BACKSPACE}^a10.25{TAB}", "1{ESC}{TAB}", "{TAB}"}) {
        typeAt(scene, "txtLast4QEPS", keys);
        EXPECT_EQ(markOf(scene, "txtLast4QEPS"), doubt) << keys;
        EXPECT_EQ(company->get_Last4QEPS(), 10.25);
    }
    goTo(scene, "txtEPS(7)");
    desktop.type("{TAB}");
    EXPECT_EQ(shown(), "10.00");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "");
    typeAt(scene, "txtLast4QEPS", "~");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "");
}

TEST_F(LastFourQuarters, TypedByHandAreToldWhereTheyGiveWayUnannounced) {
    quarters({0, 2, 3, 4});
    load();
    for (const auto& [typed, doubt] :
         {std::pair{"9.99", ""}, {"9.99M", "Taken as 9.99; \"M\" was left out."}}) {
        SCOPED_TRACE(typed);
        pasteOver(scene, "txtLast4QEPS", typed);
        EXPECT_EQ(markOf(scene, "txtLast4QEPS"), doubt) << "nothing would replace them";
        typeOver(scene, "txtEPS(0)", "1");
        EXPECT_EQ(shown(), "10.00");
        EXPECT_EQ(scene.field("txtLast4QEPS").mark(),
                  (FieldMark{MarkKind::doubtful, "9.99 was typed here. What the earnings in the "
                                                 "tables give has taken its place."}));
        typeOver(scene, "txtEPS(0)", "2");
        EXPECT_EQ(shown(), "11.00");
        EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "") << "nobody has typed the 10";
        typeOver(scene, "txtEPS(0)", "");
    }
}

TEST_F(LastFourQuarters, TypedByHandAreInNoDoubtWhileNobodyKnowsWhetherTheyAreStillThere) {
    quarters({1, 2, 3, 4});
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    typeOver(scene, "txtLast4QEPS", "10.25");
    record->failing = {"read Last4QEPS"};
    typeAt(scene, "txtLast4QEPS", "~");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "");
    record->failing.clear();
    typeOver(scene, "txtEPS(0)", "2");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"),
              "10.25 was typed here. What the earnings in the tables give has taken its place.");
}

TEST_F(LastFourQuarters, TypedByHandAreComparedWithWhatTheRecordHasNow) {
    quarters({1, 2, 3, 4});
    load();
    putElement(*company, "QEPSSeries", 0, 2); // by the host
    typeOver(scene, "txtLast4QEPS", "10");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "Stored for now. The earnings in the tables give "
                                             "another figure, which will replace this one: 11.00");
}

TEST_F(LastFourQuarters, AreFlaggedInTheRecordOnceTheyAreWorkedOut) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    EXPECT_TRUE(record->quarterlyFlag.isEmpty());
    quarters({1, 2, 3, 4});
    scene.load(record);
    EXPECT_EQ(record->quarterlyFlag, Variant(true));
}

TEST_F(LastFourQuarters, AreStoredWhereWhatWasThereCantBeRead) {
    for (const bool readableOnceWritten : {true, false}) {
        quarters({0, 2, 3, 4});
        company->put_Last4QEPS(0);
        const auto record = std::make_shared<ScriptedRecord>(company);
        scene.load(record);
        typeOver(scene, "txtLast4QEPS", "9");
        record->failing = {"read Last4QEPS"};
        record->hook = [&](const std::string& operation) {
            if (operation == "write Last4QEPS" && readableOnceWritten)
                record->failing.clear();
        };
        typeOver(scene, "txtEPS(0)", "2");
        EXPECT_EQ(company->get_Last4QEPS(), 11);
        if (readableOnceWritten) {
            EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "") << "nobody knows what it has replaced";
        }
        scene.load(datedCompany());
    }
}

TEST_F(LastFourQuarters, TypedIntoAnotherCompanyAreNone) {
    quarters({0, 2, 3, 4});
    load();
    typeOver(scene, "txtLast4QEPS", "9.99");
    company = datedCompany();
    quarters({0, 2, 3, 4});
    company->put_Last4QEPS(9.99);
    load();
    typeOver(scene, "txtEPS(0)", "1");
    EXPECT_EQ(shown(), "10.00");
    EXPECT_EQ(markOf(scene, "txtLast4QEPS"), "");
}

TEST_F(LastFourQuarters, AreWorkedOutAnewWhenAnEarningsCellOfAChangedCompanyIsLeft) {
    quarters({1, 2, 3, 4});
    load();
    company->put_Last4QEPS(9); // by the host
    goTo(scene, "txtEPS(7)");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_Last4QEPS(), 9) << "nothing was changed";
    typeOver(scene, "txtName", "Acme");
    goTo(scene, "txtRevenue(7)");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_Last4QEPS(), 9) << "no earnings cell";
    goTo(scene, "txtEPS(7)");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_Last4QEPS(), 10);
    EXPECT_EQ(shown(), "10.00");
}

TEST_F(LastFourQuarters, ThatFollowWhatTheHostHasPutIntoAQuarterAreAChange) {
    quarters({1, 2, 3, 4});
    load();
    putElement(*company, "QEPSSeries", 0, 2);
    for (const char* id : {"txtYEPS(8)", "txtSales(9)"}) {
        goTo(scene, id);
        goTo(scene, "txtSales(0)");
        EXPECT_EQ(company->get_Last4QEPS(), 10) << id;
    }
    goTo(scene, "txtYEPS(9)");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    desktop.type("{TAB}");
    EXPECT_EQ(shown(), "11.00");
    EXPECT_EQ(company->get_Last4QEPS(), 11);
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

TEST_F(LastFourQuarters, RestWhileTheDateIsEmptied) {
    quarters({1, 2, 3, 4});
    load();
    typeOver(scene, "txtLast4QEPS", "10.25");
    goTo(scene, "txtLastQDate");
    desktop.type("^a{DEL}");
    desktop.click("cmdCancel");
    typeOver(scene, "txtEPS(0)", "5");
    EXPECT_EQ(company->get_Last4QEPS(), 10.25);
    EXPECT_EQ(shown(), "10.25");
}

TEST(TrailingEarningsRule, IsTheProjectsOwnOnceItIsRegistered) {
    ObjectFactory factory;
    EXPECT_EQ(factory.create(trailingEarningsId), nullptr);
    registerTrailingEarnings(factory);
    EXPECT_NE(std::dynamic_pointer_cast<TrailingEarnings>(factory.create(trailingEarningsId)),
              nullptr);
}

TEST(TrailingEarningsRule, NeedsBothDatesOfTheQuarters) {
    const Date end = *makeDate(2025, 12, 31);
    const auto ofYear = [&](Date lastQuarter, Date newestQuarter) {
        return newTrailingEarnings()->lastFour({.lastQuarter = lastQuarter,
                                                .newestQuarter = newestQuarter,
                                                .quarterly = numberArray({}),
                                                .yearly = 10,
                                                .fiscalYearEnd = end});
    };
    EXPECT_EQ(ofYear(end, end), 10);
    EXPECT_EQ(ofYear(end, {}), std::nullopt);
    EXPECT_EQ(ofYear({}, end), std::nullopt);
}

// --- the rule of a host --------------------------------------------------------------------------

struct ScriptedRule final : TrailingEarnings {
    std::vector<EarningsInput> asked;
    std::optional<double> answer = 42;
    bool fails = false;

    std::optional<double> lastFour(const EarningsInput& input) override {
        asked.push_back(input);
        if (fails)
            throw std::runtime_error("no rule today");
        return answer;
    }
};

struct RuleOfAHost : LastFourQuarters {
    std::shared_ptr<ScriptedRule> rule = std::make_shared<ScriptedRule>();
    int made = 0;

    RuleOfAHost() {
        desktop.factory().add(trailingEarningsId, [this] {
            ++made;
            return rule;
        });
        company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
        company->put_LastQDate(*makeDate(2026, 6, 30));
        putElement(*company, "YEPSSeries", 1, 10.1);
        quarters({1, 2, 3, 4, 5});
    }
};

TEST_F(RuleOfAHost, IsMadeOnFirstUseAndKept) {
    EXPECT_EQ(made, 0);
    load();
    scene.load(datedCompany());
    typeOver(scene, "txtEPS(1)", "2");
    EXPECT_EQ(made, 1);
    EXPECT_GE(rule->asked.size(), 3U);
}

TEST_F(RuleOfAHost, IsToldTheDatesTheQuartersAndTheYear) {
    load();
    typeOver(scene, "txtEPS(0)", "2.5");
    ASSERT_FALSE(rule->asked.empty());
    const auto& input = rule->asked.back();
    EXPECT_EQ(input.lastQuarter, *makeDate(2026, 6, 30));
    EXPECT_EQ(input.newestQuarter, *makeDate(2026, 9, 30));
    EXPECT_EQ(input.quarterly.array().number(1), 2.5);
    EXPECT_EQ(input.yearly, 10.1);
    EXPECT_EQ(input.fiscalYearEnd, *makeDate(2025, 12, 31));
    EXPECT_EQ(company->get_Last4QEPS(), 42);
    EXPECT_EQ(shown(), "42.00");
}

TEST_F(RuleOfAHost, IsToldNoYearlyFigureWhereTheRecordHasNone) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    for (const int missing : {0, 10}) { // it can't be read, there is no element 1
        record->failing.clear();
        record->missing = missing;
        if (missing == 0)
            record->failing = {"read YEPSSeries"};
        scene.load(record);
        ASSERT_FALSE(rule->asked.empty());
        EXPECT_EQ(rule->asked.back().yearly, 0) << missing;
    }
}

TEST_F(RuleOfAHost, IsToldTheLastQuarterAsTheNewestWhereTheRecordNamesNone) {
    company->put_LastQDateForGrid(Date{-346306}); // of no year
    const auto record = std::make_shared<ScriptedRecord>(company);
    record->failing = {"write LastQDateForGrid"};
    scene.load(record);
    ASSERT_FALSE(rule->asked.empty());
    EXPECT_EQ(rule->asked.back().newestQuarter, *makeDate(2026, 6, 30));
}

TEST_F(RuleOfAHost, LeavesWhatIsStoredWhereItFailsOrHasNoAnswer) {
    company->put_Last4QEPS(9);
    for (int way = 0; way < 3; ++way) {
        rule->fails = way == 0;
        rule->answer = way == 1 ? std::nullopt : std::optional(std::nan(""));
        load();
        typeOver(scene, "txtEPS(0)", "2." + std::to_string(way));
        EXPECT_EQ(company->get_Last4QEPS(), 9) << way;
        EXPECT_EQ(shown(), "9.00") << way;
    }
}

TEST_F(RuleOfAHost, WithoutOneTheProjectsOwnCounts) {
    const ObjectFactory::Creator none[] = {
        {},
        [] { return nullptr; },
        [] { return std::make_shared<Object>(); },
        []() -> std::shared_ptr<Object> { throw std::runtime_error("no class"); }};
    for (const auto& creator : none) {
        EntryScene other;
        other.desktop.factory().remove(trailingEarningsId);
        if (creator)
            other.desktop.factory().add(trailingEarningsId, creator);
        other.load(company);
        EXPECT_EQ(company->get_Last4QEPS(), 14);
        company->put_Last4QEPS(9);
    }
}

// --- what moves them -----------------------------------------------------------------------------

TEST_F(LastFourQuarters, FollowAQuarterThatIsStoredAtTheSecondTry) {
    quarters({1, 2, 3, 4});
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    record->failing = {"write QEPSSeries"};
    typeOver(scene, "txtEPS(0)", "2");
    EXPECT_EQ(company->get_Last4QEPS(), 10);
    record->failing.clear();
    goTo(scene, "txtEPS(0)");
    desktop.type("{TAB}");
    EXPECT_EQ(elementOf(*company, "QEPSSeries", 0), 2);
    EXPECT_EQ(company->get_Last4QEPS(), 11);
    EXPECT_EQ(shown(), "11.00");
}

TEST_F(LastFourQuarters, BelongToTheLastQuarterOnShow) {
    quarters({1, 2, 3, 4, 5, 6});
    load();
    typeOver(scene, "txtLast4QEPS", "10.25");
    desktop.clickTab(toQuarterly);
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(shown(), "18.00");
    desktop.spin("spnQuarter", -2);
    EXPECT_EQ(shown(), "18.00") << "not all four are there";
    desktop.spin("spnQuarter", 4);
    EXPECT_EQ(shown(), "10.00") << "the doubt said so";
    EXPECT_EQ(company->get_Last4QEPS(), 10);
    desktop.spin("spnQuarter", -1);
    typeOver(scene, "txtEPS(0)", "2.5");
    desktop.spin("spnQuarter", 1);
    EXPECT_EQ(shown(), "10.50") << "a quarter was typed since";
}

} // namespace
} // namespace vkr
