// SPDX-License-Identifier: MIT
// The component without a display: what an edit of a whole record costs against loading it.
#include "benchmarks/companies.hpp"
#include "control/vkr_data_entry.hpp"
#include "localizer/localizer.hpp"
#include "platform/virtual_desktop.hpp"

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
BENCHMARK(load)->Name("component/load")->Unit(benchmark::kMicrosecond);

void commit(benchmark::State& state) {
    Scene scene;
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.entry->get_objCompany());
}
BENCHMARK(commit)->Name("component/commit")->Unit(benchmark::kMicrosecond);

void switchUnit(benchmark::State& state) {
    Scene scene;
    auto& form = scene.entry->form();
    scene.entry->put_CurrentTab(toOptions);
    int unit = 0;
    for (auto _ : state) {
        form.click(form.get<OptionButton>("optCurrency", unit));
        unit = (unit + 1) % 3;
    }
}
BENCHMARK(switchUnit)->Name("component/unit")->Unit(benchmark::kMicrosecond);

} // namespace
