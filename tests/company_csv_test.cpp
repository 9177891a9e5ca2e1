// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "company/company_tables.hpp"
#include "company/csv_text.hpp"
#include "company/exact_text.hpp"
#include "source_folder.hpp"
#include "tests/support/dates.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/random_company.hpp"

#include <cerrno>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <numeric>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>

namespace vkr {
namespace {

namespace fs = std::filesystem;
using test::day;
using test::elementOf;

// As testing::PrintToString, but in the words that people read.
std::vector<std::string> told(const std::vector<CsvProblem>& problems) {
    std::vector<std::string> lines;
    for (const CsvProblem& problem : problems)
        lines.push_back(describe(problem));
    return lines;
}

CsvImport importTexts(std::string company, std::string yearly = {}, std::string quarterly = {}) {
    CompanyTexts texts{{"c.csv", std::move(company)}, {}, {}};
    if (!yearly.empty())
        texts.yearly = CsvText{"y.csv", std::move(yearly)};
    if (!quarterly.empty())
        texts.quarterly = CsvText{"q.csv", std::move(quarterly)};
    return importCompanyTexts(texts);
}

using Lines = std::vector<std::string>;

class CompanyCsvFiles : public testing::Test {
  protected:
    void SetUp() override {
        folder_ = fs::temp_directory_path() /
                  ("vkr-csv-" + std::to_string(std::random_device()()) + "-" +
                   testing::UnitTest::GetInstance()->current_test_info()->name());
        ASSERT_TRUE(fs::create_directories(folder_));
    }
    void TearDown() override { fs::remove_all(folder_); }

    static std::string read(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static void write(const fs::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder_))
            found.push_back(entry.path().filename().string());
        std::sort(found.begin(), found.end());
        return found;
    }

    fs::path folder_;
};

const fs::path samples = fs::path(VKR_SOURCE_DIR) / "samples";

// Plain texts

TEST(ExactText, NumbersComeBackAsTheyWere) {
    test::RandomCompany random(3);
    for (int i = 0; i < 20000; ++i) {
        const double value = random.number();
        const std::string text = exactNumberText(value);
        EXPECT_TRUE(isPlainNumber(text)) << text;
        EXPECT_EQ(exactNumber(text), value) << text;
        EXPECT_EQ(exactNumber(shiftDecimalPoint(shiftDecimalPoint(text, 6), -6)), value) << text;
    }
}

TEST(ExactText, MovesTheDecimalPointWithoutRounding) {
    struct Row {
        const char* text;
        int places;
        const char* expected;
    };
    const Row rows[] = {
        {"14681140000", -6, "14681.14"},
        {"14681.14", 6, "14681140000"},
        {"1", -6, "0.000001"},
        {"-0.5", 6, "-500000"},
        {"+12.5", 1, "125"},
        {".25", 1, "2.5"},
        {"5.", 0, "5"},
        {"007", -1, "0.7"},
        {"0", 6, "0"},
        {"0.000", -6, "0"},
        {"123456789012345678901234567890", -6, "123456789012345678901234.56789"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(shiftDecimalPoint(row.text, row.places), row.expected) << row.text;
}

TEST(ExactText, PlainNumbersHaveDigitsAndOnePoint) {
    for (const char* text : {"0", "-1", "+1", ".5", "5.", "0012.50"})
        EXPECT_TRUE(isPlainNumber(text)) << text;
    for (const char* text : {"", "-", ".", "1e5", "1,5", "1 5", "1.2.3", "0x1", "nan", "--1", "1-"})
        EXPECT_FALSE(isPlainNumber(text)) << text;
}

TEST(ExactText, DatesAreExistingDays) {
    EXPECT_EQ(dateFromIso("2024-02-29"), day(2024, 2, 29));
    EXPECT_EQ(isoDateText(day(476, 9, 4)), "0476-09-04");
    EXPECT_EQ(isoDateText(Date{}), "");
    for (const char* text :
         {"", "2025-02-29", "2025-13-01", "2025-00-10", "0000-00-00", "0099-12-31", "25-01-01",
          "2025-1-01", "2025/01/01", "01-01-2025", "2025-01-01 ", "2025-01-0x", "1899-12-30",
          "2025/01-01", "2025-01/01", "2025-0:-01", "202:-10-01"})
        EXPECT_EQ(dateFromIso(text), std::nullopt) << text;
}

TEST(CsvText, ReadsQuotedCellsAndAnyLineBreak) {
    const CsvTable table = readCsv("\xef\xbb\xbf"
                                   "a,b\r\n"
                                   "\"1,\"\"x\"\"\r\nsecond\",2\r"
                                   "\r\n"
                                   ",,\n"
                                   "\"\" ,4");
    EXPECT_TRUE(table.faults.empty());
    ASSERT_EQ(table.rows.size(), 3U);
    EXPECT_EQ(table.rows[1][0].text, "1,\"x\"\r\nsecond");
    EXPECT_EQ(table.rows[1][0].line, 2);
    EXPECT_EQ(table.rows[1][1].line, 3);
    EXPECT_EQ(table.rows[2][1].text, "4");
    EXPECT_EQ(table.rows[2][0].line, 6);
}

TEST(CsvText, TakesTheSeparatorFromTheHeader) {
    for (const char separator : {',', ';', '\t'}) {
        std::string text = "a|b|\"c,,,;;;\"\n1|2|3\n";
        std::replace(text.begin(), text.end(), '|', separator);
        const CsvTable table = readCsv(text);
        ASSERT_EQ(table.rows.size(), 2U);
        EXPECT_EQ(table.rows[1].size(), 3U);
    }
    EXPECT_EQ(readCsv("a,b,c;d\n1,2,3\n").rows.at(1).size(), 3U) << "what it has most of";
    // Whatever a text holds below it.
    const CsvTable table = readCsv("key,value\nnotes,a;b;c;d;e\n");
    ASSERT_EQ(table.rows.size(), 2U);
    EXPECT_EQ(table.rows[1].size(), 2U);
    EXPECT_EQ(readCsv("\r\n\na;b\n1;2\n").rows.at(1).size(), 2U);
}

TEST(CsvText, CountsTheLineBreaksOfAQuotedCell) {
    EXPECT_EQ(readCsv("a\n\"\nx\"\nz\n").rows.at(2).at(0).line, 4);
    EXPECT_EQ(readCsv("a,b\n\"x\ny,1\nz").rows.size(), 2U) << "all of the rest is one cell";
}

TEST(CsvText, QuotesABlankAtEitherEnd) {
    std::string text;
    appendCsvRow(text, {" x", "x ", "x y", ""});
    EXPECT_EQ(text, "\" x\",\"x \",x y,\n");
}

TEST(CsvText, TellsWhatIsNoTable) {
    struct Row {
        std::string text;
        int line;
        int column;
        const char* reason;
    };
    const Row rows[] = {
        {"a,b\n1,x\"y\n", 2, 2, "a quotation mark in the middle of a cell"},
        {"a,b\n\"x\ny,1\nz", 2, 1, "the quotation mark that begins this cell is never closed"},
        {"a,b\n\"x\"y,1\n", 2, 1, "text behind a closing quotation mark"},
        {"a,b\n1,\xfc\n", 2, 1, "not valid UTF-8; save it as CSV in UTF-8"},
        {"\na,b\n1,\x80\n", 3, 1, "not valid UTF-8; save it as CSV in UTF-8"},
        {"\xff\xfe"
         "k",
         1, 1, "the text is UTF-16; save it as CSV in UTF-8"},
    };
    for (const Row& row : rows) {
        const CsvTable table = readCsv(row.text);
        ASSERT_EQ(table.faults.size(), 1U) << row.text;
        EXPECT_EQ(table.faults[0].line, row.line) << row.text;
        EXPECT_EQ(table.faults[0].column, row.column) << row.text;
        EXPECT_EQ(table.faults[0].reason, row.reason);
    }
}

TEST(CsvText, AnyCellsComeBack) {
    test::RandomCompany random(4);
    for (int round = 0; round < 500; ++round) {
        std::string text;
        appendCsvRow(text, {"key", "value"});
        Lines cells = {"k" + random.text(), random.text()};
        appendCsvRow(text, cells);
        const CsvTable table = readCsv(text);
        ASSERT_TRUE(table.faults.empty()) << text;
        ASSERT_EQ(table.rows.size(), 2U) << text;
        EXPECT_EQ(table.rows[1][0].text, cells[0]);
        EXPECT_EQ(table.rows[1][1].text, cells[1]);
    }
}

// Samples

TEST(CompanyCsv, ReadsTheSamplesAsTheyStand) {
    struct Row {
        const char* prefix;
        int lastYear;
        Date lastQuarter;
        double newestRevenue, oldestYearOnGrid;
        int quarters;
        std::size_t olderYears;
    };
    const Row rows[] = {
        {"AAPL", 2025, day(2025, 12, 27), 416161, 215639, 35, 1},
        {"NVDA", 2026, day(2026, 4, 26), 215938, 6910, 35, 1},
        {"SNOW", 2025, day(2025, 4, 30), 3626.396, 0, 21, 0},
        {"TSLA", 2021, day(2022, 9, 30), 53823, 413.256, 35, 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.prefix);
        const CsvImport import = importCompany(samples, row.prefix);
        ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
        const CompanyRecord& company = *import.company;
        EXPECT_EQ(company.get_Symbol(), row.prefix);
        EXPECT_EQ(company.get_LastFY(), row.lastYear);
        EXPECT_EQ(civil(company.get_LastFYDate()).year, row.lastYear);
        EXPECT_EQ(company.get_LastQDate(), row.lastQuarter);
        EXPECT_EQ(company.get_LastQDateForGrid(), row.lastQuarter);
        EXPECT_EQ(elementOf(company, Datum::YRevenueSeries, 0), 0);
        EXPECT_EQ(elementOf(company, Datum::YRevenueSeries, 1), row.newestRevenue);
        EXPECT_EQ(elementOf(company, Datum::YRevenueSeries, 10), row.oldestYearOnGrid);
        for (int quarter = 0; quarter < 35; ++quarter)
            EXPECT_EQ(elementOf(company, Datum::QRevenueSeries, quarter) != 0,
                      quarter < row.quarters)
                << quarter;
        const auto older =
            std::count_if(import.notes.begin(), import.notes.end(), [](const CsvProblem& note) {
                return note.reason == "1 fiscal year older than the grid left out";
            });
        EXPECT_EQ(static_cast<std::size_t>(older), row.olderYears);
    }
}

TEST(CompanyCsv, EveryFigureOfASampleReachesItsPlace) {
    const auto company = importCompany(samples, "AAPL").company;
    ASSERT_NE(company, nullptr);
    EXPECT_EQ(company->get_Name(), "Apple Inc.");
    EXPECT_EQ(company->get_Exchange(), "Nasdaq");
    EXPECT_EQ(company->get_Industry(), "Electronic Computers");
    EXPECT_EQ(company->get_Tel(), "(408) 996-1010");
    EXPECT_EQ(company->get_Address2(), "");
    EXPECT_EQ(company->get_CommShares(), 14681.14);
    EXPECT_EQ(company->get_DilutedShares(), 14810.356);
    EXPECT_EQ(company->get_TotalDebt(), 90509);
    EXPECT_EQ(company->get_LastFYDate(), day(2025, 9, 27));
    struct Row {
        Datum series;
        int index;
        double figure;
    };
    const Row rows[] = {
        {Datum::YPTISeries, 2, 123485},
        {Datum::YTaxRateSeries, 2, 24.09},
        {Datum::YNetIncSeries, 2, 93736},
        {Datum::YCommEqSeries, 2, 56950},
        {Datum::YBookValSeries, 2, 3.7673},
        {Datum::YEPSSeries, 2, 6.08},
        {Datum::YDividendSeries, 2, 0.98},
        {Datum::YHighSeries, 2, 237.23},
        {Datum::YLowSeries, 2, 164.08},
        {Datum::YCSOSeries, 2, 15408.095},
        {Datum::QEPSSeries, 0, 2.84},
        {Datum::QPTISeries, 0, 51002},
        {Datum::QTaxRateSeries, 0, 17.46},
        {Datum::QNetIncSeries, 0, 42097},
        // The quarters that end on 31 Dec 2022, 1 Apr and 1 Jul 2023 follow one another.
        {Datum::QRevenueSeries, 10, 81797},
        {Datum::QRevenueSeries, 11, 94836},
        {Datum::QRevenueSeries, 12, 117154},
        {Datum::QRevenueSeries, 34, 45408},
    };
    for (const Row& row : rows)
        EXPECT_EQ(elementOf(*company, row.series, row.index), row.figure)
            << rowOf(row.series).name << " " << row.index;
}

TEST(CompanyCsv, TellsWhatARecordHasNoPlaceFor) {
    const CsvImport import = importCompany(samples, "SNOW");
    Lines keys;
    for (const CsvProblem& note : import.notes)
        keys.push_back(note.text);
    EXPECT_EQ(keys, (Lines{"cik", "common_shares_as_of", "diluted_shares_period_end",
                           "diluted_shares_period", "total_debt_as_of", "preferred_stock_as_of"}));
    EXPECT_EQ(describe(import.notes.front()),
              "SNOW-company.csv, line 18, column 1, \"cik\": a record has no place for this");
}

// Round trip

TEST(CompanyCsv, ExportAndImportLoseNothing) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        const auto company = test::RandomCompany(seed).record();
        const CsvImport import = importCompanyTexts(exportCompanyTexts(*company));
        ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
        EXPECT_EQ(differences(*company, *import.company), std::vector<Difference>{});
        for (const DatumRow& row : datumTable())
            EXPECT_EQ(company->stored(row.datum), import.company->stored(row.datum)) << row.name;
    }
}

TEST(CompanyCsv, ExportOfAnEmptyRecordGivesAnEmptyRecord) {
    const CompanyRecord empty;
    const CsvImport import = importCompanyTexts(exportCompanyTexts(empty));
    ASSERT_NE(import.company, nullptr);
    EXPECT_TRUE(sameAs(empty, *import.company));
    EXPECT_TRUE(import.notes.empty());
}

TEST(CompanyCsv, SamplesComeBackFromTheirExport) {
    for (const char* prefix : {"AAPL", "NVDA", "SNOW", "TSLA"}) {
        const auto company = importCompany(samples, prefix).company;
        ASSERT_NE(company, nullptr);
        const CompanyTexts texts = exportCompanyTexts(*company);
        EXPECT_EQ(texts.company.file, std::string(prefix) + "-company.csv");
        const auto again = importCompanyTexts(texts).company;
        ASSERT_NE(again, nullptr);
        EXPECT_TRUE(sameAs(*company, *again)) << prefix;
    }
}

TEST(CompanyCsv, FiguresAreWrittenAsPeopleKeepThem) {
    const auto company = importCompany(samples, "AAPL").company;
    ASSERT_NE(company, nullptr);
    const CompanyTexts texts = exportCompanyTexts(*company);
    EXPECT_NE(texts.company.text.find("\ncommon_shares,14681140000\n"), std::string::npos);
    EXPECT_NE(texts.yearly->text.find(
                  "\n2025,2025-09-27,416161,132729,15.61,112010,73733,4.991,7.46,1.02,260.1,169.21,"
                  "15004.697\n2024,,391035,"),
              std::string::npos);
    EXPECT_NE(texts.quarterly->text.find("\n2025-12-27,143756,2.84,51002,17.46,42097\n2025-09-27,"),
              std::string::npos);
}

// Those that come later may stand between them.
TEST(CompanyCsv, RowsAndColumnsKeepTheirOrder) {
    const auto company = importCompany(samples, "AAPL").company;
    ASSERT_NE(company, nullptr);
    const CompanyTexts texts = exportCompanyTexts(*company);
    const auto header = [](const std::string& text) {
        const CsvTable table = readCsv(text);
        Lines names;
        for (const CsvCell& cell : table.rows.front())
            names.push_back(cell.text);
        return names;
    };
    const CsvTable table = readCsv(texts.company.text);
    Lines keys;
    for (const CsvRow& row : table.rows)
        keys.push_back(row.front().text);
    const std::pair<Lines, const char*> rows[] = {
        {keys, "key name symbol exchange industry source source_date last_update address1 "
               "address2 city state zip country internet tel contact_person current_price "
               "price_date high_52_weeks low_52_weeks common_dividend common_dividend_alternate "
               "eps_last_4_quarters eps_projected common_shares diluted_shares total_debt_musd "
               "total_capitalization_musd preferred_stock_musd preferred_dividends_musd "
               "tax_rate_pct insider_holding_pct institutional_holding_pct timeliness safety "
               "last_fiscal_year last_fiscal_year_end last_quarter_end grid_quarter_end notes "
               "unit lead_period currency_symbol show_book_value show_tax_rate lock_basic_info"},
        {header(texts.yearly->text),
         "fiscal_year fiscal_year_end revenue_musd pretax_income_musd tax_rate_pct "
         "net_income_musd common_equity_musd book_value_per_share eps dividend high low "
         "shares_musd"},
        {header(texts.quarterly->text),
         "quarter_end revenue_musd eps pretax_income_musd tax_rate_pct net_income_musd"},
    };
    for (const auto& [names, inOrder] : rows) {
        std::istringstream expected(inOrder);
        auto place = names.begin();
        for (std::string name; expected >> name;) {
            place = std::find(place, names.end(), name);
            ASSERT_NE(place, names.end()) << name;
        }
    }
}

// A file names the years 1900 to 9999; beyond them the figures are numbered.
TEST(CompanyCsv, YearsThatAFileCannotNameAreNumbered) {
    const std::pair<int, bool> rows[] = {{1908, false}, {1909, true}, {9998, true}, {9999, false}};
    for (const auto& [last, named] : rows) {
        CompanyRecord company;
        company.put_Name("X");
        company.put_LastFY(static_cast<std::int16_t>(last));
        test::putElement(company, "YRevenueSeries", 1, 5);
        const CompanyTexts texts = exportCompanyTexts(company);
        ASSERT_TRUE(texts.yearly.has_value()) << last;
        EXPECT_EQ(texts.yearly->text.find("fiscal_year") != std::string::npos, named) << last;
        EXPECT_EQ(texts.yearly->text.find("element") != std::string::npos, !named) << last;
    }
}

TEST(CompanyCsv, ATableHasThePeriodsDownToTheOldestFigure) {
    const auto elements = [](std::initializer_list<int> set) {
        CompanyRecord company;
        for (const int element : set)
            test::putElement(company, Datum::YEPSSeries, element, 1);
        std::vector<int> all;
        for (const FigureTable::Row& row : figureTable(company, DatumPeriod::year).rows)
            all.push_back(row.element);
        return all;
    };
    EXPECT_EQ(elements({}), std::vector<int>());
    EXPECT_EQ(elements({0}), std::vector{0});
    EXPECT_EQ(elements({1}), std::vector{1});
    EXPECT_EQ(elements({2}), (std::vector{1, 2}));
    EXPECT_EQ(elements({0, 2}), (std::vector{0, 1, 2}));
    EXPECT_EQ(elements({10}), (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(CompanyCsv, AYearMayEndInTheOneBeforeOrAfter) {
    for (const int year : {2022, 2023, 2024, 2025, 2026}) {
        CompanyRecord company;
        company.put_LastFY(2024);
        company.put_LastFYDate(day(year, 1, 3));
        test::putElement(company, Datum::YEPSSeries, 2, 1);
        const auto rows = figureTable(company, DatumPeriod::year).rows;
        ASSERT_EQ(rows.size(), 2U);
        EXPECT_EQ(rows[0].names,
                  (Lines{"2024", std::abs(year - 2024) <= 1 ? isoDateText(day(year, 1, 3)) : ""}));
        EXPECT_EQ(rows[1].names, (Lines{"2023", ""}));
    }
}

// The grid would come near to the day that stands for no date.
TEST(CompanyCsv, QuartersBefore1910AreNumbered) {
    for (const int year : {1909, 1910}) {
        CompanyRecord company;
        company.put_LastQDateForGrid(*makeDate(year, 12, 31));
        test::putElement(company, "QRevenueSeries", 1, 5);
        const std::string text = exportCompanyTexts(company).quarterly->text;
        EXPECT_EQ(text.find("quarter_end") != std::string::npos, year == 1910);
        EXPECT_EQ(text.find("element") != std::string::npos, year == 1909);
    }
}

TEST(CompanyCsv, AQuoteIsCutWhereItIsTooLong) {
    const std::string fitting(40, 'x');
    EXPECT_EQ(describe({"c.csv", 2, 3, fitting, "no number"}),
              "c.csv, line 2, column 3, \"" + fitting + "\": no number");
    EXPECT_EQ(describe({"c.csv", 2, 3, fitting + "y", "no number"}),
              "c.csv, line 2, column 3, \"" + fitting + "…\": no number");
}

// Each quarter under the date that the grid shows for it.
TEST(CompanyCsv, ExportedQuartersHaveTheDatesOfTheGrid) {
    const struct {
        Date last;
        Lines ends;
    } rows[] = {
        {day(2024, 6, 30), {"2024-06-30", "2024-03-31", "2023-12-31", "2023-09-30", "2023-06-30"}},
        {day(2024, 2, 29), {"2024-02-29", "2023-11-30", "2023-08-31", "2023-05-31", "2023-02-28"}},
        {day(2026, 5, 30), {"2026-05-30", "2026-02-28", "2025-11-30", "2025-08-30", "2025-05-30"}},
        {day(2026, 3, 28), {"2026-03-28", "2025-12-28", "2025-09-28", "2025-06-28", "2025-03-28"}},
    };
    for (const auto& row : rows) {
        CompanyRecord company;
        company.put_LastQDateForGrid(row.last);
        std::vector<double> figures(CompanyRecord::quarterlyUpper + 1);
        std::iota(figures.begin(), figures.begin() + 5, 1);
        company.put_QRevenueSeries(VariantArray(0, figures));

        const std::string text = exportCompanyTexts(company).quarterly->text;
        Lines ends;
        for (const CsvRow& line : readCsv(text).rows)
            ends.push_back(line.front().text);
        ends.erase(ends.begin()); // the header
        EXPECT_EQ(ends, row.ends);

        const CsvImport again =
            importTexts("key,value\nlast_quarter_end," + isoDateText(row.last) + "\n", "", text);
        ASSERT_NE(again.company, nullptr);
        EXPECT_EQ(again.company->get_QRevenueSeries(), company.get_QRevenueSeries());
    }
}

// A spreadsheet would work out a cell that begins like a formula.
TEST(CompanyCsv, TextsThatLookLikeFormulasStayTexts) {
    struct Row {
        const char* text;
        const char* cell;
    };
    const Row rows[] = {
        {"=1+2", "'=1+2"},
        {"+1 800 555 0100", "'+1 800 555 0100"},
        {"-Alpha", "'-Alpha"},
        {"@SUM(A1)", "'@SUM(A1)"},
        {"\t=1", "\"'\t=1\""},
        {"\r=1", "\"'\r=1\""},
        {"=A1,\"x\"", "\"'=A1,\"\"x\"\"\""},
        {"'=1", "''=1"},
        {"''-x", "'''-x"},
        {"'tis", "'tis"},
        {"'", "'"},
        {"a=b", "a=b"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        CompanyRecord company;
        company.put_Name(row.text);
        company.put_Notes(row.text);
        company.get_Settings()->put(setting::currencySymbol, row.text);
        const CompanyTexts texts = exportCompanyTexts(company);
        for (const char* key : {"\nname,", "\nnotes,", "\ncurrency_symbol,"})
            EXPECT_NE(texts.company.text.find(key + std::string(row.cell) + "\n"),
                      std::string::npos)
                << texts.company.text;
        const CsvImport again = importCompanyTexts(texts);
        ASSERT_NE(again.company, nullptr);
        EXPECT_TRUE(sameAs(*again.company, company));
    }
    // Figures are no texts, and a text of another program's is taken as it stands.
    CompanyRecord loss;
    loss.put_Last4QEPS(-1.5);
    EXPECT_NE(exportCompanyTexts(loss).company.text.find("\neps_last_4_quarters,-1.5\n"),
              std::string::npos);
    EXPECT_EQ(importTexts("key,value\nname,=X\n").company->get_Name(), "=X");
}

// Placing of rows

TEST(CompanyCsv, RowsMayStandInAnyOrderAndLeaveGaps) {
    const CsvImport import =
        importTexts("key,value\nname,X\n", "eps,fiscal_year\n1,2019\n3,2024\n2,2021\n",
                    "quarter_end,eps\n2023-12-31,0.5\n2024-09-30,0.1\n");
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    EXPECT_EQ(import.company->get_LastFY(), 2024);
    EXPECT_EQ(import.company->get_LastFYDate(), Date{});
    const double years[] = {0, 3, 0, 0, 2, 0, 1, 0, 0, 0, 0};
    for (int index = 0; index <= 10; ++index)
        EXPECT_EQ(elementOf(*import.company, Datum::YEPSSeries, index), years[index]) << index;
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 0), 0.1);
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 3), 0.5);
}

TEST(CompanyCsv, QuartersThatDriftThroughTheCalendarStayInOrder) {
    // 13 weeks a quarter, with a 14th in every sixth year.
    const Date newest = day(2024, 12, 29);
    std::string text = "quarter_end,revenue_musd\n";
    Date end = newest;
    for (int quarter = 0; quarter < 35; ++quarter) {
        text += isoDateText(end) + "," + std::to_string(quarter + 1) + "\n";
        end = addDays(end, quarter == 4 || quarter == 28 ? -98 : -91);
    }
    const CsvImport import = importTexts("key,value\nname,X\n", "", text);
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    for (int quarter = 0; quarter < 35; ++quarter)
        EXPECT_EQ(elementOf(*import.company, Datum::QRevenueSeries, quarter), quarter + 1);
}

TEST(CompanyCsv, AQuarterIsThatOfTheNearestDate) {
    // A day short of the middle between the quarters that end in September and in June.
    const CsvImport import = importTexts("key,value\nlast_quarter_end,2024-12-31\n", "",
                                         "quarter_end,eps\n2024-08-16,1\n");
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 1), 1);
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 2), 0);
}

TEST(CompanyCsv, FlagsAreReadInEitherSpelling) {
    const std::pair<const char*, bool> rows[] = {{"true", true},   {"YES", true}, {"1", true},
                                                 {"False", false}, {"no", false}, {"0", false}};
    for (const auto& [text, value] : rows) {
        const CsvImport import =
            importTexts("key,value\nname,X\nshow_tax_rate," + std::string(text) + "\n");
        ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
        EXPECT_EQ(import.company->get_Settings()->get(setting::taxRate), Variant(value)) << text;
    }
}

TEST(CompanyCsv, SettingsAreThoseThatTheCompanyFileNames) {
    const CsvImport import = importTexts("key,value\nunit,6\nlead_period,\ncurrency_symbol,\n"
                                         "show_tax_rate,\nshow_book_value,true\n");
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    EXPECT_EQ(import.settings, (std::set<std::string_view>{setting::unit, setting::currencySymbol,
                                                           setting::bookValue}));
    const auto settings = import.company->get_Settings();
    EXPECT_EQ(settings->get(setting::unit).toLong(), 6);
    EXPECT_EQ(settings->get(setting::leadPeriod).toLong(), -1);
    EXPECT_EQ(settings->get(setting::bookValue), Variant(true));
}

TEST(CompanyCsv, TheCompanyFileMayStateTheLastPeriods) {
    const CsvImport import =
        importTexts("key,value\nlast_fiscal_year,2024\nlast_quarter_end,2024-09-30\n",
                    "fiscal_year,fiscal_year_end,eps\n2025,2025-12-31,5\n2024,2024-12-31,4\n",
                    "quarter_end,eps\n2024-06-30,1\n");
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    EXPECT_EQ(elementOf(*import.company, Datum::YEPSSeries, 0), 5);
    EXPECT_EQ(elementOf(*import.company, Datum::YEPSSeries, 1), 4);
    EXPECT_EQ(import.company->get_LastFYDate(), day(2024, 12, 31));
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 0), 0);
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 1), 1);
    EXPECT_EQ(told(import.notes),
              (Lines{"y.csv, line 2, column 1, \"2025\": taken as the year after the last fiscal "
                     "year 2024 that the company file states"}));
}

TEST(CompanyCsv, TheEndOfAYearIsThatOfTheLastOneWhereNoneIsStated) {
    const auto endOf = [](const char* stated, const char* years) {
        const auto company = importTexts("key,value\nlast_fiscal_year,2024\nlast_fiscal_year_end," +
                                             std::string(stated) + "\n",
                                         "fiscal_year,fiscal_year_end\n" + std::string(years))
                                 .company;
        return company == nullptr ? "none" : isoDateText(company->get_LastFYDate());
    };
    EXPECT_EQ(endOf("", "2024,2024-12-28\n2023,2023-12-30\n"), "2024-12-28");
    EXPECT_EQ(endOf("", "2024,\n2023,2023-12-30\n"), "");
    EXPECT_EQ(endOf("2024-12-31", "2024,2024-12-28\n"), "2024-12-31");
}

TEST(CompanyCsv, TheStatedEndOfTheNewestQuarterStays) {
    const CsvImport import = importTexts("key,value\nlast_quarter_end,2024-09-30\n", "",
                                         "quarter_end,eps\n2024-09-28,2\n");
    ASSERT_NE(import.company, nullptr);
    EXPECT_EQ(import.company->get_LastQDate(), day(2024, 9, 30));
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 0), 2);
    EXPECT_EQ(told(import.notes), Lines());
}

TEST(CompanyCsv, ANewerQuarterBecomesTheLastOne) {
    const CsvImport import =
        importTexts("key,value\nlast_quarter_end,2024-09-30\ngrid_quarter_end,2024-09-30\n", "",
                    "quarter_end,eps\n2024-12-31,2\n2024-09-30,1\n");
    ASSERT_NE(import.company, nullptr);
    EXPECT_EQ(import.company->get_LastQDate(), day(2024, 12, 31));
    EXPECT_EQ(import.company->get_LastQDateForGrid(), day(2024, 12, 31));
    EXPECT_EQ(elementOf(*import.company, Datum::QEPSSeries, 1), 1);
    EXPECT_EQ(import.notes.size(), 1U);
}

TEST(CompanyCsv, LeavesOutWhatIsOlderThanTheGridAndSaysSo) {
    std::string years = "fiscal_year,eps\n";
    for (int year = 2024; year > 2011; --year)
        years += std::to_string(year) + ",1\n";
    std::string quarters = "quarter_end,eps\n";
    for (int quarter = 0; quarter < 36; ++quarter)
        quarters += isoDateText(addQuarters(day(2024, 12, 31), -quarter)) + ",1\n";
    const CsvImport import = importTexts("key,value\nname,X\n", years, quarters);
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    EXPECT_EQ(
        told(import.notes),
        (Lines{"y.csv, line 12, column 1, \"2014\": 3 fiscal years older than the grid left out",
               "q.csv, line 37, column 1, \"2016-03-31\": 1 quarter older than the grid left "
               "out"}));
}

// Other spreadsheets

TEST(CompanyCsv, ReadsOtherSeparatorsLineBreaksAndHeaderCase) {
    const CsvImport import = importTexts("\xef\xbb\xbfKey;Value\r\nNAME;Müller, \"AG\"\r\n",
                                         "Fiscal_Year\t EPS \r\n"
                                         "2024\t 1.5 \r\n\r\n",
                                         "quarter_end;eps;\r\n2024-12-31;.5;\r\n;;\r\n");
    // An unquoted quotation mark is an error; everything else of the texts is fine.
    EXPECT_EQ(told(import.errors), (Lines{"c.csv, line 2, column 2, \"Müller, \"AG\"\": a "
                                          "quotation mark in the middle of a cell"}));

    const CsvImport corrected =
        importTexts("\xef\xbb\xbfKey;Value\r\nNAME;\"Müller; \"\"AG\"\"\"\r\n",
                    "Fiscal_Year\t EPS \r\n2024\t 1.5 \r\n\r\n",
                    "quarter_end;eps;\r\n2024-12-31;.5;\r\n;;\r\n");
    ASSERT_NE(corrected.company, nullptr) << testing::PrintToString(told(corrected.errors));
    EXPECT_EQ(corrected.company->get_Name(), "Müller; \"AG\"");
    EXPECT_EQ(elementOf(*corrected.company, Datum::YEPSSeries, 1), 1.5);
    EXPECT_EQ(elementOf(*corrected.company, Datum::QEPSSeries, 0), 0.5);
}

// Errors

TEST(CompanyCsv, TellsEachErrorByItsPlace) {
    struct Row {
        const char* title;
        std::string company, yearly, quarterly;
        const char* error;
    };
    const std::string card = "key,value\nname,X\n";
    const Row rows[] = {
        {"letters", card, "fiscal_year,eps\n2024,1.5x\n", "",
         "y.csv, line 2, column 2, \"1.5x\": not a number"},
        {"brackets", card, "fiscal_year,eps\n2024,(1.5)\n", "",
         "y.csv, line 2, column 2, \"(1.5)\": not a number"},
        {"decimal comma", card, "fiscal_year;eps\n2024;1,5\n", "",
         "y.csv, line 2, column 2, \"1,5\": not a number: write a point as the decimal mark and no "
         "grouping"},
        {"grouping", "key,value\ntotal_debt_musd,\"90,509\"\n", "", "",
         "c.csv, line 2, column 2, \"90,509\": not a number: write a point as the decimal mark and "
         "no grouping"},
        {"scientific", "key,value\ncommon_shares,1.46811E+10\n", "", "",
         "c.csv, line 2, column 2, \"1.46811E+10\": scientific notation has lost digits: show the "
         "column as plain numbers"},
        {"too large", "key,value\ntax_rate_pct,1" + std::string(400, '0') + "\n", "", "",
         "c.csv, line 2, column 2, \"1000000000000000000000000000000000000000…\": beyond what can "
         "be kept"},
        {"same year", card, "fiscal_year,eps\n2024,1\n2023,1\n2024,1\n", "",
         "y.csv, line 4, column 1, \"2024\": the same fiscal year as in line 2"},
        {"same quarter", card, "", "quarter_end,eps\n2024-12-31,1\n2024-09-30,1\n2024-10-01,1\n",
         "q.csv, line 4, column 1, \"2024-10-01\": the same quarter as in line 3"},
        {"short year", card, "fiscal_year,eps\n24,1\n", "",
         "y.csv, line 2, column 1, \"24\": not a fiscal year"},
        {"half year", card, "fiscal_year,eps\n2024.5,1\n", "",
         "y.csv, line 2, column 1, \"2024.5\": not a fiscal year"},
        {"no year", card, "eps,fiscal_year\n1,\n", "",
         "y.csv, line 2, column 2: not a fiscal year"},
        {"year far ahead", "key,value\nlast_fiscal_year,2022\n", "fiscal_year,eps\n2024,1\n", "",
         "y.csv, line 2, column 1, \"2024\": more than one year after the last fiscal year 2022 "
         "that the company file states"},
        {"end of another year", card, "fiscal_year,fiscal_year_end\n2024,2014-12-31\n", "",
         "y.csv, line 2, column 2, \"2014-12-31\": not the end of the fiscal year 2024"},
        {"day that does not exist", card, "", "quarter_end,eps\n2023-02-29,1\n",
         "q.csv, line 2, column 1, \"2023-02-29\": not a date: write an existing day as "
         "2025-09-27"},
        {"other form of date", card, "", "quarter_end,eps\n12/31/2024,1\n",
         "q.csv, line 2, column 1, \"12/31/2024\": not a date: write an existing day as "
         "2025-09-27"},
        {"quarter without a date", card, "", "quarter_end,eps\n,1\n",
         "q.csv, line 2, column 1: no date"},
        {"unknown column", card, "fiscal_year,profit\n2024,1\n", "",
         "y.csv, line 1, column 2, \"profit\": unknown column"},
        {"column twice", card, "fiscal_year,eps,EPS\n2024,1,2\n", "",
         "y.csv, line 1, column 3, \"EPS\": this column stands twice"},
        {"no column of years", card, "eps\n1\n", "",
         "y.csv, line 1: the column fiscal_year is missing"},
        {"years and elements", card, "fiscal_year,element\n2024,1\n", "",
         "y.csv, line 1, column 2, \"element\": the rows are named by fiscal_year already"},
        {"element outside", card, "", "element,eps\n35,1\n",
         "q.csv, line 2, column 1, \"35\": not a whole number from 0 to 34"},
        {"row cut off", card, "fiscal_year,eps,high\n2024,1\n", "",
         "y.csv, line 2, \"2024\": the row has 2 cells, the header 3"},
        {"row too long", card, "fiscal_year,eps\n2024,1,5\n", "",
         "y.csv, line 2, \"2024\": the row has 3 cells, the header 2"},
        {"other header", "name,X\nsymbol,Y\n", "", "",
         "c.csv, line 1, column 1, \"name\": the header has to be key,value"},
        {"key of another table", "key,amount\nname,X\n", "", "",
         "c.csv, line 1, column 1, \"key\": the header has to be key,value"},
        {"value of another key", "name,value\nname,X\n", "", "",
         "c.csv, line 1, column 1, \"name\": the header has to be key,value"},
        {"key twice and no number", "key,value\ntax_rate_pct,1\nTax_Rate_pct,high\n", "", "",
         "c.csv, line 3, column 1, \"Tax_Rate_pct\": stands in line 2 already"},
        {"shares in words", "key,value\ncommon_shares,many\n", "", "",
         "c.csv, line 2, column 2, \"many\": not a number"},
        {"key twice", "key,value\nname,X\nName,Y\n", "", "",
         "c.csv, line 3, column 1, \"Name\": stands in line 2 already"},
        {"setting", "key,value\nshow_tax_rate,maybe\n", "", "",
         "c.csv, line 2, column 2, \"maybe\": neither true nor false"},
        {"unit", "key,value\nunit,70000\n", "", "",
         "c.csv, line 2, column 2, \"70000\": not a whole number"},
        {"day of a price", "key,value\nprice_date,today\n", "", "",
         "c.csv, line 2, column 2, \"today\": not a date: write an existing day as 2025-09-27"},
        {"last year", "key,value\nlast_fiscal_year,20x4\n", "", "",
         "c.csv, line 2, column 2, \"20x4\": not a year"},
        {"empty file", "", "", "", "c.csv: the file is empty"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        const CsvImport import = importTexts(row.company, row.yearly, row.quarterly);
        EXPECT_EQ(import.company, nullptr);
        EXPECT_EQ(told(import.errors), Lines{row.error});
    }
}

TEST(CompanyCsv, FindsTheErrorsOfAllThreeTextsAtOnce) {
    const CsvImport import = importTexts("key,value\ntax_rate_pct,high\nprice_date,today\n",
                                         "fiscal_year,eps,high\n2024,a,b\n2023,1,c\n",
                                         "quarter_end,eps\n2024-12-32,d\n");
    EXPECT_EQ(import.company, nullptr);
    EXPECT_EQ(import.errors.size(), 7U);
}

TEST(CompanyCsv, NothingThatPeopleKeepInFilesThrows) {
    std::string text = "key,value\nname,\"X\"\ncommon_shares,14681140000\nunit,6\n";
    const std::string years = "fiscal_year,fiscal_year_end,eps\n2024,2024-12-31,1.5\n";
    std::mt19937 random(5);
    const auto damaged = [&](std::string whole) {
        for (int count = std::uniform_int_distribution(1, 4)(random); count > 0; --count) {
            const auto place =
                std::uniform_int_distribution<std::size_t>(0, whole.size() - 1)(random);
            whole[place] = static_cast<char>(std::uniform_int_distribution(0, 255)(random));
        }
        return whole;
    };
    for (int round = 0; round < 5000; ++round) {
        const CsvImport import = importTexts(damaged(text), damaged(years));
        EXPECT_EQ(import.company == nullptr, !import.errors.empty());
    }
}

// Files

TEST(CompanyCsv, FileNamesAreMadeFromTheSymbol) {
    struct Row {
        const char* symbol;
        const char* prefix;
    };
    const Row rows[] = {{"AAPL", "AAPL"},  {"BRK.B", "BRK.B"}, {"BRK/B", "BRK_B"},
                        {"", "company"},   {"..", "_."},       {"a\nb", "a_b"},
                        {"C:\\x", "C__x"}, {"七和", "七和"},   {"A B", "A B"}};
    for (const Row& row : rows) {
        CompanyRecord company;
        company.put_Symbol(row.symbol);
        EXPECT_EQ(csvPrefix(company), row.prefix);
    }
    EXPECT_EQ(csvPrefix(std::string(60, 'x')), std::string(50, 'x'));
}

TEST_F(CompanyCsvFiles, ExportWritesThreeFilesThatImportReads) {
    const auto company = importCompany(samples, "TSLA").company;
    ASSERT_NE(company, nullptr);
    const CsvExport written = exportCompany(*company, folder_);
    EXPECT_EQ(written.error, "");
    EXPECT_EQ(names(), (Lines{"TSLA-company.csv", "TSLA-quarterly.csv", "TSLA-yearly.csv"}));
    const std::vector<fs::path> files = {folder_ / "TSLA-company.csv", folder_ / "TSLA-yearly.csv",
                                         folder_ / "TSLA-quarterly.csv"};
    EXPECT_EQ(written.files, files);
    EXPECT_EQ(csvFiles(folder_, "TSLA"), files);
    const auto again = importCompany(folder_, "TSLA").company;
    ASSERT_NE(again, nullptr);
    EXPECT_TRUE(sameAs(*company, *again));
}

TEST_F(CompanyCsvFiles, ExportReplacesAnEarlierOne) {
    const auto company = test::RandomCompany(6).record();
    company->put_Symbol("X");
    EXPECT_EQ(exportCompany(*company, folder_).error, "");
    company->put_Name("newer");
    EXPECT_EQ(exportCompany(*company, folder_).error, "");
    EXPECT_EQ(names().size(), 3U);
    EXPECT_EQ(importCompany(folder_, "X").company->get_Name(), "newer");
}

TEST_F(CompanyCsvFiles, AWriteThatFailsLeavesTheOldFiles) {
    const auto company = test::RandomCompany(7).record();
    company->put_Symbol("X");
    company->put_Notes(std::string(20000, 'n'));
    ASSERT_EQ(exportCompany(*company, folder_).error, "");
    std::map<std::string, std::string> before;
    for (const std::string& name : names())
        before[name] = read(folder_ / name);

    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    company->put_Notes(std::string(30000, 'x'));
    CompanyRecord few; // that are written when the file is closed
    few.put_Symbol("X");
    const std::pair<const CompanyRecord*, rlim_t> rows[] = {{company.get(), 0},
                                                            {company.get(), 1},
                                                            {company.get(), 100},
                                                            {company.get(), 4096},
                                                            {company.get(), 8192},
                                                            {company.get(), 20000},
                                                            {company.get(), 29999},
                                                            {&few, 0},
                                                            {&few, 100}};
    for (const auto& [written, limit] : rows) {
        const rlimit small{limit, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const std::string error = exportCompany(*written, folder_).error;
        setrlimit(RLIMIT_FSIZE, &usual);
        EXPECT_EQ(error, (folder_ / "X-company.csv").string() +
                             " could not be written: " + std::generic_category().message(EFBIG))
            << limit;
        EXPECT_EQ(names().size(), 3U);
        for (const auto& [name, text] : before)
            EXPECT_EQ(read(folder_ / name), text) << name << " " << limit;
    }
    std::signal(SIGXFSZ, handler);
}

TEST_F(CompanyCsvFiles, ExportTellsWhatItCannotReplace) {
    CompanyRecord company;
    company.put_Symbol("X");
    fs::create_directories(folder_ / "X-quarterly.csv" / "inside");
    const CsvExport written = exportCompany(company, folder_);
    EXPECT_NE(written.error.find("X-quarterly.csv"), std::string::npos);
    EXPECT_EQ(names(), Lines{"X-quarterly.csv"});

    const CsvExport nowhere = exportCompany(company, folder_ / "missing");
    EXPECT_NE(nowhere.error, "");
    EXPECT_FALSE(fs::exists(folder_ / "missing"));
}

TEST_F(CompanyCsvFiles, AnExportTakesThePlaceOfNothingButFiles) {
    const auto company = std::make_shared<CompanyRecord>();
    company->put_Symbol("X");
    write(folder_ / "X-company.csv", "mine");
    write(folder_ / "elsewhere", "mine too");
    const fs::path place = folder_ / "X-quarterly.csv";
    const auto expectRefusal = [&](const std::string& reason) {
        const fs::file_type type = fs::status(place).type();
        EXPECT_EQ(whyNotReplaced(place), place.string() + " could not be replaced: " + reason);
        EXPECT_EQ(exportCompany(*company, folder_).error, whyNotReplaced(place));
        EXPECT_EQ(fs::status(place).type(), type);
        EXPECT_EQ(read(folder_ / "X-company.csv"), "mine");
        fs::remove(place);
        EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 2) << "nothing beside";
    };
    fs::create_directories(place);
    expectRefusal("it is a folder");
    ASSERT_EQ(mkfifo(place.c_str(), 0600), 0);
    expectRefusal("it is no file");
    fs::create_symlink("/dev/null", place);
    expectRefusal("it is no file");
    fs::create_symlink(folder_ / "elsewhere", place);
    EXPECT_EQ(whyNotReplaced(place), "");
    EXPECT_EQ(exportCompany(*company, folder_).error, "");
    EXPECT_FALSE(fs::is_symlink(place));
    EXPECT_EQ(read(folder_ / "elsewhere"), "mine too");
}

TEST_F(CompanyCsvFiles, GridFilesMayBeMissingButNotTheCompanyFile) {
    write(folder_ / "X-company.csv", "key,value\nname,X\n");
    const CsvImport import = importCompany(folder_, "X");
    ASSERT_NE(import.company, nullptr);
    EXPECT_EQ(told(import.notes), (Lines{"X-yearly.csv: there is no such file",
                                         "X-quarterly.csv: there is no such file"}));
    const CsvImport missing = importCompany(folder_, "Y");
    EXPECT_EQ(missing.company, nullptr);
    EXPECT_EQ(told(missing.errors), Lines{"Y-company.csv: there is no such file"});
}

TEST_F(CompanyCsvFiles, AFileThatCannotBeReadIsAnError) {
    write(folder_ / "X-company.csv", "key,value\nname,X\n");
    fs::create_directories(folder_ / "X-yearly.csv");
    const CsvImport import = importCompany(folder_, "X");
    EXPECT_EQ(import.company, nullptr);
    EXPECT_EQ(told(import.errors),
              Lines{"X-yearly.csv: cannot be read: " + std::generic_category().message(EISDIR)});
    fs::remove(folder_ / "X-yearly.csv");
    fs::create_symlink("X-yearly.csv", folder_ / "X-yearly.csv"); // to itself
    EXPECT_EQ(
        importCompany(folder_, "X").errors,
        (std::vector<CsvProblem>{{"X-yearly.csv", 0, 0, "",
                                  "cannot be read: " + std::generic_category().message(ELOOP)}}));
}

TEST_F(CompanyCsvFiles, APipeIsNotWaitedFor) {
    write(folder_ / "X-company.csv", "key,value\nname,X\n");
    ASSERT_EQ(mkfifo((folder_ / "X-yearly.csv").c_str(), 0600), 0);
    const CsvImport import = importCompany(folder_, "X");
    EXPECT_EQ(import.company, nullptr);
    EXPECT_EQ(told(import.errors), Lines{"X-yearly.csv: cannot be read: it is no file"});
}

TEST_F(CompanyCsvFiles, AFolderImportPassesOverWhatIsNoRegularFile) {
    write(folder_ / "X-company.csv", "key,value\nname,X\n");
    fs::create_symlink(folder_ / "X-company.csv", folder_ / "LINK-company.csv");
    fs::create_symlink(folder_ / "gone", folder_ / "NOWHERE-company.csv");
    fs::create_directories(folder_ / "FOLDER-company.csv");
    write(folder_ / "-company.csv", "key,value\nname,X\n"); // of no company
    ASSERT_EQ(mkfifo((folder_ / "PIPE-company.csv").c_str(), 0600), 0);
    const FolderImport import = importFolder(folder_);
    EXPECT_EQ(import.error, "");
    ASSERT_EQ(import.entries.size(), 2U);
    EXPECT_EQ(import.entries[0].prefix, "LINK");
    EXPECT_EQ(import.entries[1].prefix, "X");
    for (const auto& entry : import.entries)
        EXPECT_NE(entry.result.company, nullptr) << entry.prefix;
}

TEST_F(CompanyCsvFiles, AFileLongerThanOneReadArrivesWhole) {
    const std::string notes(100'000, 'n');
    write(folder_ / "X-company.csv", "key,value\nname,X\nnotes," + notes + "\n");
    const CsvImport import = importCompany(folder_, "X");
    ASSERT_NE(import.company, nullptr) << testing::PrintToString(told(import.errors));
    EXPECT_EQ(import.company->get_Notes(), notes);
    std::string text = "key,value\nname,X\nnotes,";
    text.resize(16385, 'n'); // one letter more than is read at once
    write(folder_ / "X-company.csv", text);
    EXPECT_TRUE(text.ends_with(importCompany(folder_, "X").company->get_Notes()));
    EXPECT_EQ(importCompany(folder_, "X").company->get_Notes().size() + 23, text.size());
}

TEST_F(CompanyCsvFiles, AFolderIsImportedCompanyByCompany) {
    for (const auto& entry : fs::directory_iterator(samples))
        fs::copy(entry.path(), folder_);
    write(folder_ / "BAD-company.csv", "key,value\ntax_rate_pct,high\n");
    write(folder_ / "ODD-yearly.csv", "fiscal_year,eps\n2024,1\n");
    Lines seen;
    const FolderImport import = importFolder(folder_, [&](int done, int total, const auto& prefix) {
        EXPECT_EQ(done, static_cast<int>(seen.size()));
        EXPECT_EQ(total, 6);
        seen.push_back(prefix);
        return true;
    });
    EXPECT_EQ(seen, (Lines{"AAPL", "BAD", "NVDA", "ODD", "SNOW", "TSLA"}));
    EXPECT_EQ(import.error, "");
    EXPECT_FALSE(import.stopped);
    ASSERT_EQ(import.entries.size(), 6U);
    for (const auto& [prefix, result] : import.entries)
        EXPECT_EQ(result.company == nullptr, prefix == "BAD" || prefix == "ODD") << prefix;
}

TEST_F(CompanyCsvFiles, TheImportOfAFolderCanBeStopped) {
    const FolderImport import =
        importFolder(samples, [](int done, int, const auto&) { return done < 2; });
    EXPECT_TRUE(import.stopped);
    EXPECT_EQ(import.entries.size(), 2U);
}

TEST_F(CompanyCsvFiles, AFolderThatIsMissingIsAnError) {
    const FolderImport import = importFolder(folder_ / "missing");
    EXPECT_NE(import.error.find("missing"), std::string::npos);
    EXPECT_TRUE(import.entries.empty());
}

// A date that the company file does not state is from the table that it is taken from.
TEST(CompanyCsv, EachDatumIsFromTheFileThatItStandsIn) {
    const std::string company = "key,value\nlast_quarter_end,2025-03-31\ntotal_debt_musd,5\n";
    const CsvImport import =
        importTexts(company, "fiscal_year,fiscal_year_end,revenue_musd\n2024,2024-12-31,7\n",
                    "quarter_end,revenue_musd\n2025-03-31,2\n");
    ASSERT_EQ(told(import.errors), Lines());
    const auto fileOf = [&](Datum datum) {
        const auto found = import.files.find(datum);
        return found == import.files.end() ? "none" : found->second;
    };
    EXPECT_EQ(fileOf(Datum::TotalDebt), "c.csv");
    EXPECT_EQ(fileOf(Datum::YRevenueSeries), "y.csv");
    EXPECT_EQ(fileOf(Datum::LastFY), "y.csv");
    EXPECT_EQ(fileOf(Datum::LastFYDate), "y.csv");
    EXPECT_EQ(fileOf(Datum::QRevenueSeries), "q.csv");
    EXPECT_EQ(fileOf(Datum::LastQDate), "c.csv");
    EXPECT_EQ(fileOf(Datum::Name), "none") << "there is no key for it";
    EXPECT_EQ(fileOf(Datum::YEPSSeries), "none") << "there is no column for it";
    EXPECT_FALSE(importTexts(company).files.contains(Datum::YRevenueSeries));
}

} // namespace
} // namespace vkr
