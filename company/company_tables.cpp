// SPDX-License-Identifier: MIT
#include "company/company_tables.hpp"

#include "company/csv_layout.hpp"
#include "company/exact_text.hpp"
#include "record/setting_table.hpp"

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

std::string valueText(const CompanyRecord& company, const DatumRow& row) {
    const Variant& value = company.stored(row.datum);
    if (const auto* date = std::get_if<Date>(&value.value()))
        return isoDateText(*date);
    if (const auto* number = std::get_if<double>(&value.value()))
        return figureText(*number, csvPlaces(row));
    return value == emptyRecord().stored(row.datum) ? "" : value.toText();
}

PlainValue settingValue(const CompanyRecord& company, const SettingRow& row) {
    const Variant value = company.get_Settings()->get(row.name);
    PlainValue plain{row.key, "", value.varType() == Variant::vtString};
    if (value != emptyRecord().get_Settings()->get(row.name))
        plain.text = value.varType() == Variant::vtBoolean ? "true" : value.toText();
    return plain;
}

double figureAt(const CompanyRecord& company, const DatumRow& series, int element) {
    return company.stored(series.datum).array().number(element);
}

// What the periods are called; `names` answers those of an element.
template <typename Names>
FigureTable tableOf(const CompanyRecord& company, const CsvGrid& grid,
                    std::vector<std::string_view> heads, Names names) {
    FigureTable table{std::move(heads), csvData(grid.period), {}};
    const auto isEmpty = [&](int element) {
        return std::ranges::all_of(table.series, [&](const DatumRow* series) {
            return figureAt(company, *series, element) == 0;
        });
    };
    int last = grid.upper;
    while (last >= 0 && isEmpty(last))
        --last;
    for (int element = 0; element <= last; ++element) {
        if (isEmpty(element) && element == 0)
            continue;
        FigureTable::Row row{element, names(element), {}};
        for (const DatumRow* series : table.series)
            row.figures.push_back(
                figureText(figureAt(company, *series, element), csvPlaces(*series)));
        table.rows.push_back(std::move(row));
    }
    return table;
}

FigureTable tableByElement(const CompanyRecord& company, const CsvGrid& grid) {
    return tableOf(company, grid, {elementColumn},
                   [](int element) { return std::vector<std::string>{std::to_string(element)}; });
}

FigureTable yearlyTable(const CompanyRecord& company) {
    const int last = company.get_LastFY();
    if (last + 1 > lastFiscalYear || last + 1 - yearlyCsv.upper < firstFiscalYear)
        return tableByElement(company, yearlyCsv);
    const Date end = company.get_LastFYDate();
    const bool isEndOfLast = !isAbsent(end) && std::abs(civil(end).year - last) <= 1;
    return tableOf(company, yearlyCsv, {yearlyCsv.nameColumn, yearlyCsv.extraColumn},
                   [&](int element) {
                       return std::vector{std::to_string(last + 1 - element),
                                          element == 1 && isEndOfLast ? isoDateText(end) : ""};
                   });
}

FigureTable quarterlyTable(const CompanyRecord& company) {
    const Date last = company.get_LastQDateForGrid();
    if (isAbsent(last) || civil(last).year < firstQuarterYear)
        return tableByElement(company, quarterlyCsv);
    return tableOf(company, quarterlyCsv, {quarterlyCsv.nameColumn}, [&](int element) {
        return std::vector<std::string>{isoDateText(addQuarters(last, -element))};
    });
}

} // namespace

std::vector<PlainValue> plainValues(const CompanyRecord& company) {
    std::vector<PlainValue> values;
    for (const DatumRow* row : csvData(DatumPeriod::none))
        values.push_back({row->key, valueText(company, *row),
                          company.stored(row->datum).varType() == Variant::vtString});
    for (const SettingRow& row : settingTable)
        values.push_back(settingValue(company, row));
    return values;
}

FigureTable figureTable(const CompanyRecord& company, DatumPeriod period) {
    return period == DatumPeriod::year ? yearlyTable(company) : quarterlyTable(company);
}

} // namespace vkr
