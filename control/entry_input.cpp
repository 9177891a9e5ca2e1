// SPDX-License-Identifier: MIT
#include "control/entry_input.hpp"

#include "binding/text_numbers.hpp"
#include "form/controls.hpp"
#include "input/block_figure.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/text.hpp"

namespace vkr {

EntryInput::EntryInput(EntryContext& context, Controllers& controllers, QuarterlyGrid& quarterly,
                       Pages& pages, HelpFrame& frame, MoreHelp& help, RightClickMenu& menu,
                       HostLine& host, CellCommands& cells)
    : context_(context), controllers_(controllers), quarterly_(quarterly), pages_(pages),
      frame_(frame), help_(help), menu_(menu), host_(host), cells_(cells) {
    context_.form.setHandler(this);
}

void EntryInput::onLostFocus(Control& control) {
    context_.hideHelpFrame();
    cells_.endSelection();
    controllers_.of(control).leave(control);
}

void EntryInput::leaveActive() {
    Control* active = context_.form.activeControl();
    if (active == nullptr || !context_.form.hasFocus())
        return;
    onLostFocus(*active);
    if (context_.form.activeControl() != active)
        return;
    if (auto* field = dynamic_cast<TextField*>(active))
        field->beginEntry();
    onGotFocus(*active);
}

void EntryInput::onGotFocus(Control& control) {
    tookBack_ = false;
    controllers_.of(control).enter(control);
}

// --- undo and redo -------------------------------------------------------------------------------

namespace {

std::optional<HistoryStep> stepOf(KeyCode key, int shift) {
    if (key == 'Z' && shift == shifts::control)
        return HistoryStep::undo;
    if ((key == 'Z' && shift == (shifts::control | shifts::shift)) ||
        (key == 'Y' && shift == shifts::control))
        return HistoryStep::redo;
    return std::nullopt;
}

// By these keys the native field itself copies what is selected in it.
bool copies(KeyCode key, int shift) {
    return (shift == shifts::control && (key == 'C' || key == 'X' || key == keys::insert)) ||
           (shift == shifts::shift && key == keys::del);
}

} // namespace

bool EntryInput::takesStep(KeyCode key, int shift) {
    const auto asked = stepOf(key, shift);
    if (!asked || !host_.takesHistory())
        return false;
    ifPossible([&] { step(*asked); });
    return true;
}

bool EntryInput::wantsKey(const Control& control, KeyCode key, int shift) const {
    return (stepOf(key, shift) && host_.takesHistory()) || cells_.wants(control, key, shift) ||
           opensCalendar(control, key, shift);
}

void EntryInput::step(HistoryStep step) {
    auto* field = context_.form.hasFocus() ? textFieldOf(context_.form.activeControl()) : nullptr;
    const bool typed = field != nullptr && field->canTakeBack();
    if (typed && step == HistoryStep::undo) {
        tookBack_ = true;
        if (context_.services.canUndo(*field))
            context_.services.undo(*field);
        else
            context_.form.sendKey(keys::escape); // what the program has put there goes as a whole
        return;
    }
    if (field != nullptr && !field->locked() && step == HistoryStep::redo && (typed || tookBack_)) {
        context_.services.redo(*field);
        return;
    }
    if (context_.company == nullptr || context_.isLocked() || !host_.history(step))
        return;
    tookBack_ = false;
    context_.markChanged();
}

// --- keys ----------------------------------------------------------------------------------------

void EntryInput::onKeyDown(Control& control, KeyCode& key, int shift) {
    keyWentDown_ = true;
    // Enter on a figure that is left as it is agrees with it.
    if (auto* field = dynamic_cast<TextField*>(&control); field != nullptr && key == keys::enter &&
                                                          !context_.form.isKeyHeld() &&
                                                          field->standsForStored())
        field->settleDoubt();
    if (const auto* field = textFieldOf(&control);
        field != nullptr && field->selLength() > 0 && copies(key, shift))
        ifPossible([&] { context_.noteCopy(std::string(field->selText())); });
    if (key == keys::f1) {
        helpKeyDown_ = frame_.visible();
        if (helpKeyDown_)
            help_.aboutObject();
        return;
    }
    if (cells_.key(control, key, shift) || takesStep(key, shift) || opens(control, key, shift) ||
        turnsPage(control, key, shift))
        key = keys::none;
    else
        controllers_.of(control).key(control, key, shift);
}

// F4 and Alt+Down, of a date.
bool EntryInput::opensCalendar(const Control& control, KeyCode key, int shift) const {
    return ((key == keys::f4 && shift == shifts::none) ||
            (key == keys::down && shift == shifts::alt)) &&
           controllers_.of(control).hasCalendar();
}

// The Menu key and Shift+F10 open the menu.
bool EntryInput::opens(Control& control, KeyCode key, int shift) {
    const bool menu = opensMenu(key, shift);
    if (!menu && !opensCalendar(control, key, shift))
        return false;
    keyWentDown_ = false;
    if (menu)
        menu_.openFromKeyboard(control);
    else
        menu_.ShowDatePicker(static_cast<TextBox&>(control), false);
    return true;
}

// Page keys with Ctrl turn the tabs, without it the rows of the quarters.
bool EntryInput::turnsPage(Control& control, KeyCode key, int shift) {
    if (key != keys::pageDown && key != keys::pageUp)
        return false;
    const int step = key == keys::pageDown ? 1 : -1;
    if ((shift & shifts::control) != 0)
        pages_.step(step);
    else if (shift == shifts::none && pages_.shown() == toQuarterly)
        quarterly_.turnPage(control, step);
    else
        return false;
    return true;
}

void EntryInput::onKeyPress(Control& control, char32_t& character) {
    auto* field = dynamic_cast<TextField*>(&control);
    if (field == nullptr)
        return;
    Controller& controller = controllers_.of(control);
    const char32_t pressed = character;
    const bool refused = controller.press(*field, character);
    const bool noRoom = character >= U' ' && character != 0x7F && field->isFull();
    if (!context_.form.isKeyHeld())
        toldOfKey_ = false;
    if (!(refused || noRoom) || toldOfKey_ || field->locked())
        return;
    toldOfKey_ = true;
    const int takes = controller.takes(*field).value_or(text_number::noteFull);
    const bool mark =
        refused && takes != text_number::noteYear && (pressed == U'.' || pressed == U',');
    context_.tellRefused(*field, mark ? text_number::noteDecimalMark : takes);
}

void EntryInput::onKeyUp(Control& /*control*/, KeyCode key, int /*shift*/) {
    // The key that has chosen the frame in the menu comes up afterwards.
    if (keyWentDown_)
        context_.hideHelpFrame();
    if (key == keys::f1 && !helpKeyDown_)
        help_.aboutPage();
}

// --- paste and pointer ---------------------------------------------------------------------------

// A block would be squeezed into one figure: its cells are figures of their own. A grid has a place
// for each.
bool EntryInput::onPaste(TextField& field, std::string_view text) {
    if (cells_.paste(field, text))
        return false;
    if (!controllers_.of(field).takes(field))
        return true;
    if (isBlockOfCells(text)) {
        context_.tellRefused(field, text_number::noteOneFigure);
        return false;
    }
    const auto own = inMarksOfForm(text);
    if (own)
        context_.form.userPaste(field, *own);
    return !own;
}

// A figure whose clipboard names another decimal mark than the form's; nothing for any other.
std::optional<std::string> EntryInput::inMarksOfForm(std::string_view text) const {
    const NumberMarks& marks = context_.form.numberMarks();
    const auto declared = context_.declaredMark(text);
    if (!declared || *declared == marks.decimal)
        return std::nullopt;
    const CellFigure read = readCell(text, NumericKind::PlainNumber, 0, {.decimal = *declared});
    if (read.kind != CellKind::figure)
        return std::nullopt;
    const std::string own = exchangeMarks(read.number.text, marks);
    return own == text ? std::nullopt : std::optional(own);
}

void EntryInput::onPasteCut(TextField& field, std::string_view leftOut) {
    context_.markDoubtful(field, leftOut);
}

void EntryInput::onMouseDown(Control& control, MouseButton button, int tab) {
    // Its own link and text act on the click, which a hidden control would not get.
    if (control.container() != &context_[controls::helpFrame])
        context_.hideHelpFrame();
    const bool onSelection = keepsFocus(control, button);
    if (!onSelection)
        cells_.endSelection();
    controllers_.of(control).mouseDown();
    keyWentDown_ = false;
    menu_.MouseDown(button, onSelection ? *context_.form.activeControl() : control, tab);
}

void EntryInput::onDoubleClick(Control& control) {
    Controller& controller = controllers_.of(control);
    if (controller.hasCalendar())
        menu_.ShowDatePicker(static_cast<TextBox&>(control), false);
    else
        controller.doubleClick(control);
}

} // namespace vkr
