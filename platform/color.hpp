// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vkr {

// 24-bit blue-green-red (&HBBGGRR), or a system colour (high bit set).
using Color = std::uint32_t;

namespace colors {
inline constexpr Color buttonFace = 0x8000000F; // the system colour of button faces
inline constexpr Color white = 0xFFFFFF;
inline constexpr Color black = 0x000000;
inline constexpr Color blue = 0xFF0000;
inline constexpr Color yellow = 0x00FFFF;
inline constexpr Color paleCyan = 0xFFFFC0; // start value of the three shades
} // namespace colors

constexpr bool isSystemColor(Color color) {
    return (color & 0x80000000U) != 0;
}
constexpr int redOf(Color color) {
    return static_cast<int>(color & 0xFFU);
}
constexpr int greenOf(Color color) {
    return static_cast<int>((color >> 8U) & 0xFFU);
}
constexpr int blueOf(Color color) {
    return static_cast<int>((color >> 16U) & 0xFFU);
}
constexpr Color colorOf(int red, int green, int blue) {
    return static_cast<Color>(red) | (static_cast<Color>(green) << 8U) |
           (static_cast<Color>(blue) << 16U);
}

} // namespace vkr
