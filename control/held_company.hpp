// SPDX-License-Identifier: MIT
#pragma once

#include "control/data_lock.hpp"
#include "control/field_controllers.hpp"
#include "control/figure_display.hpp"
#include "control/options.hpp"
#include "record/actions.hpp"
#include "record/datum_changes.hpp"

#include <memory>
#include <optional>
#include <span>
#include <string>

namespace vkr {

// The company that is held. It is the context's `company`. This brings it onto the form, puts the
// form back into the record, and clears the form. Without a company a placeholder stands in place
// of the form. At any time
//
//   loading   means that a company is held and its figures come onto the form. Rows get their names
//             at the end
//   resizing  means that no company is held and the form becomes a placeholder
//
// or neither. Both are never true together.
class HeldCompany {
  public:
    HeldCompany(EntryContext& context, CompanyFields& fields, YearlyGrid& yearly,
                QuarterlyGrid& quarterly, LastQuarter& lastQuarter, Captions& captions,
                Options& options, DataLock& lock, FigureDisplay& display, FieldControllers& entry,
                Controllers& controllers);

    void load(std::shared_ptr<iVKR_Company> company);
    std::shared_ptr<iVKR_Company> commit();
    // Somebody else than the form has changed the record.
    void showAnew();
    // Many data as one action, all or none, and what follows from them. No value where they are
    // taken. A value where they are not: the words of the record or the lock, which may be empty.
    [[nodiscard]] std::optional<std::string> change(std::span<const DatumChange> changes,
                                                    const Action& action);
    void commitInto(std::shared_ptr<iVKR_Company> copy);
    // After a commit: a text that it stored while it was typed is the stored one. Typing the former
    // one again is a change.
    void holdCommitted();
    void clear();
    void resize();
    // Years or quarters have other labels.
    void rowsLabelled();

  private:
    void checkInvariants() const;
    void show();
    void listReportingPeriods();

    EntryContext& context_;
    CompanyFields& fields_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    LastQuarter& lastQuarter_;
    Captions& captions_;
    Options& options_;
    DataLock& lock_;
    FigureDisplay& display_;
    FieldControllers& entry_;
    Controllers& controllers_;
    bool loading_ = false;
    bool resizing_ = false;
};

} // namespace vkr
