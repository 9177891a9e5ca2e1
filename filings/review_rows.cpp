// SPDX-License-Identifier: MIT
#include "filings/review_rows.hpp"

#include "filings/figure_sums.hpp"

#include <algorithm>

namespace vkr {

double ReviewRow::difference() const {
    return roundedFigure(unitOf(figure.datum), figure.value - stored);
}

bool ReviewRow::isByHand() const {
    return stored != 0 && mayBeByHand(origin);
}

int FilingsReview::ticked() const {
    return static_cast<int>(std::ranges::count_if(rows, &ReviewRow::ticked));
}

} // namespace vkr
