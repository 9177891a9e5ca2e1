// SPDX-License-Identifier: MIT
#include "company/exact_text.hpp"
#include "filings/filed_figures.hpp"
#include "tests/filings/filing_texts.hpp"
#include "tests/filings/made_document.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace vkr {

namespace {

using Filing = MadeDocument::Filing;

const Filing first{"10-K", "2024-02-20", "0000000001-24-000001"};
const Filing second{"10-K", "2025-02-20", "0000000001-25-000001"};
const std::string income = "us-gaap:NetIncomeLoss";
const std::string earnings = "us-gaap:EarningsPerShareDiluted";
const std::string diluted = "us-gaap:WeightedAverageNumberOfDilutedSharesOutstanding";
const std::string cover = "dei:EntityCommonStockSharesOutstanding";
const std::string outstanding = "us-gaap:CommonStockSharesOutstanding";
const std::string equity = "us-gaap:StockholdersEquity";
const std::string ratio = "us-gaap:StockholdersEquityNoteStockSplitConversionRatio1";

// The year 2023 and its first three quarters, in dollars.
MadeDocument yearAndThreeQuarters(const std::string& concepts, const std::string& unit,
                                  const std::string& year, const std::string& quarter) {
    MadeDocument document;
    document.fact(concepts, unit, "2023-01-01", "2023-12-31", year, first);
    document.fact(concepts, unit, "2023-01-01", "2023-03-31", quarter, {"10-Q", "2023-05-01", "a"});
    document.fact(concepts, unit, "2023-04-01", "2023-06-30", quarter, {"10-Q", "2023-08-01", "b"});
    document.fact(concepts, unit, "2023-07-01", "2023-09-30", quarter, {"10-Q", "2023-11-01", "c"});
    return document;
}

double valueOf(const FiledCompany& company, Datum datum, const std::string& end) {
    const FiledFigure* figure = figureOf(company, datum, end);
    EXPECT_NE(figure, nullptr) << end;
    return figure == nullptr ? -1 : figure->value;
}

} // namespace

// --- which filing ------------------------------------------------------------------------------

TEST(FiledFigures, TheLatestFilingOfAPeriodCountsAndTheEarlierOnesAreKept) {
    const auto company = MadeDocument()
                             .income("2023-01-01", "2023-12-31", "1600000", second)
                             .income("2023-01-01", "2023-12-31", "1500000", first)
                             .company();
    const FiledFigure* figure = figureOf(company, Datum::YNetIncSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1.6);
    EXPECT_EQ(figure->source.concepts, income);
    EXPECT_EQ(figure->source.form, "10-K");
    EXPECT_EQ(figure->source.accession, second.accession);
    EXPECT_EQ(figure->source.filed, makeDate(2025, 2, 20));
    EXPECT_TRUE(hasNote(*figure, "restated"));
    ASSERT_EQ(figure->others.size(), 1u);
    EXPECT_EQ(figure->others[0].value, 1.5);
    EXPECT_EQ(figure->others[0].source.accession, first.accession);
    EXPECT_EQ(figure->others[0].remark, "restated later");
}

TEST(FiledFigures, OfTwoFilingsOfOneDayTheHigherNumberCounts) {
    const auto company =
        MadeDocument()
            .income("2023-01-01", "2023-12-31", "2000000", {"10-K/A", first.filed, "9"})
            .income("2023-01-01", "2023-12-31", "1000000", {"10-K", first.filed, "8"})
            .company();
    EXPECT_EQ(valueOf(company, Datum::YNetIncSeries, "2023-12-31"), 2);
}

TEST(FiledFigures, ALaterValueThatIsOnlyCoarserIsNoCorrection) {
    const auto company = MadeDocument()
                             .income("2023-01-01", "2023-12-31", "4280159000", first)
                             .income("2023-01-01", "2023-12-31", "4280000000", second)
                             .company();
    const FiledFigure* figure = figureOf(company, Datum::YNetIncSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 4280.159);
    EXPECT_EQ(figure->source.accession, first.accession);
    EXPECT_TRUE(hasNote(*figure, "same, rounded, in 10-K of 2025-02-20"));
    EXPECT_FALSE(hasNote(*figure, "restated"));
}

TEST(FiledFigures, AProxyStatementIsNoReport) {
    const auto company =
        MadeDocument()
            .income("2023-01-01", "2023-12-31", "1500000", first)
            .income("2023-01-01", "2023-12-31", "1500", {"DEF 14A", "2025-04-01", "p"})
            .income("2023-10-01", "2023-12-31", "400", {"424B5", "2025-04-01", "q"})
            .company();
    EXPECT_EQ(valueOf(company, Datum::YNetIncSeries, "2023-12-31"), 1.5);
    EXPECT_EQ(figureOf(company, Datum::QNetIncSeries, "2023-12-31"), nullptr);
    for (const FiledFigure& figure : companyOf("NVDA").figures)
        ASSERT_NE(figure.source.form, "DEF 14A");
}

TEST(FiledFigures, WhatTheFilingsBeforeAndAfterContradictIsShownAsThat) {
    const auto document = documentOf("NVDA");
    const FactBook book(document);
    const auto half = book.over(FiledItem::revenue, *makeDate(2017, 1, 30), *makeDate(2017, 7, 30),
                                DayWindow{170, 190});
    ASSERT_TRUE(half.has_value());
    EXPECT_EQ(half->value, 4167e6);
    ASSERT_EQ(half->others.size(), 1u);
    EXPECT_EQ(half->others[0].value, 2230e6);
    EXPECT_EQ(half->others[0].remark, "contradicted by the filings before and after it");
}

TEST(FiledFigures, ACorrectionByAnAmendedReportCounts) {
    const auto company = companyOf("AAPL");
    const FiledFigure* figure = figureOf(company, Datum::YRevenueSeries, "2008-09-27");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 37491);
    EXPECT_TRUE(hasNote(*figure, "restated"));
}

// --- periods -----------------------------------------------------------------------------------

TEST(FiledFigures, AYearOf53WeeksIsAYear) {
    EXPECT_EQ(valueOf(companyOf("AAPL"), Datum::YRevenueSeries, "2017-09-30"), 229234);
}

TEST(FiledFigures, AYearThatEndsInTheFirstDaysOfJanuaryIsTheYearBefore) {
    const auto company = MadeDocument()
                             .income("2022-01-02", "2022-12-31", "1", first)
                             .income("2023-01-01", "2024-01-06", "2", first)
                             .income("2024-01-07", "2025-01-05", "3", second)
                             .company();
    ASSERT_EQ(company.calendar.years.size(), 3u);
    EXPECT_EQ(company.calendar.years[0].year, 2022);
    EXPECT_EQ(company.calendar.years[1].year, 2023);
    EXPECT_EQ(company.calendar.years[2].year, 2024);
    EXPECT_EQ(companyOf("NVDA").calendar.years.back().year, 2026); // to 25 January
}

TEST(FiledFigures, TwelveMonthsToTheEndOfAQuarterAreNoFiscalYear) {
    auto document = yearAndThreeQuarters(income, "USD", "4000000", "900000");
    document.income("2022-07-01", "2023-06-30", "3900000", {"10-Q", "2023-08-01", "b"});
    const auto company = document.company();
    ASSERT_EQ(company.calendar.years.size(), 1u);
    EXPECT_EQ(company.calendar.years[0].end, makeDate(2023, 12, 31));
}

TEST(FiledFigures, AQuarterOf16WeeksCountsWhereNothingElseEndsThere) {
    auto document = yearAndThreeQuarters(income, "USD", "4000000", "900000");
    document.income("2024-01-01", "2024-04-20", "1300000", {"10-Q", "2024-05-20", "d"});
    const auto company = document.company();
    const FiledFigure* figure = figureOf(company, Datum::QNetIncSeries, "2024-04-20");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1.3);
    EXPECT_TRUE(hasNote(*figure, "16 weeks"));
}

TEST(FiledFigures, AHalfYearThatEndsWithTheQuarterIsNotTheQuarter) {
    auto document = yearAndThreeQuarters(income, "USD", "4000000", "900000");
    document.income("2023-01-01", "2023-06-30", "1800000", {"10-Q", "2023-08-01", "b"});
    EXPECT_EQ(valueOf(document.company(), Datum::QNetIncSeries, "2023-06-30"), 0.9);
}

// --- the fourth quarter ------------------------------------------------------------------------

TEST(FiledFigures, TheFourthQuarterIsTheYearLessItsThreeQuarters) {
    auto document = yearAndThreeQuarters(income, "USD", "4000000", "900000");
    document.income("2023-01-01", "2023-09-30", "2800000", {"10-Q", "2023-11-01", "c"});
    const auto company = document.company();
    const FiledFigure* figure = figureOf(company, Datum::QNetIncSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1.3);
    EXPECT_TRUE(figure->derived);
    EXPECT_EQ(figure->source.accession, first.accession);
    EXPECT_TRUE(hasNote(*figure, "the year less its first three quarters"));
}

TEST(FiledFigures, AStatedFourthQuarterGoesBefore) {
    auto document = yearAndThreeQuarters(income, "USD", "4000000", "900000");
    document.income("2023-10-01", "2023-12-31", "1299000", first);
    const auto company = document.company();
    const FiledFigure* figure = figureOf(company, Datum::QNetIncSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1.299);
    EXPECT_FALSE(figure->derived);
}

TEST(FiledFigures, WithoutAQuarterTheNineMonthsAreTakenFromTheYear) {
    const auto company =
        MadeDocument()
            .income("2023-01-01", "2023-12-31", "4000000", first)
            .income("2023-01-01", "2023-09-30", "2800000", {"10-Q", "2023-11-01", "c"})
            .income("2023-07-01", "2023-09-30", "900000", {"10-Q", "2023-11-01", "c"})
            .company();
    const FiledFigure* figure = figureOf(company, Datum::QNetIncSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1.2);
    EXPECT_TRUE(hasNote(*figure, "nine months"));
}

TEST(FiledFigures, DerivedEarningsPerShareHaveAMarkAndTheSignOfNetIncome) {
    auto document = yearAndThreeQuarters(earnings, "USD/shares", "4.00", "0.90");
    document.income("2023-10-01", "2023-12-31", "1000", first);
    auto company = document.company();
    const FiledFigure* figure = figureOf(company, Datum::QEPSSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1.3);
    EXPECT_TRUE(figure->derived);

    auto loss = yearAndThreeQuarters(earnings, "USD/shares", "4.00", "0.90");
    loss.income("2023-10-01", "2023-12-31", "-1000", first);
    company = loss.company();
    EXPECT_EQ(figureOf(company, Datum::QEPSSeries, "2023-12-31"), nullptr);
    ASSERT_EQ(company.notes.size(), 1u);
    EXPECT_NE(company.notes[0].find("2023-12-31 are left empty"), std::string::npos);
}

TEST(FiledFigures, TheTaxRateOfADerivedQuarterIsThatOfItsDerivedFigures) {
    const auto company = companyOf("AAPL");
    const FiledFigure* figure = figureOf(company, Datum::QTaxRateSeries, "2024-09-28");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 50.23);
    EXPECT_TRUE(figure->derived);
}

// --- shares and splits -------------------------------------------------------------------------

TEST(FiledFigures, ASplitIsAppliedByTheDayOfFilingAndHasItsLaterDate) {
    const auto splits = companyOf("NVDA").splits;
    ASSERT_EQ(splits.size(), 2u);
    EXPECT_EQ(splits[0].ratio, 4);
    EXPECT_EQ(splits[0].effective, makeDate(2021, 7, 19));
    EXPECT_EQ(splits[1].ratio, 10);
    EXPECT_EQ(splits[1].effective, makeDate(2024, 6, 30));
    EXPECT_EQ(splits[0].proven, true);
    EXPECT_EQ(splits[1].proven, true);
    EXPECT_EQ(sharesSince(splits, *makeDate(2021, 6, 10)), 40); // decided, not yet in effect
    EXPECT_EQ(sharesSince(splits, *makeDate(2021, 7, 19)), 10);
    EXPECT_EQ(sharesSince(splits, *makeDate(2024, 8, 28)), 1);
}

TEST(FiledFigures, AFigureOnAnotherShareBasisSaysSo) {
    const auto company = companyOf("NVDA");
    const FiledFigure* figure = figureOf(company, Datum::QEPSSeries, "2020-04-26");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 0.0368);
    EXPECT_DOUBLE_EQ(figure->exact, 0.03675);
    EXPECT_TRUE(hasNote(*figure, "adjusted for splits, 40 for 1; 1.47 as filed"));
    EXPECT_FALSE(figure->isDoubtful());
}

TEST(FiledFigures, ASplitThatNoShareCountProvesIsDoubtfulAndOneTheyContradictIsNone) {
    MadeDocument document;
    document.income("2023-01-01", "2023-12-31", "15000000", first)
        .fact(earnings, "USD/shares", "2023-01-01", "2023-12-31", "3.00", first)
        .fact(ratio, "pure", "", "2024-06-30", "3", second);
    auto company = document.company();
    const FiledFigure* figure = figureOf(company, Datum::YEPSSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 1);
    EXPECT_TRUE(figure->isDoubtful());

    document.fact(diluted, "shares", "2023-01-01", "2023-12-31", "5000000", first)
        .fact(diluted, "shares", "2023-01-01", "2023-12-31", "5000000", second);
    company = document.company();
    EXPECT_EQ(valueOf(company, Datum::YEPSSeries, "2023-12-31"), 3);
    ASSERT_EQ(company.notes.size(), 1u);
    EXPECT_NE(company.notes[0].find("share counts contradict it"), std::string::npos);
}

TEST(FiledFigures, AThousandIsNoSplit) {
    const auto company =
        MadeDocument()
            .income("2023-01-01", "2023-12-31", "15000000", first)
            .fact(ratio, "pure", "", "2024-06-30", "1000", second)
            .fact(earnings, "USD/shares", "2023-01-01", "2023-12-31", "3.00", first)
            .company();
    EXPECT_EQ(valueOf(company, Datum::YEPSSeries, "2023-12-31"), 3);
}

TEST(FiledFigures, AStatedFigureKeepsAllItsDigits) {
    const auto company =
        MadeDocument()
            .fact(earnings, "USD/shares", "2023-01-01", "2023-12-31", "0.00625", first)
            .income("2023-01-01", "2023-12-31", "1234567", first)
            .company();
    EXPECT_EQ(valueOf(company, Datum::YEPSSeries, "2023-12-31"), 0.00625);
    EXPECT_EQ(valueOf(company, Datum::YNetIncSeries, "2023-12-31"), 1.234567);
}

TEST(FiledFigures, SmallShareCountsArePlaceholders) {
    const auto company = MadeDocument()
                             .fact(diluted, "shares", "2023-01-01", "2023-12-31", "100", first)
                             .fact(cover, "shares", "", "2024-02-01", "1000", first)
                             .income("2023-01-01", "2023-12-31", "1", first)
                             .company();
    EXPECT_EQ(figureOf(company, Datum::YCSOSeries, "2023-12-31"), nullptr);
    EXPECT_EQ(figureOf(company, Datum::CommShares, "2024-02-01"), nullptr);
}

TEST(FiledFigures, ACountOfEachClassOfSharesIsNoCountOfTheCommonShares) {
    const auto company = MadeDocument()
                             .fact(cover, "shares", "", "2024-02-01", "5000000", first)
                             .fact(cover, "shares", "", "2024-02-01", "6000000", first)
                             .income("2023-01-01", "2023-12-31", "1", first)
                             .company();
    EXPECT_EQ(figureOf(company, Datum::CommShares, "2024-02-01"), nullptr);
    ASSERT_EQ(company.notes.size(), 1u);
    EXPECT_NE(company.notes[0].find("several classes"), std::string::npos);
}

TEST(FiledFigures, ACountInThousandsIsDoubtful) {
    const auto company =
        MadeDocument()
            .income("2023-01-01", "2023-12-31", "600000000", first)
            .fact(earnings, "USD/shares", "2023-01-01", "2023-12-31", "1.00", first)
            .fact(diluted, "shares", "2023-01-01", "2023-12-31", "600000", first)
            .company();
    const FiledFigure* figure = figureOf(company, Datum::YCSOSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_TRUE(figure->isDoubtful());
}

// --- concepts ----------------------------------------------------------------------------------

TEST(FiledFigures, ThePreferredConceptGoesBeforeAndALaterOtherOneIsDoubt) {
    const auto company =
        MadeDocument()
            .fact("us-gaap:Revenues", "USD", "2023-01-01", "2023-12-31", "7000000", first)
            .fact("us-gaap:SalesRevenueNet", "USD", "2023-01-01", "2023-12-31", "6000000", second)
            .company();
    const FiledFigure* figure = figureOf(company, Datum::YRevenueSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 7);
    EXPECT_TRUE(figure->isDoubtful());
    ASSERT_EQ(figure->others.size(), 1u);
    EXPECT_EQ(figure->others[0].value, 6);
}

TEST(FiledFigures, WhatIsNotQuiteTheDatumIsDoubtful) {
    const auto company =
        MadeDocument()
            .fact("us-gaap:ProfitLoss", "USD", "2023-01-01", "2023-12-31", "7000000", first)
            .company();
    const FiledFigure* figure = figureOf(company, Datum::YNetIncSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_TRUE(hasNote(*figure, "minority"));
    EXPECT_TRUE(figure->isDoubtful());
}

TEST(FiledFigures, PreferredStockIsTakenFromEquityAndTheCoverCountsSharesWhereNothingElseDoes) {
    const auto company =
        MadeDocument()
            .income("2023-01-01", "2023-12-31", "1", first)
            .fact(equity, "USD", "", "2023-12-31", "90000000", first)
            .fact("us-gaap:PreferredStockValue", "USD", "", "2023-12-31", "10000000", first)
            .fact(cover, "shares", "", "2024-02-01", "40000000", first)
            .company();
    EXPECT_EQ(valueOf(company, Datum::YCommEqSeries, "2023-12-31"), 80);
    const FiledFigure* figure = figureOf(company, Datum::YBookValSeries, "2023-12-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 2);
    EXPECT_TRUE(hasNote(*figure, "by the shares of 2024-02-01"));
}

TEST(FiledFigures, OfTwoDividendsTheLargerCounts) {
    const auto company = companyOf("NVDA"); // one quarter is tagged as the year
    const FiledFigure* figure = figureOf(company, Datum::YDividendSeries, "2016-01-31");
    ASSERT_NE(figure, nullptr);
    EXPECT_EQ(figure->value, 0.0099);
    EXPECT_TRUE(hasNote(*figure, "the larger of two concepts"));
}

TEST(FiledFigures, SharesAndDebtAreThoseOfTheNewestFiling) {
    const auto nvda = companyOf("NVDA");
    EXPECT_EQ(valueOf(nvda, Datum::CommShares, "2026-05-15"), 24200);
    EXPECT_EQ(valueOf(nvda, Datum::DilutedShares, "2026-04-26"), 24391);
    EXPECT_EQ(valueOf(nvda, Datum::TotalDebt, "2026-04-26"), 8470);
    const auto aapl = companyOf("AAPL");
    EXPECT_EQ(valueOf(aapl, Datum::CommShares, "2026-01-16"), 14681.14);
    EXPECT_EQ(valueOf(aapl, Datum::DilutedShares, "2025-12-27"), 14810.356);
    EXPECT_EQ(valueOf(aapl, Datum::TotalDebt, "2025-12-27"), 90509);
}

// --- documents of which nothing is taken -------------------------------------------------------

TEST(FiledFigures, OfAnotherCurrencyOrOtherRulesNothingIsTaken) {
    EXPECT_EQ(MadeDocument()
                  .fact(income, "EUR", "2023-01-01", "2023-12-31", "5", {"20-F", "2024-03-01", "a"})
                  .company()
                  .refusal,
              "The company reports in EUR, not in US dollars.");
    EXPECT_EQ(MadeDocument()
                  .fact("ifrs-full:ProfitLoss", "EUR", "2023-01-01", "2023-12-31", "5",
                        {"20-F", "2024-03-01", "a"})
                  .company()
                  .refusal,
              "The company reports by IFRS, of which nothing can be imported.");
    EXPECT_EQ(MadeDocument().company().refusal,
              "The document holds no figures of a company's reports.");
    EXPECT_EQ(MadeDocument()
                  .income("2023-01-01", "2023-12-31", "1500", {"DEF 14A", "2025-04-01", "p"})
                  .company()
                  .refusal,
              "The document holds no figure that can be taken.");
}

TEST(FiledFigures, AnotherCurrencyBesideDollarsIsNotTakenForThem) {
    const auto company = MadeDocument()
                             .fact(income, "EUR", "2023-01-01", "2023-12-31", "5000000", second)
                             .income("2023-01-01", "2023-12-31", "6000000", first)
                             .company();
    EXPECT_EQ(valueOf(company, Datum::YNetIncSeries, "2023-12-31"), 6);
}

} // namespace vkr
