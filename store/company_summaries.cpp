// SPDX-License-Identifier: MIT
#include "store/company_summaries.hpp"

#include "company/exact_text.hpp"
#include "store/store_listing.hpp"

#include <QStringList>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

QString summaryColumns(const StoreDialect& dialect) {
    QStringList columns = {"id", "revision"};
    for (const char* text :
         {"\"Name\"", "\"Symbol\"", "\"Exchange\"", "\"Industry\"", "\"Source\""})
        columns += dialect.wholeText(text);
    columns +=
        {"\"LastFY\"", "\"LastFYDate\"", "\"CurrentPrice\"", "\"PriceUpdatedDate\"", "saved_at"};
    return columns.join(", ");
}

CompanySummary summaryOf(const Statement& row) {
    const auto date = [&](int column) { return dateFromIso(row.text(column)).value_or(Date{}); };
    int year = static_cast<int>(row.integer(7));
    if (const Date end = date(8); year == 0 && !isAbsent(end))
        year = civil(end).year;
    return {{row.integer(0), row.integer(1)},
            row.text(2),
            row.text(3),
            row.text(4),
            row.text(5),
            row.text(6),
            year,
            row.number(9),
            date(10),
            row.text(11)};
}

std::vector<CompanySummary> summariesOf(Statement& rows) {
    std::vector<CompanySummary> found;
    while (rows.next())
        found.push_back(summaryOf(rows));
    return found;
}

} // namespace

std::vector<CompanySummary> allSummaries(StoreConnection& connection) {
    const StoreDialect& dialect = connection.dialect();
    const auto folded = [&](const char* column) {
        return QString(dialect.folded).replace("%1", column);
    };
    Statement rows(connection, "SELECT " + summaryColumns(dialect) + " FROM company ORDER BY " +
                                   folded("\"Name\"") + ", " + folded("\"Symbol\"") + ", id");
    return summariesOf(rows);
}

std::vector<CompanySummary> summariesWith(StoreConnection& connection, ListColumn column,
                                          const std::string& text) {
    const auto chosen = selectWith(column, summaryColumns(connection.dialect()), text);
    Statement rows(connection, chosen.text, chosen.values);
    return summariesOf(rows);
}

std::vector<CompanySummary> summaryPage(StoreConnection& connection, const ListQuery& query,
                                        std::int64_t from, std::int64_t most) {
    const StoreDialect& dialect = connection.dialect();
    const auto page = selectPage(dialect, query, summaryColumns(dialect), from, most);
    Statement rows(connection, page.text, page.values);
    return summariesOf(rows);
}

} // namespace vkr
