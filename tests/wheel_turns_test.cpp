// SPDX-License-Identifier: MIT
#include "platform/wheel_turns.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(WheelTurns, FractionsAddUpToAStep) {
    WheelTurns turns;
    EXPECT_EQ(turns.add(-50), 0);
    turns.settle(true);
    EXPECT_EQ(turns.add(-50), 0);
    turns.settle(true);
    EXPECT_EQ(turns.add(-50), 1);
    turns.settle(true);
    EXPECT_EQ(turns.add(-90), 1) << "thirty were left";
}

TEST(WheelTurns, AnotherDirectionBeginsAnew) {
    WheelTurns turns;
    EXPECT_EQ(turns.add(-100), 0);
    turns.settle(true);
    EXPECT_EQ(turns.add(100), 0);
    turns.settle(true);
    EXPECT_EQ(turns.add(20), -1);
}

TEST(WheelTurns, WhatIsNotUsedIsNotKept) {
    WheelTurns turns;
    EXPECT_EQ(turns.add(-240), 2);
    turns.settle(false);
    EXPECT_EQ(turns.add(-119), 0);
}

} // namespace
} // namespace vkr
