// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "control/entry_objects.hpp"
#include "control/help_frame.hpp"
#include "input/mdlMenu.hpp"

#include <optional>
#include <string>

namespace vkr {

// What the menu can't do by itself.
class MenuHost {
  public:
    virtual ~MenuHost() = default;
    virtual void addYear() = 0;
    virtual void removeYear() = 0;
    [[nodiscard]] virtual std::optional<Date> dateOf(const TextField& field) = 0; // it stands for
    virtual void fieldChanged(TextField& field) = 0;                              // as after a key
    virtual void leave(TextField& field) = 0; // of a field that has no focus
    virtual void askAssistant(DataEntryObject object, const std::string& text) = 0;
    // The cells that are selected together with this one; nothing where there is no other.
    [[nodiscard]] virtual std::optional<MenuCells> cellsWith(const Control& control) const = 0;
    virtual void carryOut(MenuCommand command) = 0; // on these cells
};

// The pop-up menu of every object, and the date picker.
//
// What the menu was opened on stays until it is opened on something else. Until the first time
// there is neither a control nor a field nor a help text; from then on there is a control, it
// stands for the object, and the field is the one that objects know as the control's.
class RightClickMenu {
  public:
    RightClickMenu(EntryContext& context, const EntryObjects& objects, HelpFrame& help,
                   MenuHost& host);

    // At each press on a control: the right button opens the menu. `tab` is the one under the
    // pointer, of a tab strip.
    void MouseDown(MouseButton button, Control& control, int tab);
    // The Menu key and Shift+F10: the menu of the control that has the focus, right below it.
    void openFromKeyboard(Control& control);

    // A chosen entry: carries out its command, or shows the help of the menu's object.
    void mnuItem_Click(int index);
    // `field` is the one that the menu was opened on, or that the menu's label names; null where
    // there is none.
    void DoMenuCommand(int intCommand, TextField* field);
    // Lets the user pick a date for a field. A locked field stays as it is, and no dialog opens.
    void ShowDatePicker(TextBox& field, bool blnToday);

  private:
    void checkInvariants() const;
    void open(Control& control, int tab, Twips left, Twips top);
    Control& PrepareHelpText();
    void edit(TextField& field, std::string_view text);
    bool copy(const TextField& field); // all of it; false where the clipboard took nothing
    void paste(TextField& field);
    void takeLastQuarterDate();
    void putDate(TextField& field, Date date);
    void askAssistant();

    EntryContext& context_;
    const EntryObjects& objects_;
    HelpFrame& help_;
    MenuHost& host_;
    Control* control_ = nullptr; // that the menu was opened on
    TextField* field_ = nullptr;
    DataEntryObject object_ = doName;
    std::string pendingText_;
    Twips pendingLeft_ = 0;
    Twips pendingTop_ = 0;
};

} // namespace vkr
