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
    for (const char* text : {"Revenue", "\u00D6", "1,5 Mio", "Q4 2025", "2025E"})
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
