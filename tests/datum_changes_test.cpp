// SPDX-License-Identifier: MIT
#include "record/datum_changes.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

const std::vector<DatumChange> threeFigures{
    {Datum::YRevenueSeries, 1, 0.0, 391035.0},
    {Datum::Name, std::nullopt, "", "Example"},
    {Datum::YRevenueSeries, 2, 0.0, 383285.0},
};

std::shared_ptr<ScriptedRecord> emptyRecord() {
    return std::make_shared<ScriptedRecord>(std::make_shared<CompanyRecord>());
}

double revenue(const ScriptedRecord& record, int element) {
    return record.company->get_YRevenueSeries().array().number(element);
}

TEST(DatumChanges, AreWrittenEachSeriesOnce) {
    const auto record = emptyRecord();
    EXPECT_EQ(applyChanges(*record, threeFigures), std::nullopt);
    EXPECT_EQ(revenue(*record, 1), 391035);
    EXPECT_EQ(revenue(*record, 2), 383285);
    EXPECT_EQ(record->company->get_Name(), "Example");
    EXPECT_EQ(record->logged("write "),
              (std::vector<std::string>{"write YRevenueSeries", "write Name"}));
}

TEST(DatumChanges, AreAllOrNone) {
    for (const char* refused : {"write YRevenueSeries", "write Name", "read Name"}) {
        const auto record = emptyRecord();
        const auto before = record->company->clone();
        record->failing = {refused};
        const auto refusal = applyChanges(*record, threeFigures);
        ASSERT_TRUE(refusal) << refused;
        EXPECT_FALSE(refusal->empty()) << refused;
        EXPECT_TRUE(sameAs(*before, *record->company)) << refused;
    }
}

TEST(DatumChanges, OutsideOfTheirSeriesWriteNothing) {
    const auto record = emptyRecord();
    const std::vector<DatumChange> outside{{Datum::Name, std::nullopt, "", "Example"},
                                           {Datum::YRevenueSeries, 11, 0.0, 1.0}};
    EXPECT_TRUE(applyChanges(*record, outside));
    EXPECT_TRUE(record->logged("write ").empty());
}

TEST(DatumChanges, ReplaceASeriesWhole) {
    const auto record = emptyRecord();
    std::vector<double> figures(35);
    figures[2] = 3;
    const Variant whole = numberArray(figures);
    EXPECT_EQ(applyChanges(*record, std::vector<DatumChange>{{Datum::QEPSSeries, std::nullopt,
                                                              Variant(), whole}}),
              std::nullopt);
    EXPECT_EQ(record->company->get_QEPSSeries().array().number(2), 3);
}

TEST(DatumChanges, InvertedTakeBackWhatWasDone) {
    const auto record = emptyRecord();
    const auto before = record->company->clone();
    std::vector<DatumChange> twice = threeFigures;
    twice.push_back({Datum::YRevenueSeries, 1, 391035.0, 391036.0});
    ASSERT_EQ(applyChanges(*record, twice), std::nullopt);
    EXPECT_EQ(revenue(*record, 1), 391036);
    ASSERT_EQ(applyChanges(*record, inverted(twice)), std::nullopt);
    EXPECT_TRUE(sameAs(*before, *record->company));
}

} // namespace
} // namespace vkr
