// SPDX-License-Identifier: MIT
#include "platform/text_field.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <cassert>
#include <stdexcept>
#include <utility>

namespace vkr {

void TextField::setText(std::string_view text) {
    showText(text);
    entryText_.reset();
}

void TextField::beginEntry() {
    if (std::exchange(entryText_, nullptr) != nullptr && !isUnstored())
        notify(Property::text);
}

void TextField::rewriteText(std::string_view text) {
    if (text_ != text)
        keepEntry();
    showText(text);
}

// The selection is put anew after it.
bool TextField::putEdit(std::string_view text) {
    if (text_ == text)
        return false;
    keepEntry();
    text_ = text;
    settleDoubt();
    return true;
}

void TextField::keepEntry() {
    if (entryText_ == nullptr)
        entryText_ = std::make_unique<const std::string>(text_);
}

const TextField::Told& TextField::told() const {
    static const Told nothing;
    return told_ == nullptr ? nothing : *told_;
}

void TextField::showText(std::string_view text) {
    const bool changed = text_ != text;
    const bool edited = entryText_ != nullptr; // there is something to take back
    if (!changed && !edited && selStart_ == 0 && selLength_ == 0)
        return;
    text_ = text;
    selStart_ = 0;
    selLength_ = 0;
    if (changed)
        textChanged();
    notify(changed || edited ? Property::text : Property::selection);
}

bool TextField::editText(std::string_view text, int selectionStart) {
    if (locked_)
        return false;
    const bool changed = putEdit(text);
    putSelection(selectionStart, 0);
    if (changed)
        textChanged();
    notify(changed ? Property::edit : Property::selection);
    return true;
}

std::string_view TextField::selText() const {
    return textMiddle(text_, selStart_, selLength_);
}

void TextField::select(int start, int length) {
    const auto before = std::pair(selStart_, selLength_);
    putSelection(start, length);
    if (before != std::pair(selStart_, selLength_))
        notify(Property::selection);
}

void TextField::putSelection(int start, int length) {
    const int end = textLength(text_);
    selStart_ = std::clamp(start, 0, end);
    selLength_ = std::clamp(length, 0, end - selStart_);
    checkInvariants();
}

void TextField::checkInvariants() const {
    assert(selStart_ >= 0 && selLength_ >= 0 && selStart_ + selLength_ <= textLength(text_));
}

// Of changes that leave the mark or take it off.
template <typename Change>
void TextField::changeState(const Change& change) {
    const MarkKind before = mark().kind;
    change();
    if (mark().kind != before)
        notify(Property::mark);
}

void TextField::showStored(std::string_view text) {
    setText(text);
    changeState([&] { state_.show(text); });
}

void TextField::lookAtText() {
    changeState([&] { state_.lookAt(text_); });
}

void TextField::replaceStored() {
    changeState([&] { state_.replace(text_); });
}

void TextField::putBackRefused(std::string_view text, const FieldMark& mark) {
    FieldState refused = state_; // as a whole or not at all: memory may run out in between
    refused.putBackRefused(text, text_, mark);
    setText(text);
    state_ = std::move(refused);
    notify(Property::mark);
}

void TextField::takeTypedBack() {
    setText(tag());
    acceptText();
}

void TextField::setMark(const FieldMark& mark) {
    if (mark == state_.mark())
        return;
    state_.setMark(mark);
    notify(Property::mark);
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
    Edit result{.text = std::string(textLeft(edited, front))};
    result.text += capitals_ ? upperCase(fitting) : std::string(fitting);
    result.text += textFrom(edited, newLength - back);
    const bool isCut = fitting.size() < putIn.size();
    result.caret = isCut ? std::min(caret, textLength(result.text) - back) : caret;
    return result;
}

void TextField::takeUserEdit(std::string_view text, int start, int length) {
    putEdit(text);
    putSelection(start, length);
    textChanged();
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

} // namespace vkr
