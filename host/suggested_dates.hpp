// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <vector>

namespace vkr {

// Where a company has no date of its own the component shows one, last year's end or today, and
// writes it into the record. Nobody has typed it, so it is not to be stored, but for a date by
// which typed figures go: the price's day beside a price, the last quarter and fiscal year beside
// the figures of quarters and years, which would stand for other periods next year without it.

// Puts back what `unchanged` has in place of the suggested dates.
void takeBack(const std::vector<Datum>& suggested, const CompanyRecord& unchanged,
              CompanyRecord& record);

// Those by which nothing goes that differs between the two records.
[[nodiscard]] std::vector<Datum> datingNothing(const std::vector<Datum>& suggested,
                                               const CompanyRecord& unchanged,
                                               const CompanyRecord& record);

// These dates, and what is written with them but does not stand in the record by itself.
[[nodiscard]] std::vector<Datum> withThoseBeside(const std::vector<Datum>& suggested,
                                                 const CompanyRecord& record);

} // namespace vkr
