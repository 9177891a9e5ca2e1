// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// The cells of a block, row by row; every row is as long as the longest one.
using CellTexts = std::vector<std::vector<std::string>>;

inline constexpr std::size_t mostBlockCells = 20'000;
inline constexpr std::size_t mostBlockBytes = 2'000'000;

// The cells of a text as spreadsheets and web tables put it on the clipboard. Tabs part cells, line
// breaks (LF, CR, CRLF) rows; one break at the end closes the last row. A cell that begins with a
// quotation mark is quoted where the closing mark is the end of the cell: tabs and breaks in it are
// its own, and two marks are one. Anywhere else a quotation mark is text.
[[nodiscard]] CellTexts cellsOf(std::string_view text);

// More than a person copies on purpose, of cells once every row is as long as the longest one, or
// of bytes.
[[nodiscard]] bool isTooLargeABlock(std::string_view text);

// Whether any cell but the first one holds something.
[[nodiscard]] bool isBlock(const CellTexts& cells);

// The same text again: cells that hold tabs, breaks or begin with a quotation mark are quoted. No
// break stands behind the last row, unless that row is one empty cell.
[[nodiscard]] std::string clipboardText(const CellTexts& cells);

} // namespace vkr
