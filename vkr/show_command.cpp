// SPDX-License-Identifier: MIT
#include "company/company_tables.hpp"
#include "sheet/company_notes.hpp"
#include "sheet/today.hpp"
#include "vkr/call.hpp"
#include "vkr/database.hpp"
#include "vkr/sheet_file.hpp"

namespace vkr {

namespace {

// JSON has one object of all values; else there is a row for each.
void writeValues(const CompanyRecord& company, Output& output) {
    const std::vector<PlainValue> values = plainValues(company);
    if (output.format() == Format::json) {
        std::vector<Column> columns;
        std::vector<std::string> cells;
        for (const PlainValue& value : values) {
            columns.push_back({value.key});
            cells.push_back(value.text);
        }
        output.begin(std::move(columns));
        output.row(std::move(cells));
    } else {
        output.begin({{"key"}, {"value"}});
        for (const PlainValue& value : values)
            if (output.format() == Format::tsv || !value.text.empty())
                output.row({std::string(value.key), value.text});
    }
    output.end();
}

void writeFigures(const CompanyRecord& company, DatumPeriod period, std::string_view name,
                  Output& output) {
    const FigureTable table = figureTable(company, period);
    std::vector<Column> columns;
    for (const std::string_view head : table.names)
        columns.push_back({head});
    for (const DatumRow* series : table.series)
        columns.push_back({series->key, true});
    output.begin(std::move(columns), name);
    for (const FigureTable::Row& row : table.rows) {
        std::vector<std::string> cells = row.names;
        cells.insert(cells.end(), row.figures.begin(), row.figures.end());
        output.row(std::move(cells));
    }
    output.end();
}

} // namespace

ExitCode showCompany(const Call& call) {
    if (call.line.has(Option::paper) && !call.line.has(Option::pdf))
        throw CommandFailure(ExitCode::usage, "--paper is the paper of --pdf.");
    const bool isYearly = call.line.has(Option::yearly);
    const bool isQuarterly = call.line.has(Option::quarterly);
    if (call.line.has(Option::pdf) && (isYearly || isQuarterly || call.line.has(Option::format)))
        throw CommandFailure(ExitCode::usage, "The sheet of --pdf has all tables: --yearly, "
                                              "--quarterly and --format are not for it.");
    const auto store = openDatabase(call);
    const CompanySummary company = findCompany(*store, call.line.arguments.front());
    const LoadedCompany loaded = load(call, *store, company);
    const ExitCode code =
        loaded.unreadable.empty() && !loaded.damage ? ExitCode::done : ExitCode::findings;
    if (const auto file = call.line.value(Option::pdf)) {
        writePdf(call, {sheetOf(loaded, today())}, titleOf(company.name, company.symbol), *file);
        return code;
    }
    if (!isYearly && !isQuarterly)
        writeValues(*loaded.record, call.output);
    if (isYearly)
        writeFigures(*loaded.record, DatumPeriod::year, "yearly", call.output);
    if (isQuarterly)
        writeFigures(*loaded.record, DatumPeriod::quarter, "quarterly", call.output);
    return code;
}

} // namespace vkr
