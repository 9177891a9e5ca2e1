// SPDX-License-Identifier: MIT
#include "company/period_moves.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>

namespace vkr {

namespace {

constexpr int mostPeriods = 40; // a series of a company is shorter

bool isSameFigure(double one, double other) {
    return one == other || (std::isnan(one) && std::isnan(other));
}

} // namespace

DatumPeriod periodsDatedBy(Datum datum) {
    const auto* const found =
        std::ranges::find(datingData, datum, &std::pair<Datum, DatumPeriod>::first);
    return found == std::end(datingData) ? DatumPeriod::none : found->second;
}

Datum firstPeriodOf(DatumPeriod period) {
    return period == DatumPeriod::quarter ? Datum::LastQDateForGrid : Datum::LastFY;
}

int periodsBetween(DatumPeriod period, const Variant& before, const Variant& after) {
    if (period == DatumPeriod::quarter) {
        const Date from = before.toDate();
        const Date to = after.toDate();
        return isAbsent(from) || isAbsent(to) ? 0 : nearestQuarters(from, to);
    }
    const int from = before.toLong();
    const int to = after.toLong();
    return from == 0 || to == 0 ? 0 : to - from;
}

Variant movedOn(const Variant& series, int periods) {
    const VariantArray& from = series.array();
    const std::int64_t lower = from.lower(); // the bounds may be the ends of int
    const std::int64_t upper = from.upper();
    Variant moved = series;
    for (std::int64_t i = lower; i <= upper; ++i) {
        const std::int64_t old = i - periods;
        moved.array().setNumber(static_cast<int>(i), old < lower || old > upper
                                                         ? 0
                                                         : from.number(static_cast<int>(old)));
    }
    return moved;
}

std::optional<int> periodsMoved(const Variant& before, const Variant& after, int likely) {
    const auto* from = before.isArray() ? before.array().numbers() : nullptr;
    const auto* to = after.isArray() ? after.array().numbers() : nullptr;
    if (from == nullptr || to == nullptr || from->size() != to->size() ||
        before.array().lower() != after.array().lower())
        return std::nullopt;
    const auto size = static_cast<std::int64_t>(from->size());
    const auto isBy = [&](int periods) {
        for (std::int64_t i = 0; i < size; ++i) {
            const std::int64_t old = i - periods;
            const double figure =
                old < 0 || old >= size ? 0 : (*from)[static_cast<std::size_t>(old)];
            if (!isSameFigure(figure, (*to)[static_cast<std::size_t>(i)]))
                return false;
        }
        return true;
    };
    if (likely != 0 && isBy(likely))
        return likely;
    for (int periods = 1; periods <= mostPeriods && periods < size; ++periods)
        for (const int by : {periods, -periods})
            if (isBy(by))
                return by;
    return std::nullopt;
}

} // namespace vkr
