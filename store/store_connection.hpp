// SPDX-License-Identifier: MIT
#pragma once

#include "store/company_file.hpp"
#include "store/store_failure.hpp"
#include "store/store_location.hpp"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

// A connection to the database, with its statements prepared once and kept. Everything here throws
// StoreFailure.
//
// At any time
// - it is open. Only where a server has gone it is not, and the next transaction opens it anew. The
//   prepared statements go with the database that they were prepared for.
// - there is one transaction, or none.
// - the outcome of each transaction that has ended is known. Only a server can leave it unknown.
// - a connection that only inspects refuses transactions that write.
// - only a file is looked through for damage.
class StoreConnection {
  public:
    enum class Access { inspect, existing, create };

    StoreConnection(const StoreLocation& location, Access access,
                    std::chrono::milliseconds patience);
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

      private:
        StoreConnection& connection_;
        QSqlQuery& query_;
    };

    void run(const QString& text, const std::vector<QVariant>& values = {}) {
        Statement(*this, text, values);
    }
    // Connects anew. A file that could not be opened for writing is opened for reading only, and
    // stays so until then.
    void reopen() { open(); }
    // Run once and not kept: a definition, the begin and end of a transaction.
    void execute(const QString& text);
    // The first value of the first row; 0 without a row. Not kept either.
    [[nodiscard]] std::int64_t integer(const QString& text);

    // Undone at the end of its scope unless committed; it ends once, by either. `write` keeps other
    // writers out from the start, `migrate` does so before there are tables, `read` shows
    // everything as it is at one moment. Connects anew where the server has gone and come back
    // since.
    class Transaction {
      public:
        enum class Kind { read, write, migrate };
        Transaction(StoreConnection& connection, Kind kind);
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        ~Transaction();
        // Where the answer gets lost the outcome is looked up; where that cannot be done either, it
        // fails with StoreFault::uncertain.
        void commit();

      private:
        [[nodiscard]] bool isOpen() const { return connection_.transaction_ == this; }
        void begin(Kind kind);
        void rollBack();

        StoreConnection& connection_;
    };

    // The number of the last transaction of which the outcome is not known; 0 where there is none.
    [[nodiscard]] std::int64_t uncertainTransaction() const { return uncertainTransaction_; }
    // Looks it up; nothing where that cannot be done.
    [[nodiscard]] std::optional<bool> settleTransaction();

    // Of a file only: a complete copy in a new one.
    void copyTo(const QString& path);
    // Of a file only: what a check of it finds; "" where it is sound. Fails where it cannot be
    // read.
    [[nodiscard]] QString damage();
    // A file that is read without its locks may have been changed under what was read.
    void refuseWhatChangedMeanwhile() const;
    // Of a file only: all that was committed goes from the log into the file.
    void emptyLog() { execute("PRAGMA wal_checkpoint(TRUNCATE)"); }
    [[nodiscard]] StoreError describe(const QSqlError& error);
    [[nodiscard]] const StoreDialect& dialect() const { return *location_.dialect; }
    [[nodiscard]] const StoreLocation& location() const { return location_; }

  private:
    struct Handle {
        explicit Handle(const char* driver);
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        ~Handle();

        QString name;
        QSqlDatabase database;
    };

    void open();
    void refuseDamage(); // of a file, once
    [[nodiscard]] QString damageSeenOnce();
    QSqlQuery& prepared(const QString& text);
    // Qt makes a name for each value that is bound by its place, anew each time, which takes longer
    // than binding it: so every place has a name of its own.
    const QString& placeName(qsizetype place);
    [[nodiscard]] QString withPlaceNames(const QString& text);

    StoreLocation location_;
    std::chrono::milliseconds patience_;
    bool isInspecting_;
    std::optional<FileLooks> atRest_;          // of a file that is taken to stay as it is
    const Transaction* transaction_ = nullptr; // under way
    std::int64_t uncertainTransaction_ = 0;
    bool isSound_ = false;                                     // so far as it was looked at
    std::optional<Handle> handle_;                             // outlives the statements
    std::map<QString, std::unique_ptr<QSqlQuery>> statements_; // by their text with "?"
    QStringList placeNames_;
};

} // namespace vkr
