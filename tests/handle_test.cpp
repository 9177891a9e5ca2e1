// SPDX-License-Identifier: MIT
#include "form/handle.hpp"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

namespace vkr {
namespace {

constexpr Handle<TextBox> name{"txtName"};
constexpr HandleArray<Label> years{"lblYear"};

struct HandledForm : testing::Test {
    Form form;
    TextBox& box = form.add<TextBox>("txtName");
    Label& first = form.add<Label>("lblYear", 0);
    Label& third = form.add<Label>("lblYear", 2);
};

TEST_F(HandledForm, AHandleFindsItsControl) {
    EXPECT_EQ(&name.in(form), &box);
    EXPECT_EQ(&years[2].in(form), &third);
    EXPECT_EQ(ControlId(name).find(form), &box);
    EXPECT_EQ(ControlId(years[1]).find(form), nullptr);
}

TEST_F(HandledForm, AHandleThrowsWhereTheFormHasNoSuchControl) {
    EXPECT_THROW(static_cast<void>(years[1].in(form)), std::out_of_range);
    EXPECT_THROW(static_cast<void>(Handle<Label>{"txtName"}.in(form)), std::out_of_range)
        << "of another kind";
}

TEST_F(HandledForm, AHandleKnowsItsControlByNameAndIndex) {
    EXPECT_TRUE(name.is(box));
    EXPECT_FALSE(name.is(first));
    EXPECT_TRUE(years[0].is(first));
    EXPECT_FALSE(years[0].is(third));
}

TEST_F(HandledForm, AnArrayHoldsTheElementsThatThereAre) {
    EXPECT_TRUE(years.holds(third));
    EXPECT_FALSE(years.holds(box));
    EXPECT_EQ(years.last(form), 2);
    EXPECT_EQ(HandleArray<Label>{"lblNone"}.last(form), -1);
    std::vector<int> found;
    for (const auto& [index, control] : years.all(form))
        found.push_back(control->index());
    EXPECT_EQ(found, (std::vector{0, 2}));
}

TEST_F(HandledForm, AHandleHasTheKindOfItsClass) {
    EXPECT_EQ(ControlId(name).kind, box.kind());
    EXPECT_EQ(ControlId(years[0]).kind, first.kind());
    EXPECT_EQ(kindOf<MenuItem>, form.add<MenuItem>("mnuAny").kind());
    EXPECT_EQ(kindOf<PictureBox>, form.add<PictureBox>("picAny").kind());
    EXPECT_EQ(kindOf<Frame>, form.add<Frame>("fraAny").kind());
}

} // namespace
} // namespace vkr
