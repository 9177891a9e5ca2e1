// SPDX-License-Identifier: MIT
#include "platform/form.hpp"
#include "platform/native_edits.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

TEST(OfferedEdit, IsCleanedWithTheCaretBehindTheSameText) {
    Form form;
    auto& box = form.add<TextBox>("txtName");
    const auto taken = offeredEdit(box, "Acme\nInc.", "Acme\n", false);
    EXPECT_EQ(taken.text, "Acme Inc.");
    EXPECT_EQ(taken.caret, 5);
}

TEST(OfferedEdit, KeepsBreaksInAFieldOfSeveralLines) {
    Form form;
    auto& box = form.add<TextBox>("txtNotes");
    box.setMultiLine(true);
    EXPECT_EQ(offeredEdit(box, "one\ntwo", "one\n", false).text, "one\ntwo");
}

TEST(OfferedEdit, IsCutToTheRoomButForAnUndo) {
    Form form;
    auto& box = form.add<TextBox>("txtSymbol");
    box.setText("ab");
    box.setMaxLength(3);
    EXPECT_EQ(offeredEdit(box, "abcd", "abcd", false).text, "abc");
    EXPECT_EQ(offeredEdit(box, "abcd", "abcd", true).text, "abcd");
}

TEST(PutBetween, IsWhatReplacedTheSelection) {
    EXPECT_EQ(putBetween("12", "56", "12abc56"), "abc");
    EXPECT_EQ(putBetween("", "", "abc"), "abc");
    EXPECT_EQ(putBetween("1", "1", "111"), "1");
}

TEST(PutBetween, IsNothingWhereMoreHasChangedOrNothingWasPutIn) {
    EXPECT_EQ(putBetween("12", "56", "1256"), std::nullopt);
    EXPECT_EQ(putBetween("12", "56", "13abc56"), std::nullopt);
    EXPECT_EQ(putBetween("12", "56", "12abc57"), std::nullopt);
    EXPECT_EQ(putBetween("12", "21", "121"), std::nullopt) << "one figure can't be of both sides";
}

} // namespace
} // namespace vkr
