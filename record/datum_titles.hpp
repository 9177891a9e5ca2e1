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

// What stands in a history by its name, a datum or a setting: "Yearly Revenue", "Unit". Another
// name as it is.
[[nodiscard]] std::string calledDatum(std::string_view name);
// The name of what is called so, upper or lower case, or has that name; empty for anything else.
[[nodiscard]] std::string_view datumCalled(std::string_view text);

// Within a sentence: "total debt", "date of last FY".
[[nodiscard]] std::string wordsOf(Datum datum);

} // namespace vkr
