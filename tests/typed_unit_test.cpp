// SPDX-License-Identifier: MIT
#include "binding/typed_unit.hpp"
#include "platform/virtual_desktop.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

struct TypedUnitTest : testing::Test {
    // The unit changes. What the mark says then.
    std::string follow(std::int32_t unit) {
        const std::int32_t before = context.unit();
        context.takeUnit(unit);
        typedIn.follow(context, field, before);
        return field.mark().reason;
    }

    VirtualDesktop desktop;
    Form form;
    EntryContext context{form, desktop};
    TextField& field = form.add<TextBox>("txtTotalDebt");
    TypedUnit typedIn;
    const std::string refused = "This value could not be stored.";
};

TEST_F(TypedUnitTest, OfATextThatIsGoneIsNotThatOfTheNextOne) {
    field.setText("90");
    EXPECT_EQ(follow(3), refused + " It was typed in (M). Type it anew in (K).");
    field.showStored("40.00");
    EXPECT_EQ(follow(9), "");
    field.setText("90");
    EXPECT_EQ(follow(3), refused + " It was typed in (B). Type it anew in (K).");
}

TEST_F(TypedUnitTest, WhatIsTypedOnceItIsBackIsAnotherEntry) {
    field.setText("90");
    follow(3);
    field.setText("900");
    EXPECT_EQ(follow(6), refused);
    field.lookAtText(); // left, and refused again
    field.setMark({MarkKind::unstored, refused});
    EXPECT_NE(follow(9), refused);
    EXPECT_TRUE(typedIn.waits(field));
    field.setText("5");
    EXPECT_FALSE(typedIn.waits(field));
}

} // namespace
} // namespace vkr
