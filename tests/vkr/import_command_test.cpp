// SPDX-License-Identifier: MIT
#include "tests/support/earlier_company.hpp"
#include "tests/support/elements.hpp"
#include "tests/vkr/program_run.hpp"

#include <QSqlDatabase>
#include <QSqlQuery>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <map>
#include <sys/resource.h>

namespace vkr::test {
namespace {

struct ImportCommand : ProgramTest {
    // The files of AAPL with a year more, in the folder "in".
    void writeNextYear(const std::map<QByteArray, QByteArray>& mended = {}) const {
        for (const char* part : {"company", "quarterly"})
            ASSERT_TRUE(QFile::copy(samples() + "/AAPL-" + part + ".csv",
                                    path(QString("in/AAPL-") + part + ".csv")));
        QFile yearly(samples() + "/AAPL-yearly.csv");
        ASSERT_TRUE(yearly.open(QIODevice::ReadOnly));
        QByteArray text = yearly.readAll();
        for (const auto& [before, after] : mended)
            text.replace(before, after);
        text.insert(text.indexOf('\n') + 1, "2026,2026-09-26,500000,,,,,,,,,,\n");
        write("in/AAPL-yearly.csv", text);
    }
};

int rows(const std::string& out) {
    return static_cast<int>(std::ranges::count(out, '\n')) - 1;
}

TEST_F(ImportCommand, TheSamplesComeInWholeAndASecondTimeChangeNothing) {
    importSamples();
    const auto again = run({"import", samples(), "--format", "tsv"});
    EXPECT_EQ(again.code, 0) << again.err;
    EXPECT_EQ(again.out, "fate\tsymbol\tname\tgone\nunchanged\tAAPL\tApple Inc.\t0\n"
                         "unchanged\tNVDA\tNVIDIA CORP\t0\nunchanged\tSNOW\tSNOWFLAKE INC.\t0\n"
                         "unchanged\tTSLA\tTesla, Inc.\t0\n");
    const auto database = store();
    const auto list = database->list();
    ASSERT_EQ(list.value().size(), 4U);
    for (const CompanySummary& company : list.value()) {
        EXPECT_EQ(company.key.revision, 1);
        const CsvImport direct = importCompany(samples().toStdString(), company.symbol);
        EXPECT_TRUE(sameAs(*database->load(company.key.id).value().record, *direct.company));
    }
}

TEST_F(ImportCommand, EachFigureNamesTheFileThatItStandsIn) {
    importSamples();
    const FigureOrigins origins = store()->load(1).value().origins;
    struct Row {
        Datum datum;
        std::optional<int> element;
        const char* file;
    };
    for (const auto& [datum, element, file] :
         {Row{Datum::Name, {}, "AAPL-company.csv"}, Row{Datum::TotalDebt, {}, "AAPL-company.csv"},
          Row{Datum::YRevenueSeries, 1, "AAPL-yearly.csv"},
          Row{Datum::YHighSeries, 9, "AAPL-yearly.csv"}, Row{Datum::LastFY, {}, "AAPL-yearly.csv"},
          Row{Datum::LastFYDate, {}, "AAPL-yearly.csv"},
          Row{Datum::QEPSSeries, 34, "AAPL-quarterly.csv"},
          Row{Datum::LastQDate, {}, "AAPL-quarterly.csv"}})
        EXPECT_EQ(origins.of(datum, element), (FigureOrigin{Origin::imported, file, false}))
            << rowOf(datum).name << ' ' << origins.of(datum, element).document;
    const auto told = run(
        {"history", "AAPL", "--figure", "QEPSSeries", "--period", "2025-09-27", "--format", "tsv"});
    EXPECT_TRUE(contains(told.out, "\timported\tAAPL-quarterly.csv\n")) << told.out;
}

TEST_F(ImportCommand, WhatHasNoPlaceIsCountedAndListedOnRequest) {
    const auto counted = run({"import", samples(), "--create"});
    EXPECT_TRUE(
        contains(counted.err, "41 entries and tables were left out or are not there; --verbose"))
        << counted.err;
    const auto listed = run({"import", samples(), "--verbose"});
    EXPECT_EQ(std::ranges::count(listed.err, '\n'), 41 + 1);
    EXPECT_TRUE(contains(listed.err, "AAPL: AAPL-company.csv, line 6")) << listed.err;
}

TEST_F(ImportCommand, ABadCompanyKeepsNoneOutAndIsToldByTheExitCode) {
    writeCompany("GOOD", "Good");
    write("in/BAD-company.csv", "key,value\nname,Bad\nlast_fiscal_year,20x5\n");
    const auto partly = run({"import", "in", "--create"});
    EXPECT_EQ(partly.code, 5);
    EXPECT_TRUE(contains(partly.out, "failed     BAD\nadded      GOOD      Good")) << partly.out;
    EXPECT_TRUE(contains(partly.err, "BAD: BAD-company.csv, line 3, column 2, \"20x5\""))
        << partly.err;
    EXPECT_TRUE(contains(partly.err, "1 added, 1 failed.")) << partly.err;
    EXPECT_EQ(store()->list().value().size(), 1U);
    ASSERT_TRUE(QFile::remove(path("in/GOOD-company.csv")));
    EXPECT_EQ(run({"import", "in"}).code, 3) << "nothing of it could be read";
}

TEST_F(ImportCommand, WhatIsThereWithOtherDataStaysUnlessItIsToBeReplaced) {
    writeCompany("X", "Old");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    writeCompany("X", "New");
    const auto left = run({"import", "in"});
    EXPECT_EQ(left.code, 5);
    EXPECT_TRUE(contains(left.out, "left       X         New")) << left.out;
    EXPECT_TRUE(contains(left.err, "X: the database has it already, with other data")) << left.err;
    EXPECT_EQ(store()->list().value().front().name, "Old");

    const auto replaced = run({"import", "in", "--replace"});
    EXPECT_EQ(replaced.code, 0);
    EXPECT_TRUE(contains(replaced.out, "replaced   X         New")) << replaced.out;
    EXPECT_EQ(store()->list().value().front().name, "New");
    EXPECT_EQ(store()->list().value().front().key, (CompanyKey{1, 2}));

    writeCompany("X", "Third");
    EXPECT_EQ(run({"import", "in", "--keep-both"}).code, 0);
    EXPECT_EQ(store()->list().value().size(), 2U);
    EXPECT_EQ(run({"import", "in", "--keep-both", "--replace"}).code, 2);
}

TEST_F(ImportCommand, WhatWasTypedStaysWhereTheRestIsReplaced) {
    importSamples();
    {
        const auto database = store();
        const auto record = database->load(1).value().record->clone();
        putElement(*record, Datum::YRevenueSeries, 2, 999);
        record->put_City("Elsewhere");
        record->put_Notes("mine"); // of which the files do not speak
        ASSERT_TRUE(database->save(1, *record, 1));
    }
    writeNextYear({{"383285", "383286"}}); // another figure is mended
    const auto replaced = run({"import", "in", "--replace"});
    EXPECT_EQ(replaced.code, 5) << replaced.err;
    EXPECT_TRUE(contains(replaced.err, "what was typed stays: Yearly Revenue 2024: 999, not "
                                       "391035"))
        << replaced.err;
    auto record = store()->load(1).value().record;
    EXPECT_EQ(record->get_LastFY(), 2026);
    EXPECT_EQ(elementOf(*record, Datum::YRevenueSeries, 1), 500000);
    EXPECT_EQ(elementOf(*record, Datum::YRevenueSeries, 3), 999);
    EXPECT_EQ(elementOf(*record, Datum::YRevenueSeries, 4), 383286);
    EXPECT_EQ(record->get_City(), "Elsewhere");

    const auto again = run({"import", "in", "--replace", "--dry-run"});
    EXPECT_EQ(again.code, 5) << "it is not what the files have";
    EXPECT_TRUE(contains(again.out, "unchanged  AAPL")) << again.out;
    EXPECT_TRUE(contains(again.err, "City: Elsewhere, not Cupertino")) << again.err;

    const auto dry = run({"import", "in", "--replace-typed", "--dry-run"});
    EXPECT_TRUE(contains(dry.err, "what was typed is replaced: City: Elsewhere")) << dry.err;
    const auto all = run({"import", "in", "--replace-typed", "--verbose"});
    EXPECT_EQ(all.code, 0);
    EXPECT_TRUE(contains(all.err, "Replaced though typed: 2.")) << all.err;
    EXPECT_TRUE(contains(all.err, "what was typed is replaced: Yearly Revenue 2024: 999, not "
                                  "391035"))
        << all.err;
    record = store()->load(1).value().record;
    EXPECT_EQ(elementOf(*record, Datum::YRevenueSeries, 3), 391035);
    EXPECT_EQ(record->get_City(), "Cupertino");
    EXPECT_EQ(record->get_Notes(), "mine");
}

// An earlier import brought it, and this one does not speak of it.
TEST_F(ImportCommand, WhatTheFilesHaveNoKeyOrColumnForStays) {
    write("in/X-company.csv", "key,value\nname,X\nsymbol,X\nindustry,Mining\ntotal_debt_musd,5\n");
    write("in/X-yearly.csv",
          "fiscal_year,fiscal_year_end,revenue_musd,dividend\n2024,2024-12-31,7,1.02\n");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    write("in/X-company.csv", "key,value\nname,X\nsymbol,X\nindustry,\n");
    write("in/X-yearly.csv",
          "fiscal_year,fiscal_year_end,revenue_musd\n2025,2025-12-31,8\n2024,2024-12-31,7\n");
    EXPECT_EQ(run({"import", "in", "--replace"}).code, 1) << "the industry is gone";
    const auto record = store()->load(1).value().record;
    EXPECT_EQ(record->get_TotalDebt(), 5);
    EXPECT_EQ(record->get_Industry(), "") << "it is there, and empty";
    EXPECT_EQ(elementOf(*record, Datum::YDividendSeries, 2), 1.02) << "of 2024";
    EXPECT_EQ(elementOf(*record, Datum::YRevenueSeries, 1), 8);
}

// A year and a cell that an earlier import has brought, and this one has nothing for.
TEST_F(ImportCommand, WhatGoesBecauseTheFilesDoNotHaveItIsTold) {
    const QByteArray company = "key,value\nname,X\nsymbol,X\n";
    const QByteArray head = "fiscal_year,fiscal_year_end,revenue_musd,dividend\n";
    write("in/X-company.csv", company + "industry,Mining\ncurrency_symbol,EUR\n");
    write("in/X-yearly.csv", head + "2024,2024-12-31,7,1.02\n2023,2023-12-31,6,\n");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    write("in/X-company.csv", company + "industry,\n");
    write("in/X-yearly.csv", head + "2025,2025-12-31,8,1.1\n2024,2024-12-31,7,\n");

    const auto dry = run({"import", "in", "--replace", "--dry-run", "--format", "tsv"});
    EXPECT_EQ(dry.code, 1);
    EXPECT_EQ(dry.out, "fate\tsymbol\tname\tgone\nreplaced\tX\tX\t3\n");
    for (const char* gone :
         {"X: gone: Industry: Mining\n", "X: gone: Yearly Dividends Declared 2024: 1.02\n",
          "X: gone: Yearly Revenue 2023: 6\n"})
        EXPECT_TRUE(contains(dry.err, gone)) << dry.err;
    const auto json = run({"import", "in", "--replace", "--dry-run", "--format", "json"});
    EXPECT_TRUE(contains(json.out, "\"gone\": \"3\"")) << json.out;

    const auto replaced = run({"import", "in", "--replace"});
    EXPECT_EQ(replaced.code, 1);
    EXPECT_EQ(replaced.out, "fate       symbol    name\nreplaced   X         X\n");
    EXPECT_TRUE(contains(replaced.err, "X: 3 figures that the files do not have are gone: Yearly "))
        << replaced.err;
    EXPECT_TRUE(contains(replaced.err, ", Industry.\n")) << replaced.err;
    const auto record = store()->load(1).value().record;
    EXPECT_EQ(elementOf(*record, Datum::YRevenueSeries, 3), 0);
    EXPECT_EQ(record->get_Settings()->get(setting::currencySymbol).toText(), "EUR")
        << "of which the file does not speak";
    EXPECT_FALSE(contains(run({"import", "in", "--replace"}).err, "gone")) << "it is gone already";
}

TEST_F(ImportCommand, WhatANewYearPushesOutIsTold) {
    importSamples();
    writeNextYear();
    const auto replaced = run({"import", "in", "--replace"});
    EXPECT_EQ(replaced.code, 0) << replaced.err;
    EXPECT_TRUE(contains(replaced.err, " figures too old for the table are gone: Yearly "))
        << replaced.err;
    EXPECT_FALSE(contains(replaced.err, "do not have")) << replaced.err;
}

TEST_F(ImportCommand, NothingIsGoneWhereNothingIsReplaced) {
    write("in/X-company.csv", "key,value\nname,X\nsymbol,X\nindustry,Mining\n");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    write("in/X-company.csv", "key,value\nname,X\nsymbol,X\nindustry,\n");
    for (const char* option : {"--dry-run", "--keep-both"})
        EXPECT_FALSE(contains(run({"import", "in", option}).err, "gone")) << option;
}

TEST_F(ImportCommand, ASettingThatWasTypedStaysToo) {
    writeCompany("X", "X");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    {
        const auto database = store();
        const auto record = database->load(1).value().record->clone();
        record->get_Settings()->put(setting::currencySymbol, std::string("CHF"));
        ASSERT_TRUE(database->save(1, *record, 1));
    }
    write("in/X-company.csv",
          "key,value\nname,New\nsymbol,X\ncurrency_symbol,EUR\nshow_tax_rate,true\n");
    const auto kept = run({"import", "in", "--replace"});
    EXPECT_EQ(kept.code, 5);
    EXPECT_TRUE(contains(kept.err, "X: what was typed stays: Currency Symbol: CHF, not EUR"))
        << kept.err;
    const auto settingOf = [&](std::string_view name) {
        return store()->load(1).value().record->get_Settings()->get(name).toText();
    };
    EXPECT_EQ(settingOf(setting::currencySymbol), "CHF");
    EXPECT_EQ(settingOf(setting::taxRate), "True");
    const auto replaced = run({"import", "in", "--replace-typed", "--verbose"});
    EXPECT_EQ(replaced.code, 0);
    EXPECT_TRUE(contains(replaced.err, "typed is replaced: Currency Symbol: CHF, not EUR"))
        << replaced.err;
    EXPECT_EQ(settingOf(setting::currencySymbol), "EUR");
    // Now it is of an import, and the next one may have another.
    write("in/X-company.csv", "key,value\nname,New\nsymbol,X\ncurrency_symbol,USD\n");
    EXPECT_EQ(run({"import", "in", "--replace"}).code, 0);
    EXPECT_EQ(settingOf(setting::currencySymbol), "USD");
}

TEST_F(ImportCommand, OfTwoStoredOnesOfASymbolNoneIsReplaced) {
    writeCompany("X", "First");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    writeCompany("X", "Second");
    ASSERT_EQ(run({"import", "in", "--keep-both"}).code, 0);
    EXPECT_EQ(run({"import", "in"}).code, 0) << "the second one is just that";
    writeCompany("X", "Third");
    for (const char* option : {"--replace", "--replace-typed"}) {
        const auto left = run({"import", "in", option});
        EXPECT_EQ(left.code, 5);
        EXPECT_TRUE(contains(left.err, "First (X), id:1 and Second (X), id:2")) << left.err;
    }
    const auto names = store()->list();
    ASSERT_EQ(names.value().size(), 2U);
    EXPECT_EQ(names.value()[0].name + names.value()[1].name, "FirstSecond");
}

// A folder with the company's file alone says nothing of its years.
TEST_F(ImportCommand, ATableThatIsNotThereStaysAsItIs) {
    importSamples();
    const auto before = store()->load(1).value().record;
    QFile company(samples() + "/AAPL-company.csv");
    ASSERT_TRUE(company.open(QIODevice::ReadOnly));
    QByteArray text = company.readAll();
    for (const char* key : {"last_fiscal_year,", "last_fiscal_year_end,", "last_quarter_end,"})
        if (const auto from = text.indexOf(key); from >= 0)
            text.remove(from, text.indexOf('\n', from) + 1 - from);
    write("in/AAPL-company.csv", text + "notes,new\n");
    for (const char* option : {"--replace", "--replace-typed"}) {
        EXPECT_EQ(run({"import", "in", option}).code, 0);
        const auto record = store()->load(1).value().record;
        EXPECT_EQ(record->get_Notes(), "new");
        EXPECT_EQ(record->get_LastFY(), before->get_LastFY());
        EXPECT_EQ(record->get_LastFYDate(), before->get_LastFYDate());
        EXPECT_EQ(record->get_LastQDate(), before->get_LastQDate());
        for (const Datum series : {Datum::YRevenueSeries, Datum::QEPSSeries})
            EXPECT_EQ(record->stored(series), before->stored(series)) << rowOf(series).name;
    }
}

TEST_F(ImportCommand, WhatWasTypedIsNotPushedOutOfTheTable) {
    importSamples();
    {
        const auto database = store();
        const auto record = database->load(1).value().record->clone();
        putElement(*record, Datum::YRevenueSeries, 10, 999); // of 2016
        ASSERT_TRUE(database->save(1, *record, 1));
    }
    writeNextYear();
    const auto left = run({"import", "in", "--replace"});
    EXPECT_EQ(left.code, 5) << left.err;
    EXPECT_TRUE(contains(left.err, "what was typed would be lost: Yearly Revenue 2016: 999"))
        << left.err;
    EXPECT_EQ(store()->load(1).value().record->get_LastFY(), 2025);
    EXPECT_EQ(run({"import", "in", "--replace-typed"}).code, 0);
    EXPECT_EQ(store()->load(1).value().record->get_LastFY(), 2026);
}

// It moves to another place, and is as much its person's as before: the next import asks again.
TEST_F(ImportCommand, WhatWasTypedStaysTypedWhereAnImportAddsAYear) {
    importSamples();
    {
        const auto database = store();
        const auto record = database->load(1).value().record->clone();
        goBack(*record, 1, 0);
        ASSERT_TRUE(database->save(1, *record, 1, {{}, {Origin::imported, "Earlier", "earlier"}}));
        putElement(*record, Datum::YRevenueSeries, 1, 999); // of 2024
        ASSERT_TRUE(database->save(1, *record, 2));
    }
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(run({"import", samples(), "--replace"}).code, 5) << "999 stays";
        const auto loaded = store()->load(1);
        EXPECT_EQ(loaded.value().record->get_LastFY(), 2025);
        EXPECT_EQ(loaded.value().record->get_YRevenueSeries().array().number(1), 416161);
        EXPECT_EQ(loaded.value().record->get_YRevenueSeries().array().number(2), 999);
        const FigureOrigins& origins = loaded.value().origins;
        EXPECT_EQ(origins.of(Datum::YRevenueSeries, 1).document, "AAPL-yearly.csv");
        EXPECT_EQ(origins.of(Datum::YRevenueSeries, 2).origin, Origin::typed);
        EXPECT_EQ(origins.of(Datum::YRevenueSeries, 3).origin, Origin::imported);
    }
}

TEST_F(ImportCommand, ALockedCompanyIsLeftAsItIs) {
    writeCompany("X", "Old");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    {
        const auto database = store();
        const auto record = database->load(1).value().record->clone();
        record->get_Settings()->put(setting::lockBasicInfo, true);
        ASSERT_TRUE(database->save(1, *record, 1));
    }
    writeCompany("X", "New");
    const auto left = run({"import", "in", "--replace-typed"});
    EXPECT_EQ(left.code, 5);
    EXPECT_TRUE(contains(left.err, "X: its data are locked in the database")) << left.err;
    EXPECT_EQ(store()->list().value().front().name, "Old");
}

TEST_F(ImportCommand, ADamagedCompanyIsLeftUnlessAllOfItIsReplaced) {
    writeCompany("X", "Old");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    execute("UPDATE company SET \"TotalCap\" = 777 WHERE id = 1");
    writeCompany("X", "New");
    const auto left = run({"import", "in", "--replace"});
    EXPECT_EQ(left.code, 5);
    EXPECT_TRUE(contains(left.err, "is not as it was saved")) << left.err;
    EXPECT_TRUE(store()->load(1).value().damage);
    EXPECT_EQ(run({"import", "in", "--replace-typed"}).code, 0);
    EXPECT_EQ(store()->load(1).value().record->get_TotalCap(), 0);
    EXPECT_EQ(run({"check", "X"}).code, 0);
}

TEST_F(ImportCommand, TwoOfOneFolderAreNotTakenForOne) {
    writeCompany("X", "First");
    write("in/Y-company.csv", "key,value\nname,Second\nsymbol,X\n");
    const auto partly = run({"import", "in", "--create", "--replace"});
    EXPECT_EQ(partly.code, 5);
    EXPECT_TRUE(contains(partly.err, "Y: another company of the folder has the symbol X, too"))
        << partly.err;
    EXPECT_EQ(store()->list().value().front().name, "First");
}

TEST_F(ImportCommand, ADryRunSaysWhatWouldHappenAndChangesNoByte) {
    writeCompany("X", "Old");
    ASSERT_EQ(run({"import", "in", "--create"}).code, 0);
    writeCompany("X", "New");
    for (int number = 0; number < 250; ++number)
        writeCompany(QString("N%1").arg(number, 3, 10, QChar('0')), "N");
    const QByteArray before = bytes("companies.vkr");
    const auto dry = run({"import", "in", "--replace", "--dry-run"});
    EXPECT_EQ(dry.code, 0) << dry.err;
    EXPECT_EQ(bytes("companies.vkr"), before);
    EXPECT_EQ(QDir(path("")).entryList(QDir::Files), QStringList("companies.vkr"));
    EXPECT_TRUE(contains(dry.err, "250 added, 1 replaced.")) << dry.err;
    const auto real = run({"import", "in", "--replace"});
    EXPECT_EQ(real.out, dry.out);
    EXPECT_NE(bytes("companies.vkr"), before);
}

TEST_F(ImportCommand, ADryRunMakesNoDatabase) {
    const auto dry = run({"import", samples(), "--create", "-n"});
    EXPECT_EQ(dry.code, 0) << dry.err;
    EXPECT_TRUE(contains(dry.err, "4 added.")) << dry.err;
    EXPECT_TRUE(contains(dry.err, "This was a dry run")) << dry.err;
    EXPECT_EQ(QDir(path("")).entryList(QDir::Files), QStringList());
    const auto real = run({"import", samples(), "--create"});
    EXPECT_EQ(real.code, 0) << real.err;
    EXPECT_EQ(real.out, dry.out);
}

TEST_F(ImportCommand, ADryRunRefusesADatabaseThatCannotBeMade) {
    write("in-the-way", "a file");
    const auto dry = run(
        {"--database", "in-the-way/companies.vkr", "import", samples(), "--create", "-n"}, false);
    EXPECT_EQ(dry.code, 4) << dry.err;
    EXPECT_TRUE(contains(dry.err, "can't be made")) << dry.err;
}

TEST_F(ImportCommand, ADatabaseThatIsBeingWrittenIsToldAndNothingIsHalfDone) {
    importSamples();
    writeCompany("X", "X");
    const QString name = "holder";
    {
        auto database = QSqlDatabase::addDatabase("QSQLITE", name);
        database.setDatabaseName(path("companies.vkr"));
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec("BEGIN IMMEDIATE"));
        const auto refused = run({"import", "in"});
        EXPECT_EQ(refused.code, 4);
        EXPECT_TRUE(contains(refused.err, "is being written by another window or program"))
            << refused.err;
    }
    QSqlDatabase::removeDatabase(name);
    EXPECT_EQ(store()->list().value().size(), 4U);
}

// --- many companies --------------------------------------------------------------------------

class ManyCompanies : public ProgramTest {
  protected:
    // Each with all figures of a sample.
    void writeMany(int count, const QString& folder) {
        QDir(path("")).mkdir(folder);
        for (const char* part : {"company", "yearly", "quarterly"}) {
            QFile sample(samples() + "/AAPL-" + part + ".csv");
            ASSERT_TRUE(sample.open(QIODevice::ReadOnly));
            const QByteArray text = sample.readAll();
            for (int number = 0; number < count; ++number) {
                const QString symbol = QString("M%1").arg(number, 5, 10, QChar('0'));
                write(folder + "/" + symbol + "-" + part + ".csv",
                      QByteArray(text).replace("symbol,AAPL", "symbol," + symbol.toLatin1()));
            }
        }
    }
};

// What was listed is saved, and nothing else.
TEST_F(ManyCompanies, ASignalStopsAnImportBetweenTwoSaves) {
    constexpr int count = 800;
    writeMany(count, "many");
    for (const int signal : {SIGINT, SIGTERM}) {
        SCOPED_TRACE(signal);
        QFile::remove(path("companies.vkr"));
        QProcess process;
        prepare(process, {"import", "many", "--create", "--format", "tsv"});
        process.start();
        std::string out;
        while (rows(out) < 200) {
            ASSERT_TRUE(process.waitForReadyRead(60'000));
            out += process.readAllStandardOutput().toStdString();
        }
        ASSERT_EQ(kill(static_cast<pid_t>(process.processId()), signal), 0);
        auto stopped = ended(process);
        out += stopped.out;
        EXPECT_EQ(stopped.code, 130);
        EXPECT_LT(rows(out), count);
        EXPECT_EQ(rows(out) % 100, 0);
        EXPECT_TRUE(contains(stopped.err, "Stopped: ")) << stopped.err;
        EXPECT_EQ(store()->count({}).value(), rows(out));
    }
    const auto rest = run({"import", "many"});
    EXPECT_EQ(rest.code, 0);
    EXPECT_EQ(store()->count({}).value(), count);
}

TEST_F(ManyCompanies, AReaderThatLeavesDoesNotEndTheImport) {
    writeMany(300, "many");
    QProcess process;
    prepare(process, {});
    process.setProgram("sh");
    process.setArguments(
        {"-c", "'" + program() + "' --database companies.vkr import many --create | head -n 1"});
    process.start();
    const auto done = ended(process);
    EXPECT_TRUE(done.out.starts_with("fate")) << done.out;
    EXPECT_TRUE(contains(done.err, "300 added.")) << done.err;
    EXPECT_EQ(store()->count({}).value(), 300);
}

// Ten times as many take no more memory; with VKR_LONG_TESTS=1 fifty times as many.
TEST_F(ManyCompanies, TakeNoMoreMemoryThanFew) {
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "what was freed is kept for a while by the sanitizer";
#endif
    writeMany(std::getenv("VKR_LONG_TESTS") == nullptr ? 1000 : 5000, "many");
    writeMany(100, "few");
    const auto most = [] { // of all processes that have ended, in kibibytes
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        return usage.ru_maxrss;
    };
    ASSERT_EQ(run({"import", "few", "--create"}).code, 0);
    const long few = most();
    QFile::remove(path("companies.vkr"));
    ASSERT_EQ(run({"import", "many", "--create"}).code, 0);
    EXPECT_LT(most() - few, 4096) << few;
}

} // namespace
} // namespace vkr::test
