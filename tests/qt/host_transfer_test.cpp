// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "tests/qt/host_fixture.hpp"

#include <QDir>
#include <QFile>
#include <QProgressDialog>
#include <QStatusBar>

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
    type(open(*host_, "AAPL"), "txtName", "Corrected Inc.");
    click(*host_->windows().first(), "cmdOK");
    Answers answers({GetParam().answer});
    host_->importFile(tables);
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(shownNames(*host_).size(), GetParam().companies);
    EXPECT_EQ(shownNames(*host_).contains("Corrected Inc."),
              QString(GetParam().answer) != "Replace");
}

INSTANTIATE_TEST_SUITE_P(Answers, HostImportTest,
                         testing::Values(KnownCase{"KeepBoth", "Keep Both", 5},
                                         KnownCase{"Replace", "Replace", 4},
                                         KnownCase{"Cancel", "Cancel", 4}),
                         [](const auto& row) { return row.param.test; });

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
