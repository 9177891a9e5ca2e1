// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"

#include <functional>
#include <string>
#include <vector>

namespace vkr {

using Events = std::vector<std::string>;

// Writes down what it hears, and lets a test act in the middle of an event.
class FormRecorder : public FormHandler {
  public:
    Events events;
    std::function<void(Control&)> gotFocus, lostFocus, mouseDown, click;
    std::function<void(Control&, KeyCode&)> keyDown;
    std::function<void(char32_t&)> keyPress;
    std::function<void(TextField&)> change;

    void onGotFocus(Control& control) override {
        note("got", control);
        if (gotFocus)
            gotFocus(control);
    }
    void onLostFocus(Control& control) override {
        note("lost", control);
        if (lostFocus)
            lostFocus(control);
    }
    void onKeyDown(Control& control, KeyCode& key, int shift) override {
        note("down " + std::to_string(key) + "/" + std::to_string(shift), control);
        if (keyDown)
            keyDown(control, key);
    }
    void onKeyPress(Control& control, char32_t& character) override {
        note("press " + std::to_string(character), control);
        if (keyPress)
            keyPress(character);
    }
    void onKeyUp(Control& control, KeyCode key, int /*shift*/) override {
        note("up " + std::to_string(key), control);
    }
    void onChange(TextField& field) override {
        note("change", field);
        if (change)
            change(field);
    }
    void onMouseDown(Control& control, MouseButton button, int /*tab*/) override {
        note("mouse " + std::to_string(static_cast<int>(button)), control);
        if (mouseDown)
            mouseDown(control);
    }
    void onPressEnded(Control& control) override { note("ended", control); }
    void onClick(Control& control) override {
        note("click", control);
        if (click)
            click(control);
    }
    void onDoubleClick(Control& control) override { note("double", control); }
    void onListChoice(ComboBox& list) override {
        note("choice " + std::to_string(list.listIndex()), list);
    }
    void onScroll(ScrollBar& bar) override { note("scroll " + std::to_string(bar.value()), bar); }
    void onSpin(Spinner& spinner, int steps) override {
        note("spin " + std::to_string(steps), spinner);
    }
    void onTabSelected(TabStrip& strip) override {
        note("tab " + std::to_string(strip.selected()), strip);
    }
    void onFormClick() override { events.emplace_back("surface"); }
    void onFocusLeft() override { events.emplace_back("left the form"); }

  private:
    void note(const std::string& what, const Control& control) {
        events.push_back(what + " " + control.id());
    }
};

} // namespace vkr
