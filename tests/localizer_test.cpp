// SPDX-License-Identifier: MIT
#include "localizer/localizer.hpp"
#include "localizer/string_table.hpp"
#include "record/enumerations.hpp"
#include "tests/support/entry_object_rows.hpp"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vkr {
namespace {

bool isUsed(int number) {
    return !findString(standardStrings(), number).empty();
}

bool isBlank(const std::string& text) {
    return text.find_first_not_of(" \r\n\t") == std::string::npos;
}

int helpNumber(int object) {
    return test::entryObjectRows[static_cast<std::size_t>(object)].helpText;
}

// Numbers among the help texts that are captions of labels.
bool isCaption(int number) {
    return number == 108 || number == 163 || number == 577 || number == 578;
}

class LocalizerOfEitherPlatform : public testing::TestWithParam<std::string_view> {
  protected:
    void SetUp() override {
        ObjectFactory factory;
        registerLocalizers(factory);
        localizer_ = std::dynamic_pointer_cast<Localizer>(factory.create(GetParam()));
        ASSERT_NE(localizer_, nullptr);
    }
    [[nodiscard]] std::string text(int number) const { return localizer_->LoadString(number); }

    std::shared_ptr<Localizer> localizer_;
};

std::string platformName(const testing::TestParamInfo<std::string_view>& platform) {
    return platform.param == zxLocalizerId ? "Zx" : "Standard";
}

INSTANTIATE_TEST_SUITE_P(Platforms, LocalizerOfEitherPlatform,
                         testing::Values(standardLocalizerId, zxLocalizerId), platformName);

TEST_P(LocalizerOfEitherPlatform, HasATextForEveryNumberInUseAndForNoOther) {
    for (int number = -1; number <= 1000; ++number)
        EXPECT_EQ(!isBlank(text(number)), isUsed(number)) << number;
    for (const StringRow& row : zxStrings())
        EXPECT_TRUE(isUsed(row.number)) << row.number;
    for (const int number : {-32768, 32767, 2147483647})
        EXPECT_EQ(text(number), "") << number;
}

TEST_P(LocalizerOfEitherPlatform, HasAHelpTextForEveryObject) {
    for (int object = 0; object < dataEntryObjectCount; ++object)
        EXPECT_FALSE(isBlank(text(helpNumber(object)))) << object;
}

TEST_P(LocalizerOfEitherPlatform, HelpTextsAreAFewSentencesThatFitTheHelpFrame) {
    std::vector<int> numbers = {1};
    for (int number = 100; number < 400; ++number) {
        if (isUsed(number) && !isCaption(number))
            numbers.push_back(number);
    }
    std::set<std::string> different;
    for (const int number : numbers) {
        const std::string help = text(number);
        EXPECT_GE(help.size(), 60U) << number;
        EXPECT_LE(help.size(), 350U) << number;
        EXPECT_EQ(help.back(), '.') << number;
        EXPECT_EQ(help.find("  "), std::string::npos) << number;
        EXPECT_TRUE(different.insert(help).second) << number << " repeats another help text";
    }
}

TEST_P(LocalizerOfEitherPlatform, HelpOfAMoneyOrShareFigureNamesTheUnit) {
    for (const int object :
         {doTotalDebt, doPrefShares, doCommShares, doDilutedShares, doYRevenue, doYPTI, doYNetInc,
          doYCommEq, doYCSO, doQRevenue, doQPTI, doQNetInc, doPrefDiv})
        EXPECT_NE(text(helpNumber(object)).find("in the chosen unit"), std::string::npos) << object;
}

TEST_P(LocalizerOfEitherPlatform, HelpOfAPerShareFigureSaysSo) {
    for (const int object : {do52WHigh, do52WLow, doORBEPSProj, doYBookVal, doYEPS, doYDividend,
                             doYHigh, doYLow, doQEPS, doCommDiv})
        EXPECT_NE(text(helpNumber(object)).find("in currency per share"), std::string::npos)
            << object;
}

TEST_P(LocalizerOfEitherPlatform, HelpOfARateIsInPercent) {
    for (const int object : {doInsiderHolding, doYTaxRate, doQTaxRate, doEstTaxRate})
        EXPECT_NE(text(helpNumber(object)).find("in percent"), std::string::npos) << object;
}

TEST_P(LocalizerOfEitherPlatform, CaptionsAreThoseOfTheDesign) {
    constexpr std::pair<int, std::string_view> captions[] = {
        {108, "Price Update Date"},
        {163, "Date of Source"},
        {500, "Name"},
        {501, "Symbol"},
        {502, "Exchange"},
        {503, "Industry"},
        {505, "Source"},
        {506, "Last Update"},
        {507, "Updated by"},
        {508, "Current Price"},
        {509, "52 Week High"},
        {510, "52 Week Low"},
        {513, "ORB EPS Projection"},
        {514, "Total Debt"},
        {515, "Insider Holding (%)"},
        {516, "Institutional"},
        {517, "Preferred Shares"},
        {518, "Common Shares"},
        {519, "Diluted Shares"},
        {520, "Year"},
        {521, "Revenue"},
        {522, "Net Inc."},
        {523, "Basic EPS"},
        {524, "Dividends Declared"},
        {525, "Market Price"},
        {526, "High"},
        {527, "Low"},
        {528, "Date of Last FY"},
        {529, "Date of Last Quarter"},
        {530, "Quarter"},
        {531, "Earnings Per Share"},
        {532, "Net Income"},
        {533, "Address"},
        {534, "City"},
        {535, "State/Province"},
        {536, "Zip/Postal"},
        {537, "Country"},
        {538, "Internet"},
        {539, "Contact Person"},
        {540, "Telephone"},
        {541, "Notes"},
        {542, "VL Timelines"},
        {543, "VL Safety"},
        {544, "Reporting Period"},
        {545, "Preferred Dividends"},
        {546, "Common Dividends"},
        {547, "Est. Tax Rate (%)"},
        {548, "Currency Unit "},
        {549, "Thousands"},
        {550, "Millions"},
        {551, "Billions"},
        {552, "Currency Display"},
        {553, "Pre-tax Income or Tax Rate "},
        {554, "Pre-Tax Income"},
        {555, "Tax Rate"},
        {556, "Common Equity or Book Value "},
        {557, "Common Equity"},
        {558, "Book Value"},
        {559, "Colors"},
        {560, "Decimal"},
        {561, "Fractional"},
        {562, "Lock Data"},
        {563, "&Add New Year"},
        {564, "&Remove Year"},
        {565, "&Company Data"},
        {566, "&Yearly Data"},
        {567, "&Quarterly Data"},
        {568, "Company &Other"},
        {569, "O&ptions"},
        {570, "Required Data"},
        {571, "Quarterly Shade"},
        {572, "Required Yearly Data"},
        {573, "Locked Company Data"},
        {574, "&OK"},
        {575, "&Cancel"},
        {576, "&Help"},
        {577, "Total Capital"},
        {578, "Last 4Q EPS"},
        {579, "&Add New Quarter"},
    };
    for (const auto& [number, caption] : captions)
        EXPECT_EQ(text(number), caption) << number;
}

TEST_P(LocalizerOfEitherPlatform, MenuEntriesReadAsTheirCommands) {
    constexpr std::pair<int, std::string_view> entries[] = {
        {413, "Undo"},         {414, "Cut"},           {415, "Copy"},
        {416, "Paste"},        {417, "Clear"},         {418, "Select All"},
        {419, "Add New Year"}, {420, "Remove Year"},   {421, "Use Date of Last Quarter"},
        {422, "What's This?"}, {428, "Pick a Date..."}};
    for (const auto& [number, entry] : entries)
        EXPECT_EQ(text(number), entry) << number;
}

TEST_P(LocalizerOfEitherPlatform, QuestionsReadAsSentencesAroundTheYearOrQuarter) {
    const std::string end = " " + text(405) + "\r" + text(406);
    EXPECT_EQ(text(404) + " 1996" + end,
              "Adding a new year removes the oldest one: the figures of 1996 will leave the table."
              "\rDo you want to go on?");
    EXPECT_EQ(text(407) + " 2005" + end,
              "This removes the newest year: the figures of 2005 will leave the table."
              "\rDo you want to go on?");
    EXPECT_EQ(text(412) + " Sep 1997" + end,
              "Adding a new quarter removes the oldest one: the figures of Sep 1997 will leave "
              "the table.\rDo you want to go on?");
}

TEST_P(LocalizerOfEitherPlatform, WarningAboutALastQuarterDateReadsAsTwoSentences) {
    EXPECT_EQ(text(615) + " " + text(616),
              "The new date must lie in the month in which one of the next three quarters ends. "
              "The previous date has been put back.");
}

TEST_P(LocalizerOfEitherPlatform, OnlyPictureIsTheHandOfALink) {
    const Picture hand = localizer_->LoadPicture(101, 0);
    EXPECT_EQ(hand.id, 101);
    EXPECT_TRUE(hand.svg.starts_with("<svg ")) << hand.svg;
    EXPECT_TRUE(hand.svg.ends_with("</svg>")) << hand.svg;

    EXPECT_TRUE(localizer_->LoadPicture(101, 1).empty());
    EXPECT_TRUE(localizer_->LoadPicture(100, 0).empty());
    EXPECT_TRUE(localizer_->LoadPicture(0, 0).empty());
    EXPECT_EQ(localizer_->LoadPicture(102, 0), Picture{});
}

TEST(Localizer, ZxDiffersFromTheStandardPlatformOnlyWhereItsTableSays) {
    const StandardLocalizer standard;
    const ZxLocalizer zx;
    for (int number = 0; number <= 1000; ++number) {
        const std::string_view own = findString(zxStrings(), number);
        if (own.empty()) {
            EXPECT_EQ(zx.LoadString(number), standard.LoadString(number)) << number;
        } else {
            EXPECT_EQ(zx.LoadString(number), own) << number;
            EXPECT_NE(standard.LoadString(number), own) << number << " needs no row of its own";
        }
    }
}

TEST(Localizer, ZxHasItsOwnCaptionsForTheProjectionAndTheFourthTab) {
    EXPECT_EQ(StandardLocalizer{}.LoadString(613), "ORB EPS Projection");
    EXPECT_EQ(StandardLocalizer{}.LoadString(614), "Company &Other");
    EXPECT_EQ(ZxLocalizer{}.LoadString(613), "EPS Projection");
    EXPECT_EQ(ZxLocalizer{}.LoadString(614), "&Other Data");
}

TEST(Localizer, ZxHelpDoesNotSpeakOfFieldsThatItHides) {
    const std::string company = ZxLocalizer{}.LoadString(158);
    EXPECT_EQ(company.find("debt"), std::string::npos);
    EXPECT_EQ(company.find("shares"), std::string::npos);
}

TEST(Localizer, IsCreatedByItsIdentifier) {
    ObjectFactory factory;
    EXPECT_EQ(factory.create("iVKR_DataEntry.Localizer"), nullptr);
    registerLocalizers(factory);
    const auto standard = factory.create("iVKR_DataEntry.Localizer");
    const auto zx = factory.create("iVKR_ZX_DataEntry.Localizer");
    EXPECT_NE(std::dynamic_pointer_cast<StandardLocalizer>(standard), nullptr);
    EXPECT_NE(std::dynamic_pointer_cast<ZxLocalizer>(zx), nullptr);
    EXPECT_NE(factory.create("iVKR_DataEntry.Localizer"), standard) << "each has its own owner";
    EXPECT_EQ(factory.create("iVKR_OTHER_DataEntry.Localizer"), nullptr);
}

TEST(Localizer, FirstTableThatHasANumberGivesTheText) {
    static constexpr StringRow over[] = {{2, "two over"}, {5, "five"}};
    static constexpr StringRow under[] = {{1, "one"}, {2, "two"}};
    const TableLocalizer localizer({over, under});
    EXPECT_EQ(localizer.LoadString(1), "one");
    EXPECT_EQ(localizer.LoadString(2), "two over");
    EXPECT_EQ(localizer.LoadString(5), "five");
    EXPECT_EQ(localizer.LoadString(3), "");
    EXPECT_EQ(TableLocalizer({}).LoadString(1), "");
}

TEST(StringTable, TablesOfBothPlatformsAreInOrder) {
    EXPECT_TRUE(isStringTable(standardStrings()));
    EXPECT_TRUE(isStringTable(zxStrings()));
}

TEST(StringTable, RefusesRowsOutOfOrderRepeatedNumbersAndBlankTexts) {
    const std::array<StringRow, 2> inOrder = {{{1, "a"}, {2, "b"}}};
    const std::array<StringRow, 2> outOfOrder = {{{2, "b"}, {1, "a"}}};
    const std::array<StringRow, 2> repeated = {{{1, "a"}, {1, "b"}}};
    const std::array<StringRow, 2> blank = {{{1, "a"}, {2, " \r"}}};
    EXPECT_TRUE(isStringTable(inOrder));
    EXPECT_TRUE(isStringTable({}));
    EXPECT_FALSE(isStringTable(outOfOrder));
    EXPECT_FALSE(isStringTable(repeated));
    EXPECT_FALSE(isStringTable(blank));
}

} // namespace
} // namespace vkr
