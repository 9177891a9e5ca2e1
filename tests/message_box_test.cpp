// SPDX-License-Identifier: MIT
#include "platform/message_box.hpp"

#include <gtest/gtest.h>
#include <vector>

namespace vkr {
namespace {

TEST(MessageBox, ACodeSaysButtonsIconAndTheDefaultOne) {
    using enum MessageAnswer;
    using Answers = std::vector<MessageAnswer>;
    struct Row {
        int code;
        Answers buttons;
        MessageIcon icon;
        MessageAnswer chosen;
        MessageAnswer closed;
    };
    const Row rows[] = {
        {0, {ok}, MessageIcon::none, ok, ok},
        {1 + 16, {ok, cancel}, MessageIcon::critical, ok, cancel},
        {1 + 256, {ok, cancel}, MessageIcon::none, cancel, cancel},
        {3 + 32, {yes, no, cancel}, MessageIcon::question, yes, cancel},
        {3 + 32 + 256, {yes, no, cancel}, MessageIcon::question, no, cancel},
        {3 + 32 + 512, {yes, no, cancel}, MessageIcon::question, cancel, cancel},
        {4 + 48, {yes, no}, MessageIcon::warning, yes, no},
        {4 + 48 + 256, {yes, no}, MessageIcon::warning, no, no},
        {4 + 48 + 512, {yes, no}, MessageIcon::warning, no, no}, // there are but two
        {64 + 256, {ok}, MessageIcon::information, ok, ok},
        {2 + 80, {ok}, MessageIcon::none, ok, ok}, // what is unknown
    };
    for (const Row& row : rows) {
        const MessageBoxLook look = messageBoxLook(row.code);
        EXPECT_EQ(look.buttons, row.buttons) << row.code;
        EXPECT_EQ(look.icon, row.icon) << row.code;
        EXPECT_EQ(look.chosen, row.chosen) << row.code;
        EXPECT_EQ(look.closed, row.closed) << row.code;
    }
}

} // namespace
} // namespace vkr
