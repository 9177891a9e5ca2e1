// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/control_view.hpp"

#include <QMouseEvent>

#include <memory>
#include <string>

namespace vkr {

// A selection in UTF-16 units.
struct UnitRange {
    int start = 0;
    int length = 0;

    friend bool operator==(const UnitRange&, const UnitRange&) = default;
};

// What text boxes and lists have in common. The widget edits by itself; whatever came of it, by
// key, input method, pointer, drop, undo or a slot of the widget, is offered to the form, and a
// locked field gets the text of its model back.
class FieldView : public ControlView {
  public:
    void show(Property property) override;
    void type(QEvent& event) override;
    void focusGained() override;
    void catchUp() override;

    [[nodiscard]] virtual bool canUndo() const = 0;
    void undo();
    void redo();

  protected:
    using ControlView::ControlView;

    bool handleOwn(QEvent& event, QWidget& source, NativeEvent native) override;
    void press(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void drag(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void release(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native) override;
    void showColors() override;
    void pressEnded() override { firstPress_.reset(); }

    // Of the widget.
    [[nodiscard]] virtual QString text() const = 0;
    virtual void setText(const QString& text) = 0;     // the undo starts anew
    virtual void replaceText(const QString& text) = 0; // one step of the undo
    [[nodiscard]] virtual UnitRange selection() const = 0;
    virtual void select(UnitRange range) = 0;
    virtual void setLocked(bool locked) = 0;
    virtual void setPalette(const QPalette& wanted);
    virtual void stepBack() = 0;
    virtual void stepForward() = 0;
    virtual bool typeInto(QEvent& event) = 0;
    // The widget's text has changed without the model; true when that was no edit.
    virtual bool choseEntry() { return false; }
    // All of the text can be seen wherever the caret stands.
    [[nodiscard]] virtual bool fits() const { return false; }
    // The widget must not be touched now; it gets its text once the events are through.
    [[nodiscard]] virtual bool mustWait() const { return false; }

    void widgetChanged(); // connected to the change of the widget's text
    void takeEdit();      // compares with the model, and tells the form
    [[nodiscard]] TextField& field() const { return static_cast<TextField&>(*control()); }

  private:
    void tellSelection(const QString& shown, UnitRange range);
    void showLocked();
    void showMark();
    void showText();
    void showEdit();
    void showSelection();
    bool postponed(void (FieldView::*part)());
    bool pastedAnew(const QString& edited);
    void refuseEdit();
    [[nodiscard]] UnitRange modelSelection() const;

    int undoing_ = 0; // what comes back was there before
    QString shown_;   // the widget's text as the model knows it
    std::unique_ptr<QMouseEvent> firstPress_;
};

[[nodiscard]] Qt::Alignment alignmentOf(const TextBox& box);

} // namespace vkr
