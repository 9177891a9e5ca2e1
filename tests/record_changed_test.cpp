// SPDX-License-Identifier: MIT
#include "company/period_moves.hpp"
#include "platform/text.hpp"
#include "support/elements.hpp"
#include "support/entry_scene.hpp"
#include "support/field_steps.hpp"
#include "support/samples.hpp"
#include "support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <stdexcept>
#include <tuple>

namespace vkr {
namespace {

// The component holding a full company, of which somebody else changes the record.
class RecordChanged : public testing::Test {
  protected:
    void SetUp() override {
        company_ = fullCompany();
        company_->get_Settings()->put(setting::currencySymbol, "$");
        record_ = std::make_shared<ScriptedRecord>(company_);
        scene_.load(record_);
        record_->log.clear();
    }

    void change(Datum series, int element, double figure) {
        test::putElement(*company_, series, element, figure);
    }

    [[nodiscard]] std::vector<std::string> written() const {
        auto all = record_->logged("write");
        for (const auto& one : record_->logged("put"))
            all.push_back(one);
        for (const auto& one : record_->logged("call"))
            all.push_back(one);
        return all;
    }

    std::shared_ptr<CompanyRecord> company_;
    std::shared_ptr<ScriptedRecord> record_;
    EntryScene scene_;
};

TEST_F(RecordChanged, ShowsEveryKindOfDatumAnew) {
    company_->put_Name("Other Inc.");
    company_->put_TotalDebt(77);
    company_->put_PriceUpdatedDate(*makeDate(2025, 3, 4));
    change(Datum::YRevenueSeries, 1, 4321);
    change(Datum::QRevenueSeries, 0, 987);
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.text("txtName"), "Other Inc.");
    EXPECT_EQ(scene_.text("txtTotalDebt"), "77.00");
    EXPECT_EQ(scene_.text("txtPriceUpdate"), "Mar/04/2025");
    EXPECT_EQ(scene_.text("txtSales", 9), "4321.00");
    EXPECT_EQ(scene_.text("txtRevenue", 0), "987.00");
}

TEST_F(RecordChanged, WritesNothing) {
    company_->put_Name("Other Inc.");
    change(Datum::QEPSSeries, 0, 9);
    company_->put_LastUpdate(Date{});
    scene_.entry->recordChanged();
    EXPECT_EQ(written(), std::vector<std::string>());
}

TEST_F(RecordChanged, KeepsAUnitThatTheRecordHasNoMore) {
    const auto setUnit = [&](int unit) {
        company_->get_Settings()->put(setting::unit, unit);
        scene_.entry->recordChanged();
        return scene_.desktop.control("lblYOption").caption();
    };
    EXPECT_EQ(setUnit(3), "Pre-Tax Income (K)");
    EXPECT_EQ(setUnit(0), "Pre-Tax Income (K)");
    record_->failing = {"get intUnit"};
    EXPECT_EQ(setUnit(9), "Pre-Tax Income (K)");
    record_->failing.clear();
    EXPECT_EQ(setUnit(9), "Pre-Tax Income (B)");
}

TEST_F(RecordChanged, LeavesTabFocusScrollingAndTheDirtyFlagAlone) {
    scene_.entry->put_CurrentTab(toQuarterly);
    scene_.desktop.click("txtRevenue(2)");
    auto& bar = scene_.form().get<ScrollBar>("vscrQuarterly");
    bar.setValue(bar.maximum());
    const int scrolled = bar.value();
    change(Datum::QRevenueSeries, 2, 5);
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.entry->get_CurrentTab(), toQuarterly);
    EXPECT_EQ(scene_.form().activeControl()->id(), "txtRevenue(2)");
    EXPECT_EQ(bar.value(), scrolled);
    EXPECT_FALSE(scene_.entry->get_blnDirty());
    EXPECT_EQ(scene_.text("txtRevenue", 2), "5.00");
    EXPECT_EQ(scene_.field("txtRevenue", 2).selLength(), 4);
}

TEST_F(RecordChanged, TakesTheFocusFromACellThatTheRecordNoLongerReaches) {
    scene_.entry->put_CurrentTab(toYearly);
    scene_.desktop.click("txtSales(0)");
    ASSERT_EQ(scene_.desktop.focusedId(), "txtSales(0)");
    record_->missing = 3;
    scene_.entry->recordChanged();
    EXPECT_FALSE(scene_.field("txtSales", 0).canTakeFocus());
    EXPECT_NE(scene_.desktop.focusedId(), "txtSales(0)");
    EXPECT_TRUE(scene_.form().activeControl()->canTakeFocus());
}

TEST_F(RecordChanged, KeepsWhatIsBeingTypedOverTheFigureThatIsStoredNow) {
    scene_.typeAt("txtTotalDebt", "^a{DEL}55");
    company_->put_TotalDebt(77);
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.text("txtTotalDebt"), "55");
    EXPECT_FALSE(scene_.field("txtTotalDebt").isUnstored());
    scene_.desktop.type("{ESC}");
    EXPECT_EQ(scene_.text("txtTotalDebt"), "77.00");
    scene_.desktop.type("^a{DEL}56{TAB}");
    EXPECT_EQ(company_->get_TotalDebt(), 56);
}

TEST_F(RecordChanged, StoresATypedTextThatLooksLikeTheFigureThatIsStoredNow) {
    scene_.typeAt("txtTotalDebt", "^a{DEL}77.00");
    company_->put_TotalDebt(77.001);
    scene_.entry->recordChanged();
    scene_.desktop.type("{TAB}");
    EXPECT_EQ(company_->get_TotalDebt(), 77);
}

TEST_F(RecordChanged, StoresALineBreakBehindANoteThatIsStoredNow) {
    scene_.entry->put_CurrentTab(toOther);
    scene_.typeAt("txtNotes", "^a{DEL}abc");
    company_->put_Notes("abc");
    scene_.entry->recordChanged();
    scene_.desktop.type("{ENTER}");
    const std::string typed = scene_.text("txtNotes");
    ASSERT_NE(typed, "abc");
    scene_.entry->put_CurrentTab(toCompany);
    EXPECT_EQ(company_->get_Notes(), typed);
}

TEST_F(RecordChanged, KeepsATextThatCouldNotBeStored) {
    scene_.enter("txtPriceUpdate", "someday");
    ASSERT_TRUE(scene_.field("txtPriceUpdate").isUnstored());
    company_->put_Name("Other Inc.");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.text("txtPriceUpdate"), "someday");
    EXPECT_TRUE(scene_.field("txtPriceUpdate").isUnstored());
}

TEST_F(RecordChanged, TakesATextThatCouldNotBeStoredAlongWithItsYear) {
    record_->failing.insert("write YRevenueSeries");
    scene_.entry->put_CurrentTab(toYearly);
    scene_.enter("txtSales(5)", "123");
    ASSERT_TRUE(scene_.field("txtSales", 5).isUnstored());
    record_->failing.clear();
    const auto year = company_->get_LastFY();
    for (const DatumRow& row : datumTable())
        if (row.period == DatumPeriod::year) {
            Variant series = company_->stored(row.datum);
            for (int i = 10; i > 0; --i)
                series.array().setNumber(i, series.array().number(i - 1));
            writeDatum(*company_, row.datum, series);
        }
    company_->put_LastFY(static_cast<std::int16_t>(year + 1));
    scene_.entry->recordChanged();
    EXPECT_FALSE(scene_.field("txtSales", 5).isUnstored());
    EXPECT_EQ(scene_.text("txtSales", 4), "123");
    EXPECT_TRUE(scene_.field("txtSales", 4).isUnstored());
}

TEST_F(RecordChanged, KeepsADoubtWhileItsFigureStays) {
    scene_.desktop.setClipboardText("5M");
    scene_.typeAt("txtTotalDebt", "^a^v{TAB}");
    const FieldMark doubt = scene_.field("txtTotalDebt").mark();
    ASSERT_EQ(doubt.kind, MarkKind::doubtful);
    company_->put_Name("Other Inc.");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.field("txtTotalDebt").mark(), doubt);
    company_->put_TotalDebt(6);
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.field("txtTotalDebt").mark(), FieldMark());
}

TEST_F(RecordChanged, KeepsTheCaretWhereItIs) {
    scene_.typeAt("txtTotalDebt", "^a{DEL}12345{LEFT 2}");
    company_->put_Name("Other Inc.");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.field("txtTotalDebt").selStart(), 3);
    scene_.desktop.type("+{LEFT}");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.field("txtTotalDebt").selText(), "3");
}

// What is being typed belongs to its period: where another one stands in its cell by now, it is
// told as not stored.
TEST_F(RecordChanged, TakesWhatIsBeingTypedAlongWithItsPeriod) {
    struct Row {
        TABObject tab;
        const char* cell;
        Datum series;
        int row; // that shows it afterwards
    };
    for (const auto& [tab, cell, series, row] :
         {Row{toYearly, "txtSales(9)", Datum::YRevenueSeries, 8},
          Row{toQuarterly, "txtRevenue(0)", Datum::QRevenueSeries, 1}}) {
        EntryScene scene;
        const auto company = fullCompany();
        company->put_LastQDate(company->get_LastQDateForGrid());
        scene.load(company);
        scene.entry->put_CurrentTab(tab);
        scene.typeAt(cell, "^a{DEL}123");
        for (const DatumRow& one : datumTable())
            if (one.period == rowOf(series).period)
                writeDatum(*company, one.datum, movedOn(company->stored(one.datum), 1));
        if (tab == toYearly) {
            company->put_LastFY(static_cast<std::int16_t>(company->get_LastFY() + 1));
        } else {
            company->put_LastQDateForGrid(addQuarters(company->get_LastQDateForGrid(), 1));
            company->put_LastQDate(company->get_LastQDateForGrid());
        }
        scene.entry->recordChanged();
        const std::string name(std::string_view(cell).substr(0, std::string_view(cell).find('(')));
        EXPECT_NE(test::textOf(scene, cell), "123");
        EXPECT_EQ(scene.text(name, row), "123");
        EXPECT_EQ(scene.entry->unstoredFields().size(), 1U);
        EXPECT_TRUE(scene.field(name, row).isUnstored());
    }
}

TEST_F(RecordChanged, KeepsChoicesThatNoCommitHasWritten) {
    scene_.entry->put_CurrentTab(toOptions);
    scene_.enter("txtCurSymbol", "EUR");
    scene_.desktop.click("optCommEq(1)");
    company_->put_Name("Other Inc.");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.text("txtCurSymbol"), "EUR");
    EXPECT_TRUE(scene_.form().get<OptionButton>("optCommEq", 1).value());
}

TEST_F(RecordChanged, KeepsChoicesThatOnlyACopyHas) {
    scene_.entry->put_CurrentTab(toOptions);
    scene_.desktop.click("optCommEq(1)");
    scene_.entry->commitInto(company_->clone());
    scene_.entry->recordChanged();
    EXPECT_TRUE(scene_.form().get<OptionButton>("optCommEq", 1).value());
}

TEST_F(RecordChanged, TakesOverSettingsThatAreOthersNow) {
    company_->get_Settings()->put(setting::currencySymbol, "GBP");
    company_->get_Settings()->put(setting::bookValue, true);
    company_->get_Settings()->put(setting::taxRate, true);
    company_->get_Settings()->put(setting::lockBasicInfo, true);
    company_->get_Settings()->put(setting::unit, std::int16_t{3});
    company_->put_TotalDebt(2);
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.text("txtCurSymbol"), "GBP");
    EXPECT_TRUE(scene_.form().get<OptionButton>("optCommEq", 1).value());
    EXPECT_TRUE(scene_.form().get<OptionButton>("optPTI", 1).value());
    EXPECT_EQ(scene_.form().get<Label>("lblYOption").caption(), "Tax Rate (%)");
    EXPECT_TRUE(scene_.form().get<CheckBox>("chkLockInfo").value());
    EXPECT_TRUE(scene_.field("txtName").locked());
    EXPECT_EQ(scene_.text("txtTotalDebt"), "2000.00");
}

TEST_F(RecordChanged, ShowsNoPeriodWhereItIsNoneOfTheList) {
    auto& list = scene_.form().get<ComboBox>("cmbReportingPeriod");
    const int entries = static_cast<int>(list.list().size());
    for (const int period : {entries, -1, -2}) {
        company_->get_ReportingPeriod()->put(setting::leadPeriod, 0);
        scene_.entry->recordChanged();
        ASSERT_EQ(list.listIndex(), 0);
        company_->get_ReportingPeriod()->put(setting::leadPeriod, period);
        scene_.entry->recordChanged();
        EXPECT_EQ(list.listIndex(), -1) << period;
        EXPECT_EQ(list.text(), "") << period;
    }
    company_->get_ReportingPeriod()->put(setting::leadPeriod, entries - 1);
    scene_.entry->recordChanged();
    EXPECT_EQ(list.listIndex(), entries - 1);
}

TEST_F(RecordChanged, KeepsAWholeSelectionWhole) {
    company_->put_Name("X");
    scene_.load(record_);
    scene_.desktop.clickTab(toOther);
    scene_.desktop.clickTab(toCompany);
    scene_.desktop.click("txtName");
    ASSERT_EQ(scene_.field("txtName").selText(), "X");
    company_->put_Name("Other Inc.");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.field("txtName").selText(), "Other Inc.");
    scene_.desktop.type("{HOME}");
    company_->put_Name("Another Inc.");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.field("txtName").selStart(), 12);
    EXPECT_EQ(scene_.field("txtName").selLength(), 0);
    for (const auto& [before, keys, after] :
         {std::tuple{"Another Inc.", "{HOME}+{RIGHT}", "Other Inc."},
          std::tuple{"", "{HOME}", "Another Inc."}}) {
        company_->put_Name(before);
        scene_.entry->recordChanged();
        scene_.desktop.type(keys);
        company_->put_Name(after);
        scene_.entry->recordChanged();
        EXPECT_EQ(scene_.field("txtName").selStart(), textLength(after)) << before;
        EXPECT_EQ(scene_.field("txtName").selLength(), 0) << before;
    }
}

// A paste that was cut, and is not left yet.
TEST_F(RecordChanged, KeepsTheDoubtAboutWhatIsBeingTyped) {
    scene_.entry->put_CurrentTab(toOther);
    scene_.desktop.setClipboardText(std::string(20, '1') + "END");
    scene_.typeAt("txtZip", "^a^v");
    const FieldMark doubt = scene_.field("txtZip").mark();
    ASSERT_EQ(doubt.kind, MarkKind::doubtful);
    company_->put_Zip("other");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.text("txtZip"), std::string(20, '1'));
    EXPECT_EQ(scene_.field("txtZip").mark(), doubt);
    scene_.desktop.type("{TAB}");
    EXPECT_EQ(company_->get_Zip(), std::string(20, '1'));
}

TEST_F(RecordChanged, ShowsTheCurrencyOfOthersBesideEveryAmount) {
    company_->get_Settings()->put(setting::currencySymbol, "GBP");
    scene_.entry->recordChanged();
    EXPECT_EQ(scene_.form().get<Label>("lblCurrency", 3).caption(), "GBP");
}

// Trailing earnings that were typed belong to their quarter while that stays where it is.
TEST_F(RecordChanged, LeavesTheEarningsOfTheQuarterThatTheSpinnerCameFrom) {
    for (const bool quarterAdded : {false, true}) {
        EntryScene scene;
        const auto company = test::datedCompany();
        for (int quarter = 1; quarter <= 6; ++quarter)
            test::putElement(*company, Datum::QEPSSeries, quarter, 1);
        company->put_Last4QEPS(9.5);
        scene.load(company);
        scene.entry->put_CurrentTab(toQuarterly);
        scene.desktop.spin("spnQuarter", -1);
        ASSERT_EQ(company->get_Last4QEPS(), 4);
        company->put_Name("Other Inc.");
        if (quarterAdded) {
            company->put_LastQDateForGrid(*makeDate(2026, 12, 31));
            company->put_QEPSSeries(movedOn(company->get_QEPSSeries(), 1));
        }
        scene.entry->recordChanged();
        scene.desktop.spin("spnQuarter", quarterAdded ? 2 : 1);
        EXPECT_EQ(company->get_Last4QEPS(), quarterAdded ? 4 : 9.5);
    }
}

TEST_F(RecordChanged, NamesItsCellsByTheirYearsAndTellsTheHost) {
    int told = 0;
    scene_.entry->stateChanged = [&] { ++told; };
    const std::string before = scene_.field("txtSales", 9).accessibleName();
    company_->put_LastFY(static_cast<std::int16_t>(company_->get_LastFY() + 1));
    company_->get_Settings()->put(setting::unit, std::int16_t{9});
    scene_.entry->recordChanged();
    const std::string after = scene_.field("txtSales", 9).accessibleName();
    EXPECT_NE(after, before);
    EXPECT_NE(after.find(std::to_string(company_->get_LastFY())), std::string::npos) << after;
    EXPECT_NE(after.find("(B)"), std::string::npos) << after;
    EXPECT_EQ(told, 1);
    scene_.entry->stateChanged = nullptr;
}

TEST_F(RecordChanged, KnowsASuggestedDateThatIsBack) {
    struct Row {
        const char* field;
        Datum datum;
    };
    for (const auto& [field, datum] :
         {Row{"txtPriceUpdate", Datum::PriceUpdatedDate}, Row{"txtLastUpdate", Datum::LastUpdate},
          Row{"txtDateofLastFY", Datum::LastFYDate}, Row{"txtLastQDate", Datum::LastQDate}}) {
        SCOPED_TRACE(field);
        EntryScene scene;
        const auto company = std::make_shared<CompanyRecord>();
        scene.load(company);
        const Date suggested = readDate(*company, datum);
        ASSERT_EQ(scene.entry->suggestedDates().size(), 4U);
        test::typeOver(scene, field, scene.field(field).text());
        ASSERT_EQ(scene.entry->suggestedDates().size(), 3U);
        writeDate(*company, datum, addDays(suggested, -1));
        scene.entry->recordChanged();
        EXPECT_EQ(scene.entry->suggestedDates().size(), 3U);
        writeDate(*company, datum, suggested);
        scene.entry->recordChanged();
        EXPECT_EQ(scene.entry->suggestedDates().size(), 4U);
        test::typeAt(scene, field, "{TAB}");
        EXPECT_EQ(scene.entry->suggestedDates().size(), 4U) << "nothing was typed over it";
        writeDate(*company, datum, addDays(suggested, -1));
        scene.entry->recordChanged();
        EXPECT_EQ(scene.entry->suggestedDates().size(), 3U);
    }
}

TEST_F(RecordChanged, IsNothingWithoutARecord) {
    EntryScene scene;
    scene.entry->recordChanged();
    EXPECT_TRUE(scene.entry->changeRecord({}, {}));
}

TEST_F(RecordChanged, ManyDataAreChangedAsOneAction) {
    const DatumChange changes[] = {{Datum::YRevenueSeries, 1, {}, 11.0},
                                   {Datum::TotalDebt, {}, {}, 12.0}};
    EXPECT_EQ(scene_.entry->changeRecord(changes, {Origin::pasted, "Paste", ""}), std::nullopt);
    EXPECT_EQ(scene_.text("txtSales", 9), "11.00");
    EXPECT_EQ(scene_.text("txtTotalDebt"), "12.00");
    EXPECT_TRUE(scene_.entry->get_blnDirty());
}

TEST_F(RecordChanged, WhatARecordRefusesLeavesAllAsItWas) {
    record_->failing.insert("write TotalDebt");
    const auto before = company_->clone();
    const DatumChange changes[] = {{Datum::YRevenueSeries, 1, {}, 11.0},
                                   {Datum::TotalDebt, {}, {}, 12.0}};
    EXPECT_TRUE(scene_.entry->changeRecord(changes, {}));
    EXPECT_TRUE(sameAs(*before, *company_));
    EXPECT_FALSE(scene_.entry->get_blnDirty());
}

TEST_F(RecordChanged, ChangesNothingUnderTheLock) {
    scene_.entry->put_CurrentTab(toCompany);
    company_->get_Settings()->put(setting::lockBasicInfo, true);
    scene_.entry->recordChanged();
    const auto before = company_->clone();
    const DatumChange changes[] = {{Datum::TotalDebt, {}, {}, 12.0}};
    const auto refusal = scene_.entry->changeRecord(changes, {});
    ASSERT_TRUE(refusal);
    EXPECT_FALSE(refusal->empty());
    EXPECT_TRUE(sameAs(*before, *company_));
}

TEST_F(RecordChanged, TrailingEarningsFollowQuartersThatAreChanged) {
    EntryScene scene;
    const auto company = std::make_shared<CompanyRecord>();
    company->put_LastQDate(*makeDate(2026, 9, 30));
    company->put_LastQDateForGrid(*makeDate(2026, 9, 30));
    scene.load(company);
    std::vector<DatumChange> changes;
    for (int quarter = 0; quarter < 4; ++quarter)
        changes.push_back({Datum::QEPSSeries, quarter, {}, 1.5});
    EXPECT_EQ(scene.entry->changeRecord(changes, {Origin::pasted, "", ""}), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 6);
    EXPECT_EQ(scene.text("txtLast4QEPS"), "6.00");
}

// Only what they are worked out of counts.
TEST_F(RecordChanged, TypedTrailingEarningsStayWhereOtherDataIsChanged) {
    EntryScene scene;
    const auto company = test::datedCompany();
    for (int quarter = 0; quarter < 4; ++quarter)
        test::putElement(*company, Datum::QEPSSeries, quarter, 1);
    scene.load(company);
    ASSERT_EQ(company->get_Last4QEPS(), 4);
    test::typeOver(scene, "txtLast4QEPS", "9.5");
    const DatumChange debt[] = {{Datum::TotalDebt, {}, {}, 12.0}};
    EXPECT_EQ(scene.entry->changeRecord(debt, {}), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 9.5);
    // What somebody else has changed does not count as a change of the next one.
    test::putElement(*company, Datum::QEPSSeries, 0, 2);
    scene.entry->recordChanged();
    test::typeOver(scene, "txtYEPS(9)", "3");
    EXPECT_EQ(company->get_Last4QEPS(), 9.5);
    const DatumChange earnings[] = {{Datum::QEPSSeries, 1, {}, 2.0}};
    EXPECT_EQ(scene.entry->changeRecord(earnings, {}), std::nullopt);
    EXPECT_EQ(company->get_Last4QEPS(), 6);
}

// Also what goes by other data: names of cells, shades, captions.
TEST_F(RecordChanged, ShowsWhatLoadingWouldShow) {
    const auto shown = [](const EntryScene& scene) {
        std::vector<std::string> lines;
        for (const auto& control : scene.form().controls()) {
            const auto* field = dynamic_cast<const TextField*>(control.get());
            lines.push_back(
                control->id() + "|" + (control->hasCaption() ? control->caption() : std::string()) +
                "|" + (field != nullptr ? field->text() : std::string()) + "|" +
                control->accessibleName() + "|" + std::to_string(control->backColor()) +
                (control->enabled() ? "" : " disabled") + (control->visible() ? "" : " hidden"));
        }
        return lines;
    };
    for (const char* name : {"NVDA", "SNOW"}) {
        const auto other = test::sample(name);
        EntryScene loaded;
        loaded.load(other);
        for (const DatumRow& row : datumTable())
            writeDatum(*company_, row.datum, readDatum(*other, row.datum));
        scene_.entry->recordChanged();
        const auto now = shown(scene_);
        const auto then = shown(loaded);
        ASSERT_EQ(now.size(), then.size());
        for (std::size_t i = 0; i < now.size(); ++i)
            EXPECT_EQ(now[i], then[i]) << name;
    }
}

TEST_F(RecordChanged, StoresWhatIsBeingTypedBeforeAHostChangesOtherFigures) {
    scene_.typeAt("txtName", "Typed");
    EXPECT_EQ(scene_.entry->changeRecord(std::vector<DatumChange>{{Datum::TotalDebt, {}, {}, 7.0}},
                                         {Origin::pasted, "", ""}),
              std::nullopt);
    EXPECT_EQ(company_->get_Name(), "Typed");
    EXPECT_EQ(company_->get_TotalDebt(), 7);
}

// --- the keys ------------------------------------------------------------------------------------

class HistoryKeys : public RecordChanged {
  protected:
    void listen() {
        scene_.entry->historyAsked = [this](HistoryStep step) {
            asked_ += step == HistoryStep::undo ? 'u' : 'r';
            return answer_;
        };
    }
    // Brings the focus there; what it shows.
    std::string focusedTotalDebt() {
        scene_.desktop.click("txtTotalDebt");
        return scene_.text("txtTotalDebt");
    }

    std::string asked_;
    bool answer_ = true;
};

TEST_F(HistoryKeys, AskTheHostWhereTheFieldHasNoEditsOfItsOwn) {
    listen();
    scene_.typeAt("txtTotalDebt", "^z^y^+z");
    EXPECT_EQ(asked_, "urr");
    EXPECT_TRUE(scene_.entry->get_blnDirty());
}

TEST_F(HistoryKeys, AskTheHostAtAButton) {
    listen();
    scene_.entry->put_CurrentTab(toYearly);
    scene_.form().get<CommandButton>("cmdAddYear").setFocus();
    scene_.desktop.type("^z");
    EXPECT_EQ(asked_, "u");
}

TEST_F(HistoryKeys, AreTheFieldsOwnWhileItIsTypedIn) {
    listen();
    const std::string shown = focusedTotalDebt();
    scene_.desktop.type("5^z");
    EXPECT_EQ(scene_.text("txtTotalDebt"), shown);
    EXPECT_EQ(asked_, "");
    scene_.desktop.type("^z");
    EXPECT_EQ(asked_, "u");
}

TEST_F(HistoryKeys, GoOneStepInTheFieldAndNoneAtTheHost) {
    listen();
    focusedTotalDebt();
    scene_.desktop.type("7{BACKSPACE}8^z");
    EXPECT_EQ(scene_.text("txtTotalDebt"), "");
    scene_.desktop.type("^y^+z"); // which this desktop's fields don't know
    EXPECT_EQ(asked_, "");
}

// What was taken back there is none of the next field's.
TEST_F(HistoryKeys, AskTheHostInTheFieldBehindOneThatTookBack) {
    listen();
    scene_.typeAt("txtTotalDebt", "5^z{TAB}^y");
    EXPECT_EQ(asked_, "r");
}

TEST_F(HistoryKeys, AreNoOthers) {
    listen();
    scene_.typeAt("txtName", "zZyY^+t^+y^t+{F5}^{F5}");
    EXPECT_EQ(scene_.text("txtName"), "zZyY");
    EXPECT_EQ(asked_, "");
}

TEST_F(HistoryKeys, TakeBackAsAWholeWhatTheFieldCanNot) {
    listen();
    const std::string shown = focusedTotalDebt();
    scene_.desktop.type("5");
    scene_.field("txtTotalDebt").rewriteText("55"); // no edit that the field knows of
    scene_.desktop.type("^z");
    EXPECT_EQ(scene_.text("txtTotalDebt"), shown);
    EXPECT_EQ(asked_, "");
}

TEST_F(HistoryKeys, DoNotBringBackATextThatWasLeft) {
    listen();
    scene_.typeAt("txtTotalDebt", "^a{DEL}77{TAB}");
    scene_.typeAt("txtTotalDebt", "^z");
    EXPECT_EQ(scene_.text("txtTotalDebt"), "77.00"); // the host is asked, and has done nothing
    EXPECT_EQ(asked_, "u");
}

TEST_F(HistoryKeys, ChangeNothingWhereTheHostHasNoStep) {
    listen();
    answer_ = false;
    scene_.typeAt("txtTotalDebt", "^z");
    EXPECT_EQ(asked_, "u");
    EXPECT_FALSE(scene_.entry->get_blnDirty());
    scene_.entry->historyAsked = [](HistoryStep) -> bool { throw std::runtime_error("no step"); };
    scene_.desktop.type("^z");
    EXPECT_FALSE(scene_.entry->get_blnDirty());
}

TEST_F(HistoryKeys, AskNobodyUnderTheLock) {
    listen();
    company_->get_Settings()->put(setting::lockBasicInfo, true);
    scene_.entry->recordChanged();
    scene_.typeAt("txtTotalDebt", "^z^y");
    scene_.entry->step(HistoryStep::undo);
    EXPECT_EQ(asked_, "");
}

TEST_F(HistoryKeys, ComeBeforeAShortcutOfTheHost) {
    scene_.desktop.addHostShortcut("^z");
    scene_.desktop.addHostShortcut("^y");
    scene_.typeAt("txtTotalDebt", "^y");
    EXPECT_EQ(scene_.desktop.hostShortcutsFired(), 1); // nobody listens: the host's
    listen();
    scene_.desktop.type("^y^z");
    EXPECT_EQ(scene_.desktop.hostShortcutsFired(), 1);
    EXPECT_EQ(asked_, "ru");
}

TEST_F(HistoryKeys, AreTheHostsMenuToo) {
    listen();
    const std::string shown = focusedTotalDebt();
    scene_.desktop.type("5");
    scene_.entry->step(HistoryStep::undo);
    EXPECT_EQ(scene_.text("txtTotalDebt"), shown);
    scene_.entry->step(HistoryStep::undo);
    scene_.entry->step(HistoryStep::redo);
    EXPECT_EQ(asked_, "ur");
    scene_.desktop.type("5");
    scene_.field("txtTotalDebt").rewriteText("55"); // no edit that the field knows of
    scene_.entry->step(HistoryStep::undo);
    EXPECT_EQ(scene_.text("txtTotalDebt"), shown);
    EXPECT_EQ(asked_, "ur");
}

} // namespace
} // namespace vkr
