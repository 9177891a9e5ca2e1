// SPDX-License-Identifier: MIT
#include "binding/company_fields.hpp"
#include "tests/support/classic_figures.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/form_fields.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace vkr {
namespace {

using namespace test;

using enum FieldContent;

// The fields outside of the grids that need no controller of their own.
std::vector<FormField> companyFields() {
    std::vector<FormField> fields;
    for (const FormField& field : formFields)
        if (!field.isCell() && !field.datum.empty() && field.object != doLastFY &&
            field.object != doLastFYDate && field.object != doLastQDate)
            fields.push_back(field);
    return fields;
}
const std::vector<FormField> rows = companyFields();

constexpr const char* priceFields[] = {"txtCurrentPrice", "txt52WHigh", "txt52WLow"};
constexpr const char* dateFields[] = {"txtPriceUpdate", "txtLastUpdate", "txtDateOfSource"};

double factorOf(int unit) {
    return unit == 3 ? 1000 : unit == 9 ? 0.001 : 1;
}

double figureAt(int i) {
    return (100 + i) * 1000 + 250;
}

Date dayAt(int i) {
    return *makeDate(2024, 3, 1 + i % 28);
}

std::string dayText(const char* month, int i, int year) {
    return std::string(month) + (i % 28 < 9 ? "/0" : "/") + std::to_string(1 + i % 28) + "/" +
           std::to_string(year);
}

// A different value in every datum that has a field, and no figures in the grids.
std::shared_ptr<CompanyRecord> distinctCompany(int unit) {
    auto company = datedCompany(static_cast<std::int16_t>(unit));
    int i = 0;
    for (const FormField& row : rows) {
        ++i;
        const Datum datum = datumNamed(row.datum);
        if (row.isText())
            writeText(*company, datum, "Old " + std::to_string(i));
        else if (row.kind == day)
            writeDate(*company, datum, dayAt(i));
        else
            writeNumber(*company, datum, figureAt(i));
    }
    return company;
}

std::string shownFigure(const FormField& row, double stored, int unit) {
    switch (row.kind) {
    case price:
        return fixedFigure(stored, 3);
    case percent:
        return fixedFigure(stored, 1) + "%";
    case money:
        return fixedFigure(stored * factorOf(unit), 2);
    default:
        return fixedFigure(stored, 2);
    }
}

class CompanyFieldsWalk : public testing::TestWithParam<int> {};

TEST_P(CompanyFieldsWalk, EveryFieldShowsItsDatumAndWritesItAlone) {
    const int unit = GetParam();
    EntryScene scene;
    showEveryField(scene);
    const auto company = distinctCompany(unit);
    scene.load(company);

    int i = 0;
    for (const FormField& row : rows) {
        ++i;
        const std::string shown = row.isText()      ? "Old " + std::to_string(i)
                                  : row.kind == day ? dayText("Mar", i, 2024)
                                                    : shownFigure(row, figureAt(i), unit);
        EXPECT_EQ(textOf(scene, row.control), shown) << row.control;
        EXPECT_EQ(scene.field(row.control).tag(), shown) << row.control;
    }
    EXPECT_FALSE(scene.entry->get_blnDirty());

    // Prices between these do not move the 52-week range.
    company->put_Low52W(1);
    company->put_High52W(1e9);
    i = 0;
    for (const FormField& row : rows) {
        ++i;
        SCOPED_TRACE(row.control);
        const auto before = company->clone();
        scene.entry->put_blnDirty(false);
        const Datum datum = datumNamed(row.datum);
        const std::string figure = std::to_string(7000 + i) + ".5";
        std::string shown;
        if (row.isText()) {
            typeOver(scene, row.control, "New " + std::to_string(i));
            shown = (row.keys == FieldKeys::capitals ? "NEW " : "New ") + std::to_string(i);
            EXPECT_EQ(readText(*company, datum), shown);
        } else if (row.kind == day) {
            typeOver(scene, row.control, "5/" + std::to_string(1 + i % 28) + "/2025");
            shown = dayText("May", i, 2025);
            EXPECT_EQ(readDate(*company, datum), *makeDate(2025, 5, 1 + i % 28));
        } else {
            typeOver(scene, row.control, figure);
            const char* exponent = row.kind != money || unit == 6 ? "" : unit == 3 ? "e-3" : "e3";
            const double stored = readFigure(figure + exponent);
            EXPECT_EQ(readNumber(*company, datum), stored);
            shown = shownFigure(row, row.kind == money ? 7000 + i + 0.5 : stored,
                                row.kind == money ? 6 : unit);
        }
        EXPECT_EQ(textOf(scene, row.control), shown);
        EXPECT_EQ(scene.field(row.control).tag(), shown);
        EXPECT_EQ(markOf(scene, row.control), "");
        EXPECT_TRUE(scene.entry->get_blnDirty());
        std::vector<std::string> expected{std::string(row.datum)};
        if (expected.front() == "CommDiv")
            expected.emplace_back("CommDivAlternate");
        EXPECT_EQ(changedData(*before, *company), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Units, CompanyFieldsWalk, testing::Values(3, 6, 9));

TEST(CompanyFieldTable, AgreesWithWhatEachFieldIs) {
    ASSERT_EQ(companyFieldTable().size(), rows.size());
    EntryScene scene;
    for (const FormField& row : rows) {
        SCOPED_TRACE(row.control);
        const auto found = std::ranges::find_if(companyFieldTable(), [&](const FieldRow& field) {
            return field.control.name == row.control;
        });
        ASSERT_NE(found, companyFieldTable().end());
        EXPECT_EQ(found->object, row.object);
        EXPECT_EQ(rowOf(*found->datum).name, row.datum);
        EXPECT_EQ(found->filter.numeric, true);
        EXPECT_EQ(found->filter.freeText,
                  row.keys == FieldKeys::words || row.keys == FieldKeys::capitals);
        EXPECT_EQ(found->filter.allowNegative, row.takesMinus());
        EXPECT_EQ(found->filter.upperCase, row.keys == FieldKeys::capitals);
        EXPECT_EQ(found->filtered, row.control != "txtNotes");
        EXPECT_EQ(found->isScaled(), row.kind == money);
        EXPECT_EQ(static_cast<int>(found->page), tabOf(scene.desktop.control(row.control)));
        EXPECT_EQ(scene.desktop.control(row.control).kind(),
                  row.kind == list ? ControlKind::comboBox : ControlKind::textBox);
    }
}

TEST(CompanyFields, DatesAndTextsSurviveARecordThatAnswersNothing) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = std::make_shared<ScriptedRecord>(distinctCompany(6));
    for (const FormField& row : rows)
        company->failing.insert("read " + std::string(row.datum));
    scene.load(company);
    const auto before = company->company->clone();
    for (const FormField& row : rows) {
        EXPECT_EQ(textOf(scene, row.control), "") << row.control;
        typeAt(scene, row.control, "{TAB}");
    }
    EXPECT_EQ(changedData(*before, *company->company), std::vector<std::string>{});
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// --- price rule ------------------------------------------------------------------------------

struct PriceCase {
    const char* typed;
    double price;
    double high;
    double low;
};

TEST(PriceRule, KeepsThePriceInsideThe52WeekRange) {
    const PriceCase cases[] = {
        {"15", 15, 20, 10},       {"25.5", 25.5, 25.5, 10},
        {"5.25", 5.25, 20, 5.25}, {"20", 20, 20, 10},
        {"10", 10, 20, 10},       {"", 0, 20, 10},
        {"0", 0, 20, 10},         {"20.001", 20.001, 20.001, 10},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.typed);
        EntryScene scene;
        const auto company = datedCompany();
        company->put_CurrentPrice(12);
        company->put_High52W(20);
        company->put_Low52W(10);
        scene.load(company);
        typeOver(scene, "txtCurrentPrice", one.typed);
        EXPECT_EQ(company->get_CurrentPrice(), one.price);
        EXPECT_EQ(company->get_High52W(), one.high);
        EXPECT_EQ(company->get_Low52W(), one.low);
        EXPECT_EQ(textOf(scene, "txt52WHigh"), fixedFigure(one.high, 3));
        EXPECT_EQ(textOf(scene, "txt52WLow"), fixedFigure(one.low, 3));
        EXPECT_EQ(scene.field("txt52WHigh").tag(), fixedFigure(one.high, 3));
        EXPECT_EQ(textOf(scene, "txtCurrentPrice"),
                  one.price == 0 ? "" : fixedFigure(one.price, 3));
    }
}

TEST(PriceRule, RestsWhileThePriceIsNotTouched) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_CurrentPrice(50); // outside of its range in the record already
    company->put_High52W(20);
    company->put_Low52W(10);
    scene.load(company);
    typeAt(scene, "txtCurrentPrice", "{TAB}");
    EXPECT_EQ(company->get_High52W(), 20);
    EXPECT_EQ(textOf(scene, "txt52WHigh"), "20.000");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(PriceRule, ShowsTheMovedEndInEighths) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_High52W(20);
    company->put_Low52W(10);
    scene.load(company);
    scene.entry->put_FractionDisplay(true);
    typeOver(scene, "txtCurrentPrice", "25 3/8");
    EXPECT_EQ(company->get_High52W(), 25.375);
    EXPECT_EQ(textOf(scene, "txt52WHigh"), "25 3/8");
    EXPECT_EQ(textOf(scene, "txt52WLow"), "10");
}

TEST(PriceRule, LeavesTheRangeAloneWhenThePriceWasRefused) {
    EntryScene scene;
    const auto company = std::make_shared<ScriptedRecord>(datedCompany());
    company->put_High52W(20);
    company->put_Low52W(10);
    company->failing = {"write CurrentPrice"};
    scene.load(company);
    typeOver(scene, "txtCurrentPrice", "25");
    EXPECT_EQ(company->get_High52W(), 20);
    EXPECT_EQ(textOf(scene, "txtCurrentPrice"), "25");
    EXPECT_NE(markOf(scene, "txtCurrentPrice"), "");
}

TEST(PriceRule, KeepsThePriceWhenTheHighIsRefused) {
    EntryScene scene;
    const auto company = std::make_shared<ScriptedRecord>(datedCompany());
    company->put_High52W(20);
    company->put_Low52W(30); // wrong way round: both ends want to move
    company->failing = {"write High52W"};
    scene.load(company);
    typeOver(scene, "txtCurrentPrice", "25");
    EXPECT_EQ(company->get_CurrentPrice(), 25);
    EXPECT_EQ(company->get_High52W(), 20);
    EXPECT_EQ(company->get_Low52W(), 25);
    EXPECT_EQ(textOf(scene, "txt52WHigh"), "20.000");
    EXPECT_EQ(textOf(scene, "txt52WLow"), "25.000");
}

struct CorrectedPrice : testing::Test {
    EntryScene scene;
    std::shared_ptr<CompanyRecord> company = datedCompany();

    CorrectedPrice() {
        company->put_CurrentPrice(21);
        company->put_High52W(25);
        company->put_Low52W(10);
        scene.load(company);
    }
    void price(std::string_view typed) { typeOver(scene, "txtCurrentPrice", typed); }
    void expectRange(double low, double high) const {
        EXPECT_EQ(company->get_Low52W(), low);
        EXPECT_EQ(company->get_High52W(), high);
        EXPECT_EQ(textOf(scene, "txt52WLow"), fixedFigure(low, 3));
        EXPECT_EQ(textOf(scene, "txt52WHigh"), fixedFigure(high, 3));
        EXPECT_EQ(scene.field("txt52WHigh").tag(), fixedFigure(high, 3));
    }
};

TEST_F(CorrectedPrice, TakesBackTheEndThatItsSlipMoved) {
    price("222");
    expectRange(10, 222);
    price("22");
    expectRange(10, 25);
    price("2.2");
    expectRange(2.2, 25);
    price("22.5");
    expectRange(10, 25);
}

TEST_F(CorrectedPrice, TakesBackSeveralSlipsInARow) {
    for (const char* slip : {"222", "2222", "", "2", "30", "0.5", "0", "222"})
        price(slip);
    price("26");
    expectRange(10, 26); // beyond the high that was there before all of them
    price("22");
    expectRange(10, 25);
}

TEST_F(CorrectedPrice, ClearedTakesBackWhatItMoved) {
    price("222");
    price("");
    expectRange(10, 25);
}

TEST_F(CorrectedPrice, LeavesAnEndThatWasTouchedMeanwhile) {
    price("222");
    typeOver(scene, "txt52WHigh", "230");
    price("22");
    expectRange(10, 230);
    price("300");
    company->put_High52W(310); // by the host
    price("22");
    EXPECT_EQ(company->get_High52W(), 310);
    price("1");
    typeOver(scene, "txt52WLow", "1.5");
    typeOver(scene, "txt52WLow", "1");
    price("22");
    EXPECT_EQ(company->get_Low52W(), 1) << "typed by hand";
}

TEST_F(CorrectedPrice, LookingAtTheEndIsNotTouchingIt) {
    price("222");
    typeAt(scene, "txt52WHigh", "{TAB}+{TAB}~");
    scene.entry->put_blnDirty(false);
    price("22");
    expectRange(10, 25);
}

TEST_F(CorrectedPrice, OfAnotherRecordIsNone) {
    price("222");
    const auto other = datedCompany();
    other->put_CurrentPrice(22);
    other->put_High52W(222); // by chance
    scene.load(other);
    price("23");
    EXPECT_EQ(other->get_High52W(), 222);
    scene.load(company);
    price("22");
    expectRange(10, 222);
}

TEST_F(CorrectedPrice, WithinTheRangeLeavesNothingToTakeBack) {
    price("222");
    price("22");
    company->put_High52W(222); // by the host
    scene.entry->recordChanged();
    price("23");
    expectRange(10, 222);
}

TEST_F(CorrectedPrice, OfAnotherDayIsNone) {
    price("26");
    scene.desktop.setToday(*makeDate(2026, 11, 23));
    price("24");
    expectRange(10, 26); // which was the high of Saturday
}

TEST_F(CorrectedPrice, WithAnotherDateIsNone) {
    price("222");
    typeOver(scene, "txtPriceUpdate", "11/21/2026");
    price("22");
    expectRange(10, 222); // which was the price of the 20th
    price("2.2");
    typeOver(scene, "txtPriceUpdate", "someday"); // the record keeps its date
    price("22");
    expectRange(10, 222);
    price("1");
    company->put_PriceUpdatedDate(*makeDate(2026, 11, 19)); // by the host
    price("22");
    expectRange(1, 222);
}

TEST_F(CorrectedPrice, GoesOnWhereTheRecordRefusesTheEnd) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    scene.load(record);
    price("222");
    record->failing = {"write High52W"};
    price("22");
    expectRange(10, 222);
    record->failing.clear();
    price("22.5");
    expectRange(10, 25);
}

TEST_F(CorrectedPrice, KeepsWhatWasRefusedInTheFieldOfTheEnd) {
    price("222");
    pasteOver(scene, "txt52WHigh", "1e400");
    price("22");
    EXPECT_EQ(company->get_High52W(), 25);
    EXPECT_EQ(textOf(scene, "txt52WHigh"), "1e400");
    EXPECT_NE(markOf(scene, "txt52WHigh"), "");
}

// --- source rule -----------------------------------------------------------------------------

struct SourceScene : EntryScene {
    std::shared_ptr<CompanyRecord> company = datedCompany();

    explicit SourceScene(const char* source = "") {
        entry->put_vntSource(textArray({"S & P", "Value Line", "Annual report"}));
        company->put_Source(source);
        load(company);
    }
    [[nodiscard]] bool rates() const { return form().get<OptionButton>("optPTI", 1).value(); }
    [[nodiscard]] bool book() const { return form().get<OptionButton>("optCommEq", 1).value(); }
};

TEST(SourceRule, TurnsToRateAndBookValueOnLeaving) {
    for (const char* source : {"S & P", "Value Line", "value line", "VALUE LINE", "s & p"}) {
        SCOPED_TRACE(source);
        SourceScene scene;
        typeOver(scene, "cmbSource", source);
        EXPECT_EQ(scene.company->get_Source(), source);
        EXPECT_TRUE(scene.rates());
        EXPECT_TRUE(scene.book());
        EXPECT_EQ(scene.form().get<Label>("lblYOption").caption(), "Tax Rate (%)");
        EXPECT_EQ(scene.form().get<Label>("lblYOption2").caption(), "Book Value");
        EXPECT_TRUE(scene.entry->get_blnDirty());
        // The choice is in force, not only its button.
        const auto kept = scene.entry->get_objCompany();
        EXPECT_TRUE(kept->get_Settings()->get(setting::taxRate).toBoolean());
        EXPECT_TRUE(kept->get_Settings()->get(setting::bookValue).toBoolean());
    }
}

TEST(SourceRule, TurnsAtTheChoiceFromTheListAlready) {
    SourceScene scene;
    scene.desktop.pick("cmbSource", "Value Line");
    EXPECT_EQ(scene.desktop.focusedId(), "cmbSource");
    EXPECT_EQ(scene.company->get_Source(), "Value Line");
    EXPECT_TRUE(scene.rates());
    EXPECT_TRUE(scene.book());
}

TEST(SourceRule, RestsForOtherSources) {
    for (const char* source : {"Annual report", "", "S&P", "Value Line ", "Value"}) {
        SCOPED_TRACE(source);
        SourceScene scene("before");
        typeOver(scene, "cmbSource", source);
        EXPECT_EQ(scene.company->get_Source(), source);
        EXPECT_FALSE(scene.rates());
        EXPECT_FALSE(scene.book());
    }
}

TEST(SourceRule, RestsWhileTheSourceIsNotTouched) {
    SourceScene scene("Value Line");
    EXPECT_FALSE(scene.rates());
    typeAt(scene, "cmbSource", "{TAB}");
    EXPECT_FALSE(scene.rates());
    EXPECT_FALSE(scene.book());
    EXPECT_FALSE(scene.entry->get_blnDirty());
    // Choosing what stands there already is no change either.
    scene.desktop.pick("cmbSource", "Value Line");
    scene.desktop.type("{TAB}");
    EXPECT_FALSE(scene.rates());
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(SourceRule, DoesNotTurnAgainWhatTheUserTurnedBack) {
    SourceScene scene;
    typeOver(scene, "cmbSource", "S & P");
    goTo(scene, "optPTI(0)");
    EXPECT_FALSE(scene.rates());
    typeAt(scene, "cmbSource", "{TAB}");
    EXPECT_FALSE(scene.rates());
    EXPECT_TRUE(scene.book());
}

TEST(CompanyFields, ListsTakeTheChoiceAndFreeText) {
    EntryScene scene;
    scene.entry->put_vntExchange(textArray({"NYSE", "NASDAQ"}));
    scene.entry->put_vntIndustry(textArray({"Bank", "Retail"}));
    const auto company = datedCompany();
    scene.load(company);
    scene.desktop.pick("cmbExchange", "NASDAQ");
    EXPECT_EQ(company->get_Exchange(), "NASDAQ");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    scene.desktop.pick("cmbIndustry", 0);
    EXPECT_EQ(company->get_Industry(), "Bank");
    scene.desktop.type("^a{DEL}Shipping{TAB}");
    EXPECT_EQ(company->get_Industry(), "Shipping");
    scene.typeAt("cmbExchange", "{UP}");
    EXPECT_EQ(company->get_Exchange(), "NYSE");
    typeOver(scene, "cmbExchange", "");
    EXPECT_EQ(company->get_Exchange(), "");
}

TEST(CompanyFields, TheReportingPeriodIsWrittenByTheCommit) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = datedCompany();
    company->get_ReportingPeriod()->put(setting::leadPeriod, std::int16_t{2});
    scene.load(company);
    const auto stored = [&] {
        return scene.entry->get_objCompany()
            ->get_ReportingPeriod()
            ->get(setting::leadPeriod)
            .toLong();
    };
    EXPECT_EQ(scene.text("cmbReportingPeriod"), "12 months");
    show(scene, "cmbReportingPeriod");
    scene.desktop.pick("cmbReportingPeriod", "6 months");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(company->get_ReportingPeriod()->get(setting::leadPeriod).toLong(), 2);
    EXPECT_EQ(stored(), 1);
    typeOver(scene, "cmbReportingPeriod", "3 months"); // an entry, typed
    EXPECT_EQ(stored(), 0);
    EXPECT_EQ(markOf(scene, "cmbReportingPeriod"), "");
    typeOver(scene, "cmbReportingPeriod", "fortnight"); // none
    EXPECT_EQ(stored(), 0);
    ASSERT_EQ(scene.entry->unstoredFields().size(), 1U);
    EXPECT_EQ(scene.entry->unstoredFields()[0].label, "Reporting Period");
    EXPECT_EQ(scene.entry->unstoredFields()[0].text, "fortnight");
    EXPECT_EQ(scene.entry->unstoredFields()[0].reason, "This value could not be stored.");
    typeAt(scene, "cmbReportingPeriod", "{TAB}"); // passing through does not take the mark off
    EXPECT_NE(markOf(scene, "cmbReportingPeriod"), "");
    show(scene, "cmbReportingPeriod");
    scene.desktop.pick("cmbReportingPeriod", "12 months");
    EXPECT_EQ(markOf(scene, "cmbReportingPeriod"), "");
    EXPECT_EQ(stored(), 2);
    typeOver(scene, "cmbReportingPeriod", ""); // nothing chosen: no text that could get lost
    EXPECT_EQ(markOf(scene, "cmbReportingPeriod"), "");
    EXPECT_EQ(stored(), 2);
}

// --- dates -----------------------------------------------------------------------------------

TEST(CompanyDates, ReadsWhatPeopleType) {
    struct {
        const char* typed;
        Date date;
        const char* shown;
    } cases[] = {
        {"3/4/2024", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"03/04/24", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"3-4-2024", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"2024-03-04", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"Mar/04/2024", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"March 4, 2024", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"4 mar 2024", *makeDate(2024, 3, 4), "Mar/04/2024"},
        {"13/4/2024", *makeDate(2024, 4, 13), "Apr/13/2024"},
        {"1/2/29", *makeDate(2029, 1, 2), "Jan/02/2029"},
        {"1/2/30", *makeDate(1930, 1, 2), "Jan/02/1930"},
        {"2/29/2024", *makeDate(2024, 2, 29), "Feb/29/2024"},
        {"1/2/1900", *makeDate(1900, 1, 2), "Jan/02/1900"},
        {"11/30/2999", *makeDate(2999, 11, 30), "Nov/30/2999"},
    };
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    for (const char* field : dateFields)
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(field) + " " + one.typed);
            typeOver(scene, field, one.typed);
            EXPECT_EQ(textOf(scene, field), one.shown);
            EXPECT_EQ(markOf(scene, field), "");
        }
    EXPECT_EQ(company->get_PriceUpdatedDate(), std::end(cases)[-1].date);
    EXPECT_EQ(company->get_LastUpdate(), std::end(cases)[-1].date);
    EXPECT_EQ(company->get_DateOfSource(), std::end(cases)[-1].date);
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    for (const auto& one : cases) {
        typeOver(scene, "txtLastUpdate", one.typed);
        EXPECT_EQ(company->get_LastUpdate(), one.date) << one.typed;
    }
}

TEST(CompanyDates, WhatIsNoneStaysTypedAndMarkedAndTheRecordKeepsItsDate) {
    for (const char* field : dateFields)
        for (const char* typed : {"2/31/2024", "31/31/2024", "0/0/0", "tomorrow", "13", "1/1/1900",
                                  "12/1/2999", "1/1/10000", "5/5/5/5", "12:30", "--"}) {
            SCOPED_TRACE(std::string(field) + " " + typed);
            EntryScene scene;
            const auto company = datedCompany();
            const Date stored = *makeDate(2026, 10, 1);
            for (const char* name : {"PriceUpdatedDate", "LastUpdate", "DateOfSource"})
                writeDate(*company, datumNamed(name), stored);
            scene.load(company);
            const auto before = company->clone();
            typeOver(scene, field, typed);
            EXPECT_EQ(textOf(scene, field), typed);
            EXPECT_NE(markOf(scene, field), "");
            EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
            // Passing through once more changes nothing of it.
            typeAt(scene, field, "{TAB}");
            EXPECT_EQ(textOf(scene, field), typed);
            EXPECT_NE(markOf(scene, field), "");
            // Corrected, the mark goes.
            typeOver(scene, field, "4/5/2024");
            EXPECT_EQ(textOf(scene, field), "Apr/05/2024");
            EXPECT_EQ(markOf(scene, field), "");
            EXPECT_EQ(changedData(*before, *company).size(), 1U);
        }
}

TEST(CompanyDates, TypingTheOldDateAgainTakesTheMarkOff) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    typeOver(scene, "txtLastUpdate", "2/30/2026");
    EXPECT_NE(markOf(scene, "txtLastUpdate"), "");
    typeOver(scene, "txtLastUpdate", "Nov/19/2026");
    EXPECT_EQ(markOf(scene, "txtLastUpdate"), "");
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 11, 19));
}

TEST(CompanyDates, UndoingARefusedTextKeepsTheStoredDay) {
    EntryScene scene;
    scene.entry->put_DateFormat("MMM YYYY");
    const auto company = datedCompany();
    company->put_LastUpdate(*makeDate(2005, 12, 31));
    company->put_DateOfSource(*makeDate(2005, 11, 30));
    scene.load(company);
    for (const char* id :
         {"txtLastUpdate", "txtPriceUpdate", "txtDateOfSource", "txtDateofLastFY"}) {
        SCOPED_TRACE(id);
        const auto before = company->clone();
        const std::string shown = textOf(scene, id);
        typeOver(scene, id, "soon");
        EXPECT_NE(markOf(scene, id), "");
        typeOver(scene, id, shown);
        EXPECT_EQ(markOf(scene, id), "");
        EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
        // The first of the month is what another month means.
        typeOver(scene, id, "Mar 2006");
    }
    EXPECT_EQ(company->get_LastUpdate(), makeDate(2006, 3, 1));
    EXPECT_EQ(company->get_LastFYDate(), makeDate(2006, 3, 1));
}

TEST(CompanyDates, AShortYearBehindAMonthIsAYear) {
    EntryScene scene;
    scene.entry->put_DateFormat("MMM YY");
    const auto company = datedCompany();
    company->put_LastUpdate(*makeDate(2005, 12, 31));
    scene.load(company);
    EXPECT_EQ(scene.text("txtLastUpdate"), "Dec 05");
    typeOver(scene, "txtLastUpdate", "Nov 05");
    EXPECT_EQ(company->get_LastUpdate(), makeDate(2005, 11, 1));
    EXPECT_EQ(scene.text("txtLastUpdate"), "Nov 05");
}

TEST(CompanyDates, UnstoredOnesAreListedWithLabelAndReason) {
    EntryScene scene;
    scene.load(datedCompany());
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    typeOver(scene, "txtPriceUpdate", "2/31/2024");
    typeOver(scene, "txtDateOfSource", "never");
    const auto unstored = scene.entry->unstoredFields();
    ASSERT_EQ(unstored.size(), 2U);
    EXPECT_EQ(unstored[0].control, "txtDateOfSource");
    EXPECT_EQ(unstored[0].label, "Date of Source");
    EXPECT_EQ(unstored[0].text, "never");
    EXPECT_EQ(unstored[0].reason, "This is not a date and was not stored.");
    EXPECT_EQ(unstored[1].control, "txtPriceUpdate");
    EXPECT_EQ(unstored[1].label, "Price Update Date");
    EXPECT_EQ(unstored[1].text, "2/31/2024");
    typeOver(scene, "txtDateOfSource", "5/6/2024");
    ASSERT_EQ(scene.entry->unstoredFields().size(), 1U);
    EXPECT_EQ(scene.entry->unstoredFields()[0].control, "txtPriceUpdate");
    scene.load(datedCompany());
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
}

TEST(CompanyDates, OnlyTheDateOfTheSourceMayBeAbsent) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_DateOfSource(*makeDate(2026, 10, 1));
    scene.load(company);
    for (const char* blank : {"", "  "}) {
        typeOver(scene, "txtDateOfSource", "5/6/2024");
        typeOver(scene, "txtDateOfSource", blank);
        EXPECT_TRUE(isAbsent(company->get_DateOfSource()));
        EXPECT_EQ(textOf(scene, "txtDateOfSource"), "");
        EXPECT_EQ(markOf(scene, "txtDateOfSource"), "");
    }
    for (const char* field : {"txtPriceUpdate", "txtLastUpdate"}) {
        typeOver(scene, field, "");
        EXPECT_EQ(textOf(scene, field), "") << field;
        EXPECT_EQ(markOf(scene, field), "This is not a date and was not stored.") << field;
    }
    EXPECT_EQ(company->get_PriceUpdatedDate(), *makeDate(2026, 11, 20));
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 11, 19));
}

TEST(CompanyDates, AnAbsentDateOfSourceIsAnEmptyField) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    EXPECT_EQ(textOf(scene, "txtDateOfSource"), "");
    typeAt(scene, "txtDateOfSource", "{TAB}");
    EXPECT_TRUE(isAbsent(company->get_DateOfSource()));
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(CompanyDates, OkSettlesADateThatIsStillBeingTyped) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    typeAt(scene, "txtLastUpdate", "^a{DEL}7/8/2024");
    scene.desktop.click("cmdOK");
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2024, 7, 8));
    EXPECT_EQ(scene.events.log, std::vector<std::string>{"UnloadRequest 0"});
}

TEST(CompanyDates, FollowTheDateFormatOfTheHost) {
    EntryScene scene;
    scene.entry->put_DateFormat("YYYY-MM-DD");
    const auto company = datedCompany();
    scene.load(company);
    EXPECT_EQ(textOf(scene, "txtLastUpdate"), "2026-11-19");
    typeOver(scene, "txtLastUpdate", "3/4/2024");
    EXPECT_EQ(textOf(scene, "txtLastUpdate"), "2024-03-04");
    typeAt(scene, "txtLastUpdate", "{TAB}");
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2024, 3, 4));
}

// --- numbers ---------------------------------------------------------------------------------

TEST(CompanyNumbers, EveryTypedDigitIsStored) {
    const char* typed[] = {"394.33",
                           "0.1",
                           "123456789012345",
                           "12345678.9012345",
                           "0.00001234567",
                           "999999999999999",
                           "1.1",
                           "72.57",
                           "16777217",
                           "4503599627370.49",
                           ".5",
                           "5.",
                           "000123.450",
                           "33.3"};
    for (const int unit : {3, 6, 9}) {
        EntryScene scene;
        showEveryField(scene);
        const auto company = datedCompany(static_cast<std::int16_t>(unit));
        company->put_High52W(1e300);
        scene.load(company);
        for (const FormField& row : rows) {
            if (row.isText() || row.kind == day)
                continue;
            const char* exponent = row.kind != money || unit == 6 ? "" : unit == 3 ? "e-3" : "e3";
            for (const char* text : typed) {
                SCOPED_TRACE(std::string(row.control) + " " + text + exponent);
                typeOver(scene, row.control, text);
                std::string digits(text);
                if (digits.ends_with('.'))
                    digits.pop_back();
                EXPECT_EQ(readNumber(*company, datumNamed(row.datum)),
                          readFigure(digits + exponent));
                EXPECT_EQ(markOf(scene, row.control), "");
                // The next leave finds it untouched.
                const double stored = readNumber(*company, datumNamed(row.datum));
                typeAt(scene, row.control, "{TAB}");
                EXPECT_EQ(readNumber(*company, datumNamed(row.datum)), stored);
            }
        }
    }
}

TEST(CompanyNumbers, BillionsAreWholeMillions) {
    EntryScene scene;
    const auto company = datedCompany(9);
    scene.load(company);
    typeOver(scene, "txtTotalDebt", "394.33");
    EXPECT_EQ(company->get_TotalDebt(), 394330);
    EXPECT_EQ(textOf(scene, "txtTotalDebt"), "394.33");
    typeOver(scene, "txtTotalDebt", "");
    EXPECT_EQ(company->get_TotalDebt(), 0);
    EXPECT_EQ(textOf(scene, "txtTotalDebt"), "");
}

TEST(CompanyNumbers, AnUntouchedFieldKeepsWhatIsNotShown) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_TotalDebt(1234.5678);
    company->put_CurrentPrice(2.95);
    scene.load(company);
    EXPECT_EQ(textOf(scene, "txtTotalDebt"), "1234.57");
    typeAt(scene, "txtTotalDebt", "{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), 1234.5678);
    // Typed back to what stood there it is untouched, too.
    typeAt(scene, "txtTotalDebt", "{END}9{BACKSPACE}{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), 1234.5678);
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// Everything that can be shown: in the grids as in the fields, hidden negatives among it.
std::shared_ptr<CompanyRecord> unroundedCompany(int unit, bool otherRows) {
    auto company = fullCompany();
    int i = 0;
    for (const auto& row : datumTable()) {
        if (!isSeries(row))
            continue;
        Variant series = readDatum(*company, row.datum);
        for (int e = series.array().lower(); e <= series.array().upper(); ++e) {
            ++i;
            const double sign = i % 7 == 0 ? -1 : 1;
            series.array().setNumber(e, i % 11 == 0 ? 0 : sign * (1234.5678 + i / 3.0));
        }
        writeDatum(*company, row.datum, series);
    }
    company->put_TotalDebt(1234.5678);
    company->put_TotalCap(-1234.5678);
    company->put_CommDiv(-0.3333333);
    company->put_CommDivAlternate(0);
    company->put_CurrentPrice(1000.0 / 3);
    company->put_High52W(2.9501);
    company->put_Low52W(-1.5);
    company->put_InsiderHolding(12.3456789);
    company->put_PrefDiv(0.1 + 0.2);
    company->put_Name(std::string(150, 'n')); // longer than can be typed
    company->put_Notes("one\r\ntwo\n\tthree");
    company->put_Symbol("lower");
    company->get_Settings()->put(setting::unit, static_cast<std::int16_t>(unit));
    company->get_Settings()->put(setting::taxRate, otherRows);
    company->get_Settings()->put(setting::bookValue, otherRows);
    return company;
}

TEST(CompanyNumbers, WalkingThroughAllFieldsOfAllTabsChangesNothing) {
    for (const int unit : {3, 6, 9})
        for (const bool eighths : {false, true})
            for (const bool otherRows : {false, true}) {
                SCOPED_TRACE(std::to_string(unit) + (eighths ? " eighths" : " decimals") +
                             (otherRows ? " rates" : " income"));
                EntryScene scene;
                showEveryField(scene);
                scene.entry->put_FractionDisplay(eighths);
                scene.entry->put_VisibleQuarters(35);
                const auto company = unroundedCompany(unit, otherRows);
                scene.load(company);
                const auto before = company->clone();
                std::set<std::string> met;
                for (int tab = toCompany; tab <= toOptions; ++tab) {
                    scene.desktop.clickTab(tab);
                    for (const auto& id : scene.desktop.tabWalk())
                        met.insert(id);
                }
                for (const TextField* field : allFields(scene))
                    if (field->isEnabled()) {
                        EXPECT_TRUE(met.contains(field->id())) << field->id();
                    }
                for (const char* id : {"txtSales(10)", "txtRevenue(0)", "txtLow(0)"})
                    typeAt(scene, id, "~~{DOWN}{UP 3}+~^{RIGHT}^{LEFT}^{END}^{HOME}{TAB}");
                EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
                EXPECT_FALSE(scene.entry->get_blnDirty());
                EXPECT_TRUE(scene.entry->unstoredFields().empty());
                EXPECT_TRUE(scene.desktop.messages().empty());
            }
}

TEST(CompanyNumbers, PastedFiguresAreReadAsTheyAreWritten) {
    using enum DatumUnit;
    struct {
        std::string pasted;
        double value;
        std::string leftOut = {};
        std::vector<DatumUnit> leftOutOf = {perShare, percent, money, shares};
    } cases[] = {
        {"1,234.5", 1234.5},
        {"(1,234)", -1234, ",", {perShare, percent}},
        {"$5", 5, "$", {shares, percent}},
        {"-$5", -5, "$", {shares, percent}},
        {"$(5.5)", -5.5, "$", {shares, percent}},
        {"abc", 0, "abc"},
        {"12abc", 12, "abc"},
        {"\u22125.5", -5.5},
        {"5.5-", -5.5},
        {"1,234,567.89", 1234567.89},
        {"1e3", 1000},
        {"\t42\t", 42},
        {"42\r\n", 42},
        {"12.5%", 12.5, "%", {perShare, money, shares}},
        {"\u00a07\u00a0", 7},
        {"\U0001F4B0", 0, "\U0001F4B0"},
        {"5\U0001F4B0", 5, "\U0001F4B0"},
        {std::string(10'000, 'x'), 0, std::string(40, 'x') + "\u2026"},
        {"0." + std::string(9'999, '0'), 0},
        {"1-2", 1, "-2"},
    };
    EntryScene scene;
    showEveryField(scene);
    const auto company = datedCompany();
    company->put_High52W(1e300);
    company->put_Low52W(-1e300);
    scene.load(company);
    for (const FormField& row : rows) {
        if (row.isText() || row.kind == day)
            continue;
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(row.control) + " " + one.pasted.substr(0, 30));
            typeOver(scene, row.control, "77");
            pasteOver(scene, row.control, one.pasted);
            if (one.value < 0 && !row.takesMinus()) {
                EXPECT_EQ(readNumber(*company, datumNamed(row.datum)), 77);
                EXPECT_EQ(textOf(scene, row.control), one.pasted);
                EXPECT_EQ(markOf(scene, row.control),
                          "A negative figure makes no sense here and was not stored.");
                continue;
            }
            const std::string shown = one.value != 0 ? shownFigure(row, one.value, 6) : "";
            EXPECT_EQ(readNumber(*company, datumNamed(row.datum)), one.value);
            EXPECT_EQ(textOf(scene, row.control), shown);
            const bool whole =
                one.leftOut.empty() ||
                std::ranges::count(one.leftOutOf, unitOf(datumNamed(row.datum))) == 0;
            EXPECT_EQ(markOf(scene, row.control),
                      whole ? ""
                            : "Taken as " + (shown.empty() ? "0" : shown) + "; \"" + one.leftOut +
                                  "\" was left out.");
        }
    }
}

TEST(CompanyNumbers, ATooLargeNumberStaysTypedAndMarked) {
    for (const int unit : {3, 6, 9}) {
        EntryScene scene;
        showEveryField(scene);
        const auto company = distinctCompany(unit);
        scene.load(company);
        for (const FormField& row : rows) {
            if (row.isText() || row.kind == day)
                continue;
            for (const char* typed : {"1e400", "-1e400", "1e308"}) {
                // As billions even the last one is too many millions.
                if (typed == std::string("1e308") && (row.kind != money || unit != 9))
                    continue;
                SCOPED_TRACE(std::string(row.control) + " " + typed + " " + std::to_string(unit));
                const auto before = company->clone();
                pasteOver(scene, row.control, typed);
                EXPECT_EQ(textOf(scene, row.control), typed);
                EXPECT_EQ(markOf(scene, row.control),
                          "This number is too large and was not stored.");
                EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
            }
            if (row.kind != money) {
                pasteOver(scene, row.control, "1e308");
                EXPECT_EQ(markOf(scene, row.control), "") << row.control;
                EXPECT_EQ(readNumber(*company, datumNamed(row.datum)), 1e308) << row.control;
            }
            typeOver(scene, row.control, "150");
            EXPECT_EQ(markOf(scene, row.control), "") << row.control;
            EXPECT_EQ(readNumber(*company, datumNamed(row.datum)), row.kind != money || unit == 6
                                                                       ? 150
                                                                   : unit == 3 ? 0.15
                                                                               : 150'000)
                << row.control;
        }
    }
}

TEST(CompanyNumbers, UndoingARefusedTextKeepsTheStoredFigure) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_TotalDebt(1234.5678);
    company->put_CurrentPrice(9.87654);
    company->put_CommDiv(-2);
    company->put_CommDivAlternate(-2);
    putElement(*company, "YEPSSeries", 1, 1.23456);
    putElement(*company, "YHighSeries", 1, 8.76543);
    scene.load(company);
    const auto before = company->clone();
    for (const bool fractions : {false, true}) {
        scene.entry->put_FractionDisplay(fractions);
        for (const char* id :
             {"txtTotalDebt", "txtCurrentPrice", "txtCommDiv", "txtYEPS(9)", "txtHigh(9)"}) {
            SCOPED_TRACE(id);
            const std::string shown = textOf(scene, id);
            pasteOver(scene, id, "1e400");
            EXPECT_NE(markOf(scene, id), "");
            pasteOver(scene, id, "2e400"); // and once more
            EXPECT_NE(markOf(scene, id), "");
            scene.desktop.setClipboardText(shown);
            typeAt(scene, id, shown.empty() ? "^a{DEL}{TAB}" : "^a^v{TAB}");
            EXPECT_EQ(textOf(scene, id), shown);
            EXPECT_EQ(markOf(scene, id), "");
            EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
        }
    }
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    pasteOver(scene, "txtTotalDebt", "1e400");
    typeAt(scene, "txtTotalDebt", "^z^z");
    EXPECT_EQ(scene.text("txtTotalDebt"), "1234.57");
    scene.desktop.type("{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), 1234.5678);
    EXPECT_EQ(markOf(scene, "txtTotalDebt"), "");
}

TEST(CompanyNumbers, ARefusedPriceFollowsTheDisplayOfWhatIsStored) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_CurrentPrice(3.1416);
    putElement(*company, "YHighSeries", 1, 3.1416);
    scene.load(company);
    const auto stored = [&](const std::string& id) {
        return id == "txtHigh(9)" ? elementOf(*company, "YHighSeries", 1)
                                  : company->get_CurrentPrice();
    };
    for (const char* id : {"txtCurrentPrice", "txtHigh(9)"}) {
        SCOPED_TRACE(id);
        scene.entry->put_FractionDisplay(true);
        ASSERT_EQ(textOf(scene, id), "3 1/8");
        pasteOver(scene, id, "1e400");
        scene.entry->put_FractionDisplay(false);
        EXPECT_EQ(textOf(scene, id), "1e400");
        EXPECT_NE(markOf(scene, id), "");
        typeOver(scene, id, "3.142"); // what decimals show of it
        EXPECT_EQ(stored(id), 3.1416);
        EXPECT_EQ(markOf(scene, id), "");
        scene.entry->put_FractionDisplay(true);
        pasteOver(scene, id, "1e400");
        scene.entry->put_FractionDisplay(false);
        typeOver(scene, id, "3 1/8");
        EXPECT_EQ(stored(id), 3.125);
        EXPECT_EQ(textOf(scene, id), "3.125");
    }
}

TEST(CompanyNumbers, ARefusedTextThatGaveWayToANewFigureIsStored) {
    EntryScene scene;
    const auto record = std::make_shared<ScriptedRecord>(datedCompany());
    record->put_TotalDebt(1234.5678);
    scene.load(record);
    record->failing = {"write TotalDebt"};
    typeOver(scene, "txtTotalDebt", "77");
    EXPECT_NE(markOf(scene, "txtTotalDebt"), "");
    record->failing = {};
    typeOver(scene, "txtTotalDebt", "88.125");
    EXPECT_EQ(record->get_TotalDebt(), 88.125);
    EXPECT_EQ(scene.text("txtTotalDebt"), "88.13");
    // From here on this is what stands for the stored figure.
    pasteOver(scene, "txtTotalDebt", "1e400");
    typeOver(scene, "txtTotalDebt", "1234.57");
    EXPECT_EQ(record->get_TotalDebt(), 1234.57);
    pasteOver(scene, "txtTotalDebt", "1e400");
    typeOver(scene, "txtTotalDebt", "1234.57");
    EXPECT_EQ(record->get_TotalDebt(), 1234.57);
    EXPECT_EQ(markOf(scene, "txtTotalDebt"), "");
}

TEST(CompanyNumbers, AGroupedFigureMayBeEditedAnywhere) {
    struct {
        int caret;
        const char* keys;
        double stored;
    } cases[] = {{4, "5", 12354.5},
                 {4, "{BACKSPACE}", 124.5},
                 {0, "9", 91234.5},
                 {1, "0", 10234.5},
                 {2, "{BACKSPACE}", 1234.5},
                 {5, "67", 123467.5},
                 {3, "{DEL}{DEL}{DEL}", 1250},
                 {8, "9", 1234.509},
                 {0, "-", -1234.5}};
    for (const char* pattern : {"#,##0.00", "$#,##0.00", "Standard"})
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(pattern) + " " + std::to_string(one.caret) + one.keys);
            EntryScene scene;
            scene.entry->put_NumberFormat(pattern);
            const auto company = datedCompany();
            company->put_TotalDebt(1234.5);
            putElement(*company, "YNetIncSeries", 1, 1234.5);
            scene.load(company);
            const int sign = pattern[0] == '$' ? 1 : 0;
            for (const char* id : {"txtTotalDebt", "txtYNetInc(9)"}) {
                goTo(scene, id);
                ASSERT_EQ(textOf(scene, id),
                          std::string(pattern[0] == '$' ? "$" : "") + "1,234.50");
                scene.desktop.clickAt(one.caret == 0 ? 0 : one.caret + sign);
                if (one.caret != 0 || sign == 0 || one.keys[0] == '-')
                    scene.desktop.type(std::string(one.keys) + "{TAB}");
                else
                    scene.desktop.type(std::string("{RIGHT}") + one.keys + "{TAB}");
            }
            EXPECT_EQ(company->get_TotalDebt(), one.stored);
            EXPECT_EQ(elementOf(*company, "YNetIncSeries", 1), one.stored);
        }
}

TEST(CompanyNumbers, InsiderHoldingIsShownAndReadInPercent) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_InsiderHolding(12.5);
    scene.load(company);
    EXPECT_EQ(textOf(scene, "txtInsiderHolding"), "12.5%");
    typeOver(scene, "txtInsiderHolding", "7.25");
    EXPECT_EQ(company->get_InsiderHolding(), 7.25);
    EXPECT_EQ(textOf(scene, "txtInsiderHolding"), "7.3%");
    typeAt(scene, "txtInsiderHolding", "{END}{BACKSPACE}{BACKSPACE}8{TAB}"); // "7.3%" to "7.8"
    EXPECT_EQ(company->get_InsiderHolding(), 7.8);
    // The sign may stay where it is.
    typeAt(scene, "txtInsiderHolding", "{HOME}1{TAB}");
    EXPECT_EQ(company->get_InsiderHolding(), 17.8);
    EXPECT_EQ(textOf(scene, "txtInsiderHolding"), "17.8%");
}

TEST(CompanyNumbers, FractionsAreStoredAsDecimals) {
    struct {
        const char* typed;
        double stored;
        const char* decimal;
        const char* fraction;
    } cases[] = {
        {"3 1/8", 3.125, "3.125", "3 1/8"},
        {"3/8", 0.375, "0.375", "3/8"},
        {"12", 12, "12.000", "12"},
        {"3 1/0", 3, "3.000", "3"},
        {"7 3/16", 7.1875, "7.188", "7 1/4"},
        {"2.5", 2.5, "2.500", "2 1/2"},
        {"1 0/8", 0, "", ""},
    };
    for (const bool eighths : {false, true}) {
        EntryScene scene;
        const auto company = datedCompany();
        scene.load(company);
        scene.entry->put_FractionDisplay(eighths);
        for (const char* field : priceFields)
            for (const auto& one : cases) {
                SCOPED_TRACE(std::string(field) + " " + one.typed);
                typeOver(scene, field, one.typed);
                const auto row =
                    std::ranges::find(rows, std::string_view(field), &FormField::control);
                EXPECT_EQ(readNumber(*company, datumNamed(row->datum)), one.stored);
                EXPECT_EQ(textOf(scene, field), eighths ? one.fraction : one.decimal);
                EXPECT_EQ(scene.field(field).tag(), textOf(scene, field));
            }
    }
}

TEST(CompanyNumbers, NegativesAreStoredWithTheirSign) {
    for (const int unit : {3, 6, 9}) {
        EntryScene scene;
        showEveryField(scene);
        const auto company = datedCompany(static_cast<std::int16_t>(unit));
        scene.load(company);
        for (const FormField& row : rows) {
            if (row.isText() || row.kind == day || !row.takesMinus())
                continue;
            SCOPED_TRACE(row.control);
            typeOver(scene, row.control, "-12.5");
            const double factor = row.kind == money ? factorOf(unit) : 1;
            EXPECT_DOUBLE_EQ(readNumber(*company, datumNamed(row.datum)), -12.5 / factor);
            EXPECT_EQ(textOf(scene, row.control), row.kind == percent ? "-12.5%" : "-12.50");
        }
    }
}

// --- what a record refuses -------------------------------------------------------------------

TEST(CompanyFields, ARefusedWriteKeepsTheTextMarkedAndIsTriedAgain) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = std::make_shared<ScriptedRecord>(distinctCompany(6));
    for (const FormField& row : rows)
        company->failing.insert("write " + std::string(row.datum));
    scene.load(company);
    const auto before = company->company->clone();
    for (const FormField& row : rows) {
        SCOPED_TRACE(row.control);
        const std::string typed = row.isText()      ? "9 LIVES"
                                  : row.kind == day ? "5/6/2024"
                                                    : "125000";
        typeOver(scene, row.control, typed);
        EXPECT_EQ(textOf(scene, row.control), typed);
        EXPECT_EQ(markOf(scene, row.control),
                  "This value could not be stored. write " + std::string(row.datum) + " fails");
    }
    EXPECT_EQ(scene.entry->unstoredFields().size(), std::size(rows));
    // The alternate dividend has its own write, which was not refused.
    EXPECT_EQ(changedData(*before, *company->company),
              std::vector<std::string>{"CommDivAlternate"});
    company->failing.clear();
    for (const FormField& row : rows) {
        SCOPED_TRACE(row.control);
        typeAt(scene, row.control, "{TAB}");
        EXPECT_EQ(markOf(scene, row.control), "");
        const Datum datum = datumNamed(row.datum);
        if (row.isText())
            EXPECT_EQ(readText(*company->company, datum), "9 LIVES");
        else if (row.kind == day)
            EXPECT_EQ(readDate(*company->company, datum), *makeDate(2024, 5, 6));
        else
            EXPECT_EQ(readNumber(*company->company, datum), 125000);
    }
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
}

TEST(CompanyFields, OneThatIsOnlyLeftPutsBackWhatIsStored) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = std::make_shared<ScriptedRecord>(distinctCompany(6));
    scene.load(company);
    for (const FormField& row : rows) {
        goTo(scene, row.control);
        company->log.clear();
        scene.desktop.type("{TAB}");
        EXPECT_EQ(company->logged("write "),
                  std::vector<std::string>{"write " + std::string(row.datum)});
    }
}

TEST(CompanyFields, ARefusedTextSurvivesASwitchOfThePriceDisplay) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_High52W(20.5);
    scene.load(company);
    pasteOver(scene, "txt52WHigh", "1e400");
    scene.entry->put_FractionDisplay(true);
    EXPECT_EQ(textOf(scene, "txt52WHigh"), "1e400");
    EXPECT_NE(markOf(scene, "txt52WHigh"), "");
    scene.entry->put_FractionDisplay(false);
    EXPECT_EQ(textOf(scene, "txt52WHigh"), "1e400");
    EXPECT_EQ(company->get_High52W(), 20.5);
}

TEST(CompanyFields, UnderTheLockNothingIsWritten) {
    EntryScene scene;
    showEveryField(scene);
    const auto company = distinctCompany(6);
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.load(company);
    const auto before = company->clone();
    for (const FormField& row : rows) {
        const std::string shown = textOf(scene, row.control);
        typeOver(scene, row.control, "5");
        pasteOver(scene, row.control, "6");
        EXPECT_EQ(textOf(scene, row.control), shown) << row.control;
    }
    EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(CompanyFields, TheDividendShowsItsAlternateAndWritesBoth) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_CommDiv(1.5);
    scene.load(company);
    EXPECT_EQ(textOf(scene, "txtCommDiv"), "1.50");
    company->put_CommDivAlternate(2.25);
    scene.load(company);
    EXPECT_EQ(textOf(scene, "txtCommDiv"), "2.25");
    typeAt(scene, "txtCommDiv", "{TAB}");
    EXPECT_EQ(company->get_CommDiv(), 1.5);
    EXPECT_EQ(company->get_CommDivAlternate(), 2.25);
    typeOver(scene, "txtCommDiv", "3.1");
    EXPECT_EQ(company->get_CommDiv(), 3.1);
    EXPECT_EQ(company->get_CommDivAlternate(), 3.1);
}

TEST(CompanyFields, AnotherTextThanTheSourceSwitchesNoRow) {
    EntryScene scene;
    const auto company = datedCompany();
    company->put_Source("Value Line");
    scene.load(company);
    typeOver(scene, "txtName", "Acme");
    for (const char* option : {"optPTI", "optCommEq"})
        EXPECT_TRUE(scene.form().get<OptionButton>(option, 0).value()) << option;
}

TEST(CompanyFields, NameAndSymbolTellTheHostOfTheirChange) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    scene.entry->put_blnDirty(true);
    int told = 0;
    scene.entry->stateChanged = [&] { ++told; };
    typeOver(scene, "txtName", "Acme");
    EXPECT_EQ(told, 1);
    typeOver(scene, "txtSymbol", "acm");
    EXPECT_EQ(told, 2);
    EXPECT_EQ(company->get_Symbol(), "ACM");
    typeAt(scene, "txtName", "{TAB}");
    EXPECT_EQ(told, 2);
    typeOver(scene, "txtName", "");
    EXPECT_EQ(company->get_Name(), "");
    EXPECT_EQ(told, 3);
    scene.entry->stateChanged = nullptr;
}

TEST(CompanyFields, EveryChangeIsToldAlsoOneThatTakesAnotherBack) {
    EntryScene scene;
    scene.load(datedCompany());
    int told = 0;
    scene.entry->stateChanged = [&] { ++told; };
    typeOver(scene, "txtCity", "Springfield");
    EXPECT_EQ(told, 1);
    typeOver(scene, "txtCity", "");
    EXPECT_EQ(told, 2);
    typeAt(scene, "txtCity", "{TAB}");
    EXPECT_EQ(told, 2) << "nothing was typed";
    scene.entry->stateChanged = nullptr;
}

TEST(CompanyFields, LeavingForTheHostsOwnButtonStoresWhatIsBeingTyped) {
    EntryScene scene;
    const auto company = datedCompany();
    scene.load(company);
    typeAt(scene, "txtCity", "Springfield");
    EXPECT_EQ(company->get_City(), "");
    scene.entry->leaveField();
    EXPECT_EQ(company->get_City(), "Springfield");
    EXPECT_EQ(scene.desktop.focusedId(), "txtCity");
    scene.desktop.type("{END}!");
    scene.desktop.leaveForm();
    EXPECT_EQ(company->get_City(), "Springfield!");
}

} // namespace
} // namespace vkr
