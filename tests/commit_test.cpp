// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"
#include "company/company_base.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace vkr {
namespace {

using Names = std::vector<std::string>;
using Figures = std::vector<double>;

struct Commit : testing::Test {
    EntryScene scene;
    VKRDataEntry& entry = *scene.entry;
    std::shared_ptr<CompanyRecord> figures = std::make_shared<CompanyRecord>();
    std::shared_ptr<ScriptedRecord> record = std::make_shared<ScriptedRecord>(figures);

    void set(Datum datum, const Figures& newest) {
        Variant series = readSeries(*figures, datum);
        int element = newestOf(datum);
        for (const double figure : newest)
            series.array().setNumber(element++, figure);
        writeSeries(*figures, datum, series);
    }
    [[nodiscard]] Figures newest(Datum datum, int count) const {
        Figures found;
        for (int i = 0; i < count; ++i)
            found.push_back(element(datum, newestOf(datum) + i));
        return found;
    }
    [[nodiscard]] double element(Datum datum, int index) const {
        return readSeries(*figures, datum).array().number(index);
    }
    void load() { entry.put_objCompany(record); }
    // What a commit asks of the record.
    Names commit() {
        record->log.clear();
        static_cast<void>(entry.get_objCompany());
        return record->log;
    }
    // The element of the last year, or of the last quarter.
    static int newestOf(Datum datum) { return isYearly(datum) ? 1 : 0; }
    void chooseTaxRate() { figures->get_Settings()->put(setting::taxRate, true); }
    void chooseBookValue() { figures->get_Settings()->put(setting::bookValue, true); }
};

// --- order ---------------------------------------------------------------------------------------

Names onlyWrites(const Names& log) {
    Names found;
    std::copy_if(log.begin(), log.end(), std::back_inserter(found), [](const std::string& line) {
        return line.starts_with("write ") || line.starts_with("put ") ||
               line == "read ReportingPeriodEnd" || line == "read SettingsApply";
    });
    return found;
}

TEST_F(Commit, WritesTheHiddenTaxRatesThenQuarterPeriodAndSettings) {
    figures->get_Settings()->put(setting::leadPeriod, std::int16_t{1});
    load();
    EXPECT_EQ(
        onlyWrites(commit()),
        (Names{"write YTaxRateSeries", "write QTaxRateSeries", "write LastQDate",
               "put intLeadPeriod", "read ReportingPeriodEnd", "put strCurSymbol", "put blnBookVal",
               "put blnTaxRate", "put blnLockBasicInfo", "read SettingsApply"}));
}

TEST_F(Commit, WritesTheOtherMembersWhenTheirPartnersAreOnShow) {
    chooseTaxRate();
    chooseBookValue();
    load();
    EXPECT_EQ(
        onlyWrites(commit()),
        (Names{"write YCommEqSeries", "write YPTISeries", "write QPTISeries", "write LastQDate",
               "read ReportingPeriodEnd", "put strCurSymbol", "put blnBookVal", "put blnTaxRate",
               "put blnLockBasicInfo", "read SettingsApply"}));
}

TEST_F(Commit, RunsWhenTheRecordIsReadAndWhenDirtyIsCleared) {
    load();
    record->log.clear();
    entry.put_blnDirty(false);
    EXPECT_EQ(record->log, commit());
}

TEST_F(Commit, ChangesNothingElse) {
    const auto full = fullCompany();
    full->get_Settings()->put(setting::leadPeriod, std::int16_t{2});
    entry.put_objCompany(full);
    const auto before = full->clone();
    static_cast<void>(entry.get_objCompany());
    std::set<std::string> changed;
    for (const auto& change : differences(*before, *full))
        changed.insert(change.datum);
    EXPECT_EQ(changed, (std::set<std::string>{"YTaxRateSeries", "QTaxRateSeries"}));
    const auto once = full->clone();
    static_cast<void>(entry.get_objCompany());
    EXPECT_TRUE(sameAs(*once, *full)) << "a second commit";
}

TEST_F(Commit, ACopyTakesWhatTheRecordWouldAndTheRecordStaysAsItIs) {
    figures = fullCompany();
    record = std::make_shared<ScriptedRecord>(figures);
    load();
    entry.put_CurrentTab(toOptions);
    scene.desktop.click("optPTI(1)");
    scene.desktop.click("chkLockInfo");
    const auto before = figures->clone();
    const auto copy = figures->clone();
    record->log.clear();
    entry.commitInto(copy);
    EXPECT_TRUE(record->log.empty());
    EXPECT_TRUE(sameAs(*before, *figures));
    EXPECT_TRUE(copy->get_Settings()->get(setting::lockBasicInfo).toBoolean());
    EXPECT_EQ(entry.get_objCompany(), record);
    EXPECT_TRUE(sameAs(*copy, *figures));
}

TEST_F(Commit, WithoutARecordOrACopyNothingIsCopied) {
    const auto copy = fullCompany();
    const auto before = copy->clone();
    entry.commitInto(copy);
    EXPECT_TRUE(sameAs(*before, *copy));
    load();
    entry.commitInto(nullptr);
    EXPECT_EQ(entry.get_objCompany(), record);
}

TEST_F(Commit, WithoutARecordThereIsNone) {
    EXPECT_EQ(entry.get_objCompany(), nullptr);
    EXPECT_TRUE(scene.desktop.messages().empty());
}

// --- the pairs -----------------------------------------------------------------------------------

TEST_F(Commit, CommonEquityFollowsBookValueTimesShares) {
    chooseBookValue();
    set(Datum::YBookValSeries, {2.5, 3, 0, -1, 7, 0.5, 10, 1});
    set(Datum::YCSOSeries, {100, 0, 50, 50, 2, 10, 0.5, 1});
    set(Datum::YCommEqSeries, {1, 2, 3, 4, 5, 6, 7, 1.00000000000001});
    load();
    commit();
    EXPECT_EQ(element(Datum::YCommEqSeries, 1), 250);
    EXPECT_EQ(element(Datum::YCommEqSeries, 2), 2); // no shares
    EXPECT_EQ(element(Datum::YCommEqSeries, 3), 3); // no book value
    EXPECT_EQ(element(Datum::YCommEqSeries, 4), 4); // negative
    EXPECT_EQ(element(Datum::YCommEqSeries, 5), 14);
    EXPECT_EQ(element(Datum::YCommEqSeries, 6), 5);
    EXPECT_EQ(element(Datum::YCommEqSeries, 7), 5);
    EXPECT_EQ(element(Datum::YCommEqSeries, 8), 1) << "all fifteen digits count";
    EXPECT_EQ(element(Datum::YBookValSeries, 1), 2.5);
}

TEST_F(Commit, AResultThatIsTooLargeLeavesItsElementAlone) {
    chooseBookValue();
    set(Datum::YBookValSeries, {2.5, 1e200, 7});
    set(Datum::YCSOSeries, {100, 1e200, 2});
    set(Datum::YCommEqSeries, {1, 2, 3});
    load();
    commit();
    EXPECT_EQ(element(Datum::YCommEqSeries, 1), 250);
    EXPECT_EQ(element(Datum::YCommEqSeries, 2), 2);
    EXPECT_EQ(element(Datum::YCommEqSeries, 3), 14);
}

// A host's record may hold one.
TEST_F(Commit, AnInfiniteFigureThatIsHiddenGivesWay) {
    class Host final : public CompanyBase {
      public:
        [[nodiscard]] Variant get_YBookValSeries() const override { return ofYear(2); }
        [[nodiscard]] Variant get_YCSOSeries() const override { return ofYear(3); }
        [[nodiscard]] Variant get_YCommEqSeries() const override { return ofYear(equity); }
        void put_YCommEqSeries(const Variant& value) override { equity = value.array().number(1); }
        double equity = 0;

      private:
        static Variant ofYear(double figure) { return numberArray({0, figure}, 0); }
    };
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double held : {infinite, -infinite}) {
        const auto host = std::make_shared<Host>();
        host->equity = held;
        entry.put_objCompany(host);
        entry.put_CurrentTab(toOptions);
        scene.desktop.click("optCommEq(1)");
        static_cast<void>(entry.get_objCompany());
        EXPECT_EQ(host->equity, 6);
    }
}

TEST_F(Commit, CommonEquityIsNeverTurnedIntoBookValue) {
    set(Datum::YBookValSeries, {2.5});
    set(Datum::YCSOSeries, {100});
    set(Datum::YCommEqSeries, {999});
    load();
    commit();
    EXPECT_EQ(element(Datum::YCommEqSeries, 1), 999);
    EXPECT_EQ(element(Datum::YBookValSeries, 1), 2.5);
}

struct Pair {
    Datum netIncome;
    Datum income;
    Datum rate;
};
constexpr Pair pairs[] = {
    {Datum::YNetIncSeries, Datum::YPTISeries, Datum::YTaxRateSeries},
    {Datum::QNetIncSeries, Datum::QPTISeries, Datum::QTaxRateSeries},
};

TEST_F(Commit, TheTaxRateFollowsIncomeAfterAndBeforeTax) {
    for (const auto& pair : pairs) {
        set(pair.netIncome, {75, 75, 0, -75, 200});
        set(pair.income, {100, 0, 100, 100, 100});
        set(pair.rate, {1, 2, 3, 4, 5});
    }
    load();
    commit();
    for (const auto& pair : pairs) {
        // Negative results are stored.
        EXPECT_EQ(newest(pair.rate, 5), (Figures{25, 2, 3, 4, -100}));
        EXPECT_EQ(newest(pair.income, 5), (Figures{100, 0, 100, 100, 100}));
    }
}

TEST_F(Commit, PreTaxIncomeFollowsNetIncomeAndTheTaxRate) {
    chooseTaxRate();
    for (const auto& pair : pairs) {
        set(pair.netIncome, {75, 75, 0, -75, 75, 75});
        set(pair.rate, {25, 0, 25, 25, 100, 150});
        set(pair.income, {1, 2, 3, 4, 5, 6});
    }
    load();
    commit();
    for (const auto& pair : pairs) {
        // Of 100 % nothing is left.
        EXPECT_EQ(newest(pair.income, 6), (Figures{100, 2, 3, 4, 0, -150}));
        EXPECT_EQ(newest(pair.rate, 6), (Figures{25, 0, 25, 25, 100, 150}));
    }
}

// (1 - 8 / 10) x 100 is 19.999999999999996 in doubles.
TEST_F(Commit, WhatIsWorkedOutHasNoStrayDigits) {
    for (const auto& pair : pairs) {
        set(pair.netIncome, {8, 65, 7});
        set(pair.income, {10, 100, 9});
    }
    set(Datum::YBookValSeries, {1.1, 0.07});
    set(Datum::YCSOSeries, {1.1, 100});
    chooseBookValue();
    load();
    commit();
    for (const auto& pair : pairs)
        EXPECT_EQ(newest(pair.rate, 3), (Figures{20, 35, 22.2222222222222}));
    EXPECT_EQ(newest(Datum::YCommEqSeries, 2), (Figures{1.21, 7}));
}

// The income that the rate leads back to is a few last bits off, where rounding to fifteen digits
// goes the other way.
TEST_F(Commit, ARateThatLeadsBackToTheIncomeButForItsLastBitsStays) {
    for (const auto& pair : pairs) {
        set(pair.netIncome, {3.85, 14356.919564306727});
        set(pair.income, {3.9900507824645057, 14551.91522836685});
        set(pair.rate, {3.51, 1.34});
    }
    load();
    commit();
    for (const auto& pair : pairs)
        EXPECT_EQ(newest(pair.rate, 2), (Figures{3.51, 1.34}));
}

TEST_F(Commit, EveryElementOfTheSeriesIsBroughtUpToDate) {
    set(Datum::YNetIncSeries, std::vector<double>(10, 50));
    set(Datum::YPTISeries, std::vector<double>(10, 100));
    set(Datum::QNetIncSeries, std::vector<double>(35, 50));
    set(Datum::QPTISeries, std::vector<double>(35, 100));
    load();
    commit();
    for (int year = 1; year <= 10; ++year)
        EXPECT_EQ(element(Datum::YTaxRateSeries, year), 50) << year;
    EXPECT_EQ(element(Datum::YTaxRateSeries, 0), 0);
    for (int quarter = 0; quarter <= 34; ++quarter)
        EXPECT_EQ(element(Datum::QTaxRateSeries, quarter), 50) << quarter;
}

TEST_F(Commit, TheChoiceOnScreenDecidesNotTheOneOfTheRecord) {
    set(Datum::YNetIncSeries, {75});
    set(Datum::YTaxRateSeries, {25});
    set(Datum::YPTISeries, {1});
    load();
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("optPTI(1)");
    commit();
    EXPECT_EQ(element(Datum::YPTISeries, 1), 100);
    EXPECT_EQ(figures->get_Settings()->get(setting::taxRate), Variant(true));
}

TEST_F(Commit, UnderTheLockNoFigureIsWritten) {
    for (const bool rate : {false, true}) {
        SCOPED_TRACE(rate);
        figures->get_Settings()->put(setting::taxRate, rate);
        figures->get_Settings()->put(setting::lockBasicInfo, true);
        figures->get_Settings()->put(setting::currencySymbol, "$");
        chooseBookValue();
        for (const auto& pair : pairs) {
            set(pair.netIncome, {75});
            set(pair.income, {100});
            set(pair.rate, {30});
        }
        set(Datum::YBookValSeries, {2.5});
        set(Datum::YCSOSeries, {100});
        load();
        const auto before = figures->clone();
        for (const auto& operation : onlyWrites(commit()))
            EXPECT_FALSE(operation.ends_with("Series")) << operation;
        entry.put_blnDirty(false);
        EXPECT_TRUE(sameAs(*before, *figures));
        scene.desktop.click("chkLockInfo"); // off: the pairs are brought up to date again
        commit();
        EXPECT_FALSE(sameAs(*before, *figures));
        EXPECT_EQ(element(Datum::YCommEqSeries, 1), 250);
    }
}

// --- last quarter, reporting period, settings ----------------------------------------------------

TEST_F(Commit, TheLastQuarterIsThatOfTheFormWhateverTheRecordHasByNow) {
    figures->put_LastQDate(*makeDate(2026, 6, 30));
    load();
    figures->put_LastQDate(*makeDate(2025, 3, 31)); // by somebody else
    commit();
    EXPECT_EQ(figures->get_LastQDate(), *makeDate(2026, 6, 30));
}

TEST_F(Commit, TheLastQuarterKeepsTheDayThatWasLoaded) {
    figures->put_LastQDateForGrid(*makeDate(2026, 9, 26));
    figures->put_LastQDate(*makeDate(2026, 9, 26));
    for (const auto* pattern : {"MMM YYYY", "q", "YYYY"}) {
        entry.put_DateFormat(pattern);
        load();
        record->failing = {"read LastQDate"};
        commit();
        record->failing.clear();
        EXPECT_EQ(figures->get_LastQDate(), *makeDate(2026, 9, 26)) << pattern;
    }
    entry.put_DateFormat("MMM YYYY");
    load();
    scene.desktop.clickTab(toQuarterly);
    scene.desktop.spin("spnQuarter", -1);
    ASSERT_EQ(scene.text("txtLastQDate"), "Jun 2026");
    figures->put_LastQDate(*makeDate(2025, 3, 31));
    commit();
    EXPECT_EQ(figures->get_LastQDate(), *makeDate(2026, 6, 26)) << "of a quarter moved to";
}

TEST_F(Commit, ALastQuarterThatCouldNotBeReadIsNotWritten) {
    figures->put_LastQDate(*makeDate(2026, 6, 30));
    record->failing = {"read LastQDate"};
    load();
    record->failing.clear();
    commit();
    EXPECT_EQ(figures->get_LastQDate(), *makeDate(2026, 6, 30));
}

TEST_F(Commit, TheLastQuarterOnScreenIsWritten) {
    figures->put_LastQDate(*makeDate(2026, 6, 30));
    figures->put_LastQDateForGrid(*makeDate(2026, 6, 30));
    load();
    scene.field("txtLastQDate").setText("Sep/30/2026");
    commit();
    EXPECT_EQ(figures->get_LastQDate(), *makeDate(2026, 9, 30));
    EXPECT_EQ(figures->get_LastQDateForGrid(), *makeDate(2026, 6, 30));
}

TEST_F(Commit, ATextThatIsNoDateLeavesTheLastQuarter) {
    figures->put_LastQDate(*makeDate(2026, 6, 30));
    load();
    for (const auto* text : {"", "soon", "Feb/30/2026", "Jan/01/1900"}) {
        scene.field("txtLastQDate").setText(text);
        commit();
        EXPECT_EQ(figures->get_LastQDate(), *makeDate(2026, 6, 30)) << text;
    }
}

TEST_F(Commit, TheReportingPeriodIsWrittenByItsIndex) {
    load();
    entry.put_ShowReportingPeriod(true);
    scene.desktop.clickTab(toOther);
    for (const int period : {2, 0, 1}) {
        scene.desktop.pick("cmbReportingPeriod", period);
        commit();
        EXPECT_EQ(figures->get_ReportingPeriod()->get(setting::leadPeriod).toLong(), period);
    }
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(Commit, NoReportingPeriodLeavesTheRecordsAlone) {
    figures->get_Settings()->put(setting::leadPeriod, std::int16_t{11}); // none of the entries
    load();
    const auto log = commit();
    EXPECT_EQ(std::count(log.begin(), log.end(), "put intLeadPeriod"), 0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "read ReportingPeriodEnd"), 1);
    EXPECT_EQ(figures->get_ReportingPeriod()->get(setting::leadPeriod), Variant(std::int16_t{11}));
}

TEST_F(Commit, SettingsTakeWhatIsOnShow) {
    load();
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("optCommEq(1)");
    scene.desktop.click("optPTI(1)");
    scene.enter("txtCurSymbol", "SFr");
    scene.desktop.click("chkLockInfo");
    commit();
    const auto settings = figures->get_Settings();
    EXPECT_EQ(settings->get(setting::currencySymbol), Variant("SFr"));
    EXPECT_EQ(settings->get(setting::bookValue), Variant(true));
    EXPECT_EQ(settings->get(setting::taxRate), Variant(true));
    EXPECT_EQ(settings->get(setting::lockBasicInfo), Variant(true));

    scene.desktop.click("chkLockInfo");
    scene.desktop.click("optCommEq(0)");
    scene.desktop.click("optPTI(0)");
    commit();
    EXPECT_EQ(settings->get(setting::bookValue), Variant(false));
    EXPECT_EQ(settings->get(setting::taxRate), Variant(false));
    EXPECT_EQ(settings->get(setting::lockBasicInfo), Variant(false));
}

TEST_F(Commit, ARecordThatLendsItsSettingsTakesThemOverTogether) {
    record->lendsSettings = true;
    load();
    entry.put_CurrentTab(toOptions);
    scene.enter("txtCurSymbol", "SFr");
    for (const auto* id : {"optPTI(1)", "optCommEq(1)", "chkLockInfo"})
        scene.desktop.click(id);
    commit();
    const auto held = figures->get_Settings();
    EXPECT_EQ(held->get(setting::currencySymbol), Variant("SFr"));
    EXPECT_EQ(held->get(setting::bookValue), Variant(true));
    EXPECT_EQ(held->get(setting::taxRate), Variant(true));
    EXPECT_EQ(held->get(setting::lockBasicInfo), Variant(true));
}

TEST_F(Commit, ASettingThatTheLockCameUponIsNotWritten) {
    figures->get_Settings()->put(setting::currencySymbol, "$");
    load();
    const auto isWritten = [&] { return std::ranges::count(commit(), "put strCurSymbol") > 0; };
    EXPECT_TRUE(isWritten());
    entry.put_CurrentTab(toOptions);
    scene.typeAt("txtCurSymbol", "^aSFr");
    figures->get_Settings()->put(setting::lockBasicInfo, true);
    entry.recordChanged();
    EXPECT_FALSE(isWritten()) << "it is being typed";
    scene.desktop.type("{TAB}");
    scene.desktop.click("chkLockInfo");
    ASSERT_EQ(entry.unstoredFields().size(), 1U);
    EXPECT_FALSE(isWritten()) << "it is refused";
    EXPECT_EQ(figures->get_Settings()->get(setting::currencySymbol), Variant("$"));
}

TEST_F(Commit, ARecordThatListensTakesOverEachChoiceAtOnce) {
    record->lendsSettings = true;
    entry.put_objCompany(std::make_shared<ChangeJournal>(record));
    entry.put_CurrentTab(toOptions);
    scene.desktop.click("optCommEq(1)");
    EXPECT_EQ(figures->get_Settings()->get(setting::bookValue), Variant(true));
}

TEST_F(Commit, TheTextStillBeingTypedCountsOnceTheFieldIsLeft) {
    load();
    scene.typeAt("txtName", "Still typing");
    entry.leaveField();
    EXPECT_EQ(figures->get_Name(), "Still typing");
    EXPECT_EQ(scene.desktop.focusedId(), "txtName");
    EXPECT_EQ(scene.field("txtName").selText(), "Still typing");
    EXPECT_TRUE(entry.get_blnDirty());
}

// A host that saves meanwhile has saved what stood there.
TEST_F(Commit, WhatWasCommittedWhileItWasTypedAndIsTakenBackIsAChange) {
    struct Row {
        const char* field;
        TABObject tab;
        const char* typed;
        std::string (*stored)(const CompanyRecord& company);
    };
    const Row rows[] = {
        {"txtCurSymbol", toOptions, "EUR",
         [](const CompanyRecord& company) {
             return company.get_Settings()->get(setting::currencySymbol).toText();
         }},
        {"cmbReportingPeriod", toOther, "12 months",
         [](const CompanyRecord& company) {
             return company.get_ReportingPeriod()->get(setting::leadPeriod).toText();
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.field);
        figures = fullCompany();
        figures->get_ReportingPeriod()->put(setting::leadPeriod, 0);
        record = std::make_shared<ScriptedRecord>(figures);
        load();
        entry.put_ShowReportingPeriod(true);
        entry.put_blnDirty(false);
        const std::string before = row.stored(*figures);
        test::typeAt(scene, row.field, std::string("^a") + row.typed);
        entry.put_blnDirty(false);
        ASSERT_NE(row.stored(*figures), before);
        scene.desktop.type("{ESC}{TAB}");
        EXPECT_TRUE(entry.get_blnDirty());
        entry.put_blnDirty(false);
        EXPECT_EQ(row.stored(*figures), before);
        test::typeAt(scene, row.field, "{TAB}");
        EXPECT_FALSE(entry.get_blnDirty());
    }
}

TEST_F(Commit, LeavingWhereTheFocusIsElsewhereStoresNothing) {
    load();
    entry.leaveField();
    EXPECT_EQ(scene.desktop.focusedId(), "");
    EXPECT_FALSE(entry.get_blnDirty());
}

} // namespace
} // namespace vkr
