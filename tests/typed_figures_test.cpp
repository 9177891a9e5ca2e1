// SPDX-License-Identifier: MIT
#include "company/typed_figures.hpp"
#include "record/setting_table.hpp"
#include "tests/support/dates.hpp"
#include "tests/support/elements.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

using test::day;
using test::elementOf;
using test::putElement;

class TypedFigures : public testing::Test {
  protected:
    TypedFigures() {
        for (CompanyRecord* record : {&stored, &imported})
            record->put_LastFY(2024);
        putElement(stored, Datum::YRevenueSeries, 1, 391000);
        putElement(imported, Datum::YRevenueSeries, 1, 391035);
    }
    [[nodiscard]] std::vector<ReplacedFigure> found() const {
        return typedFigures(stored, origins, imported);
    }
    CompanyRecord stored;
    CompanyRecord imported;
    FigureOrigins origins;
};

TEST_F(TypedFigures, AreThoseThatAreTypedPastedAdjustedOrOfUnknownOrigin) {
    ASSERT_EQ(found().size(), 1U) << "nobody knows";
    EXPECT_EQ(describe(found().front()), "Yearly Revenue 2024: 391000, not 391035");
    for (const Origin origin : {Origin::typed, Origin::pasted, Origin::adjusted}) {
        origins.put(Datum::YRevenueSeries, 1, {origin, "", false});
        EXPECT_EQ(found().size(), 1U);
    }
    for (const Origin origin : {Origin::imported, Origin::derived}) {
        origins.put(Datum::YRevenueSeries, 1, {origin, "", false});
        EXPECT_TRUE(found().empty());
    }
}

TEST_F(TypedFigures, AreNotWhatTheImportHasAsWell) {
    putElement(imported, Datum::YRevenueSeries, 1, 391000);
    EXPECT_TRUE(found().empty());
}

TEST_F(TypedFigures, ThatAreKeptStandAtTheirPeriod) {
    stored.put_LastFY(2023); // the import has a year more
    stored.put_City("Graz");
    imported.put_City("Linz");
    putElement(stored, Datum::YRevenueSeries, 1, 383000);
    putElement(imported, Datum::YRevenueSeries, 2, 383285);
    putElement(stored, Datum::YRevenueSeries, 10, 1);
    const auto typed = found();
    ASSERT_EQ(typed.size(), 3U);
    EXPECT_EQ(describe(typed[0]), "Yearly Revenue 2023: 383000, not 383285");
    EXPECT_EQ(describe(typed[1]), "Yearly Revenue 2014: 1, too old for the table");
    EXPECT_EQ(describe(typed[2]), "City: Graz, not Linz");
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::YRevenueSeries, 1), 391035);
    EXPECT_EQ(elementOf(imported, Datum::YRevenueSeries, 2), 383000);
    EXPECT_EQ(imported.get_City(), "Graz");
    EXPECT_EQ(imported.get_LastFY(), 2024);
}

TEST_F(TypedFigures, AreNotDataThatNobodyHasEnteredOrThatAreTheSame) {
    putElement(imported, Datum::YRevenueSeries, 1, 391000);
    imported.put_City("Linz");
    for (CompanyRecord* record : {&stored, &imported})
        record->put_Industry("Mining");
    EXPECT_TRUE(found().empty());
}

TEST_F(TypedFigures, OfTheYearAheadStandInTheTableWhereItStaysAhead) {
    putElement(imported, Datum::YRevenueSeries, 1, 391000);
    putElement(stored, Datum::YRevenueSeries, 0, 400000);
    ASSERT_EQ(found().size(), 1U);
    EXPECT_EQ(describe(found()[0]), "Yearly Revenue 2025: 400000, not nothing");
}

TEST_F(TypedFigures, ThatANothingWouldReplaceAreTold) {
    putElement(imported, Datum::YRevenueSeries, 1, 0);
    EXPECT_EQ(describe(found().at(0)), "Yearly Revenue 2024: 391000, not nothing");
    EXPECT_EQ(found().at(0).imported, "");
}

TEST_F(TypedFigures, ThatAreTickedGoByLeavingThemOut) {
    stored.put_City("Graz");
    imported.put_City("Linz");
    auto typed = found();
    ASSERT_EQ(typed.size(), 2U);
    typed.pop_back();
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::YRevenueSeries, 1), 391000);
    EXPECT_EQ(imported.get_City(), "Linz");
}

class TypedFiguresOfEmptyRecords : public testing::Test {
  protected:
    [[nodiscard]] std::vector<ReplacedFigure> found() const {
        return typedFigures(stored, {}, imported);
    }
    CompanyRecord stored;
    CompanyRecord imported;
};

TEST_F(TypedFiguresOfEmptyRecords, OfQuartersStandAtTheirQuarter) {
    stored.put_LastQDate(day(2025, 6, 30));
    imported.put_LastQDate(day(2025, 12, 31)); // two quarters more
    putElement(stored, Datum::QEPSSeries, 0, 1.1);
    putElement(stored, Datum::QEPSSeries, 3, 1.4);
    putElement(stored, Datum::QEPSSeries, 32, 0.7);
    putElement(stored, Datum::QEPSSeries, 33, 0.8);
    putElement(imported, Datum::QEPSSeries, 2, 1.15);
    putElement(imported, Datum::QEPSSeries, 5, 1.4);
    const auto typed = found();
    ASSERT_EQ(typed.size(), 3U);
    EXPECT_EQ(describe(typed[0]), "Quarterly Earnings Per Share 2025-06-30: 1.1, not 1.15");
    EXPECT_EQ(describe(typed[1]), "Quarterly Earnings Per Share 2017-06-30: 0.7, not nothing");
    EXPECT_EQ(describe(typed[2]),
              "Quarterly Earnings Per Share 2017-03-31: 0.8, too old for the table");
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 0), 0);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 2), 1.1);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 34), 0.7);
}

TEST_F(TypedFiguresOfEmptyRecords, LeaveTheTableOfAnOlderImportAtItsNewEnd) {
    stored.put_LastQDate(day(2025, 12, 31));
    imported.put_LastQDate(day(2025, 9, 30));
    putElement(stored, Datum::QEPSSeries, 0, 1.2);
    putElement(stored, Datum::QEPSSeries, 1, 1.1);
    const auto typed = found();
    ASSERT_EQ(typed.size(), 2U);
    EXPECT_EQ(describe(typed[0]),
              "Quarterly Earnings Per Share 2025-12-31: 1.2, after the last quarter of the "
              "import");
    EXPECT_EQ(describe(typed[1]), "Quarterly Earnings Per Share 2025-09-30: 1.1, not nothing");
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 0), 1.1);
}

// The place of the year ahead is on no form.
TEST_F(TypedFiguresOfEmptyRecords, OfYearsLeaveTheTableOfAnOlderImportAtItsNewEnd) {
    stored.put_LastFY(2025);
    imported.put_LastFY(2024);
    putElement(stored, Datum::YEPSSeries, 0, 9); // ahead already
    putElement(stored, Datum::YEPSSeries, 1, 8);
    putElement(stored, Datum::YEPSSeries, 2, 7);
    const auto typed = found();
    ASSERT_EQ(typed.size(), 3U);
    EXPECT_EQ(describe(typed[0]),
              "Yearly Earnings Per Share 2026: 9, after the last year of the import");
    EXPECT_EQ(describe(typed[1]),
              "Yearly Earnings Per Share 2025: 8, after the last year of the import");
    EXPECT_FALSE(typed[2].leavesTheTable());
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 0), 8); // back where a year is added
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 1), 7);

    stored.put_LastFY(2023);
    EXPECT_FALSE(found().front().leavesTheTable()) << "ahead before, shown now";
}

TEST_F(TypedFiguresOfEmptyRecords, AreSettingsThatAPersonHasChosen) {
    stored.get_Settings()->put(setting::currencySymbol, std::string("CHF"));
    imported.get_Settings()->put(setting::currencySymbol, std::string("EUR"));
    imported.get_Settings()->put(setting::taxRate, true); // nobody has chosen "no"
    imported.put_Exchange("NYSE");
    const auto typed = found();
    ASSERT_EQ(typed.size(), 1U);
    EXPECT_EQ(describe(typed[0]), "Currency Symbol: CHF, not EUR");
    keepFigures(stored, typed, imported);
    EXPECT_EQ(imported.get_Settings()->get(setting::currencySymbol).toText(), "CHF");
    EXPECT_TRUE(imported.get_Settings()->get(setting::taxRate).toBoolean());
    EXPECT_EQ(imported.get_Exchange(), "NYSE");
}

TEST_F(TypedFigures, AreSettingsThatNoImportHasBrought) {
    putElement(imported, Datum::YRevenueSeries, 1, 391000);
    stored.get_Settings()->put(setting::unit, 1);
    for (const Origin origin : {Origin::imported, Origin::derived}) {
        origins.putSetting(setting::unit, {origin, "", false});
        EXPECT_TRUE(found().empty());
    }
    origins.putSetting(setting::unit, {Origin::typed, "", false});
    origins.putSetting(setting::taxRate, {Origin::typed, "", false}); // "no" is chosen, too
    imported.get_Settings()->put(setting::taxRate, true);
    EXPECT_EQ(found().size(), 2U);
}

TEST_F(TypedFiguresOfEmptyRecords, WithoutDatesKeepTheirPlaces) {
    const auto check = [&](const char* year, const char* quarter) {
        const auto typed = found();
        ASSERT_EQ(typed.size(), 2U);
        EXPECT_EQ(describe(typed[0]),
                  std::string("Quarterly Earnings Per Share ") + quarter + ": 1.2, not nothing");
        EXPECT_EQ(describe(typed[1]),
                  std::string("Yearly Earnings Per Share ") + year + ": 4.5, not nothing");
    };
    putElement(stored, Datum::QEPSSeries, 3, 1.2);
    putElement(stored, Datum::YEPSSeries, 2, 4.5);
    check("(2)", "(3)");
    imported.put_LastFY(2025);
    imported.put_LastQDate(day(2025, 12, 31));
    check("(2)", "(3)");
    stored.put_LastFY(2024);
    stored.put_LastQDate(day(2024, 12, 31));
    imported.put_LastFY(0);
    imported.put_LastQDate(Date());
    check("2023", "2024-03-31");
}

TEST_F(TypedFiguresOfEmptyRecords, AreToldAsTheyAreKeptAndNeverTheDatesOfTheTables) {
    const Date stored2024 = day(2024, 12, 31);
    const Date imported2025 = day(2025, 12, 31);
    stored.put_LastFY(2024);
    imported.put_LastFY(2025);
    stored.put_LastFYDate(stored2024);
    imported.put_LastFYDate(imported2025);
    stored.put_LastQDate(stored2024);
    imported.put_LastQDate(imported2025);
    stored.put_PriceUpdatedDate(stored2024);
    stored.put_TotalDebt(1234.5);
    imported.put_TotalDebt(1);
    std::vector<std::string> lines;
    for (const ReplacedFigure& one : found())
        lines.push_back(describe(one));
    std::ranges::sort(lines);
    EXPECT_EQ(lines, (std::vector<std::string>{"Price Update Date: 2024-12-31, not nothing",
                                               "Total Debt: 1234.5, not 1"}));
}

// --- what an import does not have ----------------------------------------------------------------

class MissingFromTheImport : public testing::Test {
  protected:
    MissingFromTheImport() {
        stored.put_LastFY(2024);
        stored.put_LastFYDate(day(2024, 9, 28));
        stored.put_LastQDate(day(2025, 3, 29));
        stored.put_LastQDateForGrid(day(2025, 3, 29));
        putElement(stored, Datum::YEPSSeries, 1, 6);
        putElement(stored, Datum::QEPSSeries, 0, 1.5);
    }
    void keep(const std::map<Datum, std::string>& files = {},
              const std::set<std::string_view>& settings = {}) {
        CsvImport import;
        import.files = files;
        import.settings = settings;
        keepWhatIsMissing(stored, origins, import, imported);
    }
    CompanyRecord stored;
    CompanyRecord imported;
    FigureOrigins origins;
};

TEST_F(MissingFromTheImport, ATableStaysAsItIsStoredWithItsDates) {
    keep();
    EXPECT_TRUE(sameAs(stored, imported));
}

TEST_F(MissingFromTheImport, AKeyOrAColumnStaysAsItIsStored) {
    stored.put_TotalDebt(7);
    stored.put_Industry("Mining");
    putElement(stored, Datum::YDividendSeries, 2, 1.02);
    imported.put_LastFY(2025);
    imported.put_LastFYDate(day(2025, 9, 27));
    keep({{Datum::YEPSSeries, "y.csv"}, {Datum::Industry, "c.csv"}});
    EXPECT_EQ(imported.get_TotalDebt(), 7);
    EXPECT_EQ(imported.get_Industry(), "") << "it is there, and empty";
    EXPECT_EQ(elementOf(imported, Datum::YDividendSeries, 3), 1.02) << "of the same year";
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 2), 0);
}

// The form gives one to a record that has none.
TEST_F(MissingFromTheImport, AUnitThatItDoesNotNameStaysAsItIsStored) {
    stored.get_Settings()->put(setting::unit, std::int16_t{9});
    keep({}, {setting::unit});
    EXPECT_EQ(imported.get_Settings()->get(setting::unit).toLong(), 9) << "0 is none";
    imported.get_Settings()->put(setting::unit, std::int16_t{3});
    keep({}, {setting::unit});
    EXPECT_EQ(imported.get_Settings()->get(setting::unit).toLong(), 3);
}

TEST_F(MissingFromTheImport, ASettingThatItDoesNotNameStaysAsItIsStored) {
    stored.get_Settings()->put(setting::currencySymbol, std::string("EUR"));
    stored.get_Settings()->put(setting::leadPeriod, std::int16_t{2});
    stored.get_Settings()->put(setting::taxRate, true);
    stored.get_Settings()->put(setting::bookValue, true);
    keep({}, {setting::bookValue});
    const auto settings = imported.get_Settings();
    EXPECT_EQ(settings->get(setting::currencySymbol).toText(), "EUR");
    EXPECT_EQ(settings->get(setting::leadPeriod).toLong(), 2);
    EXPECT_TRUE(settings->get(setting::taxRate).toBoolean());
    EXPECT_FALSE(settings->get(setting::bookValue).toBoolean()) << "it says so";
}

TEST_F(MissingFromTheImport, TheEndOfTheSameYearStaysAsItIsStored) {
    imported.put_LastFY(2024);
    keep({{Datum::YEPSSeries, "y.csv"}});
    EXPECT_EQ(imported.get_LastFYDate(), day(2024, 9, 28));
}

TEST_F(MissingFromTheImport, TheEndOfTheSameYearGoesWhereItIsThereAndEmpty) {
    imported.put_LastFY(2024);
    keep({{Datum::LastFYDate, "c.csv"}});
    EXPECT_EQ(imported.stored(Datum::LastFYDate), CompanyRecord().stored(Datum::LastFYDate));
}

// It would stand beside quarters that it is not the sum of, until the form works it out.
TEST_F(MissingFromTheImport, ASumOfQuartersThatAreOthersNowDoesNotStay) {
    const std::map<Datum, std::string> quarters{{Datum::QEPSSeries, "q.csv"},
                                                {Datum::LastQDate, "q.csv"}};
    const auto kept = [&](Origin origin, Date last, double newest) {
        stored.put_Last4QEPS(6.5);
        imported.put_Last4QEPS(0);
        origins.put(Datum::Last4QEPS, std::nullopt, {origin, "", false});
        imported.put_LastQDate(last);
        imported.put_LastQDateForGrid(last);
        putElement(imported, Datum::QEPSSeries, 0, newest);
        keep(quarters);
        return imported.get_Last4QEPS();
    };
    EXPECT_EQ(kept(Origin::derived, day(2025, 3, 29), 1.5), 6.5) << "the same quarters";
    EXPECT_EQ(kept(Origin::derived, day(2025, 3, 29), 1.75), 0);
    EXPECT_EQ(kept(Origin::derived, day(2025, 6, 28), 1.5), 0);
    EXPECT_EQ(kept(Origin::typed, day(2025, 6, 28), 1.75), 6.5);
    EXPECT_EQ(kept(Origin::imported, day(2025, 6, 28), 1.75), 6.5);
    for (int quarter = 0; quarter <= 4; ++quarter) {
        putElement(stored, Datum::QEPSSeries, quarter, 3);
        EXPECT_EQ(kept(Origin::derived, day(2025, 3, 29), 1.5), quarter < 4 ? 0 : 6.5) << quarter;
        putElement(stored, Datum::QEPSSeries, quarter, quarter == 0 ? 1.5 : 0);
    }
}

TEST_F(MissingFromTheImport, ATableOfTheImportIsItsOwn) {
    keep({{Datum::YEPSSeries, "y.csv"}});
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 1), 0);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 0), 1.5);
}

TEST_F(MissingFromTheImport, FiguresMoveToTheDatesOfTheImport) {
    imported.put_LastFY(2025);
    imported.put_LastQDate(day(2025, 9, 27));
    keep();
    EXPECT_EQ(imported.get_LastFY(), 2025);
    EXPECT_EQ(imported.stored(Datum::LastFYDate), CompanyRecord().stored(Datum::LastFYDate));
    EXPECT_EQ(imported.get_LastQDateForGrid(), day(2025, 9, 27));
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 2), 6);
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 1), 0);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 2), 1.5);
}

// One of the two dates of a table says enough.
TEST_F(MissingFromTheImport, TheOtherDateOfATableIsNotTakenOver) {
    imported.put_LastFYDate(day(2025, 9, 27));
    imported.put_LastQDateForGrid(day(2025, 6, 28));
    keep();
    EXPECT_EQ(imported.stored(Datum::LastFY), CompanyRecord().stored(Datum::LastFY));
    EXPECT_EQ(imported.stored(Datum::LastQDate), CompanyRecord().stored(Datum::LastQDate));
    EXPECT_EQ(elementOf(imported, Datum::YEPSSeries, 2), 6);
    EXPECT_EQ(elementOf(imported, Datum::QEPSSeries, 1), 1.5);
}

// --- what goes by an import ----------------------------------------------------------------------

class GoneFigures : public testing::Test {
  protected:
    GoneFigures() {
        for (CompanyRecord* record : {&stored, &imported}) {
            record->put_LastFY(2024);
            record->put_LastQDate(day(2025, 3, 31));
        }
        for (const DatumRow& row : datumTable())
            for (int element = 0; element <= CompanyRecord::quarterlyUpper; ++element)
                origins.put(row.datum, isSeries(row) ? std::optional(element) : std::nullopt,
                            {Origin::imported, "x.csv", false});
        for (const SettingRow& row : settingTable)
            origins.putSetting(row.name, {Origin::imported, "x.csv", false});
    }
    [[nodiscard]] std::vector<std::string> lines() const {
        std::vector<std::string> lines;
        for (const ReplacedFigure& one : goneFigures(stored, origins, imported))
            lines.push_back(describeGone(one));
        return lines;
    }
    using Lines = std::vector<std::string>;
    CompanyRecord stored;
    CompanyRecord imported;
    FigureOrigins origins;
};

TEST_F(GoneFigures, AreThoseThatTheImportHasNothingFor) {
    putElement(stored, Datum::YRevenueSeries, 1, 391035);
    putElement(stored, Datum::YRevenueSeries, 2, 383285);
    putElement(imported, Datum::YRevenueSeries, 2, 383286);
    putElement(imported, Datum::YRevenueSeries, 3, 1);
    putElement(stored, Datum::QEPSSeries, 1, 2.4);
    stored.put_City("Graz");
    stored.put_TotalDebt(1234.5);
    stored.put_PriceUpdatedDate(day(2025, 1, 2));
    stored.get_Settings()->put(setting::currencySymbol, std::string("EUR"));
    EXPECT_EQ(lines(),
              (Lines{"Quarterly Earnings Per Share 2024-12-31: 2.4", "Yearly Revenue 2024: 391035",
                     "Total Debt: 1234.5", "Price Update Date: 2025-01-02", "City: Graz",
                     "Currency Symbol: EUR"}));
    EXPECT_TRUE(goneFigures(stored, origins, stored).empty());
}

TEST_F(GoneFigures, AreNotThoseThatOnlyMove) {
    putElement(stored, Datum::YRevenueSeries, 1, 391035);
    putElement(stored, Datum::QEPSSeries, 0, 2.4);
    imported.put_LastFY(2025);
    imported.put_LastQDate(day(2025, 9, 30));
    putElement(imported, Datum::YRevenueSeries, 2, 391035);
    putElement(imported, Datum::QEPSSeries, 2, 2.4);
    EXPECT_EQ(lines(), Lines());
}

TEST_F(GoneFigures, AreThoseThatHaveNoPlaceAnyMore) {
    putElement(stored, Datum::YRevenueSeries, 10, 215639);
    putElement(stored, Datum::QEPSSeries, 0, 2.4);
    imported.put_LastFY(2025);
    imported.put_LastQDate(day(2024, 12, 31));
    EXPECT_EQ(lines(),
              (Lines{"Quarterly Earnings Per Share 2025-03-31: 2.4, after the last quarter of the "
                     "import",
                     "Yearly Revenue 2015: 215639, too old for the table"}));
}

// What a person would lose is told apart, and what is worked out comes again.
TEST_F(GoneFigures, AreNotThoseThatWereTypedOrWorkedOut) {
    putElement(stored, Datum::YRevenueSeries, 1, 391035);
    stored.put_City("Graz");
    for (const std::optional<Origin> origin :
         {std::optional(Origin::typed), std::optional(Origin::pasted),
          std::optional(Origin::derived), std::optional<Origin>()}) {
        origins.put(Datum::YRevenueSeries, 1, {origin, "", false});
        origins.put(Datum::City, {}, {origin, "", false});
        EXPECT_EQ(lines(), Lines());
    }
}

// Whoever typed it: the dates are always those of the import.
TEST_F(GoneFigures, AreDatesThatTheImportDoesNotHave) {
    stored.put_LastFYDate(day(2024, 9, 28));
    origins.put(Datum::LastFYDate, {}, {Origin::typed, "", false});
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_TRUE(lines().front().ends_with(": 2024-09-28")) << lines().front();
    imported.put_LastFYDate(day(2025, 9, 27));
    stored.put_LastQDateForGrid(day(2025, 3, 31));
    EXPECT_EQ(lines(), Lines()) << "the other date of the quarters says it";
}

TEST_F(GoneFigures, AreToldByTheirNumberAndTheFirstOfThem) {
    const auto told = [&] { return goneInWords(goneFigures(stored, origins, imported)); };
    EXPECT_EQ(told(), Lines());
    putElement(stored, Datum::YRevenueSeries, 1, 391035);
    EXPECT_EQ(told(), Lines{"1 figure that the files do not have is gone: Yearly Revenue 2024."});
    putElement(stored, Datum::YRevenueSeries, 2, 1);
    putElement(stored, Datum::YRevenueSeries, 3, 1);
    EXPECT_EQ(told(), Lines{"3 figures that the files do not have are gone: Yearly Revenue 2024, "
                            "Yearly Revenue 2023, Yearly Revenue 2022."});
    putElement(stored, Datum::YRevenueSeries, 4, 1);
    putElement(stored, Datum::YRevenueSeries, 5, 1);
    EXPECT_EQ(told(), Lines{"5 figures that the files do not have are gone: Yearly Revenue 2024, "
                            "Yearly Revenue 2023, Yearly Revenue 2022 and 2 more."});
    putElement(stored, Datum::YRevenueSeries, 10, 1);
    imported.put_LastFY(2025);
    putElement(imported, Datum::YRevenueSeries, 2, 391035);
    putElement(imported, Datum::YRevenueSeries, 3, 1);
    putElement(imported, Datum::YRevenueSeries, 4, 1);
    putElement(imported, Datum::YRevenueSeries, 5, 1);
    EXPECT_EQ(told(), (Lines{"1 figure that the files do not have is gone: Yearly Revenue 2020.",
                             "1 figure too old for the table is gone: Yearly Revenue 2015."}));
}

} // namespace
} // namespace vkr
