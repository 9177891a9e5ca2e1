// SPDX-License-Identifier: MIT
#include "input/frmCalendar.hpp"

#include "input/mdlKMTMisc.hpp"
#include "platform/error_trap.hpp"

#include <cassert>
#include <cmath>

namespace vkr {

void frmCalendar::put_SelectedDate(Date datNewValue) {
    constexpr double secondsOfADay = 86400;
    if (std::round(datNewValue.serial * secondsOfADay) ==
        std::round(selectedDate_.serial * secondsOfADay))
        return;
    selectedDate_ = datNewValue;
    calendar1_ = datNewValue;
}

// What IsDateInRange takes.
Date frmCalendar::firstDate() const {
    return makeDate(1900, 1, 2).value();
}
Date frmCalendar::lastDate() const {
    return makeDate(2999, 11, 30).value();
}

void frmCalendar::Show(Services& services) {
    assert(!visible_);
    visible_ = true;
    ifPossible([&] { services.showModal(*this); });
    visible_ = false;
    assert(tag_.empty() || IsDateInRange(selectedDate_)); // confirmed
}

void frmCalendar::cmdOK_Click() {
    if (isAbsent(calendar1_) || !IsDateInRange(calendar1_))
        return;
    tag_ = "True";
    put_SelectedDate(calendar1_);
    visible_ = false;
}

void frmCalendar::cmdCancel_Click() {
    tag_.clear();
    visible_ = false;
}

} // namespace vkr
