// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <optional>
#include <utility>

namespace vkr {

// What periods are counted from.
inline constexpr std::pair<Datum, DatumPeriod> datingData[] = {
    {Datum::LastFY, DatumPeriod::year},
    {Datum::LastFYDate, DatumPeriod::year},
    {Datum::LastQDate, DatumPeriod::quarter},
    {Datum::LastQDateForGrid, DatumPeriod::quarter},
};
// Those that a datum says it of; none for any other datum.
[[nodiscard]] DatumPeriod periodsDatedBy(Datum datum);
[[nodiscard]] inline bool isDating(Datum datum) {
    return periodsDatedBy(datum) != DatumPeriod::none;
}

// The datum that says which year or quarter a series begins with.
[[nodiscard]] Datum firstPeriodOf(DatumPeriod period);

// How many periods later the second one is, of two values of that datum; 0 where one is absent.
[[nodiscard]] int periodsBetween(DatumPeriod period, const Variant& before, const Variant& after);

// The same series with its figures `periods` elements further on; what comes in is absent, what
// leaves it is gone.
[[nodiscard]] Variant movedOn(const Variant& series, int periods);

// By how many elements the figures were moved on, where nothing else was done to them: `likely`
// where that is one of several answers. Nothing where figures are other ones.
[[nodiscard]] std::optional<int> periodsMoved(const Variant& before, const Variant& after,
                                              int likely = 0);

} // namespace vkr
