// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace vkr {

// What the text of one cell of a block is by itself, before anything is known of its neighbours.

[[nodiscard]] bool isBlank(std::string_view text);
[[nodiscard]] bool isNoFigure(std::string_view text);
// With a letter in it: "100-50" is no head of anything.
[[nodiscard]] bool isText(std::string_view text);
// Web tables give these a cell of their own beside the figure.
[[nodiscard]] bool isCurrencySign(std::string_view text);
[[nodiscard]] bool isClosingSign(std::string_view text);
// "2021", "FY 2021", "FY2021", "Fiscal 2021".
[[nodiscard]] std::optional<int> yearIn(std::string_view text);

} // namespace vkr
