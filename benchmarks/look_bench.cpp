// SPDX-License-Identifier: MIT
// What the window of a company does after each change to tell what is odd: the company as it would
// be saved, all rules over it, the marks, the count and the panel. Against the rules alone.
#include "benchmarks/companies.hpp"
#include "host/company_window.hpp"
#include "host/figure_checks.hpp"
#include "plausibility/company_findings.hpp"
#include "store/company_store.hpp"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

using namespace vkr;

void look(benchmark::State& state) {
    const QTemporaryDir folder;
    const auto store = CompanyStore::open(
        folder.filePath(QStringLiteral("companies.vkr")).toStdString(), OpenMode::create);
    if (!store)
        std::abort();
    CompanyWindow window(*store.value(), std::nullopt, {company(100), 0, {}}, {});
    window.show();
    auto& checks = *window.findChild<FigureChecks*>();
    QApplication::processEvents();
    for (auto _ : state) {
        checks.lookLater();
        QApplication::processEvents();
    }
    state.counters["findings"] = static_cast<double>(companyFindings(*window.record()).size());
}
BENCHMARK(look)->Name("look/window")->Unit(benchmark::kMicrosecond);

} // namespace
