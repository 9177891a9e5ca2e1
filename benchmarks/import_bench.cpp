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

constexpr int companies = 500;

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
BENCHMARK(importStore)->Name("import/store")->Unit(benchmark::kMillisecond)->UseRealTime();

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

// All rows of one company in one table.
struct Part {
    sqlite3_stmt* insert;
    std::vector<RawFile::Row> rows;
};

void importRaw(benchmark::State& state) {
    static constexpr struct {
        const char* name;
        const char* key;
    } tables[] = {{"company", "id"},
                  {"series", "company_id"},
                  {"listing", "company_id"},
                  {"change_log", "company_id"},
                  {"change_group", "company_id"},
                  {"figure_change", "company_id"}};
    RawFile full(imported().path("full.vkr"));
    for (auto _ : state) {
        state.PauseTiming();
        imported().makeEmpty("raw.vkr");
        {
            RawFile raw(imported().path("raw.vkr"));
            std::vector<std::vector<Part>> all(companies);
            for (const auto& table : tables) {
                std::string marks;
                const std::string from = "SELECT * FROM " + std::string(table.name);
                const int columns = sqlite3_column_count(raw.prepare(from));
                for (int i = 0; i < columns; ++i)
                    marks += i == 0 ? "?" : ", ?";
                sqlite3_stmt* insert = raw.prepare("INSERT INTO " + std::string(table.name) +
                                                   " VALUES (" + marks + ")");
                for (int number = 0; number < companies; ++number)
                    all[static_cast<std::size_t>(number)].push_back(
                        {insert, full.rows(from + " WHERE " + table.key + " = " +
                                           std::to_string(number + 1))});
            }
            state.ResumeTiming();
            const std::vector<std::string> prefixes = csvFolder(imported().folder()).prefixes;
            check(prefixes.size() == all.size());
            for (std::size_t number = 0; number < all.size(); ++number) {
                for (const std::filesystem::path& file :
                     csvFiles(imported().folder(), prefixes[number]))
                    benchmark::DoNotOptimize(plainlyRead(file.string()));
                if (number % FolderImporter::batchSize == 0)
                    raw.run("BEGIN IMMEDIATE");
                for (const Part& part : all[number])
                    for (const RawFile::Row& row : part.rows)
                        RawFile::write(part.insert, row);
                if ((number + 1) % FolderImporter::batchSize == 0)
                    raw.run("COMMIT");
            }
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}
BENCHMARK(importRaw)->Name("import/raw")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
