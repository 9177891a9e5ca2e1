// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"
#include "company/company_record.hpp"
#include "company/figure_origins.hpp"

#include <gtest/gtest.h>

namespace vkr {

namespace {

Change figure(Datum datum, std::optional<int> element, double before, double after, Origin origin,
              const std::string& document = {}) {
    return {{datum, element, before, after}, {}, origin, document};
}

FigureOrigins after(const std::vector<ChangeGroup>& groups) {
    FigureOrigins origins;
    for (const ChangeGroup& group : groups)
        origins.note(group);
    return origins;
}

const ChangeGroup importedRate{
    "Import",
    {},
    {figure(Datum::YNetIncSeries, 3, 0, 80, Origin::imported, "0001-24"),
     figure(Datum::YTaxRateSeries, 3, 0, 18.1, Origin::imported, "0001-24"),
     figure(Datum::YPTISeries, 3, 0, 102, Origin::imported, "0001-24")}};

TEST(FigureOrigins, AreNotKnownAtFirst) {
    const FigureOrigins origins;
    EXPECT_EQ(origins.of(Datum::TotalDebt), FigureOrigin());
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 3).origin, std::nullopt);
    EXPECT_EQ(origins.text(), "");
    EXPECT_FALSE(origins.mayDerive(Datum::YTaxRateSeries, 3));
}

TEST(FigureOrigins, FollowTheChanges) {
    const auto origins =
        after({importedRate, {"", {}, {figure(Datum::YPTISeries, 3, 102, 103, Origin::typed)}}});
    EXPECT_EQ(origins.of(Datum::YPTISeries, 3), (FigureOrigin{Origin::typed, "", false}));
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 3).document, "0001-24");
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 4), FigureOrigin());
}

TEST(FigureOrigins, OfAWholeSeriesAreThoseOfTheElementsThatChanged) {
    const auto origins = after({importedRate,
                                {"Paste",
                                 {},
                                 {{{Datum::YNetIncSeries, std::nullopt, numberArray({0, 0, 0, 80}),
                                    numberArray({0, 70, 0, 80})},
                                   {},
                                   Origin::pasted,
                                   {}}}}});
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 1).origin, Origin::pasted);
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 2).origin, std::nullopt);
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 3).origin, Origin::imported);
}

TEST(FigureOrigins, AreNoneForWhatWasEmptied) {
    const auto origins =
        after({importedRate, {"", {}, {figure(Datum::YPTISeries, 3, 102, 0, Origin::typed)}}});
    EXPECT_EQ(origins.of(Datum::YPTISeries, 3).origin, std::nullopt);
}

TEST(FigureOrigins, KeepAFigureFromBeingWorkedOutWhileNothingItFollowsFromChanges) {
    auto origins = after({importedRate});
    EXPECT_FALSE(origins.mayDerive(Datum::YTaxRateSeries, 3));
    origins.note({"", {}, {figure(Datum::YNetIncSeries, 4, 0, 90, Origin::typed)}});
    EXPECT_FALSE(origins.mayDerive(Datum::YTaxRateSeries, 3)) << "another year";
    origins.note({"", {}, {figure(Datum::YNetIncSeries, 3, 80, 90, Origin::typed)}});
    EXPECT_TRUE(origins.mayDerive(Datum::YTaxRateSeries, 3));
    EXPECT_EQ(origins.of(Datum::YTaxRateSeries, 3).origin, Origin::imported);
    origins.note({"", {}, {figure(Datum::YTaxRateSeries, 3, 18.1, 19, Origin::typed)}});
    EXPECT_FALSE(origins.mayDerive(Datum::YTaxRateSeries, 3));
}

TEST(FigureOrigins, TakeNoDerivedFigureForANewInput) {
    auto origins = after({importedRate});
    origins.note({"", {}, {figure(Datum::YPTISeries, 3, 102, 101, Origin::derived)}});
    EXPECT_FALSE(origins.mayDerive(Datum::YTaxRateSeries, 3));
    EXPECT_TRUE(origins.mayDerive(Datum::YPTISeries, 3));
}

TEST(FigureOrigins, LetAFigureOfUnknownOriginBeWorkedOutOnceItsInputsChanged) {
    FigureOrigins origins;
    origins.note({"", {}, {figure(Datum::QEPSSeries, 2, 0, 1.5, Origin::typed)}});
    EXPECT_TRUE(origins.mayDerive(Datum::Last4QEPS, std::nullopt));
    EXPECT_EQ(origins.of(Datum::Last4QEPS).origin, std::nullopt);
}

TEST(FigureOrigins, KeepASumThatMayBeTypedBesideWhatAnImportChanges) {
    const ChangeGroup import{
        "Import", {}, {figure(Datum::QEPSSeries, 0, 0, 1.5, Origin::imported)}};
    for (const auto& origin : {std::optional(Origin::typed), std::optional(Origin::pasted),
                               std::optional<Origin>(), std::optional(Origin::imported)}) {
        FigureOrigins origins;
        origins.put(Datum::Last4QEPS, std::nullopt, {origin, {}, false});
        origins.note(import);
        EXPECT_EQ(origins.mayDerive(Datum::Last4QEPS, std::nullopt), origin == Origin::imported);
    }
}

TEST(FigureOrigins, MoveWithTheirFigures) {
    auto origins = after({importedRate});
    std::vector<double> before(11);
    std::vector<double> later(11);
    before[3] = later[4] = 80;
    const ChangeGroup shift{
        "Add Fiscal Year 2026",
        {},
        {{{Datum::LastFY, std::nullopt, std::int16_t{2025}, std::int16_t{2026}},
          {},
          Origin::shifted,
          {}},
         {{Datum::YNetIncSeries, std::nullopt, numberArray(before), numberArray(later)},
          {},
          Origin::shifted,
          {}}}};
    origins.note(shift);
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 3).origin, std::nullopt);
    EXPECT_EQ(origins.of(Datum::YNetIncSeries, 4),
              (FigureOrigin{Origin::imported, "0001-24", false}));
    EXPECT_FALSE(origins.mayDerive(Datum::YTaxRateSeries, 3)) << "moving is no new figure";
    EXPECT_EQ(origins.of(Datum::LastFY).origin, Origin::shifted);
}

// A split makes another figure of each, from the same place.
TEST(FigureOrigins, StayWhereASplitAdjustsTheirFigures) {
    const ChangeGroup split{"Split 4:1",
                            {},
                            {figure(Datum::YEPSSeries, 3, 4, 1, Origin::adjusted),
                             figure(Datum::CommShares, std::nullopt, 1, 4, Origin::adjusted)}};
    for (const Origin origin : {Origin::typed, Origin::pasted, Origin::derived, Origin::shifted}) {
        FigureOrigins origins;
        const FigureOrigin held{origin, "0001-24", true};
        origins.put(Datum::YEPSSeries, 3, held);
        origins.note(split);
        EXPECT_EQ(origins.of(Datum::YEPSSeries, 3), held);
        EXPECT_EQ(origins.of(Datum::CommShares), FigureOrigin()) << "nobody knows, as before";
    }
    FigureOrigins origins;
    origins.put(Datum::YEPSSeries, 3, {Origin::imported, "0001-24", false});
    const FigureOrigin adjusted{Origin::adjusted, "0001-24", false};
    for (int times = 0; times < 2; ++times) {
        origins.note(split);
        EXPECT_EQ(origins.of(Datum::YEPSSeries, 3), adjusted);
        EXPECT_FALSE(mayBeByHand(origins.of(Datum::YEPSSeries, 3).origin));
        EXPECT_EQ(FigureOrigins::fromText(origins.text()), origins);
    }
    // Typed over since, and taken back.
    ChangeGroup back{"", {}, {figure(Datum::YEPSSeries, 3, 2, 1, Origin::typed)}};
    origins.tellIn(back);
    FigureOrigins typed;
    typed.put(Datum::YEPSSeries, 3, {Origin::typed, "", false});
    typed.note(back);
    EXPECT_EQ(typed.of(Datum::YEPSSeries, 3), adjusted);
}

TEST(FigureOrigins, OfASumThatASplitAdjustsWithItsQuartersAreNotOutdated) {
    FigureOrigins origins;
    origins.put(Datum::Last4QEPS, std::nullopt, {Origin::imported, "0001-24", false});
    const Change quarter = figure(Datum::QEPSSeries, 0, 4, 1, Origin::adjusted);
    const Change sum = figure(Datum::Last4QEPS, std::nullopt, 16, 4, Origin::adjusted);
    origins.note({"Split 4:1", {}, {sum, quarter}});
    EXPECT_FALSE(origins.mayDerive(Datum::Last4QEPS, std::nullopt));
    origins.note({"Split 4:1", {}, {quarter}});
    EXPECT_TRUE(origins.mayDerive(Datum::Last4QEPS, std::nullopt));
}

// Of the same year, all of it in one group, and with the same product.
TEST(FigureOrigins, OfATotalThatASplitLeavesAreNotOutdated) {
    const auto figures = [](int element, double each, double shares) {
        return std::vector{figure(Datum::YBookValSeries, element, 20, each, Origin::typed),
                           figure(Datum::YCSOSeries, element, 100, shares, Origin::typed)};
    };
    const auto mayDerive = [](std::vector<Change> changes) {
        FigureOrigins origins;
        origins.put(Datum::YCommEqSeries, 3, {Origin::imported, "0001-24", false});
        origins.note({"Split", {}, std::move(changes)});
        return origins.mayDerive(Datum::YCommEqSeries, 3);
    };
    EXPECT_FALSE(mayDerive(figures(3, 5, 400)));
    EXPECT_FALSE(mayDerive(figures(3, 20 / 3.0, 300)));
    for (int shares = 101; shares <= 199; ++shares)
        EXPECT_FALSE(mayDerive(figures(3, 2000.0 / shares, shares))) << shares;
    auto more = figures(3, 5, 400);
    more.push_back(figure(Datum::YEPSSeries, 3, 4, 3, Origin::typed));
    EXPECT_FALSE(mayDerive(more)) << "other figures are others";
    EXPECT_TRUE(mayDerive(figures(3, 80, 400)));
    EXPECT_TRUE(mayDerive(figures(3, 5, 400.001)));
    EXPECT_TRUE(mayDerive(figures(3, 5, 300)));
    EXPECT_TRUE(mayDerive(figures(3, -5, 400)));
    auto others = figures(4, 5, 400);
    EXPECT_FALSE(mayDerive(others)) << "of another year";
    others.push_back(figure(Datum::YBookValSeries, 3, 20, 5, Origin::typed));
    EXPECT_TRUE(mayDerive(others));
    EXPECT_TRUE(mayDerive({figures(3, 5, 400)[1]}));
    EXPECT_FALSE(mayDerive(figures(3, 1.666666666667, 1200))) << "written with thirteen digits";
    // Of a year without book value: nothing before the split and nothing behind it.
    EXPECT_FALSE(mayDerive(
        {{{Datum::YBookValSeries, {}, numberArray({0, 0, 0, 0, 5}), numberArray({0, 0, 0, 0, 2.5})},
          {},
          Origin::typed,
          {}},
         figure(Datum::YCSOSeries, 3, 100, 200, Origin::typed)}));
    EXPECT_FALSE(mayDerive(
        {{{Datum::YBookValSeries, {}, numberArray({0, 0, 0, 20}), numberArray({0, 0, 0, 5})},
          {},
          Origin::typed,
          {}},
         figures(3, 5, 400)[1]}));
}

TEST(FigureOrigins, OfASeriesThatIsLongerThanBeforeAreThoseOfWhatCameIn) {
    const auto origins =
        after({{"Import",
                {},
                {{{Datum::YEPSSeries, {}, numberArray({1, 2}), numberArray({1, 2, 3, 4}, -1)},
                  {},
                  Origin::imported,
                  {}},
                 {{Datum::YHighSeries, {}, 1.0, numberArray({1, 2})}, {}, Origin::imported, {}}}}});
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 0).origin, Origin::imported);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 2).origin, Origin::imported);
    EXPECT_EQ(origins.of(Datum::YHighSeries, 1).origin, Origin::imported);
}

TEST(FigureOrigins, OfAWholeSeriesThatIsAdjustedAreThoseOfItsElements) {
    FigureOrigins origins;
    origins.put(Datum::YEPSSeries, 1, {Origin::typed, {}, false});
    origins.note({"Split 2:1",
                  {},
                  {{{Datum::YEPSSeries, {}, numberArray({0, 2, 4}), numberArray({0, 1, 2})},
                    {},
                    Origin::adjusted,
                    {}}}});
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 0).origin, std::nullopt);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 2).origin, Origin::adjusted);
}

TEST(FigureOrigins, OfAMovedDateAreNotOutdated) {
    FigureOrigins origins;
    origins.note(
        {"Add New Year",
         {},
         {{{Datum::LastFY, {}, std::int16_t{2024}, std::int16_t{2025}}, {}, Origin::shifted, {}}}});
    EXPECT_EQ(origins.of(Datum::LastFY), (FigureOrigin{Origin::shifted, "", false}));
}

// No place is taken for one of another series.
TEST(FigureOrigins, OfASeriesThatIsMovedBeyondItsTableAreGone) {
    FigureOrigins origins;
    for (const int element : {0, 10})
        origins.put(Datum::YEPSSeries, element, {Origin::typed, {}, false});
    std::vector<double> before(13, 1);
    std::vector<double> later(13, 1);
    later[0] = 0;
    origins.note({"Add New Year",
                  {},
                  {{{Datum::YEPSSeries, {}, numberArray(before), numberArray(later)},
                    {},
                    Origin::shifted,
                    {}}}});
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 0), FigureOrigin());
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 1).origin, Origin::typed);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 10), FigureOrigin());
}

TEST(FigureOrigins, StayInTheirPlaceWhereNoDateSaysThatOtherFiguresMoved) {
    const Change other{{Datum::YEPSSeries, {}, numberArray({1, 2, 3}), numberArray({1, 2, 9})},
                       {},
                       Origin::shifted,
                       {}};
    const Change year{
        {Datum::LastFY, {}, std::int16_t{2025}, std::int16_t{2024}}, {}, Origin::shifted, {}};
    FigureOrigins origins;
    origins.put(Datum::YEPSSeries, 1, {Origin::typed, {}, false});
    origins.note({"", {}, {other}});
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 1).origin, Origin::typed);
    origins.note({"", {}, {year, other}});
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 0).origin, Origin::typed);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 1).origin, std::nullopt);
    std::vector<double> before(11, 1);
    std::vector<double> later(11, 2);
    origins.note({"",
                  {},
                  {year,
                   {{Datum::YEPSSeries, {}, numberArray(before), numberArray(later)},
                    {},
                    Origin::shifted,
                    {}}}});
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 10), FigureOrigin()) << "nothing stands behind it";
}

TEST(FigureOrigins, OfSettingsAreBesideThoseOfTheData) {
    FigureOrigins origins;
    for (const auto name : settingNames())
        origins.putSetting(name, {Origin::typed, {}, false});
    for (const DatumRow& row : datumTable())
        for (int element = 0; element <= row.upper; ++element)
            EXPECT_EQ(origins.of(row.datum, element), FigureOrigin()) << row.name;
}

TEST(FigureOrigins, OfAWholeSeriesAreNotToldAsOne) {
    FigureOrigins origins;
    origins.put(Datum::YEPSSeries, 0, {Origin::imported, "0001-24", false});
    ChangeGroup group{
        "",
        {},
        {{{Datum::YEPSSeries, {}, numberArray({1}), numberArray({2})}, {}, Origin::typed, {}}}};
    const ChangeGroup before = group;
    origins.tellIn(group);
    EXPECT_EQ(group, before);
}

TEST(FigureOrigins, AreTheSameWhereEachPlaceIs) {
    for (const DatumRow& row : datumTable()) {
        FigureOrigins origins;
        origins.put(row.datum, 0, {Origin::typed, {}, false});
        EXPECT_NE(origins, FigureOrigins()) << row.name;
    }
}

TEST(FigureOrigins, MoveWithTheQuartersOfAWeekBasedYear) {
    FigureOrigins origins;
    origins.put(Datum::QEPSSeries, 0, {Origin::typed, {}, false});
    std::vector<double> before(35);
    std::vector<double> later(35);
    before[0] = later[1] = 1.5;
    origins.note(
        {"Add New Quarter",
         {},
         {{{Datum::LastQDateForGrid, std::nullopt, *makeDate(2023, 7, 1), *makeDate(2023, 9, 30)},
           {},
           Origin::shifted,
           {}},
          {{Datum::QEPSSeries, std::nullopt, numberArray(before), numberArray(later)},
           {},
           Origin::shifted,
           {}}}});
    EXPECT_EQ(origins.of(Datum::QEPSSeries, 0).origin, std::nullopt);
    EXPECT_EQ(origins.of(Datum::QEPSSeries, 1).origin, Origin::typed);
}

TEST(FigureOrigins, OfQuartersMoveByTheirDate) {
    const Date june = makeDate(2025, 6, 30).value();
    const Date december = makeDate(2025, 12, 31).value();
    std::vector<double> before(35);
    std::vector<double> later(35);
    before[0] = later[2] = 1.5;
    before[32] = later[34] = 0.5;
    before[33] = 0.25;
    later[1] = 1.75; // not there before
    FigureOrigins origins;
    origins.put(Datum::QEPSSeries, 0, {Origin::typed, "", false});
    origins.put(Datum::QEPSSeries, 32, {Origin::imported, "0001-24", false});
    const auto moved = [&](Datum datum, const Variant& from, const Variant& to) {
        FigureOrigins result = origins;
        result.note({"",
                     {},
                     {{{datum, {}, from, to}, {}, Origin::shifted, {}},
                      {{Datum::QEPSSeries, {}, numberArray(before), numberArray(later)},
                       {},
                       Origin::shifted,
                       {}}}});
        return result;
    };
    const auto byDate = moved(Datum::LastQDateForGrid, june, december);
    EXPECT_EQ(byDate.of(Datum::QEPSSeries, 2).origin, Origin::typed);
    EXPECT_EQ(byDate.of(Datum::QEPSSeries, 34).origin, Origin::imported);
    EXPECT_EQ(byDate.of(Datum::QEPSSeries, 0).origin, std::nullopt);
    EXPECT_EQ(byDate.of(Datum::QEPSSeries, 1).origin, std::nullopt);
    EXPECT_EQ(byDate.of(Datum::QEPSSeries, 32).origin, std::nullopt);
    // The year says nothing of quarters, and a first date nothing of a move.
    for (const FigureOrigins& other : {moved(Datum::LastFY, std::int16_t{2024}, std::int16_t{2026}),
                                       moved(Datum::LastQDateForGrid, Date(), december)}) {
        EXPECT_EQ(other.of(Datum::QEPSSeries, 2).origin, std::nullopt);
        EXPECT_EQ(other.of(Datum::QEPSSeries, 34).origin, std::nullopt);
    }
}

TEST(FigureOrigins, OutsideOfASeriesAreUnknownAndNotKept) {
    FigureOrigins origins;
    const FigureOrigin typed{Origin::typed, "", false};
    for (const int element : {-1, 11})
        origins.put(Datum::YEPSSeries, element, typed);
    EXPECT_EQ(origins, FigureOrigins());
    origins.put(Datum::YEPSSeries, 0, typed);
    origins.put(Datum::YEPSSeries, 10, typed);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 0), typed);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 10), typed);
    EXPECT_EQ(origins.of(Datum::YEPSSeries, -1), FigureOrigin());
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 11), FigureOrigin());
}

TEST(FigureOrigins, AreKeptOfSettingsToo) {
    FigureOrigins origins;
    origins.note(
        {"",
         {},
         {{{{}, std::nullopt, false, true},
           std::string(setting::taxRate),
           Origin::imported,
           "AAPL-company.csv"},
          {{{}, std::nullopt, true, false}, std::string(setting::bookValue), Origin::typed, {}}}});
    const FigureOrigin imported{Origin::imported, "AAPL-company.csv", false};
    EXPECT_EQ(origins.ofSetting(setting::taxRate), imported);
    EXPECT_EQ(origins.ofSetting(setting::bookValue).origin, Origin::typed);
    EXPECT_EQ(origins.ofSetting(setting::unit), FigureOrigin());
    EXPECT_EQ(origins.ofSetting("strNothing"), FigureOrigin());
    EXPECT_EQ(FigureOrigins::fromText(origins.text()), origins);

    ChangeGroup back{
        "", {}, {{{{}, std::nullopt, false, true}, std::string(setting::taxRate), {}, {}}}};
    origins.tellIn(back);
    EXPECT_EQ(back.changes[0].origin, Origin::imported);
    EXPECT_EQ(back.changes[0].document, "AAPL-company.csv");
}

TEST(FigureOrigins, AreTextAndBack) {
    auto origins =
        after({importedRate,
               {"", {}, {figure(Datum::YNetIncSeries, 3, 80, 81, Origin::typed)}},
               {"", {}, {figure(Datum::TotalDebt, {}, 0, 5, Origin::imported, "a\tb\\c\nd\re")}}});
    for (const int element : {0, 1, 2, 5, 34})
        origins.put(Datum::QEPSSeries, element, {Origin::pasted, {}, false});
    const std::string text = origins.text();
    EXPECT_EQ(FigureOrigins::fromText(text), origins);
    EXPECT_EQ(FigureOrigins::fromText(text).text(), text);
    EXPECT_NE(text.find("pasted\t\tQEPSSeries:0-2,5,34\n"), std::string::npos) << text;
    EXPECT_NE(FigureOrigins(), origins);
}

TEST(FigureOrigins, AreReadFromWhateverTextAsFarAsItGoes) {
    for (const char* text :
         {"", "\n\n", "typed", "typed\t", "typed\t\t", "nothing\t\tName", "typed\t\tGoodwill:1",
          "typed\t\tYEPSSeries", "typed\t\tYEPSSeries:", "typed\t\tYEPSSeries:-5",
          "typed\t\tYEPSSeries:9-999999999999", "typed\t\tYEPSSeries:x,1-,12,-3", "!\t\tName"})
        EXPECT_EQ(FigureOrigins::fromText(text).of(Datum::YEPSSeries, 0), FigureOrigin()) << text;
    const auto origins =
        FigureOrigins::fromText("typed\t\tGoodwill:1 YEPSSeries:9-2000000000 Name\nnonsense\n");
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 10).origin, Origin::typed);
    EXPECT_EQ(origins.of(Datum::Name).origin, Origin::typed);
    for (const char* text : {"nothing\t0001-24\tName\n", "typed\t\tlngNothing\n"})
        EXPECT_EQ(FigureOrigins::fromText(text), FigureOrigins()) << text;
    EXPECT_EQ(FigureOrigins::fromText("typed\ta\\\tName\n").of(Datum::Name).document, "a\\");
}

TEST(FigureOrigins, AreReadToTheEndOfTheirTextAndNotBeyond) {
    const std::string_view longer = "typed\t\tYEPSSeries:12";
    const auto origins = FigureOrigins::fromText(longer.substr(0, longer.size() - 1));
    EXPECT_EQ(origins.text(), "typed\t\tYEPSSeries:1\n");
}

TEST(FigureOrigins, KnowWhatEachFigureFollowsFrom) {
    for (const Derivation& rule : derivations()) {
        EXPECT_NE(rule.derived, rule.from);
        if (isSeries(rowOf(rule.derived))) {
            EXPECT_EQ(rowOf(rule.derived).period, rowOf(rule.from).period);
        }
    }
}

} // namespace
} // namespace vkr
