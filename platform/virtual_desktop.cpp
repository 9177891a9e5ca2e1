// SPDX-License-Identifier: MIT
#include "platform/virtual_desktop.hpp"

#include "platform/text.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace vkr {

namespace {

[[noreturn]] void refuse(const std::string& why) {
    throw std::logic_error(why);
}

template <typename Answer>
std::optional<Answer> takeFront(std::deque<Answer>& answers) {
    if (answers.empty())
        return std::nullopt;
    auto answer = std::move(answers.front());
    answers.pop_front();
    return answer;
}

// --- message boxes ---------------------------------------------------------------------------

constexpr int buttonsMask = 7;
constexpr int defaultMask = 0x300;

std::vector<MessageAnswer> buttonsOf(int code) {
    constexpr int okCancel = 1;
    constexpr int yesNoCancel = 3;
    switch (code & buttonsMask) {
    case okCancel:
        return {MessageAnswer::ok, MessageAnswer::cancel};
    case yesNoCancel:
        return {MessageAnswer::yes, MessageAnswer::no, MessageAnswer::cancel};
    case message_box::yesNo:
        return {MessageAnswer::yes, MessageAnswer::no};
    default:
        return {MessageAnswer::ok};
    }
}

// --- controls ----------------------------------------------------------------------------------

struct ControlName {
    std::string_view name;
    int index;
};

// "txtSales(3)" is name and index; what has no such end is a name as a whole.
ControlName splitId(std::string_view id, int index) {
    const auto open = id.rfind('(');
    if (index != Control::noIndex || open == std::string_view::npos || id.back() != ')')
        return {id, index};
    const auto digits = id.substr(open + 1, id.size() - open - 2);
    int parsed = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, parsed);
    if (error != std::errc() || stop != end || parsed < 0)
        return {id, index};
    return {id.substr(0, open), parsed};
}

struct Area {
    Twips left;
    Twips top;
    Twips right;
    Twips bottom;

    [[nodiscard]] bool empty() const { return left >= right || top >= bottom; }
    void cutTo(const Area& other) {
        left = std::max(left, other.left);
        top = std::max(top, other.top);
        right = std::min(right, other.right);
        bottom = std::min(bottom, other.bottom);
    }
};

// Controls that nobody has given a size yet count as a dot.
Area areaOf(const Control& control) {
    const Twips left = control.formLeft();
    const Twips top = control.formTop();
    return {left, top, left + std::max<Twips>(1, control.width()),
            top + std::max<Twips>(1, control.height())};
}

// Why a person can't point at a control; empty when one can.
std::string reasonOutOfReach(const Control& control) {
    if (control.kind() == ControlKind::menuItem)
        return "is an entry of the menu";
    auto area = areaOf(control);
    for (const Control* part = &control; part != nullptr; part = part->container()) {
        if (!part->visible())
            return part == &control ? "is invisible" : "is invisible with " + part->id();
        if (part->left() <= Control::parkedLeft)
            return "is on a page that is not on show";
        if (part != &control && part->width() > 0 && part->height() > 0)
            area.cutTo(areaOf(*part));
    }
    const auto& form = control.form();
    if (form.width() > 0 && form.height() > 0)
        area.cutTo({0, 0, form.width(), form.height()});
    return area.empty() ? "is scrolled out of view" : "";
}

// Pressed twice they act twice; on all others the second press is a double-click.
bool actsOnEveryPress(const Control& control) {
    return control.kind() == ControlKind::commandButton ||
           control.kind() == ControlKind::optionButton || control.kind() == ControlKind::checkBox;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text)
        if (c == '\n')
            result += "\\n";
        else if (c == '\r')
            result += "\\r";
        else
            result += c;
    return result + '"';
}

// What a control shows beside its place.
std::string contentOf(const Control& control) {
    if (const auto* field = dynamic_cast<const TextField*>(&control))
        return quoted(field->text());
    if (const auto* option = dynamic_cast<const OptionButton*>(&control))
        return (option->value() ? "(x) " : "( ) ") + quoted(option->caption());
    if (const auto* box = dynamic_cast<const CheckBox*>(&control))
        return (box->value() ? "[x] " : "[ ] ") + quoted(box->caption());
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control))
        return std::to_string(bar->value()) + " of " + std::to_string(bar->minimum()) + " to " +
               std::to_string(bar->maximum());
    if (const auto* strip = dynamic_cast<const TabStrip*>(&control)) {
        std::string tabs;
        for (int i = 1; i <= strip->count(); ++i)
            tabs += (i == 1 ? "" : " ") + std::string(i == strip->selected() ? ">" : "") +
                    quoted(strip->tab(i).caption);
        return tabs;
    }
    return control.hasCaption() ? quoted(control.caption()) : "";
}

} // namespace

// --- attaching -------------------------------------------------------------------------------

void VirtualDesktop::attach(Form& form) {
    if (form_ != nullptr && form_ != &form)
        fields_.clear();
    form_ = &form;
    pressed_ = nullptr;
    pressing_ = false;
    away_ = false;
    for (const auto& control : form.controls())
        controlAdded(*control);
    form.setObserver(this);
    form.tabbedOut = [this](FocusDirection) { return hostControls_ && leaveForm(); };
}

Form& VirtualDesktop::form() const {
    if (form_ == nullptr)
        refuse("no form is attached");
    return *form_;
}

void VirtualDesktop::controlAdded(Control& control) {
    if (const auto* field = dynamic_cast<const TextField*>(&control))
        fields_.add(*field);
}

void VirtualDesktop::controlRemoved(Control& control) {
    if (const auto* field = dynamic_cast<const TextField*>(&control))
        fields_.remove(*field);
    if (pressed_ == &control)
        pressed_ = nullptr;
}

void VirtualDesktop::controlChanged(Control& control, Property property) {
    if (const auto* field = dynamic_cast<const TextField*>(&control))
        fields_.modelChanged(*field, property);
}

void VirtualDesktop::focusChanged() {
    fields_.endRuns();
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

bool VirtualDesktop::scriptUsedUp() const {
    return messageAnswers_.empty() && colorAnswers_.empty() && dateAnswers_.empty() &&
           menuAnswers_.empty();
}

void VirtualDesktop::forget() {
    messages_.clear();
    colorDialogs_.clear();
    calendars_.clear();
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
    const auto offered = buttonsOf(buttons);
    const auto defaultButton =
        static_cast<std::size_t>((buttons & defaultMask) / message_box::defaultSecondButton);
    auto answer = offered[std::min(defaultButton, offered.size() - 1)];
    const auto scripted = takeFront(messageAnswers_);
    if (scripted && std::find(offered.begin(), offered.end(), *scripted) != offered.end())
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
    CalendarDialog shown{form.calendarDate(), form.caption(), std::nullopt};
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

// --- keyboard ------------------------------------------------------------------------------------

void VirtualDesktop::type(std::string_view notation) {
    const auto strokes = parseKeyNotation(notation);
    if (away_)
        refuse("another window is active: switchBack() first");
    if (!form().hasFocus())
        refuse("the form does not have the focus: click into it or tabInto() first");
    for (const auto& stroke : strokes)
        for (int i = 0; i < stroke.count; ++i)
            strike(stroke);
}

TextField* VirtualDesktop::editedField() const {
    auto* field = dynamic_cast<TextField*>(form_->activeControl());
    return field != nullptr && form_->hasFocus() && field->canTakeFocus() ? field : nullptr;
}

void VirtualDesktop::strike(const KeyStroke& stroke) {
    if (!form_->hasFocus())
        return;
    constexpr int notShift = shifts::control | shifts::alt;
    const bool isMnemonic = (stroke.shift & notShift) == shifts::alt && stroke.character >= 0x80 &&
                            form_->mnemonic(stroke.character);
    if (!isMnemonic && form_->keyDown(stroke.key, stroke.shift)) {
        if (stroke.character != 0 && (stroke.shift & notShift) == 0)
            typeCharacter(stroke.character);
        else if (auto* field = editedField())
            fields_.key(*field, stroke);
    }
    form_->keyDone();
    form_->keyUp(stroke.key, stroke.shift);
}

void VirtualDesktop::typeCharacter(char32_t character) {
    if (!form_->keyPress(character))
        return;
    if (auto* field = editedField())
        fields_.character(*field, character);
}

// --- mouse ---------------------------------------------------------------------------------------

Control& VirtualDesktop::control(std::string_view id, int index) const {
    const auto [name, element] = splitId(id, index);
    auto* found = form().find(name, element);
    if (found == nullptr)
        refuse("there is no control " + std::string(id) +
               (index == Control::noIndex ? "" : "(" + std::to_string(index) + ")"));
    return *found;
}

bool VirtualDesktop::canReach(std::string_view id, int index) const {
    return reasonOutOfReach(control(id, index)).empty();
}

Control& VirtualDesktop::reach(std::string_view id, int index) {
    auto& found = control(id, index);
    if (const auto reason = reasonOutOfReach(found); !reason.empty())
        refuse(found.id() + " can't be clicked: it " + reason);
    away_ = false;
    return found;
}

template <typename Kind>
Kind& VirtualDesktop::reachKind(std::string_view id, std::string_view kind) {
    auto* found = dynamic_cast<Kind*>(&control(id));
    if (found == nullptr)
        refuse(std::string(id) + " is no " + std::string(kind));
    reach(id);
    return *found;
}

TextField& VirtualDesktop::focusedField() const {
    auto* field = dynamic_cast<TextField*>(form().activeControl());
    if (field == nullptr || !form_->hasFocus())
        refuse("no text field has the focus");
    return *field;
}

void VirtualDesktop::pressControl(Control& control, MouseButton button, int tab) {
    pressing_ = true;
    pressedButton_ = button;
    pressed_ = control.isEnabled() ? &control : nullptr;
    if (pressed_ == nullptr)
        return;
    auto* field = dynamic_cast<TextField*>(&control);
    const bool placesCaret = field != nullptr && button == MouseButton::left && form_->hasFocus() &&
                             form_->activeControl() == &control;
    form_->mouseDown(control, button, tab);
    if (placesCaret && pressed_ != nullptr)
        fields_.select(*field, textLength(field->text()), 0);
}

void VirtualDesktop::press(std::string_view id, int index, MouseButton button) {
    auto& target = reach(id, index);
    if (pressing_)
        refuse("a press is under way already");
    pressControl(target, button);
}

void VirtualDesktop::release(std::string_view id, int index) {
    if (!pressing_)
        refuse("nothing is pressed");
    if (&reach(id, index) != pressed_)
        dragAway();
    else
        release();
}

void VirtualDesktop::release() {
    if (!pressing_)
        refuse("nothing is pressed");
    if (pressedButton_ != MouseButton::left) {
        dragAway();
        return;
    }
    pressing_ = false;
    if (auto* released = std::exchange(pressed_, nullptr))
        form_->click(*released);
}

void VirtualDesktop::dragAway() {
    if (!pressing_)
        refuse("nothing is pressed");
    pressing_ = false;
    if (auto* released = std::exchange(pressed_, nullptr))
        form_->pressGivenUp(*released);
}

void VirtualDesktop::click(std::string_view id, int index) {
    press(id, index);
    release();
}

void VirtualDesktop::doubleClick(std::string_view id, int index) {
    click(id, index);
    const auto [name, element] = splitId(id, index);
    auto* target = form_->find(name, element); // the first click may have taken it away
    if (target == nullptr || !reasonOutOfReach(*target).empty())
        return;
    if (actsOnEveryPress(*target))
        click(id, index);
    else
        form_->doubleClick(*target);
}

void VirtualDesktop::rightClick(std::string_view id, int index) {
    press(id, index, MouseButton::right);
    release();
}

void VirtualDesktop::clickSurface() {
    away_ = false;
    form().surfaceClick();
}

void VirtualDesktop::clickAt(int position) {
    dragOver(position, 0);
}

void VirtualDesktop::dragOver(int start, int length) {
    auto& field = focusedField();
    press(field.name(), field.index());
    if (pressed_ != nullptr)
        fields_.select(field, start, length);
    release();
}

TabStrip& VirtualDesktop::reachTab(int tab) {
    TabStrip* strip = nullptr;
    for (const auto& candidate : form().controls())
        if (auto* found = dynamic_cast<TabStrip*>(candidate.get());
            found != nullptr && reasonOutOfReach(*found).empty())
            strip = found;
    if (strip == nullptr)
        refuse("no tab strip is on show");
    if (tab < 1 || tab > strip->count())
        refuse(strip->id() + " has no tab " + std::to_string(tab));
    if (pressing_)
        refuse("a press is under way already");
    away_ = false;
    return *strip;
}

void VirtualDesktop::clickTab(int tab) {
    auto& strip = reachTab(tab);
    pressControl(strip, MouseButton::left, tab);
    if (pressed_ != nullptr)
        form_->userSelectTab(strip, tab);
    dragAway();
}

void VirtualDesktop::rightClickTab(int tab) {
    pressControl(reachTab(tab), MouseButton::right, tab);
    dragAway();
}

void VirtualDesktop::pick(std::string_view id, std::string_view entry) {
    auto& list = reachKind<ComboBox>(id, "list");
    const auto found = std::find(list.list().begin(), list.list().end(), entry);
    if (found == list.list().end())
        refuse(list.id() + " has no entry " + quoted(entry));
    pickEntry(list, static_cast<int>(found - list.list().begin()));
}

void VirtualDesktop::pick(std::string_view id, int entry) {
    auto& list = reachKind<ComboBox>(id, "list");
    if (entry < 0 || entry >= static_cast<int>(list.list().size()))
        refuse(list.id() + " has no entry " + std::to_string(entry));
    pickEntry(list, entry);
}

void VirtualDesktop::pickEntry(ComboBox& list, int entry) {
    press(list.name(), list.index());
    if (pressed_ != nullptr)
        form_->userPick(list, entry);
    if (pressing_)
        release();
}

void VirtualDesktop::scroll(std::string_view id, int value) {
    auto& bar = reachKind<ScrollBar>(id, "scroll bar");
    if (bar.isEnabled())
        form_->userScroll(bar, value);
}

void VirtualDesktop::scrollLines(std::string_view id, int lines) {
    auto& bar = reachKind<ScrollBar>(id, "scroll bar");
    stepBar(bar, lines, bar.smallChange());
}

void VirtualDesktop::scrollPages(std::string_view id, int pages) {
    auto& bar = reachKind<ScrollBar>(id, "scroll bar");
    stepBar(bar, pages, bar.largeChange());
}

void VirtualDesktop::stepBar(ScrollBar& bar, int steps, int size) {
    const int step = steps < 0 ? -1 : 1;
    for (int done = 0; done != steps && bar.isEnabled(); done += step) {
        const int before = bar.value();
        const auto target = static_cast<long long>(before) + step * static_cast<long long>(size);
        form_->userScroll(
            bar, static_cast<int>(std::clamp<long long>(target, bar.minimum(), bar.maximum())));
        if (bar.value() == before)
            return;
    }
}

void VirtualDesktop::spin(std::string_view id, int steps) {
    auto& spinner = reachKind<Spinner>(id, "spinner");
    const int step = steps < 0 ? -1 : 1;
    for (int done = 0; done != steps; done += step)
        form_->userSpin(spinner, step);
}

// --- windows and focus -------------------------------------------------------------------------

bool VirtualDesktop::leaveForm() {
    form().focusLeft();
    away_ = false;
    return !form_->hasFocus();
}

void VirtualDesktop::tabInto(FocusDirection direction) {
    if (form().hasFocus() && !leaveForm())
        return;
    away_ = false;
    form_->enterFocus(direction);
}

std::string VirtualDesktop::focusedId() const {
    const auto* active = form().activeControl();
    return active != nullptr && form_->hasFocus() ? active->id() : "";
}

std::vector<std::string> VirtualDesktop::tabWalk() {
    if (!form().hasFocus())
        tabInto();
    std::vector<std::string> met;
    for (auto id = focusedId(); !id.empty() && std::find(met.begin(), met.end(), id) == met.end();
         id = focusedId()) {
        met.push_back(id);
        type("{TAB}");
    }
    return met;
}

// --- what is on screen -----------------------------------------------------------------------

std::string VirtualDesktop::snapshot() const {
    std::ostringstream heading;
    heading.imbue(std::locale::classic());
    heading << "form " << form().width() << " x " << form().height();
    auto lines = heading.str() + "\n";
    describe(lines, nullptr, 1);
    return lines;
}

void VirtualDesktop::describe(std::string& lines, const Frame* container, int depth) const {
    for (const auto& control : form_->controls()) {
        if (control->container() != container || !reasonOutOfReach(*control).empty())
            continue;
        std::ostringstream line;
        line.imbue(std::locale::classic());
        line << std::string(static_cast<std::size_t>(depth) * 2, ' ') << control->id() << " ("
             << control->left() << ", " << control->top() << ", " << control->width() << " x "
             << control->height() << ")";
        if (const auto content = contentOf(*control); !content.empty())
            line << ' ' << content;
        if (!control->isEnabled())
            line << " disabled";
        if (const auto* field = dynamic_cast<const TextField*>(control.get())) {
            if (field->locked())
                line << " locked";
            if (field->mark().kind != MarkKind::none)
                line << (field->isDoubtful() ? " doubtful " : " marked ")
                     << quoted(field->mark().reason);
            if (note_ && note_->field == field->id())
                line << " note " << quoted(note_->note);
        }
        if (form_->hasFocus() && form_->activeControl() == control.get())
            line << " focus";
        lines += line.str() + "\n";
        if (const auto* frame = dynamic_cast<const Frame*>(control.get()))
            describe(lines, frame, depth + 1);
    }
}

} // namespace vkr
