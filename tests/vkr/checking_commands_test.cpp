// SPDX-License-Identifier: MIT
// What is compared and looked at: facts, check, and the data sheet.
#include "company/split.hpp"
#include "plausibility/company_findings.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/earlier_company.hpp"
#include "tests/support/elements.hpp"
#include "tests/vkr/program_run.hpp"

#include <algorithm>
#include <functional>
#include <pwd.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace vkr::test {
namespace {

class CheckingCommands : public ProgramTest {
  protected:
    void SetUp() override { importSamples(); }

    static QString facts(const char* symbol) {
        return QStringLiteral(VKR_SOURCE_DIR "/tests/filings/%1-facts.json").arg(symbol);
    }
    static std::ptrdiff_t lines(const std::string& text) { return std::ranges::count(text, '\n'); }
    // A company as it becomes by somebody else.
    void change(std::int64_t id, const std::function<void(CompanyRecord& record)>& edit) const {
        const auto database = store();
        const auto loaded = database->load(id);
        edit(*loaded.value().record);
        ASSERT_TRUE(database->save(id, *loaded.value().record, loaded.value().revision));
    }
    // Leaves a figure of AAPL out.
    void emptyRevenue(int element) const {
        change(1, [&](CompanyRecord& record) {
            putElement(record, Datum::YRevenueSeries, element, 0);
        });
    }
    // A high price below the low one.
    void lowerAHigh(std::int64_t id) const {
        change(id, [](CompanyRecord& record) { putElement(record, Datum::YHighSeries, 3, 1); });
    }
};

TEST_F(CheckingCommands, FactsAreComparedAndNothingIsChanged) {
    emptyRevenue(2);
    const QByteArray before = bytes("companies.vkr");
    const auto review = run({"facts", facts("AAPL"), "--symbol", "AAPL", "--format", "tsv"});
    EXPECT_EQ(review.code, 1) << review.err;
    EXPECT_TRUE(contains(review.out, "\nyearly\trevenue_musd\t2024\t\t391035\t\t")) << review.out;
    EXPECT_EQ(bytes("companies.vkr"), before);
    const auto all =
        run({"facts", facts("AAPL"), "--symbol", "AAPL", "--format", "tsv", "--verbose"});
    EXPECT_GT(lines(all.out), lines(review.out) + 200);
}

TEST_F(CheckingCommands, FactsThatAreNewAreTakenOver) {
    emptyRevenue(2);
    const QByteArray before = bytes("companies.vkr");
    const QStringList accept = {"facts", facts("AAPL"), "--symbol", "AAPL", "--accept", "new"};
    const auto dry = run(accept + QStringList("--dry-run"));
    EXPECT_EQ(bytes("companies.vkr"), before);
    EXPECT_TRUE(contains(dry.err, "Import of 1 Figure: would be done.")) << dry.err;
    EXPECT_TRUE(contains(dry.err, "This was a dry run")) << dry.err;
    const auto done = run(accept);
    EXPECT_EQ(done.out, dry.out);
    EXPECT_TRUE(contains(done.err, ": done.")) << done.err;
    EXPECT_EQ(elementOf(*store()->load(1).value().record, Datum::YRevenueSeries, 2), 391035);
    EXPECT_EQ(store()->load(1).value().revision, 3);
    const auto told = run({"history", "AAPL", "--origin", "imported", "--figure", "YRevenueSeries",
                           "--period", "2024", "--format", "tsv"});
    EXPECT_EQ(told.code, 0) << told.err;
    EXPECT_TRUE(contains(told.out, "\tyearly\trevenue_musd\t2024\t\t391035\timported\t0000320193-"))
        << told.out;
    const auto again = run({"facts", facts("AAPL"), "--symbol", "AAPL", "--accept", "all"});
    EXPECT_EQ(again.code, 0) << again.err;
    const auto same = run({"facts", facts("AAPL"), "--symbol", "AAPL"});
    EXPECT_EQ(same.code, 0) << same.out;
}

// The usual case: a year is added. What was typed stays typed where it moves to, and each figure
// that came keeps the filing that it is from, its period and its origin.
TEST_F(CheckingCommands, FactsThatAddAYearKeepWhereEachFigureIsFrom) {
    {
        const auto database = store();
        const auto loaded = database->load(1);
        const auto record = loaded.value().record;
        goBack(*record, 1, 0);
        putElement(*record, Datum::YRevenueSeries, 1, 391000); // typed, of 2024
        ASSERT_TRUE(database->save(1, *record, 1));
        ASSERT_EQ(record->get_LastFY(), 2024);
    }
    const auto done = run({"facts", facts("AAPL"), "--symbol", "AAPL", "--accept", "new"});
    EXPECT_EQ(done.code, 1) << done.err; // one differs
    const auto database = store();
    const auto loaded = database->load(1);
    EXPECT_EQ(loaded.value().record->get_LastFY(), 2025);
    const FigureOrigins& origins = loaded.value().origins;
    EXPECT_EQ(loaded.value().record->get_YRevenueSeries().array().number(2), 391000);
    EXPECT_EQ(origins.of(Datum::YRevenueSeries, 2).origin, Origin::typed);
    EXPECT_EQ(origins.of(Datum::YRevenueSeries, 1).origin, Origin::imported);
    EXPECT_EQ(origins.of(Datum::YRevenueSeries, 1).document, "0000320193-25-000079");
    EXPECT_EQ(origins.of(Datum::LastFY), (FigureOrigin{Origin::imported, "CIK 320193", false}));
    HistoryQuery query;
    query.origin = Origin::imported;
    query.datum = "YRevenueSeries";
    query.period = "2025";
    const auto history = database->history(1, query);
    ASSERT_FALSE(history.value().empty());
    EXPECT_EQ(history.value().front().revision, 3);
    EXPECT_EQ(history.value().front().changes.front().after, "416161");
    EXPECT_EQ(history.value().front().changes.front().document, "0000320193-25-000079");
}

TEST_F(CheckingCommands, FactsPushNothingOutThatWasTypedUnlessAllAreAccepted) {
    change(1, [](CompanyRecord& record) {
        goBack(record, 1, 0);
        putElement(record, Datum::YRevenueSeries, 10, 999);
    });
    const QStringList call = {"facts", facts("AAPL"), "--symbol", "AAPL"};
    const auto fresh = run(call + QStringList{"--accept", "new"});
    EXPECT_EQ(fresh.code, 1);
    EXPECT_TRUE(contains(fresh.err, "would leave the table: Yearly Revenue 2015: 999.\n"))
        << fresh.err;
    EXPECT_TRUE(contains(fresh.err, "\n--accept all adds them nevertheless.\n")) << fresh.err;
    EXPECT_EQ(store()->load(1).value().record->get_LastFY(), 2024);
    EXPECT_EQ(elementOf(*store()->load(1).value().record, Datum::YRevenueSeries, 10), 999);

    const auto all = run(call + QStringList{"--accept", "all"});
    EXPECT_EQ(all.code, 0);
    EXPECT_TRUE(contains(all.err, "typed, or may have been: Yearly Revenue 2015: 999.")) << all.err;
    EXPECT_EQ(store()->load(1).value().record->get_LastFY(), 2025);
    EXPECT_EQ(elementOf(*store()->load(1).value().record, Datum::YRevenueSeries, 1), 416161);
}

// Stored before the last split, and without what the last year has.
TEST_F(CheckingCommands, FactsOnOtherSharesThanTheStoredOnesAreLeftOut) {
    change(2, [](CompanyRecord& record) {
        const auto split = splitChanges(record, {{1, 10}, *makeDate(2024, 6, 30)});
        ASSERT_EQ(applyChanges(record, changesOf(split)), std::nullopt);
        putElement(record, Datum::YEPSSeries, 1, 0);
        putElement(record, Datum::YRevenueSeries, 1, 0);
    });
    const QStringList call = {"facts", facts("NVDA"), "--symbol", "NVDA", "--format", "tsv"};
    const auto look = run(call);
    EXPECT_EQ(look.code, 1);
    EXPECT_TRUE(look.err.starts_with("57 figures per share and share counts of 2017-01-29 to "
                                     "2024-04-28 are stored as they were before the split 10:1, "
                                     "in effect by 2024-06-30. "))
        << look.err;
    EXPECT_TRUE(contains(look.out, "doubtful: stored figures are on other shares")) << look.out;

    const auto fresh = run(call + QStringList{"--accept", "new"});
    EXPECT_EQ(fresh.code, 1);
    EXPECT_TRUE(contains(fresh.err, "\n--accept new leaves out what is new among them (1).\n"))
        << fresh.err;
    EXPECT_TRUE(contains(fresh.err, "Import of 1 Figure: done.")) << fresh.err;
    EXPECT_EQ(elementOf(*store()->load(2).value().record, Datum::YEPSSeries, 1), 0);
    EXPECT_EQ(elementOf(*store()->load(2).value().record, Datum::YRevenueSeries, 1), 215938);

    const auto all = run(call + QStringList{"--accept", "all"});
    EXPECT_EQ(all.code, 1) << "prices stay";
    EXPECT_TRUE(contains(all.err, "\n--accept all takes 60 figures on the shares of today. Prices, "
                                  "and what no filing has, stay as they are.\n"))
        << all.err;
    EXPECT_EQ(elementOf(*store()->load(2).value().record, Datum::YEPSSeries, 1), 4.9);
}

TEST_F(CheckingCommands, FactsOfAnotherCompanyAreRefused) {
    const auto other = run({"facts", facts("AAPL"), "--symbol", "NVDA", "--accept", "all"});
    EXPECT_EQ(other.code, 3);
    EXPECT_TRUE(contains(other.err, "Nothing was changed.")) << other.err;
    EXPECT_EQ(other.out, "");
    EXPECT_EQ(store()->load(2).value().revision, 1);
}

TEST_F(CheckingCommands, FactsOfACompanyThatIsNotThereAddIt) {
    ASSERT_TRUE(store()->remove(1, 1)); // AAPL
    const QByteArray before = bytes("companies.vkr");
    const QStringList look = {"facts", facts("AAPL"), "--symbol", "aapl", "--format", "tsv"};
    const auto review = run(look);
    EXPECT_EQ(review.code, 1) << review.err;
    EXPECT_TRUE(contains(review.out, "\nyearly\trevenue_musd\t2024\t\t391035\t\t")) << review.out;
    EXPECT_TRUE(contains(review.err, "Apple Inc. (AAPL) is not in the database. It is added with "
                                     "what --accept takes."))
        << review.err;
    const auto dry = run(look + QStringList{"--accept", "new", "--dry-run"});
    EXPECT_TRUE(contains(dry.err, "Apple Inc. (AAPL) was not in the database and would be added: "))
        << dry.err;
    EXPECT_TRUE(contains(dry.err, "This was a dry run")) << dry.err;
    EXPECT_EQ(bytes("companies.vkr"), before);
    const auto done = run(look + QStringList{"--accept", "new"});
    EXPECT_TRUE(contains(done.err, "was not in the database and is added: Import of ")) << done.err;
    EXPECT_EQ(done.out, dry.out);
    {
        const auto database = store();
        const auto found = database->find(ListColumn::symbol, "AAPL");
        ASSERT_EQ(found.value().size(), 1U);
        EXPECT_EQ(found.value().front().name, "Apple Inc.");
        const auto loaded = database->load(found.value().front().key.id);
        const CompanyRecord& record = *loaded.value().record;
        EXPECT_EQ(record.get_LastFY(), 2025);
        EXPECT_EQ(elementOf(record, Datum::YRevenueSeries, 2), 391035);
        const FigureOrigin origin = loaded.value().origins.of(Datum::YRevenueSeries, 2);
        EXPECT_EQ(origin.origin, Origin::imported);
        EXPECT_TRUE(origin.document.starts_with("0000320193-")) << origin.document;
        const FigureOrigins& origins = loaded.value().origins;
        for (const Datum datum : {Datum::Name, Datum::LastFY, Datum::LastFYDate, Datum::LastQDate})
            EXPECT_EQ(origins.of(datum), (FigureOrigin{Origin::imported, "CIK 320193", false}))
                << rowOf(datum).name;
        EXPECT_EQ(origins.of(Datum::Symbol), (FigureOrigin{Origin::typed, "", false}));
    }
    const auto year = run({"history", "AAPL", "--period", "2024", "--format", "tsv"});
    EXPECT_EQ(year.code, 0) << year.err;
    EXPECT_TRUE(contains(year.out, "\tyearly\trevenue_musd\t2024\t\t391035\timported\t0000320193-"))
        << year.out;
    const auto again = run({"facts", facts("AAPL"), "--symbol", "APPL", "--accept", "all"});
    EXPECT_EQ(again.code, 3) << "a slip in the symbol";
    EXPECT_TRUE(contains(again.err, "The database has Apple Inc. (AAPL) already.")) << again.err;
}

TEST_F(CheckingCommands, ADocumentThatIsNoneIsRefused) {
    write("cut.json", "{\"cik\": 320193, \"entityName\": \"Apple Inc.\", \"facts\": {");
    for (const QString& file : {QString("cut.json"), QString("none.json"), QString("in")}) {
        const auto refused = run({"facts", file, "--symbol", "AAPL"});
        EXPECT_EQ(refused.code, 3);
        EXPECT_TRUE(refused.err.starts_with("vkr: ")) << refused.err;
    }
    EXPECT_EQ(run({"facts", "cut.json"}).code, 2);
    EXPECT_EQ(run({"facts", "cut.json", "--symbol", "  "}).code, 2);
    EXPECT_EQ(run({"facts", "cut.json", "--symbol", "AAPL", "--accept", "some"}).code, 2);
}

TEST_F(CheckingCommands, WhatIsOddIsListedAndCounts) {
    const auto nothing = run({"check", "AAPL"});
    EXPECT_EQ(nothing.code, nothing.out.find('\n') + 1 == nothing.out.size() ? 0 : 1);
    lowerAHigh(1);
    const auto found = run({"check", "AAPL", "--format", "tsv"});
    EXPECT_EQ(found.code, 1);
    EXPECT_TRUE(contains(found.out, "\nAAPL\tsure\t")) << found.out;
    EXPECT_TRUE(contains(found.out, "The high price of fiscal year 2023, 1, is below the low"))
        << found.out;
    const auto all = run({"check", "--format", "tsv"});
    EXPECT_TRUE(contains(all.err, " to look at in 4 companies.")) << all.err;
    EXPECT_TRUE(contains(all.out, "\nTSLA\t")) << all.out;
}

// The names of rules are of any length up to the longest, the sentences of any.
TEST_F(CheckingCommands, WhatIsOddLinesUpForPeople) {
    change(1, [](CompanyRecord& record) { record.put_Symbol("A-LONG-SYMBOL"); });
    const auto found = run({"check"});
    ASSERT_EQ(found.code, 1);
    const std::string head = found.out.substr(0, found.out.find('\n'));
    EXPECT_TRUE(head.ends_with("  finding")) << head;
    std::size_t longest = 0;
    std::istringstream rows(found.out);
    for (std::string row; std::getline(rows, row);) {
        std::istringstream words(row);
        std::string word;
        for (const char* name : {"symbol", "sureness", "rule", "id", "finding"}) {
            words >> word;
            EXPECT_EQ(row.substr(head.find(name), word.size()), word) << name << ": " << row;
            if (name == std::string_view("rule"))
                longest = std::max(longest, word.size());
        }
    }
    EXPECT_GT(longest, 18U) << "else this shows nothing";
}

TEST_F(CheckingCommands, WhatWasCalledRightIsNotListed) {
    const auto before = run({"check", "TSLA", "--format", "tsv"});
    ASSERT_EQ(before.code, 1);
    std::int64_t id = 0;
    {
        const auto database = store();
        for (const CompanySummary& company : database->list().value())
            id = company.symbol == "TSLA" ? company.key.id : id;
        for (const Finding& one : companyFindings(*database->load(id).value().record))
            ASSERT_TRUE(database->judge(id, {one.key, one.text, "TotalDebt", "", true}));
    }
    const auto after = run({"check", "TSLA", "--format", "tsv"});
    EXPECT_EQ(after.code, 0) << after.out;
    EXPECT_EQ(lines(after.out), 1) << "the heading";
    const auto count = lines(before.out) - 1;
    EXPECT_TRUE(contains(after.err,
                         "0 to look at in 1 company, " + std::to_string(count) + " called right."))
        << after.err;
    const auto told = run({"history", "TSLA", "--figure", "TotalDebt", "--format", "tsv"});
    EXPECT_TRUE(contains(told.out, "\tCalled right: ")) << told.out;
    lowerAHigh(id); // another figure is another finding
    EXPECT_EQ(run({"check", "TSLA"}).code, 1);
}

TEST_F(CheckingCommands, HistoryTellsWhoChangedWhatAndWhereItCameFrom) {
    emptyRevenue(2);
    const auto all = run({"history", "AAPL", "--format", "tsv"});
    EXPECT_EQ(all.code, 0) << all.err;
    EXPECT_TRUE(
        all.out.starts_with("revision\ttime\tuser\taction\ttable\tfigure\tperiod\tbefore\tafter"
                            "\torigin\tdocument\n2\t"))
        << all.out;
    EXPECT_TRUE(contains(all.out, "\tyearly\trevenue_musd\t2024\t391035\t\ttyped\t\n")) << all.out;
    EXPECT_TRUE(contains(all.out, "\tImport of AAPL\tcompany\tname\t\t\tApple Inc.\timported\t"
                                  "AAPL-company.csv\n"))
        << all.out;
    EXPECT_EQ(lines(run({"history", "AAPL", "--origin", "typed"}).out), 2);
    const auto read = run({"history", "AAPL", "--origin", "typed"});
    EXPECT_TRUE(contains(read.out, "  Yearly Revenue  2024    391035 ")) << read.out;
    EXPECT_EQ(run({"history", "AAPL", "--figure", "yearly revenue"}).out,
              run({"history", "AAPL", "--figure", "YRevenueSeries"}).out);
    EXPECT_EQ(run({"history", "AAPL", "--origin", "guessed"}).code, 2);
}

TEST_F(CheckingCommands, HistoryCallsASettingByItsTitle) {
    change(1, [](CompanyRecord& record) {
        record.get_Settings()->put(setting::currencySymbol, "\u20AC");
    });
    const auto told = run({"history", "AAPL", "--figure", "strCurSymbol"});
    EXPECT_TRUE(contains(told.out, "  Currency Symbol  ")) << told.out;
    EXPECT_EQ(run({"history", "AAPL", "--figure", "currency symbol"}).out, told.out);
}

// A program that has read one command's figures finds them in another's.
TEST_F(CheckingCommands, ADatumHasOneKeyAndOneUnitInEveryCommand) {
    change(1, [](CompanyRecord& record) {
        record.put_CommShares(14000.5);
        record.get_Settings()->put(setting::taxRate, true);
    });
    EXPECT_TRUE(
        contains(run({"show", "AAPL", "--format", "tsv"}).out, "\ncommon_shares\t14000500000\n"));
    const auto told = run({"history", "AAPL", "--figure", "common_shares", "--format", "tsv"});
    EXPECT_TRUE(contains(told.out, "\tcompany\tcommon_shares\t\t")) << told.out;
    EXPECT_TRUE(contains(told.out, "\t14000500000\ttyped\t\n")) << told.out;
    EXPECT_TRUE(contains(run({"history", "AAPL", "--figure", "Common Shares"}).out, "14000500000"));
    const auto filed =
        run({"facts", facts("AAPL"), "--symbol", "AAPL", "--format", "json", "--verbose"});
    EXPECT_TRUE(contains(filed.out, "\"table\": \"company\", \"figure\": \"common_shares\""))
        << filed.out;
    EXPECT_TRUE(contains(filed.out, "\"stored\": \"14000500000\"")) << filed.out;
    const auto setting = run({"history", "AAPL", "--figure", "show_tax_rate"});
    EXPECT_TRUE(contains(setting.out, "  Show Tax Rate  ")) << setting.out;
    // A key of two tables is of both.
    const auto both = run({"history", "AAPL", "--figure", "revenue_musd", "--format", "tsv"});
    EXPECT_TRUE(contains(both.out, "\tyearly\trevenue_musd\t2025\t")) << both.out;
    EXPECT_TRUE(contains(both.out, "\tquarterly\trevenue_musd\t2025-")) << both.out;
    EXPECT_FALSE(contains(both.out, "net_income"));
}

TEST_F(CheckingCommands, ADoubtfulFigureIsMarked) {
    write("doubt.json",
          R"({"cik": 1, "entityName": "Made Up", "facts": {"us-gaap": {"ProfitLoss": {"units":
             {"USD": [{"start": "2023-01-01", "end": "2023-12-31", "val": 7000000, "fy": 2023,
             "fp": "FY", "form": "10-K", "filed": "2024-02-20",
             "accn": "0000000001-24-000001"}]}}}}})");
    const auto people = run({"facts", "doubt.json", "--symbol", "MADE"});
    EXPECT_TRUE(contains(people.out, "  doubtful: ")) << people.out << people.err;
    const auto tsv = run({"facts", "doubt.json", "--symbol", "MADE", "--format", "tsv"});
    EXPECT_TRUE(contains(tsv.out, "\tdoubtful\n")) << tsv.out;
    EXPECT_TRUE(contains(tsv.out, "\ttrue\n")) << tsv.out;
    const auto json = run({"facts", "doubt.json", "--symbol", "MADE", "--format", "json"});
    EXPECT_TRUE(contains(json.out, "\"doubtful\": \"true\"")) << json.out;
}

TEST_F(CheckingCommands, HistoryTakesAMomentToTheMinuteAsWell) {
    emptyRevenue(2);
    execute("UPDATE change_group SET changed_at = '2026-11-23T08:35:29Z'");
    const auto groups = [&](const char* option, const char* moment) {
        return lines(run({"history", "AAPL", "--origin", "typed", option, moment}).out);
    };
    EXPECT_EQ(groups("--from", "2026-11-23T08:35Z"), 2);
    EXPECT_EQ(groups("--from", "2026-11-23T08:36Z"), 1);
    EXPECT_EQ(groups("--until", "2026-11-23T08:35Z"), 1);
    EXPECT_EQ(groups("--until", "2026-11-23T08:35:30Z"), 2);
    EXPECT_EQ(groups("--from", "2026-11-23"), 2);
}

TEST_F(CheckingCommands, HistoryTellsItsDamage) {
    emptyRevenue(2);
    execute(
        "UPDATE figure_change SET before = before || '1' WHERE company_id = 1 AND revision = 2");
    const auto told = run({"history", "AAPL", "--figure", "YRevenueSeries"});
    EXPECT_EQ(told.code, 1);
    EXPECT_TRUE(contains(told.err, "history")) << told.err;
    EXPECT_EQ(run({"history", "NVDA"}).code, 0);
}

TEST_F(CheckingCommands, HistoryTellsWhoItWasWithoutAnEnvironment) {
    const passwd* account = ::getpwuid(::geteuid());
    if (account == nullptr)
        GTEST_SKIP() << "This user has no name.";
    writeCompany("X", "X");
    QProcess process;
    prepare(process, {"import", "in"});
    QProcessEnvironment without = environment();
    for (const char* name : {"USER", "LOGNAME", "USERNAME"})
        without.remove(QLatin1String(name));
    process.setProcessEnvironment(without);
    process.start();
    ASSERT_EQ(ended(process).code, 0);
    const auto told = run({"history", "X", "--format", "tsv"});
    EXPECT_TRUE(contains(told.out, "\t" + std::string(account->pw_name) + "@")) << told.out;
}

TEST_F(CheckingCommands, FactsLeaveALockedCompanyAlone) {
    emptyRevenue(2);
    change(1,
           [](CompanyRecord& record) { record.get_Settings()->put(setting::lockBasicInfo, true); });
    const auto refused = run({"facts", facts("AAPL"), "--symbol", "AAPL", "--accept", "new"});
    EXPECT_EQ(refused.code, 4);
    EXPECT_TRUE(contains(refused.err, "are locked; nothing was changed.")) << refused.err;
}

// A save would pass for one of somebody who has seen the damage.
TEST_F(CheckingCommands, FactsLeaveADamagedCompanyAlone) {
    emptyRevenue(2);
    execute("UPDATE company SET \"TotalCap\" = 777 WHERE id = 1");
    const auto refused = run({"facts", facts("AAPL"), "--symbol", "AAPL", "--accept", "new"});
    EXPECT_EQ(refused.code, 4);
    EXPECT_TRUE(contains(refused.err, "is not as it was saved")) << refused.err;
    EXPECT_TRUE(contains(refused.err, "Nothing was changed.")) << refused.err;
    EXPECT_EQ(run({"facts", facts("NVDA"), "--symbol", "NVDA"}).code, 0);
    EXPECT_EQ(elementOf(*store()->load(1).value().record, Datum::YRevenueSeries, 2), 0);
    EXPECT_TRUE(contains(run({"check", "AAPL", "--format", "tsv"}).out, "\tchecksum\t"));
}

TEST_F(CheckingCommands, WhatIsNotStoredAsItWasSavedIsFound) {
    execute("UPDATE series SET value = value + 1 WHERE company_id = 1 AND "
            "series = 'YEPSSeries' AND element = 2");
    const auto found = run({"check", "AAPL", "--format", "tsv"});
    EXPECT_EQ(found.code, 1);
    EXPECT_TRUE(contains(found.out, "\nAAPL\tsure\tchecksum\t")) << found.out;
    EXPECT_EQ(run({"show", "AAPL"}).code, 1);
    const auto exported = run({"export", "AAPL", "in"});
    EXPECT_EQ(exported.code, 1);
    EXPECT_TRUE(contains(exported.err, "is not as it was saved")) << exported.err;
    EXPECT_EQ(run({"export", "NVDA", "in"}).code, 0);
}

TEST_F(CheckingCommands, ADataSheetIsWrittenWithoutADisplay) {
    const auto done = run({"show", "AAPL", "--pdf", "a.pdf", "--paper", "letter"});
    EXPECT_EQ(done.code, 0) << done.err;
    EXPECT_EQ(done.out + done.err, "");
    EXPECT_TRUE(bytes("a.pdf").startsWith("%PDF-"));
    EXPECT_EQ(bytes("a.pdf").count("/Type /Page\n"), 2);
    EXPECT_TRUE(bytes("a.pdf").contains("/MediaBox [0 0 612.000000 792.000000]"));
    EXPECT_EQ(run({"show", "AAPL", "--pdf=a4.pdf", "--paper=a4"}).code, 0);
    EXPECT_TRUE(bytes("a4.pdf").contains("/MediaBox [0 0 595.000000 842.000000]"));
    EXPECT_EQ(run({"show", "AAPL", "--pdf", "no/where.pdf"}).code, 4);
    EXPECT_EQ(run({"show", "AAPL", "--paper", "a5", "--pdf", "x.pdf"}).code, 2);
}

TEST_F(CheckingCommands, ADataSheetTakesThePlaceOfAFileAndOfNothingElse) {
    write("old.pdf", "an old one");
    EXPECT_EQ(run({"show", "AAPL", "--pdf", "old.pdf"}).code, 0);
    EXPECT_TRUE(bytes("old.pdf").startsWith("%PDF-"));
    ASSERT_EQ(mkfifo(path("pipe").toLocal8Bit().constData(), 0600), 0);
    const auto refused = run({"show", "AAPL", "--pdf", "pipe"});
    EXPECT_EQ(refused.code, 4);
    EXPECT_EQ(refused.err, "vkr: pipe is no file that a data sheet could replace. Nothing was "
                           "written.\n");
    struct stat info {};
    ASSERT_EQ(::lstat(path("pipe").toLocal8Bit().constData(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
}

} // namespace
} // namespace vkr::test
