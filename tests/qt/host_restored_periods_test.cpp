// SPDX-License-Identifier: MIT
// Changes that were not saved and are made again after others have saved the company: each figure
// goes to its year or quarter.
#include "company/period_moves.hpp"
#include "host/history_window.hpp"
#include "host/unsaved_work.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/support/elements.hpp"

#include <QLabel>
#include <QTreeWidget>

#include <functional>

namespace vkr {
namespace {

using test::elementOf;
using test::putElement;

class HostRestoredPeriods : public HostTest {
  protected:
    // What somebody else makes of the stored company.
    void saveTheirs(const std::function<void(CompanyRecord&)>& change) {
        const auto loaded = host_->store().load(idOf(*host_, "AAPL")).value();
        change(*loaded.record);
        ASSERT_TRUE(host_->store().save(idOf(*host_, "AAPL"), *loaded.record, loaded.revision));
    }
    static void addYear(CompanyRecord& record) {
        record.put_LastFY(static_cast<std::int16_t>(record.get_LastFY() + 1));
        record.put_LastFYDate(addQuarters(record.get_LastFYDate(), 4));
        move(record, DatumPeriod::year);
    }
    static void addQuarter(CompanyRecord& record) {
        const Date date = addQuarters(record.get_LastQDateForGrid(), 1);
        record.put_LastQDate(date);
        record.put_LastQDateForGrid(date);
        move(record, DatumPeriod::quarter);
    }
    static void move(CompanyRecord& record, DatumPeriod period) {
        for (const DatumRow& row : datumTable())
            if (row.period == period)
                writeSeries(record, row.datum, movedOn(readSeries(record, row.datum), 1));
    }
    static void typeFigure(CompanyWindow& window, Datum series, int element, double figure) {
        const double held = elementOf(*window.record(), series, element);
        const std::vector<DatumChange> changes = {{series, element, held, figure}};
        ASSERT_EQ(window.entry().component().changeRecord(changes, {}), std::nullopt);
    }
    // Closes the window and has its changes back from the list.
    CompanyWindow& cancelAndRestore(CompanyWindow& window,
                                    const std::function<void(CompanyRecord&)>& theirs,
                                    const QStringList& answers = {}) {
        {
            const Answers discarding({"Discard"});
            window.close();
        }
        saveTheirs(theirs);
        const Answers given(answers);
        host_->list().findChild<QPushButton*>("restore")->click();
        EXPECT_TRUE(given.allGiven());
        told_ = given.told().value(0);
        return *host_->windows().front();
    }
    CompanyWindow& killAndRestore(CompanyWindow& window,
                                  const std::function<void(CompanyRecord&)>& theirs,
                                  const QStringList& answers = {"Restore"}) {
        killWith(window);
        host_ = another();
        saveTheirs(theirs);
        const Answers given(answers);
        host_->offerFound();
        EXPECT_TRUE(given.allGiven());
        offered_ = given.told().value(0);
        told_ = given.told().value(1);
        return *host_->windows().front();
    }
    void undoAll(CompanyWindow& window) {
        action(window, "undo").trigger();
        const auto theirs = stored(*host_, "AAPL");
        for (const DatumRow& row : datumTable())
            if (isSeries(row)) {
                EXPECT_EQ(window.record()->stored(row.datum), theirs->stored(row.datum))
                    << row.name;
            }
        EXPECT_FALSE(window.isWindowModified());
        EXPECT_FALSE(window.journal().canUndo());
    }

    QString offered_;
    QString told_;
};

TEST_F(HostRestoredPeriods, AfterACrashAFigureGoesToItsYear) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    type(window, "txtYEPS(8)", "6.11");
    CompanyWindow& restored = killAndRestore(window, addYear);
    EXPECT_TRUE(offered_.contains("Yearly Earnings Per Share 2024: 6.08 \u2192 6.11"))
        << offered_.toStdString();
    EXPECT_EQ(elementOf(*restored.record(), Datum::YEPSSeries, 3), 6.11) << "2024";
    EXPECT_EQ(elementOf(*restored.record(), Datum::YEPSSeries, 2),
              elementOf(*stored(*host_, "AAPL"), Datum::YEPSSeries, 2));
    EXPECT_EQ(restored.origins().of(Datum::YEPSSeries, 3).origin, Origin::typed);
    undoAll(restored);
    EXPECT_TRUE(unsavedFiles().isEmpty());
    restored.discard();
}

TEST_F(HostRestoredPeriods, AfterACrashAFigureGoesToItsQuarter) {
    CompanyWindow& window = open(*host_, "AAPL");
    typeFigure(window, Datum::QRevenueSeries, 2, 7);
    CompanyWindow& restored = killAndRestore(window, addQuarter);
    EXPECT_EQ(elementOf(*restored.record(), Datum::QRevenueSeries, 3), 7);
    EXPECT_EQ(elementOf(*restored.record(), Datum::QRevenueSeries, 2),
              elementOf(*stored(*host_, "AAPL"), Datum::QRevenueSeries, 2));
    undoAll(restored);
    restored.discard();
}

TEST_F(HostRestoredPeriods, AfterCancelAFigureGoesToItsYear) {
    CompanyWindow& window = open(*host_, "AAPL");
    typeFigure(window, Datum::YRevenueSeries, 2, 7);
    CompanyWindow& restored = cancelAndRestore(window, addYear);
    EXPECT_EQ(elementOf(*restored.record(), Datum::YRevenueSeries, 3), 7);
    EXPECT_TRUE(host_->list().findChild<QPushButton*>("restore")->isHidden());
    undoAll(restored);
    restored.discard();
}

TEST_F(HostRestoredPeriods, AYearThatBothHaveAddedIsAddedOnce) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    {
        const Answers answers({"Yes"});
        click(window, "cmdAddYear");
        EXPECT_TRUE(answers.allGiven());
    }
    type(window, "txtYEPS(9)", "9.11");
    const int year = window.record()->get_LastFY();
    const Date end = window.record()->get_LastFYDate();
    CompanyWindow& restored = killAndRestore(window, [&](CompanyRecord& record) {
        addYear(record);
        record.put_LastFYDate(end);
    });
    EXPECT_EQ(restored.record()->get_LastFY(), year);
    EXPECT_EQ(elementOf(*restored.record(), Datum::YEPSSeries, 1), 9.11);
    EXPECT_EQ(elementOf(*restored.record(), Datum::YEPSSeries, 2),
              elementOf(*stored(*host_, "AAPL"), Datum::YEPSSeries, 2));
    undoAll(restored);
    restored.discard();
}

TEST_F(HostRestoredPeriods, AFigureThatOthersHaveChangedIsToldAndOfferedAgain) {
    CompanyWindow& window = open(*host_, "AAPL");
    typeFigure(window, Datum::YRevenueSeries, 2, 7);
    type(window, "txtTotalDebt", "11");
    CompanyWindow& restored = killAndRestore(
        window, [](CompanyRecord& record) { putElement(record, Datum::YRevenueSeries, 2, 9); },
        {"Restore", "OK"});
    EXPECT_EQ(elementOf(*restored.record(), Datum::YRevenueSeries, 2), 9);
    EXPECT_EQ(restored.record()->get_TotalDebt(), 11);
    EXPECT_TRUE(told_.contains("Yearly Revenue 2024")) << told_.toStdString();
    EXPECT_TRUE(told_.contains("changed by somebody else meanwhile, to 9"));
    EXPECT_FALSE(told_.contains("Total Debt"));
    ASSERT_TRUE(restored.save());
    EXPECT_EQ(unsavedFiles().size(), 1) << "with what is left";
    const Answers answers({"Restore", "OK"});
    host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("Yearly Revenue 2024"));
    EXPECT_TRUE(answers.told().value(1).contains("Nothing was restored."));
    EXPECT_EQ(elementOf(*restored.record(), Datum::YRevenueSeries, 2), 9);
    restored.discard();
}

TEST_F(HostRestoredPeriods, AFigureWhoseYearHasLeftTheTableIsTold) {
    CompanyWindow& window = open(*host_, "AAPL");
    typeFigure(window, Datum::YRevenueSeries, 10, 7);
    typeFigure(window, Datum::YRevenueSeries, 2, 8);
    CompanyWindow& restored = cancelAndRestore(window, addYear, {"OK"});
    EXPECT_TRUE(told_.contains("Yearly Revenue 2016")) << told_.toStdString();
    EXPECT_TRUE(told_.contains("no longer in the table"));
    EXPECT_EQ(elementOf(*restored.record(), Datum::YRevenueSeries, 3), 8);
    EXPECT_TRUE(
        host_->list().findChild<QLabel*>("discarded")->text().startsWith("Discarded 1 change of "));
    undoAll(restored);
    restored.discard();
}

TEST_F(HostRestoredPeriods, WhatIsThereAlreadyIsNotOfferedAgain) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    CompanyWindow& restored = killAndRestore(
        window, [](CompanyRecord& record) { record.put_TotalDebt(11); }, {"Restore", "OK"});
    EXPECT_TRUE(told_.contains("All of it is there already."));
    EXPECT_FALSE(restored.isWindowModified());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    restored.discard();
}

// The steps of before are of another record: none of them can be taken back any more.
TEST_F(HostRestoredPeriods, WhatGaveWayToTheirsGoesToItsYear) {
    CompanyWindow& window = open(*host_, "AAPL");
    typeFigure(window, Datum::YRevenueSeries, 2, 7);
    saveTheirs(addYear);
    {
        const Answers answers({"Take Theirs"});
        EXPECT_FALSE(window.save());
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_FALSE(window.journal().canUndo());
    EXPECT_FALSE(window.journal().canRedo());
    host_->list().findChild<QPushButton*>("restore")->click();
    EXPECT_EQ(elementOf(*window.record(), Datum::YRevenueSeries, 3), 7);
    EXPECT_EQ(elementOf(*window.record(), Datum::YRevenueSeries, 2),
              elementOf(*stored(*host_, "AAPL"), Datum::YRevenueSeries, 2));
    undoAll(window);
    window.discard();
}

TEST_F(HostRestoredPeriods, WhatIsBeingTypedMeanwhileCounts) {
    CompanyWindow& window = open(*host_, "AAPL");
    typeFigure(window, Datum::YRevenueSeries, 2, 7);
    saveTheirs(addYear);
    {
        const Answers answers({"Take Theirs"});
        EXPECT_FALSE(window.save());
    }
    type(window, "txtTotalDebt", "11", false);
    host_->list().findChild<QPushButton*>("restore")->click();
    EXPECT_EQ(window.record()->get_TotalDebt(), 11);
    EXPECT_EQ(elementOf(*window.record(), Datum::YRevenueSeries, 3), 7);
    window.discard();
}

// A state is put back whole, with its years, whatever was added since.
TEST_F(HostRestoredPeriods, AStateOfTheHistoryHasItsOwnYears) {
    const auto first = stored(*host_, "AAPL");
    saveTheirs([](CompanyRecord& record) {
        addYear(record);
        addQuarter(record);
        putElement(record, Datum::YRevenueSeries, 1, 7);
    });
    CompanyWindow& window = open(*host_, "AAPL");
    const auto before = window.record()->clone();
    action(window, "history").trigger();
    auto* history = window.findChild<HistoryWindow*>();
    auto* changes = history->findChild<QTreeWidget*>("changes");
    changes->setCurrentItem(changes->topLevelItem(changes->topLevelItemCount() - 1));
    {
        const Answers answers({"Restore"});
        history->findChild<QPushButton*>("restore")->click();
        EXPECT_TRUE(answers.allGiven());
    }
    for (const DatumRow& row : datumTable())
        EXPECT_EQ(window.record()->stored(row.datum), first->stored(row.datum)) << row.name;
    action(window, "undo").trigger();
    EXPECT_TRUE(sameAs(*window.record(), *before));
    window.discard();
}

// A new company has dates that only loading suggests, of the day on which it is.
TEST_F(HostRestoredPeriods, ANewCompanyIsWhatItWas) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtName", "Acme");
    typeFigure(window, Datum::YRevenueSeries, 1, 7);
    typeFigure(window, Datum::QRevenueSeries, 34, 8);
    killWith(window);
    host_ = another();
    const Answers answers({"Restore"});
    host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(restored.record()->get_Name(), "Acme");
    EXPECT_EQ(elementOf(*restored.record(), Datum::YRevenueSeries, 1), 7);
    EXPECT_EQ(elementOf(*restored.record(), Datum::QRevenueSeries, 34), 8);
    restored.discard();
}

} // namespace
} // namespace vkr
