// SPDX-License-Identifier: MIT
#include "input/mdlMenu.hpp"
#include "tests/support/component_parts.hpp"
#include "tests/support/entry_object_rows.hpp"

#include <gtest/gtest.h>
#include <set>

namespace vkr {
namespace {

using test::Choice;
using test::entryObjectRows;

class Objects : public testing::Test, protected test::ComponentParts {
  protected:
    [[nodiscard]] const Control& control(std::string_view id) const {
        for (const auto& found : form.controls())
            if (found->id() == id)
                return *found;
        throw std::out_of_range(std::string(id));
    }
    void choose(Choice choice) {
        context.incomeRow =
            choice == Choice::taxRate ? IncomeRow::taxRate : IncomeRow::preTaxIncome;
        context.equityRow =
            choice == Choice::bookValue ? EquityRow::bookValue : EquityRow::commonEquity;
    }
};

TEST(EntryObject, RowsAreInTheOrderOfTheNumbers) {
    for (int object = 0; object < dataEntryObjectCount; ++object)
        EXPECT_EQ(entryObjectRows[static_cast<std::size_t>(object)].object, object);
}

TEST(EntryObject, EachHasItsHelpText) {
    for (const auto& row : entryObjectRows)
        EXPECT_EQ(helpTextOf(static_cast<DataEntryObject>(row.object)), row.helpText)
            << "object " << row.object;
}

TEST(EntryObject, EachHasItsExtras) {
    for (const auto& row : entryObjectRows) {
        unsigned expected = meNone;
        for (const char extra : row.extras)
            expected |= extra == 'd'   ? meDate
                        : extra == 'q' ? meLastQuarterDate
                        : extra == 'y' ? meYears
                                       : meAssistant;
        EXPECT_EQ(menuExtrasOf(static_cast<DataEntryObject>(row.object)), expected)
            << "object " << row.object;
    }
}

TEST(EntryObject, NumbersOutsideOfTheEnumerationHaveTheCommonHelp) {
    for (const int number : {-1, dataEntryObjectCount, 1000}) {
        EXPECT_EQ(helpTextOf(static_cast<DataEntryObject>(number)), 1);
        EXPECT_EQ(menuExtrasOf(static_cast<DataEntryObject>(number)), unsigned{meNone});
    }
}

TEST_F(Objects, ControlsAndLabelsStandForTheirObject) {
    for (const auto& row : entryObjectRows) {
        SCOPED_TRACE(row.object);
        choose(row.choice);
        const int tab = test::isTab(row) ? row.object - doTabCompany + 1 : 0;
        for (const std::string_view id : {row.control, row.label})
            if (!id.empty()) {
                EXPECT_EQ(objects.of(control(id), tab), static_cast<DataEntryObject>(row.object))
                    << id;
            }
    }
}

// The form shows no name of who updated the record, no dilution and no share of the capital.
TEST_F(Objects, ThreeObjectsHaveNoControlOnTheForm) {
    std::set<int> seen;
    for (const auto choice : {Choice::none, Choice::taxRate, Choice::bookValue}) {
        choose(choice);
        for (const auto& shown : form.controls()) {
            if (!shown->visible())
                continue;
            const int tabs = shown->kind() == ControlKind::tabStrip ? 5 : 0;
            for (int tab = tabs == 0 ? 0 : 1; tab <= tabs; ++tab)
                if (const auto object = objects.of(*shown, tab))
                    seen.insert(*object);
        }
    }
    std::set<int> missing;
    for (int object = 0; object < dataEntryObjectCount; ++object)
        if (!seen.contains(object) && object != doVLTimelines && object != doVLSafety &&
            object != doReportingPeriod)
            missing.insert(object);
    EXPECT_EQ(missing, (std::set<int>{doUpdatedBy, doPercentDilution, doPercentTotalCap}));
}

TEST_F(Objects, EveryCellStandsForItsColumn) {
    for (const auto& row : entryObjectRows) {
        const std::string_view id = row.control;
        if (!id.ends_with("(3)"))
            continue;
        choose(row.choice);
        const auto name = id.substr(0, id.size() - 3);
        for (int i = 0; i <= form.upperBound(name); ++i)
            EXPECT_EQ(objects.of(*form.find(name, i)), static_cast<DataEntryObject>(row.object))
                << name << i;
    }
}

TEST_F(Objects, ButtonsBarsAndTheHelpFrameStandForNothing) {
    for (const auto* id : {"cmdOK", "cmdCancel", "cmdHelp", "cmdAddYear", "cmdRemoveYear",
                           "cmdAddQuarter", "hscrYearly", "vscrQuarterly", "fraDE(0)", "lblToolTip",
                           "lblMoreHelp", "shaBorder", "mnuItem(0)"})
        EXPECT_EQ(objects.of(control(id)), std::nullopt) << id;
    EXPECT_EQ(objects.of(control("tbsDataEntry"), 0), std::nullopt) << "beside the tabs";
}

// Wherever a person presses the right button on a page, there is a menu.
TEST_F(Objects, EverythingElseOnAPageStandsForSomething) {
    for (const auto& shown : form.controls()) {
        const Control* page = shown.get();
        while (page->container() != nullptr)
            page = page->container();
        const bool onPage = page->name() == "fraDE" && page->index() >= frame::firstPage;
        if (onPage && shown->kind() != ControlKind::scrollBar && shown->name() != "cmdAddQuarter") {
            EXPECT_NE(objects.of(*shown), std::nullopt) << shown->id();
        }
    }
}

TEST_F(Objects, ALabelBelongsToTheFieldItNames) {
    for (const auto& row : entryObjectRows) {
        const std::string_view label = row.label;
        const auto* field = row.control[0] == '\0'
                                ? nullptr
                                : dynamic_cast<const TextField*>(&control(row.control));
        if (field != nullptr) {
            EXPECT_EQ(objects.fieldOf(*field), field) << row.control;
        }
        if (label.empty())
            continue;
        // The head of a column names eleven cells, and no one of them.
        const bool names = field != nullptr && field->index() == Control::noIndex;
        EXPECT_EQ(objects.fieldOf(control(label)), names ? field : nullptr) << label;
    }
}

TEST_F(Objects, ACurrencyMarkBelongsToTheFieldBehindIt) {
    const std::pair<const char*, const char*> marks[] = {
        {"lblCurrency(0)", "txtCurrentPrice"},    {"lblCurrency(1)", "txt52WHigh"},
        {"lblCurrency(2)", "txt52WLow"},          {"lblCurrency(3)", "txtTotalDebt"},
        {"lblCurrency(4)", "txtEPSProj"},         {"lblCurrency(5)", "txtCommDiv"},
        {"lblCurrency(6)", "txtPreferredShares"}, {"lblCurrency(7)", "txtPrefDiv"},
        {"lblCurrency(8)", "txtLast4QEPS"},       {"lblCurrency(16)", "txtTotalCap"}};
    for (const auto& [mark, field] : marks) {
        EXPECT_EQ(objects.fieldOf(control(mark)), &control(field)) << mark;
        EXPECT_EQ(objects.of(control(mark)), objects.of(control(field))) << mark;
    }
    const std::pair<const char*, DataEntryObject> columns[] = {{"lblQCurrency(0)", doQRevenue},
                                                               {"lblQCurrency(1)", doQEPS},
                                                               {"lblQCurrency(2)", doQNetInc}};
    for (const auto& [mark, object] : columns)
        EXPECT_EQ(objects.of(control(mark)), object) << mark;
    EXPECT_EQ(objects.fieldOf(control("spnQuarter")), &control("txtLastQDate"));
}

TEST_F(Objects, AHeadOverTwoColumnsStandsForTheFirst) {
    EXPECT_EQ(objects.of(control("lblLabel(25)")), doYHigh);
}

} // namespace
} // namespace vkr
