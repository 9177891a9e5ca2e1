// SPDX-License-Identifier: MIT
#pragma once

#include "record/datum_table.hpp"

#include <stdexcept>
#include <string>
#include <string_view>

// One figure of a series, wherever a record comes from.
namespace vkr::test {

// The datum of a property by its name, whatever its place in the table.
inline Datum datumNamed(std::string_view name) {
    for (const auto& row : datumTable())
        if (row.name == name)
            return row.datum;
    throw std::out_of_range("no datum " + std::string(name));
}

inline double elementOf(const iVKR_Company& company, Datum series, int element) {
    return readSeries(company, series).array().number(element);
}
inline double elementOf(const iVKR_Company& company, std::string_view series, int element) {
    return elementOf(company, datumNamed(series), element);
}

inline void putElement(iVKR_Company& company, Datum series, int element, double value) {
    Variant figures = readSeries(company, series);
    figures.array().setNumber(element, value);
    writeSeries(company, series, figures);
}
inline void putElement(iVKR_Company& company, std::string_view series, int element, double value) {
    putElement(company, datumNamed(series), element, value);
}

} // namespace vkr::test
