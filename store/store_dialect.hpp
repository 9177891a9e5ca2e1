// SPDX-License-Identifier: MIT
#pragma once

#include "store/store_result.hpp"

#include <QSqlError>
#include <QString>

#include <array>
#include <utility>

namespace vkr {

// What one kind of database says differently from another. Nothing else in the store asks which
// kind it is, but for what only a file has: a folder, a neighbour, a size.
struct StoreDialect {
    const char* driver; // of Qt SQL
    const char* driverPackage;
    bool isFile;

    // Said once after connecting, each; %1 is the patience in milliseconds. The rest is null.
    std::array<const char*, 6> setup;
    // How a transaction begins, in the order of StoreConnection::Transaction::Kind; the second
    // statement of each may be null.
    std::array<std::array<const char*, 2>, 3> begin;
    const char* isOurs;      // 1 where the tables are those of this program
    const char* isUntouched; // 1 where there are no tables at all
    const char* version;     // of the schema
    const char* columns;     // the names of the columns of `company`
    const char* changeStamp; // another number after somebody else has changed something
    // Marks the schema as ours, of version %1.
    std::array<const char*, 2> mark;
    // The text of the column %1, every character of it.
    const char* whole;
    // Orders text as people do that do not care for upper case; %1 is the column.
    const char* folded;
    // Whether the column %1 has a word in it, which is given as `sought` makes it.
    const char* contains;
    // The number of the transaction, and 1 where the one of number %1 was committed; null where no
    // answer can get lost.
    const char* transaction;
    const char* isCommitted;
    // For the {words} in a definition of a table.
    std::array<std::pair<const char*, const char*>, 8> words;

    StoreFault (*faultOf)(const QSqlError& error, const QString& path);
    // A text in the form in which the driver carries it over unchanged. Throws StoreFailure for
    // one that the database cannot hold.
    QString (*carried)(const QString& text);
    QString (*sought)(const QString& word);

    // A definition with this dialect's words.
    [[nodiscard]] QString define(QString definition) const;
    // `whole` of the column.
    [[nodiscard]] QString wholeText(const QString& column) const;
};

[[nodiscard]] const StoreDialect& sqliteDialect();
[[nodiscard]] const StoreDialect& postgresDialect();

// Whether a code of SQLite stands for something that may be gone the next time: a failed read,
// too little memory.
[[nodiscard]] bool isPassingSqliteError(int code);

} // namespace vkr
