// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_record.hpp"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace vkr {

// How many figures each series of a company has, as the column `figures` says it: a row that is
// missing is no figure that is 0.
using FigureCounts = std::map<std::string, int, std::less<>>;
[[nodiscard]] std::string figuresText(const FigureCounts& counts);
[[nodiscard]] FigureCounts figureCounts(std::string_view text);

// One row a figure that is not 0.
[[nodiscard]] FigureCounts countFigures(const CompanyRecord& record);

} // namespace vkr
