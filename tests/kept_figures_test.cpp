// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "company/kept_figures.hpp"
#include "company/period_moves.hpp"
#include "company/split.hpp"
#include "input/date_pattern.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/samples.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <map>
#include <tuple>

namespace vkr {
namespace {

constexpr int year = 3;

// A year with a tax rate that is not what its net and pre-tax income give.
class TaxedYear : public testing::Test {
  protected:
    TaxedYear() {
        put(Datum::YNetIncSeries, 8000);
        put(Datum::YPTISeries, 10279.3);
        put(Datum::YTaxRateSeries, 18.1);
    }
    void put(Datum series, double figure, int element = year) const {
        test::putElement(*record, series, element, figure);
    }
    [[nodiscard]] double rate(int element = year) const {
        return test::elementOf(*record, Datum::YTaxRateSeries, element);
    }

    std::shared_ptr<CompanyRecord> record = test::datedCompany();
};

class KeptFiguresTest : public TaxedYear {
  protected:
    void came(Origin origin) {
        for (const Datum series : {Datum::YNetIncSeries, Datum::YPTISeries, Datum::YTaxRateSeries})
            origins.put(series, year, {origin, "", false});
    }
    // As the component works out what is hidden.
    void derive(double figure, int element = year) {
        const ActionScope commit(kept, {Origin::derived, {}, {}});
        test::putElement(*kept, Datum::YTaxRateSeries, element, figure);
    }

    FigureOrigins origins;
    std::shared_ptr<KeptFigures> kept =
        std::make_shared<KeptFigures>(record, [this] { return origins; });
};

// The lines of docs/host-guide.md.
TEST_F(TaxedYear, AndTrailingEarningsAreKeptByTheLinesOfTheHostGuide) {
    record->put_Last4QEPS(9.5);
    for (int quarter = 0; quarter < 4; ++quarter)
        test::putElement(*record, Datum::QEPSSeries, quarter, 2.5);
    FigureOrigins stored;
    stored.put(Datum::YTaxRateSeries, year, {Origin::imported, "10-K", false});
    stored.put(Datum::Last4QEPS, std::nullopt, {Origin::typed, "", false});
    EntryScene scene;
    const auto journal = std::make_shared<ChangeJournal>(record);
    const auto origins = [stored, journal] {
        FigureOrigins now = stored;
        for (const ChangeGroup& group : journal->groups())
            now.note(group);
        return now;
    };
    scene.load(record->clone()); // without them
    EXPECT_EQ(scene.text("txtLast4QEPS"), "10.00");

    scene.entry->put_objCompany(std::make_shared<KeptFigures>(journal, origins));
    journal->startOver();
    EXPECT_EQ(scene.text("txtLast4QEPS"), "9.50");
    test::typeOver(scene, "txtTotalDebt", "7");
    static_cast<void>(scene.entry->get_objCompany());
    EXPECT_EQ(record->get_TotalDebt(), 7);
    EXPECT_EQ(record->get_Last4QEPS(), 9.5);
    EXPECT_EQ(rate(), 18.1);
    const auto copy = record->clone();
    scene.entry->commitInto(std::make_shared<KeptFigures>(copy, origins));
    EXPECT_TRUE(test::changedData(*record, *copy).empty());

    test::typeOver(scene, "txtEPS(0)", "3"); // what the sum follows from has changed
    EXPECT_EQ(record->get_Last4QEPS(), 10.5);
}

TEST_F(KeptFiguresTest, AnImportedTaxRateStaysWhatItIsByACommit) {
    EntryScene scene;
    // What is laid down for the component.
    const auto committed = record->clone();
    scene.entry->put_objCompany(committed);
    scene.entry->commitInto(committed);
    EXPECT_NEAR(test::elementOf(*committed, Datum::YTaxRateSeries, year), 22.17, 0.01);

    came(Origin::imported);
    scene.entry->put_objCompany(record);
    {
        const ActionScope commit(kept, {Origin::derived, {}, {}});
        scene.entry->commitInto(kept);
    }
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, WhatIsAbsentIsWorkedOut) {
    came(Origin::imported);
    derive(21, 4);
    EXPECT_EQ(rate(4), 21);
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, WhatWasWorkedOutBeforeIsWorkedOutAgain) {
    came(Origin::typed);
    origins.put(Datum::YTaxRateSeries, year, {Origin::derived, "", false});
    derive(22.2);
    EXPECT_EQ(rate(), 22.2);
}

TEST_F(KeptFiguresTest, WhatNobodyKnowsTheOriginOfStays) {
    derive(22.2);
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, AChangedInputLetsItBeWorkedOut) {
    came(Origin::typed);
    origins.note({"", {}, {{{Datum::YPTISeries, year, 10279.3, 11000.0}, {}, Origin::typed, {}}}});
    derive(27.3);
    EXPECT_EQ(rate(), 27.3);
}

TEST_F(KeptFiguresTest, AnInputOfTheSameActionDoesSoToo) {
    came(Origin::typed);
    const ActionScope leaving(kept, {Origin::typed, {}, {}});
    Variant incomes = kept->get_YPTISeries();
    incomes.array().setNumber(year, 11000);
    incomes.array().setNumber(year + 1, 12000);
    kept->put_YPTISeries(incomes);
    derive(27.3);
    EXPECT_EQ(rate(), 27.3);
}

TEST_F(KeptFiguresTest, TheFirstAndTheLastYearAreNoOthers) {
    for (const int element : {0, 10}) {
        put(Datum::YPTISeries, 10000, element);
        put(Datum::YTaxRateSeries, 18.1, element);
        origins.put(Datum::YTaxRateSeries, element, {Origin::typed, "", false});
        derive(22.2, element);
        EXPECT_EQ(rate(element), 18.1) << element;
        const ActionScope leaving(kept, {Origin::typed, {}, {}});
        test::putElement(*kept, Datum::YPTISeries, element, 11000);
        derive(27.3, element);
        EXPECT_EQ(rate(element), 27.3) << element;
        derive(27.4, element);
        EXPECT_EQ(rate(element), 27.4) << element << ", still the same action";
    }
}

TEST_F(KeptFiguresTest, AnInputOfAnotherYearOrFigureChangesNothing) {
    came(Origin::typed);
    const ActionScope leaving(kept, {Origin::typed, {}, {}});
    test::putElement(*kept, Datum::YPTISeries, year + 1, 11000);
    test::putElement(*kept, Datum::YBookValSeries, year, 7);
    derive(27.3);
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, AnInputOfAnEarlierWriteDoesNot) {
    came(Origin::typed);
    test::putElement(*kept, Datum::YPTISeries, year, 11000);
    derive(27.3);
    EXPECT_EQ(rate(), 18.1);
    {
        const ActionScope leaving(kept, {Origin::typed, {}, {}});
        test::putElement(*kept, Datum::YPTISeries, year, 12000);
    }
    derive(33.3);
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, TheTrailingSumFollowsAQuarterThatWasLeft) {
    record->put_Last4QEPS(4);
    origins.put(Datum::Last4QEPS, {}, {Origin::typed, "", false});
    const auto sum = [&] {
        const ActionScope working(kept, {Origin::derived, {}, {}});
        kept->put_Last4QEPS(5);
    };
    sum();
    EXPECT_EQ(record->get_Last4QEPS(), 4);
    {
        const ActionScope leaving(kept, {Origin::typed, {}, {}});
        test::putElement(*kept, Datum::QEPSSeries, 2, 1.25);
        sum();
        EXPECT_EQ(record->get_Last4QEPS(), 5);
    }
    record->put_Last4QEPS(4);
    sum();
    EXPECT_EQ(record->get_Last4QEPS(), 4) << "the action has ended";
}

// A sum is of all quarters, whichever moves, and of the dates that name them.
TEST_F(KeptFiguresTest, TheTrailingSumFollowsQuartersThatMoveAndTheirDates) {
    record->put_Last4QEPS(4);
    test::putElement(*record, Datum::QEPSSeries, 2, 1.25);
    origins.put(Datum::Last4QEPS, {}, {Origin::typed, "", false});
    const auto sumAfter = [&](Origin origin, const auto& write) {
        record->put_Last4QEPS(4);
        const ActionScope action(kept, {origin, {}, {}});
        write();
        const ActionScope working(kept, {Origin::derived, {}, {}});
        kept->put_Last4QEPS(5);
        return record->get_Last4QEPS();
    };
    const Date last = record->get_LastQDateForGrid();
    EXPECT_EQ(sumAfter(Origin::shifted,
                       [&] { kept->put_QEPSSeries(movedOn(kept->get_QEPSSeries(), 1)); }),
              5);
    EXPECT_EQ(sumAfter(Origin::typed, [&] { kept->put_LastQDateForGrid(last); }), 4);
    EXPECT_EQ(sumAfter(Origin::typed, [&] { kept->put_LastQDateForGrid(addQuarters(last, 1)); }),
              5);
}

TEST_F(KeptFiguresTest, AFigureThatIsEmptiedIsNoMove) {
    came(Origin::typed);
    const ActionScope leaving(kept, {Origin::typed, {}, {}});
    test::putElement(*kept, Datum::YPTISeries, year, 0);
    derive(0);
    EXPECT_EQ(rate(), 0);
}

TEST_F(KeptFiguresTest, WhatIsWorkedOutIsNoNewInput) {
    put(Datum::YCommEqSeries, 100);
    origins.put(Datum::YCommEqSeries, year, {Origin::typed, "", false});
    const ActionScope commit(kept, {Origin::derived, {}, {}});
    test::putElement(*kept, Datum::YBookValSeries, year, 7);
    test::putElement(*kept, Datum::YCommEqSeries, year, 101);
    EXPECT_EQ(test::elementOf(*record, Datum::YCommEqSeries, year), 100);
}

// The origins are those of before the action, the elements those of after it.
TEST_F(KeptFiguresTest, WhatHasMovedIsKeptAtItsNewPlace) {
    for (const int periods : {1, -1}) {
        SCOPED_TRACE(periods);
        const auto before = record->clone();
        put(Datum::YTaxRateSeries, 30, year + 2);
        put(Datum::YTaxRateSeries, 31, year - 2);
        came(Origin::imported);
        for (const int element : {year + 2, year - 2})
            origins.put(Datum::YTaxRateSeries, element, {Origin::derived, "", false});
        {
            const ActionScope adding(kept, {Origin::shifted, {}, {}});
            for (const Datum series :
                 {Datum::YTaxRateSeries, Datum::YNetIncSeries, Datum::YPTISeries})
                writeSeries(*kept, series, movedOn(readSeries(*kept, series), periods));
            derive(22, year + periods);
            derive(23, year + 2 + periods);
            EXPECT_EQ(rate(year + periods), 18.1);
            EXPECT_EQ(rate(year + 2 + periods), 23);
        }
        for (const DatumRow& row : datumTable())
            writeDatum(*record, row.datum, before->stored(row.datum));
    }
}

TEST_F(KeptFiguresTest, AnInputGoesWithItsSeriesAndLeavesNoneBehind) {
    for (const int typed : {0, year}) {
        SCOPED_TRACE(typed);
        for (const int element : {typed, typed + 1, typed + 2}) {
            put(Datum::YTaxRateSeries, 18.1, element);
            origins.put(Datum::YTaxRateSeries, element, {Origin::typed, "", false});
        }
        const ActionScope adding(kept, {Origin::shifted, {}, {}});
        {
            const ActionScope typing(kept, {Origin::typed, {}, {}});
            test::putElement(*kept, Datum::YPTISeries, typed, 11000);
        }
        kept->put_YPTISeries(movedOn(kept->get_YPTISeries(), 1));
        for (const int element : {typed, typed + 1, typed + 2}) {
            derive(22, element);
            EXPECT_EQ(rate(element), element == typed + 1 ? 22 : 18.1) << element;
        }
    }
}

// A record of a host's own that has no series at first.
TEST_F(KeptFiguresTest, ASeriesThatComesInPlaceOfSomethingElseIsAnInput) {
    class Host final : public CompanyBase {
      public:
        [[nodiscard]] Variant get_QEPSSeries() const override { return earnings; }
        void put_QEPSSeries(const Variant& value) override { earnings = value; }
        [[nodiscard]] double get_Last4QEPS() const override { return sum; }
        void put_Last4QEPS(double value) override { sum = value; }
        Variant earnings = 1.0;
        double sum = 4;
    };
    const auto host = std::make_shared<Host>();
    KeptFigures above(host, [] { return FigureOrigins(); });
    above.beginAction({Origin::typed, {}, {}});
    above.put_QEPSSeries(numberArray({1, 2, 3, 4}));
    above.beginAction({Origin::derived, {}, {}});
    above.put_Last4QEPS(10);
    above.endAction();
    above.endAction();
    EXPECT_EQ(host->sum, 10);
}

TEST_F(KeptFiguresTest, AllOfASeriesThatComesInPlaceOfSomethingElseIsNew) {
    class Host final : public CompanyBase {
      public:
        [[nodiscard]] Variant get_YPTISeries() const override { return income; }
        void put_YPTISeries(const Variant& value) override { income = value; }
        [[nodiscard]] Variant get_YTaxRateSeries() const override { return rates; }
        void put_YTaxRateSeries(const Variant& value) override { rates = value; }
        Variant income = 1.0;
        Variant rates = numberArray({20, 21, 22}, 0);
    };
    const auto host = std::make_shared<Host>();
    const auto typed = [] {
        FigureOrigins all;
        for (int element = 0; element < 3; ++element)
            all.put(Datum::YTaxRateSeries, element, {Origin::typed, "", false});
        return all;
    };
    KeptFigures above(host, typed);
    above.beginAction({Origin::typed, {}, {}});
    above.put_YPTISeries(numberArray({1, 2}, 0));
    above.beginAction({Origin::derived, {}, {}});
    above.put_YTaxRateSeries(numberArray({5, 6, 7}, 0));
    above.endAction();
    above.endAction();
    EXPECT_EQ(host->rates, Variant(numberArray({5, 6, 22}, 0))) << "the last one has no new income";
}

// Of two inputs that were written, only those of the series that moves go with it.
TEST_F(KeptFiguresTest, AnInputBesideAMovedSeriesStaysWhereItIs) {
    came(Origin::typed);
    origins.put(Datum::YTaxRateSeries, year + 1, {Origin::typed, "", false});
    put(Datum::YTaxRateSeries, 19, year + 1);
    const ActionScope adding(kept, {Origin::shifted, {}, {}});
    {
        const ActionScope typing(kept, {Origin::typed, {}, {}});
        test::putElement(*kept, Datum::YNetIncSeries, year, 8100);
    }
    kept->put_YPTISeries(movedOn(kept->get_YPTISeries(), 1));
    derive(22, year);
    derive(23, year + 1);
    EXPECT_EQ(rate(year), 22);
    EXPECT_EQ(rate(year + 1), 19);
}

TEST_F(KeptFiguresTest, WhatAPersonTypesIsWritten) {
    came(Origin::imported);
    test::putElement(*kept, Datum::YTaxRateSeries, year, 19);
    EXPECT_EQ(rate(), 19);
    const ActionScope commit(kept, {Origin::derived, {}, {}});
    kept->put_City("Graz"); // not one of the figures that are worked out
    EXPECT_EQ(record->get_City(), "Graz");
}

TEST_F(KeptFiguresTest, EverythingElseIsPassedOn) {
    const auto scripted = std::make_shared<ScriptedRecord>(record);
    const auto above = std::make_shared<KeptFigures>(scripted, [] { return FigureOrigins(); });
    for (const DatumRow& row : datumTable())
        EXPECT_EQ(readDatum(*above, row.datum), readDatum(*record, row.datum)) << row.name;
    EXPECT_EQ(above->get_Settings(), scripted->get_Settings());
    scripted->log.clear();
    above->BeginYearShift(0);
    above->YearShiftState(0);
    above->EndYearShift(0);
    above->YearShiftUnit(0);
    above->put_QuarterlyFlag(1);
    static_cast<void>(above->get_SettingsApply());
    EXPECT_GE(scripted->log.size(), 1U);
}

// --- the record that is edited -------------------------------------------------------------------

// As a host holds a record: the form, what is kept, the journal, the record.
struct HeldByHost {
    explicit HeldByHost(std::shared_ptr<CompanyRecord> held) : company(std::move(held)) {}

    std::shared_ptr<CompanyRecord> company;
    EntryScene scene;
    FigureOrigins opened;
    std::shared_ptr<ChangeJournal> journal = std::make_shared<ChangeJournal>(company);
    std::shared_ptr<KeptFigures> kept = std::make_shared<KeptFigures>(journal, [this] {
        FigureOrigins now = opened;
        for (const ChangeGroup& group : journal->groups())
            now.note(group);
        return now;
    });
};

class KeptWhileEdited : public TaxedYear, protected HeldByHost {
  protected:
    KeptWhileEdited() : HeldByHost(record) {
        record->put_Last4QEPS(3.75);
        for (int quarter = 0; quarter < 4; ++quarter)
            put(Datum::QEPSSeries, 1, quarter);
        for (const Datum series : {Datum::YNetIncSeries, Datum::YPTISeries, Datum::YTaxRateSeries})
            opened.put(series, year, {Origin::imported, "0001-24-5", false});
        opened.put(Datum::Last4QEPS, {}, {Origin::imported, "0001-24-5", false});
        scene.load(kept);
        journal->startOver();
        scene.entry->historyAsked = [this](HistoryStep step) {
            const bool isDone = step == HistoryStep::undo ? !journal->undo() : !journal->redo();
            scene.entry->recordChanged();
            return isDone;
        };
    }
    void commit() { static_cast<void>(scene.entry->get_objCompany()); }
    // What the grid shows of the year, in the column of the pair.
    [[nodiscard]] std::string shown() const { return scene.text("txtYOption", 10 - year); }
    void showTaxRates() {
        test::show(scene, "optPTI(1)");
        scene.desktop.click("optPTI(1)");
    }
};

TEST_F(KeptWhileEdited, AnImportedTaxRateStaysByOkAndByEditingSomethingElse) {
    commit();
    EXPECT_EQ(rate(), 18.1);
    scene.entry->put_blnDirty(false); // as a host does that has saved
    test::typeOver(scene, "txtSales(7)", "12000");
    test::typeOver(scene, "txtYOption(6)", "900");
    test::typeOver(scene, "txtName", "Acme");
    commit();
    EXPECT_EQ(rate(), 18.1);
    showTaxRates();
    test::show(scene, "txtYOption(7)");
    EXPECT_EQ(shown(), "18.10");
    commit();
    EXPECT_EQ(rate(), 18.1);
    EXPECT_EQ(test::elementOf(*record, Datum::YPTISeries, year), 10279.3);
}

// Its inputs move with it: they are no other ones.
TEST_F(KeptWhileEdited, AnImportedTaxRateMovesWithItsYear) {
    put(Datum::YNetIncSeries, 700, year + 1);
    put(Datum::YPTISeries, 1000, year + 1);
    put(Datum::YTaxRateSeries, 31, year + 1);
    opened.put(Datum::YTaxRateSeries, year + 1, {Origin::typed, "", false});
    scene.entry->recordChanged();
    scene.entry->put_CurrentTab(toYearly);
    const auto press = [&](const char* button) {
        scene.desktop.answerNext(MessageAnswer::yes);
        scene.desktop.click(button);
        commit();
    };
    press("cmdAddYear");
    EXPECT_EQ(rate(year + 1), 18.1);
    EXPECT_EQ(rate(year + 2), 31);
    test::typeOver(scene, "txtYOption(6)", "10000"); // of the same year
    commit();
    EXPECT_DOUBLE_EQ(rate(year + 1), 20);
    EXPECT_EQ(rate(year + 2), 31);
    press("cmdRemoveYear");
    EXPECT_DOUBLE_EQ(rate(), 20);
    EXPECT_EQ(rate(year + 1), 31);
}

// A cell that is being typed is stored before its year moves, in the same action.
TEST_F(KeptWhileEdited, AnInputThatIsTypedWhenAYearIsAddedCounts) {
    put(Datum::YNetIncSeries, 700, year + 1);
    put(Datum::YPTISeries, 1000, year + 1);
    put(Datum::YTaxRateSeries, 31, year + 1);
    opened.put(Datum::YTaxRateSeries, year + 1, {Origin::typed, "", false});
    scene.entry->recordChanged();
    test::show(scene, "txtYOption(7)");
    scene.typeAt("txtYOption(7)", "^a10000");
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddYear");
    commit();
    EXPECT_EQ(test::elementOf(*record, Datum::YPTISeries, year + 1), 10000);
    EXPECT_DOUBLE_EQ(rate(year + 1), 20);
    EXPECT_EQ(rate(year + 2), 31);
}

TEST_F(KeptWhileEdited, AnImportedQuartersTaxRateMovesWithItsQuarter) {
    for (const auto& [series, figure] :
         {std::pair(Datum::QNetIncSeries, 80.0), std::pair(Datum::QPTISeries, 102.8),
          std::pair(Datum::QTaxRateSeries, 18.1)}) {
        put(series, figure, 2);
        opened.put(series, 2, {Origin::imported, "0001-24-5", false});
    }
    scene.entry->recordChanged();
    scene.entry->put_CurrentTab(toQuarterly);
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddQuarter");
    commit();
    ASSERT_EQ(test::elementOf(*record, Datum::QPTISeries, 3), 102.8);
    EXPECT_EQ(test::elementOf(*record, Datum::QTaxRateSeries, 3), 18.1);
}

TEST_F(KeptWhileEdited, AnEditedInputLetsTheComputedFigureThrough) {
    put(Datum::YNetIncSeries, 700, year + 1);
    put(Datum::YPTISeries, 1000, year + 1);
    put(Datum::YTaxRateSeries, 31, year + 1);
    scene.entry->recordChanged();
    test::typeOver(scene, "txtYOption(7)", "10000");
    commit();
    EXPECT_DOUBLE_EQ(rate(), 20);
    EXPECT_EQ(rate(year + 1), 31) << "of another year, whose figures nobody has edited";
    test::typeOver(scene, "txtYOption(7)", "16000");
    commit();
    EXPECT_DOUBLE_EQ(rate(), 50) << "what was worked out follows on";
}

TEST_F(KeptWhileEdited, AnInputThatIsTakenBackBringsTheFigureBack) {
    for (const bool isSaved : {false, true}) {
        SCOPED_TRACE(isSaved);
        test::typeOver(scene, "txtYOption(7)", "10000");
        commit();
        ASSERT_DOUBLE_EQ(rate(), 20);
        if (isSaved)
            journal->setSavePoint();
        scene.entry->step(HistoryStep::undo);
        ASSERT_EQ(rate(), 18.1);
        commit();
        EXPECT_EQ(rate(), 18.1);
        scene.entry->step(HistoryStep::redo);
        commit();
        EXPECT_DOUBLE_EQ(rate(), 20);
        scene.entry->step(HistoryStep::undo);
        EXPECT_EQ(rate(), 18.1);
    }
}

TEST_F(KeptWhileEdited, ATypedRateStaysBesideItsIncome) {
    showTaxRates();
    test::typeOver(scene, "txtYOption(7)", "18.25");
    test::show(scene, "optPTI(0)");
    scene.desktop.click("optPTI(0)");
    commit();
    EXPECT_EQ(rate(), 18.25);
    EXPECT_NEAR(test::elementOf(*record, Datum::YPTISeries, year), 10279.3, 1e-9)
        << "the choice derives nothing by itself";
}

TEST_F(KeptWhileEdited, AnImportedTrailingSumStaysUntilAQuarterChanges) {
    test::show(scene, "txtLast4QEPS");
    EXPECT_EQ(scene.text("txtLast4QEPS"), "3.75");
    EXPECT_EQ(record->get_Last4QEPS(), 3.75);
    test::typeOver(scene, "txtName", "Acme");
    scene.desktop.clickTab(toQuarterly);
    scene.typeAt("txtEPS(1)", "{TAB}"); // left as it was
    scene.load(kept);
    EXPECT_EQ(record->get_Last4QEPS(), 3.75);
    test::typeOver(scene, "txtEPS(1)", "1.5");
    EXPECT_EQ(record->get_Last4QEPS(), 4.5);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "4.50");
}

TEST_F(KeptWhileEdited, ATypedTrailingSumKeepsItsDoubtWhileItStays) {
    test::typeOver(scene, "txtLast4QEPS", "3.9");
    const FieldMark doubt = scene.field("txtLast4QEPS").mark();
    ASSERT_EQ(doubt.kind, MarkKind::doubtful);
    scene.desktop.clickTab(toQuarterly);
    scene.typeAt("txtEPS(1)", "{TAB}");
    EXPECT_EQ(record->get_Last4QEPS(), 3.9);
    EXPECT_EQ(scene.field("txtLast4QEPS").mark(), doubt);
    test::typeOver(scene, "txtEPS(1)", "1.5");
    EXPECT_EQ(record->get_Last4QEPS(), 4.5);
    EXPECT_EQ(scene.field("txtLast4QEPS").mark(), FieldMark());
}

// An import takes the place of nothing that was typed, be it by what follows from it.
TEST_F(KeptWhileEdited, ATypedRateStaysBesideImportedIncomes) {
    const std::vector<DatumChange> incomes = {{Datum::YPTISeries, year, 10279.3, 11000.0},
                                              {Datum::YNetIncSeries, year, 8000.0, 8250.0}};
    for (const auto& [came, wanted] :
         {std::pair(std::optional(Origin::typed), 18.1),
          std::pair(std::optional(Origin::pasted), 18.1), std::pair(std::optional<Origin>(), 18.1),
          std::pair(std::optional(Origin::imported), 25.0)}) {
        opened.put(Datum::YTaxRateSeries, year, {came, "", false});
        ASSERT_EQ(scene.entry->changeRecord(incomes, {Origin::imported, "Import", "0002"}),
                  std::nullopt);
        commit();
        EXPECT_DOUBLE_EQ(rate(), wanted);
        while (journal->canUndo())
            ASSERT_EQ(journal->undo(), std::nullopt);
        scene.entry->recordChanged();
    }
}

// A figure that is pasted with what it follows from is as good as one that is pasted alone.
TEST_F(KeptWhileEdited, ABlockKeepsItsOwnSum) {
    const std::vector<DatumChange> both = {{Datum::QEPSSeries, 2, 1.0, 1.25},
                                           {Datum::Last4QEPS, {}, 3.75, 4.2}};
    EXPECT_EQ(scene.entry->changeRecord(both, {Origin::imported, "Import", "0002"}), std::nullopt);
    commit();
    scene.load(kept);
    EXPECT_EQ(record->get_Last4QEPS(), 4.2);
}

// --- what nobody has typed -----------------------------------------------------------------------

// A sample company as a document has brought it, in a form.
class KeptSample : public testing::TestWithParam<const char*>, protected HeldByHost {
  protected:
    KeptSample() : HeldByHost(test::sample(GetParam())) {
        for (const DatumRow& row : datumTable())
            for (int element = 0; element <= (isSeries(row) ? row.upper : 0); ++element)
                opened.put(row.datum, isSeries(row) ? std::optional(element) : std::nullopt,
                           {Origin::imported, "0001-24-5", false});
        scene.load(kept);
        static_cast<void>(scene.entry->get_objCompany());
        journal->startOver();
    }
    // The figures by what they are of: a year, or how many quarters ago.
    using Figures = std::map<std::tuple<Datum, int>, double>;
    [[nodiscard]] Figures figures() const {
        Figures all;
        for (const DatumRow& row : datumTable()) {
            if (!isSeries(row) || row.unit == DatumUnit::none)
                continue;
            const int first = row.period == DatumPeriod::year
                                  ? record->get_LastFY() + 1
                                  : quartersOf(record->get_LastQDateForGrid());
            for (int element = 0; element <= row.upper; ++element)
                if (const double figure = test::elementOf(*record, row.datum, element); figure != 0)
                    all[{row.datum, first - element}] = figure;
        }
        return all;
    }
    static int quartersOf(Date date) {
        const auto [ofYear, month, day] = civil(date);
        return ofYear * 4 + (month - 1) / 3;
    }

    std::shared_ptr<CompanyRecord> record = company;
};

struct QuietDeed {
    const char* name;
    void (*act)(EntryScene& scene);
};

void press(EntryScene& scene, const char* button, TABObject tab) {
    scene.entry->put_CurrentTab(tab);
    scene.desktop.click(button);
}

constexpr QuietDeed quietDeeds[] = {
    {"adds a year", [](EntryScene& scene) { press(scene, "cmdAddYear", toYearly); }},
    {"removes a year", [](EntryScene& scene) { press(scene, "cmdRemoveYear", toYearly); }},
    {"adds a quarter", [](EntryScene& scene) { press(scene, "cmdAddQuarter", toQuarterly); }},
    {"looks back",
     [](EntryScene& scene) {
         test::show(scene, "spnQuarter"), scene.desktop.spin("spnQuarter", -3);
     }},
    {"goes on by a quarter",
     [](EntryScene& scene) {
         test::show(scene, "spnQuarter");
         scene.desktop.spin("spnQuarter", 1);
     }},
    {"types the next last quarter",
     [](EntryScene& scene) {
         const Date next = addQuarters(scene.entry->get_objCompany()->get_LastQDate(), 1);
         test::typeOver(scene, "txtLastQDate", formatDate(next, "MM/DD/YYYY"));
     }},
    {"in thousands", [](EntryScene& scene) { test::goTo(scene, "optCurrency(0)"); }},
    {"in billions", [](EntryScene& scene) { test::goTo(scene, "optCurrency(2)"); }},
    {"in fractions", [](EntryScene& scene) { test::goTo(scene, "optDisplay(1)"); }},
    {"shows tax rates", [](EntryScene& scene) { test::goTo(scene, "optPTI(1)"); }},
    {"shows incomes", [](EntryScene& scene) { test::goTo(scene, "optPTI(0)"); }},
    {"shows book values", [](EntryScene& scene) { test::goTo(scene, "optCommEq(1)"); }},
    {"shows equities", [](EntryScene& scene) { test::goTo(scene, "optCommEq(0)"); }},
    {"types a name", [](EntryScene& scene) { test::typeOver(scene, "txtName", "Acme"); }},
    {"walks through years",
     [](EntryScene& scene) { test::typeAt(scene, "txtYOption(5)", "{TAB 9}"); }},
    {"walks through quarters",
     [](EntryScene& scene) { test::typeAt(scene, "txtQOption(2)", "{TAB 9}"); }},
    {"saves", [](EntryScene& scene) { scene.entry->put_blnDirty(false); }},
};

// Whatever else is done: no figure of a period becomes another one.
TEST_P(KeptSample, ChangesByNothingButWhatIsTypedIntoIt) {
    for (const QuietDeed& first : quietDeeds)
        for (const QuietDeed& second : quietDeeds) {
            SCOPED_TRACE(std::string(first.name) + ", then " + second.name);
            for (const QuietDeed* deed : {&first, &second}) {
                const Figures before = figures();
                scene.desktop.answerNext(MessageAnswer::yes);
                deed->act(scene);
                scene.desktop.forget();
                static_cast<void>(scene.entry->get_objCompany());
                for (const auto& [place, figure] : figures()) {
                    const auto found = before.find(place);
                    ASSERT_NE(found, before.end())
                        << rowOf(std::get<0>(place)).name << " " << std::get<1>(place) << " is new";
                    ASSERT_EQ(figure, found->second)
                        << rowOf(std::get<0>(place)).name << " " << std::get<1>(place);
                }
            }
            while (journal->canUndo())
                ASSERT_EQ(journal->undo(), std::nullopt);
            scene.entry->recordChanged();
        }
}

// Shares and what each of them has change by the same ratio: no total does.
TEST_P(KeptSample, KeepsItsTotalsByASplit) {
    for (const char* row : {"optCommEq(0)", "optCommEq(1)"}) {
        SCOPED_TRACE(row);
        test::goTo(scene, row);
        static_cast<void>(scene.entry->get_objCompany());
        const Figures before = figures();
        const auto split = splitChanges(*record, {{4, 1}, record->get_LastFYDate()});
        ASSERT_EQ(scene.entry->changeRecord(test::changesOf(split), splitAction({4, 1})),
                  std::nullopt);
        static_cast<void>(scene.entry->get_objCompany());
        int compared = 0;
        for (const auto& [place, figure] : figures())
            if (const Datum series = std::get<0>(place);
                rowOf(series).unit != DatumUnit::perShare && series != Datum::YCSOSeries) {
                ASSERT_EQ(figure, before.at(place)) << rowOf(series).name << std::get<1>(place);
                ++compared;
            }
        EXPECT_GT(compared, 50);
        while (journal->canUndo())
            ASSERT_EQ(journal->undo(), std::nullopt);
        scene.entry->recordChanged();
    }
}

INSTANTIATE_TEST_SUITE_P(Samples, KeptSample, testing::Values("AAPL", "NVDA", "TSLA", "SNOW"));

} // namespace
} // namespace vkr
