// SPDX-License-Identifier: MIT
#include "vkr/figure_keys.hpp"

#include "company/csv_layout.hpp"
#include "company/exact_text.hpp"
#include "platform/text.hpp"
#include "record/datum_titles.hpp"
#include "record/setting_table.hpp"

#include <algorithm>

namespace vkr {

namespace {

constexpr std::string_view ofCompany = "company";

std::string_view tableOf(DatumPeriod period) {
    return period == DatumPeriod::year      ? "yearly"
           : period == DatumPeriod::quarter ? "quarterly"
                                            : ofCompany;
}

} // namespace

FigureKey figureKey(Datum datum) {
    const DatumRow& row = rowOf(datum);
    return {tableOf(row.period), row.key, csvPlaces(row)};
}

FigureKey figureKey(std::string_view name) {
    const auto row = std::ranges::find(datumTable(), name, &DatumRow::name);
    if (row != datumTable().end())
        return figureKey(row->datum);
    const SettingRow* const setting = settingNamed(name);
    return {ofCompany, setting == nullptr ? name : setting->key};
}

std::string inUnitOf(const FigureKey& key, const std::string& value) {
    return key.places == 0 || !exactNumber(value) ? value : shiftDecimalPoint(value, key.places);
}

std::vector<std::string> figureKeys() {
    std::vector<std::string> keys;
    for (const DatumRow& row : datumTable())
        keys.emplace_back(row.key);
    for (const SettingRow& row : settingTable)
        keys.emplace_back(row.key);
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

std::vector<std::string> figuresCalled(const std::string& text) {
    std::vector<std::string> names;
    for (const DatumRow& row : datumTable())
        if (text == row.key)
            names.emplace_back(row.name);
    for (const SettingRow& row : settingTable)
        if (text == row.key)
            names.emplace_back(row.name);
    if (const std::string_view name = datumCalled(text); names.empty() && !name.empty())
        names.emplace_back(name);
    return names;
}

} // namespace vkr
