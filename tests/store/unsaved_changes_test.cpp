// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "store/change_bytes.hpp"
#include "store/unsaved_changes.hpp"
#include "tests/faults/faulty_calls.hpp"
#include "tests/store/child_program.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/random_company.hpp"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <random>
#include <thread>

namespace vkr {
namespace {

using namespace test;

class UnsavedFiles : public testing::Test {
  protected:
    [[nodiscard]] UnsavedPlace place() const {
        return {folder_.path().toStdString(), "companies.vkr.unsaved-"};
    }
    static ChangeGroup group(int number) {
        Change one;
        one.datum = Datum::YRevenueSeries;
        one.element = 1;
        one.before = 0.1;
        one.after = static_cast<double>(number);
        Change whole;
        whole.datum = Datum::QEPSSeries;
        whole.before = numberArray({1, 2.5, -0.1});
        whole.after = textArray({"a", ""}, 4);
        whole.origin = Origin::shifted;
        Change setting;
        setting.setting = setting::unit;
        setting.before = std::int16_t{3};
        setting.after = std::int32_t{6};
        setting.origin = Origin::imported;
        setting.document = "0001";
        ChangeGroup all{"Group " + std::to_string(number),
                        std::chrono::system_clock::time_point(std::chrono::seconds(number)),
                        {one, whole, setting}};
        if (number != 1)
            all.counted = CountedFrom{{2024, *makeDate(2024, 9, 28)}, {2025, Date{}}};
        return all;
    }
    static UnsavedCompany company() { return {7, 3, 99, "Acme"}; }
    [[nodiscard]] QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files); }
    [[nodiscard]] QByteArray bytes(const QString& name) const {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void put(const QString& name, const QByteArray& content) const {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir folder_;
};

TEST_F(UnsavedFiles, KeepEveryKindOfValueOfEveryGroup) {
    {
        UnsavedChanges changes(place(), company());
        EXPECT_TRUE(files().isEmpty()) << "nothing has changed";
        for (int i = 1; i <= 3; ++i)
            EXPECT_EQ(changes.add(group(i)), std::nullopt);
        EXPECT_EQ(changes.takeBackLast(), std::nullopt);
    }
    const auto found = findUnsavedChanges(place());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].company, company());
    EXPECT_EQ(found[0].groups, (std::vector<ChangeGroup>{group(1), group(2)}));
    EXPECT_FALSE(found[0].isDamaged);
    const auto rights = QFile::permissions(folder_.filePath(files().front()));
    EXPECT_FALSE(rights.testFlag(QFile::ReadGroup) || rights.testFlag(QFile::ReadOther));
}

// Those of before had nothing behind their changes.
TEST_F(UnsavedFiles, AGroupWithoutTheYearsItIsCountedFromIsRead) {
    ByteWriter written;
    written.group(group(1));
    const std::string_view whole = written.bytes();
    ByteReader reader(whole.substr(0, whole.size() - 1));
    EXPECT_EQ(reader.group(), group(1));
    ByteReader cut(whole.substr(0, whole.size() - 2));
    EXPECT_THROW(static_cast<void>(cut.group()), std::invalid_argument);
}

TEST_F(UnsavedFiles, AreNotFoundWhileTheirWindowLives) {
    UnsavedChanges changes(place(), company());
    ASSERT_EQ(changes.add(group(1)), std::nullopt);
    EXPECT_TRUE(findUnsavedChanges(place()).empty());
}

TEST_F(UnsavedFiles, AreFoundByOneProgramAtATime) {
    { EXPECT_EQ(UnsavedChanges(place(), company()).add(group(1)), std::nullopt); }
    const auto found = findUnsavedChanges(place());
    EXPECT_EQ(found.size(), 1U);
    EXPECT_TRUE(findUnsavedChanges(place()).empty());
}

TEST_F(UnsavedFiles, GoWhenTheirChangesAreSavedOrAllTakenBack) {
    UnsavedChanges changes(place(), company());
    ASSERT_EQ(changes.add(group(1)), std::nullopt);
    EXPECT_EQ(files().size(), 1);
    changes.remove();
    EXPECT_TRUE(files().isEmpty());
    ASSERT_EQ(changes.add(group(2)), std::nullopt);
    ASSERT_EQ(changes.takeBackLast(), std::nullopt);
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(UnsavedFiles, CutAnywhereKeepTheGroupsThatAreWhole) {
    {
        UnsavedChanges changes(place(), company());
        for (int i = 1; i <= 2; ++i)
            ASSERT_EQ(changes.add(group(i)), std::nullopt);
    }
    const QString name = files().front();
    const QByteArray whole = bytes(name);
    qsizetype twoFrom = whole.size();
    std::size_t before = 2;
    for (qsizetype size = whole.size() - 1; size >= 0; --size) {
        put(name, whole.left(size));
        const auto found = findUnsavedChanges(place());
        const std::size_t groups = found.empty() ? 0 : found[0].groups.size();
        ASSERT_LE(groups, before) << size;
        ASSERT_TRUE(found.empty() || !found[0].isDamaged) << size;
        if (groups == 2)
            twoFrom = size;
        before = groups;
        ASSERT_EQ(bytes(name), whole.left(size)) << "looking has changed it";
    }
    EXPECT_EQ(before, 0U);
    EXPECT_EQ(twoFrom, whole.size());
}

TEST_F(UnsavedFiles, AFlippedBitKeepsTheGroupsBeforeItAndIsTold) {
    qsizetype one = 0;
    {
        UnsavedChanges changes(place(), company());
        ASSERT_EQ(changes.add(group(1)), std::nullopt);
        one = bytes(files().front()).size();
        ASSERT_EQ(changes.add(group(2)), std::nullopt);
    }
    const QString name = files().front();
    const QByteArray whole = bytes(name);
    for (qsizetype at = one; at < whole.size(); ++at) {
        QByteArray flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 4);
        put(name, flipped);
        const auto found = findUnsavedChanges(place());
        ASSERT_EQ(found.size(), 1U) << at;
        ASSERT_EQ(found[0].groups, std::vector<ChangeGroup>{group(1)}) << at;
        ASSERT_TRUE(found[0].isDamaged) << at;
        ASSERT_EQ(bytes(name), flipped);
    }
    for (qsizetype at = 0; at < one; ++at) {
        QByteArray flipped = whole;
        flipped[at] = static_cast<char>(flipped[at] ^ 4);
        put(name, flipped);
        const auto found = findUnsavedChanges(place());
        ASSERT_EQ(found.size(), 1U) << at;
        ASSERT_TRUE(found[0].isDamaged) << at;
        ASSERT_TRUE(found[0].groups.empty()) << at;
    }
}

TEST_F(UnsavedFiles, ARecordOfAnotherSessionIsDamage) {
    for (int i = 1; i <= 2; ++i) {
        UnsavedChanges changes(place(), company());
        ASSERT_EQ(changes.add(group(1)), std::nullopt);
    }
    const QStringList two = files();
    ASSERT_EQ(two.size(), 2);
    const QByteArray other = bytes(two[1]);
    const QByteArray mine = bytes(two[0]);
    constexpr qsizetype header = 8 + 4 + 4 + 8 * 4 + 4 + 4 + 8;
    put(two[0], mine + other.mid(header));
    bool told = false;
    for (const auto& found : findUnsavedChanges(place())) {
        EXPECT_EQ(found.groups.size(), 1U);
        told = told || found.isDamaged;
    }
    EXPECT_TRUE(told);
}

TEST_F(UnsavedFiles, OtherFilesAreLeftAlone) {
    put("companies.vkr.unsaved-notes", "my notes");
    put("companies.vkr", "a database");
    put("companies.vkr.unsaved-0123456789abcdeX", "of the same length");
    EXPECT_TRUE(findUnsavedChanges(place()).empty());
    EXPECT_EQ(bytes("companies.vkr.unsaved-notes"), "my notes");
}

TEST_F(UnsavedFiles, AFailedWriteIsToldAndTheNextOneBeginsANewFile) {
    for (const auto call : {SystemCall::write, SystemCall::sync}) {
        UnsavedChanges changes(place(), company());
        ASSERT_EQ(changes.add(group(1)), std::nullopt);
        failCalls({QFileInfo(folder_.path()).canonicalFilePath().toStdString(), call, 1, 1, 5});
        const auto failure = changes.add(group(2));
        EXPECT_EQ(stopFailing(), 1);
        EXPECT_TRUE(failure);
        EXPECT_EQ(changes.add(group(3)), std::nullopt);
        EXPECT_EQ(files().size(), 2);
        changes.remove();
        EXPECT_TRUE(files().isEmpty());
    }
}

TEST_F(UnsavedFiles, WhatIsLeftOfThemTakesTheirPlaceWholeOrNotAtAll) {
    {
        UnsavedChanges changes(place(), company());
        for (int i = 1; i <= 3; ++i)
            ASSERT_EQ(changes.add(group(i)), std::nullopt);
    }
    const auto groupsFound = [this](bool whole) {
        const auto found = findUnsavedChanges(place());
        EXPECT_EQ(found.size(), 1U);
        UnsavedCompany left = company();
        left.digest = whole ? left.digest : 0; // else they lead from no record
        EXPECT_EQ(found.front().company, left);
        return found.front().groups;
    };
    {
        const auto found = findUnsavedChanges(place());
        for (const int call : {1, 2, 3}) { // the header, and each group
            failCalls({QFileInfo(folder_.path()).canonicalFilePath().toStdString(),
                       SystemCall::write, call, call, 28});
            const auto failure = keepOnly(found[0], {group(1), group(3)}, place());
            EXPECT_GE(stopFailing(), call);
            EXPECT_TRUE(failure);
            EXPECT_EQ(files().size(), 1) << call;
        }
    }
    EXPECT_EQ(groupsFound(true), (std::vector<ChangeGroup>{group(1), group(2), group(3)}));
    EXPECT_EQ(keepOnly(findUnsavedChanges(place())[0], {group(1), group(3)}, place()),
              std::nullopt);
    EXPECT_EQ(groupsFound(false), (std::vector<ChangeGroup>{group(1), group(3)}));
    EXPECT_EQ(keepOnly(findUnsavedChanges(place())[0], {}, place()), std::nullopt);
    EXPECT_TRUE(files().isEmpty());
}

// --- killed --------------------------------------------------------------------------------------

// Types figures into the form for ever, and reports each one that was left.
void typeWithoutEnd(const UnsavedPlace& place, const ChildProgram::Report& report) {
    EntryScene scene;
    const auto record = fullCompany();
    const auto journal = std::make_shared<ChangeJournal>(record);
    UnsavedChanges changes(place, {1, 1, digestOf(*record), "Acme"});
    scene.load(journal);
    journal->startOver();
    journal->onUnsavedChanged([&](const ChangeGroup* added) {
        if (added != nullptr ? changes.add(*added) : changes.takeBackLast())
            _exit(3);
    });
    scene.entry->put_CurrentTab(toYearly);
    for (int number = 1;; ++number) {
        scene.enter("txtSales(" + std::to_string(number % 10) + ")", std::to_string(number));
        report(number);
    }
}

// The last one that was left is there; at most the one that was being typed is not.
void killWhileTyping(const UnsavedPlace& place, int kills) {
    const QByteArray chosen = qgetenv("VKR_SEED");
    const unsigned seed = chosen.isEmpty() ? std::random_device()() : chosen.toUInt();
    SCOPED_TRACE("VKR_SEED=" + std::to_string(seed));
    std::mt19937 random(seed);
    int ahead = 0;
    for (int kill = 0; kill < kills; ++kill) {
        std::int64_t left = 0;
        {
            ChildProgram program(
                [&](const ChildProgram::Report& report) { typeWithoutEnd(place, report); });
            const int figures = std::uniform_int_distribution(1, 12)(random);
            for (int i = 0; i < figures; ++i) {
                const auto report = program.next();
                ASSERT_TRUE(report) << "the program gave up";
                left = *report;
            }
            std::this_thread::sleep_for(
                std::chrono::microseconds(std::uniform_int_distribution(0, 15000)(random)));
            program.kill();
            while (const auto report = program.next())
                left = *report;
        }
        auto found = findUnsavedChanges(place);
        ASSERT_EQ(found.size(), 1U) << kill;
        ASSERT_FALSE(found[0].isDamaged);
        const auto groups = static_cast<std::int64_t>(found[0].groups.size());
        ASSERT_GE(groups, left);
        ASSERT_LE(groups, left + 1);
        ahead += groups > left ? 1 : 0;
        const auto again = std::make_shared<ChangeJournal>(fullCompany());
        EXPECT_EQ(digestOf(*again), found[0].company.digest);
        for (const ChangeGroup& group : found[0].groups)
            ASSERT_EQ(again->apply(group), std::nullopt);
        const Variant sales = again->get_YRevenueSeries();
        for (std::int64_t number = std::max<std::int64_t>(1, groups - 9); number <= groups;
             ++number)
            EXPECT_EQ(sales.array().number(10 - static_cast<int>(number % 10)),
                      static_cast<double>(number));
        removeFound(found[0]);
    }
    std::printf("%d kills, %d between writing and telling, VKR_SEED=%u\n", kills, ahead, seed);
}

TEST_F(UnsavedFiles, LoseAtMostTheFigureThatIsBeingTypedWhenTheProgramIsKilled) {
    // In memory where there is such a folder: it is the program that dies, not the computer.
    const QTemporaryDir folder(QFileInfo("/dev/shm").isWritable()
                                   ? "/dev/shm/vkr-XXXXXX"
                                   : QDir::tempPath() + "/vkr-XXXXXX");
    killWhileTyping({folder.path().toStdString(), "companies.vkr.unsaved-"}, 200);
}

} // namespace
} // namespace vkr
