// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "company/csv_layout.hpp"
#include "company/csv_text.hpp"
#include "company/exact_text.hpp"
#include "company/setting_table.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <cstdlib>

namespace vkr {

namespace {

// Far enough from 1899 that no quarter of the grid falls on the day that stands for "no date".
constexpr int firstQuarterYear = 1910;

const CompanyRecord& emptyRecord() {
    static const CompanyRecord empty;
    return empty;
}

std::string figureText(double value, int places) {
    return value == 0 ? "" : shiftDecimalPoint(exactNumberText(value), places);
}

std::string cellText(const Variant& value) {
    const bool isText = value.varType() == Variant::vtString;
    return isText ? markedAsText(value.toText()) : value.toText();
}

std::string valueText(const CompanyRecord& company, const DatumRow& row) {
    const Variant& value = company.stored(row.datum);
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isoDateText(*date);
    if (const auto* number = std::get_if<double>(&value.value()))
        return figureText(*number, csvPlaces(row));
    return value == emptyRecord().stored(row.datum) ? "" : cellText(value);
}

std::string settingText(const CompanyRecord& company, std::string_view name) {
    const Variant value = company.get_Settings()->get(name);
    if (value == emptyRecord().get_Settings()->get(name))
        return "";
    return value.varType() == Variant::vtBoolean ? "true" : cellText(value);
}

std::string companyText(const CompanyRecord& company) {
    std::string text(byteOrderMark);
    appendCsvRow(text, {"key", "value"});
    for (const DatumRow* row : csvData(DatumPeriod::none))
        appendCsvRow(text, {std::string(row->key), valueText(company, *row)});
    for (const SettingRow& row : settingTable)
        appendCsvRow(text, {std::string(row.key), settingText(company, row.name)});
    return text;
}

// `header` and `names` give what stands before the figures: in the header, in the row of an
// element.
template <typename Names>
std::string gridText(const CompanyRecord& company, const CsvGrid& grid,
                     std::vector<std::string> header, Names names) {
    const auto& columns = csvData(grid.period);
    for (const DatumRow* column : columns)
        header.emplace_back(column->key);
    std::string text(byteOrderMark);
    appendCsvRow(text, header);

    const auto figure = [&](const DatumRow* column, int element) {
        return company.stored(column->datum).array().number(element);
    };
    const auto isEmpty = [&](int element) {
        return std::all_of(columns.begin(), columns.end(),
                           [&](const DatumRow* column) { return figure(column, element) == 0; });
    };
    int last = grid.upper;
    while (last >= 0 && isEmpty(last))
        --last;
    for (int element = 0; element <= last; ++element) {
        if (isEmpty(element) && element == 0)
            continue;
        std::vector<std::string> cells = names(element);
        for (const DatumRow* column : columns)
            cells.push_back(figureText(figure(column, element), csvPlaces(*column)));
        appendCsvRow(text, cells);
    }
    return text;
}

std::string elementGridText(const CompanyRecord& company, const CsvGrid& grid) {
    return gridText(company, grid, {std::string(elementColumn)},
                    [](int element) { return std::vector<std::string>{std::to_string(element)}; });
}

std::string yearlyText(const CompanyRecord& company) {
    const int last = company.get_LastFY();
    if (last + 1 > lastFiscalYear || last + 1 - yearlyCsv.upper < firstFiscalYear)
        return elementGridText(company, yearlyCsv);
    const Date end = company.get_LastFYDate();
    const bool isEndOfLast = !isAbsent(end) && std::abs(civil(end).year - last) <= 1;
    return gridText(company, yearlyCsv,
                    {std::string(yearlyCsv.nameColumn), std::string(yearlyCsv.extraColumn)},
                    [&](int element) {
                        return std::vector{std::to_string(last + 1 - element),
                                           element == 1 && isEndOfLast ? isoDateText(end) : ""};
                    });
}

std::string quarterlyText(const CompanyRecord& company) {
    const Date last = company.get_LastQDateForGrid();
    if (isAbsent(last) || civil(last).year < firstQuarterYear)
        return elementGridText(company, quarterlyCsv);
    return gridText(company, quarterlyCsv, {std::string(quarterlyCsv.nameColumn)},
                    [&](int element) {
                        return std::vector<std::string>{isoDateText(addQuarters(last, -element))};
                    });
}

} // namespace

std::string csvPrefix(const CompanyRecord& company) {
    static constexpr int longest = 50; // characters; file names have 255 bytes at most
    const std::string symbol = company.get_Symbol();
    std::string prefix(textLeft(symbol, longest));
    for (char& character : prefix) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F ||
            std::string_view("/\\:*?\"<>|").find(character) != std::string_view::npos)
            character = '_';
    }
    if (prefix.starts_with('.'))
        prefix.front() = '_'; // would be a hidden file
    return prefix.empty() ? "company" : prefix;
}

CompanyTexts exportCompanyTexts(const CompanyRecord& company) {
    const std::string prefix = csvPrefix(company);
    return {{prefix + std::string(companySuffix), companyText(company)},
            CsvText{prefix + std::string(yearlySuffix), yearlyText(company)},
            CsvText{prefix + std::string(quarterlySuffix), quarterlyText(company)}};
}

} // namespace vkr
