// SPDX-License-Identifier: MIT
// What the user does with the pointer, and edits that are taken into the models.
#include "platform/error_trap.hpp"
#include "platform/form.hpp"
#include "platform/text.hpp"

#include <algorithm>

namespace vkr {

namespace {

// Windowless controls hear of the pointer before the focus moves to them; a field only then.
bool hearsPressFirst(const Control& control) {
    return control.kind() == ControlKind::commandButton ||
           control.kind() == ControlKind::optionButton || control.kind() == ControlKind::checkBox;
}

} // namespace

bool Form::userEdit(TextField& field, std::string_view text, int selStart, int selLength) {
    if (field.locked())
        return false;
    const bool changed = field.text() != text;
    if (!attempt([&] { field.takeUserEdit(text, selStart, selLength); }))
        return false;
    if (changed)
        ifPossible([&] { handler().onChange(field); });
    return true;
}

bool Form::userPaste(TextField& field, std::string_view text) {
    endNote();
    const auto takesIt = [&] { return !field.locked() && handler().onPaste(field, text); };
    if (!attemptOr(false, takesIt))
        return false;
    int fitting = 0;
    ifPossible([&] {
        const auto* box = dynamic_cast<const TextBox*>(&field);
        const auto lines =
            box != nullptr && box->multiLine() ? FieldLines::several : FieldLines::one;
        const std::string pasted = cleanedPaste(text, lines);
        if (pasted.empty())
            return;
        const std::string before = field.text();
        const int start = field.selStart();
        std::string edited(textLeft(before, start));
        edited += pasted;
        edited += textFrom(before, start + field.selLength());
        const auto taken = field.taken(edited, start + textLength(pasted));
        const int cut = textLength(edited) - textLength(taken.text);
        field.editText(taken.text, taken.caret);               // from here on nothing fails
        fitting = taken.text == before && edited != before ? 0 // no room at all
                                                           : textLength(pasted) - cut;
        if (taken.text != before)
            ifPossible([&] { handler().onChange(field); });
        const auto end = textFrom(pasted, fitting);
        if (trimmed(end).empty() || !holds(field))
            return;
        // The handler may have taken back what there was room for.
        const auto leftOut = field.text() == taken.text ? end : std::string_view(pasted);
        if (!attempt([&] { handler().onPasteCut(field, leftOut); }) && holds(field))
            ifPossible([&] { field.setMark({MarkKind::doubtful, "Cut short."}); }); // no memory
    });
    return fitting > 0;
}

void Form::userSelect(TextField& field, int start, int length) {
    field.putSelection(start, length);
}

void Form::mouseDown(Control& control, MouseButton button, int tab) {
    endNote();
    if (!control.isShown() || !control.isEnabled())
        return;
    if (attemptOr(false, [&] { return handler().keepsFocus(control, button); })) {
        ifPossible([&] { handler().onMouseDown(control, button, tab); });
        return;
    }
    // What comes first may take the control away.
    if (hearsPressFirst(control)) {
        ifPossible([&] { handler().onMouseDown(control, button, tab); });
        if (holds(control))
            focus(control);
    } else {
        focus(control);
        if (holds(control))
            ifPossible([&] { handler().onMouseDown(control, button, tab); });
    }
}

bool Form::userDrag(Control& pressed, Control& over) {
    return pressed.isShown() && pressed.isEnabled() && over.isShown() &&
           attemptOr(false, [&] { return handler().onDrag(pressed, over); });
}

void Form::click(Control& control) {
    if (control.isShown() && control.isEnabled()) {
        if (auto* option = dynamic_cast<OptionButton*>(&control))
            option->setValue(true);
        else if (auto* box = dynamic_cast<CheckBox*>(&control))
            box->setValue(!box->value());
        ifPossible([&] { handler().onClick(control); });
    }
    if (holds(control)) // its handler may have removed it
        ifPossible([&] { handler().onPressEnded(control); });
}

void Form::pressGivenUp(Control& control) {
    ifPossible([&] { handler().onPressEnded(control); });
}

void Form::doubleClick(Control& control) {
    if (control.isShown() && control.isEnabled())
        ifPossible([&] { handler().onDoubleClick(control); });
}

void Form::surfaceClick() {
    ifPossible([&] { handler().onFormClick(); });
}

void Form::userScroll(ScrollBar& bar, int value) {
    bar.setValue(value);
}

void Form::userSpin(Spinner& spinner, int steps) {
    if (spinner.isShown() && spinner.isEnabled())
        ifPossible([&] { handler().onSpin(spinner, steps); });
}

bool Form::userPick(ComboBox& list, int index) {
    if (list.locked() || index < 0 || index >= static_cast<int>(list.list().size()))
        return false;
    const bool changed = list.listIndex() != index;
    list.editText(list.list()[static_cast<std::size_t>(index)], 0);
    list.listIndex_ = index;
    list.select(0, textLength(list.text()));
    if (changed)
        ifPossible([&] { handler().onListChoice(list); });
    return true;
}

bool Form::userTurn(ComboBox& list, int steps) {
    if (list.locked())
        return false;
    const int last = static_cast<int>(list.list().size()) - 1;
    const int target = std::clamp(list.listIndex() + steps, 0, std::max(0, last));
    if (target <= last && target != list.listIndex())
        userPick(list, target);
    return true;
}

bool Form::userWheel(int steps) {
    return attemptOr(false, [&] { return handler().onWheel(steps); });
}

void Form::userSelectTab(TabStrip& strip, int index) {
    if (strip.isShown() && strip.isEnabled())
        strip.selectTab(index);
}

} // namespace vkr
