// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "record/figure_place.hpp"
#include "yearly/yearly_grid.hpp"

namespace vkr {

// Where the figures of the record stand on the form.
class FigurePlaces {
  public:
    FigurePlaces(Session& session, const CompanyFields& fields, YearlyGrid& yearly,
                 QuarterlyGrid& quarterly)
        : session_(session), fields_(fields), yearly_(yearly), quarterly_(quarterly) {}

    // The field that shows a figure or date, or the one that takes turns with it; null where none
    // does at the moment.
    [[nodiscard]] TextField* fieldOf(const FigurePlace& place) const;

    // Remarks on figures, in place of those before; of fields that nothing is said of they go.
    void setRemarks(FigureRemarks::Texts remarks);

  private:
    Session& session_;
    const CompanyFields& fields_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
};

} // namespace vkr
