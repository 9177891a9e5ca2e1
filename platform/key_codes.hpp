// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vkr {

using KeyCode = std::int16_t;

// Key codes of key-down and key-up events; letters and digits have their upper-case character.
namespace keys {
inline constexpr KeyCode none = 0;
inline constexpr KeyCode backspace = 8;
inline constexpr KeyCode tab = 9;
inline constexpr KeyCode enter = 13;
inline constexpr KeyCode escape = 27;
inline constexpr KeyCode space = 32;
inline constexpr KeyCode pageUp = 33;
inline constexpr KeyCode pageDown = 34;
inline constexpr KeyCode end = 35;
inline constexpr KeyCode home = 36;
inline constexpr KeyCode left = 37;
inline constexpr KeyCode up = 38;
inline constexpr KeyCode right = 39;
inline constexpr KeyCode down = 40;
inline constexpr KeyCode insert = 45;
inline constexpr KeyCode del = 46;
inline constexpr KeyCode menu = 93;
inline constexpr KeyCode decimal = 110; // of the keypad, whatever mark it types
inline constexpr KeyCode f1 = 112;
inline constexpr KeyCode f4 = 115;
inline constexpr KeyCode f10 = 121;
inline constexpr KeyCode f12 = 123;
inline constexpr KeyCode apostrophe = 222;
} // namespace keys

// A key that is held down is pressed again and again.
enum class KeyDown { first, repeated };

// Shift state of a key event, to be added up.
namespace shifts {
inline constexpr int none = 0;
inline constexpr int shift = 1;
inline constexpr int control = 2;
inline constexpr int alt = 4;
} // namespace shifts

enum class MouseButton { left = 1, right = 2, middle = 4 };

} // namespace vkr
