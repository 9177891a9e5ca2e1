// SPDX-License-Identifier: MIT
#include "tests/qt/support/form_scene.hpp"

#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>

namespace vkr {
namespace {

class FormViewFocus : public FormScene {
  protected:
    [[nodiscard]] QWidget* focused() const { return QApplication::focusWidget(); }
};

TEST_F(FormViewFocus, TabFromTheHostEntersAtTheFirstControl) {
    open();
    press(Qt::Key_Tab);
    EXPECT_EQ(handler.take(), (Lines{"got txtName"}));
    EXPECT_EQ(focused(), native(*name));
}

TEST_F(FormViewFocus, BacktabFromTheHostEntersAtTheLastControl) {
    open();
    after->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.activeControl(), strip);
    EXPECT_EQ(focused(), native(*strip));
}

TEST_F(FormViewFocus, FollowsToAControlThatIsEnabledInTheSameUpdate) {
    open();
    name->setFocus();
    price->setEnabled(false);
    {
        const Form::Update update(form);
        price->setEnabled(true);
        price->setFocus();
    }
    EXPECT_EQ(form.activeControl(), price);
    EXPECT_EQ(focused(), native(*price));
    {
        const Form::Update update(form);
        name->setVisible(false);
        price->setEnabled(false);
        name->setVisible(true);
        name->setFocus();
    }
    EXPECT_EQ(focused(), native(*name));
}

TEST_F(FormViewFocus, TabFollowsTheTabOrderOfTheForm) {
    ok->setTabIndex(0);
    open();
    press(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), ok);
    press(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), name);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.activeControl(), ok);
}

TEST_F(FormViewFocus, TabAtTheEndGoesOnToTheHost) {
    open();
    strip->setFocus();
    handler.log.clear();
    press(Qt::Key_Tab);
    EXPECT_EQ(focused(), after);
    EXPECT_FALSE(form.hasFocus());
    EXPECT_EQ(handler.take(), (Lines{"down tbsPages 9", "lost tbsPages", "left"}));
    name->setFocus();
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), before);
}

TEST_F(FormViewFocus, TabAtTheEndStartsAgainWhereTheHostHasNothing) {
    before->setEnabled(false);
    after->hide();
    open();
    strip->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), name);
    EXPECT_EQ(focused(), native(*name));
}

TEST_F(FormViewFocus, LeaveComesBeforeEnter) {
    open();
    enter(*name);
    price->setFocus();
    EXPECT_EQ(handler.take(), (Lines{"lost txtName", "got txtPrice"}));
    EXPECT_EQ(focused(), native(*price));
}

TEST_F(FormViewFocus, AClickIntoTheHostLeavesTheForm) {
    open();
    enter(*name);
    QTest::mouseClick(before, Qt::LeftButton);
    before->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(handler.take(), (Lines{"lost txtName", "left"}));
    EXPECT_FALSE(form.hasFocus());
    EXPECT_EQ(focused(), before);
}

TEST_F(FormViewFocus, ALeaveHandlerMayKeepTheFocus) {
    open();
    enter(*name);
    handler.lostFocus = [this](Control& control) {
        if (&control == name)
            name->setFocus();
    };
    price->setFocus();
    EXPECT_EQ(form.activeControl(), name);
    EXPECT_EQ(focused(), native(*name));
    native(*price)->setFocus();
    EXPECT_EQ(focused(), native(*name));
    before->setFocus();
    EXPECT_EQ(focused(), native(*name)) << "also when the focus was on its way to the host";
}

TEST_F(FormViewFocus, AnotherWindowIsNoLeaving) {
    open();
    enter(*name, "abc");
    QLineEdit other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    other.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return focused() == &other; }));
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_TRUE(form.hasFocus());
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_EQ(focused(), native(*name));
}

TEST_F(FormViewFocus, AFieldInAWindowOfItsOwnIsNoLeaving) {
    open();
    enter(*name, "abc");
    QDialog dialog(&window);
    QLineEdit inside(&dialog);
    dialog.show();
    dialog.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    inside.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([&] { return focused() == &inside; }));
    EXPECT_EQ(handler.take(), Lines{});
}

TEST_F(FormViewFocus, AMenuIsNoLeaving) {
    open();
    enter(*name, "abc");
    QMenu menu(&window);
    menu.addAction("entry");
    menu.popup(window.mapToGlobal(QPoint(5, 5)));
    QApplication::processEvents();
    menu.close();
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_EQ(focused(), native(*name));
}

class FormViewBelowMenus : public FormViewFocus {
  protected:
    FormViewBelowMenus() {
        menus.addMenu("&File")->addAction("Save");
        window.layout()->setMenuBar(&menus);
        open();
        enter(*name);
        menus.setFocus(Qt::MenuBarFocusReason);
    }
    ~FormViewBelowMenus() override { window.layout()->setMenuBar(nullptr); }

    QMenuBar menus{&window};
};

TEST_F(FormViewBelowMenus, TheMenuBarOfTheHostIsNoLeavingButWhatFollowsMayBe) {
    EXPECT_EQ(handler.take(), Lines{});
    before->setFocus(Qt::MenuBarFocusReason);
    EXPECT_EQ(handler.take(), (Lines{"lost txtName", "left"}));
}

TEST_F(FormViewBelowMenus, AClickOrAReturnToTheWindowTakesTheKeysBackFromTheMenuBar) {
    QTest::mouseClick(native(*name), Qt::LeftButton);
    EXPECT_EQ(focused(), native(*name));

    menus.setFocus(Qt::MenuBarFocusReason);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    activate();
    EXPECT_EQ(focused(), native(*name));
    EXPECT_EQ(form.activeControl(), name);
}

TEST_F(FormViewFocus, AHostThatTakesTheKeysWhileAnotherWindowIsActiveKeepsThem) {
    open();
    enter(*name);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    after->setFocus();
    activate();
    EXPECT_EQ(focused(), after);
    EXPECT_FALSE(form.hasFocus());
}

TEST_F(FormViewFocus, NativeFocusGivenToAWidgetMovesTheFocusOfTheForm) {
    open();
    native(*price)->setFocus(); // as screen readers do
    EXPECT_EQ(handler.take(), (Lines{"got txtPrice"}));
    native(*name)->setFocus();
    EXPECT_EQ(handler.take(), (Lines{"lost txtPrice", "got txtName"}));
}

TEST_F(FormViewFocus, DisablingTheControlDoesNotLetQtMoveTheFocus) {
    open();
    enter(*name);
    name->setEnabled(false);
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_EQ(form.activeControl(), name);
    EXPECT_EQ(focused(), view);
    press(Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), price);
    EXPECT_EQ(focused(), native(*price));
}

TEST_F(FormViewFocus, ParkingAPageDoesNotLetQtMoveTheFocus) {
    auto& page = form.add<Frame>("fraPage", 10);
    page.move(60, 60);
    page.resize(2000, 2000);
    auto& onPage = form.add<TextBox>("txtOnPage", Control::noIndex, &page);
    onPage.resize(600, 285);
    open();
    onPage.setFocus();
    handler.log.clear();
    page.move(Control::parkedLeft, 60);
    page.setEnabled(false);
    EXPECT_EQ(handler.take(), Lines{});
    EXPECT_FALSE(native(page)->isVisible());
    price->setFocus();
    EXPECT_EQ(handler.take(), (Lines{"lost txtOnPage", "got txtPrice"}));
    EXPECT_EQ(focused(), native(*price));
}

TEST_F(FormViewFocus, HidingTheWholeFormLeavesNoFocusInIt) {
    open();
    enter(*name);
    view->hide();
    EXPECT_NE(focused(), native(*name));
    EXPECT_NE(focused(), view);
}

TEST_F(FormViewFocus, AProgramMovesTheFocusWhileTheWindowIsInactive) {
    open();
    enter(*name);
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    price->setFocus();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(focused(), native(*price));
    EXPECT_EQ(handler.take(), (Lines{"lost txtName", "got txtPrice"}));
}

TEST_F(FormViewFocus, TheSelectionOfTheEnterHandlerIsTheOneOnScreen) {
    open();
    name->setText("abc");
    price->setText("123");
    name->setFocus();
    EXPECT_EQ(line(*name)->selectedText(), "abc");
    price->setFocus();
    EXPECT_EQ(line(*price)->selectedText(), "123");
    name->setFocus();
    EXPECT_EQ(line(*name)->selectedText(), "abc") << "also the second time";
    handler.gotFocus = [](Control& control) { static_cast<TextField&>(control).select(1, 1); };
    press(Qt::Key_Tab);
    EXPECT_EQ(line(*price)->selectedText(), "2") << "whatever Qt selects on Tab";
}

TEST_F(FormViewFocus, ControlsComeAndGoWhileTheFormIsOnShow) {
    open();
    auto& added = form.add<TextBox>("txtAdded");
    added.move(3000, 1200);
    added.resize(1500, 285);
    added.setText("here");
    ASSERT_NE(line(added), nullptr);
    EXPECT_TRUE(line(added)->isVisible());
    EXPECT_EQ(line(added)->text(), "here");
    added.setFocus();
    EXPECT_EQ(focused(), native(added));
    const QPointer<QWidget> widget = native(added);
    form.remove(added);
    EXPECT_FALSE(widget->isVisible());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(widget.isNull());
    name->setFocus();
    EXPECT_EQ(focused(), native(*name));
}

TEST_F(FormViewFocus, AControlMayRemoveItselfWhileItIsClicked) {
    open();
    handler.clicked = [this](Control& control) {
        if (&control == ok)
            form.remove(control);
    };
    QTest::mouseClick(native(*ok), Qt::LeftButton);
    EXPECT_EQ(form.find("cmdOK"), nullptr);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTest::mouseClick(native(*check), Qt::LeftButton);
    EXPECT_TRUE(check->value());
}

TEST_F(FormViewFocus, ATextBoxMayBecomeOneWithSeveralLines) {
    open();
    enter(*name, "abc");
    name->setMultiLine(true);
    auto* edit = native<QPlainTextEdit>(*name);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->toPlainText(), "abc");
    EXPECT_EQ(focused(), edit);
}

} // namespace
} // namespace vkr
