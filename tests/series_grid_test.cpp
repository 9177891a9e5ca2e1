// SPDX-License-Identifier: MIT
#include "binding/series_grid.hpp"
#include "tests/support/classic_figures.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vkr {
namespace {

using namespace test;

// Every column of both grids, once more: the series it writes while the first or the second of a
// pair is on show, whether that follows the unit, whether a minus can be typed, and whether it is
// a price.
struct Column {
    const char* cells;
    const char* first;
    bool firstScaled;
    const char* second;
    bool minus;
    bool price;
    bool yearly;
};

constexpr Column columns[] = {
    {"txtSales", "YRevenueSeries", true, nullptr, false, false, true},
    {"txtYOption", "YPTISeries", true, "YTaxRateSeries", true, false, true},
    {"txtYNetInc", "YNetIncSeries", true, nullptr, true, false, true},
    {"txtYOption2", "YCommEqSeries", true, "YBookValSeries", true, false, true},
    {"txtYEPS", "YEPSSeries", false, nullptr, true, false, true},
    {"txtDiv", "YDividendSeries", false, nullptr, false, false, true},
    {"txtHigh", "YHighSeries", false, nullptr, false, true, true},
    {"txtLow", "YLowSeries", false, nullptr, false, true, true},
    {"txtCSO", "YCSOSeries", true, nullptr, true, false, true},
    {"txtRevenue", "QRevenueSeries", true, nullptr, false, false, false},
    {"txtEPS", "QEPSSeries", false, nullptr, true, false, false},
    {"txtQOption", "QPTISeries", true, "QTaxRateSeries", true, false, false},
    {"txtNetInc", "QNetIncSeries", true, nullptr, true, false, false},
};

int rowsOf(const Column& column) {
    return column.yearly ? 11 : 9;
}

int elementOfRow(const Column& column, int row) {
    return column.yearly ? 10 - row : row;
}

std::string cellId(const char* cells, int row) {
    return std::string(cells) + "(" + std::to_string(row) + ")";
}

std::shared_ptr<CompanyRecord> gridCompany(int unit, bool second = false) {
    auto company = datedCompany(static_cast<std::int16_t>(unit));
    company->get_Settings()->put(setting::taxRate, second);
    company->get_Settings()->put(setting::bookValue, second);
    return company;
}

TEST(GridCells, AFigureLandsInTheElementOfItsRowAlone) {
    for (const int unit : {3, 6, 9})
        for (const bool second : {false, true}) {
            EntryScene scene;
            const auto company = gridCompany(unit, second);
            scene.load(company);
            int number = 1000;
            for (const Column& column : columns) {
                const bool other = second && column.second != nullptr;
                const char* series = other ? column.second : column.first;
                const bool scaled = column.firstScaled && !other;
                for (int row = 0; row < rowsOf(column); ++row) {
                    const auto id = cellId(column.cells, row);
                    SCOPED_TRACE(id + " in unit " + std::to_string(unit));
                    const auto before = company->clone();
                    scene.entry->put_blnDirty(false);
                    const std::string typed = std::to_string(++number) + ".33";
                    typeOver(scene, id, typed);
                    const int element = elementOfRow(column, row);
                    const char* exponent = !scaled || unit == 6 ? "" : unit == 3 ? "e-3" : "e3";
                    EXPECT_EQ(elementOf(*company, series, element), readFigure(typed + exponent));
                    EXPECT_EQ(changedData(*before, *company),
                              std::vector<std::string>{std::string(series) + "(" +
                                                       std::to_string(element) + ")"});
                    EXPECT_EQ(textOf(scene, id), typed + (column.price ? "0" : ""));
                    EXPECT_EQ(scene.field(column.cells, row).tag(), textOf(scene, id));
                    EXPECT_TRUE(scene.entry->get_blnDirty());
                    EXPECT_EQ(markOf(scene, id), "");
                    putElement(*company, series, element, 0);
                }
            }
        }
}

TEST(GridCells, TheComponentsColumnsAreTheseInThisOrder) {
    EntryScene scene;
    std::vector<std::string> expected;
    for (const Column& column : columns)
        expected.emplace_back(column.cells);
    std::vector<std::string> found;
    for (const TextField* field : allFields(scene))
        if (field->index() == 0)
            found.push_back(field->name());
    EXPECT_EQ(found, expected);
}

TEST(GridCells, ShowTheirElementsInTheUnit) {
    for (const int unit : {3, 6, 9})
        for (const bool second : {false, true}) {
            EntryScene scene;
            const auto company = gridCompany(unit, second);
            double figure = 0;
            for (const auto& row : datumTable())
                if (isSeries(row))
                    for (int e = 0; e <= (row.name.starts_with('Y') ? 10 : 34); ++e)
                        putElement(*company, row.name, e, figure += 1000);
            scene.load(company);
            for (const Column& column : columns)
                for (int row = 0; row < rowsOf(column); ++row) {
                    const bool other = second && column.second != nullptr;
                    // Quarterly earnings take the unit on loading, and only then.
                    const bool scaled =
                        (column.firstScaled && !other) || column.cells == std::string("txtEPS");
                    const double stored = elementOf(*company, other ? column.second : column.first,
                                                    elementOfRow(column, row));
                    const double shown = !scaled || unit == 6 ? stored
                                         : unit == 3          ? stored * 1000
                                                              : stored / 1000;
                    EXPECT_EQ(textOf(scene, cellId(column.cells, row)),
                              std::to_string(static_cast<long long>(shown)) +
                                  (column.price ? ".000" : ".00"))
                        << cellId(column.cells, row);
                }
            EXPECT_FALSE(scene.entry->get_blnDirty());
        }
}

TEST(GridCells, UntouchedOnesKeepTheStoredFigure) {
    EntryScene scene;
    const auto company = gridCompany(9);
    for (const auto& row : datumTable())
        if (isSeries(row))
            for (int e = 0; e <= (row.name.starts_with('Y') ? 10 : 34); ++e)
                putElement(*company, row.name, e, (e % 3 == 0 ? -1 : 1) * (1234.5678 + e / 7.0));
    scene.load(company);
    const auto before = company->clone();
    for (const Column& column : columns)
        for (int row = 0; row < rowsOf(column); ++row) {
            goTo(scene, cellId(column.cells, row));
            // Typed to something else and back before leaving.
            scene.desktop.type("{END}7{BACKSPACE}{TAB}");
        }
    EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(GridCells, AnUntouchedCellIsNotRewrittenWhenItsNeighbourIs) {
    EntryScene scene;
    const auto company = gridCompany(3);
    putElement(*company, "YEPSSeries", 2, 1.23456789);
    putElement(*company, "YEPSSeries", 3, -0.00123);
    scene.load(company);
    typeOver(scene, "txtYEPS(9)", "4.5");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 1), 4.5);
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 2), 1.23456789);
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 3), -0.00123);
}

TEST(GridCells, ReadNegativesFractionsAndPastedFigures) {
    struct {
        std::string text;
        double value;
        double priceValue;
        std::string leftOut = {};
        std::string priceLeftOut = {};
    } cases[] = {
        {"-12.5", -12.5, -12.5},
        {"(1,234.5)", -1234.5, -1234.5},
        {"1,234.5", 1234.5, 1234.5},
        {"$5", 5, 5},
        {"\u22125", -5, -5},
        {"abc", 0, 0, "abc", "abc"},
        {"12 abc", 12, 12, "abc", "abc"},
        {"3 1/8", 3, 3.125, "1/8"},
        {"\u215b", 0, 0.125, "\u215b"},
        {"1e3", 1000, 1000},
        {"5\t6", 0, 0}, // refused: the emptied cell stays empty
        {"", 0, 0},
    };
    EntryScene scene;
    const auto company = gridCompany(6);
    scene.load(company);
    for (const Column& column : columns)
        for (const auto& one : cases) {
            const auto id = cellId(column.cells, 3);
            SCOPED_TRACE(id + " " + one.text);
            typeOver(scene, id, "77");
            pasteOver(scene, id, one.text);
            const double read = column.price ? one.priceValue : one.value;
            const bool taken = column.minus || read >= 0;
            const double value = taken ? read : 77;
            const bool isNoAmount =
                unitOf(datumNamed(column.first)) == DatumUnit::shares; // which has no currency
            const std::string leftOut = isNoAmount && one.text == "$5" ? "$"
                                        : column.price                 ? one.priceLeftOut
                                                                       : one.leftOut;
            EXPECT_EQ(elementOf(*company, column.first, elementOfRow(column, 3)), value);
            EXPECT_EQ(scene.field(column.cells, 3).isUnstored(), !taken);
            EXPECT_EQ(scene.field(column.cells, 3).isDoubtful(), taken && !leftOut.empty());
            EXPECT_NE(markOf(scene, id).find(leftOut), std::string::npos);
            EXPECT_EQ(textOf(scene, id).empty(), value == 0);
            // It stands while nobody types.
            typeAt(scene, id, "{TAB}");
            EXPECT_EQ(elementOf(*company, column.first, elementOfRow(column, 3)), value);
        }
}

TEST(GridCells, WhatCannotBeStoredStaysTypedAndMarked) {
    EntryScene scene;
    const auto company = std::make_shared<ScriptedRecord>(gridCompany(9));
    scene.load(company);
    const auto before = company->company->clone();
    for (const Column& column : columns) {
        const auto id = cellId(column.cells, 2);
        SCOPED_TRACE(id);
        std::vector<std::string> tooLarge{"1e400", "-1e400"};
        if (column.firstScaled)
            tooLarge.emplace_back("1e308"); // billions
        for (const auto& typed : tooLarge) {
            pasteOver(scene, id, typed);
            EXPECT_EQ(textOf(scene, id), typed);
            EXPECT_EQ(markOf(scene, id), "This number is too large and was not stored.");
        }
        company->failing = {"write " + std::string(column.first)};
        typeOver(scene, id, "250");
        EXPECT_EQ(textOf(scene, id), "250");
        EXPECT_EQ(markOf(scene, id),
                  "This value could not be stored. write " + std::string(column.first) + " fails");
        ASSERT_EQ(scene.entry->unstoredFields().size(), 1U);
        EXPECT_EQ(scene.entry->unstoredFields()[0].control, id);
        EXPECT_EQ(scene.entry->unstoredFields()[0].text, "250");
        EXPECT_EQ(changedData(*before, *company->company), std::vector<std::string>{});
        company->failing.clear();
        goTo(scene, id); // tried again
        scene.desktop.type("{TAB}");
        EXPECT_EQ(markOf(scene, id), "");
        EXPECT_EQ(elementOf(*company, column.first, elementOfRow(column, 2)),
                  column.firstScaled ? 250'000 : 250);
        putElement(*company, column.first, elementOfRow(column, 2), 0);
    }
}

TEST(GridCells, AnUnstoredOneIsCalledByItsColumnAndItsRow) {
    struct {
        const char* id;
        const char* label;
    } cells[] = {
        {"txtSales(9)", "Revenue (K) 2025"},
        {"txtYOption(0)", "Tax Rate (%) 2016"},
        {"txtYNetInc(1)", "Net Inc. (K) 2017"},
        {"txtYOption2(2)", "Book Value 2018"},
        {"txtYEPS(3)", "Basic EPS 2019"},
        {"txtDiv(4)", "Dividends Declared 2020"},
        {"txtHigh(5)", "High 2021"},
        {"txtLow(6)", "Low 2022"},
        {"txtCSO(10)", "Shares Outstanding (K) 2026"},
        {"txtRevenue(0)", "Revenue (K) 9/30/2026"},
        {"txtEPS(1)", "Earnings Per Share 6/30/2026"},
        {"txtQOption(2)", "Tax Rate (%) 3/31/2026"},
        {"txtNetInc(3)", "Net Income (K) 12/31/2025"},
    };
    EntryScene scene;
    scene.load(gridCompany(3, true));
    for (const auto& cell : cells) {
        pasteOver(scene, cell.id, "1e400");
        ASSERT_EQ(scene.entry->unstoredFields().size(), 1U);
        EXPECT_EQ(scene.entry->unstoredFields()[0].control, cell.id);
        EXPECT_EQ(scene.entry->unstoredFields()[0].label, cell.label);
        typeOver(scene, cell.id, "");
    }
}

TEST(GridCells, AQuarterWithoutADateKeepsItsTextMarked) {
    EntryScene scene;
    const auto company = std::make_shared<ScriptedRecord>(gridCompany(6));
    company->failing = {"read LastQDate"};
    scene.load(company);
    EXPECT_EQ(scene.text("txtLastQDate"), "");
    const auto before = company->company->clone();
    typeOver(scene, "txtEPS(0)", "1.25");
    EXPECT_EQ(textOf(scene, "txtEPS(0)"), "1.25");
    EXPECT_NE(markOf(scene, "txtEPS(0)"), "");
    EXPECT_EQ(scene.text("txtLast4QEPS"), "");
    EXPECT_EQ(changedData(*before, *company->company), std::vector<std::string>{});
    // The years do not need it.
    typeOver(scene, "txtYEPS(0)", "1.25");
    EXPECT_EQ(elementOf(*company, "YEPSSeries", 10), 1.25);
}

TEST(GridCells, AFigureTypedBackToWhatIsStoredIsNotMarked) {
    for (const bool fractions : {false, true}) {
        EntryScene scene;
        const auto company = std::make_shared<ScriptedRecord>(gridCompany(6));
        putElement(*company, Datum::QRevenueSeries, 0, 12.3456);
        company->failing = {"read LastQDate", "read LastQDateForGrid"};
        scene.load(company);
        scene.entry->put_FractionDisplay(fractions);
        ASSERT_EQ(scene.text("txtLastQDate"), "");
        const auto before = company->company->clone();
        for (const char* cell : {"txtRevenue(0)", "txtRevenue(1)"}) {
            SCOPED_TRACE(cell);
            const std::string shown = textOf(scene, cell);
            typeOver(scene, cell, "5");
            EXPECT_NE(markOf(scene, cell), "");
            typeOver(scene, cell, shown);
            EXPECT_EQ(textOf(scene, cell), shown);
            EXPECT_EQ(markOf(scene, cell), "");
        }
        EXPECT_TRUE(scene.entry->unstoredFields().empty());
        EXPECT_EQ(changedData(*before, *company->company), std::vector<std::string>{});
    }
}

TEST(GridCells, WhatIsBeingTypedIsWrittenInEighthsWhereItIsAPrice) {
    for (const Column& column : columns) {
        EntryScene scene;
        scene.load(gridCompany(6));
        typeAt(scene, cellId(column.cells, 3), "2.5");
        scene.entry->put_FractionDisplay(true);
        EXPECT_EQ(textOf(scene, cellId(column.cells, 3)), column.price ? "2 1/2" : "2.5")
            << column.cells;
    }
}

TEST(GridCells, UnderTheLockNothingIsWritten) {
    EntryScene scene;
    const auto company = gridCompany(6);
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.load(company);
    const auto before = company->clone();
    for (const Column& column : columns) {
        typeOver(scene, cellId(column.cells, 1), "5");
        pasteOver(scene, cellId(column.cells, 1), "6");
        EXPECT_EQ(textOf(scene, cellId(column.cells, 1)), "");
    }
    EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(GridCells, TheFourNewestEarningsAreSummedAtOnce) {
    EntryScene scene;
    const auto company = gridCompany(6);
    scene.load(company);
    for (int row = 3; row >= 1; --row)
        typeOver(scene, cellId("txtEPS", row), "0.1");
    EXPECT_EQ(company->get_Last4QEPS(), 0);
    typeOver(scene, "txtEPS(0)", "0.2");
    EXPECT_EQ(company->get_Last4QEPS(), 0.5);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "0.50");
    typeAt(scene, "txtEPS(2)", "-0.15~");
    EXPECT_EQ(company->get_Last4QEPS(), 0.25);
    EXPECT_EQ(scene.desktop.focusedId(), "txtEPS(3)");
}

// --- keys ------------------------------------------------------------------------------------

// Where a key leads from the ends of a column, "" for staying.
TEST(GridKeys, EnterAndArrowsWalkDownAColumnAndIntoTheNext) {
    EntryScene scene;
    scene.load(gridCompany(6));
    for (std::size_t i = 0; i < std::size(columns); ++i) {
        const Column& column = columns[i];
        const int last = rowsOf(column) - 1;
        const bool hasLeft = i > 0 && columns[i - 1].yearly == column.yearly;
        const bool hasRight = i + 1 < std::size(columns) && columns[i + 1].yearly == column.yearly;
        const auto press = [&](int row, const char* keys) {
            typeAt(scene, cellId(column.cells, row), keys);
            return scene.desktop.focusedId();
        };
        SCOPED_TRACE(column.cells);
        for (const char* down : {"~", "{DOWN}"}) {
            for (int row = 0; row < last; ++row)
                EXPECT_EQ(press(row, down), cellId(column.cells, row + 1));
            EXPECT_EQ(press(last, down),
                      hasRight ? cellId(columns[i + 1].cells, 0) : cellId(column.cells, last));
        }
        for (const char* up : {"+~", "{UP}"}) {
            for (int row = 1; row <= last; ++row)
                EXPECT_EQ(press(row, up), cellId(column.cells, row - 1));
            EXPECT_EQ(press(0, up),
                      hasLeft ? cellId(columns[i - 1].cells, last) : cellId(column.cells, 0));
        }
        if (hasRight) {
            EXPECT_EQ(press(4, "^{RIGHT}"), cellId(columns[i + 1].cells, 4));
        }
        if (hasLeft) {
            EXPECT_EQ(press(4, "^{LEFT}"), cellId(columns[i - 1].cells, 4));
        }
        EXPECT_EQ(press(4, "^{DOWN}"), cellId(column.cells, 5));
        EXPECT_EQ(press(4, "^{UP}"), cellId(column.cells, 3));
        EXPECT_EQ(press(4, "^{HOME}"), cellId(column.yearly ? "txtSales" : "txtRevenue", 4));
        EXPECT_EQ(press(4, "^{END}"), cellId(column.yearly ? "txtCSO" : "txtNetInc", 4));
        // Without Ctrl these move the caret within the text.
        EXPECT_EQ(press(4, "{LEFT}{RIGHT}{HOME}{END}"), cellId(column.cells, 4));
    }
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(GridKeys, CtrlPassesOverAColumnThatCannotBeRead) {
    EntryScene scene;
    const auto company = std::make_shared<ScriptedRecord>(gridCompany(6));
    company->failing = {"read YPTISeries"};
    scene.load(company);
    typeAt(scene, "txtSales(4)", "^{RIGHT}");
    EXPECT_EQ(scene.desktop.focusedId(), "txtYNetInc(4)");
    scene.desktop.type("^{LEFT}");
    EXPECT_EQ(scene.desktop.focusedId(), "txtSales(4)");
}

TEST(GridKeys, WhatIsTypedBehindCtrlTakesThePlaceOfTheNextFigure) {
    EntryScene scene;
    const auto company = gridCompany(6);
    putElement(*company, "YPTISeries", 6, 5);
    scene.load(company);
    typeAt(scene, "txtSales(4)", "^{RIGHT}7{TAB}");
    EXPECT_EQ(elementOf(*company, "YPTISeries", 6), 7);
}

TEST(GridKeys, AltWithAnArrowAndCtrlWithEnterLeadNowhere) {
    EntryScene scene;
    scene.load(gridCompany(6));
    for (const char* keys : {"%{DOWN}", "%{UP}", "^~"}) {
        typeAt(scene, "txtSales(4)", keys);
        EXPECT_EQ(scene.desktop.focusedId(), "txtSales(4)") << keys;
    }
}

TEST(GridKeys, FiguresTypedOneBelowTheOtherAreAllStored) {
    EntryScene scene;
    const auto company = gridCompany(3);
    scene.load(company);
    goTo(scene, "txtSales(0)");
    for (int row = 0; row < 11; ++row)
        scene.desktop.type(std::to_string(100 + row) + "~");
    EXPECT_EQ(scene.desktop.focusedId(), "txtYOption(0)");
    for (int row = 0; row < 11; ++row)
        EXPECT_EQ(elementOf(*company, "YRevenueSeries", 10 - row), (100 + row) / 1000.0);
    goTo(scene, "txtNetInc(8)");
    for (int row = 8; row >= 0; --row)
        scene.desktop.type(std::to_string(100 + row) + "{UP}");
    EXPECT_EQ(scene.desktop.focusedId(), "txtQOption(8)");
    for (int row = 0; row < 9; ++row)
        EXPECT_EQ(elementOf(*company, "QNetIncSeries", row), (100 + row) / 1000.0);
}

} // namespace
} // namespace vkr
