// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace vkr {

inline void check(bool isDone) {
    if (!isDone)
        std::abort();
}

// Rows of values as they came out of a table, to be put into it again.
class RawFile {
  public:
    explicit RawFile(const std::string& file) {
        check(sqlite3_open(file.c_str(), &database_) == SQLITE_OK);
        for (const char* setting : {"PRAGMA foreign_keys = ON", "PRAGMA journal_mode = WAL",
                                    "PRAGMA synchronous = FULL", "PRAGMA wal_autocheckpoint = 1"})
            run(setting);
    }
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile() {
        for (sqlite3_stmt* statement : statements_)
            sqlite3_finalize(statement);
        sqlite3_close(database_);
    }

    void run(const char* text) {
        check(sqlite3_exec(database_, text, nullptr, nullptr, nullptr) == SQLITE_OK);
    }

    sqlite3_stmt* prepare(const std::string& text) {
        sqlite3_stmt* statement = nullptr;
        check(sqlite3_prepare_v2(database_, text.c_str(), -1, &statement, nullptr) == SQLITE_OK);
        statements_.push_back(statement);
        return statement;
    }

    struct Free {
        void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
    };
    using Row = std::vector<std::unique_ptr<sqlite3_value, Free>>;

    std::vector<Row> rows(const std::string& text) { return rows(prepare(text)); }
    static std::vector<Row> rows(sqlite3_stmt* statement) {
        std::vector<Row> all;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            Row row;
            for (int i = 0; i < sqlite3_column_count(statement); ++i)
                row.emplace_back(sqlite3_value_dup(sqlite3_column_value(statement, i)));
            all.push_back(std::move(row));
        }
        sqlite3_reset(statement);
        return all;
    }

    // Of a row by all columns but the first, its number.
    sqlite3_stmt* prepareUpdate(const std::string& table) {
        std::string text = "UPDATE " + table + " SET \"";
        sqlite3_stmt* columns = prepare("SELECT * FROM " + table);
        for (int i = 1; i < sqlite3_column_count(columns); ++i)
            text += std::string(i == 1 ? "" : ", \"") + sqlite3_column_name(columns, i) + "\" = ?";
        return prepare(text + " WHERE " + sqlite3_column_name(columns, 0) + " = 1");
    }

    static void write(sqlite3_stmt* statement, const Row& row, std::size_t from = 0) {
        bind(statement, row, from);
        check(sqlite3_step(statement) == SQLITE_DONE);
        sqlite3_reset(statement);
    }
    // As part of company 1 and of another save than it was read from.
    static void writeAt(sqlite3_stmt* statement, const Row& row, std::int64_t revision) {
        bind(statement, row, 0);
        sqlite3_bind_int64(statement, 2, revision);
        check(sqlite3_step(statement) == SQLITE_DONE);
        sqlite3_reset(statement);
    }

  private:
    static void bind(sqlite3_stmt* statement, const Row& row, std::size_t from) {
        for (std::size_t i = from; i < row.size(); ++i)
            sqlite3_bind_value(statement, static_cast<int>(i - from) + 1, row[i].get());
    }

    sqlite3* database_ = nullptr;
    std::vector<sqlite3_stmt*> statements_;
};

} // namespace vkr
