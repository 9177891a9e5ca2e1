// SPDX-License-Identifier: MIT
#pragma once

#include "platform/date.hpp"

#include <optional>
#include <string_view>

namespace vkr {

// The date that a typed text names, nothing for every other text. Read are
//
//   12/31/2005  12-31-05  31.12.2005  2005-12-31      numbers, all with the same mark
//   Dec/31/2005  Dec 31, 2005  31 December 2005       month names in full or from 3 letters on
//   Sept 30 2005  March 6th, 2006  6th March 2006     endings of days where they fit the number
//   Jan 2006  01/2006  2006-01                        the first of the month
//   Mar 5  3/5                                        in the year of `today`
//
// in any case, with an optional weekday name (which has to be the right one) and an optional time
// ("10:30", "10:30:15 PM", "3 PM"). Numbers are month before day, the other order is taken only
// where nothing else is a date; the mark between them says nothing of their order. Two-digit years
// up to 29 are 2000 to 2029, from 30 on 1930 to 1999. Years are 100 to 9999 with four digits.
//
// A display pattern that orders day and month otherwise ("DD/MM/YYYY") can be named in `pattern`:
// numbers are then read in its order first, so that what formatDate wrote is read back. Where it
// leaves the day out and writes the year with two digits ("MMM YY"), "Nov 05" is November 2005.
[[nodiscard]] std::optional<Date> readDate(std::string_view text, Date today,
                                           std::string_view pattern = {});

} // namespace vkr
