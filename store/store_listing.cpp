// SPDX-License-Identifier: MIT
#include "store/store_listing.hpp"

#include "company/exact_text.hpp"
#include "store/search_text.hpp"
#include "store/store_text.hpp"

#include <QStringList>

#include <cmath>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

// In the order of ListColumn.
constexpr const char* sortColumns[] = {"name_key", "symbol_key", "exchange_key", "industry_key",
                                       "price",    "price_date", "saved_at"};
constexpr auto nameKey = "name_key";

struct Search {
    QString condition;
    std::vector<QVariant> values;
};

// Every word is somewhere in the column.
Search searchIn(const StoreDialect& dialect, const char* column, const ListQuery& query) {
    Search search{"1 = 1", {}};
    for (const QString& word : searchWords(query.search)) {
        search.condition += " AND " + QString(dialect.contains).replace("%1", column);
        search.values.emplace_back(dialect.sought(word));
    }
    return search;
}

// The column, then the name, then as they were entered; nothing ties.
QStringList keysOf(const ListQuery& query) {
    const char* column = sortColumns[static_cast<std::size_t>(query.sortedBy)];
    QStringList keys = {column};
    if (query.sortedBy != ListColumn::name)
        keys += nameKey;
    return keys += "company_id";
}

// In the order of the columns.
std::vector<QVariant> valuesOf(const ListingRow& row) {
    return {qlonglong(row.id),
            searchedText(row),
            sortKey(row.name),
            sortKey(row.symbol),
            sortKey(row.exchange),
            sortKey(row.industry),
            std::isfinite(row.price) ? row.price : 0.0,
            textValue(row.priceDate),
            textValue(row.savedAt)};
}

QString prefixed(const QString& prefix, const QStringList& keys, const QString& suffix = {}) {
    return prefix + keys.join(suffix + ", " + prefix) + suffix;
}

} // namespace

ListingRow listingOf(std::int64_t id, const CompanyRecord& record, const std::string& savedAt) {
    return {id,
            record.get_Name(),
            record.get_Symbol(),
            record.get_Exchange(),
            record.get_Industry(),
            record.stored(Datum::CurrentPrice).toDouble(),
            isoDateText(record.stored(Datum::PriceUpdatedDate).toDate()),
            savedAt};
}

void createListing(StoreConnection& connection) {
    const StoreDialect& dialect = connection.dialect();
    connection.execute(dialect.define(
        "CREATE TABLE listing ("
        " company_id {integer} NOT NULL PRIMARY KEY REFERENCES company (id) ON DELETE CASCADE,"
        " searched TEXT NOT NULL,"
        " name_key {key} NOT NULL,"
        " symbol_key {key} NOT NULL,"
        " exchange_key {key} NOT NULL,"
        " industry_key {key} NOT NULL,"
        " price {number} NOT NULL,"
        " price_date {key} NOT NULL,"
        " saved_at {key} NOT NULL){table}"));
    for (const QString column : sortColumns)
        connection.execute("CREATE INDEX listing_by_" + column + " ON listing (" +
                           (column == nameKey ? dialect.define("name_key, company_id{searched}")
                                              : column + ", name_key, company_id") +
                           ")");
}

void fillListing(StoreConnection& connection) {
    std::vector<ListingRow> listings;
    {
        Statement rows(connection, "SELECT id, \"Name\", \"Symbol\", \"Exchange\", \"Industry\", "
                                   "\"CurrentPrice\", \"PriceUpdatedDate\", saved_at FROM company");
        while (rows.next()) {
            const std::string date = rows.text(6);
            listings.push_back({rows.integer(0), rows.text(1), rows.text(2), rows.text(3),
                                rows.text(4), rows.number(5), dateFromIso(date) ? date : "",
                                rows.text(7)});
        }
    }
    for (const ListingRow& listing : listings)
        writeListing(connection, listing);
}

void writeListing(StoreConnection& connection, const ListingRow& row) {
    static const QString write = [] {
        QStringList changes;
        for (const char* column : sortColumns)
            changes += QString("%1 = excluded.%1").arg(column);
        return "INSERT INTO listing (company_id, searched, " +
               QStringList(std::begin(sortColumns), std::end(sortColumns)).join(", ") +
               ") VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT (company_id) DO UPDATE SET "
               "searched = excluded.searched, " +
               changes.join(", ");
    }();
    connection.run(write, valuesOf(row));
}

bool isListed(StoreConnection& connection, const ListingRow& row) {
    static const QString sameRow =
        "SELECT count(*) FROM listing WHERE company_id = ? AND searched = ? AND " +
        prefixed("", QStringList(std::begin(sortColumns), std::end(sortColumns)), " = ?")
            .replace(", ", " AND ");
    Statement found(connection, sameRow, valuesOf(row));
    return found.next() && found.integer(0) == 1;
}

ListingStatement selectPage(const StoreDialect& dialect, const ListQuery& query,
                            const QString& columns, std::int64_t from, std::int64_t most) {
    const QStringList keys = keysOf(query);
    const QString direction = query.isDescending ? " DESC" : "";
    QStringList named;
    QStringList names;
    for (const QString& key : keys) {
        names += "key_" + QString::number(names.size());
        named += key + " AS " + names.back();
    }
    Search search = searchIn(dialect, "searched", query);
    search.values.emplace_back(qlonglong(most));
    search.values.emplace_back(qlonglong(from));
    return {"SELECT " + columns + " FROM (SELECT " + named.join(", ") + " FROM listing WHERE " +
                search.condition + " ORDER BY " + prefixed("", keys, direction) +
                " LIMIT ? OFFSET ?) AS page JOIN company ON id = " + names.back() + " ORDER BY " +
                prefixed("", names, direction),
            std::move(search.values)};
}

ListingStatement selectWith(ListColumn column, const QString& columns, const std::string& text) {
    return {"SELECT " + columns +
                " FROM company WHERE id IN (SELECT company_id FROM listing WHERE " +
                sortColumns[static_cast<std::size_t>(column)] + " = ?) ORDER BY id",
            {sortKey(text)}};
}

ListingStatement selectCount(const StoreDialect& dialect, const ListQuery& query) {
    Search search = searchIn(dialect, "searched", query);
    return {"SELECT count(*) FROM listing WHERE " + search.condition, std::move(search.values)};
}

ListingStatement selectRank(const StoreDialect& dialect, const ListQuery& query, std::int64_t id) {
    const QStringList keys = keysOf(query);
    const Search chosen = searchIn(dialect, "chosen.searched", query);
    Search search = searchIn(dialect, "other.searched", query);
    std::vector<QVariant> values = {qlonglong(id)};
    values.insert(values.end(), chosen.values.begin(), chosen.values.end());
    values.insert(values.end(), search.values.begin(), search.values.end());
    return {"SELECT count(*) FROM listing AS chosen, listing AS other "
            "WHERE chosen.company_id = ? AND " +
                chosen.condition + " AND " + search.condition + " AND (" +
                prefixed("other.", keys) + ") " + (query.isDescending ? ">=" : "<=") + " (" +
                prefixed("chosen.", keys) + ")",
            std::move(values)};
}

} // namespace vkr
