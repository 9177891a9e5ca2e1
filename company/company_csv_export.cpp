// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "company/company_tables.hpp"
#include "company/csv_text.hpp"
#include "platform/text.hpp"

namespace vkr {

namespace {

std::string companyText(const CompanyRecord& company) {
    std::string text(byteOrderMark);
    appendCsvRow(text, {"key", "value"});
    for (const PlainValue& value : plainValues(company))
        appendCsvRow(
            text, {std::string(value.key), value.isText ? markedAsText(value.text) : value.text});
    return text;
}

std::string gridText(const FigureTable& table) {
    std::string text(byteOrderMark);
    std::vector<std::string> header(table.names.begin(), table.names.end());
    for (const DatumRow* series : table.series)
        header.emplace_back(series->key);
    appendCsvRow(text, header);
    for (const FigureTable::Row& row : table.rows) {
        std::vector<std::string> cells = row.names;
        cells.insert(cells.end(), row.figures.begin(), row.figures.end());
        appendCsvRow(text, cells);
    }
    return text;
}

} // namespace

std::string csvPrefix(std::string_view symbol) {
    static constexpr int longest = 50; // characters; file names have 255 bytes at most
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
            CsvText{prefix + std::string(yearlySuffix),
                    gridText(figureTable(company, DatumPeriod::year))},
            CsvText{prefix + std::string(quarterlySuffix),
                    gridText(figureTable(company, DatumPeriod::quarter))}};
}

} // namespace vkr
