// SPDX-License-Identifier: MIT
#include "platform/decimal.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace vkr {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

// "0.d1d2d3 x 10^point" as "d1d2d3e<point>".
std::string told(const Decimal& number) {
    std::string text = number.negative ? "-" : "";
    for (int i = 0; i < number.count; ++i)
        text += number.digit(i);
    return text + "e" + std::to_string(number.point);
}

TEST(Decimal, HasTheDigitsThatAPersonCanTellApart) {
    const struct {
        double value;
        const char* told;
    } rows[] = {
        {0, "e0"},
        {-0.0, "e0"},
        {1, "1e1"},
        {-1, "-1e1"},
        {10, "1e2"},
        {0.1, "1e0"},
        {0.01, "1e-1"},
        {394.33, "39433e3"},
        {-394.33, "-39433e3"},
        {1200, "12e4"},
        {1e300, "1e301"},
        {1e-300, "1e-299"},
        {0.1 + 0.2, "3e0"},
        {1.0 / 3, "333333333333333e0"},
        {2.0 / 3, "666666666666667e0"},
        {0.99999999999999989, "1e1"},
        {123456789012345, "123456789012345e15"},
        {1234567890123456, "123456789012346e16"},
        {infinite, "e0"},
        {-infinite, "e0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(told(toDecimal(row.value)), row.told) << row.value;
}

TEST(Decimal, RoundsHalfAwayFromZeroToSignificantDigits) {
    const struct {
        double value;
        int digits;
        const char* told;
    } rows[] = {
        {12345, 6, "12345e5"},  {12345, 5, "12345e5"}, {12345, 4, "1235e5"}, {12344, 4, "1234e5"},
        {12345, 3, "123e5"},    {12345, 1, "1e5"},     {12345, 0, "e0"},     {52345, 0, "1e6"},
        {52345, -1, "e0"},      {99995, 4, "1e6"},     {99994, 4, "9999e5"}, {19995, 4, "2e5"},
        {-12345, 4, "-1235e5"}, {10049, 4, "1005e5"},  {10004, 4, "1e5"},
    };
    for (const auto& row : rows) {
        Decimal number = toDecimal(row.value);
        roundToDigits(number, row.digits);
        EXPECT_EQ(told(number), row.told) << row.value << " to " << row.digits;
    }
}

TEST(Decimal, RoundsHalfAwayFromZeroToPlaces) {
    const struct {
        double value;
        int places;
        const char* told;
    } rows[] = {
        {12.345, 3, "12345e2"}, {12.345, 2, "1235e2"}, {12.345, 0, "12e2"}, {12.345, -1, "1e2"},
        {12.345, -2, "e0"},     {52.345, -2, "1e3"},   {52.345, -3, "e0"},  {0.005, 2, "1e-1"},
        {0.004, 2, "e0"},       {0.0005, 2, "e0"},     {0.0009, 2, "e0"},   {999.995, 2, "1e4"},
        {0.05, 1, "1e0"},       {0.5, 0, "1e1"},       {0.49, 0, "e0"},     {-0.5, 0, "-1e1"},
    };
    for (const auto& row : rows) {
        Decimal number = toDecimal(row.value);
        roundToPlaces(number, row.places);
        EXPECT_EQ(told(number), row.told) << row.value << " to " << row.places;
    }
}

TEST(Decimal, BecomesTheNearestDouble) {
    for (const double value : {0.0, 1.0, -1.0, 394.33, 0.001, -1e300, 1e-300, 123456789012345.0})
        EXPECT_EQ(toDouble(toDecimal(value)), value);
    Decimal large = toDecimal(1);
    large.point = 400;
    EXPECT_EQ(toDouble(large), infinite);
    large.negative = true;
    EXPECT_EQ(toDouble(large), -infinite);
    large.point = -400;
    EXPECT_EQ(toDouble(large), 0);
}

TEST(Decimal, ReadsANumberAsFarAsItIsOne) {
    const struct {
        const char* text;
        const char* mantissa;
        int exponent;
        std::size_t length;
        bool negative;
    } rows[] = {
        {"12.5", "12.5", 0, 4, false},  {"-12.5", "12.5", 0, 5, true},
        {"+12.5", "12.5", 0, 5, false}, {"12.5x", "12.5", 0, 4, false},
        {"1.2.3", "1.2", 0, 3, false},  {".5", ".5", 0, 2, false},
        {"5.", "5.", 0, 2, false},      {"1e3", "1", 3, 3, false},
        {"1E3", "1", 3, 3, false},      {"1e+3", "1", 3, 4, false},
        {"1e-3", "1", -3, 4, false},    {"1e", "1", 0, 1, false},
        {"1e+", "1", 0, 1, false},      {"1e-x", "1", 0, 1, false},
        {"1ex", "1", 0, 1, false},      {"-1e-3x", "1", -3, 5, true},
        {"1e12", "1", 12, 4, false},    {"1e007", "1", 7, 5, false},
        {"1d3", "1", 0, 1, false},      {"12 5", "12", 0, 2, false},
        {"", "", 0, 0, false},          {"-", "", 0, 0, false},
        {".", "", 0, 0, false},         {"-.", "", 0, 0, false},
        {"e3", "", 0, 0, false},        {".e3", "", 0, 0, false},
        {"--5", "", 0, 0, false},       {" 5", "", 0, 0, false},
        {"1e3.5", "1", 3, 3, false},    {"1e3e3", "1", 3, 3, false},
    };
    for (const auto& row : rows) {
        const NumberSpan span = scanNumber(row.text);
        EXPECT_EQ(span.mantissa, row.mantissa) << row.text;
        EXPECT_EQ(span.exponent, row.exponent) << row.text;
        EXPECT_EQ(span.length, row.length) << row.text;
        EXPECT_EQ(span.negative, row.negative) << row.text;
    }
}

TEST(Decimal, TellsWhatIsTooLargeFromWhatIsTooSmall) {
    const struct {
        const char* text;
        int shift;
        std::optional<double> value;
    } rows[] = {
        {"12.5", 0, 12.5},
        {"-12.5", 0, -12.5},
        {"12.5", 1, 125},
        {"12.5", -1, 1.25},
        {"12.5e3", -1, 1250},
        {"1e308", 0, 1e308},
        {"1e308", 1, std::nullopt},
        {"-1e309", 0, std::nullopt},
        {"1e309", -1, 1e308},
        {"1e-400", 0, 0.0},
        {"-1e-400", 0, 0.0},
        {"1e-400", 400, 1.0},
        {"1e100", 300, std::nullopt},
        {"1e-100", -300, 0.0},
        {"0e400", 0, 0.0},
        {"0.000e400", 0, 0.0},
        {"0.0001e400", 0, std::nullopt},
        {"1000e-400", 0, 0.0},
        {"1000.5e-400", 0, 0.0},
        {"1e999999999999999", 0, std::nullopt},
        {"1e-999999999999999", 0, 0.0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(valueOf(scanNumber(row.text), row.shift), row.value)
            << row.text << " by " << row.shift;
}

} // namespace
} // namespace vkr
