// SPDX-License-Identifier: MIT
#include "store/store_schema.hpp"

#include "store/company_table.hpp"
#include "store/figure_counts.hpp"
#include "store/finding_verdicts.hpp"
#include "store/first_entries.hpp"
#include "store/history_table.hpp"
#include "store/store_columns.hpp"
#include "store/store_listing.hpp"
#include "store/store_text.hpp"

#include <QSet>

#include <cassert>
#include <iterator>
#include <map>

namespace vkr {

namespace {

constexpr const char* createCompanies[] = {
    "CREATE TABLE company ("
    " id {id},"
    " revision {integer} NOT NULL,"
    " saved_by TEXT NOT NULL,"
    " saved_at TEXT NOT NULL){table}",
    "CREATE TABLE series ("
    " company_id {integer} NOT NULL REFERENCES company (id) ON DELETE CASCADE,"
    " series TEXT NOT NULL,"
    " element {integer} NOT NULL,"
    " value {number} NOT NULL,"
    " PRIMARY KEY (company_id, series, element)){keyedTable}",
};

constexpr const char* createListsAndLog[] = {
    "CREATE TABLE list_entry ("
    " kind TEXT NOT NULL,"
    " position {integer} NOT NULL,"
    " text TEXT NOT NULL,"
    " PRIMARY KEY (kind, text)){keyedTable}",
    "CREATE TABLE change_log ("
    " id {logId},"
    " company_id {integer} NOT NULL,"
    " revision {integer} NOT NULL,"
    " change TEXT NOT NULL,"
    " changed_by TEXT NOT NULL,"
    " changed_at TEXT NOT NULL){table}",
    "CREATE INDEX change_log_of_company ON change_log (company_id)",
};

template <std::size_t count>
void runAll(StoreConnection& connection, const char* const (&statements)[count]) {
    for (const char* statement : statements)
        connection.execute(connection.dialect().define(statement));
}

const char* definition(StoreColumn::Kind kind) {
    switch (kind) {
    case StoreColumn::Kind::text:
        return "TEXT NOT NULL DEFAULT ''";
    case StoreColumn::Kind::number:
        return "{number} NOT NULL DEFAULT 0";
    case StoreColumn::Kind::integer:
        return "{integer} NOT NULL DEFAULT 0";
    case StoreColumn::Kind::date:
        return "TEXT DEFAULT NULL";
    }
    return "";
}

void addMissingColumns(StoreConnection& connection) {
    QSet<QString> present;
    {
        StoreConnection::Statement columns(connection, connection.dialect().columns);
        while (columns.next())
            present.insert(toQString(columns.text(0)));
    }
    for (const StoreColumn& column : storeColumns())
        if (!present.contains(column.name))
            connection.execute("ALTER TABLE company ADD COLUMN \"" + column.name + "\" " +
                               connection.dialect().define(definition(column.kind)));
}

void countStoredFigures(StoreConnection& connection) {
    std::map<std::int64_t, FigureCounts> companies;
    {
        StoreConnection::Statement rows(
            connection,
            "SELECT company_id, series, count(*) FROM series GROUP BY company_id, series");
        while (rows.next())
            companies[rows.integer(0)][rows.text(1)] = static_cast<int>(rows.integer(2));
    }
    for (const auto& [id, counts] : companies)
        connection.run("UPDATE company SET figures = ? WHERE id = ?",
                       {textValue(figuresText(counts)), qlonglong(id)});
}

// Companies that were saved before there was a checksum get theirs, and a history that begins with
// what is stored. Not a part of a step, for it is done by what reads and writes a company now.
void beginHistories(StoreConnection& connection) {
    std::vector<std::int64_t> ids;
    {
        StoreConnection::Statement rows(connection, "SELECT id FROM company WHERE checksum = 0");
        while (rows.next())
            ids.push_back(rows.integer(0));
    }
    CompanyTable companies(connection);
    HistoryTable history(connection);
    for (const std::int64_t id : ids) {
        companies.seal(id);
        const auto row = companies.read(id);
        if (row && history.extent(id).groups == 0)
            history.begin({id, row->company.revision}, "Stored before there was a history",
                          {row->company.record, {}}, row->saved);
    }
}

// The step at index n leads from version n to n + 1. Released steps are never changed: files of
// every version are still around. A new datum needs a step that does nothing, only so that there is
// a new version: its column is added by itself. docs/contributing.md says how a step is added.
using Migration = void (*)(StoreConnection&);
constexpr Migration migrations[] = {
    [](StoreConnection& connection) { runAll(connection, createCompanies); },
    [](StoreConnection& connection) {
        runAll(connection, createListsAndLog);
        connection.execute(
            "INSERT INTO change_log (company_id, revision, change, changed_by, "
            "changed_at) SELECT id, revision, 'saved', saved_by, saved_at FROM company");
        insertFirstEntries(connection);
    },
    [](StoreConnection& connection) {
        addMissingColumns(connection); // that the listing is made of
        createListing(connection);
        fillListing(connection);
    },
    [](StoreConnection& connection) {
        connection.execute("ALTER TABLE company ADD COLUMN figures TEXT NOT NULL DEFAULT ''");
        countStoredFigures(connection);
    },
    [](StoreConnection& connection) {
        connection.execute("ALTER TABLE company ADD COLUMN origins TEXT NOT NULL DEFAULT ''");
        connection.execute(connection.dialect().define(
            "ALTER TABLE company ADD COLUMN checksum {integer} NOT NULL DEFAULT 0"));
        createHistory(connection);
        createFindingVerdicts(connection);
    },
};
int versionOf(StoreConnection& connection) {
    return static_cast<int>(connection.integer(connection.dialect().version));
}

} // namespace

const int schemaVersion = static_cast<int>(std::size(migrations));

SchemaState inspectSchema(StoreConnection& connection) {
    const int version = versionOf(connection);
    const StoreDialect& dialect = connection.dialect();
    if (connection.integer(dialect.isOurs) == 0)
        return connection.integer(dialect.isUntouched) != 0 ? SchemaState::empty
                                                            : SchemaState::foreign;
    if (version > schemaVersion)
        return SchemaState::newer;
    return version < schemaVersion ? SchemaState::older : SchemaState::current;
}

void migrateSchema(StoreConnection& connection, const std::function<void()>& before) {
    using Transaction = StoreConnection::Transaction;
    Transaction transaction(connection, Transaction::Kind::migrate);
    const int version = versionOf(connection);
    if (version >= schemaVersion)
        return; // another window was faster
    if (before)
        before();
    assert(version >= 0);
    for (int step = version; step < schemaVersion; ++step)
        migrations[step](connection);
    addMissingColumns(connection);
    beginHistories(connection);
    for (const char* statement : connection.dialect().mark)
        if (statement != nullptr)
            connection.execute(QString(statement).replace("%1", QString::number(schemaVersion)));
    transaction.commit();
}

} // namespace vkr
