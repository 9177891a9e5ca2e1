// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

// What follows on the rest of the form where one part has done its own. The parts do not know each
// other: what is to follow is told in one place, which implements this. By itself nothing does.
class Consequences {
  public:
    Consequences() = default;
    virtual ~Consequences() = default;
    Consequences(const Consequences&) = delete;
    Consequences& operator=(const Consequences&) = delete;

    // The source of the data became one that states tax rate and book value.
    virtual void sourceStatesRates() {}
    // The trailing earnings were typed, and stored.
    virtual void trailingEarningsTyped() {}
    // Their field was left with the stored figure in it.
    virtual void trailingEarningsLeft() {}
    // The record has other trailing earnings, which are to be shown.
    virtual void trailingEarningsDerived() {}
    // The date of the last fiscal year has changed.
    virtual void fiscalYearMoved() {}
    // Earnings of the last fiscal year were stored.
    virtual void yearlyEarningsStored() {}
    // The yearly figures have moved to other years: the rest of the form is committed.
    virtual void yearsShifted() {}
    // Years or quarters have other labels.
    virtual void rowsLabelled() {}
    // What the host can see of the state has changed: whether it is dirty, name, symbol.
    virtual void stateChanged() {}
    // What had to wait for the end of the work under way may be done.
    virtual void workDone() {}
};

} // namespace vkr
