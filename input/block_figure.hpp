// SPDX-License-Identifier: MIT
#pragma once

#include "input/clipboard_cells.hpp"
#include "input/number_text.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// Which decimal mark a block has. A cell with both marks, with one of them twice, or with one that
// stands elsewhere than before exactly three digits leaves no doubt, and speaks for all others.
struct BlockMarks {
    char decimal = '.'; // '.' or ','
    bool isSure = true; // false: cells such as "1,234" can be read both ways
};

// `own`: the decimal mark of the form, which counts where the block says nothing.
[[nodiscard]] BlockMarks marksOf(const CellTexts& cells, char own);

enum class CellKind {
    empty,
    figure,
    dash,         // alone: none, or 0
    notAvailable, // "n/a"
    hidden,       // "####": the column of the spreadsheet was too narrow
    failed,       // "#DIV/0!"
    other,        // a text, a date, two figures
};

// What a cell of a block holds.
struct CellFigure {
    CellKind kind = CellKind::empty;
    NumericText number;       // of a figure: plain decimal text, nothing left out
    bool brackets = false;    // a loss in brackets
    bool openBracket = false; // the closing one is missing
    bool minusBehind = false;
    std::string currency; // sign or word that stood beside the figure
    bool percent = false;
    bool exponent = false; // "1.5E+6"
    bool fraction = false; // "3 1/8"
    // What the figure would be with the other decimal mark, where that can't be told.
    std::optional<std::string> otherReading;
};

// A figure is read as a whole or not at all: "100-50" and "2024-01-05" are none. `exponent` is the
// power of ten by which it is going to be multiplied.
[[nodiscard]] CellFigure readCell(std::string_view text, NumericKind kind, int exponent,
                                  const BlockMarks& marks);

} // namespace vkr
