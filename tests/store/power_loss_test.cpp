// SPDX-License-Identifier: MIT
// The computer stops at any moment of a save: what was written and not synchronized is there, is
// not, or is there in part.
#include "tests/faults/faulty_calls.hpp"
#include "tests/store/store_faults.hpp"

#include <map>

namespace vkr {

namespace {

using namespace test;

using Files = std::map<std::string, QByteArray>; // by path

void apply(Files& files, const FileEvent& event, qsizetype from = 0, qsizetype size = -1) {
    if (event.kind == FileEvent::Kind::unlink) {
        files.erase(event.path);
        return;
    }
    QByteArray& bytes = files[event.path];
    if (event.kind == FileEvent::Kind::truncate)
        bytes.resize(event.offset, '\0');
    if (event.kind != FileEvent::Kind::write)
        return;
    const auto length = size < 0 ? static_cast<qsizetype>(event.bytes.size()) : size;
    const auto place = static_cast<qsizetype>(event.offset) + from;
    if (bytes.size() < place + length)
        bytes.append(QByteArray(place + length - bytes.size(), '\0'));
    bytes.replace(place, length, QByteArray(event.bytes.data() + from, length));
}

enum class Unsynced { lost, kept, torn };

// The files as they are when the computer stops after so many events.
Files filesAt(const Files& before, const std::vector<FileEvent>& events, std::size_t end,
              Unsynced unsynced, std::mt19937& random) {
    constexpr qsizetype sector = 512;
    const auto isSynced = [&](std::size_t index) {
        for (std::size_t later = index + 1; later < end; ++later)
            if (events[later].kind == FileEvent::Kind::sync &&
                events[later].path == events[index].path)
                return true;
        return false;
    };
    Files files = before;
    for (std::size_t i = 0; i < end; ++i) {
        const FileEvent& event = events[i];
        if (event.kind == FileEvent::Kind::sync || event.kind == FileEvent::Kind::note)
            continue;
        const bool isWhole = isSynced(i) || unsynced == Unsynced::kept;
        if (isWhole) {
            apply(files, event);
        } else if (unsynced == Unsynced::torn) {
            if (event.kind != FileEvent::Kind::write) {
                if (random() % 2 == 0)
                    apply(files, event);
                continue;
            }
            const auto size = static_cast<qsizetype>(event.bytes.size());
            for (qsizetype from = 0; from < size; from += sector)
                if (random() % 2 == 0)
                    apply(files, event, from, std::min(sector, size - from));
        }
    }
    return files;
}

class PowerLoss : public testing::Test {
  protected:
    // Every file of the folder but the shared memory, which is none of the disk.
    [[nodiscard]] Files files() const {
        Files found;
        for (const QString& name : folder_.files())
            if (!name.endsWith("-shm"))
                found[(folder_.path() + "/" + name).toStdString()] =
                    bytesOf(folder_.path() + "/" + name);
        return found;
    }

    // Plays what was recorded; `check` is told whether the act had ended by then.
    template <typename Check>
    void replay(const Files& before, const std::vector<FileEvent>& events, Check check) {
        const unsigned seed = printedSeed();
        std::mt19937 random(seed);
        const int tears = isLongRun() ? 40 : 2;
        bool isOver = false;
        int tried = 0;
        for (std::size_t end = 0; end <= events.size(); ++end) {
            isOver |= end > 0 && events[end - 1].kind == FileEvent::Kind::note;
            for (int variant = 0; variant < 2 + tears; ++variant) {
                const auto unsynced = variant == 0   ? Unsynced::lost
                                      : variant == 1 ? Unsynced::kept
                                                     : Unsynced::torn;
                SCOPED_TRACE("VKR_SEED=" + std::to_string(seed) + " event " + std::to_string(end) +
                             " of " + std::to_string(events.size()) + " variant " +
                             std::to_string(variant));
                folder_.empty();
                for (const auto& [path, bytes] : filesAt(before, events, end, unsynced, random))
                    if (!path.ends_with("-shm"))
                        FaultFolder::write(QString::fromStdString(path), bytes);
                check(isOver);
                ++tried;
                if (HasFailure())
                    return;
            }
        }
        std::printf("%zu events, %d power losses\n", events.size(), tried);
        EXPECT_TRUE(isOver);
        EXPECT_GT(events.size(), 5U);
    }

    FaultFolder folder_;
};

TEST_F(PowerLoss, LeavesTheOldOrTheNewFiguresAtAnyMomentOfASave) {
    std::vector<std::shared_ptr<CompanyRecord>> records;
    {
        const auto store = open(folder_.file());
        for (unsigned seed = 0; seed < 4; ++seed) {
            records.push_back(RandomCompany(seed).record());
            ASSERT_DONE(store->save(std::nullopt, *records.back()));
        }
    }
    const auto changed = RandomCompany(60).record();
    const auto added = RandomCompany(61).record();
    const Files before = files();
    startRecording(folder_.path().toStdString());
    {
        const auto store = open(folder_.file(), OpenMode::existing);
        ASSERT_DONE(store->save(2, *changed, 1));
        recordNote();
    }
    const auto events = stopRecording();
    replay(before, events, [&](bool isSaved) {
        const auto opened =
            tryOpen(folder_.file(), OpenMode::existing, "test@here", std::chrono::milliseconds(0));
        ASSERT_DONE(opened);
        for (int id = 1; id <= 4; ++id) {
            const auto loaded = opened.value()->load(id);
            ASSERT_DONE(loaded);
            EXPECT_TRUE(loaded.value().unreadable.empty());
            const CompanyRecord& record = *loaded.value().record;
            const auto& old = *records[static_cast<std::size_t>(id - 1)];
            const bool isChanged = id == 2 && sameAs(record, *changed);
            const bool isOld = sameAs(record, old) && (id != 2 || !isSaved);
            EXPECT_TRUE(isChanged || isOld) << id;
        }
        EXPECT_DONE(opened.value()->save(std::nullopt, *added));
    });
}

TEST_F(PowerLoss, LeavesAnOldFileOldOrUpToDateAtAnyMomentOfAnUpdate) {
    makeOldFile(folder_.file());
    const Files before = files();
    startRecording(folder_.path().toStdString());
    ASSERT_NE(open(folder_.file(), OpenMode::existing), nullptr);
    recordNote();
    const auto events = stopRecording();
    replay(before, events, [&](bool /*isOver*/) {
        const auto opened = tryOpen(folder_.file(), OpenMode::existing);
        ASSERT_DONE(opened);
        EXPECT_EQ(opened.value()->list().value().size(), 2U);
        const auto loaded = opened.value()->load(1);
        ASSERT_DONE(loaded);
        EXPECT_EQ(loaded.value().record->get_Notes(), "kept from version 1");
        EXPECT_EQ(loaded.value().record->get_YEPSSeries().array().number(10), -0.3);
    });
}

} // namespace
} // namespace vkr
