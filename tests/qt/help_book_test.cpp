// SPDX-License-Identifier: MIT
#include "desktop/enumerations.hpp"
#include "host/help_book.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

// The pages and faults of a text, but for the objects that it leaves out.
HelpBook read(const char* text) {
    HelpBook book = readHelpBook(QString::fromUtf8(text));
    book.faults.removeIf([](const QString& fault) { return fault.endsWith(" has no page"); });
    return book;
}

TEST(HelpBookTest, APageHasItsTitleItsParagraphsAndItsParts) {
    const HelpBook book = read("# Help\n\nNot part of a page.\n\n"
                               "## Total Debt {#doTotalDebt}\n\n"
                               "What was\nborrowed.\n\nMore of it.\n\n"
                               "- Why: Debt has\n  to be served.\n"
                               "- Where: In the report: its second page.\n"
                               "- Type: A figure.\n"
                               "- Example: None.\n");
    EXPECT_EQ(book.faults, QStringList());
    ASSERT_EQ(book.pages.size(), 1U);
    const HelpPage& page = book.pages.front();
    EXPECT_EQ(page.number, helpObjectBase + doTotalDebt);
    EXPECT_EQ(page.title, "Total Debt");
    EXPECT_EQ(page.what, (QStringList{"What was borrowed.", "More of it."}));
    EXPECT_EQ(page.why, "Debt has to be served.");
    EXPECT_EQ(page.where, "In the report: its second page.");
    EXPECT_EQ(page.how, "A figure.");
    EXPECT_TRUE(page.isTyped);
    EXPECT_EQ(page.example, "None.");
    EXPECT_TRUE(page.quotes.empty());
}

TEST(HelpBookTest, APartMayTellHowAThingIsUsed) {
    const HelpBook book = read("## Currency Unit {#doUnit}\n\nA unit.\n\n- Use: Click it.\n");
    ASSERT_EQ(book.pages.size(), 1U);
    EXPECT_EQ(book.pages.front().how, "Click it.");
    EXPECT_FALSE(book.pages.front().isTyped);
}

TEST(HelpBookTest, PagesComeInOrderOfTheirNumbersAndTheHostsOwnComeFirst) {
    const HelpBook book = read("## B {#doSymbol}\n\nB.\n\n## A {#doName}\n\nA.\n\n"
                               "## K {#keyboard}\n\nK.\n\n## L {#list}\n\nL.\n");
    QStringList titles;
    for (const HelpPage& page : book.pages)
        titles.append(page.title);
    EXPECT_EQ(titles, (QStringList{"L", "K", "A", "B"}));
}

TEST(HelpBookTest, ASharedTextStandsWhereItIsNamed) {
    const HelpBook book = read("## Shared {#shared}\n\n- free text: Any\n  text.\n\n"
                               "## Name {#doName}\n\nA name.\n\n- Type: {free text} Or none.\n");
    EXPECT_EQ(book.faults, QStringList());
    ASSERT_EQ(book.pages.size(), 1U);
    EXPECT_EQ(book.pages.front().how, "Any text. Or none.");
}

TEST(HelpBookTest, AQuoteNamesItsSample) {
    const HelpBook book =
        read("## Revenue {#doYRevenue}\n\nSales.\n\n"
             "- Type: As in [(408) 1](AAPL Tel).\n"
             "- Example: From [1](AAPL TotalDebt) to [-2.5](SNOW YNetIncSeries 2025), and to\n"
             "  [Sea & Co.](NVDA QEPSSeries\n  2025-12-27).\n");
    EXPECT_EQ(book.faults, QStringList());
    ASSERT_EQ(book.pages.size(), 1U);
    const HelpPage& page = book.pages.front();
    EXPECT_EQ(page.example, "From 1 to -2.5, and to Sea & Co..");
    EXPECT_EQ(page.how, "As in (408) 1.");
    ASSERT_EQ(page.otherQuotes.size(), 1U);
    EXPECT_EQ(page.otherQuotes.front().figure, "(408) 1");
    ASSERT_EQ(page.quotes.size(), 3U);
    EXPECT_EQ(page.quotes[0].symbol, "AAPL");
    EXPECT_EQ(page.quotes[0].datum, Datum::TotalDebt);
    EXPECT_EQ(page.quotes[0].period, "");
    EXPECT_EQ(page.quotes[1].figure, "-2.5");
    EXPECT_EQ(page.quotes[1].period, "2025");
    EXPECT_EQ(page.quotes[2].datum, Datum::QEPSSeries);
    EXPECT_EQ(page.quotes[2].period, "2025-12-27");
}

TEST(HelpBookTest, AnObjectWithoutAPageIsAFault) {
    const QStringList faults = readHelpBook("## Name {#doName}\n\nA name.\n").faults;
    EXPECT_EQ(faults.size(), dataEntryObjectCount - 1);
    EXPECT_FALSE(faults.contains("doName has no page"));
    EXPECT_TRUE(faults.contains("doSymbol has no page"));
    EXPECT_TRUE(faults.contains("doTabYearly has no page"));
}

struct FaultCase {
    const char* test;
    const char* text;
    const char* fault;
};

class HelpBookFaultTest : public testing::TestWithParam<FaultCase> {};

TEST_P(HelpBookFaultTest, IsToldWithItsLine) {
    const QStringList faults = read(GetParam().text).faults;
    EXPECT_EQ(faults.join(u'\n').toStdString(), GetParam().fault);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, HelpBookFaultTest,
    testing::Values(
        FaultCase{"NoKey", "## Name\n\nA name.\n", "Line 1: a heading is \"## Title {#key}\""},
        FaultCase{"NoObject", "\n## Name {#doNames}\n\nA name.\n",
                  "Line 2: there is no object doNames"},
        FaultCase{"TwoPages", "## A {#doName}\n\nA.\n\n## B {#doName}\n\nB.\n",
                  "Line 5: doName has a page already"},
        FaultCase{"NoPart", "## A {#doName}\n\nA.\n\n- Why: B.\n- How: C.\n",
                  "Line 6: a page has no part How"},
        FaultCase{"NoName", "## A {#doName}\n\nA.\n\n- Why it is.\n",
                  "Line 5: a part is \"- Name: text\""},
        FaultCase{"TwoParts", "## A {#doName}\n\nA.\n\n- Type: B.\n- Use: C.\n",
                  "Line 6: the page has a part Use already"},
        FaultCase{"NoSharedText", "## A {#doName}\n\nA {thing}.\n",
                  "Line 3: there is no shared text thing"},
        FaultCase{"TwoSharedTexts", "## S {#shared}\n\n- a: B.\n- a: C.\n",
                  "Line 4: the shared text a is there already"},
        FaultCase{"SharedParagraph", "## S {#shared}\n\nText.\n",
                  "Line 3: a shared text is \"- name: text\""},
        FaultCase{"SharedInShared", "## S {#shared}\n\n- a: {a}\n\n## A {#doName}\n\nA {a}.\n",
                  "Line 7: brackets are for {shared texts} and [figures](SYMBOL Datum)"},
        FaultCase{"NoSample", "## A {#doName}\n\nA.\n\n- Example: [1].\n",
                  "Line 5: brackets are for {shared texts} and [figures](SYMBOL Datum)"},
        FaultCase{"NoDatum", "## A {#doName}\n\nA.\n\n- Example: [1](AAPL Debts).\n",
                  "Line 5: there is no datum Debts"}),
    [](const auto& row) { return row.param.test; });

} // namespace
} // namespace vkr
