// SPDX-License-Identifier: MIT
#include "store/store_listing.hpp"

#include "company/exact_text.hpp"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace vkr {

namespace {

using Statement = StoreConnection::Statement;

// In the order of ListColumn.
constexpr const char* sortColumns[] = {"name_key", "symbol_key", "exchange_key", "industry_key",
                                       "price",    "price_date", "saved_at"};
constexpr auto nameKey = "name_key";

QString searchable(const QString& text) {
    // A pattern would end at a null character.
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded().replace(QChar::Null, ' ');
}

// Bytes of it are compared: without case and accents, and "Plant 9" before "Plant 10".
QString sortKey(const std::string& text) {
    constexpr qsizetype most = 100; // an index takes no longer ones
    constexpr qsizetype widestNumber = 12;
    QString key = ""; // a null one would be NULL
    QString digits;
    const auto endNumber = [&] {
        if (digits.isEmpty())
            return;
        while (digits.size() > 1 && digits.front() == u'0')
            digits.remove(0, 1);
        key += digits.rightJustified(widestNumber, u'0');
        digits.clear();
    };
    const QString letters =
        toQString(text).trimmed().normalized(QString::NormalizationForm_KD).toCaseFolded();
    for (const QChar letter : letters) {
        if (key.size() + digits.size() >= most)
            break;
        if (letter.isMark())
            continue;
        if (letter.isDigit()) {
            digits += QChar(u'0' + letter.digitValue());
            continue;
        }
        endNumber();
        key += letter;
    }
    endNumber();
    key.truncate(most);
    if (!key.isEmpty() && key.back().isHighSurrogate())
        key.chop(1);
    return key;
}

struct Search {
    QString condition;
    std::vector<QVariant> values;
};

QStringList wordsOf(const ListQuery& query) {
    constexpr qsizetype most = 1000; // databases have a limit for patterns
    return searchable(toQString(query.search).left(most))
        .simplified()
        .split(u' ', Qt::SkipEmptyParts);
}

// Where words are looked for.
template <typename Company>
QString searchedIn(const Company& company) {
    return searchable(toQString(company.name + '\n' + company.symbol + '\n' + company.exchange +
                                '\n' + company.industry));
}

// Every word is somewhere in the column.
Search searchIn(const StoreDialect& dialect, const char* column, const ListQuery& query) {
    Search search{"1 = 1", {}};
    for (const QString& word : wordsOf(query)) {
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

QString prefixed(const QString& prefix, const QStringList& keys, const QString& suffix = {}) {
    return prefix + keys.join(suffix + ", " + prefix) + suffix;
}

} // namespace

bool goesOn(const ListQuery& wider, const ListQuery& narrower) {
    const QStringList words = wordsOf(narrower);
    return wider.sortedBy == narrower.sortedBy && wider.isDescending == narrower.isDescending &&
           std::ranges::all_of(wordsOf(wider), [&](const QString& begun) {
               return std::ranges::any_of(
                   words, [&](const QString& word) { return word.contains(begun); });
           });
}

bool isFound(const CompanySummary& company, const ListQuery& query) {
    const QString searched = searchedIn(company);
    return std::ranges::all_of(wordsOf(query),
                               [&](const QString& word) { return searched.contains(word); });
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
    connection.run(write, {qlonglong(row.id), searchedIn(row), sortKey(row.name),
                           sortKey(row.symbol), sortKey(row.exchange), sortKey(row.industry),
                           std::isfinite(row.price) ? row.price : 0.0, textValue(row.priceDate),
                           textValue(row.savedAt)});
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
