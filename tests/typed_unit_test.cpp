// SPDX-License-Identifier: MIT
#include "binding/typed_unit.hpp"
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "platform/virtual_desktop.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(TypedUnit, OfATextThatIsGoneIsNotThatOfTheNextOne) {
    VirtualDesktop desktop;
    Form form;
    buildForm(form);
    EntryContext context(form, desktop);
    TextField& field = context[controls::name];
    TypedUnit typedIn;
    const auto follow = [&](std::int32_t unit) {
        const std::int32_t before = context.unit();
        context.takeUnit(unit);
        typedIn.follow(context, field, before);
        return field.mark().reason;
    };
    const std::string refused = "This value could not be stored. ";
    field.setText("90");
    EXPECT_EQ(follow(3), refused + "It was typed in (M). Type it anew in (K).");
    field.showStored("40.00");
    EXPECT_EQ(follow(9), "");
    field.setText("90");
    EXPECT_EQ(follow(3), refused + "It was typed in (B). Type it anew in (K).");
}

} // namespace
} // namespace vkr
