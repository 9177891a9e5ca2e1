// SPDX-License-Identifier: MIT
#pragma once

#include "company/company_store.hpp"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <exception>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vkr {

[[nodiscard]] QString toQString(const std::string& text);

// How an error travels inside of the store; no public operation lets it out.
class StoreFailure : public std::exception {
  public:
    explicit StoreFailure(StoreError error) : error_(std::move(error)) {}
    [[nodiscard]] const StoreError& error() const { return error_; }
    [[nodiscard]] const char* what() const noexcept override { return error_.message.c_str(); }

  private:
    StoreError error_;
};

// The only place that knows which database it is: how it is opened, what its error codes mean,
// how a transaction begins. Everything here throws StoreFailure.
class StoreConnection {
  public:
    enum class Access { inspect, existing, create };

    StoreConnection(const QString& path, Access access, std::chrono::milliseconds patience);
    StoreConnection(const StoreConnection&) = delete;
    StoreConnection& operator=(const StoreConnection&) = delete;

    // A prepared statement with its values, run once; it is reset when it goes out of scope. The
    // same text must not run twice at the same time.
    class Statement {
      public:
        Statement(StoreConnection& connection, const QString& text,
                  const std::vector<QVariant>& values = {});
        Statement(const Statement&) = delete;
        Statement& operator=(const Statement&) = delete;
        ~Statement() { query_.finish(); }

        bool next();
        [[nodiscard]] bool isNull(int column) const { return query_.isNull(column); }
        [[nodiscard]] std::int64_t integer(int column) const;
        [[nodiscard]] double number(int column) const;
        [[nodiscard]] std::string text(int column) const;
        [[nodiscard]] int changedRows() const { return query_.numRowsAffected(); }
        [[nodiscard]] std::int64_t newId() const { return query_.lastInsertId().toLongLong(); }

      private:
        StoreConnection& connection_;
        QSqlQuery& query_;
    };

    void run(const QString& text, const std::vector<QVariant>& values = {}) {
        Statement(*this, text, values);
    }
    // The first value of the first row; 0 without a row.
    [[nodiscard]] std::int64_t integer(const QString& text);

    // Undone at the end of its scope unless committed. `write` keeps other writers out from the
    // start, `read` shows the file as it is at one moment.
    class Transaction {
      public:
        enum class Kind { read, write };
        Transaction(StoreConnection& connection, Kind kind);
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        ~Transaction();
        void commit();

      private:
        StoreConnection& connection_;
        bool isOpen_ = true;
    };

    // A complete copy in a new file.
    void copyTo(const QString& path);
    // What a check of the file finds; "" where it is sound.
    [[nodiscard]] QString damage();
    [[nodiscard]] StoreError describe(const QSqlError& error);

  private:
    struct Handle {
        Handle();
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        ~Handle();

        QString name;
        QSqlDatabase database;
    };

    QSqlQuery& prepared(const QString& text);

    QString path_;
    Handle handle_; // outlives the statements
    std::map<QString, std::unique_ptr<QSqlQuery>> statements_;
};

// The error in the words that people read.
[[nodiscard]] StoreError describeFault(StoreFault fault, const QString& path,
                                       const std::string& detail = {});
// The file, or where there is none a new one in its folder, and the files that go with it.
[[nodiscard]] bool isWritableFile(const QString& path);

// A text as the database takes it.
[[nodiscard]] QVariant textValue(const std::string& text);

} // namespace vkr
