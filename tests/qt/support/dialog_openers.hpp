// SPDX-License-Identifier: MIT
#pragma once

#include "control/vkr_data_entry.hpp"
#include "host/start.hpp"
#include "tests/qt/support/corrected_company.hpp"
#include "tests/server/postgres_server.hpp"
#include "tests/support/earlier_company.hpp"
#include "tests/support/elements.hpp"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>

namespace vkr {

// What makes each dialog of the program come up. A call comes back when its dialog is closed, but
// for one that stands beside the window.
class DialogOpeners : public CorrectedCompanyTest {
  public:
    void discard() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtName", "Acme Inc.");
        type(window, "txtTotalDebt", "11");
        window.close();
    }
    void unsavable() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtPriceUpdate", "someday");
        window.save();
    }
    void changesFound() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtTotalDebt", "11");
        type(window, "txtName", "Acme Inc.");
        killWith(window);
        host_ = another();
        host_->offerFound();
    }
    // What was typed, and others have saved since.
    void changesFoundAfterOthers() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtTotalDebt", "11");
        type(window, "txtName", "Acme Inc.");
        killWith(window);
        host_ = another();
        const auto theirs = stored(*host_, "AAPL");
        theirs->put_TotalDebt(12);
        ASSERT_TRUE(host_->store().save(idOf(*host_, "AAPL"), *theirs, 1));
        host_->offerFound();
    }
    void conflict() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtName", "Acme Inc.");
        const auto theirs = stored(*host_, "AAPL");
        theirs->put_City("Graz");
        ASSERT_TRUE(another()->store().save(idOf(*host_, "AAPL"), *theirs, 1));
        window.save();
    }
    void typedFigures() {
        ASSERT_NO_FATAL_FAILURE(exportAndCorrect());
        host_->importFile(companyFile());
    }
    void filings() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toYearly);
        type(window, "txtSales(8)", "391000");
        window.importFilings(QStringLiteral(VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json"));
    }
    void filingsOfANewCompany() {
        CompanyWindow& window = *host_->newCompany();
        user_.activate(window);
        type(window, "txtSymbol", "AAPL");
        window.importFilings(QStringLiteral(VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json"));
    }
    // Next year's document, and what was typed in the oldest periods of the table.
    void filingsOfLaterPeriods() {
        const auto loaded = host_->store().load(idOf(*host_, "AAPL"));
        CompanyRecord& record = *loaded.value().record;
        test::goBack(record, 1, 1);
        for (const Datum datum : {Datum::YRevenueSeries, Datum::YNetIncSeries, Datum::YEPSSeries})
            test::putElement(record, datum, 10, 1234.5);
        test::putElement(record, Datum::QEPSSeries, 34, 1.5);
        ASSERT_TRUE(host_->store().save(idOf(*host_, "AAPL"), record, loaded.value().revision));
        filings();
    }
    void filingsOnOtherShares() {
        const std::int64_t id = idOf(*host_, "NVDA");
        const auto loaded = host_->store().load(id);
        CompanyRecord& record = *loaded.value().record;
        test::goBeforeSplit(record);
        ASSERT_TRUE(host_->store().save(id, record, loaded.value().revision));
        open(*host_, "NVDA")
            .importFilings(QStringLiteral(VKR_SOURCE_DIR "/tests/filings/NVDA-facts.json"));
    }
    void filingsOfAnotherCompany() {
        open(*host_, "AAPL")
            .importFilings(QStringLiteral(VKR_SOURCE_DIR "/tests/filings/NVDA-facts.json"));
    }
    void filingsThatAreNone() {
        open(*host_, "AAPL").importFilings(samples() + "/AAPL-yearly.csv");
    }
    void filingsUnderTheLock() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toOptions);
        user_.click(control(window, "chkLockInfo"));
        window.importFilings(QStringLiteral(VKR_SOURCE_DIR "/tests/filings/AAPL-facts.json"));
    }
    void split() { open(*host_, "AAPL").findChild<QAction*>("split")->trigger(); }
    void paste() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toYearly);
        user_.click(control(window, "txtSales(0)"));
        QApplication::clipboard()->setText("\t2024\t2023\t2022\nRevenue\t$391,035\t383.286\t-\n"
                                           "Net Income\t(93,736)\t96,995\tn/a\n");
        user_.press(Qt::Key_V, Qt::ControlModifier);
    }
    // The block names quarters otherwise than the grid does.
    void pasteFiscalQuarters() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toQuarterly);
        user_.click(control(window, "txtRevenue(0)"));
        QApplication::clipboard()->setText("\tQ1 2026\tQ4 2025\tQ3 2025\tTTM\n"
                                           "Revenue\t143,756\t102,466\t94,036\t435,617\n"
                                           "EPS\t2.84\t1.85\t1.57\t7.91\n");
        user_.press(Qt::Key_V, Qt::ControlModifier);
    }
    void calendar() {
        CompanyWindow& window = open(*host_, "AAPL");
        user_.doubleClick(control(window, "txtPriceUpdate"), {8, 8});
    }
    void history() { changed().findChild<QAction*>("history")->trigger(); }
    void historyOfAFigure() {
        CompanyWindow& window = changed();
        emit window.entry().assistant(doYEPS, "5.62");
        auto* assistant = window.findChild<QDialog*>("assistant");
        assistant->findChild<QPushButton*>("history")->click();
        assistant->close();
    }
    void historyWithAVerdict() {
        CompanyWindow& window = open(*host_, "SNOW");
        QApplication::processEvents();
        user_.press(Qt::Key_L, Qt::ControlModifier);
        user_.click(control(window, "itIsRight"));
        window.findChild<QAction*>("history")->trigger();
        auto& tree = *window.findChild<QTreeWidget*>("changes");
        tree.topLevelItem(0)->setExpanded(true);
    }
    void assistant() {
        CompanyWindow& window = open(*host_, "AAPL");
        emit window.entry().assistant(doYRevenue, "391,035");
    }

    void cancelChanges() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtName", "Acme Inc.");
        type(window, "txtTotalDebt", "11");
        click(window, "cmdCancel");
    }
    void conflictWithADeletion() {
        CompanyWindow& window = open(*host_, "AAPL");
        type(window, "txtName", "Acme Inc.");
        ASSERT_TRUE(another()->store().remove(idOf(*host_, "AAPL"), 1));
        window.save();
    }
    void deletion() {
        open(*host_, "AAPL");
        host_->deleteCompanies({idOf(*host_, "AAPL")});
    }
    void deletionOfSeveral() {
        host_->deleteCompanies({idOf(*host_, "AAPL"), idOf(*host_, "SNOW"), idOf(*host_, "TSLA")});
    }
    void importFolder() { host_->importFolder(samples()); }
    // Two of three companies hold something that can't be read.
    void importOfPart() {
        QDir(home_.path()).mkdir("in");
        host_->exportCompanies({idOf(*host_, "AAPL"), idOf(*host_, "SNOW"), idOf(*host_, "TSLA")},
                               home_.filePath("in"));
        for (const char* symbol : {"AAPL", "TSLA"})
            spoil(home_.filePath(QString("in/%1-company.csv").arg(symbol)));
        host_->importFolder(home_.filePath("in"));
    }
    void importRefused() {
        ASSERT_NO_FATAL_FAILURE(exportAndCorrect());
        spoil(companyFile());
        host_->importFile(companyFile());
    }
    void exportAgain() {
        QDir(home_.path()).mkdir("in");
        for (int time = 0; time < 2; ++time)
            host_->exportCompanies({idOf(*host_, "AAPL"), idOf(*host_, "SNOW")},
                                   home_.filePath("in"));
    }
    void exportOfADamagedCompany() {
        damage();
        host_->exportCompanies({idOf(*host_, "AAPL")}, home_.path());
    }
    void openingADamagedCompany() {
        damage();
        open(*host_, "AAPL");
    }
    void restoringAState() {
        changed().findChild<QAction*>("history")->trigger();
        auto& window = *host_->windows().front();
        auto& tree = *window.findChild<QTreeWidget*>("changes");
        tree.setCurrentItem(tree.topLevelItem(tree.topLevelItemCount() - 1));
        window.findChild<QDialog*>("history")->findChild<QPushButton*>("restore")->click();
    }
    void fewerSaves() {
        changed().findChild<QAction*>("history")->trigger();
        auto& limit = *host_->windows().front()->findChild<QComboBox*>("limit");
        limit.setCurrentIndex(limit.findText("20 saves"));
        emit limit.activated(limit.currentIndex());
    }
    void pdfRefused() {
        host_->saveSheets({idOf(*host_, "AAPL")}, home_.filePath("no/where.pdf"), Paper::a4);
    }
    void startWithoutAFile() {
        EXPECT_EQ(start({home_.filePath("typo.vkr"), true, samples()}), nullptr);
    }
    void startWithAnotherFile() {
        write(home_.filePath("letter.txt"), QByteArray(5000, 'x'));
        EXPECT_EQ(start({home_.filePath("letter.txt"), true, samples()}), nullptr);
    }
    void startOnAnEmptyServer() {
        EXPECT_EQ(start({test::PostgresServer::instance().makeDatabase(), true, samples()}),
                  nullptr);
    }
    void about() { host_->list().findChild<QAction*>("about")->trigger(); }

  protected:
    // A company with a save of its own.
    CompanyWindow& changed() {
        CompanyWindow& window = open(*host_, "AAPL");
        window.entry().setCurrentTab(toYearly);
        type(window, "txtYEPS(5)", "5.62");
        EXPECT_TRUE(window.save());
        return window;
    }

    // The company's stored data become others than were saved.
    void damage() {
        execute(QString("UPDATE company SET \"TotalCap\" = 777 WHERE id = %1")
                    .arg(idOf(*host_, "AAPL")));
    }
    // A figure of the table becomes a word.
    static void spoil(const QString& file) {
        QByteArray table = contents(file);
        const auto at = table.indexOf("debt");
        ASSERT_GE(at, 0) << table.constData();
        table.insert(table.indexOf(',', at) + 1, "much");
        write(file, table);
    }
};

} // namespace vkr
