// SPDX-License-Identifier: MIT
// Keyboard, mouse and windows of the desktop without a display.
#include "platform/stroke.hpp"
#include "platform/text.hpp"
#include "platform/virtual_desktop.hpp"
#include "platform/virtual_reach.hpp"

#include <algorithm>
#include <utility>

namespace vkr {

using namespace virtual_desktop;

namespace {

// Pressed twice they act twice; on all others the second press is a double-click.
bool actsOnEveryPress(const Control& control) {
    return control.kind() == ControlKind::commandButton ||
           control.kind() == ControlKind::optionButton || control.kind() == ControlKind::checkBox;
}

} // namespace

// --- keyboard ------------------------------------------------------------------------------------

std::vector<KeyStroke> VirtualDesktop::strokesOf(std::string_view notation) {
    auto strokes = parseKeyNotation(notation);
    if (away_)
        refuse("another window is active: switchBack() first");
    if (!form().hasFocus())
        refuse("the form does not have the focus: click into it or tabInto() first");
    return strokes;
}

void VirtualDesktop::type(std::string_view notation) {
    for (const auto& stroke : strokesOf(notation))
        for (int i = 0; i < stroke.count; ++i)
            if (strike(stroke))
                form_->keyUp(stroke.key, stroke.shift);
}

void VirtualDesktop::hold(std::string_view notation, int times) {
    for (const auto& stroke : strokesOf(notation)) {
        bool heard = false;
        for (int i = 0; i < times; ++i)
            heard = strike(stroke, i == 0 ? KeyDown::first : KeyDown::repeated);
        if (heard)
            form_->keyUp(stroke.key, stroke.shift);
    }
}

TextField* VirtualDesktop::editedField() const {
    return textFieldOf(form_->keyTarget());
}

// The native part of a stroke, at the field that has the focus by then.
class VirtualDesktop::Editor final : public NativeEditor {
  public:
    Editor(VirtualDesktop& desktop, const KeyStroke& stroke) : desktop_(desktop), stroke_(stroke) {}

    bool type(char32_t character) override {
        auto* field = desktop_.editedField();
        if (field != nullptr)
            desktop_.fields_.character(*field, character);
        return true; // nobody asks whether it was used
    }
    bool edit() override {
        auto* field = desktop_.editedField();
        if (field != nullptr)
            desktop_.fields_.key(*field, stroke_);
        return true; // nobody asks whether it was used
    }

  private:
    VirtualDesktop& desktop_;
    const KeyStroke& stroke_;
};

// False: the form does not hear of it.
bool VirtualDesktop::strike(const KeyStroke& pressed, KeyDown press) {
    if (!form_->hasFocus())
        return false;
    Stroke stroke{pressed.key, pressed.shift, {}, pressed.character};
    if (pressed.character != 0 && (pressed.shift & (shifts::control | shifts::alt)) == 0)
        stroke.typed = pressed.character;
    stroke.held = press == KeyDown::repeated;
    stroke.command = VirtualFields::isCommand(pressed);
    if (hostShortcuts_.contains({pressed.key, pressed.shift}) && !form_->uses(stroke)) {
        ++firedShortcuts_;
        return false;
    }
    Editor editor(*this, pressed);
    form_->stroke(stroke, editor);
    return true;
}

void VirtualDesktop::addHostShortcut(std::string_view notation) {
    for (const auto& stroke : parseKeyNotation(notation))
        hostShortcuts_.insert({stroke.key, stroke.shift});
}

// --- mouse ---------------------------------------------------------------------------------------

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
    auto* field = textFieldOf(form().activeControl());
    if (field == nullptr || !form_->hasFocus())
        refuse("no text field has the focus");
    return *field;
}

void VirtualDesktop::pressControl(Control& control, MouseButton button, int tab) {
    press_ = {button, control.isEnabled() ? &control : nullptr};
    if (pressed() == nullptr)
        return;
    auto* field = textFieldOf(&control);
    const bool placesCaret = field != nullptr && button == MouseButton::left && form_->hasFocus() &&
                             form_->activeControl() == &control;
    form_->mouseDown(control, button, tab);
    if (placesCaret && pressed() != nullptr)
        fields_.select(*field, textLength(field->text()), 0);
    checkInvariants();
}

void VirtualDesktop::press(std::string_view id, int index, MouseButton button) {
    auto& target = reach(id, index);
    if (press_)
        refuse("a press is under way already");
    pressControl(target, button);
}

VirtualDesktop::Press& VirtualDesktop::pressUnderWay() {
    if (!press_)
        refuse("nothing is pressed");
    return *press_;
}

void VirtualDesktop::release(std::string_view id, int index) {
    const Control* held = pressUnderWay().control;
    if (&reach(id, index) != held)
        dragAway();
    else
        release();
}

void VirtualDesktop::release() {
    const Press ended = pressUnderWay();
    press_.reset();
    if (ended.control == nullptr)
        return;
    if (ended.button == MouseButton::left)
        form_->click(*ended.control);
    else
        form_->pressGivenUp(*ended.control);
}

void VirtualDesktop::dragTo(std::string_view id, int index) {
    const Press& held = pressUnderWay();
    auto& over = reach(id, index);
    if (held.control != nullptr && held.button == MouseButton::left)
        form_->userDrag(*held.control, over);
    checkInvariants();
}

void VirtualDesktop::dragAway() {
    const Press ended = pressUnderWay();
    press_.reset();
    if (ended.control != nullptr)
        form_->pressGivenUp(*ended.control);
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
    if (pressed() != nullptr)
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
    if (press_)
        refuse("a press is under way already");
    away_ = false;
    return *strip;
}

void VirtualDesktop::clickTab(int tab) {
    auto& strip = reachTab(tab);
    pressControl(strip, MouseButton::left, tab);
    if (pressed() != nullptr)
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
    if (pressed() != nullptr)
        form_->userPick(list, entry);
    if (press_)
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

} // namespace vkr
