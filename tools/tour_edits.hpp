// SPDX-License-Identifier: MIT
#pragma once

namespace vkr {

class TourSteps;

// Edits a field of each kind of the open company, presses OK, and finds everything again.
void editCompany(TourSteps& tour);

// Adds a year and a quarter, types them, presses OK, and finds everything again.
void addPeriods(TourSteps& tour);

} // namespace vkr
