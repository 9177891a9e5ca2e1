// SPDX-License-Identifier: MIT
#include "platform/control.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vkr {

Control::Control(ControlKind kind, ControlSite& site, std::string_view name, int index,
                 Frame* container)
    : kind_(kind), site_(site), name_(name), index_(index), container_(container) {}

std::string Control::id() const {
    return index_ == noIndex ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::move(Twips left, Twips top) {
    if (left == left_ && top == top_)
        return;
    left_ = left;
    top_ = top;
    notify(Property::place);
}

void Control::resize(Twips width, Twips height) {
    if (width == width_ && height == height_)
        return;
    width_ = width;
    height_ = height;
    notify(Property::place);
}

Twips Control::formLeft() const {
    return left_ + (container_ == nullptr ? 0 : container_->formLeft());
}

Twips Control::formTop() const {
    return top_ + (container_ == nullptr ? 0 : container_->formTop());
}

void Control::setVisible(bool visible) {
    assign(visible_, visible, Property::visible);
}
void Control::setEnabled(bool enabled) {
    assign(enabled_, enabled, Property::enabled);
}

bool Control::isShown() const {
    return visible_ && left_ > parkedLeft && (container_ == nullptr || container_->isShown());
}

bool Control::isEnabled() const {
    return enabled_ && (container_ == nullptr || container_->isEnabled());
}

bool Control::isFocusable() const {
    switch (kind_) {
    case ControlKind::textBox:
    case ControlKind::comboBox:
    case ControlKind::commandButton:
    case ControlKind::optionButton:
    case ControlKind::checkBox:
    case ControlKind::tabStrip:
        return true;
    default:
        return false; // bars and spinners are worked from the fields beside them
    }
}

void Control::setToolTip(std::string_view toolTip) {
    assign(toolTip_, toolTip, Property::toolTip);
}

bool Control::hasColors() const {
    return kind_ != ControlKind::scrollBar && kind_ != ControlKind::spinner &&
           kind_ != ControlKind::menuItem;
}

void Control::setBackColor(Color color) {
    if (!hasColors())
        throw std::logic_error(id() + " has no colours");
    assign(backColor_, color, Property::colors);
}

void Control::setForeColor(Color color) {
    if (!hasColors())
        throw std::logic_error(id() + " has no colours");
    assign(foreColor_, color, Property::colors);
}

bool Control::hasCaption() const {
    switch (kind_) {
    case ControlKind::label:
    case ControlKind::commandButton:
    case ControlKind::optionButton:
    case ControlKind::checkBox:
    case ControlKind::frame:
    case ControlKind::menuItem:
        return true;
    default:
        return false;
    }
}

void Control::setCaption(std::string_view caption) {
    if (!hasCaption())
        throw std::logic_error(id() + " has no caption");
    if (caption_ == caption)
        return;
    caption_ = caption;
    notify(Property::caption);
}

int Control::tabIndex() const {
    return site_.tabIndexOf(*this);
}

void Control::setTabIndex(int index) {
    site_.setTabIndex(*this, index);
}

void Control::setFocus() {
    site_.focus(*this);
}

void OptionButton::setValue(bool value) {
    if (value == value_)
        return;
    if (value)
        site().takeChoiceFromOthers(*this);
    value_ = value;
    notify(Property::value);
}

void ScrollBar::setValue(int value) {
    value = std::clamp(value, minimum_, maximum_);
    if (value == value_)
        return;
    value_ = value;
    notify(Property::value);
    site().scrolled(*this);
}

void ScrollBar::setRange(int minimum, int maximum, int smallChange, int largeChange) {
    maximum = std::max(minimum, maximum);
    smallChange = std::max(1, smallChange);
    largeChange = std::max(1, largeChange);
    const bool changed = minimum != minimum_ || maximum != maximum_ ||
                         smallChange != smallChange_ || largeChange != largeChange_;
    minimum_ = minimum;
    maximum_ = maximum;
    smallChange_ = smallChange;
    largeChange_ = largeChange;
    if (value_ != std::clamp(value_, minimum_, maximum_))
        setValue(value_);
    else if (changed)
        notify(Property::value);
}

bool isChosen(const Control& control) {
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return option->value();
    const auto* box = dynamic_cast<const CheckBox*>(&control);
    return box != nullptr && box->value();
}

const Tab& TabStrip::tab(int index) const {
    return tabs_.at(static_cast<std::size_t>(index - 1));
}

void TabStrip::addTab(Tab tab) {
    tabs_.push_back(std::move(tab));
    notify(Property::caption);
}

void TabStrip::setTabCaption(int index, std::string_view caption) {
    auto& changed = tabs_.at(static_cast<std::size_t>(index - 1)).caption;
    if (changed == caption)
        return;
    changed = caption;
    notify(Property::caption);
}

void TabStrip::selectTab(int index) {
    if (index < 1 || index > count())
        throw std::out_of_range(id() + " has no tab " + std::to_string(index));
    if (index != selected_) {
        selected_ = index;
        notify(Property::value);
    }
    site().tabSelected(*this);
}

} // namespace vkr
