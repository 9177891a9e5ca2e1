// SPDX-License-Identifier: MIT
#include "company/record_snapshot.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace vkr {
namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

TEST(RecordSnapshot, AFigureThatIsNoNumberIsTheSameAsAnother) {
    EXPECT_TRUE(isSame(noNumber, noNumber));
    EXPECT_FALSE(isSame(noNumber, 1.0));
    EXPECT_FALSE(isSame(1.0, noNumber));
    const Variant series = numberArray({1, noNumber, 3});
    EXPECT_TRUE(isSame(series, numberArray({1, noNumber, 3})));
    EXPECT_FALSE(isSame(series, numberArray({2, noNumber, 3})));
    EXPECT_FALSE(isSame(series, numberArray({1, noNumber, 4})));
    EXPECT_FALSE(isSame(series, numberArray({1, 2, 3})));
    EXPECT_FALSE(isSame(series, numberArray({1, noNumber})));
    EXPECT_FALSE(isSame(series, noNumber));
}

} // namespace
} // namespace vkr
