// SPDX-License-Identifier: MIT
#include "company/typed_figures.hpp"
#include "tests/support/elements.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using test::elementOf;
using test::putElement;

class TypedFigures : public testing::Test {
  protected:
    TypedFigures() {
        for (CompanyRecord* record : {&stored, &imported})
            record->put_LastFY(2024);
        putElement(stored, Datum::YRevenueSeries, 1, 391000);
        putElement(imported, Datum::YRevenueSeries, 1, 391035);
    }
    [[nodiscard]] std::vector<TypedFigure> found() const {
        return typedFigures(stored, origins, imported);
    }
    CompanyRecord stored;
    CompanyRecord imported;
    FigureOrigins origins;
};

TEST_F(TypedFigures, AreThoseThatAreTypedPastedOrOfUnknownOrigin) {
    ASSERT_EQ(found().size(), 1U) << "nobody knows";
    EXPECT_EQ(describe(found().front()), "YRevenueSeries 2024: 391000, not 391035");
    for (const Origin origin : {Origin::typed, Origin::pasted}) {
        origins.put(Datum::YRevenueSeries, 1, {origin, "", false});
        EXPECT_EQ(found().size(), 1U);
    }
    for (const Origin origin : {Origin::imported, Origin::derived}) {
        origins.put(Datum::YRevenueSeries, 1, {origin, "", false});
        EXPECT_TRUE(found().empty());
    }
}

TEST_F(TypedFigures, AreNotWhatTheImportHasAsWell) {
    putElement(imported, Datum::YRevenueSeries, 1, 391000);
    EXPECT_TRUE(found().empty());
}

TEST_F(TypedFigures, ThatAreKeptStandAtTheirPeriod) {
    stored.put_LastFY(2023); // the import has a year more
    stored.put_City("Graz");
    imported.put_City("Linz");
    putElement(stored, Datum::YRevenueSeries, 1, 383000);
    putElement(imported, Datum::YRevenueSeries, 2, 383285);
    putElement(stored, Datum::YRevenueSeries, 10, 1);
    const auto typed = found();
    ASSERT_EQ(typed.size(), 3U);
    EXPECT_EQ(describe(typed[0]), "YRevenueSeries 2023: 383000, not 383285");
    EXPECT_EQ(describe(typed[1]), "YRevenueSeries 2014: 1 leaves the table");
    EXPECT_EQ(describe(typed[2]), "City: Graz, not Linz");
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::YRevenueSeries, 1), 391035);
    EXPECT_EQ(elementOf(imported, Datum::YRevenueSeries, 2), 383000);
    EXPECT_EQ(imported.get_City(), "Graz");
    EXPECT_EQ(imported.get_LastFY(), 2024);
}

TEST_F(TypedFigures, ThatANothingWouldReplaceAreTold) {
    putElement(imported, Datum::YRevenueSeries, 1, 0);
    EXPECT_EQ(describe(found().at(0)), "YRevenueSeries 2024: 391000, not nothing");
    EXPECT_EQ(found().at(0).imported, "");
}

TEST_F(TypedFigures, ThatAreTickedGoByLeavingThemOut) {
    stored.put_City("Graz");
    imported.put_City("Linz");
    auto typed = found();
    ASSERT_EQ(typed.size(), 2U);
    typed.pop_back();
    keepFigures(stored, typed, imported);
    EXPECT_EQ(elementOf(imported, Datum::YRevenueSeries, 1), 391000);
    EXPECT_EQ(imported.get_City(), "Linz");
}

} // namespace
} // namespace vkr
