// SPDX-License-Identifier: MIT
#pragma once

#include "control/field_entry.hpp"
#include "control/host_line.hpp"

namespace vkr {

// OK and Cancel. A date that rebuilds a grid is settled by a first OK, and the second one closes;
// Cancel skips such a date, and where the host stays open after all it is still to be left.
class Closing {
  public:
    Closing(Session& session, CompanyFields& fields, FieldEntry& entry, HostLine& host)
        : session_(session), fields_(fields), entry_(entry), host_(host) {}

    // The pointer goes down on a button, is clicked or not, and the press is over.
    void okDown() { okSettles_ = session_.dateFieldPending; }
    void okClicked();
    void okEnded() { okSettles_ = false; }
    void cancelDown() { session_.cancelPressed = true; }
    void cancelClicked();
    void cancelEnded();

  private:
    void settleDates();
    void leavePendingDates();
    [[nodiscard]] bool hasSkippedDate() const;

    Session& session_;
    CompanyFields& fields_;
    FieldEntry& entry_;
    HostLine& host_;
    bool okSettles_ = false; // OK went down while a pending date was edited
};

} // namespace vkr
