// SPDX-License-Identifier: MIT
// The list of many companies, opened and searched, against a list of few.
#include "company/company_record.hpp"
#include "host/workspace.hpp"
#include "store/company_store.hpp"

#include <QApplication>
#include <QLineEdit>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <malloc.h>
#include <memory>
#include <string>

namespace {

using namespace vkr;

void check(bool isDone) {
    if (!isDone)
        std::abort();
}

// All texts but the figures of the years and quarters, which no list shows.
std::shared_ptr<CompanyRecord> company(int number) {
    static constexpr const char* words[] = {"Acme",   "Borealis", "Cobalt", "Delta", "Evergreen",
                                            "Foxall", "Granite",  "Harbor", "Indigo"};
    auto record = std::make_shared<CompanyRecord>();
    for (const auto& row : datumTable())
        if (std::holds_alternative<TextAccess>(row.access))
            writeDatum(*record, row.datum, std::string(row.name) + " " + std::to_string(number));
    record->put_Name(std::string(words[number * 7 % 9]) + " " + words[number / 9 % 9] + " " +
                     std::to_string(number));
    record->put_CurrentPrice(number * 0.37);
    return record;
}

// Made once; the company that is searched for is the last of its list.
template <int companies>
const QString& database() {
    static const QTemporaryDir folder;
    static const QString path = [] {
        const QString made = folder.filePath(QStringLiteral("companies.vkr"));
        const auto store = CompanyStore::open(made.toStdString(), OpenMode::create);
        check(bool(store));
        std::vector<SaveRequest> requests;
        for (int number = 1; number < companies; ++number)
            requests.push_back({std::nullopt, company(number), 0});
        auto last = company(companies);
        last->put_Name("Zyx Holdings");
        requests.push_back({std::nullopt, last, 0});
        check(bool(store.value()->saveAll(requests)));
        return made;
    }();
    return path;
}

// As a user does it: the list comes up, then a word is typed letter by letter.
std::unique_ptr<Workspace> openAndSearch(const QString& path) {
    auto opened = Workspace::open(path);
    check(opened.workspace != nullptr);
    CompanyListWindow& list = opened.workspace->list();
    list.show();
    QApplication::processEvents();
    auto* search = list.findChild<QLineEdit*>(QStringLiteral("search"));
    auto* table = list.findChild<QTableView*>(QStringLiteral("companies"));
    check(table->model()->rowCount() == 100);
    for (const char* letter : {"z", "y", "x"})
        search->insert(QLatin1String(letter));
    check(table->model()->index(0, 0).data() == QLatin1String("Zyx Holdings"));
    table->viewport()->repaint();
    return std::move(opened.workspace);
}

template <int companies>
void list(benchmark::State& state) {
    const QString& path = database<companies>();
    for (auto _ : state) {
        auto workspace = openAndSearch(path);
        state.PauseTiming();
        workspace.reset();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(list<10000>)->Name("list/10000")->Unit(benchmark::kMillisecond);
BENCHMARK(list<100>)->Name("list/100")->Unit(benchmark::kMillisecond);

// Bytes on the heap, those of the database's cache among them.
template <int companies>
void listMemory(benchmark::State& state) {
    const auto used = [] {
        const auto heap = mallinfo2();
        return heap.uordblks + heap.hblkhd;
    };
    const QString& path = database<companies>();
    openAndSearch(path).reset(); // what all windows share is there now
    QApplication::processEvents();
    double bytes = 0;
    for (auto _ : state) {
        const auto before = used();
        const auto workspace = openAndSearch(path);
        QApplication::processEvents();
        bytes = static_cast<double>(used() - before);
    }
    state.counters["bytes"] = bytes;
}
BENCHMARK(listMemory<10000>)->Name("list_memory/10000")->Iterations(1);
BENCHMARK(listMemory<100>)->Name("list_memory/100")->Iterations(1);

} // namespace
