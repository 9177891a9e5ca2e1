// SPDX-License-Identifier: MIT
#pragma once

#include "platform/form.hpp"

#include <cassert>
#include <utility>

namespace vkr {

// Where the button comes up: over the control that was pressed, or elsewhere.
enum class PressEnd { inside, outside };

// A press of the pointer on a control, as a face has it, from the button's way down until it is up
// again or the press is given up. A view is what has `control()` and `pressEnded()`.
//
// What may be true together: without a view no press is under way, and nothing else is known. A
// view in it has its control.
template <typename View>
class Press {
  public:
    void begin(View& view, MouseButton button) {
        *this = {};
        view_ = &view;
        button_ = button;
    }
    [[nodiscard]] bool isOf(const View& view) const { return view_ == &view; }
    [[nodiscard]] bool drags(const View& view) const {
        return isOf(view) && button_ == MouseButton::left;
    }

    // It is held over a control: true for another one than the last time, to begin with than its
    // own.
    bool comesOver(const View& over) {
        if (&over == over_ || (isOf(over) && over_ == nullptr))
            return false;
        over_ = &over;
        return true;
    }
    // It selects controls, and no text in its own.
    [[nodiscard]] bool selects() const { return selects_; }
    void setSelects(const View& view, bool selects) { selects_ = selects && isOf(view); }

    // The button is up. The form may take everything down then.
    void end(Form& form, View& view, MouseButton button, PressEnd end) {
        if (!isOf(view) || button != button_)
            return;
        if (end == PressEnd::outside || button != MouseButton::left) {
            giveUp(form);
            return;
        }
        *this = {};
        view.pressEnded();
        form.click(*view.control());
    }
    void giveUp(Form& form) {
        View* view = std::exchange(*this, {}).view_;
        if (view == nullptr)
            return;
        view->pressEnded();
        form.pressGivenUp(*view->control());
    }

    // The view goes.
    void forget(const View& view) {
        if (isOf(view))
            *this = {};
        if (over_ == &view)
            over_ = nullptr;
    }

    void checkInvariants() const {
        assert(view_ != nullptr || (over_ == nullptr && !selects_));
        assert(view_ == nullptr || view_->control() != nullptr);
    }

  private:
    View* view_ = nullptr;
    const View* over_ = nullptr; // the last one
    MouseButton button_ = MouseButton::left;
    bool selects_ = false;
};

} // namespace vkr
