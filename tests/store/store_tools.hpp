// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_store.hpp"
#include "tests/support/dates.hpp"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QUrl>
#include <QVariant>

#include <gtest/gtest.h>
#include <memory>
#include <string>

inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace vkr {

inline void PrintTo(const CompanyKey& key, std::ostream* stream) {
    *stream << "company " << key.id << " revision " << key.revision;
}
inline void PrintTo(const Difference& difference, std::ostream* stream) {
    *stream << difference.datum << "[" << difference.element.value_or(-1) << "] "
            << difference.before << " -> " << difference.after;
}

namespace test {

using StorePtr = std::unique_ptr<CompanyStore>;

template <typename Value>
std::string messageOf(const StoreResult<Value>& result) {
    return result ? "no error" : result.error().message;
}

#define ASSERT_DONE(result) ASSERT_TRUE(result) << vkr::test::messageOf(result)
#define EXPECT_DONE(result) EXPECT_TRUE(result) << vkr::test::messageOf(result)

inline QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline std::shared_ptr<CompanyRecord> named(const std::string& name) {
    auto record = std::make_shared<CompanyRecord>();
    record->put_Name(name);
    return record;
}

// Short of patience, so that what is locked is told at once.
inline StoreResult<StorePtr>
tryOpen(const QString& path, OpenMode mode, const std::string& user = "test@here",
        std::chrono::milliseconds patience = std::chrono::milliseconds(30)) {
    return CompanyStore::open(path.toStdString(), mode, {user, patience});
}

inline StorePtr open(const QString& path, OpenMode mode = OpenMode::create,
                     const std::string& user = "test@here") {
    auto opened = tryOpen(path, mode, user);
    EXPECT_DONE(opened);
    return opened ? std::move(opened.value()) : nullptr;
}

// Looks into a database, or disturbs it, past the store.
class OtherProgram {
  public:
    explicit OtherProgram(const QString& path, const QString& options = {}) {
        static int count = 0;
        name_ = "other-" + QString::number(++count);
        const bool isOnServer = CompanyStore::isOnServer(path.toStdString());
        auto database = QSqlDatabase::addDatabase(isOnServer ? "QPSQL" : "QSQLITE", name_);
        database.setDatabaseName(path);
        if (isOnServer) {
            const QUrl url(path);
            database.setDatabaseName(url.path().mid(1));
            database.setHostName(url.host());
            database.setPort(url.port());
            database.setUserName(url.userName());
            database.setPassword(url.password());
        }
        database.setConnectOptions(options);
        EXPECT_TRUE(database.open()) << database.lastError().text().toStdString();
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() { QSqlDatabase::removeDatabase(name_); }

    // The first value of the answer.
    QVariant run(const QString& statement) const {
        QSqlQuery query(QSqlDatabase::database(name_));
        EXPECT_TRUE(query.exec(statement))
            << statement.toStdString() << ": " << query.lastError().text().toStdString();
        return query.next() ? query.value(0) : QVariant();
    }
    QStringList column(const QString& statement) const {
        QSqlQuery query(QSqlDatabase::database(name_));
        EXPECT_TRUE(query.exec(statement))
            << statement.toStdString() << ": " << query.lastError().text().toStdString();
        QStringList values;
        while (query.next())
            values += query.value(0).toString();
        return values;
    }

  private:
    QString name_;
};

} // namespace test
} // namespace vkr
