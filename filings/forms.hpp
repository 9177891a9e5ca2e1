// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vkr {

// Kinds of filings ("10-K"), amended ones ("10-K/A") included.

// Whether its figures are taken. A proxy statement or a prospectus repeats figures in other units
// and for other purposes.
[[nodiscard]] bool isReportForm(std::string_view form);
// Whether it tells where fiscal years end.
[[nodiscard]] bool isYearForm(std::string_view form);

} // namespace vkr
