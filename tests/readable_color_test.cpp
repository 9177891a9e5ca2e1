// SPDX-License-Identifier: MIT
#include "platform/form.hpp"
#include "platform/readable_color.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(OriginCorner, IsWhereTheTextOfTheFieldDoesNotBegin) {
    Form form;
    auto& figure = form.add<TextBox>("txtFigure");
    auto& name = form.add<TextBox>("txtName");
    auto& list = form.add<ComboBox>("cmbList");
    figure.setAlignment(Alignment::right);
    for (TextField* field : {static_cast<TextField*>(&figure), static_cast<TextField*>(&name),
                             static_cast<TextField*>(&list)}) {
        EXPECT_FALSE(originCorner(*field, 23));
        field->setOrigin({"Imported.", false});
        EXPECT_FALSE(originCorner(*field, 23));
        field->setOrigin({"Imported.", true});
        const auto corner = originCorner(*field, 23);
        ASSERT_TRUE(corner);
        EXPECT_EQ(corner->atLeft, field == &figure);
        EXPECT_DOUBLE_EQ(corner->side, 6); // within the edges
    }
}

} // namespace
} // namespace vkr
