// SPDX-License-Identifier: MIT
#include "control/figure_places.hpp"
#include "control/vkr_data_entry.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/samples.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using enum Datum;

class FigurePlacesTest : public ::testing::Test {
  protected:
    FigurePlacesTest() {
        entry().put_VisibleQuarters(35);
        entry().put_objCompany(company);
    }
    VKRDataEntry& entry() { return *scene.entry; }
    TextField& field(std::string_view id) {
        return dynamic_cast<TextField&>(scene.desktop.control(id));
    }
    std::string shown(const FigurePlace& place) {
        return entry().showFigure(place) ? scene.form().activeControl()->id() : "";
    }

    // Another row of its pair is on show.
    static bool isPaired(Datum datum) {
        return datum == YTaxRateSeries || datum == YBookValSeries || datum == QTaxRateSeries;
    }

    EntryScene scene;
    std::shared_ptr<CompanyRecord> company = test::sample("AAPL");
};

TEST_F(FigurePlacesTest, AFigureIsShownWithItsTabAndGetsTheFocus) {
    EXPECT_EQ(shown({YEPSSeries, 1}), "txtYEPS(9)");
    EXPECT_EQ(entry().get_CurrentTab(), toYearly);
    EXPECT_EQ(shown({YRevenueSeries, 10}), "txtSales(0)");
    EXPECT_EQ(shown({QEPSSeries, 34}), "txtEPS(34)");
    EXPECT_EQ(entry().get_CurrentTab(), toQuarterly);
    EXPECT_EQ(shown({TotalDebt, {}}), "txtTotalDebt");
    EXPECT_EQ(entry().get_CurrentTab(), toCompany);
    EXPECT_EQ(shown({LastFYDate, {}}), "txtDateofLastFY");
    EXPECT_EQ(shown({LastQDateForGrid, {}}), "txtLastQDate");
    EXPECT_EQ(shown({CommDivAlternate, {}}), shown({CommDiv, {}}));
    EXPECT_EQ(shown({QEPSSeries, 35}), "");
    EXPECT_EQ(shown({YEPSSeries, 11}), "");
}

TEST_F(FigurePlacesTest, EveryFigureOfASampleHasItsField) {
    for (const DatumRow& row : datumTable())
        for (int element = 0; element <= row.upper && row.unit != DatumUnit::none; ++element) {
            const FigurePlace place{row.datum,
                                    isSeries(row) ? std::optional(element) : std::nullopt};
            EXPECT_TRUE(entry().showFigure(place)) << row.name << element;
        }
}

TEST_F(FigurePlacesTest, OfAPairTheRowOnShowStandsIn) {
    const std::string cell = shown({YPTISeries, 3});
    EXPECT_EQ(shown({YTaxRateSeries, 3}), cell);
    entry().setRemarks({{{YTaxRateSeries, 3}, "A low rate."}});
    EXPECT_EQ(field(cell).remark(), "") << "it is said of the other row";
    entry().put_CurrentTab(toOptions);
    scene.desktop.click("optPTI(1)");
    EXPECT_EQ(field(cell).remark(), "A low rate.");
    EXPECT_EQ(field(cell).shownMark(), MarkKind::quiet);
}

TEST_F(FigurePlacesTest, ARemarkGoesWithItsFigure) {
    entry().setRemarks({{{QRevenueSeries, 4}, "Ten times."}, {{TotalDebt, {}}, "A lot."}});
    EXPECT_EQ(field("txtRevenue(4)").remark(), "Ten times.");
    EXPECT_EQ(field("txtTotalDebt").shownReason(), "A lot.");
    entry().put_CurrentTab(toQuarterly);
    scene.desktop.spin("spnQuarter", -1); // the grid begins a quarter earlier
    EXPECT_EQ(field("txtRevenue(4)").remark(), "");
    EXPECT_EQ(field("txtRevenue(3)").remark(), "Ten times.");
    entry().setRemarks({{{QRevenueSeries, 5}, "Else."}});
    EXPECT_EQ(field("txtRevenue(3)").remark(), "");
    EXPECT_EQ(field("txtRevenue(4)").remark(), "Else.");
    EXPECT_EQ(field("txtTotalDebt").remark(), "");
}

TEST_F(FigurePlacesTest, EveryCellOnShowHasTheNotesOfItsFigure) {
    std::map<FigurePlace, std::string> remarks;
    std::map<FigurePlace, FieldOrigin> origins;
    for (const DatumRow& row : datumTable())
        for (int element = 0; isSeries(row) && element <= row.upper; ++element) {
            const std::string name = std::string(row.name) + std::to_string(element);
            remarks[{row.datum, element}] = name;
            origins[{row.datum, element}] = {"Of " + name, false};
        }
    entry().setRemarks(remarks);
    entry().setOrigins(origins);
    for (const auto& [place, remark] : remarks)
        if (!isPaired(place.datum)) {
            const TextField& cell = field(entry().fieldOf(place));
            EXPECT_EQ(cell.remark(), remark);
            EXPECT_EQ(cell.origin(), origins[place]);
        }
    entry().put_CurrentTab(toQuarterly);
    scene.desktop.spin("spnQuarter", -1);
    EXPECT_EQ(field("txtRevenue(33)").remark(), "QRevenueSeries34");
    EXPECT_EQ(field("txtRevenue(34)").remark(), "") << "it shows no quarter";
    EXPECT_EQ(field("txtRevenue(34)").origin(), FieldOrigin());
}

TEST_F(FigurePlacesTest, AnotherRecordAndClearTakeRemarksAway) {
    entry().setRemarks({{{QRevenueSeries, 4}, "Ten times."}, {{TotalDebt, {}}, "A lot."}});
    entry().put_objCompany(company->clone());
    EXPECT_EQ(field("txtRevenue(4)").remark(), "");
    EXPECT_EQ(field("txtTotalDebt").remark(), "");
    entry().setRemarks({{{QRevenueSeries, 4}, "Ten times."}, {{TotalDebt, {}}, "A lot."}});
    entry().Clear();
    EXPECT_EQ(field("txtRevenue(4)").remark(), "");
    EXPECT_EQ(field("txtTotalDebt").remark(), "");
}

// What typing does goes by marks alone: a remark stands for no text that is not stored.
TEST_F(FigurePlacesTest, ARemarkChangesNothingOfWhatIsTyped) {
    entry().setRemarks({{{YEPSSeries, 2}, "Not the quarters' sum."}});
    entry().showFigure({YEPSSeries, 2});
    scene.desktop.type("6.5{ENTER}");
    EXPECT_EQ(readSeries(*company, YEPSSeries).array().number(2), 6.5);
    EXPECT_EQ(field("txtYEPS(8)").remark(), "Not the quarters' sum.");
    EXPECT_TRUE(entry().unstoredFields().empty());
    EXPECT_TRUE(entry().doubtfulFields().empty());
    entry().put_blnDirty(false);
    entry().setRemarks({});
    EXPECT_FALSE(entry().get_blnDirty());
}

TEST_F(FigurePlacesTest, WhereAFigureComesFromGoesWithIt) {
    const FieldOrigin filed{"Imported from 0000320193-25-000079.", true};
    entry().setOrigins({{{QRevenueSeries, 4}, filed}, {{TotalDebt, {}}, {"Typed.", false}}});
    EXPECT_EQ(field("txtRevenue(4)").origin(), filed);
    EXPECT_EQ(field("txtTotalDebt").description(), "Typed.");
    EXPECT_EQ(field("txtTotalDebt").shownMark(), MarkKind::none);
    EXPECT_NE(scene.desktop.snapshot().find("from \"Typed.\""), std::string::npos);
    entry().put_CurrentTab(toQuarterly);
    scene.desktop.spin("spnQuarter", -1); // the grid begins a quarter earlier
    EXPECT_EQ(field("txtRevenue(4)").origin(), FieldOrigin());
    EXPECT_EQ(field("txtRevenue(3)").origin(), filed);
    EXPECT_NE(scene.desktop.snapshot().find("corner \"Imported"), std::string::npos);
    entry().setRemarks({{{QRevenueSeries, 4}, "Ten times."}});
    EXPECT_EQ(field("txtRevenue(3)").description(),
              "Ten times.\nImported from 0000320193-25-000079.");
    entry().put_objCompany(company->clone());
    EXPECT_EQ(field("txtRevenue(3)").origin(), FieldOrigin());
    EXPECT_EQ(field("txtTotalDebt").origin(), FieldOrigin());
}

TEST_F(FigurePlacesTest, TheFieldOfAFigureIsNamedWithoutGoingThere) {
    entry().showField("txtName");
    EXPECT_EQ(entry().fieldOf({YEPSSeries, 1}), "txtYEPS(9)");
    EXPECT_EQ(entry().fieldOf({CommDivAlternate, {}}), "txtCommDiv");
    EXPECT_EQ(entry().fieldOf({YEPSSeries, 11}), "");
    EXPECT_EQ(scene.form().activeControl()->id(), "txtName");
    EXPECT_EQ(entry().get_CurrentTab(), toCompany);
}

} // namespace
} // namespace vkr
