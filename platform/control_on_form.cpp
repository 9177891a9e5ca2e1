// SPDX-License-Identifier: MIT
// What controls do by means of the form they are on.
#include "platform/error_trap.hpp"
#include "platform/form.hpp"

#include <algorithm>
#include <stdexcept>

namespace vkr {

void Control::notify(Property property) {
    form_.tellChanged(*this, property);
}

int Control::tabIndex() const {
    const auto& order = form_.tabOrder();
    return static_cast<int>(std::find(order.begin(), order.end(), this) - order.begin());
}

void Control::setTabIndex(int index) {
    form_.setTabIndex(*this, index);
}

void Control::bringToFront() {
    form_.reorderFront(*this);
}

void Control::setFocus() {
    form_.focus(*this);
}

void OptionButton::setValue(bool value) {
    if (value == value_)
        return;
    if (value)
        for (int i = form().lowerBound(name()); i <= form().upperBound(name()); ++i)
            if (auto* other = dynamic_cast<OptionButton*>(form().find(name(), i));
                other != nullptr && other != this)
                other->setValue(false);
    value_ = value;
    notify(Property::value);
}

void ScrollBar::setValue(int value) {
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_)
        return;
    value_ = value;
    notify(Property::value);
    ifPossible([&] { form().handler().onScroll(*this); });
}

void TabStrip::selectTab(int index) {
    if (index < 1 || index > count())
        throw std::out_of_range(id() + " has no tab " + std::to_string(index));
    if (index != selected_) {
        selected_ = index;
        notify(Property::value);
    }
    ifPossible([&] { form().handler().onTabSelected(*this); });
}

} // namespace vkr
