// SPDX-License-Identifier: MIT
#pragma once

#include "tests/qt/support/form_scene.hpp"
#include "tests/qt/support/wheel.hpp"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QPlainTextEdit>

#include <ostream>

namespace vkr {

// Everything a user or another program can do to a field, on every kind of field.
struct FieldAction {
    const char* name;
    void (*act)(QWidget& widget);
};

inline void PrintTo(const FieldAction& action, std::ostream* out) {
    *out << action.name;
}

// Several lines get their text back only when the events are through.
inline void perform(const FieldAction& action, QWidget& widget) {
    action.act(widget);
    QCoreApplication::sendPostedEvents();
}

inline void pressKey(QWidget& widget, Qt::Key code, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(&widget, code, modifiers);
}

// The line edit of a text box or a list; null for several lines.
inline QLineEdit* lineOf(QWidget& widget) {
    auto* edit = qobject_cast<QLineEdit*>(&widget);
    return edit != nullptr ? edit : widget.findChild<QLineEdit*>();
}

// The part that gets the events of the pointer.
inline QWidget& surfaceOf(QWidget& widget) {
    if (auto* edit = qobject_cast<QPlainTextEdit*>(&widget))
        return *edit->viewport();
    if (auto* edit = lineOf(widget))
        return *edit;
    return widget;
}

// What the user sees.
inline QString shownBy(QWidget& widget) {
    if (const auto* edit = lineOf(widget))
        return edit->text();
    return static_cast<QPlainTextEdit&>(widget).toPlainText();
}

inline void callSlot(QWidget& widget, const char* slot) {
    QWidget* target = lineOf(widget);
    QMetaObject::invokeMethod(target == nullptr ? &widget : target, slot);
}

inline const FieldAction fieldActions[] = {
    {"Character", [](QWidget& widget) { QTest::keyClick(&widget, 'x'); }},
    {"Delete", [](QWidget& widget) { pressKey(widget, Qt::Key_Delete); }},
    {"Backspace", [](QWidget& widget) { pressKey(widget, Qt::Key_Backspace); }},
    {"Enter", [](QWidget& widget) { pressKey(widget, Qt::Key_Return); }},
    {"DeleteWord",
     [](QWidget& widget) { pressKey(widget, Qt::Key_Backspace, Qt::ControlModifier); }},
    {"CutKey", [](QWidget& widget) { pressKey(widget, Qt::Key_X, Qt::ControlModifier); }},
    {"PasteKey", [](QWidget& widget) { pressKey(widget, Qt::Key_V, Qt::ControlModifier); }},
    {"PasteBlock",
     [](QWidget& widget) {
         QApplication::clipboard()->setText("1\t2\n3\t4");
         pressKey(widget, Qt::Key_V, Qt::ControlModifier);
     }},
    {"FillDown", [](QWidget& widget) { pressKey(widget, Qt::Key_D, Qt::ControlModifier); }},
    {"TakePrevious",
     [](QWidget& widget) { pressKey(widget, Qt::Key_Apostrophe, Qt::ControlModifier); }},
    {"DeleteCells",
     [](QWidget& widget) {
         pressKey(widget, Qt::Key_Down, Qt::ShiftModifier);
         pressKey(widget, Qt::Key_Delete);
         pressKey(widget, Qt::Key_X, Qt::ControlModifier);
         pressKey(widget, Qt::Key_Escape);
     }},
    {"ShiftInsert", [](QWidget& widget) { pressKey(widget, Qt::Key_Insert, Qt::ShiftModifier); }},
    {"ShiftDelete", [](QWidget& widget) { pressKey(widget, Qt::Key_Delete, Qt::ShiftModifier); }},
    {"UndoKey", [](QWidget& widget) { pressKey(widget, Qt::Key_Z, Qt::ControlModifier); }},
    {"RedoKey",
     [](QWidget& widget) { pressKey(widget, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }},
    {"OtherRedoKey", [](QWidget& widget) { pressKey(widget, Qt::Key_Y, Qt::ControlModifier); }},
    {"FillCells",
     [](QWidget& widget) {
         pressKey(widget, Qt::Key_Up, Qt::ShiftModifier);
         pressKey(widget, Qt::Key_D, Qt::ControlModifier);
         pressKey(widget, Qt::Key_Apostrophe, Qt::ControlModifier);
         pressKey(widget, Qt::Key_Escape);
     }},
    {"Down", [](QWidget& widget) { pressKey(widget, Qt::Key_Down); }},
    {"Up", [](QWidget& widget) { pressKey(widget, Qt::Key_Up); }},
    {"OpenList", [](QWidget& widget) { pressKey(widget, Qt::Key_F4); }},
    {"DoubleClick",
     [](QWidget& widget) { QTest::mouseDClick(&surfaceOf(widget), Qt::LeftButton); }},
    {"MiddleClick",
     [](QWidget& widget) {
         if (auto* clipboard = QGuiApplication::clipboard(); clipboard->supportsSelection())
             clipboard->setText("selected", QClipboard::Selection);
         QTest::mouseClick(&surfaceOf(widget), Qt::MiddleButton);
     }},
    {"Drop", [](QWidget& widget) { dropText(surfaceOf(widget), "dropped"); }},
    {"InputMethod",
     [](QWidget& widget) {
         QInputMethodEvent commit;
         commit.setCommitString("committed");
         QApplication::sendEvent(&widget, &commit);
     }},
    {"WheelDown", [](QWidget& widget) { turnWheel(surfaceOf(widget), -120); }},
    {"WheelUp", [](QWidget& widget) { turnWheel(surfaceOf(widget), 120); }},
    {"WheelOnFrame", [](QWidget& widget) { turnWheel(widget, -120); }},
    {"SlotPaste", [](QWidget& widget) { callSlot(widget, "paste"); }},
    {"SlotCut", [](QWidget& widget) { callSlot(widget, "cut"); }},
    {"SlotClear", [](QWidget& widget) { callSlot(widget, "clear"); }},
    {"SlotUndo", [](QWidget& widget) { callSlot(widget, "undo"); }},
    {"SlotRedo", [](QWidget& widget) { callSlot(widget, "redo"); }},
    {"MethodDelete",
     [](QWidget& widget) {
         if (auto* edit = lineOf(widget))
             edit->del();
         else
             static_cast<QPlainTextEdit&>(widget).textCursor().deleteChar();
     }},
    {"MethodSetText",
     [](QWidget& widget) {
         if (auto* edit = lineOf(widget))
             edit->setText("set");
         else
             static_cast<QPlainTextEdit&>(widget).setPlainText("set");
     }},
    {"ListEntry",
     [](QWidget& widget) {
         if (auto* box = qobject_cast<QComboBox*>(&widget)) {
             box->showPopup();
             EXPECT_FALSE(box->view()->isVisible());
             box->setCurrentIndex(1);
         }
     }},
};

} // namespace vkr
