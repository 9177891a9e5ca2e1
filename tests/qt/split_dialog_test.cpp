// SPDX-License-Identifier: MIT
#include "host/assistant.hpp"
#include "host/split_dialog.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/support/elements.hpp"

#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

namespace vkr {
namespace {

class SplitDialogTest : public HostTest {
  protected:
    // What is done with the dialog when it is up.
    static void whenUp(const std::function<void(SplitDialog&)>& act) {
        QTimer::singleShot(0, [act] {
            auto* dialog = qobject_cast<SplitDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
            if (dialog->isVisible())
                dialog->reject();
        });
    }
    static void choose(CompanyWindow& window) { action(window, "split").trigger(); }
    static void fill(SplitDialog& dialog, const char* ratio, const char* date) {
        dialog.findChild<QLineEdit*>("ratio")->setText(ratio);
        dialog.findChild<QLineEdit*>("effective")->setText(date);
    }
    static QTableWidget& table(SplitDialog& dialog) {
        return *dialog.findChild<QTableWidget*>("preview");
    }
    static QPushButton& adjust(SplitDialog& dialog) {
        return *dialog.findChild<QPushButton*>("adjust");
    }
    static QString told(SplitDialog& dialog) { return dialog.findChild<QLabel*>("told")->text(); }
};

TEST_F(SplitDialogTest, ShowsEveryFigureBeforeAndAfter) {
    CompanyWindow& window = open(*host_, "AAPL");
    whenUp([](SplitDialog& dialog) {
        EXPECT_FALSE(adjust(dialog).isEnabled());
        fill(dialog, "4:1", "2020-08-31");
        EXPECT_EQ(table(dialog).rowCount(), 37);
        EXPECT_EQ(adjust(dialog).text(), "Adjust 37 Figures");
        const auto rows = table(dialog).findItems("2.97", Qt::MatchExactly);
        ASSERT_EQ(rows.size(), 1);
        const int row = rows.front()->row();
        EXPECT_EQ(table(dialog).item(row, 0)->text(), "Earnings Per Share");
        EXPECT_EQ(table(dialog).item(row, 1)->text(), "fiscal year 2019");
        EXPECT_EQ(table(dialog).item(row, 3)->text(), "0.7425");
    });
    choose(window);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 7), 2.97) << "it was given up";
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(SplitDialogTest, AdjustsWhatIsTicked) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    whenUp([](SplitDialog& dialog) {
        fill(dialog, "4:1", "2020-08-31");
        const int row = table(dialog).findItems("2.97", Qt::MatchExactly).front()->row();
        table(dialog).item(row, 0)->setCheckState(Qt::Unchecked);
        EXPECT_EQ(adjust(dialog).text(), "Adjust 36 Figures");
        adjust(dialog).click();
    });
    choose(window);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 7), 2.97);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 8), 0.745);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YCSOSeries, 7), 74382.604);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 6), 3.28);
    EXPECT_TRUE(window.isWindowModified());
    const auto& cell = window.entry().component().form().get<TextBox>("txtYEPS", 2);
    EXPECT_EQ(cell.text().substr(0, 3), "0.7") << "and shows it";
}

TEST_F(SplitDialogTest, LeavesEachFigureFromWhereItWas) {
    CompanyWindow& window = open(*host_, "AAPL");
    window.entry().setCurrentTab(toYearly);
    type(window, "txtYEPS(3)", "3");
    whenUp([](SplitDialog& dialog) {
        fill(dialog, "4:1", "2026-06-01");
        adjust(dialog).click();
    });
    choose(window);
    const auto origin = [&](int element) {
        return window.origins().of(Datum::YEPSSeries, element);
    };
    const FigureOrigin imported{Origin::imported, "AAPL-yearly.csv", false};
    const FigureOrigin adjusted{Origin::adjusted, "AAPL-yearly.csv", false};
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 7), 0.75);
    EXPECT_EQ(origin(7).origin, Origin::typed);
    EXPECT_EQ(origin(8), adjusted);
    emit window.entry().assistant(doCommShares, QString());
    EXPECT_EQ(window.findChild<Assistant*>()->findChild<QLabel*>("origin")->text(),
              "Where it comes from: imported from AAPL-company.csv, adjusted for a split");

    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(origin(8), imported);
    window.entry().component().step(HistoryStep::redo);
    EXPECT_EQ(origin(8), adjusted);
    ASSERT_TRUE(window.save());
    EXPECT_EQ(host_->store().load(*window.id()).value().origins.of(Datum::YEPSSeries, 8), adjusted);
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(origin(8), imported) << "also after a save";
    EXPECT_EQ(origin(7).origin, Origin::typed);
    window.discard();
}

// A slip in the ratio is mended without ticking everything again.
TEST_F(SplitDialogTest, KeepsTheTicksOfTheRowsThatStay) {
    CompanyWindow& window = open(*host_, "AAPL");
    whenUp([](SplitDialog& dialog) {
        fill(dialog, "4:1", "2020-08-31");
        const int row = table(dialog).findItems("2.97", Qt::MatchExactly).front()->row();
        table(dialog).item(row, 0)->setCheckState(Qt::Unchecked);
        for (const auto& [ratio, date] :
             {std::pair("", "2020-08-31"), std::pair("7:1", "2020-08-31"),
              std::pair("7:1", "2020-08-30"), std::pair("7:1", "1990-01-01"),
              std::pair("4:1", "2020-08-31")})
            fill(dialog, ratio, date);
        EXPECT_EQ(table(dialog).item(row, 0)->checkState(), Qt::Unchecked);
        EXPECT_EQ(adjust(dialog).text(), "Adjust 36 Figures");
        table(dialog).item(row, 0)->setCheckState(Qt::Checked);
        fill(dialog, "5:1", "2020-08-31");
        EXPECT_EQ(adjust(dialog).text(), "Adjust 37 Figures");
    });
    choose(window);
}

TEST_F(SplitDialogTest, SaysWhatIsNoSplitAndNoDate) {
    CompanyWindow& window = open(*host_, "AAPL");
    whenUp([](SplitDialog& dialog) {
        for (const auto& [ratio, date, says] :
             {std::tuple("", "", "Type the new"), std::tuple("1:1", "2020-08-31", "no split"),
              std::tuple("4:1", "", "Type the day"), std::tuple("4:1", "someday", "no date"),
              std::tuple("4:1", "1990-01-01", "No figure is of before 1990-01-01")}) {
            fill(dialog, ratio, date);
            EXPECT_NE(told(dialog).indexOf(says), -1) << told(dialog).toStdString();
            EXPECT_FALSE(adjust(dialog).isEnabled());
            EXPECT_EQ(table(dialog).rowCount(), 0);
        }
    });
    choose(window);
}

} // namespace
} // namespace vkr
