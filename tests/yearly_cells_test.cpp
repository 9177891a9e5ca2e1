// SPDX-License-Identifier: MIT
#include "tests/support/company_on_form.hpp"
#include "tests/support/scripted_record.hpp"
#include "yearly/yearly_grid.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using namespace test;

struct YearlyCells : CompanyOnForm {
    YearlyCells() : CompanyOnForm(fullCompany()) {
        load();
        desktop.clickTab(toYearly);
    }
    void hideBar() { scene.form().get<ScrollBar>("hscrYearly").setVisible(false); }
};

TEST_F(YearlyCells, LeavingAnUnchangedOneIsNoChange) {
    const auto before = company->clone();
    for (const auto& column : yearlyColumns())
        for (int row = 0; row < YearlyGrid::rows; ++row)
            EXPECT_NE(
                after(std::string(column.cells.name) + "(" + std::to_string(row) + ")", "{TAB}"),
                "");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_TRUE(sameAs(*before, *company));
}

TEST_F(YearlyCells, MoneyIsTypedInTheUnitOnShow) {
    const struct {
        int option;
        const char* typed;
        double stored;
    } rows[] = {{0, "1500", 1.5}, {1, "1500", 1500}, {2, "1.5", 1500}, {2, "394.33", 394330}};
    for (const auto& row : rows) {
        desktop.clickTab(toOptions);
        desktop.click("optCurrency", row.option);
        typeOver(scene, "txtSales(4)", row.typed);
        EXPECT_EQ(elementOf(*company, "YRevenueSeries", 6), row.stored) << row.typed;
    }
}

TEST_F(YearlyCells, WithoutTheBarTheLowsAreTheLastColumn) {
    hideBar();
    EXPECT_EQ(after("txtLow(10)", "~"), "txtLow(10)");
    EXPECT_EQ(after("txtLow(10)", "{DOWN}"), "txtLow(10)");
    EXPECT_EQ(after("txtLow(4)", "^{RIGHT}"), "txtSales(4)");
    EXPECT_EQ(after("txtSales(4)", "^{LEFT}"), "txtLow(4)");
    EXPECT_EQ(after("txtSales(4)", "^{END}"), "txtLow(4)");
    EXPECT_EQ(after("txtSales(0)", "^{UP}"), "txtLow(10)");
    EXPECT_EQ(after("txtLow(10)", "^{DOWN}"), "txtSales(0)");
}

TEST_F(YearlyCells, RightFromTheLowsPansToTheShares) {
    auto& bar = scene.form().get<ScrollBar>("hscrYearly");
    EXPECT_EQ(after("txtLow(4)", "^{RIGHT}"), "txtCSO(4)");
    EXPECT_EQ(bar.value(), bar.maximum());
}

TEST_F(YearlyCells, KeysOfTheGridThatLeadNowhereMoveNoCaret) {
    EXPECT_EQ(after("txtCSO(3)", "^{END}"), "txtCSO(3)");
    EXPECT_EQ(scene.field("txtCSO", 3).selText(), scene.text("txtCSO", 3));
}

TEST_F(YearlyCells, AStepToTheNextColumnLeavesOneCellAlone) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    for (const char* key : {"~", "{DOWN}"}) {
        goTo(scene, "txtSales(10)");
        record->log.clear();
        desktop.type(key);
        EXPECT_EQ(desktop.focusedId(), "txtYOption(0)") << key;
        EXPECT_EQ(record->logged("write "), std::vector<std::string>{"write YRevenueSeries"});
    }
}

// One press moves once; at the ends of the grid it stores the figure where it stands.
TEST_F(YearlyCells, EnterOnTheVeryLastOneStoresTheFigureAndSelectsIt) {
    for (const char* keys : {"~", "{DOWN}"}) {
        EXPECT_EQ(after("txtCSO(10)", std::string("^a{DEL}12.5") + keys), "txtCSO(10)");
        EXPECT_EQ(elementOf(*company, "YCSOSeries", 0), 12.5);
        EXPECT_EQ(scene.text("txtCSO", 10), "12.50");
        EXPECT_EQ(scene.field("txtCSO", 10).selText(), "12.50");
        putElement(*company, "YCSOSeries", 0, 0);
        desktop.type("7{TAB}");
    }
    EXPECT_EQ(after("txtSales(0)", "^a{DEL}3+~"), "txtSales(0)");
    EXPECT_EQ(elementOf(*company, "YRevenueSeries", 10), 3);
}

TEST_F(YearlyCells, ATextWithoutANumberIsNoFigure) {
    pasteOver(scene, "txtYEPS(9)", "n.m.");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 0);
    EXPECT_EQ(scene.text("txtYEPS", 9), "");
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(YearlyCells, PricesTypedAsFractionsAreStoredAsDecimals) {
    typeOver(scene, "txtHigh(9)", "3 1/8");
    EXPECT_EQ(elementOf(*company, "YHighSeries", 1), 3.125);
    EXPECT_EQ(scene.text("txtHigh", 9), "3.125");
    desktop.clickTab(toOptions);
    desktop.click("optDisplay", 1);
    typeOver(scene, "txtLow(9)", "2.5");
    EXPECT_EQ(elementOf(*company, "YLowSeries", 1), 2.5);
    EXPECT_EQ(scene.text("txtLow", 9), "2 1/2");
}

TEST_F(YearlyCells, TheOptionRowsWriteWhatTheyShow) {
    const struct {
        const char* option;
        int index;
        const char* cell;
        const char* series;
    } rows[] = {{"optPTI", 1, "txtYOption(8)", "YTaxRateSeries"},
                {"optPTI", 0, "txtYOption(8)", "YPTISeries"},
                {"optCommEq", 1, "txtYOption2(8)", "YBookValSeries"},
                {"optCommEq", 0, "txtYOption2(8)", "YCommEqSeries"}};
    for (const auto& row : rows) {
        desktop.clickTab(toOptions);
        desktop.click(row.option, row.index);
        const auto before = company->clone();
        typeOver(scene, row.cell, "-12.25");
        EXPECT_EQ(elementOf(*company, row.series, 2), -12.25);
        EXPECT_EQ(changedData(*before, *company),
                  std::vector<std::string>{std::string(row.series) + "(2)"});
    }
}

} // namespace
} // namespace vkr
