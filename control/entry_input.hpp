// SPDX-License-Identifier: MIT
#pragma once

#include "control/cell_commands.hpp"
#include "control/controller.hpp"
#include "control/more_help.hpp"
#include "control/pages.hpp"
#include "control/right_click_menu.hpp"

namespace vkr {

// What a person does on the form, handed to the controller of the control. What is the same at
// every control is done here: help, menu, calendar, turning pages, telling of refused keys.
class EntryInput final : public FormHandler {
  public:
    EntryInput(EntryContext& context, Controllers& controllers, QuarterlyGrid& quarterly,
               Pages& pages, HelpFrame& frame, MoreHelp& help, RightClickMenu& menu, HostLine& host,
               CellCommands& cells);

    void leaveActive(); // and comes back to it
    void step(HistoryStep step);

    void onGotFocus(Control& control) override;
    void onLostFocus(Control& control) override;
    void onKeyDown(Control& control, KeyCode& key, int shift) override;
    [[nodiscard]] bool wantsKey(const Control& control, KeyCode key, int shift) const override;
    void onKeyPress(Control& control, char32_t& character) override;
    void onKeyUp(Control& control, KeyCode key, int shift) override;
    bool onPaste(TextField& field, std::string_view text) override;
    void onPasteCut(TextField& field, std::string_view leftOut) override;
    void onChange(TextField& field) override { controllers_.of(field).change(field); }
    void onMouseDown(Control& control, MouseButton button, int tab) override;
    [[nodiscard]] bool keepsFocus(const Control& control, MouseButton button) const override {
        return button == MouseButton::right && cells_.selectedWith(control).has_value();
    }
    bool onDrag(Control& pressed, Control& over) override { return cells_.drag(pressed, over); }
    void onPressEnded(Control& control) override { controllers_.of(control).pressEnded(); }
    void onClick(Control& control) override { controllers_.of(control).click(control); }
    void onDoubleClick(Control& control) override;
    void onListChoice(ComboBox& list) override { controllers_.of(list).choose(list); }
    void onScroll(ScrollBar& bar) override { controllers_.of(bar).scroll(); }
    bool onWheel(int steps) override { return pages_.scroll(steps); }
    void onSpin(Spinner& spinner, int steps) override { controllers_.of(spinner).spin(steps); }
    void onTabSelected(TabStrip& /*strip*/) override { pages_.tabSelected(); }
    void onFormClick() override { context_.hideHelpFrame(); }
    void onFocusLeft() override { context_.hideHelpFrame(); }

  private:
    [[nodiscard]] std::optional<std::string> inMarksOfForm(std::string_view text) const;
    bool takesStep(KeyCode key, int shift);
    [[nodiscard]] bool opensCalendar(const Control& control, KeyCode key, int shift) const;
    bool opens(Control& control, KeyCode key, int shift);
    bool turnsPage(Control& control, KeyCode key, int shift);

    EntryContext& context_;
    Controllers& controllers_;
    QuarterlyGrid& quarterly_;
    Pages& pages_;
    HelpFrame& frame_;
    MoreHelp& help_;
    RightClickMenu& menu_;
    HostLine& host_;
    CellCommands& cells_;
    // They are free of each other.
    bool helpKeyDown_ = false; // F1 last went down on the help frame: coming up it asks nothing
    bool keyWentDown_ = false; // a key did since the help frame was shown
    bool toldOfKey_ = false;   // the key that is held was refused, and a note said so once
    bool tookBack_ = false;    // the field has taken back an edit since it was entered
};

} // namespace vkr
