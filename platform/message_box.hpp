// SPDX-License-Identifier: MIT
#pragma once

#include "platform/services.hpp"

#include <vector>

namespace vkr {

enum class MessageIcon { none, critical, question, warning, information };

// What a code of Services::messageBox() asks for.
struct MessageBoxLook {
    std::vector<MessageAnswer> buttons; // from left to right
    MessageIcon icon = MessageIcon::none;
    MessageAnswer chosen = MessageAnswer::ok; // its button is the default one
    // The answer of Escape, and of closing the box. A question is not agreed to that way.
    MessageAnswer closed = MessageAnswer::ok;
};

[[nodiscard]] MessageBoxLook messageBoxLook(int code);

} // namespace vkr
