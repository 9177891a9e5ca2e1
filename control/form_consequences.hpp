// SPDX-License-Identifier: MIT
#pragma once

#include "control/held_company.hpp"

namespace vkr {

// All links between the parts of the form, in one place.
class FormConsequences final : public Consequences {
  public:
    // The parts may come to be after this, as long as none of them does anything before.
    FormConsequences(HostLine& host, EntryContext& context, CompanyFields& fields,
                     QuarterlyGrid& quarterly, Options& options, Properties& properties,
                     HeldCompany& company)
        : host_(host), context_(context), fields_(fields), quarterly_(quarterly), options_(options),
          properties_(properties), company_(company) {}

    void sourceStatesRates() override { options_.showStatedRates(); }
    void trailingEarningsTyped() override { quarterly_.trailing().typed(); }
    void trailingEarningsLeft() override { quarterly_.trailing().left(); }
    void trailingEarningsDerived() override;
    void fiscalYearMoved() override;
    void yearlyEarningsStored() override { quarterly_.trailing().followYear(); }
    void yearsShifted() override { company_.commit(); }
    void rowsLabelled() override { company_.rowsLabelled(); }
    void stateChanged() override { host_.stateChanged(); }
    void workDone() override { properties_.makeWantedQuarters(); }

  private:
    HostLine& host_;
    EntryContext& context_;
    CompanyFields& fields_;
    QuarterlyGrid& quarterly_;
    Options& options_;
    Properties& properties_;
    HeldCompany& company_;
};

} // namespace vkr
