// SPDX-License-Identifier: MIT
// The widget against bare toolkit fields that show the same texts.
#include "benchmarks/bare_form.hpp"
#include "benchmarks/companies.hpp"
#include "benchmarks/counted.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "form/form_layout.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace vkr;

// What is measured of a load.
enum class Part {
    told,    // until every control has been told
    painted, // and the page on show is painted
    pages,   // and each page has been turned to and painted
};

template <Part part, typename Load, typename Turn>
void loadAgainAndAgain(benchmark::State& state, Load&& load, Turn&& turnTo) {
    const auto one = [&](bool second) {
        load(second);
        if constexpr (part != Part::told)
            QApplication::processEvents();
        for (int page = BareForm::pages; part == Part::pages && page > 0; --page) {
            turnTo(page);
            QApplication::processEvents();
        }
    };
    bool second = false;
    one(!second);
    QApplication::processEvents();
    for (auto _ : state) {
        one(second);
        second = !second;
    }
}

template <Part part>
void loadWidget(benchmark::State& state) {
    VKRDataEntryWidget widget;
    widget.show();
    const CompanyPair companies;
    loadAgainAndAgain<part>(
        state, [&](bool second) { widget.setCompany(second ? companies.second : companies.first); },
        [&](int page) { widget.setCurrentTab(page); });
}

template <Part part>
void loadBare(benchmark::State& state) {
    BareForm form;
    loadAgainAndAgain<part>(
        state, [&](bool second) { form.load(second); }, [&](int page) { form.turnTo(page); });
}

template <Part part>
void both(const std::string& name) {
    const auto add = [&](const char* side, void (*run)(benchmark::State&)) {
        benchmark::RegisterBenchmark((name + side).c_str(), run)
            ->Unit(benchmark::kMicrosecond)
            ->Apply(counted);
    };
    add("/widget", loadWidget<part>);
    add("/bare", loadBare<part>);
}

[[maybe_unused]] const bool registered = [] {
    both<Part::told>("load");
    both<Part::painted>("load_painted");
    both<Part::pages>("load_visited");
    return true;
}();

void strike(QWidget& field, int key, const QString& text) {
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&field, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(&field, &up);
}

// A digit and a Backspace, so that the text stays short.
void strikes(benchmark::State& state, QWidget& field) {
    for (auto _ : state) {
        strike(field, Qt::Key_7, QStringLiteral("7"));
        strike(field, Qt::Key_Backspace, QStringLiteral("\b"));
    }
}

void keyWidget(benchmark::State& state) {
    VKRDataEntryWidget widget;
    widget.setCompany(company(100));
    widget.show();
    widget.activateWindow();
    widget.component().put_CurrentTab(toYearly);
    const auto& field = yearlyColumns().front().cells[9].in(widget.component().form());
    auto* cell = widget.findChild<QLineEdit*>(QString::fromStdString(field.id()));
    cell->setFocus();
    QApplication::processEvents();
    strikes(state, *cell);
}
BENCHMARK(keyWidget)->Name("key/widget")->Apply(counted);

void keyBare(benchmark::State& state) {
    BareForm form;
    form.window().activateWindow();
    form.anyField().setFocus();
    QApplication::processEvents();
    strikes(state, form.anyField());
}
BENCHMARK(keyBare)->Name("key/bare")->Apply(counted);

} // namespace
