// SPDX-License-Identifier: MIT
#pragma once

#include "binding/session.hpp"
#include "control/entry_objects.hpp"
#include "control/help_frame.hpp"
#include "input/mdlMenu.hpp"

#include <functional>
#include <optional>
#include <string>

namespace vkr {

// The pop-up menu of every object, and the date picker.
class RightClickMenu {
  public:
    RightClickMenu(Session& session, const EntryObjects& objects, HelpFrame& help);

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

    // --- what it can't do by itself
    std::function<void()> addYear;
    std::function<void()> removeYear;
    std::function<std::optional<Date>(const TextField& field)> dateOf; // that it stands for
    std::function<void(TextField& field)> fieldChanged;                // as after a key
    std::function<void(TextField& field)> leave; // of a field that has no focus
    std::function<void(DataEntryObject object, const std::string& text)> assistant;

  private:
    void open(Control& control, int tab, Twips left, Twips top);
    Control& PrepareHelpText();
    void edit(TextField& field, std::string_view text, int caret);
    bool copy(const TextField& field); // all of it; false where the clipboard took nothing
    void paste(TextField& field);
    void takeLastQuarterDate();
    void putDate(TextField& field, Date date);
    void askAssistant();

    Session& session_;
    const EntryObjects& objects_;
    HelpFrame& help_;
    Control* control_ = nullptr; // that the menu was opened on
    TextField* field_ = nullptr;
    DataEntryObject object_ = doName;
    std::string pendingText_;
    Twips pendingLeft_ = 0;
    Twips pendingTop_ = 0;
};

} // namespace vkr
