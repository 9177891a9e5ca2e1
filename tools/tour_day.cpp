// SPDX-License-Identifier: MIT
#include "tools/tour_day.hpp"

#include "control/vkr_data_entry.hpp"
#include "host/history_window.hpp"
#include "sheet/company_notes.hpp"
#include "sheet/sheet_print.hpp"
#include "tools/tour_steps.hpp"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStatusBar>
#include <QToolButton>

namespace vkr {

namespace {

// As it stands in a report: the newest year first, amounts in millions, a loss in brackets.
constexpr auto report =
    "\t2025\t2024\t2023\t2022\t2021\t2020\t2019\t2018\t2017\t2016\n"
    "Revenue\t$416,161\t$391,035\t$383,285\t$394,328\t$365,817\t$274,515\t$260,174\t$265,595\t"
    "$229,234\t$215,639\n"
    "Net Income\t112,010\t93,736\t96,995\t99,803\t94,680\t57,411\t55,256\t59,531\t48,351\t45,687\n"
    "EPS\t7.46\t6.08\t6.13\t6.11\t5.61\t3.28\t2.97\t2.98\t2.30\t2.08\n";

double figure(TourSteps& tour, Datum series, int element) {
    return readSeries(tour.record(), series).array().number(element);
}

void settle() {
    QApplication::processEvents(); // what was to happen after the event
}

void trigger(TourSteps& tour, const char* action) {
    tour.write(QStringLiteral("    menu: ") + QLatin1String(action));
    tour.window().findChild<QAction*>(QLatin1String(action))->trigger();
    settle();
}

void begin(TourSteps& tour) {
    tour.chapter(QStringLiteral("A new company"));
    tour.openNew();
    tour.click("txtName");
    tour.fill("txtName", QStringLiteral("Apple Inc."));
    tour.click("txtSymbol");
    tour.fill("txtSymbol", QStringLiteral("aapl"));
    tour.expectText("txtSymbol", QStringLiteral("AAPL"));
    tour.tab(Qt::Key_Y, toYearly);
    tour.click("txtDateofLastFY");
    tour.fill("txtDateofLastFY", QStringLiteral("9/27/2025"));
    tour.expectNumber("the last fiscal year follows", tour.record().get_LastFY(), 2025);
}

void paste(TourSteps& tour) {
    tour.chapter(QStringLiteral("Paste a block"));
    QApplication::clipboard()->setText(QLatin1String(report));
    tour.click("txtSales(0)");
    tour.whileOpen([&] { tour.press(Qt::Key_V, Qt::ControlModifier); },
                   [&](QWidget& preview) {
                       tour.picture(tour.window(), preview, "day-paste.png");
                       const auto* ok = preview.findChild<QPushButton*>("pasteOk");
                       tour.expect(ok->text() == QStringLiteral("&Paste 30 Figures"),
                                   QStringLiteral("the preview counts: ") + ok->text());
                       tour.press(Qt::Key_Return);
                   });
    tour.expectNumber("revenue 2025", figure(tour, Datum::YRevenueSeries, 1), 416161);
    tour.expectNumber("revenue 2016", figure(tour, Datum::YRevenueSeries, 10), 215639);
    tour.expectNumber("net income 2024", figure(tour, Datum::YNetIncSeries, 2), 93736);
    tour.expectNumber("earnings per share 2018", figure(tour, Datum::YEPSSeries, 8), 2.98);
}

void undo(TourSteps& tour) {
    tour.chapter(QStringLiteral("Undo"));
    tour.press(Qt::Key_Z, Qt::ControlModifier);
    tour.expect(tour.window().statusBar()->currentMessage() ==
                    QStringLiteral("Undone: Paste of 30 Figures"),
                QStringLiteral("Ctrl+Z takes the paste back as one step"));
    tour.expectNumber("revenue 2025", figure(tour, Datum::YRevenueSeries, 1), 0);
    tour.press(Qt::Key_Y, Qt::ControlModifier);
    tour.expectNumber("revenue 2025", figure(tour, Datum::YRevenueSeries, 1), 416161);
}

void look(TourSteps& tour) {
    tour.chapter(QStringLiteral("Figures to look at"));
    tour.click("txtSales(6)");
    tour.fill("txtSales(6)", QStringLiteral("3943280"));
    settle();
    auto* count = tour.window().findChild<QToolButton*>("findingsCount");
    tour.expect(count->isVisible(), QStringLiteral("a slip is counted: ") + count->text());
    tour.press(Qt::Key_L, Qt::ControlModifier);
    settle();
    tour.picture(tour.window(), "day-findings.png");
    tour.press(Qt::Key_Return);
    tour.expect(QApplication::focusWidget() == &tour.control("txtSales(6)"),
                QStringLiteral("Enter leads to the figure"));
    tour.fill("txtSales(6)", QStringLiteral("394328"));
    settle();
    tour.expect(!count->isVisible(), QStringLiteral("nothing is left to look at"));
    tour.window().findChild<QWidget*>("findings")->hide();
}

void import(TourSteps& tour, const QString& facts) {
    tour.chapter(QStringLiteral("Figures from filings"));
    tour.whileOpen([&] { tour.window().importFilings(facts); },
                   [&](QWidget& review) {
                       tour.picture(review, "day-filings.png");
                       tour.press(Qt::Key_Return);
                   });
    settle();
    tour.expectNumber("diluted shares 2025", figure(tour, Datum::YCSOSeries, 1), 15004.697);
    tour.expectNumber("revenue 2025, as pasted", figure(tour, Datum::YRevenueSeries, 1), 416161);
    trigger(tour, "markOrigins");
    tour.click("txtSales(9)");
    tour.picture(tour.window(), "day-origins.png");
    tour.expect(tour.control("txtYOption(9)")
                    .toolTip()
                    .contains(QStringLiteral("Imported from 0000320193-25-000079")),
                QStringLiteral("a cell tells the filing"));
}

void split(TourSteps& tour) {
    tour.chapter(QStringLiteral("A split"));
    tour.whileOpen(
        [&] { trigger(tour, "split"); },
        [&](QWidget& dialog) {
            dialog.findChild<QLineEdit*>("ratio")->setText(QStringLiteral("4:1"));
            dialog.findChild<QLineEdit*>("effective")->setText(QStringLiteral("2020-08-31"));
            settle();
            tour.picture(dialog, "day-split.png");
            tour.press(Qt::Key_Escape);
        });
}

void keep(TourSteps& tour) {
    tour.chapter(QStringLiteral("Save, and who did what"));
    tour.press(Qt::Key_S, Qt::ControlModifier);
    tour.expect(tour.window().id().has_value(), QStringLiteral("the company is saved"));
    trigger(tour, "history");
    auto* history = tour.window().findChild<HistoryWindow*>();
    tour.picture(*history, "day-history.png");
    history->close();
    tour.driver().activate(tour.window());
}

void print(TourSteps& tour) {
    tour.chapter(QStringLiteral("On paper"));
    const auto pages = companySheet(sheetOf(tour.window().recordToSave(), tour.window().origins()),
                                    Paper::letter, makeDate(2026, 1, 2).value());
    constexpr int dotsPerInch = 110;
    const QSize size = (pages.first().size * (dotsPerInch / (72.0 * point))).toSize();
    QPixmap page(size);
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.scale(size.width() / pages.first().size.width(),
                  size.height() / pages.first().size.height());
    paintPage(painter, pages.first());
    painter.end();
    tour.picture(page, "day-sheet.png");
}

} // namespace

void spendDay(TourSteps& tour, const QString& facts) {
    tour.start();
    begin(tour);
    paste(tour);
    undo(tour);
    look(tour);
    import(tour, facts);
    split(tour);
    keep(tour);
    print(tour);
}

} // namespace vkr
