// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "control/host_line.hpp"
#include "platform/during.hpp"
#include "quarterly/quarterly_grid.hpp"

#include <string_view>

namespace vkr {

// The five pages below the tab strip. Which one is on show is the strip's to know. From the first
// tab that is selected on
//
//   the page of the selected tab is at its place and enabled; the others are parked beside the form
//   and disabled;
//   the buttons of the years are on show with the yearly page alone;
//   the host has been told of reported(), and is about to be told where that is another page.
class Pages {
  public:
    Pages(EntryContext& context, QuarterlyGrid& quarterly, HostLine& host)
        : context_(context), quarterly_(quarterly), host_(host) {}

    [[nodiscard]] TabStrip& strip() const;
    [[nodiscard]] TABObject shown() const { return static_cast<TABObject>(strip().selected()); }
    [[nodiscard]] TABObject reported() const { return reported_; }
    void startOver() { reported_ = toCompany; } // nothing was told yet

    void show(int tab) { strip().selectTab(tab); } // a tab that is none is left alone
    void step(int step);                           // round the ends
    void showField(std::string_view id);           // with its page, and moves the focus there
    void tabSelected();
    void focusFirstField();
    void scrollMouse(KeyCode key);

    // While tabs are selected by start-up or restoring the focus stays where it is.
    [[nodiscard]] During keepFocus() { return During(keepsFocus_); }

  private:
    [[nodiscard]] Control* firstField() const; // of the page that is shown
    void checkInvariants() const;

    EntryContext& context_;
    QuarterlyGrid& quarterly_;
    HostLine& host_;
    TABObject reported_ = toCompany;
    bool keepsFocus_ = false;
};

} // namespace vkr
