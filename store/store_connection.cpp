// SPDX-License-Identifier: MIT
#include "store/store_connection.hpp"

#include "store/fault_text.hpp"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>
#include <QUrlQuery>
#include <QUuid>

#include <cassert>

namespace vkr {

namespace {

// A check goes on where a page could not be read, and says so among what it finds.
bool isFailedRead(const QString& found) {
    static const QRegularExpression failure("unable to get the page. error code=(\\d+)");
    const QRegularExpressionMatch match = failure.match(found);
    return match.hasMatch() && isPassingSqliteError(match.captured(1).toInt());
}

void nameFile(QSqlDatabase& database, const QString& path, StoreConnection::Access access,
              bool isAtRest, std::chrono::milliseconds patience) {
    using Access = StoreConnection::Access;
    // With nobody else at the file it can be inspected without leaving a trace beside it.
    const QString mode = access == Access::create     ? "mode=rwc"
                         : access == Access::existing ? "mode=rw"
                         : isAtRest                   ? "mode=ro&immutable=1"
                                                      : "mode=ro";
    const QUrl file = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    database.setDatabaseName(file.toString(QUrl::FullyEncoded) + "?" + mode);
    database.setConnectOptions("QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=" +
                               QString::number(patience.count()));
}

void nameServer(QSqlDatabase& database, const QUrl& url) {
    database.setDatabaseName(url.path(QUrl::FullyDecoded).mid(1));
    database.setHostName(url.host(QUrl::FullyDecoded));
    database.setPort(url.port());
    database.setUserName(url.userName(QUrl::FullyDecoded));
    database.setPassword(url.password(QUrl::FullyDecoded));
    QStringList options = {"connect_timeout=5"};
    for (const auto& [option, value] : QUrlQuery(url).queryItems(QUrl::FullyDecoded))
        options += option + "='" + QString(value).replace('\'', "\\'") + "'";
    database.setConnectOptions(options.join(';'));
}

} // namespace

StoreConnection::Handle::Handle(const char* driver)
    : name("vkr-" + QUuid::createUuid().toString(QUuid::WithoutBraces)),
      database(QSqlDatabase::addDatabase(driver, name)) {}

StoreConnection::Handle::~Handle() {
    database.close();
    database = {};
    QSqlDatabase::removeDatabase(name);
}

StoreConnection::StoreConnection(const StoreLocation& location, Access access,
                                 std::chrono::milliseconds patience)
    : location_(location), patience_(patience), isInspecting_(access == Access::inspect) {
    const StoreDialect& dialect = *location.dialect;
    if (!QSqlDatabase::isDriverAvailable(dialect.driver))
        fail(StoreFault::other, location,
             std::string("Qt has no driver for it here; package ") + dialect.driverPackage);
    handle_.emplace(dialect.driver);
    if (dialect.isFile) {
        if (const FileLooks looks = looksOf(location.path); isInspecting_ && !looks.hasLog)
            atRest_ = looks;
        nameFile(handle_->database, location.path, access, atRest_.has_value(), patience);
    } else
        nameServer(handle_->database, location.url);
    open();
}

void StoreConnection::open() {
    statements_.clear();
    handle_->database.close();
    if (!handle_->database.open())
        throw StoreFailure(describe(handle_->database.lastError()));
    if (isInspecting_)
        return;
    for (const char* statement : location_.dialect->setup)
        if (statement != nullptr)
            execute(QString(statement).replace("%1", QString::number(patience_.count())));
}

void StoreConnection::execute(const QString& text) {
    QSqlQuery query(handle_->database);
    if (!query.exec(text))
        throw StoreFailure(describe(query.lastError()));
}

StoreConnection::Statement::Statement(StoreConnection& connection, const QString& text,
                                      const std::vector<QVariant>& values)
    : connection_(connection), query_(connection.prepared(text)) {
    assert(!query_.isActive());
    qsizetype place = 0;
    for (const QVariant& value : values) {
        const QString& name = connection.placeName(place++);
        if (value.typeId() == QMetaType::QString && !value.isNull())
            query_.bindValue(name, connection.dialect().carried(value.toString()));
        else
            query_.bindValue(name, value);
    }
    if (query_.exec())
        return;
    const QSqlError error = query_.lastError();
    query_.finish();
    // Where memory ran out it may be of no use any more: the next one is prepared anew.
    connection_.statements_.erase(text);
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
    const QVariant value = query_.value(column);
    return value.typeId() == QMetaType::QByteArray ? value.toByteArray().toStdString()
                                                   : value.toString().toStdString();
}

std::int64_t StoreConnection::integer(const QString& text) {
    QSqlQuery query(handle_->database);
    if (!query.exec(text))
        throw StoreFailure(describe(query.lastError()));
    return query.next() ? query.value(0).toLongLong() : 0;
}

StoreConnection::Transaction::Transaction(StoreConnection& connection, Kind kind)
    : connection_(connection) {
    assert(connection_.transaction_ == nullptr);
    if (kind != Kind::read && connection_.isInspecting_)
        fail(StoreFault::readOnly, connection_.location_);
    if (!connection_.handle_->database.isOpen())
        connection_.open();
    try {
        begin(kind);
    } catch (const StoreFailure& failure) {
        rollBack();
        // A server that was started anew since then knows nothing of the old connection; to a file
        // the transaction before it may still be open, where there was no memory to end it.
        if (failure.error().fault != StoreFault::unreachable &&
            !(failure.error().fault == StoreFault::other && connection_.dialect().isFile))
            throw;
        connection_.open();
        begin(kind);
    }
    if (kind != Kind::read) {
        try {
            connection_.refuseDamage();
        } catch (...) {
            rollBack();
            throw;
        }
    }
    connection_.transaction_ = this;
}

void StoreConnection::Transaction::begin(Kind kind) {
    for (const char* statement : connection_.dialect().begin[static_cast<std::size_t>(kind)])
        if (statement != nullptr)
            connection_.execute(statement);
}

StoreConnection::Transaction::~Transaction() {
    // The database may have rolled back by itself: then there is nothing left to undo.
    if (isOpen())
        rollBack();
}

void StoreConnection::Transaction::rollBack() {
    connection_.transaction_ = nullptr;
    if (connection_.handle_->database.isOpen())
        QSqlQuery(connection_.handle_->database).exec("ROLLBACK");
}

void StoreConnection::Transaction::commit() {
    assert(isOpen());
    const char* number = connection_.dialect().transaction;
    const std::int64_t transaction = number != nullptr ? connection_.integer(number) : 0;
    try {
        connection_.execute("COMMIT");
    } catch (const StoreFailure& failure) {
        if (transaction == 0 || failure.error().fault != StoreFault::unreachable)
            throw;
        connection_.transaction_ = nullptr; // ended with the connection
        assert(connection_.uncertainTransaction_ == 0);
        connection_.uncertainTransaction_ = transaction;
        const auto isCommitted = connection_.settleTransaction();
        if (!isCommitted)
            fail(StoreFault::uncertain, connection_.location_);
        if (!*isCommitted)
            throw;
    }
    connection_.transaction_ = nullptr;
}

std::optional<bool> StoreConnection::settleTransaction() {
    assert(uncertainTransaction_ != 0 && transaction_ == nullptr);
    try {
        open();
        // The server may still be at it: whoever writes waits for the end of that.
        const Transaction afterIt(*this, Transaction::Kind::write);
        const std::int64_t isCommitted = integer(
            QString(dialect().isCommitted).replace("%1", QString::number(uncertainTransaction_)));
        uncertainTransaction_ = 0;
        return isCommitted != 0;
    } catch (const StoreFailure&) {
        return std::nullopt;
    }
}

void StoreConnection::copyTo(const QString& path) {
    assert(dialect().isFile && transaction_ == nullptr);
    run("VACUUM INTO ?", {path});
}

QString StoreConnection::damageSeenOnce() {
    assert(dialect().isFile);
    QSqlQuery query(handle_->database);
    // SQLite 3.40 takes a column between those of the key for empty in a table that is kept by its
    // key; no other check can leave such a column empty.
    QString unread;
    if (query.exec("SELECT integrity_check FROM pragma_integrity_check(100000) "
                   "WHERE integrity_check <> 'ok' "
                   "AND integrity_check NOT LIKE 'NULL value in list_entry.%'"))
        while (query.next()) {
            if (QString found = query.value(0).toString(); !isFailedRead(found))
                return found;
            unread = query.value(0).toString();
        }
    if (const QSqlError error = query.lastError(); error.isValid()) {
        const StoreFault fault = dialect().faultOf(error, location_.path);
        if (fault == StoreFault::corrupt || fault == StoreFault::notADatabase)
            return error.databaseText();
        throw StoreFailure(describe(error));
    }
    if (!unread.isEmpty())
        fail(StoreFault::other, location_, unread.simplified().toStdString());
    return {};
}

// Found twice, in a file that can be read: a read that fails looks like damage, too.
QString StoreConnection::damage() {
    if (damageSeenOnce().isEmpty())
        return {};
    QString found = damageSeenOnce();
    QFile file(location_.path);
    QByteArray block(1 << 16, '\0');
    qint64 size = file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) ? 1 : -1;
    while (size > 0)
        size = file.read(block.data(), block.size());
    if (size < 0 || found.isEmpty())
        fail(StoreFault::other, location_,
             size < 0 ? file.errorString().toStdString() : "a read failed");
    return found;
}

// Pages that are used twice are read well, and overwritten by the next save.
void StoreConnection::refuseDamage() {
    if (isSound_ || !dialect().isFile)
        return;
    if (const QString found = damage(); !found.isEmpty())
        fail(StoreFault::corrupt, location_, found.simplified().toStdString());
    isSound_ = true;
}

void StoreConnection::refuseWhatChangedMeanwhile() const {
    if (atRest_ && looksOf(location_.path) != *atRest_)
        fail(StoreFault::locked, location_);
}

StoreError StoreConnection::describe(const QSqlError& error) {
    StoreFault fault = dialect().faultOf(error, location_.path);
    QString detail = error.databaseText();
    if (fault == StoreFault::corrupt && dialect().isFile) {
        if (const QString found = damage(); !found.isEmpty())
            detail = found;
        else
            fault = StoreFault::other; // read while another program was writing
    }
    const bool needsDetail = fault == StoreFault::corrupt || fault == StoreFault::other ||
                             fault == StoreFault::unreachable || fault == StoreFault::denied;
    return describeFault(fault, location_,
                         needsDetail ? detail.simplified().toStdString() : std::string());
}

const QString& StoreConnection::placeName(qsizetype place) {
    while (placeNames_.size() <= place)
        placeNames_ += ":v" + QString::number(placeNames_.size());
    return placeNames_.at(place);
}

QString StoreConnection::withPlaceNames(const QString& text) {
    const QStringList parts = text.split(u'?');
    QString named = parts.front();
    for (qsizetype place = 1; place < parts.size(); ++place)
        named += placeName(place - 1) + parts.at(place);
    return named;
}

QSqlQuery& StoreConnection::prepared(const QString& text) {
    assert(handle_->database.isOpen());
    std::unique_ptr<QSqlQuery>& query = statements_[text];
    if (query == nullptr) {
        auto made = std::make_unique<QSqlQuery>(handle_->database);
        made->setForwardOnly(dialect().isFile);
        if (!made->prepare(withPlaceNames(text))) {
            const QSqlError error = made->lastError();
            statements_.erase(text);
            throw StoreFailure(describe(error));
        }
        query = std::move(made);
    }
    return *query;
}

} // namespace vkr
