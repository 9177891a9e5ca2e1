// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "record/datum_table.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// Periods as the history has them: a year "2025", a quarter by a day in it, "2025-09-27".

// That of the first element of a series of the company; "" where it is not known.
[[nodiscard]] std::string firstPeriod(const CompanyRecord& company, DatumPeriod period);
// That of an element, counted from the first.
[[nodiscard]] std::string periodOf(const DatumRow& row, std::string_view first, int element);
// The same whatever day of a quarter it was counted from.
[[nodiscard]] std::optional<int> periodNumber(std::string_view period);
// Whether the period of a change is that of the query.
[[nodiscard]] bool isPeriod(const std::string& period, const std::string& asked);

} // namespace vkr
