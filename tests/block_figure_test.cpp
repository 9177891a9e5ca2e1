// SPDX-License-Identifier: MIT
#include "input/block_figure.hpp"

#include <gtest/gtest.h>
#include <string>

namespace vkr {
namespace {

std::string kindOf(CellKind kind) {
    switch (kind) {
    case CellKind::empty:
        return "empty";
    case CellKind::figure:
        return "figure";
    case CellKind::dash:
        return "dash";
    case CellKind::notAvailable:
        return "n/a";
    case CellKind::hidden:
        return "hidden";
    case CellKind::failed:
        return "failed";
    case CellKind::other:
        return "other";
    }
    return {};
}

// The figure and what was found beside it; the kind of what is none.
std::string told(const CellFigure& cell) {
    if (cell.kind != CellKind::figure)
        return kindOf(cell.kind);
    std::string text = cell.number.text;
    const auto add = [&](bool said, const std::string& word) { text += said ? " " + word : ""; };
    add(cell.openBracket, "open");
    add(cell.brackets && !cell.openBracket, "brackets");
    add(cell.minusBehind, "behind");
    add(!cell.currency.empty(), cell.currency);
    add(cell.percent, "percent");
    add(cell.exponent, "exponent");
    add(cell.fraction, "fraction");
    if (cell.otherReading)
        add(true, "or " + *cell.otherReading);
    return text;
}

std::string pointRead(std::string_view text, NumericKind kind = NumericKind::PlainNumber) {
    return told(readCell(text, kind, 0, marksOf({{std::string(text)}}, '.')));
}

// As spreadsheets, web tables and reports hold them, one cell alone, the point on the form.
TEST(BlockFigure, IsReadFromACell) {
    struct Row {
        const char* text;
        const char* told;
    };
    const Row rows[] = {
        {"", "empty"},
        {"  ", "empty"},
        {"\u00A0", "empty"},
        {"0", "0"},
        {"5", "5"},
        {" 5 ", "5"},
        {"+5", "5"},
        {"394.33", "394.33"},
        {".5", "0.5"},
        {"5.", "5"},
        {"007", "7"},
        // minus, brackets
        {"-5", "-5"},
        {"- 5", "-5"},
        {"\u22125", "-5"},
        {"\u20135.25", "-5.25"},
        {"5-", "-5 behind"},
        {"100.50-", "-100.50 behind"},
        {"1,234.5 -", "-1234.5 behind"},
        {"(182.77)", "-182.77 brackets"},
        {"( 182.77 )", "-182.77 brackets"},
        {"(5", "-5 open"},
        {"(1,234.5", "-1234.5 open"},
        {"5)", "other"},
        {"--5", "other"},
        {"+-5", "other"},
        {"-(5)", "other"},
        {"(-5)", "other"},
        {"-5-", "other"},
        // currency
        {"$5", "5 $"},
        {"$ 1,234.56", "1234.56 $"},
        {"-$1,234.56", "-1234.56 $"},
        {"$-1", "-1 $"},
        {"($182.77)", "-182.77 brackets $"},
        {"$(182.77)", "-182.77 brackets $"},
        {"$ (182.77)", "-182.77 brackets $"},
        {"\u20AC(63.12)", "-63.12 brackets \u20AC"},
        {"63,12 \u20AC", "63.12 \u20AC"},
        {"\u00A3"
         "5",
         "5 \u00A3"},
        {"\u00A5"
         "500",
         "500 \u00A5"},
        {"USD 5", "5 USD"},
        {"5 USD", "5 USD"},
        {"-5.25 EUR", "-5.25 EUR"},
        {"EUR -5.25", "-5.25 EUR"},
        {"(5.25 CHF)", "-5.25 brackets CHF"},
        {"US$5", "5 US$"},
        {"-USD 5", "-5 USD"},
        {"- USD 5", "-5 USD"},
        {"+ USD 5", "5 USD"},
        {"(USD 5)", "-5 brackets USD"},
        {"( USD 5 )", "-5 brackets USD"},
        {"(5 USD )", "-5 brackets USD"},
        {"5 USD -", "-5 behind USD"},
        {"5 EURO", "other"},
        {"XUSD 5", "other"},
        {"5 xUSD", "other"},
        {"5 kr", "5 kr"},
        {"5 kr.", "5 kr."},
        {"kr.500", "500 kr."},
        {"5,-kr", "5 kr"},
        {"kr. 1.234,-", "1234 kr."},
        {"CHF 5.-", "5 CHF"},
        {"CHF 5.--", "5 CHF"},
        {"-5.-", "-5"},
        {"5.\u2013", "5"},
        {"kr. -1,234.50", "-1234.50 kr."},
        {"\u20B9"
         "5",
         "5 \u20B9"},
        {"$", "other"},
        {"USD", "other"},
        {"$$5", "other"},
        {"EURO 5", "other"},
        {"EUR\u22125", "-5 EUR"},
        {"EUR\u00A05", "5 EUR"},
        {"5\u00A0EUR", "5 EUR"},
        // percent
        {"12.5%", "12.5 percent"},
        {"-20 %", "-20 percent"},
        {"(3.1)%", "-3.1 brackets percent"},
        {"(3.1%)", "-3.1 brackets percent"},
        {"20-%", "-20 behind percent"},
        {"%", "other"},
        // groups and marks
        {"1,234.56", "1234.56"},
        {"1.234,56", "1234.56"},
        {"1,234,567", "1234567"},
        {"1.234.567", "1234567"},
        {"1 234 567", "1234567"},
        {"1\u00A0"
         "234,5",
         "1234.5"},
        {"1\u202F"
         "234",
         "1234"},
        {"1'234.50", "1234.50"},
        {"1\u2019"
         "234",
         "1234"},
        {"1,234", "1234 or 1.234"},
        {"1.234", "1.234 or 1234"},
        {"12,345", "12345 or 12.345"},
        {"0,123", "0.123"},
        {"0.123", "0.123"},
        {"1234,567", "1234.567"},
        {"1,23", "1.23"},
        {"1,2345", "1.2345"},
        {"1,23,456", "other"},
        {"1,234,56", "other"},
        {"1.2.3", "other"},
        {"1,234.567,8", "other"},
        {"12 34", "other"},
        // exponents
        {"1.5E+6", "1500000 exponent"},
        {"1,23E+05", "123000 exponent"},
        {"1e", "other"},
        // nothing there
        {"-", "dash"},
        {"\u2014", "dash"},
        {"\u2013", "dash"},
        {"--", "dash"},
        {"---", "dash"},
        {"- -", "dash"},
        {"\u2014\u2014\u2014", "dash"},
        {"$ $ -", "dash"},
        {"$ -", "dash"},
        {"$\u2014", "dash"},
        {"n/a", "n/a"},
        {"N/A", "n/a"},
        {"NM", "n/a"},
        {"#N/A", "n/a"},
        {"nan", "n/a"},
        {"####", "hidden"},
        {"#", "hidden"},
        {"#DIV/0!", "failed"},
        {"#REF!", "failed"},
        // others
        {"Revenue", "other"},
        {"100-50", "other"},
        {"2024-01-05", "other"},
        {"1/5/2024", "other"},
        {"05.01.2024", "other"},
        {"Jan 5, 2024", "other"},
        {"3 1/8", "other"},
        {"394.33B", "other"},
        {"1.5M", "other"},
        {"~5", "other"},
        {"5*", "other"},
        {"5 (1)", "other"},
        {"TRUE", "other"},
        {"0x1F", "other"},
        {"5 6", "other"},
        {"'5", "other"},
        {"\xFF", "other"},
        {"EURO 5", "other"},
        {"5 xUSD", "other"},
        {"5 \u0100USD", "other"},
        {"5 xUS$", "other"},
        {"-  USD 5", "-5 USD"},
        {"(  USD 5)", "-5 brackets USD"},
        {"(5 USD  )", "-5 brackets USD"},
        {"5 USD  %", "5 USD percent"},
        {"$  -", "dash"},
        {"$ $ -", "dash"},
        {"  $ -", "dash"},
        {"1,234.5,6", "other"},
        {"1,234*", "other"},
        {"1,234 x", "other"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(pointRead(row.text), row.told);
    }
    EXPECT_GE(std::size(rows), 100U);
}

TEST(BlockFigure, MayBeAFractionAmongPrices) {
    struct Row {
        const char* text;
        const char* told;
    };
    const Row rows[] = {
        {"3 1/8", "3.125 fraction"}, {"3-1/8", "3.125 fraction"}, {"$3 1/8", "3.125 $ fraction"},
        {"1/8", "0.125 fraction"},   {"12/31/2024", "other"},     {"1/0", "other"},
        {"47.25", "47.25"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(pointRead(row.text, NumericKind::PriceText), row.told);
    }
}

// One cell without a doubt speaks for all others.
TEST(BlockFigure, MarksAreThoseOfTheWholeBlock) {
    struct Row {
        CellTexts cells;
        char own;
        const char* first; // what the first cell is
    };
    const Row rows[] = {
        {{{"1,234", "5.67"}}, '.', "1234"},
        {{{"1,234", "5,67"}}, '.', "1.234"},
        {{{"1.234"}, {"1.234,5"}}, '.', "1234"},
        {{{"1.234"}, {"1,234.5"}}, ',', "1.234"},
        {{{"1,234", "1,234,567"}}, '.', "1234"},
        {{{"1,234", "2,345"}}, '.', "1234 or 1.234"},
        {{{"1,234", "2,345"}}, ',', "1.234 or 1234"},
        {{{"1,234", "0.5", "0,5"}}, '.', "1234 or 1.234"}, // they contradict each other
        {{{"1,234", ".567"}}, ',', "1234"},
        {{{"1,234", "0.567"}}, ',', "1234"},
        {{{"1,234", "1234.567"}}, ',', "1234"},
        {{{"1,234", "1.234.567"}}, '.', "1.234"},
        {{{"1,234", "1.234.56"}}, '.', "1234 or 1.234"}, // these are no groups
        {{{"1,234", "1.2345.678,9"}}, '.', "1234 or 1.234"},
        {{{"1,234", "1.2.3.456,7"}}, '.', "1234 or 1.234"},
        {{{"1,234", "1 234,567"}}, '.', "1.234"},
        {{{"1,234", "123.456"}}, ',', "1.234 or 1234"},
        {{{"0.5", "0,5"}}, '.', "0.5"},
        {{{"1,234", "Revenue", "12.05.2023"}}, '.', "1234 or 1.234"}, // a date has no say
        {{{"1,234", "2024", "n/a"}}, '.', "1234 or 1.234"},
        {{{"1,234", "kr.500", "5 kr."}}, ',', "1.234 or 1234"}, // nor has the word a mark
        {{{"1,234", "1,5E-324"}}, '.', "1234 or 1.234"}, // nor what is too small to be stored
        {{{"1,234", "1,5E-323"}}, '.', "1.234"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.cells[0][0] + " of " + row.own);
        EXPECT_EQ(told(readCell(row.cells[0][0], NumericKind::PlainNumber, 0,
                                marksOf(row.cells, row.own))),
                  row.first);
    }
}

TEST(BlockFigure, TellsWhatIsTooLarge) {
    const BlockMarks marks;
    EXPECT_FALSE(readCell("1e400", NumericKind::PlainNumber, 0, marks).number.fits);
    EXPECT_FALSE(readCell("1e307", NumericKind::PlainNumber, 3, marks).number.fits);
    EXPECT_TRUE(readCell("1e307", NumericKind::PlainNumber, 0, marks).number.fits);
}

} // namespace
} // namespace vkr
