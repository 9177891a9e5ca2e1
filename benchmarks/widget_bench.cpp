// SPDX-License-Identifier: MIT
// The widget against bare toolkit fields that show the same texts.
#include "benchmarks/bare_form.hpp"
#include "benchmarks/companies.hpp"
#include "benchmarks/counted.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include <benchmark/benchmark.h>

namespace {

using namespace vkr;

constexpr bool onShow = false;
constexpr bool visited = true; // each page was on show, and is after each load

template <bool Pages>
void loadWidget(benchmark::State& state) {
    VKRDataEntryWidget widget;
    widget.show();
    const CompanyPair companies;
    const auto load = [&](bool second) {
        widget.setCompany(second ? companies.second : companies.first);
        QApplication::processEvents();
        for (int page = BareForm::pages; Pages && page > 0; --page) {
            widget.setCurrentTab(page);
            QApplication::processEvents();
        }
    };
    bool second = false;
    load(!second);
    for (auto _ : state) {
        load(second);
        second = !second;
    }
}
BENCHMARK(loadWidget<onShow>)->Name("load/widget")->Unit(benchmark::kMicrosecond)->Apply(counted);
BENCHMARK(loadWidget<visited>)
    ->Name("load_visited/widget")
    ->Unit(benchmark::kMicrosecond)
    ->Apply(counted);

template <bool Pages>
void loadBare(benchmark::State& state) {
    BareForm form;
    const auto load = [&](bool second) {
        form.load(second);
        QApplication::processEvents();
        for (int page = BareForm::pages; Pages && page > 0; --page) {
            form.turnTo(page);
            QApplication::processEvents();
        }
    };
    bool second = false;
    load(!second);
    for (auto _ : state) {
        load(second);
        second = !second;
    }
}
BENCHMARK(loadBare<onShow>)->Name("load/bare")->Unit(benchmark::kMicrosecond)->Apply(counted);
BENCHMARK(loadBare<visited>)
    ->Name("load_visited/bare")
    ->Unit(benchmark::kMicrosecond)
    ->Apply(counted);

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
    auto* cell = widget.findChild<QLineEdit*>(QStringLiteral("txtSales(9)"));
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
