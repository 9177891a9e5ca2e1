// SPDX-License-Identifier: MIT
// The lock matrix of the program: whatever it offers that changes a company, by its keys, menus and
// windows. What a field withstands by itself is in locked_matrix_test.cpp.
#include "host/history_window.hpp"
#include "host/unsaved_work.hpp"
#include "tests/qt/support/corrected_company.hpp"

#include <QClipboard>
#include <QTreeWidget>

#include <functional>

namespace vkr {
namespace {

class HostLocked;

struct LockedAct {
    const char* name;
    std::function<void(HostLocked& at)> act;
    QStringList answers; // to what the program asks and tells
    const char* told;    // by the last of it
};

void PrintTo(const LockedAct& act, std::ostream* out) {
    *out << act.name;
}

// A company with a step to undo, one to redo and an earlier state, which has been locked since.
class HostLocked : public CorrectedCompanyTest, public testing::WithParamInterface<LockedAct> {
  public:
    void begin() {
        ASSERT_NO_FATAL_FAILURE(exportAndCorrect());
        window = &open(*host_, "AAPL");
        type(*window, "txtTotalDebt", "11");
        ASSERT_TRUE(window->save());
        type(*window, "txtTotalDebt", "12");
        action(*window, "undo").trigger();
        ASSERT_NE(window->journal().toUndo(), nullptr);
        ASSERT_NE(window->journal().toRedo(), nullptr);
        window->entry().setCurrentTab(toYearly);
        user_.click(control(*window, "txtSales(8)"));
    }
    void setLock(bool on) {
        auto& lock = window->entry().component().form().get<CheckBox>("chkLockInfo");
        if (lock.value() != on)
            click(*window, "chkLockInfo");
        ASSERT_EQ(lock.value(), on);
        ASSERT_TRUE(window->save());
        user_.click(control(*window, "txtSales(8)"));
    }
    void choose(const char* name) { action(*window, name).trigger(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        user_.press(key, modifiers);
    }
    void pressBelow(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        press(Qt::Key_Down, Qt::ShiftModifier);
        press(key, modifiers);
    }
    void paste(const char* text) {
        QApplication::clipboard()->setText(text);
        press(Qt::Key_V);
    }
    void importFilings() {
        window->importFilings(QStringLiteral(VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json"));
    }
    void chooseFilings() { choose("importFilings"); }
    void importFile() { host_->importFile(companyFile()); }
    void importFolder() { host_->importFolder(home_.filePath("in")); }
    void restoreState() {
        choose("history");
        auto* history = window->findChild<HistoryWindow*>();
        auto* changes = history->findChild<QTreeWidget*>("changes");
        changes->setCurrentItem(changes->topLevelItem(changes->topLevelItemCount() - 1));
        history->findChild<QPushButton*>("restore")->click();
    }
    [[nodiscard]] std::vector<ChangeGroup> givenUp() const {
        Change debt;
        debt.datum = Datum::TotalDebt;
        debt.before = window->record()->get_TotalDebt();
        debt.after = 13.0;
        return {{"", {}, {debt}}};
    }
    void restoreDiscarded() {
        emit window->discarded({{window->id(), 1, 0, "Apple"}, givenUp(), 1});
        host_->list().findChild<QPushButton*>("restore")->click();
    }
    void restoreFound() {
        {
            UnsavedChanges left(unsavedPlaceOf(host_->store()), {window->id(), 1, 0, "Apple"});
            ASSERT_EQ(left.add(givenUp().front()), std::nullopt);
        }
        host_->offerFound();
    }

    CompanyWindow* window = nullptr;
};

const LockedAct lockedActs[] = {
    {"UndoKey", [](HostLocked& at) { at.press(Qt::Key_Z); }, {}, ""},
    {"UndoOfTheMenu", [](HostLocked& at) { at.choose("undo"); }, {}, ""},
    {"RedoKey", [](HostLocked& at) { at.press(Qt::Key_Y); }, {}, ""},
    {"RedoOfTheMenu", [](HostLocked& at) { at.choose("redo"); }, {}, ""},
    {"Paste", [](HostLocked& at) { at.paste("7"); }, {}, ""},
    {"PasteOfABlock", [](HostLocked& at) { at.paste("1\t2\n3\t4"); }, {}, ""},
    {"Cut", [](HostLocked& at) { at.press(Qt::Key_X); }, {}, ""},
    {"CutOfCells", [](HostLocked& at) { at.pressBelow(Qt::Key_X); }, {}, ""},
    {"DeleteOfCells",
     [](HostLocked& at) { at.pressBelow(Qt::Key_Delete, Qt::NoModifier); },
     {},
     ""},
    {"FillDown", [](HostLocked& at) { at.press(Qt::Key_D); }, {}, ""},
    {"FillDownOfCells", [](HostLocked& at) { at.pressBelow(Qt::Key_D); }, {}, ""},
    {"ValueOfTheYearBefore", [](HostLocked& at) { at.press(Qt::Key_Apostrophe); }, {}, ""},
    {"Split",
     [](HostLocked& at) { at.choose("split"); },
     {"OK"},
     "Take the tick off Lock Data before a split."}, // where the lock is, on every tab
    {"ImportFromFilingsOfTheMenu",
     &HostLocked::chooseFilings,
     {"OK"},
     "Unlock it to import figures."}, // before a file is asked for
    {"ImportFromFilings", &HostLocked::importFilings, {"OK"}, "Unlock it to import figures."},
    {"ImportOfAFile",
     &HostLocked::importFile,
     {"Replace", "OK"},
     "The data is locked. Unlock it to import figures."},
    {"ImportOfAFolder",
     &HostLocked::importFolder,
     {"Replace", "OK"},
     "The data is locked. Unlock it to import figures."},
    {"StateOfTheHistory", &HostLocked::restoreState, {"OK"}, "The data is locked."},
    {"DiscardedChanges", &HostLocked::restoreDiscarded, {"OK"}, "The data is locked."},
    {"FoundChanges", &HostLocked::restoreFound, {"Restore", "OK"}, "The data is locked."},
};

// Nor is there anything else in its way: with the lock off it changes the company, or asks first.
TEST_P(HostLocked, ChangesNothingWhileTheLockIsOn) {
    ASSERT_NO_FATAL_FAILURE(begin());
    setLock(true);
    const auto before = window->record()->clone();
    const auto kept = stored(*host_, "AAPL");
    {
        const Answers answers(GetParam().answers);
        GetParam().act(*this);
        settle();
        EXPECT_TRUE(answers.allGiven());
        EXPECT_EQ(answers.told().size(), GetParam().answers.size());
        EXPECT_TRUE(answers.told().isEmpty() || answers.told().back().contains(GetParam().told))
            << answers.told().back().toStdString();
    }
    EXPECT_EQ(host_->windows(), QList<CompanyWindow*>{window});
    EXPECT_TRUE(sameAs(*before, *window->record()));
    EXPECT_TRUE(sameAs(*kept, *stored(*host_, "AAPL")));
    EXPECT_FALSE(window->isWindowModified());

    setLock(false);
    bool isAsked = false;
    QTimer closing;
    QObject::connect(&closing, &QTimer::timeout, [&isAsked] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            isAsked = true;
            dialog->reject();
        }
    });
    closing.start(0);
    GetParam().act(*this);
    settle();
    EXPECT_TRUE(isAsked || !sameAs(*before, *window->record()));
    window->discard();
}

INSTANTIATE_TEST_SUITE_P(Acts, HostLocked, testing::ValuesIn(lockedActs),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace vkr
