// SPDX-License-Identifier: MIT
#include "host/options.hpp"
#include "host/start.hpp"
#include "source_folder.hpp"
#include "tests/qt/host_fixture.hpp"

#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QTableView>

namespace vkr {
namespace {

// --- command line --------------------------------------------------------------------------------

TEST(OptionsTest, WithoutArgumentsTheUsersOwnDatabaseIsTaken) {
    const ParsedOptions parsed = parseOptions({"vkr-host"}, VKR_SOURCE_DIR "/samples");
    EXPECT_TRUE(parsed.print.isEmpty());
    EXPECT_FALSE(parsed.options.isNamed);
    EXPECT_TRUE(parsed.options.database.endsWith("/companies.vkr"));
    EXPECT_EQ(parsed.options.samples, VKR_SOURCE_DIR "/samples");
}

TEST(OptionsTest, EveryOptionIsTaken) {
    const ParsedOptions parsed =
        parseOptions({"vkr-host", "--database", "a.vkr", "--samples=" VKR_SOURCE_DIR}, {});
    EXPECT_TRUE(parsed.print.isEmpty());
    EXPECT_TRUE(parsed.options.isNamed);
    EXPECT_EQ(parsed.options.database, QFileInfo("a.vkr").absoluteFilePath());
    EXPECT_EQ(parsed.options.samples, VKR_SOURCE_DIR);
}

TEST(OptionsTest, WhatIsNotUnderstoodIsRefusedWithAReason) {
    struct Case {
        QStringList arguments;
        const char* told;
        int exitCode;
    };
    for (const Case& row :
         {Case{{"--nonsense"}, "nonsense", 2}, Case{{"stray"}, "stray", 2},
          Case{{"--database"}, "database", 2}, Case{{"--tour", "pictures"}, "tour", 2},
          Case{{"--samples", "/no/such/folder"}, "/no/such/folder", 2},
          Case{{"--help"}, "--database", 0}}) {
        const ParsedOptions parsed = parseOptions(QStringList{"vkr-host"} + row.arguments, {});
        EXPECT_TRUE(parsed.print.contains(row.told)) << parsed.print.toStdString();
        EXPECT_EQ(parsed.exitCode, row.exitCode) << row.told;
    }
}

// --- start ---------------------------------------------------------------------------------------

class HostStartTest : public HostTest {
  protected:
    [[nodiscard]] Options options(const QString& file, bool isNamed) const {
        return {home_.filePath(file), isNamed, samples()};
    }
};

TEST_F(HostStartTest, TheFirstStartMakesADatabaseWithTheSamples) {
    const auto host = start(options("new/companies.vkr", false));
    ASSERT_TRUE(host);
    EXPECT_EQ(host->store().list().value().size(), 4U);
    EXPECT_TRUE(host->list().isVisible());
}

TEST_F(HostStartTest, AMissingFileThatWasNamedIsNotMadeUnasked) {
    {
        Answers answers({"Quit"});
        EXPECT_FALSE(start(options("typo.vkr", true)));
        EXPECT_TRUE(answers.allGiven());
        EXPECT_TRUE(answers.told().value(0).contains("typo.vkr"));
    }
    EXPECT_FALSE(QFile::exists(home_.filePath("typo.vkr")));
    Answers answers({"Create Empty"});
    const auto host = start(options("typo.vkr", true));
    ASSERT_TRUE(host);
    EXPECT_TRUE(host->store().list().value().empty());
}

TEST_F(HostStartTest, AFileThatIsNoDatabaseIsNamedAndLeftAlone) {
    const QByteArray text(5000, 'x');
    QFile file(home_.filePath("letter.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.write(text);
    file.flush();
    Answers answers({"Try Again", "Quit"});
    EXPECT_FALSE(start(options("letter.txt", true)));
    EXPECT_TRUE(answers.allGiven());
    EXPECT_TRUE(answers.told().value(0).contains("letter.txt"));
    file.seek(0);
    EXPECT_EQ(file.readAll(), text);
}

TEST_F(HostStartTest, SortingIsRememberedFromOneStartToTheNext) {
    const auto header = [](Workspace& host) {
        return host.list().findChild<QTableView*>("companies")->horizontalHeader();
    };
    host_->list()
        .findChild<QTableView*>("companies")
        ->sortByColumn(CompanyListModel::symbol, Qt::DescendingOrder);
    host_.reset();
    host_ = another();
    EXPECT_EQ(header(*host_)->sortIndicatorSection(), CompanyListModel::symbol);
    EXPECT_EQ(header(*host_)->sortIndicatorOrder(), Qt::DescendingOrder);
    const auto* rows = host_->list().findChild<QTableView*>("companies")->model();
    EXPECT_EQ(rows->index(0, CompanyListModel::symbol).data(), "TSLA");
}

} // namespace
} // namespace vkr
