// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/figure_origins.hpp"

#include <memory>

namespace vkr {

// The company of a window, as it is at the time of asking. None of the records is ever null.
class ShownCompany {
  public:
    // As it is being edited; a text that is still being typed is not in it.
    [[nodiscard]] virtual std::shared_ptr<const CompanyRecord> record() const = 0;
    // As it would be saved now: without the dates that nobody has typed.
    [[nodiscard]] virtual std::shared_ptr<CompanyRecord> recordToSave() const = 0;
    // Where each figure comes from, what was typed here included.
    [[nodiscard]] virtual FigureOrigins origins() const = 0;

  protected:
    ~ShownCompany() = default;
};

} // namespace vkr
