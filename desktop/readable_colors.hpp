// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

namespace vkr {

// Whether one colour can be told from the other: from 1, the same lightness, to 21, black on white.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

// The least contrast to what lies behind.
inline constexpr double textContrast = 4.5;
inline constexpr double signContrast = 3; // frames and other signs, and texts that are disabled

// `part` of the way from one colour to the other.
[[nodiscard]] QColor between(const QColor& one, const QColor& other, double part);

// The wanted colour, made darker or lighter only as far as it takes to tell it from what is behind.
[[nodiscard]] QColor readable(const QColor& wanted, const QColor& behind,
                              double least = textContrast);

// Marks at fields that can be told from the usual grounds of a field, and from each other: frames,
// and a wave below the text for a quiet one.
namespace mark_colors {
inline constexpr QColor unstored(200, 0, 0);
inline constexpr QColor doubtful(200, 115, 0);
inline constexpr QColor quiet(125, 60, 190);
} // namespace mark_colors

} // namespace vkr
