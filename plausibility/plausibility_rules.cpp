// SPDX-License-Identifier: MIT
#include "plausibility/plausibility_rules.hpp"

#include "plausibility/checks.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

namespace {

// clang-format off
constexpr PlausibilityRule rules[] = {
    {"high-below-low", "High below low",
     "High and low price of a year",
     "the high is below the low",
     "The high price of %1, %2, is below the low, %3.",
     "sure", checks::highBelowLow},
    {"range-too-wide", "High and low far apart",
     "High and low price of a year",
     "the high is more than 12 times the low",
     "The high price of %1, %2, is %3 the low, %4.",
     "hint", checks::rangeTooWide},
    {"range-reversed", "52-week range reversed",
     "52-week high and low",
     "the high is below the low",
     "The 52-week high, %1, is below the 52-week low, %2.",
     "sure", checks::rangeReversed},
    {"price-outside-range", "Price outside of the year's range",
     "Current price and 52-week range",
     "the price is below the low or above the high",
     "The current price, %1, is %2, %3.",
     "likely", checks::priceOutsideRange},
    {"negative-figure", "Negative figure",
     "Revenue, shares, prices, dividends, debt, capitalization, preferred stock, holdings",
     "the figure is below zero",
     "%1%2 is %3, and can't be below zero.",
     "sure", checks::negativeFigure},
    {"sign-of-earnings", "Earnings per share unlike net income",
     "Earnings per share and net income of a year or quarter",
     "one is a gain and the other a loss",
     "In %1 earnings per share are %2 and net income is %3: one is a gain, the other a loss.",
     "sure", checks::signOfEarnings},
    {"sign-of-book-value", "Book value unlike equity",
     "Book value per share and common equity of a year",
     "one is below zero and the other above it",
     "In %1 book value per share is %2 and common equity is %3: one is below zero.",
     "sure", checks::signOfBookValue},
    {"sign-of-pre-tax-income", "Pre-tax income unlike net income",
     "Pre-tax income and net income of a year or quarter",
     "one is a gain and the other a loss, and the tax rate is not above 100 %",
     "In %1 pre-tax income is %2 and net income %3: one is a gain, the other a loss.",
     "hint", checks::signOfPreTaxIncome},
    {"preferred-above-income", "Preferred dividends above net income",
     "Preferred dividends and net income of the last fiscal year",
     "the dividends are more than a gain",
     "Preferred dividends, %1, are more than net income, %2, of %3.",
     "likely", checks::preferredAboveIncome},
    {"diluted-below-common", "Diluted shares below common shares",
     "Common and diluted shares",
     "diluted shares are fewer",
     "Diluted shares, %1, are fewer than common shares, %2.",
     "hint; likely where more than 5 % are missing", checks::dilutedBelowCommon},
    {"share-counts-apart", "Share counts far apart",
     "Common and diluted shares against the shares outstanding of the last fiscal year",
     "one is more than 1.4 times the other",
     "The %1, %2, are %3 the shares outstanding of %4, %5.",
     "likely; sure within 1.2 times of a power of ten", checks::shareCountsApart},
    {"quarters-against-year", "Four quarters unlike the year",
     "Revenue, pre-tax income and net income of a year and its four quarters",
     "the sum is off by more than two units of the coarsest of them: 2 million for 1234, 0.2 for "
     "1234.5",
     "%1 of %2: the four quarters make %3, the year says %4.",
     "likely; sure beyond 10 % of the year", checks::quartersAgainstYear},
    {"quarterly-earnings-against-year", "Quarterly earnings unlike the year's",
     "Earnings per share of a year and its four quarters",
     "the sum is off by more than 2 % and 0.03, or 0.015 where there are more than two decimals",
     "%1 of %2: the four quarters make %3, the year says %4.",
     "hint; likely beyond 10 % of the year", checks::quarterlyEarningsAgainstYear},
    {"earnings-times-shares", "Earnings times shares unlike net income",
     "Earnings per share, shares outstanding and net income of a year",
     "the product is more than 5 % off net income, with and without preferred dividends, and more "
     "than half a cent of the earnings explains and 1 %",
     "In %1 earnings per share of %2 times %3 shares make %4, net income is %5.",
     "likely; sure within 1.1 times of a power of ten", checks::earningsTimesShares},
    {"quarterly-earnings-times-shares", "Quarterly earnings unlike net income per share",
     "Earnings per share and net income of a quarter, shares outstanding of the years around it",
     "they make a share count 1.15 times beyond those of the years, and half a cent does not "
     "explain it",
     "In %1 earnings per share of %2 and net income of %3 make %4 shares; in %5 it is %6.",
     "hint; sure within 1.15 times of a power of ten", checks::quarterlyEarningsTimesShares},
    {"book-value-times-shares", "Book value times shares unlike equity",
     "Book value per share, shares outstanding and common equity of a year",
     "the product is more than 25 % off",
     "In %1 a book value of %2 times %3 shares makes %4, common equity is %5. A listing or a "
     "merger can be the reason.",
     "hint; sure within 1.1 times of a power of ten", checks::bookValueTimesShares},
    {"income-after-tax", "Tax unlike the incomes before and after it",
     "Pre-tax income, tax rate and net income of a year or quarter",
     "what the tax leaves is off net income by more than two units and 15 % of pre-tax income, 25 % "
     "in a quarter",
     "In %1 pre-tax income of %2 less %3 taxes leaves %4, net income is %5. Minority holders can "
     "be the reason.",
     "hint; likely beyond 50 %; sure within 1.1 times of a power of ten", checks::incomeAfterTax},
    {"jump-of-hundreds", "A hundred or a thousand times too large or small",
     "A figure of any column between an older and a newer one; a tax rate only between two of 5 % "
     "and more",
     "it is 32 to 3162 times both, or that part of them, on the average, and they are within 10 "
     "times of each other",
     "%1 of %2, %3, is %4 the figures beside it, %5 and %6.",
     "sure", checks::jumpOfHundreds},
    {"jump-of-ten", "Ten times too large or small",
     "A figure of revenue, equity, book value, dividends, prices or shares between an older and a "
     "newer one",
     "it is within 1.3 times of a power of ten of both, on the average, and they are within 3 "
     "times of each other",
     "%1 of %2, %3, is %4 the figures beside it, %5 and %6.",
     "likely", checks::jumpOfTen},
    {"jump-at-end", "The newest or oldest figure far from the next ones",
     "The newest and the oldest figure of any column, and the next two; a tax rate only beside two "
     "of 5 % and more",
     "it is 32 to 3162 times both, or that part of them, on the average, and they are within 10 "
     "times of each other",
     "%1 of %2, %3, is %4 the next figures, %5 and %6.",
     "likely", checks::jumpAtEnd},
    {"split-ratio-jump", "Shares or dividend off by a split",
     "Shares outstanding and dividend of a year between an older and a newer one",
     "it is within 1.05 times of a ratio of splits, 1.5 to 50, of both, and they are within 1.15 "
     "times of each other",
     "%1 of %2, %3, is %4 the figures beside it, %5 and %6. Were the others adjusted for a split?",
     "likely", checks::splitRatioJump},
    {"prices-by-split-ratio", "Prices off by a split",
     "High and low price of a year between an older and a newer one",
     "both are within 1.1 times of the same ratio of splits, 1.5 to 50, and those beside them are "
     "within 1.5 times of each other",
     "High and low price of %1, %2 and %3, are %4 those of the years beside it. Were those "
     "adjusted for a split?",
     "likely", checks::pricesBySplitRatio},
    {"ranges-apart", "Prices of two years that do not meet",
     "High and low price of two years that follow one another",
     "the low of one is more than 1.25 times the high of the other",
     "Prices of %1 were from %2 to %3, those of %4 from %5 to %6: they do not meet. Are some "
     "adjusted for a split and some not?",
     "likely", checks::rangesApart},
    {"split-step", "More shares and smaller earnings from one year on",
     "Shares outstanding and earnings per share of two years that follow one another",
     "shares become more than 1.4 times, and earnings less than 1/1.4, or the other way about",
     "From %1 to %2 the shares go from %3 to %4 and earnings per share from %5 to %6. A split that "
     "the older years were not adjusted for, or new shares?",
     "hint", checks::splitStep},
    {"missing-year", "A year is missing",
     "The yearly figures, without dividends and tax rate; of pre-tax income and tax rate, and of "
     "equity and book value, either will do",
     "a year before and a year after it have the figure",
     "For %1 nothing is stored as %2, while there are figures before and after it.",
     "likely", checks::missingYear},
    {"missing-quarter", "A quarter is missing",
     "The quarterly figures; of pre-tax income and tax rate either will do",
     "a quarter before and a quarter after it have the figure",
     "For %1 nothing is stored as %2, while there are figures before and after it.",
     "likely", checks::missingQuarter},
    {"year-unlike-its-end", "Fiscal year unlike its date",
     "Last fiscal year and the day on which it ended",
     "the day lies in another year; one in the first week of January may belong to the year before",
     "The last fiscal year is %1, and is said to have ended on %2.",
     "likely", checks::yearUnlikeItsEnd},
    {"quarter-before-year-end", "Last quarter before the end of the year",
     "Last quarter and the end of the last fiscal year, where there are figures of both",
     "the quarter ended half a quarter and more before the year",
     "The last quarter ended on %1, before the last fiscal year did, on %2.",
     "likely", checks::quarterBeforeYearEnd},
    {"year-behind-quarters", "A fiscal year has ended since",
     "Last quarter and the end of the last fiscal year, where there are figures of both",
     "the quarter ended a year and more after the year",
     "The last quarter ended on %1, the last fiscal year on %2: another year has ended since.",
     "hint", checks::yearBehindQuarters},
    {"source-before-quarter", "Source older than its figures",
     "Date of the source and the last quarter, where that has a revenue",
     "the source is dated before the quarter ended",
     "The source is dated %1, before the last quarter ended, on %2.",
     "hint", checks::sourceBeforeQuarter},
    {"day-to-come", "A day that is still to come",
     "Dates of the price, the source, the last study, the last fiscal year and quarter, where "
     "there is a figure to them",
     "the day is after today",
     "The %1, %2, is still to come.",
     "likely", checks::dayToCome},
};
// clang-format on

} // namespace

std::span<const PlausibilityRule> plausibilityRules() {
    return rules;
}

const PlausibilityRule* findPlausibilityRule(std::string_view name) {
    const auto* const found = std::ranges::find(rules, name, &PlausibilityRule::name);
    return found == std::end(rules) ? nullptr : found;
}

} // namespace vkr
