// SPDX-License-Identifier: MIT
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/form_fields.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <gtest/gtest.h>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

struct Loading : testing::Test {
    EntryScene scene;
    VKRDataEntry& entry = *scene.entry;

    std::shared_ptr<ScriptedRecord> load(std::shared_ptr<CompanyRecord> figures) {
        auto record = std::make_shared<ScriptedRecord>(std::move(figures));
        entry.put_objCompany(record);
        return record;
    }
    [[nodiscard]] std::string text(std::string_view name, int index = Control::noIndex) const {
        return scene.text(name, index);
    }
    [[nodiscard]] std::string caption(std::string_view id) const {
        return scene.desktop.control(id).caption();
    }
};

std::shared_ptr<CompanyRecord> emptyCompany() {
    return std::make_shared<CompanyRecord>();
}

void setSeries(CompanyRecord& record, Datum datum, double value) {
    Variant series = readSeries(record, datum);
    for (int i = series.array().lower(); i <= series.array().upper(); ++i)
        series.array().setNumber(i, value);
    writeSeries(record, datum, series);
}

// --- the order -----------------------------------------------------------------------------------

TEST_F(Loading, AsksTheRecordInTheOrderOfTheSteps) {
    const auto record = load(fullCompany());
    const Names steps{"get intUnit",
                      "write Last4QEPS",
                      "write QuarterlyFlag",
                      "read PrefDiv",
                      "read TaxRate",
                      "read CommDiv",
                      "read CommDivAlternate",
                      "read Notes",
                      "read VLSafety",
                      "read VLTimeliness",
                      "read Tel",
                      "read ContactPerson",
                      "read Internet",
                      "read Country",
                      "read Zip",
                      "read State",
                      "read City",
                      "read Address1",
                      "read Address2",
                      "read LastQDateForGrid",
                      "read LastQDate",
                      "read LastFYDate",
                      "read LastFY",
                      "write LastFY",
                      "read LastFYDate",
                      "read LastFY",
                      "read Exchange",
                      "read Industry",
                      "read Source",
                      "read ReportingPeriod",
                      "get intLeadPeriod",
                      "read DilutedShares",
                      "read CommShares",
                      "read PrefShares",
                      "read Institutional",
                      "read InsiderHolding",
                      "read TotalDebt",
                      "read TotalCap",
                      "read Last4QEPS",
                      "read ORBEPSProj",
                      "read PriceUpdatedDate",
                      "read LastUpdate",
                      "read PriceUpdatedDate",
                      "read LastUpdate",
                      "read DateOfSource",
                      "read Low52W",
                      "read High52W",
                      "read CurrentPrice",
                      "read Name",
                      "read Symbol",
                      "read YCSOSeries",
                      "read YLowSeries",
                      "read YHighSeries",
                      "read YDividendSeries",
                      "read YEPSSeries",
                      "read YNetIncSeries",
                      "read YRevenueSeries",
                      "read QRevenueSeries",
                      "read QEPSSeries",
                      "read QNetIncSeries",
                      "get strCurSymbol",
                      "get blnTaxRate",
                      "get blnBookVal",
                      "read YPTISeries",
                      "read YCommEqSeries",
                      "read QPTISeries",
                      "get blnLockBasicInfo"};
    auto place = record->log.cbegin();
    for (const auto& step : steps) {
        place = std::find(place, record->log.cend(), step);
        ASSERT_NE(place, record->log.cend()) << step << " does not come in its turn";
        ++place;
    }
}

TEST_F(Loading, WritesTheYearBackAndTheTrailingSumAndNothingElse) {
    const auto figures = fullCompany();
    const auto before = figures->clone();
    const auto record = load(figures);
    EXPECT_EQ(record->logged("write "),
              (Names{"write Last4QEPS", "write QuarterlyFlag", "write LastFY"}));
    EXPECT_EQ(record->logged("put "), Names{});
    EXPECT_EQ(record->logged("call "), Names{});
    const auto changes = differences(*before, *figures);
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].datum, "Last4QEPS");
}

TEST_F(Loading, AnEmptyRecordGetsItsDefaultsAndNothingElse) {
    const auto record = load(emptyCompany());
    EXPECT_EQ(record->logged("write "),
              (Names{"write LastQDate", "write LastFYDate", "write LastFY",
                     "write PriceUpdatedDate", "write LastUpdate"}));
    EXPECT_EQ(record->logged("put "), Names{"put intUnit"});
    EXPECT_EQ(record->company->get_LastQDate(), *makeDate(2025, 12, 31));
    EXPECT_EQ(record->company->get_LastFYDate(), *makeDate(2025, 12, 31));
    EXPECT_EQ(record->company->get_LastFY(), 2025);
    EXPECT_EQ(record->company->get_PriceUpdatedDate(), *makeDate(2026, 11, 21));
    EXPECT_EQ(record->company->get_LastUpdate(), *makeDate(2026, 11, 21));
    EXPECT_TRUE(isAbsent(record->company->get_DateOfSource()));
}

struct SuggestedDates : Loading {
    std::shared_ptr<CompanyRecord> company = emptyCompany();

    [[nodiscard]] bool isSuggested(Datum datum) const {
        return std::ranges::count(entry.suggestedDates(), datum) > 0;
    }
};

TEST_F(SuggestedDates, AreThoseThatTheRecordDidNotHave) {
    load(fullCompany());
    EXPECT_TRUE(entry.suggestedDates().empty());
    load(company);
    for (const Datum datum :
         {Datum::LastQDate, Datum::LastFYDate, Datum::PriceUpdatedDate, Datum::LastUpdate})
        EXPECT_TRUE(isSuggested(datum)) << rowOf(datum).name;
    EXPECT_EQ(entry.suggestedDates().size(), 4U);
    load(fullCompany());
    EXPECT_TRUE(entry.suggestedDates().empty());
}

TEST_F(SuggestedDates, StaySuggestedWhereNothingIsTyped) {
    load(company);
    for (const char* field : {"txtPriceUpdate", "txtLastUpdate"})
        scene.desktop.click(field);
    scene.desktop.type("{TAB}");
    scene.entry->Clear();
    EXPECT_EQ(entry.suggestedDates().size(), 4U);
}

TEST_F(SuggestedDates, StaySuggestedBehindATextThatIsNoDate) {
    load(company);
    scene.enter("txtLastUpdate", "32/32/2026");
    EXPECT_TRUE(isSuggested(Datum::LastUpdate));
    scene.enter("txtLastUpdate", "Nov/21/2026");
    EXPECT_FALSE(isSuggested(Datum::LastUpdate));
}

TEST_F(SuggestedDates, ATypedDateIsNoneAlsoTheOneThatStoodThere) {
    struct Case {
        TABObject tab;
        const char* field;
        const char* typed;
        Datum datum;
    };
    for (const Case& row :
         {Case{toCompany, "txtLastUpdate", "Nov/21/2026", Datum::LastUpdate},
          Case{toCompany, "txtPriceUpdate", "Nov/20/2026", Datum::PriceUpdatedDate},
          Case{toYearly, "txtLastFY", "2025", Datum::LastFYDate},
          Case{toYearly, "txtDateofLastFY", "Dec/31/2025", Datum::LastFYDate},
          Case{toQuarterly, "txtLastQDate", "Dec/31/2025", Datum::LastQDate}}) {
        load(emptyCompany());
        entry.put_CurrentTab(row.tab);
        int told = 0;
        entry.stateChanged = [&] { ++told; };
        scene.enter(row.field, row.typed);
        EXPECT_FALSE(isSuggested(row.datum)) << row.field;
        EXPECT_EQ(entry.suggestedDates().size(), 3U) << row.field;
        EXPECT_GE(told, 1) << row.field;
        entry.stateChanged = nullptr;
    }
}

// What was typed goes with its company.
TEST_F(SuggestedDates, AreThoseOfTheCompanyThatIsHeldBeforeWhatIsTypedIsLeft) {
    for (const char* field :
         {"txtLastUpdate", "txtPriceUpdate", "txtLastFY", "txtDateofLastFY", "txtLastQDate"}) {
        load(emptyCompany());
        test::typeAt(scene, field, "1");
        load(emptyCompany());
        scene.desktop.type("{TAB}");
        EXPECT_EQ(entry.suggestedDates().size(), 4U) << field;
    }
}

TEST_F(SuggestedDates, ADateThatWasPickedIsNoneAlsoTheOneThatStoodThere) {
    load(company);
    int told = 0;
    entry.stateChanged = [&] { ++told; };
    scene.desktop.answerNextDate(*makeDate(2026, 11, 21));
    scene.desktop.doubleClick("txtLastUpdate");
    EXPECT_FALSE(isSuggested(Datum::LastUpdate));
    EXPECT_GE(told, 1);
    entry.stateChanged = nullptr;
    scene.desktop.answerNextDate(std::nullopt);
    scene.desktop.doubleClick("txtPriceUpdate");
    EXPECT_TRUE(isSuggested(Datum::PriceUpdatedDate)) << "closing the calendar picks nothing";
}

// The field may show less of a day than was picked.
TEST_F(Loading, APickedDayCountsUntilSomethingElseIsTypedOrItIsStored) {
    const auto company = fullCompany();
    entry.put_DateFormat("MMM/YYYY");
    load(company);
    const auto pick = [&](Date day) {
        scene.desktop.answerNextDate(day);
        scene.desktop.doubleClick("txtLastUpdate");
    };
    pick(*makeDate(2026, 2, 3));
    scene.desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 2, 3));
    ASSERT_EQ(scene.text("txtLastUpdate"), "Feb/2026");

    scene.desktop.setClipboardText("Feb/2026");
    pick(*makeDate(2026, 2, 5));
    scene.desktop.type("^a{DEL}^v{TAB}"); // the same text, but nobody's day
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 2, 1));

    pick(*makeDate(2026, 2, 7));
    scene.desktop.type("{TAB}");
    company->put_LastUpdate(*makeDate(2026, 3, 17)); // by somebody else
    entry.recordChanged();
    scene.typeAt("txtLastUpdate", "^a^v{TAB}");
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 2, 1));
}

TEST_F(SuggestedDates, AQuarterThatIsAddedMakesTheDateThePersons) {
    load(company);
    entry.put_CurrentTab(toQuarterly);
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddQuarter");
    EXPECT_FALSE(isSuggested(Datum::LastQDate));
    EXPECT_TRUE(isSuggested(Datum::LastFYDate));
}

// --- step by step --------------------------------------------------------------------------------

TEST_F(Loading, AnEmptyRecordShowsItsDefaults) {
    load(emptyCompany());
    EXPECT_EQ(text("txtLastQDate"), "Dec/31/2025");
    EXPECT_EQ(text("txtDateofLastFY"), "Dec/31/2025");
    EXPECT_EQ(text("txtLastFY"), "2025");
    EXPECT_EQ(text("txtPriceUpdate"), "Nov/21/2026");
    EXPECT_EQ(text("txtLastUpdate"), "Nov/21/2026");
    EXPECT_EQ(text("txtDateOfSource"), "");
    EXPECT_EQ(text("txtCurSymbol"), "$");
    EXPECT_FALSE(scene.form().get<CheckBox>("chkLockInfo").value());
    EXPECT_EQ(caption("lblYear(9)"), "2025");
    EXPECT_FALSE(entry.get_blnDirty());
}

TEST_F(Loading, AnAssignmentOfNoObjectMakesAnEmptyRecord) {
    entry.put_objCompany(nullptr);
    const auto made = entry.get_objCompany();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->get_Name(), "");
    EXPECT_EQ(text("txtLastFY"), "2025");
}

// What a person types next would go into the company before.
TEST_F(Loading, WithoutARecordClassTheEmptyRecordIsTheProjectsOwn) {
    const ObjectFactory::Creator none[] = {
        {},
        [] { return nullptr; },
        [] { return std::make_shared<Object>(); },
        []() -> std::shared_ptr<Object> { throw std::runtime_error("no class"); }};
    for (const auto& creator : none) {
        load(fullCompany());
        scene.desktop.factory().remove(companyRecordId);
        if (creator)
            scene.desktop.factory().add(companyRecordId, creator);
        EXPECT_NO_THROW(entry.put_objCompany(nullptr));
        const auto made = std::dynamic_pointer_cast<CompanyRecord>(entry.get_objCompany());
        ASSERT_NE(made, nullptr);
        EXPECT_EQ(made->get_Name(), "");
        EXPECT_EQ(text("txtName"), "");
    }
}

TEST_F(Loading, AUnitThatWasNeverSetIsTakenOverByTheRecord) {
    const auto figures = std::make_shared<CompanyRecord>();
    const auto record = std::make_shared<ScriptedRecord>(figures);
    record->lendsSettings = true;
    entry.put_objCompany(record);
    EXPECT_EQ(figures->get_Settings()->get(setting::unit).toLong(), 6);
    record->log.clear();
    entry.put_objCompany(record);
    EXPECT_EQ(record->logged("read SettingsApply"), Names{}) << "it is set by now";
}

TEST_F(Loading, ShowsEveryScalarInItsField) {
    const auto record = fullCompany();
    record->get_Settings()->put(setting::leadPeriod, std::int16_t{1});
    load(record);
    for (const test::FormField& field : test::formFields)
        if (!field.shown.empty()) {
            EXPECT_EQ(text(field.control), field.shown) << field.control;
            EXPECT_EQ(scene.field(field.control).tag(), field.shown) << field.control;
        }
}

TEST_F(Loading, EachNumberGoesToItsOwnField) {
    using test::FieldContent;
    std::vector<test::FormField> numbers;
    for (const test::FormField& field : test::formFields)
        if (!field.isCell() &&
            (field.kind == FieldContent::number || field.kind == FieldContent::money ||
             field.kind == FieldContent::price || field.kind == FieldContent::percent))
            numbers.push_back(field);
    for (const auto& written : numbers) {
        const auto record = emptyCompany();
        writeNumber(*record, test::datumNamed(written.datum), 7.25);
        load(record);
        for (const auto& other : numbers)
            EXPECT_EQ(text(other.control), other.control != written.control        ? ""
                                           : written.kind == FieldContent::price   ? "7.250"
                                           : written.kind == FieldContent::percent ? "7.3%"
                                                                                   : "7.25")
                << written.control << " " << other.control;
    }
}

TEST_F(Loading, TheAlternateDividendStandsInWhereThereIsOne) {
    const auto record = emptyCompany();
    record->put_CommDiv(1.5);
    load(record);
    EXPECT_EQ(text("txtCommDiv"), "1.50");
    record->put_CommDivAlternate(2.5);
    load(record);
    EXPECT_EQ(text("txtCommDiv"), "2.50");
}

TEST_F(Loading, TheQuarterSpinnerStandsAtTheDistanceOfTheTwoQuarterDates) {
    const auto record = fullCompany();
    load(record);
    auto& spinner = scene.form().get<Spinner>("spnQuarter");
    EXPECT_EQ(spinner.value(), 0);
    EXPECT_EQ(text("txtRevenue", 0), "1146.12"); // element 0 of the series
    record->put_LastQDateForGrid(*makeDate(2027, 3, 31));
    load(record);
    EXPECT_EQ(spinner.value(), -2);
    EXPECT_EQ(text("txtRevenue", 0), "3146.12");
}

TEST_F(Loading, EveryInvalidDateCountsAsMissing) {
    for (const Date date : {*makeDate(1899, 12, 31), *makeDate(1900, 1, 1), *makeDate(2999, 12, 1),
                            *makeDate(3200, 1, 1)}) {
        const auto record = fullCompany();
        record->put_LastFYDate(date);
        record->put_PriceUpdatedDate(date);
        record->put_LastUpdate(date);
        record->put_DateOfSource(date);
        record->put_LastQDate(date);
        record->put_LastQDateForGrid(date);
        load(record);
        EXPECT_EQ(text("txtDateofLastFY"), "Dec/31/2025");
        EXPECT_EQ(text("txtLastQDate"), "Dec/31/2025");
        EXPECT_EQ(text("txtPriceUpdate"), "Nov/21/2026");
        EXPECT_EQ(text("txtLastUpdate"), "Nov/21/2026");
        EXPECT_EQ(text("txtDateOfSource"), "");
        EXPECT_EQ(record->get_DateOfSource(), date) << "kept although it can't be shown";
    }
}

TEST_F(Loading, MoneyRowsFollowTheUnitAndPerShareRowsDoNot) {
    struct Row {
        std::int16_t unit;
        const char* money;
    };
    for (const auto& [unit, money] : {Row{3, "2500.00"}, Row{6, "2.50"}, Row{9, "0.00"}}) {
        const auto record = emptyCompany();
        for (const auto& row : datumTable())
            if (isSeries(row))
                setSeries(*record, row.datum, 2.5);
        for (const Datum datum : {Datum::PrefDiv, Datum::DilutedShares, Datum::CommShares,
                                  Datum::PrefShares, Datum::TotalDebt, Datum::TotalCap})
            writeNumber(*record, datum, 2.5);
        record->put_Institutional(2.5);
        record->get_Settings()->put(setting::unit, unit);
        load(record);
        for (const auto* cells : {"txtSales", "txtYOption", "txtYNetInc", "txtYOption2", "txtCSO",
                                  "txtRevenue", "txtQOption", "txtNetInc"})
            EXPECT_EQ(text(cells, 3), money) << cells << " " << unit;
        EXPECT_EQ(text("txtEPS", 3), money) << "the quarterly earnings take the unit on loading";
        for (const auto* field : {"txtPrefDiv", "txtDilutedShares", "txtCommonShares",
                                  "txtPreferredShares", "txtTotalDebt", "txtTotalCap"})
            EXPECT_EQ(text(field), money) << field << " " << unit;
        for (const auto* cells : {"txtYEPS", "txtDiv"})
            EXPECT_EQ(text(cells, 3), "2.50") << cells;
        for (const auto* cells : {"txtHigh", "txtLow"})
            EXPECT_EQ(text(cells, 3), "2.500") << cells;
        EXPECT_EQ(text("txtInstitutional"), "2.50");
        EXPECT_TRUE(scene.form().get<OptionButton>("optCurrency", unit / 3 - 1).value());
    }
}

TEST_F(Loading, NegativeFiguresAreShownWhereAMinusCanBeTyped) {
    const auto record = emptyCompany();
    for (const auto& row : datumTable())
        if (isSeries(row))
            setSeries(*record, row.datum, -2.5);
    load(record);
    for (const auto* cells : {"txtCSO", "txtYEPS", "txtYNetInc", "txtYOption", "txtYOption2",
                              "txtEPS", "txtNetInc", "txtQOption"})
        EXPECT_EQ(text(cells, 2), "-2.50") << cells;
    for (const auto* cells : {"txtSales", "txtDiv", "txtHigh", "txtLow", "txtRevenue"})
        EXPECT_EQ(text(cells, 2), "") << cells;
}

TEST_F(Loading, YearsStandOldestFirstAndQuartersNewestFirst) {
    load(fullCompany());
    // Revenue is the 51st datum of the table: element k holds 151.12345 + 1000 (k + 1).
    EXPECT_EQ(text("txtSales", 9), "2151.12");
    EXPECT_EQ(text("txtSales", 0), "11151.12");
    EXPECT_EQ(text("txtSales", 10), "1151.12");
    EXPECT_EQ(text("txtRevenue", 0), "1146.12");
    EXPECT_EQ(text("txtRevenue", 8), "9146.12");
}

TEST_F(Loading, TheCurrencySymbolIsTheRecordsOrADollar) {
    const auto record = emptyCompany();
    load(record);
    EXPECT_EQ(text("txtCurSymbol"), "$");
    record->get_Settings()->put(setting::currencySymbol, "€");
    load(record);
    EXPECT_EQ(text("txtCurSymbol"), "€");
    EXPECT_EQ(caption("lblCurrency(0)"), "€");
    EXPECT_EQ(caption("lblQCurrency(0)"), "€");
    load(emptyCompany());
    EXPECT_EQ(text("txtCurSymbol"), "$");
    EXPECT_EQ(caption("lblCurrency(0)"), "$");
}

TEST_F(Loading, TheSettingsChooseWhatTheOptionRowsShow) {
    for (const bool taxRate : {false, true})
        for (const bool bookValue : {true, false}) {
            const auto record = emptyCompany();
            setSeries(*record, Datum::YPTISeries, 1);
            setSeries(*record, Datum::YTaxRateSeries, 2);
            setSeries(*record, Datum::YCommEqSeries, 3);
            setSeries(*record, Datum::YBookValSeries, 4);
            setSeries(*record, Datum::QPTISeries, 5);
            setSeries(*record, Datum::QTaxRateSeries, 6);
            record->get_Settings()->put(setting::taxRate, taxRate);
            record->get_Settings()->put(setting::bookValue, bookValue);
            record->get_Settings()->put(setting::unit, std::int16_t{3});
            load(record);
            EXPECT_EQ(text("txtYOption", 4), taxRate ? "2.00" : "1000.00");
            EXPECT_EQ(text("txtYOption2", 4), bookValue ? "4.00" : "3000.00");
            EXPECT_EQ(text("txtQOption", 4), taxRate ? "6.00" : "5000.00");
            EXPECT_TRUE(scene.form().get<OptionButton>("optPTI", taxRate ? 1 : 0).value());
            EXPECT_TRUE(scene.form().get<OptionButton>("optCommEq", bookValue ? 1 : 0).value());
            EXPECT_EQ(caption("lblYOption"), taxRate ? "Tax Rate (%)" : "Pre-Tax Income (K)");
            EXPECT_EQ(caption("lblQOption"), caption("lblYOption"));
            EXPECT_EQ(caption("lblYOption2"), bookValue ? "Book Value" : "Common Equity (K)");
            EXPECT_FALSE(entry.get_blnDirty());
        }
}

TEST_F(Loading, APeriodThatTheListDoesNotHaveIsNone) {
    const auto record = fullCompany();
    load(record);
    const auto& list = scene.form().get<ComboBox>("cmbReportingPeriod");
    const auto size = static_cast<int>(list.list().size());
    for (const int period : {size, size + 1, -1, -2}) {
        for (const int now : {size - 1, period}) {
            record->get_ReportingPeriod()->put(setting::leadPeriod, now);
            entry.recordChanged();
            EXPECT_EQ(list.listIndex(), now == period ? -1 : now);
        }
        EXPECT_EQ(list.text(), "");
    }
}

TEST_F(Loading, TheLockFollowsTheRecord) {
    const auto record = fullCompany();
    for (const bool locked : {true, false, true}) {
        record->get_Settings()->put(setting::lockBasicInfo, locked);
        load(record);
        EXPECT_EQ(scene.form().get<CheckBox>("chkLockInfo").value(), locked);
        EXPECT_EQ(scene.field("txtName").locked(), locked);
        EXPECT_EQ(scene.field("txtSales", 9).locked(), locked);
        EXPECT_FALSE(entry.get_blnDirty());
    }
}

// --- around it -----------------------------------------------------------------------------------

TEST_F(Loading, LeavesDirtyListsFormatsTabAndLocalizerAsTheyAre) {
    entry.put_vntIndustry(textArray({"Steel"}));
    entry.put_NumberFormat("0.0");
    entry.put_CurrentTab(toOther);
    scene.events.log.clear();
    for (const bool dirty : {false, true}) {
        entry.put_blnDirty(dirty);
        load(fullCompany());
        EXPECT_EQ(entry.get_blnDirty(), dirty);
        EXPECT_EQ(entry.get_CurrentTab(), toOther);
        EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").list(), Names{"Steel"});
        EXPECT_EQ(entry.get_NumberFormat(), "0.0");
        EXPECT_EQ(text("txtEPSProj"), "125.1");
    }
    EXPECT_EQ(scene.events.log, Names{});
    EXPECT_TRUE(scene.desktop.messages().empty());
}

TEST_F(Loading, NothingOfTheFormerCompanyStays) {
    load(fullCompany());
    scene.desktop.clickTab(toYearly);
    scene.enter("txtDateofLastFY", "no date");
    ASSERT_EQ(entry.unstoredFields().size(), 1U);
    load(emptyCompany());
    for (const auto& any : scene.form().controls())
        if (const auto* field = dynamic_cast<const TextField*>(any.get())) {
            EXPECT_EQ(field->text().find("text"), std::string::npos) << field->id();
            EXPECT_EQ(field->text(), field->tag()) << field->id();
        }
    EXPECT_EQ(text("txtSales", 9), "");
    EXPECT_EQ(text("txtRevenue", 0), "");
    EXPECT_TRUE(entry.unstoredFields().empty());
}

TEST_F(Loading, NoSettingOfTheFormerCompanyStaysWhereTheNextHasNone) {
    const auto former = fullCompany();
    for (const auto name : {setting::taxRate, setting::bookValue, setting::lockBasicInfo})
        former->get_Settings()->put(name, true);
    former->get_Settings()->put(setting::leadPeriod, std::int16_t{1});
    former->get_Settings()->put(setting::currencySymbol, "SFr");
    load(former);
    ASSERT_EQ(text("txtCurSymbol"), "SFr");
    const auto next = std::make_shared<ScriptedRecord>(emptyCompany());
    next->withoutObjects = true;
    entry.put_objCompany(next);
    EXPECT_EQ(text("txtCurSymbol"), "$");
    EXPECT_EQ(text("cmbReportingPeriod"), "");
    for (const char* option : {"optPTI", "optCommEq"})
        EXPECT_TRUE(scene.form().get<OptionButton>(option, 0).value()) << option;
    EXPECT_FALSE(scene.form().get<CheckBox>("chkLockInfo").value());
}

TEST_F(Loading, AnOpenedRecordTellsItsHostOfTheNewIdentity) {
    int told = 0;
    entry.stateChanged = [&] { ++told; };
    load(fullCompany());
    EXPECT_GE(told, 1);
}

TEST_F(Loading, ReadingBackAtOnceChangesNothing) {
    for (const auto& company : {fullCompany(), emptyCompany()}) {
        entry.put_objCompany(company);
        const auto loaded = company->clone();
        // The hidden members of the pairs are what the commit is there to change.
        static_cast<void>(entry.get_objCompany());
        for (const auto& change : differences(*loaded, *company))
            EXPECT_TRUE(change.datum == "YTaxRateSeries" || change.datum == "QTaxRateSeries" ||
                        change.datum == "strCurSymbol")
                << change.datum << " " << change.before << " " << change.after;
    }
}

TEST_F(Loading, DatesSurviveWhateverPatternShowsThem) {
    for (const auto* pattern : {"DD/MM/YYYY", "MM/YY", "YYYY", "dddd", "\"none\"", ""}) {
        entry.put_DateFormat(pattern);
        const auto company = fullCompany();
        company->put_LastQDate(*makeDate(2026, 9, 6));
        company->put_LastQDateForGrid(*makeDate(2026, 9, 6));
        company->put_LastFYDate(*makeDate(2025, 9, 6));
        company->put_PriceUpdatedDate(*makeDate(2026, 2, 3));
        entry.put_objCompany(company);
        const auto loaded = company->clone();
        for (int tab = toCompany; tab <= toOptions; ++tab) {
            scene.desktop.clickTab(tab);
            scene.desktop.tabWalk();
        }
        static_cast<void>(entry.get_objCompany());
        for (const Datum datum : {Datum::LastQDate, Datum::LastQDateForGrid, Datum::LastFYDate,
                                  Datum::PriceUpdatedDate, Datum::LastUpdate, Datum::DateOfSource})
            EXPECT_EQ(readDate(*company, datum), readDate(*loaded, datum))
                << pattern << " " << rowOf(datum).name;
        if (text("txtLastQDate") != "") {
            EXPECT_EQ(caption("lblQLabel(0)"), "9/6/2026") << pattern;
        }
    }
}

TEST_F(Loading, AYearIsMovedByItsStoredDateWhateverPatternShowsIt) {
    entry.put_DateFormat("DD/MM/YYYY");
    const auto company = fullCompany();
    company->put_LastFYDate(*makeDate(2025, 9, 6));
    entry.put_objCompany(company);
    scene.desktop.clickTab(toYearly);
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.click("cmdAddYear");
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2026, 9, 6));
    EXPECT_EQ(text("txtDateofLastFY"), "06/09/2026");
}

} // namespace
} // namespace vkr
