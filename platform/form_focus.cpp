// SPDX-License-Identifier: MIT
// Who has the focus, and where it goes next.
#include "platform/during.hpp"
#include "platform/error_trap.hpp"
#include "platform/form.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

bool Form::focus(Control& control) {
    if (!control.canTakeFocus())
        return false;
    if (focused_ && active_ == &control && !leaving_)
        return true;
    const unsigned mine = ++focusMoves_;
    endNote();
    if (focused_ && active_ != nullptr && !leaving_) {
        if (!leave())
            return false;
        if (!holds(control) || !control.canTakeFocus()) {
            if (active_ != nullptr && active_->canTakeFocus())
                ifPossible([&] { handler().onGotFocus(*active_); });
            else
                settleFocus();
            if (mine == focusMoves_)
                tellFocus();
            return false;
        }
    }
    leaving_ = false;
    active_ = &control;
    focused_ = true;
    if (auto* field = textFieldOf(&control))
        ifPossible([&] { field->beginEntry(); });
    ifPossible([&] { handler().onGotFocus(control); });
    if (mine == focusMoves_)
        tellFocus();
    return mine == focusMoves_;
}

// The leave event of the active control. False when its handler has sent the focus elsewhere, or
// has kept it.
bool Form::leave() {
    assert(active_ != nullptr && !leaving_);
    const unsigned before = focusMoves_;
    const During leaving(leaving_);
    ifPossible([&] { handler().onLostFocus(*active_); });
    return before == focusMoves_;
}

bool Form::holds(const Control& control) const {
    return std::find(tabOrder_.begin(), tabOrder_.end(), &control) != tabOrder_.end();
}

// Of an option group Tab stops at the chosen option, or once where none is chosen.
bool Form::passesOver(const OptionButton& option) const {
    if (option.value())
        return false;
    if (active_ != nullptr && active_->name() == option.name())
        return true;
    for (int i = lowerBound(option.name()); i <= upperBound(option.name()); ++i)
        if (const auto* other = dynamic_cast<OptionButton*>(find(option.name(), i));
            other != nullptr && other->value() && other->canTakeFocus())
            return true;
    return false;
}

bool Form::moveFocus(FocusDirection direction, AtEnd atEnd) {
    const auto count = std::ssize(tabOrder_);
    if (count == 0)
        return false;
    const bool forward = direction == FocusDirection::forward;
    const std::ptrdiff_t step = forward ? 1 : -1;
    auto place = std::find(tabOrder_.begin(), tabOrder_.end(), active_) - tabOrder_.begin();
    if (place == count)
        place = forward ? -1 : count;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
        place += step;
        if (place < 0 || place >= count) {
            if (atEnd == AtEnd::stay)
                return false;
            place = (place + count) % count;
        }
        Control& candidate = *tabOrder_[static_cast<std::size_t>(place)];
        if (candidate.kind() == ControlKind::optionButton &&
            passesOver(static_cast<OptionButton&>(candidate)))
            continue;
        if (candidate.canTakeFocus())
            return focus(candidate);
    }
    return false;
}

bool Form::enterFocus(FocusDirection direction) {
    assert(!focused_);
    active_ = nullptr;
    return moveFocus(direction);
}

void Form::settleFocus() {
    if (focused_ && !leaving_ && (active_ == nullptr || !active_->canTakeFocus()))
        moveFocus(FocusDirection::forward);
}

void Form::focusLeft() {
    if (!focused_)
        return;
    ++focusMoves_;
    endNote();
    if (active_ != nullptr && !leaving_ && !leave())
        return;
    focused_ = false;
    ifPossible([&] { handler().onFocusLeft(); });
}

// --- native focus ------------------------------------------------------------------------------

void Form::focusCame(Control* control, std::optional<FocusDirection> tabbed) {
    if (focused_) {
        if (control != nullptr && control != active_)
            focus(*control);
    } else if (tabbed) {
        enterFocus(*tabbed);
    } else {
        if (control == nullptr || !control->canTakeFocus())
            control = active_;
        if (control != nullptr && control->canTakeFocus())
            focus(*control);
        else
            enterFocus(FocusDirection::forward);
    }
}

Control* Form::keyTarget() const {
    return focused_ && active_ != nullptr && active_->canTakeFocus() ? active_ : nullptr;
}

} // namespace vkr
