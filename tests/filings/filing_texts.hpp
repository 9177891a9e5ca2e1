// SPDX-License-Identifier: MIT
#pragma once

#include "filings/filed_figures.hpp"

#include <string>

namespace vkr {

[[nodiscard]] std::string textOf(const std::string& file);

// The document of a company in this folder; throws where it cannot be read.
[[nodiscard]] FilingsDocument documentOf(const std::string& symbol);
[[nodiscard]] FiledCompany companyOf(const std::string& symbol);

} // namespace vkr
