// SPDX-License-Identifier: MIT
#include "platform/paste_list.hpp"
#include "platform/readable_color.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(PasteList, EachColumnHasItsTextAndFiguresStandAtTheRight) {
    PasteLine line;
    line.period = "2024";
    line.column = "Sales";
    line.text = "1,234";
    line.before = "1.00";
    line.after = "1234.00";
    line.remark = "changed";
    std::string all;
    std::string right;
    for (int column = 0; column < paste_list::columns; ++column) {
        all += paste_list::textIn(line, column) + "|";
        right += paste_list::isFigure(column) ? "1" : "0";
    }
    EXPECT_EQ(all, "2024|Sales|1,234|1.00|1234.00|changed|");
    EXPECT_EQ(right, "001110");
}

TEST(PasteList, FatesAreToldByColorsThatCanBeReadOnLightAndDark) {
    using paste_list::inkOf;
    for (const auto& [ink, back] :
         {std::pair{colors::black, colors::white}, std::pair{colors::white, colors::black}}) {
        EXPECT_EQ(inkOf(PasteFate::taken, paste_list::remark, ink, back), ink);
        EXPECT_EQ(inkOf(PasteFate::doubtful, paste_list::after, ink, back), ink);
        const Color faded = inkOf(PasteFate::leftOut, paste_list::after, ink, back);
        const Color refused = inkOf(PasteFate::leftOut, paste_list::remark, ink, back);
        const Color doubtful = inkOf(PasteFate::doubtful, paste_list::remark, ink, back);
        for (const Color color : {faded, refused, doubtful})
            EXPECT_GE(contrast(color, back), textContrast);
        EXPECT_NE(faded, ink);
        EXPECT_NE(refused, doubtful);
        EXPECT_EQ(refused, readable(mark_colors::unstored, back));
    }
}

} // namespace
} // namespace vkr
