// SPDX-License-Identifier: MIT
#include "input/mdlKMTMisc.hpp"
#include "tests/support/classic_figures.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <numeric>
#include <random>
#include <stdexcept>
#include <string>

namespace vkr {
namespace {

struct Row {
    const char* text;
    const char* converted;
};

TEST(DecimalToFraction, ShowsEighths) {
    const Row rows[] = {
        {"", ""},
        {"0", ""},
        {"0.0", ""},
        {"abc", ""},
        {"12", "12"},
        {"12.000", "12"},
        {"12.00", "12"},
        {"12.", "12"},
        {"12.06", "12"},
        {"12.062", "12"},
        {"12.063", "12 1/8"},
        {"12.07", "12 1/8"},
        {"3.125", "3 1/8"},
        {"3.25", "3 1/4"},
        {"3.375", "3 3/8"},
        {"3.5", "3 1/2"},
        {"3.625", "3 5/8"},
        {"3.75", "3 3/4"},
        {"3.875", "3 7/8"},
        {"0.5", "1/2"},
        {".5", "1/2"},
        {"-.5", "1/2"},
        {"-0.5", "1/2"},
        {"-2.75", "-2 3/4"},
        {"-12", "-12"},
        {"+3.5", "3 1/2"},
        {"007.5", "7 1/2"},
        {"0012", "12"},
        {" 3.5", "3 1/2"},
        {"12.563", "12 5/8"},
        {"12.562", "12 1/2"},
        {"2.937", "2 7/8"},
        {"2.938", "2 1/1"},
        {"2.95", "2 1/1"},
        {"0.95", "1/1"},
        {"2.9995", "3"},
        {"9.9999", "1"},
        {"99.9999", "10"},
        {"-9.9999", "-1"},
        {"0.9999", "1"},
        {"0.01", "0"},
        {"-0.0001", "0"},
        {"1234.5", "1234 1/2"},
        {"1,234.50", "1234 1/2"},
        {"1.5e1", "15"},
        {"12345678901234567.00", "12345678901234567"}, // with every digit
        {"1.-5", "1.-5"},                              // nothing but digits is a fraction
        {"100.5", "100 1/2"},
        {"-007.5", "-7 1/2"},
        {"-0012", "-12"},
        {"+0.5", "1/2"},
        {"+12", "12"},
        {"+0012.0", "12"},
        {"+9.9999", "1"},
        {"1,234", "1234"},
        {"00", ""},
        {"9.9e1", "99"},
        {"9.9e9", "9900000000"},
        {"1.25e-1", "1/8"},
        {"1e400", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(DecimalToFraction(row.text, false), row.converted) << row.text;
}

TEST(DecimalToFraction, KeepsAZeroWhenAsked) {
    EXPECT_EQ(DecimalToFraction("0", true), "0");
    EXPECT_EQ(DecimalToFraction("0.00", true), "0");
    EXPECT_EQ(DecimalToFraction("", true), "");
    EXPECT_EQ(DecimalToFraction("12.5", true), "12 1/2");
}

TEST(FractionToDecimal, ReadsFractions) {
    const Row rows[] = {
        {"3 1/8", "3.125"},
        {"3/8", "0.375"},
        {"-1 1/2", "-1.5"},
        {"-1/2", "-0.5"},
        {"4 1/0", "4"},
        {"4 1/", "4"},
        {"1/0", "0"},
        {"1 0/8", ""},
        {"0/8", ""},
        {"x/8", ""},
        {"x 1/8", "0.125"},
        {"1/8 3", ""},
        {"/8", "/8"},
        {"12.5", "12.5"},
        {"", ""},
        {"abc", "abc"},
        {"2 1/1", "3"},
        {"1/3", "0.333333333333333"},
        {"1/8", "0.125"},
        {"1e308/1e-308", "0"},
        {"1/100000000", "0.00000001"},
        {"-3 1/100000000", "-3.00000001"},
        {"-1/80000000000", "-0.0000000000125"},
        {"1000000000000000000 1/1", "1000000000000000000"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(FractionToDecimal(row.text), row.converted) << row.text;
}

TEST(FractionToDecimal, EveryEighthComesBack) {
    for (int eighths = 1; eighths < 8 * 500; ++eighths) {
        const std::string decimal =
            std::to_string(eighths / 8) + '.' + std::to_string(1000 + eighths % 8 * 125).substr(1);
        const std::string back = FractionToDecimal(DecimalToFraction(decimal, false));
        ASSERT_EQ(test::readFigure(back), eighths / 8.0) << decimal;
    }
}

TEST(GreatestCommonDivisor, FollowsTheRemainders) {
    EXPECT_EQ(GreatestCommonDivisor(125, 1000), 125);
    EXPECT_EQ(GreatestCommonDivisor(375, 1000), 125);
    EXPECT_EQ(GreatestCommonDivisor(0, 1000), 1000);
    EXPECT_EQ(GreatestCommonDivisor(-12, 18), 6);
    EXPECT_EQ(GreatestCommonDivisor(12, -18), 6);
    EXPECT_EQ(GreatestCommonDivisor(7, 5), 1);
    constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(GreatestCommonDivisor(lowest, 6), 2);
    constexpr auto highest = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(GreatestCommonDivisor(highest, highest), highest);
    EXPECT_THROW((void)GreatestCommonDivisor(lowest, lowest), std::overflow_error);
    for (int first = -40; first <= 40; ++first)
        for (int second = -40; second <= 40; ++second)
            if (second != 0) {
                ASSERT_EQ(GreatestCommonDivisor(first, second), std::gcd(first, second));
            }
}

TEST(GreatestCommonDivisor, AZeroSecondArgumentIsAnError) {
    EXPECT_THROW((void)GreatestCommonDivisor(5, 0), std::domain_error);
    EXPECT_THROW((void)GreatestCommonDivisor(0, 0), std::domain_error);
}

TEST(SafeDivide, DividesOrAnswersWithTheValueGiven) {
    const Variant zero = -1.0;
    const Variant negative = -2.0;
    const auto divide = [&](const Variant& a, const Variant& b, bool exact, bool checkSign) {
        return SafeDivide(a, b, exact, zero, checkSign, negative);
    };
    EXPECT_EQ(divide(7, 2, true, false), Variant(3.5));
    EXPECT_EQ(divide(7, 2, false, false), Variant(3.0));
    EXPECT_EQ(divide(-7, 2, false, false), Variant(-3.0));
    EXPECT_EQ(divide(-7, 2, true, false), Variant(-3.5));
    EXPECT_EQ(divide(7, 0, true, false), zero);
    EXPECT_EQ(divide(7, 0, false, true), zero);
    EXPECT_EQ(divide(-7, 2, true, true), negative);
    EXPECT_EQ(divide(7, -2, true, true), negative);
    EXPECT_EQ(divide(-7, 0, true, true), negative);
    EXPECT_EQ(divide(0, 2, true, true), Variant(0.0));
    EXPECT_EQ(divide(0.5, 2, true, true), Variant(0.25));
    EXPECT_EQ(divide("7", "2", true, false), Variant(3.5));
    EXPECT_EQ(divide(Variant(), 2, true, false), Variant(0.0));
    EXPECT_EQ(divide(7, Variant(), true, false), zero);
    EXPECT_EQ(SafeDivide(1, 0, true, Variant("none"), false, Variant()), Variant("none"));
}

TEST(SafeDivide, AFailureLeavesNoResult) {
    const Variant object = std::shared_ptr<Object>();
    EXPECT_TRUE(SafeDivide(object, 2, true, 0.0, false, 0.0).isEmpty());
    EXPECT_TRUE(SafeDivide(1e308, 1e-308, true, 0.0, false, 0.0).isEmpty());
}

TEST(ReplaceAll, DoesNotSearchWhatItPutIn) {
    struct Case {
        const char* text;
        const char* search;
        const char* replacement;
        const char* result;
    };
    const Case cases[] = {
        {"a-b-c", "-", "", "abc"},
        {"aaa", "a", "aa", "aaaaaa"},
        {"aaaa", "aa", "a", "aa"},
        {"abc", "x", "y", "abc"},
        {"", "a", "b", ""},
        {"abc", "", "x", "abc"},
        {"abc", "abc", "", ""},
        {"%1 and %1", "%1", "%1%1", "%1%1 and %1%1"},
        {"\u00E4b", "\u00E4", "a", "ab"},
    };
    for (const Case& one : cases) {
        std::string text = one.text;
        ReplaceAll(text, one.search, one.replacement);
        EXPECT_EQ(text, one.result) << one.text << ' ' << one.search;
    }
}

TEST(ReplaceAll, TakesPartsOfTheTextItself) {
    std::string text = "a-b-a";
    ReplaceAll(text, std::string_view(text).substr(0, 1), std::string_view(text).substr(2, 1));
    EXPECT_EQ(text, "b-b-b");
}

TEST(IsDateInRange, AcceptsFrom2January1900To30November2999) {
    const auto accepted = [](int year, int month, int day) {
        return IsDateInRange(makeDate(year, month, day).value());
    };
    EXPECT_FALSE(accepted(1899, 12, 31));
    EXPECT_FALSE(accepted(1900, 1, 1));
    EXPECT_TRUE(accepted(1900, 1, 2));
    EXPECT_TRUE(accepted(2005, 12, 31));
    EXPECT_TRUE(accepted(2999, 11, 30));
    EXPECT_FALSE(accepted(2999, 12, 1));
    EXPECT_FALSE(accepted(9999, 12, 31));
    EXPECT_FALSE(accepted(100, 1, 1));
}

TEST(IsDateInRange, IgnoresTheTimeOfDay) {
    EXPECT_FALSE(IsDateInRange(Date{makeDate(1900, 1, 1)->serial + 0.9}));
    EXPECT_TRUE(IsDateInRange(Date{makeDate(2999, 11, 30)->serial + 0.9}));
    EXPECT_FALSE(IsDateInRange(Date{}));
    EXPECT_FALSE(IsDateInRange(Date{std::numeric_limits<double>::quiet_NaN()}));
    EXPECT_FALSE(IsDateInRange(Date{std::numeric_limits<double>::infinity()}));
}

TEST(EndOfMonth, IsTheLastDayOfTheSameMonth) {
    EXPECT_EQ(EndOfMonth(*makeDate(2005, 2, 1)), makeDate(2005, 2, 28));
    EXPECT_EQ(EndOfMonth(*makeDate(2004, 2, 29)), makeDate(2004, 2, 29));
    EXPECT_EQ(EndOfMonth(*makeDate(2005, 12, 31)), makeDate(2005, 12, 31));
    EXPECT_EQ(EndOfMonth(Date{makeDate(2005, 4, 5)->serial + 0.5}), makeDate(2005, 4, 30));
    EXPECT_EQ(EndOfMonth(*makeDate(9999, 12, 1)), makeDate(9999, 12, 31));
    EXPECT_TRUE(isAbsent(EndOfMonth(Date{})));
}

TEST(PriceConversions, AnyBytesHaveAnAnswer) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::string pieces[] = {"1", "9", "0", ".", "/", " ", "-", "+", ",", "e", "999", "x"};
    for (int i = 0; i < 100'000; ++i) {
        std::string text;
        for (auto length = random() % 10; length > 0; --length)
            text += random() % 16 == 0 ? std::string(1, static_cast<char>(random() % 256))
                                       : pieces[random() % std::size(pieces)];
        const std::string fraction = DecimalToFraction(text, random() % 2 == 0);
        const std::string decimal = FractionToDecimal(text);
        if (text.find('/') == std::string::npos) {
            ASSERT_EQ(decimal, text);
        }
        ASSERT_LT(fraction.size(), 400U) << text;
        ASSERT_LT(decimal.size(), 400U) << text;
    }
}

} // namespace
} // namespace vkr
