// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "tests/support/dates.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/random_company.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vkr {
namespace {

using test::day;

Variant setting(const iVKR_Company& company, std::string_view name) {
    return company.get_Settings()->get(name);
}

TEST(CompanyRecord, StartsEmpty) {
    const CompanyRecord company;
    for (const DatumRow& row : datumTable()) {
        SCOPED_TRACE(row.name);
        const Variant value = readDatum(company, row.datum);
        if (isSeries(row)) {
            const auto& series = value.array();
            EXPECT_EQ(series.lower(), 0);
            EXPECT_EQ(series.upper(), row.name.front() == 'Y' ? 10 : 34);
            ASSERT_NE(series.numbers(), nullptr);
            for (const double element : *series.numbers())
                EXPECT_EQ(element, 0);
        } else {
            EXPECT_EQ(value.varType() == Variant::vtString ? value.toText().size()
                                                           : std::size_t(value.toDouble() != 0),
                      0U);
        }
    }
    EXPECT_EQ(setting(company, setting::unit), Variant(std::int16_t{0}));
    EXPECT_EQ(setting(company, setting::leadPeriod), Variant(std::int16_t{-1}));
    EXPECT_EQ(setting(company, setting::currencySymbol), Variant(""));
    for (const auto flag : {setting::bookValue, setting::taxRate, setting::lockBasicInfo})
        EXPECT_EQ(setting(company, flag), Variant(false));
}

TEST(CompanyRecord, KeepsEachDatumApart) {
    for (const DatumRow& written : datumTable()) {
        SCOPED_TRACE(written.name);
        CompanyRecord company;
        struct Sample {
            Variant operator()(const TextAccess&) const { return "Ä \"text\""; }
            Variant operator()(const NumberAccess&) const { return 0.1 + 0.2; }
            Variant operator()(const YearAccess&) const { return std::int16_t{2024}; }
            Variant operator()(const DateAccess&) const { return day(2024, 2, 29); }
            Variant operator()(const SeriesAccess&) const { return Variant(); }
        };
        Variant value = std::visit(Sample{}, written.access);
        if (isSeries(written)) {
            value = readSeries(company, written.datum);
            value.array().setNumber(3, -1234.5678);
        }
        writeDatum(company, written.datum, value);
        EXPECT_EQ(company.stored(written.datum), value);
        EXPECT_EQ(readDatum(company, written.datum), value);
        const CompanyRecord empty;
        for (const DatumRow& other : datumTable())
            if (other.datum != written.datum) {
                EXPECT_EQ(company.stored(other.datum), empty.stored(other.datum)) << other.name;
            }
    }
}

TEST(CompanyRecord, TakesTheYearFromTheDateWhileNoYearWasSet) {
    CompanyRecord company;
    company.put_LastFYDate(day(2025, 9, 27));
    EXPECT_EQ(company.get_LastFY(), 2025);
    company.put_LastFY(2024);
    EXPECT_EQ(company.get_LastFY(), 2024);
    company.put_LastFY(0);
    EXPECT_EQ(company.get_LastFY(), 2025);
}

TEST(CompanyRecord, ReadsTheQuarterDateThatWasSetFromBothProperties) {
    CompanyRecord one;
    one.put_LastQDate(day(2025, 12, 27));
    EXPECT_EQ(one.get_LastQDateForGrid(), day(2025, 12, 27));

    CompanyRecord other;
    other.put_LastQDateForGrid(day(2025, 6, 30));
    EXPECT_EQ(other.get_LastQDate(), day(2025, 6, 30));
    other.put_LastQDate(day(2025, 3, 31));
    EXPECT_EQ(other.get_LastQDate(), day(2025, 3, 31));
    EXPECT_EQ(other.get_LastQDateForGrid(), day(2025, 6, 30));
}

TEST(CompanyRecord, KeepsTheDayOfADate) {
    CompanyRecord company;
    company.put_LastUpdate(*atTime(day(2024, 12, 31), {23, 59, 0}));
    EXPECT_EQ(company.get_LastUpdate(), day(2024, 12, 31));
    company.put_LastUpdate(*atTime(day(1850, 1, 2), {18, 30, 0}));
    EXPECT_EQ(company.get_LastUpdate(), day(1850, 1, 2));
    company.put_LastUpdate(Date{std::numeric_limits<double>::quiet_NaN()});
    EXPECT_EQ(company.get_LastUpdate(), Date{});
}

TEST(CompanyRecord, RefusesWhatItCannotGiveBackAndKeepsWhatItHad) {
    CompanyRecord company;
    company.put_Name("kept");
    company.put_CurrentPrice(12.5);
    company.put_LastUpdate(day(2024, 1, 1));
    for (const char* broken : {"\xff", "a\xc3", "\xed\xa0\x80", "\xc0\x80", "\xf4\x90\x80\x80"})
        EXPECT_THROW(company.put_Name(broken), std::invalid_argument);
    for (const double figure :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_THROW(company.put_CurrentPrice(figure), std::invalid_argument);
    for (const double serial : {-1e9, 1e9, 1e300})
        EXPECT_THROW(company.put_LastUpdate(Date{serial}), std::invalid_argument);
    EXPECT_EQ(company.get_Name(), "kept");
    EXPECT_EQ(company.get_CurrentPrice(), 12.5);
    EXPECT_EQ(company.get_LastUpdate(), day(2024, 1, 1));
}

TEST(CompanyRecord, TakesTheDaysOfFourDigitYears) {
    CompanyRecord company;
    for (const Date first : {day(100, 1, 1), *atTime(day(9999, 12, 31), {23, 59, 59})})
        EXPECT_NO_THROW(company.put_LastUpdate(first));
    EXPECT_EQ(company.get_LastUpdate(), day(9999, 12, 31));
    for (const double serial : {day(100, 1, 1).serial - 1, day(9999, 12, 31).serial + 1})
        EXPECT_THROW(company.put_LastUpdate(Date{serial}), std::invalid_argument) << serial;
}

TEST(CompanyRecord, HasOneZero) {
    CompanyRecord company;
    company.put_TaxRate(-0.0);
    EXPECT_FALSE(std::signbit(company.get_TaxRate()));
}

TEST(CompanyRecord, TakesSeriesOfItsOwnBoundsOnly) {
    struct Row {
        const char* title;
        Variant series;
    };
    const Row rows[] = {
        {"one too few", numberArray(std::vector<double>(10))},
        {"one too many", numberArray(std::vector<double>(12))},
        {"shifted", numberArray(std::vector<double>(11), 1)},
        {"quarterly", numberArray(std::vector<double>(35))},
        {"no array", 5.0},
        {"nothing", Variant()},
        {"not finite", numberArray(std::vector<double>(11, std::nan("")))},
    };
    CompanyRecord company;
    test::putElement(company, Datum::YEPSSeries, 10, 1.25);
    const Variant held = company.get_YEPSSeries();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        EXPECT_THROW(company.put_YEPSSeries(row.series), std::invalid_argument);
        EXPECT_EQ(company.get_YEPSSeries(), held);
    }
}

TEST(CompanyRecord, TakesSeriesOfMixedItemsAsNumbers) {
    CompanyRecord company;
    std::vector<Variant> items(11);
    items[1] = "12.5";
    items[2] = std::int32_t{7};
    company.put_YEPSSeries(VariantArray(0, items));
    const Variant held = company.get_YEPSSeries();
    ASSERT_NE(held.array().numbers(), nullptr);
    EXPECT_EQ(held.array().number(1), 12.5);
    EXPECT_EQ(held.array().number(2), 7);
    EXPECT_EQ(held.array().number(3), 0);
}

TEST(CompanyRecord, SettingsAnswerToTheirNamesInAnyCase) {
    const CompanyRecord company;
    const auto settings = company.get_Settings();
    settings->put("INTUNIT", std::int16_t{9});
    EXPECT_EQ(settings->get("intunit").toLong(), 9);
    settings->put("strcursymbol", "€");
    EXPECT_EQ(settings->get(setting::currencySymbol).toText(), "€");
    settings->put("blnLOCKBasicInfo", std::int16_t{-1});
    EXPECT_EQ(settings->get(setting::lockBasicInfo), Variant(true));
}

TEST(CompanyRecord, SettingsRefuseOtherNamesAndKinds) {
    const CompanyRecord company;
    const auto settings = company.get_Settings();
    for (const char* name : {"", "unit", "intUnits", "Name"}) {
        EXPECT_THROW(static_cast<void>(settings->get(name)), std::invalid_argument) << name;
        EXPECT_THROW(settings->put(name, 1), std::invalid_argument) << name;
    }
    EXPECT_THROW(settings->put(setting::unit, "many"), std::invalid_argument);
    for (const int whole : {-32768, 32767})
        EXPECT_NO_THROW(settings->put(setting::unit, whole));
    for (const int whole : {-32769, 32768, 40000})
        EXPECT_THROW(settings->put(setting::unit, whole), std::overflow_error) << whole;
    EXPECT_EQ(settings->get(setting::unit).toLong(), 32767);
    settings->put(setting::unit, Variant());
    EXPECT_THROW(settings->put(setting::bookValue, "perhaps"), std::invalid_argument);
    EXPECT_EQ(settings->get(setting::unit).toLong(), 0);
}

TEST(CompanyRecord, ReportingPeriodAndSettingsHoldTheSameLeadPeriod) {
    const CompanyRecord company;
    const auto period = company.get_ReportingPeriod();
    period->put("IntLeadPeriod", std::int16_t{3});
    EXPECT_EQ(setting(company, setting::leadPeriod).toLong(), 3);
    EXPECT_THROW(static_cast<void>(period->get(setting::unit)), std::invalid_argument);
    EXPECT_THROW(period->put(setting::unit, 3), std::invalid_argument);
}

TEST(CompanyRecord, SettingsOutliveTheirRecord) {
    std::shared_ptr<Object> period;
    {
        const CompanyRecord company;
        period = company.get_ReportingPeriod();
    }
    period->put(setting::leadPeriod, std::int16_t{2});
    EXPECT_EQ(period->get(setting::leadPeriod).toLong(), 2);
}

TEST(CompanyRecord, CloneSharesNothing) {
    const auto original = test::RandomCompany(1).record();
    const auto before = original->clone();
    const auto copy = original->clone();
    EXPECT_TRUE(sameAs(*original, *copy));
    copy->put_Name("changed");
    test::putElement(*copy, Datum::QEPSSeries, 0, 99);
    copy->get_Settings()->put(setting::unit, std::int16_t{99});
    copy->get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{99});
    EXPECT_TRUE(sameAs(*original, *before));
    EXPECT_EQ(differences(*original, *copy).size(), 4U);
}

TEST(CompanyRecord, NamesEachDifference) {
    CompanyRecord before;
    before.put_CurrentPrice(0.1);
    before.put_LastUpdate(day(2025, 1, 31));
    before.put_Notes("old");
    const auto after = before.clone();
    after->put_CurrentPrice(std::nextafter(0.1, 1));
    after->put_LastUpdate(Date{});
    after->put_Notes("new");
    test::putElement(*after, Datum::YEPSSeries, 2, -1.5);
    after->get_Settings()->put(setting::lockBasicInfo, true);
    after->get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{0});

    const std::vector<Difference> expected = {
        {"CurrentPrice", std::nullopt, "0.1", "0.10000000000000002"},
        {"LastUpdate", std::nullopt, "2025-01-31", ""},
        {"Notes", std::nullopt, "old", "new"},
        {"YEPSSeries", 2, "0", "-1.5"},
        {"intLeadPeriod", std::nullopt, "-1", "0"},
        {"blnLockBasicInfo", std::nullopt, "False", "True"},
    };
    EXPECT_EQ(differences(before, *after), expected);
    EXPECT_TRUE(differences(before, before).empty());
}

// Of a host's own record, whose series have other bounds.
TEST(CompanyRecord, NamesEachElementThatOneOfTwoSeriesLacks) {
    class Host final : public CompanyBase {
      public:
        explicit Host(Variant earnings) : earnings_(std::move(earnings)) {}
        [[nodiscard]] Variant get_YEPSSeries() const override { return earnings_; }

      private:
        Variant earnings_;
    };
    using Differences = std::vector<Difference>;
    const Host one(numberArray({1, 2, 3}, 1));
    EXPECT_EQ(differences(one, Host(numberArray({9, 1, 2, 4}, 0))),
              (Differences{{"YEPSSeries", 0, "", "9"}, {"YEPSSeries", 3, "3", "4"}}));
    EXPECT_EQ(differences(one, Host(numberArray({2, 3, 5}, 2))),
              (Differences{{"YEPSSeries", 1, "1", ""}, {"YEPSSeries", 4, "", "5"}}));
    EXPECT_EQ(differences(one, Host(5.0)), (Differences{{"YEPSSeries", std::nullopt, "", "5"}}));
    EXPECT_EQ(differences(Host(5.0), one), (Differences{{"YEPSSeries", std::nullopt, "5", ""}}));
    EXPECT_TRUE(sameAs(one, Host(numberArray({1, 2, 3}, 1))));
}

TEST(CompanyRecord, IgnoresTheCallsAroundAShiftOfYears) {
    const auto company = test::RandomCompany(2).record();
    const auto before = company->clone();
    company->put_QuarterlyFlag(std::int16_t{1});
    EXPECT_TRUE(company->BeginYearShift(0).isEmpty());
    EXPECT_TRUE(company->YearShiftState(0).isEmpty());
    EXPECT_TRUE(company->YearShiftUnit(0).isEmpty());
    EXPECT_TRUE(company->EndYearShift(0).isEmpty());
    EXPECT_TRUE(company->get_SettingsApply().isEmpty());
    EXPECT_TRUE(company->get_ReportingPeriodEnd().isEmpty());
    EXPECT_TRUE(company->get_YearShiftFirst().isEmpty());
    EXPECT_TRUE(company->get_YearShiftLast().isEmpty());
    EXPECT_TRUE(company->get_YearShiftCount().isEmpty());
    EXPECT_TRUE(company->get_YearShiftPrices().isEmpty());
    EXPECT_TRUE(company->get_YearShiftEarnings().isEmpty());
    EXPECT_TRUE(company->get_YearShiftDividends().isEmpty());
    EXPECT_TRUE(company->get_YearShiftShares().isEmpty());
    EXPECT_TRUE(sameAs(*company, *before));
}

TEST(CompanyRecord, IsCreatedByTheFactory) {
    ObjectFactory factory;
    EXPECT_EQ(factory.create(companyRecordId), nullptr);
    registerCompanyRecord(factory);
    const auto made = std::dynamic_pointer_cast<CompanyRecord>(factory.create(companyRecordId));
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(sameAs(*made, CompanyRecord()));
}

} // namespace
} // namespace vkr
