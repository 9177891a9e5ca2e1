// SPDX-License-Identifier: MIT
// A save through the store against the same rows written by the raw SQLite API.
#include "benchmarks/companies.hpp"
#include "company/company_record.hpp"
#include "store/company_store.hpp"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <vector>

namespace {

using namespace vkr;

void check(bool isDone) {
    if (!isDone)
        std::abort();
}

// A new file with two companies in it, numbers 1 and 2; the second one has been saved as the first
// and as itself again.
class Companies {
  public:
    Companies() {
        auto opened = CompanyStore::open(file(), OpenMode::create);
        check(bool(opened));
        store_ = std::move(opened.value());
        for (const auto& record : records_)
            check(bool(store_->save(std::nullopt, *record)));
        // What a save from one to the other says of its changes, either way.
        check(bool(store_->save(2, *records_[0], 1)));
        check(bool(store_->save(2, *records_[1], 2)));
    }
    [[nodiscard]] std::string file() const {
        return folder_.filePath(QStringLiteral("companies.vkr")).toStdString();
    }
    [[nodiscard]] CompanyStore& store() { return *store_; }
    [[nodiscard]] const CompanyRecord& record(int index) const {
        return *records_[static_cast<std::size_t>(index)];
    }
    void close() { store_.reset(); }

  private:
    QTemporaryDir folder_;
    std::shared_ptr<CompanyRecord> records_[2] = {company(100), company(217)};
    std::unique_ptr<CompanyStore> store_;
};

void saveStore(benchmark::State& state) {
    Companies companies;
    std::int64_t revision = 1;
    for (auto _ : state) {
        const auto& record = companies.record(static_cast<int>(revision % 2));
        const auto key = companies.store().save(1, record, revision);
        check(bool(key));
        revision = key.value().revision;
    }
}
BENCHMARK(saveStore)->Name("save/store")->Unit(benchmark::kMicrosecond)->UseRealTime();

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

    std::vector<Row> rows(const std::string& text) {
        sqlite3_stmt* statement = prepare(text);
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

void saveRaw(benchmark::State& state) {
    Companies companies;
    companies.close();
    RawFile file(companies.file());
    std::vector<RawFile::Row> company[2];
    std::vector<RawFile::Row> series[2];
    std::vector<RawFile::Row> listing[2];
    std::vector<RawFile::Row> groups[2];
    std::vector<RawFile::Row> changes[2];
    for (const int i : {0, 1}) {
        const std::string id = std::to_string(i + 1);
        company[i] = file.rows("SELECT * FROM company WHERE id = " + id);
        series[i] =
            file.rows("SELECT 1, series, element, value FROM series WHERE company_id = " + id);
        listing[i] = file.rows("SELECT * FROM listing WHERE company_id = " + id);
        const std::string saved = " WHERE company_id = 2 AND revision = " + std::to_string(i + 2);
        groups[i] = file.rows("SELECT 1, revision, place, name, changed_by, changed_at, checksum "
                              "FROM change_group" +
                              saved);
        changes[i] = file.rows("SELECT 1, revision, place, line, datum, counted_from, elements, "
                               "before, after, origin, document FROM figure_change" +
                               saved);
    }
    const auto logged = file.rows("SELECT company_id, revision, change, changed_by, changed_at "
                                  "FROM change_log WHERE company_id = 1");
    sqlite3_stmt* update = file.prepareUpdate("company");
    sqlite3_stmt* list = file.prepareUpdate("listing");
    sqlite3_stmt* remove = file.prepare("DELETE FROM series WHERE company_id = 1");
    sqlite3_stmt* insert = file.prepare("INSERT INTO series VALUES (?, ?, ?, ?)");
    sqlite3_stmt* log = file.prepare("INSERT INTO change_log (company_id, revision, change, "
                                     "changed_by, changed_at) VALUES (?, ?, ?, ?, ?)");
    sqlite3_stmt* group = file.prepare("INSERT INTO change_group VALUES (?, ?, ?, ?, ?, ?, ?)");
    sqlite3_stmt* change =
        file.prepare("INSERT INTO figure_change VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    int turn = 0;
    std::int64_t revision = 1;
    for (auto _ : state) {
        turn = 1 - turn;
        file.run("BEGIN IMMEDIATE");
        RawFile::write(update, company[turn].front(), 1);
        RawFile::write(remove, {});
        for (const auto& row : series[turn])
            RawFile::write(insert, row);
        RawFile::write(list, listing[turn].front(), 1);
        ++revision;
        for (const auto& row : groups[turn])
            RawFile::writeAt(group, row, revision);
        for (const auto& row : changes[turn])
            RawFile::writeAt(change, row, revision);
        RawFile::write(log, logged.front());
        file.run("COMMIT");
    }
}
BENCHMARK(saveRaw)->Name("save/raw")->Unit(benchmark::kMicrosecond)->UseRealTime();

} // namespace
