// SPDX-License-Identifier: MIT
#include "host/unsaved_work.hpp"
#include "host_fixture.hpp"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QStatusBar>

#include <csignal>
#include <sys/resource.h>

namespace vkr {
namespace {

class HostUndo : public HostTest {
  protected:
    static QString menuText(CompanyWindow& window, const char* name) {
        QMenu* shown = nullptr;
        for (QAction* menu : window.menuBar()->actions())
            if (menu->menu() != nullptr && menu->menu()->actions().contains(&action(window, name)))
                shown = menu->menu();
        if (shown == nullptr)
            return {};
        emit shown->aboutToShow();
        const QString text = action(window, name).text().remove(u'&');
        emit shown->aboutToHide();
        return text;
    }
    void lock(const char* symbol) {
        const auto loaded = host_->store().load(idOf(*host_, symbol));
        loaded.value().record->get_Settings()->put(setting::lockBasicInfo, true);
        ASSERT_TRUE(host_->store().save(idOf(*host_, symbol), *loaded.value().record,
                                        loaded.value().revision));
    }
    // A step that can be made again, and one that a program with more years has left.
    std::vector<ChangeGroup> oneOfMoreYears() {
        Change debt;
        debt.datum = Datum::TotalDebt;
        debt.before = stored(*host_, "AAPL")->get_TotalDebt();
        debt.after = 11.0;
        Change earnings;
        earnings.datum = Datum::YEPSSeries;
        earnings.element = 99;
        earnings.before = 6.08;
        earnings.after = 6.11;
        return {{"", {}, {debt}}, {"Earnings of Later", {}, {earnings}}};
    }
    static double debt(CompanyWindow& window) { return window.record()->get_TotalDebt(); }
};

TEST_F(HostUndo, TakesFieldsBackOneAfterTheOtherAndGoesThere) {
    CompanyWindow& window = open(*host_, "AAPL");
    const double before = debt(window);
    type(window, "txtTotalDebt", "11");
    type(window, "txtTotalDebt", "12");
    type(window, "txtName", "Acme");
    EXPECT_EQ(menuText(window, "undo").left(5), "Undo ");
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(focused(window), "txtName");
    EXPECT_NE(window.record()->get_Name(), "Acme");
    EXPECT_TRUE(window.windowTitle().contains("Apple"));
    action(window, "undo").trigger();
    EXPECT_EQ(debt(window), 11);
    EXPECT_EQ(focused(window), "txtTotalDebt");
    EXPECT_TRUE(window.isWindowModified());
    action(window, "undo").trigger();
    EXPECT_EQ(debt(window), before);
    EXPECT_FALSE(window.isWindowModified());
    action(window, "redo").trigger();
    EXPECT_EQ(debt(window), 11);
    EXPECT_TRUE(window.isWindowModified());
    window.discard();
}

TEST_F(HostUndo, GoesBackBeyondWhatWasSaved) {
    CompanyWindow& window = open(*host_, "AAPL");
    const double before = debt(window);
    type(window, "txtTotalDebt", "11");
    ASSERT_TRUE(window.save());
    EXPECT_FALSE(window.isWindowModified());
    action(window, "undo").trigger();
    EXPECT_EQ(debt(window), before);
    EXPECT_TRUE(window.isWindowModified());
    action(window, "redo").trigger();
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    window.discard();
}

TEST_F(HostUndo, ADateThatLoadingSuggestsIsSuggestedAgain) {
    CompanyWindow& window = *host_->newCompany();
    user_.activate(window);
    ASSERT_EQ(window.entry().component().suggestedDates().size(), 4U);
    type(window, "txtPriceUpdate", "1/2/2020");
    action(window, "undo").trigger();
    EXPECT_EQ(window.entry().component().suggestedDates().size(), 4U);
    EXPECT_FALSE(window.isWindowModified());
    window.discard();
}

TEST_F(HostUndo, UnsavedChangesAreBesideTheDatabaseUntilTheyAreSaved) {
    CompanyWindow& window = open(*host_, "AAPL");
    EXPECT_TRUE(unsavedFiles().isEmpty());
    type(window, "txtTotalDebt", "11");
    EXPECT_EQ(unsavedFiles().size(), 1);
    ASSERT_TRUE(window.save());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    type(window, "txtTotalDebt", "12");
    EXPECT_EQ(unsavedFiles().size(), 1);
    window.discard();
    EXPECT_TRUE(unsavedFiles().isEmpty());
}

TEST_F(HostUndo, WhatAKilledProgramLeftBehindIsOfferedAndRestored) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    type(window, "txtName", "Acme");
    killWith(window);
    host_ = another();
    Answers answers({"Restore"});
    host_->offerFound();
    ASSERT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().front().contains("Acme"));
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(debt(restored), 11);
    EXPECT_EQ(restored.record()->get_Name(), "Acme");
    EXPECT_TRUE(restored.isWindowModified());
    EXPECT_EQ(unsavedFiles().size(), 1) << "in a file of the new window";
    EXPECT_EQ(menuText(restored, "undo"), "Undo Restore");
    action(restored, "undo").trigger();
    EXPECT_NE(restored.record()->get_Name(), "Acme");
    EXPECT_NE(debt(restored), 11) << "in one step";
    EXPECT_FALSE(restored.isWindowModified());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    action(restored, "redo").trigger();
    EXPECT_EQ(restored.record()->get_Name(), "Acme");
    ASSERT_TRUE(restored.save());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    EXPECT_EQ(stored(*host_, "AAPL")->get_TotalDebt(), 11);
}

// The tables of a company state one of its two dates, and the other one follows it.
TEST_F(HostUndo, QuartersStayAtTheirDatesWhereAnEarlierLastQuarterIsRestored) {
    CompanyWindow& window = open(*host_, "AAPL");
    Form& form = window.entry().component().form();
    window.entry().setCurrentTab(toQuarterly);
    form.userSpin(form.get<Spinner>("spnQuarter"), -1);
    const Date last = window.record()->get_LastQDate();
    const Date newest = window.record()->get_LastQDateForGrid();
    ASSERT_LT(last, newest);
    killWith(window);
    host_ = another();
    const Answers answers({"Restore"});
    host_->offerFound();
    const auto restored = host_->windows().front()->record();
    EXPECT_EQ(restored->get_LastQDate(), last);
    EXPECT_EQ(restored->get_LastQDateForGrid(), newest);
}

TEST_F(HostUndo, WhatWasFoundAndCannotBeMadeAgainIsOfferedAloneAfterwards) {
    {
        const UnsavedPlace place = unsavedPlaceOf(host_->store());
        UnsavedChanges left(place, {idOf(*host_, "AAPL"), 1, 0, "Apple"});
        for (const ChangeGroup& group : oneOfMoreYears())
            ASSERT_EQ(left.add(group), std::nullopt);
    }
    {
        const Answers answers({"Restore", "OK"});
        host_->offerFound();
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("Total Debt"));
        EXPECT_TRUE(answers.told().value(1).contains("Earnings of Later - "));
        EXPECT_FALSE(answers.told().value(1).contains("Total Debt"));
    }
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(debt(restored), 11);
    EXPECT_EQ(unsavedFiles().size(), 2) << "of the window, and of what is left";
    ASSERT_TRUE(restored.save());
    EXPECT_EQ(unsavedFiles().size(), 1);
    const Answers answers({"Restore", "OK", "Discard", "Discard"});
    for (int offer = 0; offer < 2; ++offer)
        host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    for (const int offer : {0, 2}) {
        EXPECT_TRUE(answers.told().value(offer).contains("Earnings of Later"));
        EXPECT_FALSE(answers.told().value(offer).contains("Total Debt"));
    }
    EXPECT_TRUE(unsavedFiles().isEmpty());
    EXPECT_FALSE(restored.isWindowModified()) << "nothing was made again";
}

// As on a disk that is full.
class NoFileGrows {
  public:
    NoFileGrows() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{16, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &none);
    }
    ~NoFileGrows() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    NoFileGrows(const NoFileGrows&) = delete;
    NoFileGrows& operator=(const NoFileGrows&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

TEST_F(HostUndo, WhatWasFoundStaysWhereItCannotBeKeptByItsWindow) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    killWith(window);
    host_ = another();
    const QString file = home_.filePath(unsavedFiles().front());
    const QByteArray found = contents(file);
    {
        const Answers answers({"Restore"});
        const NoFileGrows full;
        host_->offerFound();
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(debt(*host_->windows().front()), 11);
    EXPECT_EQ(contents(file), found);
    host_->windows().front()->discard();
}

TEST_F(HostUndo, TellsAsLongAsChangesCannotBeKeptOnTheDisk) {
    CompanyWindow& window = open(*host_, "AAPL");
    const auto& told = *window.findChild<QLabel*>("notKept");
    type(window, "txtTotalDebt", "11");
    EXPECT_FALSE(told.isVisible());
    {
        const NoFileGrows full;
        type(window, "txtTotalDebt", "12");
        EXPECT_TRUE(told.isVisible());
        EXPECT_EQ(told.text(), "Changes are in this window only");
        const QString why = told.toolTip();
        EXPECT_TRUE(why.startsWith("Changes are not kept on the disk before they are saved: "));
        EXPECT_EQ(told.accessibleDescription(), why);
        EXPECT_EQ(window.statusBar()->currentMessage().left(12), why.left(12));
        window.statusBar()->clearMessage();
        type(window, "txtTotalDebt", "13");
        EXPECT_TRUE(told.isVisible());
        EXPECT_EQ(window.statusBar()->currentMessage(), "") << "said once";
    }
    type(window, "txtTotalDebt", "14");
    EXPECT_FALSE(told.isVisible());
    window.discard();
}

TEST_F(HostUndo, WhatIsNotKeptIsToldNoMoreOnceItIsSaved) {
    CompanyWindow& window = open(*host_, "AAPL");
    {
        const NoFileGrows full;
        type(window, "txtTotalDebt", "12");
    }
    const auto& told = *window.findChild<QLabel*>("notKept");
    EXPECT_TRUE(told.isVisible());
    EXPECT_TRUE(window.save());
    EXPECT_FALSE(told.isVisible());
}

TEST_F(HostUndo, AStepThatIsRefusedIsToldAndStays) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    const QString name = menuText(window, "undo").mid(5);
    const auto refused = [&](HistoryStep step) {
        const auto record = window.entry().component().get_objCompany();
        const ActionScope underWay(record, {});
        window.entry().component().step(step);
        return window.statusBar()->currentMessage();
    };
    EXPECT_EQ(refused(HistoryStep::undo), name + " can't be undone.");
    EXPECT_EQ(debt(window), 11);
    window.entry().component().step(HistoryStep::undo);
    EXPECT_NE(debt(window), 11);
    EXPECT_EQ(refused(HistoryStep::redo), name + " can't be redone.");
    EXPECT_NE(debt(window), 11);
    window.entry().component().step(HistoryStep::redo);
    EXPECT_EQ(debt(window), 11);
    window.discard();
}

// As a host has them that looks through all that was done.
TEST_F(HostUndo, OriginsFollowWhatIsDoneAndTakenBack) {
    CompanyWindow& window = open(*host_, "AAPL");
    const FigureOrigins stored = window.origins();
    const auto expectThoseOfAll = [&] {
        FigureOrigins all = stored;
        for (const ChangeGroup& group : window.journal().groups())
            all.note(group);
        EXPECT_EQ(window.origins(), all);
    };
    type(window, "txtTotalDebt", "11");
    type(window, "txtName", "Acme");
    expectThoseOfAll();
    EXPECT_NE(window.origins(), stored);
    EXPECT_EQ(window.origins().of(Datum::TotalDebt).origin, Origin::typed);
    window.entry().component().step(HistoryStep::undo);
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(window.origins(), stored);
    window.entry().component().step(HistoryStep::redo);
    expectThoseOfAll();
    EXPECT_TRUE(window.save());
    expectThoseOfAll();
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(window.origins(), stored);
    window.discard();
}

TEST_F(HostUndo, WhatWasFoundStaysUntilSomebodyHasSaidTwiceThatItGoes) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    killWith(window);
    host_ = another();
    for (const QStringList& said : {QStringList{"Later"}, QStringList{"Discard", "Cancel"}}) {
        Answers answers(said);
        host_->offerFound();
        EXPECT_TRUE(answers.allGiven());
        EXPECT_EQ(unsavedFiles().size(), 1);
    }
    Answers answers({"Discard", "Discard"});
    host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(unsavedFiles().isEmpty());
}

TEST_F(HostUndo, ACompanyThatOthersHaveSavedMeanwhileIsShownAsSuch) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    killWith(window);
    host_ = another();
    auto theirs = stored(*host_, "AAPL");
    theirs->put_PrefDiv(5);
    ASSERT_TRUE(host_->store().save(idOf(*host_, "AAPL"), *theirs, 1));
    Answers answers({"Restore"});
    host_->offerFound();
    EXPECT_TRUE(answers.told().front().contains("saved since"));
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(debt(restored), 11);
    EXPECT_EQ(restored.record()->get_PrefDiv(), 5);
    restored.discard();
}

// As where a dialog of the form is still open while its window ends.
TEST_F(HostUndo, TheRecordOfAWindowOutlivesIt) {
    const QPointer<CompanyWindow> window = &open(*host_, "AAPL");
    const std::shared_ptr<iVKR_Company> held = window->entry().component().get_objCompany();
    window->discard();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(window, nullptr);
    const ActionScope action(held, {Origin::derived, {}, {}});
    Variant rates = held->get_YTaxRateSeries();
    rates.array().setNumber(0, 7);
    held->put_YTaxRateSeries(rates);
    held->put_TotalDebt(5);
    EXPECT_EQ(held->get_YTaxRateSeries().array().number(0), 7);
    EXPECT_EQ(held->get_TotalDebt(), 5);
}

TEST_F(HostUndo, ADiscardedChangeIsOfferedUntilItsCompanyOpens) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    Answers answers({"Discard", "OK"});
    window.close();
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    execute("ALTER TABLE company RENAME TO company_away");
    restore->click();
    EXPECT_TRUE(answers.allGiven()) << "that it can't be opened";
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_FALSE(restore->isHidden());
    execute("ALTER TABLE company_away RENAME TO company");
    restore->click();
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_EQ(debt(*host_->windows().front()), 11);
    EXPECT_TRUE(restore->isHidden());
    host_->windows().front()->discard();
}

// The question tells all that is lost, the offer counts what comes back.
TEST_F(HostUndo, ATextThatWasNeverStoredIsNotOffered) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    type(window, "txtPriceUpdate", "31 February");
    ASSERT_EQ(window.entry().unstoredFields().size(), 1U);
    Answers answers({"Discard"});
    window.close();
    ASSERT_EQ(answers.told().size(), 1);
    EXPECT_TRUE(answers.told().front().contains("31 February")) << "which is lost";
    EXPECT_EQ(host_->list().findChild<QLabel*>("discarded")->text(),
              "Discarded 1 change of Apple Inc. (AAPL).");
}

TEST_F(HostUndo, CancelCanBeUndoneUntilTheCompanyIsOpenedAgain) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    Answers answers({"Discard", "Discard"});
    window.close();
    EXPECT_TRUE(answers.told().size() == 1);
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    EXPECT_FALSE(restore->isHidden());
    restore->click();
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& again = *host_->windows().front();
    EXPECT_EQ(debt(again), 11);
    EXPECT_TRUE(again.isWindowModified());
    EXPECT_TRUE(restore->isHidden());
    again.close();
    EXPECT_FALSE(restore->isHidden());
    open(*host_, "AAPL");
    EXPECT_TRUE(restore->isHidden());
    host_->windows().front()->discard();
}

TEST_F(HostUndo, WhatCannotBeMadeAgainIsOfferedAloneAfterwards) {
    CompanyWindow& window = open(*host_, "AAPL");
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    const auto* offer = host_->list().findChild<QLabel*>("discarded");
    emit window.discarded({{window.id(), 1, 0, "Apple"}, oneOfMoreYears(), 2});
    EXPECT_EQ(offer->text(), "Discarded 2 changes of Apple.");
    const Answers answers({"OK", "OK", "OK"});
    restore->click();
    EXPECT_EQ(debt(window), 11);
    EXPECT_EQ(offer->text(), "Discarded 1 change of Apple.");
    type(window, "txtTotalDebt", "12");
    restore->click();
    EXPECT_EQ(debt(window), 12);
    EXPECT_FALSE(restore->isHidden());
    window.discard(); // which gives up the 12
    EXPECT_TRUE(offer->text().startsWith("Discarded 2 changes of ")) << offer->text().toStdString();
    restore->click();
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(debt(*host_->windows().front()), 12);
    EXPECT_TRUE(offer->text().startsWith("Discarded 1 change of ")) << offer->text().toStdString();
    host_->windows().front()->discard();
}

TEST_F(HostUndo, WhatGaveWayToTheirsIsHadBack) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtTotalDebt", "11");
    const double before = stored(*host_, "AAPL")->get_TotalDebt();
    const auto theirs = stored(*host_, "AAPL");
    theirs->put_PrefDiv(5);
    ASSERT_TRUE(another()->store().save(idOf(*host_, "AAPL"), *theirs, 1));
    {
        const Answers answers({"Take Theirs"});
        EXPECT_FALSE(window.save());
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(debt(window), before);
    EXPECT_FALSE(window.isWindowModified());
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    ASSERT_FALSE(restore->isHidden());
    restore->click();
    EXPECT_TRUE(restore->isHidden());
    EXPECT_EQ(debt(window), 11);
    EXPECT_EQ(window.record()->get_PrefDiv(), 5);
    EXPECT_TRUE(window.isWindowModified());
    ASSERT_TRUE(window.save());
    window.discard();
}

TEST_F(HostUndo, ADiscardedNewCompanyComesBack) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtName", "Acme");
    type(window, "txtTotalDebt", "11");
    {
        const Answers answers({"Discard"});
        window.close();
    }
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    EXPECT_FALSE(restore->isHidden());
    restore->click();
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& again = *host_->windows().front();
    EXPECT_EQ(again.id(), std::nullopt);
    EXPECT_EQ(again.record()->get_Name(), "Acme");
    EXPECT_EQ(debt(again), 11);
    EXPECT_EQ(unsavedFiles().size(), 1);
    EXPECT_TRUE(restore->isHidden());
    ASSERT_TRUE(again.save());
    EXPECT_TRUE(unsavedFiles().isEmpty());
    again.discard();
}

// Somebody has locked the company since: what was given up waits until it is unlocked.
TEST_F(HostUndo, NothingIsRestoredUnderTheLock) {
    CompanyWindow& window = open(*host_, "AAPL");
    const double before = debt(window);
    type(window, "txtTotalDebt", "11");
    {
        const Answers answers({"Discard"});
        window.close();
    }
    lock("AAPL");
    auto* restore = host_->list().findChild<QPushButton*>("restore");
    {
        const Answers answers({"OK"});
        restore->click();
        EXPECT_TRUE(answers.told().value(0).contains("The data is locked."));
    }
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& again = *host_->windows().front();
    EXPECT_EQ(debt(again), before);
    EXPECT_FALSE(again.isWindowModified());
    EXPECT_FALSE(restore->isHidden());
    click(again, "chkLockInfo");
    restore->click();
    EXPECT_EQ(debt(again), 11);
    EXPECT_TRUE(restore->isHidden());
    again.discard();
}

TEST_F(HostUndo, WhatWasFoundWaitsForALockedCompany) {
    CompanyWindow& window = open(*host_, "AAPL");
    const double before = debt(window);
    type(window, "txtTotalDebt", "11");
    killWith(window);
    host_ = another();
    lock("AAPL");
    const Answers answers({"Restore", "OK"});
    host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(1).contains("The data is locked."));
    EXPECT_EQ(debt(*host_->windows().front()), before);
    EXPECT_EQ(unsavedFiles().size(), 1);
    host_->windows().front()->discard();
}

// One that was unlocked before it was changed.
TEST_F(HostUndo, WhatWasUnlockedFirstIsRestored) {
    lock("AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    click(window, "chkLockInfo");
    type(window, "txtTotalDebt", "11");
    killWith(window);
    host_ = another();
    const Answers answers({"Restore"});
    host_->offerFound();
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(debt(*host_->windows().front()), 11);
    host_->windows().front()->discard();
}

// Which year a figure is of, not where it stands in its series.
TEST_F(HostUndo, WhatWasFoundIsListedByPeriod) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    type(window, "txtYEPS(8)", "6.11");
    killWith(window);
    host_ = another();
    const Answers answers({"Later"});
    host_->offerFound();
    EXPECT_TRUE(answers.told().front().contains("Yearly Earnings Per Share 2024: 6.08 \u2192 6.11"))
        << answers.told().front().toStdString();
}

// A year more moves every figure: what is told is what is no longer there.
TEST_F(HostUndo, WhatIsDiscardedIsListedByPeriodWhereAYearWasAdded) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    type(window, "txtYEPS(8)", "6.11");
    const Answers answers({"Yes", "Go Back"});
    click(window, "cmdAddYear");
    click(window, "cmdCancel");
    EXPECT_TRUE(answers.allGiven());
    const QString told = answers.told().value(1);
    for (const char* line :
         {"Last Fiscal Year: 2025 \u2192 2026\n", "Yearly Revenue 2016: 215639 \u2192 nothing\n",
          "Yearly Earnings Per Share 2024: 6.08 \u2192 6.11"})
        EXPECT_TRUE(told.contains(line)) << line << " in " << told.toStdString();
    EXPECT_FALSE(told.contains(" 2017: ")) << told.toStdString();
    window.discard();
}

TEST_F(HostUndo, GoesToTheCellOfAFigure) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    type(window, "txtYEPS(9)", "6.11");
    window.entry().setCurrentTab(toCompany);
    user_.click(control(window, "txtName"));
    action(window, "undo").trigger();
    EXPECT_EQ(focused(window), "txtYEPS(9)");
    window.discard();
}

// In the history it is what it is, not what it takes back; what the save has settled stays.
TEST_F(HostUndo, AStepTakenBackAfterASaveIsNamedAsSuch) {
    CompanyWindow& window = open(*host_, "AAPL");
    const std::int64_t id = idOf(*host_, "AAPL");
    const double before = debt(window);
    type(window, "txtTotalDebt", "11");
    ASSERT_TRUE(window.save());
    const auto symbol = [&] {
        return host_->store()
            .load(id)
            .value()
            .record->get_Settings()
            ->get(setting::currencySymbol)
            .toText();
    };
    EXPECT_EQ(symbol(), "$");
    action(window, "undo").trigger();
    ASSERT_TRUE(window.save());
    EXPECT_EQ(symbol(), "$");
    EXPECT_EQ(window.entry().component().form().get<TextField>("txtCurSymbol").text(), "$");
    const auto history = host_->store().history(id).value();
    ASSERT_GE(history.size(), 2U);
    EXPECT_TRUE(history[0].name.starts_with("Undone: Total Debt")) << history[0].name;
    EXPECT_EQ(history[0].revision, 3);
    EXPECT_EQ(history[1].revision, 2);
    ASSERT_EQ(history[0].changes.size(), 1U);
    EXPECT_EQ(history[0].changes[0].before, "11");
    EXPECT_EQ(history[0].changes[0].origin, Origin::imported);
    EXPECT_EQ(history[0].changes[0].document, "AAPL-company.csv");
    const FigureOrigin origin = host_->store().load(id).value().origins.of(Datum::TotalDebt);
    EXPECT_EQ(origin, (FigureOrigin{Origin::imported, "AAPL-company.csv", false}));
    EXPECT_EQ(debt(window), before);
    window.discard();
}

// Dates that only loading suggests are nobody's step either, and are stored by no save.
TEST_F(HostUndo, DatesThatNobodyTypedStayOutWhateverIsTakenBack) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtName", "Acme");
    type(window, "txtTotalDebt", "11");
    const auto expectNoDates = [&] {
        const auto loaded = host_->store().load(*window.id());
        for (const Datum date : {Datum::LastFYDate, Datum::LastQDate, Datum::LastQDateForGrid})
            EXPECT_TRUE(isAbsent(loaded.value().record->stored(date).toDate())) << rowOf(date).name;
        return loaded.value().record->get_TotalDebt();
    };
    ASSERT_TRUE(window.save());
    EXPECT_EQ(expectNoDates(), 11);
    action(window, "undo").trigger();
    ASSERT_TRUE(window.save());
    EXPECT_EQ(expectNoDates(), 0);
    EXPECT_EQ(window.entry().component().suggestedDates().size(), 4U);
    window.discard();
}

TEST_F(HostUndo, AStepTakenBackAfterASaveOutlivesAKill) {
    CompanyWindow& window = open(*host_, "AAPL");
    const double before = debt(window);
    type(window, "txtTotalDebt", "11");
    ASSERT_TRUE(window.save());
    action(window, "undo").trigger();
    killWith(window);
    host_ = another();
    Answers answers({"Restore"});
    host_->offerFound();
    ASSERT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().front().contains("Undone: Total Debt"))
        << answers.told().front().toStdString();
    CompanyWindow& restored = *host_->windows().front();
    EXPECT_EQ(debt(restored), before);
    EXPECT_EQ(restored.origins().of(Datum::TotalDebt).document, "AAPL-company.csv");
    restored.discard();
}

TEST_F(HostUndo, AFigureThatWasTypedBackLeavesNothingToRestore) {
    CompanyWindow& window = open(*host_, "AAPL");
    const QString before = QString::number(debt(window), 'f', 0);
    type(window, "txtTotalDebt", "11");
    type(window, "txtTotalDebt", before);
    EXPECT_FALSE(window.isWindowModified());
    window.close();
    EXPECT_TRUE(host_->list().findChild<QPushButton*>("restore")->isHidden());
}

} // namespace
} // namespace vkr
