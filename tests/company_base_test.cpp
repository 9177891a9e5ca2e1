// SPDX-License-Identifier: MIT
#include "company/company_base.hpp"
#include "company/company_record.hpp"
#include "record/datum_table.hpp"
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace vkr {
namespace {

// The least that a host of its own may have.
class Quote final : public CompanyBase {
  public:
    [[nodiscard]] std::string get_Name() const override { return name; }
    void put_Name(const std::string& value) override { name = value; }
    [[nodiscard]] double get_CurrentPrice() const override { return price; }
    void put_CurrentPrice(double value) override { price = value; }
    [[nodiscard]] Variant get_YEPSSeries() const override { return earnings; }
    void put_YEPSSeries(const Variant& value) override { earnings = value; }
    [[nodiscard]] std::int16_t get_LastFY() const override { return 2025; }
    void put_LastFY(std::int16_t /*value*/) override {}

    std::string name = "Acme Inc.";
    double price = 120.5;
    Variant earnings = numberArray({0, 4.5, 4, 3.5});
};

// A value that is something, of the kind of a datum.
Variant something(const DatumRow& row) {
    return std::visit(
        [](const auto& access) -> Variant {
            using Kind = std::decay_t<decltype(access)>;
            if constexpr (std::is_same_v<Kind, TextAccess>)
                return "text";
            else if constexpr (std::is_same_v<Kind, NumberAccess>)
                return 0.5;
            else if constexpr (std::is_same_v<Kind, YearAccess>)
                return std::int16_t{2025};
            else if constexpr (std::is_same_v<Kind, DateAccess>)
                return *makeDate(2025, 9, 27);
            else
                return numberArray({0, 0, -1});
        },
        row.access);
}

TEST(CompanyBase, WhatIsNotOverriddenIsAbsentAndTakesNothing) {
    CompanyBase record;
    for (const DatumRow& row : datumTable()) {
        const Variant read = readDatum(record, row.datum);
        if (isSeries(row))
            EXPECT_EQ(read.array().size(), 0U) << row.name;
        else
            EXPECT_EQ(read, readDatum(CompanyRecord(), row.datum)) << row.name;
        EXPECT_NO_THROW(writeDatum(record, row.datum, read)) << row.name;
        EXPECT_THROW(writeDatum(record, row.datum, something(row)), std::invalid_argument)
            << row.name;
        EXPECT_EQ(readDatum(record, row.datum), read) << row.name;
    }
    EXPECT_NO_THROW(record.put_QEPSSeries(numberArray({0, 0, 0})));
    EXPECT_THROW(record.put_QEPSSeries(numberArray({1}, std::numeric_limits<int>::max())),
                 std::invalid_argument);
    EXPECT_THROW(record.put_QEPSSeries(Variant("text")), std::invalid_argument);
}

TEST(CompanyBase, OperationsWithoutADatumAnswerNothing) {
    CompanyBase record;
    EXPECT_NO_THROW(record.put_QuarterlyFlag(1.0));
    for (const Variant& answer :
         {record.BeginYearShift(0), record.YearShiftState(0), record.EndYearShift(0),
          record.YearShiftUnit(0), record.get_YearShiftFirst(), record.get_YearShiftLast(),
          record.get_YearShiftCount(), record.get_ReportingPeriodEnd(),
          record.get_YearShiftPrices(), record.get_YearShiftEarnings(),
          record.get_YearShiftDividends(), record.get_YearShiftShares(),
          record.get_SettingsApply()})
        EXPECT_TRUE(answer.isEmpty());
}

TEST(CompanyBase, SettingsAreKeptAndNotShared) {
    CompanyBase record;
    record.get_Settings()->put(setting::unit, 9);
    record.get_ReportingPeriod()->put(setting::leadPeriod, 2);
    EXPECT_EQ(record.get_Settings()->get(setting::leadPeriod), Variant(std::int16_t{2}));
    const CompanyBase copy(record);
    record.get_Settings()->put(setting::unit, 3);
    EXPECT_EQ(copy.get_Settings()->get(setting::unit), Variant(std::int16_t{9}));
    EXPECT_EQ(copy.get_ReportingPeriod()->get(setting::leadPeriod), Variant(std::int16_t{2}));
    EXPECT_THROW(record.get_Settings()->put(setting::currencySymbol, "\xff"),
                 std::invalid_argument);
}

TEST(CompanyBase, ARecordOfTwoFieldsIsShownEditedAndCommitted) {
    EntryScene scene;
    const auto quote = std::make_shared<Quote>();
    scene.load(quote);
    EXPECT_EQ(scene.text("txtName"), "Acme Inc.");
    EXPECT_EQ(scene.text("txtCurrentPrice"), "120.500");
    scene.enter("txtCurrentPrice", "121.25");
    EXPECT_EQ(quote->price, 121.25);
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(scene.entry->get_objCompany(), quote);
    scene.entry->put_blnDirty(false);
    EXPECT_EQ(quote->name, "Acme Inc.");
    EXPECT_EQ(quote->price, 121.25);
}

TEST(CompanyBase, WhatTheRecordHasNoPlaceForIsMarkedAndNotLost) {
    EntryScene scene;
    scene.load(std::make_shared<Quote>());
    scene.enter("txtSymbol", "ACM");
    const auto unstored = scene.entry->unstoredFields();
    ASSERT_EQ(unstored.size(), 1U);
    EXPECT_EQ(unstored.front().control, "txtSymbol");
    EXPECT_EQ(unstored.front().text, "ACM");
    scene.enter("txtSymbol", "");
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
}

TEST(CompanyBase, TabbingThroughAllFieldsOfATinyRecordMarksNone) {
    EntryScene scene;
    scene.load(std::make_shared<Quote>());
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        scene.entry->put_CurrentTab(static_cast<TABObject>(tab));
        for (int press = 0; press < 60; ++press)
            scene.desktop.type("{TAB}");
        EXPECT_TRUE(scene.entry->unstoredFields().empty()) << "tab " << tab;
    }
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(CompanyBase, CellsOfSeriesThatAreNotThereCantBeEntered) {
    EntryScene scene;
    const auto quote = std::make_shared<Quote>();
    scene.load(quote);
    scene.entry->put_CurrentTab(toYearly);
    EXPECT_TRUE(scene.field("txtYEPS", 9).enabled());
    EXPECT_EQ(scene.text("txtYEPS", 9), "4.50");
    for (const char* column : {"txtSales", "txtYNetInc", "txtCSO", "txtDiv", "txtHigh"})
        EXPECT_FALSE(scene.field(column, 9).enabled()) << column;
    EXPECT_FALSE(scene.field("txtEPS", 0).enabled());
    scene.enter("txtYEPS(9)", "5.25");
    EXPECT_EQ(quote->earnings.array().number(1), 5.25);
}

TEST(CompanyBase, AYearIsAddedToTheSeriesThatAreThere) {
    EntryScene scene;
    const auto quote = std::make_shared<Quote>();
    scene.load(quote);
    scene.entry->put_CurrentTab(toYearly);
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddYear");
    EXPECT_EQ(quote->earnings.array().number(2), 4.5);
}

} // namespace
} // namespace vkr
