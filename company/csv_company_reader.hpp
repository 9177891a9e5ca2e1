// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"
#include "company/csv_findings.hpp"

namespace vkr {

// Takes over what the company's file holds: keys with single data and settings.
void readCompanyCsv(const CsvText& text, CompanyRecord& company, CsvFindings& findings);

} // namespace vkr
