// SPDX-License-Identifier: MIT
// What the window of a company does after each change to tell what is odd: the company as it would
// be saved, all rules over it, the marks, the count and the panel. Against the rules alone.
#include "benchmarks/worked_window.hpp"
#include "host/figure_checks.hpp"
#include "plausibility/company_findings.hpp"

#include <QApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace vkr;

void look(benchmark::State& state) {
    WorkedWindow worked(company(100));
    CompanyWindow& window = *worked;
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
