// SPDX-License-Identifier: MIT
#include "binding/block_texts.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(BlockTexts, AreBlankTextOrFigure) {
    for (const char* blank : {"", " ", "\u00A0\t"})
        EXPECT_TRUE(isBlank(blank));
    for (const char* other : {"-", "0", "n/a", "x"})
        EXPECT_FALSE(isBlank(other)) << other;
    for (const char* text : {"Revenue", "\u00D6", "\x80", "1,5 Mio", "Q4 2025", "2025E"})
        EXPECT_TRUE(isText(text)) << text;
    for (const char* other : {"", "-", "100-50", "n/a", "EUR 5", "1e5", "1.234,5", "1,234.5"})
        EXPECT_FALSE(isText(other)) << other;
    for (const char* sign : {"$", "\u20AC", "\u00A3", "\u00A5"})
        EXPECT_TRUE(isCurrencySign(sign)) << sign;
    for (const char* other : {"", "$5", "%", "USD"})
        EXPECT_FALSE(isCurrencySign(other)) << other;
    for (const char* sign : {")", "%", ")%"})
        EXPECT_TRUE(isClosingSign(sign)) << sign;
    for (const char* other : {"", "(", "5)", "$"})
        EXPECT_FALSE(isClosingSign(other)) << other;
}

TEST(BlockTexts, AreNoFigureWhereNothingSoSmallIsStored) {
    for (const char* text : {"1e-324", "1,5e-324"})
        EXPECT_TRUE(isNoFigure(text)) << text;
    for (const char* figure : {"1e-323", "1,5e-323"})
        EXPECT_FALSE(isNoFigure(figure)) << figure;
    EXPECT_FALSE(isScaledFigure("1e-324M"));
    EXPECT_TRUE(isScaledFigure("1e-323M"));
}

TEST(BlockTexts, NameYears) {
    struct Row {
        const char* text;
        std::optional<int> year;
    };
    const Row rows[] = {{"2021", 2021},
                        {"FY2021", 2021},
                        {"fy 2021", 2021},
                        {"Fiscal 2021", 2021},
                        {"FISCAL YEAR 2021", 2021},
                        {"FY21", 2021},
                        {"FY'21", 2021},
                        {"Fiscal \u201921", 2021},
                        {"'21", std::nullopt},
                        {"FY1", std::nullopt},
                        {"FY211", std::nullopt},
                        {"2021A", 2021},
                        {"FY2021a", 2021},
                        {"1900", 1900},
                        {"2100", 2100},
                        {"1899", std::nullopt},
                        {"2101", std::nullopt},
                        {"2021E", std::nullopt}, // nobody knows it yet
                        {"20210", std::nullopt},
                        {"202A", std::nullopt},
                        {"202", std::nullopt},
                        {"20x1", std::nullopt},
                        {"x2021", std::nullopt},
                        {"FY", std::nullopt},
                        {"A", std::nullopt},
                        {"", std::nullopt}};
    for (const auto& row : rows)
        EXPECT_EQ(yearIn(row.text), row.year) << row.text;
}

TEST(BlockTexts, NameMonths) {
    struct Row {
        const char* text;
        std::optional<std::string> month;
    };
    const Row rows[] = {
        {"Sep-25", "Sep 2025"},   {"sept '25", "sept 2025"},  {"June\u201927", "June 2027"},
        {"Sep-28", std::nullopt}, // behind the last year
        {"Sep 25", std::nullopt}, // a day
        {"Sep-5", std::nullopt},  {"Sep-2025", std::nullopt}, {"-25", std::nullopt},
        {"25-Sep", std::nullopt}, {"Sep-'25", std::nullopt},  {"", std::nullopt}};
    for (const auto& row : rows)
        EXPECT_EQ(monthIn(row.text, 2027), row.month) << row.text;
}

TEST(BlockTexts, AreFiguresWithAUnitOfTheirOwn) {
    for (const char* figure : {"1.5M", "$2 billion", "4k", "-3 T", "5 Mio.", "1,234MM"})
        EXPECT_TRUE(isScaledFigure(figure)) << figure;
    for (const char* other : {"", "M", "5", "5 apples", "Q4", "12 Months", "2026E", "in millions"})
        EXPECT_FALSE(isScaledFigure(other)) << other;
}

TEST(BlockTexts, NameQuarters) {
    struct Row {
        const char* text;
        std::optional<FiscalQuarter> quarter;
    };
    const Row rows[] = {{"Q4 2025", FiscalQuarter{4, 2025}},
                        {"q1 FY25", FiscalQuarter{1, 2025}},
                        {"Q2'25", FiscalQuarter{2, 2025}},
                        {"Q3\u2019"
                         "25",
                         FiscalQuarter{3, 2025}},
                        {"Q3-2025", FiscalQuarter{3, 2025}},
                        {"Q3/25", FiscalQuarter{3, 2025}},
                        {"4Q25", FiscalQuarter{4, 2025}},
                        {"1Q 2025", FiscalQuarter{1, 2025}},
                        {"2025 Q4", FiscalQuarter{4, 2025}},
                        {"FY2025-Q1", FiscalQuarter{1, 2025}},
                        {"Q4 00", FiscalQuarter{4, 2000}},
                        {"Q0 2025", std::nullopt},
                        {"Q5 2025", std::nullopt},
                        {"0Q25", std::nullopt},
                        {"2025 Q5", std::nullopt},
                        {"2025 Q41", std::nullopt},
                        {"2025 Q", std::nullopt},
                        {"1899 Q4", std::nullopt},
                        {"Q4 1899", std::nullopt},
                        {"Q4 2x", std::nullopt},
                        {"Q4 x2", std::nullopt},
                        {"Q4 5", std::nullopt},
                        {"Q4 225", std::nullopt},
                        {"Q4 20255", std::nullopt},
                        {"Q4 2025A", std::nullopt},
                        {"12Q25", std::nullopt},
                        {"Q4", std::nullopt},
                        {"Q", std::nullopt},
                        {"4", std::nullopt},
                        {"", std::nullopt}};
    for (const auto& row : rows)
        EXPECT_EQ(quarterIn(row.text), row.quarter) << row.text;
}

TEST(BlockTexts, TellHowManyMonthsAFigureIsOf) {
    struct Row {
        const char* text;
        std::optional<int> ofAYear;
        std::optional<int> ofAQuarter;
    };
    const Row rows[] = {{"12 Months Ended", std::nullopt, 12},
                        {"Three months ended June 30,", 3, std::nullopt},
                        {"six months", 6, 6},
                        {"Nine Months", 9, 9},
                        {"3 Months Ended, 9 Months Ended", 3, 9},
                        {"52 weeks ended", std::nullopt, 12},
                        {"53 Weeks", std::nullopt, 12},
                        {"13 weeks", 3, std::nullopt},
                        {"twelve months", std::nullopt, 12},
                        {"thirteen weeks", 3, std::nullopt},
                        {"thirteen months", 13, 13},
                        {"Months ended", std::nullopt, std::nullopt},
                        {"2025 months", std::nullopt, std::nullopt},
                        {"9 Monthss", std::nullopt, std::nullopt},
                        {"", std::nullopt, std::nullopt}};
    for (const auto& row : rows) {
        EXPECT_EQ(otherMonthsIn(row.text, 12), row.ofAYear) << row.text;
        EXPECT_EQ(otherMonthsIn(row.text, 3), row.ofAQuarter) << row.text;
    }
}

TEST(BlockTexts, SpeakOfAPeriod) {
    for (const char* text : {"TTM", "Revenue (LTM)", "12 months to Sep 2025", "Sales, 4Q25",
                             "2026E", "Q3", "first of (Q1)", "4 Q 25", "1900", "2025"})
        EXPECT_TRUE(namesPeriod(text)) << text;
    for (const char* text : {"", "Revenue", "Q", "QX", "Q44", "P1", "H2", "1899", "202A5", "12025",
                             "2025E1", "TTMS", "Q 5"})
        EXPECT_FALSE(namesPeriod(text)) << text;
}

TEST(BlockTexts, StandWherePeriodsAndLabelsMeet) {
    for (const char* text :
         {"", "\u00A0", "Year", "Quarters", "Period", "Fiscal", "Years ended", "Ending",
          "12 months to", "$ in thousands", "(In millions)", "in billions", "Breakdown"})
        EXPECT_TRUE(isCornerOfPeriods(text)) << text;
    for (const char* text : {"Staff", "Revenue", "-", "5"})
        EXPECT_FALSE(isCornerOfPeriods(text)) << text;
}

} // namespace
} // namespace vkr
