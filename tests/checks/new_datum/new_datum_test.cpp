// SPDX-License-Identifier: MIT
// What a datum can do by its line in the list alone. Goodwill, an amount of money, is only in the
// copy of the sources that new_datum makes.
#include "company/company_csv.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(NewDatum, IsAbsentAtFirstAndThenWhatWasWritten) {
    CompanyRecord company;
    EXPECT_EQ(company.get_Goodwill(), 0);
    company.put_Goodwill(12.5);
    EXPECT_EQ(company.get_Goodwill(), 12.5);
    writeNumber(company, Datum::Goodwill, 7.25);
    EXPECT_EQ(company.get_Goodwill(), 7.25);
    EXPECT_EQ(readDatum(*company.clone(), Datum::Goodwill), Variant(7.25));
}

TEST(NewDatum, StandsLastInTheTable) {
    const DatumRow& row = datumTable().back();
    EXPECT_EQ(row.datum, Datum::Goodwill);
    EXPECT_EQ(row.name, "Goodwill");
    EXPECT_EQ(row.unit, DatumUnit::money);
    EXPECT_EQ(&rowOf(Datum::Goodwill), &row);
}

TEST(NewDatum, IsComparedLikeTheOthers) {
    CompanyRecord before;
    CompanyRecord after;
    after.put_Goodwill(0.1);
    EXPECT_EQ(differences(before, after),
              (std::vector<Difference>{{"Goodwill", std::nullopt, "0", "0.1"}}));
}

TEST(NewDatum, IsRefusedByARecordThatHasNoPlaceForIt) {
    class Bare final : public CompanyBase {};
    Bare company;
    EXPECT_EQ(company.get_Goodwill(), 0);
    EXPECT_NO_THROW(company.put_Goodwill(0));
    EXPECT_THROW(company.put_Goodwill(12.5), std::invalid_argument);
}

TEST(NewDatum, HasItsRowInTheFileOfTheCompany) {
    CompanyRecord company;
    company.put_PrefShares(3);
    company.put_Goodwill(12.5);
    const CompanyTexts texts = exportCompanyTexts(company);
    EXPECT_NE(texts.company.text.find("\npreferred_stock_musd,3\ngoodwill_musd,12.5\n"),
              std::string::npos)
        << texts.company.text;
    const CsvImport import = importCompanyTexts(texts);
    ASSERT_NE(import.company, nullptr);
    EXPECT_TRUE(sameAs(*import.company, company));
}

TEST(NewDatum, IsWrittenDownByTheRecordOfTheTests) {
    ScriptedRecord record(std::make_shared<CompanyRecord>());
    record.put_Goodwill(12.5);
    EXPECT_EQ(readDatum(record, Datum::Goodwill), Variant(12.5));
    EXPECT_EQ(record.log, (std::vector<std::string>{"write Goodwill", "read Goodwill"}));
    record.failing = {"read Goodwill"};
    EXPECT_THROW(static_cast<void>(record.get_Goodwill()), std::runtime_error);
}

} // namespace
} // namespace vkr
