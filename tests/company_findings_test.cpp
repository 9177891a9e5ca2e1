// SPDX-License-Identifier: MIT
#include "plausibility/company_findings.hpp"
#include "plausibility/plausibility_rules.hpp"
#include "plausibility/report.hpp"
#include "plausibility/silenced_findings.hpp"
#include "record/datum_titles.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <stdexcept>

namespace vkr {
namespace {

using enum Datum;
using enum Sureness;
using test::putElement;
using test::sample;

// A company without anything to be said of: years from 2025 back, quarters from 2025-12-31 back.
std::shared_ptr<CompanyRecord> soundCompany() {
    auto company = std::make_shared<CompanyRecord>();
    company->put_LastFY(2025);
    company->put_LastFYDate(makeDate(2025, 12, 31).value());
    company->put_LastQDate(makeDate(2025, 12, 31).value());
    company->put_LastQDateForGrid(makeDate(2025, 12, 31).value());
    for (int year = 1; year <= 8; ++year) {
        const double growth = (100 + 5 * (8 - year)) / 100.0; // by one rounding: keys go by it
        putElement(*company, YRevenueSeries, year, 4000 * growth);
        putElement(*company, YPTISeries, year, 500 * growth);
        putElement(*company, YTaxRateSeries, year, 20);
        putElement(*company, YNetIncSeries, year, 400 * growth);
        putElement(*company, YCommEqSeries, year, 2000 * growth);
        putElement(*company, YBookValSeries, year, 20 * growth);
        putElement(*company, YEPSSeries, year, 4 * growth);
        putElement(*company, YDividendSeries, year, 1 * growth);
        putElement(*company, YHighSeries, year, 60 * growth);
        putElement(*company, YLowSeries, year, 40 * growth);
        putElement(*company, YCSOSeries, year, 100);
        for (int quarter = 4 * (year - 1); quarter < 4 * year; ++quarter) {
            putElement(*company, QRevenueSeries, quarter, 1000 * growth);
            putElement(*company, QPTISeries, quarter, 125 * growth);
            putElement(*company, QTaxRateSeries, quarter, 20);
            putElement(*company, QNetIncSeries, quarter, 100 * growth);
            putElement(*company, QEPSSeries, quarter, 1 * growth);
        }
    }
    company->put_CommShares(99);
    company->put_DilutedShares(101);
    company->put_CurrentPrice(70);
    company->put_High52W(75);
    company->put_Low52W(55);
    return company;
}

std::vector<std::string> rulesOf(const std::vector<Finding>& findings) {
    std::vector<std::string> names;
    for (const Finding& one : findings)
        names.emplace_back(one.rule);
    return names;
}

TEST(CompanyFindings, areNoneForASoundOrAnEmptyCompany) {
    EXPECT_EQ(rulesOf(companyFindings(*soundCompany())), std::vector<std::string>());
    EXPECT_EQ(rulesOf(companyFindings(CompanyRecord())), std::vector<std::string>());
    EXPECT_EQ(rulesOf(companyFindings(CompanyBase())), std::vector<std::string>());
}

// What there is to say of the samples, with what the filings say about it.
TEST(CompanyFindings, ofTheSamplesEachHaveTheirReasonInTheFilings) {
    struct Row {
        std::string_view symbol;
        std::string_view rule;
        FigurePlace place;
        Sureness sureness;
        std::string_view reason;
    };
    const Row rows[] = {
        {"TSLA",
         "income-after-tax",
         {QNetIncSeries, 10},
         likely,
         "2020-03-31: 68 million after tax, of which minority holders of solar funds got 52"},
        {"TSLA",
         "income-after-tax",
         {QNetIncSeries, 15},
         hint,
         "2018-12-31: 210 million after tax, of which minority holders got 70"},
        {"TSLA",
         "income-after-tax",
         {QNetIncSeries, 23},
         hint,
         "2016-12-31: a loss of 219 million after tax, of which minority holders bore 98"},
        {"SNOW",
         "missing-quarter",
         {QEPSSeries, 17},
         likely,
         "2021-01-31: the filing states no fourth quarter, and the year less nine months gives a "
         "gain beside a loss, as the shares tripled at the listing"},
        {"SNOW",
         "diluted-below-common",
         {DilutedShares, std::nullopt},
         hint,
         "an average of the year to 2025-01-31 against the count of 2025-05-08; a loss dilutes by "
         "nothing"},
        {"SNOW",
         "book-value-times-shares",
         {YCSOSeries, 5},
         hint,
         "2021: listed in September 2020, so that the average is half of the shares at the end"},
        {"SNOW",
         "split-step",
         {YCSOSeries, 5},
         hint,
         "2022 against 2021: the first whole year after the listing"},
        {"SNOW",
         "split-step",
         {YCSOSeries, 5},
         hint,
         "2021 against 2020: preferred became common shares at the listing"},
    };
    for (const std::string_view symbol : {"AAPL", "NVDA", "TSLA", "SNOW"}) {
        std::vector<Row> expected;
        std::ranges::copy_if(rows, std::back_inserter(expected),
                             [&](const Row& row) { return row.symbol == symbol; });
        const auto findings = companyFindings(*sample(symbol));
        ASSERT_EQ(findings.size(), expected.size()) << symbol;
        for (std::size_t at = 0; at < expected.size(); ++at) {
            SCOPED_TRACE(std::string(symbol) + ": " + std::string(expected[at].reason));
            EXPECT_EQ(findings[at].rule, expected[at].rule) << findings[at].text;
            EXPECT_EQ(findings[at].places.front(), expected[at].place) << findings[at].text;
            EXPECT_EQ(findings[at].sureness, expected[at].sureness) << findings[at].text;
        }
    }
}

TEST(CompanyFindings, sayTheFiguresWithTheMarksOfTheForm) {
    const auto company = soundCompany();
    putElement(*company, YRevenueSeries, 3, 5000000);
    auto findings = companyFindings(*company);
    ASSERT_EQ(rulesOf(findings),
              (std::vector<std::string>{"quarters-against-year", "jump-of-hundreds"}));
    EXPECT_EQ(findings[1].text,
              "Revenue of fiscal year 2023, 5,000,000 million, is about 1,000 times the figures "
              "beside it, 4,800 million and 5,200 million.");
    findings = companyFindings(*company, {{',', "."}, {}});
    EXPECT_EQ(findings[0].text,
              "Revenue of fiscal year 2023: the four quarters make 5.000 million, the year says "
              "5.000.000 million.");
    putElement(*company, YRevenueSeries, 3, 5000);
    putElement(*company, YEPSSeries, 1, 4.5);
    findings = companyFindings(*company, {{',', "."}, {}});
    EXPECT_NE(findings.at(0).text.find("says 4,5."), std::string::npos) << findings[0].text;
}

TEST(CompanyFindings, pointAtTheFigureThatMostOfThemSuspect) {
    const auto company = soundCompany();
    putElement(*company, YNetIncSeries, 3, 500 * 10.0); // it was 500
    const auto findings = companyFindings(*company);
    EXPECT_EQ(findings.size(), 3U);
    for (const Finding& one : findings)
        EXPECT_EQ(one.places.front(), (FigurePlace{YNetIncSeries, 3})) << one.text;
    for (const double figure : {-1350.0, 135000.0}) { // a quarter, and the sum is another one
        const auto another = soundCompany();
        putElement(*another, QRevenueSeries, 2, figure);
        for (const Finding& one : companyFindings(*another))
            EXPECT_EQ(one.places.front(), (FigurePlace{QRevenueSeries, 2})) << one.text;
    }
}

TEST(CompanyFindings, pointAtTheDateThatIsToCome) {
    const auto company = soundCompany();
    const Date toCome = makeDate(2027, 12, 31).value();
    company->put_LastFYDate(toCome);
    company->put_LastQDateForGrid(toCome);
    const auto findings = companyFindings(*company, {{}, makeDate(2026, 11, 21).value()});
    ASSERT_EQ(rulesOf(findings),
              (std::vector<std::string>{"year-unlike-its-end", "day-to-come", "day-to-come"}));
    EXPECT_EQ(findings[0].places.front(), (FigurePlace{LastFYDate, {}}));
}

TEST(CompanyFindings, putTheSurestFigureFirstAndKeepThoseOfOneTogether) {
    const auto company = soundCompany();
    company->put_DilutedShares(98);            // a hint
    putElement(*company, YLowSeries, 2, 90);   // sure
    putElement(*company, QNetIncSeries, 9, 0); // likely
    const auto findings = companyFindings(*company);
    ASSERT_EQ(rulesOf(findings), (std::vector<std::string>{"high-below-low", "missing-quarter",
                                                           "diluted-below-common"}));
    EXPECT_TRUE(std::ranges::is_sorted(findings, std::greater(), &Finding::sureness));
    company->put_DilutedShares(10); // likely by one rule, sure by another
    company->put_CurrentPrice(54);  // likely
    putElement(*company, YLowSeries, 2, 52);
    EXPECT_EQ(rulesOf(companyFindings(*company)),
              (std::vector<std::string>{"share-counts-apart", "diluted-below-common",
                                        "price-outside-range", "missing-quarter"}));
}

// A key stays as long as the figures do, whatever comes before or after them.
TEST(CompanyFindings, keepTheirKeysWhenAYearAndAQuarterAreAdded) {
    const auto company = soundCompany();
    putElement(*company, YLowSeries, 2, 90);
    putElement(*company, QEPSSeries, 5, -1);
    std::set<std::string> before;
    for (const Finding& one : companyFindings(*company))
        before.insert(one.key);
    ASSERT_GE(before.size(), 2U);

    for (const DatumRow& row : datumTable())
        if (isSeries(row)) {
            Variant series = readSeries(*company, row.datum);
            const int by = row.period == DatumPeriod::year ? 1 : 4;
            for (int element = row.upper; element >= by; --element)
                series.array().setNumber(element, series.array().number(element - by));
            for (int element = 0; element < by; ++element)
                series.array().setNumber(element, 0);
            writeSeries(*company, row.datum, series);
        }
    company->put_LastFY(2026);
    company->put_LastFYDate(makeDate(2026, 12, 31).value());
    company->put_LastQDateForGrid(makeDate(2026, 12, 28).value()); // not quite the last day
    company->put_LastQDate(makeDate(2026, 12, 28).value());
    std::set<std::string> after;
    for (const Finding& one : companyFindings(*company))
        after.insert(one.key);
    for (const std::string& key : before)
        EXPECT_TRUE(after.contains(key)) << key;

    putElement(*company, YLowSeries, 3, 91);
    for (const Finding& one : companyFindings(*company))
        if (one.rule == "high-below-low") {
            EXPECT_FALSE(before.contains(one.key));
        }
}

TEST(CompanyFindings, haveKeysOfTheirOwn) {
    for (const std::string_view symbol : {"TSLA", "SNOW"}) {
        std::set<std::string> keys;
        const auto findings = companyFindings(*sample(symbol));
        for (const Finding& one : findings)
            keys.insert(one.key);
        EXPECT_EQ(keys.size(), findings.size());
    }
}

TEST(CompanyFindings, passOverWhatTheRecordCannotRead) {
    class Broken final : public CompanyBase {
      public:
        [[nodiscard]] Variant get_YEPSSeries() const override {
            throw std::runtime_error("no earnings");
        }
        [[nodiscard]] Variant get_YHighSeries() const override { return {3.0}; } // no array
        [[nodiscard]] Variant get_YLowSeries() const override {
            return numberArray({40, std::numeric_limits<double>::infinity()}, -7);
        }
        [[nodiscard]] Variant get_YRevenueSeries() const override {
            return VariantArray(2, std::vector<std::string>{"100", "-5", "x"});
        }
        [[nodiscard]] double get_High52W() const override { return std::nan(""); }
        [[nodiscard]] double get_Low52W() const override { return 55; }
    };
    const auto findings = companyFindings(Broken());
    ASSERT_EQ(rulesOf(findings), std::vector<std::string>{"negative-figure"});
    EXPECT_EQ(findings[0].places.front(), (FigurePlace{YRevenueSeries, 3}));
}

TEST(CompanyFindings, changeNothing) {
    const auto company = sample("SNOW");
    const auto before = company->clone();
    (void)companyFindings(*company);
    EXPECT_TRUE(differences(*before, *company).empty());
}

TEST(SilencedFindings, staySilentUntilOneOfTheirFiguresChanges) {
    const auto company = soundCompany();
    putElement(*company, YLowSeries, 2, 90);
    SilencedInMemory silenced;
    const Finding finding = companyFindings(*company).at(0);
    EXPECT_FALSE(silenced.isSilenced(finding));
    silenced.silence(finding);
    EXPECT_TRUE(silenced.isSilenced(companyFindings(*company).at(0)));
    putElement(*company, YRevenueSeries, 4, 4700); // has nothing to do with it
    const auto more = companyFindings(*company);
    EXPECT_EQ(
        std::ranges::count_if(more, [&](const auto& one) { return silenced.isSilenced(one); }), 1);
    putElement(*company, YLowSeries, 2, 91);
    for (const Finding& one : companyFindings(*company))
        EXPECT_FALSE(silenced.isSilenced(one)) << one.text;
    silenced.speakAgain(finding);
    EXPECT_FALSE(silenced.isSilenced(finding));
}

// --- each rule by itself -------------------------------------------------------------------------

// Figures that make a rule speak, and some that just do not.
struct Case {
    std::string_view rule;
    std::vector<std::pair<FigurePlace, double>> speaks;
    std::vector<std::pair<FigurePlace, double>> silent;
};

void putElement(CompanyRecord& company,
                const std::vector<std::pair<FigurePlace, double>>& figures) {
    for (const auto& [place, figure] : figures)
        if (place.element)
            putElement(company, place.datum, *place.element, figure);
        else if (isOf<datum_kind::Day>(place.datum))
            writeDate(company, place.datum, Date{figure});
        else if (place.datum == LastFY)
            company.put_LastFY(static_cast<std::int16_t>(figure));
        else
            writeNumber(company, place.datum, figure);
}

double day(int year, int month, int dayOfMonth) {
    return makeDate(year, month, dayOfMonth).value().serial;
}

std::vector<Case> cases() {
    constexpr std::nullopt_t card = std::nullopt;
    return {
        {"high-below-low", {{{YHighSeries, 1}, 53.9}}, {{{YHighSeries, 1}, 54}}},
        {"range-too-wide", {{{YLowSeries, 1}, 6.7}}, {{{YLowSeries, 1}, 6.75}}},
        {"range-reversed", {{{High52W, card}, 54.9}}, {{{High52W, card}, 70}}},
        {"price-outside-range", {{{CurrentPrice, card}, 54}}, {{{CurrentPrice, card}, 55}}},
        {"price-outside-range", {{{CurrentPrice, card}, 76}}, {{{CurrentPrice, card}, 75}}},
        {"negative-figure", {{{TotalDebt, card}, -1}}, {{{TotalDebt, card}, 1}}},
        {"sign-of-earnings", {{{QEPSSeries, 3}, -1}}, {{{QEPSSeries, 3}, 1.35}}},
        {"sign-of-book-value", {{{YBookValSeries, 1}, -27}}, {{{YBookValSeries, 1}, 27}}},
        {"sign-of-pre-tax-income",
         {{{YPTISeries, 8}, -500}},
         {{{YPTISeries, 8}, -500}, {{YTaxRateSeries, 8}, 180}}},
        {"preferred-above-income", {{{PrefDiv, card}, 541}}, {{{PrefDiv, card}, 540}}},
        {"diluted-below-common", {{{DilutedShares, card}, 98.9}}, {{{DilutedShares, card}, 99}}},
        {"share-counts-apart", {{{DilutedShares, card}, 141}}, {{{DilutedShares, card}, 139}}},
        {"quarters-against-year", {{{YRevenueSeries, 8}, 4008.1}}, {{{YRevenueSeries, 8}, 4008}}},
        {"quarterly-earnings-against-year", {{{QEPSSeries, 3}, 1.47}}, {{{QEPSSeries, 3}, 1.45}}},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 4.21}}, {{{YEPSSeries, 8}, 4.19}}},
        {"quarterly-earnings-times-shares", {{{QEPSSeries, 3}, 1.56}}, {{{QEPSSeries, 3}, 1.55}}},
        {"book-value-times-shares", {{{YBookValSeries, 8}, 25.1}}, {{{YBookValSeries, 8}, 24.9}}},
        {"income-after-tax", {{{YTaxRateSeries, 8}, 36}}, {{{YTaxRateSeries, 8}, 34}}},
        {"income-after-tax", {{{QTaxRateSeries, 8}, 46}}, {{{QTaxRateSeries, 8}, 44}}},
        {"jump-of-hundreds", {{{YDividendSeries, 4}, 42}}, {{{YDividendSeries, 4}, 37}}},
        {"jump-of-hundreds", {{{YDividendSeries, 4}, 0.012}}, {{{YDividendSeries, 4}, 0.12}}},
        {"jump-of-ten", {{{YDividendSeries, 4}, 9.5}}, {{{YDividendSeries, 4}, 9}}},
        {"jump-at-end", {{{YDividendSeries, 1}, 42}}, {{{YDividendSeries, 1}, 40}}},
        {"jump-at-end",
         {{{YDividendSeries, 1}, 42},
          {{YDividendSeries, 5}, 0},
          {{YDividendSeries, 6}, 0},
          {{YDividendSeries, 7}, 0},
          {{YDividendSeries, 8}, 0}},
         {{{YDividendSeries, 1}, 42},
          {{YDividendSeries, 4}, 0},
          {{YDividendSeries, 5}, 0},
          {{YDividendSeries, 6}, 0},
          {{YDividendSeries, 7}, 0},
          {{YDividendSeries, 8}, 0}}},
        {"split-ratio-jump", {{{YDividendSeries, 4}, 2.5}}, {{{YDividendSeries, 4}, 2.7}}},
        {"prices-by-split-ratio",
         {{{YHighSeries, 4}, 144}, {{YLowSeries, 4}, 96}},
         {{{YHighSeries, 4}, 144}, {{YLowSeries, 4}, 70}}},
        {"ranges-apart", {{{YLowSeries, 1}, 98}}, {{{YLowSeries, 1}, 97}}},
        {"split-step",
         {{{YCSOSeries, 1}, 141}, {{YEPSSeries, 1}, 3.7}},
         {{{YCSOSeries, 1}, 139}, {{YEPSSeries, 1}, 3.7}}},
        {"missing-year", {{{YRevenueSeries, 3}, 0}}, {{{YTaxRateSeries, 3}, 0}}},
        {"missing-year",
         {{{YPTISeries, 3}, 0}, {{YTaxRateSeries, 3}, 0}},
         {{{YPTISeries, 3}, 0}, {{YDividendSeries, 3}, 0}}},
        {"missing-quarter", {{{QNetIncSeries, 3}, 0}}, {{{QNetIncSeries, 31}, 0}}},
        {"year-unlike-its-end", {{{LastFY, card}, 2024}}, {{{LastFY, card}, 2025}}},
        {"year-unlike-its-end",
         {{{LastFYDate, card}, day(2026, 1, 8)}},
         {{{LastFYDate, card}, day(2026, 1, 7)}}},
        {"quarter-before-year-end",
         {{{LastQDateForGrid, card}, day(2025, 11, 15)}},
         {{{LastQDateForGrid, card}, day(2025, 11, 16)}}},
        {"year-behind-quarters",
         {{{LastQDateForGrid, card}, day(2026, 12, 31)}},
         {{{LastQDateForGrid, card}, day(2026, 9, 30)}}},
        {"source-before-quarter",
         {{{DateOfSource, card}, day(2025, 12, 30)}},
         {{{DateOfSource, card}, day(2025, 12, 31)}}},
        {"day-to-come",
         {{{PriceUpdatedDate, card}, day(2026, 6, 2)}},
         {{{PriceUpdatedDate, card}, day(2026, 6, 1)}}},
        {"day-to-come",
         {{{PriceUpdatedDate, card}, day(2026, 6, 2)}},
         {{{PriceUpdatedDate, card}, day(2026, 6, 2)}, {{CurrentPrice, card}, 0}}},
        {"day-to-come",
         {{{LastFYDate, card}, day(2026, 6, 2)}, {{YRevenueSeries, 1}, 0}, {{YEPSSeries, 2}, 0}},
         {{{LastFYDate, card}, day(2026, 6, 2)}, {{YRevenueSeries, 1}, 0}, {{YEPSSeries, 1}, 0}}},
        {"day-to-come",
         {{{LastFYDate, card}, day(2026, 6, 2)}, {{YRevenueSeries, 2}, 0}, {{YEPSSeries, 1}, 0}},
         {{{LastFYDate, card}, day(2026, 6, 1)}}},
        {"day-to-come",
         {{{LastQDateForGrid, card}, day(2026, 6, 2)},
          {{QRevenueSeries, 0}, 0},
          {{QEPSSeries, 1}, 0}},
         {{{LastQDateForGrid, card}, day(2026, 6, 2)},
          {{QRevenueSeries, 0}, 0},
          {{QEPSSeries, 0}, 0}}},
        {"day-to-come",
         {{{LastQDateForGrid, card}, day(2026, 6, 2)},
          {{QRevenueSeries, 1}, 0},
          {{QEPSSeries, 0}, 0}},
         {{{LastQDateForGrid, card}, day(2026, 6, 1)}}},
        {"day-to-come",
         {{{DateOfSource, card}, day(2026, 6, 2)}},
         {{{DateOfSource, card}, day(2026, 6, 1)}}},
        {"day-to-come",
         {{{LastUpdate, card}, day(2026, 6, 2)}},
         {{{LastUpdate, card}, day(2026, 6, 1)}}},
    };
}

bool speaks(std::string_view rule, const std::vector<std::pair<FigurePlace, double>>& figures) {
    const auto company = soundCompany();
    putElement(*company, figures);
    const auto findings = companyFindings(*company, {{}, makeDate(2026, 6, 1).value()});
    return std::ranges::find(findings, rule, &Finding::rule) != findings.end();
}

TEST(PlausibilityRules, speakBeyondTheirBoundsAndNotWithin) {
    for (const Case& one : cases()) {
        EXPECT_TRUE(speaks(one.rule, one.speaks)) << one.rule;
        EXPECT_FALSE(speaks(one.rule, one.silent)) << one.rule;
    }
}

TEST(PlausibilityRules, areAllTriedAndHaveNamesOfTheirOwn) {
    std::set<std::string_view> tried;
    for (const Case& one : cases())
        tried.insert(one.rule);
    std::set<std::string_view> names;
    for (const PlausibilityRule& rule : plausibilityRules()) {
        names.insert(rule.name);
        EXPECT_TRUE(tried.contains(rule.name)) << rule.name;
        EXPECT_EQ(findPlausibilityRule(rule.name), &rule);
    }
    EXPECT_EQ(names.size(), plausibilityRules().size());
    EXPECT_EQ(findPlausibilityRule("no-rule"), nullptr);
}

TEST(PlausibilityRules, leaveNoPlaceOfTheirSentencesOpen) {
    for (const Case& one : cases()) {
        const auto company = soundCompany();
        putElement(*company, one.speaks);
        for (const Finding& finding : companyFindings(*company, {{}, makeDate(2026, 6, 1).value()}))
            for (const char* open : {"%1", "%2", "%3", "%4", "%5", "%6", "Series", "nan", "inf"})
                EXPECT_EQ(finding.text.find(open), std::string::npos) << finding.text;
    }
}

// Sums, products and ratios of them may be beyond all numbers.
TEST(PlausibilityRules, leaveNoPlaceOfTheirSentencesEmptyForTheLargestAndTheSmallestFigures) {
    constexpr double extremes[] = {1e308, -1e308, 1.5e308, 5e-324, -5e-324, 1e-310, 1e-9, 1, 50};
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> pick(0, std::size(extremes) - 1);
    std::size_t found = 0;
    for (int round = 0; round < 100; ++round) {
        const auto company = soundCompany();
        for (const auto& row : datumTable())
            if (isSeries(row)) {
                for (int element = 0; element <= row.upper; ++element)
                    putElement(*company, row.datum, element, extremes[pick(random)]);
            } else if (isOf<datum_kind::Number>(row.datum)) {
                writeNumber(*company, row.datum, extremes[pick(random)]);
            }
        for (const Finding& finding : companyFindings(*company)) {
            ++found;
            for (const char* hole :
                 {"  ", " .", " ,", " ;", "( ", " )", "nan", "inf", "about more", "1/more"})
                ASSERT_EQ(finding.text.find(hole), std::string::npos) << finding.text;
        }
    }
    EXPECT_GT(found, 1000U);
}

struct Single {
    std::string_view rule;
    std::vector<std::pair<FigurePlace, double>> figures;
    bool speaks;
};

void tryEach(const std::vector<Single>& rows) {
    for (std::size_t at = 0; at < rows.size(); ++at)
        EXPECT_EQ(speaks(rows[at].rule, rows[at].figures), rows[at].speaks)
            << rows[at].rule << ", row " << at;
}

constexpr std::nullopt_t onCard = std::nullopt;

TEST(PlausibilityRules, passOverAFigureThatIsMissing) {
    const std::pair<FigurePlace, double> sourceOfToday{{DateOfSource, onCard}, day(2025, 12, 30)};
    tryEach({
        {"high-below-low", {{{YHighSeries, 1}, 0}}, false},
        {"range-too-wide", {{{YLowSeries, 1}, 0}}, false},
        {"range-reversed", {{{High52W, onCard}, 0}}, false},
        {"price-outside-range", {{{CurrentPrice, onCard}, 0}}, false},
        {"price-outside-range", {{{High52W, onCard}, 0}, {{Low52W, onCard}, 0}}, false},
        {"price-outside-range", {{{High52W, onCard}, 0}, {{CurrentPrice, onCard}, 54}}, true},
        {"sign-of-earnings", {{{QEPSSeries, 3}, 0}}, false},
        {"sign-of-earnings", {{{QEPSSeries, 3}, 0}, {{QNetIncSeries, 3}, -5}}, false},
        {"sign-of-earnings", {{{QEPSSeries, 3}, -1}, {{QNetIncSeries, 3}, 0}}, false},
        {"sign-of-book-value", {{{YBookValSeries, 1}, -5}, {{YCommEqSeries, 1}, 0}}, false},
        {"preferred-above-income", {{{PrefDiv, onCard}, 5}, {{YNetIncSeries, 1}, 0}}, false},
        {"diluted-below-common", {{{DilutedShares, onCard}, 0}}, false},
        {"share-counts-apart", {{{DilutedShares, onCard}, 0}}, false},
        {"share-counts-apart", {{{YCSOSeries, 1}, 0}}, false},
        {"quarters-against-year", {{{YRevenueSeries, 4}, 0}}, false},
        {"quarters-against-year", {{{QRevenueSeries, 14}, 0}}, false},
        {"earnings-times-shares", {{{YEPSSeries, 4}, 0}}, false},
        {"earnings-times-shares", {{{YCSOSeries, 4}, 0}}, false},
        {"earnings-times-shares", {{{YNetIncSeries, 4}, 0}}, false},
        {"quarterly-earnings-times-shares", {{{QEPSSeries, 3}, 0}}, false},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 3}, 0}}, false},
        {"quarterly-earnings-times-shares", {{{QEPSSeries, 3}, -2}}, false},
        {"quarterly-earnings-times-shares", {{{YCSOSeries, 1}, 0}, {{QEPSSeries, 3}, 5}}, false},
        {"quarterly-earnings-times-shares", {{{YCSOSeries, 1}, 0}, {{QEPSSeries, 3}, 0.5}}, false},
        {"book-value-times-shares", {{{YBookValSeries, 4}, 0}}, false},
        {"book-value-times-shares", {{{YCommEqSeries, 4}, 0}}, false},
        {"book-value-times-shares", {{{YCSOSeries, 4}, 0}}, false},
        {"income-after-tax", {{{YTaxRateSeries, 4}, 0}}, false},
        {"income-after-tax", {{{YPTISeries, 4}, 0}}, false},
        {"income-after-tax", {{{YNetIncSeries, 4}, 0}}, false},
        {"jump-of-hundreds", {{{YDividendSeries, 4}, 0}}, false},
        {"jump-of-hundreds", {{{YDividendSeries, 4}, 42}, {{YDividendSeries, 3}, 0}}, false},
        {"jump-of-hundreds", {{{YDividendSeries, 4}, 42}, {{YDividendSeries, 5}, 0}}, false},
        {"jump-of-ten", {{{YDividendSeries, 4}, 11}, {{YDividendSeries, 3}, 0}}, false},
        {"jump-of-ten", {{{YDividendSeries, 4}, 11}, {{YDividendSeries, 5}, 0}}, false},
        {"split-ratio-jump", {{{YDividendSeries, 4}, 2.5}, {{YDividendSeries, 5}, 0}}, false},
        {"prices-by-split-ratio",
         {{{YHighSeries, 4}, 144}, {{YLowSeries, 4}, 96}, {{YHighSeries, 3}, 0}},
         false},
        {"prices-by-split-ratio",
         {{{YHighSeries, 4}, 144}, {{YLowSeries, 4}, 96}, {{YLowSeries, 3}, 0}},
         false},
        {"prices-by-split-ratio",
         {{{YHighSeries, 4}, 144},
          {{YLowSeries, 4}, 96},
          {{YLowSeries, 3}, 0},
          {{YLowSeries, 5}, 0}},
         false},
        {"ranges-apart", {{{YHighSeries, 1}, 0}}, false},
        {"ranges-apart", {{{YHighSeries, 1}, 0}, {{YLowSeries, 1}, 500}}, false},
        {"ranges-apart", {{{YHighSeries, 2}, 0}, {{YLowSeries, 1}, 500}}, false},
        {"split-step", {{{YCSOSeries, 1}, 141}, {{YEPSSeries, 1}, 0}}, false},
        {"split-step", {{{YCSOSeries, 1}, 0}, {{YEPSSeries, 1}, 8}}, false},
        {"split-step", {{{YCSOSeries, 1}, 50}, {{YEPSSeries, 2}, 0}}, false},
        {"split-step", {{{YCSOSeries, 2}, 0}}, false},
        {"year-unlike-its-end", {{{LastFY, onCard}, 0}}, false},
        {"source-before-quarter", {sourceOfToday}, true},
        {"source-before-quarter", {sourceOfToday, {{QRevenueSeries, 0}, 0}}, false},
    });
}

TEST(PlausibilityRules, takeEveryFigureThatIsThereHoweverSmall) {
    tryEach({
        {"high-below-low", {{{YHighSeries, 1}, 0.5}, {{YLowSeries, 1}, 0.6}}, true},
        {"range-too-wide", {{{YHighSeries, 1}, 6.1}, {{YLowSeries, 1}, 0.5}}, true},
        {"range-reversed", {{{High52W, onCard}, 0.5}, {{Low52W, onCard}, 0.6}}, true},
        {"range-reversed", {{{High52W, onCard}, 55}}, false},
        {"price-outside-range",
         {{{CurrentPrice, onCard}, 0.5}, {{Low52W, onCard}, 0.6}, {{High52W, onCard}, 0.9}},
         true},
        {"price-outside-range",
         {{{CurrentPrice, onCard}, 0.6}, {{Low52W, onCard}, 0.3}, {{High52W, onCard}, 0.5}},
         true},
        {"price-outside-range", {{{CurrentPrice, onCard}, 52}, {{High52W, onCard}, 50}}, false},
        {"price-outside-range",
         {{{CurrentPrice, onCard}, 0.5}, {{Low52W, onCard}, 0.9}, {{High52W, onCard}, 0.8}},
         false},
        {"price-outside-range", {{{CurrentPrice, onCard}, 54}, {{High52W, onCard}, 55}}, true},
        {"negative-figure", {{{CommDiv, onCard}, 0.5}}, false},
        {"sign-of-earnings", {{{QEPSSeries, 3}, 0.1}, {{QNetIncSeries, 3}, 0.1}}, false},
        {"preferred-above-income", {{{PrefDiv, onCard}, 0.6}, {{YNetIncSeries, 1}, 0.5}}, true},
        {"preferred-above-income", {{{PrefDiv, onCard}, 0.6}, {{YNetIncSeries, 1}, -5}}, false},
        {"diluted-below-common",
         {{{DilutedShares, onCard}, 0.5}, {{CommShares, onCard}, 0.6}},
         true},
        {"share-counts-apart", {{{DilutedShares, onCard}, 0.5}}, true},
        {"share-counts-apart", {{{YCSOSeries, 1}, 0.5}}, true},
        {"ranges-apart", {{{YLowSeries, 1}, 0.9}, {{YHighSeries, 1}, 0.9}}, true},
        {"ranges-apart",
         {{{YLowSeries, 2}, 0.3}, {{YHighSeries, 2}, 0.5}, {{YLowSeries, 1}, 0.8}},
         true},
        {"ranges-apart",
         {{{YLowSeries, 2}, 0.5}, {{YHighSeries, 1}, 0.3}, {{YLowSeries, 1}, 0.2}},
         true},
        {"ranges-apart",
         {{{YLowSeries, 0}, 0.8},
          {{YHighSeries, 0}, 0.9},
          {{YLowSeries, 1}, 0.3},
          {{YHighSeries, 1}, 0.5},
          {{YLowSeries, 2}, 0}},
         true},
        {"quarterly-earnings-times-shares",
         {{{YCSOSeries, 1}, 1},
          {{YCSOSeries, 2}, 1},
          {{QEPSSeries, 3}, 1},
          {{QNetIncSeries, 3}, 2}},
         true},
    });
}

TEST(PlausibilityRules, lookAtEveryPeriod) {
    constexpr int oldestYear = 10;
    constexpr int oldestQuarter = 34;
    std::vector<Single> rows = {
        {"jump-of-hundreds", {{{YDividendSeries, 0}, 1}, {{YDividendSeries, 1}, 100}}, false},
        {"jump-of-hundreds",
         {{{YDividendSeries, 8}, 42}, {{YDividendSeries, 9}, 1}, {{YDividendSeries, 10}, 1}},
         true},
        {"jump-of-hundreds",
         {{{YDividendSeries, 8}, 1}, {{YDividendSeries, 9}, 42}, {{YDividendSeries, 10}, 1}},
         true},
        {"jump-of-hundreds", {{{YDividendSeries, 2}, 50}}, true},
        {"jump-of-hundreds", {{{YDividendSeries, 2}, 0.02}}, true},
        {"jump-of-hundreds", {{{QRevenueSeries, 1}, 50000}}, true},
        {"jump-of-ten", {{{YDividendSeries, 2}, 13}}, true},
        {"jump-of-ten", {{{YDividendSeries, 0}, 1}, {{YDividendSeries, 1}, 13}}, false},
        {"jump-of-ten", {{{YDividendSeries, 9}, 10}, {{YDividendSeries, 10}, 1}}, true},
        {"jump-of-ten", {{{QRevenueSeries, 1}, 13500}}, true},
        {"jump-at-end", {{{YDividendSeries, 8}, 42}}, true},
        {"jump-at-end", {{{YDividendSeries, 1}, 0}, {{YDividendSeries, 2}, 42}}, true},
        {"jump-at-end", {{{YDividendSeries, 0}, 42}}, false},
        {"jump-at-end", {{{YDividendSeries, 9}, 1}, {{YDividendSeries, 10}, 42}}, true},
        {"jump-at-end", {{{QEPSSeries, 0}, 50}}, true},
        {"split-ratio-jump", {{{YCSOSeries, 2}, 200}}, true},
        {"split-ratio-jump", {{{YCSOSeries, 0}, 100}, {{YCSOSeries, 1}, 200}}, false},
        {"split-ratio-jump", {{{YCSOSeries, 9}, 200}, {{YCSOSeries, 10}, 100}}, true},
        {"prices-by-split-ratio", {{{YHighSeries, 2}, 156}, {{YLowSeries, 2}, 104}}, true},
        {"prices-by-split-ratio",
         {{{YHighSeries, 0}, 81},
          {{YLowSeries, 0}, 54},
          {{YHighSeries, 1}, 160},
          {{YLowSeries, 1}, 107}},
         false},
        {"prices-by-split-ratio",
         {{{YHighSeries, 9}, 120},
          {{YLowSeries, 9}, 80},
          {{YHighSeries, 10}, 60},
          {{YLowSeries, 10}, 40}},
         true},
        {"ranges-apart", {{{YHighSeries, 0}, 200}, {{YLowSeries, 0}, 102}}, true},
        {"ranges-apart", {{{YHighSeries, 0}, 200}, {{YLowSeries, 0}, 101}}, false},
        {"ranges-apart",
         {{{YHighSeries, 9}, 60},
          {{YLowSeries, 9}, 40},
          {{YHighSeries, 10}, 60},
          {{YLowSeries, 10}, 76}},
         true},
        {"ranges-apart", {{{YHighSeries, 1}, 60}, {{YLowSeries, 2}, 76}}, true},
        {"ranges-apart", {{{YHighSeries, 1}, 60}, {{YLowSeries, 2}, 75}}, false},
        {"split-step", {{{YCSOSeries, 0}, 141}, {{YEPSSeries, 0}, 3}}, false},
        {"split-step",
         {{{YCSOSeries, 9}, 141},
          {{YEPSSeries, 9}, 2},
          {{YCSOSeries, 10}, 100},
          {{YEPSSeries, 10}, 3}},
         true},
        {"split-step", {{{YCSOSeries, 1}, 71}, {{YEPSSeries, 1}, 7.6}}, true},
        {"split-step", {{{YCSOSeries, 1}, 72}, {{YEPSSeries, 1}, 7.6}}, false},
        {"split-step", {{{YCSOSeries, 1}, 71}, {{YEPSSeries, 1}, 7.2}}, false},
        {"split-step", {{{YCSOSeries, 1}, 141}, {{YEPSSeries, 1}, 3.8}}, false},
        {"split-step", {{{YCSOSeries, 1}, -71}, {{YEPSSeries, 1}, 7.6}}, false},
        {"missing-year", {{{YRevenueSeries, 2}, 0}}, true},
        {"missing-year", {{{YRevenueSeries, 1}, 0}}, false},
        {"missing-year", {{{YRevenueSeries, 1}, 0}, {{YRevenueSeries, 2}, 0}}, false},
        {"missing-year", {{{YRevenueSeries, 0}, 1}, {{YRevenueSeries, 1}, 0}}, false},
        {"missing-year", {{{YRevenueSeries, 10}, 1}}, true},
        {"missing-year", {{{YRevenueSeries, 8}, 0}}, false},
        {"missing-year", {{{YBookValSeries, 3}, 0}}, false},
        {"missing-quarter", {{{QEPSSeries, 1}, 0}}, true},
        {"missing-quarter", {{{QEPSSeries, 0}, 0}}, false},
        {"missing-quarter", {{{QEPSSeries, oldestQuarter}, 1}}, true},
        {"missing-quarter", {{{QPTISeries, 3}, 0}}, false},
        {"quarters-against-year", {{{YRevenueSeries, 1}, 5500}}, true},
        {"quarters-against-year", {{{YPTISeries, 2}, 700}}, true},
        {"quarterly-earnings-against-year", {{{YEPSSeries, 1}, 6}}, true},
        {"earnings-times-shares", {{{YEPSSeries, 1}, 6}}, true},
        {"earnings-times-shares",
         {{{YEPSSeries, 10}, 6}, {{YCSOSeries, 10}, 100}, {{YNetIncSeries, 10}, 100}},
         true},
        {"earnings-times-shares",
         {{{YEPSSeries, 0}, 6}, {{YCSOSeries, 0}, 100}, {{YNetIncSeries, 0}, 100}},
         false},
        {"book-value-times-shares", {{{YBookValSeries, 1}, 40}}, true},
        {"book-value-times-shares",
         {{{YBookValSeries, 0}, 6}, {{YCSOSeries, 0}, 100}, {{YCommEqSeries, 0}, 100}},
         false},
        {"book-value-times-shares",
         {{{YBookValSeries, 10}, 6}, {{YCSOSeries, 10}, 100}, {{YCommEqSeries, 10}, 100}},
         true},
        {"quarterly-earnings-times-shares", {{{QEPSSeries, 0}, 3}}, true},
        {"income-after-tax", {{{YTaxRateSeries, 1}, 50}}, true},
        {"income-after-tax", {{{QTaxRateSeries, 0}, 50}}, true},
        {"income-after-tax",
         {{{YPTISeries, 0}, 500}, {{YTaxRateSeries, 0}, 20}, {{YNetIncSeries, 0}, 100}},
         false},
        {"income-after-tax",
         {{{YPTISeries, 10}, 500}, {{YTaxRateSeries, 10}, 20}, {{YNetIncSeries, 10}, 100}},
         true},
        {"sign-of-pre-tax-income", {{{YPTISeries, 8}, -500}, {{YTaxRateSeries, 8}, 100}}, true},
        {"sign-of-pre-tax-income", {{{YPTISeries, 8}, -500}, {{YTaxRateSeries, 8}, 101}}, false},
        {"negative-figure", {{{YRevenueSeries, 0}, -1}}, true},
        {"negative-figure", {{{YRevenueSeries, oldestYear}, -1}}, true},
        {"negative-figure", {{{QRevenueSeries, oldestQuarter}, -1}}, true},
    };
    struct Two {
        std::string_view rule;
        Datum first;
        Datum second;
        int element;
        bool looks;
    };
    const Two pairs[] = {
        {"high-below-low", YHighSeries, YLowSeries, 0, true},
        {"high-below-low", YHighSeries, YLowSeries, oldestYear, true},
        {"range-too-wide", YLowSeries, YHighSeries, 0, true},
        {"range-too-wide", YLowSeries, YHighSeries, oldestYear, true},
        {"sign-of-earnings", YEPSSeries, YNetIncSeries, 0, false},
        {"sign-of-earnings", YEPSSeries, YNetIncSeries, 1, true},
        {"sign-of-earnings", YEPSSeries, YNetIncSeries, oldestYear, true},
        {"sign-of-earnings", QEPSSeries, QNetIncSeries, 0, true},
        {"sign-of-earnings", QEPSSeries, QNetIncSeries, oldestQuarter, true},
        {"sign-of-book-value", YBookValSeries, YCommEqSeries, 0, true},
        {"sign-of-book-value", YBookValSeries, YCommEqSeries, oldestYear, true},
        {"sign-of-pre-tax-income", YPTISeries, YNetIncSeries, 0, false},
        {"sign-of-pre-tax-income", YPTISeries, YNetIncSeries, 1, true},
        {"sign-of-pre-tax-income", YPTISeries, YNetIncSeries, oldestYear, true},
        {"sign-of-pre-tax-income", QPTISeries, QNetIncSeries, 0, true},
        {"sign-of-pre-tax-income", QPTISeries, QNetIncSeries, oldestQuarter, true},
    };
    for (const Two& two : pairs) {
        const bool signs = two.rule.starts_with("sign");
        rows.push_back({two.rule,
                        {{{two.first, two.element}, signs ? -5.0 : 1.0},
                         {{two.second, two.element}, signs ? 5.0 : 13.0}},
                        two.looks});
    }
    tryEach(rows);
}

TEST(PlausibilityRules, knowTheRatiosOfSplits) {
    for (const double ratio : {1.5, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 15.0, 20.0, 25.0, 50.0})
        for (const double times : {ratio, 1 / ratio}) {
            EXPECT_TRUE(speaks("split-ratio-jump", {{{YCSOSeries, 4}, 100 * times}})) << times;
            EXPECT_TRUE(speaks("split-ratio-jump", {{{YCSOSeries, 4}, 104 * times}})) << times;
        }
    for (const double times : {1.0, 1.3, 1.7, 2.4, 3.5, 10.0, 12.0, 17.5, 23.0, 28.0, 56.0})
        EXPECT_FALSE(speaks("split-ratio-jump", {{{YCSOSeries, 4}, 100 * times}})) << times;
}

TEST(PlausibilityRules, speakOfWhatAYearLacksInOneSentence) {
    const auto company = soundCompany();
    for (const Datum series : {YRevenueSeries, YEPSSeries, YHighSeries})
        putElement(*company, series, 3, 0);
    const auto findings = companyFindings(*company);
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_NE(findings[0].text.find("revenue, earnings per share and high price"),
              std::string::npos)
        << findings[0].text;
}

TEST(PlausibilityRules, sayOnWhichSideASumIsBeyondAllNumbers) {
    for (const auto& [figure, said] : {std::pair{1.5e308, "more than 1.79769313486232E+308"},
                                       {-1.5e308, "less than -1.79769313486232E+308"}}) {
        const auto company = soundCompany();
        putElement(*company, YNetIncSeries, 8, figure);
        for (int quarter = 28; quarter < 32; ++quarter)
            putElement(*company, QNetIncSeries, quarter, figure);
        const auto findings = companyFindings(*company);
        EXPECT_TRUE(std::ranges::any_of(findings, [&](const Finding& one) {
            return one.rule == "quarters-against-year" && one.text.find(said) != std::string::npos;
        })) << said;
    }
}

// It takes its part in what else is said of the years beside it.
TEST(CompanyFindings, pointAtAFigureThatIsMissing) {
    const auto company = soundCompany();
    const double highs[] = {60, 20, 62, 64, 66};
    const double lows[] = {40, 0, 41, 42, 43};
    for (int year = 1; year <= 5; ++year) {
        putElement(*company, YHighSeries, year, highs[year - 1]);
        putElement(*company, YLowSeries, year, lows[year - 1]);
    }
    int apart = 0;
    for (const Finding& one : companyFindings(*company))
        if (one.rule == "ranges-apart") {
            ++apart;
            EXPECT_EQ(one.places.front(), (FigurePlace{YLowSeries, 2})) << one.text;
        }
    EXPECT_EQ(apart, 2);
}

// Noughts at the end of a figure in units say nothing above a million.
TEST(PlausibilityRules, knowFiguresInUnits) {
    const auto revenue = [](double year) {
        return std::vector<std::pair<FigurePlace, double>>{{{YRevenueSeries, 8}, year},
                                                           {{QRevenueSeries, 28}, 11.03e9},
                                                           {{QRevenueSeries, 29}, 10e9},
                                                           {{QRevenueSeries, 30}, 10e9},
                                                           {{QRevenueSeries, 31}, 10e9}};
    };
    tryEach({{"quarters-against-year", revenue(41'046'412'000), true},
             {"quarters-against-year", revenue(41'031'500'000), false}});
}

TEST(PlausibilityRules, haveTheirBoundsWhereTheyAreSaidToBe) {
    using Figures = std::vector<std::pair<FigurePlace, double>>;
    // A figure between an older and a newer one.
    const auto between = [](Datum series, double older, double at, double newer) {
        return Figures{{{series, 5}, older}, {{series, 4}, at}, {{series, 3}, newer}};
    };
    const auto dividends = [&](double older, double at, double newer) {
        return between(YDividendSeries, older, at, newer);
    };
    const auto shares = [&](double older, double at, double newer) {
        return between(YCSOSeries, older, at, newer);
    };
    const auto prices = [&](const Figures& high, const Figures& low) {
        Figures both = high;
        both.insert(both.end(), low.begin(), low.end());
        return both;
    };
    const auto range = [&](double highTimes, double lowTimes, double newer = 1) {
        const double middle = std::sqrt(newer);
        return prices(between(YHighSeries, 60, 60 * highTimes * middle, 60 * newer),
                      between(YLowSeries, 40, 40 * lowTimes * middle, 40 * newer));
    };
    tryEach({
        {"jump-of-hundreds", dividends(1, 316.2, 10), true},
        {"jump-of-hundreds", dividends(1, 324, 10.5), false},
        {"jump-of-hundreds", dividends(1, 31.705, 1), true},
        {"jump-of-hundreds", dividends(1, 31.7, 1), true},
        {"jump-of-hundreds", dividends(1, 31.69, 1), false},
        {"jump-of-hundreds", dividends(1, 1 / 31.705, 1), true},
        {"jump-of-hundreds", dividends(1, 3161.5, 1), true},
        {"jump-of-hundreds", dividends(1, 3162, 1), true},
        {"jump-of-hundreds", dividends(1, 3162.5, 1), false},
        {"jump-of-hundreds", between(YTaxRateSeries, 5, 500, 5), true},
        {"jump-of-hundreds", between(YTaxRateSeries, 4.9, 500, 5), false},
        {"jump-of-ten", dividends(1, 17.32, 3), true},
        {"jump-of-ten", dividends(1, 18.7, 3.5), false},
        {"jump-of-ten", dividends(1, 12.95, 1), true},
        {"jump-of-ten", dividends(1, 13.05, 1), false},
        {"jump-of-ten", dividends(1, 0.1, 1), true},
        {"jump-of-ten", dividends(1, 1.2, 1), false},
        {"jump-of-ten", dividends(1, 100, 1), false},
        {"split-ratio-jump", shares(100, 214.4, 115), true},
        {"split-ratio-jump", shares(100, 214.5, 115.05), false},
        {"split-ratio-jump", shares(100, 209.9, 100), true},
        {"split-ratio-jump", shares(100, 210.1, 100), false},
        {"split-ratio-jump", shares(100, 142.9, 100), true},
        {"split-ratio-jump", shares(100, 142.8, 100), false},
        {"prices-by-split-ratio", range(2, 2), true},
        {"prices-by-split-ratio", range(2, 2, 1.5), true},
        {"prices-by-split-ratio", range(2, 2, 1.505), false},
        {"prices-by-split-ratio", range(2.195, 2.195), true},
        {"prices-by-split-ratio", range(2.21, 2.21), false},
        {"prices-by-split-ratio", range(2.1, 1.91), true},
        {"prices-by-split-ratio", range(2.1, 1.9), false},
        {"prices-by-split-ratio", range(10, 10), true},
        {"prices-by-split-ratio", range(9.2, 9.2), true},
        {"share-counts-apart", {{{CommShares, onCard}, 140}}, false},
        {"share-counts-apart",
         {{{CommShares, onCard}, 50}, {{DilutedShares, onCard}, 60}, {{YCSOSeries, 1}, 70}},
         false},
        {"ranges-apart", {{{YLowSeries, 1}, 97.55}}, true},
        {"ranges-apart", {{{YLowSeries, 1}, 97.5}}, false},
        {"split-step", {{{YCSOSeries, 1}, 140.5}, {{YEPSSeries, 1}, 3.7}}, true},
        {"split-step", {{{YCSOSeries, 1}, 140}, {{YEPSSeries, 1}, 3.7}}, false},
        {"split-step", {{{YCSOSeries, 1}, 141}, {{YEPSSeries, 1}, 5}, {{YEPSSeries, 2}, 7}}, false},
        {"split-step", {{{YCSOSeries, 1}, 71}, {{YEPSSeries, 1}, 7}, {{YEPSSeries, 2}, 5}}, false},
        {"split-step",
         {{{YCSOSeries, 1}, 50}, {{YCSOSeries, 2}, 70}, {{YEPSSeries, 1}, 7.6}},
         false},
        {"split-step", {{{YCSOSeries, 1}, 71.2}, {{YEPSSeries, 1}, 7.303}}, true},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 4.2002}}, true},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 4.1998}}, false},
        {"earnings-times-shares",
         {{{YEPSSeries, 8}, 0.1}, {{YNetIncSeries, 8}, 10 / 1.0605}},
         true},
        {"earnings-times-shares",
         {{{YEPSSeries, 8}, 0.1}, {{YNetIncSeries, 8}, 10 / 1.0595}},
         false},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 3.5}}, true},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 3.5}, {{PrefDiv, onCard}, 50}}, false},
        {"book-value-times-shares", {{{YBookValSeries, 8}, 25.01}}, true},
        {"book-value-times-shares", {{{YBookValSeries, 8}, 25}}, false},
        {"income-after-tax", {{{YTaxRateSeries, 8}, 35.02}}, true},
        {"income-after-tax", {{{YTaxRateSeries, 8}, 34.98}}, false},
        {"income-after-tax", {{{QTaxRateSeries, 8}, 45.02}}, true},
        {"income-after-tax", {{{QTaxRateSeries, 8}, 44.98}}, false},
        {"income-after-tax", {{{YPTISeries, 8}, 10}, {{YNetIncSeries, 8}, 5.9}}, true},
        {"income-after-tax", {{{YPTISeries, 8}, 10}, {{YNetIncSeries, 8}, 6}}, false},
        {"quarterly-earnings-times-shares",
         {{{QEPSSeries, 31}, 10}, {{QNetIncSeries, 31}, 1150.9}},
         true},
        {"quarterly-earnings-times-shares",
         {{{QEPSSeries, 31}, 10}, {{QNetIncSeries, 31}, 1150.5}},
         false},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 115.58}}, true},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 115.57}}, false},
        {"quarterly-earnings-times-shares",
         {{{QEPSSeries, 31}, 0.005}, {{QNetIncSeries, 31}, 1.15}},
         false},
        // The shares of a quarter lie between those of the years beside it.
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 130}}, true},
        {"quarterly-earnings-times-shares",
         {{{QNetIncSeries, 31}, 130}, {{YCSOSeries, 7}, 120}},
         false},
        {"quarterly-earnings-times-shares",
         {{{QNetIncSeries, 31}, 130}, {{YCSOSeries, 9}, 120}},
         false},
        {"quarterly-earnings-times-shares",
         {{{QNetIncSeries, 31}, 130}, {{YCSOSeries, 6}, 120}},
         true},
        {"quarterly-earnings-times-shares",
         {{{QNetIncSeries, 31}, 0.85}, {{YCSOSeries, 9}, 0.9}},
         false},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 80}}, true},
        {"quarterly-earnings-times-shares",
         {{{QNetIncSeries, 31}, 80}, {{YCSOSeries, 7}, 80}},
         false},
        {"quarterly-earnings-against-year", {{{QEPSSeries, 3}, 1.459}}, true},
        {"quarterly-earnings-against-year", {{{QEPSSeries, 3}, 1.457}}, false},
        {"year-behind-quarters", {{{LastQDateForGrid, onCard}, day(2026, 12, 24)}}, true},
        {"year-behind-quarters", {{{LastQDateForGrid, onCard}, day(2026, 12, 23)}}, false},
    });
    // Two units of a hundred, and a little more than binary noise.
    const auto revenue = [](double lastQuarter) {
        Figures figures{{{YRevenueSeries, 8}, 100'000}, {{QRevenueSeries, 31}, lastQuarter}};
        for (int quarter = 28; quarter < 31; ++quarter)
            figures.push_back({{QRevenueSeries, quarter}, 25'000});
        return figures;
    };
    tryEach({
        {"quarters-against-year", revenue(25'200.0105), true},
        {"quarters-against-year", revenue(25'200.0095), false},
    });
    // Cents that are rounded away, four times and once more; with more decimals, half of it.
    const auto earnings = [](double year, double lastQuarter) {
        Figures figures{{{YEPSSeries, 8}, year}, {{QEPSSeries, 31}, lastQuarter}};
        for (int quarter = 28; quarter < 31; ++quarter)
            figures.push_back({{QEPSSeries, quarter}, 0.1});
        return figures;
    };
    tryEach({
        {"quarterly-earnings-against-year", earnings(0.4, 0.1305), true},
        {"quarterly-earnings-against-year", earnings(0.4, 0.1295), false},
        {"quarterly-earnings-against-year", earnings(0.4, 0.13), false},
        {"quarterly-earnings-against-year", earnings(0.41, 0.13), false},
        {"quarterly-earnings-against-year", earnings(0.401, 0.11605), true},
        {"quarterly-earnings-against-year", earnings(0.401, 0.1159), false},
    });
    for (const double ratio : {2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 15.0, 20.0, 25.0, 50.0})
        EXPECT_TRUE(speaks("split-ratio-jump", shares(100, 100 * ratio / 1.045, 100))) << ratio;
}

TEST(PlausibilityRules, compareNoDatesWhereNothingGoesByThem) {
    struct Row {
        bool years;
        bool quarters;
        double yearEnd;
        double quarterEnd;
    };
    const double june = day(2025, 6, 30);
    const double december = day(2025, 12, 31);
    const Row rows[] = {{true, true, december, june},
                        {true, false, december, june},
                        {false, true, december, june},
                        {true, true, 0, june},
                        {true, true, december, 0},
                        {true, true, june, day(2026, 12, 31)},
                        {true, false, june, day(2026, 12, 31)},
                        {false, true, june, day(2026, 12, 31)}};
    for (const Row& row : rows) {
        CompanyRecord company;
        company.put_LastFY(2024);
        putElement(company, {{{LastFYDate, onCard}, row.yearEnd},
                             {{LastQDateForGrid, onCard}, row.quarterEnd}});
        if (row.years)
            putElement(company, YHighSeries, 10, 5);
        if (row.quarters)
            putElement(company, QPTISeries, 34, 5);
        const auto names = rulesOf(companyFindings(company));
        const auto says = [&](const char* rule) {
            return std::ranges::find(names, rule) != names.end();
        };
        const bool both = row.years && row.quarters && row.yearEnd != 0 && row.quarterEnd != 0;
        EXPECT_EQ(says("quarter-before-year-end"), both && row.yearEnd == december);
        EXPECT_EQ(says("year-behind-quarters"), both && row.yearEnd == june);
        EXPECT_EQ(says("year-unlike-its-end"), row.years && row.yearEnd != 0);
    }
}

TEST(PlausibilityRules, takeFiguresOfTheNewestAndTheOldestPeriodForSomeThatDatesGoBy) {
    for (const bool isNewest : {true, false}) {
        CompanyRecord company;
        putElement(company, {{{LastFY, onCard}, 2024},
                             {{LastFYDate, onCard}, day(2025, 12, 31)},
                             {{LastQDateForGrid, onCard}, day(2025, 6, 30)},
                             {{YHighSeries, isNewest ? 0 : 10}, 5},
                             {{QPTISeries, isNewest ? 0 : 34}, 5}});
        EXPECT_EQ(rulesOf(companyFindings(company)),
                  (std::vector<std::string>{"year-unlike-its-end", "quarter-before-year-end"}));
    }
}

// A record of a host's own, which takes the year from no date.
TEST(PlausibilityRules, compareNoDateWithAYearThatIsMissing) {
    class Undated final : public CompanyBase {
      public:
        [[nodiscard]] Date get_LastFYDate() const override { return *makeDate(2025, 12, 31); }
        [[nodiscard]] Variant get_YRevenueSeries() const override { return numberArray({1, 2, 3}); }
    };
    EXPECT_EQ(rulesOf(companyFindings(Undated())), std::vector<std::string>());
}

// A quarter of which no date says its year stands beside the last one.
TEST(PlausibilityRules, holdQuartersWithoutADateAgainstTheLastYear) {
    for (const Datum missing : {LastFYDate, LastQDateForGrid}) {
        const auto company = soundCompany();
        company->put_LastQDate({});
        writeDate(*company, missing, {});
        for (const int year : {1, 2})
            putElement(*company, YCSOSeries, year, 300);
        const auto findings = companyFindings(*company);
        const auto found =
            std::ranges::find(findings, "quarterly-earnings-times-shares", &Finding::rule);
        ASSERT_NE(found, findings.end()) << wordsOf(missing);
        EXPECT_EQ(std::ranges::count(found->places, FigurePlace{YCSOSeries, 1}), 1);
    }
}

TEST(PlausibilityRules, holdNoYearAgainstQuartersWithoutADate) {
    for (const auto& [missing, stated] :
         {std::pair(LastFYDate, LastQDateForGrid), std::pair(LastQDateForGrid, LastFYDate)}) {
        const auto company = soundCompany();
        company->put_LastQDate({});
        writeDate(*company, missing, {});
        writeDate(*company, stated, *makeDate(1900, 3, 31)); // beside the day that is none
        for (int year = 1; year <= 8; ++year)
            putElement(*company, YRevenueSeries, year, 7000);
        const auto names = rulesOf(companyFindings(*company));
        EXPECT_EQ(std::ranges::count(names, "quarters-against-year"), 0) << wordsOf(missing);
    }
}

// The dates may be far apart: the quarters of the table are those of any year, but of none to come.
TEST(PlausibilityRules, holdEachYearAgainstItsQuarters) {
    for (int year = 0; year <= 10; ++year) {
        CompanyRecord company;
        company.put_LastFYDate(*makeDate(2025, 12, 31));
        company.put_LastQDateForGrid(addQuarters(*makeDate(2025, 12, 31), 4 - 4 * year));
        for (const auto& [yearly, quarterly] :
             {std::pair(YRevenueSeries, QRevenueSeries), std::pair(YEPSSeries, QEPSSeries)}) {
            putElement(company, yearly, year, 7);
            for (int quarter = 0; quarter < 4; ++quarter)
                putElement(company, quarterly, quarter, 1);
        }
        const auto names = rulesOf(companyFindings(company));
        for (const char* rule : {"quarters-against-year", "quarterly-earnings-against-year"})
            EXPECT_EQ(std::ranges::count(names, rule), year == 0 ? 0 : 1) << rule << year;
    }
}

// Quarters after the last fiscal year are held against its shares.
TEST(PlausibilityRules, holdAQuarterAgainstTheSharesOfTheYearsBesideItsOwn) {
    const double earnings = 1.25; // of the quarter 9, in the third year
    const auto with = [&](int year, double shares, double implied) {
        return std::vector<std::pair<FigurePlace, double>>{
            {{YCSOSeries, year}, shares}, {{QNetIncSeries, 9}, earnings * implied}};
    };
    tryEach({{"quarterly-earnings-times-shares", with(2, 200, 190), false},
             {"quarterly-earnings-times-shares", with(4, 50, 55), false},
             {"quarterly-earnings-times-shares", with(3, 100, 190), true},
             {"quarterly-earnings-times-shares", with(3, 100, 55), true}});
}

TEST(PlausibilityRules, holdEachQuarterAgainstTheSharesOfItsYear) {
    for (const int later : {0, 1, 4, 5})
        for (const int quarter : {0, 1, 3, 4, 5, 7, 8}) {
            const auto company = soundCompany();
            const Date newest = addQuarters(*makeDate(2025, 12, 31), later);
            company->put_LastQDate(newest);
            company->put_LastQDateForGrid(newest);
            putElement(*company, QNetIncSeries, quarter, 900);
            const auto findings = companyFindings(*company);
            const auto found = std::ranges::find_if(findings, [&](const Finding& one) {
                return one.rule == "quarterly-earnings-times-shares" &&
                       std::ranges::count(one.places, FigurePlace{QNetIncSeries, quarter}) == 1;
            });
            ASSERT_NE(found, findings.end());
            const int year = quarter < later ? 1 : 1 + (quarter - later) / 4;
            EXPECT_EQ(std::ranges::count(found->places, FigurePlace{YCSOSeries, year}), 1)
                << later << ' ' << quarter << found->text;
        }
}

TEST(PlausibilityRules, areSurerOfWhatIsFartherOff) {
    struct Row {
        std::string_view rule;
        std::vector<std::pair<FigurePlace, double>> figures;
        Sureness sureness;
    };
    const Row rows[] = {
        {"diluted-below-common", {{{DilutedShares, onCard}, 94.06}}, hint},
        {"diluted-below-common", {{{DilutedShares, onCard}, 94.04}}, likely},
        {"diluted-below-common",
         {{{DilutedShares, onCard}, 95}, {{CommShares, onCard}, 100}},
         hint},
        {"share-counts-apart", {{{CommShares, onCard}, 850}}, sure},
        {"share-counts-apart", {{{CommShares, onCard}, 830}}, likely},
        {"share-counts-apart", {{{CommShares, onCard}, 0.1}}, sure},
        {"share-counts-apart", {{{CommShares, onCard}, 1e11}}, sure},
        {"share-counts-apart", {{{CommShares, onCard}, 1e12}}, likely},
        {"quarters-against-year", {{{YRevenueSeries, 8}, 4444}}, likely},
        {"quarters-against-year", {{{YRevenueSeries, 8}, 4445}}, sure},
        {"quarters-against-year",
         {{{YRevenueSeries, 8}, 5000}, {{QRevenueSeries, 31}, 1500}},
         likely},
        {"quarterly-earnings-against-year", {{{YEPSSeries, 8}, 4.44}}, hint},
        {"quarterly-earnings-against-year", {{{YEPSSeries, 8}, 4.45}}, likely},
        {"quarterly-earnings-against-year", {{{YEPSSeries, 8}, 5}, {{QEPSSeries, 31}, 1.5}}, hint},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 43.9}}, sure},
        {"earnings-times-shares", {{{YEPSSeries, 8}, 44.1}}, likely},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 1149}}, sure},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 1151}}, hint},
        {"quarterly-earnings-times-shares", {{{QNetIncSeries, 31}, 0.101}}, sure},
        {"quarterly-earnings-times-shares",
         {{{QNetIncSeries, 31}, 2000}, {{YCSOSeries, 7}, 200}, {{YCSOSeries, 8}, 200}},
         sure},
        {"book-value-times-shares", {{{YBookValSeries, 8}, 2.19}}, sure},
        {"book-value-times-shares", {{{YBookValSeries, 8}, 2.21}}, hint},
        {"income-after-tax", {{{YTaxRateSeries, 8}, 69.9}}, hint},
        {"income-after-tax", {{{YTaxRateSeries, 8}, 70.1}}, likely},
        {"income-after-tax", {{{YTaxRateSeries, 8}, 50}, {{YNetIncSeries, 8}, 500}}, hint},
        {"income-after-tax", {{{YPTISeries, 8}, 5499}}, sure},
        {"income-after-tax", {{{YPTISeries, 8}, 5501}}, likely},
    };
    for (const Row& row : rows) {
        const auto company = soundCompany();
        putElement(*company, row.figures);
        const auto findings = companyFindings(*company);
        const auto found = std::ranges::find(findings, row.rule, &Finding::rule);
        ASSERT_NE(found, findings.end()) << row.rule << " " << row.figures.front().second;
        EXPECT_EQ(found->sureness, row.sureness) << found->text;
    }
}

// What a person reads, and how sure it is.
TEST(PlausibilityRules, sayWhatTheyHaveFound) {
    std::vector<std::string> said;
    for (const Case& one : cases()) {
        const auto company = soundCompany();
        putElement(*company, one.speaks);
        for (const Finding& finding : companyFindings(*company, {{}, makeDate(2026, 6, 1).value()}))
            if (finding.rule == one.rule)
                said.push_back(std::string(finding.sureness == sure     ? "sure: "
                                           : finding.sureness == likely ? "likely: "
                                                                        : "hint: ") +
                               finding.text);
    }
    const std::vector<std::string> expected = {
        "sure: The high price of fiscal year 2025, 53.9, is below the low, 54.",
        "hint: The high price of fiscal year 2025, 81, is about 12.1 times the low, 6.7.",
        "sure: The 52-week high, 54.9, is below the 52-week low, 55.",
        "likely: The current price, 54, is below the 52-week low, 55.",
        "likely: The current price, 76, is above the 52-week high, 75.",
        "sure: Total debt is -1 million, and can't be below zero.",
        "sure: In the quarter ended 2025-03-31 earnings per share are -1 and net income is 135 "
        "million: one is a gain, the other a loss.",
        "sure: In fiscal year 2025 book value per share is -27 and common equity is 2,700 million: "
        "one is below zero.",
        "hint: In fiscal year 2018 pre-tax income is -500 million and net income 400 million: one "
        "is a gain, the other a loss.",
        "likely: Preferred dividends, 541 million, are more than net income, 540 million, of "
        "fiscal year 2025.",
        "hint: Diluted shares, 98.9 million, are fewer than common shares, 99 million.",
        "likely: The diluted shares, 141 million, are about 1.41 times the shares outstanding of "
        "fiscal year 2025, 100 million.",
        "likely: Revenue of fiscal year 2018: the four quarters make 4,000 million, the year says "
        "4,008.1 million.",
        "hint: Earnings per share of fiscal year 2025: the four quarters make 5.52, the year says "
        "5.4.",
        "likely: In fiscal year 2018 earnings per share of 4.21 times 100 million shares make 421 "
        "million, net income is 400 million.",
        "hint: In the quarter ended 2025-03-31 earnings per share of 1.56 and net income of 135 "
        "million make 86.5 million shares; in fiscal year 2025 it is 100 million.",
        "hint: In fiscal year 2018 a book value of 25.1 times 100 million shares makes 2,510 "
        "million, common equity is 2,000 million. A listing or a merger can be the reason.",
        "hint: In fiscal year 2018 pre-tax income of 500 million less 36 % taxes leaves 320 "
        "million, net income is 400 million. Minority holders can be the reason.",
        "hint: In the quarter ended 2023-12-31 pre-tax income of 156.25 million less 46 % taxes "
        "leaves 84.38 million, net income is 125 million. Minority holders can be the reason.",
        "sure: Dividends declared of fiscal year 2022, 42, is about 35 times the figures beside "
        "it, 1.15 and 1.25.",
        "sure: Dividends declared of fiscal year 2022, 0.012, is about 1/99.9 of the figures "
        "beside it, 1.15 and 1.25.",
        "likely: Dividends declared of fiscal year 2022, 9.5, is about 7.92 times the figures "
        "beside it, 1.15 and 1.25.",
        "likely: Dividends declared of fiscal year 2025, 42, is about 32.9 times the next figures, "
        "1.25 and 1.3.",
        "likely: Dividends declared of fiscal year 2025, 42, is about 32.9 times the next figures, "
        "1.25 and 1.3.",
        "likely: Dividends declared of fiscal year 2022, 2.5, is about 2.09 times the figures "
        "beside it, 1.15 and 1.25. Were the others adjusted for a split?",
        "likely: High and low price of fiscal year 2022, 144 and 96, are about 2 times those of "
        "the years beside it. Were those adjusted for a split?",
        "likely: Prices of fiscal year 2024 were from 52 to 78, those of fiscal year 2025 from 98 "
        "to 81: they do not meet. Are some adjusted for a split and some not?",
        "hint: From fiscal year 2024 to fiscal year 2025 the shares go from 100 million to 141 "
        "million and earnings per share from 5.2 to 3.7. A split that the older years were not "
        "adjusted for, or new shares?",
        "likely: For fiscal year 2023 nothing is stored as revenue, while there are figures before "
        "and after it.",
        "likely: For fiscal year 2023 nothing is stored as pre-tax income, while there are figures "
        "before and after it.",
        "likely: For the quarter ended 2025-03-31 nothing is stored as net income, while there are "
        "figures before and after it.",
        "likely: The last fiscal year is 2024, and is said to have ended on 2025-12-31.",
        "likely: The last fiscal year is 2025, and is said to have ended on 2026-01-08.",
        "likely: The last quarter ended on 2025-11-15, before the last fiscal year did, on "
        "2025-12-31.",
        "hint: The last quarter ended on 2026-12-31, the last fiscal year on 2025-12-31: another "
        "year has ended since.",
        "hint: The source is dated 2025-12-30, before the last quarter ended, on 2025-12-31.",
        "likely: The price update date, 2026-06-02, is still to come.",
        "likely: The price update date, 2026-06-02, is still to come.",
        "likely: The date of last FY, 2026-06-02, is still to come.",
        "likely: The date of last FY, 2026-06-02, is still to come.",
        "likely: The newest quarter of the table, 2026-06-02, is still to come.",
        "likely: The newest quarter of the table, 2026-06-02, is still to come.",
        "likely: The date of source, 2026-06-02, is still to come.",
        "likely: The last update, 2026-06-02, is still to come."};
    EXPECT_EQ(said, expected);
}

// What a person has called right is kept by its key: it has to stay as it is.
TEST(CompanyFindings, haveKeysThatStay) {
    const auto keyOf = [](const std::vector<std::pair<FigurePlace, double>>& figures) {
        const auto company = soundCompany();
        putElement(*company, figures);
        return companyFindings(*company).at(0).key;
    };
    EXPECT_EQ(keyOf({{{YHighSeries, 1}, 53.9}}),
              "high-below-low YHighSeries 2025 9ad149b0b9a357dc");
    EXPECT_EQ(keyOf({{{QNetIncSeries, 3}, 0}}),
              "missing-quarter QNetIncSeries 2025Q1 c0c897006ad0f058");
    EXPECT_EQ(keyOf({{{CurrentPrice, onCard}, 54}}),
              "price-outside-range CurrentPrice 2453ae044c7624dd");
    EXPECT_EQ(keyOf({{{High52W, onCard}, 1}}), "range-reversed High52W c466a4e0d26d31bb");
    // A quarter is named after the one that its middle lies in.
    const auto quarterOf = [&](double end) {
        return keyOf({{{LastQDateForGrid, onCard}, end}, {{QRevenueSeries, 0}, -1}});
    };
    EXPECT_EQ(quarterOf(day(2026, 2, 14)),
              "negative-figure QRevenueSeries 2025Q4 3d95df7965ae55cc");
    EXPECT_EQ(quarterOf(day(2026, 2, 15)),
              "negative-figure QRevenueSeries 2026Q1 3d95df7965ae55cc");
    std::vector<std::string> keys;
    for (const Case& one : cases()) {
        const auto company = soundCompany();
        putElement(*company, one.speaks);
        const auto findings = companyFindings(*company, {{}, makeDate(2026, 6, 1).value()});
        const auto found = std::ranges::find(findings, one.rule, &Finding::rule);
        ASSERT_NE(found, findings.end()) << one.rule;
        keys.push_back(found->key);
    }
    const std::vector<std::string> expected = {
        "high-below-low YHighSeries 2025 9ad149b0b9a357dc",
        "range-too-wide YHighSeries 2025 643545009b4f1728",
        "range-reversed High52W 17a5d6a93b738d1f",
        "price-outside-range CurrentPrice 2453ae044c7624dd",
        "price-outside-range CurrentPrice fd1974ae7f2c1a06",
        "negative-figure TotalDebt ccc95faf7b3ddd49",
        "sign-of-earnings QEPSSeries 2025Q1 8d5a9b780e05d441",
        "sign-of-book-value YBookValSeries 2025 9afe00f4fb7396bb",
        "sign-of-pre-tax-income YPTISeries 2018 aecff9d2185bfcd9",
        "preferred-above-income PrefDiv 8f584c16c65dc18a",
        "diluted-below-common DilutedShares e23d464242559bab",
        "share-counts-apart DilutedShares d49536fdd06f2805",
        "quarters-against-year YRevenueSeries 2018 4592eb0e13602ed9",
        "quarterly-earnings-against-year YEPSSeries 2025 48abe41b4c03e6a4",
        "earnings-times-shares YEPSSeries 2018 c4bdb7379c4c25df",
        "quarterly-earnings-times-shares QEPSSeries 2025Q1 166ed2657a26b7d5",
        "book-value-times-shares YBookValSeries 2018 61b31dcc8696af4a",
        "income-after-tax YNetIncSeries 2018 9142945927abb574",
        "income-after-tax QNetIncSeries 2023Q4 d0339ee045825aa7",
        "jump-of-hundreds YDividendSeries 2022 14c518c0db4aa08d",
        "jump-of-hundreds YDividendSeries 2022 a5e07ee2c97f140e",
        "jump-of-ten YDividendSeries 2022 26e2226dc7e8e5eb",
        "jump-at-end YDividendSeries 2025 c9aa280dfdbb221a",
        "jump-at-end YDividendSeries 2025 c9aa280dfdbb221a",
        "split-ratio-jump YDividendSeries 2022 f2fd3a399398648c",
        "prices-by-split-ratio YHighSeries 2022 2309ca216d9360fe",
        "ranges-apart YHighSeries 2025 ca6d8a061153a6c4",
        "split-step YCSOSeries 2024 3714496593c125b0",
        "missing-year YRevenueSeries 2023 28a13c2a59cdd3f9",
        "missing-year YPTISeries 2023 fba0690b635254ba",
        "missing-quarter QNetIncSeries 2025Q1 c0c897006ad0f058",
        "year-unlike-its-end LastFY f6469d48bcff9950",
        "year-unlike-its-end LastFY 3a02c3f7e0e6c28b",
        "quarter-before-year-end LastQDateForGrid ec8842db435a227f",
        "year-behind-quarters LastFYDate fe1fa3ac62b2cfbc",
        "source-before-quarter DateOfSource cccc451419978c97",
        "day-to-come PriceUpdatedDate 559a1ad2b0b56e96",
        "day-to-come PriceUpdatedDate 559a1ad2b0b56e96",
        "day-to-come LastFYDate 8acb88877b2f0b57",
        "day-to-come LastFYDate 8acb88877b2f0b57",
        "day-to-come LastQDateForGrid 3bd15a39ecceeb6c",
        "day-to-come LastQDateForGrid 3bd15a39ecceeb6c",
        "day-to-come DateOfSource 4d6e107062f6f476",
        "day-to-come LastUpdate 20b0a4d7a8368a17"};
    EXPECT_EQ(keys, expected);
}

// A figure that it only goes by is not the one to look at, whatever else is said of it.
TEST(PlausibilityRules, pointAtNoFigureThatTheyDoNotSuspect) {
    const auto findingsOf = [](const Case& one, const FigurePlace* suspected) {
        const auto company = soundCompany();
        putElement(*company, one.speaks);
        const CompanyFigures figures(*company);
        Report report(figures, {}, makeDate(2026, 6, 1).value());
        report.beginRule("another", "It is odd.");
        for (int times = 0; suspected != nullptr && times < 9; ++times)
            report.speak(hint, {*suspected}, 1, {});
        const PlausibilityRule& rule = *findPlausibilityRule(one.rule);
        report.beginRule(rule.name, rule.says);
        rule.look(figures, report);
        auto found = std::move(report).findings();
        std::erase_if(found, [](const Finding& finding) { return finding.rule == "another"; });
        return found;
    };
    std::map<std::string_view, std::size_t> suspects;
    for (const Case& one : cases()) {
        const auto all = findingsOf(one, nullptr);
        ASSERT_FALSE(all.empty()) << one.rule;
        suspects[one.rule] = static_cast<std::size_t>(
            std::ranges::count_if(all.front().places, [&](const FigurePlace& place) {
                const auto found = findingsOf(one, &place);
                const auto same = std::ranges::find(found, all.front().key, &Finding::key);
                return same != found.end() && same->places.front() == place;
            }));
    }
    const std::map<std::string_view, std::size_t> expected = {
        {"book-value-times-shares", 3},
        {"day-to-come", 1},
        {"diluted-below-common", 2},
        {"earnings-times-shares", 3},
        {"high-below-low", 2},
        {"income-after-tax", 3},
        {"jump-at-end", 1},
        {"jump-of-hundreds", 1},
        {"jump-of-ten", 1},
        {"missing-quarter", 1},
        {"missing-year", 1},
        {"negative-figure", 1},
        {"preferred-above-income", 2},
        {"price-outside-range", 2},
        {"prices-by-split-ratio", 2},
        {"quarter-before-year-end", 2},
        {"quarterly-earnings-against-year", 5},
        {"quarterly-earnings-times-shares", 3},
        {"quarters-against-year", 5},
        {"range-reversed", 2},
        {"range-too-wide", 2},
        {"ranges-apart", 4},
        {"share-counts-apart", 2},
        {"sign-of-book-value", 2},
        {"sign-of-earnings", 2},
        {"sign-of-pre-tax-income", 2},
        {"source-before-quarter", 2},
        {"split-ratio-jump", 1},
        {"split-step", 2},
        {"year-behind-quarters", 2},
        {"year-unlike-its-end", 2}};
    EXPECT_EQ(suspects, expected);
}

TEST(Report, saysADayWithTwoDigits) {
    EXPECT_EQ(Report::day(*makeDate(2025, 10, 9)), "2025-10-09");
    EXPECT_EQ(Report::day(*makeDate(2025, 9, 10)), "2025-09-10");
}

TEST(Report, saysHowManyTimesFromOneOn) {
    const CompanyRecord company;
    const CompanyFigures figures(company);
    const Report report(figures, {}, {});
    EXPECT_EQ(report.times(1), "about 1 times");
    EXPECT_EQ(report.times(10), "about 10 times");
    EXPECT_EQ(report.times(0.1), "about 1/10 of");
}

TEST(CompanyFindings, nameAPeriodByItsPlaceWhereThereIsNoDate) {
    CompanyRecord company;
    for (const int year : {0, 1, 2, 3}) {
        putElement(company, YHighSeries, year, 5);
        putElement(company, YLowSeries, year, 5.5);
    }
    for (const int quarter : {0, 1, 34})
        putElement(company, QRevenueSeries, quarter, -0.5);
    std::vector<std::string> texts;
    std::vector<std::string> keys;
    for (const Finding& one : companyFindings(company))
        if (one.rule == "high-below-low" || one.rule == "negative-figure") {
            texts.push_back(one.text);
            keys.push_back(one.key.substr(0, one.key.rfind(' ')));
        }
    const std::vector<std::string> expected = {
        "Revenue of the last quarter is -0.5 million, and can't be below zero.",
        "Revenue of quarter 1 before the last is -0.5 million, and can't be below zero.",
        "Revenue of quarter 34 before the last is -0.5 million, and can't be below zero.",
        "The high price of the coming fiscal year, 5, is below the low, 5.5.",
        "The high price of the last fiscal year, 5, is below the low, 5.5.",
        "The high price of fiscal year 1 before the last, 5, is below the low, 5.5.",
        "The high price of fiscal year 2 before the last, 5, is below the low, 5.5."};
    EXPECT_EQ(texts, expected);
    EXPECT_EQ(keys, (std::vector<std::string>{
                        "negative-figure QRevenueSeries -0", "negative-figure QRevenueSeries -1",
                        "negative-figure QRevenueSeries -34", "high-below-low YHighSeries -0",
                        "high-below-low YHighSeries -1", "high-below-low YHighSeries -2",
                        "high-below-low YHighSeries -3"}));
}

} // namespace
} // namespace vkr
