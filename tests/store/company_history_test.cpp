// SPDX-License-Identifier: MIT
// Who changed what, and where each figure comes from, on every kind of database.
#include "tests/store/store_places.hpp"
#include "tests/support/elements.hpp"
#include "tests/support/random_company.hpp"

#include <algorithm>

namespace vkr {

namespace {

using namespace test;

class CompanyHistory : public OnEveryDatabase {
  protected:
    static std::shared_ptr<CompanyRecord> company() {
        auto record = named("Acme");
        record->put_LastFY(2024);
        record->put_LastQDateForGrid(day(2025, 3, 31));
        putElement(*record, Datum::YEPSSeries, 1, 1.5);
        putElement(*record, Datum::YEPSSeries, 2, 1.25);
        putElement(*record, Datum::QEPSSeries, 0, 0.4);
        return record;
    }
    static Change typed(Datum datum, std::optional<int> element, const Variant& before,
                        const Variant& after) {
        return {{datum, element, before, after}, {}, Origin::typed, {}};
    }
    static HistoryChange changed(const char* datum, std::optional<int> element, const char* period,
                                 const char* before, const char* after,
                                 Origin origin = Origin::typed, const char* document = "") {
        return {datum, element, period, before, after, origin, document};
    }
    // Of each figure that there is: what is absent may be worked out, whatever was there once.
    static std::vector<std::string> originsIn(const HistoryState& state) {
        const auto figures =
            elementByElement(changesBetween(CompanyRecord(), *state.record, Action{}));
        std::vector<std::string> origins;
        for (const Change& change : figures.changes) {
            const auto from = state.origins.of(change.datum, change.element);
            origins.push_back(std::string(rowOf(change.datum).name) + " " +
                              std::to_string(change.element.value_or(0)) + " " +
                              (from.origin ? std::string(originName(*from.origin)) : "unknown") +
                              (from.isOutdated ? "! " : " ") + from.document);
        }
        return origins;
    }
    // Every datum as it was set, and every setting.
    static void expectSame(const CompanyRecord& one, const CompanyRecord& other) {
        for (const DatumRow& row : datumTable())
            EXPECT_EQ(one.stored(row.datum), other.stored(row.datum)) << row.name;
        for (const auto name : settingNames())
            EXPECT_EQ(one.get_Settings()->get(name).toText(),
                      other.get_Settings()->get(name).toText())
                << name;
    }
};

INSTANTIATE_TEST_SUITE_P(SQLite, CompanyHistory, testing::Values(DatabaseKind::file));
INSTANTIATE_TEST_SUITE_P(PostgreSQL, CompanyHistory, testing::Values(DatabaseKind::server));

TEST_P(CompanyHistory, BeginsWithTheFirstSave) {
    const auto store = open(place(), OpenMode::create, "anna@desk");
    const auto key = store->save(std::nullopt, *company());
    ASSERT_DONE(key);
    const auto history = store->history(key.value().id);
    ASSERT_DONE(history);
    ASSERT_EQ(history.value().size(), 1U);
    const HistoryGroup& group = history.value().front();
    EXPECT_EQ(group.revision, 1);
    EXPECT_EQ(group.user, "anna@desk");
    EXPECT_EQ(group.time, store->list().value().front().lastSaved);
    EXPECT_EQ(group.changes,
              (std::vector<HistoryChange>{changed("LastFY", {}, "", "", "2024"),
                                          changed("Name", {}, "", "", "Acme"),
                                          changed("LastQDateForGrid", {}, "", "", "2025-03-31"),
                                          changed("QEPSSeries", 0, "2025-03-31", "", "0.4"),
                                          changed("YEPSSeries", 1, "2024", "", "1.5"),
                                          changed("YEPSSeries", 2, "2023", "", "1.25")}));
}

TEST_P(CompanyHistory, TellsWhatASaveWithoutAnAccountChanged) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    putElement(*record, Datum::YEPSSeries, 2, 0);
    record->put_TotalDebt(12.5);
    record->get_Settings()->put(setting::unit, std::int16_t{6});
    ASSERT_DONE(store->save(1, *record, 1));
    const auto history = store->history(1).value();
    ASSERT_EQ(history.size(), 2U);
    EXPECT_EQ(history.front().revision, 2);
    EXPECT_EQ(history.front().changes,
              (std::vector<HistoryChange>{changed("TotalDebt", {}, "", "", "12.5"),
                                          changed("YEPSSeries", 2, "2023", "1.25", ""),
                                          changed("intUnit", {}, "", "0", "6")}));
}

TEST_P(CompanyHistory, KeepsTheGroupsOfTheAccountAndWhatTheyLeaveOut) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    SaveAccount account;
    account.groups = {
        {"Revenue 2024",
         std::chrono::sys_days(std::chrono::year(2026) / 2 / 3) + std::chrono::hours(4),
         {typed(Datum::YRevenueSeries, 1, 0.0, 100.0)}},
        {"Revenue 2024", {}, {typed(Datum::YRevenueSeries, 1, 100.0, 110.0)}},
        // What the record did not take in the end.
        {"Total Debt", {}, {typed(Datum::TotalDebt, {}, 0.0, 99.0)}},
    };
    account.rest = {Origin::imported, "Import", "0001-24-5"};
    putElement(*record, Datum::YRevenueSeries, 1, 110);
    record->put_Source("10-K");
    ASSERT_DONE(store->save(1, *record, 1, account));
    const auto history = store->history(1).value();
    ASSERT_EQ(history.size(), 5U);
    EXPECT_EQ(history[3].name, "Revenue 2024");
    EXPECT_EQ(history[3].time, "2026-02-03T04:00:00Z");
    EXPECT_EQ(history[3].changes, std::vector{changed("YRevenueSeries", 1, "2024", "", "100")});
    EXPECT_EQ(history[2].changes, std::vector{changed("YRevenueSeries", 1, "2024", "100", "110")});
    EXPECT_EQ(history[1].changes, std::vector{changed("TotalDebt", {}, "", "", "99")});
    EXPECT_EQ(history[0].name, "Import");
    EXPECT_EQ(history[0].changes,
              (std::vector<HistoryChange>{
                  changed("Source", {}, "", "", "10-K", Origin::imported, "0001-24-5"),
                  changed("TotalDebt", {}, "", "99", "", Origin::imported, "0001-24-5")}));
    const auto extent = store->historyExtent(1);
    ASSERT_DONE(extent);
    EXPECT_EQ(extent.value().groups, 5);
    EXPECT_GT(extent.value().bytes, 300);
}

TEST_P(CompanyHistory, KnowsWhereEachFigureComesFrom) {
    const auto store = open(place());
    const auto record = company();
    SaveAccount account;
    account.rest = {Origin::imported, "Import of ACM", "ACM-company.csv"};
    ASSERT_DONE(store->save(std::nullopt, *record, 0, account));
    putElement(*record, Datum::YEPSSeries, 1, 1.75);
    ASSERT_DONE(store->save(1, *record, 1));
    const auto origins = open(place(), OpenMode::existing)->load(1).value().origins;
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 1), (FigureOrigin{Origin::typed, "", false}));
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 2),
              (FigureOrigin{Origin::imported, "ACM-company.csv", false}));
    EXPECT_EQ(origins.of(Datum::TotalDebt), FigureOrigin());
    ASSERT_DONE(store->duplicate(1));
    const auto copy = store->load(2).value().origins;
    EXPECT_EQ(copy.of(Datum::YEPSSeries, 2).document, "ACM-company.csv");
}

TEST_P(CompanyHistory, FollowsFiguresThatMoveToAnotherElement) {
    const auto store = open(place());
    const auto record = company();
    putElement(*record, Datum::YEPSSeries, 10, 0.125);
    ASSERT_DONE(store->save(std::nullopt, *record));
    record->put_LastFY(2025);
    std::vector<double> figures(11);
    figures[2] = 1.5;
    figures[3] = 1.25;
    figures[1] = 2;
    record->put_YEPSSeries(numberArray(figures));
    ASSERT_DONE(store->save(1, *record, 1));
    const auto history = store->history(1).value();
    EXPECT_EQ(history.front().changes,
              (std::vector<HistoryChange>{changed("LastFY", {}, "", "2024", "2025"),
                                          changed("YEPSSeries", 1, "2025", "", "2"),
                                          changed("YEPSSeries", {}, "2015", "0.125", "")}));
    HistoryQuery query;
    query.datum = "YEPSSeries";
    query.period = "2024";
    const auto figure = store->history(1, query).value();
    ASSERT_EQ(figure.size(), 1U);
    EXPECT_EQ(figure.front().changes, std::vector{changed("YEPSSeries", 1, "2024", "", "1.5")});
    query.datum = "QEPSSeries";
    query.period = "2025-01-28";
    EXPECT_EQ(store->history(1, query).value().size(), 1U) << "a day of the same quarter";
}

// Whoever replaces a company by an import that goes on to a later year: the figures that it holds
// by their years have moved, with what is known of them, and only the others are of the import.
TEST_P(CompanyHistory, AnImportWithALaterYearLeavesTheOtherFiguresTheirOrigin) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record)); // typed
    record->put_LastFY(2025);
    record->put_YEPSSeries(numberArray({0, 2, 1.5, 1.26, 0, 0, 0, 0, 0, 0, 0}));
    const SaveAccount account{{}, {Origin::imported, "Import of ACM", "ACM-company.csv"}};
    ASSERT_DONE(store->save(1, *record, 1, account));
    const auto origins = store->load(1).value().origins;
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 1).document, "ACM-company.csv");
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 2), (FigureOrigin{Origin::typed, "", false}));
    EXPECT_EQ(origins.of(Datum::YEPSSeries, 3).document, "ACM-company.csv");
    const auto history = store->history(1).value();
    EXPECT_EQ(history.front().changes,
              (std::vector<HistoryChange>{
                  changed("LastFY", {}, "", "2024", "2025", Origin::imported, "ACM-company.csv"),
                  changed("YEPSSeries", 1, "2025", "", "2", Origin::imported, "ACM-company.csv"),
                  changed("YEPSSeries", 3, "2023", "1.25", "1.26", Origin::imported,
                          "ACM-company.csv")}));
    const HistoryState state = store->stateAfter(1, history.front()).value();
    expectSame(*state.record, *record);
    EXPECT_EQ(state.origins, origins);
    EXPECT_EQ(store->check(1).value(), std::nullopt);
}

TEST_P(CompanyHistory, AnImportFromSeveralDocumentsNamesThatOfEachDatum) {
    const auto store = open(place());
    const auto record = company();
    SaveAccount account{{}, {Origin::imported, "Import of ACM", "ACM-company.csv"}};
    account.documents = {{Datum::YEPSSeries, "ACM-yearly.csv"}, {Datum::LastFY, "ACM-yearly.csv"}};
    ASSERT_DONE(store->save(std::nullopt, *record, 0, account));
    record->put_LastFY(2025);
    record->put_YEPSSeries(numberArray({0, 2, 1.5, 1.26, 0, 0, 0, 0, 0, 0, 0}));
    ASSERT_DONE(store->save(1, *record, 1, account));
    const auto origins = store->load(1).value().origins;
    EXPECT_EQ(origins.of(Datum::Name).document, "ACM-company.csv");
    EXPECT_EQ(origins.of(Datum::LastFY).document, "ACM-yearly.csv");
    for (const int element : {1, 2, 3})
        EXPECT_EQ(origins.of(Datum::YEPSSeries, element).document, "ACM-yearly.csv") << element;
    EXPECT_EQ(
        store->history(1).value().front().changes,
        (std::vector<HistoryChange>{
            changed("LastFY", {}, "", "2024", "2025", Origin::imported, "ACM-yearly.csv"),
            changed("YEPSSeries", 1, "2025", "", "2", Origin::imported, "ACM-yearly.csv"),
            changed("YEPSSeries", 3, "2023", "1.25", "1.26", Origin::imported, "ACM-yearly.csv")}));
}

// What a step moved and what it wrote into the moved series are told apart, by period.
TEST_P(CompanyHistory, OfAStepThatMovesAndWritesKeepsBothApart) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    const Variant before = record->get_QEPSSeries();
    Variant moved = before;
    moved.array().setNumber(1, 0.4);
    moved.array().setNumber(0, 0);
    record->put_LastQDateForGrid(day(2025, 6, 30));
    record->put_QEPSSeries(moved);
    putElement(*record, Datum::QEPSSeries, 0, 0.5);
    SaveAccount account;
    account.groups = {{"Import of 1 Figure",
                       {},
                       {{{Datum::LastQDateForGrid, {}, day(2025, 3, 31), day(2025, 6, 30)},
                         {},
                         Origin::shifted,
                         {}},
                        {{Datum::QEPSSeries, {}, before, moved}, {}, Origin::shifted, {}},
                        {{Datum::QEPSSeries, 0, 0.0, 0.5}, {}, Origin::imported, "0001-25"}}}};
    ASSERT_DONE(store->save(1, *record, 1, account));
    const auto history = store->history(1).value();
    EXPECT_EQ(history.front().changes,
              (std::vector<HistoryChange>{
                  changed("LastQDateForGrid", {}, "", "2025-03-31", "2025-06-30", Origin::shifted),
                  changed("QEPSSeries", 0, "2025-06-30", "", "0.5", Origin::imported, "0001-25")}));
    const auto origins = store->load(1).value().origins;
    EXPECT_EQ(origins.of(Datum::QEPSSeries, 0).document, "0001-25");
    EXPECT_EQ(origins.of(Datum::QEPSSeries, 1), (FigureOrigin{Origin::typed, "", false}));
    const HistoryState state = store->stateAfter(1, history.front()).value();
    expectSame(*state.record, *record);
    EXPECT_EQ(state.origins, origins);
}

// Of a week-based year, where two quarters in a row may end in months of the same calendar quarter.
TEST_P(CompanyHistory, KnowsAQuarterThatEndedSomeDaysLater) {
    const auto store = open(place());
    const auto record = company();
    record->put_LastQDateForGrid(day(2023, 7, 1));
    ASSERT_DONE(store->save(std::nullopt, *record));
    record->put_LastQDateForGrid(day(2023, 9, 30));
    putElement(*record, Datum::QEPSSeries, 0, 0);
    putElement(*record, Datum::QEPSSeries, 1, 0.4);
    ASSERT_DONE(store->save(1, *record, 1));
    EXPECT_EQ(store->history(1).value().front().changes,
              (std::vector<HistoryChange>{
                  changed("LastQDateForGrid", {}, "", "2023-07-01", "2023-09-30")}));
}

// As a step that a person took back: where its figure is from is not known.
TEST_P(CompanyHistory, AChangeOfUnknownOriginIsKeptAsSuch) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    record->put_TotalDebt(5);
    SaveAccount account;
    account.groups = {{"Undone", {}, {{{Datum::TotalDebt, {}, 0.0, 5.0}, {}, std::nullopt, {}}}}};
    ASSERT_DONE(store->save(1, *record, 1, account));
    EXPECT_EQ(store->history(1).value().front().changes.front().origin, std::nullopt);
    EXPECT_EQ(store->load(1).value().origins.of(Datum::TotalDebt), FigureOrigin());
}

TEST_P(CompanyHistory, IsFilteredByPersonTimeAndOrigin) {
    const auto record = company();
    ASSERT_DONE(open(place(), OpenMode::create, "anna@desk")->save(std::nullopt, *record));
    const auto store = open(place(), OpenMode::existing, "ben@desk");
    SaveAccount account;
    for (const int number : {1, 2, 3})
        account.groups.push_back({"Group " + std::to_string(number),
                                  std::chrono::sys_days(std::chrono::year(2030) / 1 / number),
                                  {{{Datum::TotalDebt, {}, number - 1.0, double(number)},
                                    {},
                                    number == 2 ? Origin::pasted : Origin::typed,
                                    {}}}});
    record->put_TotalDebt(3);
    ASSERT_DONE(store->save(1, *record, 1, account));
    const auto names = [&](const HistoryQuery& query) {
        std::string found;
        const auto groups = store->history(1, query);
        for (const HistoryGroup& group : groups.value())
            found += "[" + group.name + "]";
        return found;
    };
    EXPECT_EQ(names({}), "[Group 3][Group 2][Group 1][]");
    EXPECT_EQ(names({.user = "ben@desk"}), "[Group 3][Group 2][Group 1]");
    EXPECT_EQ(names({.user = "anna@desk"}), "[]");
    EXPECT_EQ(names({.user = "carl@desk"}), "");
    EXPECT_EQ(names({.from = "2030-01-02", .until = "2030-01-03"}), "[Group 2]");
    EXPECT_EQ(names({.origin = Origin::pasted}), "[Group 2]");
    EXPECT_EQ(names({.datum = "TotalDebt"}), "[Group 3][Group 2][Group 1]");
    EXPECT_EQ(names({.datum = "Notes"}), "");
}

TEST_P(CompanyHistory, LeadsToEveryStateThatWasSaved) {
    const auto store = open(place());
    std::vector<std::shared_ptr<CompanyRecord>> states;
    for (unsigned seed = 0; seed < 12; ++seed) {
        states.push_back(RandomCompany(seed).record());
        // Now and then nothing or little changes.
        if (seed % 4 == 3)
            states.back() = states[seed - 1]->clone();
        if (seed % 4 == 2)
            putElement(*states.back(), Datum::QEPSSeries, 7, seed);
        ASSERT_DONE(store->save(seed == 0 ? std::nullopt : std::optional<std::int64_t>(1),
                                *states.back(), seed));
    }
    const auto reader = open(place(), OpenMode::existing);
    const auto history = reader->history(1).value();
    ASSERT_EQ(history.size(), states.size());
    for (const HistoryGroup& group : history) {
        const auto state = reader->stateAfter(1, group);
        ASSERT_DONE(state);
        expectSame(*state.value().record, *states[static_cast<std::size_t>(group.revision - 1)]);
    }
    EXPECT_EQ(reader->check(1).value(), std::nullopt);
}

TEST_P(CompanyHistory, LeadsToTheStateBetweenTwoGroupsOfASave) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    SaveAccount account;
    account.groups = {{"one", {}, {typed(Datum::TotalDebt, {}, 0.0, 1.0)}},
                      {"two", {}, {typed(Datum::TotalDebt, {}, 1.0, 2.0)}}};
    record->put_TotalDebt(2);
    ASSERT_DONE(store->save(1, *record, 1, account));
    const auto history = store->history(1).value();
    EXPECT_EQ(store->stateAfter(1, history[1]).value().record->get_TotalDebt(), 1);
    EXPECT_EQ(store->stateAfter(1, history[0]).value().record->get_TotalDebt(), 2);
}

TEST_P(CompanyHistory, OfASaveThatFailsIsNotKept) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    record->put_City("Graz");
    ASSERT_FALSE(store->save(1, *record, 7));
    // The second of two fails, and takes the first one with it.
    const auto other = record->clone();
    other->put_City("Linz");
    ASSERT_FALSE(store->saveAll({{1, record, 1}, {1, other, 9}}));
    EXPECT_EQ(store->history(1).value().size(), 1U);
    record->put_City("Wien");
    ASSERT_DONE(store->save(1, *record, 1));
    EXPECT_EQ(store->history(1).value().front().changes,
              std::vector{changed("City", {}, "", "", "Wien")});
}

TEST_P(CompanyHistory, IsToldFromWhatSomebodyElseSavedInBetween) {
    const auto store = open(place());
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    const auto theirs = record->clone();
    theirs->put_City("Graz");
    ASSERT_DONE(open(place(), OpenMode::existing, "ben@desk")->save(1, *theirs, 1));
    const auto mine = record->clone();
    mine->put_City("Linz");
    ASSERT_DONE(store->save(1, *mine, 2));
    EXPECT_EQ(store->history(1).value().front().changes,
              std::vector{changed("City", {}, "", "Graz", "Linz")});
}

TEST_P(CompanyHistory, LeavesWithTheCompany) {
    const auto store = open(place());
    ASSERT_DONE(store->save(std::nullopt, *company()));
    ASSERT_DONE(store->save(std::nullopt, *named("Other")));
    ASSERT_DONE(store->remove(1, 1));
    EXPECT_TRUE(store->history(1).value().empty());
    EXPECT_EQ(OtherProgram(place()).run("SELECT count(*) FROM figure_change").toInt(), 1);
    EXPECT_EQ(OtherProgram(place()).run("SELECT count(*) FROM change_group").toInt(), 1);
}

TEST_P(CompanyHistory, IsBoundedWherePeopleWantItSo) {
    const auto store = open(place());
    EXPECT_EQ(store->historyLimit().value(), 0);
    ASSERT_DONE(store->setHistoryLimit(8));
    EXPECT_EQ(open(place(), OpenMode::existing)->historyLimit().value(), 8);
    std::vector<std::shared_ptr<CompanyRecord>> states;
    for (unsigned seed = 0; seed < 30; ++seed) {
        states.push_back(RandomCompany(seed).record());
        ASSERT_DONE(store->save(seed == 0 ? std::nullopt : std::optional<std::int64_t>(1),
                                *states.back(), seed));
        const auto history = store->history(1).value();
        EXPECT_GE(history.size(), std::min<std::size_t>(seed + 1, 8));
        EXPECT_LE(history.size(), 11U);
        for (const HistoryGroup& group : history)
            expectSame(*store->stateAfter(1, group).value().record,
                       *states[static_cast<std::size_t>(group.revision - 1)]);
        EXPECT_EQ(store->check(1).value(), std::nullopt);
    }
    EXPECT_EQ(store->history(1).value().back().name, "Earlier changes");
}

// Also once the saves that led there have become one.
TEST_P(CompanyHistory, KnowsOfEachStateWhereItsFiguresCameFrom) {
    const auto store = open(place());
    ASSERT_DONE(store->setHistoryLimit(4));
    const auto record = company();
    SaveAccount imported;
    imported.rest = {Origin::imported, "Import of ACM", "0001-24-5"};
    ASSERT_DONE(store->save(std::nullopt, *record, 0, imported));
    const auto stored = [&] {
        const auto company = store->load(1);
        return originsIn({company.value().record, company.value().origins});
    };
    std::vector<std::vector<std::string>> known = {stored()};
    for (int save = 1; save < 9; ++save) {
        SaveAccount typing; // one figure after the other, and new years now and then
        putElement(*record, Datum::YEPSSeries, 1 + save % 3, save);
        if (save % 4 == 2) {
            record->put_LastFY(static_cast<std::int16_t>(record->get_LastFY() + 1));
            typing.rest = {Origin::imported, "Import", "0001-25-" + std::to_string(save)};
        }
        ASSERT_DONE(store->save(1, *record, save, typing));
        known.push_back(stored());
        const auto history = store->history(1).value();
        for (const HistoryGroup& group : history)
            EXPECT_EQ(originsIn(store->stateAfter(1, group).value()),
                      known[static_cast<std::size_t>(group.revision - 1)])
                << save << " " << group.revision;
    }
    EXPECT_EQ(store->history(1).value().back().name, "Earlier changes");
}

// A sum that was typed, and quarters that were typed after it: it may be worked out.
TEST_P(CompanyHistory, StillKnowsWhatIsOutdatedWhereItIsBounded) {
    const auto store = open(place());
    ASSERT_DONE(store->setHistoryLimit(4));
    const auto record = company();
    record->put_Last4QEPS(1.6);
    putElement(*record, Datum::YTaxRateSeries, 1, 21);
    putElement(*record, Datum::YTaxRateSeries, 2, 22);
    ASSERT_DONE(store->save(std::nullopt, *record));
    putElement(*record, Datum::QEPSSeries, 0, 0.5);
    putElement(*record, Datum::YNetIncSeries, 2, 7);
    ASSERT_DONE(store->save(1, *record, 1));
    for (int save = 2; save < 9; ++save) {
        record->put_TotalDebt(save);
        ASSERT_DONE(store->save(1, *record, save));
    }
    const auto expectMarks = [&](std::int64_t id) {
        EXPECT_TRUE(store->load(id).value().origins.of(Datum::Last4QEPS).isOutdated);
        for (const HistoryGroup& group : store->history(id).value()) {
            const FigureOrigins origins = store->stateAfter(id, group).value().origins;
            EXPECT_EQ(origins.of(Datum::Last4QEPS), (FigureOrigin{Origin::typed, "", true}));
            EXPECT_FALSE(origins.of(Datum::YTaxRateSeries, 1).isOutdated);
            EXPECT_TRUE(origins.of(Datum::YTaxRateSeries, 2).isOutdated);
            EXPECT_FALSE(origins.of(Datum::QEPSSeries, 0).isOutdated);
        }
    };
    expectMarks(1);
    const HistoryGroup earliest = store->history(1).value().back();
    EXPECT_EQ(earliest.name, "Earlier changes");
    for (const HistoryChange& change : earliest.changes)
        EXPECT_EQ(change.origin, Origin::typed) << change.datum;
    EXPECT_EQ(store->check(1).value(), std::nullopt);
    expectMarks(store->duplicate(1).value().id);
}

TEST_P(CompanyHistory, OfACopyTellsWhereItsFiguresCameFrom) {
    const auto store = open(place());
    SaveAccount imported;
    imported.rest = {Origin::imported, "Import of ACM", "0001-24-5"};
    ASSERT_DONE(store->save(std::nullopt, *company(), 0, imported));
    const auto copy = store->duplicate(1);
    ASSERT_DONE(copy);
    const auto group = store->history(copy.value().id, {.datum = "YEPSSeries"}).value().front();
    EXPECT_EQ(group.name, "Copy of “Acme”");
    ASSERT_EQ(group.changes.size(), 2U);
    EXPECT_EQ(group.changes.front().origin, Origin::imported);
    EXPECT_EQ(group.changes.front().document, "0001-24-5");
    EXPECT_EQ(store->stateAfter(copy.value().id, group).value().origins,
              store->load(copy.value().id).value().origins);
}

TEST_P(CompanyHistory, KeepsOddTextsAsTheyAre) {
    const auto store = open(place());
    const auto record = company();
    record->put_Notes("\ufefftab\tbreak\r\n'; DROP TABLE company; -- 漢 😀");
    SaveAccount account;
    account.rest = {Origin::imported, "Import “of” 100 %", "a\tb\nc\\"};
    ASSERT_DONE(store->save(std::nullopt, *record, 0, account));
    const auto group = store->history(1, {.datum = "Notes"}).value().front();
    EXPECT_EQ(group.name, account.rest.name);
    EXPECT_EQ(group.changes.front().after, record->get_Notes());
    EXPECT_EQ(group.changes.front().document, account.rest.document);
    EXPECT_EQ(store->load(1).value().origins.of(Datum::Notes).document, account.rest.document);
}

TEST_P(CompanyHistory, TellsWhoCalledAFindingRight) {
    ASSERT_DONE(open(place(), OpenMode::create, "anna@desk")->save(std::nullopt, *company()));
    const FindingVerdict jump{"jump YEPSSeries 2024 0f", "It jumps.", "YEPSSeries", "2024", true};
    const FindingVerdict debt{"sign TotalDebt 1e", "Less than nothing.", "TotalDebt", "", true};
    FindingVerdict again = jump;
    again.isRight = false;
    const auto store = open(place(), OpenMode::existing, "ben@desk");
    EXPECT_TRUE(store->load(1).value().calledRight.empty());
    ASSERT_DONE(store->judge(1, jump));
    ASSERT_DONE(store->judge(1, debt));
    ASSERT_DONE(open(place(), OpenMode::existing, "carl@desk")->judge(1, again));

    const auto loaded = store->load(1);
    ASSERT_DONE(loaded);
    EXPECT_EQ(loaded.value().revision, 1) << "nothing was saved";
    EXPECT_TRUE(loaded.value().isCalledRight(debt.finding));
    EXPECT_FALSE(loaded.value().isCalledRight(jump.finding)) << "what was said last stands";
    const auto history = store->history(1).value();
    ASSERT_EQ(history.size(), 4U);
    ASSERT_TRUE(history[0].verdict);
    EXPECT_EQ(history[0].user, "carl@desk");
    EXPECT_FALSE(history[0].time.empty());
    EXPECT_FALSE(history[0].verdict->isRight);
    EXPECT_EQ(history[1].verdict->text, "Less than nothing.");
    EXPECT_EQ(history[1].user, "ben@desk");
    EXPECT_FALSE(history[3].verdict);
    const auto found = [&](const HistoryQuery& query) {
        return std::ranges::count_if(store->history(1, query).value(),
                                     [](const auto& group) { return group.verdict.has_value(); });
    };
    EXPECT_EQ(found({.user = "ben@desk"}), 2);
    EXPECT_EQ(found({.until = "2020"}), 0);
    EXPECT_EQ(found({.origin = Origin::typed}), 0);
    EXPECT_EQ(found({.datum = "YEPSSeries"}), 2);
    EXPECT_EQ(found({.datum = "YEPSSeries", .period = "2024"}), 2);
    EXPECT_EQ(found({.datum = "YEPSSeries", .period = "2023"}), 0);
    EXPECT_EQ(store->historyExtent(1).value().groups, 4);
    EXPECT_EQ(store->check(1).value(), std::nullopt);
    EXPECT_EQ(store->judge(7, jump).error().fault, StoreFault::missing);
}

TEST_P(CompanyHistory, WhatWasCalledRightStaysWithTheCompanyAndItsCopy) {
    const auto store = open(place(), OpenMode::create, "anna@desk");
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    ASSERT_DONE(store->judge(1, {"one", "One.", "TotalDebt", "", true}));
    ASSERT_DONE(store->judge(1, {"two", "Two.", "TotalDebt", "", true}));
    ASSERT_DONE(store->judge(1, {"two", "Two.", "TotalDebt", "", false}));
    record->put_TotalDebt(12);
    ASSERT_DONE(store->save(1, *record, 1)) << "no conflict with what was only said";
    ASSERT_DONE(store->duplicate(1));
    for (const std::int64_t id : {1, 2}) {
        const auto loaded = store->load(id);
        ASSERT_EQ(loaded.value().calledRight.size(), 1U);
        EXPECT_EQ(loaded.value().calledRight.front().finding, "one");
        EXPECT_EQ(loaded.value().calledRight.front().user, "anna@desk");
        EXPECT_EQ(store->check(id).value(), std::nullopt);
    }
    ASSERT_DONE(store->remove(1, 2));
    EXPECT_EQ(OtherProgram(place()).run("SELECT count(*) FROM finding_verdict").toInt(), 1);
}

TEST_P(CompanyHistory, ForgetsWhatNoLongerStandsWhereItIsBounded) {
    const auto store = open(place());
    ASSERT_DONE(store->setHistoryLimit(4));
    const auto record = company();
    ASSERT_DONE(store->save(std::nullopt, *record));
    for (const bool isRight : {true, false, true})
        ASSERT_DONE(store->judge(1, {"one", "One.", "TotalDebt", "", isRight}));
    for (const bool isRight : {true, false})
        ASSERT_DONE(store->judge(1, {"two", "Two.", "TotalDebt", "", isRight}));
    // As if it had been a while ago: a time is told to the second.
    OtherProgram(place()).run("UPDATE finding_verdict SET said_at = '2020-01-01T00:00:00Z'");
    for (int save = 1; save <= 12; ++save) {
        record->put_TotalDebt(save);
        ASSERT_DONE(store->save(1, *record, save));
    }
    EXPECT_EQ(OtherProgram(place()).run("SELECT count(*) FROM finding_verdict").toInt(), 1);
    EXPECT_TRUE(store->load(1).value().isCalledRight("one"));
    EXPECT_FALSE(store->load(1).value().isCalledRight("two"));
}

} // namespace
} // namespace vkr
