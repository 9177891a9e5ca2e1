// SPDX-License-Identifier: MIT
#include "platform/form.hpp"

#include "platform/error_trap.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

FormHandler silentHandler;

// Windowless controls hear of the pointer before the focus moves to them; a field only then.
bool hearsPressFirst(const Control& control) {
    return control.kind() == ControlKind::commandButton ||
           control.kind() == ControlKind::optionButton || control.kind() == ControlKind::checkBox;
}

// Takes a flag back when its scope is left, be it by an exception.
struct Reset {
    bool& flag;
    ~Reset() { flag = false; }
};

// The tab of a strip that has the letter; 0 for none.
int tabOf(const TabStrip& strip, char32_t letter) {
    for (int i = 1; i <= strip.count(); ++i)
        if (mnemonicOf(strip.tab(i).caption) == letter)
            return i;
    return 0;
}

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
        for (unsigned property = 0; control->changes_ != 0; ++property) {
            const unsigned bit = 1U << property;
            if ((control->changes_ & bit) == 0)
                continue;
            control->changes_ &= ~bit;
            if (observer_ != nullptr)
                ifPossible(
                    [&] { observer_->controlChanged(*control, static_cast<Property>(property)); });
        }
    if (std::exchange(focusMoved_, false))
        tellFocus();
}

void Form::setTabIndex(Control& control, int index) {
    std::erase(tabOrder_, &control);
    const auto place = std::clamp<std::ptrdiff_t>(index, 0, std::ssize(tabOrder_));
    tabOrder_.insert(tabOrder_.begin() + place, &control);
}

void Form::reorderFront(Control& control) {
    tellChanged(control, Property::order);
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

// --- focus -----------------------------------------------------------------------------------

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
    if (auto* field = dynamic_cast<TextField*>(&control))
        ifPossible([&] { field->beginEntry(); });
    ifPossible([&] { handler().onGotFocus(control); });
    if (mine == focusMoves_)
        tellFocus();
    return mine == focusMoves_;
}

// The leave event of the active control. False when its handler has sent the focus elsewhere, or
// has kept it.
bool Form::leave() {
    const unsigned before = focusMoves_;
    leaving_ = true;
    const Reset reset{leaving_};
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

bool Form::moveFocus(FocusDirection direction, bool wrap) {
    const auto count = std::ssize(tabOrder_);
    if (count == 0)
        return false;
    const std::ptrdiff_t step = direction == FocusDirection::forward ? 1 : -1;
    auto place = std::find(tabOrder_.begin(), tabOrder_.end(), active_) - tabOrder_.begin();
    if (place == count)
        place = step > 0 ? -1 : count;
    for (std::ptrdiff_t tried = 0; tried < count; ++tried) {
        place += step;
        if (place < 0 || place >= count) {
            if (!wrap)
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
    active_ = nullptr;
    focused_ = false;
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

// --- keys --------------------------------------------------------------------------------------

bool Form::keyDown(KeyCode key, int shift, bool repeated) {
    pressedKey_ = key;
    keyHeld_ = repeated;
    if (!repeated)
        endNote();
    if (repeated && (key == keys::menu || (key >= keys::f1 && key <= keys::f12)))
        return false;
    const bool altAlone = (shift & (shifts::alt | shifts::control)) == shifts::alt;
    if (altAlone && key > keys::space && key <= 'Z' && key >= '0' &&
        mnemonic(static_cast<char32_t>(key)))
        return false;
    if (active_ == nullptr)
        return true;
    Control& control = *active_;
    const unsigned before = focusMoves_;
    ifPossible([&] { handler().onKeyDown(control, key, shift); });
    if (key == keys::none || before != focusMoves_)
        return false;
    if (key == keys::tab && (shift & (shifts::control | shifts::alt)) == 0) {
        const auto direction =
            (shift & shifts::shift) != 0 ? FocusDirection::backward : FocusDirection::forward;
        // A leave handler that sends the focus elsewhere, or keeps it, has the last word.
        const unsigned moves = focusMoves_;
        if (!moveFocus(direction, false) && moves == focusMoves_ &&
            !(tabbedOut && tabbedOut(direction)) && moves == focusMoves_)
            moveFocus(direction);
        return false;
    }
    return !builtInKey(control, key, shift);
}

// What an edited field showed when it was entered.
bool Form::takeBack(Control& control) {
    auto* field = dynamic_cast<TextField*>(&control);
    if (field == nullptr || !field->canTakeBack())
        return false;
    field->editText(field->entryText(), 0);
    field->select(0, textLength(field->text()));
    ifPossible([&] { handler().onChange(*field); });
    return true;
}

bool Form::builtInKey(Control& control, KeyCode key, int shift) {
    const bool plain = shift == shifts::none;
    if (plain && key == keys::escape)
        return takeBack(control);
    const int step = key == keys::right || key == keys::down ? 1
                     : key == keys::left || key == keys::up  ? -1
                                                             : 0;
    switch (control.kind()) {
    case ControlKind::commandButton:
        if (plain && (key == keys::enter || key == keys::space)) {
            press(control);
            return true;
        }
        return false;
    case ControlKind::checkBox:
        if (plain && key == keys::space) {
            press(control);
            return true;
        }
        return false;
    case ControlKind::optionButton:
        if (plain && key == keys::space)
            press(control);
        else if (plain && step != 0)
            stepOption(static_cast<OptionButton&>(control), step);
        else
            return false;
        return true;
    case ControlKind::tabStrip: {
        auto& strip = static_cast<TabStrip&>(control);
        const int target = strip.selected() + step;
        if (plain && step != 0 && target >= 1 && target <= strip.count()) {
            userSelectTab(strip, target);
            return true;
        }
        return false;
    }
    case ControlKind::comboBox: {
        auto& list = static_cast<ComboBox&>(control);
        const bool vertical = key == keys::up || key == keys::down;
        if (!plain || !vertical)
            return false;
        const int target = list.listIndex() + step;
        if (target >= 0 && target < static_cast<int>(list.list().size()))
            userPick(list, target);
        return true;
    }
    default:
        return false;
    }
}

// A press from the keyboard takes the same way as one with the pointer.
void Form::press(Control& control) {
    mouseDown(control, MouseButton::left);
    click(control);
}

void Form::stepOption(OptionButton& option, int step) {
    for (int i = option.index() + step;; i += step) {
        auto* target = dynamic_cast<OptionButton*>(find(option.name(), i));
        if (target == nullptr)
            return;
        if (target->canTakeFocus()) {
            press(*target);
            return;
        }
    }
}

bool Form::keyPress(char32_t& character) {
    if (active_ == nullptr)
        return true;
    const unsigned before = focusMoves_;
    if (!attempt([&] { handler().onKeyPress(*active_, character); }))
        character = 0; // what the filter did not see is not typed
    if (character == 0 || before != focusMoves_)
        return false;
    const auto* field = dynamic_cast<TextField*>(active_);
    return field == nullptr || character < U' ' || character == 0x7F || !field->isFull();
}

void Form::keyUp(KeyCode key, int shift) {
    if (active_ != nullptr)
        ifPossible([&] { handler().onKeyUp(*active_, key, shift); });
}

void Form::sendKey(KeyCode key, int shift) {
    sentKeys_.emplace_back(key, shift);
}

void Form::keyDone() {
    if (sending_)
        return;
    sending_ = true;
    const Reset reset{sending_};
    while (!sentKeys_.empty()) {
        const auto [key, shift] = sentKeys_.front();
        sentKeys_.pop_front();
        keyDown(key, shift);
        keyUp(key, shift);
    }
    pressedKey_ = keys::none;
}

bool Form::bearsMnemonic(const Control& control, char32_t letter) const {
    if (!control.isShown() || !control.isEnabled() || control.kind() == ControlKind::menuItem)
        return false;
    if (const auto* strip = dynamic_cast<const TabStrip*>(&control))
        return tabOf(*strip, letter) != 0;
    return control.hasCaption() && mnemonicOf(control.caption()) == letter &&
           mnemonicTarget(control) != nullptr;
}

// Null where the letter of a caption leads nowhere.
Control* Form::mnemonicTarget(const Control& control) const {
    const auto first = [this](auto begin, auto accepts) {
        const auto found = std::find_if(begin, tabOrder_.end(), accepts);
        return found == tabOrder_.end() ? nullptr : *found;
    };
    if (control.kind() == ControlKind::frame)
        return first(tabOrder_.begin(), [&](Control* held) {
            const Control* around = held->container();
            while (around != nullptr && around != &control)
                around = around->container();
            const auto* option = dynamic_cast<OptionButton*>(held);
            return around != nullptr && held->canTakeFocus() &&
                   (option == nullptr || !passesOver(*option));
        });
    const auto place = std::find(tabOrder_.begin(), tabOrder_.end(), &control);
    const auto* label = dynamic_cast<const Label*>(&control);
    if (label == nullptr)
        return control.canTakeFocus() ? *place : nullptr;
    if (Control* named = label->buddy()) {
        while (named != nullptr && !named->canTakeFocus())
            named = named->index() == Control::noIndex ? nullptr
                                                       : find(named->name(), named->index() + 1);
        return named;
    }
    return first(place, [&](Control* next) {
        return next->container() == control.container() && next->canTakeFocus();
    });
}

bool Form::hasMnemonic(char32_t letter) const {
    return std::any_of(controls_.begin(), controls_.end(),
                       [this, upper = upperCase(letter)](const auto& control) {
                           return bearsMnemonic(*control, upper);
                       });
}

bool Form::mnemonic(char32_t letter) {
    letter = upperCase(letter);
    std::vector<Control*> candidates;
    const auto count = std::ssize(tabOrder_);
    auto start = std::find(tabOrder_.begin(), tabOrder_.end(), active_) - tabOrder_.begin();
    if (start == count)
        start = -1;
    for (std::ptrdiff_t offset = 1; offset <= count; ++offset) {
        Control& control = *tabOrder_[static_cast<std::size_t>((start + offset) % count)];
        if (!bearsMnemonic(control, letter))
            continue;
        if (auto* strip = dynamic_cast<TabStrip*>(&control)) {
            userSelectTab(*strip, tabOf(*strip, letter));
            return true;
        }
        candidates.push_back(&control);
    }
    if (candidates.empty())
        return false;
    Control& bearer = *candidates.front();
    Control& target = *mnemonicTarget(bearer);
    if (candidates.size() > 1 || &bearer != &target)
        return focus(target);
    press(target);
    return true;
}

// --- edits and pointer -------------------------------------------------------------------------

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
    if (field.locked() || !handler().onPaste(field, text))
        return false;
    const auto* box = dynamic_cast<const TextBox*>(&field);
    const std::string pasted = cleanedPaste(text, box != nullptr && box->multiLine());
    if (pasted.empty())
        return false;
    const std::string before = field.text();
    const int start = field.selStart();
    std::string edited(textLeft(before, start));
    edited += pasted;
    edited += textFrom(before, start + field.selLength());
    const auto taken = field.taken(edited, start + textLength(pasted));
    const int cut = textLength(edited) - textLength(taken.text);
    const int fitting = taken.text == before && edited != before
                            ? 0 // no room at all
                            : std::max(0, textLength(pasted) - cut);
    field.editText(taken.text, taken.caret);
    if (taken.text != before)
        ifPossible([&] { handler().onChange(field); });
    const auto leftOut = textFrom(pasted, fitting);
    if (!trimmed(leftOut).empty() && holds(field))
        ifPossible([&] { handler().onPasteCut(field, leftOut); });
    return fitting > 0;
}

void Form::userSelect(TextField& field, int start, int length) {
    field.takeUserSelection(start, length);
}

void Form::mouseDown(Control& control, MouseButton button, int tab) {
    endNote();
    if (!control.isShown() || !control.isEnabled())
        return;
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

void Form::userSelectTab(TabStrip& strip, int index) {
    if (strip.isShown() && strip.isEnabled())
        strip.selectTab(index);
}

} // namespace vkr
