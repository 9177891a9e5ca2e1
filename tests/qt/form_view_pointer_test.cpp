// SPDX-License-Identifier: MIT
#include "tests/qt/support/form_scene.hpp"
#include "tests/qt/support/wheel.hpp"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>

namespace vkr {
namespace {

class FormViewPointer : public FormScene {
  protected:
    // A press at one place, moves, and the release at another.
    static void drag(QWidget* widget, QPoint from, QPoint to) {
        QTest::mousePress(widget, Qt::LeftButton, {}, from);
        for (const QPoint place : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, place, widget->mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, {});
            QApplication::sendEvent(widget, &move);
        }
        QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
    }
};

TEST_F(FormViewPointer, AButtonHearsOfThePressBeforeTheFieldIsLeft) {
    open();
    enter(*name);
    QTest::mouseClick(native(*ok), Qt::LeftButton);
    EXPECT_EQ(handler.take(),
              (Lines{"mouse cmdOK 1", "lost txtName", "got cmdOK", "click cmdOK", "ended cmdOK"}));
}

TEST_F(FormViewPointer, AFieldHearsOfThePressWhenItHasTheFocus) {
    open();
    enter(*name);
    QTest::mouseClick(native(*price), Qt::LeftButton);
    EXPECT_EQ(handler.take(), (Lines{"lost txtName", "got txtPrice", "mouse txtPrice 1",
                                     "click txtPrice", "ended txtPrice"}));
    EXPECT_EQ(QApplication::focusWidget(), native(*price));
}

TEST_F(FormViewPointer, AFieldThatIsTakenAwayByThePressOnItHearsNoMore) {
    for (const auto mouseButton : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        auto& gone = form.add<TextBox>("txtGone");
        gone.move(name->left(), 4000);
        open();
        enter(*name);
        QWidget* pressed = native(gone);
        handler.lostFocus = [&](Control&) { form.remove(gone); };
        QTest::mouseClick(pressed, mouseButton);
        handler.lostFocus = nullptr;
        EXPECT_EQ(handler.take(), (Lines{"lost txtName", "got txtName"}));
        EXPECT_EQ(form.activeControl(), name);
    }
}

TEST_F(FormViewPointer, APressThatEndsElsewhereIsNoClick) {
    open();
    auto* button = native<QPushButton>(*ok);
    QTest::mousePress(button, Qt::LeftButton);
    EXPECT_TRUE(button->isDown());
    QMouseEvent move(QEvent::MouseMove, QPoint(-20, 5), button->mapToGlobal(QPoint(-20, 5)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(button, &move);
    EXPECT_FALSE(button->isDown());
    QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-20, 5));
    EXPECT_EQ(handler.take(), (Lines{"mouse cmdOK 1", "got cmdOK", "ended cmdOK"}));
}

TEST_F(FormViewPointer, APressThatADialogInterruptsIsGivenUp) {
    open();
    handler.mouseDown = [this](Control&, MouseButton) { view->interrupted(); };
    QTest::mousePress(native(*ok), Qt::LeftButton);
    EXPECT_EQ(handler.take(), (Lines{"mouse cmdOK 1", "got cmdOK", "ended cmdOK"}));
    EXPECT_FALSE(native<QPushButton>(*ok)->isDown());
    QTest::mouseRelease(native(*ok), Qt::LeftButton);
    EXPECT_EQ(handler.take(), Lines{});
}

TEST_F(FormViewPointer, TheFirstClickSelectsAllTheSecondPlacesTheCaret) {
    open();
    name->setText("iiiiiiiiii");
    auto* edit = line(*name);
    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(edit->width() / 2, 8));
    EXPECT_EQ(edit->selectedText(), "iiiiiiiiii");
    EXPECT_EQ(name->selLength(), 10);
    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(edit->width() - 3, 8));
    EXPECT_EQ(edit->selectedText(), "");
    EXPECT_EQ(name->selStart(), 10);
    EXPECT_EQ(name->selLength(), 0);
}

TEST_F(FormViewPointer, DraggingSelectsAlsoWithTheFirstPress) {
    open();
    for (TextField* field : {static_cast<TextField*>(name), static_cast<TextField*>(price)}) {
        field->setText("iiiiiiiiiiiiiiiiii");
        auto* edit = line(*field);
        if (field == price)
            field->setFocus();
        drag(edit, QPoint(edit->width() - 3, 8), QPoint(3, 8));
        EXPECT_EQ(field->selText(), "iiiiiiiiiiiiiiiiii") << field->id();
        drag(edit, QPoint(3, 8), QPoint(30, 8));
        EXPECT_EQ(field->selStart(), 0);
        EXPECT_GT(field->selLength(), 3);
        EXPECT_LT(field->selLength(), 18);
    }
}

TEST_F(FormViewPointer, ATremblingFirstClickStillSelectsAll) {
    open();
    name->setText("iiiiiiiiii");
    drag(line(*name), QPoint(20, 8), QPoint(22, 8));
    EXPECT_EQ(name->selText(), "iiiiiiiiii");
}

TEST_F(FormViewPointer, ARightPressKeepsTheSelectionAndShowsNoMenuOfTheWidget) {
    open();
    enter(*name, "abc");
    name->select(1, 1);
    QTest::mouseClick(native(*name), Qt::RightButton);
    EXPECT_EQ(handler.take(), (Lines{"mouse txtName 2", "ended txtName"}));
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QApplication::sendEvent(native(*name), &menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(name->selText(), "b");
}

TEST_F(FormViewPointer, ADoubleClickFollowsAClick) {
    open();
    enter(*name, "one two");
    auto* edit = line(*name);
    QTest::mouseClick(edit, Qt::LeftButton, {}, QPoint(5, 8));
    QTest::mouseDClick(edit, Qt::LeftButton, {}, QPoint(5, 8));
    const auto lines = handler.take();
    EXPECT_EQ(lines.back(), "double txtName");
    EXPECT_EQ(name->selText(), "one");
}

TEST_F(FormViewPointer, ButtonsActOnEveryPress) {
    open();
    QTest::mouseClick(native(*check), Qt::LeftButton);
    QMouseEvent second(QEvent::MouseButtonDblClick, QPoint(5, 5),
                       native(*check)->mapToGlobal(QPoint(5, 5)), Qt::LeftButton, Qt::LeftButton,
                       {});
    QApplication::sendEvent(native(*check), &second);
    QTest::mouseRelease(native(*check), Qt::LeftButton);
    EXPECT_FALSE(check->value());
    EXPECT_EQ(std::count(handler.log.begin(), handler.log.end(), "click chkLock"), 2);
}

TEST_F(FormViewPointer, OptionsAndChecksFollowTheModelAlone) {
    open();
    QTest::mouseClick(native(*options[1]), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_TRUE(native<QRadioButton>(*options[1])->isChecked());
    EXPECT_FALSE(native<QRadioButton>(*options[0])->isChecked());
    handler.clicked = [this](Control&) { check->setValue(false); };
    QTest::mouseClick(native(*check), Qt::LeftButton, {}, QPoint(8, 8));
    EXPECT_FALSE(native<QCheckBox>(*check)->isChecked());
}

TEST_F(FormViewPointer, AScreenReaderPressesAButton) {
    open();
    native<QRadioButton>(*options[1])->click();
    EXPECT_TRUE(options[1]->value());
    EXPECT_TRUE(native<QRadioButton>(*options[1])->isChecked());
    EXPECT_FALSE(native<QRadioButton>(*options[0])->isChecked());
    native<QCheckBox>(*check)->click();
    EXPECT_TRUE(check->value());
    EXPECT_TRUE(native<QCheckBox>(*check)->isChecked());
    native<QPushButton>(*ok)->click();
    EXPECT_EQ(handler.log[handler.log.size() - 2], "click cmdOK");
}

TEST_F(FormViewPointer, LabelsAndTheSurfaceAreClicked) {
    open();
    QTest::mouseClick(native(*label), Qt::LeftButton);
    EXPECT_EQ(handler.take(), (Lines{"mouse lblName 1", "click lblName", "ended lblName"}));
    QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(view->width() - 2, view->height() - 2));
    EXPECT_EQ(handler.take(), (Lines{"surface"}));
    EXPECT_EQ(QApplication::focusWidget(), before) << "neither takes the focus";
}

TEST_F(FormViewPointer, ADisabledControlIsNotClickedNorIsWhatLiesBehind) {
    auto& page = form.add<Frame>("fraPage");
    page.move(3000, 1000);
    page.resize(2500, 2000);
    auto& inside = form.add<CommandButton>("cmdInside", Control::noIndex, &page);
    inside.resize(1000, 400);
    inside.setEnabled(false);
    open();
    QTest::mouseClick(native(inside), Qt::LeftButton);
    EXPECT_EQ(handler.take(), Lines{});
    QTest::mouseClick(native(page), Qt::LeftButton, {}, QPoint(100, 100));
    EXPECT_EQ(handler.take(), (Lines{"mouse fraPage 1", "click fraPage", "ended fraPage"}));
}

TEST_F(FormViewPointer, TabsAreSelectedByTheForm) {
    open();
    auto* tabs = native<QTabBar>(*strip);
    handler.tabSelected = [this](TabStrip&) { name->setFocus(); };
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    EXPECT_EQ(handler.take(), (Lines{"got tbsPages", "mouse tbsPages 1", "tab 2", "lost tbsPages",
                                     "got txtName", "ended tbsPages"}));
    EXPECT_EQ(tabs->currentIndex(), 1);
    EXPECT_EQ(QApplication::focusWidget(), native(*name));
    tabs->setCurrentIndex(0);
    EXPECT_EQ(strip->selected(), 1);
}

TEST_F(FormViewPointer, TheScrollBarScrollsTheForm) {
    open();
    auto* native_ = native<QScrollBar>(*bar);
    native_->setValue(4);
    EXPECT_EQ(handler.take(), (Lines{"scroll hscrYears 4"}));
    EXPECT_EQ(bar->value(), 4);
    bar->setValue(7);
    EXPECT_EQ(native_->value(), 7);
    bar->setRange(0, 3, 1, 2);
    EXPECT_EQ(native_->value(), 3);
    EXPECT_EQ(native_->maximum(), 3);
}

TEST_F(FormViewPointer, TheArrowsSpin) {
    open();
    const auto arrows = native(*spinner)->findChildren<QAbstractButton*>();
    ASSERT_EQ(arrows.size(), 2);
    QTest::mouseClick(arrows[0], Qt::LeftButton);
    QTest::mouseClick(arrows[1], Qt::LeftButton);
    EXPECT_EQ(handler.take(), (Lines{"spin spnYear 1", "spin spnYear -1"}));
}

TEST_F(FormViewPointer, AnEntryIsChosenWithTheMouse) {
    open();
    auto* box = native<QComboBox>(*exchange);
    QTest::mousePress(box, Qt::LeftButton, {}, QPoint(box->width() - 8, box->height() / 2));
    ASSERT_TRUE(box->view()->isVisible());
    EXPECT_EQ(form.activeControl(), exchange);
    handler.log.clear();
    auto* entries = box->view();
    const auto place = entries->visualRect(entries->model()->index(2, 0)).center();
    QTest::mouseMove(entries->viewport(), place);
    QTest::mouseClick(entries->viewport(), Qt::LeftButton, {}, place);
    if (exchange->text().empty()) // the list ignores the click that may have opened it
        QTest::keyClick(entries, Qt::Key_Return);
    EXPECT_EQ(exchange->text(), "NYSE");
    EXPECT_EQ(exchange->listIndex(), 2);
    EXPECT_EQ(line(*exchange)->text(), "NYSE");
    EXPECT_EQ(std::count(handler.log.begin(), handler.log.end(), "choice cmbExchange NYSE"), 1);
    EXPECT_EQ(std::count(handler.log.begin(), handler.log.end(), "change cmbExchange NYSE"), 0);
}

TEST_F(FormViewPointer, AListOpensAtItsChoice) {
    exchange->setText("NASDAQ");
    open();
    exchange->setFocus();
    auto* entries = native<QComboBox>(*exchange)->view();
    const auto afterOpening = [this, entries](std::initializer_list<Qt::Key> keys) {
        press(Qt::Key_Down, Qt::AltModifier);
        EXPECT_TRUE(entries->isVisible());
        for (const Qt::Key key : keys)
            QTest::keyClick(entries, key);
        return exchange->text();
    };
    EXPECT_EQ(afterOpening({Qt::Key_Return}), "NASDAQ") << "the choice is confirmed";
    exchange->setText("AMEX");
    EXPECT_EQ(afterOpening({Qt::Key_Down, Qt::Key_Return}), "NASDAQ")
        << "not one that stood before";
    exchange->setText("OTC");
    EXPECT_EQ(afterOpening({Qt::Key_Return}), "OTC") << "none of the entries";
}

TEST_F(FormViewPointer, AnOpenListIsAsWideAsItsEntries) {
    exchange->setList({"OTC", "The exchange with the longest of all names in the list"});
    open();
    exchange->setFocus();
    auto* entries = native<QComboBox>(*exchange)->view();
    press(Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(entries->isVisible());
    EXPECT_GE(entries->viewport()->width(), entries->sizeHintForColumn(0));
}

TEST_F(FormViewPointer, AnEntryIsChosenAgainAfterAnotherTextWasTyped) {
    open();
    auto* box = native<QComboBox>(*exchange);
    const auto choose = [box] {
        box->showPopup();
        auto* entries = box->view();
        QTest::keyClick(entries, Qt::Key_Home);
        QTest::keyClick(entries, Qt::Key_Return);
    };
    choose();
    EXPECT_EQ(exchange->text(), "AMEX");
    enter(*exchange, "");
    type("other");
    EXPECT_EQ(exchange->listIndex(), -1);
    choose();
    EXPECT_EQ(exchange->text(), "AMEX");
    EXPECT_EQ(exchange->listIndex(), 0);
}

TEST_F(FormViewPointer, ListsMayChangeWhileATextStands) {
    open();
    enter(*exchange, "OTC");
    exchange->setList({"OTC", "XETRA"});
    EXPECT_EQ(line(*exchange)->text(), "OTC");
    EXPECT_EQ(native<QComboBox>(*exchange)->count(), 2);
    exchange->clearList();
    EXPECT_EQ(line(*exchange)->text(), "OTC");
    EXPECT_EQ(exchange->text(), "OTC");
}

TEST_F(FormViewPointer, TheWheelChangesNothingWithoutTheFocus) {
    exchange->setText("AMEX");
    open();
    enter(*name, "abc");
    std::vector<int> turns;
    handler.wheelTurned = [&turns](int steps) {
        turns.push_back(steps);
        return true;
    };
    for (QWidget* widget : {native(*exchange), static_cast<QWidget*>(line(*exchange)),
                            native(*options[0]), native(*spinner), native(*bar), native(*price),
                            native(*label), static_cast<QWidget*>(view)})
        turnWheel(*widget, -120);
    EXPECT_EQ(exchange->text(), "AMEX");
    EXPECT_TRUE(options[0]->value());
    EXPECT_EQ(bar->value(), 0);
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_EQ(turns, std::vector<int>(8, 1)) << "each is the form's own turn instead";
}

TEST_F(FormViewPointer, TheWheelChoosesEntriesOfTheListThatHasTheFocus) {
    exchange->setText("AMEX");
    open();
    exchange->setFocus();
    turnWheel(*native(*exchange), -120);
    EXPECT_EQ(exchange->text(), "NASDAQ");
    turnWheel(*native(*exchange), 120);
    turnWheel(*native(*exchange), 120);
    EXPECT_EQ(exchange->text(), "AMEX");
    exchange->setLocked(true);
    turnWheel(*native(*exchange), -120);
    EXPECT_EQ(exchange->text(), "AMEX");
}

TEST_F(FormViewPointer, FineWheelsTurnInFractions) {
    open();
    int sum = 0;
    handler.wheelTurned = [&sum](int steps) {
        sum += steps;
        return true;
    };
    for (int i = 0; i < 5; ++i)
        turnWheel(*native(*label), -48);
    EXPECT_EQ(sum, 2);
    handler.wheelTurned = [](int) { return false; };
    EXPECT_FALSE(turnWheel(*native(*label), -120)) << "the host may scroll instead";
}

TEST_F(FormViewPointer, ADropTakesTheFocusFirst) {
    open();
    enter(*price, "1");
    dropText(*line(*name), "dropped\ttext");
    EXPECT_EQ(name->text(), "dropped text");
    EXPECT_EQ(handler.take(),
              (Lines{"lost txtPrice", "got txtName", "change txtName dropped text"}));
}

} // namespace
} // namespace vkr
