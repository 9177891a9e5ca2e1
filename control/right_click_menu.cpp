// SPDX-License-Identifier: MIT
#include "control/right_click_menu.hpp"

#include "form/controls.hpp"
#include "form/sizes.hpp"
#include "input/frmCalendar.hpp"
#include "input/mdlDataEntry.hpp"
#include "platform/error_trap.hpp"
#include "platform/number_text.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cassert>

namespace vkr {

RightClickMenu::RightClickMenu(EntryContext& context, const EntryObjects& objects, HelpFrame& help,
                               MenuHost& host)
    : context_(context), objects_(objects), help_(help), host_(host) {}

// --- opening -------------------------------------------------------------------------------------

void RightClickMenu::MouseDown(MouseButton button, Control& control, int tab) {
    if (button != MouseButton::right)
        return;
    // A box or option would get the focus only now, and the field that is left closes the frame.
    control.setFocus();
    // A field that did not get the focus is not the one to act on.
    if (dynamic_cast<TextField*>(&control) != nullptr && context_.form.activeControl() != &control)
        return;
    open(control, tab, control.formLeft(), control.formTop());
}

void RightClickMenu::openFromKeyboard(Control& control) {
    context_.hideHelpFrame();
    const auto* strip = dynamic_cast<const TabStrip*>(&control);
    open(control, strip == nullptr ? 0 : strip->selected(), control.formLeft(),
         control.formTop() + control.height());
}

void RightClickMenu::open(Control& control, int tab, Twips left, Twips top) {
    const auto object = objects_.of(control, tab);
    if (!object)
        return;
    control_ = &control;
    object_ = *object;
    field_ = objects_.fieldOf(control);
    checkInvariants();
    const auto texts = [this](int number) { return context_.text(number); };
    BuildMenu(context_.form, context_.services, texts, menuExtrasOf(object_),
              dynamic_cast<TextBox*>(&control), field_, host_.cellsWith(control));
    const std::string name = control.name();
    const int index = control.index();
    const int chosen = attemptOr(
        -1, [&] { return context_.services.popUpMenu(menuEntries(context_.form), left, top); });
    // The host may have changed the form while the menu was up.
    if (context_.form.find(name, index) == &control)
        mnuItem_Click(chosen);
}

void RightClickMenu::mnuItem_Click(int index) {
    const auto* entry =
        dynamic_cast<const MenuItem*>(ControlId(controls::menuEntry[index]).find(context_.form));
    if (entry == nullptr || control_ == nullptr)
        return;
    const int command = commandOf(*entry);
    PrepareHelpText();
    checkInvariants();
    if (command != mcHelp)
        DoMenuCommand(command, field_);
    else if (!pendingText_.empty())
        help_.ShowHelpFrame(pendingText_, pendingLeft_, pendingTop_, object_);
}

// --- help ----------------------------------------------------------------------------------------

void RightClickMenu::checkInvariants() const {
    assert(control_ != nullptr || (field_ == nullptr && pendingText_.empty()));
    assert(control_ == nullptr || field_ == objects_.fieldOf(*control_));
}

// Places are those within a page: the frame adds the page's own.
Control& RightClickMenu::PrepareHelpText() {
    Control& shown = field_ != nullptr && field_->isShown() ? *field_ : *control_;
    const auto& page = context_[controls::frames[frame::firstPage]];
    pendingLeft_ = 0;
    pendingText_ = context_.text(helpTextOf(object_), "");
    if (object_ >= doTabCompany && object_ <= doTabOptions) {
        const auto& strip = context_[controls::tabs];
        for (int tab = 1; tab <= object_ - doTabCompany; ++tab)
            pendingLeft_ += strip.tab(tab).width;
        if (pendingLeft_ == 0)
            pendingLeft_ = shown.left();
        pendingTop_ = shown.top();
    } else {
        pendingLeft_ = shown.formLeft() - sizes::pageLeft;
        pendingTop_ = shown.formTop() - page.top();
    }
    return shown;
}

// --- commands ------------------------------------------------------------------------------------

void RightClickMenu::edit(TextField& field, std::string_view text) {
    if (field.text() != text && field.editText(text, textLength(text)))
        host_.fieldChanged(field);
}

void RightClickMenu::paste(TextField& field) {
    context_.form.userPaste(
        field, attemptOr(std::string(), [&] { return context_.services.clipboardText(); }));
}

bool RightClickMenu::copy(const TextField& field) {
    ifPossible([&] { context_.services.clearClipboard(); });
    return attempt([&] {
        context_.services.setClipboardText(field.text());
        context_.noteCopy(field.text());
    });
}

void RightClickMenu::takeLastQuarterDate() {
    const Date date{leadingNumber(context_[controls::quarterLabel[0]].tag())};
    if (EntryContext::isValidDate(date))
        putDate(context_[controls::lastFiscalYearDate], date);
}

void RightClickMenu::DoMenuCommand(int intCommand, TextField* field) {
    if (isOfCells(intCommand)) // none of those below
        host_.carryOut(static_cast<MenuCommand>(intCommand));
    enum class Needs { nothing, anyField, unlockedField };
    using enum Needs;
    struct Command {
        MenuCommand number;
        Needs needs;
        void (*carryOut)(RightClickMenu& menu, TextField* target);
    };
    static constexpr Command commands[] = {
        {mcUndo, unlockedField,
         [](RightClickMenu& menu, TextField* target) { menu.context_.services.undo(*target); }},
        {mcCut, unlockedField,
         [](RightClickMenu& menu, TextField* target) {
             if (menu.copy(*target)) // else the text would be nowhere
                 menu.edit(*target, "");
         }},
        {mcCopy, anyField, [](RightClickMenu& menu, TextField* target) { menu.copy(*target); }},
        {mcPaste, unlockedField,
         [](RightClickMenu& menu, TextField* target) { menu.paste(*target); }},
        {mcClear, unlockedField,
         [](RightClickMenu& menu, TextField* target) { menu.edit(*target, ""); }},
        {mcSelectAll, anyField,
         [](RightClickMenu&, TextField* target) { target->select(0, textLength(target->text())); }},
        {mcAddYear, nothing, [](RightClickMenu& menu, TextField*) { menu.host_.addYear(); }},
        {mcRemoveYear, nothing, [](RightClickMenu& menu, TextField*) { menu.host_.removeYear(); }},
        {mcLastQuarterDate, unlockedField,
         [](RightClickMenu& menu, TextField*) { menu.takeLastQuarterDate(); }},
        {mcAssistant, nothing, [](RightClickMenu& menu, TextField*) { menu.askAssistant(); }},
        {mcPickDate, unlockedField,
         [](RightClickMenu& menu, TextField* target) {
             if (auto* box = dynamic_cast<TextBox*>(target))
                 menu.ShowDatePicker(*box, false);
         }},
    };
    for (const auto& command : commands)
        if (command.number == intCommand &&
            (command.needs == nothing ||
             (field != nullptr && !(command.needs == unlockedField && field->locked()))))
            command.carryOut(*this, field);
}

void RightClickMenu::askAssistant() {
    checkInvariants();
    std::string text;
    if (field_ != nullptr)
        text = field_->text().empty() ? field_->accessibleName() : field_->text();
    else if (control_ != nullptr)
        text = withoutMnemonic(control_->caption());
    host_.askAssistant(object_, text);
}

// --- dates ---------------------------------------------------------------------------------------

void RightClickMenu::ShowDatePicker(TextBox& field, bool blnToday) {
    if (field.locked())
        return;
    Date start = attemptOr(Date{}, [&] { return context_.services.today(); });
    if (!blnToday)
        if (const auto held = host_.dateOf(field))
            start = *held;
    // The words of the form's own buttons.
    frmCalendar calendar(field.accessibleName(), &field,
                         {context_[controls::ok].caption(), context_[controls::cancel].caption()});
    calendar.put_SelectedDate(start);
    const auto asked = context_.company; // the host may hand in another one meanwhile
    calendar.Show(context_.services);
    if (!calendar.Tag().empty() && context_.company == asked)
        putDate(field, calendar.get_SelectedDate());
}

// Without the focus nobody would leave the field: it is left at once.
void RightClickMenu::putDate(TextField& field, Date date) {
    if (field.locked())
        return;
    const EntryContext::UpdateScope updating(
        context_); // the date is for the record that it was picked for
    if (const auto held = host_.dateOf(field);
        held && daysBetween(*held, date) == 0 && !field.isUnstored()) {
        host_.fieldChanged(field); // a date that was only suggested is picked now
        host_.leave(field);
        return;
    }
    field.setFocus();
    const std::string text = context_.dateText(date);
    context_.dates.pick(field, text, date);
    edit(field, text);
    field.replaceStored(); // the pattern may hide what has changed
    context_.markPicked();
    if (!context_.form.hasFocus() || context_.form.activeControl() != &field)
        host_.leave(field);
}

} // namespace vkr
