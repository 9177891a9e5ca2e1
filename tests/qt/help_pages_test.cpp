// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "host/help_pages.hpp"
#include "host/help_viewer.hpp"
#include "input/date_pattern.hpp"
#include "input/date_reader.hpp"
#include "input/mdlKMTMisc.hpp"
#include "input/number_text.hpp"
#include "record/enumerations.hpp"
#include "source_folder.hpp"

#include <QAction>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QToolBar>

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

double number(const QString& text) {
    return numericValue(cleanNumericText(text.toStdString(), NumericKind::PlainNumber).text);
}

// The element of a series that a period names.
int elementOf(const CompanyRecord& company, const HelpQuote& quote) {
    if (isYearly(quote.datum))
        return company.get_LastFY() + 1 - static_cast<int>(number(quote.period));
    const auto end = readDate(quote.period.toStdString(), Date{}, "YYYY-MM-DD");
    return nearestQuarters(end.value(), company.get_LastQDateForGrid());
}

// Whether a sample company says what a quote says it does.
testing::AssertionResult agrees(const HelpQuote& quote) {
    const auto found = samples().find(quote.symbol.toStdString());
    if (found == samples().end())
        return testing::AssertionFailure() << "no sample company " << quote.symbol.toStdString();
    const CompanyRecord& company = *found->second;
    const Variant stored = readDatum(company, quote.datum);
    bool isSame = false;
    if (const auto* date = std::get_if<Date>(&stored.value()))
        isSame = readDate(quote.figure.toStdString(), Date{}, "") == *date;
    else if (stored.isArray())
        isSame = stored.array().number(elementOf(company, quote)) == number(quote.figure);
    else if (std::holds_alternative<std::string>(stored.value()))
        isSame = stored.toText() == quote.figure.toStdString();
    else
        isSame = stored.toDouble() == number(quote.figure);
    return isSame ? testing::AssertionSuccess()
                  : testing::AssertionFailure()
                        << quote.figure.toStdString() << " is not in the samples";
}

const HelpPage& page(int object) {
    return *helpPage(helpObjectBase + object);
}
double quoted(int object, std::size_t index) {
    return number(page(object).quotes.at(index).figure);
}
QString eighths(int object, std::size_t index) {
    return QString::fromStdString(
        DecimalToFraction(page(object).quotes.at(index).figure.toStdString(), false));
}
QString american(Date date) {
    return QString::fromStdString(formatDate(date, "M/D/YYYY"));
}

// A figure that an example works out.
struct WorkedOut {
    DataEntryObject object;
    QString figure;
    WorkedOut(DataEntryObject of, QString text) : object(of), figure(std::move(text)) {}
    WorkedOut(DataEntryObject of, double number, int decimals)
        : WorkedOut(of, QString::number(number, 'f', decimals)) {}
};

// From what the examples quote.
std::vector<WorkedOut> workedOut() {
    const CompanyRecord& apple = *samples().at("AAPL");
    const Date yearEnd = apple.get_LastFYDate();
    const Date yearEndBefore = makeDate(2024, 9, 28).value(); // as its annual report has it
    const double weeks = daysBetween(yearEndBefore, yearEnd) / 7.0;
    const auto ratio = [](int object) { return quoted(object, 1) / quoted(object, 0); };
    return {
        {doTotalCap, quoted(doTotalCap, 0) + quoted(doTotalCap, 1), 0},
        {doCurrentPrice, eighths(doCurrentPrice, 0)},
        {do52WHigh, weeks, 0},
        {do52WLow, weeks, 0},
        {doPriceUpdatedDate, american({yearEnd.serial - 1})},
        {doLast4QEPS,
         quoted(doLast4QEPS, 0) + quoted(doLast4QEPS, 1) + quoted(doLast4QEPS, 2) +
             quoted(doLast4QEPS, 3),
         1},
        {doORBEPSProj, quoted(doORBEPSProj, 1) * 1.1, 2},
        {doTotalDebt, quoted(doTotalDebt, 0) / 1000, 3},
        {doInsiderHolding, quoted(doInsiderHolding, 0) / 100, 4},
        {doInsiderHolding, 1, 0}, // percent
        {doInstitutional, quoted(doInstitutional, 0) / 2, 2},
        {doInstitutional, 50, 0}, // percent
        {doCommShares, QLocale(QLocale::English).toString(quoted(doCommShares, 0) * 1e6, 'f', 0)},
        {doLastFY, quoted(doLastFY, 1) - 1, 0},
        {doYRevenue, (ratio(doYRevenue) - 1) * 100, 1},
        {doVLSafety, -quoted(doVLSafety, 0), 2},
        {doReportingPeriod, 12 / 4, 0}, // months
        {doCommDiv, quoted(doCommDiv, 0) / 4, 2},
        {doEstTaxRate,
         (quoted(doEstTaxRate, 0) + quoted(doEstTaxRate, 1) + quoted(doEstTaxRate, 2)) / 3, 2},
        {doUnit, quoted(doUnit, 0) * 1000, 0},
        {doUnit, quoted(doUnit, 0) / 1000, 3},
        {doPTI_TaxRate, (1 - ratio(doPTI_TaxRate)) * 100, 2},
        {doDisplayOption, eighths(doDisplayOption, 0)},
        {doYearLabel, quoted(doYearLabel, 0) - 9, 0},
        {doYearLabel, quoted(doYearLabel, 0) + 1, 0},
        {doPercentDilution, (quoted(doPercentDilution, 0) / quoted(doPercentDilution, 1) - 1) * 100,
         2},
        {doPercentTotalCap, 100 / (1 + ratio(doPercentTotalCap)), 2},
    };
}

// The numbers in a text, one by one.
QStringList numbersIn(const QString& text) {
    static const QRegularExpression form("[0-9]+([./][0-9]+|,[0-9]{3}(?![0-9]))*");
    QStringList found;
    for (auto matches = form.globalMatch(text); matches.hasNext();)
        found.append(matches.next().captured());
    return found;
}

TEST(HelpPagesTest, NothingIsWrongWithTheTextThatIsShipped) {
    QFile file(VKR_SOURCE_DIR "/host/help_pages.md");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const HelpBook book = readHelpBook(QString::fromUtf8(file.readAll()));
    EXPECT_EQ(book.faults.join(u'\n').toStdString(), "");
    EXPECT_EQ(book.pages.size(), helpPages().size());
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
    std::set<QString> titles;
    std::set<int> numbers;
    for (const HelpPage& page : helpPages()) {
        EXPECT_TRUE(titles.insert(page.title).second) << qUtf8Printable(page.title);
        EXPECT_TRUE(numbers.insert(page.number).second) << qUtf8Printable(page.title);
        EXPECT_FALSE(page.what.isEmpty()) << qUtf8Printable(page.title);
        for (const QString& paragraph : page.what)
            EXPECT_TRUE(paragraph.endsWith('.')) << qUtf8Printable(page.title);
    }
}

TEST(HelpPagesTest, EveryObjectAndTabIsExplainedToSomebodyNewToIt) {
    for (const HelpPage& page : helpPages()) {
        if (page.number < helpObjectBase)
            continue;
        EXPECT_EQ(page.what.size(), 1) << qUtf8Printable(page.title);
        for (const auto& part : {page.what.value(0), page.why, page.where, page.how, page.example})
            EXPECT_FALSE(part.isEmpty()) << qUtf8Printable(page.title);
        for (const auto& part : {page.what.value(0), page.why, page.where, page.how})
            EXPECT_TRUE(part.endsWith('.') || part.endsWith('?') || part.endsWith('"'))
                << qUtf8Printable(page.title) << ": " << qUtf8Printable(part);
        const QString text = helpText(page);
        for (const auto& part : {page.why, page.where, page.how, page.example})
            EXPECT_TRUE(text.contains(part.toHtmlEscaped())) << qUtf8Printable(page.title);
    }
}

TEST(HelpPagesTest, ExamplesQuoteTheSampleCompaniesAsTheyAre) {
    const std::map<QString, QString> names = {
        {"AAPL", "Apple"}, {"NVDA", "NVIDIA"}, {"SNOW", "Snowflake"}, {"TSLA", "Tesla"}};
    for (const HelpPage& page : helpPages()) {
        if (page.number >= helpObjectBase) {
            EXPECT_FALSE(page.quotes.empty()) << qUtf8Printable(page.title);
        }
        for (const HelpQuote& quote : page.otherQuotes)
            EXPECT_TRUE(agrees(quote)) << qUtf8Printable(page.title);
        for (const HelpQuote& quote : page.quotes) {
            EXPECT_TRUE(agrees(quote)) << qUtf8Printable(page.title);
            EXPECT_TRUE(page.example.contains(quote.figure))
                << qUtf8Printable(page.title) << ": " << qUtf8Printable(quote.figure);
            if (page.number < helpObjectBase)
                continue; // shows a file
            EXPECT_TRUE(page.example.contains(names.at(quote.symbol)))
                << qUtf8Printable(page.title);
            if (isSeries(rowOf(quote.datum)) && isYearly(quote.datum)) {
                EXPECT_TRUE(page.example.contains(quote.period))
                    << qUtf8Printable(page.title) << ": " << qUtf8Printable(quote.period);
            }
        }
    }
}

TEST(HelpPagesTest, WhatExamplesWorkOutFollowsFromWhatTheyQuote) {
    for (const WorkedOut& row : workedOut())
        EXPECT_TRUE(page(row.object).example.contains(row.figure))
            << qUtf8Printable(page(row.object).title) << ": " << qUtf8Printable(row.figure);
}

TEST(HelpPagesTest, AnExampleHasNoFigureThatIsNeitherQuotedNorWorkedOut) {
    for (const HelpPage& page : helpPages()) {
        QStringList known;
        for (const HelpQuote& quote : page.quotes) {
            known += numbersIn(quote.figure) + numbersIn(quote.period);
            if (const auto end = readDate(quote.period.toStdString(), Date{}, "YYYY-MM-DD"))
                known += american(*end);
        }
        for (const WorkedOut& row : workedOut())
            if (page.number == helpObjectBase + row.object)
                known += numbersIn(row.figure);
        for (const QString& number : numbersIn(page.example))
            EXPECT_TRUE(known.contains(number))
                << qUtf8Printable(page.title) << ": " << qUtf8Printable(number);
    }
}

TEST(HelpPagesTest, TheContentsLeadToEveryPage) {
    const QString contents = helpContents();
    for (const HelpPage& page : helpPages())
        EXPECT_TRUE(contents.contains(QStringLiteral("\"page:%1\"").arg(page.number)))
            << qUtf8Printable(page.title);
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
    // Nowhere is gone to from the contents, so there is one step back.
    viewer.showPage(12346);
    for (QAction* action : viewer.findChild<QToolBar*>()->actions())
        if (action->text() == "&Back")
            action->trigger();
    EXPECT_EQ(viewer.shownPage(), helpObjectBase + doCurrentPrice);
}

} // namespace
} // namespace vkr
