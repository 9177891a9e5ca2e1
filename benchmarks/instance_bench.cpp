// SPDX-License-Identifier: MIT
// One more instance of the widget, in time and memory, against a bare form of the same controls.
#include "benchmarks/bare_form.hpp"
#include "benchmarks/companies.hpp"
#include "benchmarks/counted.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QApplication>

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <memory>
#include <vector>

namespace {

using namespace vkr;

struct Widget {
    VKRDataEntryWidget window;

    Widget() {
        static const auto record = company(100);
        window.setCompany(record);
        window.resize(window.sizeHint());
        window.show();
    }
    void turnTo(int page) { window.setCurrentTab(page); }
};

constexpr bool onShow = false;
constexpr bool visited = true;

// Painted, and with `Pages` each page of it.
template <typename Form, bool Pages>
std::unique_ptr<Form> painted() {
    auto form = std::make_unique<Form>();
    QApplication::processEvents();
    for (int page = BareForm::pages; Pages && page > 0; --page) {
        form->turnTo(page);
        QApplication::processEvents();
    }
    return form;
}

template <typename Form, bool Pages>
void construct(benchmark::State& state) {
    BareForm::parts();
    for (auto _ : state) {
        auto form = painted<Form, Pages>();
        state.PauseTiming();
        form.reset();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// Bytes on the heap once it is painted, without the pixels of its window.
template <typename Form, bool Pages>
void memory(benchmark::State& state) {
    BareForm::parts();
    constexpr std::size_t count = 5;
    const auto first = painted<Form, Pages>(); // what all instances share is there now
    double bytes = 0;
    for (auto _ : state) {
        const auto before = mallinfo2().uordblks;
        std::vector<std::unique_ptr<Form>> forms;
        for (std::size_t i = 0; i < count; ++i)
            forms.push_back(painted<Form, Pages>());
        bytes = static_cast<double>(mallinfo2().uordblks - before) / count;
        state.PauseTiming();
        forms.clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["bytes"] = bytes;
}

template <bool Pages>
void both(const std::string& suffix) {
    const auto add = [](const std::string& name, void (*run)(benchmark::State&)) {
        return benchmark::RegisterBenchmark(name.c_str(), run)->Unit(benchmark::kMillisecond);
    };
    add("construct" + suffix + "/widget", construct<Widget, Pages>)->Apply(counted);
    add("construct" + suffix + "/bare", construct<BareForm, Pages>)->Apply(counted);
    add("memory" + suffix + "/widget", memory<Widget, Pages>)->Iterations(1);
    add("memory" + suffix + "/bare", memory<BareForm, Pages>)->Iterations(1);
}

[[maybe_unused]] const bool registered = [] {
    both<onShow>("");
    both<visited>("_visited");
    return true;
}();

} // namespace
