// SPDX-License-Identifier: MIT
#pragma once

#include "platform/key_codes.hpp"

#include <string_view>
#include <vector>

namespace vkr {

// One key with what is held down beside it, pressed `count` times.
struct KeyStroke {
    KeyCode key = keys::none;
    int shift = shifts::none;
    char32_t character = 0; // what it types with no Ctrl or Alt held; 0 for none
    int count = 1;

    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

// The keys of the send-keys notation, as VirtualDesktop::type() describes it, on a US
// keyboard. Throws std::invalid_argument for a malformed one.
[[nodiscard]] std::vector<KeyStroke> parseKeyNotation(std::string_view notation);

} // namespace vkr
