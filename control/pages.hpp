// SPDX-License-Identifier: MIT
#pragma once

#include "binding/session.hpp"
#include "control/host_line.hpp"
#include "platform/during.hpp"
#include "quarterly/quarterly_grid.hpp"

#include <string_view>

namespace vkr {

// The five pages below the tab strip: one is on show, the others are parked beside the form. Which
// one is the strip's to know; the host has been told of reported().
class Pages {
  public:
    Pages(Session& session, QuarterlyGrid& quarterly, HostLine& host)
        : session_(session), quarterly_(quarterly), host_(host) {}

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
    Session& session_;
    QuarterlyGrid& quarterly_;
    HostLine& host_;
    TABObject reported_ = toCompany;
    bool keepsFocus_ = false;
};

} // namespace vkr
