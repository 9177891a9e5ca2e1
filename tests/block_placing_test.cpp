// SPDX-License-Identifier: MIT
#include "binding/block_placing.hpp"
#include "input/date_pattern.hpp"
#include "platform/exact_number.hpp"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace vkr {
namespace {

const char* wordFor(BlockRemark remark) {
    static const std::map<BlockRemark, const char*> words = {
        {BlockRemark::brackets, "brackets"},
        {BlockRemark::minusBehind, "behind"},
        {BlockRemark::currency, "currency"},
        {BlockRemark::percentSign, "percent"},
        {BlockRemark::fraction, "fraction"},
        {BlockRemark::openBracket, "open?"},
        {BlockRemark::percentOfAmount, "percent?"},
        {BlockRemark::exponent, "exponent?"},
        {BlockRemark::otherReading, "mark?"},
        {BlockRemark::empties, "empties?"},
        {BlockRemark::looksLikeYear, "year?"},
        {BlockRemark::replacesTyped, "typed?"},
        {BlockRemark::dash, "dash"},
        {BlockRemark::notAvailable, "n/a"},
        {BlockRemark::hidden, "hidden"},
        {BlockRemark::failed, "failed"},
        {BlockRemark::noFigure, "none"},
        {BlockRemark::negative, "negative"},
        {BlockRemark::tooLarge, "large"},
        {BlockRemark::outside, "outside"},
        {BlockRemark::noSuchPeriod, "period"},
        {BlockRemark::noSuchColumn, "column"},
        {BlockRemark::twice, "twice"},
        {BlockRemark::byPosition, "place?"},
        {BlockRemark::fiscalQuarter, "fiscal?"},
        {BlockRemark::unitUnclear, "unit?"},
        {BlockRemark::sharesUnit, "shares"},
        {BlockRemark::unnamed, "unnamed"},
        {BlockRemark::otherMonths, "months?"},
        {BlockRemark::otherHead, "other"},
        {BlockRemark::otherDay, "day?"},
    };
    return words.at(remark);
}

using Held = BlockGrid::Held;

// What the record has, by column and row.
template <typename HeldAt>
void hold(BlockGrid& grid, HeldAt heldAt) {
    grid.held.assign(grid.columns.size(), std::vector<std::optional<Held>>(grid.rows.size()));
    for (int column = 0; column < std::ssize(grid.columns); ++column)
        for (int row = 0; row < std::ssize(grid.rows); ++row)
            grid.held[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)] =
                heldAt(column, row);
}

// Ten years up to 2025 and the one after, oldest on top; five columns.
BlockGrid yearly(int column = 0, int row = 0) {
    BlockGrid grid;
    using enum BlockGrid::Measure;
    grid.columns = {{.name = "Revenue", .measure = money},
                    {.name = "Tax Rate", .measure = percent, .negatives = true},
                    {.name = "Net Income", .measure = money, .negatives = true},
                    {.name = "EPS", .otherNames = {"Earnings per share"}, .negatives = true},
                    {.name = "High", .measure = price},
                    {.name = "Shares", .measure = shares}};
    for (int year = 2016; year <= 2026; ++year)
        grid.rows.push_back({.year = year, .date = *makeDate(year, 9, 30)});
    grid.column = column;
    grid.row = row;
    grid.unitNames = {{"(K)", 3}, {"(M)", 6}, {"(B)", 9}};
    grid.today = *makeDate(2026, 11, 21);
    hold(grid, [](int, int) { return Held{}; });
    return grid;
}

// Eight quarters, newest on top, the last one 2026-09-30.
BlockGrid quarterly(int column = 0, int row = 0) {
    BlockGrid grid = yearly(column, row);
    grid.quarterly = true;
    grid.rows.clear();
    for (int quarter = 0; quarter < 8; ++quarter)
        grid.rows.push_back({.date = addQuarters(*makeDate(2026, 9, 30), -quarter)});
    hold(grid, [](int, int) { return Held{}; });
    return grid;
}

// "2016 Revenue 5" and what is said of it; parted by "; ". The quarters by their row.
std::string told(const BlockPlacing& placing) {
    std::string text;
    const auto& grid = placing.grid();
    for (const auto& cell : placing.cells()) {
        text += text.empty() ? "" : "; ";
        if (cell.figure) {
            const int year = grid.rows[static_cast<std::size_t>(cell.row)].year;
            text += year == 0 ? "#" + std::to_string(cell.row) : std::to_string(year);
            text += " " + grid.columns[static_cast<std::size_t>(cell.column)].name + " " +
                    exactNumberText(*cell.figure);
        } else {
            text += "'" + cell.text + "'";
        }
        for (const auto& comment : cell.comments) {
            text += std::string(" ") + wordFor(comment.remark);
            text += comment.detail.empty() ? "" : "=" + comment.detail;
        }
    }
    return text;
}

std::string placed(const char* text, const BlockGrid& grid = yearly()) {
    return told(BlockPlacing(cellsOf(text), grid));
}

TEST(BlockPlacing, BeginsAtTheCell) {
    EXPECT_EQ(placed("1\t2\n3\t4", yearly()),
              "2016 Revenue 1; 2016 Tax Rate 2; 2017 Revenue 3; 2017 Tax Rate 4");
    EXPECT_EQ(placed("1\n2\n", yearly(2, 5)), "2021 Net Income 1; 2022 Net Income 2");
    EXPECT_EQ(placed("1\t\n\t4", yearly(0, 0)), "2016 Revenue 1; 2017 Tax Rate 4");
    EXPECT_EQ(placed("\n2", yearly(0, 0)), "2017 Revenue 2"); // an empty cell has its place
    EXPECT_EQ(placed("1\n2", quarterly(3, 4)), "#4 EPS 1; #5 EPS 2");
}

TEST(BlockPlacing, HasNothingToPlaceInTextsAlone) {
    for (const char* text : {"", "Revenue", "\nRevenue", "\nRevenue\nEPS", "\tRevenue\n\tEPS",
                             "Revenue\tEPS", "\t\n\t"})
        EXPECT_EQ(placed(text), "") << text;
}

TEST(BlockPlacing, TellsWhatLiesOutside) {
    EXPECT_EQ(placed("1\t2", yearly(5, 0)), "2016 Shares 1; '2' outside");
    EXPECT_EQ(placed("1\n2", yearly(0, 10)), "2026 Revenue 1; '2' outside");
    BlockGrid small = yearly();
    hold(small, [](int, int row) { return row < 2 ? std::optional(Held{}) : std::nullopt; });
    EXPECT_EQ(placed("1\n2\n3", small), "2016 Revenue 1; 2017 Revenue 2; '3' outside");
}

TEST(BlockPlacing, LeavesOutWhatIsNoFigure) {
    EXPECT_EQ(placed("n/a\t#DIV/0!\t###\tsee note\t-", yearly()),
              "'n/a' n/a; '#DIV/0!' failed; '###' hidden; 'see note' none; '-' dash");
    EXPECT_EQ(placed("-5", yearly(0, 0)), "'-5' negative");
    EXPECT_EQ(placed("-5", yearly(2, 0)), "2016 Net Income -5");
    EXPECT_EQ(placed("1e400", yearly(3, 0)), "'1e400' exponent? large");
    EXPECT_EQ(placed("100-50\t1/8", yearly(3, 0)), "'100-50' none; 2016 High 0.125 fraction");
}

TEST(BlockPlacing, TellsHowAFigureWasRead) {
    EXPECT_EQ(placed("(5)\t5-\t$5", yearly(2, 0)),
              "2016 Net Income -5 brackets; 2016 EPS -5 behind; 2016 High 5 currency=$");
    EXPECT_EQ(placed("12.5%\t12.5%", yearly(1, 0)),
              "2016 Tax Rate 12.5 percent; 2016 Net Income 12.5 percent?");
    EXPECT_EQ(placed("1,234", yearly(0, 0)), "2016 Revenue 1234 mark?=1.234");
    EXPECT_EQ(placed("1.5E+3", yearly(0, 0)), "2016 Revenue 1500 exponent?");
    EXPECT_EQ(placed("(5", yearly(2, 0)), "2016 Net Income -5 open?");
    EXPECT_EQ(placed("-0", yearly(0, 0)), "2016 Revenue 0");
}

TEST(BlockPlacing, KnowsTheYearsOfAReport) {
    struct Row {
        const char* text;
        const char* told;
    };
    const Row rows[] = {
        // years above, newest first, with labels beside
        {"\t2025\t2024\nRevenue\t5\t4\nNet Income\t2\t1",
         "2025 Revenue 5; 2024 Revenue 4; 2025 Net Income 2; 2024 Net Income 1"},
        {"Years ended\t2024\t2025\nSales\t4\t5", "2024 Revenue 4; 2025 Revenue 5"},
        {"\tFY2024\tFY 2025\nSales\t4\t5", "2024 Revenue 4; 2025 Revenue 5"},
        {"Report\n\n\t2024\t2025\nSales\t4\t5", "2024 Revenue 4; 2025 Revenue 5"},
        {"Income statement\nin millions\n\t2024\t2025\nSales\t4\t5",
         "2024 Revenue 4; 2025 Revenue 5"},
        // down the side
        {"Year\tRevenue\tEPS\n2024\t4\t1\n2025\t5\t2",
         "2024 Revenue 4; 2024 EPS 1; 2025 Revenue 5; 2025 EPS 2"},
        {"\tx\n2025\t5\n2024\t4", "2025 Revenue 5; 2024 Revenue 4"},
        // dates of the fiscal year
        {"\tSep 28, 2024\tSep 27, 2025\nSales\t4\t5", "2024 Revenue 4; 2025 Revenue 5"},
        {"\t2024-09-30\t2025-09-30\nSales\t4\t5", "2024 Revenue 4; 2025 Revenue 5"},
        // not on the form
        {"\t2014\t2015\t2016\nSales\t1\t2\t3", "'1' period=2014; '2' period=2015; 2016 Revenue 3"},
        // signs in cells of their own
        {"\t\t2025\t\t2024\nSales\t$\t5\t$\t4\nTax\t\t2\t\t1",
         "2025 Revenue 5 currency=$; 2024 Revenue 4 currency=$; 2025 Tax Rate 2; 2024 Tax Rate 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(placed(row.text), row.told);
    }
}

// Fiscal years have 52 or 53 weeks, and end on another day when a company moves its year's end.
TEST(BlockPlacing, KnowsDatesThatAreAYearOrAQuarterApart) {
    struct Row {
        const BlockGrid& grid;
        int apart;
        bool follows;
    };
    const BlockGrid years = yearly();
    const BlockGrid quarters = quarterly();
    const Row rows[] = {
        {years, 349, false},
        {years, 350, true},
        {years, 380, true},
        {years, 381, false},
        {quarters, 79, false},
        {quarters, 80, true},
        {quarters, 100, true},
        {quarters, 101, false},
        // with some missing in between
        {years, 715, false},
        {years, 716, true},
        {years, 745, true},
        {years, 746, false},
        {years, 1080, false},
        {years, 1081, true},
        {years, 1110, true},
        {years, 1111, false},
        {quarters, 173, false},
        {quarters, 174, true},
        {quarters, 191, true},
        {quarters, 192, false},
        {quarters, 1360, false},
        {quarters, 1361, true},
    };
    for (const auto& row : rows)
        for (const int direction : {1, -1}) {
            const Date first = *makeDate(2025, 3, 31);
            const Date next = addDays(first, direction * row.apart);
            const auto iso = [](Date date) { return formatDate(date, "yyyy-mm-dd"); };
            const bool misses = row.apart > (row.grid.quarterly ? 101 : 381);
            for (const std::string corner : {"", "Figures"}) { // which misses none
                const auto text = corner + "\t" + iso(first) + "\t" + iso(next) + "\nRevenue\t4\t5";
                SCOPED_TRACE(text);
                const bool isHeading =
                    placed(text.c_str(), row.grid).find("'" + iso(first) + "'") ==
                    std::string::npos;
                EXPECT_EQ(isHeading, row.follows && (corner.empty() || !misses));
            }
        }
}

TEST(BlockPlacing, KnowsTheQuartersByTheirDates) {
    EXPECT_EQ(placed("\t2026-06-30\t2026-03-31\t2025-12-31\nEPS\t1\t2\t3", quarterly()),
              "#1 EPS 1; #2 EPS 2; #3 EPS 3");
    EXPECT_EQ(placed("\t6/27/2026\t9/26/2026\nx\t1\t2", quarterly()), "#1 Revenue 1; #0 Revenue 2");
    EXPECT_EQ(placed("\t2020-06-30\t2020-03-31\nx\t1\t2", quarterly()),
              "'1' period=2020-06-30; '2' period=2020-03-31");
    // Years are no quarters: as it stands, with a doubt.
    EXPECT_EQ(placed("\t2024\t2025\nx\t1\t2", quarterly()),
              "#0 Revenue 2024 place?; #0 Tax Rate 2025 place?; #1 Revenue 1 place?; "
              "#1 Tax Rate 2 place?");
}

TEST(BlockPlacing, KnowsTheQuartersOfTheFiscalYear) {
    BlockGrid grid = quarterly();
    const char* text = "\tQ3 2026\tQ2 2026\tQ4 FY25\nRevenue\t3\t2\t1";
    // Without a fiscal year nobody knows when its third quarter ends.
    EXPECT_EQ(placed(text, grid), "#0 Revenue 3 place?; #1 Revenue 2 place?; #2 Revenue 1 place?");
    grid.fiscalYear = {2025, *makeDate(2025, 12, 31)};
    EXPECT_EQ(placed(text, grid), "#0 Revenue 3; #1 Revenue 2; #3 Revenue 1");
    EXPECT_EQ(placed("\t1Q26\t4Q25\nRevenue\t3\t2", grid), "#2 Revenue 3; #3 Revenue 2");
    grid.fiscalYear = {2025, *makeDate(2025, 9, 27)}; // somebody may mean the calendar's
    EXPECT_EQ(placed("\tQ4 2025\tQ3 2025\nRevenue\t3\t2", grid),
              "#4 Revenue 3 fiscal?; #5 Revenue 2 fiscal?");
}

// What a browser or a spreadsheet makes of cells that span others.
TEST(BlockPlacing, PutsTheFiguresOfATableBelowItsPeriods) {
    struct Row {
        const char* text;
        const char* told;
    };
    const Row rows[] = {
        // the corner spans both rows of the heading
        {"Income - USD ($) $ in Millions\t12 Months Ended\nSep. 27, 2025\tSep. 28, 2024\n"
         "Revenue\t$ 5\t$ 4\nEPS\t$ 2\t$ 1",
         "2025 Revenue 5 currency=$; 2024 Revenue 4 currency=$; "
         "2025 EPS 2 currency=$; 2024 EPS 1 currency=$"},
        {"2025\t2024\nRevenue\t5\t4", "2025 Revenue 5; 2024 Revenue 4"},
        {"2025\t2024\t2023\nRevenue\t5\t\t3\nEPS\t2\t1\t",
         "2025 Revenue 5; 2023 Revenue 3; 2025 EPS 2; 2024 EPS 1"},
        // a period spans sign, figure and what follows it
        {"\tSep 27, 2025\tSep 28, 2024\nRevenue\t$\t5\t\t$\t4\nTax Rate\t21\t%\t\t20\t%",
         "2025 Revenue 5 currency=$; 2024 Revenue 4 currency=$; "
         "2025 Tax Rate 21 percent; 2024 Tax Rate 20 percent"},
        {"\t\t2025\t\t\t2024\nAssets:\nRevenue\t$\t5\t\t$\t4\nNet Income\t\t(2\t)\t\t(1\t)",
         "2025 Revenue 5 currency=$; 2024 Revenue 4 currency=$; "
         "2025 Net Income -2 brackets; 2024 Net Income -1 brackets"},
        {"in thousands\n\tYears ended\n\t2025\t\t2024\nRevenue\t\t5\t\t4",
         "2025 Revenue 0.005; 2024 Revenue 0.004"},
        {"Year\t\t2025\t\t2024\nRevenue\t5\t4", "2025 Revenue 5; 2024 Revenue 4"},
        {"\t2025\tTTM\n\nRevenue\t\t5\t\t6", "2025 Revenue 5; '6' period=TTM"},
        // a line break within a cell
        {"\t\"Sep 27,\n2025\"\t\"Sep 28,\n2024\"\n\"Net\nIncome\"\t5\t4",
         "2025 Net Income 5; 2024 Net Income 4"},
        // empty columns between, and figures missing
        {"\t2025\t\t2024\t\t2023\nRevenue\t5\t\t4\t\t3\nEPS\t2\t\t\t\t1",
         "2025 Revenue 5; 2024 Revenue 4; 2023 Revenue 3; 2025 EPS 2; 2023 EPS 1"},
        // a column without a head, such as one of changes
        {"\t2025\t2024\nRevenue\t5\t4\t25%", "2025 Revenue 5; 2024 Revenue 4; '25%' unnamed"},
        // nobody can tell what is below what: as it stands, with doubts
        {"\t2025\t2024\nRevenue\t\t5\t\t4\nEPS\t\t2",
         "'2025' unnamed; '2024' unnamed; 2017 Revenue 5 place?; 2019 Revenue 4 place?; "
         "2017 EPS 2 place?"},
        {"\t2025\t2024\nRevenue\t$\t5\t\t4\nEPS\t1\t2\t3\t5",
         "'2025' unnamed; '2024' unnamed; '$' none; 2017 Revenue 5 place?; "
         "2019 Revenue 4 place?; 2016 EPS 1 place?; 2017 EPS 2 place?; 2018 EPS 3 place?; "
         "2019 EPS 5 place?"},
        {"\t\t2025\t\t2024\nRevenue\t\t5\t\t4\n7\t\t2\t\t1",
         "'Revenue' unnamed; 2025 Revenue 5; 2024 Revenue 4; '7' unnamed; 2025 Tax Rate 2; "
         "2024 Tax Rate 1"},
        {"\t\t2025\t\t2024\n\t5\t\t4\t",
         "2016 Net Income 2025 place?; 2016 High 2024 place?; 2017 Tax Rate 5 place?; "
         "2017 EPS 4 place?"},
        {"\t\t2025\nRevenue\t5\t", "'2025' unnamed; 2016 Revenue 5 place?"},
        // no labels, no table of a report
        {"2025\t\t2024\n5\t\t4", "2016 Revenue 2025; 2016 Net Income 2024; 2017 Revenue 5; "
                                 "2017 Net Income 4"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(placed(row.text), row.told);
    }
}

TEST(BlockPlacing, KnowsYearsAndMonthsInTwoDigits) {
    EXPECT_EQ(placed("\tFY25\tFY'24\nRevenue\t5\t4"), "2025 Revenue 5; 2024 Revenue 4");
    EXPECT_EQ(placed("\tSep-25\tSep-24\nRevenue\t5\t4"), "2025 Revenue 5; 2024 Revenue 4");
    EXPECT_EQ(placed("\tSep '26\tJun \u201926\nRevenue\t5\t4", quarterly()),
              "#0 Revenue 5; #1 Revenue 4");
    EXPECT_EQ(placed("\tSep-27\tSep-26\nRevenue\t6\t5"), "'6' period=Sep-27; 2026 Revenue 5");
    // Of a later year it is the day of a month of this year.
    EXPECT_EQ(placed("\tSep-30\tJun-30\nRevenue\t5\t4", quarterly()), "#0 Revenue 5; #1 Revenue 4");
}

// A report of a quarter has the months since the year began beside it.
TEST(BlockPlacing, DoubtsFiguresOfMoreOrFewerMonths) {
    EXPECT_EQ(placed("9 Months Ended\n\t2026-06-30\t2025-06-30\nRevenue\t5\t4", quarterly()),
              "#1 Revenue 5 months?=9; #5 Revenue 4 months?=9");
    EXPECT_EQ(placed("\t2026-06-30\t2026-03-31\nThree months ended\t\nRevenue\t5\t4", quarterly()),
              "#1 Revenue 5; #2 Revenue 4");
    EXPECT_EQ(placed("3 Months Ended\t6 Months Ended\n"
                     "2026-06-30\t2025-06-30\t2026-06-30\t2025-06-30\nRevenue\t5\t4\t9\t7",
                     quarterly()),
              "'2026-06-30' unnamed; '2025-06-30' unnamed; '2026-06-30' unnamed; "
              "'2025-06-30' unnamed; #0 Revenue 5 place? months?=6; #1 Revenue 4 place? months?=6; "
              "#2 Revenue 9 place? months?=6; #3 Revenue 7 place? months?=6");
    EXPECT_EQ(placed("Twelve months ended\n\t2025\t2024\nRevenue\t5\t4"),
              "2025 Revenue 5; 2024 Revenue 4");
    EXPECT_EQ(placed("13 weeks ended\n\t2025\t2024\nRevenue\t5\t4"),
              "2025 Revenue 5 months?=3; 2024 Revenue 4 months?=3");
    for (const char* title : {"Report\n13 weeks ended", "Report\t13 weeks ended"})
        EXPECT_EQ(placed((std::string(title) + "\n\t2025\t2024\nRevenue\t5\t4").c_str()),
                  "2025 Revenue 5 months?=3; 2024 Revenue 4 months?=3")
            << title;
}

// Without their figures nobody would know that they are left out.
TEST(BlockPlacing, LeavesOutFiguresWithAUnitOfTheirOwn) {
    EXPECT_EQ(placed("1.5M\n$2 billion"), "'1.5M' none; '$2 billion' none");
    EXPECT_EQ(placed("Revenue\t1.5B\t2.5B"), "'1.5B' none; '2.5B' none");
}

// Whoever copies a part of a report copies its heading with it.
TEST(BlockPlacing, KnowsPeriodsOfWhichSomeAreMissing) {
    struct Row {
        const char* text;
        const char* told;
    };
    const Row rows[] = {
        {"\t2024\nRevenue\t5", "2024 Revenue 5"},
        {"(In millions)\t2024\nRevenue\t5", "2024 Revenue 5"},
        {"Year\tRevenue\n2024\t5", "2024 Revenue 5"},
        {"\t2025\t2024\t2022\nRevenue\t5\t4\t2", "2025 Revenue 5; 2024 Revenue 4; 2022 Revenue 2"},
        {"\t2019\t2021\nx\t5\t6", "2019 Revenue 5; 2021 Revenue 6"},
        {"\tSep 27, 2025\tSep 30, 2023\nRevenue\t5\t3", "2025 Revenue 5; 2023 Revenue 3"},
        {"Breakdown\tTTM\t9/30/2025\t9/30/2024\nRevenue\t6\t5\t4",
         "'6' period=TTM; 2025 Revenue 5; 2024 Revenue 4"},
        {"\t2024A\t2025A\t2026E\nRevenue\t4\t5\t6",
         "2024 Revenue 4; 2025 Revenue 5; '6' period=2026E"},
        // not in order
        {"\t2024\t2022\t2023\nRevenue\t4\t2\t3",
         "'2024' unnamed; '2022' unnamed; '2023' unnamed; 2016 Revenue 4 place?; "
         "2017 Revenue 2 place?; 2018 Revenue 3 place?"},
        // named, and not understood
        {"\tQ4 2025\nRevenue\t5", "2016 Revenue 5 place?"},
        {"12 months to Sep 2025\n5", "2016 Revenue 5 place?"},
        {"Report\nTTM\n5", "2016 Revenue 5 place?"},
        {"Revenue\t5\nTTM\t6", "2016 Revenue 5 place?; '6' column=TTM"},
        // a figure beside a label that speaks of no period
        {"Staff\t2019\nRevenue\t5", "'2019' column=Staff; 2016 Revenue 5"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(placed(row.text), row.told);
    }
    BlockGrid quarters = quarterly();
    EXPECT_EQ(placed("\t2026-09-30\t2025-09-30\nRevenue\t5\t1", quarters),
              "#0 Revenue 5 day?; #4 Revenue 1 day?");
}

// A quarter in place of a year, or a year in place of a quarter, would be another figure.
TEST(BlockPlacing, DoubtsDaysOnWhichPeriodsOfTheGridDoNotEnd) {
    EXPECT_EQ(placed("\tJun 28, 2025\tJun 29, 2024\nRevenue\t5\t4"),
              "2025 Revenue 5 day?; 2024 Revenue 4 day?");
    EXPECT_EQ(placed("\tOct 4, 2025\tSep 28, 2024\nRevenue\t5\t4"),
              "2025 Revenue 5; 2024 Revenue 4")
        << "years of 52 or 53 weeks";
    EXPECT_EQ(placed("Year\t2025-10-31\nRevenue\t5"), "2025 Revenue 5");
    EXPECT_EQ(placed("Year\t2025-11-01\nRevenue\t5"), "2025 Revenue 5 day?");
    EXPECT_EQ(placed("\t2026-09-30\t2025-09-30\t2024-09-30\nRevenue\t5\t1\t2", quarterly()),
              "#0 Revenue 5 day?; #4 Revenue 1 day?; '2' period=2024-09-30");
    for (const char* title : {"3 Months Ended", "Three months ended", "13 Weeks Ended"})
        EXPECT_EQ(
            placed((std::string(title) + "\t\n\t2026-09-30\t2025-09-30\nRevenue\t5\t1").c_str(),
                   quarterly()),
            "#0 Revenue 5; #4 Revenue 1")
            << title;
    EXPECT_EQ(placed("\t2026-09-30\t2026-06-30\nRevenue\t5\t1", quarterly()),
              "#0 Revenue 5; #1 Revenue 1");
}

// A comma between the words of a title is no decimal mark.
TEST(BlockPlacing, ReadsTheMarkFromFiguresAlone) {
    const char* figures = "2025 Revenue 391035 mark?=391.035; 2024 Revenue 383285 mark?=383.285";
    for (const char* title : {"(In millions, except per share)", "", "Umsatz, in Mio. USD"})
        EXPECT_EQ(placed((std::string(title) + "\t2025\t2024\nRevenue\t391,035\t383,285").c_str()),
                  figures)
            << title;
    EXPECT_EQ(placed("Net income, total\t391,035\t383,285"),
              "2016 Revenue 391035 mark?=391.035; 2016 Tax Rate 383285 mark?=383.285");
    EXPECT_EQ(placed("in Mio. USD\t2025\t2024\nRevenue\t1.391.035\t383.285"),
              "2025 Revenue 1391035; 2024 Revenue 383285");
}

TEST(BlockPlacing, TellsWhereAFigureIsEmptiedByAZero) {
    BlockGrid grid = yearly();
    hold(grid, [](int column, int) { return Held{static_cast<double>(column)}; });
    EXPECT_EQ(placed("0\t0\t5", grid),
              "2016 Revenue 0; 2016 Tax Rate 0 empties?; 2016 Net Income 5");
}

TEST(BlockPlacing, KnowsTheUnitOfShares) {
    struct Row {
        const char* title;
        const char* told;
    };
    const Row rows[] = {
        {"in millions", "2016 Revenue 416161; 2016 Shares 15004.697"},
        {"USD ($) shares in Thousands, $ in Millions",
         "2016 Revenue 416161; 2016 Shares 15.004697 shares=3"},
        {"(In millions, except number of shares, which are reflected in thousands, and per-share "
         "amounts)",
         "2016 Revenue 416161; 2016 Shares 15.004697 shares=3"},
        {"In thousands, except share data", "2016 Revenue 416.161; 2016 Shares 15.004697 unit?"},
        {"In millions\nIn thousands", "2016 Revenue 416161 unit?; 2016 Shares 15004.697 unit?"},
        {"In thousands, except per share data", "2016 Revenue 416.161; 2016 Shares 15.004697"},
        {"$ in millions, shares in thousands\nshares in millions",
         "2016 Revenue 416161; 2016 Shares 15004.697 unit?"},
        {"in thousands\nby number of shares", "2016 Revenue 416.161; 2016 Shares 15.004697"},
        {"shares in thousands", "2016 Revenue 416161; 2016 Shares 15.004697 shares=3"},
        {"In thousands, in millions of shares",
         "2016 Revenue 416161 unit?; 2016 Shares 15004.697 unit?"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(placed((std::string(row.title) + "\nRevenue\tShares\n416161\t15004.697").c_str()),
                  row.told)
            << row.title;
}

TEST(BlockPlacing, DoubtsNoUnitThatATitleNamesOnce) {
    BlockPlacing placing(cellsOf("in thousands\nRevenue\tShares\n5\t6"), yearly());
    BlockSwitches switches = placing.switches();
    switches.unit = 0; // what the title says does not count
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2016 Revenue 5; 2016 Shares 6");
}

TEST(BlockPlacing, TakesNoFiguresForYears) {
    struct Row {
        const char* text;
        const char* told;
    };
    const Row rows[] = {
        // revenue of 2019, 2020 and 2021 million
        {"Revenue\n2019\n2020\n2021", "2016 Revenue 2019; 2017 Revenue 2020; 2018 Revenue 2021"},
        {"Revenue\tNet Income\n2019\t5\n2020\t6",
         "2016 Revenue 2019; 2016 Net Income 5; 2017 Revenue 2020; 2017 Net Income 6"},
        {"Revenue\t2019\t2020\nNet Income\t5\t6",
         "2016 Revenue 2019; 2017 Revenue 2020; 2016 Net Income 5; 2017 Net Income 6"},
        {"2019\n2020\n2021", "2016 Revenue 2019; 2017 Revenue 2020; 2018 Revenue 2021"},
        {"2019\t2020\t2021", "2016 Revenue 2019; 2016 Tax Rate 2020; 2016 Net Income 2021"},
        // nobody can tell: as it stands, with a doubt
        {"2019\t5\n2020\t6",
         "2016 Revenue 2019 year?; 2016 Tax Rate 5; 2017 Revenue 2020 year?; 2017 Tax Rate 6"},
        {"2019\t2020\n5\t6",
         "2016 Revenue 2019 year?; 2016 Tax Rate 2020 year?; 2017 Revenue 5; 2017 Tax Rate 6"},
        {"5\t2019\t2020\n1\t6\t7", "2016 Revenue 5; 2016 Tax Rate 2019; 2016 Net Income 2020; "
                                   "2017 Revenue 1; 2017 Tax Rate 6; 2017 Net Income 7"},
        {"Costs\t2019\nStaff\t2020", "2016 Revenue 2019; 2017 Revenue 2020"},
        {"\t1.5\t4.5\nx\t1\t2",
         "2016 Revenue 1.5; 2016 Tax Rate 4.5; 2017 Revenue 1; 2017 Tax Rate 2"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(placed(row.text), row.told);
    }
}

TEST(BlockPlacing, KnowsAHeadingByTheTextInItsCorner) {
    EXPECT_EQ(placed("Staff\t2024\t2025\n1\t5\t6"),
              "'1' period=Staff; 2024 Revenue 5; 2025 Revenue 6");
    EXPECT_EQ(placed("Staff\t5\n2024\t1\n2025\t2"),
              "'5' period=Staff; 2024 Revenue 1; 2025 Revenue 2");
    EXPECT_EQ(placed("Staff\tnote\t2024\t2025\nRevenue\t\t5\t6"),
              "'note' column=Staff; '2024' column=Staff; '2025' column=Staff; "
              "2017 Revenue 5; 2018 Revenue 6");
    EXPECT_EQ(placed("Sep-25\tSep-24\n5\t4"),
              "'Sep-25' none; 'Sep-24' none; 2017 Revenue 5; 2017 Tax Rate 4");
    EXPECT_EQ(placed("2025-06-30\t2024-06-30\n5\t4"),
              "'2025-06-30' none; '2024-06-30' none; 2017 Revenue 5; 2017 Tax Rate 4");
    EXPECT_EQ(placed("Year\t2024\t2025\n2024\t1\t2\n2025\t3\t4"),
              "'2024' period=Year; 2024 Revenue 1; 2025 Revenue 2; '2025' period=Year; "
              "2024 Tax Rate 3; 2025 Tax Rate 4");
}

TEST(BlockPlacing, IsPlacedByYearsOnRequest) {
    BlockPlacing placing(cellsOf("2024\t5\n2025\t6"), yearly());
    EXPECT_FALSE(placing.switches().byPeriods);
    ASSERT_TRUE(placing.hasPeriods());
    BlockSwitches switches = placing.switches();
    switches.byPeriods = true;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2024 Revenue 5; 2025 Revenue 6");
}

TEST(BlockPlacing, TurnsAndReverses) {
    BlockPlacing placing(cellsOf("1\t2\t3\n4\t5\t6"), yearly());
    BlockSwitches switches = placing.switches();
    switches.turned = true;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2016 Revenue 1; 2017 Revenue 2; 2018 Revenue 3; 2016 Tax Rate 4; "
                             "2017 Tax Rate 5; 2018 Tax Rate 6");
    switches.reversed = true;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2018 Revenue 1; 2017 Revenue 2; 2016 Revenue 3; 2018 Tax Rate 4; "
                             "2017 Tax Rate 5; 2016 Tax Rate 6");
    switches.turned = false;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2017 Revenue 1; 2017 Tax Rate 2; 2017 Net Income 3; 2016 Revenue 4; "
                             "2016 Tax Rate 5; 2016 Net Income 6");
}

TEST(BlockPlacing, SuggestsOrderAndTurnByTheHeading) {
    const auto suggested = [](const char* text, const BlockGrid& grid) {
        return BlockPlacing(cellsOf(text), grid).switches();
    };
    const auto across = suggested("\t2025\t2024\nx\t1\t2", yearly());
    EXPECT_TRUE(across.byPeriods && across.turned && across.reversed);
    const auto down = suggested("\tx\n2024\t1\n2025\t2", yearly());
    EXPECT_TRUE(down.byPeriods && !down.turned && !down.reversed);
    const auto quarters = suggested("\t2026-06-30\t2026-03-31\nx\t1\t2", quarterly());
    EXPECT_TRUE(quarters.byPeriods && quarters.turned && !quarters.reversed);
    EXPECT_TRUE(suggested("Revenue\t1\t2\nEPS\t3\t4", yearly()).turned);
}

TEST(BlockPlacing, GoesByTheNamesOfColumns) {
    EXPECT_EQ(placed("Cost of sales\t1\t2\nNet Income\t3\t4\nrevenue\t5\t6"),
              "'1' column=Cost of sales; '2' column=Cost of sales; 2016 Net Income 3; "
              "2017 Net Income 4; 2016 Revenue 5; 2017 Revenue 6");
    EXPECT_EQ(placed("EPS\tRevenue\n1\t2"), "2016 EPS 1; 2016 Revenue 2");
    EXPECT_EQ(placed("earnings per share\t1"), "2016 EPS 1"); // as a report calls it
    BlockPlacing placing(cellsOf("EPS\tRevenue\n1\t2"), yearly());
    BlockSwitches switches = placing.switches();
    EXPECT_TRUE(switches.byNames);
    switches.byNames = false;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2016 Revenue 1; 2016 Tax Rate 2");
    EXPECT_EQ(placed("EPS\tEPS\n1\t2"), "2016 EPS 1; '2' twice");
}

TEST(BlockPlacing, ScalesAmountsAndNoFiguresPerShare) {
    BlockPlacing placing(cellsOf("1234.5\t21\t-0.3\t1.5\t9"), yearly());
    const struct {
        int unit;
        const char* told;
    } rows[] = {
        {0,
         "2016 Revenue 1234.5; 2016 Tax Rate 21; 2016 Net Income -0.3; 2016 EPS 1.5; 2016 High 9"},
        {3, "2016 Revenue 1.2345; 2016 Tax Rate 21; 2016 Net Income -0.0003; 2016 EPS 1.5; 2016 "
            "High 9"},
        {6,
         "2016 Revenue 1234.5; 2016 Tax Rate 21; 2016 Net Income -0.3; 2016 EPS 1.5; 2016 High 9"},
        {9,
         "2016 Revenue 1234500; 2016 Tax Rate 21; 2016 Net Income -300; 2016 EPS 1.5; 2016 High 9"},
    };
    for (const auto& row : rows) {
        BlockSwitches switches = placing.switches();
        switches.unit = row.unit;
        placing.setSwitches(switches);
        EXPECT_EQ(told(placing), row.told);
    }
    BlockGrid thousands = yearly();
    thousands.unit = 3;
    EXPECT_EQ(placed("5\t5", thousands), "2016 Revenue 0.005; 2016 Tax Rate 5");
}

TEST(BlockPlacing, FindsTheUnitInItsTitles) {
    const auto unitOf = [](const char* text) {
        return BlockPlacing(cellsOf(text), yearly()).switches().unit;
    };
    EXPECT_EQ(unitOf("1\t2"), 0);
    EXPECT_EQ(unitOf("(In thousands, except per share)\t2024\t2025\nSales\t1\t2"), 3);
    EXPECT_EQ(unitOf("Dollars in billions\n1\t2"), 9);
    EXPECT_EQ(unitOf("Report\tin billions\n1\t2"), 9);
    EXPECT_EQ(unitOf("in millions, shares in thousands\n1\t2"), 6);
    EXPECT_EQ(unitOf("in millions\nin thousands\n1\t2"), 0); // nobody can tell
    EXPECT_EQ(unitOf("Revenue (K)\tEPS\n1\t2"), 3);
    EXPECT_EQ(unitOf("Revenue (K)\tNet Income (M)\n1\t2"), 0);
}

TEST(BlockPlacing, ADashIsNothingUnlessItIsToBeEmpty) {
    BlockGrid grid = yearly();
    hold(grid, [](int column, int) { return Held{static_cast<double>(column)}; });
    BlockPlacing placing(cellsOf("-\t\u2014\t\t5"), grid);
    EXPECT_EQ(told(placing), "'-' dash; '\u2014' dash; 2016 EPS 5");
    BlockSwitches switches = placing.switches();
    switches.emptyCells = true;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2016 Revenue 0 empties?; 2016 Tax Rate 0 empties?; "
                             "2016 Net Income 0 empties?; 2016 EPS 5");
}

TEST(BlockPlacing, AsksTwiceBeforeATypedFigureGoes) {
    BlockGrid grid = yearly();
    hold(grid, [](int, int row) {
        return row == 0 ? Held{7, true} : row == 1 ? Held{7, false} : Held{0, true};
    });
    EXPECT_EQ(placed("1\n2\n3", grid), "2016 Revenue 1 typed?; 2017 Revenue 2; 2018 Revenue 3");
    EXPECT_EQ(placed("7", grid), "2016 Revenue 7"); // the same figure
}

TEST(BlockPlacing, OfTwoHeadsForAColumnTakesTheOneThatGoesFirst) {
    BlockGrid grid = yearly();
    grid.columns[3].name = "Basic EPS";
    grid.columns[3].otherNames = {"Diluted EPS", "EPS (Basic)"};
    grid.columns[3].firstNames = {"Diluted EPS"};
    EXPECT_EQ(placed("Basic EPS\tDiluted EPS\n3.3\t3.2", grid),
              "'3.3' other=Diluted EPS; 2016 Basic EPS 3.2");
    EXPECT_EQ(placed("diluted eps\tRevenue\tEPS (Basic)\n3.2\t7\t3.3", grid),
              "2016 Basic EPS 3.2; 2016 Revenue 7; '3.3' other=diluted eps");
    EXPECT_EQ(placed("\t2016\t2017\nBasic EPS\t3.3\t4.3\nDiluted EPS\t3.2\t4.2", grid),
              "'3.3' other=Diluted EPS; '4.3' other=Diluted EPS; 2016 Basic EPS 3.2; "
              "2017 Basic EPS 4.2");
    EXPECT_EQ(placed("Basic EPS\n3.3", grid), "2016 Basic EPS 3.3") << "alone it is as good";
    grid.columns[0].otherNames = grid.columns[0].firstNames = {"Net sales"};
    EXPECT_EQ(placed("Revenue\tNet sales\n1\t2", grid), "'1' other=Net sales; 2016 Revenue 2");
}

TEST(BlockPlacing, JoinsSignsThatWebTablesHoldApart) {
    EXPECT_EQ(placed("$\t5\t$\t6\n\t7\t\t8", yearly(2, 0)),
              "2016 Net Income 5 currency=$; 2016 EPS 6 currency=$; 2017 Net Income 7; 2017 EPS 8");
    EXPECT_EQ(placed("(5\t)\t(6\t)", yearly(2, 0)),
              "2016 Net Income -5 brackets; 2016 EPS -6 brackets");
    EXPECT_EQ(placed("21.5\t%\n20\t%", yearly(1, 0)),
              "2016 Tax Rate 21.5 percent; 2017 Tax Rate 20 percent");
    // A column that is empty is one of the block.
    EXPECT_EQ(placed("5\t\t6", yearly(2, 0)), "2016 Net Income 5; 2016 High 6");
}

TEST(BlockPlacing, TakesASignForTheFigureBehindItAlone) {
    EXPECT_EQ(placed("\t2024\t\t2025\nRevenue\t$\t4\t5"),
              "2024 Revenue 4 currency=$; 2025 Revenue 5");
}

// A column behind them would empty cells where empty cells do.
TEST(BlockPlacing, HasNoColumnBehindThoseThatItPutsTogether) {
    const auto emptied = [](const char* text) {
        BlockGrid grid = yearly();
        hold(grid, [](int, int) { return Held{.figure = 7}; });
        BlockPlacing placing(cellsOf(text), grid);
        BlockSwitches switches = placing.switches();
        switches.byPeriods = false;
        switches.emptyCells = true;
        placing.setSwitches(switches);
        return told(placing);
    };
    EXPECT_EQ(emptied("2024\t2025\t\nRevenue\t4\t5\nNet Income\t3\t"),
              emptied("\t2024\t2025\nRevenue\t4\t5\nNet Income\t3\t"));
    EXPECT_EQ(emptied("Acme Inc.\t\t\t\t\n\t2024\t\t2025\t\nRevenue\t$\t4\t$\t5"),
              emptied("Acme Inc.\t\t\n\t2024\t2025\nRevenue\t$4\t$5"));
}

TEST(BlockPlacing, ReadsWithTheMarksThatTheClipboardNames) {
    BlockPlacing declared(cellsOf("1,234"), yearly(), ',');
    EXPECT_EQ(told(declared), "2016 Revenue 1.234");
    BlockPlacing chosen(cellsOf("1,234"), yearly());
    EXPECT_TRUE(chosen.hasMarks());
    BlockSwitches switches = chosen.switches();
    switches.decimal = ',';
    chosen.setSwitches(switches);
    EXPECT_EQ(told(chosen), "2016 Revenue 1.234 mark?=1234");
}

TEST(BlockPlacing, CountsWhatItTakes) {
    const BlockPlacing placing(cellsOf("1\tn/a\t(2)\t1,234"), yearly());
    EXPECT_EQ(placing.taken(), 3);
    EXPECT_EQ(placing.leftOut(), 1);
    EXPECT_EQ(BlockPlacing({}, yearly()).taken(), 0);
}

TEST(BlockPlacing, LeavesOutWhatHasNoPeriodAboveOrBeside) {
    EXPECT_EQ(placed("Year\t2024\t2025\t\nRevenue\t4\t5\t6"),
              "2024 Revenue 4; 2025 Revenue 5; '6' unnamed");
    EXPECT_EQ(placed("Year\tRevenue\n2024\t4\n\t5\n"), "2024 Revenue 4; '5' unnamed");
}

TEST(BlockPlacing, DropsSignsThatStandBesideNoFigure) {
    EXPECT_EQ(placed(")\t5", yearly(2, 0)), "2016 Net Income 5");
    EXPECT_EQ(placed("5\t$", yearly(2, 0)), "2016 Net Income 5");
    EXPECT_EQ(placed("$\t\t5\n\t4\t", yearly(2, 0)), "2016 EPS 5; 2017 Net Income 4");
    EXPECT_EQ(placed("5\t%\n\t%", yearly(1, 0)), "2016 Tax Rate 5 percent");
    // Among others they are cells as any.
    EXPECT_EQ(placed("$\t5\n1\t6", yearly(2, 0)),
              "'$' none; 2016 EPS 5; 2017 Net Income 1; 2017 EPS 6");
    EXPECT_EQ(placed("$\n$", yearly(2, 0)), "'$' none; '$' none");
}

TEST(BlockPlacing, FindsThePeriodThatADateIsNextTo) {
    // Half a year and half a quarter are as far as it goes.
    EXPECT_EQ(placed("Year\t2026-03-31\nRevenue\t5"), "2025 Revenue 5 day?");
    EXPECT_EQ(placed("Year\t2026-04-02\nRevenue\t5"), "2026 Revenue 5 day?");
    EXPECT_EQ(placed("Year\t2027-03-31\nRevenue\t5"), "2026 Revenue 5 day?");
    EXPECT_EQ(placed("Year\t2027-04-01\nRevenue\t5"), "'5' period=2027-04-01");
    EXPECT_EQ(placed("Quarter\t2026-11-14\nRevenue\t5", quarterly()), "#0 Revenue 5");
    EXPECT_EQ(placed("Quarter\t2026-11-15\nRevenue\t5", quarterly()), "'5' period=2026-11-15");
    // In the middle between two it is the one on top.
    EXPECT_EQ(placed("Quarter\t2026-02-14\nRevenue\t5", quarterly()), "#2 Revenue 5");
    // A form without dates knows a year by its number.
    BlockGrid dateless = yearly();
    for (auto& row : dateless.rows)
        row.date = Date();
    EXPECT_EQ(placed("Year\t2025-09-30\t2024\nRevenue\t5\t4", dateless),
              "'2025-09-30' column=Year; '2024' column=Year; 2016 Revenue 5 place?; "
              "2017 Revenue 4 place?"); // years or dates, not both
    EXPECT_EQ(placed("Year\t2025-09-30\nRevenue\t5", dateless), "2025 Revenue 5");
    BlockGrid quarters = quarterly();
    for (auto& row : quarters.rows)
        row.date = Date();
    EXPECT_EQ(placed("Quarter\t2026-06-30\nRevenue\t5", quarters), "'5' period=2026-06-30");
}

TEST(BlockPlacing, CountsFiscalQuartersFromAnyYearsEnd) {
    BlockGrid grid = quarterly();
    for (const int year : {2023, 2025, 2027}) {
        grid.fiscalYear = {year, *makeDate(year, 12, 31)};
        EXPECT_EQ(placed("\tQ1 2026\tQ4 2025\nRevenue\t3\t2", grid), "#2 Revenue 3; #3 Revenue 2")
            << year;
    }
}

TEST(BlockPlacing, IsInTheUnitOfItsHeads) {
    BlockPlacing across(cellsOf("Revenue (B)\tNet Income (B)\tEPS\n1\t2\t3"), yearly());
    EXPECT_EQ(across.switches().unit, 9);
    EXPECT_EQ(told(across), "2016 Revenue 1000; 2016 Net Income 2000; 2016 EPS 3");
    BlockPlacing down(cellsOf("Revenue (K)\t1\nEPS (M)\t2"), yearly());
    EXPECT_EQ(down.switches().unit, 3);
    // The title goes before the heads.
    EXPECT_EQ(BlockPlacing(cellsOf("in millions\nRevenue (K)\n1"), yearly()).switches().unit, 6);
    EXPECT_EQ(placed("Earnings per share (K)\n1"), "2016 EPS 1") << "never in the unit";
    EXPECT_EQ(placed("Revenue (K)\tNet Income (B)\n1\t2"),
              "2016 Revenue 1 unit?; 2016 Net Income 2 unit?");
}

TEST(BlockPlacing, ReadsUnitsInWhateverStandsAboveOrBeside) {
    EXPECT_EQ(placed("Revenue\t5\nin thousands\t6"), "2016 Revenue 0.005; '6' column=in thousands");
    // Among the figures it is a text as any.
    EXPECT_EQ(placed("1\t2\n3\tin thousands"),
              "2016 Revenue 1; 2016 Tax Rate 2; 2017 Revenue 3; 'in thousands' none");
    EXPECT_EQ(placed("Report\n3\tin thousands"), "2016 Revenue 3; 'in thousands' none");
}

TEST(BlockPlacing, IsNothingWhereNothingIsLeftBehindTitles) {
    EXPECT_EQ(placed("in thousands"), "");
    EXPECT_EQ(placed("Revenue\nNet Income"), "");
    EXPECT_EQ(placed("Revenue\tNet Income\t"), "");
}

TEST(BlockPlacing, GoesByTheMarksOfTheFormWhereTheFiguresDisagree) {
    EXPECT_EQ(placed("1.5\t2,5\t1,500"),
              "2016 Revenue 1.5; '2,5' none; 2016 Net Income 1500 mark?=1.500");
}

TEST(BlockPlacing, TakesNoHeadingForOneThatHasNothingBelowOrBesideIt) {
    EXPECT_EQ(placed("Income statement\n\t2024\t2025"),
              "2016 Tax Rate 2024 place?; 2016 Net Income 2025 place?");
}

TEST(BlockPlacing, TakesNoTextAmongTheFiguresForATitle) {
    EXPECT_EQ(placed("1\t2\nin thousands\t4"),
              "2016 Revenue 1; 2016 Tax Rate 2; 'in thousands' none; 2017 Tax Rate 4");
    EXPECT_EQ(placed("Costs\tRevenue\n1\t2"), "'1' column=Costs; 2016 Revenue 2");
    EXPECT_EQ(placed("in thousands\n2024\t2025"), "2024 Revenue 2.025");
}

TEST(BlockPlacing, MissesPeriodsOnlyWhereItsCornerSpeaksOfThem) {
    EXPECT_EQ(placed("Staff\t2024\t2022\nRevenue\t5\t4"),
              "'2024' column=Staff; '2022' column=Staff; 2016 Revenue 5; 2017 Revenue 4");
    EXPECT_EQ(
        placed("Year\t2024\t2024\nRevenue\t5\t4"),
        "'2024' column=Year; '2024' column=Year; 2016 Revenue 5 place?; 2017 Revenue 4 place?");
    EXPECT_EQ(placed("Year\t2024-09-30\t2024-10-05\nRevenue\t5\t4"),
              "'2024-09-30' column=Year; '2024-10-05' column=Year; 2016 Revenue 5 place?; "
              "2017 Revenue 4 place?");
    EXPECT_EQ(placed("Year\t2023\t2024\nRevenue\t5\t4"), "2023 Revenue 5; 2024 Revenue 4");
}

TEST(BlockPlacing, EmptiesWhatIsThere) {
    BlockGrid grid = yearly();
    hold(grid, [](int, int) { return Held{1}; });
    EXPECT_EQ(placed("0\t5", grid), "2016 Revenue 0 empties?; 2016 Tax Rate 5");
    EXPECT_EQ(placed("0"), "2016 Revenue 0");
    BlockPlacing placing(cellsOf("\t5"), grid);
    BlockSwitches switches = placing.switches();
    switches.emptyCells = true;
    placing.setSwitches(switches);
    EXPECT_EQ(told(placing), "2016 Revenue 0 empties?; 2016 Tax Rate 5");
}

TEST(BlockPlacing, KnowsCurrenciesByTheirWords) {
    EXPECT_EQ(placed("USD 5\t5 EUR\t-kr5\t5kr", yearly(2, 0)),
              "2016 Net Income 5 currency=USD; 2016 EPS 5 currency=EUR; "
              "'-kr5' currency=kr negative; 2016 Shares 5 currency=kr");
    EXPECT_EQ(placed("1\tUSDX 5\t5 KUSD\t5\u00E9kr", yearly(2, 0)),
              "2016 Net Income 1; 'USDX 5' none; '5 KUSD' none; '5\u00E9kr' none");
    EXPECT_EQ(placed("(USD 5 )\t5- $\t5 %-\t5-%", yearly(2, 0)),
              "2016 Net Income -5 brackets currency=USD; 2016 EPS -5 behind currency=$; "
              "'5 %-' behind percent? negative; '5-%' behind percent? negative");
}

TEST(BlockPlacing, TellsHowTheBlockNamesAPeriodWhereTheGridNamesItOtherwise) {
    const auto namesIn = [](CellTexts cells, BlockGrid grid) {
        std::vector<std::string> names;
        const BlockPlacing placing(std::move(cells), std::move(grid));
        for (const auto& cell : placing.cells())
            names.push_back(cell.named);
        return names;
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(namesIn({{"", "FY2024", "2025"}, {"Revenue", "1", "2"}}, yearly()),
              (Names{"FY2024", ""}));
    EXPECT_EQ(namesIn({{"Year", "Revenue"}, {"2024-09-28", "1"}, {"2025-09-30", "2"}}, yearly()),
              (Names{"2024-09-28", ""}));
    EXPECT_EQ(namesIn({{"Year", "Revenue"}, {"2024", "1"}, {"2025", "2"}}, yearly()),
              (Names{"", ""}));
    EXPECT_EQ(namesIn({{"1"}, {"2"}}, yearly()), (Names{"", ""})) << "it names none";
}

} // namespace
} // namespace vkr
