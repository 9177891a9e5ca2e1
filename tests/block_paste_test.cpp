// SPDX-License-Identifier: MIT
// Blocks as spreadsheets, web pages and reports put them on the clipboard, up to the record.
#include "company/company_base.hpp"
#include "control/block_paste.hpp"
#include "platform/exact_number.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vkr {
namespace {

// The fiscal year 2025 ended on 2025-09-27, the last quarter on 2025-12-27.
std::shared_ptr<CompanyRecord> emptyCompany() {
    auto record = std::make_shared<CompanyRecord>();
    record->put_LastFY(2025);
    record->put_LastFYDate(*makeDate(2025, 9, 27));
    record->put_LastQDate(*makeDate(2025, 12, 27));
    record->put_LastQDateForGrid(*makeDate(2025, 12, 27));
    return record;
}

// "Revenue 2025 416161, 2024 391035; Net Income 2025 112010", quarters by their place: "#0".
std::string figuresOf(const CompanyRecord& record) {
    std::string text;
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const Variant& series = record.stored(row.datum);
        std::string figures;
        for (int element = 0; element <= row.upper; ++element)
            if (const double figure = series.array().number(element); figure != 0) {
                const std::string period = row.period == DatumPeriod::year
                                               ? std::to_string(2026 - element)
                                               : "#" + std::to_string(element);
                figures += (figures.empty() ? " " : ", ") + period + " " + exactNumberText(figure);
            }
        if (!figures.empty())
            text += (text.empty() ? "" : "; ") + std::string(row.name) + figures;
    }
    return text;
}

struct Block {
    const char* name;
    const char* cell; // that it is pasted into
    const char* text;
    const char* figures; // of the record then
    const char* summary; // of the preview
};

void PrintTo(const Block& block, std::ostream* out) {
    *out << block.name;
}

const Block blocks[] = {
    {"AReportOnTheWeb", "txtSales(0)",
     "CONSOLIDATED STATEMENTS OF OPERATIONS - USD ($) shares in Thousands, $ in Millions\t12 "
     "Months "
     "Ended\nSep. 27, 2025\tSep. 28, 2024\tSep. 30, 2023\nNet sales\t$ 416,161\t$ 391,035\t$ "
     "383,285\nOperating income\t133,050\t123,216\t114,301\nIncome before provision for income "
     "taxes\t132,729\t123,485\t113,736\nNet income\t$ 112,010\t$ 93,736\t$ 96,995\nBasic (in "
     "dollars per share)\t$ 7.49\t$ 6.11\t$ 6.16\nDiluted (in dollars per share)\t$ 7.46\t$ "
     "6.08\t$ 6.13\nBasic (in shares)\t14,948,500\t15,343,783\t15,744,231\nDiluted (in "
     "shares)\t15,004,697\t15,408,095\t15,812,547\n",
     "YCSOSeries 2025 15004.697, 2024 15408.095, 2023 15812.547; YPTISeries 2025 132729, 2024 "
     "123485, 2023 113736; YRevenueSeries 2025 416161, 2024 391035, 2023 383285; YNetIncSeries "
     "2025 112010, 2024 93736, 2023 96995; YEPSSeries 2025 7.46, 2024 6.08, 2023 6.13",
     "15 figures will be pasted. 9 are left out."},
    {"SignsInCellsOfTheirOwn", "txtSales(0)",
     "\t\t2025\t\t\t2024\t\t\t2023\t\nNet sales\t$\t416,161\t\t$\t391,035\t\t$\t383,285\t\nNet "
     "income (loss)\t\t(5\t)\t\t93,736\t\t\t(96,995\t)\n",
     "YRevenueSeries 2025 416161, 2024 391035, 2023 383285; YNetIncSeries 2025 -5, 2024 93736, "
     "2023 -96995",
     "6 figures will be pasted. 5 to look at."},
    {"AFinancePageInThousands", "txtSales(3)",
     "All numbers in thousands\nBreakdown\tTTM\t9/30/2025\t9/30/2024\t9/30/2023\nTotal "
     "Revenue\t435,617,000\t416,161,000\t391,035,000\t383,285,000\nPretax "
     "Income\t141,000,000\t132,729,000\t123,485,000\t113,736,000\nDiluted "
     "EPS\t7.91\t7.46\t6.08\t6.13\n",
     "YPTISeries 2025 132729, 2024 123485, 2023 113736; YRevenueSeries 2025 416161, 2024 391035, "
     "2023 383285; YEPSSeries 2025 7.46, 2024 6.08, 2023 6.13",
     "9 figures will be pasted. 3 are left out."},
    {"ASpreadsheetWithThousandsInItsTitle", "txtSales(0)",
     "(in thousands, except per share data)\r\n\t2025\t2024\r\n\"Total "
     "revenues\"\t3626396\t2806489\r\n\"Net loss\"\t-1285640\t-836097\r\n\"Net "
     "income\"\t-1285640\t-836097\r\nEPS\t-3.86\t-2.55\r\n",
     "YRevenueSeries 2025 3626.396, 2024 2806.489; YNetIncSeries 2025 -1285.64, 2024 -836.097; "
     "YEPSSeries 2025 -3.86, 2024 -2.55",
     "6 figures will be pasted. 2 are left out."},
    {"YearsDownTheSide", "txtSales(0)",
     "Fiscal Year\tRevenue\tNet Income\tEPS\tDividends\n2023\t383285\t96995\t6.13\t0.94\n"
     "2024\t391035\t93736\t6.08\t0.98\n2025\t416161\t112010\t7.46\t1.02\n",
     "YDividendSeries 2025 1.02, 2024 0.98, 2023 0.94; YRevenueSeries 2025 416161, 2024 391035, "
     "2023 383285; YNetIncSeries 2025 112010, 2024 93736, 2023 96995; YEPSSeries 2025 7.46, 2024 "
     "6.08, 2023 6.13",
     "12 figures will be pasted."},
    {"FiscalYearsOfTwoDigitsNewestFirst", "txtSales(0)",
     "\tFY25\tFY24\tFY23\nRevenues\t416,161\t391,035\t383,285\nEffective tax rate\t15.6%\t24.1%\t"
     "14.7%\n",
     "YRevenueSeries 2025 416161, 2024 391035, 2023 383285",
     "3 figures will be pasted. 3 are left out."},
    {"EstimatesBesideFigures", "txtSales(0)",
     "\t2024A\t2025A\t2026E\t2027E\nSales\t391,035\t416,161\t440,000\t460,000\n",
     "YRevenueSeries 2025 416161, 2024 391035",
     "2 figures will be pasted. 2 are left out. 2 to look at."},
    {"ACommaAsTheDecimalMark", "txtSales(0)",
     "in Mio.\t2025\t2024\nRevenue\t416.161,5\t391.035,0\nEPS\t7,46\t6,08\n",
     "YRevenueSeries 2025 416161.5, 2024 391035; YEPSSeries 2025 7.46, 2024 6.08",
     "4 figures will be pasted."},
    {"BlanksBetweenThousands", "txtSales(0)",
     "\t2025\t2024\nRevenue\t416\u202f161,5\t391\u00a0035,25\nNet income\t\u2212112\u202f010\t"
     "93\u202f736\n",
     "YRevenueSeries 2025 416161.5, 2024 391035.25; YNetIncSeries 2025 -112010, 2024 93736",
     "4 figures will be pasted."},
    {"ApostrophesBetweenThousands", "txtSales(0)",
     "\t2025\t2024\nRevenue\t416'161.5\t391\u2019035.25\n",
     "YRevenueSeries 2025 416161.5, 2024 391035.25", "2 figures will be pasted."},
    {"LossesInBracketsWithASign", "txtSales(0)",
     "\t2025\t2024\nNet income\t($5,000)\t$(4,000)\nEPS\t(0.33)\t0.25-\n",
     "YNetIncSeries 2025 -5000, 2024 -4000; YEPSSeries 2025 -0.33, 2024 -0.25",
     "4 figures will be pasted."},
    {"NothingInManyWays", "txtSales(0)",
     "\t2025\t2024\t2023\t2022\t2021\t2020\nRevenue\tn/a\t\u2014\t###\t#REF!\t\t5\n",
     "YRevenueSeries 2020 5", "One figure will be pasted. 4 are left out."},
    {"AColumnAlone", "txtSales(7)", "383285\n391035\n416161\n",
     "YRevenueSeries 2025 416161, 2024 391035, 2023 383285", "3 figures will be pasted."},
    {"ACellAndItsNeighbour", "txtSales(9)", "416161\t132729",
     "YPTISeries 2025 132729; YRevenueSeries 2025 416161", "2 figures will be pasted."},
    {"ARowAlone", "txtYEPS(7)", "6.13\t6.08\t7.46\n",
     "YDividendSeries 2023 6.08; YHighSeries 2023 7.46; YEPSSeries 2023 6.13",
     "3 figures will be pasted."},
    {"PricesInEighths", "txtHigh(0)", "\t2025\t2024\nHigh\t45 1/8\t44 3/4\nLow\t30\t29 1/2\n",
     "YHighSeries 2025 45.125, 2024 44.75; YLowSeries 2025 30, 2024 29.5",
     "4 figures will be pasted."},
    {"LongNumbersOfASpreadsheet", "txtSales(0)",
     "Year\tRevenue (K)\n2025\t4.16161E+08\n2024\t391035000\n",
     "YRevenueSeries 2025 416161, 2024 391035", "2 figures will be pasted. One to look at."},
    {"SharesInAUnitOfTheirOwn", "txtSales(0)",
     "$ in millions, shares in thousands\n\t2025\t2024\nRevenue\t416,161\t391,035\nDiluted "
     "shares\t15,004,697\t15,408,095\n",
     "YCSOSeries 2025 15004.697, 2024 15408.095; YRevenueSeries 2025 416161, 2024 391035",
     "4 figures will be pasted."},
    {"ATitleWithALineBreak", "txtSales(0)",
     "\t\"Sept. 27,\n2025\"\t\"Sept. 28,\n2024\"\n\"Net\nsales\"\t\"416,161\"\t\"391,035\"\n",
     "YRevenueSeries 2025 416161, 2024 391035", "2 figures will be pasted. 2 to look at."},
    {"DatesDownTheSide", "txtSales(0)",
     "Date\tRevenue\tEPS\r\n2025-09-27\t416161\t7.46\r\n2024-09-28\t391035\t6.08\r\n",
     "YRevenueSeries 2025 416161, 2024 391035; YEPSSeries 2025 7.46, 2024 6.08",
     "4 figures will be pasted."},
    {"AFootnoteAndEmptyRows", "txtSales(0)",
     "\t2025\t2024\n\nRevenue (1)\t416,161\t391,035\nEPS\t7.46\t6.08\n\n(1) restated\t\t\n",
     "YEPSSeries 2025 7.46, 2024 6.08", "2 figures will be pasted. 2 are left out."},
    {"QuartersByTheirNames", "txtRevenue(0)",
     "\tQ1 2026\tQ4 2025\tQ3 2025\nRevenue\t143,756\t102,466\t94,036\nEPS\t2.84\t1.85\t1.57\n",
     "QRevenueSeries #0 143756, #1 102466, #2 94036; QEPSSeries #0 2.84, #1 1.85, #2 1.57",
     "6 figures will be pasted. 6 to look at."},
    {"QuartersByTheirDays", "txtRevenue(0)",
     "Quarter ended\t12/27/2025\t9/27/2025\t6/28/2025\nNet sales\t143,756\t102,466\t94,036\n",
     "QRevenueSeries #0 143756, #1 102466, #2 94036", "3 figures will be pasted. 3 to look at."},
    {"AReportOfAQuarter", "txtRevenue(0)",
     "\t3 Months Ended\t\t9 Months Ended\t\n\tJun. 28, 2025\tJun. 29, 2024\tJun. 28, 2025\tJun. "
     "29, 2024\nNet sales\t$ 94,036\t$ 85,777\t$ 313,695\t$ 296,105\n",
     "QRevenueSeries #0 94036, #1 85777, #2 313695, #3 296105",
     "4 figures will be pasted. 4 are left out. 4 to look at."},
    {"AStatementOfNineMonths", "txtRevenue(0)",
     "9 Months Ended\n\tJun. 28, 2025\tJun. 29, 2024\nNet sales\t$ 313,695\t$ 296,105\n",
     "QRevenueSeries #2 313695, #6 296105", "2 figures will be pasted. 2 to look at."},
    {"AnIncomeStatementWithBothEarnings", "txtSales(0)",
     "\t2025\t2024\nBasic EPS\t7.49\t6.11\nDiluted EPS\t7.46\t6.08\n",
     "YEPSSeries 2025 7.46, 2024 6.08", "2 figures will be pasted. 2 are left out."},
    {"MonthsWithTheirYears", "txtSales(0)", "\tSep-25\tSep-24\nRevenue\t416161\t391035\n",
     "YRevenueSeries 2025 416161, 2024 391035", "2 figures will be pasted."},
    {"HeadsWithTheirUnit", "txtSales(0)",
     "\tSales (B)\tNet income (B)\n2024\t391.035\t93.736\n2025\t416.161\t112.01\n",
     "YRevenueSeries 2025 416161, 2024 391035; YNetIncSeries 2025 112010, 2024 93736",
     "4 figures will be pasted."},
};

// "7.46: 2025 Earnings Per Share 7.46; n/a: "
std::string told(const std::vector<PasteLine>& lines) {
    std::string text;
    for (const auto& line : lines) {
        text += (text.empty() ? "" : "; ") + line.text + ": ";
        if (!line.after.empty())
            text += line.period + " " + line.column + " " + line.after;
    }
    return text;
}

class Blocks : public testing::TestWithParam<Block> {};

TEST_P(Blocks, GoFromTheClipboardIntoTheRecord) {
    const Block& block = GetParam();
    EntryScene scene;
    const auto record = emptyCompany();
    scene.load(record);
    scene.desktop.clickTab(std::string_view(block.cell).starts_with("txtRevenue") ? toQuarterly
                                                                                  : toYearly);
    scene.desktop.setClipboardText(block.text);
    scene.desktop.acceptNextPaste();
    scene.desktop.click(block.cell);
    scene.desktop.type("^v");
    ASSERT_EQ(scene.desktop.pastes().size(), 1U);
    EXPECT_EQ(scene.desktop.pastes()[0].summary, block.summary);
    EXPECT_EQ(figuresOf(*record), block.figures);
}

INSTANTIATE_TEST_SUITE_P(All, Blocks, testing::ValuesIn(blocks),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(BlockPaste, TakesDilutedEarningsBeforeBasicOnesByAnyOfTheirNames) {
    EntryScene scene;
    scene.load(emptyCompany());
    scene.desktop.clickTab(toYearly);
    scene.desktop.click("txtSales(0)");
    for (const char* diluted :
         {"Diluted EPS", "Diluted earnings per share", "Earnings per share, diluted",
          "EPS (Diluted)", "Diluted (in dollars per share)"})
        for (const char* basic :
             {"EPS", "Earnings per share", "Basic EPS", "Basic earnings per share",
              "Earnings per share, basic", "EPS (Basic)"}) {
            scene.desktop.setClipboardText("\t2025\n" + std::string(basic) + "\t7.49\n" + diluted +
                                           "\t7.46\n");
            scene.desktop.type("^v");
            EXPECT_EQ(told(scene.desktop.pastes().back().lines),
                      "7.49: ; 7.46: 2025 Basic EPS 7.46")
                << basic << ", " << diluted;
        }
}

TEST(BlockPaste, ReadsItsFiguresByTheDecimalMarkOfTheForm) {
    EntryScene scene;
    scene.load(emptyCompany());
    scene.desktop.clickTab(toYearly);
    scene.desktop.setClipboardText("1,234\t2");
    scene.typeAt("txtSales(8)", "^v");
    EXPECT_EQ(scene.desktop.pastes().back().lines[0].after, "1234");
    scene.entry->put_NumberMarks({.decimal = ',', .grouping = "."});
    scene.desktop.type("^v");
    EXPECT_EQ(scene.desktop.pastes().back().lines[0].after, "1,234");
}

// Its quarters are dated, its years are not, or without an end.
class RecordOfQuarters final : public CompanyBase {
  public:
    RecordOfQuarters(std::int16_t year, Date end) : year_(year), end_(end) {}
    [[nodiscard]] std::int16_t get_LastFY() const override { return year_; }
    [[nodiscard]] Date get_LastFYDate() const override { return end_; }
    void put_LastFYDate(Date /*suggested*/) override {}
    [[nodiscard]] Date get_LastQDate() const override { return *makeDate(2025, 12, 27); }
    [[nodiscard]] Date get_LastQDateForGrid() const override { return get_LastQDate(); }
    [[nodiscard]] Variant get_QRevenueSeries() const override {
        return numberArray(std::vector<double>(35), 0);
    }

  private:
    std::int16_t year_;
    Date end_;
};

TEST(BlockPaste, NamesQuartersWhereTheRecordHasAFiscalYearAndItsEnd) {
    struct Row {
        std::int16_t year;
        Date end;
        const char* lines;
    };
    const Date end = *makeDate(2025, 9, 27);
    for (const auto& [year, ends, lines] :
         {Row{2025, end, "5: 9/27/2025 \u2190 Q4 2025 Revenue (M) 5"},
          Row{0, end, "5: 12/27/2025 Revenue (M) 5"},
          Row{2025, Date{}, "5: 12/27/2025 Revenue (M) 5"}}) {
        EntryScene scene;
        scene.load(std::make_shared<RecordOfQuarters>(year, ends));
        scene.desktop.clickTab(toQuarterly);
        scene.desktop.setClipboardText("\tQ4 2025\nRevenue\t5");
        scene.typeAt("txtRevenue(0)", "^v");
        ASSERT_EQ(scene.desktop.pastes().size(), 1U);
        EXPECT_EQ(told(scene.desktop.pastes()[0].lines), lines) << year;
    }
}

TEST(BlockPaste, LeavesOutTheFiguresOfASeriesThatCannotBeRead) {
    const auto record = std::make_shared<ScriptedRecord>(emptyCompany());
    EntryScene scene;
    scene.load(record);
    record->failing = {"read YPTISeries"};
    scene.desktop.clickTab(toYearly);
    scene.desktop.setClipboardText("1\t2\t3");
    scene.typeAt("txtSales(9)", "^v");
    ASSERT_EQ(scene.desktop.pastes().size(), 1U);
    EXPECT_EQ(told(scene.desktop.pastes()[0].lines),
              "1: 2025 Revenue (M) 1; 2: ; 3: 2025 Net Inc. (M) 3");
}

// --- switches ------------------------------------------------------------------------------------

std::vector<int> chosenIn(const PasteForm& form) {
    std::vector<int> chosen;
    for (const auto& one : form.switches())
        chosen.push_back(one.chosen);
    return chosen;
}

// Of blocks that have everything: what is enabled can be chosen, and the rest stays as it is.
TEST(BlockPaste, EachSwitchTurnsAlone) {
    EntryScene scene;
    scene.load(emptyCompany());
    scene.desktop.clickTab(toYearly);
    scene.desktop.click("txtSales(0)");
    for (const char* block : {"\t2024\t2025\nRevenue\t1.5\t2.5\nNet income\t-\t4.5", "1.5\t2.5"}) {
        SCOPED_TRACE(block);
        scene.desktop.setClipboardText(block);
        scene.desktop.answerNextPaste([](PasteForm& form) {
            const auto count = form.lines().size();
            for (int index = 0; index < std::ssize(form.switches()); ++index)
                for (const int choice : {1, 0, 2, 3, 1, 0}) {
                    const PasteSwitch before = form.switches()[static_cast<std::size_t>(index)];
                    auto expected = chosenIn(form);
                    const int choices =
                        before.entries.empty() ? 2 : static_cast<int>(before.entries.size());
                    if (before.enabled && choice < choices)
                        expected[static_cast<std::size_t>(index)] = choice;
                    form.setSwitch(index, choice);
                    EXPECT_EQ(chosenIn(form), expected) << before.caption << " " << choice;
                }
            form.setSwitch(0, 1);
            form.setSwitch(1, 1);
            EXPECT_EQ(form.lines().size(), count) << "each cell is told once";
        });
        scene.desktop.type("^v");
    }
    EXPECT_TRUE(scene.desktop.scriptUsedUp());
}

// --- cells that go nowhere -----------------------------------------------------------------------

TEST(BlockPaste, UpToFiftyCellsThatGoNowhereHaveALineEach) {
    EntryScene scene;
    scene.load(emptyCompany());
    scene.desktop.clickTab(toYearly);
    const auto linesOf = [&](int outside) {
        std::string text = "1\n";
        for (int row = 0; row < outside; ++row)
            text += "2\n";
        scene.desktop.setClipboardText(text);
        scene.typeAt("txtSales(10)", "^v");
        return scene.desktop.pastes().back().lines;
    };
    EXPECT_EQ(linesOf(50).size(), 51U);
    EXPECT_EQ(told(linesOf(51)), "1: 2026 Revenue (M) 1; 51 cells: ");
}

// What there is to look at in a figure does not count with what is left out.
TEST(BlockPaste, CellsWhosePlaceIsTakenAreToldTogether) {
    EntryScene scene;
    scene.load(emptyCompany());
    scene.desktop.clickTab(toYearly);
    std::string text = "\t2025\n";
    for (int row = 0; row < 60; ++row)
        text += "Revenue\t1e3\n";
    scene.desktop.setClipboardText(text);
    scene.typeAt("txtSales(0)", "^v");
    const auto& lines = scene.desktop.pastes()[0].lines;
    EXPECT_EQ(told(lines), "1e3: 2025 Revenue (M) 1000; 59 cells: ");
    EXPECT_EQ(lines.back().remark, "A second figure for the same place.");
}

TEST(BlockPaste, ReadsTheDatesOfItsHeadingsAsTheFormWritesThem) {
    for (const auto& [pattern, figures] :
         {std::pair{"DD/MM/YYYY", "YRevenueSeries 2025 416161, 2024 391035"},
          {"MM/DD/YYYY", "YRevenueSeries 2024 416161, 2023 391035"}}) {
        EntryScene scene;
        scene.entry->put_DateFormat(pattern);
        const auto record = emptyCompany();
        scene.load(record);
        scene.desktop.clickTab(toYearly);
        scene.desktop.setClipboardText("\t03/10/2025\t03/10/2024\nNet sales\t416161\t391035\n");
        scene.desktop.acceptNextPaste();
        scene.desktop.click("txtSales(0)");
        scene.desktop.type("^v");
        EXPECT_EQ(figuresOf(*record), figures) << pattern;
    }
}

// As many cells as are taken at all, long and wide, with labels and without.
TEST(BlockPaste, OfTwentyThousandCellsHasAFewLines) {
    struct Size {
        int rows;
        int columns;
    };
    for (const auto& [rows, columns] : {Size{10'000, 2}, Size{2, 10'000}, Size{100, 200}})
        for (const bool hasLabels : {false, true}) {
            SCOPED_TRACE(std::to_string(rows) + (hasLabels ? " rows with labels" : " rows"));
            std::string text;
            for (int row = 0; row < rows; ++row)
                for (int column = 0; column < columns; ++column) {
                    const bool isLabel = hasLabels && (column == 0 || row == 0);
                    text += isLabel ? "Label " + std::to_string(row + column) : "1.5";
                    text += column + 1 < columns ? '\t' : '\n';
                }
            EntryScene scene;
            scene.load(emptyCompany());
            scene.desktop.clickTab(toYearly);
            scene.desktop.setClipboardText(text);
            scene.desktop.click("txtSales(0)");
            scene.desktop.type("^v");
            ASSERT_EQ(scene.desktop.pastes().size(), 1U);
            EXPECT_LE(scene.desktop.pastes()[0].lines.size(), 200U);
        }
}

} // namespace
} // namespace vkr
