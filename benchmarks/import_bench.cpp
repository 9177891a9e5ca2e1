// SPDX-License-Identifier: MIT
// A folder of companies read from CSV files into a database, against a loop that reads the same
// files as plainly as can be, texts between commas and figures by strtod, and writes the rows that
// come of them by the raw SQLite API; both by a hundred in a transaction.
#include "benchmarks/companies.hpp"
#include "benchmarks/raw_file.hpp"
#include "company/company_csv.hpp"
#include "store/company_store.hpp"
#include "vkr/folder_import.hpp"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using namespace vkr;

// VKR_BENCH_COMPANIES=5000: as many as it says, in hundreds.
const int companies = [] {
    const char* wanted = std::getenv("VKR_BENCH_COMPANIES");
    const int count = wanted == nullptr ? 500 : std::atoi(wanted);
    check(count > 0 && count % static_cast<int>(FolderImporter::batchSize) == 0);
    return count;
}();

// A folder with all figures of each company, a file with them, and one without any.
class Imported {
  public:
    Imported() {
        for (int number = 0; number < companies; ++number) {
            const auto record = company(100 + 7.31 * number);
            record->put_Symbol("S" + std::to_string(number));
            check(exportCompany(*record, folder()).error.empty());
        }
        check(bool(CompanyStore::open(path("empty.vkr"), OpenMode::create)));
        import("full.vkr");
    }
    [[nodiscard]] std::string folder() const { return folder_.path().toStdString(); }
    [[nodiscard]] std::string path(const char* name) const {
        return folder_.filePath(QLatin1String(name)).toStdString();
    }
    void makeEmpty(const char* name) const {
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::remove(folder_.filePath(QLatin1String(name)) + QLatin1String(suffix));
        check(QFile::copy(folder_.filePath(QStringLiteral("empty.vkr")),
                          folder_.filePath(QLatin1String(name))));
    }
    void import(const char* name) const {
        makeEmpty(name);
        const auto store = CompanyStore::open(path(name), OpenMode::existing);
        check(bool(store));
        int added = 0;
        FolderImporter importer(*store.value(), folder(), KnownCompany::leave);
        check(importer.run(csvFolder(folder()).prefixes, {[](const std::string&) { return true; },
                                                          [&](const ImportedCompany& one) {
                                                              added += one.fate == Fate::added;
                                                          }}));
        check(added == companies);
    }

  private:
    QTemporaryDir folder_;
};

const Imported& imported() {
    static const Imported once;
    return once;
}

void importStore(benchmark::State& state) {
    imported();
    for (auto _ : state)
        imported().import("store.vkr");
}
BENCHMARK(importStore)
    ->Name("import/store")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime() // files are read on a thread of their own
    ->UseRealTime();

// Everything between commas, and what figures there are; checks nothing.
double plainlyRead(const std::string& file) {
    std::FILE* stream = std::fopen(file.c_str(), "rb");
    check(stream != nullptr);
    std::string text(1 << 16, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), stream));
    check(std::fclose(stream) == 0);
    std::vector<std::string> cells;
    double sum = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find_first_of(",\n", start), text.size());
        cells.push_back(text.substr(start, end - start));
        char* rest = nullptr;
        sum += std::strtod(cells.back().c_str(), &rest);
        start = end + 1;
    }
    return sum + static_cast<double>(cells.size());
}

// A table that is written row by row; `rows` reads those of one company.
struct Table {
    sqlite3_stmt* rows;
    sqlite3_stmt* insert;
};

std::vector<Table> tablesOf(RawFile& from, RawFile& to) {
    static constexpr struct {
        const char* name;
        const char* key;
    } names[] = {{"company", "id"},
                 {"series", "company_id"},
                 {"listing", "company_id"},
                 {"change_log", "company_id"},
                 {"change_group", "company_id"},
                 {"figure_change", "company_id"}};
    std::vector<Table> tables;
    for (const auto& table : names) {
        const std::string name = table.name;
        sqlite3_stmt* rows = from.prepare("SELECT * FROM " + name + " WHERE " + table.key + " = ?");
        std::string marks = "?";
        for (int i = 1; i < sqlite3_column_count(rows); ++i)
            marks += ", ?";
        tables.push_back({rows, to.prepare("INSERT INTO " + name + " VALUES (" + marks + ")")});
    }
    return tables;
}

// All rows of one company in one table.
struct Part {
    sqlite3_stmt* insert;
    std::vector<RawFile::Row> rows;
};

std::vector<Part> partsOf(const std::vector<Table>& tables, std::size_t company) {
    std::vector<Part> parts;
    for (const Table& table : tables) {
        sqlite3_bind_int64(table.rows, 1, static_cast<sqlite3_int64>(company) + 1);
        parts.push_back({table.insert, RawFile::rows(table.rows)});
    }
    return parts;
}

void importRaw(benchmark::State& state) {
    RawFile full(imported().path("full.vkr"));
    for (auto _ : state) {
        state.PauseTiming();
        imported().makeEmpty("raw.vkr");
        {
            RawFile raw(imported().path("raw.vkr"));
            const std::vector<Table> tables = tablesOf(full, raw);
            state.ResumeTiming();
            const std::vector<std::string> prefixes = csvFolder(imported().folder()).prefixes;
            check(std::ssize(prefixes) == companies);
            for (std::size_t first = 0; first < prefixes.size();
                 first += FolderImporter::batchSize) {
                state.PauseTiming(); // what a hundred come to is known, and no more at a time
                std::vector<std::vector<Part>> hundred;
                for (std::size_t one = first; one < first + FolderImporter::batchSize; ++one)
                    hundred.push_back(partsOf(tables, one));
                state.ResumeTiming();
                raw.run("BEGIN IMMEDIATE");
                for (std::size_t one = 0; one < hundred.size(); ++one) {
                    for (const std::filesystem::path& file :
                         csvFiles(imported().folder(), prefixes[first + one]))
                        benchmark::DoNotOptimize(plainlyRead(file.string()));
                    for (const Part& part : hundred[one])
                        for (const RawFile::Row& row : part.rows)
                            RawFile::write(part.insert, row);
                }
                raw.run("COMMIT");
            }
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}
BENCHMARK(importRaw)
    ->Name("import/raw")
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();

} // namespace
