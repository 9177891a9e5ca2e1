// SPDX-License-Identifier: MIT
#include "platform/form.hpp"
#include "platform/pixel_scale.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(PixelScale, AnInchIsAsManyPixelsAsTheDesktopHas) {
    for (const int dots : {96, 120, 192}) {
        const PixelScale scale(dots);
        EXPECT_EQ(scale.pixels(1440), dots);
        EXPECT_EQ(scale.pixels(-720), -dots / 2);
        EXPECT_EQ(scale.twips(dots), 1440);
    }
    EXPECT_EQ(PixelScale().pixels(7), 0);
    EXPECT_EQ(PixelScale().pixels(8), 1);
}

TEST(PixelScale, NeighboursStayNeighbours) {
    const PixelScale scale;
    Form form;
    auto& box = form.add<TextBox>("txtName");
    box.resize(100, 100);
    for (Twips at = 0; at < 60; ++at) {
        box.move(at, 2 * at);
        const PixelPlace place = scale.place(box);
        EXPECT_EQ(place.left, scale.pixels(at));
        EXPECT_EQ(place.top, scale.pixels(2 * at));
        EXPECT_EQ(place.left + place.width, scale.pixels(at + 100)) << at;
        EXPECT_EQ(place.top + place.height, scale.pixels(2 * at + 100)) << at;
    }
}

TEST(PixelScale, LettersAreOfEightPointsAndAQuarterAndNeverOfNoHeight) {
    EXPECT_EQ(PixelScale(96).fontPixels(), 11);
    EXPECT_EQ(PixelScale(192).fontPixels(), 22);
    EXPECT_EQ(PixelScale(1440).fontPixels(), 165);
    EXPECT_EQ(PixelScale(1).fontPixels(), 1);
}

} // namespace
} // namespace vkr
