// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <string_view>
#include <vector>

namespace vkr {

// Which data stand where in the three files.

// The data of one file, in the order in which they are written: rows of the company's file, columns
// of the yearly and of the quarterly one.
[[nodiscard]] const std::vector<const DatumRow*>& csvData(DatumPeriod period);
// Null where there is no such key or column.
[[nodiscard]] const DatumRow* findCsvDatum(DatumPeriod period, std::string_view key);

// How much further right the decimal point of the file stands than the record's: share counts stand
// in the company's file as they are reported, in the record in millions.
[[nodiscard]] int csvPlaces(const DatumRow& row);

// The yearly or the quarterly file: a column that says which period a row is, or a column of
// elements in its place, and one column a series.
struct CsvGrid {
    DatumPeriod period;
    std::string_view nameColumn;
    std::string_view extraColumn;
    std::string_view word; // for a period
    int upper;
};

inline constexpr CsvGrid yearlyCsv = {DatumPeriod::year, "fiscal_year", "fiscal_year_end",
                                      "fiscal year", datum_kind::Yearly::upper};
// `derived` says how a figure was come by; a record has no place for it.
inline constexpr CsvGrid quarterlyCsv = {DatumPeriod::quarter, "quarter_end", "derived", "quarter",
                                         datum_kind::Quarterly::upper};
inline constexpr std::string_view elementColumn = "element";

// Years that a row may be named by; anything else is a slip such as 25 or 20025.
inline constexpr int firstFiscalYear = 1900;
inline constexpr int lastFiscalYear = 9999;

} // namespace vkr
