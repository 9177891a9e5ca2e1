// SPDX-License-Identifier: MIT
#include "company/company_csv.hpp"
#include "store/company_store.hpp"
#include "tests/store/old_file.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/random_company.hpp"

#include <QDir>
#include <QTemporaryDir>

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

namespace vkr {

namespace {

using namespace test;

class CompanyStoreTest : public testing::Test {
  protected:
    [[nodiscard]] QString file(const char* name = "companies.sqlite") const {
        return folder_.filePath(name);
    }
    [[nodiscard]] QStringList filesInFolder() const {
        return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
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
    EXPECT_EQ(store->list({}, 0, 10).value(), store->list().value());
    EXPECT_EQ(store->count({"sons"}).value(), 1);
    EXPECT_FALSE(store->exchanges().value().empty());

    const QString copy = QString::fromStdString(store->backupPath());
    ASSERT_TRUE(QFile::exists(copy));
    EXPECT_EQ(QFileInfo(copy).path(), folder_.path());
    const OtherProgram backup(copy);
    EXPECT_EQ(backup.run("PRAGMA user_version").toInt(), 1);
    EXPECT_EQ(backup.run("PRAGMA integrity_check"), "ok");
    EXPECT_EQ(backup.run("SELECT \"Notes\" FROM company WHERE id = 1"), "kept from version 1");
    EXPECT_EQ(backup.run("SELECT count(*) FROM series").toInt(), 51);
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
    EXPECT_EQ(after.run("SELECT count(*) FROM series").toInt(), 51);
    EXPECT_EQ(after.run("SELECT count(*) FROM sqlite_schema WHERE name = 'list_entry'").toInt(), 0);
    EXPECT_EQ(filesInFolder().filter("backup"), QStringList()) << "of a file that is as it was";
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
    test::putElement(*after, Datum::YEPSSeries, 10, 1.5);
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
    const SmallDisk disk(folder_.path(), "size=1200k");
    if (!disk.isMounted())
        GTEST_SKIP() << "mounting a small disk is not permitted";
    const QString path = disk.file("companies.sqlite");
    QFile filler(disk.file("filler"));
    ASSERT_TRUE(filler.open(QIODevice::WriteOnly));
    filler.write(QByteArray(300'000, 'f'));
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

// Opened by somebody who may not write the file; null where permissions bind nobody.
StorePtr readerOfOneCompany(const QString& file) {
    const OrdinaryUser user;
    if (!user.isOrdinary())
        return nullptr;
    auto opened = tryOpen(file, OpenMode::reading);
    if (!opened) {
        ADD_FAILURE() << opened.error().message;
        return nullptr;
    }
    EXPECT_EQ(opened.value()->list().value().size(), 1U);
    return std::move(opened.value());
}

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

constexpr QFileDevice::Permissions toRead(0x4444);
constexpr QFileDevice::Permissions toEnter(0x5555);
constexpr QFileDevice::Permissions toWrite(0x7777);

TEST_F(CompanyStoreTest, WhatCannotBeWrittenCanBeReadAndIsLeftAsItIs) {
    ASSERT_DONE(open(file())->save(std::nullopt, *named("kept")));
    const QByteArray before = bytesOf(file());
    struct Row {
        const char* title;
        QFileDevice::Permissions ofFile, ofFolder;
    };
    for (const auto& [title, ofFile, ofFolder] :
         {Row{"file", toRead, toWrite}, Row{"folder", toWrite, toEnter},
          Row{"both", toRead, toEnter}}) {
        SCOPED_TRACE(title);
        ASSERT_TRUE(QFile::setPermissions(file(), ofFile));
        ASSERT_TRUE(QFile::setPermissions(folder_.path(), ofFolder));
        const OrdinaryUser user;
        if (!user.isOrdinary())
            GTEST_SKIP() << "permissions do not bind this user";
        const auto opened = tryOpen(file(), OpenMode::reading);
        ASSERT_DONE(opened);
        CompanyStore& store = *opened.value();
        EXPECT_EQ(store.list().value().size(), 1U);
        EXPECT_EQ(store.load(1).value().record->get_Name(), "kept");
        EXPECT_EQ(store.history(1).value().size(), 1U);
        EXPECT_EQ(store.check(1).value(), std::nullopt);
        const auto saved = store.save(std::nullopt, *named("more"));
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().fault, StoreFault::readOnly) << saved.error().message;
        EXPECT_EQ(bytesOf(file()), before);
        EXPECT_EQ(filesInFolder(), QStringList("companies.sqlite"));
    }
    QFile::setPermissions(folder_.path(), toWrite);
}

// It has no lock that would keep others from writing: what they write is noticed.
TEST_F(CompanyStoreTest, WhatIsReadWithoutALockIsRefusedOnceSomebodyWritesIt) {
    ASSERT_DONE(open(file())->save(std::nullopt, *named("kept")));
    ASSERT_TRUE(QFile::setPermissions(file(), toRead));
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), toEnter));
    const StorePtr reader = readerOfOneCompany(file());
    if (reader == nullptr)
        GTEST_SKIP() << "permissions do not bind this user";
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), toWrite));
    ASSERT_TRUE(QFile::setPermissions(file(), toWrite));
    const auto writer = open(file(), OpenMode::existing);
    ASSERT_DONE(writer->save(std::nullopt, *named("more")));
    const auto refused = reader->list();
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().fault, StoreFault::locked) << refused.error().message;
}

TEST_F(CompanyStoreTest, WhatCannotBeWrittenIsReadAsItIsWhileSomebodyWritesIt) {
    const auto writer = open(file());
    ASSERT_DONE(writer->save(std::nullopt, *named("first")));
    for (const QString& name : filesInFolder()) // the log of the one who writes
        ASSERT_TRUE(QFile::setPermissions(folder_.filePath(name), toRead));
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), toEnter));
    const StorePtr reader = readerOfOneCompany(file());
    if (reader == nullptr)
        GTEST_SKIP() << "permissions do not bind this user";
    ASSERT_DONE(writer->save(std::nullopt, *named("second")));
    const auto both = reader->list();
    ASSERT_DONE(both);
    EXPECT_EQ(both.value().size(), 2U);
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), toWrite));
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

// A backup that was put in the place of the file, while the log of a program that was killed lay
// beside it.
TEST_F(CompanyStoreTest, ACopyBesideAStrangeLogIsNotShown) {
    {
        const auto store = open(file());
        for (unsigned seed = 0; seed < 30; ++seed)
            ASSERT_DONE(store->save(std::nullopt, *test::RandomCompany(seed).record()));
    }
    ASSERT_TRUE(QFile::copy(file(), file("copy.sqlite")));
    {
        const auto store = open(file());
        for (unsigned seed = 0; seed < 30; ++seed)
            ASSERT_DONE(store->save(std::nullopt, *test::RandomCompany(100 + seed).record()));
    }
    const auto saveAndDie = [&] {
        const auto store = open(file(), OpenMode::existing);
        if (store->save(3, *test::RandomCompany(300).record(), 1))
            std::raise(SIGKILL);
    };
    EXPECT_EXIT(saveAndDie(), testing::KilledBySignal(SIGKILL), "");
    ASSERT_GT(QFileInfo(file() + "-wal").size(), 0);
    const QByteArray copy = bytesOf(file("copy.sqlite"));
    const auto putInPlace = [&](const QByteArray& bytes) {
        QFile place(file());
        ASSERT_TRUE(place.open(QIODevice::WriteOnly));
        place.write(bytes);
    };
    const QByteArray whole = bytesOf(file());
    putInPlace(copy);
    const auto opened = tryOpen(file(), OpenMode::existing);
    ASSERT_FALSE(opened);
    EXPECT_EQ(opened.error().fault, StoreFault::corrupt) << opened.error().message;
    EXPECT_NE(opened.error().message.find("companies.sqlite-wal"), std::string::npos);
    EXPECT_EQ(bytesOf(file()), copy) << "the copy is as it was";

    // Together with its own file the log is welcome, without one so is the copy.
    putInPlace(whole);
    EXPECT_EQ(open(file(), OpenMode::existing)->load(3).value().revision, 2);
    for (const char* suffix : {"-wal", "-shm"})
        QFile::remove(file() + suffix);
    putInPlace(copy);
    EXPECT_EQ(open(file(), OpenMode::existing)->list().value().size(), 30U);
}

TEST(ListQueryTest, GoesOnWhereItCanOnlyLeaveCompaniesOut) {
    struct Case {
        const char* wider;
        const char* narrower;
        bool goesOn;
    };
    for (const Case& row :
         {Case{"", "", true}, Case{"", "a", true}, Case{"a", "ab", true}, Case{"ab", "a", false},
          Case{"ab", "ba", false}, Case{"a b", "ab", true}, Case{"a b", "a", false},
          Case{"b A", "ab  c", true}, Case{"apple", "APPLES inc", true},
          Case{"o\u0308", "\u00d6l", true}, Case{"o", "o\u0308", false}})
        EXPECT_EQ(goesOn({row.wider}, {row.narrower}), row.goesOn)
            << row.wider << " - " << row.narrower;
    EXPECT_FALSE(goesOn({"a"}, {"ab", ListColumn::price}));
    EXPECT_FALSE(goesOn({"a"}, {"ab", ListColumn::name, true}));
}

} // namespace
} // namespace vkr
