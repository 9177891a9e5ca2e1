// SPDX-License-Identifier: MIT
#include "store/store_connection.hpp"
#include "tests/store/store_places.hpp"
#include "tests/support/random_company.hpp"

#include <QDir>

#include <random>

namespace vkr {

namespace {

using namespace test;

constexpr unsigned companies = 12;

class DamagedFile : public testing::Test {
  protected:
    void SetUp() override {
        const auto store = open(path_);
        for (unsigned seed = 0; seed < companies; ++seed) {
            records_.push_back(RandomCompany(seed).record());
            ASSERT_DONE(store->save(std::nullopt, *records_.back()));
        }
    }
    void write(const QByteArray& bytes) const {
        QDir folder(folder_.path());
        for (const QString& name : folder.entryList(QDir::Files))
            folder.remove(name);
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    // Each fault by a message that people can act upon.
    template <typename Value>
    void expectClear(const StoreResult<Value>& result) const {
        if (result)
            return;
        ++told_;
        const std::string& message = result.error().message;
        EXPECT_NE(message.find(path_.toStdString()), std::string::npos) << message;
        EXPECT_GT(message.size(), path_.size() + 20U) << message;
    }

    QTemporaryDir folder_;
    QString path_ = folder_.filePath("companies.vkr");
    std::vector<std::shared_ptr<CompanyRecord>> records_;
    mutable int told_ = 0;
};

TEST_F(DamagedFile, IsToldFromASoundOne) {
    const auto check = [&] {
        return StoreConnection(locateStore(path_.toStdString()), StoreConnection::Access::inspect,
                               {})
            .damage();
    };
    EXPECT_EQ(check(), "");
    QByteArray damaged = bytesOf(path_);
    for (qsizetype page = 4; page * 4096 < damaged.size(); ++page)
        damaged[page * 4096 + 3] = '\x7f'; // the number of rows
    write(damaged);
    EXPECT_NE(check(), "");
}

TEST_F(DamagedFile, NeverCrashesAndIsNotMadeWorse) {
    const QByteArray sound = bytesOf(path_);
    const QByteArray chosen = qgetenv("VKR_SEED");
    const unsigned seed = chosen.isEmpty() ? 25 : chosen.toUInt();
    std::mt19937 random(seed);
    const auto within = [&](qsizetype end) {
        return std::uniform_int_distribution<qsizetype>(0, end - 1)(random);
    };
    int same = 0;
    int other = 0;
    for (int attempt = 0; attempt < 400; ++attempt) {
        SCOPED_TRACE("VKR_SEED=" + std::to_string(seed) + " attempt " + std::to_string(attempt));
        QByteArray damaged = sound;
        if (attempt % 8 == 7)
            damaged.truncate(within(sound.size()));
        else
            // Every other time in the first page, which everything hangs on.
            for (qsizetype bytes = 1 + within(attempt % 3 == 0 ? 1 : 64); bytes > 0; --bytes)
                damaged[within(attempt % 2 == 0 ? 4096 : damaged.size())] =
                    static_cast<char>(within(256));
        write(damaged);
        std::vector<bool> whole(companies);
        {
            const auto opened = tryOpen(path_, OpenMode::existing);
            expectClear(opened);
            if (opened) {
                CompanyStore& store = *opened.value();
                expectClear(store.list());
                expectClear(store.exchanges());
                for (unsigned i = 0; i < companies; ++i) {
                    const auto loaded = store.load(i + 1);
                    expectClear(loaded);
                    if (!loaded)
                        continue;
                    whole[i] = sameAs(*loaded.value().record, *records_[i]);
                    (whole[i] ? same : other) += 1;
                    EXPECT_TRUE(whole[i] || loaded.value().damage) << "company " << i + 1;
                }
            }
        }
        EXPECT_EQ(bytesOf(path_), damaged);
        // On to what is written: done, or told, with the record as it was.
        auto opened = tryOpen(path_, OpenMode::existing);
        if (!opened)
            continue;
        const auto record = records_[0]->clone();
        record->put_City("elsewhere");
        const auto before = record->clone();
        const auto save = opened.value()->save(1, *record, 1);
        expectClear(save);
        EXPECT_TRUE(sameAs(*record, *before));
        // The companies that were whole before are so after it, the saved one as it was saved.
        opened.value().reset();
        const auto after = tryOpen(path_, OpenMode::existing);
        for (unsigned i = 0; i < companies; ++i) {
            if (i == 0 ? !save : !whole[i])
                continue;
            ASSERT_DONE(after);
            const auto loaded = after.value()->load(i + 1);
            ASSERT_DONE(loaded) << " company " << i + 1;
            EXPECT_TRUE(sameAs(*loaded.value().record, i == 0 ? *record : *records_[i]))
                << "company " << i + 1;
        }
    }
    std::printf("%d companies the same, %d not, %d faults told\n", same, other, told_);
    EXPECT_GT(same, 400);
    EXPECT_GT(told_, 100);
}

} // namespace
} // namespace vkr
