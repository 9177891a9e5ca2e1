// SPDX-License-Identifier: MIT
#include "company/kept_figures.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

constexpr int year = 3;

class KeptFiguresTest : public testing::Test {
  protected:
    KeptFiguresTest() {
        put(Datum::YNetIncSeries, 8000);
        put(Datum::YPTISeries, 10279.3);
        put(Datum::YTaxRateSeries, 18.1);
    }
    void put(Datum series, double figure, int element = year) const {
        Variant figures = readSeries(*record, series);
        figures.array().setNumber(element, figure);
        writeSeries(*record, series, figures);
    }
    [[nodiscard]] double rate(int element = year) const {
        return record->get_YTaxRateSeries().array().number(element);
    }
    void came(Origin origin) {
        for (const Datum series : {Datum::YNetIncSeries, Datum::YPTISeries, Datum::YTaxRateSeries})
            origins.put(series, year, {origin, "", false});
    }
    // As the component works out what is hidden.
    void derive(double figure, int element = year) {
        const ActionScope commit(kept, {Origin::derived, {}, {}});
        Variant rates = kept->get_YTaxRateSeries();
        rates.array().setNumber(element, figure);
        kept->put_YTaxRateSeries(rates);
    }

    std::shared_ptr<CompanyRecord> record = std::make_shared<CompanyRecord>();
    FigureOrigins origins;
    std::shared_ptr<KeptFigures> kept =
        std::make_shared<KeptFigures>(record, [this] { return origins; });
};

TEST_F(KeptFiguresTest, AnImportedTaxRateStaysWhatItIsByACommit) {
    EntryScene scene;
    // What is laid down for the component.
    const auto committed = record->clone();
    scene.entry->put_objCompany(committed);
    scene.entry->commitInto(committed);
    EXPECT_NEAR(committed->get_YTaxRateSeries().array().number(year), 22.17, 0.01);

    came(Origin::imported);
    scene.entry->put_objCompany(record);
    {
        const ActionScope commit(kept, {Origin::derived, {}, {}});
        scene.entry->commitInto(kept);
    }
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, WhatIsAbsentIsWorkedOut) {
    came(Origin::imported);
    derive(21, 4);
    EXPECT_EQ(rate(4), 21);
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, WhatWasWorkedOutBeforeIsWorkedOutAgain) {
    came(Origin::typed);
    origins.put(Datum::YTaxRateSeries, year, {Origin::derived, "", false});
    derive(22.2);
    EXPECT_EQ(rate(), 22.2);
}

TEST_F(KeptFiguresTest, WhatNobodyKnowsTheOriginOfStays) {
    derive(22.2);
    EXPECT_EQ(rate(), 18.1);
}

TEST_F(KeptFiguresTest, AChangedInputLetsItBeWorkedOut) {
    came(Origin::typed);
    origins.note({"", {}, {{{Datum::YPTISeries, year, 10279.3, 11000.0}, {}, Origin::typed, {}}}});
    derive(27.3);
    EXPECT_EQ(rate(), 27.3);
}

TEST_F(KeptFiguresTest, AnInputOfTheSameActionDoesSoToo) {
    came(Origin::typed);
    const ActionScope leaving(kept, {Origin::typed, {}, {}});
    Variant incomes = kept->get_YPTISeries();
    incomes.array().setNumber(year, 11000);
    incomes.array().setNumber(year + 1, 12000);
    kept->put_YPTISeries(incomes);
    derive(27.3);
    EXPECT_EQ(rate(), 27.3);
}

TEST_F(KeptFiguresTest, TheTrailingSumFollowsAQuarterThatWasLeft) {
    record->put_Last4QEPS(4);
    origins.put(Datum::Last4QEPS, {}, {Origin::typed, "", false});
    const auto sum = [&] {
        const ActionScope working(kept, {Origin::derived, {}, {}});
        kept->put_Last4QEPS(5);
    };
    sum();
    EXPECT_EQ(record->get_Last4QEPS(), 4);
    {
        const ActionScope leaving(kept, {Origin::typed, {}, {}});
        Variant quarters = kept->get_QEPSSeries();
        quarters.array().setNumber(2, 1.25);
        kept->put_QEPSSeries(quarters);
        sum();
        EXPECT_EQ(record->get_Last4QEPS(), 5);
    }
    record->put_Last4QEPS(4);
    sum();
    EXPECT_EQ(record->get_Last4QEPS(), 4) << "the action has ended";
}

TEST_F(KeptFiguresTest, WhatAPersonTypesIsWritten) {
    came(Origin::imported);
    Variant rates = kept->get_YTaxRateSeries();
    rates.array().setNumber(year, 19);
    kept->put_YTaxRateSeries(rates);
    EXPECT_EQ(rate(), 19);
    const ActionScope commit(kept, {Origin::derived, {}, {}});
    kept->put_City("Graz"); // not one of the figures that are worked out
    EXPECT_EQ(record->get_City(), "Graz");
}

TEST_F(KeptFiguresTest, EverythingElseIsPassedOn) {
    const auto scripted = std::make_shared<ScriptedRecord>(record);
    const auto above = std::make_shared<KeptFigures>(scripted, [] { return FigureOrigins(); });
    for (const DatumRow& row : datumTable())
        EXPECT_EQ(readDatum(*above, row.datum), readDatum(*record, row.datum)) << row.name;
    EXPECT_EQ(above->get_Settings(), scripted->get_Settings());
    scripted->log.clear();
    above->BeginYearShift(0);
    above->YearShiftState(0);
    above->EndYearShift(0);
    above->YearShiftUnit(0);
    above->put_QuarterlyFlag(1);
    static_cast<void>(above->get_SettingsApply());
    EXPECT_GE(scripted->log.size(), 1U);
}

} // namespace
} // namespace vkr
