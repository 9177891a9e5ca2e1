// SPDX-License-Identifier: MIT
#include "binding/enumerations.hpp"
#include "company/company_csv.hpp"
#include "host/help_pages.hpp"
#include "host/help_viewer.hpp"
#include "input/date_reader.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "source_folder.hpp"

#include <QSettings>
#include <QTemporaryDir>

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>

namespace vkr {
namespace {

using Samples = std::map<std::string, std::shared_ptr<CompanyRecord>, std::less<>>;

const Samples& samples() {
    static const Samples read = [] {
        Samples companies;
        for (const auto& entry : importFolder(VKR_SOURCE_DIR "/samples").entries)
            if (entry.result.company)
                companies.emplace(entry.result.company->get_Symbol(), entry.result.company);
        return companies;
    }();
    return read;
}

double number(std::string_view text) {
    return numericValue(cleanNumericText(text, NumericKind::PlainNumber).text);
}

// The element of a series that a period names.
int elementOf(const CompanyRecord& company, const HelpQuote& quote) {
    if (isYearly(quote.datum))
        return company.get_LastFY() + 1 - static_cast<int>(number(quote.period));
    const auto end = readDate(quote.period, Date{}, "YYYY-MM-DD");
    return nearestQuarters(end.value(), company.get_LastQDateForGrid());
}

// Whether a sample company says what a quote says it does.
testing::AssertionResult agrees(const HelpQuote& quote) {
    const auto found = samples().find(quote.symbol);
    if (found == samples().end())
        return testing::AssertionFailure() << "no sample company " << quote.symbol;
    const CompanyRecord& company = *found->second;
    const Variant stored = readDatum(company, quote.datum);
    bool isSame = false;
    if (const auto* date = std::get_if<Date>(&stored.value()))
        isSame = readDate(quote.figure, Date{}, "") == *date;
    else if (stored.isArray())
        isSame = stored.array().number(elementOf(company, quote)) == number(quote.figure);
    else if (std::holds_alternative<std::string>(stored.value()))
        isSame = stored.toText() == quote.figure;
    else
        isSame = stored.toDouble() == number(quote.figure);
    return isSame ? testing::AssertionSuccess()
                  : testing::AssertionFailure() << quote.figure << " is not in the samples";
}

const HelpPage& page(int object) {
    return *helpPage(helpObjectBase + object);
}
double quoted(int object, std::size_t index) {
    return number(page(object).quotes.at(index).figure);
}
bool says(int object, double figure, int decimals) {
    const std::string text = QString::number(figure, 'f', decimals).toStdString();
    return page(object).example.find(text) != std::string_view::npos;
}

TEST(HelpPagesTest, EveryNumberThatTheComponentAsksForHasAPageOfItsOwn) {
    for (int object = 0; object < dataEntryObjectCount; ++object)
        EXPECT_NE(helpPage(helpObjectBase + object), nullptr) << object;
    for (int tab = toCompany; tab <= toOptions; ++tab)
        EXPECT_NE(helpPage(helpTabBase + tab), nullptr) << tab;
    EXPECT_EQ(helpPage(0), nullptr);
    EXPECT_EQ(helpPage(helpObjectBase + dataEntryObjectCount), nullptr);
}

TEST(HelpPagesTest, NoPageIsWithoutATextAndNoTitleIsThereTwice) {
    std::set<std::string_view> titles;
    std::set<int> numbers;
    for (const HelpPage& page : helpPages()) {
        EXPECT_TRUE(titles.insert(page.title).second) << page.title;
        EXPECT_TRUE(numbers.insert(page.number).second) << page.title;
        EXPECT_FALSE(page.what.empty()) << page.title;
        EXPECT_TRUE(page.what.ends_with('.')) << page.title;
    }
}

TEST(HelpPagesTest, EveryObjectAndTabIsExplainedToSomebodyNewToIt) {
    for (const HelpPage& page : helpPages()) {
        if (page.number < helpObjectBase)
            continue;
        for (const auto part : {page.what, page.why, page.where, page.unit, page.example})
            EXPECT_FALSE(part.empty()) << page.title;
        for (const auto part : {page.what, page.why, page.where, page.unit})
            EXPECT_TRUE(part.ends_with('.') || part.ends_with('?') || part.ends_with('"'))
                << page.title << ": " << part;
        const QString text = helpText(page);
        for (const auto part : {page.why, page.where, page.unit, page.example})
            EXPECT_TRUE(
                text.contains(QString::fromUtf8(part.data(), static_cast<qsizetype>(part.size()))
                                  .toHtmlEscaped()))
                << page.title;
    }
}

TEST(HelpPagesTest, ExamplesQuoteTheSampleCompaniesAsTheyAre) {
    const std::map<std::string_view, std::string_view> names = {
        {"AAPL", "Apple"}, {"NVDA", "NVIDIA"}, {"SNOW", "Snowflake"}, {"TSLA", "Tesla"}};
    for (const HelpPage& page : helpPages()) {
        if (page.number < helpObjectBase)
            continue;
        EXPECT_FALSE(page.quotes.front().symbol.empty()) << page.title;
        for (const HelpQuote& quote : page.quotes) {
            if (quote.symbol.empty())
                continue;
            EXPECT_TRUE(agrees(quote)) << page.title;
            EXPECT_NE(page.example.find(quote.figure), std::string_view::npos)
                << page.title << ": " << quote.figure;
            EXPECT_NE(page.example.find(names.at(quote.symbol)), std::string_view::npos)
                << page.title;
            if (isSeries(rowOf(quote.datum)) && isYearly(quote.datum)) {
                EXPECT_NE(page.example.find(quote.period), std::string_view::npos)
                    << page.title << ": " << quote.period;
            }
        }
    }
}

TEST(HelpPagesTest, WhatExamplesWorkOutFollowsFromWhatTheyQuote) {
    EXPECT_TRUE(says(doTotalCap, quoted(doTotalCap, 0) + quoted(doTotalCap, 1), 0));
    EXPECT_TRUE(says(doLast4QEPS,
                     quoted(doLast4QEPS, 0) + quoted(doLast4QEPS, 1) + quoted(doLast4QEPS, 2) +
                         quoted(doLast4QEPS, 3),
                     1));
    EXPECT_TRUE(says(doORBEPSProj, quoted(doORBEPSProj, 1) * 1.1, 2));
    EXPECT_TRUE(says(doTotalDebt, quoted(doTotalDebt, 0) / 1000, 3));
    EXPECT_TRUE(says(doInsiderHolding, 15 / quoted(doInsiderHolding, 0) * 100, 1));
    EXPECT_TRUE(says(doInstitutional, 9400 / quoted(doInstitutional, 0) * 100, 0));
    EXPECT_TRUE(says(doYRevenue, (quoted(doYRevenue, 1) / quoted(doYRevenue, 0) - 1) * 100, 1));
    EXPECT_TRUE(says(doCommDiv, 4 * 0.26, 2));
    EXPECT_TRUE(says(doUnit, quoted(doUnit, 0) * 1000, 0));
    EXPECT_TRUE(says(doUnit, quoted(doUnit, 0) / 1000, 3));
    EXPECT_TRUE(
        says(doPTI_TaxRate, (1 - quoted(doPTI_TaxRate, 1) / quoted(doPTI_TaxRate, 0)) * 100, 2));
    EXPECT_TRUE(says(doPercentDilution,
                     (quoted(doPercentDilution, 0) / quoted(doPercentDilution, 1) - 1) * 100, 2));
    EXPECT_TRUE(says(doPercentTotalCap,
                     quoted(doPercentTotalCap, 0) /
                         (quoted(doPercentTotalCap, 0) + quoted(doPercentTotalCap, 1)) * 100,
                     2));
    EXPECT_NE(page(doDisplayOption)
                  .example.find(DecimalToFraction(page(doDisplayOption).quotes[0].figure, false)),
              std::string_view::npos);
}

TEST(HelpPagesTest, TheContentsLeadToEveryPage) {
    const QString contents = helpContents();
    for (const HelpPage& page : helpPages())
        EXPECT_TRUE(contents.contains(QStringLiteral("\"page:%1\"").arg(page.number)))
            << page.title;
}

TEST(HelpPagesTest, TheViewerTurnsToThePageAndToTheContentsWhereThereIsNone) {
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    HelpViewer viewer;
    viewer.showPage(helpObjectBase + doCurrentPrice);
    EXPECT_EQ(viewer.shownPage(), helpObjectBase + doCurrentPrice);
    const auto* text = viewer.findChild<QTextBrowser*>();
    EXPECT_TRUE(text->toPlainText().startsWith("Current Price"));
    viewer.showPage(12345);
    EXPECT_EQ(viewer.shownPage(), 0);
    EXPECT_TRUE(text->toPlainText().startsWith("Contents"));
}

} // namespace
} // namespace vkr
