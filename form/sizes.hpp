// SPDX-License-Identifier: MIT
#pragma once

#include "platform/control.hpp"

namespace vkr::sizes {

// Of the form with a company, and without one.
inline constexpr Twips workingWidth = 8070;
inline constexpr Twips workingHeight = 5835;
inline constexpr Twips placeholder = 382.5;

// Where a page lies while its tab is selected.
inline constexpr Twips pageLeft = 60;

// Of the grids: rows when the form is made, and from one row to the next.
inline constexpr int yearRows = 11;
inline constexpr int quarterRows = 9;
inline constexpr Twips cellPitch = 300;

} // namespace vkr::sizes
