// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

class TourSteps;

// Looks at all there is to see of the open company, and at the company itself, which stays as it is
// but for a date and two options.
void takeSights(TourSteps& tour);

} // namespace vkr
