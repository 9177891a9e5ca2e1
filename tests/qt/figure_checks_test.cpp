// SPDX-License-Identifier: MIT
#include "host/figure_checks.hpp"
#include "host/findings_panel.hpp"
#include "host/history_chart.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/support/elements.hpp"
#include "tools/themes.hpp"

#include <QCheckBox>
#include <QListWidget>
#include <QToolButton>
#include <QTreeWidget>

namespace vkr {
namespace {

class FigureChecksTest : public HostTest {
  protected:
    static QListWidget& list(CompanyWindow& window) {
        return *window.findChild<QListWidget*>("findingsList");
    }
    static QToolButton& count(CompanyWindow& window) {
        return *window.findChild<QToolButton*>("findingsCount");
    }
    static QWidget& panel(CompanyWindow& window) { return *window.findChild<QWidget*>("findings"); }
    static const TextField& field(CompanyWindow& window, std::string_view id) {
        for (const auto& control : window.entry().component().form().controls())
            if (control->id() == id)
                return dynamic_cast<const TextField&>(*control);
        throw std::runtime_error("no field " + std::string(id));
    }

    // A loss of a year whose earnings are a gain.
    CompanyWindow& openWithASlip() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toYearly);
        type(window, "txtYEPS(5)", "56.1"); // 5.61
        settle();
        return window;
    }
};

TEST_F(FigureChecksTest, AreSilentOnASoundCompanyAndOutOfTheWay) {
    CompanyWindow& window = open(*host_, "AAPL");
    settle();
    EXPECT_FALSE(count(window).isVisible());
    EXPECT_FALSE(panel(window).isVisible());
    user_.press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_TRUE(panel(window).isVisible());
    EXPECT_EQ(panel(window).windowTitle(), "Nothing to Look At");
    user_.press(Qt::Key_Escape);
    EXPECT_TRUE(window.entry().isAncestorOf(QApplication::focusWidget())) << "back on the form";
}

TEST_F(FigureChecksTest, TellOfASlipAsSoonAsItsFieldIsLeft) {
    CompanyWindow& window = openWithASlip();
    EXPECT_TRUE(count(window).isVisible());
    EXPECT_EQ(count(window).text(), "2 to look at");
    EXPECT_EQ(field(window, "txtYEPS(5)").shownMark(), MarkKind::quiet);
    EXPECT_NE(control(window, "txtYEPS(5)").toolTip().indexOf("56.1"), -1);
    EXPECT_EQ(control(window, "txtYEPS(5)").accessibleDescription(),
              QString::fromStdString(field(window, "txtYEPS(5)").remark()));
    EXPECT_FALSE(panel(window).isVisible()) << "it comes up when it is asked for";

    type(window, "txtYEPS(5)", "5.61");
    settle();
    EXPECT_FALSE(count(window).isVisible());
    EXPECT_EQ(field(window, "txtYEPS(5)").shownMark(), MarkKind::none);
}

TEST_F(FigureChecksTest, LeadToTheFigureByTheKeyboardAndBack) {
    CompanyWindow& window = openWithASlip();
    window.entry().setCurrentTab(toCompany);
    user_.press(Qt::Key_L, Qt::ControlModifier);
    ASSERT_TRUE(list(window).hasFocus());
    EXPECT_EQ(list(window).count(), 2);
    auto& chart = *panel(window).findChild<HistoryChart*>();
    EXPECT_EQ(chart.history().title, "Earnings Per Share by fiscal year");
    ASSERT_GE(chart.history().marked, 0);
    EXPECT_EQ(chart.history().periods.at(chart.history().marked).label, "2021");
    user_.press(Qt::Key_Return);
    EXPECT_EQ(focused(window), "txtYEPS(5)");
    EXPECT_EQ(window.entry().currentTab(), toYearly);
    EXPECT_TRUE(control(window, "txtYEPS(5)").hasFocus());

    user_.press(Qt::Key_L, Qt::ControlModifier);
    user_.press(Qt::Key_Escape);
    EXPECT_TRUE(control(window, "txtYEPS(5)").hasFocus());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(FigureChecksTest, ShowAFigureOfTheCompanyBesideItsSeries) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtDilutedShares", "12");
    settle();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    const History& history = panel(window).findChild<HistoryChart*>()->history();
    EXPECT_EQ(history.title, "Shares Outstanding by fiscal year");
    EXPECT_EQ(history.level, 12);
    window.discard();
}

TEST_F(FigureChecksTest, WhatIsTypedAtTheFigureTakesItsPlace) {
    for (const bool comesFromTheFigure : {false, true}) {
        CompanyWindow& window = openWithASlip();
        if (comesFromTheFigure)
            user_.click(control(window, "txtYEPS(5)"));
        user_.press(Qt::Key_L, Qt::ControlModifier);
        user_.press(Qt::Key_Return);
        user_.type("5.61");
        user_.press(Qt::Key_Tab);
        EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 5), 5.61);
        window.discard();
        settle();
    }
}

TEST_F(FigureChecksTest, F8GoesFromOneToTheNext) {
    CompanyWindow& window = open(*host_, "SNOW");
    settle();
    EXPECT_EQ(count(window).text(), "5 to look at");
    std::vector<std::string> visited;
    for (int press = 0; press < 6; ++press) {
        user_.press(Qt::Key_F8);
        visited.push_back(focused(window));
    }
    EXPECT_EQ(visited.front(), visited.back());
    EXPECT_EQ(visited.front(), "txtEPS(17)");
    EXPECT_EQ(std::ranges::count(visited, "txtDilutedShares"), 1);
}

TEST_F(FigureChecksTest, OneThatIsRightIsSilentUntilItsFigureChanges) {
    CompanyWindow& window = open(*host_, "SNOW");
    settle();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    const QString silenced = list(window).currentItem()->text();
    user_.click(control(window, "itIsRight"));
    EXPECT_EQ(count(window).text(), "4 to look at");
    EXPECT_EQ(list(window).count(), 4);
    EXPECT_NE(list(window).item(0)->text(), silenced);
    EXPECT_EQ(field(window, "txtEPS(17)").shownMark(), MarkKind::none);
    EXPECT_FALSE(window.isWindowModified()) << "no figure was changed";

    auto& all = *window.findChild<QCheckBox*>("showSilenced");
    all.setFocus();
    user_.press(Qt::Key_Space);
    EXPECT_EQ(list(window).count(), 5);
    list(window).setCurrentRow(0);
    auto& again = dynamic_cast<QPushButton&>(control(window, "itIsRight"));
    EXPECT_EQ(again.text(), "Look Again");
    settle(); // it is laid out anew
    user_.click(again);
    EXPECT_EQ(count(window).text(), "5 to look at");
}

TEST_F(FigureChecksTest, ThePaleOnesFollowAnotherTheme) {
    const QPalette before = QApplication::palette();
    CompanyWindow& window = open(*host_, "SNOW");
    settle();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    user_.click(control(window, "itIsRight"));
    window.findChild<QCheckBox*>("showSilenced")->setChecked(true);
    for (const Theme* theme : {&dark, &light}) {
        QApplication::setPalette(paletteOf(*theme));
        settle();
        EXPECT_EQ(list(window).item(0)->foreground().color(), theme->disabled);
    }
    QApplication::setPalette(before);
}

TEST_F(FigureChecksTest, WhatIsRightIsKeptFromOneWindowToTheNext) {
    open(*host_, "SNOW");
    settle();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    user_.click(control(*host_->windows().front(), "itIsRight"));
    host_->windows().front()->discard();
    settle();
    CompanyWindow& again = open(*host_, "SNOW");
    settle();
    EXPECT_EQ(count(again).text(), "4 to look at");
}

TEST_F(FigureChecksTest, WhatIsRightOfANewCompanyStaysSoWhenItIsSaved) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "ACME");
    type(window, "txtCommonShares", "200");
    type(window, "txtDilutedShares", "150");
    settle();
    EXPECT_EQ(count(window).text(), "1 to look at");
    user_.press(Qt::Key_L, Qt::ControlModifier);
    user_.click(control(window, "itIsRight"));
    EXPECT_FALSE(count(window).isVisible());
    ASSERT_TRUE(window.save());
    settle();
    EXPECT_FALSE(count(window).isVisible());
    window.discard();
    settle();
    CompanyWindow& again = open(*host_, "ACME");
    settle();
    EXPECT_FALSE(count(again).isVisible());
}

TEST_F(FigureChecksTest, NeverKeepAnybodyFromSaving) {
    CompanyWindow& window = openWithASlip();
    const Answers answers({});
    click(window, "cmdOK");
    EXPECT_TRUE(host_->windows().isEmpty());
    EXPECT_EQ(test::elementOf(*stored(*host_, "AAPL"), Datum::YEPSSeries, 5), 56.1);
}

// A hidden row is looked at as it would be saved, not as it was before the figure above it changed.
TEST_F(FigureChecksTest, GoByWhatWouldBeSaved) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toQuarterly);
    type(window, "txtNetInc(0)", "25000");
    settle();
    for (int row = 0; row < list(window).count(); ++row)
        EXPECT_FALSE(list(window).item(row)->text().startsWith("Tax unlike"))
            << list(window).item(row)->text().toStdString();
}

TEST_F(FigureChecksTest, WhoCalledItRightStandsInTheHistory) {
    CompanyWindow& window = open(*host_, "SNOW");
    settle();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    user_.click(control(window, "itIsRight"));
    action(window, "history").trigger();
    auto& tree = *window.findChild<QTreeWidget*>("changes");
    ASSERT_EQ(tree.topLevelItemCount(), 2);
    const QTreeWidgetItem& said = *tree.topLevelItem(0);
    EXPECT_EQ(said.text(2), "Quarterly Earnings Per Share 2021-01-31 called right");
    ASSERT_EQ(said.childCount(), 1);
    EXPECT_TRUE(said.child(0)->isFirstColumnSpanned());
    EXPECT_EQ(said.child(0)->text(0).toStdString(),
              host_->store().load(*window.id()).value().calledRight.at(0).text);
    const auto& restore = dynamic_cast<QPushButton&>(control(window, "restore"));
    EXPECT_FALSE(restore.isEnabled()) << "nothing was changed that could be restored";
    tree.setCurrentItem(tree.topLevelItem(1));
    EXPECT_TRUE(restore.isEnabled());

    user_.activate(window);
    user_.click(control(window, "itIsRight")); // the next one
    EXPECT_EQ(tree.topLevelItemCount(), 3) << "it follows what is done beside it";
}

TEST_F(FigureChecksTest, SavingSaysNothingAnew) {
    CompanyWindow& window = open(*host_, "SNOW");
    settle();
    user_.press(Qt::Key_L, Qt::ControlModifier);
    user_.click(control(window, "itIsRight"));
    window.entry().setFocus();
    type(window, "txtName", "Flake Inc.");
    ASSERT_TRUE(window.save());
    settle();
    EXPECT_EQ(count(window).text(), "4 to look at");
    const auto history = host_->store().history(*window.id());
    EXPECT_EQ(std::ranges::count_if(history.value(),
                                    [](const auto& group) { return group.verdict.has_value(); }),
              1);
}

} // namespace
} // namespace vkr
