// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"
#include "company/company_record.hpp"
#include "company/record_snapshot.hpp"
#include "record/setting_table.hpp"

#include <gtest/gtest.h>
#include <limits>

namespace vkr {
namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

TEST(RecordSnapshot, AFigureThatIsNoNumberIsTheSameAsAnother) {
    EXPECT_TRUE(isSame(noNumber, noNumber));
    EXPECT_FALSE(isSame(noNumber, 1.0));
    EXPECT_FALSE(isSame(1.0, noNumber));
    const Variant series = numberArray({1, noNumber, 3});
    EXPECT_TRUE(isSame(series, numberArray({1, noNumber, 3})));
    EXPECT_FALSE(isSame(series, numberArray({2, noNumber, 3})));
    EXPECT_FALSE(isSame(series, numberArray({1, noNumber, 4})));
    EXPECT_FALSE(isSame(series, numberArray({1, 2, 3})));
    EXPECT_FALSE(isSame(series, numberArray({1, noNumber})));
    EXPECT_FALSE(isSame(series, noNumber));
}

RecordSnapshot with(std::initializer_list<std::pair<Datum, Variant>> values) {
    RecordSnapshot all;
    for (const auto& [datum, value] : values)
        all[static_cast<std::size_t>(datum)] = value;
    return all;
}

// A record of a host may give what is no series in place of one.
TEST(RecordSnapshot, ASeriesThatHasBecomeSomethingElseIsOneChange) {
    const Variant series = numberArray({1, 2});
    for (const auto& [from, to] : {std::pair(series, Variant(1.0)), std::pair(Variant(1.0), series),
                                   std::pair(series, numberArray({1, 2, 3}))}) {
        const auto changes =
            changesBetween(with({{Datum::YEPSSeries, from}}), with({{Datum::YEPSSeries, to}}));
        ASSERT_EQ(changes.size(), 1U);
        EXPECT_EQ(changes[0].element, std::nullopt);
        EXPECT_EQ(changes[0].before, from);
        EXPECT_EQ(changes[0].after, to);
    }
}

TEST(RecordSnapshot, CountsFromTheLastYearAndQuarterWhereBothCanBeRead) {
    const std::pair<Datum, Variant> year{Datum::LastFY, std::int16_t{2024}};
    const std::pair<Datum, Variant> quarter{Datum::LastQDateForGrid, *makeDate(2024, 9, 28)};
    const RecordSnapshot both = with({year, quarter});
    EXPECT_EQ(countedFrom(both, both, {}),
              (CountedFrom{{2024, *makeDate(2024, 9, 28)}, {2024, *makeDate(2024, 9, 28)}}));
    for (const RecordSnapshot& one : {with({year}), with({quarter}), with({})}) {
        EXPECT_EQ(countedFrom(one, both, {}), std::nullopt);
        EXPECT_EQ(countedFrom(both, one, {}), std::nullopt);
    }
}

TEST(RecordSnapshot, CountsFromOneYearWhereTheOnlySeriesIsMoved) {
    const Variant before = numberArray({0, 1, 2});
    const Variant after = numberArray({0, 0, 1});
    const std::pair<Datum, Variant> quarter{Datum::LastQDateForGrid, *makeDate(2024, 9, 28)};
    const auto from =
        with({{Datum::LastFY, std::int16_t{2024}}, quarter, {Datum::YEPSSeries, before}});
    const auto to =
        with({{Datum::LastFY, std::int16_t{2025}}, quarter, {Datum::YEPSSeries, after}});
    Change move;
    move.datum = Datum::YEPSSeries;
    move.before = before;
    move.after = after;
    EXPECT_TRUE(countedFrom(from, to, {move}));
    move.datum = Datum::YRevenueSeries;
    EXPECT_FALSE(countedFrom(from, to, {move}));
}

// Shows the same year whatever is written.
struct Unmoved final : CompanyBase {
    explicit Unmoved(int year) : end(*makeDate(year, 9, 28)) {}
    [[nodiscard]] std::int16_t get_LastFY() const override { return 2024; }
    void put_LastFY(std::int16_t) override {}
    [[nodiscard]] Date get_LastFYDate() const override { return end; }
    [[nodiscard]] Date get_LastQDate() const override { return end; }
    void put_LastQDate(Date) override {}
    [[nodiscard]] Date get_LastQDateForGrid() const override { return *makeDate(2024, 9, 28); }
    Date end;
};

TEST(RecordSnapshot, AYearIsAbsentWhereTheDateAnswersForIt) {
    struct Row {
        int dated;
        std::int16_t year;
        bool isTaken;
    };
    for (const Row& row :
         {Row{2024, 0, true}, Row{2024, 2023, false}, Row{2025, 0, false}, Row{2025, 2024, true}}) {
        Unmoved company(row.dated);
        Change year;
        year.datum = Datum::LastFY;
        year.before = std::int16_t{2024};
        year.after = row.year;
        EXPECT_EQ(putChanges(company, std::vector{year}) == std::nullopt, row.isTaken)
            << row.dated << ' ' << row.year;
    }
}

TEST(RecordSnapshot, ADateOfTheQuartersIsAbsentWhereTheOtherOneAnswersForIt) {
    struct Row {
        int dated;
        Date after;
        bool isTaken;
    };
    for (const Row& row :
         {Row{2024, {}, true}, Row{2024, *makeDate(2023, 9, 28), false}, Row{2025, {}, false}}) {
        Unmoved company(row.dated);
        Change date;
        date.datum = Datum::LastQDate;
        date.before = company.end;
        date.after = row.after;
        EXPECT_EQ(putChanges(company, std::vector{date}) == std::nullopt, row.isTaken) << row.dated;
    }
}

// Takes the year from a date that is written.
struct DatedYear final : CompanyBase {
    [[nodiscard]] std::int16_t get_LastFY() const override { return year; }
    void put_LastFY(std::int16_t value) override { year = value; }
    [[nodiscard]] Date get_LastFYDate() const override { return end; }
    void put_LastFYDate(Date value) override {
        end = value;
        year = static_cast<std::int16_t>(civil(value).year);
    }
    std::int16_t year = 2024;
    Date end = *makeDate(2025, 1, 3);
};

TEST(RecordSnapshot, AYearComesBackThoughItsDateMovesIt) {
    DatedYear company;
    Change date;
    date.datum = Datum::LastFYDate;
    date.before = company.end;
    date.after = *makeDate(2026, 1, 2);
    Change unit;
    unit.setting = setting::unit;
    unit.after = "many";
    EXPECT_TRUE(putChanges(company, std::vector{date, unit}));
    EXPECT_EQ(company.year, 2024);
    EXPECT_EQ(company.end, *makeDate(2025, 1, 3));
}

TEST(RecordSnapshot, SettingsComeBackWhereALaterOneIsRefused) {
    CompanyRecord company;
    company.get_Settings()->put(setting::currencySymbol, "EUR");
    Change symbol;
    symbol.setting = setting::currencySymbol;
    symbol.after = "CHF";
    Change unit;
    unit.setting = setting::unit;
    unit.after = "many";
    EXPECT_TRUE(putChanges(company, std::vector{symbol, unit}));
    EXPECT_EQ(company.get_Settings()->get(setting::currencySymbol), Variant("EUR"));
}

} // namespace
} // namespace vkr
