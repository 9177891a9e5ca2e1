// SPDX-License-Identifier: MIT
#include "platform/virtual_desktop.hpp"

#include "platform/message_box.hpp"
#include "platform/text.hpp"
#include "platform/virtual_reach.hpp"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

template <typename Answer>
std::optional<Answer> takeFront(std::deque<Answer>& answers) {
    if (answers.empty())
        return std::nullopt;
    auto answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

} // namespace

// --- attaching -------------------------------------------------------------------------------

void VirtualDesktop::attach(Form& form) {
    if (form_ != nullptr && form_ != &form)
        fields_.clear();
    form_ = &form;
    press_.reset();
    away_ = false;
    for (const auto& control : form.controls())
        controlAdded(*control);
    form.setObserver(this);
}

Form& VirtualDesktop::form() const {
    if (form_ == nullptr)
        virtual_desktop::refuse("no form is attached");
    return *form_;
}

void VirtualDesktop::controlAdded(Control& control) {
    if (const auto* field = textFieldOf(&control))
        fields_.add(*field);
}

void VirtualDesktop::controlRemoved(Control& control) {
    if (const auto* field = textFieldOf(&control))
        fields_.remove(*field);
    if (pressed() == &control)
        press_->control = nullptr;
}

void VirtualDesktop::checkInvariants() const {
    assert(!press_ || form_ != nullptr);
    assert(pressed() == nullptr || form_->find(pressed()->name(), pressed()->index()) == pressed());
}

void VirtualDesktop::controlChanged(Control& control, Property property) {
    if (const auto* field = textFieldOf(&control))
        fields_.modelChanged(*field, property);
}

void VirtualDesktop::focusChanged() {
    fields_.endRuns();
}

bool VirtualDesktop::takesTab(FocusDirection /*direction*/) {
    return hostControls_ && leaveForm();
}

// --- scripted answers and records --------------------------------------------------------------

void VirtualDesktop::answerNext(MessageAnswer answer) {
    messageAnswers_.push_back(answer);
}
void VirtualDesktop::answerNextColor(std::optional<Color> color) {
    colorAnswers_.push_back(color);
}
void VirtualDesktop::answerNextDate(std::optional<Date> date) {
    dateAnswers_.emplace_back(date);
}
void VirtualDesktop::confirmNextDate() {
    dateAnswers_.emplace_back(ShownDate{});
}
void VirtualDesktop::answerNextMenu(std::string_view caption) {
    menuAnswers_.emplace_back(std::string(caption));
}
void VirtualDesktop::answerNextMenu(int index) {
    menuAnswers_.emplace_back(index);
}
void VirtualDesktop::dismissNextMenu() {
    menuAnswers_.emplace_back(-1);
}

void VirtualDesktop::answerNextPaste(std::function<void(PasteForm& form)> answer) {
    pasteAnswers_.push_back(std::move(answer));
}
void VirtualDesktop::acceptNextPaste() {
    answerNextPaste([](PasteForm& form) { form.pressOk(); });
}

bool VirtualDesktop::scriptUsedUp() const {
    return messageAnswers_.empty() && colorAnswers_.empty() && dateAnswers_.empty() &&
           menuAnswers_.empty() && pasteAnswers_.empty();
}

void VirtualDesktop::forget() {
    messages_.clear();
    colorDialogs_.clear();
    calendars_.clear();
    pastes_.clear();
    menus_.clear();
    propertyChanges_.clear();
    refusals_.clear();
}

// --- Services ----------------------------------------------------------------------------------

void VirtualDesktop::tellRefused(TextField& field, const std::string& note) {
    refusals_.push_back({field.id(), note});
    note_ = refusals_.back();
}

MessageAnswer VirtualDesktop::messageBox(const std::string& text, int buttons,
                                         const std::string& title) {
    const auto look = messageBoxLook(buttons);
    auto answer = look.chosen;
    const auto scripted = takeFront(messageAnswers_);
    if (scripted && std::ranges::find(look.buttons, *scripted) != look.buttons.end())
        answer = *scripted;
    messages_.push_back({text, buttons, title, answer});
    return answer;
}

Date VirtualDesktop::today() {
    return Date{std::trunc(today_.serial)};
}

std::optional<Color> VirtualDesktop::chooseColor(Color current) {
    const auto chosen = takeFront(colorAnswers_).value_or(std::nullopt);
    colorDialogs_.push_back({current, chosen});
    return chosen;
}

void VirtualDesktop::showModal(CalendarForm& form) {
    CalendarDialog shown{form.calendarDate(),
                         form.caption(),
                         std::nullopt,
                         {form.okCaption(), form.cancelCaption()}};
    while (form.visible()) {
        const auto answer = takeFront(dateAnswers_);
        const auto* scripted = answer ? std::get_if<std::optional<Date>>(&*answer) : nullptr;
        if (!answer || (scripted != nullptr && !*scripted)) {
            form.pressCancel();
            break;
        }
        if (scripted != nullptr)
            form.setCalendarDate(**scripted);
        form.pressOk();
        if (!form.visible())
            shown.chosen = form.calendarDate();
    }
    calendars_.push_back(std::move(shown));
}

void VirtualDesktop::showPaste(PasteForm& form) {
    pastes_.push_back({form.caption(), form.heads(), form.lines(), form.switches(), form.summary(),
                       form.okCaption()});
    if (const auto answer = takeFront(pasteAnswers_))
        (*answer)(form);
    if (form.visible())
        form.pressCancel();
}

bool VirtualDesktop::canUndo(const TextField& field) {
    return fields_.canUndo(field);
}

void VirtualDesktop::undo(TextField& field) {
    fields_.undo(field);
}

Twips VirtualDesktop::textWidth(std::string_view text) {
    return textLength(text) * characterWidth;
}

int VirtualDesktop::popUpMenu(const std::vector<MenuItem*>& items, Twips left, Twips top) {
    Menu menu;
    menu.left = left;
    menu.top = top;
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i]->visible())
            menu.entries.push_back(
                {items[i]->caption(), items[i]->enabled(), items[i]->tag(),
                 items[i]->index() == Control::noIndex ? static_cast<int>(i) : items[i]->index()});
    if (const auto answer = takeFront(menuAnswers_); answer && *answer != MenuAnswer(-1)) {
        const auto* index = std::get_if<int>(&*answer);
        const auto* caption = std::get_if<std::string>(&*answer);
        const auto named = [&](const MenuEntry& entry) {
            return index != nullptr
                       ? entry.index == *index
                       : entry.caption == *caption || withoutMnemonic(entry.caption) == *caption;
        };
        const auto chosen = std::find_if(menu.entries.begin(), menu.entries.end(), named);
        const std::string wanted = index != nullptr ? std::to_string(*index) : *caption;
        if (chosen == menu.entries.end())
            menu.refusal = "there is no entry " + wanted;
        else if (chosen->caption == "-")
            menu.refusal = "entry " + wanted + " is a separator";
        else if (!chosen->enabled)
            menu.refusal = "entry " + wanted + " is disabled";
        else
            menu.chosen = chosen->index;
    }
    menus_.push_back(std::move(menu));
    return menus_.back().chosen;
}

std::shared_ptr<Object> VirtualDesktop::createObject(std::string_view programmaticId) {
    return factory_.create(programmaticId);
}

bool VirtualDesktop::ambientUserMode() {
    if (!userMode_)
        throw std::runtime_error("the run mode can't be read");
    return *userMode_;
}

void VirtualDesktop::propertyChanged(std::string_view name) {
    propertyChanges_.emplace_back(name);
}

} // namespace vkr
