// SPDX-License-Identifier: MIT
#include "company/period_moves.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace vkr {
namespace {

using Figures = std::vector<double>;

Variant quarter(int year, int month, int day) {
    return *makeDate(year, month, day);
}

TEST(PeriodMoves, MovesFiguresOnAndBack) {
    EXPECT_EQ(movedOn(numberArray({1, 2, 3}), 1), numberArray({0, 1, 2}));
    EXPECT_EQ(movedOn(numberArray({1, 2, 3}, -4), -2), numberArray({3, 0, 0}, -4));
    EXPECT_EQ(movedOn(numberArray({1, 2, 3}), 9), numberArray({0, 0, 0}));
    const int last = std::numeric_limits<int>::max();
    EXPECT_EQ(movedOn(numberArray({1, 2}, last - 1), 1), numberArray({0, 1}, last - 1));
}

TEST(PeriodMoves, AreFoundInTheFigures) {
    const auto moved = [](const Figures& before, const Figures& after, int likely = 0) {
        return periodsMoved(numberArray(before), numberArray(after), likely);
    };
    EXPECT_EQ(moved({0, 1, 2, 3}, {0, 0, 1, 2}), 1);
    EXPECT_EQ(moved({0, 1, 2, 3}, {2, 3, 0, 0}), -2);
    EXPECT_EQ(moved({0, 1, 2, 3}, {0, 0, 1, 9}), std::nullopt);
    EXPECT_EQ(moved({0, 0, 0, 3}, {0, 0, 0, 0}), 1);
    EXPECT_EQ(moved({0, 0, 0, 3}, {0, 0, 0, 0}, 2), 2) << "as the dates say";
    EXPECT_EQ(moved({0, 1, 2, 3}, {0, 0, 1, 2}, 2), 1) << "against the dates";
    const double none = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(moved({1, none, 2}, {0, 1, none}), 1);
    EXPECT_EQ(moved({1, none, 2}, {0, 1, 5}), std::nullopt);
    EXPECT_EQ(moved({1, 2, 3}, {1, 2, 3}), std::nullopt);
    EXPECT_EQ(moved({1, 2}, {0, 0}), std::nullopt) << "all are gone";
    EXPECT_EQ(moved({1, 2}, {0, 1, 2}), std::nullopt);
    EXPECT_EQ(periodsMoved(numberArray({1, 2}), numberArray({0, 1}, 1)), std::nullopt);
    EXPECT_EQ(periodsMoved(1.5, numberArray({1})), std::nullopt);
}

TEST(PeriodMoves, AreFoundWithinAnyTableOfTheRecord) {
    Figures before(60);
    before[0] = 1;
    for (const int periods : {1, 34, 40, 41}) {
        Figures after(60);
        after[static_cast<std::size_t>(periods)] = 1;
        EXPECT_EQ(periodsMoved(numberArray(before), numberArray(after)),
                  periods <= 40 ? std::optional(periods) : std::nullopt);
    }
}

// A quarter of a week-based year may end in a month of the one before or after.
TEST(PeriodMoves, AreCountedFromTheDates) {
    const auto years = [](int from, int to) {
        return periodsBetween(DatumPeriod::year, static_cast<std::int16_t>(from),
                              static_cast<std::int16_t>(to));
    };
    EXPECT_EQ(years(2024, 2026), 2);
    EXPECT_EQ(years(0, 2026), 0);
    EXPECT_EQ(years(2024, 0), 0);
    const auto quarters = [](const Variant& from, const Variant& to) {
        return periodsBetween(DatumPeriod::quarter, from, to);
    };
    EXPECT_EQ(quarters(quarter(2023, 7, 1), quarter(2023, 9, 30)), 1);
    EXPECT_EQ(quarters(quarter(2022, 12, 31), quarter(2023, 4, 1)), 1);
    EXPECT_EQ(quarters(quarter(2023, 9, 30), quarter(2023, 7, 1)), -1);
    EXPECT_EQ(quarters(Date{}, quarter(2023, 7, 1)), 0);
    EXPECT_EQ(firstPeriodOf(DatumPeriod::year), Datum::LastFY);
    EXPECT_EQ(firstPeriodOf(DatumPeriod::quarter), Datum::LastQDateForGrid);
}

} // namespace
} // namespace vkr
