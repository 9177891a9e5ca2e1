// SPDX-License-Identifier: MIT
#include "control/vkr_data_entry.hpp"
#include "desktop/form_view.hpp"
#include "desktop/qt_values.hpp"
#include "desktop/readable_colors.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "tests/qt/support/field_actions.hpp"
#include "tests/support/entry_scene.hpp"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace vkr {
namespace {

constexpr const char* figureNote = "Figures only. A loss begins with a minus sign.";

// Notes at fields: what was typed or pasted and not taken.
class FormViewNotes : public testing::Test {
  protected:
    FormViewNotes() {
        window.setCompany(fullCompany());
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        form().get<TabStrip>("tbsDataEntry").selectTab(toYearly);
        form().get<TextField>("txtYEPS", 9).setFocus();
    }

    [[nodiscard]] Form& form() { return window.component().form(); }
    [[nodiscard]] QLineEdit& native(std::string_view id, int index = Control::noIndex) {
        return dynamic_cast<QLineEdit&>(*window.formView().widgetOf(*form().find(id, index)));
    }
    // The text of the note; empty while there is none.
    [[nodiscard]] QString note() {
        const auto* label = window.formView().findChild<QLabel*>(QStringLiteral("note"));
        return label != nullptr && label->isVisible() ? label->text() : QString();
    }
    static void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    void paste(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }

    VKRDataEntryWidget window;
};

TEST_F(FormViewNotes, ASwallowedKeyShowsANoteThatTakesNoFocus) {
    auto& cell = native("txtYEPS", 9);
    const QString before = cell.text();
    press(Qt::Key_X);
    EXPECT_EQ(note(), figureNote);
    EXPECT_EQ(cell.text(), before);
    EXPECT_EQ(QApplication::focusWidget(), &cell);
    auto* label = window.formView().findChild<QLabel*>(QStringLiteral("note"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name), figureNote);
    const QRect place(cell.mapTo(&window.formView(), QPoint()), cell.size());
    EXPECT_FALSE(label->geometry().intersects(place));
    EXPECT_TRUE(window.formView().rect().contains(label->geometry()));
    press(Qt::Key_5);
    EXPECT_EQ(note(), "");
    EXPECT_EQ(cell.text(), "5");
}

TEST_F(FormViewNotes, ItGoesWithTheFocusAndWithTheLock) {
    press(Qt::Key_X);
    press(Qt::Key_Tab);
    EXPECT_EQ(note(), "");
    press(Qt::Key_X);
    EXPECT_NE(note(), "");
    QTest::mouseClick(&native("txtYEPS", 8), Qt::LeftButton);
    EXPECT_EQ(note(), "");
    press(Qt::Key_X);
    for (const auto& control : form().controls())
        if (auto* field = dynamic_cast<TextField*>(control.get()))
            field->setLocked(true);
    EXPECT_EQ(note(), "");
}

TEST_F(FormViewNotes, AHeldKeyKeepsItsNote) {
    auto& cell = native("txtYEPS", 9);
    for (int i = 0; i < 5; ++i) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"), i > 0);
        QApplication::sendEvent(&cell, &held);
    }
    EXPECT_EQ(note(), figureNote);
}

TEST_F(FormViewNotes, APastedOrDroppedBlockIsRefused) {
    // In a grid a block opens the preview.
    form().get<TabStrip>("tbsDataEntry").selectTab(toCompany);
    form().get<TextField>("txtTotalDebt").setFocus();
    auto& cell = native("txtTotalDebt");
    const QString before = cell.text();
    for (const char* block : {"1\t2", "1\n2\n3", "1\r\n2"}) {
        paste(QString::fromUtf8(block));
        EXPECT_EQ(cell.text(), before);
        EXPECT_FALSE(note().isEmpty());
        press(Qt::Key_Home);
        dropText(cell, QString::fromUtf8(block));
        EXPECT_EQ(cell.text(), before);
        EXPECT_FALSE(note().isEmpty());
        press(Qt::Key_Home);
        EXPECT_EQ(note(), "");
    }
    press(Qt::Key_A, Qt::ControlModifier);
    paste(QStringLiteral("42\r\n"));
    EXPECT_EQ(cell.text(), "42");
    EXPECT_EQ(note(), "");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(cell.text(), before);
}

TEST_F(FormViewNotes, APasteThatIsCutIsInDoubt) {
    form().get<TabStrip>("tbsDataEntry").selectTab(toOther);
    form().get<TextField>("txtZip").setFocus();
    paste(QStringLiteral("12345678901234567890XYZ"));
    EXPECT_EQ(native("txtZip").text(), "12345678901234567890");
    EXPECT_EQ(native("txtZip").accessibleDescription(),
              "Taken as 12345678901234567890; \"XYZ\" was left out.");
    press(Qt::Key_Tab);
    ASSERT_EQ(window.doubtfulFields().size(), 1U);
    EXPECT_EQ(window.doubtfulFields()[0].control, "txtZip");
    press(Qt::Key_Tab, Qt::ShiftModifier);
    press(Qt::Key_Return);
    EXPECT_TRUE(window.doubtfulFields().empty());
    EXPECT_EQ(native("txtZip").toolTip(), "");
}

TEST_F(FormViewNotes, TheSlotOfTheWidgetPastesAsTheKeyDoes) {
    // In a grid a block opens the preview.
    form().get<TabStrip>("tbsDataEntry").selectTab(toCompany);
    form().get<TextField>("txtTotalDebt").setFocus();
    auto& cell = native("txtTotalDebt");
    const QString before = cell.text();
    for (const char* block : {"1\t2", "1\n2\n3"}) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(block));
        cell.selectAll();
        cell.paste();
        EXPECT_EQ(cell.text(), before);
        EXPECT_FALSE(note().isEmpty());
        cell.redo();
        EXPECT_EQ(cell.text(), before);
    }
    cell.selectAll();
    QGuiApplication::clipboard()->setText(QStringLiteral("42"));
    cell.paste();
    EXPECT_EQ(cell.text(), "42");

    form().get<TabStrip>("tbsDataEntry").selectTab(toOther);
    form().get<TextField>("txtZip").setFocus();
    QGuiApplication::clipboard()->setText(QStringLiteral("12345678901234567890XYZ"));
    native("txtZip").selectAll();
    native("txtZip").paste();
    EXPECT_EQ(native("txtZip").text(), "12345678901234567890");
    EXPECT_EQ(native("txtZip").toolTip(), "Taken as 12345678901234567890; \"XYZ\" was left out.");
    native("txtZip").undo();
    EXPECT_NE(native("txtZip").text(), "12345678901234567890");
    EXPECT_EQ(native("txtZip").text().toStdString(), form().get<TextField>("txtZip").text());
}

TEST_F(FormViewNotes, AGroupThatMayBeDecimalsIsFramedInAmberUnderTheComma) {
    window.component().put_NumberMarks({',', "."});
    auto& cell = native("txtYEPS", 9);
    const auto amber = [&] {
        const QImage shown = cell.grab().toImage();
        return shown.pixelColor(shown.width() / 2, 1) == toQt(mark_colors::doubtful);
    };
    EXPECT_FALSE(amber());
    press(Qt::Key_A, Qt::ControlModifier);
    paste(QStringLiteral("1.234"));
    press(Qt::Key_Tab);
    EXPECT_EQ(cell.text(), "1234,00");
    EXPECT_EQ(cell.toolTip(), "Taken as 1234,00; \".\" was left out.");
    EXPECT_TRUE(amber());
}

TEST_F(FormViewNotes, TheNoteFitsAtTheEdgesOfTheForm) {
    for (const double dots : {96.0, 192.0}) {
        window.formView().setDotsPerInch(dots);
        for (const char* id : {"txtYEPS", "txtSales", "txtCSO"})
            for (const int row : {0, 10}) {
                auto& field = form().get<TextField>(id, row);
                field.setFocus();
                if (form().activeControl() != &field)
                    continue;
                press(Qt::Key_X);
                const auto* label = window.formView().findChild<QLabel*>(QStringLiteral("note"));
                ASSERT_TRUE(label != nullptr && label->isVisible()) << id << row;
                EXPECT_TRUE(window.formView().rect().contains(label->geometry())) << id << row;
            }
    }
}

} // namespace
} // namespace vkr
