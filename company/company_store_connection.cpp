// SPDX-License-Identifier: MIT
#include "company/company_store_connection.hpp"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <QStringDecoder>
#include <QUrl>
#include <QUuid>

namespace vkr {

namespace {

// https://www.sqlite.org/rescode.html
namespace sqlite {
constexpr int primaryCode = 0xFF; // the rest of a code says more closely what happened
constexpr int permissionDenied = 3;
constexpr int busy = 5;
constexpr int locked = 6;
constexpr int readOnly = 8;
constexpr int inputOutput = 10;
constexpr int corrupt = 11;
constexpr int full = 13;
constexpr int cannotOpen = 14;
constexpr int notADatabase = 26;
constexpr int fileWasMoved = 1032;
} // namespace sqlite

bool isWritable(const QFileInfo& file) {
    return (!file.exists() || file.isWritable()) && QFileInfo(file.absolutePath()).isWritable();
}

StoreFault faultOf(int code, const QString& path) {
    if (code == sqlite::fileWasMoved)
        return StoreFault::missing;
    switch (code & sqlite::primaryCode) {
    case sqlite::busy:
    case sqlite::locked:
        return StoreFault::locked;
    case sqlite::readOnly:
    case sqlite::permissionDenied:
        return StoreFault::readOnly;
    case sqlite::full:
        return StoreFault::full;
    case sqlite::corrupt:
        return StoreFault::corrupt;
    case sqlite::notADatabase:
        return StoreFault::notADatabase;
    case sqlite::cannotOpen:
        return isWritable(QFileInfo(path)) ? StoreFault::other : StoreFault::readOnly;
    case sqlite::inputOutput: {
        const QStorageInfo disk(QFileInfo(path).absolutePath());
        return disk.isValid() && disk.bytesAvailable() == 0 ? StoreFault::full : StoreFault::other;
    }
    default:
        return StoreFault::other;
    }
}

struct FaultText {
    StoreFault fault;
    const char* text;
};

constexpr FaultText faultTexts[] = {
    {StoreFault::missing, " does not exist. Choose another file, or make a new one."},
    {StoreFault::locked, " is being written by another window or program. Nothing was changed; "
                         "try again in a moment."},
    {StoreFault::readOnly, " cannot be written: the file or its folder is read-only. Change that, "
                           "or work on a copy in another folder."},
    {StoreFault::full, " could not be written: the disk is full. It holds what it held before. "
                       "Free some space and save again."},
    {StoreFault::notADatabase, " is not a company file. It was left as it is; choose another one."},
    {StoreFault::newerSchema, " was written by a newer version of this program. It was left as it "
                              "is; open it with that version."},
    {StoreFault::corrupt, " is damaged. Go on with a copy of it from before."},
    {StoreFault::conflict, " was changed by somebody else."},
    {StoreFault::other, " could not be read or written."},
};

} // namespace

QString toQString(const std::string& text) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

QVariant textValue(const std::string& text) {
    QString value = toQString(text);
    // The database takes one byte order mark away.
    if (value.startsWith(QChar::ByteOrderMark) || value.startsWith(QChar::ByteOrderSwapped))
        value.prepend(QChar::ByteOrderMark);
    return value;
}

StoreConnection::Handle::Handle()
    : name("vkr-" + QUuid::createUuid().toString(QUuid::WithoutBraces)),
      database(QSqlDatabase::addDatabase("QSQLITE", name)) {}

StoreConnection::Handle::~Handle() {
    database.close();
    database = {};
    QSqlDatabase::removeDatabase(name);
}

StoreConnection::StoreConnection(const QString& path, Access access,
                                 std::chrono::milliseconds patience)
    : path_(path) {
    // With nobody else at the file it can be inspected without leaving a trace beside it.
    const QString mode = access == Access::create       ? "mode=rwc"
                         : access == Access::existing   ? "mode=rw"
                         : QFile::exists(path + "-wal") ? "mode=ro"
                                                        : "mode=ro&immutable=1";
    const QUrl location = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    handle_.database.setDatabaseName(location.toString(QUrl::FullyEncoded) + "?" + mode);
    handle_.database.setConnectOptions("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=" +
                                       QString::number(patience.count()));
    if (!handle_.database.open())
        throw StoreFailure(describe(handle_.database.lastError()));
    if (access == Access::inspect)
        return;
    run("PRAGMA foreign_keys = ON");
    run("PRAGMA journal_mode = WAL");
    run("PRAGMA synchronous = FULL");
    // Everything saved is in the file itself, for people who copy it while it is open.
    run("PRAGMA wal_autocheckpoint = 1");
}

StoreConnection::Statement::Statement(StoreConnection& connection, const QString& text,
                                      const std::vector<QVariant>& values)
    : connection_(connection), query_(connection.prepared(text)) {
    for (std::size_t i = 0; i < values.size(); ++i)
        query_.bindValue(static_cast<int>(i), values[i]);
    if (query_.exec())
        return;
    const QSqlError error = query_.lastError();
    query_.finish();
    throw StoreFailure(connection_.describe(error));
}

bool StoreConnection::Statement::next() {
    if (query_.next())
        return true;
    if (query_.lastError().isValid())
        throw StoreFailure(connection_.describe(query_.lastError()));
    return false;
}

std::int64_t StoreConnection::Statement::integer(int column) const {
    return query_.value(column).toLongLong();
}

double StoreConnection::Statement::number(int column) const {
    return query_.value(column).toDouble();
}

std::string StoreConnection::Statement::text(int column) const {
    return query_.value(column).toString().toStdString();
}

std::int64_t StoreConnection::integer(const QString& text) {
    Statement statement(*this, text);
    return statement.next() ? statement.integer(0) : 0;
}

StoreConnection::Transaction::Transaction(StoreConnection& connection, Kind kind)
    : connection_(connection) {
    connection_.run(kind == Kind::write ? "BEGIN IMMEDIATE" : "BEGIN");
}

StoreConnection::Transaction::~Transaction() {
    // The database may have rolled back by itself: then there is nothing left to undo.
    if (isOpen_)
        QSqlQuery(connection_.handle_.database).exec("ROLLBACK");
}

void StoreConnection::Transaction::commit() {
    connection_.run("COMMIT");
    isOpen_ = false;
}

void StoreConnection::copyTo(const QString& path) {
    run("VACUUM INTO ?", {path});
}

QString StoreConnection::damage() {
    QSqlQuery query(handle_.database);
    if (!query.exec("PRAGMA quick_check(1)") || !query.next())
        return query.lastError().databaseText();
    const QString answer = query.value(0).toString();
    return answer == "ok" ? QString() : answer;
}

StoreError StoreConnection::describe(const QSqlError& error) {
    const StoreFault fault = faultOf(error.nativeErrorCode().toInt(), path_);
    QString detail = error.databaseText();
    if (fault == StoreFault::corrupt)
        if (const QString found = damage(); !found.isEmpty())
            detail = found;
    const bool needsDetail = fault == StoreFault::corrupt || fault == StoreFault::other;
    return describeFault(fault, path_, needsDetail ? detail.toStdString() : std::string());
}

QSqlQuery& StoreConnection::prepared(const QString& text) {
    std::unique_ptr<QSqlQuery>& query = statements_[text];
    if (query == nullptr) {
        auto made = std::make_unique<QSqlQuery>(handle_.database);
        made->setForwardOnly(true);
        if (!made->prepare(text))
            throw StoreFailure(describe(made->lastError()));
        query = std::move(made);
    }
    return *query;
}

StoreError describeFault(StoreFault fault, const QString& path, const std::string& detail) {
    std::string message = path.toStdString();
    for (const FaultText& row : faultTexts)
        if (row.fault == fault)
            message += row.text;
    if (!detail.empty())
        message += " (" + detail + ")";
    return {fault, message, std::nullopt};
}

bool isWritableFile(const QString& path) {
    return isWritable(QFileInfo(path));
}

} // namespace vkr
