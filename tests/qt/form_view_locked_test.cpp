// SPDX-License-Identifier: MIT
#include "tests/qt/support/form_scene.hpp"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QPlainTextEdit>
#include <QWheelEvent>

namespace vkr {
namespace {

// Everything a user or another program can do to a field, on every kind of field.
struct Action {
    const char* name;
    void (*act)(FormView& view, QWidget& widget);
};

void key(QWidget& widget, Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&widget, code, modifiers);
}

QLineEdit* lineOf(QWidget& widget) {
    auto* edit = qobject_cast<QLineEdit*>(&widget);
    return edit != nullptr ? edit : widget.findChild<QLineEdit*>();
}

QWidget& surfaceOf(QWidget& widget) {
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&widget))
        return *edit->viewport();
    if (auto* edit = lineOf(widget))
        return *edit;
    return widget;
}

void callSlot(QWidget& widget, const char* slot) {
    QWidget* target = lineOf(widget);
    QMetaObject::invokeMethod(target == nullptr ? &widget : target, slot);
}

const Action actions[] = {
    {"Character", [](FormView&, QWidget& widget) { QTest::keyClick(&widget, 'x'); }},
    {"Delete", [](FormView&, QWidget& widget) { key(widget, Qt::Key_Delete); }},
    {"Backspace", [](FormView&, QWidget& widget) { key(widget, Qt::Key_Backspace); }},
    {"Enter", [](FormView&, QWidget& widget) { key(widget, Qt::Key_Return); }},
    {"DeleteWord",
     [](FormView&, QWidget& widget) { key(widget, Qt::Key_Backspace, Qt::ControlModifier); }},
    {"CutKey", [](FormView&, QWidget& widget) { key(widget, Qt::Key_X, Qt::ControlModifier); }},
    {"PasteKey", [](FormView&, QWidget& widget) { key(widget, Qt::Key_V, Qt::ControlModifier); }},
    {"ShiftInsert",
     [](FormView&, QWidget& widget) { key(widget, Qt::Key_Insert, Qt::ShiftModifier); }},
    {"ShiftDelete",
     [](FormView&, QWidget& widget) { key(widget, Qt::Key_Delete, Qt::ShiftModifier); }},
    {"UndoKey", [](FormView&, QWidget& widget) { key(widget, Qt::Key_Z, Qt::ControlModifier); }},
    {"RedoKey",
     [](FormView&, QWidget& widget) {
         key(widget, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
     }},
    {"Down", [](FormView&, QWidget& widget) { key(widget, Qt::Key_Down); }},
    {"MiddleClick",
     [](FormView&, QWidget& widget) {
         QGuiApplication::clipboard()->setText("selected", QClipboard::Selection);
         QTest::mouseClick(&surfaceOf(widget), Qt::MiddleButton);
     }},
    {"Drop", [](FormView&, QWidget& widget) { dropText(surfaceOf(widget), "dropped"); }},
    {"InputMethod",
     [](FormView&, QWidget& widget) {
         QInputMethodEvent commit;
         commit.setCommitString("committed");
         QApplication::sendEvent(&widget, &commit);
     }},
    {"Wheel",
     [](FormView&, QWidget& widget) {
         const QPointF place = widget.rect().center();
         QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, {},
                           Qt::NoScrollPhase, false);
         QApplication::sendEvent(&widget, &event);
     }},
    {"SlotPaste", [](FormView&, QWidget& widget) { callSlot(widget, "paste"); }},
    {"SlotCut", [](FormView&, QWidget& widget) { callSlot(widget, "cut"); }},
    {"SlotClear", [](FormView&, QWidget& widget) { callSlot(widget, "clear"); }},
    {"SlotUndo", [](FormView&, QWidget& widget) { callSlot(widget, "undo"); }},
    {"SlotRedo", [](FormView&, QWidget& widget) { callSlot(widget, "redo"); }},
    {"MethodDelete",
     [](FormView&, QWidget& widget) {
         if (auto* edit = lineOf(widget))
             edit->del();
         else
             static_cast<QPlainTextEdit&>(widget).textCursor().deleteChar();
     }},
    {"MethodSetText",
     [](FormView&, QWidget& widget) {
         if (auto* edit = lineOf(widget))
             edit->setText("set");
         else
             static_cast<QPlainTextEdit&>(widget).setPlainText("set");
     }},
    {"ListEntry",
     [](FormView&, QWidget& widget) {
         if (auto* box = qobject_cast<QComboBox*>(&widget)) {
             box->showPopup();
             EXPECT_FALSE(box->view()->isVisible());
             box->setCurrentIndex(1);
         }
     }},
};

enum class FieldKind { textBox, list, notes };

class LockedField : public FormScene,
                    public testing::WithParamInterface<std::tuple<FieldKind, Action>> {
  protected:
    TextField& field() {
        switch (std::get<FieldKind>(GetParam())) {
        case FieldKind::list:
            return *exchange;
        case FieldKind::notes:
            return *notes;
        default:
            return *name;
        }
    }
    [[nodiscard]] std::string shown() {
        auto* widget = native(field());
        if (auto* edit = lineOf(*widget))
            return fromQt(edit->text());
        return fromQt(static_cast<QPlainTextEdit*>(widget)->toPlainText());
    }
};

TEST_P(LockedField, KeepsItsText) {
    open();
    // With a history, so that there is something to undo.
    enter(field(), "start");
    QTest::keyClick(native(field()), Qt::Key_End);
    QTest::keyClick(native(field()), 's');
    ASSERT_EQ(field().text(), "starts");
    field().select(0, 3);
    field().setLocked(true);
    QApplication::clipboard()->setText("pasted");
    handler.log.clear();
    std::get<Action>(GetParam()).act(*view, *native(field()));
    EXPECT_EQ(field().text(), "starts");
    EXPECT_EQ(shown(), "starts");
    for (const auto& noted : handler.log)
        EXPECT_FALSE(noted.starts_with("change") || noted.starts_with("choice")) << noted;
}

std::string lockedName(const testing::TestParamInfo<LockedField::ParamType>& info) {
    static const char* const kinds[] = {"TextBox", "List", "Notes"};
    return std::string(kinds[static_cast<std::size_t>(std::get<FieldKind>(info.param))]) +
           std::get<Action>(info.param).name;
}

INSTANTIATE_TEST_SUITE_P(All, LockedField,
                         testing::Combine(testing::Values(FieldKind::textBox, FieldKind::list,
                                                          FieldKind::notes),
                                          testing::ValuesIn(actions)),
                         lockedName);

using FormViewLocked = FormScene;

TEST_F(FormViewLocked, ALockedFieldCanBeReadSelectedAndCopied) {
    open();
    enter(*name, "secret");
    name->setLocked(true);
    EXPECT_TRUE(line(*name)->isReadOnly());
    EXPECT_FALSE(line(*name)->acceptDrops());
    press(Qt::Key_Home);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(name->selText(), "s");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "secret");
}

TEST_F(FormViewLocked, UnlockingMakesItEditableAgain) {
    open();
    enter(*name, "abc");
    name->setLocked(true);
    name->setLocked(false);
    EXPECT_TRUE(line(*name)->acceptDrops());
    type("x");
    EXPECT_EQ(name->text(), "x");
}

// Middle-click paste needs a selection clipboard, which not every platform has.
TEST_F(FormViewLocked, EditsThatTheLockRefusesGoThroughWithoutIt) {
    open();
    struct Row {
        const char* action;
        const char* result;
    };
    for (const auto& row :
         {Row{"Delete", "art"}, Row{"CutKey", "art"}, Row{"PasteKey", "pastedart"},
          Row{"SlotPaste", "pastedart"}, Row{"SlotClear", ""}, Row{"MethodSetText", "set"},
          Row{"InputMethod", "committedart"}, Row{"Drop", "droppedstart"}}) {
        enter(*name, "start");
        name->select(0, 2);
        QApplication::clipboard()->setText("pasted");
        const auto* action =
            std::find_if(std::begin(actions), std::end(actions), [&row](const Action& candidate) {
                return std::string(candidate.name) == row.action;
            });
        action->act(*view, *native(*name));
        EXPECT_EQ(name->text(), row.result) << row.action;
        EXPECT_EQ(line(*name)->text(), row.result) << row.action;
    }
}

} // namespace
} // namespace vkr
