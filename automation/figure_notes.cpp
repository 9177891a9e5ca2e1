// SPDX-License-Identifier: MIT
#include "automation/figure_notes.hpp"

#include "automation/com_error.hpp"
#include "automation/late_bound.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace vkr::automation {

namespace {

[[noreturn]] void refuse(const std::string& why) {
    throw ComError(CTL_E_INVALIDPROPERTYVALUE, why);
}

const DatumRow& datumNamed(std::string_view name) {
    const auto data = datumTable();
    const auto found = std::ranges::find_if(
        data, [&](const DatumRow& row) { return equalsIgnoringCase(row.name, name); });
    if (found == data.end())
        refuse("There is no datum \"" + std::string(name) + "\".");
    return *found;
}

FigurePlace placeOf(const std::string& name, const Variant& element) {
    const DatumRow& row = datumNamed(name);
    if (!isSeries(row)) {
        if (!element.isEmpty())
            refuse(name + " has no elements.");
        return {row.datum, std::nullopt};
    }
    const double number = element.isNumeric() ? element.toDouble() : -1;
    if (number != std::trunc(number) || number < 0 || number > row.upper)
        refuse(name + " has the elements 0 to " + std::to_string(row.upper) + ".");
    return {row.datum, static_cast<int>(number)};
}

// What Optional arguments are that nobody has given counts as empty.
Variant elementIn(const VARIANT& given) {
    if (V_VT(&given) == VT_ERROR && V_ERROR(&given) == DISP_E_PARAMNOTFOUND)
        return {};
    return fromVariant(given);
}

std::string textOfRow(const Variant& item) {
    const auto* const text = std::get_if<std::string>(&item.value());
    if (text == nullptr)
        refuse("The datum and what is said of it are texts.");
    return *text;
}

template <typename Take>
void eachRow(const VARIANT& rows, std::size_t columns, Take take) {
    const Variant given = fromVariant(rows);
    if (given.isEmpty())
        return;
    if (!given.isArray())
        throw ComError(DISP_E_TYPEMISMATCH, "This is no array of rows.");
    const VariantArray& array = given.array();
    for (std::size_t i = 0; i < array.size(); ++i) {
        const Variant row = array.at(array.lower() + static_cast<int>(i));
        if (!row.isArray() || row.array().size() != columns)
            refuse("Each row is an array of " + std::to_string(columns) + ".");
        const auto item = [&](int column) { return row.array().at(row.array().lower() + column); };
        take(placeOf(textOfRow(item(0)), item(1)), item);
    }
}

} // namespace

std::map<FigurePlace, std::string> remarksIn(const VARIANT& rows) {
    std::map<FigurePlace, std::string> remarks;
    eachRow(rows, 3, [&](const FigurePlace& place, const auto& item) {
        remarks[place] = textOfRow(item(2));
    });
    return remarks;
}

std::map<FigurePlace, FieldOrigin> originsIn(const VARIANT& rows) {
    std::map<FigurePlace, FieldOrigin> origins;
    eachRow(rows, 4, [&](const FigurePlace& place, const auto& item) {
        const Variant marked = item(3);
        if (!marked.isNumeric())
            refuse("Whether the corner is marked is True or False.");
        origins[place] = {textOfRow(item(2)), marked.toBoolean()};
    });
    return origins;
}

FigurePlace figurePlaceIn(std::string_view datum, const VARIANT& element) {
    return placeOf(std::string(datum), elementIn(element));
}

} // namespace vkr::automation
