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
    // The record has other trailing earnings, which are to be shown.
    virtual void trailingEarningsDerived() {}
    // The date of the last fiscal year has changed.
    virtual void fiscalYearMoved() {}
    // Earnings of the last fiscal year were stored.
    virtual void yearlyEarningsStored() {}
    // The figures of the years stand in other years: the rest of the form goes into the record.
    virtual void yearsShifted() {}
    // Years or quarters have other labels.
    virtual void rowsLabelled() {}
    // The host would see another state: changed or not, name, symbol.
    virtual void stateChanged() {}
    // What had to wait for the end of the work under way may be done.
    virtual void workDone() {}
};

} // namespace vkr
