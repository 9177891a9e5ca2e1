// SPDX-License-Identifier: MIT
// Windows and programs that have the same company open.
#include "tests/store/child_program.hpp"
#include "tests/store/old_file.hpp"
#include "tests/store/store_places.hpp"

#include <QDir>

#include <csignal>

namespace vkr {

namespace {

using namespace test;

class TwoPrograms : public OnEveryDatabase {
  protected:
    static constexpr int increments = 40;

    // Adds 1 to the price until it has done so often enough; says how many saves were refused.
    static int countUp(CompanyStore& store) {
        int refused = 0;
        for (int done = 0; done < increments;) {
            const auto loaded = store.load(1);
            if (!loaded)
                return -1;
            CompanyRecord& record = *loaded.value().record;
            record.put_CurrentPrice(record.get_CurrentPrice() + 1);
            // Else two who count from the same figure to the same figure are of one mind.
            record.put_Notes(store.path() + std::to_string(getpid()) + std::to_string(done));
            const auto save = store.save(1, record, loaded.value().revision);
            if (save)
                ++done;
            else if (save.error().fault == StoreFault::conflict ||
                     save.error().fault == StoreFault::locked)
                ++refused;
            else
                return -1;
        }
        return refused;
    }
};

INSTANTIATE_TEST_SUITE_P(SQLite, TwoPrograms, testing::Values(DatabaseKind::file));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, TwoPrograms, testing::Values(DatabaseKind::server));

TEST_P(TwoPrograms, NoticeWhatTheOtherOneHasSavedByAStamp) {
    const auto mine = open(place());
    const auto theirs = open(place(), OpenMode::existing);
    const auto stamp = mine->changeStamp();
    ASSERT_DONE(stamp);
    EXPECT_EQ(mine->changeStamp().value(), stamp.value()) << "nothing has happened";
    ASSERT_DONE(theirs->list());
    EXPECT_EQ(mine->changeStamp().value(), stamp.value()) << "reading changes nothing";
    const auto saved = theirs->save(std::nullopt, *named("X"));
    ASSERT_DONE(saved);
    const auto after = mine->changeStamp().value();
    EXPECT_NE(after, stamp.value());
    ASSERT_DONE(theirs->remove(saved.value().id, saved.value().revision));
    EXPECT_NE(mine->changeStamp().value(), after);
}

TEST_P(TwoPrograms, LoseNoneOfTheirSaves) {
    ASSERT_DONE(open(place())->save(std::nullopt, *named("X")));
    static constexpr int programs = 3;
    std::vector<std::unique_ptr<ChildProgram>> children;
    for (int i = 0; i < programs; ++i)
        children.push_back(std::make_unique<ChildProgram>([&](ChildProgram::Report report) {
            const auto store = tryOpen(place(), OpenMode::existing);
            report(store ? countUp(*store.value()) : -1);
        }));
    for (const auto& child : children) {
        const auto refused = child->next();
        ASSERT_TRUE(refused);
        EXPECT_GE(*refused, 0);
    }
    children.clear();
    const auto loaded = open(place(), OpenMode::existing)->load(1);
    ASSERT_DONE(loaded);
    EXPECT_EQ(loaded.value().record->get_CurrentPrice(), programs * increments);
    EXPECT_EQ(loaded.value().revision, 1 + programs * increments);
}

// Each makes the file, or finds it made.
TEST(TwoProgramsAtOneFile, MakeItWithoutTakingAwayWhatTheOtherSaved) {
    static constexpr int programs = 4;
    for (int round = 0; round < 25; ++round) {
        SCOPED_TRACE(round);
        const QTemporaryDir folder;
        const QString place = folder.filePath("companies.vkr");
        int saved = 0;
        {
            std::vector<std::unique_ptr<ChildProgram>> children;
            for (int i = 0; i < programs; ++i)
                children.push_back(std::make_unique<ChildProgram>([&](ChildProgram::Report report) {
                    const auto store =
                        tryOpen(place, OpenMode::create, "test@here", std::chrono::milliseconds(5));
                    report(store && store.value()->save(std::nullopt, *named("X")) ? 1 : 0);
                }));
            for (const auto& child : children)
                saved += static_cast<int>(child->next().value_or(-100));
        }
        const auto list = open(place, OpenMode::existing)->list();
        ASSERT_DONE(list);
        EXPECT_EQ(list.value().size(), static_cast<std::size_t>(saved));
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
                  QStringList("companies.vkr"));
    }
}

TEST(TwoProgramsAtOneFile, BringItUpToDateTogetherWithOneCopy) {
    static constexpr int programs = 4;
    for (int round = 0; round < 10; ++round) {
        SCOPED_TRACE(round);
        const QTemporaryDir folder;
        const QString place = folder.filePath("companies.vkr");
        makeOldFile(place);
        {
            std::vector<std::unique_ptr<ChildProgram>> children;
            for (int i = 0; i < programs; ++i)
                children.push_back(std::make_unique<ChildProgram>([&](ChildProgram::Report report) {
                    const auto store = tryOpen(place, OpenMode::existing, "test@here",
                                               std::chrono::milliseconds(20'000));
                    if (!store)
                        std::fprintf(stderr, "%s\n", messageOf(store).c_str());
                    report(store ? static_cast<int>(store.value()->list().value().size()) : -1);
                }));
            for (const auto& child : children)
                EXPECT_EQ(child->next(), 2);
        }
        EXPECT_EQ(QDir(folder.path()).entryList({"*-backup-*"}).size(), 1);
        EXPECT_EQ(open(place, OpenMode::existing)->load(1).value().record->get_Notes(),
                  "kept from version 1");
    }
}

TEST_P(TwoPrograms, TwoWindowsThatTakeTurnsLoseNothing) {
    const auto first = open(place(), OpenMode::create, "anna@desk");
    const auto second = open(place(), OpenMode::existing, "ben@laptop");
    ASSERT_DONE(first->save(std::nullopt, *named("X")));
    double expected = 0;
    for (int turn = 0; turn < 20; ++turn) {
        CompanyStore& quick = turn % 2 == 0 ? *first : *second;
        CompanyStore& slow = turn % 2 == 0 ? *second : *first;
        const auto late = slow.load(1);
        const auto early = quick.load(1);
        ASSERT_DONE(late);
        ASSERT_DONE(early);
        early.value().record->put_CurrentPrice(++expected);
        ASSERT_DONE(quick.save(1, *early.value().record, early.value().revision));
        late.value().record->put_Notes("turn " + std::to_string(turn));
        const auto refused = slow.save(1, *late.value().record, late.value().revision);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.error().fault, StoreFault::conflict);
        EXPECT_EQ(slow.load(1).value().record->get_CurrentPrice(), expected);
        // The record that was refused is as it was, and can still be saved.
        EXPECT_EQ(late.value().record->get_Notes(), "turn " + std::to_string(turn));
        late.value().record->put_CurrentPrice(++expected);
        EXPECT_DONE(slow.save(1, *late.value().record, refused.error().conflict->revision));
    }
    EXPECT_EQ(first->load(1).value().record->get_CurrentPrice(), expected);
    EXPECT_EQ(first->load(1).value().revision, 41);
}

TEST_P(TwoPrograms, ALockIsToldAndDiesWithTheProgramThatHoldsIt) {
    ASSERT_DONE(open(place())->save(std::nullopt, *named("X")));
    ChildProgram holder([&](ChildProgram::Report report) {
        const OtherProgram other(place());
        other.run(isOnServer() ? "BEGIN; LOCK TABLE company IN EXCLUSIVE MODE" : "BEGIN IMMEDIATE");
        other.run("UPDATE company SET revision = 99, \"Notes\" = 'half way'");
        report(1);
        pause();
    });
    ASSERT_TRUE(holder.next());
    const auto store = open(place(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    const auto record = named("Y");
    const auto save = store->save(1, *record, 1);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::locked) << save.error().message;
    EXPECT_NE(save.error().message.find("try again"), std::string::npos);
    EXPECT_EQ(record->get_Name(), "Y");
    EXPECT_EQ(store->load(1).value().record->get_Name(), "X");

    holder.kill();
    // A server takes a moment to see that a program has gone.
    const auto patient = tryOpen(place(), OpenMode::existing, "test@here",
                                 std::chrono::milliseconds(isOnServer() ? 20'000 : 0));
    ASSERT_DONE(patient);
    EXPECT_EQ(patient.value()->save(1, *record, 1).value().revision, 2);
    EXPECT_EQ(patient.value()->load(1).value().record->get_Notes(), "");
}

} // namespace
} // namespace vkr
