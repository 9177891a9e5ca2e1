// SPDX-License-Identifier: MIT
#pragma once

#include "platform/number_marks.hpp"
#include "record/datum_table.hpp"

#include <string>
#include <string_view>

namespace vkr {

// What the text of a whole figure says beside the figure, and the datum does not: a percent sign
// where it is no rate, a sign of another currency than that of `symbol`, or any where it is no
// amount. Of figures per share and rates also the mark of their only group: there 1,125 is rarely
// 1125. Empty for a text that says nothing but the figure.
[[nodiscard]] std::string saidBeside(std::string_view text, Datum datum, std::string_view symbol,
                                     const NumberMarks& marks);

} // namespace vkr
