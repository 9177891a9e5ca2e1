// SPDX-License-Identifier: MIT
#include "store/store_dialect.hpp"

#include "store/company_file.hpp"
#include "store/store_failure.hpp"

#include <QFileInfo>
#include <QStorageInfo>

namespace vkr {

namespace {

// A mark in front of a text is taken away on its way back: what is put before it goes instead.
QString markedTwice(const QString& text) {
    return QChar(QChar::ByteOrderMark) + text;
}

// --- SQLite ----------------------------------------------------------------------------------

// https://www.sqlite.org/rescode.html
namespace sqlite_code {
constexpr int primaryCode = 0xFF; // the rest of a code says more closely what happened
constexpr int permissionDenied = 3;
constexpr int busy = 5;
constexpr int locked = 6;
constexpr int noMemory = 7;
constexpr int readOnly = 8;
constexpr int inputOutput = 10;
constexpr int corrupt = 11;
constexpr int full = 13;
constexpr int cannotOpen = 14;
constexpr int notADatabase = 26;
constexpr int fileWasMoved = 1032;
} // namespace sqlite_code

StoreFault sqliteFault(const QSqlError& error, const QString& path) {
    const int code = error.nativeErrorCode().toInt();
    if (code == sqlite_code::fileWasMoved)
        return StoreFault::missing;
    switch (code & sqlite_code::primaryCode) {
    case sqlite_code::busy:
    case sqlite_code::locked:
        return StoreFault::locked;
    case sqlite_code::readOnly:
    case sqlite_code::permissionDenied:
        return StoreFault::readOnly;
    case sqlite_code::full:
        return StoreFault::full;
    case sqlite_code::corrupt:
        return StoreFault::corrupt;
    case sqlite_code::notADatabase:
        return StoreFault::notADatabase;
    case sqlite_code::cannotOpen:
        return isWritableFile(path) ? StoreFault::other : StoreFault::readOnly;
    case sqlite_code::inputOutput: {
        const QStorageInfo disk(QFileInfo(path).absolutePath());
        return disk.isValid() && disk.bytesAvailable() == 0 ? StoreFault::full : StoreFault::other;
    }
    default:
        return StoreFault::other;
    }
}

QString carriedBySqlite(const QString& text) {
    const bool isMarked =
        text.startsWith(QChar::ByteOrderMark) || text.startsWith(QChar::ByteOrderSwapped);
    return isMarked ? markedTwice(text) : text;
}

// A pattern is found in two thirds of the time that instr() takes.
QString soughtBySqlite(const QString& word) {
    QString pattern = "*";
    for (const QChar letter : word)
        pattern += QStringLiteral("*?[").contains(letter) ? "[" + QString(letter) + "]" : letter;
    return pattern + "*";
}

constexpr StoreDialect sqlite = {
    .driver = "QSQLITE",
    .driverPackage = "libqt6sql6-sqlite",
    .isFile = true,
    .setup = {"PRAGMA foreign_keys = ON", "PRAGMA journal_mode = WAL", "PRAGMA synchronous = FULL",
              // Everything saved is in the file itself, for people who copy it while it is open.
              "PRAGMA wal_autocheckpoint = 1",
              // In kibibytes: a company is small, and the system keeps what is read of the rest.
              "PRAGMA cache_size = -512"},
    .begin = {{{"BEGIN"}, {"BEGIN IMMEDIATE"}, {"BEGIN IMMEDIATE"}}},
    .isOurs = "SELECT application_id = 1447776835 FROM pragma_application_id",
    .isUntouched = "SELECT application_id = 0 AND user_version = 0 AND NOT EXISTS (SELECT * FROM "
                   "sqlite_schema) FROM pragma_application_id, pragma_user_version",
    .version = "PRAGMA user_version",
    .columns = "SELECT name FROM pragma_table_info('company')",
    .changeStamp = "PRAGMA data_version",
    .mark = {"PRAGMA user_version = %1", "PRAGMA application_id = 1447776835"},
    // Read as text, U+FFFE and U+FFFF would be replaced.
    .whole = "CAST(%1 AS BLOB)",
    .folded = "%1 COLLATE NOCASE",
    .contains = "%1 GLOB ?",
    .transaction = nullptr,
    .isCommitted = nullptr,
    .words = {{{"{id}", "INTEGER PRIMARY KEY AUTOINCREMENT"},
               {"{logId}", "INTEGER PRIMARY KEY"},
               {"{integer}", "INTEGER"},
               {"{number}", "REAL"},
               {"{key}", "TEXT"},
               // In the index, a search reads nothing beside it.
               {"{searched}", ", searched"},
               {"{table}", " STRICT"},
               {"{keyedTable}", " STRICT, WITHOUT ROWID"}}},
    .faultOf = sqliteFault,
    .carried = carriedBySqlite,
    .sought = soughtBySqlite,
};

// --- PostgreSQL ------------------------------------------------------------------------------

// https://www.postgresql.org/docs/current/errcodes-appendix.html; the beginning of the code, the
// closer one first.
struct PostgresFault {
    const char* state;
    StoreFault fault;
};
constexpr PostgresFault postgresFaults[] = {
    {"55P03", StoreFault::locked},      {"40", StoreFault::locked},
    {"57014", StoreFault::locked},      {"25006", StoreFault::readOnly},
    {"42501", StoreFault::readOnly},    {"53100", StoreFault::full},
    {"53300", StoreFault::unreachable}, {"57P", StoreFault::unreachable},
    {"08", StoreFault::unreachable},    {"28", StoreFault::denied},
    {"3D000", StoreFault::missing},     {"XX00", StoreFault::corrupt},
    {"58030", StoreFault::corrupt},
};

// While connecting there is no code yet, only the words of the server.
constexpr PostgresFault postgresRefusals[] = {
    {"password", StoreFault::denied},     {"authentication", StoreFault::denied},
    {"pg_hba.conf", StoreFault::denied},  {"role \"", StoreFault::denied},
    {"database \"", StoreFault::missing},
};

StoreFault postgresFault(const QSqlError& error, const QString& /*path*/) {
    const QString state = error.nativeErrorCode();
    for (const PostgresFault& row : postgresFaults)
        if (!state.isEmpty() && state.startsWith(QLatin1String(row.state)))
            return row.fault;
    if (!state.isEmpty())
        return StoreFault::other;
    for (const PostgresFault& row : postgresRefusals)
        if (error.databaseText().contains(QLatin1String("FATAL")) &&
            error.databaseText().contains(QLatin1String(row.state)))
            return row.fault;
    return error.databaseText().contains(QLatin1String("no password supplied"))
               ? StoreFault::denied
               : StoreFault::unreachable;
}

QString carriedByPostgres(const QString& text) {
    if (text.contains(QChar::Null))
        throw StoreFailure({StoreFault::other,
                            "A text holds a character that the shared database cannot keep (the "
                            "null character). Take it out and save again; nothing was changed.",
                            std::nullopt});
    return text.startsWith(QChar::ByteOrderMark) ? markedTwice(text) : text;
}

// The comment of the table is kept by copies that the server makes of its databases.
constexpr StoreDialect postgres = {
    .driver = "QPSQL",
    .driverPackage = "libqt6sql6-psql",
    .isFile = false,
    .setup = {"SET lock_timeout = %1", "SET synchronous_commit = on", "SET extra_float_digits = 3",
              "SET client_min_messages = warning"},
    .begin = {{{"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"},
               {"BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE",
                "LOCK TABLE company IN SHARE ROW EXCLUSIVE MODE"},
               {"BEGIN ISOLATION LEVEL READ COMMITTED READ WRITE",
                "SELECT pg_advisory_xact_lock(1447776835)"}}},
    .isOurs = "SELECT count(*) WHERE obj_description(to_regclass('company'), 'pg_class') "
              "LIKE 'companies, version %'",
    .isUntouched = "SELECT CASE WHEN EXISTS (SELECT FROM pg_class WHERE relkind IN ('r', 'p', 'v', "
                   "'m', 'f') AND relnamespace = current_schema()::regnamespace) "
                   "THEN 0 ELSE 1 END",
    .version = "SELECT coalesce(substring(obj_description(to_regclass('company'), 'pg_class') "
               "from '^companies, version ([0-9]+)$')::integer, 0)",
    .columns = "SELECT attname::text FROM pg_attribute WHERE attrelid = to_regclass('company') AND "
               "attnum > 0 AND NOT attisdropped",
    .changeStamp = "SELECT coalesce(max(id), 0) FROM change_log",
    .mark = {"COMMENT ON TABLE company IS 'companies, version %1'"},
    .whole = "%1",
    .folded = "lower(%1 COLLATE \"C\")",
    .contains = "strpos(%1, ?) > 0",
    .transaction = "SELECT txid_current()",
    .isCommitted = "SELECT CASE txid_status(%1) WHEN 'committed' THEN 1 ELSE 0 END",
    .words = {{{"{id}", "BIGINT GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY"},
               {"{logId}", "BIGINT GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY"},
               {"{integer}", "BIGINT"},
               {"{number}", "DOUBLE PRECISION"},
               {"{key}", "TEXT COLLATE \"C\""},
               {"{searched}", ""}, // a text may be longer than an index takes
               {"{table}", ""},
               {"{keyedTable}", ""}}},
    .faultOf = postgresFault,
    .carried = carriedByPostgres,
    .sought = [](const QString& word) { return word; },
};

} // namespace

QString StoreDialect::define(QString definition) const {
    for (const auto& [word, meaning] : words)
        definition.replace(QLatin1String(word), QLatin1String(meaning));
    return definition;
}

QString StoreDialect::wholeText(const QString& column) const {
    return QString(whole).replace("%1", column);
}

const StoreDialect& sqliteDialect() {
    return sqlite;
}

const StoreDialect& postgresDialect() {
    return postgres;
}

bool isPassingSqliteError(int code) {
    const int primary = code & sqlite_code::primaryCode;
    return primary == sqlite_code::inputOutput || primary == sqlite_code::noMemory;
}

} // namespace vkr
