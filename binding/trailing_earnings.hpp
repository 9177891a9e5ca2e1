// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"
#include "platform/object.hpp"
#include "platform/object_factory.hpp"
#include "platform/variant.hpp"

#include <memory>
#include <optional>
#include <string_view>

namespace vkr {

// Identifier under which a host registers its own rule with the object factory. The component
// creates one when it needs it first and keeps it; where none is registered it takes the
// project's own.
inline constexpr std::string_view trailingEarningsId = "VKR_Company.TrailingEarnings";

// What the earnings of the last four quarters are worked out from. Figures are per share, 0 is "no
// value". Dates are absent (Date{0}) where the record has none.
struct EarningsInput {
    Date lastQuarter;   // as the form shows it
    Date newestQuarter; // that of element 0 of the series
    Variant quarterly;  // the series of quarterly earnings, newest first
    double yearly = 0;  // the latest yearly figure
    Date fiscalYearEnd; // that of the yearly figure
};

// The rule of the trailing earnings. It is asked when a company is loaded, when quarterly earnings
// are left, and when a date or the yearly figure has changed.
class TrailingEarnings : public Object {
  public:
    // Nothing where they can't be told: what is stored stays then, as it does where this throws.
    [[nodiscard]] virtual std::optional<double> lastFour(const EarningsInput& input) = 0;
};

// The project's own rule: the sum of the four quarters that end at the last quarter. Where one of
// them is missing, the yearly figure if they are those of its fiscal year, else nothing.
[[nodiscard]] std::shared_ptr<TrailingEarnings> newTrailingEarnings();

// Lets the factory create the project's own rule.
void registerTrailingEarnings(ObjectFactory& factory);

} // namespace vkr
