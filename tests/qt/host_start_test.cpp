// SPDX-License-Identifier: MIT
#include "host/options.hpp"
#include "host/start.hpp"
#include "source_folder.hpp"
#include "tests/qt/host_fixture.hpp"
#include "tools/tour.hpp"

#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QImage>
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
    EXPECT_TRUE(parsed.options.tour.isEmpty());
}

TEST(OptionsTest, EveryOptionIsTaken) {
    const ParsedOptions parsed = parseOptions(
        {"vkr-host", "--database", "a.vkr", "--samples=" VKR_SOURCE_DIR, "--tour", "pictures"}, {});
    EXPECT_TRUE(parsed.print.isEmpty());
    EXPECT_TRUE(parsed.options.isNamed);
    EXPECT_EQ(parsed.options.database, QFileInfo("a.vkr").absoluteFilePath());
    EXPECT_EQ(parsed.options.samples, VKR_SOURCE_DIR);
    EXPECT_EQ(parsed.options.tour, "pictures");
}

TEST(OptionsTest, WhatIsNotUnderstoodIsRefusedWithAReason) {
    struct Case {
        QStringList arguments;
        const char* told;
        int exitCode;
    };
    for (const Case& row :
         {Case{{"--nonsense"}, "nonsense", 2}, Case{{"stray"}, "stray", 2},
          Case{{"--database"}, "database", 2}, Case{{"--tour="}, "--tour needs a folder", 2},
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
        return {home_.filePath(file), isNamed, samples(), {}};
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

// --- tour ----------------------------------------------------------------------------------------

TEST_F(HostStartTest, TheTourFindsEverythingAsExpectedAndDrawsEveryTab) {
    EXPECT_EQ(runTour(home_.filePath("tour"), samples()), 0);
    for (const char* name : {"company", "yearly", "yearly-edited", "yearly-added", "quarterly",
                             "quarterly-oldest", "quarterly-edited", "quarterly-added", "other",
                             "options", "list", "list-edited", "assistant", "discard"}) {
        const QImage picture(home_.filePath(QString("tour/%1.png").arg(name)));
        EXPECT_GT(picture.width(), 400) << name;
    }
    QFile transcript(home_.filePath("tour/transcript.txt"));
    ASSERT_TRUE(transcript.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(transcript.readAll());
    for (const char* line : {"type \"90600500\"", "TotalDebt: 90509 \u2192 90600.5",
                             "High52W: 288.62 \u2192 290.125", "Everything was as expected."})
        EXPECT_TRUE(text.contains(line)) << line;
}

TEST_F(HostStartTest, ATourWithoutTheSampleCompanyFails) {
    QTemporaryDir empty;
    EXPECT_NE(runTour(home_.filePath("tour"), empty.path()), 0);
    QFile transcript(home_.filePath("tour/transcript.txt"));
    ASSERT_TRUE(transcript.open(QIODevice::ReadOnly));
    EXPECT_TRUE(transcript.readAll().contains("NOT: "));
}

} // namespace
} // namespace vkr
