// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "company/period_moves.hpp"
#include "company/placed_changes.hpp"
#include "company/split.hpp"
#include "support/elements.hpp"
#include "support/random_company.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

using test::elementOf;
using test::putElement;

// Changes that somebody makes to a company, and what others make of it meanwhile. The company has
// the last fiscal year 2024, the quarter of 2024-09-28, and figures that tell which period they are
// of.
class PlacedChanges : public testing::Test {
  protected:
    PlacedChanges() {
        company->put_LastFY(2024);
        company->put_LastFYDate(*makeDate(2024, 9, 28));
        company->put_LastQDate(*makeDate(2024, 9, 28));
        company->put_LastQDateForGrid(*makeDate(2024, 9, 28));
        company->put_TotalDebt(5);
        for (int i = 1; i <= 10; ++i) {
            putElement(*company, Datum::YRevenueSeries, i, 2025 - i);
            putElement(*company, Datum::YEPSSeries, i, 10 + i);
        }
        for (int i = 0; i <= 34; ++i)
            putElement(*company, Datum::QRevenueSeries, i, 100 + i);
        theirs = company->clone();
        mine = std::make_shared<ChangeJournal>(company);
    }
    static void moveYears(iVKR_Company& record, int years) {
        record.put_LastFY(static_cast<std::int16_t>(record.get_LastFY() + years));
        record.put_LastFYDate(addQuarters(record.get_LastFYDate(), 4 * years));
        for (const DatumRow& row : datumTable())
            if (row.period == DatumPeriod::year)
                writeSeries(record, row.datum, movedOn(readSeries(record, row.datum), years));
    }
    static void moveQuarters(iVKR_Company& record, int quarters) {
        const Date date = addQuarters(record.get_LastQDateForGrid(), quarters);
        record.put_LastQDate(date);
        record.put_LastQDateForGrid(date);
        for (const DatumRow& row : datumTable())
            if (row.period == DatumPeriod::quarter)
                writeSeries(record, row.datum, movedOn(readSeries(record, row.datum), quarters));
    }
    void addYear(int years = 1) {
        const ActionScope action(mine, {Origin::shifted, "Add New Year", {}});
        moveYears(*mine, years);
    }
    void addQuarter() {
        const ActionScope action(mine, {Origin::shifted, "Add New Quarter", {}});
        moveQuarters(*mine, 1);
    }
    void type(Datum series, int element, double figure) {
        putElement(*mine, series, element, figure);
    }
    // To theirs, as one step; `left` has what has no place.
    void place() { place(mine->unsaved()); }
    void place(const std::vector<ChangeGroup>& groups) {
        restored = std::make_shared<ChangeJournal>(theirs);
        before = theirs->clone();
        const ChangePlacing placing(groups);
        restored->beginStep("Restore");
        for (const ChangeGroup& group : groups) {
            const auto placed = placing.place(group, *theirs);
            left.insert(left.end(), placed.left.begin(), placed.left.end());
            if (!placed.group.changes.empty()) {
                ASSERT_EQ(restored->apply(placed.group), std::nullopt);
            }
        }
        restored->endStep();
    }
    // Counted as their record is.
    void placeAlone(Datum datum, const Variant& from, const Variant& to) {
        const NewestPeriods newest = newestPeriods(*theirs);
        left.clear();
        place({{"",
                {},
                {{{datum, std::nullopt, from, to}, {}, Origin::typed, {}}},
                CountedFrom{newest, newest}}});
    }
    void expectOneStepBack() const {
        ASSERT_TRUE(restored->canUndo());
        EXPECT_EQ(restored->toUndo()->name, "Restore");
        const auto after = theirs->clone();
        EXPECT_EQ(restored->undo(), std::nullopt);
        EXPECT_TRUE(sameAs(*theirs, *before));
        EXPECT_FALSE(restored->canUndo());
        EXPECT_TRUE(restored->unsaved().empty());
        EXPECT_EQ(restored->redo(), std::nullopt);
        EXPECT_TRUE(sameAs(*theirs, *after));
    }
    [[nodiscard]] std::vector<NotPlaced> whys() const {
        std::vector<NotPlaced> all;
        for (const UnplacedChange& one : left)
            all.push_back(one.why);
        return all;
    }
    [[nodiscard]] double revenue(int element) const {
        return elementOf(*theirs, Datum::YRevenueSeries, element);
    }
    using Whys = std::vector<NotPlaced>;

    std::shared_ptr<CompanyRecord> company = std::make_shared<CompanyRecord>();
    std::shared_ptr<CompanyRecord> theirs;
    std::shared_ptr<CompanyRecord> before;
    std::shared_ptr<ChangeJournal> mine;
    std::shared_ptr<ChangeJournal> restored;
    std::vector<UnplacedChange> left;
};

TEST_F(PlacedChanges, AreWhatTheyWereWhereNobodyHasChangedAnything) {
    type(Datum::YRevenueSeries, 1, 7);
    addYear();
    type(Datum::YRevenueSeries, 1, 8);
    addQuarter();
    mine->put_Name("Acme");
    EXPECT_EQ(mine->undo(), std::nullopt);
    mine->get_Settings()->put(setting::currencySymbol, "EUR");
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_TRUE(sameAs(*theirs, *company));
    EXPECT_EQ(restored->groups(), mine->unsaved());
    expectOneStepBack();
}

TEST_F(PlacedChanges, GoToTheirYearWhereOthersHaveAddedSome) {
    type(Datum::YRevenueSeries, 1, 7);
    type(Datum::YRevenueSeries, 3, 8);
    moveYears(*theirs, 2);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(revenue(1), 0);
    EXPECT_EQ(revenue(3), 7) << "2024";
    EXPECT_EQ(revenue(5), 8) << "2022";
    expectOneStepBack();
}

TEST_F(PlacedChanges, GoToTheirYearWhereOthersHaveRemovedOne) {
    type(Datum::YRevenueSeries, 3, 8);
    moveYears(*theirs, -1);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(revenue(2), 8);
    EXPECT_EQ(revenue(3), 2021);
}

TEST_F(PlacedChanges, GoToTheirQuarterWhereOthersHaveAddedOne) {
    type(Datum::QRevenueSeries, 0, 7);
    type(Datum::QRevenueSeries, 5, 8);
    moveQuarters(*theirs, 1);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(elementOf(*theirs, Datum::QRevenueSeries, 0), 0);
    EXPECT_EQ(elementOf(*theirs, Datum::QRevenueSeries, 1), 7);
    EXPECT_EQ(elementOf(*theirs, Datum::QRevenueSeries, 6), 8);
    expectOneStepBack();
}

TEST_F(PlacedChanges, AYearThatOthersHaveAddedTooIsAddedOnce) {
    addYear();
    type(Datum::YRevenueSeries, 1, 7);
    type(Datum::YRevenueSeries, 3, 8);
    moveYears(*theirs, 1);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_TRUE(sameAs(*theirs, *company));
    expectOneStepBack();
}

// As an import notes it, which writes a series as a whole.
TEST_F(PlacedChanges, AFigureThatBecameAnotherOneAsItsYearWasAddedIsPlacedWithIt) {
    addYear();
    auto groups = mine->unsaved();
    for (Change& change : groups.at(0).changes)
        if (change.datum == Datum::YRevenueSeries)
            for (const int element : {0, 3, 10})
                change.after.array().setNumber(element, 7);
    place(groups);
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(theirs->get_LastFY(), 2025);
    EXPECT_EQ(revenue(0), 7);
    EXPECT_EQ(revenue(10), 7);
    EXPECT_EQ(revenue(2), 2024);
    EXPECT_EQ(revenue(3), 7) << "2023";
    EXPECT_EQ(revenue(4), 2022);
}

TEST_F(PlacedChanges, AFigureThatOneGroupChangesTwiceIsWhatItWasLast) {
    type(Datum::YRevenueSeries, 2, 7);
    auto groups = mine->unsaved();
    Change again = groups.at(0).changes.at(0);
    again.before = again.after;
    again.after = 8.0;
    groups[0].changes.push_back(again);
    place(groups);
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(revenue(2), 8);
}

TEST_F(PlacedChanges, AYearIsNotAddedWhereOthersHaveAddedMore) {
    addYear();
    type(Datum::YRevenueSeries, 1, 7);
    moveYears(*theirs, 2);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(theirs->get_LastFY(), 2026);
    EXPECT_EQ(revenue(2), 7) << "2025";
    EXPECT_EQ(revenue(3), 2024);
}

TEST_F(PlacedChanges, AYearIsAddedToWhatOthersHaveTyped) {
    addYear();
    type(Datum::YRevenueSeries, 1, 7);
    putElement(*theirs, Datum::YRevenueSeries, 1, 99);
    putElement(*theirs, Datum::YHighSeries, 2, 12);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(theirs->get_LastFY(), 2025);
    EXPECT_EQ(revenue(1), 7);
    EXPECT_EQ(revenue(2), 99);
    EXPECT_EQ(elementOf(*theirs, Datum::YHighSeries, 3), 12);
    expectOneStepBack();
}

// The table has no room for what they typed and the new year: nothing of theirs goes.
TEST_F(PlacedChanges, AYearIsNotAddedOverAFigureOfOthers) {
    addYear();
    type(Datum::YRevenueSeries, 1, 7);
    putElement(*theirs, Datum::YRevenueSeries, 10, 99);
    place();
    EXPECT_EQ(theirs->get_LastFY(), 2024);
    EXPECT_EQ(revenue(10), 99);
    EXPECT_EQ(revenue(1), 2024);
    EXPECT_EQ(revenue(0), 7) << "2025, beside the table";
    EXPECT_EQ(whys(), Whys(left.size(), NotPlaced::periodsMoved));
    EXPECT_FALSE(left.empty());
}

TEST_F(PlacedChanges, AYearIsNotRemovedWhereOthersHaveAddedOne) {
    addYear(-1);
    type(Datum::YRevenueSeries, 1, 7);
    moveYears(*theirs, 1);
    place();
    EXPECT_EQ(theirs->get_LastFY(), 2025);
    EXPECT_EQ(revenue(2), 2024);
    EXPECT_EQ(revenue(3), 7) << "2023";
    EXPECT_EQ(whys(), Whys(left.size(), NotPlaced::periodsMoved));
    EXPECT_FALSE(left.empty());
}

TEST_F(PlacedChanges, AFigureThatOthersHaveChangedStaysAndIsTold) {
    type(Datum::YRevenueSeries, 2, 7);
    type(Datum::YRevenueSeries, 3, 8);
    mine->put_TotalDebt(6);
    mine->put_Name("Acme");
    putElement(*theirs, Datum::YRevenueSeries, 2, 99);
    theirs->put_TotalDebt(9);
    place();
    EXPECT_EQ(revenue(2), 99);
    EXPECT_EQ(revenue(3), 8);
    EXPECT_EQ(theirs->get_TotalDebt(), 9);
    EXPECT_EQ(theirs->get_Name(), "Acme");
    ASSERT_EQ(whys(), Whys(2, NotPlaced::changedSince));
    EXPECT_EQ(left[0].found, Variant(99.0));
    EXPECT_EQ(left[1].found, Variant(9.0));
    EXPECT_EQ(left[1].change.before, Variant(5.0));
}

TEST_F(PlacedChanges, WhatIsThereAlreadyIsLeftOut) {
    type(Datum::YRevenueSeries, 2, 7);
    type(Datum::YRevenueSeries, 2, 8);
    mine->get_Settings()->put(setting::currencySymbol, "EUR");
    putElement(*theirs, Datum::YRevenueSeries, 2, 8);
    theirs->get_Settings()->put(setting::currencySymbol, "EUR");
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_FALSE(restored->canUndo());
    EXPECT_EQ(revenue(2), 8);
}

TEST_F(PlacedChanges, ASettingThatOthersHaveChangedStaysAndIsTold) {
    mine->get_Settings()->put(setting::currencySymbol, "EUR");
    theirs->get_Settings()->put(setting::currencySymbol, "CHF");
    place();
    EXPECT_EQ(theirs->get_Settings()->get(setting::currencySymbol).toText(), "CHF");
    EXPECT_EQ(whys(), Whys{NotPlaced::changedSince});
}

TEST_F(PlacedChanges, AFigureWhoseYearHasLeftTheTableIsTold) {
    type(Datum::YRevenueSeries, 10, 7);
    type(Datum::YRevenueSeries, 1, 8);
    moveYears(*theirs, 1);
    place();
    ASSERT_EQ(whys(), Whys{NotPlaced::outsideTable});
    EXPECT_EQ(left[0].change.element, 10);
    EXPECT_EQ(revenue(2), 8);
    expectOneStepBack();
}

// What is left is placed once more when the table has its year again.
TEST_F(PlacedChanges, WhatIsLeftFindsItsYearLater) {
    addYear();
    type(Datum::YRevenueSeries, 10, 7); // 2016
    moveYears(*theirs, 2);
    place();
    ASSERT_EQ(whys(), Whys{NotPlaced::outsideTable});
    ChangeGroup again = mine->unsaved().back();
    again.changes = {left[0].change};
    left.clear();
    moveYears(*theirs, -1);
    putElement(*theirs, Datum::YRevenueSeries, 10, 2016);
    place({again});
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(revenue(10), 7);
}

TEST_F(PlacedChanges, AStepTakenBackAfterASaveGoesByPeriodToo) {
    type(Datum::YRevenueSeries, 2, 7);
    mine->setSavePoint();
    theirs = company->clone();
    EXPECT_EQ(mine->undo(), std::nullopt);
    moveYears(*theirs, 1);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(revenue(3), 2023);
    EXPECT_EQ(revenue(2), 2024);
}

TEST_F(PlacedChanges, AnAddedYearTakenBackAfterASaveIsTakenBackOfTheirsToo) {
    addYear();
    mine->setSavePoint();
    theirs = company->clone();
    EXPECT_EQ(mine->undo(), std::nullopt);
    putElement(*theirs, Datum::YEPSSeries, 4, 99);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(theirs->get_LastFY(), 2024);
    EXPECT_EQ(revenue(10), 2015) << "which the undo brings back";
    EXPECT_EQ(elementOf(*theirs, Datum::YEPSSeries, 3), 99);
}

TEST_F(PlacedChanges, ASplitIsMadeWholeOrNotAtAll) {
    const SplitChanges changes =
        splitChanges(*company, {*readSplitRatio("4:1"), *makeDate(2024, 1, 1)});
    ASSERT_FALSE(changes.changes.empty());
    {
        const ActionScope action(mine, splitAction(*readSplitRatio("4:1")));
        for (const SplitChange& one : changes.changes)
            type(one.change.datum, *one.change.element, one.change.after.toDouble());
    }
    putElement(*theirs, Datum::YEPSSeries, 5, 99);
    place();
    EXPECT_EQ(left.size(), changes.changes.size());
    EXPECT_FALSE(restored->canUndo());
    EXPECT_TRUE(sameAs(*theirs, *before));
}

TEST_F(PlacedChanges, OfUnknownYearsGoOnlyWhereTheFigureBeforeIs) {
    type(Datum::YRevenueSeries, 2, 7);
    type(Datum::YHighSeries, 2, 8);
    mine->put_Name("Acme");
    auto groups = mine->unsaved();
    for (ChangeGroup& group : groups)
        group.counted.reset();
    place(groups);
    EXPECT_EQ(revenue(2), 7);
    EXPECT_EQ(elementOf(*theirs, Datum::YHighSeries, 2), 0) << "absent in any year";
    EXPECT_EQ(theirs->get_Name(), "Acme");
    EXPECT_EQ(whys(), Whys{NotPlaced::notDated});
}

TEST_F(PlacedChanges, OfUnknownYearsMoveNothing) {
    addYear();
    auto groups = mine->unsaved();
    groups.front().counted.reset();
    moveYears(*theirs, 1);
    putElement(*theirs, Datum::YRevenueSeries, 1, 7);
    place(groups);
    EXPECT_TRUE(sameAs(*theirs, *before));
    EXPECT_EQ(whys(), Whys(left.size(), NotPlaced::notDated));
    EXPECT_FALSE(left.empty());
}

// A state of before that some columns shared, year by year.
TEST_F(PlacedChanges, AreOfUnknownYearsWhereSomeFiguresStayed) {
    {
        const ActionScope action(mine, {Origin::shifted, "Restore", {}});
        mine->put_LastFY(2025);
        mine->put_YRevenueSeries(movedOn(mine->get_YRevenueSeries(), 1));
    }
    ASSERT_EQ(mine->groups().size(), 1U);
    EXPECT_EQ(mine->groups().front().counted, std::nullopt);
}

TEST_F(PlacedChanges, OfAYearThatOthersHaveRelabelledGoToItsLabel) {
    type(Datum::YRevenueSeries, 2, 7);
    theirs->put_LastFY(2023);
    theirs->put_LastFYDate(*makeDate(2023, 9, 30));
    place();
    EXPECT_EQ(whys(), Whys{NotPlaced::changedSince}) << "there is the figure of another year";
    EXPECT_TRUE(sameAs(*theirs, *before));
}

TEST_F(PlacedChanges, AYearIsNotRemovedOverAFigureOfOthers) {
    addYear(-1);
    putElement(*theirs, Datum::YRevenueSeries, 0, 99); // the year ahead
    place();
    EXPECT_TRUE(sameAs(*theirs, *before));
    EXPECT_EQ(whys(), Whys(left.size(), NotPlaced::periodsMoved));
    EXPECT_FALSE(left.empty());
}

TEST_F(PlacedChanges, AYearIsNotAddedOverAFigureInASeriesThatWasEmpty) {
    addYear();
    putElement(*theirs, Datum::YHighSeries, 10, 1);
    place();
    EXPECT_TRUE(sameAs(*theirs, *before));
    EXPECT_FALSE(left.empty());
}

TEST_F(PlacedChanges, OfAPeriodThatOthersHaveMovedTooLackOnlyItsDate) {
    for (const int years : {1, -1}) {
        company->put_LastFY(2024);
        company->put_LastFYDate(*makeDate(2024, 9, 28));
        theirs = company->clone();
        mine = std::make_shared<ChangeJournal>(company);
        addYear(years);
        const Date end = theirs->get_LastFYDate();
        moveYears(*theirs, years);
        theirs->put_LastFYDate(end);
        place();
        EXPECT_TRUE(left.empty());
        EXPECT_TRUE(sameAs(*theirs, *company)) << years;
    }
}

TEST_F(PlacedChanges, AYearWhoseEndOthersHaveStatedIsNotAddedAndItsSeriesAreTold) {
    addYear();
    theirs->put_LastFYDate(*makeDate(2024, 10, 31));
    place();
    EXPECT_TRUE(sameAs(*theirs, *before));
    EXPECT_EQ(whys(), Whys(left.size(), NotPlaced::periodsMoved));
    for (const Datum told :
         {Datum::LastFY, Datum::LastFYDate, Datum::YRevenueSeries, Datum::YEPSSeries})
        EXPECT_EQ(std::ranges::count(left, told, [](const auto& one) { return one.change.datum; }),
                  1)
            << rowOf(told).name;
}

TEST_F(PlacedChanges, OfADateThatOthersHaveStatedTheOtherOneIsOfAnotherPeriod) {
    theirs->put_LastFYDate(*makeDate(2024, 10, 31));
    for (const int year : {2023, 2025}) {
        left.clear();
        mine->startOver();
        {
            const ActionScope action(mine, {Origin::typed, "Last FY", {}});
            mine->put_LastFY(static_cast<std::int16_t>(year));
            mine->put_LastFYDate(*makeDate(year, 9, 30));
        }
        place();
        EXPECT_TRUE(sameAs(*theirs, *before));
        ASSERT_EQ(left.size(), 2U) << year;
        for (const UnplacedChange& one : left) {
            const bool isYear = one.change.datum == Datum::LastFY;
            EXPECT_EQ(one.why, isYear ? NotPlaced::periodsMoved : NotPlaced::changedSince);
            EXPECT_EQ(one.found, readDatum(*theirs, one.change.datum));
        }
        company->put_LastFY(2024);
        company->put_LastFYDate(*makeDate(2024, 9, 28));
    }
}

// The other date of the quarters stands in for one that is absent.
TEST_F(PlacedChanges, ADateIsFreeWhereItIsAsBeforeOrAsAfterOnShowOrInTheRecord) {
    const Date shown = *makeDate(2024, 9, 28);
    const Date other = *makeDate(2024, 6, 29);
    const Date another = *makeDate(2024, 3, 30);
    struct Row {
        Date from;
        Date to;
        bool isFree;
    };
    for (const Row& row : {Row{shown, other, true}, Row{other, shown, true}, Row{{}, other, true},
                           Row{another, other, false}}) {
        theirs->put_LastQDate({});
        placeAlone(Datum::LastQDate, row.from, row.to);
        EXPECT_EQ(left.empty(), row.isFree);
        EXPECT_EQ(theirs->stored(Datum::LastQDate), Variant(row.isFree ? row.to : Date{}));
    }
}

TEST_F(PlacedChanges, WhatNobodyHasStatedGivesWay) {
    mine->put_TotalDebt(6);
    mine->put_PrefShares(7);
    theirs->put_TotalDebt(9);
    theirs->put_PrefShares(9);
    const ChangeGroup debt = mine->unsaved().front();
    const ChangePlacing placing(mine->unsaved(), {Datum::PrefShares});
    const auto placed = placing.place(mine->unsaved().back(), *theirs);
    EXPECT_TRUE(placed.left.empty());
    EXPECT_EQ(placed.group.changes, mine->unsaved().back().changes);
    EXPECT_EQ(placing.place(debt, *theirs).left.size(), 1U);
}

TEST_F(PlacedChanges, WhatIsThereAsALaterGroupMakesItIsLeftOut) {
    for (const char* symbol : {"EUR", "CHF"})
        mine->get_Settings()->put(setting::currencySymbol, symbol);
    type(Datum::YRevenueSeries, 1, 7);
    addYear();
    type(Datum::YRevenueSeries, 2, 8); // the same year
    theirs->get_Settings()->put(setting::currencySymbol, "CHF");
    putElement(*theirs, Datum::YRevenueSeries, 1, 8);
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_TRUE(sameAs(*theirs, *company));
    left.clear();
    theirs->get_Settings()->put(setting::currencySymbol, "EUR");
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(theirs->get_Settings()->get(setting::currencySymbol), Variant("CHF"));
}

// A change of a record that has other series.
TEST_F(PlacedChanges, ASeriesOfOtherBoundsIsOfNoYear) {
    const Variant held = company->get_YRevenueSeries();
    for (const Variant& series :
         {numberArray({1, 2, 3}), numberArray(std::vector<double>(11), 1),
          numberArray(std::vector<double>(10), 1),
          Variant(VariantArray(0, std::vector<std::string>(11, "1"))), Variant(1.0)})
        for (const auto& [from, to] : {std::pair(series, held), std::pair(held, series)}) {
            placeAlone(Datum::YRevenueSeries, from, to);
            EXPECT_EQ(whys(), Whys{NotPlaced::notDated});
            EXPECT_TRUE(sameAs(*theirs, *before));
        }
}

TEST_F(PlacedChanges, WhatWasWorkedOutIsToldOnlyWhereItIsAllOfAStep) {
    theirs->put_Last4QEPS(7);
    theirs->put_TotalDebt(9);
    const Change sum{{Datum::Last4QEPS, {}, 5.0, 6.0}, {}, Origin::derived, {}};
    const Change debt{{Datum::TotalDebt, {}, 5.0, 6.0}, {}, Origin::typed, {}};
    struct Row {
        const char* name;
        std::vector<Change> changes;
        std::size_t told;
    };
    for (const Row& row : {Row{"Undo", {sum}, 1}, Row{"", {sum}, 0}, Row{"Undo", {debt, sum}, 1},
                           Row{"", {debt}, 1}}) {
        left.clear();
        place({{row.name, {}, row.changes}});
        EXPECT_EQ(whys(), Whys(row.told, NotPlaced::changedSince)) << row.name;
    }
}

TEST_F(PlacedChanges, ASplitIsMadeOfWhatTheTableStillHas) {
    {
        const ActionScope action(mine, splitAction(*readSplitRatio("2:1")));
        type(Datum::YEPSSeries, 9, 9.5);
        type(Datum::YEPSSeries, 10, 10);
    }
    moveYears(*theirs, 1);
    place();
    EXPECT_EQ(whys(), Whys{NotPlaced::outsideTable});
    EXPECT_EQ(elementOf(*theirs, Datum::YEPSSeries, 10), 9.5);
}

TEST_F(PlacedChanges, OfUnknownYearsMoveWhatIsAsItWas) {
    addYear();
    auto groups = mine->unsaved();
    groups.front().counted.reset();
    place(groups);
    EXPECT_TRUE(left.empty());
    EXPECT_TRUE(sameAs(*theirs, *company));
    place(groups);
    EXPECT_TRUE(left.empty());
    EXPECT_FALSE(restored->canUndo());
}

// The figures at both ends go no farther than to the edge.
TEST_F(PlacedChanges, AYearIsAddedOrRemovedWhereWhatOthersHaveTypedStaysInTheTable) {
    for (const auto& [years, element] : {std::pair(1, 9), std::pair(-1, 1)}) {
        const auto as = theirs->clone();
        mine = std::make_shared<ChangeJournal>(theirs->clone());
        addYear(years);
        putElement(*theirs, Datum::YRevenueSeries, element, 99);
        place();
        EXPECT_TRUE(left.empty()) << years;
        EXPECT_EQ(revenue(element + years), 99);
        theirs = as;
    }
}

TEST_F(PlacedChanges, OfPeriodsThatTheirsDoesNotKnowGoOnlyWhereTheFigureBeforeIs) {
    type(Datum::YRevenueSeries, 2, 7);
    type(Datum::YHighSeries, 2, 8);
    type(Datum::QRevenueSeries, 2, 7);
    type(Datum::QEPSSeries, 2, 8);
    const auto dated = theirs->clone();
    for (const bool isYear : {true, false}) {
        theirs = dated->clone();
        left.clear();
        if (isYear) {
            theirs->put_LastFY(0);
            theirs->put_LastFYDate({});
        } else {
            theirs->put_LastQDate({});
            theirs->put_LastQDateForGrid({});
        }
        place();
        EXPECT_EQ(revenue(2), 7);
        EXPECT_EQ(elementOf(*theirs, Datum::QRevenueSeries, 2), 7);
        ASSERT_EQ(whys(), Whys{NotPlaced::notDated});
        EXPECT_EQ(left[0].change.datum, isYear ? Datum::YHighSeries : Datum::QEPSSeries);
    }
}

TEST_F(PlacedChanges, OfPeriodsThatNobodyHadStatedGoOnlyWhereTheFigureBeforeIs) {
    type(Datum::YRevenueSeries, 2, 7);
    type(Datum::YHighSeries, 2, 8);
    auto groups = mine->unsaved();
    for (ChangeGroup& group : groups)
        group.counted->before.year = group.counted->after.year = 0;
    place(groups);
    EXPECT_EQ(revenue(2), 7);
    ASSERT_EQ(whys(), Whys{NotPlaced::notDated});
    EXPECT_EQ(left[0].change.datum, Datum::YHighSeries);
}

TEST_F(PlacedChanges, OfPeriodsThatAreStatedForTheFirstTimeAreNotMoved) {
    const NewestPeriods newest = newestPeriods(*theirs);
    theirs->put_LastFY(0);
    theirs->put_LastFYDate({});
    const Variant held = theirs->get_YRevenueSeries();
    Variant other = held;
    other.array().setNumber(3, 7);
    place({{"",
            {},
            {{{Datum::LastFY, {}, std::int16_t{0}, std::int16_t{2024}}, {}, Origin::typed, {}},
             {{Datum::YRevenueSeries, {}, held, other}, {}, Origin::typed, {}}},
            CountedFrom{{0, newest.quarter}, newest}}});
    EXPECT_TRUE(left.empty());
    EXPECT_EQ(theirs->get_LastFY(), 2024);
    EXPECT_EQ(theirs->get_YRevenueSeries(), other);
}

TEST_F(PlacedChanges, OfKnownAndUnknownYearsGoEachByWhatIsKnown) {
    type(Datum::YRevenueSeries, 2, 7);
    type(Datum::YRevenueSeries, 3, 8);
    auto groups = mine->unsaved();
    groups.back().counted.reset();
    place(groups);
    EXPECT_TRUE(left.empty());
    EXPECT_TRUE(sameAs(*theirs, *company));
}

TEST_F(PlacedChanges, WhatIsThereAlreadyIsNoChangeThoughItChangesLater) {
    mine->put_TotalDebt(6);
    mine->put_TotalDebt(7);
    theirs->put_TotalDebt(6);
    const auto groups = mine->unsaved();
    const auto placed = ChangePlacing(groups).place(groups.front(), *theirs);
    EXPECT_TRUE(placed.group.changes.empty());
    EXPECT_TRUE(placed.left.empty());
}

TEST_F(PlacedChanges, ASettingBesideADatumIsNotTakenForOne) {
    {
        const ActionScope action(mine, {Origin::typed, "Both", {}});
        mine->get_Settings()->put(setting::currencySymbol, "EUR");
        writeText(*mine, Datum{}, "Acme");
    }
    place();
    EXPECT_TRUE(left.empty());
    EXPECT_TRUE(sameAs(*theirs, *company));
}

} // namespace
} // namespace vkr
