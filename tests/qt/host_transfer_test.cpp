// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "record/enumerations.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tests/qt/support/corrected_company.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/support/earlier_company.hpp"
#include "tests/support/elements.hpp"

#include <QDir>
#include <QFile>
#include <QProgressDialog>
#include <QStatusBar>
#include <QTreeWidget>

namespace vkr {
namespace {

TEST_F(HostTest, ExportAndImportBringTheCompanyBackAsItWas) {
    const auto before = stored(*host_, "TSLA");
    host_->exportCompanies({idOf(*host_, "TSLA")}, home_.path());
    {
        Answers answers({"Delete"});
        host_->deleteCompanies({idOf(*host_, "TSLA")});
    }
    host_->importFile(home_.filePath("TSLA-yearly.csv"));
    ASSERT_NE(stored(*host_, "TSLA"), nullptr);
    EXPECT_TRUE(sameAs(*before, *stored(*host_, "TSLA")));
}

TEST_F(HostTest, AWindowIsExportedAsItIsOnScreenAndSavesNothing) {
    CompanyWindow& window = open(*host_, "TSLA");
    type(window, "txtName", "Volta Inc.", false);
    host_->exportWindow(window, home_.path());
    EXPECT_TRUE(contents(home_.filePath("TSLA-company.csv")).contains("name,Volta Inc."));
    EXPECT_EQ(window.statusBar()->currentMessage(), "Exported to " + home_.path());
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(stored(*host_, "TSLA")->get_Name(), "Tesla, Inc.");
}

TEST_F(HostTest, ExportAsksBeforeItReplacesAFile) {
    write(home_.filePath("TSLA-company.csv"), "mine");
    {
        Answers answers({"Cancel"});
        host_->exportCompanies({idOf(*host_, "TSLA")}, home_.path());
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_EQ(contents(home_.filePath("TSLA-company.csv")), "mine");
    EXPECT_EQ(host_->list().statusBar()->currentMessage(), "");
    EXPECT_FALSE(QFile::exists(home_.filePath("TSLA-yearly.csv")));
    Answers answers({"Replace"});
    host_->exportCompanies({idOf(*host_, "TSLA")}, home_.path());
    EXPECT_TRUE(answers.allGiven());
    EXPECT_NE(contents(home_.filePath("TSLA-company.csv")), "mine");
    EXPECT_EQ(host_->list().statusBar()->currentMessage(), "Exported to " + home_.path());
}

TEST_F(HostTest, AnImportWithAnErrorNamesTheLineAndImportsNothing) {
    QDir(home_.path()).mkdir("in");
    const QString folder = home_.filePath("in/");
    for (const char* name : {"AAPL-company.csv", "AAPL-quarterly.csv"})
        ASSERT_TRUE(QFile::copy(samples() + '/' + name, folder + name));
    QByteArrayList lines = contents(samples() + "/AAPL-yearly.csv").split('\n');
    lines[4].replace(0, 4, "20x2");
    write(folder + "AAPL-yearly.csv", lines.join('\n'));

    const auto before = host_->store().list().value();
    Answers answers({"OK"});
    host_->importFile(folder + "AAPL-company.csv");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("AAPL-yearly.csv, line 5"))
        << answers.told().value(0).toStdString();
    EXPECT_EQ(host_->store().list().value().size(), before.size());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Apple Inc.");
}

struct KnownCase {
    const char* test;
    const char* answer;
    int companies;
};

class HostImportTest : public HostTest, public testing::WithParamInterface<KnownCase> {
  protected:
    QString exported() {
        host_->exportCompanies({idOf(*host_, "AAPL")}, home_.path());
        return home_.filePath("AAPL-company.csv");
    }
};

TEST_P(HostImportTest, ACompanyThatIsThereAlreadyIsNotReplacedUnasked) {
    const QString tables = exported();
    const std::int64_t id = idOf(*host_, "AAPL");
    {
        // An earlier import, which this one may replace.
        const auto loaded = host_->store().load(id);
        const auto record = loaded.value().record->clone();
        record->put_Name("Earlier Inc.");
        ASSERT_TRUE(host_->store().save(id, *record, loaded.value().revision,
                                        {{}, {Origin::imported, "Import", "earlier"}}));
    }
    Answers answers({GetParam().answer});
    host_->importFile(tables);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().front().contains("It is saved now"));
    EXPECT_TRUE(answers.told().front().contains("\"History...\""));
    EXPECT_EQ(shownNames(*host_).size(), GetParam().companies);
    EXPECT_EQ(shownNames(*host_).contains("Earlier Inc."), QString(GetParam().answer) != "Replace");
}

INSTANTIATE_TEST_SUITE_P(Answers, HostImportTest,
                         testing::Values(KnownCase{"KeepBoth", "Keep Both", 5},
                                         KnownCase{"Replace", "Replace", 4},
                                         KnownCase{"Cancel", "Cancel", 4}),
                         [](const auto& row) { return row.param.test; });

class HostReplaceTest : public CorrectedCompanyTest {
  protected:
    void SetUp() override { exportAndCorrect(); }
    [[nodiscard]] QString folder() const { return home_.filePath("in/"); }
    static QTreeWidget& figures(QWidget& dialog) {
        return *dialog.findChild<QTreeWidget*>("figures");
    }
    // Chooses "Replace", and does what is to be done in the dialog that follows.
    void importing(const DialogAnswers::Answer& answer) {
        DialogAnswers answers;
        answers.nextButton("Replace");
        answers.next(answer);
        host_->importFile(companyFile());
    }
    static double revenue(const CompanyRecord& record) {
        return record.get_YRevenueSeries().array().number(2);
    }
};

TEST_F(HostReplaceTest, WhatWasTypedStaysUnlessItIsTicked) {
    importing([](QWidget& dialog) {
        ASSERT_EQ(dialog.objectName(), "typedFigures");
        ASSERT_EQ(figures(dialog).topLevelItemCount(), 2);
        const QTreeWidgetItem& sales = *figures(dialog).topLevelItem(0);
        EXPECT_EQ(sales.text(0), "Yearly Revenue 2024");
        EXPECT_EQ(sales.text(1), "391,000");
        EXPECT_EQ(sales.text(2), "391,035");
        EXPECT_EQ(figures(dialog).topLevelItem(1)->text(1), "Corrected Inc.");
        for (int row = 0; row < 2; ++row)
            EXPECT_EQ(figures(dialog).topLevelItem(row)->checkState(0), Qt::Unchecked);
        DialogAnswers::clickButton(dialog, "Import");
    });
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Corrected Inc.");
    EXPECT_EQ(revenue(*stored(*host_, "AAPL")), 391000);
    const auto loaded = host_->store().load(idOf(*host_, "AAPL"));
    EXPECT_EQ(loaded.value().origins.of(Datum::YRevenueSeries, 2).origin, Origin::typed);
}

// A year more moves it to another place, and it is as much its person's as before.
TEST_F(HostReplaceTest, WhatWasTypedIsAskedAboutAgainAfterAnImportThatAddedAYear) {
    const std::int64_t id = idOf(*host_, "AAPL");
    {
        const auto loaded = host_->store().load(id);
        const auto record = loaded.value().record->clone();
        test::goBack(*record, 1, 0);
        SaveAccount account;
        account.rest = {Origin::imported, "Earlier", "earlier"};
        account.origins = loaded.value().origins;
        account.origins->put(Datum::YRevenueSeries, 1, {Origin::typed, {}, false});
        ASSERT_TRUE(host_->store().save(id, *record, loaded.value().revision, account));
    }
    for (int round = 0; round < 2; ++round) {
        importing([&](QWidget& dialog) {
            ASSERT_EQ(dialog.objectName(), "typedFigures");
            EXPECT_EQ(figures(dialog).topLevelItem(0)->text(0), "Yearly Revenue 2024");
            DialogAnswers::clickButton(dialog, "Import");
        });
        const auto loaded = host_->store().load(id);
        EXPECT_EQ(loaded.value().record->get_LastFY(), 2025);
        EXPECT_EQ(revenue(*loaded.value().record), 391000);
        EXPECT_EQ(loaded.value().origins.of(Datum::YRevenueSeries, 2).origin, Origin::typed);
        EXPECT_EQ(loaded.value().origins.of(Datum::YRevenueSeries, 1).origin, Origin::imported);
    }
}

// An import of a year before has no row for what was typed last; no table shows the year ahead.
TEST_F(HostReplaceTest, WhatIsNewerThanTheImportIsToldWithTheReason) {
    const std::int64_t id = idOf(*host_, "AAPL");
    {
        const auto loaded = host_->store().load(id);
        const auto record = loaded.value().record->clone();
        test::putElement(*record, Datum::YRevenueSeries, 1, 416000); // of 2025
        ASSERT_TRUE(host_->store().save(id, *record, loaded.value().revision));
    }
    QByteArray company = contents(companyFile());
    ASSERT_TRUE(company.contains("last_fiscal_year,2025"));
    company.replace("last_fiscal_year,2025", "last_fiscal_year,2024");
    company.replace("last_fiscal_year_end,2025-09-27", "last_fiscal_year_end,2024-09-28");
    write(companyFile(), company);
    const QString yearly = folder() + "AAPL-yearly.csv";
    QByteArray years = contents(yearly);
    const auto last = years.indexOf("\n2025,");
    ASSERT_GT(last, 0);
    write(yearly, years.remove(last, years.indexOf('\n', last + 1) - last));
    DialogAnswers answers;
    answers.nextButton("Replace");
    answers.next([](QWidget& dialog) {
        const QTreeWidgetItem& sales = *figures(dialog).topLevelItem(0);
        EXPECT_EQ(sales.text(0), "Yearly Revenue 2025");
        EXPECT_EQ(sales.text(1), "416,000");
        EXPECT_EQ(sales.text(2), "after its last year");
        EXPECT_FALSE(sales.flags() & Qt::ItemIsEnabled);
        EXPECT_EQ(figures(dialog).topLevelItem(1)->text(0), "Yearly Revenue 2024");
        EXPECT_EQ(figures(dialog).topLevelItem(1)->text(2), "391,035");
        DialogAnswers::clickButton(dialog, "Import");
    });
    answers.next([](QWidget& dialog) { // the rest of that year
        const QString told = dynamic_cast<const QMessageBox&>(dialog).detailedText();
        EXPECT_TRUE(told.contains(
            "Yearly Earnings Per Share 2025: 7.46, after the last year of the import"))
            << told.toStdString();
        DialogAnswers::clickButton(dialog, "OK");
    });
    host_->importFile(companyFile());
    const auto after = stored(*host_, "AAPL");
    EXPECT_EQ(after->get_LastFY(), 2024);
    EXPECT_EQ(after->get_YRevenueSeries().array().number(0), 416000); // ahead
    EXPECT_EQ(after->get_YRevenueSeries().array().number(1), 391000);
}

TEST_F(HostReplaceTest, ASettingThatWasTypedIsAskedAboutToo) {
    const std::int64_t id = idOf(*host_, "AAPL");
    {
        const auto loaded = host_->store().load(id);
        const auto record = loaded.value().record->clone();
        record->get_Settings()->put(setting::currencySymbol, std::string("CHF"));
        ASSERT_TRUE(host_->store().save(id, *record, loaded.value().revision));
    }
    importing([](QWidget& dialog) {
        const int rows = figures(dialog).topLevelItemCount();
        const QTreeWidgetItem& symbol = *figures(dialog).topLevelItem(rows - 1);
        EXPECT_EQ(symbol.text(0), "Currency Symbol");
        EXPECT_EQ(symbol.text(1), "CHF");
        DialogAnswers::clickButton(dialog, "Import");
    });
    EXPECT_EQ(stored(*host_, "AAPL")->get_Settings()->get(setting::currencySymbol).toText(), "CHF");
}

// A year and a cell that an earlier import has brought.
TEST_F(HostReplaceTest, WhatGoesBecauseTheFilesDoNotHaveItIsTold) {
    const QString yearly = folder() + "AAPL-yearly.csv";
    QByteArray years = contents(yearly);
    const auto from = years.indexOf("\n2017,");
    ASSERT_GT(from, 0);
    write(yearly, years.remove(from, years.indexOf('\n', from + 1) - from));
    QByteArray company = contents(companyFile());
    const auto city = company.indexOf("\ncity,");
    ASSERT_GT(city, 0);
    company.replace(city, company.indexOf('\n', city + 1) - city, "\ncity,\r");
    write(companyFile(), company);

    QString told;
    DialogAnswers answers;
    answers.nextButton("Replace");
    answers.nextButton("Import"); // what was typed stays
    answers.next([&](QWidget& dialog) {
        const auto& box = dynamic_cast<const QMessageBox&>(dialog);
        told = box.text() + '\n' + box.informativeText() + '\n' + box.detailedText();
        DialogAnswers::clickButton(dialog, "OK");
    });
    host_->importFile(companyFile());
    EXPECT_TRUE(told.startsWith("Apple Inc. (AAPL) was imported.\n")) << told.toStdString();
    EXPECT_TRUE(told.contains(" figures that the files do not have are gone: Yearly "))
        << told.toStdString();
    EXPECT_TRUE(told.contains("\"History...\"")) << told.toStdString();
    EXPECT_TRUE(told.contains("\nYearly Revenue 2017: 229234\n")) << told.toStdString();
    EXPECT_TRUE(told.endsWith("\nCity: Cupertino")) << told.toStdString();
    EXPECT_EQ(stored(*host_, "AAPL")->get_City(), "");
}

TEST_F(HostReplaceTest, OfSeveralOfASymbolNoneIsReplaced) {
    const auto loaded = host_->store().load(idOf(*host_, "AAPL"));
    const auto other = loaded.value().record->clone();
    other->put_Name("Other Inc.");
    ASSERT_TRUE(host_->store().save(std::nullopt, *other));
    const Answers answers({"Replace", "OK"});
    host_->importFile(companyFile());
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(1).contains("several companies of that symbol"))
        << answers.told().value(1).toStdString();
    EXPECT_TRUE(shownNames(*host_).contains("Corrected Inc."));
    EXPECT_TRUE(shownNames(*host_).contains("Other Inc."));
    EXPECT_FALSE(shownNames(*host_).contains("Apple Inc."));
}

TEST_F(HostReplaceTest, WhatIsTickedIsReplacedByKeysAlone) {
    importing([this](QWidget& dialog) {
        user_.activate(dialog);
        EXPECT_EQ(QApplication::focusWidget(), &figures(dialog));
        user_.press(Qt::Key_Space);
        EXPECT_EQ(figures(dialog).topLevelItem(0)->checkState(0), Qt::Checked);
        EXPECT_EQ(figures(dialog).topLevelItem(1)->checkState(0), Qt::Unchecked);
        user_.press(Qt::Key_Return);
    });
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Corrected Inc.");
    EXPECT_EQ(revenue(*stored(*host_, "AAPL")), 391035);
    const auto loaded = host_->store().load(idOf(*host_, "AAPL"));
    EXPECT_EQ(loaded.value().origins.of(Datum::YRevenueSeries, 2).origin, Origin::imported);
}

TEST_F(HostReplaceTest, EscapeImportsNothing) {
    importing([](QWidget& dialog) {
        DialogAnswers::clickButton(dialog, "Tick All");
        EXPECT_EQ(figures(dialog).topLevelItem(1)->checkState(0), Qt::Checked);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Corrected Inc.");
    EXPECT_EQ(host_->store().load(idOf(*host_, "AAPL")).value().revision, 2);
}

TEST_F(HostReplaceTest, SeveralCompaniesAreTickedOneByOneOrAtOnce) {
    host_->exportCompanies({idOf(*host_, "TSLA")}, folder());
    type(open(*host_, "TSLA"), "txtName", "Volta Inc.");
    ASSERT_TRUE(host_->windows().front()->save());
    Answers answers({"Replace"});
    QTimer ticking; // for there is a window of progress before
    bool isTicked = false;
    QObject::connect(&ticking, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (isTicked || dialog == nullptr || dialog->objectName() != "typedFigures")
            return;
        isTicked = true;
        ASSERT_EQ(figures(*dialog).topLevelItemCount(), 2);
        QTreeWidgetItem& volta = *figures(*dialog).topLevelItem(1);
        EXPECT_EQ(volta.text(0), "Volta Inc. (TSLA)");
        volta.setCheckState(0, Qt::Checked);
        EXPECT_EQ(volta.child(0)->checkState(0), Qt::Checked);
        DialogAnswers::clickButton(*dialog, "Import");
    });
    ticking.start(0);
    host_->importFolder(folder());
    EXPECT_TRUE(isTicked);
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Corrected Inc.");
    EXPECT_EQ(stored(*host_, "TSLA")->get_Name(), "Tesla, Inc.");
}

// A save would make it final, without anybody having seen it.
TEST_F(HostReplaceTest, ADamagedCompanyStaysAsItIsAndIsCopiedByNobodyUnasked) {
    const std::int64_t id = idOf(*host_, "AAPL");
    execute(QString("UPDATE company SET \"TotalCap\" = 777 WHERE id = %1").arg(id));
    {
        const Answers answers({"Replace", "OK"});
        host_->importFile(companyFile());
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(1).contains("is not as it was saved"));
    }
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Corrected Inc.");
    {
        const Answers answers({"OK"});
        host_->duplicateCompany(id);
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("is not as it was saved"));
    }
    QDir(home_.path()).mkdir("out");
    {
        const Answers answers({"Cancel"});
        host_->exportCompanies({id}, home_.filePath("out"));
        EXPECT_TRUE(answers.allGiven());
    }
    EXPECT_TRUE(QDir(home_.filePath("out")).isEmpty());
    const Answers answers({"Export"});
    host_->exportCompanies({id}, home_.filePath("out"));
    EXPECT_TRUE(answers.allGiven());
    EXPECT_FALSE(QDir(home_.filePath("out")).isEmpty());
    EXPECT_TRUE(host_->store().load(id).value().damage);
}

TEST_F(HostTest, AFolderIsImportedWithItsProgressAndWithoutWhatCannotBeRead) {
    QDir(home_.path()).mkdir("in");
    const QString folder = home_.filePath("in/");
    write(folder + "ONE-company.csv", "key,value\nname,One\nsymbol,ONE\n");
    write(folder + "TWO-company.csv", "key,value\nname,Two\nsymbol,TWO\n");
    write(folder + "BAD-company.csv", "key,value\nname,Bad\ntotal_debt_musd,1x\n");
    Answers answers({"Import 2", "OK"});
    host_->importFolder(folder);
    EXPECT_TRUE(answers.told().value(0).contains("BAD-company.csv, line 3"))
        << answers.told().value(0).toStdString();
    EXPECT_TRUE(shownNames(*host_).contains("One"));
    EXPECT_TRUE(shownNames(*host_).contains("Two"));
    EXPECT_FALSE(shownNames(*host_).contains("Bad"));
}

TEST_F(HostTest, AnImportOfAFolderCanBeStopped) {
    QTimer stop;
    bool isStopped = false;
    QObject::connect(&stop, &QTimer::timeout, [&] {
        if (auto* progress = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
            progress != nullptr && !isStopped) {
            isStopped = true;
            user_.click(*progress->findChild<QPushButton*>());
        }
    });
    stop.start(0);
    Answers answers({"OK"});
    host_->importFolder(samples());
    EXPECT_TRUE(isStopped);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("No company was imported."));
    EXPECT_EQ(shownNames(*host_).size(), 4);
}

TEST_F(HostTest, AFileOfAnotherNameIsNotImported) {
    write(home_.filePath("figures.csv"), "key,value\n");
    Answers answers({"OK"});
    host_->importFile(home_.filePath("figures.csv"));
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("figures.csv"));
}

} // namespace
} // namespace vkr
