// SPDX-License-Identifier: MIT
#include "desktop/qt_values.hpp"
#include "desktop/readable_colors.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(ReadableColors, ContrastGoesFromOneToTwentyOne) {
    EXPECT_DOUBLE_EQ(contrast(Qt::white, Qt::white), 1);
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrast(Qt::white, Qt::black), 21, 1e-9);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(ReadableColors, WhatIsReadableStaysAsItIs) {
    EXPECT_EQ(readable(Qt::blue, Qt::white), QColor(Qt::blue));
    EXPECT_EQ(readable(Qt::black, toQt(colors::paleCyan)), QColor(Qt::black));
}

TEST(ReadableColors, EveryGroundLeavesAReadableText) {
    for (int red = 0; red <= 255; red += 51)
        for (int green = 0; green <= 255; green += 51)
            for (int blue = 0; blue <= 255; blue += 51)
                for (const QColor& wanted : {QColor(Qt::blue), QColor(Qt::black)}) {
                    const QColor ground(red, green, blue);
                    EXPECT_GE(contrast(readable(wanted, ground), ground), textContrast)
                        << ground.name().toStdString();
                }
}

TEST(ReadableColors, ATextBecomesLighterOnADarkGroundAndKeepsItsHue) {
    const QColor text = readable(Qt::blue, QColor(30, 30, 60));
    EXPECT_GE(text.blue(), 250);
    EXPECT_LT(text.red(), 200);
}

TEST(ReadableColors, MarksStandOutOnEveryGroundOfAField) {
    for (const Color ground : {colors::white, colors::paleCyan, colors::yellow}) {
        EXPECT_GE(contrast(mark_colors::unstored, ground), signContrast);
        EXPECT_GE(contrast(mark_colors::doubtful, ground), signContrast);
    }
    // Red and amber differ in lightness too, for people to whom they are one hue.
    EXPECT_GE(contrast(mark_colors::unstored, mark_colors::doubtful), 1.5);
}

} // namespace
} // namespace vkr
