// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/figure_origins.hpp"

#include <memory>
#include <string>

namespace vkr {

// The company of a window, as it is at the time of asking. None of the records is ever null.
class ShownCompany {
  public:
    // As it is being edited; a text that is still being typed is not in it.
    [[nodiscard]] virtual std::shared_ptr<const CompanyRecord> record() const = 0;
    // As it would be saved now: without the dates that nobody has typed.
    [[nodiscard]] virtual std::shared_ptr<CompanyRecord> recordToSave() const = 0;
    // Where each figure comes from, what was typed here included; until the next change.
    [[nodiscard]] virtual const FigureOrigins& origins() const = 0;
    // What is wrong with what is stored of it, for people; "" where it is as it was saved.
    [[nodiscard]] virtual std::string damage() const { return {}; }

  protected:
    ~ShownCompany() = default;
};

} // namespace vkr
