// SPDX-License-Identifier: MIT
// The component without a display: what an edit of a whole record costs against loading it.
#include "benchmarks/companies.hpp"
#include "benchmarks/counted.hpp"
#include "control/vkr_data_entry.hpp"
#include "form/controls.hpp"
#include "input/number_pattern.hpp"
#include "localizer/localizer.hpp"
#include "platform/number_text.hpp"
#include "platform/virtual_desktop.hpp"
#include "plausibility/company_findings.hpp"

#include <benchmark/benchmark.h>

namespace {

using namespace vkr;

struct Scene {
    VirtualDesktop desktop;
    std::unique_ptr<VKRDataEntry> entry;
    CompanyPair companies;

    Scene() {
        registerLocalizers(desktop.factory());
        entry = std::make_unique<VKRDataEntry>(desktop);
        entry->ReadProperties(PropertyBag());
        entry->put_objCompany(companies.first);
    }
};

void load(benchmark::State& state) {
    Scene scene;
    bool second = true;
    for (auto _ : state) {
        scene.entry->put_objCompany(second ? scene.companies.second : scene.companies.first);
        second = !second;
    }
}
BENCHMARK(load)->Name("component/load")->Unit(benchmark::kMicrosecond)->Apply(counted);

// The figures that a load writes into the fields, formatted and nothing else.
void figures(benchmark::State& state) {
    Scene scene;
    std::vector<double> values;
    for (const auto& control : scene.entry->form().controls())
        if (const auto* box = dynamic_cast<const TextBox*>(control.get()))
            if (const auto value = readLeadingNumber(box->text()).value_or(0); value != 0)
                values.push_back(value);
    for (auto _ : state)
        for (const double value : values)
            benchmark::DoNotOptimize(formatNumber(value, fallbackNumberPattern));
    state.counters["figures"] = static_cast<double>(values.size());
}
BENCHMARK(figures)->Name("component/figures")->Unit(benchmark::kMicrosecond)->Apply(counted);

void commit(benchmark::State& state) {
    Scene scene;
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.entry->get_objCompany());
}
BENCHMARK(commit)->Name("component/commit")->Unit(benchmark::kMicrosecond);

// All rules over a company that is full, and odd wherever it can be: each finding is a sentence.
void checks(benchmark::State& state) {
    const auto record = company(100);
    for (auto _ : state)
        benchmark::DoNotOptimize(companyFindings(*record));
    state.counters["findings"] = static_cast<double>(companyFindings(*record).size());
}
BENCHMARK(checks)->Name("component/checks")->Unit(benchmark::kMicrosecond)->Apply(counted);

void switchUnit(benchmark::State& state) {
    Scene scene;
    auto& form = scene.entry->form();
    scene.entry->put_CurrentTab(toOptions);
    int unit = 0;
    for (auto _ : state) {
        form.click(controls::unitOption[unit].in(form));
        unit = (unit + 1) % 3;
    }
}
BENCHMARK(switchUnit)->Name("component/unit")->Unit(benchmark::kMicrosecond)->Apply(counted);

} // namespace
