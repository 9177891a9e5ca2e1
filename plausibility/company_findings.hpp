// SPDX-License-Identifier: MIT
#pragma once

#include "platform/number_marks.hpp"
#include "plausibility/finding.hpp"

#include <vector>

namespace vkr {

struct FindingOptions {
    NumberMarks marks; // of the figures in the sentences
    Date today;        // absent: no day is still to come
};

// Looks at all figures of a company by all rules, in well under a millisecond. What the record
// can't read counts as not there; nothing is written. Findings of one figure stand together, the
// figure with the surest one first.
[[nodiscard]] std::vector<Finding> companyFindings(const iVKR_Company& company,
                                                   const FindingOptions& options = {});

} // namespace vkr
