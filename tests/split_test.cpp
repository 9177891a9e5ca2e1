// SPDX-License-Identifier: MIT
#include "company/split.hpp"
#include "plausibility/company_findings.hpp"
#include "record/actions.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/dates.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <span>
#include <stdexcept>

namespace vkr {
namespace {

using enum Datum;
using test::changesOf;
using test::day;
using test::elementOf;
using test::sample;

std::optional<std::string> apply(const std::shared_ptr<iVKR_Company>& company,
                                 const SplitRatio& ratio, std::span<const DatumChange> changes) {
    const ActionScope action(company, splitAction(ratio));
    return applyChanges(*company, changes);
}

const DatumChange* find(const std::vector<DatumChange>& changes, Datum datum,
                        std::optional<int> element) {
    const auto found = std::ranges::find_if(changes, [&](const DatumChange& one) {
        return one.datum == datum && one.element == element;
    });
    return found == changes.end() ? nullptr : &*found;
}

TEST(Split, ReadsRatiosAsPeopleWriteThem) {
    struct Row {
        const char* text;
        std::optional<SplitRatio> ratio;
    };
    const Row rows[] = {{"4:1", SplitRatio{4, 1}},
                        {"3:2", SplitRatio{3, 2}},
                        {"1:10", SplitRatio{1, 10}},
                        {" 4 : 1 ", SplitRatio{4, 1}},
                        {"3-for-2", SplitRatio{3, 2}},
                        {"3 for 2", SplitRatio{3, 2}},
                        {"1 For 10", SplitRatio{1, 10}},
                        {"20/1", SplitRatio{20, 1}},
                        {"7", SplitRatio{7, 1}},
                        {"1000:1", SplitRatio{1000, 1}},
                        {"1", std::nullopt},
                        {"2:2", std::nullopt},
                        {"0:1", std::nullopt},
                        {"4:0", std::nullopt},
                        {"", std::nullopt},
                        {":", std::nullopt},
                        {"4:", std::nullopt},
                        {"4 1", std::nullopt},
                        {"-4:1", std::nullopt},
                        {"4:1:1", std::nullopt},
                        {"1.5:1", std::nullopt},
                        {"1001:1", std::nullopt},
                        {"1001:4", std::nullopt},
                        {"4:1001", std::nullopt},
                        {"99999999999:1", std::nullopt},
                        {"four", std::nullopt}};
    for (const Row& row : rows) {
        EXPECT_EQ(readSplitRatio(row.text), row.ratio) << row.text;
        if (row.ratio) {
            EXPECT_EQ(readSplitRatio(splitText(*row.ratio)), row.ratio) << row.text;
        }
    }
}

TEST(Split, ReadsARatioToTheEndOfItsTextAndNotBeyond) {
    EXPECT_EQ(readSplitRatio(std::string_view("2:12").substr(0, 3)), (SplitRatio{2, 1}));
    EXPECT_EQ(readSplitRatio(std::string_view("212").substr(0, 1)), (SplitRatio{2, 1}));
}

TEST(Split, RatiosOfSharesForOneAreWrittenInWholeShares) {
    const std::pair<double, std::optional<SplitRatio>> rows[] = {
        {10, SplitRatio{10, 1}},     {1.5, SplitRatio{3, 2}},    {0.1, SplitRatio{1, 10}},
        {0.0667, SplitRatio{1, 15}}, {1.05, SplitRatio{21, 20}}, {1000, SplitRatio{1000, 1}},
        {1001, std::nullopt},        {1.00372, std::nullopt},    {0, std::nullopt},
        {-4, std::nullopt},          {0.001, std::nullopt},      {0.01, SplitRatio{1, 100}},
        {1.0 / 101, std::nullopt},   {0.5002525, std::nullopt}};
    for (const auto& [shares, ratio] : rows)
        EXPECT_EQ(splitRatioOf(shares), ratio) << shares;
}

TEST(Split, AdjustsTheNewestPeriodsOfASeries) {
    CompanyRecord company;
    company.put_LastFYDate(day(2024, 12, 31));
    company.put_LastQDateForGrid(day(2025, 3, 31));
    for (const Datum series : {YEPSSeries, QEPSSeries})
        for (const int element : {0, 1})
            test::putElement(company, series, element, 4);
    const auto changes = splitChanges(company, {{2, 1}, day(2030, 1, 1)}).changes;
    EXPECT_EQ(changes.size(), 4U);
    for (const SplitChange& one : changes)
        EXPECT_EQ(one.change.after, Variant(2.0));
}

TEST(Split, TellsTheDateThatAFigureLacks) {
    for (const auto& [datum, missing] :
         {std::pair(QEPSSeries, LastQDateForGrid), std::pair(YEPSSeries, LastFYDate),
          std::pair(CurrentPrice, PriceUpdatedDate), std::pair(CommShares, LastQDateForGrid)}) {
        CompanyRecord company;
        if (isSeries(rowOf(datum)))
            test::putElement(company, datum, 0, 4);
        else
            writeNumber(company, datum, 4);
        EXPECT_EQ(splitChanges(company, {{2, 1}, day(2025, 1, 1)}).missingDates,
                  std::vector{missing});
    }
}

TEST(Split, GivesTheExactFigureWhereItHasOne) {
    EXPECT_EQ(afterSplit(0.147, DatumUnit::perShare, {4, 1}), 0.03675);
    EXPECT_EQ(afterSplit(0.3, DatumUnit::perShare, {3, 1}), 0.1);
    EXPECT_EQ(afterSplit(11.91, DatumUnit::perShare, {3, 2}), 7.94);
    EXPECT_EQ(afterSplit(6.13, DatumUnit::perShare, {1, 10}), 61.3);
    EXPECT_EQ(afterSplit(15812.547, DatumUnit::shares, {4, 1}), 63250.188);
    EXPECT_EQ(afterSplit(63250.188, DatumUnit::shares, {1, 4}), 15812.547);
    EXPECT_EQ(afterSplit(-0.7, DatumUnit::perShare, {7, 1}), -0.1);
    EXPECT_EQ(afterSplit(0, DatumUnit::perShare, {7, 1}), 0);
    // As far from fifteen digits as two roundings to binary lead.
    EXPECT_EQ(afterSplit(0.00060245218373462112, DatumUnit::shares, {1, 9}), 6.6939131526069e-05);
    // No short decimal: what is nearest to it, without a rounding to cents.
    EXPECT_EQ(afterSplit(0.1, DatumUnit::perShare, {7, 1}), 0.1 / 7);
    EXPECT_EQ(afterSplit(1, DatumUnit::perShare, {3, 1}), 1.0 / 3);
}

TEST(Split, FiguresOfUpTo15DigitsComeBackByTheInverse) {
    std::mt19937_64 random(20261122);
    std::uniform_int_distribution<int> share(1, 50);
    std::uniform_int_distribution<int> digits(1, 15);
    int others = 0;
    for (int round = 0; round < 1'000'000; ++round) {
        const SplitRatio ratio{share(random), share(random)};
        const auto most = static_cast<std::uint64_t>(std::pow(10.0, digits(random)));
        const std::uint64_t number = std::uniform_int_distribution<std::uint64_t>(1, most)(random);
        const double figure = static_cast<double>(number) / std::pow(10.0, digits(random));
        for (const DatumUnit unit : {DatumUnit::perShare, DatumUnit::shares}) {
            const double back = afterSplit(afterSplit(figure, unit, ratio), unit, ratio.inverse());
            others += back == figure ? 0 : 1;
            ASSERT_NEAR(back, figure, 4e-16 * figure) << splitText(ratio) << ' ' << number;
        }
    }
    EXPECT_LE(others, 20) << "of two millions";
}

TEST(Split, ConcernsWhatEndedBeforeIt) {
    const auto company = sample("AAPL"); // years to 2025-09-27, quarters to 2025-12-27
    const auto changes = changesOf(splitChanges(*company, {{4, 1}, day(2020, 8, 31)}));
    for (const Datum series :
         {YEPSSeries, YDividendSeries, YBookValSeries, YHighSeries, YLowSeries, YCSOSeries}) {
        EXPECT_EQ(find(changes, series, 6), nullptr) << "2020-09-26";
        ASSERT_NE(find(changes, series, 7), nullptr) << "2019-09-27";
        EXPECT_NE(find(changes, series, 11 - 1), nullptr);
    }
    EXPECT_EQ(find(changes, YEPSSeries, 7)->after, Variant(2.97 / 4));
    EXPECT_EQ(find(changes, YCSOSeries, 7)->after, Variant(18595.651 * 4));
    EXPECT_EQ(find(changes, QEPSSeries, 21), nullptr) << "2020-09-27";
    EXPECT_NE(find(changes, QEPSSeries, 22), nullptr) << "2020-06-27";
    for (const DatumChange& one : changes) {
        EXPECT_TRUE(unitOf(one.datum) == DatumUnit::perShare ||
                    unitOf(one.datum) == DatumUnit::shares);
        EXPECT_TRUE(one.element) << "shares and prices of today are on the new basis";
    }
    EXPECT_EQ(changes.size(), 6 * 4 + 13U);
}

TEST(Split, ConcernsTheDayOnWhichAPeriodEndsOnlyWhenItIsOver) {
    CompanyRecord company;
    company.put_LastFYDate(day(2025, 12, 31));
    company.put_YEPSSeries(numberArray({0, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(splitChanges(company, {{2, 1}, day(2025, 12, 31)}).changes.size(), 1U);
    EXPECT_EQ(splitChanges(company, {{2, 1}, day(2026, 1, 1)}).changes.size(), 2U);
}

TEST(Split, ConcernsAFigureOfOne) {
    CompanyRecord company;
    company.put_LastFYDate(day(2025, 12, 31));
    company.put_YEPSSeries(numberArray({0, 1, -1, 0, 0, 0, 0, 0, 0, 0, 0}));
    const auto changes = changesOf(splitChanges(company, {{2, 1}, day(2026, 1, 1)}));
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].after, Variant(0.5));
    EXPECT_EQ(changes[1].after, Variant(-0.5));
}

TEST(Split, GoesByTheDateOfThePriceAndOfTheLastQuarter) {
    const auto company = sample("NVDA");
    company->put_CurrentPrice(180);
    company->put_High52W(212.19);
    company->put_Low52W(86.62);
    company->put_CommDiv(0.04);
    company->put_ORBEPSProj(6);
    company->put_PriceUpdatedDate(day(2026, 5, 20));
    auto changes = changesOf(splitChanges(*company, {{2, 1}, day(2026, 5, 4)}));
    EXPECT_EQ(find(changes, CurrentPrice, {}), nullptr) << "the price is of after the split";
    EXPECT_EQ(find(changes, High52W, {}), nullptr);
    ASSERT_NE(find(changes, CommShares, {}), nullptr) << "the last quarter ended before it";
    EXPECT_EQ(find(changes, CommShares, {})->after, Variant(48400.0));
    EXPECT_EQ(find(changes, CommDiv, {})->after, Variant(0.02));
    EXPECT_EQ(find(changes, ORBEPSProj, {})->after, Variant(3.0));
    company->put_PriceUpdatedDate(day(2026, 5, 3));
    changes = changesOf(splitChanges(*company, {{2, 1}, day(2026, 5, 4)}));
    EXPECT_EQ(find(changes, CurrentPrice, {})->after, Variant(90.0));
    EXPECT_EQ(find(changes, Low52W, {})->after, Variant(43.31));
}

TEST(Split, SaysWhichDatesItMisses) {
    CompanyRecord company;
    company.put_YEPSSeries(numberArray({0, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0}));
    company.put_CurrentPrice(20);
    company.put_CommShares(100);
    const auto split = splitChanges(company, {{2, 1}, day(2026, 1, 1)});
    EXPECT_TRUE(split.changes.empty());
    EXPECT_EQ(split.missingDates,
              (std::vector<Datum>{PriceUpdatedDate, LastQDateForGrid, LastFYDate}));
}

TEST(Split, ConcernsNoFigureThatIsAbsentOrWouldBeTooLarge) {
    CompanyRecord company;
    const Split split{{4, 1}, day(2026, 1, 1)};
    EXPECT_TRUE(splitChanges(company, split).missingDates.empty());
    company.put_LastQDateForGrid(day(2025, 12, 31));
    company.put_CommShares(1e308);
    EXPECT_TRUE(splitChanges(company, split).changes.empty());
}

// A record that listens to actions.
class Listening final : public CompanyBase, public ActionListener {
  public:
    [[nodiscard]] Variant get_YEPSSeries() const override { return series; }
    void put_YEPSSeries(const Variant& value) override { series = value; }
    [[nodiscard]] Variant get_YLowSeries() const override { return series; }
    void put_YLowSeries(const Variant&) override {
        if (refuses)
            throw std::invalid_argument("No lows.");
    }
    [[nodiscard]] Date get_LastFYDate() const override { return day(2025, 12, 31); }
    void beginAction(const Action& action) override { actions.push_back(action); }
    void endAction() noexcept override { ++ended; }

    Variant series = numberArray({0, 2, 3});
    bool refuses = false;
    std::vector<Action> actions;
    int ended = 0;
};

TEST(Split, IsOneActionAllOrNone) {
    const auto company = std::make_shared<Listening>();
    const auto before = company->series;
    const auto changes = changesOf(splitChanges(*company, {{4, 1}, day(2026, 1, 1)}));
    ASSERT_EQ(changes.size(), 4U);
    company->refuses = true;
    EXPECT_EQ(apply(company, {4, 1}, changes), "No lows.");
    EXPECT_EQ(company->series, before);
    company->refuses = false;
    EXPECT_EQ(apply(company, {4, 1}, changes), std::nullopt);
    EXPECT_EQ(elementOf(*company, YEPSSeries, 2), 0.75);
    ASSERT_EQ(company->actions.size(), 2U);
    EXPECT_EQ(company->ended, 2);
    EXPECT_EQ(company->actions[1].name, "Split 4:1");
    EXPECT_EQ(company->actions[1].origin, Origin::adjusted);
}

TEST(Split, AndItsInverseGiveBackEachSampleBitForBit) {
    for (const char* symbol : {"AAPL", "NVDA", "TSLA", "SNOW"})
        for (const SplitRatio ratio : {SplitRatio{4, 1}, {3, 2}, {1, 10}, {7, 1}, {1, 3}}) {
            const auto company = sample(symbol);
            const auto before = company->clone();
            for (const SplitRatio& one : {ratio, ratio.inverse()}) {
                const auto split = splitChanges(*company, {one, day(2022, 1, 5)});
                EXPECT_FALSE(split.changes.empty());
                EXPECT_TRUE(std::ranges::none_of(split.changes, &SplitChange::isInexact) ||
                            one == ratio.inverse());
                EXPECT_EQ(apply(company, one, changesOf(split)), std::nullopt);
            }
            EXPECT_TRUE(differences(*before, *company).empty()) << symbol << splitText(ratio);
        }
}

// Figures of before a split that nobody adjusted are odd, and are not after it.
TEST(Split, SettlesWhatTheChecksSayOfFiguresBeforeIt) {
    const auto company = sample("AAPL");
    const auto asFiled = splitChanges(*company, {{1, 4}, day(2020, 8, 31)});
    EXPECT_EQ(apply(company, {1, 4}, changesOf(asFiled)), std::nullopt);
    const auto findings = companyFindings(*company);
    EXPECT_TRUE(
        std::ranges::any_of(findings, [](const Finding& one) { return one.rule == "split-step"; }));
    const auto adjusted = splitChanges(*company, {{4, 1}, day(2020, 8, 31)});
    EXPECT_EQ(apply(company, {4, 1}, changesOf(adjusted)), std::nullopt);
    EXPECT_TRUE(companyFindings(*company).empty());
}

} // namespace
} // namespace vkr
