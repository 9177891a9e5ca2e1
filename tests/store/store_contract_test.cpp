// SPDX-License-Identifier: MIT
// What every store keeps to, whatever kind of database it is on.
#include "company/company_csv.hpp"
#include "source_folder.hpp"
#include "tests/store/store_places.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/random_company.hpp"

#include <algorithm>
#include <ctime>
#include <set>

namespace vkr {

namespace {

using namespace test;

class StoreContract : public OnEveryDatabase {};

INSTANTIATE_TEST_SUITE_P(SQLite, StoreContract, testing::Values(DatabaseKind::file));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, StoreContract, testing::Values(DatabaseKind::server));

TEST_P(StoreContract, EveryDatumComesBackAsItWas) {
    const auto store = open(place());
    std::vector<std::pair<CompanyKey, std::shared_ptr<CompanyRecord>>> saved;
    for (unsigned seed = 0; seed < 60; ++seed) {
        auto record = test::RandomCompany(seed).record();
        const auto key = store->save(std::nullopt, *record);
        ASSERT_DONE(key);
        saved.emplace_back(key.value(), record);
    }
    const auto reopened = open(place(), OpenMode::existing);
    for (const auto& [key, record] : saved) {
        const auto loaded = reopened->load(key.id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(loaded.value().revision, 1);
        EXPECT_TRUE(loaded.value().unreadable.empty());
        EXPECT_EQ(differences(*record, *loaded.value().record), std::vector<Difference>{});
        for (const DatumRow& row : datumTable())
            EXPECT_EQ(loaded.value().record->stored(row.datum), record->stored(row.datum))
                << row.name;
    }
}

TEST_P(StoreContract, OddTextsComeBackAsTheyWere) {
    std::string everyByte;
    for (char character = 1; character > 0; ++character)
        everyByte += character;
    const std::string texts[] = {
        everyByte,
        "\ufeffmark",
        "\ufeff\ufeff",
        "\ufffe\uffff",
        "a\uffff b\ufffe",
        "'; DROP TABLE company; --",
        "\u202eright to left\u202c",
        "👩‍👩‍👧‍👦 e\u0301 漢字 \U0010ffff",
        std::string(65536, 'n'),
        " \t\r\n ",
        "%1 ? :name @name $1",
    };
    const auto store = open(place());
    for (const std::string& text : texts) {
        const auto record = named(text);
        record->put_Notes(text);
        const auto key = store->save(std::nullopt, *record);
        ASSERT_DONE(key);
        const auto loaded = store->load(key.value().id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(loaded.value().record->get_Name(), text);
        EXPECT_EQ(loaded.value().record->get_Notes(), text);
        EXPECT_EQ(store->list().value().size(), 1U);
        EXPECT_EQ(store->list().value()[0].name, text);
        ASSERT_DONE(store->remove(key.value().id, 1));
    }
    // One character more than a text can have on a server: kept, or refused and nothing changed.
    const auto record = named(std::string("a\0b", 3));
    if (const auto key = store->save(std::nullopt, *record)) {
        EXPECT_EQ(store->load(key.value().id).value().record->get_Name(), record->get_Name());
    } else {
        EXPECT_NE(key.error().message.find("null character"), std::string::npos);
        EXPECT_TRUE(store->list().value().empty());
    }
}

TEST_P(StoreContract, ChangingOneDatumLeavesAllOthersByteForByte) {
    const auto store = open(place());
    const auto record = test::RandomCompany(11).record();
    const auto key = store->save(std::nullopt, *record).value();
    const auto loaded = store->load(key.id).value();
    loaded.record->put_City("elsewhere");
    ASSERT_DONE(store->save(key.id, *loaded.record, loaded.revision));
    const auto changes = differences(*record, *store->load(key.id).value().record);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].datum, "City");
}

TEST_P(StoreContract, DatesStayTheSameDayInEveryTimeZone) {
    const Date days[] = {day(100, 1, 1),   day(1582, 10, 10), day(1899, 12, 29), day(1900, 2, 28),
                         day(2024, 2, 29), day(2024, 3, 31),  day(2024, 10, 27), day(9999, 12, 31)};
    const QByteArray usual = qgetenv("TZ");
    const auto store = open(place());
    for (const char* writtenIn : {"Etc/GMT+12", "Pacific/Kiritimati", "Europe/Berlin"}) {
        qputenv("TZ", writtenIn);
        tzset();
        for (const Date date : days) {
            CompanyRecord record;
            record.put_LastFYDate(date);
            const auto key = store->save(std::nullopt, record).value();
            for (const char* readIn : {"Pacific/Kiritimati", "Etc/GMT+12", "America/New_York"}) {
                qputenv("TZ", readIn);
                tzset();
                EXPECT_EQ(store->load(key.id).value().record->get_LastFYDate(), date);
            }
        }
    }
    usual.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", usual);
    tzset();
    EXPECT_EQ(OtherProgram(place()).run("SELECT \"LastFYDate\" FROM company WHERE id = 5"),
              "2024-02-29");
    EXPECT_TRUE(
        OtherProgram(place()).run("SELECT \"LastUpdate\" FROM company WHERE id = 5").isNull());
}

TEST_P(StoreContract, WhatAnotherProgramLeftUnreadableIsToldAndTheRestIsRead) {
    const auto store = open(place());
    const auto record = test::RandomCompany(12).record();
    record->put_Name("X");
    const auto key = store->save(std::nullopt, *record).value();
    struct Row {
        const char* statement;
        const char* datum;
    };
    const Row rows[] = {
        {"UPDATE company SET \"LastFYDate\" = '0000-00-00'", "LastFYDate"},
        {"UPDATE company SET \"LastUpdate\" = '2025-02-30'", "LastUpdate"},
        {"UPDATE company SET \"LastQDate\" = ''", "LastQDate"},
        {"UPDATE company SET \"CurrentPrice\" = {infinity}", "CurrentPrice"},
        {"UPDATE company SET \"LastFY\" = 70000", "LastFY"},
        {"UPDATE company SET \"intUnit\" = -70000", "intUnit"},
        {"INSERT INTO series VALUES (1, 'QEPSSeries', 35, 1)", "QEPSSeries"},
        {"INSERT INTO series VALUES (1, 'ZSeries', 0, 1)", "ZSeries"},
        {"DELETE FROM series WHERE series = 'YEPSSeries'", "YEPSSeries"},
        {"INSERT INTO series VALUES (1, 'YLowSeries', 1, {-infinity}) "
         "ON CONFLICT (company_id, series, element) DO UPDATE SET value = excluded.value",
         "YLowSeries"},
    };
    std::set<std::string> expected;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.statement);
        OtherProgram(place()).run(
            QString(row.statement)
                .replace("{infinity}", isOnServer() ? "'infinity'" : "9e999")
                .replace("{-infinity}", isOnServer() ? "'-infinity'" : "-9e999"));
        expected.insert(row.datum);
        const auto loaded = store->load(key.id);
        ASSERT_DONE(loaded);
        EXPECT_EQ(std::set(loaded.value().unreadable.begin(), loaded.value().unreadable.end()),
                  expected);
        for (const Difference& change : differences(*record, *loaded.value().record)) {
            // Absent dates and years are answered by the data that stand in for them.
            const bool standsIn = change.datum == "LastQDateForGrid";
            EXPECT_TRUE(expected.contains(change.datum) || standsIn) << change.datum;
        }
    }
}

TEST_P(StoreContract, ListsCompaniesByName) {
    const auto store = open(place());
    CompanyRecord record;
    record.put_Name("beta");
    record.put_Symbol("B");
    record.put_Exchange("NYSE");
    record.put_Industry("Banks");
    record.put_Source("10-K");
    record.put_CurrentPrice(12.34);
    record.put_PriceUpdatedDate(day(2025, 1, 2));
    record.put_LastFYDate(day(2024, 9, 30));
    ASSERT_DONE(store->save(std::nullopt, record));
    ASSERT_DONE(store->save(std::nullopt, *named("Gamma")));
    ASSERT_DONE(store->save(std::nullopt, *named("Alpha")));

    const auto list = store->list();
    ASSERT_DONE(list);
    ASSERT_EQ(list.value().size(), 3U);
    EXPECT_EQ(list.value()[0].name, "Alpha");
    EXPECT_EQ(list.value()[2].name, "Gamma");
    const CompanySummary& beta = list.value()[1];
    EXPECT_EQ(beta.key, (CompanyKey{1, 1}));
    EXPECT_EQ(beta.symbol, "B");
    EXPECT_EQ(beta.exchange, "NYSE");
    EXPECT_EQ(beta.industry, "Banks");
    EXPECT_EQ(beta.source, "10-K");
    EXPECT_EQ(beta.currentPrice, 12.34);
    EXPECT_EQ(beta.priceUpdated, day(2025, 1, 2));
    EXPECT_EQ(beta.lastFY, 2024);
    EXPECT_EQ(beta.lastSaved.size(), std::string("2026-01-31T12:00:00Z").size());
    EXPECT_EQ(beta.lastSaved.back(), 'Z');
}

class ListContract : public StoreContract {
  protected:
    void SetUp() override {
        StoreContract::SetUp();
        if (!IsSkipped())
            store_ = open(place());
    }

    std::int64_t add(const std::string& name, const std::string& symbol = "", double price = 0,
                     Date priceDate = {}) {
        const auto record = named(name);
        record->put_Symbol(symbol);
        record->put_CurrentPrice(price);
        record->put_PriceUpdatedDate(priceDate);
        const auto key = store_->save(std::nullopt, *record);
        EXPECT_DONE(key);
        return key ? key.value().id : 0;
    }
    std::vector<std::string> names(const ListQuery& query, std::int64_t from = 0,
                                   std::int64_t most = 100) {
        const auto page = store_->list(query, from, most);
        EXPECT_DONE(page);
        std::vector<std::string> found;
        if (page)
            for (const CompanySummary& company : page.value())
                found.push_back(company.name);
        return found;
    }
    std::int64_t count(const std::string& search) {
        const auto counted = store_->count({search});
        EXPECT_DONE(counted);
        return counted ? counted.value() : -1;
    }

    using Names = std::vector<std::string>;
    StorePtr store_;
};

INSTANTIATE_TEST_SUITE_P(SQLite, ListContract, testing::Values(DatabaseKind::file));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, ListContract, testing::Values(DatabaseKind::server));

TEST_P(ListContract, SortsNamesAsPeopleDo) {
    for (const char* name : {"zeta", "Österreich AG", "Alpha", "Plant 10", "alpha", "Plant 9", "",
                             "Orange", "Plant 009 b", "Zürich", "\u65e5\u672c", "3M"})
        add(name);
    const Names sorted = {"",        "3M",          "Alpha",    "alpha", "Orange", "Österreich AG",
                          "Plant 9", "Plant 009 b", "Plant 10", "zeta",  "Zürich", "\u65e5\u672c"};
    EXPECT_EQ(names({}), sorted);
    ListQuery backwards;
    backwards.isDescending = true;
    EXPECT_EQ(names(backwards), Names(sorted.rbegin(), sorted.rend()));
}

TEST_P(ListContract, SortsByEachColumnThenByNameThenAsEntered) {
    struct Row {
        const char* name;
        const char* symbol;
        double price;
        Date date;
    };
    for (const Row& row : {Row{"b", "Z", 100, day(2025, 1, 2)}, Row{"a", "Y", 9.5, Date{}},
                           Row{"d", "y", 0, day(2025, 1, 2)}, Row{"c", "", 9.5, day(1850, 1, 1)},
                           Row{"A", "Y", 9.5, Date{}}}) {
        CompanyRecord record;
        record.put_Name(row.name);
        record.put_Symbol(row.symbol);
        record.put_Exchange(std::string("E") + row.symbol);
        record.put_Industry(std::string("I") + row.symbol);
        record.put_CurrentPrice(row.price);
        record.put_PriceUpdatedDate(row.date);
        ASSERT_DONE(store_->save(std::nullopt, record));
    }
    OtherProgram(place()).run("UPDATE listing SET saved_at = '2026-01-0' || (6 - company_id)");
    const Names bySymbol = {"c", "a", "A", "d", "b"};
    struct Case {
        ListColumn column;
        Names sorted;
    };
    for (const Case& row :
         {Case{ListColumn::symbol, bySymbol}, Case{ListColumn::exchange, bySymbol},
          Case{ListColumn::industry, bySymbol}, Case{ListColumn::price, {"d", "a", "A", "c", "b"}},
          Case{ListColumn::priceDate, {"a", "A", "c", "b", "d"}},
          Case{ListColumn::lastSaved, {"A", "c", "d", "a", "b"}}}) {
        SCOPED_TRACE(static_cast<int>(row.column));
        EXPECT_EQ(names({"", row.column, false}), row.sorted);
        EXPECT_EQ(names({"", row.column, true}), Names(row.sorted.rbegin(), row.sorted.rend()));
    }
}

TEST_P(ListContract, EveryWordOfASearchIsFoundSomewhere) {
    CompanyRecord apple;
    apple.put_Name("Apple & \u00d6lm\u00fchle 100%_*x");
    apple.put_Symbol("AAPL");
    apple.put_Exchange("Xetra");
    apple.put_Industry("Electronic Computers");
    ASSERT_DONE(store_->save(std::nullopt, apple));
    add("Applied Works");
    const auto all = store_->list().value();
    struct Case {
        const char* search;
        int found;
    };
    for (const Case& row : {Case{"", 2},
                            Case{"  ", 2},
                            Case{"APPL", 2},
                            Case{"aapl", 1},
                            Case{"apple comp", 1},
                            Case{"\tcomp  apple ", 1},
                            Case{"apple x", 1},
                            Case{"apple zz", 0},
                            Case{"xetra", 1},
                            Case{"\u00d6L", 1},
                            Case{"o\u0308LM\u00dcHLE", 1},
                            Case{"%", 1},
                            Case{"_", 1},
                            Case{"a%l", 0},
                            Case{"a*l", 0},
                            Case{"a?p", 0},
                            Case{"[a]p", 0},
                            Case{"*x", 1},
                            Case{"'", 0},
                            Case{"\uff21pple", 1},
                            Case{"aaplx", 0},
                            Case{"\ufeff", 0}}) {
        EXPECT_EQ(count(row.search), row.found) << row.search;
        EXPECT_EQ(names({row.search}).size(), static_cast<std::size_t>(row.found)) << row.search;
        EXPECT_EQ(std::ranges::count_if(
                      all, [&](const auto& company) { return isFound(company, {row.search}); }),
                  row.found)
            << row.search;
    }
}

TEST_P(ListContract, PagesFollowOneAnother) {
    for (int i = 25; i > 0; --i)
        add("Company " + std::to_string(i), i % 2 == 0 ? "even" : "odd");
    const ListQuery even{"even"};
    EXPECT_EQ(names(even, 0, 5),
              (Names{"Company 2", "Company 4", "Company 6", "Company 8", "Company 10"}));
    EXPECT_EQ(names(even, 5, 5),
              (Names{"Company 12", "Company 14", "Company 16", "Company 18", "Company 20"}));
    EXPECT_EQ(names(even, 10, 5), (Names{"Company 22", "Company 24"}));
    EXPECT_EQ(names(even, 12, 5), Names());
    EXPECT_EQ(count("even"), 12);
}

TEST_P(ListContract, ACompanyHasItsPlaceInTheOrder) {
    const auto c = add("c", "X", 5);
    const auto a = add("a", "X", 7);
    const auto b = add("b", "Y", 5);
    const auto rank = [&](const ListQuery& query, std::int64_t id) {
        return store_->rank(query, id).value();
    };
    EXPECT_EQ(rank({}, a), 1);
    EXPECT_EQ(rank({}, c), 3);
    EXPECT_EQ(rank({"", ListColumn::name, true}, c), 1);
    EXPECT_EQ(rank({"", ListColumn::price}, b), 1);
    EXPECT_EQ(rank({"", ListColumn::price}, c), 2);
    EXPECT_EQ(rank({"", ListColumn::price, true}, c), 2);
    EXPECT_EQ(rank({"x"}, c), 2);
    EXPECT_EQ(rank({"x"}, b), 0);
    EXPECT_EQ(rank({}, 99), 0);
}

TEST_P(ListContract, FollowsWhatIsSavedDuplicatedAndRemoved) {
    const auto id = add("beta", "B");
    add("gamma");
    ASSERT_DONE(store_->save(id, *named("zeta"), 1));
    EXPECT_EQ(names({}), (Names{"gamma", "zeta"}));
    EXPECT_EQ(count("beta"), 0);
    ASSERT_DONE(store_->duplicate(id));
    EXPECT_EQ(names({"zeta"}), (Names{"zeta", "zeta (copy)"}));
    ASSERT_DONE(store_->remove(id, 2));
    EXPECT_EQ(names({}), (Names{"gamma", "zeta (copy)"}));
    EXPECT_EQ(count(""), 2);
    // A page tells the same of a company as the whole list.
    const auto all = store_->list();
    ASSERT_DONE(all);
    EXPECT_EQ(store_->list({}, 0, 100).value(), all.value());
}

TEST_P(ListContract, OddTextsAreSortedAndFoundAsWell) {
    const std::string longest(65536, 'n');
    add(longest + "needle");
    add("\ufeffmark");
    add(std::string(99, 'm') + "\U0001f600");
    add(std::string(80, '9'));
    EXPECT_EQ(names({}).size(), 4U);
    EXPECT_EQ(names({"needle"}), Names{longest + "needle"});
    EXPECT_EQ(names({"\ufeffmark"}), Names{"\ufeffmark"});
    EXPECT_EQ(names({longest}), Names{longest + "needle"});
    if (!isOnServer()) {
        add(std::string("nu\0ll", 5));
        EXPECT_EQ(count("ll"), 1);
    }
}

TEST_P(ListContract, NamesTheTextsThatCompaniesHave) {
    for (const char* exchange : {"NYSE", "", "Xetra", "NYSE"}) {
        CompanyRecord record;
        record.put_Exchange(exchange);
        record.put_Source("10-K");
        ASSERT_DONE(store_->save(std::nullopt, record));
    }
    const auto used = [&](StoreList list) {
        auto texts = store_->used(list).value();
        std::ranges::sort(texts);
        return texts;
    };
    EXPECT_EQ(used(StoreList::exchanges), (Names{"NYSE", "Xetra"}));
    EXPECT_EQ(used(StoreList::sources), Names{"10-K"});
    EXPECT_EQ(used(StoreList::industries), Names());
}

TEST_P(StoreContract, CountsTheSavesOfACompany) {
    const auto store = open(place());
    const auto record = named("X");
    ASSERT_EQ(store->save(std::nullopt, *record).value(), (CompanyKey{1, 1}));
    for (int revision = 1; revision < 5; ++revision) {
        record->put_CurrentPrice(revision);
        EXPECT_EQ(store->save(1, *record, revision).value(), (CompanyKey{1, revision + 1}));
    }
    EXPECT_EQ(store->list().value().size(), 1U);
}

TEST_P(StoreContract, DuplicatesACompany) {
    const auto store = open(place());
    const auto record = test::RandomCompany(13).record();
    const auto key = store->save(std::nullopt, *record).value();
    const auto copy = store->duplicate(key.id);
    ASSERT_DONE(copy);
    EXPECT_NE(copy.value().id, key.id);
    const auto loaded = store->load(copy.value().id).value();
    const auto changes = differences(*record, *loaded.record);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(loaded.record->get_Name(), record->get_Name() + " (copy)");
    EXPECT_EQ(store->duplicate(99).error().fault, StoreFault::missing);
}

TEST_P(StoreContract, ARemovedCompanyNeverComesBackUnderItsNumber) {
    const auto store = open(place());
    const auto key = store->save(std::nullopt, *named("X")).value();
    ASSERT_DONE(store->remove(key.id, key.revision));
    EXPECT_TRUE(store->list().value().empty());
    const auto loaded = store->load(key.id);
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error().fault, StoreFault::missing);
    EXPECT_NE(loaded.error().message.find("removed by test@here"), std::string::npos);
    EXPECT_NE(store->save(std::nullopt, *named("Y")).value().id, key.id);
}

TEST_P(StoreContract, ASaveOverSomebodyElsesSaveIsAConflict) {
    const auto annas = open(place(), OpenMode::create, "anna@desk");
    const auto bens = open(place(), OpenMode::existing, "ben@laptop");
    const auto record = test::RandomCompany(14).record();
    record->put_Name("Apples");
    record->put_City("before");
    const auto key = annas->save(std::nullopt, *record).value();

    const auto annasCopy = annas->load(key.id).value();
    const auto bensCopy = bens->load(key.id).value();
    annasCopy.record->put_City("Berlin");
    test::putElement(*annasCopy.record, Datum::YEPSSeries, 1, 9.75);
    test::putElement(*annasCopy.record, Datum::YEPSSeries, 2, 9.25);
    ASSERT_EQ(annas->save(key.id, *annasCopy.record, annasCopy.revision).value().revision, 2);

    bensCopy.record->put_Zip("12345");
    const auto save = bens->save(key.id, *bensCopy.record, bensCopy.revision);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::conflict);
    const std::string& message = save.error().message;
    for (const char* part :
         {"“Apples”", "anna@desk", "City, Zip/Postal, Yearly Earnings Per Share", "Nothing"})
        EXPECT_NE(message.find(part), std::string::npos) << part << " in " << message;
    ASSERT_TRUE(save.error().conflict);
    const StoreConflict& conflict = *save.error().conflict;
    EXPECT_EQ(conflict.changedBy, "anna@desk");
    EXPECT_EQ(conflict.changedAt, annas->list().value()[0].lastSaved);
    EXPECT_FALSE(conflict.isRemoved);
    EXPECT_EQ(conflict.revision, 2);
    EXPECT_EQ(conflict.differences, changesByPeriod(*annasCopy.record, *bensCopy.record));
    EXPECT_EQ(conflict.differences.size(), 4U);

    // Nothing is lost, neither here nor there.
    EXPECT_TRUE(sameAs(*annas->load(key.id).value().record, *annasCopy.record));
    EXPECT_EQ(bensCopy.record->get_Zip(), "12345");
    // Overwriting is a choice, keeping both another.
    EXPECT_EQ(bens->save(std::nullopt, *bensCopy.record).value().revision, 1);
    EXPECT_EQ(bens->save(key.id, *bensCopy.record, conflict.revision).value().revision, 3);
    EXPECT_TRUE(sameAs(*annas->load(key.id).value().record, *bensCopy.record));
}

TEST_P(StoreContract, TheSameChangeMadeTwiceIsNoConflict) {
    const auto annas = open(place(), OpenMode::create, "anna@desk");
    const auto bens = open(place(), OpenMode::existing, "ben@laptop");
    const auto key = annas->save(std::nullopt, *named("X")).value();
    ASSERT_DONE(annas->save(key.id, *named("Y"), 1));
    EXPECT_EQ(bens->save(key.id, *named("Y"), 1).value(), (CompanyKey{key.id, 2}));
}

TEST_P(StoreContract, ASaveOfARemovedCompanySaysWhoRemovedIt) {
    const auto annas = open(place(), OpenMode::create, "anna@desk");
    const auto bens = open(place(), OpenMode::existing, "ben@laptop");
    const auto record = named("Apples");
    const auto key = annas->save(std::nullopt, *record).value();
    ASSERT_DONE(annas->remove(key.id, 1));
    const auto save = bens->save(key.id, *record, 1);
    ASSERT_FALSE(save);
    EXPECT_EQ(save.error().fault, StoreFault::conflict);
    EXPECT_NE(save.error().message.find("“Apples” was removed by anna@desk"), std::string::npos);
    ASSERT_TRUE(save.error().conflict);
    EXPECT_TRUE(save.error().conflict->isRemoved);
    EXPECT_DONE(bens->save(std::nullopt, *record));
}

TEST_P(StoreContract, WhatSomebodyElseSavedIsNotRemoved) {
    const auto store = open(place());
    const auto key = store->save(std::nullopt, *named("X")).value();
    ASSERT_DONE(store->save(key.id, *named("Y"), 1));
    const auto removal = store->remove(key.id, 1);
    ASSERT_FALSE(removal);
    EXPECT_EQ(removal.error().fault, StoreFault::conflict);
    EXPECT_EQ(store->list().value().size(), 1U);
    EXPECT_DONE(store->remove(key.id, 2));
}

TEST_P(StoreContract, AnImportIsSavedWholeOrNotAtAll) {
    const auto store = open(place());
    const auto key = store->save(std::nullopt, *named("first")).value();
    ASSERT_DONE(store->save(key.id, *named("second"), 1));
    std::vector<SaveRequest> requests;
    for (int i = 0; i < 20; ++i)
        requests.push_back({std::nullopt, test::RandomCompany(20).record(), 0});
    requests[10] = {key.id, named("third"), 1}; // loaded before the second save
    const auto refused = store->saveAll(requests);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().fault, StoreFault::conflict);
    EXPECT_EQ(store->list().value().size(), 1U);

    requests[10].expectedRevision = 2;
    const auto saved = store->saveAll(requests);
    ASSERT_DONE(saved);
    ASSERT_EQ(saved.value().size(), requests.size());
    EXPECT_EQ(saved.value()[10], (CompanyKey{key.id, 3}));
    EXPECT_EQ(store->list().value().size(), 20U);
    EXPECT_TRUE(sameAs(*store->load(saved.value()[19].id).value().record, *requests[19].record));
}

TEST_P(StoreContract, SamplesArriveUnchanged) {
    const FolderImport import = importFolder(VKR_SOURCE_DIR "/samples");
    std::vector<SaveRequest> requests;
    for (const auto& entry : import.entries)
        requests.push_back({std::nullopt, entry.result.company, 0});
    const auto store = open(place());
    const auto saved = store->saveAll(requests);
    ASSERT_DONE(saved);
    ASSERT_EQ(saved.value().size(), 4U);
    for (std::size_t i = 0; i < requests.size(); ++i)
        EXPECT_TRUE(sameAs(*store->load(saved.value()[i].id).value().record, *requests[i].record));
}

TEST_P(StoreContract, ListsBeginWithWhatIsUsual) {
    const auto store = open(place());
    const auto has = [](const StoreResult<std::vector<std::string>>& texts, const char* text) {
        return std::count(texts.value().begin(), texts.value().end(), text) == 1;
    };
    for (const char* text :
         {"Nasdaq", "NYSE", "NYSE American", "Toronto", "London", "Xetra", "Tokyo", "São Paulo"})
        EXPECT_TRUE(has(store->exchanges(), text)) << text;
    for (const char* text :
         {"S & P", "Value Line", "Annual report", "10-K", "10-Q", "Press release"})
        EXPECT_TRUE(has(store->sources(), text)) << text;
    EXPECT_GT(store->industries().value().size(), 50U);
    EXPECT_EQ(store->exchanges().value().front(), "Nasdaq");
}

TEST_P(StoreContract, ListsCanBeChanged) {
    const auto store = open(place());
    using Texts = std::vector<std::string>;
    ASSERT_DONE(store->setEntries(StoreList::sources, {"b", "a", " ", "b", "", "ü"}));
    EXPECT_EQ(store->sources().value(), (Texts{"b", "a", "ü"}));
    ASSERT_DONE(store->addEntry(StoreList::sources, "c"));
    ASSERT_DONE(store->addEntry(StoreList::sources, "a"));
    ASSERT_DONE(store->addEntry(StoreList::sources, "\t"));
    EXPECT_EQ(store->sources().value(), (Texts{"b", "a", "ü", "c"}));
    ASSERT_DONE(store->removeEntry(StoreList::sources, "a"));
    ASSERT_DONE(store->removeEntry(StoreList::sources, "not there"));
    ASSERT_DONE(store->addEntry(StoreList::sources, "a"));
    EXPECT_EQ(open(place())->sources().value(), (Texts{"b", "ü", "c", "a"}));
    EXPECT_GT(store->exchanges().value().size(), 10U);
    ASSERT_DONE(store->setEntries(StoreList::exchanges, {}));
    EXPECT_TRUE(open(place())->exchanges().value().empty());
}

} // namespace
} // namespace vkr
