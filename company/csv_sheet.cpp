// SPDX-License-Identifier: MIT
#include "company/csv_sheet.hpp"

#include "platform/ascii.hpp"
#include "platform/text.hpp"

#include <algorithm>
#include <set>
#include <utility>

namespace vkr {

namespace {

CsvRow headerOf(const CsvRow& row, CsvFindings& findings) {
    CsvRow header;
    std::set<std::string> seen;
    for (const CsvCell& cell : row) {
        const std::string name = csvName(cell.text);
        header.push_back({name, cell.line});
        if (!name.empty() && !seen.insert(name).second)
            findings.error(cell, static_cast<int>(header.size()), "this column stands twice");
    }
    while (!header.empty() && header.back().text.empty())
        header.pop_back();
    return header;
}

void takeRow(CsvSheet& sheet, CsvRow row, CsvFindings& findings) {
    const std::size_t width = sheet.header.size();
    while (row.size() > width && row.back().text.empty())
        row.pop_back();
    if (row.size() == width)
        sheet.rows.push_back(std::move(row));
    else
        findings.error(row.front().line, 0, row.front().text,
                       "the row has " + std::to_string(row.size()) + " cells, the header " +
                           std::to_string(width));
}

} // namespace

CsvSheet readSheet(const CsvText& text, CsvFindings& findings) {
    CsvTable table = readCsv(text.text);
    for (const CsvFault& fault : table.faults)
        findings.error(fault.line, fault.column, fault.text, fault.reason);
    CsvSheet sheet;
    if (!table.faults.empty())
        return sheet;
    if (table.rows.empty()) {
        findings.error(0, 0, "", "the file is empty");
        return sheet;
    }
    sheet.header = headerOf(table.rows.front(), findings);
    for (auto row = table.rows.begin() + 1; row != table.rows.end(); ++row)
        takeRow(sheet, std::move(*row), findings);
    return sheet;
}

std::string csvName(std::string_view text) {
    std::string name(trimmed(text));
    std::transform(name.begin(), name.end(), name.begin(), asciiLower);
    return name;
}

} // namespace vkr
