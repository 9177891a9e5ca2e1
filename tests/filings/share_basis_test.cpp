// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "company/split.hpp"
#include "filings/filings_review.hpp"
#include "filings/share_basis.hpp"
#include "tests/filings/filing_texts.hpp"
#include "tests/filings/made_document.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/samples.hpp"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>

namespace vkr {

namespace {

using test::putElement;
using test::sample;

const Date tenForOne = *makeDate(2024, 6, 30); // as NVIDIA's filings date it
const Date fourForOne = *makeDate(2021, 7, 19);

void adjust(CompanyRecord& company, const SplitRatio& ratio, Date effective) {
    ASSERT_EQ(applyChanges(company, test::changesOf(splitChanges(company, {ratio, effective}))),
              std::nullopt);
}

// NVIDIA as it was typed before its last splits, the newest of them first, and without the last two
// years since.
std::shared_ptr<CompanyRecord> before(int splits) {
    auto company = sample("NVDA");
    adjust(*company, {1, 10}, tenForOne);
    if (splits > 1)
        adjust(*company, {1, 4}, fourForOne);
    for (const Datum datum : {Datum::YEPSSeries, Datum::YCSOSeries, Datum::YRevenueSeries})
        for (const int element : {1, 2})
            putElement(*company, datum, element, 0);
    return company;
}

FilingsReview reviewOf(const CompanyRecord& company, std::optional<Origin> origin) {
    ReviewOptions options;
    options.originOf = [=](Datum, std::optional<int>) { return origin; };
    return reviewFilings(companyOf("NVDA"), company, options);
}

bool isByShares(const ReviewRow& row) {
    const DatumUnit unit = unitOf(row.figure.datum);
    return unit == DatumUnit::perShare || unit == DatumUnit::shares;
}

const MadeDocument::Filing report{"10-K", "2024-02-20", "0000000001-24-000001"};

// Earnings and shares of three years, filed on one basis; of a split nothing is told.
FiledCompany threeYears() {
    MadeDocument document;
    document.income("2023-01-01", "2023-12-31", "108000000", report);
    const char* const earnings[] = {"1.25", "1.5", "2.25"};
    const char* const shares[] = {"40000000", "44000000", "48000000"};
    for (int i = 0; i < 3; ++i) {
        const std::string year = std::to_string(2021 + i);
        document.fact("us-gaap:EarningsPerShareDiluted", "USD/shares", year + "-01-01",
                      year + "-12-31", earnings[i], report);
        document.fact("us-gaap:WeightedAverageNumberOfDilutedSharesOutstanding", "shares",
                      year + "-01-01", year + "-12-31", shares[i], report);
    }
    return document.company();
}

// Two of the years, the newest first: earnings and shares.
std::shared_ptr<CompanyRecord> twoOfThem(std::array<double, 2> earnings,
                                         std::array<double, 2> shares) {
    auto company = std::make_shared<CompanyRecord>();
    company->put_Name("Made Up");
    company->put_LastFY(2023);
    company->put_LastFYDate(*makeDate(2023, 12, 31));
    for (int i = 0; i < 2; ++i) {
        putElement(*company, Datum::YEPSSeries, i + 2, earnings[static_cast<std::size_t>(i)]);
        putElement(*company, Datum::YCSOSeries, i + 2, shares[static_cast<std::size_t>(i)]);
    }
    return company;
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string basisOf(const CompanyRecord& company) {
    return reviewFilings(threeYears(), company).shareBasis;
}

} // namespace

TEST(ShareBasis, OfFiguresFromBeforeASplitTheReviewSaysSo) {
    EXPECT_EQ(reviewOf(*before(1), Origin::typed).shareBasis,
              "57 figures per share and share counts of 2017-01-29 to 2024-04-28 are stored as "
              "they were before the split 10:1, in effect by 2024-06-30. The filed ones are on the "
              "shares of "
              "today. Choose \"Adjust for a Split...\" in the menu Figures first: until then such "
              "figures that are new or differ are doubtful.");
    EXPECT_TRUE(contains(reviewOf(*before(2), Origin::typed).shareBasis,
                         " before the splits 4:1, in effect by 2021-07-19 and 10:1, in effect by "
                         "2024-06-30. "));
}

TEST(ShareBasis, NothingThatGoesByItIsTickedByItself) {
    for (const Origin origin : {Origin::typed, Origin::imported}) {
        auto review = reviewOf(*before(1), origin);
        for (const ReviewTicks ticks : {ReviewTicks::preset, ReviewTicks::fresh}) {
            tick(review, ticks);
            std::set<ReviewState> states;
            for (const ReviewRow& row : review.rows) {
                if (!isByShares(row)) {
                    EXPECT_EQ(row.ticked, row.state == ReviewState::fresh) << row.period;
                    continue;
                }
                states.insert(row.state);
                EXPECT_FALSE(row.ticked) << row.period;
                EXPECT_EQ(row.figure.isDoubtful(), row.state != ReviewState::same) << row.period;
            }
            EXPECT_EQ(states.size(), 3u) << "new ones, other ones, and the same ones";
            EXPECT_EQ(review.ticked(), 2);
        }
    }
}

TEST(ShareBasis, TheSumOfTheLastQuartersIsNotTickedByItselfEither) {
    const auto company = before(1);
    putElement(*company, Datum::QEPSSeries, 0, 0);
    company->put_Last4QEPS(1);
    auto review = reviewOf(*company, Origin::derived);
    ReviewRow& quarter = *std::ranges::find_if(review.rows, [](const ReviewRow& row) {
        return row.figure.datum == Datum::QEPSSeries && row.element == 0;
    });
    const ReviewRow& sum = *std::ranges::find(
        review.rows, Datum::Last4QEPS, [](const ReviewRow& row) { return row.figure.datum; });
    quarter.ticked = true;
    followTicks(review);
    EXPECT_EQ(sum.state, ReviewState::differs);
    EXPECT_FALSE(sum.ticked);
}

TEST(ShareBasis, OnceTheSplitIsMadeTheFiguresAreTickedAgain) {
    const auto company = before(2);
    adjust(*company, {4, 1}, fourForOne);
    adjust(*company, {10, 1}, tenForOne);
    const auto review = reviewOf(*company, Origin::typed);
    EXPECT_EQ(review.shareBasis, "");
    EXPECT_EQ(review.ticked(), 6);
}

TEST(ShareBasis, OfASplitThatTheFilingsDoNotTellTheFiguresSpeak) {
    EXPECT_EQ(basisOf(*twoOfThem({6, 5}, {11, 10})),
              "4 figures per share and share counts of 2021-12-31 to 2022-12-31 are stored as they "
              "were before a split 4:1, or after one 1:4. The filings do not tell of it. Where the "
              "filed ones are right, choose \"Adjust for a Split...\" in the menu Figures first: "
              "until then such figures that are new or differ are doubtful.");
    // After a split of which the document does not know.
    EXPECT_TRUE(contains(basisOf(*twoOfThem({0.375, 0.3125}, {176, 160})),
                         " before a split 1:4, or after one 4:1. "));
}

TEST(ShareBasis, OtherDifferencesAreNoSplit) {
    EXPECT_EQ(basisOf(*twoOfThem({1.5, 1.25}, {44, 40})), "") << "as filed";
    EXPECT_EQ(basisOf(*twoOfThem({6, 1.25}, {11, 40})), "") << "one period alone";
    EXPECT_EQ(basisOf(*twoOfThem({3, 2.5}, {44, 40})), "") << "shares are as filed";
    EXPECT_EQ(basisOf(*twoOfThem({3.3, 2.2}, {23, 19})), "") << "no ratio";
    EXPECT_EQ(basisOf(*twoOfThem({-6, -5}, {0, 0})), "") << "another sign";
    EXPECT_EQ(basisOf(*twoOfThem({1500, 1250}, {0.044, 0.04})), "") << "another unit";
}

TEST(ShareBasis, OfEarningsOfAnotherKindTheOtherFiguresSpeakAllTheSame) {
    const auto company = before(1);
    for (const auto& [datum, least] :
         {std::pair(Datum::YEPSSeries, 1), std::pair(Datum::QEPSSeries, 0)})
        for (int element = least; element <= rowOf(datum).upper; ++element)
            putElement(*company, datum, element, test::elementOf(*company, datum, element) * 1.13);
    const auto review = reviewOf(*company, Origin::imported);
    EXPECT_TRUE(contains(review.shareBasis, " before the split 10:1, in effect by 2024-06-30. "));
    for (const ReviewRow& row : review.rows)
        EXPECT_FALSE(isByShares(row) && row.ticked) << row.period;
}

TEST(ShareBasis, TwoFiguresOfOneYearSpeakForASplitThatTheFilingsTell) {
    const auto stored = before(1);
    auto company = std::make_shared<CompanyRecord>();
    company->put_Name(stored->get_Name());
    company->put_LastFY(stored->get_LastFY());
    company->put_LastFYDate(stored->get_LastFYDate());
    for (const Datum datum : {Datum::YEPSSeries, Datum::YCSOSeries})
        putElement(*company, datum, 4, test::elementOf(*stored, datum, 4));
    EXPECT_TRUE(contains(reviewOf(*company, Origin::imported).shareBasis,
                         "2 figures per share and share counts of 2023-01-29 are stored "));
    putElement(*company, Datum::YCSOSeries, 4, 0);
    EXPECT_EQ(reviewOf(*company, Origin::imported).shareBasis, "") << "by chance, perhaps";
}

// They would move what is stored, and a split goes by the day of a period.
TEST(ShareBasis, UntilTheSplitIsMadeNoLaterPeriodIsAddedByItself) {
    const auto stored = before(1);
    auto company = std::make_shared<CompanyRecord>();
    company->put_Name(stored->get_Name());
    company->put_LastFY(2024);
    company->put_LastFYDate(*makeDate(2024, 1, 28));
    for (const Datum datum : {Datum::YEPSSeries, Datum::YCSOSeries})
        for (const int element : {1, 2, 3})
            putElement(*company, datum, element, test::elementOf(*stored, datum, element + 2));
    const auto reviewed = [&](Adding adding) {
        return reviewFilings(
            companyOf("NVDA"), *company,
            {.originOf = [](Datum, std::optional<int>) { return Origin::imported; },
             .years = adding,
             .quarters = adding});
    };
    for (const auto& [adding, added] :
         {std::pair(Adding::whereNothingTypedLeaves, 0), std::pair(Adding::always, 2)}) {
        const FilingsReview review = reviewed(adding);
        EXPECT_NE(review.shareBasis, "");
        EXPECT_EQ(review.years.later, 2);
        EXPECT_EQ(review.years.added, added);
    }
}

// Earnings of another kind are by chance as before a split in some periods.
TEST(ShareBasis, SomeOfManyDifferencesAreNoSplit) {
    const auto company = sample("NVDA");
    for (const auto& [element, ratio] : {std::pair(2, 1.3), std::pair(3, 10.0), std::pair(4, 10.0),
                                         std::pair(5, 1.7), std::pair(6, 2.2)})
        putElement(*company, Datum::YEPSSeries, element,
                   test::elementOf(*company, Datum::YEPSSeries, element) * ratio);
    EXPECT_EQ(reviewOf(*company, Origin::typed).shareBasis, "");
}

TEST(ShareBasis, OfTheSampleCompaniesItIsTheSame) {
    for (const char* symbol : {"AAPL", "NVDA"})
        EXPECT_EQ(reviewFilings(companyOf(symbol), *sample(symbol)).shareBasis, "");
}

} // namespace vkr
