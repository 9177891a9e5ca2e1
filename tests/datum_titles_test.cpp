// SPDX-License-Identifier: MIT
#include "form/form_layout.hpp"
#include "localizer/string_table.hpp"
#include "record/datum_titles.hpp"
#include "record/setting_table.hpp"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>

namespace vkr {
namespace {

// Of a caption of the English string table, without the unit behind it.
std::string captionOf(int number) {
    std::string caption(findString(standardStrings(), number));
    if (caption.ends_with(" (%)"))
        caption.resize(caption.size() - 4);
    return caption;
}

TEST(DatumTitles, AreTheCaptionsOfTheFields) {
    const std::set<Datum> otherwise = {Datum::Address2, Datum::Institutional, Datum::VLTimeliness};
    int compared = 0;
    for (const FieldRow& field : companyFieldTable())
        if (field.datum && !otherwise.contains(*field.datum)) {
            EXPECT_EQ(titleOf(*field.datum), captionOf(field.label.caption));
            ++compared;
        }
    EXPECT_GT(compared, 30);
}

TEST(DatumTitles, TellEveryDatumFromEveryOther) {
    std::set<std::string> titles;
    for (const DatumRow& row : datumTable()) {
        EXPECT_TRUE(titles.insert(fullTitleOf(row.datum)).second) << fullTitleOf(row.datum);
        EXPECT_EQ(std::string(titleOf(row.datum)).find("Series"), std::string::npos) << row.name;
    }
}

TEST(DatumTitles, NameDataAndSettingsInAHistory) {
    const std::pair<std::string_view, std::string_view> called[] = {
        {"YRevenueSeries", "Yearly Revenue"},
        {"TotalDebt", "Total Debt"},
        {setting::unit, "Unit"},
        {setting::leadPeriod, "Reporting Period"},
        {setting::bookValue, "Show Book Value"},
        {setting::lockBasicInfo, "Lock Data"},
        {"Goodwill", "Goodwill"},
        {"", ""},
    };
    for (const auto& [name, title] : called)
        EXPECT_EQ(calledDatum(name), title);
}

TEST(DatumTitles, LeadBackToWhatTheyName) {
    std::set<std::string> titles;
    for (const DatumRow& row : datumTable()) {
        EXPECT_EQ(datumCalled(row.name), row.name);
        EXPECT_EQ(datumCalled(fullTitleOf(row.datum)), row.name);
        titles.insert(fullTitleOf(row.datum));
    }
    for (const SettingRow& row : settingTable) {
        EXPECT_TRUE(titles.insert(std::string(row.title)).second) << row.title;
        EXPECT_EQ(datumCalled(row.name), row.name);
        EXPECT_EQ(datumCalled(row.title), row.name);
    }
    EXPECT_EQ(datumCalled("yearly revenue"), "YRevenueSeries");
    EXPECT_EQ(datumCalled("yrevenueseries"), "") << "the name of a property is as it is";
    EXPECT_EQ(datumCalled("No Such Figure"), "");
    EXPECT_EQ(datumCalled(""), "");
}

TEST(DatumTitles, KeepShortFormsWithinASentence) {
    EXPECT_EQ(wordsOf(Datum::TotalDebt), "total debt");
    EXPECT_EQ(wordsOf(Datum::YPTISeries), "pre-tax income");
    EXPECT_EQ(wordsOf(Datum::LastFYDate), "date of last FY");
    EXPECT_EQ(wordsOf(Datum::High52W), "52 week high");
    EXPECT_EQ(wordsOf(Datum::State), "state/province");
    EXPECT_EQ(wordsOf(Datum::QEPSSeries), "earnings per share");
}

} // namespace
} // namespace vkr
