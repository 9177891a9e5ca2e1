// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/qt/support/dialog_answers.hpp"

#include <QFile>

namespace vkr {
namespace {

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

} // namespace
} // namespace vkr
