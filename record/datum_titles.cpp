// SPDX-License-Identifier: MIT
#include "record/datum_titles.hpp"

#include "platform/ascii.hpp"
#include "platform/text.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

namespace {

bool isCapital(char letter) {
    return asciiLower(letter) != letter;
}
bool isSmall(char letter) {
    return isAsciiLetter(letter) && !isCapital(letter);
}

} // namespace

std::string_view titleOf(Datum datum) {
    return rowOf(datum).title;
}

std::string fullTitleOf(Datum datum) {
    const DatumPeriod period = rowOf(datum).period;
    return (period == DatumPeriod::year      ? "Yearly "
            : period == DatumPeriod::quarter ? "Quarterly "
                                             : "") +
           std::string(titleOf(datum));
}

std::string calledDatum(std::string_view name) {
    if (const auto row = std::ranges::find(datumTable(), name, &DatumRow::name);
        row != datumTable().end())
        return fullTitleOf(row->datum);
    const SettingRow* const row = settingNamed(name);
    return std::string(row == nullptr ? name : row->title);
}

std::string_view datumCalled(std::string_view text) {
    for (const DatumRow& row : datumTable())
        if (text == row.name || equalsIgnoringCase(text, fullTitleOf(row.datum)))
            return row.name;
    for (const SettingRow& row : settingTable)
        if (text == row.name || equalsIgnoringCase(text, row.title))
            return row.name;
    return {};
}

// Short forms such as FY stay as they are.
std::string wordsOf(Datum datum) {
    std::string words(titleOf(datum));
    for (std::size_t at = 0; at + 1 < words.size(); ++at)
        if (isCapital(words[at]) && isSmall(words[at + 1]))
            words[at] = asciiLower(words[at]);
    return words;
}

} // namespace vkr
