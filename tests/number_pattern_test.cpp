// SPDX-License-Identifier: MIT
#include "input/number_pattern.hpp"
#include "platform/number_text.hpp"

#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace vkr {
namespace {

struct Row {
    double value;
    const char* pattern;
    const char* text;
};

template <std::size_t Count>
void expectRows(const Row (&rows)[Count]) {
    for (const Row& row : rows) {
        EXPECT_EQ(formatNumber(row.value, row.pattern), row.text)
            << row.value << " with " << row.pattern;
        EXPECT_EQ(NumberPattern(row.pattern).format(row.value), row.text)
            << row.value << " with " << row.pattern;
    }
}

TEST(NumberPattern, ShowsDigitsWhereThePatternHasThem) {
    expectRows({
        {1234.5678, "#0.00", "1234.57"},
        {0, "#0.00", "0.00"},
        {0.5, "#0.00", "0.50"},
        {7, "#0.0", "7.0"},
        {7, "0.000", "7.000"},
        {12.0625, "0.000", "12.063"},
        {5, "0", "5"},
        {5, "000", "005"},
        {1234, "0", "1234"},
        {5, "#", "5"},
        {0, "#", ""},
        {0, "#.##", "."},
        {5, "#.##", "5."},
        {0.5, "#.##", ".5"},
        {0.5, ".00", ".50"},
        {12.5, ".00", "12.50"},
        {5, "0#", "05"},
        {5, "0##", "005"},
        {5, "#0#", "05"},
        {0.5, "0.#0", "0.50"},
        {1.5, "0.0##", "1.5"},
        {1.25, "0.0##", "1.25"},
        {1.23456, "0.0##", "1.235"},
        {100, "0.##", "100."},
        {0.05, "0.###", "0.05"},
        {0.0123, "0.00##", "0.0123"},
        {0.0012345, "0.########", "0.0012345"},
        {1e20, "0", "100000000000000000000"},
        {0.1 + 0.2, "0.####################", "0.3"},
        {1.0 / 3, "0.0000000000000000000", "0.3333333333333330000"},
    });
}

TEST(NumberPattern, RoundsHalfAwayFromZeroOnTheDecimalText) {
    expectRows({
        {1.005, "0.00", "1.01"},
        {1.015, "0.00", "1.02"},
        {0.125, "0.00", "0.13"},
        {-0.125, "0.00", "-0.13"},
        {0.375, "0.00", "0.38"},
        {2.5, "0", "3"},
        {-2.5, "0", "-3"},
        {0.5, "0", "1"},
        {1.5, "0", "2"},
        {-1234.565, "#0.00", "-1234.57"},
        {1234.565, "#0.00", "1234.57"},
        {999.995, "0.00", "1000.00"},
        {9.9999, "0.000", "10.000"},
        {0.9995, "0.000", "1.000"},
        {0.0005, "0.000", "0.001"},
        {0.00049, "0.000", "0.000"},
        {8.345, "0.00", "8.35"},
        {1.0049999999999999, "0.00", "1.01"}, // 1.005 as far as anyone can see
        {1.00499999999999, "0.00", "1.00"},   // a digit that can be seen
        {394.33, "0.0", "394.3"},
        {0.045, "0.00", "0.05"},
        {-9.95, "0.0", "-10.0"},
        {4.35, "0.0", "4.4"},
        {1e-300, "0.00", "0.00"},
        {123456789012.345, "0.00", "123456789012.35"},
        {1234567890123.45, "0.0", "1234567890123.5"},
    });
}

TEST(NumberPattern, ShowsNoSignForWhatRoundsToZero) {
    expectRows({
        {-0.001, "0.00", "0.00"},
        {-0.005, "0.00", "-0.01"},
        {-0.0, "0.00", "0.00"},
        {-0.001, "0.00;", "0.00"},
        {-0.001, "0.00;;none", "0.00"},
        {-0.001, "#", ""},
        {-0.001, "0.0%", "-0.1%"},
        {-0.0001, "0.0%", "0.0%"},
        {-1e-200, "0.0E+0%", "-1.0E-198%"},
    });
}

TEST(NumberPattern, ChoosesTheSectionForZeroByTheValueAndNotByItsRounding) {
    expectRows({
        {0, "0.00;(0.00);none", "none"},
        {-0.0, "0.00;(0.00);none", "none"},
        {0.001, "0.00;(0.00);none", "0.00"},
        {-0.001, "0.00;(0.00);none", "(0.00)"},
        {-0.001, "0.00;(0.00)", "(0.00)"},
        {-0.01, "0.00;(0.00);none", "(0.01)"},
        {-0.001, "0.00;-0.00;none", "-0.00"},
        {-0.001, "0.00;\"loss of \"0.00", "loss of 0.00"},
        {0.4, ";(0);none", "0.4"},
        {-0.4, ";(0);none", "(0)"},
        {0.001, "#;#;0", ""},
    });
}

TEST(NumberPattern, GroupsThousandsAndScales) {
    expectRows({
        {1234567.891, "#,##0.0", "1,234,567.9"},
        {123, "#,##0", "123"},
        {1234, "#,##0", "1,234"},
        {-1234, "#,##0", "-1,234"},
        {0, "#,##0", "0"},
        {5, "0,000", "0,005"},
        {1234567, "#,#", "1,234,567"},
        {1e20, "#,##0", "100,000,000,000,000,000,000"},
        {1900000, "0,,.0", "1.9"},
        {1900000, "0,,", "2"},
        {1234567890, "#,##0,", "1,234,568"},
        {1500, "0,.00", "1.50"},
        {123456, "#,##0.00,", "123,456.00"}, // behind the decimals it scales nothing
        {1234567, ",0", "1,234,567"},
        {0.25, "0%", "25%"},
        {0.125, "0.0%", "12.5%"},
        {0.1255, "#0.00%", "12.55%"},
        {0.00125, "0.0%", "0.1%"},
        {-0.25, "0%", "-25%"},
        {0.25, "%0", "%25"},
        {0.25, "0 %", "25 %"},
        {0.5, "0%%", "5000%%"},
    });
}

TEST(NumberPattern, WritesExponents) {
    expectRows({
        {12345, "0.00E+00", "1.23E+04"},
        {0.00012345, "0.00E+00", "1.23E-04"},
        {12345, "0.00E-00", "1.23E04"},
        {0.00012345, "0.00E-00", "1.23E-04"},
        {12345, "0.00e+00", "1.23e+04"},
        {12345, "0.00e-0", "1.23e4"},
        {999999, "0.00E+00", "1.00E+06"},
        {0, "0.00E+00", "0.00E+00"},
        {-12345, "0.0E+0", "-1.2E+4"},
        {12345, "00.0E+0", "12.3E+3"},
        {1e300, "0E+0", "1E+300"},
        {1000, "0.00E+00 \"x\"", "1.00E+03 x"},
        {12345, "0.0\" x \"E+0", "1.2 x E+4"},
        {12345, "0\" x \"E+0", "1 x E+4"},
        {12345, "0.0E+0 .0,%", "1.2E+6 .0,%"},
        {12345, "0.0E+#", "1.2E+4"},
        {1e12, "0.0E+0", "1.0E+12"},
        {1e12, "0.0E+000", "1.0E+012"},
        {5, "0E", "5E"},
        {5, "0E+", "5E+"},
    });
}

TEST(NumberPattern, LeavesOtherCharactersAsTheyStand) {
    expectRows({
        {5, "$0.00", "$5.00"},
        {-5, "$0.00", "-$5.00"},
        {5, "0.00 \"million\"", "5.00 million"},
        {5, "\"a;b\"0", "a;b5"},
        {5, "\\#0", "#5"},
        {5, "\\\"0\\\"", "\"5\""},
        {5, "0\\%", "5%"},
        {5, "+0", "+5"},
        {5, "(0)", "(5)"},
        {1234567, "000-0000", "123-4567"},
        {12345678, "000-0000", "1234-5678"},
        {5, "###-####", "-5"},
        {5, "0\\", "5\\"},
        {5, "0\"open", "5open"},
        {5, "\u20AC0", "\u20AC5"},
        {5, "0\\\u20AC", "5\u20AC"},
        {5, "\"text\"", "text"},
        {-5, "\"text\"", "-text"},
        {0, "\"text\"", "text"},
        {1.5, "0\" whole \".0", "1 whole .5"},
        {1.25, "0.0\"-\"0", "1.2-5"},
        {1234567, "#,##0\" k\"", "1,234,567 k"},
        {1234567, "#,##\"|\"0", "1,234,56|7"},
        {5, "0.0.0", "5.0.0"},
        {5, "v. 1, 2", "v. 1, 2"},
        {5, "0Ex0", "0Ex5"},
        {5, "E+0", "E+5"},
        {5, ".E+0", "5.E+0"},
        {5, "\"ab", "ab"},
    });
}

TEST(NumberPattern, ChoosesTheSectionBySign) {
    expectRows({
        {5, "0.0;(0.0)", "5.0"},
        {-5, "0.0;(0.0)", "(5.0)"},
        {0, "0.0;(0.0)", "0.0"},
        {0, "0;-0;\"zero\"", "zero"},
        {-5, "0;-0;\"zero\"", "-5"},
        {5, "0;-0;\"zero\";\"null\"", "5"},
        {-5, "$0;;zero", "-$5"},
        {0, "$0;;zero", "zero"},
        {-5, "0;", "-5"},
        {0, "0;-0;", "0"},
        {5, ";(0)", "5"},
        {-5, ";(0)", "(5)"},
        {0, ";(0)", "0"},
        {1.5, ";;", "1.5"},
        {5, "0;0;0;0;0;0", "5"},
    });
}

TEST(NumberPattern, KnowsTheNamedFormats) {
    expectRows({
        {1234.5, "General Number", "1234.5"},
        {1234.5, "Currency", "$1,234.50"},
        {-1234.5, "currency", "($1,234.50)"},
        {1234.5, "Fixed", "1234.50"},
        {0.5, "FIXED", "0.50"},
        {1234.5, "Standard", "1,234.50"},
        {0.125, "Percent", "12.50%"},
        {12345, "Scientific", "1.23E+04"},
        {1, "Yes/No", "Yes"},
        {-1, "Yes/No", "Yes"},
        {0.1, "Yes/No", "Yes"},
        {0, "yes/no", "No"},
        {2, "True/False", "True"},
        {0, "True/False", "False"},
        {2, "On/Off", "On"},
        {0, "On/Off", "Off"},
    });
}

TEST(NumberPattern, AnEmptyPatternIsTheShortestPlainText) {
    expectRows({
        {394.33, "", "394.33"},
        {-0.5, "", "-0.5"},
        {0, "", "0"},
        {0.1 + 0.2, "", "0.3"},
        {1e20, "", "1E+20"},
    });
    EXPECT_EQ(NumberPattern().format(1.5), "1.5");
}

TEST(NumberPattern, ShowsNothingForWhatIsNotFinite) {
    for (const char* pattern : {"", "0.00", "0.00;(0.00)", "Yes/No", "0E+0"}) {
        EXPECT_EQ(formatNumber(std::numeric_limits<double>::quiet_NaN(), pattern), "");
        EXPECT_EQ(formatNumber(std::numeric_limits<double>::infinity(), pattern), "");
        EXPECT_EQ(formatNumber(-std::numeric_limits<double>::infinity(), pattern), "");
    }
}

TEST(NumberPattern, ShowsTheLargestAndSmallestNumbers) {
    const std::string largest = formatNumber(std::numeric_limits<double>::max(), "0.0");
    EXPECT_EQ(largest.substr(0, 16), "1797693134862320");
    EXPECT_EQ(largest.size(), 311U);
    EXPECT_EQ(formatNumber(std::numeric_limits<double>::denorm_min(), "0.00E+000"), "5.00E-324");
    for (const std::size_t places : {22U, 23U})
        EXPECT_EQ(formatNumber(1e-21, "0." + std::string(places, '0')),
                  "0." + std::string(20, '0') + "1" + std::string(places - 21, '0'));
    EXPECT_EQ(formatNumber(1, std::string(127, '0') + "." + std::string(127, '0')),
              std::string(126, '0') + "1." + std::string(127, '0'));
}

TEST(NumberPattern, WritesWhatSignsOfPercentAndOfThousandsMakeOfAnExponent) {
    const std::string percent(250, '%');
    EXPECT_EQ(formatNumber(1, "0.E+#" + percent), "1.E+500" + percent);
    EXPECT_EQ(formatNumber(-1, "0.E+#" + percent), "-1.E+500" + percent);
    EXPECT_EQ(formatNumber(1, "0" + std::string(249, ',') + ".E+#"), "1.E-747");
    EXPECT_EQ(formatNumber(1, "0" + percent), "1" + std::string(500, '0') + percent);
    EXPECT_EQ(formatNumber(1e300, "#" + std::string(250, ',')), "");
}

TEST(NumberPattern, RefusesAPatternOfTooManyCharactersAndTakesTheFallBack) {
    const std::string longest = "0.0" + std::string(NumberPattern::maxLength - 3, '#');
    EXPECT_EQ(formatNumber(12.25, longest), "12.25");
    EXPECT_EQ(formatNumber(12.25, longest + '#'), "12.25");
    EXPECT_EQ(formatNumber(12.125, longest), "12.125");
    EXPECT_EQ(formatNumber(12.125, longest + '#'), "12.13");
    for (const char mark : {'%', ',', '0', '#', 'x', ';', '"'})
        for (const char* start : {"0.E+#", "0.E+0", "0", "", "\""})
            EXPECT_EQ(formatNumber(-1234.5, start + std::string(5000, mark)), "-1234.50")
                << start << " and " << mark;
}

TEST(NumberPattern, ManyPatternsInTurnDoNotMixUp) {
    for (int round = 0; round < 3; ++round)
        for (int places = 1; places < 12; ++places)
            EXPECT_EQ(formatNumber(1, "0." + std::string(static_cast<std::size_t>(places), '0')),
                      "1." + std::string(static_cast<std::size_t>(places), '0'));
}

// The digits of the plain text, moved and rounded by hand.
std::string roundedByHand(double value, int places) {
    std::string text = plainNumberText(std::fabs(value));
    auto point = text.find('.');
    if (point == std::string::npos) {
        point = text.size();
        text += '.';
    }
    const std::size_t wanted = point + 1 + static_cast<std::size_t>(places);
    while (text.size() < wanted)
        text += '0';
    const bool up = text.size() > wanted && text[wanted] >= '5';
    text.resize(wanted);
    if (up) {
        std::size_t place = text.size();
        bool carry = true;
        while (carry && place-- > 0) {
            if (text[place] == '.')
                continue;
            carry = text[place] == '9';
            text[place] = carry ? '0' : static_cast<char>(text[place] + 1);
        }
        if (carry)
            text.insert(0, 1, '1');
    }
    const bool zero = text.find_first_of("123456789") == std::string::npos;
    return (value < 0 && !zero ? "-" : "") + text;
}

TEST(NumberPattern, AgreesWithRoundingByHandOnAnyFigure) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> magnitude(-5, 14.9);
    std::uniform_int_distribution<std::int64_t> cents(-2'000'000'000, 2'000'000'000);
    const NumberPattern patterns[] = {NumberPattern("0."), NumberPattern("0.0"),
                                      NumberPattern("0.00"), NumberPattern("0.000")};
    for (int i = 0; i < 100'000; ++i) {
        double value = std::pow(10.0, magnitude(random));
        if (i % 2 == 0)
            value = static_cast<double>(cents(random)) / 1000; // many ties at two places
        if (i % 3 == 0)
            value = -value;
        for (int places = 0; places < 4; ++places)
            ASSERT_EQ(patterns[places].format(value), roundedByHand(value, places))
                << plainNumberText(value) << " at " << places;
    }
}

TEST(NumberPattern, AnyBytesMakeAPattern) {
    const auto seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::string likely = "0#.,%E+e-;\"\\$() a\xC3\xA9";
    for (int i = 0; i < 20'000; ++i) {
        std::string pattern;
        for (auto length = random() % 24; length > 0; --length)
            pattern += random() % 4 == 0 ? static_cast<char>(random() % 256)
                                         : likely[random() % likely.size()];
        const NumberPattern compiled(pattern);
        for (const double value : {0.0, 1.5, -1234567.891, 1e-7, 1e300}) {
            const std::string text = compiled.format(value);
            ASSERT_EQ(text, formatNumber(value, pattern)) << pattern;
            ASSERT_LT(text.size(), 500U) << pattern;
        }
    }
}

TEST(NumberPattern, HasAsManyPlacesAsItIsGiven) {
    const std::string noughts(30, '0');
    EXPECT_EQ(formatNumber(1.5, "0." + noughts), "1.5" + noughts.substr(1));
    EXPECT_EQ(formatNumber(1.5e-24, "0." + noughts), "0.000000000000000000000001500000");
    EXPECT_EQ(formatNumber(5e24, "0,,,,,,,,"), "5");
    EXPECT_EQ(formatNumber(5e30, "0,,,,,,,,"), "5000000");
}

} // namespace
} // namespace vkr
