// SPDX-License-Identifier: MIT
#pragma once

#include "binding/company_fields.hpp"
#include "control/host_line.hpp"
#include "quarterly/quarterly_grid.hpp"
#include "yearly/yearly_grid.hpp"

#include <functional>

namespace vkr {

// How figures are written, over all fields and cells: decimals or eighths, the marks, the unit.
// What is being typed or was refused follows, and means what it did.
class FigureDisplay {
  public:
    FigureDisplay(EntryContext& context, CompanyFields& fields, YearlyGrid& yearly,
                  QuarterlyGrid& quarterly, HostLine& host)
        : context_(context), fields_(fields), yearly_(yearly), quarterly_(quarterly), host_(host) {}

    void setFractions(bool fractions);
    void setNumberMarks(const NumberMarks& marks);
    void followUnit(); // the record has another one
    // The unit was `before` until now; amounts that are not stored were typed in that one.
    void keepUnit(std::int32_t before);

  private:
    // Each figure field of some kinds; its own figure can be shown anew.
    void follow(const std::function<bool(FieldKind)>& concerns,
                const std::function<void(TextField&, const std::function<bool()>&)>& fieldFollows);

    EntryContext& context_;
    CompanyFields& fields_;
    YearlyGrid& yearly_;
    QuarterlyGrid& quarterly_;
    HostLine& host_;
};

} // namespace vkr
