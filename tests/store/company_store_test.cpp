// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "company/company_store.hpp"
#include "tests/support/random_company.hpp"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVariant>

#include <algorithm>
#include <csignal>
#include <ctime>
#include <functional>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <thread>
#include <unistd.h>

static void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace vkr {

static void PrintTo(const CompanyKey& key, std::ostream* stream) {
    *stream << "company " << key.id << " revision " << key.revision;
}
static void PrintTo(const Difference& difference, std::ostream* stream) {
    *stream << difference.datum << "[" << difference.element.value_or(-1) << "] "
            << difference.before << " -> " << difference.after;
}

namespace {

using StorePtr = std::unique_ptr<CompanyStore>;

Date day(int year, int month, int dayOfMonth) {
    return makeDate(year, month, dayOfMonth).value();
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

template <typename Value>
std::string messageOf(const StoreResult<Value>& result) {
    return result ? "no error" : result.error().message;
}

#define ASSERT_DONE(result) ASSERT_TRUE(result) << messageOf(result)
#define EXPECT_DONE(result) EXPECT_TRUE(result) << messageOf(result)

// Looks into a file, or disturbs it, past the store.
class OtherProgram {
  public:
    explicit OtherProgram(const QString& path, const QString& options = {}) {
        static int count = 0;
        name_ = "other-" + QString::number(++count);
        auto database = QSqlDatabase::addDatabase("QSQLITE", name_);
        database.setDatabaseName(path);
        database.setConnectOptions(options);
        EXPECT_TRUE(database.open());
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() { QSqlDatabase::removeDatabase(name_); }

    // The first value of the answer.
    QVariant run(const QString& statement) const {
        QSqlQuery query(QSqlDatabase::database(name_));
        EXPECT_TRUE(query.exec(statement))
            << statement.toStdString() << ": " << query.lastError().text().toStdString();
        return query.next() ? query.value(0) : QVariant();
    }
    QStringList column(const QString& statement) const {
        QSqlQuery query(statement, QSqlDatabase::database(name_));
        QStringList values;
        while (query.next())
            values += query.value(0).toString();
        return values;
    }

  private:
    QString name_;
};

class CompanyStoreTest : public testing::Test {
  protected:
    [[nodiscard]] QString file(const char* name = "companies.sqlite") const {
        return folder_.filePath(name);
    }
    [[nodiscard]] QStringList filesInFolder() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    static StoreResult<StorePtr> tryOpen(const QString& path, OpenMode mode,
                                         const std::string& user = "test@here") {
        return CompanyStore::open(path.toStdString(), mode, {user, std::chrono::milliseconds(30)});
    }
    static StorePtr open(const QString& path, OpenMode mode = OpenMode::create,
                         const std::string& user = "test@here") {
        auto opened = tryOpen(path, mode, user);
        EXPECT_DONE(opened);
        return opened ? std::move(opened.value()) : nullptr;
    }

    static std::shared_ptr<CompanyRecord> named(const std::string& name) {
        auto record = std::make_shared<CompanyRecord>();
        record->put_Name(name);
        return record;
    }

    // A file of version 1.
    void makeOldFile(const QString& path) const {
        const OtherProgram old(path);
        const QString script =
            QString::fromUtf8(bytesOf(QStringLiteral(VKR_SOURCE_DIR "/tests/store/schema_1.sql")));
        ASSERT_FALSE(script.isEmpty());
        for (const QString& statement : script.split(";\n", Qt::SkipEmptyParts))
            old.run(statement);
    }

    QTemporaryDir folder_;
};

// Opening

TEST_F(CompanyStoreTest, AMissingFileIsToldAndNotMade) {
    const auto opened = tryOpen(file(), OpenMode::existing);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().fault, StoreFault::missing);
    EXPECT_NE(opened.error().message.find(file().toStdString()), std::string::npos);
    EXPECT_EQ(filesInFolder(), QStringList());
}

TEST_F(CompanyStoreTest, MakesAFileAndItsFolder) {
    const QString path = file("new folder/ä?#%20/companies.sqlite");
    {
        const auto store = open(path);
        ASSERT_NE(store, nullptr);
        EXPECT_EQ(store->path(), path.toStdString());
        EXPECT_EQ(store->backupPath(), "");
        EXPECT_TRUE(store->list().value().empty());
        EXPECT_DONE(store->save(std::nullopt, *named("first")));
    }
    EXPECT_EQ(QDir(QFileInfo(path).path()).entryList(QDir::Files), QStringList("companies.sqlite"));
    const auto again = open(path, OpenMode::existing);
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->list().value().size(), 1U);
}

TEST_F(CompanyStoreTest, CreateOpensAFileThatIsThere) {
    ASSERT_DONE(open(file())->save(std::nullopt, *named("kept")));
    EXPECT_EQ(open(file(), OpenMode::create)->list().value().size(), 1U);
}

TEST_F(CompanyStoreTest, WritesAheadAndSafely) {
    const auto store = open(file());
    EXPECT_EQ(OtherProgram(file()).run("PRAGMA journal_mode"), "wal");
    // Foreign keys are on: the series leave together with their company.
    const auto key = store->save(std::nullopt, *test::RandomCompany(1).record());
    ASSERT_DONE(key);
    EXPECT_GT(OtherProgram(file()).run("SELECT count(*) FROM series").toInt(), 0);
    ASSERT_DONE(store->remove(key.value().id, 1));
    EXPECT_EQ(OtherProgram(file()).run("SELECT count(*) FROM series").toInt(), 0);
}

TEST_F(CompanyStoreTest, RefusesWhatIsNoCompanyFileAndLeavesItAsItIs) {
    struct Row {
        const char* title;
        std::function<void(const QString&)> make;
        bool alsoWhenCreating;
    };
    const auto write = [](const QByteArray& content) {
        return [content](const QString& path) {
            QFile made(path);
            ASSERT_TRUE(made.open(QIODevice::WriteOnly));
            made.write(content);
        };
    };
    const Row rows[] = {
        {"text", write("name;price\nX;1\n"), true},
        {"long text", write(QByteArray(100000, 'x')), true},
        {"beginning of a database", write("SQLite format 3\0"), true},
        {"empty", write(""), false},
        {"database of another program",
         [](const QString& path) { OtherProgram(path).run("CREATE TABLE company (id)"); }, true},
        {"numbered database of another program",
         [](const QString& path) {
             const OtherProgram other(path);
             other.run("CREATE TABLE t (id)");
             other.run("PRAGMA user_version = 2");
         },
         true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        const QString path = file((std::string(row.title) + ".sqlite").c_str());
        row.make(path);
        const QByteArray before = bytesOf(path);
        const QStringList files = filesInFolder();
        for (const OpenMode mode : {OpenMode::existing, OpenMode::create}) {
            if (mode == OpenMode::create && !row.alsoWhenCreating)
                continue;
            const auto opened = tryOpen(path, mode);
            ASSERT_FALSE(opened);
            EXPECT_EQ(opened.error().fault, StoreFault::notADatabase) << opened.error().message;
            EXPECT_NE(opened.error().message.find(path.toStdString()), std::string::npos);
            EXPECT_EQ(bytesOf(path), before);
            EXPECT_EQ(filesInFolder(), files);
        }
    }
    EXPECT_EQ(tryOpen(folder_.path(), OpenMode::create).error().fault, StoreFault::notADatabase);
}

TEST_F(CompanyStoreTest, RefusesANewerFileWithoutWritingToIt) {
    ASSERT_DONE(open(file())->save(std::nullopt, *named("from the future")));
    OtherProgram(file()).run("PRAGMA user_version = 99");
    const auto refuse = [&] {
        const QByteArray before = bytesOf(file());
        const QByteArray ahead = bytesOf(file() + "-wal");
        const QStringList files = filesInFolder();
        for (const OpenMode mode : {OpenMode::existing, OpenMode::create}) {
            const auto opened = tryOpen(file(), mode);
            ASSERT_FALSE(opened);
            EXPECT_EQ(opened.error().fault, StoreFault::newerSchema) << opened.error().message;
            EXPECT_EQ(bytesOf(file()), before);
            EXPECT_EQ(bytesOf(file() + "-wal"), ahead);
            EXPECT_EQ(filesInFolder(), files);
        }
    };
    refuse();
    // Its newer program has it open and has written something.
    const OtherProgram newer(file());
    newer.run("UPDATE company SET \"Notes\" = 'newer'");
    refuse();
}

// Migration

TEST_F(CompanyStoreTest, BringsAnOldFileUpToDateAndKeepsACopy) {
    makeOldFile(file());
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);

    const auto loaded = store->load(1);
    ASSERT_DONE(loaded);
    const CompanyRecord& company = *loaded.value().record;
    EXPECT_EQ(loaded.value().revision, 7);
    EXPECT_EQ(company.get_Name(), "Old & Sons");
    EXPECT_EQ(company.get_Notes(), "kept from version 1");
    EXPECT_EQ(company.get_CurrentPrice(), 0.1);
    EXPECT_EQ(company.get_LastFYDate(), day(2023, 12, 31));
    EXPECT_EQ(company.get_LastQDateForGrid(), day(2024, 3, 31));
    EXPECT_EQ(company.get_YEPSSeries().array().number(10), -0.3);
    EXPECT_EQ(company.get_QRevenueSeries().array().number(34), 1234.5678);
    EXPECT_EQ(company.get_Settings()->get(setting::unit).toLong(), 6);
    EXPECT_EQ(company.get_Settings()->get(setting::taxRate), Variant(true));
    EXPECT_EQ(store->list().value().size(), 2U);
    EXPECT_FALSE(store->exchanges().value().empty());

    const QString copy = QString::fromStdString(store->backupPath());
    ASSERT_TRUE(QFile::exists(copy));
    EXPECT_EQ(QFileInfo(copy).path(), folder_.path());
    const OtherProgram backup(copy);
    EXPECT_EQ(backup.run("PRAGMA user_version").toInt(), 1);
    EXPECT_EQ(backup.run("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(backup.run("SELECT \"Notes\" FROM company WHERE id = 1"), "kept from version 1");
    EXPECT_EQ(backup.run("SELECT count(*) FROM series").toInt(), 3);
}

TEST_F(CompanyStoreTest, AFileBroughtUpToDateIsLikeAFreshOne) {
    makeOldFile(file("old.sqlite"));
    open(file("old.sqlite"));
    open(file("fresh.sqlite"));
    const OtherProgram old(file("old.sqlite"));
    const OtherProgram fresh(file("fresh.sqlite"));
    const auto shape = [](const OtherProgram& program) {
        QStringList lines = program.column("SELECT type || ' ' || name FROM sqlite_schema "
                                           "WHERE name NOT LIKE 'sqlite%' ORDER BY 1");
        lines += program.column("SELECT t.name || '.' || c.name || ' ' || c.type || c.\"notnull\" "
                                "|| coalesce(c.dflt_value, '') || c.pk "
                                "FROM sqlite_schema t, pragma_table_info(t.name) c "
                                "WHERE t.type = 'table' ORDER BY 1");
        lines += program.column("SELECT kind || position || text FROM list_entry ORDER BY 1");
        lines += program.column("PRAGMA user_version");
        return lines;
    };
    EXPECT_EQ(shape(old), shape(fresh));
    EXPECT_EQ(fresh.column("PRAGMA user_version"), QStringList("2"));
    const QStringList columns = fresh.column("SELECT name FROM pragma_table_info('company')");
    for (const DatumRow& row : datumTable()) {
        const QString name =
            QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size()));
        EXPECT_EQ(columns.contains(name), !isSeries(row)) << row.name;
    }
}

TEST_F(CompanyStoreTest, AnUpToDateFileIsNotCopied) {
    makeOldFile(file());
    EXPECT_NE(open(file())->backupPath(), "");
    EXPECT_EQ(open(file())->backupPath(), "");
    EXPECT_EQ(filesInFolder().size(), 2);
}

TEST_F(CompanyStoreTest, AMigrationThatFailsChangesNothing) {
    makeOldFile(file());
    OtherProgram(file()).run("CREATE TABLE change_log (in_the_way TEXT)");
    const auto opened = tryOpen(file(), OpenMode::existing);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().fault, StoreFault::other);
    EXPECT_NE(opened.error().message.find("change_log"), std::string::npos);

    const OtherProgram after(file());
    EXPECT_EQ(after.run("PRAGMA user_version").toInt(), 1);
    EXPECT_EQ(after.run("SELECT count(*) FROM company").toInt(), 2);
    EXPECT_EQ(after.run("SELECT count(*) FROM series").toInt(), 3);
    EXPECT_EQ(after.run("SELECT count(*) FROM sqlite_schema WHERE name = 'list_entry'").toInt(), 0);
}

TEST_F(CompanyStoreTest, AnOldFileThatIsBeingWrittenIsNotMigrated) {
    makeOldFile(file());
    const OtherProgram other(file());
    other.run("BEGIN IMMEDIATE");
    const auto opened = tryOpen(file(), OpenMode::existing);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().fault, StoreFault::locked) << opened.error().message;
    other.run("ROLLBACK");
    EXPECT_NE(open(file(), OpenMode::existing), nullptr);
}

// Data

TEST_F(CompanyStoreTest, EveryDatumComesBackAsItWas) {
    const auto store = open(file());
    std::vector<std::pair<CompanyKey, std::shared_ptr<CompanyRecord>>> saved;
    for (unsigned seed = 0; seed < 60; ++seed) {
        auto record = test::RandomCompany(seed).record();
        const auto key = store->save(std::nullopt, *record);
        ASSERT_DONE(key);
        saved.emplace_back(key.value(), record);
    }
    const auto reopened = open(file(), OpenMode::existing);
    for (const auto& [key, record] : saved) {
        const auto loaded = reopened->load(key.id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(loaded.value().revision, 1);
        EXPECT_TRUE(loaded.value().unreadable.empty());
        EXPECT_EQ(differences(*record, *loaded.value().record), std::vector<Difference>{});
        for (const DatumRow& row : datumTable())
            EXPECT_EQ(loaded.value().record->stored(row.datum), record->stored(row.datum))
                << row.name;
    }
}

TEST_F(CompanyStoreTest, OddTextsComeBackAsTheyWere) {
    std::string everyByte;
    for (char character = 1; character > 0; ++character)
        everyByte += character;
    const std::string texts[] = {
        everyByte,
        std::string("a\0b", 3),
        "\ufeffmark",
        "\ufeff\ufeff",
        "'; DROP TABLE company; --",
        "\u202eright to left\u202c",
        "👩‍👩‍👧‍👦 e\u0301 漢字 \U0010ffff",
        std::string(65536, 'n'),
        " \t\r\n ",
        "%1 ? :name @name $1",
    };
    const auto store = open(file());
    for (const std::string& text : texts) {
        const auto record = named(text);
        record->put_Notes(text);
        const auto key = store->save(std::nullopt, *record);
        ASSERT_DONE(key);
        const auto loaded = store->load(key.value().id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(loaded.value().record->get_Name(), text);
        EXPECT_EQ(loaded.value().record->get_Notes(), text);
        EXPECT_EQ(store->list().value().size(), 1U);
        EXPECT_EQ(store->list().value()[0].name, text);
        ASSERT_DONE(store->remove(key.value().id, 1));
    }
}

TEST_F(CompanyStoreTest, ChangingOneDatumLeavesAllOthersByteForByte) {
    const auto store = open(file());
    const auto record = test::RandomCompany(11).record();
    const auto key = store->save(std::nullopt, *record).value();
    const auto loaded = store->load(key.id).value();
    loaded.record->put_City("elsewhere");
    ASSERT_DONE(store->save(key.id, *loaded.record, loaded.revision));
    const auto changes = differences(*record, *store->load(key.id).value().record);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].datum, "City");
}

TEST_F(CompanyStoreTest, DatesStayTheSameDayInEveryTimeZone) {
    const Date days[] = {day(100, 1, 1),   day(1582, 10, 10), day(1899, 12, 29), day(1900, 2, 28),
                         day(2024, 2, 29), day(2024, 3, 31),  day(2024, 10, 27), day(9999, 12, 31)};
    const QByteArray usual = qgetenv("TZ");
    const auto store = open(file());
    for (const char* writtenIn : {"Etc/GMT+12", "Pacific/Kiritimati", "Europe/Berlin"}) {
        qputenv("TZ", writtenIn);
        tzset();
        for (const Date date : days) {
            CompanyRecord record;
            record.put_LastFYDate(date);
            const auto key = store->save(std::nullopt, record).value();
            for (const char* readIn : {"Pacific/Kiritimati", "Etc/GMT+12", "America/New_York"}) {
                qputenv("TZ", readIn);
                tzset();
                EXPECT_EQ(store->load(key.id).value().record->get_LastFYDate(), date);
            }
        }
    }
    usual.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", usual);
    tzset();
    EXPECT_EQ(OtherProgram(file()).run("SELECT \"LastFYDate\" FROM company WHERE id = 5"),
              "2024-02-29");
    EXPECT_TRUE(
        OtherProgram(file()).run("SELECT \"LastUpdate\" FROM company WHERE id = 5").isNull());
}

TEST_F(CompanyStoreTest, WhatAnotherProgramLeftUnreadableIsToldAndTheRestIsRead) {
    const auto store = open(file());
    const auto record = test::RandomCompany(12).record();
    record->put_Name("X");
    const auto key = store->save(std::nullopt, *record).value();
    struct Row {
        const char* statement;
        const char* datum;
    };
    const Row rows[] = {
        {"UPDATE company SET \"LastFYDate\" = '0000-00-00'", "LastFYDate"},
        {"UPDATE company SET \"LastUpdate\" = '2025-02-30'", "LastUpdate"},
        {"UPDATE company SET \"LastQDate\" = ''", "LastQDate"},
        {"UPDATE company SET \"CurrentPrice\" = 9e999", "CurrentPrice"},
        {"UPDATE company SET \"LastFY\" = 70000", "LastFY"},
        {"UPDATE company SET \"intUnit\" = -70000", "intUnit"},
        {"INSERT INTO series VALUES (1, 'QEPSSeries', 35, 1)", "QEPSSeries"},
        {"INSERT INTO series VALUES (1, 'ZSeries', 0, 1)", "ZSeries"},
        {"INSERT OR REPLACE INTO series VALUES (1, 'YLowSeries', 1, -9e999)", "YLowSeries"},
    };
    std::set<std::string> expected;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.statement);
        OtherProgram(file()).run(row.statement);
        expected.insert(row.datum);
        const auto loaded = store->load(key.id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(std::set(loaded.value().unreadable.begin(), loaded.value().unreadable.end()),
                  expected);
        for (const Difference& change : differences(*record, *loaded.value().record)) {
            // Absent dates and years are answered by the data that stand in for them.
            const bool standsIn = change.datum == "LastQDateForGrid";
            EXPECT_TRUE(expected.contains(change.datum) || standsIn) << change.datum;
        }
    }
}

// Companies

TEST_F(CompanyStoreTest, ListsCompaniesByName) {
    const auto store = open(file());
    CompanyRecord record;
    record.put_Name("beta");
    record.put_Symbol("B");
    record.put_Exchange("NYSE");
    record.put_Industry("Banks");
    record.put_Source("10-K");
    record.put_CurrentPrice(12.34);
    record.put_PriceUpdatedDate(day(2025, 1, 2));
    record.put_LastFYDate(day(2024, 9, 30));
    ASSERT_DONE(store->save(std::nullopt, record));
    ASSERT_DONE(store->save(std::nullopt, *named("Gamma")));
    ASSERT_DONE(store->save(std::nullopt, *named("Alpha")));

    const auto list = store->list();
    ASSERT_DONE(list);
    ASSERT_EQ(list.value().size(), 3U);
    EXPECT_EQ(list.value()[0].name, "Alpha");
    EXPECT_EQ(list.value()[2].name, "Gamma");
    const CompanySummary& beta = list.value()[1];
    EXPECT_EQ(beta.key, (CompanyKey{1, 1}));
    EXPECT_EQ(beta.symbol, "B");
    EXPECT_EQ(beta.exchange, "NYSE");
    EXPECT_EQ(beta.industry, "Banks");
    EXPECT_EQ(beta.source, "10-K");
    EXPECT_EQ(beta.currentPrice, 12.34);
    EXPECT_EQ(beta.priceUpdated, day(2025, 1, 2));
    EXPECT_EQ(beta.lastFY, 2024);
    EXPECT_EQ(beta.lastSaved.size(), std::string("2026-01-31T12:00:00Z").size());
    EXPECT_EQ(beta.lastSaved.back(), 'Z');
}

TEST_F(CompanyStoreTest, CountsTheSavesOfACompany) {
    const auto store = open(file());
    const auto record = named("X");
    ASSERT_EQ(store->save(std::nullopt, *record).value(), (CompanyKey{1, 1}));
    for (int revision = 1; revision < 5; ++revision) {
        record->put_CurrentPrice(revision);
        EXPECT_EQ(store->save(1, *record, revision).value(), (CompanyKey{1, revision + 1}));
    }
    EXPECT_EQ(store->list().value().size(), 1U);
}

TEST_F(CompanyStoreTest, DuplicatesACompany) {
    const auto store = open(file());
    const auto record = test::RandomCompany(13).record();
    const auto key = store->save(std::nullopt, *record).value();
    const auto copy = store->duplicate(key.id);
    ASSERT_DONE(copy);
    EXPECT_NE(copy.value().id, key.id);
    const auto loaded = store->load(copy.value().id).value();
    const auto changes = differences(*record, *loaded.record);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(loaded.record->get_Name(), record->get_Name() + " (copy)");
    EXPECT_EQ(store->duplicate(99).error().fault, StoreFault::missing);
}

TEST_F(CompanyStoreTest, ARemovedCompanyNeverComesBackUnderItsNumber) {
    const auto store = open(file());
    const auto key = store->save(std::nullopt, *named("X")).value();
    ASSERT_DONE(store->remove(key.id, key.revision));
    EXPECT_TRUE(store->list().value().empty());
    const auto loaded = store->load(key.id);
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error().fault, StoreFault::missing);
    EXPECT_NE(loaded.error().message.find("removed by test@here"), std::string::npos);
    EXPECT_NE(store->save(std::nullopt, *named("Y")).value().id, key.id);
}

// Two windows

TEST_F(CompanyStoreTest, ASaveOverSomebodyElsesSaveIsAConflict) {
    const auto annas = open(file(), OpenMode::create, "anna@desk");
    const auto bens = open(file(), OpenMode::existing, "ben@laptop");
    const auto record = test::RandomCompany(14).record();
    record->put_Name("Apples");
    record->put_City("before");
    const auto key = annas->save(std::nullopt, *record).value();

    const auto annasCopy = annas->load(key.id).value();
    const auto bensCopy = bens->load(key.id).value();
    annasCopy.record->put_City("Berlin");
    Variant series = annasCopy.record->get_YEPSSeries();
    series.array().setNumber(1, 9.75);
    series.array().setNumber(2, 9.25);
    annasCopy.record->put_YEPSSeries(series);
    ASSERT_EQ(annas->save(key.id, *annasCopy.record, annasCopy.revision).value().revision, 2);

    bensCopy.record->put_Zip("12345");
    const auto save = bens->save(key.id, *bensCopy.record, bensCopy.revision);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::conflict);
    const std::string& message = save.error().message;
    for (const char* part : {"“Apples”", "anna@desk", "City, Zip, YEPSSeries", "Nothing"})
        EXPECT_NE(message.find(part), std::string::npos) << part << " in " << message;
    ASSERT_TRUE(save.error().conflict);
    const StoreConflict& conflict = *save.error().conflict;
    EXPECT_EQ(conflict.changedBy, "anna@desk");
    EXPECT_EQ(conflict.changedAt, annas->list().value()[0].lastSaved);
    EXPECT_FALSE(conflict.isRemoved);
    EXPECT_EQ(conflict.revision, 2);
    EXPECT_EQ(conflict.differences, differences(*annasCopy.record, *bensCopy.record));
    EXPECT_EQ(conflict.differences.size(), 4U);

    // Nothing is lost, neither here nor there.
    EXPECT_TRUE(sameAs(*annas->load(key.id).value().record, *annasCopy.record));
    EXPECT_EQ(bensCopy.record->get_Zip(), "12345");
    // Overwriting is a choice, keeping both another.
    EXPECT_EQ(bens->save(std::nullopt, *bensCopy.record).value().revision, 1);
    EXPECT_EQ(bens->save(key.id, *bensCopy.record, conflict.revision).value().revision, 3);
    EXPECT_TRUE(sameAs(*annas->load(key.id).value().record, *bensCopy.record));
}

TEST_F(CompanyStoreTest, TheSameChangeMadeTwiceIsNoConflict) {
    const auto annas = open(file(), OpenMode::create, "anna@desk");
    const auto bens = open(file(), OpenMode::existing, "ben@laptop");
    const auto key = annas->save(std::nullopt, *named("X")).value();
    ASSERT_DONE(annas->save(key.id, *named("Y"), 1));
    EXPECT_EQ(bens->save(key.id, *named("Y"), 1).value(), (CompanyKey{key.id, 2}));
}

TEST_F(CompanyStoreTest, ASaveOfARemovedCompanySaysWhoRemovedIt) {
    const auto annas = open(file(), OpenMode::create, "anna@desk");
    const auto bens = open(file(), OpenMode::existing, "ben@laptop");
    const auto record = named("Apples");
    const auto key = annas->save(std::nullopt, *record).value();
    ASSERT_DONE(annas->remove(key.id, 1));
    const auto save = bens->save(key.id, *record, 1);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::conflict);
    EXPECT_NE(save.error().message.find("“Apples” was removed by anna@desk"), std::string::npos);
    ASSERT_TRUE(save.error().conflict);
    EXPECT_TRUE(save.error().conflict->isRemoved);
    EXPECT_DONE(bens->save(std::nullopt, *record));
}

TEST_F(CompanyStoreTest, WhatSomebodyElseSavedIsNotRemoved) {
    const auto store = open(file());
    const auto key = store->save(std::nullopt, *named("X")).value();
    ASSERT_DONE(store->save(key.id, *named("Y"), 1));
    const auto removal = store->remove(key.id, 1);
    ASSERT_FALSE(removal);
    EXPECT_EQ(removal.error().fault, StoreFault::conflict);
    EXPECT_EQ(store->list().value().size(), 1U);
    EXPECT_DONE(store->remove(key.id, 2));
}

TEST_F(CompanyStoreTest, AnImportIsSavedWholeOrNotAtAll) {
    const auto store = open(file());
    const auto key = store->save(std::nullopt, *named("first")).value();
    ASSERT_DONE(store->save(key.id, *named("second"), 1));
    std::vector<SaveRequest> requests;
    for (int i = 0; i < 20; ++i)
        requests.push_back({std::nullopt, test::RandomCompany(20).record(), 0});
    requests[10] = {key.id, named("third"), 1}; // loaded before the second save
    const auto refused = store->saveAll(requests);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().fault, StoreFault::conflict);
    EXPECT_EQ(store->list().value().size(), 1U);

    requests[10].expectedRevision = 2;
    const auto saved = store->saveAll(requests);
    ASSERT_DONE(saved);
    ASSERT_EQ(saved.value().size(), requests.size());
    EXPECT_EQ(saved.value()[10], (CompanyKey{key.id, 3}));
    EXPECT_EQ(store->list().value().size(), 20U);
    EXPECT_TRUE(sameAs(*store->load(saved.value()[19].id).value().record, *requests[19].record));
}

TEST_F(CompanyStoreTest, SamplesArriveUnchanged) {
    const FolderImport import = importFolder(VKR_SOURCE_DIR "/samples");
    std::vector<SaveRequest> requests;
    for (const auto& entry : import.entries)
        requests.push_back({std::nullopt, entry.result.company, 0});
    const auto store = open(file());
    const auto saved = store->saveAll(requests);
    ASSERT_DONE(saved);
    ASSERT_EQ(saved.value().size(), 4U);
    for (std::size_t i = 0; i < requests.size(); ++i)
        EXPECT_TRUE(sameAs(*store->load(saved.value()[i].id).value().record, *requests[i].record));
}

TEST_F(CompanyStoreTest, ACopyOfTheFileAloneHoldsWhatWasSaved) {
    const auto store = open(file());
    const auto record = test::RandomCompany(21).record();
    const auto key = store->save(std::nullopt, *record).value();
    ASSERT_TRUE(QFile::copy(file(), file("copy.sqlite")));
    const auto loaded = open(file("copy.sqlite"), OpenMode::existing)->load(key.id);
    ASSERT_DONE(loaded);
    EXPECT_TRUE(sameAs(*loaded.value().record, *record));
}

// What goes wrong

TEST_F(CompanyStoreTest, AFileThatIsBeingWrittenIsToldAndNothingIsLost) {
    const auto store = open(file());
    const auto record = named("X");
    const auto key = store->save(std::nullopt, *record).value();
    const OtherProgram other(file());
    other.run("BEGIN EXCLUSIVE");
    record->put_City("late");
    const auto save = store->save(key.id, *record, key.revision);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::locked) << save.error().message;
    EXPECT_EQ(store->load(key.id).value().record->get_City(), "");
    EXPECT_NE(open(file(), OpenMode::existing), nullptr);
    other.run("COMMIT");
    EXPECT_EQ(store->save(key.id, *record, key.revision).value().revision, 2);
}

TEST_F(CompanyStoreTest, ASaveSucceedsOnceAnotherWindowHasWritten) {
    const auto store = CompanyStore::open(file().toStdString(), OpenMode::create,
                                          {"patient@here", std::chrono::minutes(1)});
    ASSERT_DONE(store);
    auto other = std::make_unique<OtherProgram>(file());
    other->run("BEGIN IMMEDIATE");
    std::thread waiting([&] {
        const auto window = CompanyStore::open(file().toStdString(), OpenMode::existing,
                                               {"other@here", std::chrono::minutes(1)});
        ASSERT_DONE(window);
        EXPECT_DONE(window.value()->save(std::nullopt, *named("waited")));
    });
    other->run("COMMIT");
    waiting.join();
    EXPECT_EQ(store.value()->list().value().size(), 1U);
}

TEST_F(CompanyStoreTest, WindowsThatSaveAtTheSameTimeLoseNothing) {
    open(file());
    static constexpr int windows = 4;
    static constexpr int saves = 15;
    std::vector<std::thread> threads;
    for (int window = 0; window < windows; ++window)
        threads.emplace_back([&, window] {
            const auto store = CompanyStore::open(file().toStdString(), OpenMode::existing,
                                                  {"w@here", std::chrono::minutes(1)});
            ASSERT_DONE(store);
            const auto record = named(std::to_string(window));
            std::optional<std::int64_t> id;
            for (int revision = 0; revision < saves; ++revision) {
                record->put_CurrentPrice(revision + 1);
                const auto key = store.value()->save(id, *record, revision);
                ASSERT_DONE(key);
                id = key.value().id;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    const auto list = open(file())->list();
    ASSERT_DONE(list);
    ASSERT_EQ(list.value().size(), std::size_t{windows});
    for (const CompanySummary& company : list.value()) {
        EXPECT_EQ(company.key.revision, saves);
        EXPECT_EQ(company.currentPrice, saves);
    }
}

TEST_F(CompanyStoreTest, ASaveThatFailsInTheMiddleIsUndone) {
    const auto store = open(file());
    const auto before = test::RandomCompany(15).record();
    const auto key = store->save(std::nullopt, *before).value();
    const auto after = test::RandomCompany(16).record();
    Variant lastSeries = after->get_YEPSSeries();
    lastSeries.array().setNumber(10, 1.5);
    after->put_YEPSSeries(lastSeries);
    const char* const obstacles[] = {
        "BEFORE UPDATE ON company",
        "BEFORE DELETE ON series WHEN old.element = 7",
        "BEFORE INSERT ON series WHEN new.element = 0",
        "BEFORE INSERT ON series WHEN new.series = 'YEPSSeries' AND new.element = 10",
        "BEFORE INSERT ON change_log",
    };
    for (const char* obstacle : obstacles) {
        SCOPED_TRACE(obstacle);
        const OtherProgram other(file());
        other.run(QStringLiteral("CREATE TRIGGER stop %1 BEGIN SELECT RAISE(ABORT, 'stopped'); END")
                      .arg(obstacle));
        const auto save = store->save(key.id, *after, key.revision);
        ASSERT_FALSE(save);
        EXPECT_EQ(save.error().fault, StoreFault::other);
        EXPECT_NE(save.error().message.find("stopped"), std::string::npos);
        other.run("DROP TRIGGER stop");
        const auto loaded = store->load(key.id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(loaded.value().revision, key.revision);
        EXPECT_TRUE(sameAs(*loaded.value().record, *before));
    }
    EXPECT_EQ(store->save(key.id, *after, key.revision).value().revision, 2);
}

TEST_F(CompanyStoreTest, AProgramKilledWhileSavingLeavesNoTraceAndNoLock) {
    const auto before = test::RandomCompany(17).record();
    const auto key = open(file())->save(std::nullopt, *before).value();
    const auto dieWhileWriting = [&] {
        const OtherProgram dying(file());
        dying.run("BEGIN IMMEDIATE");
        dying.run("PRAGMA cache_spill = 1");
        dying.run("UPDATE company SET revision = 99, \"Notes\" = hex(zeroblob(3000000))");
        dying.run("DELETE FROM series");
        std::raise(SIGKILL);
    };
    EXPECT_EXIT(dieWhileWriting(), testing::KilledBySignal(SIGKILL), "");
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    const auto loaded = store->load(key.id);
    ASSERT_DONE(loaded);
    EXPECT_TRUE(sameAs(*loaded.value().record, *before));
    EXPECT_EQ(store->save(key.id, *before, loaded.value().revision).value().revision, 2);
}

TEST_F(CompanyStoreTest, WhatWasSavedSurvivesAKilledProgram) {
    const auto record = test::RandomCompany(18).record();
    open(file());
    const auto saveAndDie = [&] {
        const auto store = open(file(), OpenMode::existing);
        if (store->save(std::nullopt, *record))
            std::raise(SIGKILL);
    };
    EXPECT_EXIT(saveAndDie(), testing::KilledBySignal(SIGKILL), "");
    const auto store = open(file(), OpenMode::existing);
    ASSERT_EQ(store->list().value().size(), 1U);
    EXPECT_TRUE(sameAs(*store->load(1).value().record, *record));
}

TEST_F(CompanyStoreTest, AWriteThatIsCutOffAtAnySizeLeavesTheOldCompany) {
    const auto store = open(file());
    const auto record = test::RandomCompany(19).record();
    auto key = store->save(std::nullopt, *record).value();
    rlimit usual{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &usual), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    int failures = 0;
    for (rlim_t size = 0; size < 300'000; size += 5'003) {
        const auto larger = record->clone();
        larger->put_Notes(std::string(100'000, static_cast<char>('a' + size % 26)));
        const rlimit small{size, usual.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        const auto save = store->save(key.id, *larger, key.revision);
        setrlimit(RLIMIT_FSIZE, &usual);
        const auto loaded = open(file(), OpenMode::existing)->load(key.id);
        ASSERT_DONE(loaded);
        EXPECT_TRUE(sameAs(*loaded.value().record, save ? *larger : *record)) << size;
        if (save) {
            key = save.value();
            break;
        }
        ++failures;
        EXPECT_EQ(loaded.value().revision, key.revision);
        EXPECT_NE(save.error().message.find(file().toStdString()), std::string::npos);
    }
    std::signal(SIGXFSZ, handler);
    EXPECT_GT(failures, 5);
    EXPECT_DONE(store->save(key.id, *record, key.revision));
}

// A disk of its own, small enough to be filled.
class SmallDisk {
  public:
    explicit SmallDisk(const QString& folder, const char* size) : folder_(folder.toUtf8()) {
        isMounted_ = mount("none", folder_.constData(), "tmpfs", 0, size) == 0;
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        if (isMounted_)
            umount2(folder_.constData(), MNT_DETACH);
    }
    [[nodiscard]] bool isMounted() const { return isMounted_; }
    [[nodiscard]] QString file(const char* name) const {
        return QString::fromUtf8(folder_) + "/" + name;
    }

  private:
    QByteArray folder_;
    bool isMounted_ = false;
};

TEST_F(CompanyStoreTest, AFullDiskIsToldAndCostsNothing) {
    const SmallDisk disk(folder_.path(), "size=600k");
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting a small disk is not permitted";
    const QString path = disk.file("companies.sqlite");
    QFile filler(disk.file("filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    filler.write(QByteArray(100'000, 'f'));
    filler.close();

    const auto store = open(path);
    ASSERT_NE(store, nullptr);
    std::vector<std::shared_ptr<CompanyRecord>> saved;
    StoreFault fault = StoreFault::other;
    std::shared_ptr<CompanyRecord> refused;
    for (unsigned seed = 0; refused == nullptr && seed < 1000; ++seed) {
        const auto record = test::RandomCompany(seed).record();
        record->put_Notes(std::string(20'000, 'n'));
        const auto key = store->save(std::nullopt, *record);
        if (key) {
            saved.push_back(record);
        } else {
            refused = record;
            fault = key.error().fault;
            EXPECT_NE(key.error().message.find(path.toStdString()), std::string::npos);
        }
    }
    ASSERT_NE(refused, nullptr);
    EXPECT_EQ(fault, StoreFault::full);
    EXPECT_GT(saved.size(), 2U);
    const auto check = [&](CompanyStore& of) {
        EXPECT_EQ(of.list().value().size(), saved.size());
        for (std::size_t i = 0; i < saved.size(); ++i)
            EXPECT_TRUE(
                sameAs(*of.load(static_cast<std::int64_t>(i) + 1).value().record, *saved[i]));
    };
    check(*store);
    ASSERT_TRUE(filler.remove());
    EXPECT_DONE(store->save(std::nullopt, *refused));
    saved.push_back(refused);
    check(*open(path, OpenMode::existing));
}

TEST_F(CompanyStoreTest, AFullDiskKeepsAnOldFileFromBeingMigrated) {
    const SmallDisk disk(folder_.path(), "size=700k");
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting a small disk is not permitted";
    const QString path = disk.file("companies.sqlite");
    makeOldFile(path);
    QFile filler(disk.file("filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (filler.write(QByteArray(1024, 'f')) > 0) {
    }
    filler.close();
    ASSERT_TRUE(filler.resize(filler.size() - 40 * 1024)); // room for the locks, not for a copy
    const QByteArray before = bytesOf(path);
    const auto opened = tryOpen(path, OpenMode::existing);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().fault, StoreFault::full) << opened.error().message;
    EXPECT_EQ(bytesOf(path), before);
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files),
              QStringList({"companies.sqlite", "filler"}));
    EXPECT_EQ(OtherProgram(path).run("PRAGMA user_version").toInt(), 1);
}

TEST_F(CompanyStoreTest, AFullDiskLeavesNoHalfMadeFile) {
    const SmallDisk disk(folder_.path(), "size=40k");
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting a small disk is not permitted";
    const auto opened = tryOpen(disk.file("companies.sqlite"), OpenMode::create);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().fault, StoreFault::full) << opened.error().message;
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList());
}

// Permissions do not bind the superuser; the saved user id leads back.
class OrdinaryUser {
  public:
    OrdinaryUser() : isDisguised_(geteuid() == 0 && setresuid(65534, 65534, 0) == 0) {}
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser() {
        if (isDisguised_ && setresuid(0, 0, 0) != 0)
            std::abort();
    }
    [[nodiscard]] bool isOrdinary() const { return geteuid() != 0; }

  private:
    bool isDisguised_ = false;
};

TEST_F(CompanyStoreTest, AReadOnlyFileOrFolderIsToldAndLeftAsItIs) {
    ASSERT_DONE(open(file())->save(std::nullopt, *named("kept")));
    const QByteArray before = bytesOf(file());
    using Permission = QFileDevice;
    const auto readable = Permission::ReadOwner | Permission::ReadGroup | Permission::ReadOther;
    const auto enterable =
        readable | Permission::ExeOwner | Permission::ExeGroup | Permission::ExeOther;
    const auto writable = Permission::WriteOwner | Permission::WriteGroup | Permission::WriteOther;
    struct Row {
        const char* title;
        QFileDevice::Permissions ofFile, ofFolder;
    };
    const Row rows[] = {
        {"file", readable, enterable | writable},
        {"folder", readable | writable, enterable},
        {"both", readable, enterable},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        ASSERT_TRUE(QFile::setPermissions(file(), row.ofFile));
        ASSERT_TRUE(QFile::setPermissions(folder_.path(), row.ofFolder));
        const OrdinaryUser user;
        if (!user.isOrdinary())
            GTEST_SKIP() << "permissions do not bind this user";
        for (const OpenMode mode : {OpenMode::existing, OpenMode::create}) {
            const auto opened = tryOpen(file(), mode);
            ASSERT_FALSE(opened);
            EXPECT_EQ(opened.error().fault, StoreFault::readOnly) << opened.error().message;
        }
        if (!(row.ofFolder & Permission::WriteOther)) {
            EXPECT_EQ(tryOpen(file("new.sqlite"), OpenMode::create).error().fault,
                      StoreFault::readOnly);
        }
        EXPECT_EQ(bytesOf(file()), before);
        EXPECT_EQ(filesInFolder(), QStringList("companies.sqlite"));
    }
    QFile::setPermissions(folder_.path(), enterable | writable);
}

TEST_F(CompanyStoreTest, AFileThatIsUnreadableIsNotCalledEmpty) {
    open(file());
    ASSERT_TRUE(QFile::setPermissions(file(), QFileDevice::WriteOwner));
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), QFileDevice::Permissions(0x7777)));
    const OrdinaryUser user;
    if (!user.isOrdinary())
        GTEST_SKIP() << "permissions do not bind this user";
    const auto opened = tryOpen(file(), OpenMode::existing);
    ASSERT_FALSE(opened);
    EXPECT_NE(opened.error().message.find("no permission"), std::string::npos);
}

TEST_F(CompanyStoreTest, ADamagedFileIsToldAndNeverCrashes) {
    {
        const auto store = open(file());
        for (unsigned seed = 0; seed < 30; ++seed)
            ASSERT_DONE(store->save(std::nullopt, *test::RandomCompany(seed).record()));
    }
    const QByteArray sound = bytesOf(file());
    int told = 0;
    for (int page = 1; page < sound.size() / 4096; ++page) {
        QByteArray damaged = sound;
        for (int i = 0; i < 4096; ++i)
            damaged[page * 4096 + i] = static_cast<char>(i * 31 + page);
        QFile damagedFile(file());
        ASSERT_TRUE(damagedFile.open(QIODevice::WriteOnly));
        damagedFile.write(damaged);
        damagedFile.close();
        const auto opened = tryOpen(file(), OpenMode::existing);
        const auto note = [&](const StoreError& error) {
            if (error.fault != StoreFault::corrupt)
                return;
            ++told;
            EXPECT_NE(error.message.find(file().toStdString() + " is damaged"), std::string::npos);
        };
        if (!opened) {
            note(opened.error());
            continue;
        }
        if (const auto list = opened.value()->list(); !list)
            note(list.error());
        for (int id = 1; id <= 30; ++id) {
            if (const auto loaded = opened.value()->load(id); !loaded)
                note(loaded.error());
        }
    }
    EXPECT_GT(told, 20);
}

TEST_F(CompanyStoreTest, AFileMovedAwayWhileOpenIsToldOnSaving) {
    const auto store = open(file());
    const auto key = store->save(std::nullopt, *named("X")).value();
    ASSERT_TRUE(QFile::rename(file(), file("moved.sqlite")));
    const auto save = store->save(key.id, *named("Y"), key.revision);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::missing);
    ASSERT_TRUE(QFile::rename(file("moved.sqlite"), file()));
    EXPECT_DONE(store->save(key.id, *named("Y"), key.revision));
}

// Lists

TEST_F(CompanyStoreTest, ListsBeginWithWhatIsUsual) {
    const auto store = open(file());
    const auto has = [](const StoreResult<std::vector<std::string>>& texts, const char* text) {
        return std::count(texts.value().begin(), texts.value().end(), text) == 1;
    };
    for (const char* text :
         {"Nasdaq", "NYSE", "NYSE American", "Toronto", "London", "Xetra", "Tokyo", "São Paulo"})
        EXPECT_TRUE(has(store->exchanges(), text)) << text;
    for (const char* text :
         {"S & P", "Value Line", "Annual report", "10-K", "10-Q", "Press release"})
        EXPECT_TRUE(has(store->sources(), text)) << text;
    EXPECT_GT(store->industries().value().size(), 50U);
    EXPECT_EQ(store->exchanges().value().front(), "Nasdaq");
}

TEST_F(CompanyStoreTest, ListsCanBeChanged) {
    const auto store = open(file());
    using Texts = std::vector<std::string>;
    ASSERT_DONE(store->setEntries(StoreList::sources, {"b", "a", " ", "b", "", "ü"}));
    EXPECT_EQ(store->sources().value(), (Texts{"b", "a", "ü"}));
    ASSERT_DONE(store->addEntry(StoreList::sources, "c"));
    ASSERT_DONE(store->addEntry(StoreList::sources, "a"));
    ASSERT_DONE(store->addEntry(StoreList::sources, "\t"));
    EXPECT_EQ(store->sources().value(), (Texts{"b", "a", "ü", "c"}));
    ASSERT_DONE(store->removeEntry(StoreList::sources, "a"));
    ASSERT_DONE(store->removeEntry(StoreList::sources, "not there"));
    ASSERT_DONE(store->addEntry(StoreList::sources, "a"));
    EXPECT_EQ(open(file())->sources().value(), (Texts{"b", "ü", "c", "a"}));
    EXPECT_GT(store->exchanges().value().size(), 10U);
    ASSERT_DONE(store->setEntries(StoreList::exchanges, {}));
    EXPECT_TRUE(open(file())->exchanges().value().empty());
}

} // namespace
} // namespace vkr
