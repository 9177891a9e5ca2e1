// SPDX-License-Identifier: MIT
// The way of a key: stroke, key down, key press, edit, keystrokes that handlers have sent.
#include "platform/during.hpp"
#include "platform/error_trap.hpp"
#include "platform/form.hpp"
#include "platform/stroke.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

namespace {

constexpr int notShift = shifts::control | shifts::alt;

// A key of an edited field, whether or not it types a character.
bool editsField(KeyCode key) {
    switch (key) {
    case keys::f4:
    case keys::backspace:
    case keys::del:
    case keys::insert:
    case keys::home:
    case keys::end:
    case keys::pageUp:
    case keys::pageDown:
        return true;
    default:
        return false;
    }
}

bool opensList(KeyCode key, int shift) {
    return (key == keys::down || key == keys::up) && shift == shifts::alt;
}

// A key that every control uses, or tabbing does.
bool movesInForm(KeyCode key) {
    switch (key) {
    case keys::f1:
    case keys::menu:
    case keys::enter:
    case keys::space:
    case keys::left:
    case keys::right:
    case keys::up:
    case keys::down:
    case keys::tab:
        return true;
    default:
        return false;
    }
}

} // namespace

// --- a stroke ----------------------------------------------------------------------------------

bool Form::stroke(const Stroke& stroke, NativeEditor& editor) {
    if (stroke.key == keys::none)
        return false;
    editor.catchUp();
    const bool used = conduct(stroke, editor);
    keyDone();
    assert(sending_ || sentKeys_.empty());
    checkInvariants();
    return used;
}

bool Form::conduct(const Stroke& stroke, NativeEditor& editor) {
    const bool altAlone = (stroke.shift & notShift) == shifts::alt;
    if (altAlone && stroke.character >= 0x80 && mnemonic(stroke.character))
        return true;
    if (!keyDown(stroke.key, stroke.shift, stroke.held ? KeyDown::repeated : KeyDown::first))
        return true;
    if (!stroke.typed.empty()) {
        bool took = false;
        for (const char32_t character : stroke.typed)
            took = type(character, editor);
        return took || stroke.key != keys::escape; // which closes the host's dialog then
    }
    if (altAlone && stroke.character != 0)
        return false;
    return editor.edit() || uses(stroke);
}

bool Form::type(char32_t character, NativeEditor& editor) {
    return keyPress(character) && focused_ && editor.type(character);
}

void Form::commit(std::u32string_view text, NativeEditor& editor) {
    for (const char32_t character : text) {
        type(character, editor);
        keyDone();
    }
}

bool Form::uses(const Stroke& stroke) const {
    const auto* field = textFieldOf(active_);
    if (stroke.systemKey)
        return false;
    const auto wanted = [&] {
        return active_ != nullptr && attemptOr(false, [&] {
                   return handler().wantsKey(*active_, stroke.key, stroke.shift);
               });
    };
    switch (stroke.shift & notShift) {
    case shifts::none:
        break;
    case shifts::alt:
        return hasMnemonic(stroke.character) || wanted() ||
               (dynamic_cast<const ComboBox*>(active_) != nullptr &&
                opensList(stroke.key, stroke.shift));
    case shifts::control:
        return stroke.key == keys::pageUp || stroke.key == keys::pageDown ||
               (stroke.command && field != nullptr) || wanted();
    default:
        return false;
    }
    if (movesInForm(stroke.key))
        return true;
    if (stroke.key == keys::f10)
        return (stroke.shift & shifts::shift) != 0;
    if (stroke.key == keys::escape)
        return (field != nullptr && field->canTakeBack()) || wanted();
    return field != nullptr && (editsField(stroke.key) || !stroke.typed.empty());
}

// --- its parts ---------------------------------------------------------------------------------

bool Form::keyDown(KeyCode key, int shift, KeyDown press) {
    pressedKey_ = key;
    keyHeld_ = press == KeyDown::repeated;
    if (!keyHeld_)
        endNote();
    if (keyHeld_ && (key == keys::menu || (key >= keys::f1 && key <= keys::f12)))
        return false;
    const bool altAlone = (shift & (shifts::alt | shifts::control)) == shifts::alt;
    if (altAlone && key >= '0' && key <= 'Z' && mnemonic(static_cast<char32_t>(key)))
        return false;
    if (active_ == nullptr)
        return true;
    Control& control = *active_;
    const unsigned before = focusMoves_;
    ifPossible([&] { handler().onKeyDown(control, key, shift); });
    if (key == keys::none || before != focusMoves_)
        return false;
    if (key == keys::tab && (shift & (shifts::control | shifts::alt)) == 0) {
        const auto direction =
            (shift & shifts::shift) != 0 ? FocusDirection::backward : FocusDirection::forward;
        // A leave handler that sends the focus elsewhere, or keeps it, has the last word.
        const unsigned moves = focusMoves_;
        if (!moveFocus(direction, AtEnd::stay) && moves == focusMoves_ &&
            !(observer_ != nullptr && observer_->takesTab(direction)) && moves == focusMoves_)
            moveFocus(direction);
        return false;
    }
    return !builtInKey(control, key, shift);
}

// What an edited field showed when it was entered.
bool Form::takeBack(Control& control) {
    auto* field = textFieldOf(&control);
    if (field == nullptr || !field->canTakeBack())
        return false;
    field->editText(field->entryText(), 0);
    field->select(0, textLength(field->text()));
    ifPossible([&] { handler().onChange(*field); });
    return true;
}

bool Form::builtInKey(Control& control, KeyCode key, int shift) {
    const bool plain = shift == shifts::none;
    if (plain && key == keys::escape)
        return takeBack(control);
    const int step = key == keys::right || key == keys::down ? 1
                     : key == keys::left || key == keys::up  ? -1
                                                             : 0;
    switch (control.kind()) {
    case ControlKind::commandButton:
        if (plain && (key == keys::enter || key == keys::space)) {
            press(control);
            return true;
        }
        return false;
    case ControlKind::checkBox:
        if (plain && key == keys::space) {
            press(control);
            return true;
        }
        return false;
    case ControlKind::optionButton:
        if (plain && key == keys::space)
            press(control);
        else if (plain && step != 0)
            stepOption(static_cast<OptionButton&>(control), step);
        else
            return false;
        return true;
    case ControlKind::tabStrip: {
        auto& strip = static_cast<TabStrip&>(control);
        const int target = strip.selected() + step;
        if (plain && step != 0 && target >= 1 && target <= strip.count()) {
            userSelectTab(strip, target);
            return true;
        }
        return false;
    }
    case ControlKind::comboBox: {
        auto& list = static_cast<ComboBox&>(control);
        const bool vertical = key == keys::up || key == keys::down;
        if (!plain || !vertical)
            return false;
        userPick(list, list.listIndex() + step);
        return true;
    }
    default:
        return false;
    }
}

// A press from the keyboard takes the same way as one with the pointer.
void Form::press(Control& control) {
    mouseDown(control, MouseButton::left);
    click(control);
}

void Form::stepOption(OptionButton& option, int step) {
    for (int i = option.index() + step;; i += step) {
        auto* target = dynamic_cast<OptionButton*>(find(option.name(), i));
        if (target == nullptr)
            return;
        if (target->canTakeFocus()) {
            press(*target);
            return;
        }
    }
}

bool Form::keyPress(char32_t& character) {
    if (active_ == nullptr)
        return true;
    const unsigned before = focusMoves_;
    if (!attempt([&] { handler().onKeyPress(*active_, character); }))
        character = 0; // what the filter did not see is not typed
    if (character == 0 || before != focusMoves_)
        return false;
    const auto* field = textFieldOf(active_);
    return field == nullptr || character < U' ' || character == 0x7F || !field->isFull();
}

void Form::keyUp(KeyCode key, int shift) {
    if (active_ != nullptr)
        ifPossible([&] { handler().onKeyUp(*active_, key, shift); });
}

void Form::sendKey(KeyCode key, int shift) {
    sentKeys_.emplace_back(key, shift);
}

void Form::keyDone() {
    if (sending_)
        return;
    const During sending(sending_);
    while (!sentKeys_.empty()) {
        const auto [key, shift] = sentKeys_.front();
        sentKeys_.pop_front();
        keyDown(key, shift);
        keyUp(key, shift);
    }
    pressedKey_ = keys::none;
    assert(sentKeys_.empty());
}

} // namespace vkr
