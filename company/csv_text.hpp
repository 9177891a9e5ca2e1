// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vkr {

struct CsvCell {
    std::string text;
    int line = 1; // on which the cell begins, counted from 1
};
using CsvRow = std::vector<CsvCell>;

struct CsvFault {
    int line = 1;
    int column = 1; // cells, counted from 1
    std::string text;
    std::string reason;
};

struct CsvTable {
    std::vector<CsvRow> rows; // without the blank ones
    std::vector<CsvFault> faults;
};

// Reads separated text as RFC 4180 lays it down: cells in quotation marks may hold separators,
// line breaks and doubled quotation marks. A byte order mark is passed over; lines end with LF,
// CR or both. The separator is whichever of comma, semicolon and tab the first row uses most.
[[nodiscard]] CsvTable readCsv(std::string_view text);

// Appends a row of comma-separated cells, in quotation marks where they are needed.
void appendCsvRow(std::string& text, const std::vector<std::string>& cells);

// A spreadsheet takes a cell that begins with one of =+-@ for a formula. An apostrophe in front
// keeps it a text; a text with apostrophes of its own there gets one more, so that each comes back
// as it was.
[[nodiscard]] std::string markedAsText(const std::string& text);
[[nodiscard]] std::string_view withoutTextMark(std::string_view text);

inline constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

} // namespace vkr
