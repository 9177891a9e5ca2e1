// SPDX-License-Identifier: MIT
// Ctrl+V of 35 rows with 4 figures each until the preview has been painted, against a bare dialog
// that parts the same text at tabs and breaks, reads each cell by QLocale, and shows as many lines.
#include "benchmarks/counted.hpp"
#include "benchmarks/worked_window.hpp"
#include "form/controls.hpp"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

using namespace vkr;

constexpr int rows = 35;
constexpr int figures = 4; // in each row

// As reports have it: a heading, the newest quarter first, grouped digits, a loss in brackets.
QString block() {
    static constexpr const char* heads[figures] = {"Revenue", "Net Income", "Pre-tax Income",
                                                   "EPS"};
    QString text;
    for (const char* head : heads)
        text += u'\t' + QLatin1String(head);
    QDate quarter(2025, 12, 31);
    for (int row = 0; row < rows; ++row) {
        text += u'\n' + quarter.toString(Qt::ISODate);
        text += u'\t' + QLocale::c().toString(90123 + 1017 * row);
        text += row % 7 == 3 ? QStringLiteral("\t(1,234)") : QStringLiteral("\t21,345.5");
        text += u'\t' + QLocale::c().toString(30456 - 101 * row);
        text += u'\t' + QString::number(2.97 - 0.01 * row);
        quarter = quarter.addMonths(-3);
        quarter = QDate(quarter.year(), quarter.month(), quarter.daysInMonth());
    }
    return text;
}

// Lets an open dialog paint itself, then closes it.
void closeOnceSeen(int& shown) {
    QTimer::singleShot(0, [&shown] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr)
            std::abort();
        auto* lines = dialog->findChild<QTableWidget*>();
        shown = lines->rowCount();
        dialog->repaint();
        QApplication::processEvents();
        static_cast<QDialog*>(dialog)->reject();
    });
}

void pasteWidget(benchmark::State& state) {
    const auto record = company(100);
    for (const Datum date : {Datum::LastQDate, Datum::LastQDateForGrid})
        writeDate(*record, date, makeDate(2025, 12, 31).value());
    WorkedWindow worked(record);
    CompanyWindow& window = *worked;
    window.show();
    window.activateWindow();
    auto& component = window.entry().component();
    component.put_CurrentTab(toQuarterly);
    QApplication::processEvents();
    controls::quarterlyRevenue[0].in(component.form()).setFocus();
    QApplication::clipboard()->setText(block());
    QWidget& cell = *QApplication::focusWidget();
    int shown = 0;
    for (auto _ : state) {
        QApplication::setActiveWindow(&window); // there is no window manager that does
        closeOnceSeen(shown);
        QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
        QApplication::sendEvent(&cell, &paste);
    }
    if (shown != rows * figures)
        std::abort();
    state.counters["lines"] = shown;
}
BENCHMARK(pasteWidget)->Name("paste/widget")->Unit(benchmark::kMillisecond)->Apply(counted);

void pasteBare(benchmark::State& state) {
    QWidget window;
    window.show();
    window.activateWindow();
    QApplication::clipboard()->setText(block());
    int shown = 0;
    for (auto _ : state) {
        QDialog dialog(&window);
        QLabel count;
        QTableWidget lines(0, 6);
        lines.setHorizontalHeaderLabels({"Period", "Column", "Clipboard", "Now", "New", "Remark"});
        QDialogButtonBox buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        QVBoxLayout column(&dialog);
        for (QWidget* part : std::initializer_list<QWidget*>{&count, &lines, &buttons})
            column.addWidget(part);
        const QStringList text = QApplication::clipboard()->text().split(u'\n');
        const QStringList heads = text.front().split(u'\t');
        lines.setRowCount(static_cast<int>((text.size() - 1) * (heads.size() - 1)));
        int line = 0;
        for (const QString& row : text.mid(1)) {
            const QStringList cells = row.split(u'\t');
            for (qsizetype cell = 1; cell < cells.size(); ++cell, ++line) {
                const double figure = QLocale(QLocale::English).toDouble(cells[cell]);
                const QString parts[] = {
                    cells[0], heads[cell], cells[cell], QString(), QString::number(figure, 'g', 17),
                    QString()};
                for (int place = 0; place < 6; ++place)
                    lines.setItem(line, place, new QTableWidgetItem(parts[place]));
            }
        }
        lines.resizeColumnsToContents();
        lines.resizeRowsToContents();
        count.setText(QStringLiteral("%1 figures").arg(line));
        dialog.resize(800, 600);
        closeOnceSeen(shown);
        dialog.exec();
    }
    state.counters["lines"] = shown;
}
BENCHMARK(pasteBare)->Name("paste/bare")->Unit(benchmark::kMillisecond)->Apply(counted);

} // namespace
