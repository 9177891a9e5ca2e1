// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.hpp"
#include "platform/services.hpp"

namespace vkr::paste_list {

// The list in the preview of a block, as every face shows it.

enum Column { period, series, text, before, after, remark, columns };

// Room at the beginning, in lines of text and in figures, so that it grows with the font.
inline constexpr int linesOnShow = 14;
inline constexpr int charactersOnShow = 110;

[[nodiscard]] const std::string& textIn(const PasteLine& line, int column);
// Figures stand at the right.
[[nodiscard]] bool isFigure(int column);
// In which colour, where the text of the list is `ink` on `back`.
[[nodiscard]] Color inkOf(PasteFate fate, int column, Color ink, Color back);

} // namespace vkr::paste_list
