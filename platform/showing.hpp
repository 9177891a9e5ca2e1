// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"

#include <bit>
#include <set>
#include <span>

namespace vkr {

// When an adapter draws what: a control gets its native part when its container is first on show,
// and what changes while nobody sees it is drawn when somebody does.

// The frame it is in can be seen; whether it can itself, its view says.
[[nodiscard]] inline bool isOnShow(const Control& control) {
    return control.container() == nullptr || control.container()->isShown();
}

[[nodiscard]] inline bool setsOnShow(Property property) {
    return property == Property::place || property == Property::visible;
}

// Properties that a view does not show yet.
class DueProperties {
  public:
    void add(Property property) { due_ |= bitOf(property); }

    // Each once, in their order. A text that the program put there takes the edit with it.
    template <typename Show>
    void show(const Show& show) {
        if ((due_ & bitOf(Property::text)) != 0)
            due_ &= ~bitOf(Property::edit);
        while (due_ != 0) {
            const auto property = static_cast<Property>(std::countr_zero(due_));
            due_ &= due_ - 1;
            show(property);
        }
    }

  private:
    static constexpr unsigned bitOf(Property property) {
        return 1U << static_cast<unsigned>(property);
    }

    unsigned due_ = 0;
};

// Tells a view of a change in its model, now or when it can be seen. A view is what has
// `control()`, `show(Property)`, `showLater(Property)` and `showDue()`.
template <typename View>
void tell(View& view, Property property) {
    const Control& control = *view.control();
    const bool canBeSeen = setsOnShow(property) ? isOnShow(control) : control.isShown();
    if (!canBeSeen && property != Property::order) {
        view.showLater(property);
        return;
    }
    if (setsOnShow(property) && control.isShown())
        view.showDue();
    view.show(property);
}

// A function by which a view shows a property. What views of all kinds show comes first; a kind has
// a table of its own for what it has more.
template <typename View>
struct Setter {
    Property property;
    void (View::*show)();

    template <typename Kind>
    Setter(Property changed, void (Kind::*setter)())
        : property(changed), show(static_cast<void (View::*)()>(setter)) {}

    static void call(View& view, Property property, std::span<const Setter> setters) {
        for (const Setter& setter : setters)
            if (setter.property == property)
                (view.*setter.show)();
    }
    [[nodiscard]] static std::span<const Setter> common() {
        static const Setter setters[] = {
            {Property::place, &View::showPlace},     {Property::visible, &View::showVisible},
            {Property::enabled, &View::showEnabled}, {Property::colors, &View::showColors},
            {Property::caption, &View::showNames},   {Property::toolTip, &View::showNames},
            {Property::mark, &View::showNames},      {Property::order, &View::showOrder},
        };
        return setters;
    }
};

// The frames on show whose views are up to date.
class FramesOnShow {
  public:
    // What the frame holds is drawn, by `draw`, before it is seen itself.
    template <typename Draw>
    void changed(const Control& frame, const Draw& draw) {
        if (!frame.isShown()) {
            drawn_.erase(&frame);
        } else if (!drawn_.contains(&frame)) {
            draw();
            drawn_.insert(&frame);
        }
    }
    void removed(const Control& control) { drawn_.erase(&control); }

  private:
    std::set<const Control*> drawn_;
};

} // namespace vkr
