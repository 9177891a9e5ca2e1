// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/csv_findings.hpp"

namespace vkr {

// Take over the series of a grid's file. What the record has by then, of its last fiscal year and
// its last quarter, says where the rows go; where it has nothing, it takes that from the newest
// row.
void readYearlyCsv(const CsvText& text, CompanyRecord& company, CsvFindings& findings);
void readQuarterlyCsv(const CsvText& text, CompanyRecord& company, CsvFindings& findings);

} // namespace vkr
