// SPDX-License-Identifier: MIT
// Blocks as spreadsheets, web pages and reports put them on the clipboard, up to the record.
#include "control/block_paste.hpp"
#include "platform/exact_number.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>
#include <string>

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
    {"HeadsWithTheirUnit", "txtSales(0)",
     "\tSales (B)\tNet income (B)\n2024\t391.035\t93.736\n2025\t416.161\t112.01\n",
     "YRevenueSeries 2025 416161, 2024 391035; YNetIncSeries 2025 112010, 2024 93736",
     "4 figures will be pasted."},
};

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
    for (const char* diluted :
         {"Diluted EPS", "Diluted earnings per share", "Earnings per share, diluted",
          "EPS (Diluted)", "Diluted (in dollars per share)"})
        for (const char* basic :
             {"EPS", "Earnings per share", "Basic EPS", "Basic earnings per share",
              "Earnings per share, basic", "EPS (Basic)"}) {
            SCOPED_TRACE(std::string(basic) + ", " + diluted);
            EntryScene scene;
            const auto record = emptyCompany();
            scene.load(record);
            scene.desktop.clickTab(toYearly);
            scene.desktop.setClipboardText("\t2025\n" + std::string(basic) + "\t7.49\n" + diluted +
                                           "\t7.46\n");
            scene.desktop.acceptNextPaste();
            scene.desktop.click("txtSales(0)");
            scene.desktop.type("^v");
            EXPECT_EQ(figuresOf(*record), "YEPSSeries 2025 7.46");
        }
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
