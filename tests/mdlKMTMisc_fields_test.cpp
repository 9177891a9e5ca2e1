// SPDX-License-Identifier: MIT
#include "input/mdlKMTMisc.hpp"
#include "tests/support/classic_figures.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace vkr {
namespace {

constexpr double infinite = std::numeric_limits<double>::infinity();

struct Cells {
    Form form;
    std::vector<TextBox*> boxes;

    explicit Cells(int count) {
        for (int i = 0; i < count; ++i) {
            boxes.push_back(&form.add<TextBox>("cell", i, nullptr));
            boxes.back()->setText("kept");
            boxes.back()->setTag("kept tag");
        }
    }
    TextBox& box() { return *boxes.front(); }
    [[nodiscard]] std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const auto* box : boxes)
            result.push_back(box->text());
        return result;
    }
};

// --- ShowScaledValue -------------------------------------------------------------------------

TEST(ShowScaledValue, ShowsWhatTheFieldAllowsAndTagsIt) {
    struct {
        double value;
        const char* pattern;
        bool allowNegative;
        const char* shown;
    } cases[] = {
        {1234.5678, "#0.00", false, "1234.57"},
        {1234.5678, "#0.00", true, "1234.57"},
        {0, "#0.00", false, ""},
        {0, "#0.00", true, ""},
        {-0.0, "#0.00", true, ""},
        {-5.25, "#0.00", false, ""},
        {-5.25, "#0.00", true, "-5.25"},
        {0.001, "#0.00", false, "0.00"}, // there is a figure, though none of its digits shows
        {-0.001, "#0.00", true, "0.00"},
        {12.5, "#0.0\\%", true, "12.5%"},
        {0.125, "#0.00%", true, "12.50%"},
        {3.125, "#0.000", false, "3.125"},
        {1.005, "#0.00", false, "1.01"},
        {5e-324, "#0.00", false, "0.00"},
        {1e15, "#0.00", false, "1000000000000000.00"},
        {infinite, "#0.00", true, ""},
        {-infinite, "#0.00", true, ""},
        {std::nan(""), "#0.00", true, ""},
        {std::nan(""), "#0.00", false, ""},
        {5, "", false, "5"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(std::to_string(one.value) + " " + one.pattern);
        Cells cells(1);
        cells.box().setMark({MarkKind::unstored, "not stored"});
        ShowScaledValue(one.value, one.pattern, cells.box(), one.allowNegative);
        EXPECT_EQ(cells.box().text(), one.shown);
        EXPECT_EQ(cells.box().tag(), one.shown);
        EXPECT_EQ(cells.box().mark(), FieldMark());
    }
}

// --- ShowScaledValueRow ----------------------------------------------------------------------

TEST(ShowScaledValueRow, ScalesEachValueByTheFactor) {
    const double values[] = {1.5, 0, -2.25, 1234.5678};
    struct {
        double factor;
        bool allowNegative;
        std::vector<std::string> shown;
    } cases[] = {
        {1, true, {"1.50", "", "-2.25", "1234.57"}},
        {1, false, {"1.50", "", "", "1234.57"}},
        {1000, true, {"1500.00", "", "-2250.00", "1234567.80"}},
        {0.001, true, {"0.00", "", "0.00", "1.23"}},
    };
    for (const auto& one : cases)
        for (const bool perYear : {false, true}) {
            Cells cells(4);
            ShowScaledValueRow(perYear, "#0.00", values, cells.boxes, one.allowNegative, one.factor,
                               false);
            EXPECT_EQ(cells.texts(), one.shown);
            for (const auto* box : cells.boxes) {
                EXPECT_EQ(box->tag(), box->text());
                EXPECT_TRUE(box->enabled());
            }
        }
}

TEST(ShowScaledValueRow, CellsBeyondTheValuesKeepTheirTextAndAreDisabled) {
    const double values[] = {1, 2};
    Cells cells(4);
    ShowScaledValueRow(true, "#0", values, cells.boxes, true, 1, false);
    EXPECT_EQ(cells.texts(), (std::vector<std::string>{"1", "2", "kept", "kept"}));
    EXPECT_EQ(cells.boxes[2]->tag(), "kept tag");
    EXPECT_TRUE(cells.boxes[1]->enabled());
    EXPECT_FALSE(cells.boxes[2]->enabled());
    EXPECT_FALSE(cells.boxes[3]->enabled());
    // A longer series enables them again.
    const double longer[] = {1, 2, 3, 4};
    ShowScaledValueRow(true, "#0", longer, cells.boxes, true, 1, false);
    EXPECT_EQ(cells.texts(), (std::vector<std::string>{"1", "2", "3", "4"}));
    EXPECT_TRUE(cells.boxes[3]->enabled());
}

TEST(ShowScaledValueRow, MoreValuesThanCellsFillTheCells) {
    const double values[] = {1, 2, 3};
    Cells cells(2);
    ShowScaledValueRow(true, "#0", values, cells.boxes, true, 1, false);
    EXPECT_EQ(cells.texts(), (std::vector<std::string>{"1", "2"}));
    Cells none(0);
    ShowScaledValueRow(true, "#0", values, none.boxes, true, 1, false);
    EXPECT_TRUE(none.boxes.empty());
}

TEST(ShowScaledValueRow, ShowsPricesInEighths) {
    const double values[] = {3.125, 0, 12, 2.95, -0.5};
    Cells cells(5);
    ShowScaledValueRow(true, "#0.000", values, cells.boxes, true, 1, true);
    EXPECT_EQ(cells.texts(), (std::vector<std::string>{"3 1/8", "", "12", "2 1/1", "-1/2"}));
    for (const auto* box : cells.boxes)
        EXPECT_EQ(box->tag(), box->text());
}

// --- ConvertPriceText ------------------------------------------------------------------------

TEST(ConvertPriceText, TurnsDecimalsIntoEighthsAndBack) {
    struct {
        bool toDecimal;
        const char* text;
        const char* converted;
    } cases[] = {
        {false, "3.125", "3 1/8"},
        {false, "12.000", "12"},
        {false, "12.06", "12"},
        {false, "12.07", "12 1/8"},
        {false, "12.563", "12 5/8"},
        {false, "12.562", "12 1/2"},
        {false, "2.95", "2 1/1"},
        {false, "-0.5", "-1/2"},
        {false, "-2.75", "-2 3/4"},
        {false, "0.000", ""},
        {false, "-0.000", ""},
        {false, "", ""},
        {false, "9.9999", "1"},
        {false, "-12", "-12"},
        {false, "--3.5", "-3 1/2"},
        {false, "3.5-", "-3 1/2"},
        {true, "3 1/8", "3.125"},
        {true, "3/8", "0.375"},
        {true, "-1 1/2", "-1.5"},
        {true, "-1/2", "-0.5"},
        {true, "4 1/0", "4"},
        {true, "1 0/8", ""},
        {true, "-1 0/8", ""},
        {true, "12.5", "12.5"},
        {true, "", ""},
        {true, "2 1/1", "3"},
        {true, "abc", "abc"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(std::string(one.text) + (one.toDecimal ? " to decimal" : " to eighths"));
        Cells cells(1);
        cells.box().setText(one.text);
        cells.box().setTag(one.text);
        ConvertPriceText(one.toDecimal, cells.box());
        EXPECT_EQ(cells.box().text(), one.converted);
        EXPECT_EQ(cells.box().tag(), one.converted);
    }
}

TEST(ConvertPriceText, LeavesTheTagOfATextThatIsBeingTyped) {
    Cells cells(1);
    cells.box().setText("3.5");
    cells.box().setTag("1.000");
    ConvertPriceText(false, cells.box());
    EXPECT_EQ(cells.box().text(), "3 1/2");
    EXPECT_EQ(cells.box().tag(), "1.000");
}

// --- the unit factor -------------------------------------------------------------------------

TEST(ScaledForDisplay, LeavesNoStrayDigits) {
    EXPECT_EQ(ScaledForDisplay(394.33, 1000), 394330);
    EXPECT_EQ(ScaledForDisplay(0.394, 1000), 394);
    EXPECT_EQ(ScaledForDisplay(394330, 0.001), 394.33);
    EXPECT_EQ(ScaledForDisplay(72.57, 1000), 72570);
    EXPECT_EQ(ScaledForDisplay(1.005, 0.001), 0.001005);
    EXPECT_EQ(ScaledForDisplay(-1.1, 1000), -1100);
    EXPECT_EQ(ScaledForDisplay(0, 1000), 0);
    EXPECT_EQ(ScaledForDisplay(1234.5678, 1), 1234.5678);
    EXPECT_EQ(ScaledForDisplay(infinite, 1000), infinite);
    EXPECT_TRUE(std::isnan(ScaledForDisplay(std::nan(""), 0.001)));
    EXPECT_EQ(ScaledForDisplay(5e-324, 1), 5e-324);
}

TEST(UnscaledFromText, StoresExactlyWhatWasTyped) {
    EXPECT_EQ(UnscaledFromText("394.33", 0.001), 394330);
    EXPECT_EQ(UnscaledFromText("394.33", 1), 394.33);
    EXPECT_EQ(UnscaledFromText("394330", 1000), 394.33);
    EXPECT_EQ(UnscaledFromText("1500", 1000), 1.5);
    EXPECT_EQ(UnscaledFromText("-1500", 1000), -1.5);
    EXPECT_EQ(UnscaledFromText("", 1000), 0);
    EXPECT_EQ(UnscaledFromText("0", 0.001), 0);
    EXPECT_EQ(UnscaledFromText("1e308", 0.001), infinite);
    EXPECT_EQ(UnscaledFromText("-1e308", 0.001), -infinite);
}

TEST(UnscaledFromText, IsTheNearestDoubleForEveryFigureOfFifteenDigits) {
    unsigned long long state = 88172645463325252ULL;
    for (int i = 0; i < 20000; ++i) {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        std::string digits =
            std::to_string(state % 900'000'000'000'000ULL + 100'000'000'000'000ULL);
        const auto point = state / 7 % 15;
        if (point > 0)
            digits.insert(static_cast<std::size_t>(point), ".");
        ASSERT_EQ(UnscaledFromText(digits, 1000), test::readFigure(digits + "e-3"));
        ASSERT_EQ(UnscaledFromText(digits, 0.001), test::readFigure(digits + "e3"));
        // Shown again in the same unit it is the figure that was typed.
        ASSERT_EQ(ScaledForDisplay(UnscaledFromText(digits, 1000), 1000), test::readFigure(digits))
            << digits;
    }
}

TEST(ComputeUnitFactor, FollowsTheUnitOfTheRecord) {
    struct {
        int stored;
        int written;
        const char* shown;
    } cases[] = {{3, 3, "1500.00"}, {6, 6, "1.50"}, {0, 6, "1.50"}, {9, 9, "0.00"}};
    for (const auto& one : cases) {
        EntryScene scene;
        const auto company = test::datedCompany(static_cast<std::int16_t>(one.stored));
        company->put_TotalDebt(1.5);
        scene.load(company);
        EXPECT_EQ(scene.text("txtTotalDebt"), one.shown) << one.stored;
        EXPECT_EQ(company->get_Settings()->get(setting::unit).toLong(), one.written);
        EXPECT_FALSE(scene.entry->get_blnDirty());
    }
}

} // namespace
} // namespace vkr
