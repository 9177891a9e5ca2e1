// SPDX-License-Identifier: MIT
#include "desktop/paste_dialog.hpp"
#include "desktop/qt_services.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/readable_colors.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/qt/support/entry_window.hpp"
#include "tests/qt/support/wheel.hpp"
#include "tests/support/field_steps.hpp"
#include "tools/themes.hpp"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace vkr {
namespace {

// A preview that writes down what is done to it.
class Preview final : public PasteForm {
  public:
    std::vector<PasteLine> shown = {{"2024", "Revenue (M)", "1,234", "", "1234",
                                     "With the other mark 1.234.", PasteFate::doubtful},
                                    {"2025", "Revenue (M)", "5", "4", "5", "", PasteFate::taken},
                                    {"", "", "n/a", "", "", "Not available.", PasteFate::leftOut}};
    std::vector<PasteSwitch> given = {{"&Turn", {}, 1, true},
                                      {"&Reverse", {}, 0, false},
                                      {"&Unit:", {"As shown", "Thousands"}, 0, true}};
    std::string ok = "&Paste 2 Figures";
    std::size_t kept = 1; // lines, when a switch is turned
    std::vector<std::string> log;
    bool open = true;

    const std::string& caption() const override { return caption_; }
    const std::vector<std::string>& heads() const override { return heads_; }
    const std::vector<PasteLine>& lines() const override { return shown; }
    const std::vector<PasteSwitch>& switches() const override { return given; }
    void setSwitch(int index, int chosen) override {
        log.push_back(std::to_string(index) + "=" + std::to_string(chosen));
        given[static_cast<std::size_t>(index)].chosen = chosen;
        given[1].enabled = true;
        shown.resize(kept);
        ok = "&Paste One Figure";
    }
    const std::string& summary() const override { return summary_; }
    const std::string& okCaption() const override { return ok; }
    bool canPaste() const override { return true; }
    const std::string& cancelCaption() const override { return cancel_; }
    void pressOk() override {
        log.emplace_back("ok");
        open = false;
    }
    void pressCancel() override {
        log.emplace_back("cancel");
        open = false;
    }
    bool visible() const override { return open; }

  private:
    std::string caption_ = "Paste into Revenue 2024";
    std::vector<std::string> heads_ = {"Period", "Column", "Clipboard", "Now", "Then", "Remark"};
    std::string summary_ = "2 figures will be pasted.";
    std::string cancel_ = "Cancel";
};

using Log = std::vector<std::string>;

TEST(PasteDialog, ShowsWhatTheFormHas) {
    Preview form;
    PasteDialog dialog(form, nullptr);
    const auto* lines = dialog.findChild<QTableWidget*>("pasteLines");
    ASSERT_NE(lines, nullptr);
    ASSERT_EQ(lines->rowCount(), 3);
    EXPECT_EQ(lines->item(0, 2)->text(), "1,234");
    EXPECT_EQ(lines->item(2, 5)->text(), "Not available.");
    EXPECT_EQ(lines->horizontalHeaderItem(4)->text(), "Then");
    EXPECT_EQ(dialog.windowTitle(), "Paste into Revenue 2024");
    EXPECT_EQ(dialog.findChild<QPushButton*>("pasteOk")->text(), "&Paste 2 Figures");
    EXPECT_TRUE(dialog.findChild<QCheckBox*>("pasteSwitch0")->isChecked());
    EXPECT_FALSE(dialog.findChild<QCheckBox*>("pasteSwitch1")->isEnabled());
    EXPECT_EQ(dialog.findChild<QComboBox*>("pasteSwitch2")->currentText(), "As shown");
    EXPECT_TRUE(form.log.empty()) << "showing turns no switch";
}

TEST(PasteDialog, IsWorkedByKeys) {
    Preview form;
    PasteDialog dialog(form, nullptr);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    QApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), dialog.findChild<QPushButton*>("pasteOk"));
    QTest::keyClick(&dialog, Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form.log.empty(); })); // a press takes its time
    EXPECT_EQ(form.log, (Log{"0=0"}));
    EXPECT_EQ(dialog.findChild<QTableWidget*>("pasteLines")->rowCount(), 1);
    EXPECT_EQ(dialog.findChild<QPushButton*>("pasteOk")->text(), "&Paste One Figure");
    EXPECT_TRUE(dialog.findChild<QCheckBox*>("pasteSwitch1")->isEnabled());
    QTest::keyClick(&dialog, Qt::Key_U, Qt::AltModifier);
    auto* unit = dialog.findChild<QComboBox*>("pasteSwitch2");
    EXPECT_EQ(QApplication::focusWidget(), unit);
    QTest::keyClick(unit, Qt::Key_Down);
    EXPECT_EQ(form.log, (Log{"0=0", "2=1"}));
    // Tab comes to everything, the list included, and no cell of it keeps it.
    std::set<QWidget*> reached;
    for (int step = 0; step < 10; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.insert(QApplication::focusWidget());
    }
    for (const char* name :
         {"pasteSwitch0", "pasteSwitch1", "pasteLines", "pasteOk", "pasteCancel"})
        EXPECT_TRUE(reached.contains(dialog.findChild<QWidget*>(name))) << name;
    dialog.findChild<QTableWidget*>("pasteLines")->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(form.log.back(), "ok");
    EXPECT_FALSE(dialog.isVisible());
}

TEST(PasteDialog, TheWheelOverASwitchChoosesNothing) {
    Preview form;
    PasteDialog dialog(form, nullptr);
    dialog.show();
    auto* unit = dialog.findChild<QComboBox*>("pasteSwitch2");
    for (const bool hasFocus : {false, true}) {
        if (hasFocus)
            unit->setFocus();
        turnWheel(*unit, -120);
        EXPECT_EQ(unit->currentIndex(), 0);
    }
    EXPECT_TRUE(form.log.empty());
}

TEST(PasteDialog, IsCancelledByEscapeAndByClosing) {
    for (const bool escape : {true, false}) {
        Preview form;
        PasteDialog dialog(form, nullptr);
        dialog.show();
        if (escape)
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            dialog.close();
        EXPECT_EQ(form.log, (Log{"cancel"}));
    }
}

TEST(PasteDialog, IsReadableOnLightAndDark) {
    for (const QColor& base : {QColor(Qt::white), QColor(30, 30, 32)}) {
        Preview form;
        PasteDialog dialog(form, nullptr);
        QPalette palette(base);
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, base == Qt::white ? Qt::black : QColor(235, 235, 235));
        dialog.setPalette(palette);
        auto* lines = dialog.findChild<QTableWidget*>("pasteLines");
        lines->setPalette(palette);
        form.kept = form.shown.size();
        dialog.findChild<QCheckBox*>("pasteSwitch0")->toggle(); // which fills the list anew
        ASSERT_EQ(lines->rowCount(), 3);
        for (int row = 0; row < lines->rowCount(); ++row)
            for (int column = 0; column < lines->columnCount(); ++column)
                EXPECT_GE(contrast(lines->item(row, column)->foreground().color(), base),
                          textContrast)
                    << row << " " << column;
    }
}

TEST(PasteDialog, FollowsAnotherThemeWhileItIsOpen) {
    const QPalette before = QApplication::palette();
    Preview form;
    PasteDialog dialog(form, nullptr);
    dialog.show();
    const auto* lines = dialog.findChild<QTableWidget*>("pasteLines");
    for (const Theme* theme : {&dark, &light, &dark}) {
        QApplication::setPalette(paletteOf(*theme));
        QApplication::processEvents();
        for (int row = 0; row < lines->rowCount(); ++row)
            for (int column = 0; column < lines->columnCount(); ++column)
                EXPECT_GE(contrast(lines->item(row, column)->foreground().color(), theme->base),
                          textContrast)
                    << row << " " << column;
        if (const QString folder = qEnvironmentVariable("VKR_PICTURES"); !folder.isEmpty())
            dialog.grab().save(folder + (theme == &dark ? "/paste-dark.png" : "/paste-light.png"));
    }
    QApplication::setPalette(before);
}

// --- in the widget, with the desktop's own clipboard and pointer ---------------------------------

class PastedBlock : public EntryWindow {
  protected:
    void SetUp() override {
        open(company);
        entry->setCurrentTab(toYearly);
    }
    // The last fiscal year's revenue, where each block begins.
    [[nodiscard]] QLineEdit* cell() const { return native("txtSales", 9); }

    std::shared_ptr<CompanyRecord> company = test::datedCompany();
};

// As a spreadsheet in German hands over what it shows.
TEST_F(PastedBlock, IsReadWithTheMarksThatItsHtmlNames) {
    for (const auto& [declared, figure] :
         {std::pair{"mso-displayed-decimal-separator:\"\\,\";", 1.234},
          std::pair{"mso-displayed-decimal-separator:\"\\.\";", 1234.0}, std::pair{"", 1234.0}}) {
        auto* held = new QMimeData;
        held->setText("1,234\t2");
        held->setHtml(QStringLiteral("<html><head><style>table {%1}</style></head><table><tr>"
                                     "<td>1,234<td>2</table>")
                          .arg(declared));
        QApplication::clipboard()->setMimeData(held);
        DialogAnswers answers;
        answers.nextKey(Qt::Key_Return);
        QTest::mouseClick(cell(), Qt::LeftButton);
        QTest::keyClick(cell(), Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(test::elementOf(*company, "YRevenueSeries", 1), figure) << declared;
    }
}

TEST_F(PastedBlock, ComesByTheMenuAndByDroppingToo) {
    QApplication::clipboard()->setText("1\t2");
    DialogAnswers answers;
    answers.nextEntry("Paste");
    answers.nextKey(Qt::Key_Return);
    QTest::mouseClick(cell(), Qt::LeftButton);
    QTest::mouseClick(cell(), Qt::RightButton);
    EXPECT_EQ(test::elementOf(*company, "YRevenueSeries", 1), 1);
    EXPECT_EQ(test::elementOf(*company, "YPTISeries", 1), 2);
}

TEST_F(PastedBlock, LeavesNothingBehindWhenTheWidgetGoesMeanwhile) {
    QApplication::clipboard()->setText("1\t2");
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [this] {
            delete entry;
            entry = nullptr;
        });
    });
    auto* line = cell();
    QTest::mouseClick(line, Qt::LeftButton);
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QApplication::sendEvent(line, &paste);
    EXPECT_EQ(entry, nullptr);
    EXPECT_EQ(test::elementOf(*company, "YRevenueSeries", 1), 0);
}

} // namespace
} // namespace vkr
