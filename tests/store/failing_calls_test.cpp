// SPDX-License-Identifier: MIT
// The n-th call of the system fails, for n = 1, 2, ...
#include "tests/faults/faulty_calls.hpp"
#include "tests/store/store_faults.hpp"

#include <cerrno>
#include <climits>

namespace vkr {

namespace {

using namespace test;

struct Fault {
    const char* name;
    SystemCall call;
    int error;
};
constexpr Fault faults[] = {
    {"Open", SystemCall::open, EMFILE},         {"Read", SystemCall::read, EIO},
    {"Write", SystemCall::write, ENOSPC},       {"Sync", SystemCall::sync, EIO},
    {"Truncate", SystemCall::truncate, EIO},    {"Unlink", SystemCall::unlink, EACCES},
    {"Lock", SystemCall::lock, ENOLCK},         {"Map", SystemCall::map, ENOMEM},
    {"Allocate", SystemCall::allocate, ENOMEM},
};

// One file with three companies for all of the tests, and what is in it.
class FailingCalls : public testing::TestWithParam<Fault> {
  protected:
    static constexpr int companies = 3;

    void SetUp() override {
        const auto store = open(folder_.file());
        for (unsigned seed = 0; seed < companies; ++seed) {
            records_.push_back(RandomCompany(seed).record());
            ASSERT_DONE(store->save(std::nullopt, *records_.back()));
        }
    }
    void readBytes() { bytes_ = bytesOf(folder_.file()); }
    void putBack() const {
        folder_.empty();
        FaultFolder::write(folder_.file(), bytes_);
    }

    // Does what may fail, once for each place at which it does. `act` is given a function that
    // starts to fail; `check` looks at what came of it.
    template <typename Act, typename Check>
    void tryAll(Act act, Check check) {
        const unsigned seed = printedSeed();
        SCOPED_TRACE("VKR_SEED=" + std::to_string(seed));
        std::mt19937 random(seed);
        const auto once = [&](int from, int to) {
            putBack();
            act([&] {
                failCalls(
                    {folder_.path().toStdString(), GetParam().call, from, to, GetParam().error});
            });
            const int calls = stopFailing();
            check();
            return calls;
        };
        const int calls = once(INT_MAX, INT_MAX); // all of them work
        int tried = 1;
        for (const bool stays : {false, true}) {
            // The database waits ten seconds for a lock that it never gets.
            if (stays && GetParam().call == SystemCall::lock && !isLongRun())
                continue;
            for (int n = 1; n <= calls && !HasFailure(); n += step(calls, random), ++tried) {
                SCOPED_TRACE(std::string(GetParam().name) + " " + std::to_string(n) + " of " +
                             std::to_string(calls) + (stays ? " and all after it" : ""));
                once(n, stays ? INT_MAX : n);
            }
        }
        std::printf("%d calls, %d times\n", calls, tried);
    }

    // Opens the file, and saves the second company while calls fail. They go on failing.
    template <typename StartToFail>
    StorePtr saveSecond(const CompanyRecord& changed, std::optional<StoreResult<CompanyKey>>& save,
                        StartToFail startToFail) {
        StorePtr store = open(folder_.file(), OpenMode::existing);
        EXPECT_NE(store, nullptr);
        if (store == nullptr)
            return store;
        startToFail();
        save.emplace(store->save(2, changed, 1));
        return store;
    }

    // Told for what it is: nothing is wrong with the file itself.
    template <typename Value>
    static void expectPassingFault(const StoreResult<Value>& result) {
        if (result)
            return;
        const StoreError& error = result.error();
        EXPECT_GT(error.message.size(), 20U);
        for (const StoreFault wrong : {StoreFault::corrupt, StoreFault::notADatabase,
                                       StoreFault::newerSchema, StoreFault::conflict})
            EXPECT_NE(error.fault, wrong) << error.message;
    }

    FaultFolder folder_;
    QByteArray bytes_;
    std::vector<std::shared_ptr<CompanyRecord>> records_;

  private:
    // Every call in the long run; else some, chosen anew each time.
    static int step(int calls, std::mt19937& random) {
        const int most = isLongRun() ? 200 : 12;
        const int widest = std::max(1, 2 * calls / most);
        return isLongRun() && GetParam().call != SystemCall::allocate
                   ? 1
                   : std::uniform_int_distribution(1, widest)(random);
    }
};

INSTANTIATE_TEST_SUITE_P(Of, FailingCalls, testing::ValuesIn(faults),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(FailingCalls, LeaveASaveWholeOrUndone) {
    readBytes();
    const auto changed = RandomCompany(50).record();
    std::optional<StoreResult<CompanyKey>> save;
    std::optional<StoreResult<CompanyKey>> again;
    tryAll(
        [&](const auto& startToFail) {
            const StorePtr store = saveSecond(*changed, save, startToFail);
            stopFailing();
            // The window goes on, and can save once the fault is over.
            if (store != nullptr && !*save)
                again.emplace(store->save(2, *changed, 1));
        },
        [&] {
            expectPassingFault(*save);
            if (!*save) {
                EXPECT_DONE(*again);
            }
            const auto store = open(folder_.file(), OpenMode::existing);
            ASSERT_NE(store, nullptr);
            for (int id = 1; id <= companies; ++id) {
                const auto loaded = store->load(id);
                ASSERT_DONE(loaded);
                EXPECT_TRUE(loaded.value().unreadable.empty());
                const auto index = static_cast<std::size_t>(id - 1);
                EXPECT_TRUE(sameAs(*loaded.value().record, id == 2 ? *changed : *records_[index]));
            }
        });
}

TEST_P(FailingCalls, LeaveWhatWasSavedBeforeOrTheNewCompany) {
    readBytes();
    const auto changed = RandomCompany(51).record();
    std::optional<StoreResult<CompanyKey>> save;
    tryAll(
        // It is closed while it still fails.
        [&](const auto& startToFail) { saveSecond(*changed, save, startToFail); },
        [&] {
            const auto store = open(folder_.file(), OpenMode::existing);
            ASSERT_NE(store, nullptr);
            const auto loaded = store->load(2);
            ASSERT_DONE(loaded);
            const bool isNew = sameAs(*loaded.value().record, *changed);
            EXPECT_TRUE(isNew || sameAs(*loaded.value().record, *records_[1]));
            EXPECT_TRUE(isNew || !*save) << "what was told to be saved is";
            EXPECT_TRUE(sameAs(*store->load(1).value().record, *records_[0]));
        });
}

TEST_P(FailingCalls, LeaveAnOpeningToldAndTheFileAsItIs) {
    readBytes();
    std::optional<StoreResult<StorePtr>> opened;
    tryAll(
        [&](const auto& startToFail) {
            startToFail();
            opened.emplace(tryOpen(folder_.file(), OpenMode::existing));
            if (*opened) {
                expectPassingFault(opened->value()->list());
                const auto loaded = opened->value()->load(1);
                expectPassingFault(loaded);
                if (loaded) {
                    EXPECT_TRUE(sameAs(*loaded.value().record, *records_[0]));
                }
            }
            stopFailing();
            // A window that was opened is no worse for it.
            if (*opened) {
                EXPECT_DONE(opened->value()->save(1, *records_[0], 1));
            }
        },
        [&] {
            expectPassingFault(*opened);
            if (!*opened) {
                EXPECT_EQ(bytesOf(folder_.file()), bytes_);
            }
            opened.reset();
            EXPECT_EQ(open(folder_.file(), OpenMode::existing)->list().value().size(),
                      static_cast<std::size_t>(companies));
        });
}

TEST_P(FailingCalls, LeaveAnOldFileOldOrBroughtUpToDate) {
    folder_.empty();
    makeOldFile(folder_.file());
    readBytes();
    std::optional<StoreResult<StorePtr>> opened;
    tryAll(
        [&](const auto& startToFail) {
            startToFail();
            opened.emplace(tryOpen(folder_.file(), OpenMode::existing));
        },
        [&] {
            expectPassingFault(*opened);
            const bool isDone = static_cast<bool>(*opened);
            opened.reset();
            const QStringList copies = folder_.files().filter("-backup-");
            // What is to be deleted may be what fails.
            if (GetParam().call != SystemCall::unlink) {
                EXPECT_EQ(copies.size(), isDone ? 1 : 0) << copies.join(' ').toStdString();
            }
            const auto store = open(folder_.file(), OpenMode::existing);
            ASSERT_NE(store, nullptr);
            EXPECT_EQ(store->list().value().size(), 2U);
            EXPECT_EQ(store->load(1).value().record->get_YEPSSeries().array().number(10), -0.3);
            EXPECT_EQ(store->load(1).value().record->get_Notes(), "kept from version 1");
        });
}

TEST_P(FailingCalls, LeaveNoHalfMadeFile) {
    folder_.empty();
    std::optional<StoreResult<StorePtr>> opened;
    tryAll(
        [&](const auto& startToFail) {
            folder_.empty();
            startToFail();
            opened.emplace(tryOpen(folder_.file(), OpenMode::create));
        },
        [&] {
            expectPassingFault(*opened);
            const bool isDone = static_cast<bool>(*opened);
            opened.reset();
            if (GetParam().call != SystemCall::unlink && !isDone) {
                for (const QString& name : folder_.files())
                    EXPECT_TRUE(name.startsWith("companies.vkr")) // made, and not opened any more
                        << name.toStdString();
            }
            EXPECT_TRUE(open(folder_.file())->list().value().empty());
        });
}

} // namespace
} // namespace vkr
