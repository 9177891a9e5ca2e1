// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/view_host.hpp"
#include "platform/during.hpp"
#include "platform/showing.hpp"

#include <QMouseEvent>
#include <QObject>
#include <QWidget>

#include <span>
#include <utility>

namespace vkr {

// What a native widget does with an event by itself.
using NativeEvent = bool (*)(QWidget& widget, QEvent& event);

// The native side of one control. It shows the model in its widget and hands every event of that
// widget to the form view, which decides how much of it the widget itself gets to see. Lives as
// long as its control, or a little longer: without a control it does nothing.
//
// What may be true together: the widget is there from the view's construction on and stays the
// same. While the model is shown, and while the widget is at work, nothing that it signals is input
// of its own; both may be so, within one another.
class ControlView : public QObject {
  public:
    ControlView(ViewHost& host, Control& control) : host_(host), control_(&control) {}

    [[nodiscard]] Control* control() const { return control_; }
    [[nodiscard]] QWidget& widget() const { return *widget_; }
    [[nodiscard]] ViewHost& host() const { return host_; }

    // After a change of the model. Each kind of control has a table of native setters, which come
    // after those that all have in common.
    virtual void show(Property property);
    void showAll();
    // After a change that nobody sees: the widget gets it with showDue().
    void showLater(Property property) { due_.add(property); }
    void showDue() {
        due_.show([this](Property property) { show(property); });
    }

    // An event of the native widget, or of a part of it.
    bool handle(QEvent& event, QWidget& source, NativeEvent native);
    // What the widget itself makes of a key or an input method; then the form hears of it.
    virtual void type(QEvent& event) { event.ignore(); }
    virtual void focusGained() {}
    // Something else than the user may have moved the widget's selection.
    virtual void catchUp() {}
    virtual void focusLost() {}  // another control has it, or the host
    virtual void pressEnded() {} // the press is over, however it ended
    // A turn of the wheel over the control while it has the focus; false: not used.
    virtual bool wheel(int /*steps*/) { return false; }
    // What is around the widget has other colours, which those of its own have to be taken to anew.
    virtual void dropColors() {}
    void retire(); // the control goes
    void forget() { control_ = nullptr; }

  protected:
    using Setter = vkr::Setter<ControlView>;
    friend Setter;
    void show(Property property, std::span<const Setter> setters) {
        Setter::call(*this, property, setters);
    }

    void setWidget(QWidget& widget);
    // Events that the kind of control treats in its own way; true when done.
    virtual bool handleOwn(QEvent& /*event*/, QWidget& /*source*/, NativeEvent /*native*/) {
        return false;
    }
    virtual void press(QMouseEvent& event, QWidget& source, NativeEvent native);
    virtual void drag(QMouseEvent& event, QWidget& source, NativeEvent native);
    virtual void release(QMouseEvent& event, QWidget& source, NativeEvent native);
    virtual void doubleClick(QMouseEvent& event, QWidget& source, NativeEvent native);
    virtual void showColors();
    void showNames();

    bool pass(QEvent& event, QWidget& source, NativeEvent native);
    [[nodiscard]] bool passing() const { return passing_ > 0; }
    [[nodiscard]] bool isActive() const;
    void beginPress(const QMouseEvent& event, int tab = 0);
    void endPress(const QMouseEvent& event, const QWidget& source);
    [[nodiscard]] bool isInside(const QMouseEvent& event, const QWidget& source) const;
    [[nodiscard]] Form& form() const;

    int showing_ = 0; // the model is being shown: what the widget signals is no input

  private:
    bool handlePointer(QEvent& event, QWidget& source, NativeEvent native);
    bool handleKeys(QEvent& event, QWidget& source, NativeEvent native);
    void handleFocus(QFocusEvent& event, QWidget& source, NativeEvent native);
    void showPlace();
    void showEnabled();
    void showVisible();
    void showOrder();

    ViewHost& host_;
    Control* control_;
    QWidget* widget_ = nullptr;
    DueProperties due_;
    int passing_ = 0; // the widget itself is at work
};

// A native widget whose events go to its view first. The view outlives it.
template <typename Widget>
class Native final : public Widget {
  public:
    template <typename... Arguments>
    explicit Native(ControlView& view, Arguments&&... arguments)
        : Widget(std::forward<Arguments>(arguments)...), view_(view) {}

    static bool pass(QWidget& widget, QEvent& event) {
        return static_cast<Native&>(widget).Widget::event(&event);
    }

  protected:
    bool event(QEvent* event) override { return view_.handle(*event, *this, &pass); }

  private:
    ControlView& view_;
};

} // namespace vkr
