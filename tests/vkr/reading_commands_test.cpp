// SPDX-License-Identifier: MIT
// What is read from a database: list, show and export.
#include "tests/vkr/program_run.hpp"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <sys/stat.h>

namespace vkr::test {
namespace {

class ReadingCommands : public ProgramTest {
  protected:
    void SetUp() override { importSamples(); }
};

TEST_F(ReadingCommands, AListIsAlignedForPeople) {
    const auto list = run({"list", "nasdaq", "motor"});
    EXPECT_EQ(list.code, 0);
    EXPECT_TRUE(list.out.starts_with(
        "symbol  name         exchange  industry                               last_fiscal_year"))
        << list.out;
    EXPECT_TRUE(contains(list.out, "\nTSLA    Tesla, Inc.  Nasdaq    Motor Vehicles & Passenger "
                                   "Car Bodies              2021"))
        << list.out;
    EXPECT_EQ(std::ranges::count(list.out, '\n'), 2);
    EXPECT_EQ(list.err, "");
}

TEST_F(ReadingCommands, WhatPeopleReadCommandsNoTerminal) {
    auto strange = std::make_shared<CompanyRecord>();
    strange->put_Symbol("ODD");
    strange->put_Name("A\tB\x1b[2J\xc2\x9b");
    ASSERT_TRUE(store()->save(std::nullopt, *strange));
    EXPECT_TRUE(contains(run({"list", "odd"}).out, "ODD     A\\tB\\x1b[2J\\x9b"));
}

TEST_F(ReadingCommands, TabSeparatedValuesEscapeAndDoNotQuote) {
    auto strange = std::make_shared<CompanyRecord>();
    strange->put_Symbol("ODD");
    strange->put_Notes("a\tb\n\"c\"\\n\r");
    ASSERT_TRUE(store()->save(std::nullopt, *strange));
    const auto shown = run({"show", "ODD", "--format", "tsv"});
    EXPECT_TRUE(shown.out.starts_with("key\tvalue\nname\t\nsymbol\tODD\n")) << shown.out;
    EXPECT_TRUE(contains(shown.out, "\nnotes\ta\\tb\\n\"c\"\\\\n\\r\n")) << shown.out;
}

TEST_F(ReadingCommands, JsonHasFiguresAsDecimalTextsAndNullForWhatIsAbsent) {
    const auto record = store()->load(1).value().record;
    auto exact = record->clone();
    exact->put_CurrentPrice(0.1 + 0.2);
    exact->put_Notes("\"\\\x01\n\xf0\x9f\x93\x88");
    ASSERT_TRUE(store()->save(1, *exact, 1));
    const auto shown = run({"show", "AAPL", "--format=json"});
    const auto company = QJsonDocument::fromJson(QByteArray::fromStdString(shown.out));
    ASSERT_TRUE(company.isArray()) << shown.out;
    EXPECT_EQ(company[0]["current_price"].toString(), "0.30000000000000004");
    EXPECT_EQ(company[0]["common_shares"].toString(), "14681140000");
    EXPECT_TRUE(company[0]["internet"].isNull());
    EXPECT_EQ(company[0]["notes"].toString(), QString::fromStdString(exact->get_Notes()));

    const auto both = run({"show", "AAPL", "--yearly", "--quarterly", "--format", "json"});
    const auto grids = QJsonDocument::fromJson(QByteArray::fromStdString(both.out));
    EXPECT_EQ(grids["yearly"].toArray().size(), 10);
    EXPECT_EQ(grids["quarterly"].toArray().size(), 35);
    EXPECT_EQ(grids["quarterly"][34]["eps"].toString(), "0.4175");
    EXPECT_EQ(grids["yearly"][0]["fiscal_year_end"].toString(), "2025-09-27");

    const auto list = run({"list", "--format", "json"});
    EXPECT_EQ(QJsonDocument::fromJson(QByteArray::fromStdString(list.out)).array().size(), 4);
    EXPECT_EQ(run({"list", "no", "such", "--format", "json"}).out, "[]\n");
}

TEST_F(ReadingCommands, ShowHasTheFiguresOfEachSeriesInItsColumn) {
    const auto yearly = run({"show", "TSLA", "--yearly", "--format", "tsv"});
    EXPECT_TRUE(contains(yearly.out, "\n2016\t\t7000.132\t-746.348\t-3.58\t-674.914\t4752.911\t"
                                     "1.9612\t-0.312\t\t17.956\t9.4033\t2163.18\n"))
        << yearly.out;
    const auto both = run({"show", "TSLA", "--yearly", "--quarterly", "--format", "tsv"});
    EXPECT_TRUE(both.out.starts_with(yearly.out + "\nquarter_end\trevenue_musd\t"));
}

TEST_F(ReadingCommands, ASymbolIsFoundInSmallLettersOnlyWhereNoneIsWrittenLikeThat) {
    EXPECT_TRUE(contains(run({"show", "aapl"}).out, "Apple Inc."));
    auto small = std::make_shared<CompanyRecord>();
    small->put_Symbol("aapl");
    small->put_Name("Orchard");
    ASSERT_TRUE(store()->save(std::nullopt, *small));
    EXPECT_TRUE(contains(run({"show", "aapl"}).out, "Orchard"));
    EXPECT_TRUE(contains(run({"show", "AAPL"}).out, "Apple Inc."));
    const auto several = run({"show", "Aapl"});
    EXPECT_EQ(several.code, 3);
    EXPECT_EQ(several.err, "vkr: Several companies have the symbol Aapl. Name one by its number:\n"
                           "  id:1  Apple Inc. (AAPL)\n  id:5  Orchard (aapl)\n");
    EXPECT_TRUE(contains(run({"show", "id:5"}).out, "Orchard"));
}

TEST_F(ReadingCommands, AnExportComesBackAsItWas) {
    QDir(path("")).mkdir("out");
    const auto done = run({"export", "TSLA", "aapl", "TSLA", "out", "--format", "tsv"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out, "symbol\tname\tfile\nTSLA\tTesla, Inc.\tout/TSLA-company.csv\n"
                        "AAPL\tApple Inc.\tout/AAPL-company.csv\n");
    EXPECT_EQ(done.err, "");
    EXPECT_EQ(QDir(path("out")).entryList(QDir::Files).size(), 6);
    const auto back = run({"import", "out"});
    EXPECT_EQ(back.code, 0);
    EXPECT_TRUE(contains(back.err, "2 unchanged.")) << back.err;
    QDir(path("")).mkdir("all");
    EXPECT_EQ(run({"export", "--all", "all"}).code, 0);
    EXPECT_EQ(QDir(path("all")).entryList(QDir::Files).size(), 12);
}

TEST_F(ReadingCommands, ADryRunOfAnExportTellsTheFilesAndWritesNone) {
    importSamples();
    QDir(path("")).mkdir("out");
    const auto dry = run({"export", "TSLA", "AAPL", "out", "--dry-run"});
    EXPECT_EQ(dry.code, 0) << dry.err;
    EXPECT_TRUE(contains(dry.err, "This was a dry run: no file was written.")) << dry.err;
    EXPECT_TRUE(QDir(path("out")).entryList(QDir::Files).isEmpty());
    const auto real = run({"export", "TSLA", "AAPL", "out"});
    EXPECT_EQ(real.code, 0) << real.err;
    EXPECT_EQ(real.out, dry.out);
    EXPECT_EQ(run({"export", "AAPL", "out", "-n"}).code, 4) << "as it would be refused";
}

TEST_F(ReadingCommands, AnExportReplacesFilesOnlyWhereItIsTold) {
    QDir(path("")).mkdir("out");
    write("out/TSLA-yearly.csv", "mine");
    const auto refused = run({"export", "AAPL", "TSLA", "out"});
    EXPECT_EQ(refused.code, 4);
    EXPECT_TRUE(contains(refused.err, "out/TSLA-yearly.csv is there already")) << refused.err;
    EXPECT_EQ(QDir(path("out")).entryList(QDir::Files), QStringList("TSLA-yearly.csv"));
    EXPECT_EQ(bytes("out/TSLA-yearly.csv"), "mine");
    EXPECT_EQ(run({"export", "AAPL", "TSLA", "out", "--replace"}).code, 0);
    EXPECT_NE(bytes("out/TSLA-yearly.csv"), "mine");
}

TEST_F(ReadingCommands, AnExportTakesThePlaceOfNothingButFiles) {
    QDir(path("")).mkdir("out");
    ASSERT_EQ(mkfifo(path("out/TSLA-yearly.csv").toLocal8Bit().constData(), 0600), 0);
    for (const QStringList& how : {QStringList{}, QStringList{"--dry-run"}}) {
        const auto refused = run(QStringList{"export", "AAPL", "TSLA", "out", "--replace"} + how);
        EXPECT_EQ(refused.code, 4);
        EXPECT_EQ(refused.err, "vkr: out/TSLA-yearly.csv could not be replaced: it is no file\n");
        EXPECT_EQ(QDir(path("out")).entryList(QDir::Files | QDir::System),
                  QStringList("TSLA-yearly.csv"));
    }
}

TEST_F(ReadingCommands, TwoCompaniesAreNotWrittenToTheSameFiles) {
    auto twin = std::make_shared<CompanyRecord>();
    twin->put_Symbol("TSLA");
    ASSERT_TRUE(store()->save(std::nullopt, *twin));
    QDir(path("")).mkdir("out");
    const auto refused = run({"export", "id:4", "id:5", "out"});
    EXPECT_EQ(refused.code, 3);
    EXPECT_TRUE(contains(refused.err, "would be written to the same files")) << refused.err;
    EXPECT_TRUE(QDir(path("out")).isEmpty());
}

TEST_F(ReadingCommands, AFigureThatCannotBeReadIsToldAndCounts) {
    execute("UPDATE company SET \"LastFYDate\" = '0000-00-00' WHERE id = 1");
    const auto shown = run({"show", "AAPL"});
    EXPECT_EQ(shown.code, 1);
    EXPECT_TRUE(contains(shown.err, "Apple Inc. (AAPL): what is stored of LastFYDate can't be "
                                    "read"))
        << shown.err;
}

} // namespace
} // namespace vkr::test
