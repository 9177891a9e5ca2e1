// SPDX-License-Identifier: MIT
// What a datum can do by its line in the list and its two operations alone. SpareFigure, an amount
// of money, is only in the copy of the sources that new_datum makes.
#include "company/company_csv.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(NewDatum, IsAbsentAtFirstAndThenWhatWasWritten) {
    CompanyRecord company;
    EXPECT_EQ(company.get_SpareFigure(), 0);
    company.put_SpareFigure(12.5);
    EXPECT_EQ(company.get_SpareFigure(), 12.5);
    writeNumber(company, Datum::SpareFigure, 7.25);
    EXPECT_EQ(company.get_SpareFigure(), 7.25);
    EXPECT_EQ(readDatum(*company.clone(), Datum::SpareFigure), Variant(7.25));
}

TEST(NewDatum, StandsLastInTheTable) {
    const DatumRow& row = datumTable().back();
    EXPECT_EQ(row.datum, Datum::SpareFigure);
    EXPECT_EQ(row.name, "SpareFigure");
    EXPECT_EQ(row.unit, DatumUnit::money);
    EXPECT_EQ(&rowOf(Datum::SpareFigure), &row);
}

TEST(NewDatum, IsComparedLikeTheOthers) {
    CompanyRecord before;
    CompanyRecord after;
    after.put_SpareFigure(0.1);
    EXPECT_EQ(differences(before, after),
              (std::vector<Difference>{{"SpareFigure", std::nullopt, "0", "0.1"}}));
}

TEST(NewDatum, IsRefusedByARecordThatHasNoPlaceForIt) {
    class Bare final : public CompanyBase {};
    Bare company;
    EXPECT_EQ(company.get_SpareFigure(), 0);
    EXPECT_NO_THROW(company.put_SpareFigure(0));
    EXPECT_THROW(company.put_SpareFigure(12.5), std::invalid_argument);
}

TEST(NewDatum, HasItsRowInTheFileOfTheCompany) {
    CompanyRecord company;
    company.put_PrefShares(3);
    company.put_SpareFigure(12.5);
    const CompanyTexts texts = exportCompanyTexts(company);
    EXPECT_NE(texts.company.text.find("\npreferred_stock_musd,3\nspare_figure_musd,12.5\n"),
              std::string::npos)
        << texts.company.text;
    const CsvImport import = importCompanyTexts(texts);
    ASSERT_NE(import.company, nullptr);
    EXPECT_TRUE(sameAs(*import.company, company));
}

TEST(NewDatum, IsWrittenDownByTheRecordOfTheTests) {
    ScriptedRecord record(std::make_shared<CompanyRecord>());
    record.put_SpareFigure(12.5);
    EXPECT_EQ(readDatum(record, Datum::SpareFigure), Variant(12.5));
    EXPECT_EQ(record.log, (std::vector<std::string>{"write SpareFigure", "read SpareFigure"}));
    record.failing = {"read SpareFigure"};
    EXPECT_THROW(static_cast<void>(record.get_SpareFigure()), std::runtime_error);
}

} // namespace
} // namespace vkr
