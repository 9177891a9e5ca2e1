// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"
#include "company/company_record.hpp"
#include "company/record_snapshot.hpp"
#include "record/setting_table.hpp"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <span>

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

TEST(RecordSnapshot, CountsFromOneYearWhateverADatumThatIsNoSeriesBecomes) {
    const auto one = with({{Datum::LastFY, std::int16_t{2024}},
                           {Datum::LastQDateForGrid, *makeDate(2024, 9, 28)},
                           {Datum::YEPSSeries, numberArray({0, 1, 2})}});
    Change price;
    price.datum = Datum::CurrentPrice;
    price.after = numberArray({1, 2});
    EXPECT_TRUE(countedFrom(one, one, {price}));
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

// Each price or dividend that is written empties the one in front of it.
struct Emptying final : CompanyBase {
    using Figures = std::array<double, 4>;
    explicit Emptying(const Figures& figures) : held(figures) {}
    [[nodiscard]] double get_CurrentPrice() const override { return held[0]; }
    void put_CurrentPrice(double value) override { held[0] = value; }
    [[nodiscard]] double get_CommDiv() const override { return held[1]; }
    void put_CommDiv(double value) override { write(1, value); }
    [[nodiscard]] double get_High52W() const override { return held[2]; }
    void put_High52W(double value) override { write(2, value); }
    [[nodiscard]] double get_Low52W() const override { return held[3]; }
    void put_Low52W(double value) override { write(3, value); }
    void put_TotalDebt(double value) override {
        held = {9, 9, 9, held[3]};
        CompanyBase::put_TotalDebt(value); // throws
    }
    void write(std::size_t at, double value) {
        held[at - 1] = 0;
        held[at] = value;
    }
    Figures held;
};

TEST(RecordSnapshot, FiguresThatStillEmptyEachOtherTheThirdTimeAreRefused) {
    const auto change = [](Datum datum, double figure) {
        Change one;
        one.datum = datum;
        one.after = figure;
        return one;
    };
    const Change changes[] = {change(Datum::CurrentPrice, 1), change(Datum::CommDiv, 2),
                              change(Datum::High52W, 3), change(Datum::Low52W, 4)};
    Emptying three({});
    EXPECT_EQ(putChanges(three, std::span(changes).first(3)), std::nullopt);
    EXPECT_EQ(three.held, (Emptying::Figures{1, 2, 3, 0}));
    Emptying four({});
    EXPECT_TRUE(putChanges(four, changes));
    EXPECT_EQ(four.held, Emptying::Figures());
}

TEST(RecordSnapshot, IsBroughtBackAsFarAsWritingTwiceLeads) {
    Change debt;
    debt.datum = Datum::TotalDebt;
    debt.after = 5.0;
    Emptying two({0, 2, 3, 0});
    EXPECT_TRUE(putChanges(two, std::span(&debt, 1)));
    EXPECT_EQ(two.held, (Emptying::Figures{0, 2, 3, 0}));
    Emptying three({1, 2, 3, 0});
    EXPECT_TRUE(putChanges(three, std::span(&debt, 1)));
    EXPECT_EQ(three.held, (Emptying::Figures{0, 2, 3, 0}));
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
