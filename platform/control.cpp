// SPDX-License-Identifier: MIT
#include "platform/control.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <stdexcept>

namespace vkr {

Control::Control(ControlKind kind, Form& form, std::string_view name, int index, Frame* container)
    : kind_(kind), form_(form), name_(name), index_(index), container_(container) {}

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

void TextField::setText(std::string_view text) {
    rewriteText(text);
    beginEntry();
}

void TextField::rewriteText(std::string_view text) {
    const bool changed = text_ != text;
    if (!changed && selStart_ == 0 && selLength_ == 0)
        return;
    text_ = text;
    selStart_ = 0;
    selLength_ = 0;
    if (changed)
        textChanged();
    notify(changed ? Property::text : Property::selection);
}

bool TextField::editText(std::string_view text, int selectionStart) {
    if (locked_)
        return false;
    const bool changed = text_ != text;
    if (changed)
        settleDoubt();
    text_ = text;
    selStart_ = std::clamp(selectionStart, 0, textLength(text_));
    selLength_ = 0;
    if (changed)
        textChanged();
    notify(changed ? Property::edit : Property::selection);
    return true;
}

std::string_view TextField::selText() const {
    return textMiddle(text_, selStart_, selLength_);
}

void TextField::select(int start, int length) {
    const int end = textLength(text_);
    start = std::clamp(start, 0, end);
    length = std::clamp(length, 0, end - start);
    if (start == selStart_ && length == selLength_)
        return;
    selStart_ = start;
    selLength_ = length;
    notify(Property::selection);
}

void TextField::settleDoubt() {
    if (isDoubtful())
        setMark({});
}

bool TextField::isFull() const {
    return maxLength_ > 0 && textLength(text_) - selLength_ >= maxLength_;
}

TextField::Edit TextField::taken(std::string_view edited, int caret) const {
    const int newLength = textLength(edited);
    if (!capitals_ && (maxLength_ <= 0 || newLength <= maxLength_))
        return {std::string(edited), caret};
    // What stands in front of what was put in, and behind it.
    const int oldLength = textLength(text_);
    const int shorter = std::min(oldLength, newLength);
    const auto same = [&](int inOld, int inNew) {
        return textMiddle(text_, inOld, 1) == textMiddle(edited, inNew, 1);
    };
    int front = 0;
    while (front < shorter && same(front, front))
        ++front;
    int back = 0;
    while (back < shorter - front && same(oldLength - back - 1, newLength - back - 1))
        ++back;
    const auto putIn = textMiddle(edited, front, newLength - front - back);
    const auto fitting =
        maxLength_ > 0 ? textLeft(putIn, std::max(0, maxLength_ - front - back)) : putIn;
    if (fitting.empty() && !putIn.empty())
        return {text_, selStart_};
    Edit result{std::string(textLeft(edited, front)), 0};
    result.text += capitals_ ? upperCase(fitting) : std::string(fitting);
    result.text += textFrom(edited, newLength - back);
    result.caret = std::min(caret, textLength(result.text) - back);
    return result;
}

void TextField::takeUserEdit(std::string_view text, int start, int length) {
    if (text_ != text)
        settleDoubt();
    text_ = text;
    takeUserSelection(start, length);
    textChanged();
}

void TextField::takeUserSelection(int start, int length) {
    const int end = textLength(text_);
    selStart_ = std::clamp(start, 0, end);
    selLength_ = std::clamp(length, 0, end - selStart_);
}

void ComboBox::clearList() {
    setList({});
}

void ComboBox::addItem(std::string_view item) {
    list_.emplace_back(item);
    findText();
    notify(Property::list);
}

void ComboBox::setList(std::vector<std::string> list) {
    if (list_ == list)
        return;
    list_ = std::move(list);
    findText();
    notify(Property::list);
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= static_cast<int>(list_.size()))
        throw std::out_of_range(id() + " has no entry " + std::to_string(index));
    setText(index < 0 ? std::string() : list_[static_cast<std::size_t>(index)]);
    listIndex_ = index; // of equal entries the one that was asked for
}

void ComboBox::findText() {
    if (listIndex_ >= 0 && listIndex_ < static_cast<int>(list_.size()) &&
        list_[static_cast<std::size_t>(listIndex_)] == text())
        return;
    const auto found = std::find(list_.begin(), list_.end(), text());
    listIndex_ = found == list_.end() ? -1 : static_cast<int>(found - list_.begin());
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

} // namespace vkr
