// SPDX-License-Identifier: MIT
#include "company/csv_layout.hpp"

#include <algorithm>
#include <array>

namespace vkr {

namespace {

using Data = std::vector<const DatumRow*>;

Data dataOf(DatumPeriod period) {
    Data data;
    for (const DatumRow& row : datumTable())
        if (row.period == period)
            data.push_back(&row);
    std::stable_sort(data.begin(), data.end(), [](const DatumRow* left, const DatumRow* right) {
        return left->place < right->place;
    });
    return data;
}

} // namespace

const Data& csvData(DatumPeriod period) {
    static const std::array files = {dataOf(DatumPeriod::none), dataOf(DatumPeriod::year),
                                     dataOf(DatumPeriod::quarter)};
    return files[static_cast<std::size_t>(period)];
}

const DatumRow* findCsvDatum(DatumPeriod period, std::string_view key) {
    const Data& data = csvData(period);
    const auto found = std::find_if(data.begin(), data.end(),
                                    [&](const DatumRow* row) { return row->key == key; });
    return found == data.end() ? nullptr : *found;
}

int csvPlaces(const DatumRow& row) {
    constexpr int millions = 6;
    return row.unit == DatumUnit::shares && row.period == DatumPeriod::none ? millions : 0;
}

} // namespace vkr
