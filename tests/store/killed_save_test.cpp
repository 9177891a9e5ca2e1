// SPDX-License-Identifier: MIT
#include "store/store_connection.hpp"
#include "tests/store/child_program.hpp"
#include "tests/store/store_places.hpp"
#include "tests/support/random_company.hpp"

#include <QDir>
#include <QFileInfo>

#include <chrono>
#include <map>
#include <random>

namespace vkr {

namespace {

using namespace test;

// What company `id` holds in its save number `revision`.
std::shared_ptr<CompanyRecord> companyAt(std::int64_t id, std::int64_t revision) {
    return RandomCompany(static_cast<unsigned>(1000 * id + revision)).record();
}

constexpr std::int64_t companies = 5;
constexpr std::int64_t revisionsPerReport = 1'000'000; // a report is id * this + revision

// Saves one company after the other, for ever, and reports each save that is done.
void saveWithoutEnd(const QString& place, const ChildProgram::Report& report) {
    const auto opened = tryOpen(place, OpenMode::existing);
    if (!opened) {
        std::fprintf(stderr, "%s\n", messageOf(opened).c_str());
        return;
    }
    CompanyStore& store = *opened.value();
    std::map<std::int64_t, std::int64_t> revisions;
    const auto list = store.list();
    for (const CompanySummary& company : list.value())
        revisions[company.key.id] = company.key.revision;
    for (std::int64_t turn = 0;; ++turn) {
        const std::int64_t id = 1 + turn % companies;
        const std::int64_t revision = revisions[id];
        const auto key = store.save(id, *companyAt(id, revision + 1), revision);
        if (!key) {
            std::fprintf(stderr, "%s\n", messageOf(key).c_str());
            return;
        }
        revisions[id] = key.value().revision;
        report(id * revisionsPerReport + key.value().revision);
    }
}

TEST(KilledSave, LeavesEveryCommittedCompanyWholeAtAnyMoment) {
    // In memory where there is such a folder: it is the program that dies, not the computer.
    const QTemporaryDir folder(QFileInfo("/dev/shm").isWritable()
                                   ? "/dev/shm/vkr-XXXXXX"
                                   : QDir::tempPath() + "/vkr-XXXXXX");
    const QString place = folder.filePath("companies.vkr");
    std::map<std::int64_t, std::int64_t> committed;
    {
        const auto store = open(place);
        for (std::int64_t id = 1; id <= companies; ++id) {
            ASSERT_EQ(store->save(std::nullopt, *companyAt(id, 1)).value(), (CompanyKey{id, 1}));
            committed[id] = 1;
        }
    }
    const QByteArray chosen = qgetenv("VKR_SEED");
    const unsigned seed = chosen.isEmpty() ? std::random_device()() : chosen.toUInt();
    SCOPED_TRACE("VKR_SEED=" + std::to_string(seed));
    std::printf("killed at moments by seed %u\n", seed);
    std::mt19937 random(seed);

    using Clock = std::chrono::steady_clock;
    int midway = 0; // killed between two reports, with a save under way that was not done
    for (int kill = 0; kill < 200; ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill));
        {
            ChildProgram program(
                [&](const ChildProgram::Report& report) { saveWithoutEnd(place, report); });
            const auto note = [&](std::int64_t report) {
                committed[report / revisionsPerReport] = report % revisionsPerReport;
            };
            const int saves = std::uniform_int_distribution(1, 3)(random);
            Clock::duration lasted{};
            for (int i = 0; i < saves; ++i) {
                const auto before = Clock::now();
                const auto report = program.next();
                ASSERT_TRUE(report) << "the program gave up";
                lasted = Clock::now() - before;
                note(*report);
            }
            // Somewhere within the next save, should it take as long as the one before.
            const auto moment =
                Clock::now() + std::chrono::duration_cast<Clock::duration>(
                                   lasted * std::uniform_real_distribution<>(0, 1.1)(random));
            while (Clock::now() < moment) {
            }
            program.kill();
            while (const auto report = program.next())
                note(*report);
        }
        // No lock is left, which is to say that no patience is needed.
        const auto opened =
            tryOpen(place, OpenMode::existing, "test@here", std::chrono::milliseconds(0));
        ASSERT_DONE(opened);
        CompanyStore& store = *opened.value();
        ASSERT_EQ(store.list().value().size(), static_cast<std::size_t>(companies));
        bool isDone = false; // the save under way
        for (auto& [id, revision] : committed) {
            const auto loaded = store.load(id);
            ASSERT_DONE(loaded);
            if (loaded.value().revision == revision + 1 && !isDone) {
                isDone = true;
                ++revision;
            }
            ASSERT_EQ(loaded.value().revision, revision);
            EXPECT_TRUE(loaded.value().unreadable.empty());
            EXPECT_EQ(differences(*loaded.value().record, *companyAt(id, revision)),
                      std::vector<Difference>{});
        }
        midway += isDone ? 0 : 1;
        const std::int64_t id = 1 + kill % companies;
        const auto key = store.save(id, *companyAt(id, committed[id] + 1), committed[id]);
        ASSERT_DONE(key);
        committed[id] = key.value().revision;
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(midway, 20);
    EXPECT_EQ(
        StoreConnection(locateStore(place.toStdString()), StoreConnection::Access::inspect, {})
            .damage(),
        "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("companies.vkr"));
}

} // namespace
} // namespace vkr
