// SPDX-License-Identifier: MIT
// What a field has by its one row and its caption. txtGoodwill is only in the copy of the
// sources that new_datum makes.
#include "form/build_form.hpp"
#include "form/form_layout.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(NewField, StandsOnItsPageBehindItsLabelAndItsSign) {
    Form form;
    buildForm(form);
    nameFields(form);
    const auto& field = form.get<TextBox>("txtGoodwill");
    const auto& label = form.get<Label>("lblUnit", 11);
    const auto& sign = form.get<Label>("lblCurrency", 17);
    EXPECT_EQ(field.container()->id(), "fraDE(10)");
    EXPECT_EQ(field.accessibleName(), "Goodwill");
    EXPECT_EQ(field.alignment(), Alignment::right);
    EXPECT_EQ(label.caption(), "Goodwill");
    EXPECT_EQ(label.tag(), "581");
    EXPECT_EQ(label.buddy(), &field);
    EXPECT_EQ(sign.caption(), "$");
    EXPECT_LT(label.left() + label.width(), sign.left() + sign.width());
    EXPECT_EQ(field.tabIndex(), sign.tabIndex() + 1);
}

TEST(NewField, IsLoadedInItsPlaceAndFollowsTheUnit) {
    const auto table = companyFieldTable();
    const auto row = std::ranges::find(table, Datum::Goodwill, &FieldRow::datum);
    ASSERT_NE(row, table.end());
    EXPECT_EQ((row - 1)->datum, Datum::ORBEPSProj);
    EXPECT_EQ((row + 1)->datum, Datum::PriceUpdatedDate);
    EXPECT_EQ(row->page, toCompany);
    EXPECT_TRUE(row->isScaled());
}

} // namespace
} // namespace vkr
