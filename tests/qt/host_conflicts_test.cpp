// SPDX-License-Identifier: MIT
#include "tests/qt/host_fixture.hpp"

#include <QFile>
#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <algorithm>
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

// A figure that goes back to what it was here was not worked out.
TEST_F(HostTest, WhatOverwritesASaveIsToldWithItsOrigin) {
    const auto colleague = another();
    CompanyWindow& mine = open(*host_, "AAPL");
    CompanyWindow& theirs = open(*colleague, "AAPL");
    const std::int64_t id = idOf(*host_, "AAPL");
    type(mine, "txtTotalDebt", "500");
    mine.findChild<QAction*>("save")->trigger();
    type(theirs, "txtName", "Theirs Inc.");
    {
        Answers answers({"Overwrite with Mine"});
        click(theirs, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
    }
    const auto history = host_->store().history(id).value();
    const auto told = std::ranges::find_if(history, [](const HistoryGroup& group) {
        return group.name.starts_with("Overwriting what ");
    });
    ASSERT_NE(told, history.end());
    ASSERT_EQ(told->changes.size(), 1U);
    EXPECT_EQ(told->changes.front().datum, "TotalDebt");
    EXPECT_EQ(told->changes.front().before, "500");
    EXPECT_EQ(told->changes.front().origin, Origin::imported);
    const auto stored = host_->store().load(id).value();
    EXPECT_EQ(stored.origins.of(Datum::TotalDebt).origin, Origin::imported);
    EXPECT_EQ(host_->store().stateAfter(id, history.front()).value().origins.of(Datum::TotalDebt),
              stored.origins.of(Datum::TotalDebt));
}

// The year that they have added is gone again, and no step of mine ends in another one.
TEST_F(HostTest, WhatOverwritesAnAddedYearIsOneStep) {
    const auto colleague = another();
    CompanyWindow& mine = open(*host_, "AAPL");
    CompanyWindow& theirs = open(*colleague, "AAPL");
    const std::int64_t id = idOf(*host_, "AAPL");
    mine.entry().component().put_CurrentTab(toYearly);
    type(mine, "txtSales(9)", "12345");
    theirs.entry().component().put_CurrentTab(toYearly);
    {
        Answers answers({"Yes"});
        click(theirs, "cmdAddYear");
        EXPECT_TRUE(answers.allGiven());
    }
    click(theirs, "cmdOK");
    {
        Answers answers({"Overwrite with Mine"});
        click(mine, "cmdOK");
        EXPECT_TRUE(answers.allGiven());
    }
    const auto history = host_->store().history(id).value();
    EXPECT_TRUE(history.front().name.starts_with("Overwriting what ")) << history.front().name;
    const auto typed = std::ranges::count_if(history.front().changes, [](const HistoryChange& one) {
        return one.datum == "YRevenueSeries" && one.origin == Origin::typed;
    });
    EXPECT_EQ(typed, 1);
    const auto restored = host_->store().stateAfter(id, history.front()).value().origins;
    const auto stored = host_->store().load(id).value().origins;
    for (int year = 1; year <= 10; ++year) {
        const auto from = restored.of(Datum::YRevenueSeries, year);
        EXPECT_EQ(from, stored.of(Datum::YRevenueSeries, year)) << year;
        EXPECT_EQ(from.origin, year == 1 ? Origin::typed : Origin::imported) << year;
    }
}

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
