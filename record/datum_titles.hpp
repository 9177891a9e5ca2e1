// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <string>
#include <string_view>

namespace vkr {

// What people call a datum wherever it is told of, in words of the form's captions.

// "Total Debt"; of a series "Revenue", whichever period it is of.
[[nodiscard]] std::string_view titleOf(Datum datum);

// The same where nothing else tells the period: "Yearly Revenue", "Quarterly Revenue".
[[nodiscard]] std::string fullTitleOf(Datum datum);

// Within a sentence: "total debt", "date of last FY".
[[nodiscard]] std::string wordsOf(Datum datum);

} // namespace vkr
