// SPDX-License-Identifier: MIT
#pragma once

#include "binding/entry_context.hpp"
#include "control/host_line.hpp"
#include "platform/during.hpp"
#include "quarterly/quarterly_grid.hpp"

#include <string_view>

namespace vkr {

// The five pages below the tab strip. The strip knows which one is on show. As soon as a tab was
// selected
//
//   the page of that tab is at its place and enabled;
//   the others are disabled, and parked beside the form;
//   the buttons of the years are on show only with the yearly page;
//   reported() is the page that the host was told of last. While it is not the one on show, the
//   host is about to be told.
class Pages {
  public:
    Pages(EntryContext& context, QuarterlyGrid& quarterly, HostLine& host)
        : context_(context), quarterly_(quarterly), host_(host) {}

    [[nodiscard]] TabStrip& strip() const;
    [[nodiscard]] TABObject shown() const { return static_cast<TABObject>(strip().selected()); }
    [[nodiscard]] TABObject reported() const { return reported_; }

    void show(int tab) { strip().selectTab(tab); } // a tab that is none is left alone
    void step(int step);                           // round the ends
    void showField(std::string_view id);           // with its page, and moves the focus there
    void tabSelected();
    void focusFirstField();
    void scrollMouse(KeyCode key);
    bool scroll(int steps); // the grid on show, down where above 0; false where there is none

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
