// SPDX-License-Identifier: MIT
#pragma once

#include "company/csv_findings.hpp"
#include "company/csv_text.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// The rows below the header, each as wide as the header; rows of another width are errors.
struct CsvSheet {
    CsvRow header; // as csvName() gives them; empty where the text cannot be read as a table at all
    std::vector<CsvRow> rows;
};

[[nodiscard]] CsvSheet readSheet(const CsvText& text, CsvFindings& findings);

// A heading or key as it is compared: without surrounding blanks, in lower case.
[[nodiscard]] std::string csvName(std::string_view text);

} // namespace vkr
