// SPDX-License-Identifier: MIT
#include "platform/form.hpp"
#include "platform/readable_color.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(Contrast, GoesFromTheSameLightnessToBlackOnWhite) {
    const struct {
        Color one;
        Color other;
        double contrast;
    } rows[] = {
        {colors::black, colors::white, 21},
        {colors::white, colors::white, 1},
        {colors::black, colors::black, 1},
        {colorOf(255, 0, 0), colors::white, 3.9984768},
        {colorOf(0, 255, 0), colors::white, 1.3721903},
        {colorOf(0, 0, 255), colors::white, 8.5924714},
        {colorOf(119, 119, 119), colors::white, 4.4780895},
        {colorOf(10, 10, 10), colors::black, 1.0607054}, // the darkest go by a rule of their own
        {colorOf(11, 11, 11), colors::black, 1.0669307},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(contrast(row.one, row.other), row.contrast, 1e-6) << row.one;
        EXPECT_EQ(contrast(row.one, row.other), contrast(row.other, row.one)) << row.one;
    }
}

TEST(Between, IsAColourOnTheWayToAnother) {
    const Color one = colorOf(10, 220, 30);
    const Color other = colorOf(110, 20, 130);
    EXPECT_EQ(between(one, other, 0), one);
    EXPECT_EQ(between(one, other, 0.25), colorOf(35, 170, 55));
    EXPECT_EQ(between(one, other, 1), other);
}

TEST(Readable, ChangesAColourOnlyAsFarAsItTakes) {
    const Color grays[] = {colors::black,          colorOf(60, 60, 60),    colorOf(100, 100, 100),
                           colorOf(140, 140, 140), colorOf(200, 200, 200), colors::white};
    const Color wanted[] = {colorOf(255, 255, 0), colorOf(200, 0, 0), colorOf(0, 0, 160),
                            colorOf(128, 128, 128)};
    for (const Color behind : grays)
        for (const Color color : wanted)
            for (const double least : {signContrast, textContrast}) {
                const Color shown = readable(color, behind, least);
                EXPECT_GE(contrast(shown, behind), least) << color << " on " << behind;
                if (contrast(color, behind) >= least) {
                    EXPECT_EQ(shown, color) << behind;
                } else {
                    EXPECT_LT(contrast(shown, behind), 1.5 * least) << color << " on " << behind;
                }
            }
    EXPECT_EQ(readable(colorOf(255, 255, 0), colors::white, 21), colors::black);
    EXPECT_EQ(readable(colorOf(255, 255, 0), colors::white, 30), colors::black);
    EXPECT_EQ(readable(colorOf(90, 0, 0), colors::black, 30), colors::white);
}

TEST(Readable, ChangesAColourByTwentiethsOfTheWay) {
    const Color gray = colorOf(128, 128, 128);
    const struct {
        Color wanted;
        Color behind;
        double least;
        Color shown;
    } rows[] = {
        {colorOf(255, 255, 0), colors::white, textContrast, colorOf(114, 114, 0)},
        {colorOf(200, 0, 0), colors::black, textContrast, colorOf(213, 63, 63)},
        {colorOf(0, 0, 160), colors::black, signContrast, colorOf(76, 76, 188)},
        {gray, colorOf(60, 60, 60), textContrast, colorOf(166, 166, 166)},
        {gray, colorOf(140, 140, 140), textContrast, colorOf(38, 38, 38)},
    };
    for (const auto& row : rows)
        EXPECT_EQ(readable(row.wanted, row.behind, row.least), row.shown)
            << row.wanted << " on " << row.behind;
}

TEST(MarkColor, IsRedForWhatIsNotStoredAmberForADoubtAndElseQuiet) {
    EXPECT_EQ(markColor(MarkKind::unstored), mark_colors::unstored);
    EXPECT_EQ(markColor(MarkKind::doubtful), mark_colors::doubtful);
    EXPECT_EQ(markColor(MarkKind::quiet), mark_colors::quiet);
}

TEST(OriginCorner, IsWhereTheTextOfTheFieldDoesNotBegin) {
    Form form;
    auto& figure = form.add<TextBox>("txtFigure");
    auto& name = form.add<TextBox>("txtName");
    auto& list = form.add<ComboBox>("cmbList");
    figure.setAlignment(Alignment::right);
    for (TextField* field : {static_cast<TextField*>(&figure), static_cast<TextField*>(&name),
                             static_cast<TextField*>(&list)}) {
        EXPECT_FALSE(originCorner(*field, 23));
        field->setOrigin({"Imported.", false});
        EXPECT_FALSE(originCorner(*field, 23));
        field->setOrigin({"Imported.", true});
        const auto corner = originCorner(*field, 23);
        ASSERT_TRUE(corner);
        EXPECT_EQ(corner->atLeft, field == &figure);
        EXPECT_DOUBLE_EQ(corner->side, 6); // within the edges
    }
}

} // namespace
} // namespace vkr
