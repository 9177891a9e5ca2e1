// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.hpp"
#include "platform/text_field.hpp"

#include <optional>

namespace vkr {

// Of colours that are no system colours.

// Whether one colour can be told from the other: from 1, the same lightness, to 21, black on white.
[[nodiscard]] double contrast(Color one, Color other);

// The least contrast to what lies behind.
inline constexpr double textContrast = 4.5;
inline constexpr double signContrast = 3; // frames and other signs, and texts that are disabled

// `part` of the way from one colour to the other.
[[nodiscard]] Color between(Color one, Color other, double part);

// The wanted colour, made darker or lighter only as far as it takes to tell it from what is behind.
[[nodiscard]] Color readable(Color wanted, Color behind, double least = textContrast);

// Marks at fields that can be told from the usual grounds of a field, and from each other: frames,
// a wave below the text for a quiet one, and a corner for where the figure comes from.
namespace mark_colors {
inline constexpr Color unstored = colorOf(200, 0, 0);
inline constexpr Color doubtful = colorOf(200, 115, 0);
inline constexpr Color quiet = colorOf(125, 60, 190);
inline constexpr Color origin = colorOf(20, 110, 190);
} // namespace mark_colors

// Of a field with something to tell; its frame or wave is `readable` on the field.
[[nodiscard]] Color markColor(MarkKind kind);

// Where a field has the corner for the origin of its figure: at the top, where its text does not
// begin. A right-angled triangle, `inset` within the edges of the field.
struct OriginCorner {
    bool atLeft = false;
    double side = 0;
    double inset = 1;
};
// For a field of that height; nothing for one that has none.
[[nodiscard]] std::optional<OriginCorner> originCorner(const TextField& field, double height);

} // namespace vkr
