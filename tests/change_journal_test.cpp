// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "company/company_base.hpp"
#include "company/company_csv.hpp"
#include "company/figure_origins.hpp"
#include "company/period_moves.hpp"
#include "company/record_snapshot.hpp"
#include "company/split.hpp"
#include "platform/error_trap.hpp"
#include "support/change_lists.hpp"
#include "support/elements.hpp"
#include "support/entry_scene.hpp"
#include "support/failing_memory.hpp"
#include "support/field_steps.hpp"
#include "support/period_import.hpp"
#include "support/random_company.hpp"
#include "support/scripted_record.hpp"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <map>
#include <random>

namespace vkr {
namespace {

// A journal over a record that fails on demand.
class Journal : public testing::Test {
  protected:
    void type(Datum series, int element, double figure) {
        test::putElement(*journal, series, element, figure);
    }
    [[nodiscard]] static std::string brief(const Change& change) {
        const std::string name(change.setting.empty() ? rowOf(change.datum).name
                                                      : std::string_view(change.setting));
        const auto text = [](const Variant& value) {
            return value.isArray() ? "series" : value.toText();
        };
        return name + (change.element ? "(" + std::to_string(*change.element) + ")" : "") + " " +
               text(change.before) + " > " + text(change.after);
    }
    [[nodiscard]] std::vector<std::string> brief(std::size_t group) const {
        std::vector<std::string> lines;
        const auto groups = journal->groups();
        for (const Change& change : groups.at(group).changes)
            lines.push_back(brief(change));
        return lines;
    }
    // What leads from `saved` to the record, done over again.
    void expectTheWayFrom(const CompanyRecord& saved) const {
        const auto way = std::make_shared<ChangeJournal>(saved.clone());
        for (const ChangeGroup& group : journal->unsaved())
            EXPECT_EQ(way->apply(group), std::nullopt);
        EXPECT_TRUE(sameAs(*way, *company));
    }

    std::shared_ptr<CompanyRecord> company = fullCompany();
    std::shared_ptr<ScriptedRecord> record = std::make_shared<ScriptedRecord>(company);
    std::shared_ptr<ChangeJournal> journal = std::make_shared<ChangeJournal>(record);
    using Lines = std::vector<std::string>;
};

TEST_F(Journal, PassesEverythingOn) {
    journal->put_Name("Acme");
    journal->get_Settings()->put(setting::unit, std::int16_t{9});
    EXPECT_EQ(company->get_Name(), "Acme");
    EXPECT_EQ(journal->get_Name(), "Acme");
    EXPECT_EQ(company->get_Settings()->get(setting::unit).toLong(), 9);
    static_cast<void>(journal->BeginYearShift(0));
    static_cast<void>(journal->get_YearShiftPrices());
    journal->put_QuarterlyFlag(true);
    EXPECT_EQ(record->logged("write QuarterlyFlag").size(), 1U);
    EXPECT_EQ(record->logged("call"), Lines{"call BeginYearShift"});
    EXPECT_TRUE(sameAs(*journal, *company));
    record->withoutObjects = true;
    EXPECT_EQ(journal->get_Settings(), nullptr);
}

TEST_F(Journal, PassesOnWhatTheRecordThrowsAndNotesNothing) {
    record->failing.insert("write Name");
    EXPECT_THROW(journal->put_Name("Acme"), std::exception);
    EXPECT_FALSE(journal->canUndo());
}

TEST_F(Journal, AWriteOutsideOfAnActionIsAGroupOfItsOwn) {
    company->put_TotalDebt(1);
    journal->put_TotalDebt(2);
    type(Datum::YRevenueSeries, 1, 7);
    ASSERT_EQ(journal->groups().size(), 2U);
    EXPECT_EQ(brief(0), Lines{"TotalDebt 1 > 2"});
    EXPECT_EQ(journal->groups().at(0).changes.at(0).origin, Origin::typed);
    EXPECT_EQ(brief(1).size(), 1U);
    EXPECT_TRUE(brief(1).at(0).starts_with("YRevenueSeries(1) "));
}

TEST_F(Journal, WhatStaysAsItIsIsNoChange) {
    journal->put_TotalDebt(company->get_TotalDebt());
    journal->put_YEPSSeries(company->get_YEPSSeries());
    { const ActionScope nothing(journal, {Origin::pasted, "Paste", {}}); }
    EXPECT_FALSE(journal->canUndo());
    EXPECT_TRUE(journal->unsaved().empty());
}

TEST_F(Journal, TellsEachGroupThatIsAddedAndThatOthersHaveGone) {
    std::vector<ChangeGroup> followed;
    int gone = 0;
    journal->onGroupsChanged([&](const ChangeGroup* added) {
        if (added != nullptr)
            return followed.push_back(*added);
        ++gone;
        followed = journal->groups();
    });
    journal->put_TotalDebt(2);
    journal->put_Name("Acme");
    {
        const ActionScope sum(journal, {Origin::derived, "Sum", {}});
        journal->put_Last4QEPS(99);
    }
    EXPECT_EQ(followed.size(), 3U);
    EXPECT_EQ(followed, journal->groups());
    EXPECT_EQ(gone, 0);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(followed, journal->groups());
    EXPECT_EQ(gone, 1);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_EQ(followed, journal->groups());
    EXPECT_EQ(gone, 1);
    EXPECT_EQ(journal->apply(followed.front()), std::nullopt);
    EXPECT_EQ(followed, journal->groups());
    journal->startOver();
    EXPECT_TRUE(followed.empty());
    EXPECT_EQ(gone, 2);
}

TEST_F(Journal, TheOutermostActionIsTheGroupAndTheInnerOnesSayWhereTheirWritesComeFrom) {
    {
        const ActionScope paste(journal, {Origin::imported, "Import", "0001"});
        type(Datum::YRevenueSeries, 1, 7);
        type(Datum::YRevenueSeries, 2, 8);
        const ActionScope sum(journal, {Origin::derived, "Sum", {}});
        journal->put_Last4QEPS(99);
    }
    ASSERT_EQ(journal->groups().size(), 1U);
    const ChangeGroup group = journal->groups().front();
    EXPECT_EQ(group.name, "Import");
    ASSERT_EQ(group.changes.size(), 3U);
    EXPECT_EQ(group.changes[0].origin, Origin::imported);
    EXPECT_EQ(group.changes[0].document, "0001");
    EXPECT_EQ(group.changes[2].datum, Datum::Last4QEPS);
    EXPECT_EQ(group.changes[2].origin, Origin::derived);
    EXPECT_EQ(group.changes[2].document, "");
}

TEST_F(Journal, AGroupSaysEachDatumOnceFromItsBeginningToItsEnd) {
    company->put_TotalDebt(1);
    {
        const ActionScope action(journal, {});
        journal->put_TotalDebt(2);
        journal->put_TotalDebt(3);
        journal->put_Name("Acme");
        journal->put_Name(company->get_Name());
        journal->put_PrefDiv(5);
        journal->put_PrefDiv(company->get_PrefDiv());
    }
    EXPECT_EQ(brief(0).front(), "TotalDebt 1 > 3");
}

TEST_F(Journal, AShiftedSeriesIsOneChange) {
    {
        const ActionScope shift(journal, {Origin::shifted, "Add New Year", {}});
        journal->put_YRevenueSeries(numberArray(std::vector<double>(11, 4)));
    }
    EXPECT_EQ(brief(0), Lines{"YRevenueSeries series > series"});
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*company, *fullCompany()));
}

TEST_F(Journal, NotesShiftedSeriesInTheOrderInWhichTheyWereShifted) {
    {
        const ActionScope shift(journal, {Origin::shifted, "Add New Year", {}});
        journal->put_YEPSSeries(movedOn(company->get_YEPSSeries(), 1));
        journal->put_YRevenueSeries(movedOn(company->get_YRevenueSeries(), 1));
    }
    EXPECT_EQ(brief(0), (Lines{"YEPSSeries series > series", "YRevenueSeries series > series"}));
}

// --- a series that is moved and written into

class MovingJournal : public Journal {
  protected:
    MovingJournal() {
        for (int i = 0; i < 11; ++i)
            figures[static_cast<std::size_t>(i)] = i * 10.0;
        company->put_LastFY(2024);
        company->put_YRevenueSeries(numberArray(figures));
        journal->startOver();
    }
    // To another fiscal year, as adding years does.
    void moveYears(int years) {
        const ActionScope shift(journal, {Origin::shifted, {}, {}});
        journal->put_LastFY(static_cast<std::int16_t>(company->get_LastFY() + years));
        journal->put_YRevenueSeries(movedOn(company->get_YRevenueSeries(), years));
    }
    void importFigure(int element, double figure) {
        const ActionScope document(journal, {Origin::imported, {}, "0001-25"});
        type(Datum::YRevenueSeries, element, figure);
    }
    void importAYear() {
        const ActionScope import(journal, {Origin::imported, "Import of 2 Figures", {}});
        moveYears(1);
        importFigure(1, 777);
        importFigure(4, 31);
    }
    // Of the second year before the move on, one of each origin.
    [[nodiscard]] FigureOrigins origins() const {
        FigureOrigins all;
        for (int i = 1; i <= 10; ++i)
            all.put(Datum::YRevenueSeries, i, {Origin::typed, {}, false});
        for (const ChangeGroup& group : journal->groups())
            all.note(group);
        return all;
    }
    [[nodiscard]] std::string originAt(int element) const {
        const FigureOrigin held = origins().of(Datum::YRevenueSeries, element);
        return (held.origin ? std::string(originName(*held.origin)) : "unknown") +
               (held.document.empty() ? "" : " " + held.document);
    }

    std::vector<double> figures = std::vector<double>(11);
};

TEST_F(MovingJournal, NotesTheMoveFirstAndThenEachFigureThatWasWritten) {
    importAYear();
    EXPECT_EQ(brief(0), (Lines{"LastFY 2024 > 2025", "YRevenueSeries series > series",
                               "YRevenueSeries(1) 0 > 777", "YRevenueSeries(4) 30 > 31"}));
    const auto changes = journal->groups().front().changes;
    EXPECT_EQ(changes[1].origin, Origin::shifted);
    EXPECT_EQ(changes[1].after, movedOn(numberArray(figures), 1));
    EXPECT_EQ(changes[2].origin, Origin::imported);
    EXPECT_EQ(changes[2].document, "0001-25");
    EXPECT_EQ(originAt(1), "imported 0001-25");
    EXPECT_EQ(originAt(2), "typed");
    EXPECT_EQ(originAt(4), "imported 0001-25");
    EXPECT_EQ(originAt(5), "typed");
}

TEST_F(MovingJournal, TakesMoveAndFiguresBackAndDoesThemAgain) {
    const auto before = company->clone();
    importAYear();
    const auto after = company->clone();
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_TRUE(journal->unsaved().empty());
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_TRUE(sameAs(*after, *company));
    const auto other = std::make_shared<ChangeJournal>(before->clone());
    EXPECT_EQ(other->apply(journal->groups().front()), std::nullopt);
    EXPECT_EQ(other->groups(), journal->groups());
}

TEST_F(MovingJournal, AFigureThatWasWrittenBeforeGoesWithTheMove) {
    {
        const ActionScope whole(journal, {Origin::shifted, "Add New Year", {}});
        {
            const ActionScope paste(journal, {Origin::pasted, {}, {}});
            type(Datum::YRevenueSeries, 3, 33);
        }
        moveYears(1);
        moveYears(1);
    }
    EXPECT_EQ(company->get_YRevenueSeries().array().number(5), 33);
    EXPECT_EQ(brief(0).back(), "YRevenueSeries(5) 30 > 33");
    EXPECT_EQ(originAt(5), "pasted");
    EXPECT_EQ(originAt(6), "typed");
}

TEST_F(MovingJournal, ThereAndBackIsNoMove) {
    company->put_YRevenueSeries(numberArray({0, 1, 2, 3, 0, 0, 0, 0, 0, 0, 0}));
    journal->startOver();
    {
        const ActionScope whole(journal, {});
        moveYears(1);
        type(Datum::YRevenueSeries, 2, 9);
        moveYears(-1);
    }
    EXPECT_EQ(brief(0), Lines{"YRevenueSeries(1) 1 > 9"});
}

TEST_F(MovingJournal, AMoveAndOtherFiguresAreOneChangeOfTheSeries) {
    const auto before = company->clone();
    const Variant other = numberArray(std::vector<double>(11, 4));
    for (const bool isMovedFirst : {true, false}) {
        {
            const ActionScope whole(journal, {Origin::shifted, "Add New Year", {}});
            if (!isMovedFirst)
                journal->put_YRevenueSeries(other);
            moveYears(1);
            if (isMovedFirst)
                journal->put_YRevenueSeries(other);
        }
        Lines changes = brief(0);
        std::ranges::sort(changes);
        EXPECT_EQ(changes, (Lines{"LastFY 2024 > 2025", "YRevenueSeries series > series"}));
        EXPECT_EQ(journal->undo(), std::nullopt);
        EXPECT_TRUE(sameAs(*company, *before));
        journal->startOver();
    }
}

// A commit states every year once more.
TEST_F(MovingJournal, ASeriesThatIsWrittenAsItIsIsNoMove) {
    {
        const ActionScope whole(journal, {});
        type(Datum::YRevenueSeries, 3, 33);
        {
            const ActionScope shift(journal, {Origin::shifted, {}, {}});
            journal->put_YRevenueSeries(company->get_YRevenueSeries());
            journal->put_LastFY(2025);
        }
        journal->put_LastFY(2026);
    }
    EXPECT_EQ(brief(0), (Lines{"YRevenueSeries(3) 30 > 33", "LastFY 2024 > 2026"}));
}

TEST_F(MovingJournal, OtherFiguresThatAreTypedBackWithinTheActionAreNoChange) {
    {
        const ActionScope whole(journal, {Origin::shifted, "Add New Year", {}});
        const Variant held = company->get_YRevenueSeries();
        journal->put_YRevenueSeries(numberArray(std::vector<double>(11, 4)));
        const ActionScope back(journal, {Origin::typed, {}, {}});
        journal->put_YRevenueSeries(held);
    }
    EXPECT_TRUE(journal->groups().empty());
}

// The move comes first there as well: where a figure is from can be told for the record it leads
// to.
TEST_F(MovingJournal, AStepTakenBackAfterASaveIsNamedAndKnowsWhereItsFiguresAreFrom) {
    const auto before = company->clone();
    importAYear();
    journal->setSavePoint();
    const auto saved = company->clone();
    journal->onTakenBack([this](ChangeGroup& back, const ChangeGroup& step) {
        back.name = "Undone: " + step.name;
        origins().tellIn(back);
    });
    EXPECT_EQ(journal->undo(), std::nullopt);
    ASSERT_EQ(journal->unsaved().size(), 1U);
    const ChangeGroup back = journal->unsaved().front();
    EXPECT_EQ(back.name, "Undone: Import of 2 Figures");
    const auto find = [&](std::optional<int> element) {
        return *std::ranges::find_if(back.changes, [&](const Change& change) {
            return change.datum == Datum::YRevenueSeries && change.element == element;
        });
    };
    EXPECT_EQ(find({}).origin, Origin::shifted);
    EXPECT_EQ(brief(find(3)), "YRevenueSeries(3) 31 > 30");
    EXPECT_EQ(find(3).origin, Origin::typed);
    expectTheWayFrom(*saved);
    const auto found = std::make_shared<ChangeJournal>(saved->clone()); // after a crash
    EXPECT_EQ(found->apply(back), std::nullopt);
    EXPECT_TRUE(sameAs(*found, *before));
    EXPECT_EQ(found->groups().front().name, back.name);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_TRUE(journal->unsaved().empty());
}

TEST_F(Journal, AStepTakenBackHasTheOriginsThatTheFiguresHaveThen) {
    FigureOrigins stored; // nobody knows
    stored.put(Datum::TotalDebt, {}, {Origin::imported, "0001-24", false});
    journal->onTakenBack([&](ChangeGroup& back, const ChangeGroup&) { stored.tellIn(back); });
    {
        const ActionScope action(journal, {Origin::pasted, "Two", {}});
        journal->put_TotalDebt(77);
        journal->put_PrefDiv(78);
        journal->get_Settings()->put(setting::unit, std::int16_t{9});
    }
    journal->setSavePoint();
    EXPECT_EQ(journal->undo(), std::nullopt);
    for (const Change& change : journal->unsaved().front().changes) {
        if (!change.setting.empty())
            continue;
        const bool isDebt = change.datum == Datum::TotalDebt;
        EXPECT_EQ(change.origin, isDebt ? std::optional(Origin::imported) : std::nullopt);
        EXPECT_EQ(change.document, isDebt ? "0001-24" : "");
    }
}

TEST_F(Journal, WhatACommitSettlesStaysWhereTheStepBeforeIsTakenBack) {
    company->get_Settings()->put(setting::currencySymbol, "");
    const auto saved = company->clone();
    const double debt = company->get_TotalDebt();
    journal->put_TotalDebt(debt + 1);
    {
        const ActionScope commit(journal, {Origin::derived, {}, {}});
        journal->get_Settings()->put(setting::currencySymbol, "$");
        journal->put_Last4QEPS(99);
    }
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(company->get_TotalDebt(), debt);
    EXPECT_NE(company->get_Last4QEPS(), 99);
    EXPECT_EQ(company->get_Settings()->get(setting::currencySymbol).toText(), "$");
    EXPECT_FALSE(journal->canUndo());
    expectTheWayFrom(*saved);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 99);
    expectTheWayFrom(*saved);
}

TEST_F(Journal, WhatARecordMovesByItselfBelongsToTheGroup) {
    record->datesFollowYear = true;
    const auto before = company->clone();
    journal->put_LastFY(static_cast<std::int16_t>(company->get_LastFY() - 3));
    ASSERT_EQ(brief(0).size(), 2U);
    EXPECT_EQ(journal->groups().front().changes[1].origin, Origin::derived);
    const auto after = company->clone();
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_TRUE(sameAs(*after, *company));
}

// Neither by undo nor by a refusal: a later last quarter would leave the grid behind.
TEST_F(Journal, WhatFollowsBySayingNothingGoesOnToDoSo) {
    company->put_LastQDateForGrid({});
    const auto before = company->clone();
    journal->put_LastQDate(*makeDate(2027, 3, 31));
    ASSERT_EQ(brief(0).size(), 2U);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_EQ(company->stored(Datum::LastQDateForGrid), before->stored(Datum::LastQDateForGrid));
    {
        const ActionScope paste(journal, {});
        journal->put_LastQDate(*makeDate(2028, 3, 31));
        journal->put_Name("Acme");
        journal->put_TotalDebt(3);
    }
    for (const char* operation : {"write Name", "write TotalDebt"}) {
        record->failing = {operation};
        EXPECT_TRUE(journal->undo());
        EXPECT_EQ(company->stored(Datum::LastQDateForGrid),
                  before->stored(Datum::LastQDateForGrid));
        record->failing.clear();
    }
}

TEST_F(Journal, SettingsAreNotedAndTakenBack) {
    company->get_Settings()->put(setting::unit, std::int16_t{6});
    journal->get_Settings()->put(setting::unit, std::int16_t{9});
    journal->get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{2});
    EXPECT_EQ(brief(0), Lines{"intUnit 6 > 9"});
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(company->get_Settings()->get(setting::unit).toLong(), 6);
    EXPECT_NE(company->get_ReportingPeriod()->get(setting::leadPeriod).toLong(), 2);
}

TEST_F(Journal, SettingsThatAreLentAreTakenBackAsWell) {
    record->lendsSettings = true;
    const auto before = company->clone();
    {
        const ActionScope action(journal, {});
        const auto settings = journal->get_Settings();
        settings->put(setting::currencySymbol, "EUR");
        static_cast<void>(journal->get_SettingsApply());
    }
    EXPECT_EQ(company->get_Settings()->get(setting::currencySymbol).toText(), "EUR");
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*before, *company));
}

TEST_F(Journal, TheLockIsNotedAndNeverTakenBack) {
    journal->get_Settings()->put(setting::lockBasicInfo, true);
    EXPECT_TRUE(journal->groups().empty());
    journal->get_Settings()->put(setting::lockBasicInfo, false);
    journal->put_Name("Acme");
    journal->get_Settings()->put(setting::lockBasicInfo, true);
    EXPECT_EQ(journal->unsaved().size(), 4U);
    EXPECT_EQ(journal->toUndo()->changes.front().datum, Datum::Name);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(company->get_Settings()->get(setting::lockBasicInfo).toBoolean());
    EXPECT_FALSE(journal->canUndo());
}

TEST_F(Journal, OnlyARealChangeTakesTheWayForwardAway) {
    journal->put_Name("Acme");
    EXPECT_EQ(journal->undo(), std::nullopt);
    journal->put_Name(company->get_Name());
    {
        const ActionScope commit(journal, {Origin::derived, {}, {}});
        journal->put_Last4QEPS(99);
    }
    EXPECT_TRUE(journal->canRedo());
    journal->put_TotalDebt(77);
    EXPECT_FALSE(journal->canRedo());
}

TEST_F(Journal, WhatACommitWorksOutGoesWithTheStepBefore) {
    const auto before = company->clone();
    journal->put_Name("Acme");
    {
        const ActionScope commit(journal, {Origin::derived, {}, {}});
        type(Datum::YTaxRateSeries, 1, 12);
    }
    const auto after = company->clone();
    EXPECT_EQ(journal->toUndo()->changes.front().datum, Datum::Name);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_FALSE(journal->canUndo());
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_TRUE(sameAs(*after, *company));
}

TEST_F(Journal, ARefusalOfAnyWriteLeavesRecordAndStackAsTheyWere) {
    const auto before = company->clone();
    {
        const ActionScope paste(journal, {Origin::pasted, "Paste of 5 Figures", {}});
        type(Datum::YRevenueSeries, 1, 7);
        journal->put_Name("Acme");
        journal->put_TotalDebt(3);
        type(Datum::QEPSSeries, 4, 8);
        journal->get_Settings()->put(setting::unit, std::int16_t{9});
    }
    const auto after = company->clone();
    const char* const operations[] = {"write YRevenueSeries", "write Name", "write TotalDebt",
                                      "write QEPSSeries", "put intUnit"};
    for (const auto* operation : operations) {
        record->failing = {operation};
        const auto refusal = journal->undo();
        ASSERT_TRUE(refusal) << operation;
        EXPECT_FALSE(refusal->empty()) << operation;
        EXPECT_TRUE(sameAs(*after, *company)) << operation;
        EXPECT_EQ(journal->toUndo()->name, "Paste of 5 Figures");
        EXPECT_EQ(journal->unsaved().size(), 1U);
    }
    record->failing.clear();
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*before, *company));
    for (const auto* operation : operations) {
        record->failing = {operation};
        EXPECT_TRUE(journal->redo()) << operation;
        EXPECT_TRUE(sameAs(*before, *company)) << operation;
        EXPECT_TRUE(journal->canRedo());
        EXPECT_TRUE(journal->unsaved().empty());
    }
    record->failing.clear();
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_TRUE(sameAs(*after, *company));
}

TEST_F(Journal, NothingIsTakenBackInTheMiddleOfAnAction) {
    journal->put_Name("Acme");
    journal->put_TotalDebt(77);
    EXPECT_EQ(journal->undo(), std::nullopt);
    const auto before = company->clone();
    const ActionScope action(journal, {});
    EXPECT_TRUE(journal->undo());
    EXPECT_TRUE(journal->redo());
    EXPECT_TRUE(sameAs(*company, *before));
}

TEST_F(Journal, LeadsFromWhatWasSavedToWhatIsThere) {
    std::vector<bool> told;
    journal->onUnsavedChanged([&](const ChangeGroup* added) { told.push_back(added != nullptr); });
    journal->put_Name("One");
    journal->put_Name("Two");
    EXPECT_EQ(journal->unsaved().size(), 2U);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->unsaved().size(), 1U);
    journal->setSavePoint();
    const auto saved = company->clone();
    EXPECT_TRUE(journal->unsaved().empty());
    EXPECT_EQ(journal->undo(), std::nullopt); // beyond what was saved
    ASSERT_EQ(journal->unsaved().size(), 1U);
    expectTheWayFrom(*saved);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_TRUE(journal->unsaved().empty());
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_EQ(journal->unsaved().size(), 1U);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->undo(), std::nullopt);
    journal->put_TotalDebt(5);
    expectTheWayFrom(*saved);
    EXPECT_EQ(told, (std::vector<bool>{true, true, false, true, false, true, false, true, true}));
}

TEST_F(Journal, TheSavedValueComesBackWhereItIsRetypedAndTakenBack) {
    journal->put_Name("One");
    journal->setSavePoint();
    journal->put_Name("Two");
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(company->get_Name(), "One");
    EXPECT_TRUE(journal->unsaved().empty());
}

TEST_F(Journal, GroupsUnderATitleAreOneStepAndWhatComesAfterThemIsNot) {
    const double before = test::elementOf(*company, Datum::YRevenueSeries, 1);
    journal->beginStep("Restore");
    type(Datum::YRevenueSeries, 1, 7);
    type(Datum::YRevenueSeries, 2, 8);
    journal->endStep();
    type(Datum::YRevenueSeries, 3, 9);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(test::elementOf(*company, Datum::YRevenueSeries, 1), 7);
    ASSERT_TRUE(journal->canUndo());
    EXPECT_EQ(journal->toUndo()->name, "Restore");
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(test::elementOf(*company, Datum::YRevenueSeries, 1), before);
    EXPECT_FALSE(journal->canUndo());
}

TEST_F(Journal, SaysWhereTheStepWas) {
    type(Datum::YRevenueSeries, 3, 7);
    journal->put_Name("Acme");
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->place()->datum, Datum::Name);
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->place()->datum, Datum::YRevenueSeries);
    EXPECT_EQ(journal->place()->element, 3);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_EQ(journal->redo(), std::nullopt);
    EXPECT_EQ(journal->place()->datum, Datum::Name);
    journal->startOver();
    Change debt;
    debt.datum = Datum::TotalDebt;
    debt.before = company->get_TotalDebt();
    debt.after = 77.0;
    EXPECT_EQ(journal->apply({"", {}, {debt}}), std::nullopt);
    EXPECT_EQ(journal->place()->datum, Datum::TotalDebt);
}

// What follows from it, and the lock, are no place to go to.
TEST_F(Journal, SaysWhereAPersonHasChangedSomething) {
    {
        const ActionScope action(journal, {});
        journal->get_Settings()->put(setting::lockBasicInfo, true);
        {
            const ActionScope commit(journal, {Origin::derived, {}, {}});
            journal->put_Last4QEPS(99);
        }
        journal->put_Name("Acme");
    }
    EXPECT_EQ(journal->undo(), std::nullopt);
    EXPECT_EQ(journal->place()->datum, Datum::Name);
}

TEST_F(Journal, AFigureIsFromWhereItWasWrittenLast) {
    const Action imported{Origin::imported, {}, "0001-24"};
    for (const auto& [first, last] :
         {std::pair(Action{}, imported), std::pair(imported, Action{})}) {
        journal->startOver();
        {
            const ActionScope action(journal, {});
            for (const Action& inner : {first, last}) {
                const ActionScope scope(journal, inner);
                journal->put_TotalDebt(company->get_TotalDebt() + 1);
            }
        }
        const Change change = journal->groups().at(0).changes.at(0);
        EXPECT_EQ(change.origin, last.origin);
        EXPECT_EQ(change.document, last.document);
    }
}

TEST_F(Journal, WhatCouldNotBeReadBeforeAWriteIsNoChange) {
    for (const int failures : {1, 2}) { // of all data, and of the one that is written
        std::map<std::string, int> reads;
        record->hook = [&](const std::string& operation) {
            if ((operation == "read TotalDebt" || operation == "read YRevenueSeries" ||
                 operation == "get strCurSymbol") &&
                ++reads[operation] <= failures)
                throw std::runtime_error("not now");
        };
        journal->put_TotalDebt(company->get_TotalDebt() + 1);
        reads.clear();
        {
            const ActionScope shift(journal, {Origin::shifted, {}, {}});
            journal->put_YRevenueSeries(movedOn(company->get_YRevenueSeries(), 1));
        }
        journal->get_Settings()->put(setting::currencySymbol, "EUR");
        EXPECT_TRUE(journal->groups().empty()) << failures;
    }
}

TEST_F(Journal, AGroupSaysEachSettingOnce) {
    company->get_Settings()->put(setting::currencySymbol, "$");
    {
        const ActionScope action(journal, {});
        for (const char* symbol : {"EUR", "CHF"})
            journal->get_Settings()->put(setting::currencySymbol, symbol);
    }
    EXPECT_EQ(brief(0), Lines{"strCurSymbol $ > CHF"});
}

TEST_F(Journal, AStepWithoutAGroupIsNone) {
    journal->beginStep("Restore");
    journal->endStep();
    journal->put_Name("Acme");
    EXPECT_EQ(journal->toUndo()->name, "");
}

TEST_F(Journal, WhatIsTypedBackAfterASaveIsAChangeToo) {
    const double debt = company->get_TotalDebt();
    journal->put_TotalDebt(debt + 1);
    journal->put_TotalDebt(debt);
    EXPECT_EQ(journal->unsaved().size(), 2U);
}

TEST_F(Journal, GroupsOfTheSameMomentAreApart) {
    for (const Datum datum : {Datum::TotalDebt, Datum::PrefDiv}) {
        Change change;
        change.datum = datum;
        change.before = company->stored(datum);
        change.after = 77.0;
        EXPECT_EQ(journal->apply({"", {}, {change}}), std::nullopt);
    }
    EXPECT_EQ(journal->unsaved().size(), 2U);
}

TEST_F(Journal, DoesAGroupOnceMore) {
    const auto before = company->clone();
    {
        const ActionScope import(journal, {Origin::imported, "Import", "0001"});
        type(Datum::YRevenueSeries, 1, 7);
        journal->get_Settings()->put(setting::currencySymbol, "EUR");
    }
    const ChangeGroup group = journal->groups().front();
    const auto other = std::make_shared<ChangeJournal>(before->clone());
    EXPECT_EQ(other->apply(group), std::nullopt);
    EXPECT_TRUE(sameAs(*other, *company));
    EXPECT_EQ(other->groups().front(), group);
    EXPECT_EQ(other->undo(), std::nullopt);
    EXPECT_TRUE(sameAs(*other, *before));
    ChangeGroup beyond = group;
    beyond.changes.front().element = 77;
    EXPECT_TRUE(other->apply(beyond));
    EXPECT_TRUE(sameAs(*other, *before));
}

TEST_F(Journal, StartsOverWithoutAWayBackOrForward) {
    journal->put_TotalDebt(1);
    journal->put_TotalDebt(2);
    EXPECT_EQ(journal->undo(), std::nullopt);
    journal->startOver();
    EXPECT_FALSE(journal->canUndo());
    EXPECT_FALSE(journal->canRedo());
    EXPECT_TRUE(journal->unsaved().empty());
    EXPECT_EQ(journal->place(), std::nullopt);
}

// A step back over what nobody has noted would leave that behind.
TEST_F(Journal, NoStepLeadsBackOverWhatThereWasNoMemoryToNote) {
    journal = std::make_shared<ChangeJournal>(company);
    for (int nth = 1;; ++nth) {
        journal->startOver();
        journal->put_TotalDebt(nth);
        journal->beginAction({});
        journal->put_PrefDiv(1000 + nth);
        {
            const FailingMemory memory(nth);
            journal->endAction();
            if (!memory.hasFailed())
                break;
        }
        const auto groups = journal->groups();
        ASSERT_TRUE(groups.empty() || groups.size() == 2) << nth;
    }
    EXPECT_EQ(journal->groups().size(), 2U);
}

// A step of two data is taken back, done again, or done in another record: at whichever place
// memory runs out, either nothing of it is done, or all of it and no step leads over what was not
// noted.
TEST_F(Journal, WhereMemoryRunsOutAStepIsDoneWholeOrNotAtAll) {
    const std::string address(60, 'a');
    const auto doneWhole = [&] {
        const bool number = company->get_CommDiv() == 2;
        EXPECT_EQ(company->get_Address1() == address, number);
        return number;
    };
    const auto typed = [&] {
        const ActionScope scope(journal, {Origin::typed, std::string(60, 'n'), {}});
        journal->put_CommDiv(2);
        journal->put_Address1(address);
    };
    typed();
    const ChangeGroup step = journal->groups().back();
    enum class Way { undo, redo, apply };
    for (const Way way : {Way::undo, Way::redo, Way::apply}) {
        bool failed = true;
        for (int nth = 1; failed; ++nth) {
            SCOPED_TRACE(std::to_string(static_cast<int>(way)) + ", " + std::to_string(nth));
            company->put_CommDiv(1);
            company->put_Address1("");
            company->put_TotalDebt(0);
            journal = std::make_shared<ChangeJournal>(company);
            const auto saved = company->clone();
            if (way != Way::apply)
                typed();
            if (way == Way::redo) {
                ASSERT_EQ(journal->undo(), std::nullopt);
            }
            const bool before = way == Way::undo;
            bool isDone = false;
            {
                const FailingMemory memory(nth);
                ifPossible([&] {
                    const auto refusal = way == Way::undo   ? journal->undo()
                                         : way == Way::redo ? journal->redo()
                                                            : journal->apply(step);
                    isDone = !refusal;
                });
                failed = memory.hasFailed();
            }
            EXPECT_EQ(doneWhole(), isDone ? !before : before);
            if (!isDone) {
                EXPECT_EQ(journal->canUndo(), way == Way::undo);
                EXPECT_EQ(journal->canRedo(), way == Way::redo);
            }
            if (way != Way::apply || !failed)
                expectTheWayFrom(*saved);
            // It goes on, and no step leads over what was not noted.
            const bool isThere = doneWhole();
            const bool isKnown = journal->canUndo();
            journal->put_TotalDebt(nth);
            EXPECT_EQ(journal->undo(), std::nullopt);
            EXPECT_EQ(doneWhole(), isThere);
            EXPECT_EQ(journal->canUndo(), isKnown);
        }
    }
}

// The other dates answer for them, so they are never seen to be absent.
TEST_F(Journal, TakesDatesAwayThatOthersStandInFor) {
    const auto dated = std::make_shared<CompanyRecord>();
    dated->put_LastFYDate(*makeDate(2024, 9, 28));
    dated->put_LastQDate(*makeDate(2024, 9, 28));
    const auto later = dated->clone();
    later->put_LastFY(2024);
    later->put_LastQDateForGrid(*makeDate(2024, 9, 28));
    const auto other = std::make_shared<ChangeJournal>(later);
    EXPECT_EQ(other->apply(changesBetween(*later, *dated, {})), std::nullopt);
    for (const Datum date : {Datum::LastFY, Datum::LastQDateForGrid})
        EXPECT_EQ(later->stored(date), dated->stored(date)) << rowOf(date).name;
}

TEST_F(Journal, ASettingsObjectOutlivesIt) {
    const auto settings = journal->get_Settings();
    journal->onUnsavedChanged([](const ChangeGroup*) { FAIL(); });
    journal->onGroupsChanged([](const ChangeGroup*) { FAIL(); });
    journal.reset();
    settings->put(setting::unit, std::int16_t{9});
    EXPECT_EQ(company->get_Settings()->get(setting::unit).toLong(), 9);
}

// The settings object of a host that keeps more in it.
struct OwnSettings final : Object {
    [[nodiscard]] Variant get(std::string_view) const override { return colour; }
    void put(std::string_view, const Variant& value) override { colour = value; }
    Variant colour;
};

struct OwnRecord final : CompanyBase {
    [[nodiscard]] std::shared_ptr<Object> get_Settings() const override { return settings; }
    std::shared_ptr<OwnSettings> settings = std::make_shared<OwnSettings>();
};

TEST(JournalOfAnOwnRecord, PassesOnSettingsThatAreTheHostsOwnAndNotesNone) {
    const auto own = std::make_shared<OwnRecord>();
    ChangeJournal journal(own);
    journal.get_Settings()->put("Colour", "red");
    EXPECT_EQ(own->settings->colour, Variant("red"));
    EXPECT_TRUE(journal.groups().empty());
    EXPECT_TRUE(journal.unsaved().empty());
}

// --- the component at work -----------------------------------------------------------------------

class JournalOfTheForm : public Journal {
  protected:
    JournalOfTheForm() {
        company->get_Settings()->put(setting::unit, std::int16_t{6});
        scene.load(journal);
        journal->startOver();
        scene.entry->historyAsked = [this](HistoryStep step) {
            const bool undo = step == HistoryStep::undo;
            const bool taken = undo ? journal->canUndo() && !journal->undo()
                                    : journal->canRedo() && !journal->redo();
            if (taken)
                scene.entry->recordChanged();
            return taken;
        };
    }
    void enter(std::string_view id, std::string_view keys) {
        test::show(scene, id);
        scene.enter(id, keys);
    }
    [[nodiscard]] const ChangeGroup& last() const {
        groups_ = journal->groups();
        return groups_.back();
    }

    EntryScene scene;
    mutable std::vector<ChangeGroup> groups_;
};

TEST_F(JournalOfTheForm, ALeftFieldIsAGroupNamedLikeIt) {
    enter("txtTotalDebt", "77");
    ASSERT_EQ(journal->groups().size(), 1U);
    EXPECT_EQ(last().name, scene.field("txtTotalDebt").accessibleName());
    enter("txtSales(9)", "1234");
    EXPECT_EQ(last().name, scene.field("txtSales", 9).accessibleName());
    EXPECT_EQ(last().changes.size(), 1U);
    EXPECT_EQ(last().changes.front().element, 1);
}

TEST_F(JournalOfTheForm, FieldsThatAreWalkedThroughAreNone) {
    test::show(scene, "txtName");
    scene.desktop.click("txtName");
    for (int i = 0; i < 40; ++i)
        scene.desktop.type("{TAB}");
    EXPECT_FALSE(journal->canUndo());
}

TEST_F(JournalOfTheForm, ThePricesRangeBelongsToThePrice) {
    company->put_High52W(10);
    scene.load(journal);
    journal->startOver();
    enter("txtCurrentPrice", "5000");
    ASSERT_EQ(journal->groups().size(), 1U);
    EXPECT_EQ(last().changes.at(0).origin, Origin::typed);
    EXPECT_EQ(last().changes.at(1).datum, Datum::High52W);
    EXPECT_EQ(last().changes.at(1).origin, Origin::derived);
    scene.desktop.type("^z");
    EXPECT_EQ(company->get_High52W(), 10);
}

TEST_F(JournalOfTheForm, AnAddedYearIsOneGroupThatMovesEverySeries) {
    const auto before = company->clone();
    scene.entry->put_CurrentTab(toYearly);
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddYear");
    ASSERT_EQ(journal->groups().size(), 1U);
    EXPECT_EQ(last().name, "Add New Year");
    const auto shifted = std::ranges::count(last().changes, Origin::shifted, &Change::origin);
    EXPECT_GE(shifted, 10);
    scene.entry->step(HistoryStep::undo);
    EXPECT_TRUE(sameAs(*before, *company));
    EXPECT_EQ(scene.text("txtLastFY"), std::to_string(before->get_LastFY()));
}

TEST_F(JournalOfTheForm, AChoiceIsAGroupAtOnce) {
    test::show(scene, "optCommEq(1)");
    const bool bookValue = company->get_Settings()->get(setting::bookValue).toBoolean();
    scene.desktop.click(bookValue ? "optCommEq(0)" : "optCommEq(1)");
    EXPECT_EQ(company->get_Settings()->get(setting::bookValue).toBoolean(), !bookValue);
    EXPECT_EQ(last().name, bookValue ? "Common Equity" : "Book Value");
    scene.entry->step(HistoryStep::undo);
    EXPECT_EQ(company->get_Settings()->get(setting::bookValue).toBoolean(), bookValue);
    EXPECT_EQ(scene.form().get<OptionButton>("optCommEq", 1).value(), bookValue);
}

TEST_F(JournalOfTheForm, EachChoiceIsAGroupOfItsName) {
    struct Choice {
        const char* option;
        const char* name;
    };
    for (const auto& [option, name] :
         {Choice{"optCommEq(1)", "Book Value"}, Choice{"optCommEq(0)", "Common Equity"},
          Choice{"optPTI(1)", "Tax Rate"}, Choice{"optPTI(0)", "Pre-Tax Income"},
          Choice{"optCurrency(0)", "Currency Unit"}}) {
        test::show(scene, option);
        scene.desktop.click(option);
        EXPECT_EQ(last().name, name);
    }
    EXPECT_EQ(journal->groups().size(), 5U);
}

TEST_F(JournalOfTheForm, AChosenPeriodIsAGroupOnceItsListIsLeft) {
    company->get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{2});
    scene.load(journal);
    scene.entry->put_ShowReportingPeriod(true);
    test::show(scene, "cmbReportingPeriod");
    for (const int period : {0, 1}) {
        scene.desktop.pick("cmbReportingPeriod", period);
        EXPECT_EQ(company->get_ReportingPeriod()->get(setting::leadPeriod).toLong(), period);
        scene.desktop.type("{TAB}");
    }
    EXPECT_EQ(journal->groups().size(), 2U);
    scene.entry->step(HistoryStep::undo);
    scene.entry->step(HistoryStep::undo);
    EXPECT_EQ(company->get_ReportingPeriod()->get(setting::leadPeriod).toLong(), 2);
}

TEST_F(JournalOfTheForm, TheLockIsWrittenAtOnce) {
    test::show(scene, "chkLockInfo");
    for (const bool locked : {true, false}) {
        scene.desktop.click("chkLockInfo");
        EXPECT_EQ(company->get_Settings()->get(setting::lockBasicInfo).toBoolean(), locked);
    }
}

// The lock came upon it from elsewhere.
TEST_F(JournalOfTheForm, ASymbolIsNotWrittenUnderTheLock) {
    const auto symbol = [&] {
        return company->get_Settings()->get(setting::currencySymbol).toText();
    };
    const std::string before = symbol();
    test::typeAt(scene, "txtCurSymbol", "^a7");
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.entry->recordChanged();
    for (int time = 0; time < 2; ++time) {
        test::typeAt(scene, "txtCurSymbol", "{TAB}");
        EXPECT_EQ(symbol(), before);
        EXPECT_EQ(scene.entry->unstoredFields().size(), 1U);
    }
}

TEST_F(JournalOfTheForm, NothingIsTakenBackUnderTheLock) {
    enter("txtTotalDebt", "77");
    test::show(scene, "chkLockInfo");
    scene.typeAt("chkLockInfo", "^z");
    scene.entry->step(HistoryStep::undo);
    EXPECT_EQ(company->get_TotalDebt(), 77);
    scene.desktop.click("chkLockInfo");
    scene.entry->step(HistoryStep::undo);
    EXPECT_NE(company->get_TotalDebt(), 77);
    EXPECT_FALSE(scene.form().get<CheckBox>("chkLockInfo").value());
}

TEST_F(JournalOfTheForm, AGroupKnowsWhenItWasMade) {
    const auto before = std::chrono::system_clock::now();
    enter("txtTotalDebt", "77");
    EXPECT_GE(last().at, before);
    EXPECT_LE(last().at, std::chrono::system_clock::now());
}

// As the form does it: quarters are counted from that date, and would move with the other one.
TEST_F(Journal, ADateThatFollowedAnotherAndWasStatedDoesNotFollowItWhenDoneAgain) {
    company->put_LastQDateForGrid({});
    const auto saved = company->clone();
    {
        const ActionScope typing(journal, {});
        journal->put_LastQDateForGrid(journal->get_LastQDateForGrid());
        journal->put_LastQDate(addQuarters(journal->get_LastQDate(), -2));
    }
    expectTheWayFrom(*saved);
}

// --- any session ---------------------------------------------------------------------------------

// Somebody at random, who saves now and then, with a record that refuses at random where `refuses`
// says so, and a program that crashes.
class AnySession : public JournalOfTheForm, public testing::WithParamInterface<unsigned> {
  protected:
    int within(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

    void typeSomewhere() {
        std::vector<const TextField*> fields;
        for (const auto& control : scene.form().controls())
            if (const auto* field = textFieldOf(control.get()))
                fields.push_back(field);
        const auto& field =
            *fields[static_cast<std::size_t>(within(0, static_cast<int>(fields.size()) - 1))];
        test::show(scene, field.id());
        if (!scene.desktop.canReach(field.id()))
            return;
        static const char* const texts[] = {"12.5", "-3",     "1999",        "3/4/2024",
                                            "Text", "",       "1234567.891", "12/31/2026",
                                            "0.1",  "someday"};
        scene.typeAt(field.id(), "^a{DEL}" + std::string(texts[within(0, 9)]) + "{TAB}");
    }
    void click(std::string_view id) {
        if (id.ends_with("Year"))
            scene.entry->put_CurrentTab(toYearly);
        else
            test::show(scene, id);
        scene.desktop.answerNext(MessageAnswer::yes);
        if (scene.desktop.canReach(id))
            scene.desktop.click(id);
    }
    // Keys in a cell of either grid: a block, a fill, a deletion.
    void typeInCells() {
        static const char* const blocks[] = {"1\t2.5\n-3\t4", "7\n\n8\nn/a",
                                             "\t2024\t2023\nRevenue\t5\t6", "(1,234.5)\t12%"};
        static const char* const keys[] = {"^v",          "+{DOWN}^v", "^d",        "+{DOWN 2}^d",
                                           "+{RIGHT}^d",  "^'",        "+{DOWN}^'", "+{DOWN}{DEL}",
                                           "+{DOWN 2}^x", "^a^a{DEL}"};
        static const char* const columns[] = {"txtSales",   "txtYEPS", "txtYOption", "txtYNetInc",
                                              "txtRevenue", "txtEPS",  "txtNetInc",  "txtQOption"};
        const std::string id =
            std::string(columns[within(0, 7)]) + "(" + std::to_string(within(0, 8)) + ")";
        test::show(scene, id);
        if (!scene.desktop.canReach(id))
            return;
        scene.desktop.setClipboardText(blocks[within(0, 3)]);
        scene.desktop.answerNextPaste([this](PasteForm& form) {
            form.setSwitch(within(0, 6), within(0, 3));
            form.pressOk();
        });
        scene.typeAt(id, keys[within(0, 9)]);
    }
    void split() {
        static constexpr SplitRatio ratios[] = {{2, 1}, {3, 2}, {1, 10}};
        const SplitRatio ratio = ratios[within(0, 2)];
        const auto split = splitChanges(*record, {ratio, *makeDate(2026, 6, 30)});
        static_cast<void>(scene.entry->changeRecord(test::changesOf(split), splitAction(ratio)));
    }
    void import() {
        const auto tables =
            exportCompanyTexts(*test::RandomCompany(static_cast<unsigned>(within(0, 99))).record());
        const CsvImport read = importCompanyTexts(tables);
        auto changes = test::elementChanges(*company, *read.company);
        std::erase_if(changes, [this](const DatumChange&) { return within(0, 3) != 0; });
        static_cast<void>(
            scene.entry->changeRecord(changes, {Origin::imported, "Import", "tables"}));
    }
    void save() {
        static_cast<void>(scene.entry->get_objCompany());
        setSavePoint();
    }
    void setSavePoint() {
        saved = company->clone();
        journal->setSavePoint();
        kept.clear();
    }
    // A program that is started anew on what was saved, with another journal and other objects.
    void loadSaved() {
        company = saved->clone();
        record = std::make_shared<ScriptedRecord>(company);
        journal = std::make_shared<ChangeJournal>(record);
        scene.load(journal);
        begin();
    }
    // What is there now is how it began, and saved; what follows is kept as on a disk.
    void begin() {
        journal->startOver();
        beginning = company->clone();
        setSavePoint();
        journal->onUnsavedChanged([this](const ChangeGroup* added) {
            if (added != nullptr)
                kept.push_back(*added);
            else
                kept.pop_back();
        });
    }
    // All that was not saved, as one step to undo. What the record refuses is left out.
    void restore(const std::vector<ChangeGroup>& groups) {
        journal->beginStep("Restore");
        for (const ChangeGroup& group : groups) {
            const auto before = company->clone();
            if (journal->apply(group))
                expectSame(*before, *company);
        }
        journal->endStep();
        scene.entry->recordChanged();
    }
    // It ends without a word, or by Cancel, and is restored by the next one.
    void endAndRestore(bool isCancel) {
        if (isCancel && scene.desktop.canReach("cmdCancel"))
            scene.desktop.click("cmdCancel");
        EXPECT_EQ(kept, journal->unsaved());
        const std::vector<ChangeGroup> groups = isCancel ? journal->unsaved() : kept;
        const auto ended = company->clone();
        const auto wasSaved = saved->clone();
        loadSaved();
        const bool refuses = GetParam() % 2 == 1 && within(0, 2) == 0;
        if (refuses)
            refuseSomething();
        restore(groups);
        record->failing.clear();
        expectTheWayFrom(*saved);
        if (refuses)
            return;
        if (sameAs(*wasSaved, *saved))
            expectSame(*ended, *company);
        if (!journal->canUndo())
            return;
        ASSERT_EQ(journal->undo(), std::nullopt);
        expectSame(*saved, *company);
        ASSERT_EQ(journal->redo(), std::nullopt);
        scene.entry->recordChanged();
    }
    void act() {
        static const char* const buttons[] = {"cmdAddYear",   "cmdRemoveYear",  "cmdAddQuarter",
                                              "optCommEq(0)", "optCommEq(1)",   "optPTI(0)",
                                              "optPTI(1)",    "optCurrency(0)", "optCurrency(2)"};
        const bool refuses = GetParam() % 2 == 1;
        switch (const int what = within(0, 29)) {
        case 20:
        case 21:
        case 22:
        case 23:
            if (what == 20 && refuses)
                refuseSomething();
            typeInCells();
            break;
        case 24:
        case 25:
            if (refuses && within(0, 1) == 0)
                refuseSomething();
            what == 24 ? split() : import();
            break;
        case 26:
            if (refuses && within(0, 1) == 0)
                refuseSomething();
            scene.entry->leaveField();
            static_cast<void>(test::importPeriods(journal, static_cast<unsigned>(within(0, 999))));
            scene.entry->recordChanged();
            record->failing.clear();
            break;
        case 27:
        case 28:
            save();
            break;
        case 29:
            endAndRestore(within(0, 1) == 0);
            break;
        case 0:
        case 1:
            click(buttons[within(0, 8)]);
            break;
        case 2:
            test::show(scene, "spnQuarter");
            scene.desktop.answerNext(MessageAnswer::yes);
            scene.desktop.spin("spnQuarter", within(-2, 2));
            break;
        case 3:
        case 4:
            if (refuses && what == 3)
                refuseSomething();
            scene.entry->step(HistoryStep::undo);
            break;
        case 5:
            scene.entry->step(HistoryStep::redo);
            break;
        case 6:
            static_cast<void>(scene.entry->get_objCompany());
            break;
        default:
            if (what == 7 && refuses)
                refuseSomething();
            typeSomewhere();
        }
        record->failing.clear();
    }
    void refuseSomething() {
        const auto table = datumTable();
        for (int i = 0; i < 30; ++i)
            record->failing.insert(
                "write " +
                std::string(table[static_cast<std::size_t>(within(0, datumCount - 1))].name));
    }
    static void expectSame(const CompanyRecord& wanted, const CompanyRecord& held) {
        for (const Difference& one : differences(wanted, held))
            ADD_FAILURE() << one.datum << " " << one.element.value_or(-1) << ": " << one.before
                          << " is " << one.after;
    }

    std::shared_ptr<CompanyRecord> beginning;
    std::shared_ptr<CompanyRecord> saved;
    std::vector<ChangeGroup> kept; // on the disk
    std::mt19937 random_{GetParam()};
};

TEST_P(AnySession, LeadsBackToItsBeginningAndForwardToItsEnd) {
    static_cast<void>(scene.entry->get_objCompany()); // what a commit works out of the beginning
    begin();
    for (int i = 0; i < 60; ++i) {
        SCOPED_TRACE(i);
        act();
        expectTheWayFrom(*saved);
        if (HasFailure())
            return;
    }
    const auto end = company->clone();
    int steps = 0;
    for (; journal->canUndo(); ++steps) {
        ASSERT_EQ(journal->undo(), std::nullopt);
        if (within(0, 9) == 0)
            setSavePoint();
    }
    expectSame(*beginning, *company);
    expectTheWayFrom(*saved);
    scene.entry->recordChanged();
    expectSame(*beginning, *company); // showing it is no change
    for (; steps > 0; --steps) {      // what was taken back before the end comes later
        ASSERT_EQ(journal->redo(), std::nullopt);
        if (within(0, 9) == 0)
            setSavePoint();
    }
    expectSame(*end, *company);
    while (journal->canRedo())
        ASSERT_EQ(journal->redo(), std::nullopt);
    expectTheWayFrom(*saved);
    EXPECT_EQ(kept, journal->unsaved());
    while (journal->canUndo())
        ASSERT_EQ(journal->undo(), std::nullopt);
    expectSame(*beginning, *company);
    expectTheWayFrom(*saved);
}

TEST_P(AnySession, ThatIsNotSavedHasNothingUnsavedAtItsBeginning) {
    begin();
    for (int i = 0; i < 30; ++i)
        typeSomewhere();
    while (journal->canUndo())
        ASSERT_EQ(journal->undo(), std::nullopt);
    expectSame(*beginning, *company);
    EXPECT_TRUE(journal->unsaved().empty());
}

TEST_P(AnySession, OfTypingAloneIsRedoneToItsEnd) {
    static_cast<void>(scene.entry->get_objCompany());
    begin();
    for (int i = 0; i < 40; ++i)
        typeSomewhere();
    const auto end = company->clone();
    for (int round = 0; round < 2; ++round) {
        while (journal->canUndo())
            ASSERT_EQ(journal->undo(), std::nullopt);
        expectSame(*beginning, *company);
        while (journal->canRedo())
            ASSERT_EQ(journal->redo(), std::nullopt);
        expectSame(*end, *company);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AnySession, testing::Range(1U, 41U));

// --- any write refused ---------------------------------------------------------------------------

constexpr const char* refusedWord = "not this one";

// What a person does in one go, and what they are told where it is refused.
struct Deed {
    const char* name;
    std::string (*act)(EntryScene& scene, ChangeJournal& journal);
};
enum class Way { there, back, again };

std::string changed(EntryScene& scene, const std::vector<DatumChange>& changes,
                    const Action& action) {
    const auto refusal = scene.entry->changeRecord(changes, action);
    return refusal ? *refusal : "done";
}

std::string asked(EntryScene& scene, const char* cell, const char* keys) {
    test::typeAt(scene, cell, keys);
    return scene.desktop.messages().empty() ? "done" : scene.desktop.messages().back().text;
}

std::string pasted(EntryScene& scene, ChangeJournal& /*journal*/) {
    scene.desktop.setClipboardText("1\t2\t3\t4\n5\t6\t7\t8\n9\t10\t11\t12");
    scene.desktop.acceptNextPaste();
    return asked(scene, "txtRevenue(1)", "^v");
}

std::string splitUp(EntryScene& scene, ChangeJournal& journal) {
    const auto split = splitChanges(journal, {{4, 1}, *makeDate(2026, 11, 1)});
    return changed(scene, test::changesOf(split), splitAction({4, 1}));
}

// A button, or the arrow of a spinner; it asks first, and tells last where it can't.
std::string pressed(EntryScene& scene, TABObject tab, const std::function<void()>& press) {
    scene.entry->put_CurrentTab(tab);
    scene.desktop.forget();
    scene.desktop.answerNext(MessageAnswer::yes);
    press();
    const auto& messages = scene.desktop.messages();
    const bool isTold =
        !messages.empty() && messages.back().text.find(refusedWord) != std::string::npos;
    return isTold ? messages.back().text : "done";
}

const Deed deeds[] = {
    {"paste", pasted},
    {"delete",
     [](EntryScene& scene, ChangeJournal&) { return asked(scene, "txtSales(3)", "^a^a{DEL}"); }},
    {"fill", [](EntryScene& scene,
                ChangeJournal&) { return asked(scene, "txtSales(2)", "^a^a+{DOWN}^d"); }},
    {"split", splitUp},
    {"import",
     [](EntryScene& scene, ChangeJournal& journal) {
         return changed(scene, test::elementChanges(journal, CompanyRecord()),
                        {Origin::imported, "Import", "0001"});
     }},
    {"import that adds periods",
     [](EntryScene&, ChangeJournal& journal) {
         return test::importPeriods(std::shared_ptr<iVKR_Company>(&journal, [](iVKR_Company*) {}),
                                    2)
             .value_or("done");
     }},
};

// What they leave behind where a series is refused is told, and tested with the grids.
const Deed periodDeeds[] = {
    {"added year",
     [](EntryScene& scene, ChangeJournal&) {
         return pressed(scene, toYearly, [&] { scene.desktop.click("cmdAddYear"); });
     }},
    {"removed year",
     [](EntryScene& scene, ChangeJournal&) {
         return pressed(scene, toYearly, [&] { scene.desktop.click("cmdRemoveYear"); });
     }},
    {"added quarter",
     [](EntryScene& scene, ChangeJournal&) {
         return pressed(scene, toQuarterly, [&] { scene.desktop.click("cmdAddQuarter"); });
     }},
    {"removed quarter",
     [](EntryScene& scene, ChangeJournal&) {
         return pressed(scene, toQuarterly, [&] { scene.desktop.spin("spnQuarter", -1); });
     }},
};

class EveryWrite : public testing::TestWithParam<std::tuple<Deed, Way>> {
  protected:
    static void prepare(EntryScene& scene, ChangeJournal& journal) {
        const auto& [deed, way] = GetParam();
        if (way != Way::there)
            deed.act(scene, journal);
        if (way == Way::again)
            static_cast<void>(journal.undo());
    }
    static std::string act(EntryScene& scene, ChangeJournal& journal) {
        const auto& [deed, way] = GetParam();
        if (way == Way::there)
            return deed.act(scene, journal);
        return (way == Way::back ? journal.undo() : journal.redo()).value_or("done");
    }
    // The next step to undo, and to redo.
    static std::vector<std::string> steps(const ChangeJournal& journal) {
        std::vector<std::string> names;
        for (const ChangeGroup* next : {journal.toUndo(), journal.toRedo()})
            names.push_back(next == nullptr ? "" : next->name);
        return names;
    }
};

// The first, the second, ... write is refused, until there are no more: all or nothing, and a word.
// What follows of what was done, such as the trailing sum, is left out where it is refused.
TEST_P(EveryWrite, RefusedLeavesAllAsItWasOrDone) {
    const auto isFollower = [](const Change& change) {
        return change.datum == Datum::Last4QEPS || change.datum == Datum::LastQDateForGrid;
    };
    const auto differ = [&](const RecordSnapshot& one, const CompanyRecord& other) {
        auto changes = changesBetween(one, snapshotOf(other));
        std::erase_if(changes, isFollower);
        return !changes.empty();
    };
    std::optional<RecordSnapshot> done;
    int refusals = 0;
    for (int refused = 0;; ++refused) { // 0: none
        SCOPED_TRACE(refused);
        const auto company = fullCompany();
        const auto record = std::make_shared<ScriptedRecord>(company);
        const auto journal = std::make_shared<ChangeJournal>(record);
        EntryScene scene;
        scene.load(journal);
        journal->startOver();
        prepare(scene, *journal);
        scene.desktop.forget();
        const auto before = snapshotOf(*company);
        const auto next = steps(*journal);
        const auto groups = journal->groups();
        int writes = 0;
        record->hook = [&](const std::string& operation) {
            if ((operation.starts_with("write") || operation.starts_with("put")) &&
                ++writes == refused)
                throw std::runtime_error(refusedWord);
        };
        const std::string told = act(scene, *journal);
        record->hook = nullptr;
        if (refused == 0) {
            ASSERT_EQ(told, "done");
            done = snapshotOf(*company);
            ASSERT_TRUE(differ(before, *company));
            continue;
        }
        if (writes < refused) {
            ASSERT_EQ(told, "done");
            break;
        }
        if (told == "done") { // without what follows
            EXPECT_FALSE(differ(*done, *company));
            continue;
        }
        ++refusals;
        EXPECT_NE(told.find(refusedWord), std::string::npos) << told;
        EXPECT_TRUE(changesBetween(before, snapshotOf(*company)).empty());
        EXPECT_EQ(journal->groups(), groups);
        EXPECT_EQ(steps(*journal), next);
    }
    EXPECT_GE(refusals, 1);
}

std::string nameOfRefused(const testing::TestParamInfo<std::tuple<Deed, Way>>& one) {
    constexpr const char* ways[] = {"", "undo of ", "redo of "};
    const auto& [deed, way] = one.param;
    std::string name = std::string(ways[static_cast<int>(way)]) + deed.name;
    std::ranges::replace(name, ' ', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Deeds, EveryWrite,
                         testing::Combine(testing::ValuesIn(deeds),
                                          testing::Values(Way::there, Way::back, Way::again)),
                         nameOfRefused);
INSTANTIATE_TEST_SUITE_P(Periods, EveryWrite,
                         testing::Combine(testing::ValuesIn(periodDeeds),
                                          testing::Values(Way::back, Way::again)),
                         nameOfRefused);

} // namespace
} // namespace vkr
