// SPDX-License-Identifier: MIT
// Changes that are made and taken back, and companies found for an import.
#include "store/import_matches.hpp"
#include "tests/store/old_file.hpp"
#include "tests/store/store_places.hpp"

#include <QDir>

namespace vkr {

namespace {

using namespace test;

class Rehearsal : public OnEveryDatabase {
  protected:
    static std::shared_ptr<CompanyRecord> listed(const std::string& symbol,
                                                 const std::string& name) {
        auto record = named(name);
        record->put_Symbol(symbol);
        return record;
    }
    StorePtr rehearse() const {
        StoreOptions options{"test@here"};
        options.isRehearsal = true;
        auto opened = CompanyStore::open(place().toStdString(), OpenMode::create, options);
        EXPECT_DONE(opened);
        return opened ? std::move(opened.value()) : nullptr;
    }
};

INSTANTIATE_TEST_SUITE_P(SQLite, Rehearsal, testing::Values(DatabaseKind::file));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, Rehearsal, testing::Values(DatabaseKind::server));

TEST_P(Rehearsal, AnswersAsEverAndKeepsNothing) {
    const auto store = open(place());
    ASSERT_DONE(store->save(std::nullopt, *named("X")));
    const auto rehearsal = rehearse();
    ASSERT_NE(rehearsal, nullptr);
    EXPECT_EQ(rehearsal->save(1, *named("Y"), 1).value(), (CompanyKey{1, 2}));
    EXPECT_DONE(rehearsal->saveAll({{std::nullopt, named("A"), 0}, {std::nullopt, named("B"), 0}}));
    EXPECT_EQ(rehearsal->save(1, *named("Z"), 7).error().fault, StoreFault::conflict);
    EXPECT_DONE(rehearsal->remove(1, 1));
    EXPECT_DONE(rehearsal->addEntry(StoreList::sources, "S"));
    EXPECT_EQ(rehearsal->load(1).value().record->get_Name(), "X");
    EXPECT_EQ(store->list().value().size(), 1U);
    EXPECT_EQ(store->load(1).value().revision, 1);
    EXPECT_EQ(store->load(1).value().record->get_Name(), "X");
}

TEST_P(Rehearsal, ACompanyIsFoundByItsSymbolOrName) {
    const auto store = open(place());
    for (const auto& [symbol, name] : {std::pair("AB", "One"), std::pair("ab", "Zw\xc3\xb6lf"),
                                       std::pair("ABC", "One"), std::pair("", "")})
        ASSERT_DONE(store->save(std::nullopt, *listed(symbol, name)));
    const auto ids = [&](ListColumn column, const char* text) {
        std::vector<std::int64_t> found;
        const auto companies = store->find(column, text);
        for (const CompanySummary& company : companies.value())
            found.push_back(company.key.id);
        return found;
    };
    EXPECT_EQ(ids(ListColumn::symbol, "AB"), (std::vector<std::int64_t>{1, 2}));
    EXPECT_EQ(ids(ListColumn::symbol, "A"), std::vector<std::int64_t>{});
    EXPECT_EQ(ids(ListColumn::name, "ONE"), (std::vector<std::int64_t>{1, 3}));
    EXPECT_EQ(ids(ListColumn::name, "zwolf"), std::vector<std::int64_t>{2});
    EXPECT_EQ(ids(ListColumn::name, ""), std::vector<std::int64_t>{4});
}

TEST_P(Rehearsal, AnImportMeetsEachStoredCompanyOnce) {
    const auto store = open(place());
    ASSERT_DONE(store->save(std::nullopt, *listed("AB", "One")));
    ASSERT_DONE(store->save(std::nullopt, *listed("ab", "Two")));
    ASSERT_DONE(store->save(std::nullopt, *listed("", "Three")));
    ASSERT_DONE(store->save(std::nullopt, *listed("AB", "Four")));
    ImportMatches matches(*store);
    const auto found = [&](const char* symbol, const char* name) {
        std::vector<std::int64_t> ids;
        const auto stored = matches.of(*listed(symbol, name));
        for (const CompanySummary& one : stored.value())
            ids.push_back(one.key.id);
        return ids;
    };
    using Ids = std::vector<std::int64_t>;
    EXPECT_EQ(found("ab", "One"), Ids{2}) << "by the exact symbol";
    EXPECT_EQ(found("AB", "One"), (Ids{1, 4})) << "whichever is meant";
    matches.take(matches.of(*listed("ab", "One")).value().front());
    EXPECT_EQ(found("ab", "One"), Ids{}) << "taken already";
    EXPECT_EQ(found("Ab", "One"), Ids{});
    EXPECT_EQ(found("", "Three"), Ids{3});
    EXPECT_EQ(found("", "One"), Ids{1}) << "by the name alone";
}

TEST(RehearsalAtAFile, LeavesAnOldOneAsItIsAndMakesNone) {
    const QTemporaryDir folder;
    StoreOptions options;
    options.isRehearsal = true;
    const auto opened = [&](const char* name) {
        return CompanyStore::open(folder.filePath(name).toStdString(), OpenMode::create, options);
    };
    EXPECT_EQ(opened("none.vkr").error().fault, StoreFault::missing);
    const QString old = folder.filePath("old.vkr");
    makeOldFile(old);
    const QByteArray before = bytesOf(old);
    const auto refused = opened("old.vkr");
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().message.find("older version"), std::string::npos);
    EXPECT_EQ(bytesOf(old), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList("old.vkr"));
}

} // namespace
} // namespace vkr
