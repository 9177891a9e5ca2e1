// SPDX-License-Identifier: MIT
#include "binding/figure_doubts.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

std::string beside(std::string_view text, Datum datum = Datum::TotalDebt,
                   std::string_view symbol = "$", const NumberMarks& marks = {}) {
    return saidBeside(text, datum, symbol, marks);
}

TEST(FigureDoubts, ACurrencyIsItsSignOrItsName) {
    const struct {
        const char* sign;
        const char* name;
    } currencies[] = {{"$", "USD"}, {"\u20ac", "EUR"}, {"\u00a3", "GBP"}, {"\u00a5", "JPY"}};
    for (const auto& own : currencies)
        for (const auto& pasted : currencies) {
            const std::string text = std::string(pasted.sign) + "5";
            const std::string told = pasted.sign == own.sign ? "" : pasted.sign;
            EXPECT_EQ(beside(text, Datum::TotalDebt, own.sign), told);
            EXPECT_EQ(beside(text, Datum::YEPSSeries, own.name), told);
        }
    EXPECT_EQ(beside("5 \u20ac", Datum::TotalDebt, "eur"), "");
    EXPECT_EQ(beside("$5", Datum::TotalDebt, "CA$"), "");
    EXPECT_EQ(beside("$5", Datum::TotalDebt, ""), "$");
    EXPECT_EQ(beside("$5", Datum::TotalDebt, "US"), "$");
}

TEST(FigureDoubts, SharesAndRatesHaveNone) {
    EXPECT_EQ(beside("$5", Datum::CommShares), "$");
    EXPECT_EQ(beside("$5", Datum::TaxRate), "$");
    EXPECT_EQ(beside("5%", Datum::TaxRate), "");
    EXPECT_EQ(beside("5%", Datum::YTaxRateSeries), "");
    EXPECT_EQ(beside("5%", Datum::CommShares), "%");
    EXPECT_EQ(beside("5%", Datum::CurrentPrice), "%");
}

TEST(FigureDoubts, TheOnlyGroupIsToldBeforeASign) {
    EXPECT_EQ(beside("\u20ac1,125", Datum::CurrentPrice), ",");
    EXPECT_EQ(beside("\u20ac1,125", Datum::TotalDebt), "\u20ac");
    EXPECT_EQ(beside("1,125%", Datum::TaxRate), ",");
    EXPECT_EQ(beside("1,125", Datum::CommShares), "");
    EXPECT_EQ(beside("1.125", Datum::YEPSSeries), "");
    EXPECT_EQ(beside("1.125", Datum::YEPSSeries, "$", {.decimal = ',', .grouping = "."}), ".");
    EXPECT_EQ(beside("1,125", Datum::YEPSSeries, "$", {.decimal = ',', .grouping = "."}), "");
}

TEST(FigureDoubts, AFigureAloneSaysNothingBeside) {
    for (const char* text : {"", "5", "-5.25", "1125", "1,125.5", "1,125,000", "(5)"})
        for (const Datum datum : {Datum::TotalDebt, Datum::YEPSSeries, Datum::TaxRate})
            EXPECT_EQ(beside(text, datum), "") << text;
}

} // namespace
} // namespace vkr
