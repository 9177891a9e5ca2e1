// SPDX-License-Identifier: MIT
// Files as programs of older versions wrote them, each brought up to date and read datum by datum.
#include "store/store_schema.hpp"
#include "tests/store/old_file.hpp"

#include <QDir>
#include <QTemporaryDir>

#include <algorithm>

namespace vkr {

namespace {

using namespace test;

class OldVersions : public testing::TestWithParam<int> {
  protected:
    void SetUp() override {
        if (QFile::exists(schemaScript(version())))
            makeOldFile(file(), version());
        else
            FAIL() << "There is no file of this version yet. Make it:\n  scripts/schema "
                   << keptNewFile().toStdString() << " > " << schemaScript(version()).toStdString();
    }

    [[nodiscard]] static int version() { return GetParam(); }
    [[nodiscard]] QString file(const char* name = "companies.vkr") const {
        return folder_.filePath(name);
    }

  private:
    // What a file of the version before becomes; it is there after the test.
    [[nodiscard]] QString keptNewFile() const {
        makeOldFile(file(), version() - 1);
        open(file(), OpenMode::existing);
        const QString kept = QDir::tempPath() + QStringLiteral("/version_%1.vkr").arg(version());
        QFile::remove(kept);
        EXPECT_TRUE(QFile::copy(file(), kept)) << kept.toStdString();
        return kept;
    }

    QTemporaryDir folder_;
};

INSTANTIATE_TEST_SUITE_P(Each, OldVersions, testing::Range(1, schemaVersion + 1));

TEST_P(OldVersions, HaveEveryDatumThatWasInThem) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(contentsOf(*store), expectedContents());
    // And once more, as they lie in the file by now.
    const auto again = open(file(), OpenMode::existing);
    EXPECT_EQ(contentsOf(*again), expectedContents());
    EXPECT_EQ(again->backupPath(), "");
}

TEST_P(OldVersions, AreCopiedWhereTheyAreOlder) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    const QString path = QString::fromStdString(store->backupPath());
    EXPECT_EQ(path.isEmpty(), version() == schemaVersion);
    if (path.isEmpty())
        return;
    const OtherProgram copy(path);
    makeOldFile(file("as it was.vkr"), version());
    const OtherProgram original(file("as it was.vkr"));
    for (const char* statement :
         {"PRAGMA user_version", "SELECT group_concat(sql) FROM sqlite_schema",
          "SELECT group_concat(quote(value)) FROM series",
          "SELECT group_concat(\"Notes\") FROM company"})
        EXPECT_EQ(copy.run(statement), original.run(statement)) << statement;
}

TEST_P(OldVersions, AreLikeAFreshFile) {
    open(file(), OpenMode::existing);
    open(file("fresh.vkr"));
    const OtherProgram old(file());
    const OtherProgram fresh(file("fresh.vkr"));
    const auto shape = [](const OtherProgram& program) {
        QStringList lines = program.column("SELECT type || ' ' || name FROM sqlite_schema "
                                           "WHERE name NOT LIKE 'sqlite%' ORDER BY 1");
        lines += program.column("SELECT t.name || '.' || c.name || ' ' || c.type || c.\"notnull\" "
                                "|| coalesce(c.dflt_value, '') || c.pk "
                                "FROM sqlite_schema t, pragma_table_info(t.name) c "
                                "WHERE t.type = 'table' ORDER BY 1");
        // Version 1 had no lists; those of later ones were changed by people.
        if (version() == 1)
            lines += program.column("SELECT kind || position || text FROM list_entry ORDER BY 1");
        lines += program.column("PRAGMA user_version");
        return lines;
    };
    EXPECT_EQ(shape(old), shape(fresh));
    EXPECT_EQ(fresh.run("PRAGMA user_version").toInt(), schemaVersion);
    const QStringList columns = fresh.column("SELECT name FROM pragma_table_info('company')");
    for (const DatumRow& row : datumTable()) {
        const QString name =
            QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size()));
        EXPECT_EQ(columns.contains(name), !isSeries(row)) << row.name;
    }
}

// Else a figure that is missing could not be told from one that is 0.
TEST_P(OldVersions, HaveTheirFiguresCounted) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->load(4).value().unreadable, std::vector<std::string>());
    OtherProgram(file()).run(
        "DELETE FROM series WHERE company_id = 4 AND series = 'YEPSSeries' AND element = 3");
    EXPECT_EQ(store->load(4).value().unreadable, std::vector<std::string>{"YEPSSeries"});
    EXPECT_EQ(store->load(1).value().unreadable, std::vector<std::string>());
}

TEST_P(OldVersions, AreListedAndFound) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->list({}, 0, 10).value(), store->list().value());
    EXPECT_EQ(store->rank({"sons"}, 1).value(), 1);
    EXPECT_EQ(store->rank({"ärö"}, 4).value(), 1);
    EXPECT_EQ(store->rank({"", ListColumn::price}, 4).value(), 2);
}

TEST_P(OldVersions, HaveTheListsThatPeopleMade) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    const auto has = [](const std::vector<std::string>& texts, const char* text) {
        return std::ranges::count(texts, text) == 1;
    };
    const bool wereChanged = version() > 1;
    EXPECT_EQ(store->exchanges().value().size(), wereChanged ? 35U : 36U);
    EXPECT_EQ(has(store->exchanges().value(), "Vienna"), !wereChanged);
    EXPECT_EQ(store->industries().value().size(), 77U);
    EXPECT_EQ(store->sources().value().size(), wereChanged ? 10U : 9U);
    EXPECT_EQ(store->sources().value().back() == "The bank on the corner", wereChanged);
}

TEST_P(OldVersions, KnowWhoSavedLastAndTakeTheNextSave) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    const auto record = store->load(4).value().record;
    record->put_City("Graz");
    const auto late = store->save(1, *record, 6);
    ASSERT_FALSE(late);
    ASSERT_EQ(late.error().fault, StoreFault::conflict);
    EXPECT_EQ(late.error().conflict->changedBy, "anna@desk");
    EXPECT_EQ(late.error().conflict->changedAt, "2024-05-06T07:08:09Z");
    EXPECT_EQ(store->save(4, *record, 1).value(), (CompanyKey{4, 2}));
    EXPECT_EQ(store->save(std::nullopt, *record).value(), (CompanyKey{5, 1}));
    EXPECT_TRUE(sameAs(*store->load(4).value().record, *record));
}

TEST_P(OldVersions, KeepWhatWasCalledRight) {
    const auto store = open(file(), OpenMode::existing);
    ASSERT_NE(store, nullptr);
    EXPECT_EQ(store->check(1).value(), std::nullopt);
    const auto right = store->load(1).value().calledRight;
    if (version() < 5) { // which was the first to keep it
        EXPECT_TRUE(right.empty());
        return;
    }
    EXPECT_EQ(right,
              (std::vector<FindingVerdict>{{"jump YEPSSeries 2023 0123456789abcdef",
                                            "Earnings per share of 1.25 “jump”.", "YEPSSeries",
                                            "2023", true, "anna@desk", "2024-05-08T07:08:09Z"}}));
}

} // namespace
} // namespace vkr
