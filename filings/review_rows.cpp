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

bool FilingsReview::makesSpan(DatumPeriod period) const {
    return std::ranges::any_of(rows, [&](const ReviewRow& row) {
        const Datum datum = row.figure.datum;
        return row.ticked &&
               (datum == Datum::Last4QEPS ? DatumPeriod::quarter : rowOf(datum).period) == period;
    });
}

int FilingsReview::ticked() const {
    return static_cast<int>(std::ranges::count_if(rows, &ReviewRow::ticked));
}

} // namespace vkr
