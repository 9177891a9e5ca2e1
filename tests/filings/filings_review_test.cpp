// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "company/company_record.hpp"
#include "company/exact_text.hpp"
#include "company/figure_origins.hpp"
#include "company/kept_figures.hpp"
#include "company/split.hpp"
#include "filings/filings_review.hpp"
#include "filings/review_table.hpp"
#include "record/datum_titles.hpp"
#include "source_folder.hpp"
#include "tests/filings/filing_texts.hpp"
#include "tests/filings/made_document.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/earlier_company.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace vkr {

namespace {

using test::elementOf;
using test::putElement;
using test::sample;

const MadeDocument::Filing report{"10-K", "2024-02-20", "0000000001-24-000001"};
const MadeDocument::Filing laterReport{"10-K", "2025-02-20", "0000000001-25-000001"};

// Net income of two years.
FiledCompany twoYears() {
    return MadeDocument()
        .income("2022-01-01", "2022-12-31", "5000000", report)
        .income("2023-01-01", "2023-12-31", "6000000", laterReport)
        .company();
}

std::shared_ptr<CompanyRecord> madeUp() {
    auto record = std::make_shared<CompanyRecord>();
    record->put_Name("Made Up, Inc");
    return record;
}

const ReviewRow& rowFor(const FilingsReview& review, Datum datum, const std::string& period) {
    const auto row = std::ranges::find_if(review.rows, [&](const ReviewRow& one) {
        return one.figure.datum == datum && one.period == period;
    });
    if (row == review.rows.end())
        throw std::runtime_error("no row " + period);
    return *row;
}

ReviewOptions ofOrigin(std::optional<Origin> origin) {
    ReviewOptions options;
    options.originOf = [=](Datum, std::optional<int>) { return origin; };
    return options;
}

// A record that tells its actions and writes, and refuses the n-th write where it is told to.
class ToldRecord final : public CompanyBase, public ActionListener {
  public:
    std::vector<std::string> told;
    int refusesWrite = 0; // counted from 1

    void beginAction(const Action& action) override {
        told.push_back("begin " + std::string(originName(action.origin)) + " '" + action.name +
                       "' " + action.document);
    }
    void endAction() noexcept override { told.emplace_back("end"); }
    [[nodiscard]] std::string get_Name() const override { return "Made Up"; }
    [[nodiscard]] std::int16_t get_LastFY() const override { return lastYear_; }
    void put_LastFY(std::int16_t value) override {
        write("LastFY");
        lastYear_ = value;
    }
    [[nodiscard]] Date get_LastFYDate() const override { return lastDate_; }
    void put_LastFYDate(Date value) override {
        write("LastFYDate");
        lastDate_ = value;
    }
    [[nodiscard]] Variant get_YNetIncSeries() const override { return income_; }
    void put_YNetIncSeries(const Variant& value) override {
        write("YNetIncSeries");
        income_ = value;
    }

  private:
    void write(const std::string& name) {
        told.push_back(name);
        if (refusesWrite > 0 && --refusesWrite == 0)
            throw std::invalid_argument("not today");
    }

    std::int16_t lastYear_ = 0;
    Date lastDate_;
    Variant income_ = numberArray(std::vector<double>(11, 0.0));
};

} // namespace

// --- comparing ---------------------------------------------------------------------------------

TEST(FilingsReview, OfTheSampleCompaniesEveryFigureIsTheSame) {
    for (const char* symbol : {"AAPL", "NVDA"}) {
        const auto review = reviewFilings(companyOf(symbol), *sample(symbol));
        EXPECT_EQ(review.refusal, "");
        EXPECT_EQ(review.match, CompanyMatch::same);
        EXPECT_GE(review.rows.size(), 250u);
        EXPECT_EQ(review.ticked(), 0);
        for (const ReviewRow& row : review.rows)
            EXPECT_EQ(row.state, ReviewState::same)
                << symbol << ' ' << fullTitleOf(row.figure.datum) << ' ' << row.period << ' '
                << exactNumberText(row.stored) << ' ' << exactNumberText(row.figure.value);
    }
}

TEST(FilingsReview, TicksWhatIsNewAndWhatDiffersFromADocumentButNothingThatMayBeTyped) {
    const auto company = madeUp();
    company->put_LastFY(2023);
    putElement(*company, Datum::YNetIncSeries, 1, 7);
    ReviewOptions options;
    const auto stateOf = [&](std::optional<Origin> origin) {
        options.originOf = [=](Datum, std::optional<int>) { return origin; };
        return reviewFilings(twoYears(), *company, options);
    };
    for (const Origin origin : {Origin::imported, Origin::derived}) {
        const auto review = stateOf(origin);
        EXPECT_TRUE(rowFor(review, Datum::YNetIncSeries, "2023").ticked);
        EXPECT_FALSE(rowFor(review, Datum::YNetIncSeries, "2023").isByHand());
        EXPECT_EQ(review.ticked(), 2);
    }
    for (const auto& origin : {std::optional(Origin::typed), std::optional(Origin::pasted),
                               std::optional(Origin::shifted), std::optional<Origin>()}) {
        const auto review = stateOf(origin);
        const ReviewRow& row = rowFor(review, Datum::YNetIncSeries, "2023");
        EXPECT_EQ(row.state, ReviewState::differs);
        EXPECT_EQ(row.difference(), -1);
        EXPECT_TRUE(row.isByHand());
        EXPECT_FALSE(row.ticked);
        EXPECT_TRUE(rowFor(review, Datum::YNetIncSeries, "2022").ticked);
    }
}

TEST(FilingsReview, AsksForTheOriginOfTheFigureWhereItIsBeforeYearsAreAdded) {
    const auto company = madeUp();
    company->put_LastFY(2022);
    putElement(*company, Datum::YNetIncSeries, 1, 7);
    std::vector<std::pair<Datum, std::optional<int>>> asked;
    ReviewOptions options;
    options.originOf = [&](Datum datum, std::optional<int> element) {
        asked.emplace_back(datum, element);
        return Origin::typed;
    };
    const auto review = reviewFilings(twoYears(), *company, options);
    EXPECT_EQ(rowFor(review, Datum::YNetIncSeries, "2022").element, 2);
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].second, 1);
}

TEST(FilingsReview, ADoubtfulFigureIsNotTickedByItself) {
    const auto filed =
        MadeDocument()
            .fact("us-gaap:ProfitLoss", "USD", "2023-01-01", "2023-12-31", "7000000", report)
            .company();
    auto review = reviewFilings(filed, *madeUp());
    ASSERT_EQ(review.rows.size(), 1u);
    EXPECT_EQ(review.ticked(), 0);
    tick(review, ReviewTicks::fresh);
    EXPECT_EQ(review.ticked(), 0);
    tick(review, ReviewTicks::all);
    EXPECT_EQ(review.ticked(), 1);
    tick(review, ReviewTicks::none);
    EXPECT_EQ(review.ticked(), 0);
    EXPECT_TRUE(passes(review.rows[0], ReviewFilter::doubtful));
    EXPECT_TRUE(passes(review.rows[0], ReviewFilter::fresh));
    EXPECT_FALSE(passes(review.rows[0], ReviewFilter::differs));
    EXPECT_FALSE(passes(review.rows[0], ReviewFilter::same));
    EXPECT_FALSE(passes(review.rows[0], ReviewFilter::byHand));
}

// --- whose document it is ----------------------------------------------------------------------

TEST(FilingsReview, NamesAreComparedWithoutMarksAndLegalForms) {
    EXPECT_EQ(matchCompany("Apple Inc.", "APPLE, Inc"), CompanyMatch::same);
    EXPECT_EQ(matchCompany("NVIDIA CORP", "Nvidia Corporation"), CompanyMatch::same);
    EXPECT_EQ(matchCompany("SNOWFLAKE INC.", "The Snowflake Company"), CompanyMatch::same);
    EXPECT_EQ(matchCompany("LOWES COMPANIES", "Lowe's Companies"), CompanyMatch::same);
    EXPECT_EQ(matchCompany("PEPSICO INC", "Pepsi Bottling Group"), CompanyMatch::other);
    EXPECT_EQ(matchCompany("GENERAL MILLS INC", "General Motors"), CompanyMatch::unsure);
    EXPECT_EQ(matchCompany("Apple Inc.", "NVIDIA CORP"), CompanyMatch::other);
    EXPECT_EQ(matchCompany("Apple Inc.", ""), CompanyMatch::unsure);
    EXPECT_EQ(matchCompany("Inc.", "Inc."), CompanyMatch::unsure);
}

TEST(FilingsReview, SaysThatTheDocumentIsOfAnotherCompany) {
    const auto review = reviewFilings(companyOf("NVDA"), *sample("AAPL"));
    EXPECT_EQ(review.match, CompanyMatch::other);
    EXPECT_EQ(review.question,
              "The document is of NVIDIA CORP (CIK 1045810), the company is Apple Inc. (AAPL).");
}

TEST(FilingsReview, AsksWhereTheCompanyWasImportedFromTheFilingsOfAnotherOne) {
    const auto company = std::make_shared<CompanyRecord>();
    const auto journal = std::make_shared<ChangeJournal>(company);
    ASSERT_EQ(importFilings(journal, reviewFilings(twoYears(), *company)), std::nullopt);
    FigureOrigins origins;
    EXPECT_EQ(importedCik(origins), 0);
    for (const ChangeGroup& group : journal->groups())
        origins.note(group);
    EXPECT_EQ(importedCik(origins), 1);
    FiledCompany filed = twoYears();
    ReviewOptions options;
    for (const std::int64_t before : {0, 1, 2}) {
        options.cik = before;
        const auto review = reviewFilings(filed, *company, options);
        EXPECT_EQ(review.match, before == 2 ? CompanyMatch::unsure : CompanyMatch::same);
        EXPECT_EQ(review.question,
                  before == 2 ? "The document is of " + filed.name + " (CIK 1), the company is " +
                                    filed.name +
                                    ". It was imported from the filings of another one before "
                                    "(CIK 2)."
                              : "");
    }
    filed.cik = 0; // the document does not say
    EXPECT_EQ(reviewFilings(filed, *company, options).match, CompanyMatch::same);
}

TEST(FilingsReview, OfARefusedDocumentNothingIsImported) {
    const auto company = madeUp();
    const auto file = std::string(VKR_SOURCE_DIR) + "/samples/AAPL-yearly.csv";
    const auto review = reviewFilingsFile(file, *company);
    EXPECT_NE(review.refusal.find("no JSON"), std::string::npos);
    EXPECT_EQ(importFilings(company, review), review.refusal);
    EXPECT_TRUE(sameAs(*company, *madeUp()));
}

// --- years and quarters ------------------------------------------------------------------------

TEST(FilingsReview, AnEmptyRecordTakesNameYearsAndQuartersOfTheFilings) {
    for (const char* symbol : {"AAPL", "NVDA"}) {
        const auto held = sample(symbol);
        auto company = std::make_shared<CompanyRecord>();
        company->put_Symbol(symbol);
        company->put_LastFYDate(*makeDate(2025, 12, 31)); // as the form suggests it
        company->put_LastQDate(*makeDate(2025, 12, 31));
        const auto review = reviewFilings(companyOf(symbol), *company);
        EXPECT_EQ(review.match, CompanyMatch::unsure);
        EXPECT_EQ(importFilings(company, review), std::nullopt);
        EXPECT_EQ(company->get_Name(), held->get_Name());
        EXPECT_EQ(company->get_LastFY(), held->get_LastFY());
        EXPECT_EQ(company->get_LastFYDate(), held->get_LastFYDate());
        EXPECT_EQ(company->get_LastQDate(), held->get_LastQDate());
        EXPECT_EQ(company->get_LastQDateForGrid(), held->get_LastQDateForGrid());
        for (const Datum datum : {Datum::YRevenueSeries, Datum::YTaxRateSeries, Datum::YCSOSeries,
                                  Datum::YBookValSeries, Datum::QRevenueSeries,
                                  Datum::QNetIncSeries, Datum::QTaxRateSeries})
            EXPECT_EQ(readSeries(*company, datum), readSeries(*held, datum)) << rowOf(datum).name;
        EXPECT_EQ(company->get_TotalDebt(), held->get_TotalDebt());
        EXPECT_EQ(company->get_CommShares(), held->get_CommShares());
        EXPECT_EQ(company->get_DilutedShares(), held->get_DilutedShares());
        // A second time there is nothing left to do.
        EXPECT_EQ(reviewFilings(companyOf(symbol), *company).ticked(), 0);
    }
}

TEST(FilingsReview, LaterYearsAndQuartersAreAddedFirst) {
    const auto held = sample("AAPL");
    auto company = sample("AAPL");
    // As it was two years and five quarters before.
    for (const DatumRow& row : datumTable()) {
        if (!isSeries(row))
            continue;
        const int back = row.period == DatumPeriod::year ? 2 : 5;
        Variant series = readSeries(*company, row.datum);
        for (int i = 0; i <= row.upper; ++i)
            series.array().setNumber(i, i + back <= row.upper && (i > 0 || back == 5)
                                            ? series.array().number(i + back)
                                            : 0);
        writeSeries(*company, row.datum, series);
    }
    company->put_LastFY(2023);
    company->put_LastFYDate(*makeDate(2023, 9, 30));
    company->put_LastQDate(*makeDate(2024, 9, 28));
    company->put_LastQDateForGrid(*makeDate(2024, 9, 28));

    const auto review = reviewFilings(companyOf("AAPL"), *company);
    EXPECT_EQ(review.years.added, 2);
    EXPECT_EQ(review.quarters.added, 5);
    EXPECT_EQ(notesOf(review)[0], "2 fiscal years added: the last one is 2025, to 2025-09-27. It "
                                  "takes the place of 2023-09-30, which may be typed.");
    for (const ReviewRow& row : review.rows)
        if (row.period == "2023" || row.period == "2024-09-28") {
            EXPECT_EQ(row.state, ReviewState::same) << fullTitleOf(row.figure.datum);
        }
    ASSERT_EQ(importFilings(company, review), std::nullopt);
    EXPECT_EQ(company->get_LastFY(), 2025);
    EXPECT_EQ(company->get_LastFYDate(), held->get_LastFYDate());
    EXPECT_EQ(company->get_LastQDateForGrid(), held->get_LastQDateForGrid());
    EXPECT_EQ(readSeries(*company, Datum::YRevenueSeries),
              readSeries(*held, Datum::YRevenueSeries));
    EXPECT_EQ(readSeries(*company, Datum::QRevenueSeries),
              readSeries(*held, Datum::QRevenueSeries));
    // Prices are in no filing: theirs have moved on with their years.
    for (int element = 3; element <= 10; ++element)
        EXPECT_EQ(elementOf(*company, Datum::YHighSeries, element),
                  elementOf(*held, Datum::YHighSeries, element));
    EXPECT_EQ(elementOf(*company, Datum::YHighSeries, 1), 0);
}

TEST(FilingsReview, LaterYearsAreLeftOutWhereTheyAreNotWanted) {
    const auto company = madeUp();
    company->put_LastFY(2022);
    putElement(*company, Datum::YNetIncSeries, 1, 5);
    ReviewOptions options;
    options.years = Adding::never;
    const auto review = reviewFilings(twoYears(), *company, options);
    EXPECT_EQ(review.years.added, 0);
    EXPECT_TRUE(review.years.changes.empty());
    EXPECT_EQ(notesOf(review)[0], "1 fiscal year after the last one of the company is left out.");
    EXPECT_EQ(review.rows.size(), 1u);
    EXPECT_EQ(rowFor(review, Datum::YNetIncSeries, "2022").state, ReviewState::same);
}

TEST(FilingsReview, LaterYearsPushNothingOutThatWasTypedUnlessTheyAreToBeAdded) {
    const auto company = madeUp();
    company->put_LastFY(2022);
    putElement(*company, Datum::YNetIncSeries, 1, 5);
    putElement(*company, Datum::YRevenueSeries, 10, 999);
    for (const auto origin : {std::optional(Origin::typed), std::optional(Origin::pasted),
                              std::optional<Origin>(), std::optional(Origin::imported)}) {
        ReviewOptions options = ofOrigin(origin);
        const bool isImported = origin == Origin::imported;
        auto review = reviewFilings(twoYears(), *company, options);
        EXPECT_EQ(review.years.added, isImported ? 1 : 0);
        EXPECT_EQ(review.years.leaving.size(), isImported ? 0U : 1U);
        EXPECT_EQ(isImported ? review.years.toldOfChanges.back() : review.years.told.back(),
                  isImported
                      ? "The oldest year of the company leaves the table: 2013, with 1 figure that "
                        "was imported or worked out."
                      : "1 fiscal year after the last one of the company is left out. With it what "
                        "was typed, or may have been, would leave the table: Yearly Revenue 2013: "
                        "999.");
        options.years = Adding::always;
        review = reviewFilings(twoYears(), *company, options);
        EXPECT_EQ(review.years.added, 1);
        EXPECT_EQ(review.years.toldOfChanges.back(),
                  isImported
                      ? "The oldest year of the company leaves the table: 2013, with 1 figure that "
                        "was imported or worked out."
                      : "The oldest year of the company leaves the table: 2013, with what was "
                        "typed, or may have been: Yearly Revenue 2013: 999.");
    }
}

TEST(FilingsReview, WhatLeavesTheTableIsCountedByYearAndByWhereItIsFrom) {
    const auto company = sample("AAPL");
    test::goBack(*company, 2, 1);
    for (const Datum datum : {Datum::YRevenueSeries, Datum::YEPSSeries})
        for (const int element : {9, 10})
            putElement(*company, datum, element, 7);
    ReviewOptions options;
    options.originOf = [](Datum datum, std::optional<int> element) {
        return datum == Datum::YEPSSeries && element == 10 ? Origin::typed : Origin::imported;
    };
    options.years = Adding::always;
    EXPECT_EQ(reviewFilings(companyOf("AAPL"), *company, options).years.toldOfChanges.back(),
              "The oldest years of the company leave the table: 2014 to 2015, with 3 figures that "
              "were imported or worked out, and what was typed, or may have been: Yearly Earnings "
              "Per Share 2014: 7.");
}

TEST(FilingsReview, LaterQuartersPushNothingOutThatWasTypedEither) {
    const auto company = sample("AAPL");
    test::goBack(*company, 2, 1);
    for (const DatumRow& row : datumTable())
        if (row.period == DatumPeriod::year)
            for (const int element : {row.upper - 1, row.upper})
                putElement(*company, row.datum, element, 1);
    putElement(*company, Datum::QEPSSeries, 34, 1.5);
    const auto review = reviewFilings(companyOf("AAPL"), *company, ofOrigin(Origin::typed));
    EXPECT_EQ(review.quarters.added, 0);
    EXPECT_EQ(describe(review.quarters.leaving.at(0)),
              "Quarterly Earnings Per Share 2017-03-27: 1.5, too old for the table");
    EXPECT_EQ(review.years.added, 0);
    EXPECT_TRUE(notesOf(review)[0].ends_with(
        " and " + std::to_string(review.years.leaving.size() - 12) + " more."))
        << notesOf(review)[0];
}

TEST(FilingsReview, TheLastFiscalYearIsThatOfItsDayWhateverItIsCalled) {
    const auto filed = MadeDocument()
                           .income("2023-01-01", "2024-01-06", "6000000", report)
                           .company(); // called 2023
    const auto company = madeUp();
    company->put_LastFY(2024);
    company->put_LastFYDate(*makeDate(2024, 1, 6));
    putElement(*company, Datum::YRevenueSeries, 1, 5);
    const auto review = reviewFilings(filed, *company);
    EXPECT_EQ(review.years.added, 0);
    EXPECT_EQ(rowFor(review, Datum::YNetIncSeries, "2023").element, 1);
}

TEST(FilingsReview, WithoutALastFiscalYearFiguresHaveNoPlace) {
    const auto company = madeUp();
    putElement(*company, Datum::YRevenueSeries, 1, 5);
    const auto review = reviewFilings(twoYears(), *company);
    EXPECT_TRUE(review.rows.empty());
    EXPECT_EQ(notesOf(review)[0],
              "Yearly figures are left out: the company has no last fiscal year.");
}

// --- importing ---------------------------------------------------------------------------------

TEST(FilingsReview, AnImportIsOneActionWithTheNumberOfEachFiling) {
    const auto company = std::make_shared<ToldRecord>();
    ASSERT_EQ(importFilings(company, reviewFilings(twoYears(), *company)), std::nullopt);
    EXPECT_EQ(company->told,
              (std::vector<std::string>{
                  "begin imported 'Import of 2 Figures' ", "begin imported '' CIK 1", "LastFY",
                  "LastFYDate", "end", "begin imported '' 0000000001-25-000001", "YNetIncSeries",
                  "end", "begin imported '' 0000000001-24-000001", "YNetIncSeries", "end", "end"}));
    EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 1), 6);
    EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 2), 5);
}

TEST(FilingsReview, AnImportIsAllOrNothing) {
    for (int refused = 1; refused <= 4; ++refused) {
        const auto company = std::make_shared<ToldRecord>();
        const auto review = reviewFilings(twoYears(), *company);
        company->refusesWrite = refused;
        EXPECT_EQ(importFilings(company, review), "not today") << refused;
        EXPECT_EQ(company->get_LastFY(), 0) << refused;
        EXPECT_TRUE(isAbsent(company->get_LastFYDate())) << refused;
        EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 1), 0) << refused;
        EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 2), 0) << refused;
        EXPECT_EQ(company->told.back(), "end");
    }
}

namespace {

// A company as it was some periods ago, every figure of it typed.
struct Earlier {
    Earlier(const std::string& symbol, int years, int quarters) : company(sample(symbol)) {
        test::goBack(*company, years, quarters);
        company->put_Last4QEPS(0.125);
        for (const DatumRow& row : datumTable())
            for (int i = 0; i <= (isSeries(row) ? row.upper : 0); ++i)
                typed.put(row.datum, isSeries(row) ? std::optional(i) : std::nullopt,
                          {Origin::typed, {}, false});
        journal = std::make_shared<ChangeJournal>(company);
        kept = std::make_shared<KeptFigures>(journal, [this] { return origins(); });
    }
    [[nodiscard]] FigureOrigins origins() const {
        FigureOrigins all = typed;
        for (const ChangeGroup& group : journal->groups())
            all.note(group);
        return all;
    }

    std::shared_ptr<CompanyRecord> company;
    FigureOrigins typed;
    std::shared_ptr<ChangeJournal> journal;
    std::shared_ptr<KeptFigures> kept;
};

} // namespace

// The figures that came are of their filings, and the ones that moved are typed as before.
TEST(FilingsReview, WherePeriodsAreAddedEachFigureIsFromWhereItIs) {
    for (const auto& [years, quarters] : {std::pair(1, 0), std::pair(0, 1), std::pair(2, 5)}) {
        Earlier earlier("AAPL", years, quarters);
        auto review = reviewFilings(companyOf("AAPL"), *earlier.company);
        EXPECT_EQ(review.years.added, years);
        EXPECT_EQ(review.quarters.added, quarters);
        ASSERT_EQ(importFilings(earlier.kept, review), std::nullopt);
        ASSERT_EQ(earlier.journal->groups().size(), 1U);
        const FigureOrigins origins = earlier.origins();
        int came = 0;
        for (const ReviewRow& row : review.rows) {
            const FigureOrigin origin = origins.of(row.figure.datum, row.element);
            came += row.ticked ? 1 : 0;
            EXPECT_EQ(origin, row.ticked ? (FigureOrigin{Origin::imported,
                                                         row.figure.source.accession, false})
                                         : (FigureOrigin{Origin::typed, {}, false}))
                << rowOf(row.figure.datum).name << " " << row.period;
        }
        EXPECT_EQ(came, review.ticked());
        EXPECT_GT(came, 4);
        // Nothing that was typed is to be taken without a tick now.
        EXPECT_EQ(reviewFilings(companyOf("AAPL"), *earlier.company,
                                {[&](Datum datum, std::optional<int> element) {
                                    return origins.of(datum, element).origin;
                                }})
                      .ticked(),
                  0);
    }
}

TEST(FilingsReview, AnImportThatAddsPeriodsIsUndoneAndRedoneAsOneStep) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        const char* const symbol = seed % 2 == 0 ? "AAPL" : "NVDA";
        Earlier earlier(symbol, static_cast<int>(random() % 3), static_cast<int>(1 + random() % 5));
        const auto beginning = earlier.company->clone();
        auto review = reviewFilings(companyOf(symbol), *earlier.company);
        for (ReviewRow& row : review.rows)
            row.ticked = random() % 4 == 0;
        ASSERT_EQ(importFilings(earlier.kept, review), std::nullopt) << seed;
        const auto end = earlier.company->clone();
        const auto origins = earlier.origins();
        for (int round = 0; round < 2; ++round) {
            ASSERT_EQ(earlier.journal->undo(), std::nullopt);
            EXPECT_FALSE(earlier.journal->canUndo());
            EXPECT_TRUE(sameAs(*beginning, *earlier.company)) << seed;
            EXPECT_EQ(earlier.origins(), earlier.typed) << seed;
            ASSERT_EQ(earlier.journal->redo(), std::nullopt);
            EXPECT_TRUE(sameAs(*end, *earlier.company)) << seed;
            EXPECT_EQ(earlier.origins(), origins) << seed;
        }
    }
}

// What was typed before a split stays typed after it, and what was imported stays imported.
TEST(FilingsReview, AfterASplitAnImportReplacesWhatItWouldHaveReplacedBefore) {
    const auto company = std::make_shared<CompanyRecord>();
    const auto journal = std::make_shared<ChangeJournal>(company);
    ASSERT_EQ(importFilings(journal, reviewFilings(companyOf("AAPL"), *company)), std::nullopt);
    putElement(*journal, Datum::YEPSSeries, 2, 6.09);
    const Split split{{4, 1}, *makeDate(2026, 6, 1)};
    {
        const ActionScope action(journal, splitAction(split.ratio));
        ASSERT_EQ(applyChanges(*journal, test::changesOf(splitChanges(*company, split))),
                  std::nullopt);
    }
    FigureOrigins origins;
    for (const ChangeGroup& group : journal->groups())
        origins.note(group);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 1),
              (FigureOrigin{Origin::adjusted, "0000320193-25-000079", false}));
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 2).origin, Origin::typed);
    putElement(*company, Datum::YEPSSeries, 1, 7.45); // on the shares of the filings again
    putElement(*company, Datum::YEPSSeries, 2, 6.09);
    auto review =
        reviewFilings(companyOf("AAPL"), *company, {[&](Datum datum, std::optional<int> element) {
                          return origins.of(datum, element).origin;
                      }});
    EXPECT_FALSE(rowFor(review, Datum::YEPSSeries, "2025").isByHand());
    EXPECT_TRUE(rowFor(review, Datum::YEPSSeries, "2024").isByHand());
}

TEST(FilingsReview, OnlyTickedFiguresAreImported) {
    const auto company = madeUp();
    company->put_LastFY(2023);
    company->put_LastFYDate(*makeDate(2023, 12, 31));
    auto review = reviewFilings(twoYears(), *company);
    tick(review, ReviewTicks::none);
    EXPECT_EQ(importFilings(company, review), "No figure is ticked.");
    review.rows[1].ticked = true; // 2022
    EXPECT_EQ(importFilings(company, review), std::nullopt);
    EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 1), 0);
    EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 2), 5);
}

// A company with dates and no figures: they are those of the filings once figures come.
TEST(FilingsReview, YearsAndQuartersAreDatedOnlyWhereAFigureOfSuchIsTicked) {
    const auto typed = makeDate(2025, 6, 30);
    struct Row {
        Datum ticked;
        std::optional<Date> year;
        std::optional<Date> quarter;
        std::size_t notes; // of changes
    };
    const auto filedYear = makeDate(2025, 9, 27);
    const auto filedQuarter = makeDate(2025, 12, 27);
    for (const Row& row :
         {Row{Datum::TotalDebt, typed, typed, 0}, Row{Datum::YRevenueSeries, filedYear, typed, 1},
          Row{Datum::QRevenueSeries, typed, filedQuarter, 1}}) {
        const auto company = std::make_shared<CompanyRecord>();
        company->put_Name("Apple Inc.");
        company->put_LastFYDate(*typed);
        company->put_LastQDate(*typed);
        company->put_LastQDateForGrid(*typed);
        auto review = reviewFilings(companyOf("AAPL"), *company, ofOrigin(Origin::typed));
        const std::size_t all = notesOf(review).size();
        EXPECT_EQ(notesOf(review)[0], "The last fiscal year becomes 2025, to 2025-09-27. It takes "
                                      "the place of 2025-06-30, which was typed.");
        EXPECT_EQ(notesOf(review)[1], "The last quarter becomes that to 2025-12-27. It takes the "
                                      "place of 2025-06-30, which was typed.");
        tick(review, ReviewTicks::none);
        std::ranges::find(review.rows, row.ticked, [](const ReviewRow& one) {
            return one.figure.datum;
        })->ticked = true;
        followTicks(review);
        EXPECT_EQ(notesOf(review).size(), all - 2 + row.notes);
        ASSERT_EQ(importFilings(company, review), std::nullopt);
        EXPECT_EQ(company->get_LastFYDate(), row.year);
        EXPECT_EQ(company->get_LastQDate(), row.quarter);
        EXPECT_EQ(company->get_LastQDateForGrid(), row.quarter);
    }
}

TEST(FilingsReview, YearsAreNotAddedForAFigureThatIsOfNone) {
    const auto company = sample("AAPL");
    test::goBack(*company, 1, 1);
    company->put_TotalDebt(1);
    auto review = reviewFilings(companyOf("AAPL"), *company);
    EXPECT_EQ(review.years.added, 1);
    tick(review, ReviewTicks::none);
    std::ranges::find(review.rows, Datum::TotalDebt, [](const ReviewRow& one) {
        return one.figure.datum;
    })->ticked = true;
    const auto before = company->clone();
    ASSERT_EQ(importFilings(company, review), std::nullopt);
    EXPECT_NE(company->get_TotalDebt(), 1);
    company->put_TotalDebt(1);
    EXPECT_TRUE(sameAs(*company, *before));
}

TEST(FilingsReview, TheLastFourQuartersAreSummedUpWhereTheirEarningsAreImported) {
    const auto company = std::make_shared<CompanyRecord>();
    auto review = reviewFilings(companyOf("AAPL"), *company);
    ASSERT_EQ(importFilings(company, review), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 7.9); // 2.84 + 1.84 + 1.57 + 1.65

    company->put_Last4QEPS(7);
    company->put_TotalDebt(0);
    ASSERT_EQ(importFilings(company, reviewFilings(companyOf("AAPL"), *company)), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 7); // no earnings were among them
}

namespace {

// A company without the earnings of its last quarter, and what is known of the sum.
std::shared_ptr<CompanyRecord> withoutLastEarnings(double sum) {
    const auto company = sample("AAPL");
    putElement(*company, Datum::QEPSSeries, 0, 0);
    company->put_Last4QEPS(sum);
    return company;
}

} // namespace

TEST(FilingsReview, ATypedSumOfTheLastFourQuartersIsARowAndStaysUnlessItIsTicked) {
    for (const auto& origin :
         {std::optional(Origin::typed), std::optional(Origin::pasted), std::optional<Origin>()}) {
        const auto company = withoutLastEarnings(7.5);
        auto review = reviewFilings(companyOf("AAPL"), *company, ofOrigin(origin));
        const ReviewRow& sum = rowFor(review, Datum::Last4QEPS, "2025-12-27");
        EXPECT_EQ(sum.stored, 7.5);
        EXPECT_EQ(sum.figure.value, 7.9);
        EXPECT_EQ(sum.state, ReviewState::differs);
        EXPECT_TRUE(sum.isByHand());
        EXPECT_FALSE(sum.ticked);
        EXPECT_EQ(reviewDetails(sum), "7.9: the sum of the last four quarters");
        ASSERT_EQ(importFilings(company, review), std::nullopt);
        EXPECT_EQ(elementOf(*company, Datum::QEPSSeries, 0), 2.84);
        EXPECT_EQ(company->get_Last4QEPS(), 7.5);

        const auto ticked = withoutLastEarnings(7.5);
        tick(review, ReviewTicks::all);
        ASSERT_EQ(importFilings(ticked, review), std::nullopt);
        EXPECT_EQ(ticked->get_Last4QEPS(), 7.9);
    }
}

TEST(FilingsReview, AWorkedOutSumFollowsTheQuartersThatAreTicked) {
    for (const ReviewTicks ticks : {ReviewTicks::preset, ReviewTicks::fresh}) {
        const auto company = withoutLastEarnings(5.06);
        auto review = reviewFilings(companyOf("AAPL"), *company, ofOrigin(Origin::derived));
        tick(review, ticks);
        const ReviewRow& sum = rowFor(review, Datum::Last4QEPS, "2025-12-27");
        EXPECT_TRUE(sum.ticked);
        EXPECT_EQ(review.ticked(), 2);

        auto& quarter = *std::ranges::find_if(review.rows, [](const ReviewRow& row) {
            return row.figure.datum == Datum::QEPSSeries && row.element == 0;
        });
        quarter.ticked = false; // the sum stays where a quarter is missing
        followTicks(review);
        EXPECT_EQ(sum.figure.value, 5.06);
        EXPECT_EQ(sum.state, ReviewState::same);
        EXPECT_FALSE(sum.ticked);

        quarter.ticked = true;
        followTicks(review);
        EXPECT_TRUE(sum.ticked);
        ASSERT_EQ(importFilings(company, review), std::nullopt);
        EXPECT_EQ(company->get_Last4QEPS(), 7.9);
    }
}

TEST(FilingsReview, TheSumIsThatOfTheQuartersAsTheyWillBe) {
    const auto company = withoutLastEarnings(0);
    putElement(*company, Datum::QEPSSeries, 1, 2); // typed; 1.84 was filed
    const auto review = reviewFilings(companyOf("AAPL"), *company, ofOrigin(Origin::typed));
    EXPECT_EQ(rowFor(review, Datum::Last4QEPS, "2025-12-27").figure.value, 8.06);
    ASSERT_EQ(importFilings(company, review), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 8.06);
}

TEST(FilingsReview, TheSumIsThatOfTheLastQuarterOnShow) {
    const auto company = sample("AAPL");
    company->put_LastQDateForGrid(company->get_LastQDate());
    company->put_LastQDate(*makeDate(2025, 9, 27));
    putElement(*company, Datum::QEPSSeries, 1, 0);
    const auto review = reviewFilings(companyOf("AAPL"), *company);
    const ReviewRow& sum = rowFor(review, Datum::Last4QEPS, "2025-09-27");
    EXPECT_NEAR(sum.figure.value, 1.84 + 1.57 + 1.65 + 2.40, 1e-9);
}

TEST(FilingsReview, ACompanyThatHasChangedSinceIsNotTouched) {
    const auto company = madeUp();
    const auto review = reviewFilings(twoYears(), *company);
    putElement(*company, Datum::YNetIncSeries, 2, 4);
    EXPECT_EQ(importFilings(company, review),
              "The company has been changed since the figures were compared.");
    EXPECT_EQ(elementOf(*company, Datum::YNetIncSeries, 2), 4);
}

TEST(FilingsReview, WhatIsImportedFromADamagedDocumentIsTheSameWhenItIsComparedAgain) {
    const std::string whole = MadeDocument()
                                  .income("2022-01-01", "2022-12-31", "5000000", report)
                                  .income("2023-01-01", "2023-12-31", "6000000", laterReport)
                                  .income("2023-07-01", "2023-09-30", "1000000", laterReport)
                                  .fact("us-gaap:EarningsPerShareDiluted", "USD/shares",
                                        "2023-01-01", "2023-12-31", "1.25", laterReport)
                                  .fact("us-gaap:StockholdersEquityNoteStockSplitConversionRatio1",
                                        "pure", "", "2025-06-30", "3", laterReport)
                                  .json();
    std::mt19937 random(7);
    int imported = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string damaged = whole;
        for (int change = 0; change < 2; ++change) {
            const std::size_t at = damaged.find_first_of("0123456789", random() % damaged.size());
            if (at != std::string::npos)
                damaged[at] = static_cast<char>('0' + random() % 10);
        }
        const auto read = readFilings(damaged);
        if (!read.document)
            continue;
        const auto filed = filedFigures(*read.document);
        const auto company = std::make_shared<CompanyRecord>();
        auto review = reviewFilings(filed, *company);
        tick(review, ReviewTicks::all);
        if (review.ticked() == 0)
            continue;
        ASSERT_EQ(importFilings(company, review), std::nullopt) << damaged;
        ++imported;
        for (const ReviewRow& row : reviewFilings(filed, *company).rows)
            ASSERT_EQ(row.state, ReviewState::same) << damaged;
    }
    EXPECT_GT(imported, 1000);
}

// --- as a table --------------------------------------------------------------------------------

TEST(ReviewTable, HasARowForEachFigure) {
    const auto company = madeUp();
    company->put_LastFY(2023);
    putElement(*company, Datum::YNetIncSeries, 1, 7);
    const auto review = reviewFilings(twoYears(), *company);
    std::vector<std::string> cells;
    for (const ReviewColumn& column : reviewColumns())
        cells.push_back(std::string(column.key) + "=" + reviewCell(review.rows[0], column));
    EXPECT_EQ(cells,
              (std::vector<std::string>{
                  "figure=Yearly Net Income", "period=2023", "stored=7", "filed=6", "difference=-1",
                  "state=differs", "origin=", "form=10-K", "filed_on=2025-02-20",
                  "accession=0000000001-25-000001", "notes=", "concept=us-gaap:NetIncomeLoss"}));
    for (const ReviewRow& row : reviewFilings(companyOf("AAPL"), *sample("AAPL")).rows)
        EXPECT_NE(fullTitleOf(row.figure.datum), rowOf(row.figure.datum).name);
}

TEST(ReviewTable, DetailsTellTheOtherValuesOfThePeriod) {
    const auto company = MadeDocument()
                             .income("2023-01-01", "2023-12-31", "6000000", report)
                             .income("2023-01-01", "2023-12-31", "6500000", laterReport)
                             .company();
    EXPECT_EQ(reviewDetails(reviewFilings(company, *madeUp()).rows[0]),
              "6.5: us-gaap:NetIncomeLoss, 10-K of 2025-02-20 (0000000001-25-000001)\n"
              "restated\n"
              "6 in 10-K of 2024-02-20 (0000000001-24-000001): restated later");
}

} // namespace vkr
