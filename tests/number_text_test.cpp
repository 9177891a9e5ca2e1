// SPDX-License-Identifier: MIT
#include "input/number_text.hpp"
#include "tests/support/classic_figures.hpp"

#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace vkr {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, ReadsTheNumberAtTheStart) {
    struct Row {
        const char* text;
        double value;
    };
    const Row rows[] = {
        {"394.33", 394.33},
        {"  12", 12},
        {"\t\r\n12", 12},
        {"12abc", 12},
        {"12 34", 12},
        {"-5", -5},
        {"+5", 5},
        {"--5", 0},
        {"+-5", 0},
        {"- 5", 0},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"1.2.3", 1.2},
        {".", 0},
        {"-", 0},
        {"", 0},
        {"abc", 0},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1e+3", 1000},
        {"1e-3", 0.001},
        {"1e", 1},
        {"1e+", 1},
        {"1d3", 1},
        {"1,234", 1},
        {"nan", 0},
        {"inf", 0},
        {"-inf", 0},
        {"infinity", 0},
        {"0x10", 0},
        {"1e-400", 0},
        {"-1e-400", 0},
        {"0e400", 0},
        {"3 1/8", 3},
        {"1e99999999999999999999999", 0},
        {"1e-99999999999999999999", 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(leadingNumber(row.text), row.value) << row.text;
}

TEST(NumberText, TellsANumberThatIsTooLarge) {
    EXPECT_FALSE(readLeadingNumber("1e400"));
    EXPECT_FALSE(readLeadingNumber("-1e400"));
    EXPECT_FALSE(readLeadingNumber(std::string(400, '9')));
    EXPECT_FALSE(readLeadingNumber("1e99999999999999999999999"));
    EXPECT_EQ(readLeadingNumber("1e308"), 1e308);
    EXPECT_EQ(readLeadingNumber("1e-400"), 0.0);
    EXPECT_EQ(readLeadingNumber("abc"), 0.0);
    EXPECT_EQ(readLeadingNumber("0." + std::string(500, '0') + "1e501"), 1.0);
    EXPECT_EQ(readLeadingNumber("1" + std::string(500, '0') + "e-500"), 1.0);
}

TEST(NumberText, TenThousandDigitsDoNoHarm) {
    EXPECT_FALSE(readLeadingNumber(std::string(10'000, '7')));
    EXPECT_EQ(readLeadingNumber("0." + std::string(10'000, '3')), 1.0 / 3);
    EXPECT_EQ(leadingNumber("1e" + std::string(10'000, '1')), 0);
    const std::string digits = "1." + std::string(10'000, '2');
    EXPECT_EQ(cleanNumericText(digits, NumericKind::PlainNumber).text, digits);
}

TEST(NumberText, KnowsWhatIsANumberAsAWhole) {
    for (const char* text : {"1", " 1 ", "-1.5", "+.5", "5.", "1e3", "0"})
        EXPECT_TRUE(isNumberText(text)) << text;
    for (const char* text : {"", " ", "-", ".", "1 2", "1x", "1,234", "1e400", "nan", "3 1/8"})
        EXPECT_FALSE(isNumberText(text)) << text;
}

TEST(NumberText, WritesTheShortestPlainText) {
    struct Row {
        double value;
        const char* text;
    };
    const Row rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1.5, "-1.5"},
        {394.33, "394.33"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {0.99999999999999989, "1"},
        {9999999999999999.0, "1E+16"},
        {1234567890123456.0, "1.23456789012346E+15"},
        {100000, "100000"},
        {999999999999999, "999999999999999"},
        {1e15, "1000000000000000"},
        {1e16, "1E+16"},
        {1e20, "1E+20"},
        {-1.5e300, "-1.5E+300"},
        {1e-7, "0.0000001"},
        {1.5e-7, "0.00000015"},
        {9e-8, "9E-08"},
        {1e-20, "1E-20"},
        {noNumber, ""},
        {infinite, ""},
        {-infinite, ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(plainNumberText(row.value), row.text) << row.value;
}

struct CleanRow {
    const char* typed;
    const char* text;
};

TEST(NumberText, CleansAPlainNumber) {
    const CleanRow rows[] = {
        {"394.33", "394.33"},
        {"", ""},
        {"  ", ""},
        {"abc", ""},
        {"-", ""},
        {".", ""},
        {"12.50", "12.50"},
        {"0.10000000000000000001", "0.10000000000000000001"},
        {"12345678901234567890.12345", "12345678901234567890.12345"},
        {"007.5", "7.5"},
        {".5", "0.5"},
        {"-.5", "-0.5"},
        {"5.", "5"},
        {"000", "0"},
        {"-0", "0"},
        {"+5", "5"},
        {"12abc", "12"},
        {" 12 x", "12"},
        {"1.2.3", "1.2"},
        {"3 1/8", "3"},
        {"1e3", "1000"},
        {"1.5e-3", "0.0015"},
        {"15e1", "150"},
        {"1.234e2", "123.4"},
        // as spreadsheets and reports write it
        {"1,234", "1234"},
        {"1,234,567.89", "1234567.89"},
        {"12,345,678", "12345678"},
        {"-1,234.5", "-1234.5"},
        {"$1,234.50", "1234.50"},
        {"$ 5", "5"},
        {"-$5", "-5"},
        {"$-5", "-5"},
        {"\u20AC5", "5"},
        {"5 \u20AC", "5"},
        {"\u00A35", "5"},
        {"\u00A55", "5"},
        {"\u00A05\u00A0", "5"},
        {"\u202F5\u202F", "5"},
        {"\u22125", "-5"},
        {"\u20135.5", "-5.5"},
        {"(1,234)", "-1234"},
        {"($1,234.50)", "-1234.50"},
        {"$(1,234.50)", "-1234.50"},
        {"( 5 )", "-5"},
        {"12.5%", "12.5"},
        {"12.5 %", "12.5"},
        {"-12.5%", "-12.5"},
        {"(12.5%)", "-12.5"},
        {"(12.5)%", "-12.5"},
        {"12-", "-12"},
        {"1,234.5-", "-1234.5"},
        {"12\u2212", "-12"},
        {"1 234 567.5", "1234567.5"},
        {"1\u00A0234", "1234"},
        {"1'234", "1234"},
        {"1\u2019234", "1234"},
        {"(0)", "0"},
        // no such form: the number at the start
        {"1,23", "1"},
        {"1,2345", "1"},
        {"1234,567", "1234"},
        {"0,123", "0"},
        {"1,,234", "1"},
        {"1,234 567", "1"},
        {"1.234,56", "1.234"},
        {"(5", ""},
        {"5)", "5"},
        {"(-5)", ""},
        {"--5", ""},
        {"+-5", ""},
        {"-5-", "-5"},
        {"\u22125x", "-5"},
        {"12/31/2005", "12"},
        {"###", ""},
        {"\xF0\x9F\x93\x85", ""},
    };
    for (const CleanRow& row : rows) {
        const NumericText clean = cleanNumericText(row.typed, NumericKind::PlainNumber);
        EXPECT_EQ(clean.text, row.text) << row.typed;
        EXPECT_TRUE(clean.fits) << row.typed;
    }
}

TEST(NumberText, CleansAPriceWithItsFraction) {
    const CleanRow rows[] = {
        {"3 1/8", "3.125"},
        {"3/8", "0.375"},
        {"-1 1/2", "-1.5"},
        {"-1/2", "-0.5"},
        {"-0 1/2", "-0.5"},
        {"(3 1/8)", "-3.125"},
        {"$3 1/8", "3.125"},
        {" 3 1/8 ", "3.125"},
        {"3\u00A01/8", "3.125"},
        {"3  1/8", "3.125"},
        {"3 1 /8", "3.125"},
        {"3 1/ 8", "3.125"},
        {"3-1/8", "3.125"},
        {"1,234 1/8", "1234.125"},
        {"3\u215B", "3.125"},
        {"3 \u00BD", "3.5"},
        {"\u00BE", "0.75"},
        {"3 1\u20448", "3.125"},
        {"2 1/1", "3"},
        {"4 1/0", "4"},
        {"4 1/", "4"},
        {"1 0/8", ""},
        {"/8", ""},
        {"x/8", ""},
        {"3.125", "3.125"},
        {"12.50", "12.50"},
        {"1,234.5", "1234.5"},
        {"12-", "-12"},
        {"", ""},
    };
    for (const CleanRow& row : rows) {
        const NumericText clean = cleanNumericText(row.typed, NumericKind::PriceText);
        EXPECT_EQ(clean.text, row.text) << row.typed;
        EXPECT_TRUE(clean.fits) << row.typed;
    }
}

TEST(NumberText, WritesExponentsBeyondFourHundredAsTheyAre) {
    const std::string zeros(400, '0');
    const std::pair<std::string, std::string> rows[] = {
        {"1e400", "1" + zeros},
        {"1e401", "1E401"},
        {"1e-400", "0." + zeros.substr(1) + "1"},
        {"1e-401", "1E-401"},
    };
    for (const auto& [text, written] : rows)
        EXPECT_EQ(cleanNumericText(text, NumericKind::PlainNumber).text, written) << text;
}

TEST(NumberText, LeavesOutAllOfWhatIsTooSmall) {
    const NumberMarks comma{.decimal = ',', .grouping = "."};
    EXPECT_EQ(cleanNumericText("1e-400", NumericKind::PlainNumber).leftOut, "1e-400");
    EXPECT_EQ(cleanNumericText(" -1.5e-900 ", NumericKind::PriceText).leftOut, "-1.5e-900");
    EXPECT_EQ(cleanNumericText("1,5e-400", NumericKind::PlainNumber, 3, comma).leftOut, "1,5e-400");
    EXPECT_EQ(cleanNumericText("1e-325", NumericKind::PlainNumber).leftOut, "1e-325");
    EXPECT_EQ(cleanNumericText("1e-325", NumericKind::PlainNumber, 6).leftOut, "");
    EXPECT_EQ(cleanNumericText("1e-320", NumericKind::PlainNumber).leftOut, "");
    EXPECT_EQ(cleanNumericText("0e-400", NumericKind::PlainNumber).leftOut, "");
    EXPECT_EQ(cleanNumericText("0.000", NumericKind::PlainNumber).leftOut, "");
    for (const char* zero : {"0e401", "0e-401", "0e999999"})
        EXPECT_EQ(cleanNumericText(zero, NumericKind::PlainNumber).leftOut, "") << zero;
}

TEST(NumberText, TellsWhatOfATextIsNotInTheNumber) {
    struct Row {
        const char* text;
        const char* number;
        const char* leftOut;
    };
    const Row plain[] = {
        {"1.5M", "1.5", "M"},
        {"1 234,5", "1", "234,5"},
        {"1/2", "1", "/2"},
        {"12.5 % p.a.", "12.5", "% p.a."},
        {"1.2.3", "1.2", ".3"},
        {"-7 x ", "-7", "x"},
        {"USD 12.5", "", "USD 12.5"},
        {"$1.5M", "", "$1.5M"},
        {"-", "", "-"},
        {"\u00a0n/a ", "", "n/a"},
        {"1e3x", "1000", "x"},
        {"x.5", "", "x.5"},
        {"5%%", "5", "%%"},
        {"$5$", "", "$5$"},
        {"$$5", "", "$$5"},
        {"((5))", "", "((5))"},
        {"(5))", "", "(5))"},
        {"5 % -", "-5", ""},
        {"- $ 5", "-5", ""},
        {"+$5", "5", ""},
        {"$+5", "5", ""},
        {"5$%", "5", ""},
        {"5%$", "5", ""},
        {"5.-", "5", ""},
        {"$1,234.-", "1234", ""},
        {"5.\u2014 $", "5", ""},
        {"5.-.-", "5", "-.-"},
        {"5.--", "5", ""},
        {"5.---", "5", "---"},
        {"5.- -", "5", "- -"},
        {"5.\u2013\u2013", "5", "\u2013\u2013"},
        {"5.\u2012", "5", ""},
        {".-", "", ".-"},
        {"-5.-", "-5", ""},
        {"$5-%", "-5", ""},
        {",123", "", ",123"},
        {"1,2x3", "1", ",2x3"},
        {"1,234x", "1", ",234x"},
        {"1,234,", "1", ",234,"},
        {"12,34.5", "12", ",34.5"},
        {"1,234.50", "1234.50", ""},
        {"(5)", "-5", ""},
        {"12.5%", "12.5", ""},
        {" \u00a0", "", ""},
        {"", "", ""},
    };
    for (const auto& row : plain) {
        const NumericText read = cleanNumericText(row.text, NumericKind::PlainNumber);
        EXPECT_EQ(read.text, row.number) << row.text;
        EXPECT_EQ(read.leftOut, row.leftOut) << row.text;
    }
    const Row prices[] = {
        {"3 1/8", "3.125", ""},  {"-3 1/8", "-3.125", ""},
        {"3\u00BD", "3.5", ""},  {"0/8", "", ""},
        {"0 0/8", "", ""},       {"3 0/8", "", "3 0/8"},
        {"12/", "0", "12/"},     {"/8", "", "/8"},
        {"4 1/0", "4", "1/0"},   {"1/0", "0", "1/0"},
        {"3 1/", "3", "1/"},     {"3 1/8 USD", "3.125", "USD"},
        {"-x/8", "", "-x/8"},    {"x 1/8", "0.125", "x 1/8"},
        {"12.5x", "12.5", "x"},  {"5x", "5", "x"},
        {"x1/8", "", "x1/8"},    {"3 1/8/2", "3.125", "/2"},
        {"abc/8", "", "abc/8"},  {"3\u00BD USD", "3", "\u00BD USD"},
        {"3 1/ 8", "3.125", ""}, {"3 1 /8", "3.125", ""},
        {"1 3/0", "1", "3/0"},   {"0 3/0", "0", "0 3/0"},
    };
    for (const auto& row : prices) {
        const NumericText read = cleanNumericText(row.text, NumericKind::PriceText);
        EXPECT_EQ(read.text, row.number) << row.text;
        EXPECT_EQ(read.leftOut, row.leftOut) << row.text;
    }
}

TEST(NumberText, TellsWhatDoesNotFit) {
    const auto fits = [](std::string_view text, int exponent = 0) {
        return cleanNumericText(text, NumericKind::PlainNumber, exponent).fits;
    };
    EXPECT_FALSE(fits("1e400"));
    EXPECT_FALSE(fits("-1e400"));
    EXPECT_FALSE(fits("1e400 x"));
    EXPECT_FALSE(fits("1e999999999999"));
    EXPECT_FALSE(fits(std::string(400, '9')));
    EXPECT_TRUE(fits("1e308"));
    EXPECT_TRUE(fits("1e307", 0));
    EXPECT_FALSE(fits("1e307", 3));
    EXPECT_TRUE(fits("1e307", -3));
    EXPECT_TRUE(fits("1e-400"));
    EXPECT_TRUE(fits("abc"));
}

TEST(NumberText, ShiftsByTheDecimalText) {
    EXPECT_EQ(shiftDecimal("394.33", 3), 394330);
    EXPECT_EQ(shiftDecimal("394.33", -3), 0.39433);
    EXPECT_EQ(shiftDecimal("0.3", 0), 0.3);
    EXPECT_EQ(shiftDecimal("-1.1", 3), -1100);
    EXPECT_EQ(shiftDecimal("", 3), 0);
    EXPECT_EQ(shiftDecimal("0.1e2", 1), 100);
    EXPECT_EQ(shiftDecimal("1e308", 3), infinite);
    EXPECT_EQ(shiftDecimal("-1e308", 3), -infinite);
    EXPECT_EQ(shiftDecimal("1e-322", -3), 0);
    EXPECT_EQ(numericValue("-12.5"), -12.5);
    EXPECT_EQ(numericValue(""), 0);
}

TEST(NumberText, ScalesWithoutStrayDigits) {
    EXPECT_EQ(scaleValue(0.394, 3), 394);
    EXPECT_EQ(scaleValue(0.001, 3), 1);
    EXPECT_EQ(scaleValue(4.35, 2), 435);
    EXPECT_EQ(scaleValue(394.33, -3), 0.39433);
    EXPECT_EQ(scaleValue(0.1 + 0.2, 3), 300);
    EXPECT_EQ(scaleValue(0.1 + 0.2, 0), 0.1 + 0.2);
    EXPECT_EQ(scaleValue(-1.1, 3), -1100);
    EXPECT_EQ(scaleValue(0, 3), 0);
    EXPECT_EQ(scaleValue(infinite, 3), infinite);
    EXPECT_TRUE(std::isnan(scaleValue(noNumber, 3)));
    EXPECT_EQ(scaleValue(1e308, 3), infinite);
}

TEST(NumberText, ASumLosesItsStrayDigits) {
    EXPECT_EQ(withoutStrayDigits(0.1 + 0.2), 0.3);
    EXPECT_EQ(withoutStrayDigits(-0.1 - 0.2), -0.3);
    EXPECT_EQ(withoutStrayDigits(394.33), 394.33);
    EXPECT_EQ(withoutStrayDigits(0), 0);
    EXPECT_EQ(withoutStrayDigits(infinite), infinite);
    EXPECT_TRUE(std::isnan(withoutStrayDigits(noNumber)));
}

TEST(NumberText, FiguresOfFifteenDigitsSurviveEveryUnit) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    std::uniform_int_distribution<std::int64_t> digits(1, 999'999'999'999'999);
    for (int i = 0; i < 50'000; ++i) {
        const std::string whole = std::to_string(digits(random));
        std::string typed = whole;
        if (const auto point = random() % whole.size(); point > 0)
            typed.insert(point, 1, '.');
        const double value = numericValue(typed);
        ASSERT_EQ(value, test::readFigure(typed)) << typed;
        // Stored from what was typed in a unit, shown in it again.
        for (const int exponent : {3, 0, -3}) {
            const double stored = shiftDecimal(typed, -exponent);
            ASSERT_EQ(plainNumberText(scaleValue(stored, exponent)), plainNumberText(value))
                << typed << " by " << exponent;
        }
        ASSERT_EQ(leadingNumber(plainNumberText(value)), value) << typed;
    }
}

TEST(NumberText, CleaningTwiceChangesNothing) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::string pieces[] = {"1",  "23", "456", "0",    ".",      ",",   "-",      "+",   "(",
                                  ")",  "$",  "%",   " ",    "\u00A0", "e",   "\u2212", "1/8", "/",
                                  "\'", "x",  "E5",  "\xC2", "\u00BD", "9e9", "e-9"};
    for (int i = 0; i < 100'000; ++i) {
        std::string typed;
        for (auto length = random() % 9; length > 0; --length)
            typed += random() % 16 == 0 ? std::string(1, static_cast<char>(random() % 256))
                                        : pieces[random() % std::size(pieces)];
        for (const NumericKind kind : {NumericKind::PlainNumber, NumericKind::PriceText}) {
            const NumericText once = cleanNumericText(typed, kind);
            ASSERT_EQ(once.text.find_first_not_of("0123456789.-E"), std::string::npos) << typed;
            ASSERT_EQ(cleanNumericText(once.text, kind).text, once.text) << typed;
            ASSERT_EQ(once.fits, std::isfinite(numericValue(once.text))) << typed;
        }
    }
}

TEST(NumberText, EveryDoubleHasAPlainTextCloseToIt) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    for (int i = 0; i < 50'000; ++i) {
        const double value = std::bit_cast<double>(random());
        const std::string text = plainNumberText(value);
        if (!std::isfinite(value)) {
            ASSERT_EQ(text, "");
            continue;
        }
        const auto back = readLeadingNumber(text);
        if (back) // the last digit rounds the very largest ones up
            ASSERT_NEAR(*back, value, std::fabs(value) * 1e-14) << text;
        else
            ASSERT_GT(std::fabs(value), 1.797e308) << text;
    }
}

TEST(NumberText, AMarkOfTheByteOrderAroundAFigureIsABlank) {
    for (const char* text : {"\uFEFF12.5", "12.5\uFEFF", "\uFEFF $12.5"}) {
        const NumericText read = cleanNumericText(text, NumericKind::PlainNumber);
        EXPECT_EQ(read.text, "12.5") << text;
        EXPECT_EQ(read.leftOut, "") << text;
    }
}

TEST(NumberText, NoPriceIsLongerThanSixtyFourCharacters) {
    const auto leftOut = [](std::size_t blanks) {
        const std::string price = "3" + std::string(blanks, ' ') + "1/2";
        const NumericText read = cleanNumericText(price + " abc", NumericKind::PriceText);
        EXPECT_EQ(read.text, "3.5") << blanks;
        return read.leftOut == price + " abc" ? "all" : read.leftOut;
    };
    EXPECT_EQ(leftOut(60), "abc");
    EXPECT_EQ(leftOut(61), "all");
}

TEST(NumberText, TellsWhatItLeavesOutBehindASign) {
    struct Row {
        const char* typed;
        const char* text;
        const char* leftOut;
    };
    const Row rows[] = {{".5-", "-0.5", ""},           {"(.5)", "-0.5", ""},
                        {"+5 apples", "5", "apples"},  {"-5 apples", "-5", "apples"},
                        {"+ 5 apples", "5", "apples"}, {"x", "", "x"}};
    for (const auto& row : rows) {
        const NumericText read = cleanNumericText(row.typed, NumericKind::PlainNumber);
        EXPECT_EQ(read.text, row.text) << row.typed;
        EXPECT_EQ(read.leftOut, row.leftOut) << row.typed;
    }
}

} // namespace
} // namespace vkr
