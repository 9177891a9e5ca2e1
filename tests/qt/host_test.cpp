// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "control/vkr_data_entry.hpp"
#include "host/help_pages.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/qt/support/dialog_answers.hpp"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStatusBar>
#include <QTableView>
#include <QWheelEvent>

#include <algorithm>
#include <csignal>
#include <set>
#include <sys/resource.h>

namespace vkr {
namespace {

QTableView& table(Workspace& host) {
    return *host.list().findChild<QTableView*>("companies");
}

QStringList shownNames(Workspace& host) {
    QStringList names;
    const QAbstractItemModel& rows = *table(host).model();
    for (int row = 0; row < rows.rowCount(); ++row)
        names.append(rows.index(row, CompanyListModel::name).data().toString());
    return names;
}

QByteArray contents(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
void write(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(text), text.size());
}

// --- list, open, OK, Cancel --------------------------------------------------------------------

TEST_F(HostTest, AFreshDatabaseShowsTheSampleCompaniesSortedByName) {
    EXPECT_EQ(shownNames(*host_),
              (QStringList{"Apple Inc.", "NVIDIA CORP", "SNOWFLAKE INC.", "Tesla, Inc."}));
}

TEST_F(HostTest, SearchingAndEnterOpenTheCompanyFound) {
    user_.activate(host_->list());
    user_.press(Qt::Key_F, Qt::ControlModifier);
    user_.type("tes aq");
    EXPECT_EQ(shownNames(*host_), QStringList{"Tesla, Inc."});
    user_.press(Qt::Key_Return);
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_EQ(host_->windows().first()->windowTitle(), "Tesla, Inc. (TSLA)[*]");
    EXPECT_FALSE(host_->windows().first()->isWindowModified());
}

TEST_F(HostTest, OpeningACompanyTwiceBringsItsWindowToTheFront) {
    CompanyWindow& first = open(*host_, "AAPL");
    EXPECT_EQ(&open(*host_, "AAPL"), &first);
    EXPECT_EQ(host_->windows().size(), 1);
    open(*host_, "NVDA");
    EXPECT_EQ(host_->windows().size(), 2);
}

TEST_F(HostTest, OkSavesShowsTheChangeInTheListAndKeepsItOverARestart) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(window.windowTitle(), "Zebra Inc. (AAPL)[*]");
    click(window, "cmdOK");
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(shownNames(*host_).last(), "Zebra Inc.");

    host_.reset();
    host_ = another();
    EXPECT_EQ(shownNames(*host_).last(), "Zebra Inc.");
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
}

TEST_F(HostTest, OkChangesNothingButWhatWasTypedAndWhatIsDerived) {
    // The currency stands in where the record has none; sums and the hidden member of a pair are
    // worked out. Dates that nobody has typed are not stored.
    const std::set<std::string> derived = {"Last4QEPS", "YTaxRateSeries", "QTaxRateSeries",
                                           "strCurSymbol", "intUnit"};
    const auto before = stored(*host_, "AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    click(window, "cmdOK");
    std::vector<Difference> changes = differences(*before, *stored(*host_, "AAPL"));
    std::erase_if(changes,
                  [&](const Difference& change) { return derived.contains(change.datum); });
    EXPECT_EQ(changes,
              (std::vector<Difference>{{"Name", std::nullopt, "Apple Inc.", "Zebra Inc."}}));
}

TEST_F(HostTest, OkWithoutAChangeSavesNothing) {
    const auto before = host_->store().load(idOf(*host_, "AAPL")).value().revision;
    click(open(*host_, "AAPL"), "cmdOK");
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(host_->store().load(idOf(*host_, "AAPL")).value().revision, before);
}

TEST_F(HostTest, CancelAsksHowManyChangesToDiscardAndLeavesEverythingAsItWas) {
    const auto before = stored(*host_, "AAPL");
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    type(window, "txtTotalDebt", "7");
    window.entry().setCurrentTab(toOther);
    type(window, "txtCity", "Springfield");
    {
        Answers answers({"Go Back"});
        click(window, "cmdCancel");
        EXPECT_TRUE(answers.allGiven());
        const QString told = answers.told().value(0);
        for (const char* part : {"Discard 3 changes?", "Name: Apple Inc. \u2192 Zebra Inc.",
                                 "Total Debt: 90509 \u2192 7", "City: "})
            EXPECT_TRUE(told.contains(part)) << part << " in " << told.toStdString();
    }
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_EQ(window.record()->get_TotalDebt(), 7) << "going back keeps what was typed";
    EXPECT_TRUE(window.isWindowModified());
    {
        Answers answers({"Discard"});
        click(window, "cmdCancel");
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_TRUE(sameAs(*before, *stored(*host_, "AAPL")));
    EXPECT_EQ(shownNames(*host_).first(), "Apple Inc.");
}

TEST_F(HostTest, CancelOfANewCompanySaysThatNothingOfItIsKept) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtName", "Acme Works");
    Answers answers({"Discard"});
    click(window, "cmdCancel");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("Discard 1 change?\nAcme Works was never saved."))
        << answers.told().value(0).toStdString();
}

TEST_F(HostTest, CancelWithoutAChangeAsksNothing) {
    for (const bool isLookedAt : {false, true}) {
        CompanyWindow& window = open(*host_, "AAPL");
        if (isLookedAt)
            for (const int tab : {toYearly, toQuarterly, toOther, toOptions, toCompany})
                window.entry().setCurrentTab(tab);
        click(window, "cmdCancel");
        EXPECT_TRUE(host_->windows().isEmpty());
    }
}

TEST_F(HostTest, TypingAFigureBackTakesTheMarkOfTheChangesAway) {
    CompanyWindow& window = open(*host_, "AAPL");
    const auto before = idOf(*host_, "AAPL");
    const auto revision = host_->store().load(before).value().revision;
    type(window, "txtTotalDebt", "7");
    EXPECT_TRUE(window.isWindowModified());
    type(window, "txtTotalDebt", "90509");
    EXPECT_FALSE(window.isWindowModified());
    window.entry().setCurrentTab(toOptions);
    click(window, "optPTI(1)");
    EXPECT_TRUE(window.isWindowModified());
    click(window, "optPTI(0)");
    EXPECT_FALSE(window.isWindowModified());
    click(window, "chkLockInfo");
    EXPECT_TRUE(window.isWindowModified());
    click(window, "chkLockInfo");
    EXPECT_FALSE(window.isWindowModified());
    window.entry().setCurrentTab(toYearly);
    type(window, "txtYNetInc(9)", "1");
    EXPECT_TRUE(window.isWindowModified());
    type(window, "txtYNetInc(9)", "112010");
    EXPECT_FALSE(window.isWindowModified()) << "with all that is worked out from it";
    click(window, "cmdOK");
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(host_->store().load(before).value().revision, revision) << "nothing to save";
}

TEST_F(HostTest, ARowThatIsSwitchedIsOneChangeHoweverMuchIsWorkedOutFromIt) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toOptions);
    click(window, "optPTI(1)");
    Answers answers({"Discard"});
    click(window, "cmdCancel");
    EXPECT_TRUE(answers.told().value(0).contains("Discard 1 change?"));
    EXPECT_TRUE(answers.allGiven());
}

TEST_F(HostTest, ATextThatIsNotStoredIsAChangeToDiscard) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtPriceUpdate", "32/32/2026");
    EXPECT_TRUE(window.isWindowModified());
    {
        Answers answers({"Go Back"});
        click(window, "cmdCancel");
        EXPECT_TRUE(answers.told().value(0).contains("Discard 1 change?"));
        EXPECT_TRUE(answers.told().value(0).contains("32/32/2026"));
        EXPECT_TRUE(answers.allGiven());
    }
    // A date that is still being typed, and that Cancel leaves unread.
    for (const auto& [tab, field] :
         {std::pair{toYearly, "txtDateofLastFY"}, std::pair{toQuarterly, "txtLastQDate"}}) {
        CompanyWindow& other = open(*host_, "NVDA");
        other.entry().setCurrentTab(tab);
        type(other, field, "3/31/2030", false);
        Answers answers({"Discard"});
        click(other, "cmdCancel");
        EXPECT_TRUE(answers.told().value(0).contains("Discard 1 change?")) << field;
        EXPECT_TRUE(answers.allGiven()) << field;
    }
    Answers answers({"Discard"});
    click(window, "cmdCancel");
    EXPECT_TRUE(answers.allGiven());
}

TEST_F(HostTest, ControlSSavesAndGoesOn) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.", false);
    user_.press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(host_->windows().size(), 1);
}

TEST_F(HostTest, ANewCompanyIsStoredOnOk) {
    user_.activate(host_->list());
    user_.press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_EQ(host_->windows().size(), 1);
    CompanyWindow& window = *host_->windows().first();
    EXPECT_EQ(window.windowTitle(), "New company[*]");
    type(window, "txtName", "Acme Works");
    type(window, "txtSymbol", "ACME");
    click(window, "cmdOK");
    EXPECT_EQ(shownNames(*host_).first(), "Acme Works");
    EXPECT_EQ(stored(*host_, "ACME")->get_Name(), "Acme Works");
}

TEST_F(HostTest, ANewCompanyThatStaysEmptyIsNotStored) {
    CompanyWindow* window = host_->newCompany();
    click(*window, "cmdOK");
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(shownNames(*host_).size(), 4);
}

// --- dates that nobody has typed ---------------------------------------------------------------

// Fills what is named by control, on its tab, and presses OK.
struct DateCase {
    const char* test;
    int tab;
    const char* field;
    const char* typed;
    Datum stored; // Datum::Name: no date
};

class HostDatesTest : public HostTest, public testing::WithParamInterface<DateCase> {};

TEST_P(HostDatesTest, AreStoredOnlyWithWhatGoesByThem) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    window.entry().setCurrentTab(GetParam().tab);
    type(window, GetParam().field, GetParam().typed);
    EXPECT_TRUE(window.isWindowModified());
    click(window, "cmdOK");
    if (!host_->windows().isEmpty())
        click(window, "cmdOK"); // the first one settled a date
    const auto company = stored(*host_, "ACME");
    ASSERT_NE(company, nullptr);
    for (const Datum date :
         {Datum::LastQDate, Datum::LastFYDate, Datum::PriceUpdatedDate, Datum::LastUpdate})
        EXPECT_EQ(isAbsent(company->stored(date).toDate()), date != GetParam().stored)
            << rowOf(date).name;
    EXPECT_EQ(company->get_LastFY() != 0, GetParam().stored == Datum::LastFYDate);
}

QString todayAsShown() {
    return QLocale::c().toString(QDate::currentDate(), "MMM/dd/yyyy");
}

INSTANTIATE_TEST_SUITE_P(
    Data, HostDatesTest,
    testing::Values(
        DateCase{"Name", toCompany, "txtName", "Acme", Datum::Name},
        DateCase{"Debt", toCompany, "txtTotalDebt", "7", Datum::Name},
        DateCase{"Price", toCompany, "txtCurrentPrice", "12", Datum::PriceUpdatedDate},
        DateCase{"PriceDate", toCompany, "txtPriceUpdate", "1/30/2026", Datum::PriceUpdatedDate},
        DateCase{"LastUpdate", toCompany, "txtLastUpdate", "1/30/2026", Datum::LastUpdate},
        DateCase{"Quarter", toQuarterly, "txtEPS(3)", "1.5", Datum::LastQDate},
        DateCase{"Year", toYearly, "txtSales(9)", "7", Datum::LastFYDate},
        DateCase{"YearTyped", toYearly, "txtLastFY", "2020", Datum::LastFYDate}),
    [](const auto& row) { return row.param.test; });

TEST_F(HostTest, ADateIsStoredThatWasTypedAsItStoodThere) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtLastUpdate", todayAsShown());
    click(window, "cmdOK");
    const auto company = stored(*host_, "ACME");
    EXPECT_FALSE(isAbsent(company->stored(Datum::LastUpdate).toDate()));
    EXPECT_TRUE(isAbsent(company->stored(Datum::PriceUpdatedDate).toDate()));
}

TEST_F(HostTest, ADateThatCameWithItsFigureStaysThereAfterTheNextSave) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtCurrentPrice", "12");
    user_.press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(window.isWindowModified());
    const Date saved = stored(*host_, "ACME")->get_PriceUpdatedDate();
    EXPECT_FALSE(isAbsent(saved));
    type(window, "txtName", "Acme");
    click(window, "cmdOK");
    EXPECT_EQ(stored(*host_, "ACME")->get_PriceUpdatedDate(), saved);
    EXPECT_TRUE(isAbsent(stored(*host_, "ACME")->get_LastUpdate()));
}

// The day that the form suggested is not the one that somebody meant to type.
TEST_F(HostTest, APriceWhoseDateIsRefusedIsNotStoredAsOfToday) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtCurrentPrice", "12.5");
    type(window, "txtPriceUpdate", "31/31/2026");
    Answers answers({"Save Without"});
    click(window, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(stored(*host_, "ACME")->get_CurrentPrice(), 12.5);
    EXPECT_EQ(stored(*host_, "ACME")->get_PriceUpdatedDate(), Date{});
}

TEST_F(HostTest, AnExportedWindowHasNoDateThatNobodyHasTyped) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    const QTemporaryDir folder;
    host_->exportWindow(window, folder.path());
    const auto company = importCompany(folder.path().toStdString(), "ACME").company;
    ASSERT_NE(company, nullptr);
    EXPECT_TRUE(isAbsent(company->get_PriceUpdatedDate()));
    EXPECT_TRUE(isAbsent(company->get_LastQDate()));
    Answers answers({"Discard"});
    click(window, "cmdCancel");
}

// --- all quarters ------------------------------------------------------------------------------

TEST_F(HostTest, AllQuartersAreLookedAtByScrollingAndNothingChanges) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toQuarterly);
    EXPECT_EQ(window.entry().visibleQuarters(), 35);
    const auto isInView = [&](const char* cell) {
        const QWidget& shown = control(window, cell);
        return shown.visibleRegion().boundingRect() == shown.rect();
    };
    EXPECT_FALSE(isInView("txtEPS(34)"));
    user_.click(control(window, "txtEPS(0)"));
    for (int i = 0; i < 4; ++i)
        user_.press(Qt::Key_PageDown);
    EXPECT_TRUE(isInView("txtEPS(34)"));
    for (int i = 0; i < 4; ++i)
        user_.press(Qt::Key_PageUp);
    EXPECT_TRUE(isInView("txtEPS(0)"));
    for (int i = 0; i < 40; ++i) {
        QWidget& under = control(window, "fraDE(3)");
        const QPointF place(5, 5);
        QWheelEvent turn(place, under.mapToGlobal(place), {}, {0, -120}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&under, &turn);
    }
    EXPECT_TRUE(isInView("txtEPS(34)"));
    EXPECT_FALSE(window.isWindowModified());
    click(window, "cmdCancel");
    EXPECT_TRUE(host_->windows().isEmpty());
}

// --- closing -----------------------------------------------------------------------------------

TEST_F(HostTest, TheMenuOfACompanyOpensByItsLetterAndTheTabsKeepTheirs) {
    CompanyWindow& window = open(*host_, "AAPL");
    user_.press(Qt::Key_F, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    user_.press(Qt::Key_Escape);
    struct Case {
        Qt::Key letter;
        TABObject tab;
    };
    for (const Case& row :
         {Case{Qt::Key_Y, toYearly}, Case{Qt::Key_Q, toQuarterly}, Case{Qt::Key_O, toOther},
          Case{Qt::Key_P, toOptions}, Case{Qt::Key_C, toCompany}}) {
        user_.activate(window);
        user_.press(row.letter, Qt::AltModifier);
        EXPECT_EQ(window.entry().currentTab(), row.tab);
    }
}

TEST_F(HostTest, TheListTakesTheKeysBackFromItsMenuBar) {
    user_.activate(host_->list());
    user_.press(Qt::Key_C, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    user_.press(Qt::Key_Escape); // closes the menu; the bar still has the keys
    CompanyWindow* window = host_->newCompany();
    user_.activate(*window);
    window->close();
    ASSERT_TRUE(host_->windows().isEmpty());
    user_.activate(host_->list());
    user_.press(Qt::Key_Down);
    user_.press(Qt::Key_Return);
    EXPECT_EQ(host_->windows().size(), 1);
}

TEST_F(HostTest, QuestionsOfTheFormCarryTheNameOfTheProgram) {
    const QString own = QGuiApplication::applicationDisplayName();
    QGuiApplication::setApplicationDisplayName("Fundamentals");
    CompanyWindow& window = open(*host_, "AAPL");
    QGuiApplication::setApplicationDisplayName(own);
    window.entry().setCurrentTab(toYearly);
    DialogAnswers answers;
    answers.next([](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), "Fundamentals");
        DialogAnswers::clickButton(box, "No");
    });
    click(window, "cmdAddYear");
}

TEST_F(HostTest, SettingsAreKeptInAFolderOfTheProgram) {
    host_.reset();
    EXPECT_TRUE(QFile::exists(home_.filePath("settings/vkr-host/vkr-host.ini")));
}

TEST_F(HostTest, AWindowOpensWithTheFocusInItsFirstField) {
    CompanyWindow& known = open(*host_, "AAPL");
    EXPECT_EQ(known.focusWidget(), &control(known, "txtCurrentPrice"));
    CompanyWindow* fresh = host_->newCompany();
    EXPECT_EQ(fresh->focusWidget(), &control(*fresh, "txtName"));
}

TEST_F(HostTest, ClosingWithoutChangesAsksNothing) {
    EXPECT_TRUE(open(*host_, "AAPL").close());
    EXPECT_TRUE(host_->windows().isEmpty());
}

struct ClosingCase {
    const char* answer;
    bool closes;
    const char* name; // stored afterwards
};

class HostClosingTest : public HostTest, public testing::WithParamInterface<ClosingCase> {};

TEST_P(HostClosingTest, ClosingWithChangesAsksAndATextStillBeingTypedCounts) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.", false);
    {
        Answers answers({GetParam().answer});
        EXPECT_EQ(window.close(), GetParam().closes);
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("Save the changes to Zebra Inc. (AAPL)?"));
    }
    EXPECT_EQ(host_->windows().isEmpty(), GetParam().closes);
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), GetParam().name);
    if (!GetParam().closes) {
        EXPECT_EQ(window.record()->get_Name(), "Zebra Inc.");
    }
}

INSTANTIATE_TEST_SUITE_P(Answers, HostClosingTest,
                         testing::Values(ClosingCase{"Save", true, "Zebra Inc."},
                                         ClosingCase{"Discard", true, "Apple Inc."},
                                         ClosingCase{"Cancel", false, "Apple Inc."}),
                         [](const auto& row) { return row.param.answer; });

TEST_F(HostTest, ClosingTheListAsksForEveryCompanyWithChanges) {
    type(open(*host_, "AAPL"), "txtName", "Zebra Inc.");
    open(*host_, "NVDA");
    {
        Answers answers({"Cancel"});
        EXPECT_FALSE(host_->list().close());
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_TRUE(host_->list().isVisible() || host_->windows().size() >= 1);
    Answers answers({"Discard"});
    EXPECT_TRUE(host_->list().close());
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(host_->windows().isEmpty());
}

TEST_F(HostTest, OkAsksBeforeATextIsLeftOutThatCannotBeStored) {
    const Date before = stored(*host_, "AAPL")->get_PriceUpdatedDate();
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtPriceUpdate", "32/32/2026");
    type(window, "txtName", "Zebra Inc.");
    {
        Answers answers({"Go Back"});
        click(window, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("32/32/2026"));
    }
    EXPECT_EQ(window.entry().component().form().activeControl()->id(), "txtPriceUpdate");
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Apple Inc.");
    {
        Answers answers({"Save Without"});
        click(window, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
    EXPECT_EQ(stored(*host_, "AAPL")->get_PriceUpdatedDate(), before);
}

// --- two at once -------------------------------------------------------------------------------

struct ConflictCase {
    const char* test;
    const char* answer;
    bool stays;         // the window is still open
    const char* stored; // under the symbol, in the first company of that symbol
    int companies;
};

class HostConflictTest : public HostTest, public testing::WithParamInterface<ConflictCase> {};

TEST_P(HostConflictTest, WhoSavesSecondChoosesAndNothingIsLost) {
    const auto colleague = another();
    CompanyWindow& mine = open(*host_, "AAPL");
    CompanyWindow& theirs = open(*colleague, "AAPL");
    type(theirs, "txtName", "Theirs Inc.");
    click(theirs, "cmdOK");
    type(mine, "txtName", "Mine Inc.");
    {
        Answers answers({GetParam().answer});
        click(mine, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("colleague@desk"));
        EXPECT_TRUE(answers.told().value(0).contains("Name: theirs Theirs Inc., yours Mine Inc."));
    }
    EXPECT_EQ(!host_->windows().isEmpty(), GetParam().stays);
    EXPECT_EQ(host_->store().load(idOf(*colleague, "AAPL")).value().record->get_Name(),
              GetParam().stored);
    EXPECT_EQ(host_->store().list().value().size(), static_cast<std::size_t>(GetParam().companies));
    if (QString(GetParam().answer) == "Go Back") {
        EXPECT_EQ(mine.record()->get_Name(), "Mine Inc.");
        EXPECT_TRUE(mine.isWindowModified());
    }
    if (QString(GetParam().answer) == "Take Theirs") {
        EXPECT_EQ(mine.record()->get_Name(), "Theirs Inc.");
        EXPECT_FALSE(mine.isWindowModified());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Answers, HostConflictTest,
    testing::Values(ConflictCase{"Overwrite", "Overwrite with Mine", false, "Mine Inc.", 4},
                    ConflictCase{"TakeTheirs", "Take Theirs", true, "Theirs Inc.", 4},
                    ConflictCase{"GoBack", "Go Back", true, "Theirs Inc.", 4}),
    [](const auto& row) { return row.param.test; });

TEST_F(HostTest, ACopyOfMineStandsBesideTheirs) {
    const auto colleague = another();
    CompanyWindow& mine = open(*host_, "AAPL");
    type(open(*colleague, "AAPL"), "txtName", "Theirs Inc.");
    click(*colleague->windows().first(), "cmdOK");
    type(mine, "txtName", "Mine Inc.");
    Answers answers({"Save Mine as a Copy"});
    click(mine, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(shownNames(*host_), (QStringList{"Mine Inc. (copy)", "NVIDIA CORP", "SNOWFLAKE INC.",
                                               "Tesla, Inc.", "Theirs Inc."}));
}

TEST_F(HostTest, ACompanyDeletedElsewhereCanBeSavedAnew) {
    CompanyWindow& mine = open(*host_, "AAPL");
    type(mine, "txtName", "Mine Inc.");
    const auto colleague = another();
    {
        Answers answers({"Delete"});
        colleague->deleteCompanies({idOf(*colleague, "AAPL")});
        EXPECT_TRUE(answers.allGiven());
    }
    Answers answers({"Save as New Company"});
    click(mine, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Mine Inc.");
}

TEST_F(HostTest, ALockedFileGivesAMessageAndTheEditsStay) {
    host_.reset();
    StoreOptions options;
    options.patience = std::chrono::milliseconds(1);
    host_ = std::move(Workspace::open(database(), options).workspace);
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    {
        QSqlDatabase other = QSqlDatabase::addDatabase("QSQLITE", "other");
        other.setDatabaseName(database());
        ASSERT_TRUE(other.open());
        QSqlQuery query(other);
        ASSERT_TRUE(query.exec("BEGIN IMMEDIATE"));
        Answers answers({"OK"});
        click(window, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains(database()));
        EXPECT_TRUE(answers.told().value(0).contains("Your changes are still in this window."));
        ASSERT_TRUE(query.exec("ROLLBACK"));
    }
    QSqlDatabase::removeDatabase("other");
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_TRUE(window.isWindowModified());
    click(window, "cmdOK");
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
}

TEST_F(HostTest, AFullDiskGivesAMessageAndTheEditsStay) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    {
        Answers answers({"OK"});
        const rlimit none{0, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
        click(window, "cmdOK");
        setrlimit(RLIMIT_FSIZE, &usual);
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains(database()));
        EXPECT_TRUE(answers.told().value(0).contains("Your changes are still in this window."));
    }
    std::signal(SIGXFSZ, handler);
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Apple Inc.");
    click(window, "cmdOK");
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
}

TEST_F(HostTest, ADamagedFileGivesAMessageAndTheEditsStay) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    // So that the pages that were read are read again.
    ASSERT_TRUE(another()->store().duplicate(idOf(*host_, "NVDA")));
    QByteArray damaged = contents(database());
    constexpr qsizetype firstPage = 4096;
    damaged.replace(firstPage, damaged.size() - firstPage,
                    QByteArray(damaged.size() - firstPage, 'x'));
    {
        QFile file(database());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_EQ(file.write(damaged), damaged.size());
    }
    Answers answers({"OK"});
    click(window, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains(database() + " is damaged"));
    EXPECT_TRUE(answers.told().value(0).contains("Your changes are still in this window."));
    EXPECT_EQ(host_->windows().size(), 1);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(window.findChild<QLineEdit*>("txtName")->text(), "Zebra Inc.");
    EXPECT_EQ(contents(database()), damaged);
}

TEST_F(HostTest, AMissingDatabaseIsNotMadeByOpeningIt) {
    const QString path = home_.filePath("other.vkr");
    const auto opened = Workspace::open(path);
    EXPECT_FALSE(opened.workspace);
    EXPECT_EQ(opened.fault, StoreFault::missing);
    EXPECT_TRUE(opened.error.contains(path));
    EXPECT_FALSE(QFile::exists(path));
}

// --- duplicate and delete ----------------------------------------------------------------------

TEST_F(HostTest, DuplicateAddsACopyAndChoosesIt) {
    user_.activate(host_->list());
    host_->list().choose(idOf(*host_, "SNOW"));
    user_.press(Qt::Key_D, Qt::ControlModifier);
    ASSERT_EQ(shownNames(*host_).size(), 5);
    ASSERT_EQ(host_->list().chosen().size(), 1U);
    EXPECT_EQ(host_->list().chosen().front().name, "SNOWFLAKE INC. (copy)");
}

TEST_F(HostTest, DeleteAsksFirst) {
    user_.activate(host_->list());
    host_->list().choose(idOf(*host_, "SNOW"));
    {
        Answers answers({"Cancel"});
        user_.press(Qt::Key_Delete);
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(shownNames(*host_).size(), 4);
    user_.activate(host_->list());
    Answers answers({"Delete"});
    user_.press(Qt::Key_Delete);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(shownNames(*host_), (QStringList{"Apple Inc.", "NVIDIA CORP", "Tesla, Inc."}));
    EXPECT_EQ(host_->list().chosen().size(), 1U);
}

TEST_F(HostTest, DeletingAnOpenCompanyClosesItsWindow) {
    type(open(*host_, "SNOW"), "txtName", "Melted Inc.");
    Answers answers({"Delete"});
    host_->deleteCompanies({idOf(*host_, "SNOW")});
    EXPECT_TRUE(answers.told().value(0).contains("Changes that are not saved yet are lost"));
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(shownNames(*host_).size(), 3);
}

struct ClosingWay {
    const char* test;
    const char* control; // none: the window's own button
};
// The question is modal to its window alone: the list can still be used.
class HostDeletedWindowTest : public HostTest, public testing::WithParamInterface<ClosingWay> {};

TEST_P(HostDeletedWindowTest, GoesWithTheQuestionThatIsOpen) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    type(window, "txtPriceUpdate", "32/32/2026");
    const QPointer<CompanyWindow> watched(&window);
    QPointer<QWidget> question;
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, [&] {
        question = QApplication::activeModalWidget();
        if (question.isNull())
            return;
        waiting.stop();
        Answers answers({"Delete"});
        host_->deleteCompanies({idOf(*host_, "AAPL")});
        EXPECT_TRUE(answers.allGiven());
    });
    waiting.start(0);
    if (GetParam().control == nullptr)
        window.close();
    else
        click(window, GetParam().control);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(watched.isNull());
    EXPECT_TRUE(question.isNull());
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(shownNames(*host_).size(), 3);
}

INSTANTIATE_TEST_SUITE_P(Under, HostDeletedWindowTest,
                         testing::Values(ClosingWay{"Cancel", "cmdCancel"},
                                         ClosingWay{"Ok", "cmdOK"}, ClosingWay{"Close", nullptr}),
                         [](const auto& row) { return row.param.test; });

TEST_F(HostTest, AnEmptyDatabaseSaysWhatToDo) {
    Answers answers({"Delete"});
    QList<qint64> ids;
    for (const char* symbol : {"AAPL", "NVDA", "SNOW", "TSLA"})
        ids.append(idOf(*host_, symbol));
    host_->list().show();
    host_->deleteCompanies(ids);
    bool isSaid = false;
    for (const QLabel* label : host_->list().findChildren<QLabel*>())
        isSaid |= label->isVisible() && label->text() == "No company yet: New or Import.";
    EXPECT_TRUE(isSaid);
    user_.activate(host_->list());
    for (auto* button : host_->list().findChildren<QPushButton*>())
        if (button->isVisible() && button->text() == "New...")
            button->setFocus();
    user_.press(Qt::Key_Return);
    EXPECT_EQ(host_->windows().size(), 1);
}

// --- CSV ---------------------------------------------------------------------------------------

TEST_F(HostTest, ExportAndImportBringTheCompanyBackAsItWas) {
    const auto before = stored(*host_, "TSLA");
    host_->exportCompanies({idOf(*host_, "TSLA")}, home_.path());
    {
        Answers answers({"Delete"});
        host_->deleteCompanies({idOf(*host_, "TSLA")});
    }
    host_->importFile(home_.filePath("TSLA-yearly.csv"));
    ASSERT_NE(stored(*host_, "TSLA"), nullptr);
    EXPECT_TRUE(sameAs(*before, *stored(*host_, "TSLA")));
}

TEST_F(HostTest, AWindowIsExportedAsItIsOnScreenAndSavesNothing) {
    CompanyWindow& window = open(*host_, "TSLA");
    type(window, "txtName", "Volta Inc.", false);
    host_->exportWindow(window, home_.path());
    EXPECT_TRUE(contents(home_.filePath("TSLA-company.csv")).contains("name,Volta Inc."));
    EXPECT_EQ(window.statusBar()->currentMessage(), "Exported to " + home_.path());
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(stored(*host_, "TSLA")->get_Name(), "Tesla, Inc.");
}

TEST_F(HostTest, ExportAsksBeforeItReplacesAFile) {
    write(home_.filePath("TSLA-company.csv"), "mine");
    {
        Answers answers({"Cancel"});
        host_->exportCompanies({idOf(*host_, "TSLA")}, home_.path());
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(contents(home_.filePath("TSLA-company.csv")), "mine");
    EXPECT_EQ(host_->list().statusBar()->currentMessage(), "");
    EXPECT_FALSE(QFile::exists(home_.filePath("TSLA-yearly.csv")));
    Answers answers({"Replace"});
    host_->exportCompanies({idOf(*host_, "TSLA")}, home_.path());
    EXPECT_TRUE(answers.allGiven());
    EXPECT_NE(contents(home_.filePath("TSLA-company.csv")), "mine");
    EXPECT_EQ(host_->list().statusBar()->currentMessage(), "Exported to " + home_.path());
}

TEST_F(HostTest, AnImportWithAnErrorNamesTheLineAndImportsNothing) {
    QDir(home_.path()).mkdir("in");
    const QString folder = home_.filePath("in/");
    for (const char* name : {"AAPL-company.csv", "AAPL-quarterly.csv"})
        ASSERT_TRUE(QFile::copy(samples() + '/' + name, folder + name));
    QByteArrayList lines = contents(samples() + "/AAPL-yearly.csv").split('\n');
    lines[4].replace(0, 4, "20x2");
    write(folder + "AAPL-yearly.csv", lines.join('\n'));

    const auto before = host_->store().list().value();
    Answers answers({"OK"});
    host_->importFile(folder + "AAPL-company.csv");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("AAPL-yearly.csv, line 5"))
        << answers.told().value(0).toStdString();
    EXPECT_EQ(host_->store().list().value().size(), before.size());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Apple Inc.");
}

struct KnownCase {
    const char* test;
    const char* answer;
    int companies;
};

class HostImportTest : public HostTest, public testing::WithParamInterface<KnownCase> {
  protected:
    QString exported() {
        host_->exportCompanies({idOf(*host_, "AAPL")}, home_.path());
        return home_.filePath("AAPL-company.csv");
    }
};

TEST_P(HostImportTest, ACompanyThatIsThereAlreadyIsNotReplacedUnasked) {
    const QString tables = exported();
    type(open(*host_, "AAPL"), "txtName", "Corrected Inc.");
    click(*host_->windows().first(), "cmdOK");
    Answers answers({GetParam().answer});
    host_->importFile(tables);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(shownNames(*host_).size(), GetParam().companies);
    EXPECT_EQ(shownNames(*host_).contains("Corrected Inc."),
              QString(GetParam().answer) != "Replace");
}

INSTANTIATE_TEST_SUITE_P(Answers, HostImportTest,
                         testing::Values(KnownCase{"KeepBoth", "Keep Both", 5},
                                         KnownCase{"Replace", "Replace", 4},
                                         KnownCase{"Cancel", "Cancel", 4}),
                         [](const auto& row) { return row.param.test; });

TEST_F(HostTest, AFolderIsImportedWithItsProgressAndWithoutWhatCannotBeRead) {
    QDir(home_.path()).mkdir("in");
    const QString folder = home_.filePath("in/");
    write(folder + "ONE-company.csv", "key,value\nname,One\nsymbol,ONE\n");
    write(folder + "TWO-company.csv", "key,value\nname,Two\nsymbol,TWO\n");
    write(folder + "BAD-company.csv", "key,value\nname,Bad\ntotal_debt_musd,1x\n");
    Answers answers({"Import 2", "OK"});
    host_->importFolder(folder);
    EXPECT_TRUE(answers.told().value(0).contains("BAD-company.csv, line 3"))
        << answers.told().value(0).toStdString();
    EXPECT_TRUE(shownNames(*host_).contains("One"));
    EXPECT_TRUE(shownNames(*host_).contains("Two"));
    EXPECT_FALSE(shownNames(*host_).contains("Bad"));
}

TEST_F(HostTest, AnImportOfAFolderCanBeStopped) {
    QTimer stop;
    bool isStopped = false;
    QObject::connect(&stop, &QTimer::timeout, [&] {
        if (auto* progress = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            progress != nullptr && !isStopped) {
            isStopped = true;
            user_.click(*progress->findChild<QPushButton*>());
        }
    });
    stop.start(0);
    Answers answers({"OK"});
    host_->importFolder(samples());
    EXPECT_TRUE(isStopped);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("No company was imported."));
    EXPECT_EQ(shownNames(*host_).size(), 4);
}

TEST_F(HostTest, AFileOfAnotherNameIsNotImported) {
    write(home_.filePath("figures.csv"), "key,value\n");
    Answers answers({"OK"});
    host_->importFile(home_.filePath("figures.csv"));
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("figures.csv"));
}

// --- help --------------------------------------------------------------------------------------

TEST_F(HostTest, TheHelpButtonOpensThePageOfItsTab) {
    CompanyWindow& window = open(*host_, "AAPL");
    click(window, "cmdHelp");
    EXPECT_EQ(host_->help().shownPage(), helpTabBase + toCompany);
    EXPECT_TRUE(host_->help().isVisible());
}

TEST_F(HostTest, TheLinkAndF1OfTheHelpFrameOpenThePageOfTheObject) {
    CompanyWindow& window = open(*host_, "AAPL");
    struct Row {
        const char* field;
        DataEntryObject object;
    };
    for (const auto& row : {Row{"txtSymbol", doSymbol}, Row{"txtTotalDebt", doTotalDebt},
                            Row{"cmbExchange", doExchange}})
        for (const bool byKey : {false, true}) {
            DialogAnswers menu;
            menu.nextEntry("What's This?");
            user_.activate(window);
            user_.click(control(window, row.field), Qt::RightButton);
            user_.activate(window);
            if (byKey)
                user_.press(Qt::Key_F1);
            else
                user_.click(control(window, "lblMoreHelp"));
            EXPECT_EQ(host_->help().shownPage(), helpObjectBase + row.object) << row.field;
            host_->help().close();
        }
}

TEST_F(HostTest, FieldsOfferEveryValueThatACompanyHasOnce) {
    type(open(*host_, "AAPL"), "cmbIndustry", "Orchards");
    click(*host_->windows().first(), "cmdOK");
    auto& form = open(*host_, "NVDA").entry().component().form();
    const std::vector<std::string>& list = form.get<ComboBox>("cmbIndustry").list();
    EXPECT_EQ(std::ranges::count(list, "Orchards"), 1);
    EXPECT_EQ(std::set(list.begin(), list.end()).size(), list.size());
}

} // namespace
} // namespace vkr
