// SPDX-License-Identifier: MIT
#pragma once

#include "control/controller.hpp"
#include "control/field_controllers.hpp"
#include "control/host_line.hpp"
#include "control/pages.hpp"

namespace vkr {

// OK settles the dates of the company, and then asks the host to close. Where a date is being
// edited that rebuilds a grid, a press settles only that date. The next press asks the host.
class OkButton final : public Controller {
  public:
    OkButton(EntryContext& context, CompanyFields& fields, FieldControllers& entry, HostLine& host)
        : context_(context), fields_(fields), entry_(entry), host_(host) {}

    void mouseDown() override { settlesOnly_ = context_.dates.isPending(); }
    void click(Control& control) override;
    void pressEnded() override { settlesOnly_ = false; }

  private:
    void settleDates();

    EntryContext& context_;
    CompanyFields& fields_;
    FieldControllers& entry_;
    HostLine& host_;
    bool settlesOnly_ = false; // the press that is under way
};

// Cancel: a date that is being edited and would rebuild a grid is not looked at. Where the press is
// given up, or the host stays open, leaving the field looks at it as ever.
class CancelButton final : public Controller {
  public:
    CancelButton(EntryContext& context, FieldControllers& entry, Pages& pages, HostLine& host)
        : context_(context), entry_(entry), pages_(pages), host_(host) {}

    void key(Control& control, KeyCode& key, int shift) override;
    void mouseDown() override { context_.dates.setSkipped(true); }
    void click(Control& control) override;
    void pressEnded() override;

  private:
    EntryContext& context_;
    FieldControllers& entry_;
    Pages& pages_;
    HostLine& host_;
};

} // namespace vkr
