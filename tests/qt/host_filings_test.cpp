// SPDX-License-Identifier: MIT
#include "company/exact_text.hpp"
#include "control/vkr_data_entry.hpp"
#include "host/filings_dialog.hpp"
#include "record/enumerations.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/support/earlier_company.hpp"
#include "tests/support/elements.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTableView>

namespace vkr {
namespace {

QString document(const char* symbol) {
    return QStringLiteral(VKR_SOURCE_DIR "/tests/filings/%1-facts.json").arg(QLatin1String(symbol));
}

QString importButton(QWidget& dialog) {
    return dialog.findChild<QPushButton*>("import")->text().remove(u'&');
}

int shownRows(QWidget& dialog) {
    return dialog.findChild<QTableView*>("figures")->model()->rowCount();
}

void show(QWidget& dialog, const QString& filter) {
    auto* box = dialog.findChild<QComboBox*>("filter");
    for (int i = 0; i < box->count(); ++i)
        if (box->itemText(i).startsWith(filter + QStringLiteral(" (")))
            box->setCurrentIndex(i);
}

QString cell(QWidget& dialog, int row, const QString& heading) {
    const auto* table = dialog.findChild<QTableView*>("figures");
    for (int column = 0; column < table->model()->columnCount(); ++column)
        if (table->model()->headerData(column, Qt::Horizontal).toString() == heading)
            return table->model()->index(row, column).data().toString();
    return QStringLiteral("no such column");
}

double revenue(const CompanyRecord& record, int element) {
    return record.get_YRevenueSeries().array().number(element);
}

class HostFilingsTest : public HostTest {
  protected:
    // The sample company without one figure, and with another one that a person changed.
    CompanyWindow& openChanged() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toYearly);
        user_.activate(window);
        user_.click(control(window, "txtSales(9)"));
        user_.press(Qt::Key_A, Qt::ControlModifier);
        user_.press(Qt::Key_Delete);
        user_.press(Qt::Key_Tab);
        type(window, "txtSales(8)", "391000");
        return window;
    }

    DialogAnswers dialogs_;
};

} // namespace

TEST_F(HostFilingsTest, WhatIsMissingIsImportedAndWhatMayBeTypedIsNot) {
    CompanyWindow& window = openChanged();
    dialogs_.next([](QWidget& dialog) {
        EXPECT_EQ(importButton(dialog), "Import 1 Figure");
        show(dialog, "New");
        EXPECT_EQ(shownRows(dialog), 1);
        EXPECT_EQ(cell(dialog, 0, "Figure"), "Yearly Revenue");
        EXPECT_EQ(cell(dialog, 0, "Period"), "2025");
        EXPECT_EQ(cell(dialog, 0, "Stored"), "");
        EXPECT_EQ(cell(dialog, 0, "Filed"), "416,161");
        EXPECT_EQ(cell(dialog, 0, "Form"), "10-K");
        EXPECT_EQ(cell(dialog, 0, "Filed On"), "2025-10-31");
        EXPECT_EQ(cell(dialog, 0, "Accession Number"), "0000320193-25-000079");
        show(dialog, "Differs");
        EXPECT_EQ(shownRows(dialog), 1);
        EXPECT_EQ(cell(dialog, 0, "Difference"), "35");
        EXPECT_EQ(cell(dialog, 0, "Stored By"), "typed");
        DialogAnswers::clickButton(dialog, "Import 1 Figure");
    });
    window.importFilings(document("AAPL"));
    EXPECT_EQ(revenue(*window.record(), 1), 416161);
    EXPECT_EQ(revenue(*window.record(), 2), 391000);
    EXPECT_TRUE(window.isWindowModified());
    const auto& form = window.entry().component().form();
    EXPECT_EQ(form.get<TextField>("txtSales", 9).text(), "416161.00");
    EXPECT_EQ(form.get<TextField>("txtSales", 8).text(), "391000.00");
    ASSERT_TRUE(window.save());
    EXPECT_EQ(revenue(*stored(*host_, "AAPL"), 1), 416161);
}

// The usual case: a quarter has been filed since.
TEST_F(HostFilingsTest, WhereAQuarterIsAddedEachFigureKeepsWhereItIsFrom) {
    const std::int64_t id = idOf(*host_, "AAPL");
    const auto loaded = host_->store().load(id);
    const auto record = loaded.value().record->clone();
    test::goBack(*record, 0, 1);
    const Date earlier = record->get_LastQDateForGrid();
    SaveAccount account;
    account.origins = loaded.value().origins;
    account.origins->put(Datum::QRevenueSeries, 0, {Origin::typed, {}, false});
    ASSERT_TRUE(host_->store().save(id, *record, loaded.value().revision, account));
    CompanyWindow& window = open(*host_, "AAPL");
    dialogs_.next(
        [](QWidget& dialog) { DialogAnswers::clickButton(dialog, importButton(dialog)); });
    window.importFilings(document("AAPL"));
    const auto expectOrigins = [](const FigureOrigins& origins) {
        const FigureOrigin came = origins.of(Datum::QRevenueSeries, 0);
        EXPECT_EQ(came.origin, Origin::imported);
        EXPECT_TRUE(came.document.starts_with("0000320193-26-")) << came.document;
        EXPECT_EQ(origins.of(Datum::QRevenueSeries, 1).origin, Origin::typed);
        EXPECT_EQ(origins.of(Datum::QRevenueSeries, 2).origin, Origin::imported);
    };
    expectOrigins(window.origins());
    ASSERT_TRUE(window.save());
    expectOrigins(host_->store().load(id).value().origins);
    HistoryQuery query;
    query.datum = "QRevenueSeries";
    query.period = isoDateText(window.record()->get_LastQDateForGrid());
    query.origin = Origin::imported;
    const auto history = host_->store().history(id, query).value();
    ASSERT_FALSE(history.empty());
    EXPECT_TRUE(history.front().name.starts_with("Import of ")) << history.front().name;
    EXPECT_EQ(history.front().changes.front().element, 0);
    // Taken back after the save, and done again.
    window.entry().component().step(HistoryStep::undo);
    EXPECT_EQ(window.record()->get_LastQDateForGrid(), earlier);
    EXPECT_EQ(window.origins().of(Datum::QRevenueSeries, 0).origin, Origin::typed);
    window.entry().component().step(HistoryStep::redo);
    expectOrigins(window.origins());
    window.discard();
}

TEST_F(HostFilingsTest, ATickTakesTheFiledFigureByKeysAlone) {
    CompanyWindow& window = openChanged();
    dialogs_.next([this](QWidget& dialog) {
        user_.activate(dialog);
        user_.press(Qt::Key_S, Qt::AltModifier); // Show
        user_.press(Qt::Key_D);                  // Differs
        user_.press(Qt::Key_Tab);
        while (QApplication::focusWidget()->objectName() != "figures")
            user_.press(Qt::Key_Tab);
        user_.press(Qt::Key_Home, Qt::ControlModifier);
        user_.press(Qt::Key_Space);
        EXPECT_EQ(importButton(dialog), "Import 2 Figures");
        user_.press(Qt::Key_Return);
    });
    window.importFilings(document("AAPL"));
    EXPECT_EQ(revenue(*window.record(), 1), 416161);
    EXPECT_EQ(revenue(*window.record(), 2), 391035);
}

TEST_F(HostFilingsTest, AllShownAreTickedAndUntickedAtOnce) {
    CompanyWindow& window = openChanged();
    dialogs_.next([](QWidget& dialog) {
        show(dialog, "Same");
        DialogAnswers::clickButton(dialog, "Untick All Shown");
        EXPECT_EQ(importButton(dialog), "Import 1 Figure");
        DialogAnswers::clickButton(dialog, "Tick All Shown");
        EXPECT_EQ(importButton(dialog), "Import 1 Figure") << "the same ones change nothing";
        show(dialog, "Differs");
        DialogAnswers::clickButton(dialog, "Tick All Shown");
        EXPECT_EQ(importButton(dialog), "Import 2 Figures");
        show(dialog, "All");
        DialogAnswers::clickButton(dialog, "Untick All Shown");
        EXPECT_EQ(importButton(dialog), "Import 0 Figures");
        EXPECT_FALSE(dialog.findChild<QPushButton*>("import")->isEnabled());
        DialogAnswers::clickButton(dialog, "As at First");
        EXPECT_EQ(importButton(dialog), "Import 1 Figure");
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    window.importFilings(document("AAPL"));
    EXPECT_EQ(revenue(*window.record(), 1), 0);
}

TEST_F(HostFilingsTest, DetailsTellWhereAFigureComesFrom) {
    CompanyWindow& window = open(*host_, "NVDA");
    dialogs_.next([](QWidget& dialog) {
        auto* table = dialog.findChild<QTableView*>("figures");
        for (int row = 0; row < shownRows(dialog); ++row)
            if (cell(dialog, row, "Figure") == "Quarterly Earnings Per Share" &&
                cell(dialog, row, "Period") == "2020-04-26")
                table->setCurrentIndex(table->model()->index(row, 0));
        const QString details = dialog.findChild<QPlainTextEdit*>("details")->toPlainText();
        EXPECT_TRUE(details.startsWith("0.0368: us-gaap:EarningsPerShareDiluted, 10-Q of"))
            << details.toStdString();
        EXPECT_TRUE(details.contains("adjusted for splits, 40 for 1; 1.47 as filed"));
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    window.importFilings(document("NVDA"));
}

TEST_F(HostFilingsTest, ANewCompanyTakesItsNameItsYearsAndItsFigures) {
    CompanyWindow& window = *host_->newCompany();
    type(window, "txtSymbol", "AAPL");
    dialogs_.nextButton("Compare Figures");
    dialogs_.next([](QWidget& dialog) {
        const QString notes = dialog.findChild<QLabel*>("notes")->text();
        EXPECT_TRUE(notes.contains("The last fiscal year becomes 2025, to 2025-09-27."));
        EXPECT_FALSE(notes.contains("It takes the place of")) << "of a date that was suggested";
        DialogAnswers::clickButton(dialog, importButton(dialog));
    });
    window.importFilings(document("AAPL"));
    const auto& form = window.entry().component().form();
    EXPECT_EQ(form.get<TextField>("txtName").text(), "Apple Inc.");
    EXPECT_EQ(form.get<TextField>("txtLastFY").text(), "2025");
    EXPECT_EQ(form.get<TextField>("txtSales", 9).text(), "416161.00");
    EXPECT_EQ(window.record()->get_LastQDate(), makeDate(2025, 12, 27));
    EXPECT_EQ(window.record()->get_Last4QEPS(), 7.9);
    ASSERT_TRUE(window.save());
    const auto loaded = host_->store().load(*window.id());
    EXPECT_EQ(loaded.value().record->get_LastFYDate(), makeDate(2025, 9, 27));
    EXPECT_EQ(loaded.value().record->get_LastQDate(), makeDate(2025, 12, 27));
}

// Its user is led to the split first.
TEST_F(HostFilingsTest, FiguresOnOtherSharesThanTheStoredOnesAreToldAndNotTicked) {
    const std::int64_t id = idOf(*host_, "NVDA");
    const auto loaded = host_->store().load(id);
    CompanyRecord& record = *loaded.value().record;
    test::goBeforeSplit(record);
    test::putElement(record, Datum::YRevenueSeries, 1, 0);
    ASSERT_TRUE(host_->store().save(id, record, loaded.value().revision));
    CompanyWindow& window = open(*host_, "NVDA");
    dialogs_.next([](QWidget& dialog) {
        const auto& told = *dialog.findChild<QLabel*>("shareBasis");
        EXPECT_TRUE(told.isVisible());
        EXPECT_TRUE(told.text().contains("before the split 10:1, in effect by 2024-06-30"))
            << told.text().toStdString();
        EXPECT_TRUE(told.text().contains("\"Adjust for a Split...\""));
        EXPECT_EQ(importButton(dialog), "Import 1 Figure");
        show(dialog, "Doubtful");
        EXPECT_EQ(shownRows(dialog), 60);
        EXPECT_EQ(cell(dialog, 0, "Notes").right(34), "stored figures are on other shares");
        DialogAnswers::clickButton(dialog, importButton(dialog));
    });
    window.importFilings(document("NVDA"));
    EXPECT_EQ(revenue(*window.record(), 1), 215938);
    EXPECT_EQ(test::elementOf(*window.record(), Datum::YEPSSeries, 1), 0);
    window.discard();
    dialogs_.next([](QWidget& dialog) {
        EXPECT_FALSE(dialog.findChild<QLabel*>("shareBasis")->isVisible());
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    open(*host_, "AAPL").importFilings(document("AAPL"));
}

struct HostFilingsOfLaterYears : HostFilingsTest {
    void storeAsAYearBefore() {
        auto loaded = host_->store().load(idOf(*host_, "AAPL"));
        ASSERT_TRUE(loaded);
        auto& company = *loaded.value().record;
        for (const DatumRow& row : datumTable()) {
            if (row.period != DatumPeriod::year)
                continue;
            Variant series = readSeries(company, row.datum);
            for (int i = 1; i < row.upper; ++i)
                series.array().setNumber(i, series.array().number(i + 1));
            series.array().setNumber(row.upper, 0);
            writeSeries(company, row.datum, series);
        }
        company.put_LastFY(2024);
        test::putElement(company, Datum::YTaxRateSeries, 1, 18.1);
        company.put_LastFYDate(*makeDate(2024, 9, 28));
        ASSERT_TRUE(host_->store().save(idOf(*host_, "AAPL"), company, loaded.value().revision));
    }
};

TEST_F(HostFilingsOfLaterYears, AreAddedUnlessTheyAreNotWanted) {
    storeAsAYearBefore();
    CompanyWindow& window = open(*host_, "AAPL");
    dialogs_.next([](QWidget& dialog) {
        auto& adds = *dialog.findChild<QCheckBox*>("addsYears");
        EXPECT_EQ(adds.text(), "Add 1 fiscal &year");
        EXPECT_FALSE(dialog.findChild<QCheckBox*>("addsQuarters")->isVisible());
        show(dialog, "New");
        EXPECT_EQ(shownRows(dialog), 9);
        EXPECT_EQ(cell(dialog, 0, "Period"), "2025");
        adds.click();
        EXPECT_EQ(shownRows(dialog), 9); // those of the oldest year
        EXPECT_EQ(cell(dialog, 0, "Period"), "2015");
        EXPECT_TRUE(dialog.findChild<QLabel*>("notes")->text().contains("is left out"));
        adds.click();
        DialogAnswers::clickButton(dialog, "Import 9 Figures");
    });
    window.importFilings(document("AAPL"));
    EXPECT_EQ(window.record()->get_LastFY(), 2025);
    EXPECT_EQ(revenue(*window.record(), 1), 416161);
    EXPECT_EQ(revenue(*window.record(), 2), 391035);
    EXPECT_EQ(window.record()->get_YHighSeries().array().number(2), 237.23);
    EXPECT_EQ(window.entry().component().form().get<TextField>("txtLastFY").text(), "2025");
    ASSERT_TRUE(window.save());
    EXPECT_EQ(test::elementOf(*stored(*host_, "AAPL"), Datum::YTaxRateSeries, 2), 18.1)
        << "what moves with its year is not worked out";
}

TEST_F(HostFilingsOfLaterYears, AreToldOnlyWhileAFigureOfSuchIsTicked) {
    storeAsAYearBefore();
    CompanyWindow& window = open(*host_, "AAPL");
    dialogs_.next([](QWidget& dialog) {
        const auto& notes = *dialog.findChild<QLabel*>("notes");
        const QString added = QStringLiteral("1 fiscal year added: the last one is 2025");
        EXPECT_TRUE(notes.text().contains(added)) << notes.text().toStdString();
        DialogAnswers::clickButton(dialog, "Untick All Shown");
        EXPECT_FALSE(notes.text().contains(added));
        DialogAnswers::clickButton(dialog, "As at First");
        EXPECT_TRUE(notes.text().contains(added));
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    window.importFilings(document("AAPL"));
}

TEST_F(HostFilingsOfLaterYears, KeepTheTicksThatWereTakenOff) {
    storeAsAYearBefore();
    CompanyWindow& window = open(*host_, "AAPL");
    const auto before = window.record()->clone();
    dialogs_.next([](QWidget& dialog) {
        auto& adds = *dialog.findChild<QCheckBox*>("addsYears");
        const auto& import = *dialog.findChild<QPushButton*>("import");
        show(dialog, "New");
        EXPECT_EQ(importButton(dialog), "Import 9 Figures");
        DialogAnswers::clickButton(dialog, "Untick All Shown");
        EXPECT_FALSE(import.isEnabled());
        adds.click();
        adds.click();
        EXPECT_FALSE(import.isEnabled());
        DialogAnswers::clickButton(dialog, "Cancel");
    });
    window.importFilings(document("AAPL"));
    EXPECT_TRUE(sameAs(*window.record(), *before));
}

TEST_F(HostFilingsOfLaterYears, AreNotAddedAtFirstWhereWhatWasTypedWouldLeaveTheTable) {
    storeAsAYearBefore();
    const auto loaded = host_->store().load(idOf(*host_, "AAPL"));
    test::putElement(*loaded.value().record, Datum::YRevenueSeries, 10, 999);
    ASSERT_TRUE(
        host_->store().save(idOf(*host_, "AAPL"), *loaded.value().record, loaded.value().revision));
    CompanyWindow& window = open(*host_, "AAPL");
    dialogs_.next([](QWidget& dialog) {
        auto& adds = *dialog.findChild<QCheckBox*>("addsYears");
        const auto& notes = *dialog.findChild<QLabel*>("notes");
        EXPECT_TRUE(adds.isVisible());
        EXPECT_FALSE(adds.isChecked());
        EXPECT_TRUE(notes.text().contains("would leave the table: Yearly Revenue 2015: 999."))
            << notes.text().toStdString();
        adds.click();
        EXPECT_TRUE(notes.text().contains("typed, or may have been: Yearly Revenue 2015: 999."))
            << notes.text().toStdString();
        show(dialog, "New");
        EXPECT_EQ(cell(dialog, 0, "Period"), "2025");
        adds.click();
        DialogAnswers::clickButton(dialog, importButton(dialog));
    });
    window.importFilings(document("AAPL"));
    EXPECT_EQ(window.record()->get_LastFY(), 2024);
    EXPECT_EQ(revenue(*window.record(), 10), 999);
}

TEST_F(HostFilingsTest, TheDocumentOfAnotherCompanyIsRefused) {
    CompanyWindow& window = open(*host_, "AAPL");
    dialogs_.next([](QWidget& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "This document is of another company.");
        EXPECT_TRUE(box->informativeText().startsWith("The document is of NVIDIA CORP"));
        DialogAnswers::clickButton(dialog, "OK");
    });
    window.importFilings(document("NVDA"));
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(HostFilingsTest, WhatIsNoDocumentIsTold) {
    CompanyWindow& window = open(*host_, "AAPL");
    dialogs_.next([](QWidget& dialog) {
        const auto* box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "Nothing was imported from AAPL-yearly.csv.");
        EXPECT_TRUE(box->informativeText().contains("no JSON"));
        DialogAnswers::clickButton(dialog, "OK");
    });
    window.importFilings(samples() + "/AAPL-yearly.csv");
    EXPECT_FALSE(window.isWindowModified());
}

TEST_F(HostFilingsTest, TheMenuLeadsToIt) {
    CompanyWindow& window = open(*host_, "AAPL");
    EXPECT_EQ(action(window, "importFilings").text().remove(u'&'), "Import from Filings...");
}

} // namespace vkr
