// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace vkr {

// What programs know data by, in every command: the table that a datum or a setting stands in, its
// key there, and figures in the unit of that table. Tables and keys are those of the CSV files.

struct FigureKey {
    std::string_view table; // company, yearly or quarterly
    std::string_view key;
    int places = 0; // how much further right the decimal point stands than in a record
};

[[nodiscard]] FigureKey figureKey(Datum datum);
// By the name of a property or a setting; of neither it is the name itself.
[[nodiscard]] FigureKey figureKey(std::string_view name);

// A figure of a record in the unit of its table; a text that is no number as it is.
[[nodiscard]] std::string inUnitOf(const FigureKey& key, const std::string& value);

// Every key once.
[[nodiscard]] std::vector<std::string> figureKeys();
// The names of the properties and settings that a key stands for in its tables, or a title or a
// name alone.
[[nodiscard]] std::vector<std::string> figuresCalled(const std::string& text);

} // namespace vkr
