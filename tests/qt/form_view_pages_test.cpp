// SPDX-License-Identifier: MIT
// Native widgets of what frames hold: made when a frame is first on show, drawn when it is again.
#include "desktop/field_view.hpp"
#include "tests/qt/support/form_scene.hpp"

#include <QLabel>
#include <QPlainTextEdit>

namespace vkr {
namespace {

// Two pages, the second one parked, with a group on it.
class FormViewPages : public FormScene {
  protected:
    FormViewPages() {
        for (auto** page : {&first, &second}) {
            *page = &form.add<Frame>("fraPage", page == &first ? 0 : 1);
            (*page)->resize(2900, 2000);
        }
        first->move(3000, 700);
        second->move(Control::parkedLeft, 700);
        inFirst = &form.add<TextBox>("txtFirst", Control::noIndex, first);
        caption = &form.add<Label>("lblSecond", Control::noIndex, second);
        inSecond = &form.add<TextBox>("txtSecond", Control::noIndex, second);
        caption->setBuddy(inSecond);
        caption->setCaption("&Second field");
        group = &form.add<Frame>("fraGroup", Control::noIndex, second);
        inGroup = &form.add<TextBox>("txtGroup", Control::noIndex, group);
        for (auto* field : {inFirst, inSecond, inGroup})
            field->resize(1500, 285);
    }

    void turnTo(Frame& page) {
        for (auto* other : {first, second})
            other->move(other == &page ? 3000 : Control::parkedLeft, 700);
    }
    // Without asking for it, which would make it.
    template <typename Widget = QWidget>
    [[nodiscard]] Widget* made(const Control& control) const {
        return view->findChild<Widget*>(QString::fromStdString(control.id()));
    }

    Frame* first = nullptr;
    Frame* second = nullptr;
    Frame* group = nullptr;
    TextBox* inFirst = nullptr;
    TextBox* inSecond = nullptr;
    TextBox* inGroup = nullptr;
    Label* caption = nullptr;
};

TEST_F(FormViewPages, AreMadeWhenTheyAreFirstShown) {
    group->setVisible(false);
    open();
    EXPECT_NE(made(*inFirst), nullptr);
    EXPECT_NE(made(*second), nullptr) << "empty";
    EXPECT_EQ(made(*inSecond), nullptr);
    turnTo(*second);
    ASSERT_NE(made(*inSecond), nullptr);
    EXPECT_TRUE(made(*inSecond)->isVisible());
    EXPECT_EQ(made(*inGroup), nullptr);
    group->setVisible(true);
    ASSERT_NE(made(*inGroup), nullptr);
    EXPECT_TRUE(made(*inGroup)->isVisible());
}

TEST_F(FormViewPages, AreMadeOfModelsAsTheyAreByThen) {
    open();
    {
        const Form::Update update(form);
        inSecond->setText("Yearly");
        inSecond->setMark({MarkKind::unstored, "Not a figure"});
        inSecond->setToolTip("tip");
        inSecond->setAccessibleName("Second, 2020");
        inSecond->setAlignment(Alignment::right);
        inSecond->setEnabled(false);
        inSecond->setLocked(true);
        turnTo(*second);
    }
    const auto* edit = made<QLineEdit>(*inSecond);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "Yearly");
    EXPECT_EQ(edit->accessibleName(), "Second, 2020");
    EXPECT_EQ(edit->accessibleDescription(), "Not a figure");
    EXPECT_EQ(edit->toolTip(), "Not a figure");
    EXPECT_EQ(edit->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
    EXPECT_FALSE(edit->isEnabled());
    EXPECT_TRUE(edit->isReadOnly());
}

TEST_F(FormViewPages, AreDrawnWhenTheyAreShownAgain) {
    open();
    turnTo(*second);
    turnTo(*first);
    inSecond->setText("Yearly");
    inSecond->setAccessibleName("Second, 2020");
    caption->setCaption("Third field");
    inGroup->setMultiLine(true);
    inGroup->setText("two\nlines");
    const auto* edit = made<QLineEdit>(*inSecond);
    EXPECT_EQ(edit->text(), "");
    turnTo(*second);
    EXPECT_EQ(edit->text(), "Yearly");
    EXPECT_EQ(edit->accessibleName(), "Second, 2020");
    EXPECT_EQ(made<QLabel>(*caption)->text(), "Third field");
    EXPECT_EQ(made<QPlainTextEdit>(*inGroup)->toPlainText(), "two\nlines");
}

TEST_F(FormViewPages, AskingForAWidgetMakesItOrBringsItUpToDate) {
    open();
    EXPECT_EQ(view->madeWidgetOf(*inGroup), nullptr);
    inGroup->setText("before");
    auto* edit = native<QLineEdit>(*inGroup);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->text(), "before");
    EXPECT_EQ(view->madeWidgetOf(*inGroup), edit);
    EXPECT_FALSE(edit->isVisible());
    inGroup->setText("after");
    EXPECT_EQ(native<QLineEdit>(*inGroup)->text(), "after");
    turnTo(*second);
    EXPECT_EQ(made<QLineEdit>(*inGroup), edit);
    EXPECT_TRUE(edit->isVisible());
}

TEST_F(FormViewPages, LabelsKnowTheirFieldsHoweverLateTheyAreMade) {
    auto& far = place<Label>("lblFar", 10);
    far.setBuddy(inGroup);
    group->setVisible(false);
    open();
    EXPECT_EQ(made<QLabel>(far)->buddy(), nullptr);
    turnTo(*second);
    EXPECT_EQ(made<QLabel>(*caption)->buddy(), made(*inSecond));
    group->setVisible(true);
    EXPECT_EQ(made<QLabel>(far)->buddy(), made(*inGroup));
}

TEST_F(FormViewPages, TakeTheFocusAsSoonAsTheyAreShown) {
    open();
    {
        const Form::Update update(form);
        turnTo(*second);
        inSecond->setFocus();
    }
    EXPECT_EQ(QApplication::focusWidget(), made(*inSecond));
    type("7");
    EXPECT_EQ(inSecond->text(), "7");
}

TEST_F(FormViewPages, TheirMnemonicsLeadIntoThem) {
    form.remove(*strip);
    open();
    turnTo(*second);
    name->setFocus();
    press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), made(*inSecond));
}

TEST_F(FormViewPages, AChangeOnTheUsersBehalfIsOneStepOfTheUndo) {
    open();
    turnTo(*second);
    inSecond->setFocus();
    type("7");
    turnTo(*first);
    inSecond->editText("8", 1);
    turnTo(*second);
    view->fieldView(*inSecond)->undo();
    EXPECT_EQ(inSecond->text(), "7");
    turnTo(*first);
    inSecond->editText("8", 1);
    inSecond->setText("9"); // by the program
    turnTo(*second);
    EXPECT_FALSE(view->fieldView(*inSecond)->canUndo());
    EXPECT_EQ(made<QLineEdit>(*inSecond)->text(), "9");
}

TEST_F(FormViewPages, WhatWasBroughtToTheFrontUnseenIsInFront) {
    auto& cover = form.add<Label>("lblCover", Control::noIndex, second);
    cover.resize(1500, 285);
    open();
    inSecond->bringToFront();
    turnTo(*second);
    auto* page = made(*second);
    EXPECT_EQ(page->childAt(3, 3), made(*inSecond));
    turnTo(*first);
    inSecond->bringToFront();
    cover.bringToFront();
    turnTo(*second);
    EXPECT_EQ(page->childAt(3, 3), made(cover));
    turnTo(*first);
    cover.bringToFront();
    inSecond->bringToFront();
    turnTo(*second);
    EXPECT_EQ(page->childAt(3, 3), made(*inSecond));
}

TEST_F(FormViewPages, ControlsThatComeAndGoUnseenAreThereOrGone) {
    open();
    turnTo(*second);
    turnTo(*first);
    auto& late = form.add<TextBox>("txtLate", Control::noIndex, group);
    form.remove(*inGroup);
    EXPECT_EQ(made(late), nullptr);
    {
        const Form::Update update(form);
        turnTo(*second);
        auto& later = form.add<Frame>("fraLater", Control::noIndex, second);
        form.add<TextBox>("txtLater", Control::noIndex, &later).setText("there");
    }
    EXPECT_NE(made(late), nullptr);
    EXPECT_EQ(view->findChild<QLineEdit*>("txtLater")->text(), "there");
}

TEST_F(FormViewPages, FollowTheScaleAndTheColours) {
    open();
    turnTo(*second);
    turnTo(*first);
    const QSize small = made(*inSecond)->size();
    view->setDotsPerInch(192);
    inSecond->setBackColor(colors::yellow);
    turnTo(*second);
    EXPECT_EQ(made(*inSecond)->size(), small * 2);
    EXPECT_EQ(made(*inSecond)->palette().color(QPalette::Base), QColor(Qt::yellow));
    EXPECT_EQ(made(*inGroup)->font().pixelSize(), made(*inFirst)->font().pixelSize());
}

// Fields that are made late do not come between the controls of the host.
TEST_F(FormViewPages, TheTabKeyOfTheHostGoesItsOwnWay) {
    open();
    turnTo(*second);
    auto& late = form.add<TextBox>("txtLate", Control::noIndex, second);
    late.resize(1500, 285);
    after->setFocus();
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), before);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), after);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.activeControl(), &late);
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), after);
}

TEST_F(FormViewPages, AFormThatIsShownLateHasWhatIsOnShow) {
    delete view;
    view = new FormView(form, &window);
    EXPECT_NE(made(*inFirst), nullptr);
    EXPECT_EQ(made(*inSecond), nullptr);
}

} // namespace
} // namespace vkr
