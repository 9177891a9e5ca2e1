// SPDX-License-Identifier: MIT
#include "platform/form.hpp"

#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <bit>
#include <cassert>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

FormHandler silentHandler;

} // namespace

Form::Form() = default;
Form::~Form() = default;

FormHandler& Form::handler() const {
    return handler_ == nullptr ? silentHandler : *handler_;
}

void Form::fail(std::string_view name, int index) {
    throw ProgramError("no control " + std::string(name) +
                       (index == Control::noIndex ? "" : "(" + std::to_string(index) + ")"));
}

void Form::adopt(std::unique_ptr<Control> control) {
    if (find(control->name(), control->index()) != nullptr)
        throw std::invalid_argument("control exists already: " + control->id());
    // Where memory runs out the form is as before.
    if (controls_.size() == controls_.capacity())
        controls_.reserve(2 * controls_.size() + 16);
    if (tabOrder_.size() == tabOrder_.capacity())
        tabOrder_.reserve(2 * tabOrder_.size() + 16);
    std::map<int, Control*> first{{control->index(), control.get()}};
    if (const auto named = byName_.find(control->name()); named == byName_.end())
        byName_.emplace(control->name(), std::move(first));
    else
        named->second.merge(first);
    tabOrder_.push_back(control.get());
    controls_.push_back(std::move(control));
    if (observer_ != nullptr)
        ifPossible([&] { observer_->controlAdded(*controls_.back()); });
}

void Form::remove(Control& control) {
    const auto isInside = [&](const auto& held) { return held->container() == &control; };
    for (;;) {
        const auto inside = std::find_if(controls_.begin(), controls_.end(), isInside);
        if (inside == controls_.end())
            break;
        remove(**inside);
    }
    if (active_ == &control) {
        endNote();
        active_ = nullptr;
        if (!leaving_) // else the move under way goes on
            ++focusMoves_;
    }
    if (observer_ != nullptr)
        ifPossible([&] { observer_->controlRemoved(control); });
    std::erase(tabOrder_, &control);
    std::erase(changed_, &control);
    for (const auto& held : controls_)
        if (held->kind() == ControlKind::label)
            if (auto& label = static_cast<Label&>(*held); label.buddy() == &control)
                label.setBuddy(nullptr);
    const auto named = byName_.find(control.name());
    named->second.erase(control.index());
    if (named->second.empty())
        byName_.erase(named);
    std::erase_if(controls_, [&](const auto& held) { return held.get() == &control; });
}

Control* Form::find(std::string_view name, int index) const {
    const auto named = byName_.find(name);
    if (named == byName_.end())
        return nullptr;
    const auto found = named->second.find(index);
    return found == named->second.end() ? nullptr : found->second;
}

const std::map<int, Control*>& Form::elements(std::string_view name) const {
    static const std::map<int, Control*> none;
    const auto found = byName_.find(name);
    return found == byName_.end() ? none : found->second;
}

int Form::upperBound(std::string_view name) const {
    const auto named = byName_.find(name);
    return named == byName_.end() ? -1 : named->second.rbegin()->first;
}

int Form::lowerBound(std::string_view name) const {
    const auto named = byName_.find(name);
    return named == byName_.end() ? 0 : std::max(0, named->second.begin()->first);
}

void Form::endNote() {
    if (observer_ != nullptr)
        observer_->noteOver();
}

void Form::tellChanged(Control& control, Property property) {
    if (observer_ == nullptr)
        return;
    if (property == Property::locked)
        endNote();
    if (updates_ == 0) {
        ifPossible([&] { observer_->controlChanged(control, property); });
        return;
    }
    if (control.changes_ == 0 && !attempt([&] { changed_.push_back(&control); })) {
        ifPossible([&] { observer_->controlChanged(control, property); });
        return;
    }
    control.changes_ |= 1U << static_cast<unsigned>(property);
}

void Form::tellFocus() {
    if (updates_ > 0)
        focusMoved_ = true;
    else if (observer_ != nullptr)
        ifPossible([&] { observer_->focusChanged(); });
}

void Form::endUpdate() {
    if (--updates_ > 0)
        return;
    const auto changed = std::exchange(changed_, {});
    for (Control* control : changed)
        while (control->changes_ != 0) {
            const auto property = static_cast<Property>(std::countr_zero(control->changes_));
            control->changes_ &= control->changes_ - 1;
            if (observer_ != nullptr)
                ifPossible([&] { observer_->controlChanged(*control, property); });
        }
    if (std::exchange(focusMoved_, false))
        tellFocus();
    checkInvariants();
}

void Form::checkInvariants() const {
    assert(updates_ >= 0);
    assert(updates_ > 0 || (changed_.empty() && !focusMoved_));
    assert(active_ == nullptr || holds(*active_));
    assert(tabOrder_.size() == controls_.size());
}

int Form::tabIndexOf(const Control& control) const {
    return static_cast<int>(std::ranges::find(tabOrder_, &control) - tabOrder_.begin());
}

void Form::setTabIndex(Control& control, int index) {
    std::erase(tabOrder_, &control);
    const auto place = std::clamp<std::ptrdiff_t>(index, 0, std::ssize(tabOrder_));
    tabOrder_.insert(tabOrder_.begin() + place, &control);
}

void Form::takeChoiceFromOthers(const OptionButton& chosen) {
    for (const auto& [index, other] : elements(chosen.name()))
        if (auto* option = dynamic_cast<OptionButton*>(other);
            option != nullptr && option != &chosen)
            option->setValue(false);
}

void Form::scrolled(ScrollBar& bar) {
    ifPossible([&] { handler().onScroll(bar); });
}

void Form::tabSelected(TabStrip& strip) {
    ifPossible([&] { handler().onTabSelected(strip); });
}

void Form::setSize(Twips width, Twips height) {
    if (width == width_ && height == height_)
        return;
    width_ = width;
    height_ = height;
    if (observer_ != nullptr)
        ifPossible([&] { observer_->formChanged(); });
}

void Form::setBackColor(Color color) {
    backColor_ = color;
    if (observer_ != nullptr)
        ifPossible([&] { observer_->formChanged(); });
}

void Form::setBorderStyle(BorderStyle style) {
    borderStyle_ = style;
    if (observer_ != nullptr)
        ifPossible([&] { observer_->formChanged(); });
}

void Form::setNumberMarks(NumberMarks marks) {
    if (marks.decimal != ',')
        marks.decimal = '.';
    if (marks.grouping == std::string_view(&marks.decimal, 1))
        marks.grouping = marks.decimal == '.' ? "," : ".";
    numberMarks_ = std::move(marks);
}

void Form::setMouseIcon(const Picture& icon) {
    mouseIcon_ = icon;
    if (observer_ != nullptr)
        ifPossible([&] { observer_->formChanged(); });
}

} // namespace vkr
