// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/form_view.hpp"
#include "desktop/qt_values.hpp"
#include "platform/form.hpp"
#include "platform/text.hpp"

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace vkr {

// Writes down what the form is told, and does what a test asks for in between.
class RecordingHandler : public FormHandler {
  public:
    std::vector<std::string> log;
    std::function<void(Control&)> gotFocus;
    std::function<void(Control&)> lostFocus;
    std::function<void(Control&, KeyCode&, int)> keyDown;
    std::function<void(Control&, char32_t&)> keyPress;
    std::function<void(Control&, MouseButton)> mouseDown;
    std::function<void(Control&)> clicked;
    std::function<void(TextField&)> changed;
    std::function<void(TabStrip&)> tabSelected;
    std::function<bool(int)> wheelTurned;

    void onGotFocus(Control& control) override {
        note("got " + control.id());
        if (gotFocus)
            gotFocus(control);
    }
    void onLostFocus(Control& control) override {
        note("lost " + control.id());
        if (lostFocus)
            lostFocus(control);
    }
    void onKeyDown(Control& control, KeyCode& key, int shift) override {
        note("down " + control.id() + " " + std::to_string(key) +
             (shift == 0 ? "" : "+" + std::to_string(shift)));
        if (keyDown)
            keyDown(control, key, shift);
    }
    void onKeyPress(Control& control, char32_t& character) override {
        std::string text;
        if (character < 32)
            text = "#" + std::to_string(static_cast<int>(character));
        else
            appendCharacter(text, character);
        note("press " + control.id() + " " + text);
        if (keyPress)
            keyPress(control, character);
    }
    void onKeyUp(Control& control, KeyCode key, int /*shift*/) override {
        note("up " + control.id() + " " + std::to_string(key));
    }
    void onChange(TextField& field) override {
        note("change " + field.id() + " " + field.text());
        if (changed)
            changed(field);
    }
    void onMouseDown(Control& control, MouseButton button, int /*tab*/) override {
        note("mouse " + control.id() + " " + std::to_string(static_cast<int>(button)));
        if (mouseDown)
            mouseDown(control, button);
    }
    void onPressEnded(Control& control) override { note("ended " + control.id()); }
    void onClick(Control& control) override {
        note("click " + control.id());
        if (clicked)
            clicked(control);
    }
    void onDoubleClick(Control& control) override { note("double " + control.id()); }
    void onListChoice(ComboBox& list) override { note("choice " + list.id() + " " + list.text()); }
    void onScroll(ScrollBar& bar) override {
        note("scroll " + bar.id() + " " + std::to_string(bar.value()));
    }
    void onSpin(Spinner& spinner, int steps) override {
        note("spin " + spinner.id() + " " + std::to_string(steps));
    }
    bool onWheel(int steps) override { return wheelTurned && wheelTurned(steps); }
    void onTabSelected(TabStrip& strip) override {
        note("tab " + std::to_string(strip.selected()));
        if (tabSelected)
            tabSelected(strip);
    }
    void onFormClick() override { note("surface"); }
    void onFocusLeft() override { note("left"); }

    void note(const std::string& line) { log.push_back(line); }
    // Since the last call.
    [[nodiscard]] std::vector<std::string> take() {
        std::vector<std::string> taken;
        taken.swap(log);
        return taken;
    }
};

using Lines = std::vector<std::string>;

// A text dragged from another program and dropped on a widget.
inline void dropText(QWidget& widget, const QString& text) {
    QMimeData data;
    data.setText(text);
    QDragEnterEvent enter(QPoint(3, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &enter);
    QDragMoveEvent move(QPoint(3, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &move);
    QDropEvent drop(QPointF(3, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&widget, &drop);
}

// A window of a host: a field of its own above and below a form with one control of each kind.
class FormScene : public testing::Test {
  protected:
    FormScene() : before(new QLineEdit(&window)) {
        form.setHandler(&handler);
        form.setSize(6000, 4500);
        name = &place<TextBox>("txtName", 0);
        price = &place<TextBox>("txtPrice", 1);
        exchange = &place<ComboBox>("cmbExchange", 2);
        exchange->setList({"AMEX", "NASDAQ", "NYSE"});
        notes = &place<TextBox>("txtNotes", 3, 900);
        notes->setMultiLine(true);
        ok = &place<CommandButton>("cmdOK", 6);
        ok->setCaption("&OK");
        for (int i = 0; i < 2; ++i) {
            auto& option = form.add<OptionButton>("optUnit", i);
            option.move(3000 + i * 1200, 120);
            option.resize(1100, 285);
            option.setCaption(i == 0 ? "One" : "Two");
            options.push_back(&option);
        }
        options[0]->setValue(true);
        check = &place<CheckBox>("chkLock", 7);
        check->setCaption("Lock");
        label = &place<Label>("lblName", 8);
        label->setCaption("La&bel");
        bar = &place<ScrollBar>("hscrYears", 9);
        bar->setRange(0, 10, 1, 5);
        spinner = &place<Spinner>("spnYear", 10);
        strip = &form.add<TabStrip>("tbsPages");
        strip->move(3000, 3600);
        strip->resize(3000, 360);
        strip->addTab({"&First", "", "", "", 0});
        strip->addTab({"&Second", "", "", "", 0});
        handler.gotFocus = [](Control& control) {
            if (auto* field = dynamic_cast<TextField*>(&control))
                field->select(0, textLength(field->text()));
        };
        view = new FormView(form, &window);
        after = new QLineEdit(&window);
        auto* column = new QVBoxLayout(&window);
        column->addWidget(before);
        column->addWidget(view);
        column->addWidget(after);
    }
    ~FormScene() override { delete view; }

    void open() {
        window.show();
        activate();
        before->setFocus();
        handler.log.clear();
    }
    // Where no window manager does it, after a dialog.
    void activate() {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    // The field has the focus, with this text; the log is empty.
    void enter(TextField& field, std::string_view text = {}) {
        field.setText(text);
        field.setFocus();
        handler.log.clear();
    }

    template <typename Widget = QWidget>
    [[nodiscard]] Widget* native(const Control& control) const {
        return dynamic_cast<Widget*>(view->widgetOf(control));
    }
    // The line edit of a text box or a list.
    [[nodiscard]] QLineEdit* line(const TextField& field) const {
        auto* widget = view->widgetOf(field);
        auto* edit = qobject_cast<QLineEdit*>(widget);
        return edit != nullptr ? edit : widget->findChild<QLineEdit*>();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void type(const QString& text) {
        for (const QChar character : text)
            QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
    }

    template <typename Kind>
    Kind& place(std::string_view id, int row, Twips height = 285) {
        auto& control = form.add<Kind>(id);
        control.move(120, 120 + row * 360);
        control.resize(2400, height);
        return control;
    }

    RecordingHandler handler;
    Form form;
    QWidget window;
    QLineEdit* before;
    FormView* view = nullptr;
    QLineEdit* after = nullptr;
    TextBox* name = nullptr;
    TextBox* price = nullptr;
    ComboBox* exchange = nullptr;
    TextBox* notes = nullptr;
    CommandButton* ok = nullptr;
    std::vector<OptionButton*> options;
    CheckBox* check = nullptr;
    Label* label = nullptr;
    ScrollBar* bar = nullptr;
    Spinner* spinner = nullptr;
    TabStrip* strip = nullptr;
};

} // namespace vkr
