// SPDX-License-Identifier: MIT
// A save through the store against the same rows written by the raw SQLite API.
#include "benchmarks/companies.hpp"
#include "benchmarks/raw_file.hpp"
#include "company/company_record.hpp"
#include "store/company_store.hpp"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace vkr;

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
