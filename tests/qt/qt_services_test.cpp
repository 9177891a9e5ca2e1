// SPDX-License-Identifier: MIT
#include "desktop/qt_services.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/qt/support/form_scene.hpp"
#include "tests/support/date_picking.hpp"

#include <QCalendarWidget>
#include <QClipboard>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QMessageBox>

namespace vkr {
namespace {

class OnQtServices : public FormScene {
  protected:
    OnQtServices() { services.setView(view); }

    QtServices services{window};
    DialogAnswers answers;
};

TEST_F(OnQtServices, MessageBoxesHaveTheButtonsOfTheirCode) {
    using enum MessageAnswer;
    constexpr int yesNo = message_box::yesNo;
    constexpr int question = message_box::questionIcon;
    constexpr int exclamation = message_box::exclamationIcon;
    constexpr int second = message_box::defaultSecondButton;
    struct Row {
        int code;
        int buttons;
        QMessageBox::Icon icon;
        QMessageBox::StandardButton defaultButton;
        MessageAnswer byEnter;
        MessageAnswer byEscape;
    };
    const Row rows[] = {
        {0, 1, QMessageBox::NoIcon, QMessageBox::Ok, ok, ok},
        {exclamation, 1, QMessageBox::Warning, QMessageBox::Ok, ok, ok},
        {yesNo + question, 2, QMessageBox::Question, QMessageBox::Yes, yes, no},
        {yesNo + question + second, 2, QMessageBox::Question, QMessageBox::No, no, no},
        {1, 2, QMessageBox::NoIcon, QMessageBox::Ok, ok, cancel},
        {3 + 512, 3, QMessageBox::NoIcon, QMessageBox::Cancel, cancel, cancel},
    };
    open();
    for (const auto& row : rows) {
        answers.next([&row, this](QWidget& dialog) {
            auto& box = dynamic_cast<QMessageBox&>(dialog);
            EXPECT_EQ(box.buttons().size(), row.buttons);
            EXPECT_EQ(box.icon(), row.icon);
            EXPECT_EQ(box.standardButton(box.defaultButton()), row.defaultButton);
            EXPECT_EQ(box.parentWidget(), &window);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(services.messageBox("Text", row.code, "Title"), row.byEscape) << row.code;
        answers.next([](QWidget& dialog) {
            QTest::mouseClick(dynamic_cast<QMessageBox&>(dialog).defaultButton(), Qt::LeftButton);
        });
        EXPECT_EQ(services.messageBox("Text", row.code, "Title"), row.byEnter) << row.code;
    }
    answers.nextButton("Yes");
    EXPECT_EQ(services.messageBox("Text", yesNo + second, "Title"), yes);
}

TEST_F(OnQtServices, MessagesAreLinesOfPlainText) {
    answers.next([](QWidget& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        EXPECT_EQ(box.text(), "<b>Bad</b>\nData Entry");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Data Entry");
        box.accept();
    });
    services.messageBox("<b>Bad</b>\rData Entry", 0, "Data Entry");
}

TEST_F(OnQtServices, AMessageDoesNotLeaveTheField) {
    open();
    enter(*name, "abc");
    answers.nextButton("OK");
    services.messageBox("Text", 0, "Title");
    activate();
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_EQ(QApplication::focusWidget(), native(*name));
}

TEST_F(OnQtServices, AMessageAskedWhileAFieldIsLeftStandsBetweenLeaveAndEnter) {
    open();
    enter(*name, "abc");
    handler.lostFocus = [this](Control&) {
        services.messageBox("Really?", message_box::yesNo, "Title");
        handler.note("answered");
    };
    answers.nextButton("Yes");
    press(Qt::Key_Tab);
    EXPECT_EQ(handler.take(), (Lines{"down txtName 9", "lost txtName", "answered", "got txtPrice",
                                     "up txtPrice 9"}));
    activate();
    EXPECT_EQ(QApplication::focusWidget(), native(*price));
}

TEST_F(OnQtServices, APressThatAsksIsGivenUp) {
    open();
    enter(*name, "abc");
    handler.lostFocus = [this](Control& control) {
        if (&control == name)
            services.messageBox("Not a date", message_box::exclamationIcon, "Title");
    };
    answers.nextButton("OK");
    QTest::mouseClick(native(*ok), Qt::LeftButton);
    EXPECT_EQ(handler.take(), (Lines{"mouse cmdOK 1", "lost txtName", "got cmdOK", "ended cmdOK"}));
}

TEST_F(OnQtServices, TheClipboardIsTheDesktops) {
    services.setClipboardText("caf\xC3\xA9");
    EXPECT_EQ(QApplication::clipboard()->text(), QString::fromUtf8("caf\xC3\xA9"));
    EXPECT_TRUE(services.clipboardHasText());
    EXPECT_EQ(services.clipboardText(), "caf\xC3\xA9");
    services.clearClipboard();
    EXPECT_FALSE(services.clipboardHasText());
}

TEST_F(OnQtServices, TodayHasNoTimeOfDay) {
    const QDate day = QDate::currentDate();
    const auto today = civil(services.today());
    EXPECT_EQ(services.today().serial, std::floor(services.today().serial));
    EXPECT_LE(day.daysTo(QDate(today.year, today.month, today.day)), 1); // midnight may pass
}

TEST_F(OnQtServices, MeasuresAreTwips) {
    const auto* screen = window.screen();
    EXPECT_EQ(services.screenWidth(), screen->geometry().width() * 15.0);
    const double once = services.textWidth("Revenue");
    EXPECT_NEAR(once, native(*label)->fontMetrics().horizontalAdvance("Revenue") * 15.0, 15);
    EXPECT_NEAR(services.textHeight(), 195, 30);
    view->setDotsPerInch(192);
    EXPECT_NEAR(services.textWidth("Revenue"), once, 45) << "the same at every scale";
    EXPECT_EQ(services.screenWidth(), screen->geometry().width() * 7.5);
}

TEST_F(OnQtServices, AColourIsChosenOrNot) {
    answers.next([](QWidget& dialog) {
        auto& colors_ = dynamic_cast<QColorDialog&>(dialog);
        EXPECT_EQ(colors_.currentColor(), QColor(0xC0, 0xFF, 0xFF));
        colors_.setCurrentColor(QColor(1, 2, 3));
        DialogAnswers::clickButton(dialog, "OK");
    });
    EXPECT_EQ(services.chooseColor(colors::paleCyan), colorOf(1, 2, 3));
    answers.nextButton("Cancel");
    EXPECT_EQ(services.chooseColor(colors::paleCyan), std::nullopt);
}

TEST_F(OnQtServices, ADayIsChosenOrNot) {
    const auto start = *makeDate(2024, 2, 29);
    const auto next = *makeDate(2024, 3, 1);
    const auto move = [](QWidget& dialog) {
        auto* calendar = dialog.findChild<QCalendarWidget*>();
        EXPECT_EQ(calendar->selectedDate(), QDate(2024, 2, 29));
        calendar->setSelectedDate(QDate(2024, 3, 1));
        return calendar;
    };
    answers.next([&](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Pick");
        move(dialog);
        DialogAnswers::clickButton(dialog, "OK");
    });
    EXPECT_EQ(pickDate(services, start), next);
    answers.next([&](QWidget& dialog) {
        move(dialog);
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    EXPECT_EQ(pickDate(services, start), std::nullopt);
    answers.next([&](QWidget& dialog) {
        auto* days = move(dialog)->findChild<QWidget*>("qt_calendar_calendarview");
        ASSERT_NE(days, nullptr);
        QTest::keyClick(days, Qt::Key_Return);
    });
    EXPECT_EQ(pickDate(services, start), next);
    answers.nextKey(Qt::Key_Escape);
    EXPECT_EQ(pickDate(services, start), std::nullopt);
    answers.next([](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QCalendarWidget*>()->selectedDate(), QDate::currentDate());
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    EXPECT_EQ(pickDate(services, Date{}), std::nullopt);
}

TEST_F(OnQtServices, ThePartsOfTheCalendarCarryTheirNames) {
    answers.next([&](QWidget& dialog) {
        const auto* days = dialog.findChild<QCalendarWidget*>("Calendar1");
        const auto* confirm = dialog.findChild<QPushButton*>("cmdOK");
        auto* cancel = dialog.findChild<QPushButton*>("cmdCancel");
        ASSERT_TRUE(days != nullptr && confirm != nullptr && cancel != nullptr);
        EXPECT_EQ(days->accessibleName(), "Pick");
        EXPECT_EQ(confirm->accessibleName(), "OK");
        EXPECT_EQ(cancel->accessibleName(), "Cancel");
        cancel->click();
    });
    EXPECT_EQ(pickDate(services, *makeDate(2024, 2, 29)), std::nullopt);
}

TEST_F(OnQtServices, TheButtonsOfTheCalendarSayWhatItsFormDoes) {
    frmCalendar calendar("Pick", nullptr, {"&Gut", "&Abbruch"});
    answers.next([&](QWidget& dialog) {
        const auto* confirm = dialog.findChild<QPushButton*>("cmdOK");
        auto* cancel = dialog.findChild<QPushButton*>("cmdCancel");
        ASSERT_TRUE(confirm != nullptr && cancel != nullptr);
        EXPECT_EQ(confirm->text(), "&Gut");
        EXPECT_EQ(confirm->accessibleName(), "Gut");
        EXPECT_EQ(cancel->text(), "&Abbruch");
        cancel->click();
    });
    calendar.Show(services);
}

TEST_F(OnQtServices, TheCalendarLeavesItsFieldInSight) {
    open();
    frmCalendar calendar("Pick", name);
    const QRect field(native(*name)->mapToGlobal(QPoint()), native(*name)->size());
    answers.next([&](QWidget& dialog) {
        EXPECT_FALSE(QRect(dialog.pos(), dialog.size()).intersects(field));
        EXPECT_TRUE(dialog.screen()->geometry().contains(dialog.geometry()));
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    calendar.Show(services);
}

TEST_F(OnQtServices, EveryDayOfTheCalendarCanBeConfirmed) {
    answers.next([](QWidget& dialog) {
        const auto* days = dialog.findChild<QCalendarWidget*>();
        EXPECT_EQ(days->minimumDate(), QDate(1900, 1, 2));
        EXPECT_EQ(days->maximumDate(), QDate(2999, 11, 30));
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    EXPECT_EQ(pickDate(services, *makeDate(2024, 2, 29)), std::nullopt);
}

TEST_F(OnQtServices, UndoIsThatOfTheField) {
    open();
    enter(*name, "old");
    EXPECT_FALSE(services.canUndo(*name));
    type("x");
    EXPECT_TRUE(services.canUndo(*name));
    services.undo(*name);
    EXPECT_EQ(name->text(), "old");
    type("y");
    name->setLocked(true);
    EXPECT_FALSE(services.canUndo(*name));
    services.undo(*name);
    EXPECT_EQ(name->text(), line(*name)->text().toStdString());
}

TEST_F(OnQtServices, TheMenuShowsTheVisibleEntries) {
    std::vector<MenuItem*> items;
    for (const char* caption : {"&Undo", "-", "Cu&t", "Hidden", "Help"}) {
        auto& item = form.add<MenuItem>("mnuItem", static_cast<int>(items.size()));
        item.setCaption(caption);
        items.push_back(&item);
    }
    items[2]->setEnabled(false);
    items[3]->setVisible(false);
    open();
    enter(*name, "abc");
    answers.next([this](QWidget& dialog) {
        const auto& menu = dynamic_cast<QMenu&>(dialog);
        EXPECT_EQ(menu.actions().size(), 4);
        EXPECT_TRUE(menu.actions()[1]->isSeparator());
        EXPECT_FALSE(menu.actions()[2]->isEnabled());
        EXPECT_EQ(menu.pos(), view->mapToGlobal(QPoint(100, 50)));
        DialogAnswers::clickEntry(dialog, "Help");
    });
    EXPECT_EQ(services.popUpMenu(items, 1500, 750), 4);
    answers.nextKey(Qt::Key_Escape);
    EXPECT_EQ(services.popUpMenu(items, 1500, 750), -1);
    EXPECT_EQ(handler.take(), Lines{}) << "the field is not left";
}

TEST_F(OnQtServices, TheMenuOfARightPressOpensUnderThePointer) {
    auto& item = form.add<MenuItem>("mnuItem", 0);
    item.setCaption("Help");
    int chosen = -1;
    handler.mouseDown = [&](Control&, MouseButton button) {
        if (button == MouseButton::right)
            chosen = services.popUpMenu({&item}, 0, 0);
    };
    open();
    const QPoint place(30, 9);
    answers.next([&](QWidget& dialog) {
        EXPECT_EQ(dialog.pos(), native(*name)->mapToGlobal(place));
        DialogAnswers::clickEntry(dialog, "Help");
    });
    QTest::mouseClick(native(*name), Qt::RightButton, {}, place);
    EXPECT_EQ(chosen, 0);
    EXPECT_EQ(handler.take(), (Lines{"got txtName", "mouse txtName 2", "ended txtName"}));
}

TEST_F(OnQtServices, ObjectsComeFromTheFactory) {
    EXPECT_EQ(services.createObject("Nobody.Knows"), nullptr);
    services.factory().add("Some.Object", [] { return std::make_shared<Object>(); });
    EXPECT_NE(services.createObject("Some.Object"), nullptr);
}

TEST_F(OnQtServices, TitleAndModeAreTheContainers) {
    EXPECT_EQ(services.applicationTitle(), "Data Entry");
    services.setTitle("Mine");
    EXPECT_EQ(services.applicationTitle(), "Mine");
    EXPECT_TRUE(services.ambientUserMode());
    services.setUserMode(false);
    EXPECT_FALSE(services.ambientUserMode());
}

} // namespace
} // namespace vkr
