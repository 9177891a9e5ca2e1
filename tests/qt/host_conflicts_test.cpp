// SPDX-License-Identifier: MIT
#include "tests/qt/host_fixture.hpp"

#include <QFile>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <csignal>
#include <sys/resource.h>

namespace vkr {
namespace {

struct ConflictCase {
    const char* test;
    const char* answer;
    bool stays;         // the window is still open
    const char* stored; // under the symbol, in the first company of that symbol
    int companies;
};

class HostConflictTest : public HostTest, public testing::WithParamInterface<ConflictCase> {};

TEST_P(HostConflictTest, WhoSavesSecondChoosesAndNothingIsLost) {
    const auto colleague = another();
    CompanyWindow& mine = open(*host_, "AAPL");
    CompanyWindow& theirs = open(*colleague, "AAPL");
    type(theirs, "txtName", "Theirs Inc.");
    click(theirs, "cmdOK");
    type(mine, "txtName", "Mine Inc.");
    {
        Answers answers({GetParam().answer});
        click(mine, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("colleague@desk"));
        EXPECT_TRUE(answers.told().value(0).contains("Name: theirs Theirs Inc., yours Mine Inc."));
    }
    EXPECT_EQ(!host_->windows().isEmpty(), GetParam().stays);
    EXPECT_EQ(host_->store().load(idOf(*colleague, "AAPL")).value().record->get_Name(),
              GetParam().stored);
    EXPECT_EQ(host_->store().list().value().size(), static_cast<std::size_t>(GetParam().companies));
    if (QString(GetParam().answer) == "Go Back") {
        EXPECT_EQ(mine.record()->get_Name(), "Mine Inc.");
        EXPECT_TRUE(mine.isWindowModified());
    }
    if (QString(GetParam().answer) == "Take Theirs") {
        EXPECT_EQ(mine.record()->get_Name(), "Theirs Inc.");
        EXPECT_FALSE(mine.isWindowModified());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Answers, HostConflictTest,
    testing::Values(ConflictCase{"Overwrite", "Overwrite with Mine", false, "Mine Inc.", 4},
                    ConflictCase{"TakeTheirs", "Take Theirs", true, "Theirs Inc.", 4},
                    ConflictCase{"GoBack", "Go Back", true, "Theirs Inc.", 4}),
    [](const auto& row) { return row.param.test; });

TEST_F(HostTest, ACopyOfMineStandsBesideTheirs) {
    const auto colleague = another();
    CompanyWindow& mine = open(*host_, "AAPL");
    type(open(*colleague, "AAPL"), "txtName", "Theirs Inc.");
    click(*colleague->windows().first(), "cmdOK");
    type(mine, "txtName", "Mine Inc.");
    Answers answers({"Save Mine as a Copy"});
    click(mine, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(shownNames(*host_), (QStringList{"Mine Inc. (copy)", "NVIDIA CORP", "SNOWFLAKE INC.",
                                               "Tesla, Inc.", "Theirs Inc."}));
}

TEST_F(HostTest, ACompanyDeletedElsewhereCanBeSavedAnew) {
    CompanyWindow& mine = open(*host_, "AAPL");
    type(mine, "txtName", "Mine Inc.");
    const auto colleague = another();
    {
        Answers answers({"Delete"});
        colleague->deleteCompanies({idOf(*colleague, "AAPL")});
        EXPECT_TRUE(answers.allGiven());
    }
    Answers answers({"Save as New Company"});
    click(mine, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Mine Inc.");
}

TEST_F(HostTest, ALockedFileGivesAMessageAndTheEditsStay) {
    host_.reset();
    StoreOptions options;
    options.patience = std::chrono::milliseconds(1);
    host_ = std::move(Workspace::open(database(), options).workspace);
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    {
        QSqlDatabase other = QSqlDatabase::addDatabase("QSQLITE", "other");
        other.setDatabaseName(database());
        ASSERT_TRUE(other.open());
        QSqlQuery query(other);
        ASSERT_TRUE(query.exec("BEGIN IMMEDIATE"));
        Answers answers({"OK"});
        click(window, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains(database()));
        EXPECT_TRUE(answers.told().value(0).contains("Your changes are still in this window."));
        ASSERT_TRUE(query.exec("ROLLBACK"));
    }
    QSqlDatabase::removeDatabase("other");
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_TRUE(window.isWindowModified());
    click(window, "cmdOK");
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
}

TEST_F(HostTest, AFullDiskGivesAMessageAndTheEditsStay) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    {
        Answers answers({"OK"});
        const rlimit none{0, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
        click(window, "cmdOK");
        setrlimit(RLIMIT_FSIZE, &usual);
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains(database()));
        EXPECT_TRUE(answers.told().value(0).contains("Your changes are still in this window."));
    }
    std::signal(SIGXFSZ, handler);
    ASSERT_EQ(host_->windows().size(), 1);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Apple Inc.");
    click(window, "cmdOK");
    EXPECT_EQ(stored(*host_, "AAPL")->get_Name(), "Zebra Inc.");
}

TEST_F(HostTest, ADamagedFileGivesAMessageAndTheEditsStay) {
    CompanyWindow& window = open(*host_, "AAPL");
    type(window, "txtName", "Zebra Inc.");
    // So that the pages that were read are read again.
    ASSERT_TRUE(another()->store().duplicate(idOf(*host_, "NVDA")));
    QByteArray damaged = contents(database());
    constexpr qsizetype firstPage = 4096;
    damaged.replace(firstPage, damaged.size() - firstPage,
                    QByteArray(damaged.size() - firstPage, 'x'));
    {
        QFile file(database());
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_EQ(file.write(damaged), damaged.size());
    }
    Answers answers({"OK"});
    click(window, "cmdOK");
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains(database() + " is damaged"));
    EXPECT_TRUE(answers.told().value(0).contains("Your changes are still in this window."));
    EXPECT_EQ(host_->windows().size(), 1);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_EQ(window.findChild<QLineEdit*>("txtName")->text(), "Zebra Inc.");
    EXPECT_EQ(contents(database()), damaged);
}

TEST_F(HostTest, AMissingDatabaseIsNotMadeByOpeningIt) {
    const QString path = home_.filePath("other.vkr");
    const auto opened = Workspace::open(path);
    EXPECT_FALSE(opened.workspace);
    EXPECT_EQ(opened.fault, StoreFault::missing);
    EXPECT_TRUE(opened.error.contains(path));
    EXPECT_FALSE(QFile::exists(path));
}

} // namespace
} // namespace vkr
