// SPDX-License-Identifier: MIT
#include "platform/exact_number.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace vkr {
namespace {

TEST(ExactNumber, IsWrittenWithEveryDigitAndWithoutExponent) {
    EXPECT_EQ(exactNumberText(394.33), "394.33");
    EXPECT_EQ(exactNumberText(-0.1), "-0.1");
    EXPECT_EQ(exactNumberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(exactNumberText(1e20), "100000000000000000000");
    EXPECT_EQ(exactNumberText(1e-7), "0.0000001");
    for (const double value :
         {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::max(),
          -2.2250738585072011e-308})
        EXPECT_EQ(exactNumber(exactNumberText(value)), value);
}

TEST(ExactNumber, MovesTheDecimalPointAndRoundsNothing) {
    const struct {
        const char* number;
        int places;
        const char* moved;
    } rows[] = {
        {"394.33", 0, "394.33"},
        {"394.33", 1, "3943.3"},
        {"394.33", 2, "39433"},
        {"394.33", 3, "394330"},
        {"394.33", 6, "394330000"},
        {"394.33", -1, "39.433"},
        {"394.33", -2, "3.9433"},
        {"394.33", -3, "0.39433"},
        {"394.33", -4, "0.039433"},
        {"394.33", -6, "0.00039433"},
        {"-1.5", 3, "-1500"},
        {"-1.5", -3, "-0.0015"},
        {"+1.5", 1, "15"},
        {"5", 0, "5"},
        {"5", -1, "0.5"},
        {"5.", 1, "50"},
        {".5", 0, "0.5"},
        {".5", 1, "5"},
        {".05", 1, "0.5"},
        {"0.001", 3, "1"},
        {"007.50", 0, "7.5"},
        {"100", -2, "1"},
        {"100", -3, "0.1"},
        {"0", 3, "0"},
        {"0.00", -2, "0"},
        {"12345678901234567890.12345", -3, "12345678901234567.89012345"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(shiftDecimalPoint(row.number, row.places), row.moved)
            << row.number << " by " << row.places;
}

TEST(ExactNumber, IsAPlainNumberOrNothing) {
    const struct {
        const char* text;
        double value;
    } rows[] = {{"5", 5}, {"+5", 5}, {"-5", -5}, {"5.", 5}, {".5", 0.5}, {"-.5", -0.5}, {"007", 7}};
    for (const auto& row : rows) {
        EXPECT_TRUE(isPlainNumber(row.text)) << row.text;
        EXPECT_EQ(exactNumber(row.text), row.value) << row.text;
    }
    for (const char* text : {"", ".", "+", "-", "-.", "1.2.3", "1e3", "5x", "x", " 5", "5 ", "--5",
                             "+-5", "1,234", "nan", "inf", "0x1", ".."}) {
        EXPECT_FALSE(isPlainNumber(text)) << text;
        EXPECT_FALSE(exactNumber(text)) << text;
    }
    EXPECT_TRUE(isPlainNumber(std::string(400, '9')));
    EXPECT_FALSE(exactNumber(std::string(400, '9')));
}

} // namespace
} // namespace vkr
