// SPDX-License-Identifier: MIT
// A thousand figures typed with key events, cell after cell: the widget's yearly grid, a bare
// table, and bare line edits.
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "form/form_layout.hpp"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableWidget>

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace {

using namespace vkr;

constexpr int cellsTyped = 1000;
constexpr int rows = 11;
constexpr int columns = 8; // those that can be seen without panning

void strike(int key, const QString& text = {}) {
    QWidget* field = QApplication::focusWidget();
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(field, &down);
    if (QWidget* now = QApplication::focusWidget()) {
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
        QApplication::sendEvent(now, &up);
    }
}

// Always another figure, so that each cell changes.
void typeFigure(int number) {
    const QString figure = QString::number(1000 + number % 9000);
    for (const QChar digit : figure)
        strike(digit.unicode(), QString(digit));
}

void cellsWidget(benchmark::State& state) {
    VKRDataEntryWidget widget;
    auto company = std::make_shared<CompanyRecord>();
    company->put_LastFYDate(makeDate(2025, 12, 31).value());
    widget.setCompany(company);
    widget.show();
    widget.activateWindow();
    auto& component = widget.component();
    component.put_CurrentTab(toYearly);
    QApplication::processEvents();
    int number = 0;
    for (auto _ : state) {
        for (int typed = 0; typed < cellsTyped; ++typed, ++number) {
            if (typed % (rows * columns) == 0)
                yearlyColumns().front().cells[0].in(component.form()).setFocus();
            typeFigure(number);
            strike(Qt::Key_Return, QStringLiteral("\r"));
        }
        QApplication::processEvents();
    }
}
BENCHMARK(cellsWidget)->Name("cells/widget")->Unit(benchmark::kMillisecond);

void cellsTable(benchmark::State& state) {
    QTableWidget table(rows, columns);
    table.show();
    table.activateWindow();
    QApplication::processEvents();
    int number = 0;
    for (auto _ : state) {
        for (int typed = 0; typed < cellsTyped; ++typed, ++number) {
            const int cell = typed % (rows * columns);
            table.setCurrentCell(cell % rows, cell / rows);
            table.setFocus();
            typeFigure(number);
            strike(Qt::Key_Return, QStringLiteral("\r"));
        }
        QApplication::processEvents();
    }
}
BENCHMARK(cellsTable)->Name("cells/table")->Unit(benchmark::kMillisecond);

void cellsLineEdits(benchmark::State& state) {
    QWidget form;
    std::vector<QLineEdit*> edits;
    for (int cell = 0; cell < rows * columns; ++cell) {
        auto* edit = new QLineEdit(&form);
        edit->setGeometry(72 * (cell / rows), 20 * (cell % rows), 70, 19);
        edits.push_back(edit);
    }
    form.resize(600, 240);
    form.show();
    form.activateWindow();
    QApplication::processEvents();
    int number = 0;
    for (auto _ : state) {
        for (int typed = 0; typed < cellsTyped; ++typed, ++number) {
            auto* edit = edits[static_cast<std::size_t>(typed) % edits.size()];
            edit->setFocus();
            edit->selectAll();
            typeFigure(number);
            strike(Qt::Key_Return, QStringLiteral("\r"));
        }
        QApplication::processEvents();
    }
}
BENCHMARK(cellsLineEdits)->Name("cells/line_edits")->Unit(benchmark::kMillisecond);

} // namespace
