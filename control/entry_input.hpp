// SPDX-License-Identifier: MIT
#pragma once

#include "control/closing.hpp"
#include "control/field_entry.hpp"
#include "control/help_frame.hpp"
#include "control/options.hpp"
#include "control/pages.hpp"
#include "control/right_click_menu.hpp"

namespace vkr {

// What a person does on the form, handed to the part whose task it is.
class EntryInput final : public FormHandler {
  public:
    EntryInput(Session& session, CompanyFields& fields, YearlyGrid& yearly,
               QuarterlyGrid& quarterly, HelpFrame& help, RightClickMenu& menu, FieldEntry& entry,
               Pages& pages, Options& options, DataLock& lock, Closing& closing, HostLine& host);

    void onGotFocus(Control& control) override { entry_.enter(control); }
    void onLostFocus(Control& control) override { entry_.leave(control); }
    void onKeyDown(Control& control, KeyCode& key, int shift) override;
    void onKeyPress(Control& control, char32_t& character) override;
    void onKeyUp(Control& control, KeyCode key, int shift) override;
    bool onPaste(TextField& field, std::string_view text) override;
    void onPasteCut(TextField& field, std::string_view leftOut) override;
    void onChange(TextField& field) override { entry_.change(field); }
    void onMouseDown(Control& control, MouseButton button, int tab) override;
    void onPressEnded(Control& control) override;
    void onClick(Control& control) override;
    void onDoubleClick(Control& control) override;
    void onListChoice(ComboBox& list) override { entry_.choose(list); }
    void onScroll(ScrollBar& bar) override;
    void onSpin(Spinner& spinner, int steps) override;
    void onTabSelected(TabStrip& /*strip*/) override { pages_.tabSelected(); }
    void onFormClick() override { session_.hideHelpFrame(); }
    void onFocusLeft() override { session_.hideHelpFrame(); }

  private:
    [[nodiscard]] const KeyFilter* filterOf(const Control& control) const;
    [[nodiscard]] bool opensCalendar(const Control& control, KeyCode key, int shift) const;
    void askForMoreHelp();
    void pressHelp();
    void pressLock();

    Session& session_;
    CompanyFields& fields_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    HelpFrame& help_;
    RightClickMenu& menu_;
    FieldEntry& entry_;
    Pages& pages_;
    Options& options_;
    DataLock& lock_;
    Closing& closing_;
    HostLine& host_;
    bool helpKeyDown_ = false;
    bool keyWentDown_ = false; // since the help frame was shown
    bool toldOfKey_ = false;   // that it was refused
};

} // namespace vkr
