// SPDX-License-Identifier: MIT
#include "platform/message_box.hpp"

#include <algorithm>

namespace vkr {

namespace {

std::vector<MessageAnswer> buttonsOf(int code) {
    constexpr int mask = 0x0F;
    constexpr int okCancel = 1;
    constexpr int yesNoCancel = 3;
    switch (code & mask) {
    case okCancel:
        return {MessageAnswer::ok, MessageAnswer::cancel};
    case yesNoCancel:
        return {MessageAnswer::yes, MessageAnswer::no, MessageAnswer::cancel};
    case message_box::yesNo:
        return {MessageAnswer::yes, MessageAnswer::no};
    default:
        return {MessageAnswer::ok};
    }
}

MessageIcon iconOf(int code) {
    constexpr int mask = 0x70;
    constexpr int critical = 16;
    constexpr int information = 64;
    switch (code & mask) {
    case critical:
        return MessageIcon::critical;
    case message_box::questionIcon:
        return MessageIcon::question;
    case message_box::exclamationIcon:
        return MessageIcon::warning;
    case information:
        return MessageIcon::information;
    default:
        return MessageIcon::none;
    }
}

} // namespace

MessageBoxLook messageBoxLook(int code) {
    constexpr int defaultMask = 0x300;
    MessageBoxLook look{buttonsOf(code), iconOf(code)};
    const auto wanted =
        static_cast<std::size_t>((code & defaultMask) / message_box::defaultSecondButton);
    look.chosen = look.buttons[std::min(wanted, look.buttons.size() - 1)];
    for (const auto answer : {MessageAnswer::no, MessageAnswer::cancel})
        if (std::ranges::find(look.buttons, answer) != look.buttons.end())
            look.closed = answer;
    return look;
}

} // namespace vkr
