// SPDX-License-Identifier: MIT
// What is stored is compared with what was saved.
#include "company/exact_text.hpp"
#include "tests/store/store_faults.hpp"
#include "tests/store/store_places.hpp"

namespace vkr {

namespace {

using namespace test;

class CompanyCheck : public OnEveryDatabase {
  protected:
    void SetUp() override {
        OnEveryDatabase::SetUp();
        if (IsSkipped())
            return;
        const auto store = open(place());
        for (unsigned seed = 0; seed < 3; ++seed) {
            auto record = RandomCompany(seed).record();
            record->put_Name("Company " + std::to_string(seed + 1));
            for (const DatumRow& row : datumTable())
                if (isOf<datum_kind::Day>(row.datum))
                    writeDate(*record, row.datum, day(2021, 4, 5));
            record->put_YEPSSeries(numberArray({0, 1.25, 2.5, 0, 0, 0, 0, 0, 0, 0, -3}));
            ASSERT_DONE(store->save(std::nullopt, *record));
            record->put_City("Graz");
            ASSERT_DONE(store->save(seed + 1, *record, 1));
            records_.push_back(std::move(record));
            ASSERT_DONE(store->judge(seed + 1, {"jump YEPSSeries 2024 0123456789abcdef",
                                                "Earnings per share jump.", "YEPSSeries", "2024",
                                                seed != 0}));
        }
    }
    [[nodiscard]] static QStringList columnsOf(const OtherProgram& other, const QString& table,
                                               const QString& type = {}) {
        if (isOnServer())
            return other.column("SELECT attname::text FROM pg_attribute WHERE attrelid = "
                                "to_regclass('" +
                                table + "') AND attnum > 0 AND format_type(atttypid, NULL) LIKE '" +
                                type + "%'");
        return other.column("SELECT name FROM pragma_table_info('" + table +
                            "') WHERE lower(type) LIKE '" + type + "%'");
    }
    // Another value than the one of the column; another date where it is a date.
    [[nodiscard]] static QString changed(const OtherProgram& other, const QString& table,
                                         const QString& column) {
        const QString quoted = "\"" + column + "\"";
        if (column.startsWith("bln")) // any number but 0 is true
            return "1 - " + quoted;
        if (columnsOf(other, table, isOnServer() ? "bigint" : "integer").contains(column))
            return quoted + " + 1";
        if (columnsOf(other, table, isOnServer() ? "double" : "real").contains(column))
            return "CASE WHEN " + quoted + " = 0 THEN 1 ELSE -" + quoted + " END";
        return "CASE WHEN " + quoted + " LIKE '2%' THEN '3' || substr(" + quoted + ", 2) ELSE " +
               quoted + " || 'a' END";
    }

    std::vector<std::shared_ptr<CompanyRecord>> records_;
};

INSTANTIATE_TEST_SUITE_P(SQLite, CompanyCheck, testing::Values(DatabaseKind::file));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, CompanyCheck, testing::Values(DatabaseKind::server));

TEST_P(CompanyCheck, FindsNothingInWhatWasSaved) {
    const auto store = open(place(), OpenMode::existing);
    for (int id = 1; id <= 3; ++id) {
        EXPECT_EQ(store->check(id).value(), std::nullopt);
        EXPECT_EQ(store->load(id).value().damage, std::nullopt);
    }
    EXPECT_EQ(store->check(9).error().fault, StoreFault::missing);
}

TEST_P(CompanyCheck, TellsTheFigureThatChangedAndWhatWasSaved) {
    OtherProgram(place()).run("UPDATE series SET value = value * 2 WHERE company_id = 2 AND "
                              "series = 'YEPSSeries' AND element = 2");
    const auto loaded = open(place(), OpenMode::existing)->load(2);
    ASSERT_DONE(loaded);
    ASSERT_TRUE(loaded.value().damage);
    const CompanyDamage& damage = *loaded.value().damage;
    EXPECT_EQ(damage.key, (CompanyKey{2, 2}));
    EXPECT_EQ(damage.name, "“Company 2”");
    const int lastYear = records_[1]->get_LastFY();
    const std::string year = lastYear == 0 ? "" : std::to_string(lastYear - 1);
    EXPECT_EQ(damage.differences,
              (std::vector<HistoryChange>{{"YEPSSeries", 2, year, "5", "2.5", Origin::typed, ""}}));
    EXPECT_EQ(damage.message,
              "“Company 2” is not as it was saved: the database is damaged, or something else than "
              "this program has written to it. The history is sound and has what was saved last. "
              "One value differs: Yearly Earnings Per Share " +
                  (year.empty() ? "(2)" : year) + " was saved as 2.5, stored is 5.");
    ASSERT_NE(damage.saved.record, nullptr);
    EXPECT_TRUE(sameAs(*damage.saved.record, *records_[1]));
    EXPECT_EQ(open(place(), OpenMode::existing)->load(1).value().damage, std::nullopt);
}

TEST_P(CompanyCheck, IsMendedBySavingWhatTheHistoryHas) {
    OtherProgram(place()).run("UPDATE company SET \"TotalDebt\" = 123456 WHERE id = 1");
    const auto store = open(place(), OpenMode::existing);
    const auto loaded = store->load(1);
    ASSERT_TRUE(loaded.value().damage);
    ASSERT_DONE(store->save(1, *loaded.value().damage->saved.record, 2));
    EXPECT_EQ(store->check(1).value(), std::nullopt);
    EXPECT_TRUE(sameAs(*store->load(1).value().record, *records_[0]));
}

// Whoever saves it has seen it; nobody is told afterwards that all of it was saved like that.
TEST_P(CompanyCheck, ASaveOfWhatIsDamagedStandsInTheHistoryAsThat) {
    const double debt = records_[0]->get_TotalDebt();
    OtherProgram(place()).run("UPDATE company SET \"TotalDebt\" = 123456 WHERE id = 1");
    const auto store = open(place(), OpenMode::existing);
    auto loaded = store->load(1);
    ASSERT_TRUE(loaded.value().damage);
    EXPECT_EQ(loaded.value().origins.of(Datum::TotalDebt).origin, std::nullopt);
    loaded.value().record->put_City("Wien");
    ASSERT_DONE(store->save(1, *loaded.value().record, 2));
    EXPECT_EQ(store->check(1).value(), std::nullopt);
    EXPECT_EQ(store->load(1).value().origins.of(Datum::TotalDebt).origin, std::nullopt);
    const auto history = store->history(1).value();
    const auto isOfTheSave = [](const HistoryGroup& group) { return group.revision == 3; };
    const auto found = std::ranges::find_if(
        history, [&](const HistoryGroup& group) { return isOfTheSave(group) && group.place == 0; });
    ASSERT_NE(found, history.end());
    EXPECT_EQ(found->name, "Found changed: by damage, or by another program");
    ASSERT_EQ(found->changes.size(), 1U);
    EXPECT_EQ(found->changes[0].datum, "TotalDebt");
    EXPECT_EQ(found->changes[0].before, debt == 0 ? "" : exactNumberText(debt));
    EXPECT_EQ(found->changes[0].after, "123456");
    EXPECT_EQ(found->changes[0].origin, std::nullopt);
    EXPECT_EQ(std::ranges::count_if(history, isOfTheSave), 2);
    EXPECT_EQ(store->stateAfter(1, *found).value().record->get_TotalDebt(), 123456);
    ASSERT_DONE(store->save(1, *store->load(1).value().record, 3)); // no second time
    EXPECT_EQ(store->history(1).value().front().changes.size(), 0U);
}

TEST_P(CompanyCheck, IsNotPassedByACopy) {
    OtherProgram(place()).run("UPDATE company SET \"TotalDebt\" = 123456 WHERE id = 1");
    const auto store = open(place(), OpenMode::existing);
    const auto copy = store->duplicate(1);
    ASSERT_FALSE(copy);
    EXPECT_EQ(copy.error().fault, StoreFault::corrupt);
    EXPECT_NE(copy.error().message.find("is not as it was saved"), std::string::npos);
    EXPECT_EQ(store->list().value().size(), 3U);
    ASSERT_DONE(store->duplicate(2));
}

TEST_P(CompanyCheck, TellsADamagedHistoryFromDamagedFigures) {
    OtherProgram(place()).run(
        "UPDATE figure_change SET after = 'Linz' WHERE company_id = 1 AND after = 'Graz'");
    const auto store = open(place(), OpenMode::existing);
    EXPECT_EQ(store->load(1).value().damage, std::nullopt);
    const auto damage = store->check(1).value();
    ASSERT_TRUE(damage);
    EXPECT_EQ(damage->message,
              "The history of “Company 1” is damaged. Its figures are as they were saved.");
    EXPECT_FALSE(store->stateAfter(1, store->history(1).value().front()));
    EXPECT_EQ(store->check(2).value(), std::nullopt);
    OtherProgram(place()).run("UPDATE company SET \"TotalDebt\" = 123456 WHERE id = 1");
    const auto both = store->load(1).value().damage;
    ASSERT_TRUE(both);
    EXPECT_EQ(both->saved.record, nullptr);
}

// The lists of the combo boxes and the setting are no company's.
TEST_P(CompanyCheck, FindsWhatChangedInAnyColumnOfACompany) {
    struct Table {
        const char* name;
        const char* ofCompany;
    };
    static constexpr Table tables[] = {{"company", "id"},
                                       {"series", "company_id"},
                                       {"listing", "company_id"},
                                       {"change_group", "company_id"},
                                       {"figure_change", "company_id"},
                                       {"finding_verdict", "company_id"},
                                       {"change_log", "company_id"}};
    const OtherProgram other(place());
    const auto store = open(place(), OpenMode::existing);
    int columns = 0;
    for (const auto& [name, ofCompany] : tables) {
        const QString table = name;
        for (const QString& column : columnsOf(other, table)) {
            if (column == ofCompany || (table == "change_log" && column == "id"))
                continue; // tried apart; and a number that means nothing
            SCOPED_TRACE((table + "." + column).toStdString());
            const QString rows = " FROM " + table + " WHERE " + ofCompany + " = 2";
            const QString quoted = "\"" + column + "\"";
            other.run("CREATE TEMPORARY TABLE kept AS SELECT *" + rows);
            other.run("UPDATE " + table + " SET " + quoted + " = " + changed(other, table, column) +
                      " WHERE " + ofCompany + " = 2 AND " + quoted + " = (SELECT max(" + quoted +
                      ")" + rows + ")");
            const auto found = store->check(2);
            EXPECT_TRUE(!found || found.value().has_value());
            ++columns;
            if (table == "company") {
                other.run("UPDATE company SET " + quoted + " = (SELECT " + quoted +
                          " FROM kept) WHERE id = 2");
            } else {
                other.run("DELETE" + rows);
                other.run("INSERT INTO " + table + " SELECT * FROM kept");
            }
            other.run("DROP TABLE kept");
            const auto again = store->check(2);
            ASSERT_DONE(again);
            ASSERT_FALSE(again.value()) << again.value()->message;
        }
    }
    EXPECT_GT(columns, 70);
}

TEST_P(CompanyCheck, FindsFiguresThatBelongToAnotherCompany) {
    OtherProgram(place()).run("UPDATE series SET company_id = 3 WHERE company_id = 2 AND series = "
                              "'YCSOSeries' AND element NOT IN (SELECT element FROM series WHERE "
                              "company_id = 3 AND series = 'YCSOSeries')");
    const auto store = open(place(), OpenMode::existing);
    EXPECT_TRUE(store->load(2).value().damage);
    EXPECT_TRUE(store->load(3).value().damage);
    EXPECT_FALSE(store->load(1).value().damage);
}

// A copy of the file that was put beside the log of another moment.
TEST(MixedCopies, NeverOpenWithoutAWord) {
    const FaultFolder folder;
    std::vector<std::shared_ptr<CompanyRecord>> states;
    std::vector<QByteArray> files;
    std::vector<QByteArray> logs;
    {
        const auto store = open(folder.file());
        std::int64_t revision = 0;
        for (unsigned seed = 0; seed < 20; ++seed) {
            states.push_back(RandomCompany(seed).record());
            const auto saved =
                store->save(seed == 0 ? std::nullopt : std::optional<std::int64_t>(1),
                            *states.back(), revision);
            ASSERT_DONE(saved);
            revision = saved.value().revision;
            ASSERT_DONE(store->save(std::nullopt, *RandomCompany(100 + seed).record()));
            files.push_back(bytesOf(folder.file()));
            logs.push_back(bytesOf(folder.file() + "-wal"));
        }
    }
    int silent = 0;
    int refused = 0;
    int told = 0;
    for (std::size_t file = 0; file < files.size(); file += 2)
        for (std::size_t log = 0; log < logs.size(); log += 3) {
            folder.empty();
            FaultFolder::write(folder.file(), files[file]);
            FaultFolder::write(folder.file() + "-wal", logs[log]);
            const auto opened = tryOpen(folder.file(), OpenMode::existing);
            const auto loaded =
                opened ? opened.value()->load(1) : StoreResult<LoadedCompany>(opened.error());
            if (!loaded) {
                ++refused;
                continue;
            }
            if (loaded.value().damage) {
                ++told;
                continue;
            }
            const CompanyRecord& record = *loaded.value().record;
            const auto revision = static_cast<std::size_t>(loaded.value().revision);
            silent +=
                revision >= 1 && revision <= states.size() && sameAs(record, *states[revision - 1])
                    ? 0
                    : 1;
        }
    std::printf("%d refused, %d told\n", refused, told);
    EXPECT_EQ(silent, 0);
    EXPECT_GT(refused + told, 10);
}

} // namespace
} // namespace vkr
