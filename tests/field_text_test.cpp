// SPDX-License-Identifier: MIT
#include "input/field_text.hpp"
#include "platform/form.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(RefusedText, ComesBackInPlaceOfWhatIsShownAnew) {
    Form form;
    auto& field = form.add<TextBox>("txtName");
    field.showStored("5");
    form.userEdit(field, "x", 1, 0);
    field.lookAtText();
    field.setMark({MarkKind::unstored, "no figure"});
    const RefusedText refused(field);
    field.showStored("7");
    refused.putBack();
    EXPECT_EQ(field.text(), "x");
    EXPECT_EQ(field.mark(), (FieldMark{MarkKind::unstored, "no figure"}));
    EXPECT_EQ(field.state().standsForStored("7"), true);
}

TEST(RefusedText, ADoubtIsAboutTheSameTextAlone) {
    Form form;
    auto& field = form.add<TextBox>("txtName");
    const FieldMark doubt{MarkKind::doubtful, "cut"};
    for (const char* shown : {"5", "7"}) {
        field.showStored("5");
        field.setMark(doubt);
        const RefusedText doubted(field);
        field.showStored(shown);
        doubted.putBack();
        EXPECT_EQ(field.text(), shown);
        EXPECT_EQ(field.mark() == doubt, field.text() == "5");
    }
}

} // namespace
} // namespace vkr
