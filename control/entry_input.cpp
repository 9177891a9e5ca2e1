// SPDX-License-Identifier: MIT
#include "control/entry_input.hpp"

#include "form/form_layout.hpp"
#include "input/mdlDataEntry.hpp"
#include "input/mdlKMTMisc.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <string_view>

namespace vkr {

namespace {

// Fields outside the company table and the grids whose keys are filtered.
struct FilteredField {
    std::string_view name;
    KeyFilter filter;
};
constexpr FilteredField otherFilters[] = {
    {"txtLastFY", {.allowNegative = true}},
    {"txtDateofLastFY", {.freeText = true, .allowNegative = true}},
    {"cmbReportingPeriod", {.freeText = true, .allowNegative = true}},
    {"txtLastQDate", {.freeText = true, .allowNegative = true}},
    {"txtCurSymbol", {.freeText = true, .allowNegative = true}},
};

} // namespace

EntryInput::EntryInput(Session& session, CompanyFields& fields, YearlyGrid& yearly,
                       QuarterlyGrid& quarterly, HelpFrame& help, RightClickMenu& menu,
                       FieldEntry& entry, Pages& pages, Options& options, DataLock& lock,
                       Closing& closing, HostLine& host)
    : session_(session), fields_(fields), yearly_(yearly), quarterly_(quarterly), help_(help),
      menu_(menu), entry_(entry), pages_(pages), options_(options), lock_(lock), closing_(closing),
      host_(host) {
    session_.form.setHandler(this);
}

// --- keys ----------------------------------------------------------------------------------------

bool EntryInput::opensCalendar(const Control& control, KeyCode key, int shift) const {
    return isDateField(control) && ((key == keys::f4 && shift == shifts::none) ||
                                    (key == keys::down && shift == shifts::alt));
}

void EntryInput::onKeyDown(Control& control, KeyCode& key, int shift) {
    keyWentDown_ = true;
    // Enter on a figure that is left as it is agrees with it.
    if (auto* field = dynamic_cast<TextField*>(&control);
        field != nullptr && key == keys::enter && !session_.form.isKeyHeld() && isUntouched(*field))
        field->settleDoubt();
    if (key == keys::f1) {
        helpKeyDown_ = help_.visible();
        if (helpKeyDown_)
            askForMoreHelp();
        return;
    }
    const bool opensMenu = (key == keys::menu && shift == shifts::none) ||
                           (key == keys::f10 && shift == shifts::shift);
    if (opensMenu || opensCalendar(control, key, shift)) {
        keyWentDown_ = false;
        key = keys::none;
        if (opensMenu)
            menu_.openFromKeyboard(control);
        else
            menu_.ShowDatePicker(static_cast<TextBox&>(control), false);
        return;
    }
    if ((shift & shifts::control) != 0 && (key == keys::pageDown || key == keys::pageUp)) {
        pages_.step(key == keys::pageDown ? 1 : -1);
        key = keys::none;
        return;
    }
    if ((key == keys::pageDown || key == keys::pageUp) && shift == shifts::none &&
        pages_.shown() == toQuarterly) {
        quarterly_.turnPage(control, key == keys::pageDown ? 1 : -1);
        key = keys::none;
        return;
    }
    if (control.name() == "cmdCancel" && key == keys::tab && shift == shifts::none) {
        pages_.focusFirstField();
        key = keys::none;
    } else if (const auto cell = yearly_.find(control)) {
        yearly_.keyDown(*cell, key, shift);
    } else if (const auto quarter = quarterly_.find(control)) {
        quarterly_.keyDown(*quarter, key, shift);
    }
}

const KeyFilter* EntryInput::filterOf(const Control& control) const {
    if (const auto* field = fields_.find(control))
        return field->filtered ? &field->filter : nullptr;
    const auto* other = std::ranges::find(otherFilters, control.name(), &FilteredField::name);
    return other == std::end(otherFilters) ? nullptr : &other->filter;
}

void EntryInput::onKeyPress(Control& control, char32_t& character) {
    auto* field = dynamic_cast<TextField*>(&control);
    if (field == nullptr)
        return;
    const char32_t pressed = character;
    bool refused = false;
    if (const auto cell = yearly_.find(control))
        refused = yearly_.keyPress(*cell, character);
    else if (const auto quarter = quarterly_.find(control))
        refused = quarterly_.keyPress(*quarter, character);
    else if (const auto* filter = filterOf(control))
        refused = FilterNumericKey(character, filter->numeric, filter->freeText, *field,
                                   filter->allowNegative, filter->upperCase);
    const bool noRoom = character >= U' ' && character != 0x7F && field->isFull();
    if (!session_.form.isKeyHeld())
        toldOfKey_ = false;
    if (!(refused || noRoom) || toldOfKey_ || field->locked())
        return;
    toldOfKey_ = true;
    const int takes = entry_.noteOf(control).value_or(text_number::noteFull);
    const bool mark =
        refused && takes != text_number::noteYear && (pressed == U'.' || pressed == U',');
    session_.tellRefused(*field, mark ? text_number::noteDecimalMark : takes);
}

// --- pointer -------------------------------------------------------------------------------------

// A block would be squeezed into one figure: its cells are figures of their own.
bool EntryInput::onPaste(TextField& field, std::string_view text) {
    if (!entry_.noteOf(field) || !isBlockOfCells(text))
        return true;
    session_.tellRefused(field, text_number::noteOneFigure);
    return false;
}

void EntryInput::onPasteCut(TextField& field, std::string_view leftOut) {
    session_.markDoubtful(field, leftOut);
}

void EntryInput::onKeyUp(Control& /*control*/, KeyCode key, int /*shift*/) {
    // The key that has chosen the frame in the menu comes up afterwards.
    if (keyWentDown_)
        session_.hideHelpFrame();
    if (key != keys::f1)
        return;
    if (!helpKeyDown_)
        pressHelp();
    helpKeyDown_ = false;
}

void EntryInput::onMouseDown(Control& control, MouseButton button, int tab) {
    // Its own link and text act on the click, which a hidden control would not get.
    if (control.container() != session_.form.find("fraDE", frame::help))
        session_.hideHelpFrame();
    if (control.name() == "cmdCancel")
        closing_.cancelDown();
    else if (control.name() == "cmdOK")
        closing_.okDown();
    keyWentDown_ = false;
    menu_.MouseDown(button, control, tab);
}

void EntryInput::onPressEnded(Control& control) {
    if (control.name() == "cmdOK")
        closing_.okEnded();
    else if (control.name() == "cmdCancel")
        closing_.cancelEnded();
}

void EntryInput::onClick(Control& control) {
    struct Click {
        std::string_view name;
        void (*act)(EntryInput& input);
    };
    static constexpr Click clicks[] = {
        {"cmdOK", [](EntryInput& input) { input.closing_.okClicked(); }},
        {"cmdCancel", [](EntryInput& input) { input.closing_.cancelClicked(); }},
        {"cmdHelp", [](EntryInput& input) { input.pressHelp(); }},
        {"chkLockInfo", [](EntryInput& input) { input.pressLock(); }},
        {"cmdAddYear", [](EntryInput& input) { input.yearly_.addYear(); }},
        {"cmdRemoveYear", [](EntryInput& input) { input.yearly_.removeYear(); }},
        {"cmdAddQuarter", [](EntryInput& input) { input.quarterly_.addQuarter(); }},
        {"lblToolTip", [](EntryInput& input) { input.session_.hideHelpFrame(); }},
        {"lblMoreHelp", [](EntryInput& input) { input.askForMoreHelp(); }},
    };
    if (const auto* click = std::ranges::find(clicks, control.name(), &Click::name);
        click != std::end(clicks)) {
        click->act(*this);
        return;
    }
    session_.hideHelpFrame();
    clickOption(control, options_);
}

void EntryInput::onDoubleClick(Control& control) {
    if (control.name() == "lblQLabel")
        quarterly_.moveLastQuarter(-control.index());
    else if (isDateField(control))
        menu_.ShowDatePicker(static_cast<TextBox&>(control), false);
}

void EntryInput::onScroll(ScrollBar& bar) {
    session_.hideHelpFrame(); // its control is elsewhere now
    if (bar.name() == "hscrYearly")
        yearly_.pan();
    else
        quarterly_.scroll();
}

void EntryInput::onSpin(Spinner& /*spinner*/, int steps) {
    quarterly_.moveLastQuarter(steps);
}

// The page on the object that the help frame is about.
void EntryInput::askForMoreHelp() {
    session_.hideHelpFrame();
    host_.moreHelp(helpObjectBase + help_.object());
}

void EntryInput::pressHelp() {
    host_.moreHelp(helpTabBase + pages_.shown());
}

void EntryInput::pressLock() {
    session_.hideHelpFrame();
    lock_.apply();
    yearly_.shade();
    quarterly_.shade();
    session_.markChanged();
}

} // namespace vkr
