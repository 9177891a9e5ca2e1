// SPDX-License-Identifier: MIT
#include "input/options_tab.hpp"
#include "platform/text.hpp"
#include "tests/support/classic_figures.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/field_steps.hpp"
#include "tests/support/form_fields.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace vkr {
namespace {

using namespace test;

std::string fixed(double value, int digits = 2) {
    return fixedFigure(value, digits);
}

// Figures whose two decimals never stand half-way, in every datum and element.
std::shared_ptr<CompanyRecord> evenCompany() {
    auto company = datedCompany();
    double figure = 1000;
    for (const auto& row : datumTable()) {
        if (std::holds_alternative<NumberAccess>(row.access)) {
            writeDatum(*company, row.datum, figure += 1000);
        } else if (isSeries(row)) {
            Variant series = readDatum(*company, row.datum);
            for (int e = series.array().lower(); e <= series.array().upper(); ++e)
                series.array().setNumber(e, figure += 1000);
            writeDatum(*company, row.datum, series);
        }
    }
    company->put_CommDivAlternate(0);
    return company;
}

struct OptionsScene : EntryScene {
    std::shared_ptr<CompanyRecord> company = evenCompany();

    OptionsScene() { load(company); }
    explicit OptionsScene(std::shared_ptr<CompanyRecord> record) : company(std::move(record)) {
        load(company);
    }
    void choose(const char* option, int index) {
        goTo(*this, std::string(option) + "(" + std::to_string(index) + ")");
    }
    [[nodiscard]] bool chosen(const char* option, int index) const {
        return form().get<OptionButton>(option, index).value();
    }
    [[nodiscard]] std::string caption(const char* label, int index = Control::noIndex) const {
        return form().get<Label>(label, index).caption();
    }
    [[nodiscard]] int storedUnit() const {
        return company->get_Settings()->get(setting::unit).toLong();
    }
    [[nodiscard]] std::map<std::string, std::string> texts() const {
        std::map<std::string, std::string> result;
        for (const TextField* field : allFields(*this))
            result[field->id()] = field->text();
        return result;
    }
};

// --- currency unit ---------------------------------------------------------------------------

std::set<std::string> unitFields(bool income, bool equity) {
    std::set<std::string> names;
    for (const test::FormField& field : test::formFields)
        if (field.kind == test::FieldContent::money)
            names.emplace(field.control);
    // Their columns show what is in no unit.
    if (!income) {
        names.erase("txtYOption");
        names.erase("txtQOption");
    }
    if (!equity)
        names.erase("txtYOption2");
    return names;
}

TEST(UnitOption, RedrawsMoneyAndSharesAndNothingElse) {
    for (const bool income : {true, false})
        for (const bool equity : {true, false}) {
            const auto record = evenCompany();
            record->get_Settings()->put(setting::taxRate, !income);
            record->get_Settings()->put(setting::bookValue, !equity);
            OptionsScene scene(record);
            const auto names = unitFields(income, equity);
            double shownFactor = 1;
            for (const int index : {0, 2, 1, 2, 0, 1}) {
                const auto before = scene.texts();
                const auto record_before = scene.company->clone();
                const double factor = index == 0 ? 1000 : index == 2 ? 0.001 : 1;
                scene.choose("optCurrency", index);
                SCOPED_TRACE("unit " + std::to_string(index));
                for (const auto& [id, text] : scene.texts()) {
                    const std::string name = id.substr(0, id.find('('));
                    const double old = readFigure(before.at(id));
                    EXPECT_EQ(text, names.contains(name) && !before.at(id).empty()
                                        ? fixed(std::round(old / shownFactor * factor * 100) / 100)
                                        : before.at(id))
                        << id;
                    if (names.contains(name)) {
                        EXPECT_EQ(dynamic_cast<const TextField&>(scene.desktop.control(id)).tag(),
                                  text)
                            << id;
                    }
                }
                EXPECT_EQ(changedData(*record_before, *scene.company),
                          std::vector<std::string>{"intUnit"});
                shownFactor = factor;
            }
        }
}

TEST(UnitOption, StoresTheUnitAndMarksTheCompany) {
    OptionsScene scene;
    EXPECT_TRUE(scene.chosen("optCurrency", 1));
    for (const int index : {2, 0, 1}) {
        scene.entry->put_blnDirty(false);
        scene.choose("optCurrency", index);
        EXPECT_EQ(scene.storedUnit(), (index + 1) * 3);
        EXPECT_TRUE(scene.chosen("optCurrency", index));
        EXPECT_TRUE(scene.entry->get_blnDirty()) << index;
    }
}

TEST(UnitOption, IsHandedBackToARecordThatLendsItsSettings) {
    const auto record = std::make_shared<ScriptedRecord>(datedCompany());
    record->lendsSettings = true;
    EntryScene scene;
    scene.load(record);
    scene.desktop.clickTab(toOptions);
    scene.desktop.click("optCurrency(2)");
    EXPECT_EQ(record->company->get_Settings()->get(setting::unit).toLong(), 9);
}

TEST(UnitOption, ChangesNothingBeforeThereIsACompany) {
    EntryScene scene;
    scene.entry->put_CurrentTab(toOptions);
    const std::string head = scene.desktop.control("lblUnit(0)").caption();
    scene.form().click(scene.desktop.control("optCurrency(2)"));
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_EQ(scene.desktop.control("lblUnit(0)").caption(), head);
}

TEST(UnitOption, NamesTheUnitInTheCaptions) {
    struct {
        int index;
        const char* suffix;
    } units[] = {{0, " (K)"}, {2, " (B)"}, {1, " (M)"}};
    OptionsScene scene;
    for (const auto& unit : units) {
        scene.choose("optCurrency", unit.index);
        const std::string suffix = unit.suffix;
        EXPECT_EQ(scene.caption("lblUnit", 0), "Total Debt" + suffix);
        EXPECT_EQ(scene.caption("lblUnit", 1), "Preferred Shares" + suffix);
        EXPECT_EQ(scene.caption("lblUnit", 4), "Revenue" + suffix);
        EXPECT_EQ(scene.caption("lblUnit", 6), "Shares Outstanding" + suffix);
        for (int i = 0; i <= scene.form().upperBound("lblUnit"); ++i)
            EXPECT_TRUE(scene.caption("lblUnit", i).ends_with(suffix)) << i;
        EXPECT_EQ(scene.caption("lblYOption"), "Pre-Tax Income" + suffix);
        EXPECT_EQ(scene.caption("lblQOption"), "Pre-Tax Income" + suffix);
        EXPECT_EQ(scene.caption("lblYOption2"), "Common Equity" + suffix);
    }
    // Rates and book values are no money: their captions name no unit, whatever it is.
    scene.choose("optPTI", 1);
    scene.choose("optCommEq", 1);
    for (const int index : {0, 2, 1}) {
        scene.choose("optCurrency", index);
        EXPECT_EQ(scene.caption("lblYOption"), "Tax Rate (%)");
        EXPECT_EQ(scene.caption("lblQOption"), "Tax Rate (%)");
        EXPECT_EQ(scene.caption("lblYOption2"), "Book Value");
    }
}

TEST(UnitOption, ZeroFiguresStayEmpty) {
    OptionsScene scene(datedCompany());
    for (const int index : {0, 2, 1}) {
        scene.choose("optCurrency", index);
        for (const char* id : {"txtTotalDebt", "txtSales(3)", "txtRevenue(0)", "txtCSO(10)"})
            EXPECT_EQ(textOf(scene, id), "") << id;
    }
}

TEST(UnitOption, ShowsNegativesOfTheScaledFields) {
    OptionsScene scene(datedCompany());
    scene.company->put_TotalCap(-2);
    scene.company->put_PrefDiv(-3);
    putElement(*scene.company, "YNetIncSeries", 1, -4);
    putElement(*scene.company, "YRevenueSeries", 1, -5);
    scene.load(scene.company);
    scene.choose("optCurrency", 0);
    EXPECT_EQ(textOf(scene, "txtTotalCap"), "-2000.00");
    EXPECT_EQ(textOf(scene, "txtPrefDiv"), "-3000.00");
    EXPECT_EQ(textOf(scene, "txtYNetInc(9)"), "-4000.00");
    EXPECT_EQ(textOf(scene, "txtSales(9)"), "");
    scene.choose("optCurrency", 1);
    EXPECT_EQ(scene.company->get_TotalCap(), -2);
    EXPECT_EQ(elementOf(*scene.company, "YRevenueSeries", 1), -5);
}

TEST(UnitOption, ACompanyWithoutAUnitIsShownInMillions) {
    OptionsScene scene(datedCompany(0));
    EXPECT_EQ(scene.storedUnit(), 6);
    EXPECT_TRUE(scene.chosen("optCurrency", 1));
    EXPECT_EQ(scene.caption("lblUnit", 0), "Total Debt (M)");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(UnitOption, AFigureTypedBeforeTheSwitchKeepsItsValue) {
    OptionsScene scene;
    typeOver(scene, "txtTotalDebt", "0.123456");
    scene.choose("optCurrency", 0);
    EXPECT_EQ(textOf(scene, "txtTotalDebt"), "123.46");
    EXPECT_EQ(scene.company->get_TotalDebt(), 0.123456);
    // The click itself leaves the field that is still being typed into, in the old unit.
    typeAt(scene, "txtPrefDiv", "^a{DEL}1500");
    scene.choose("optCurrency", 1);
    EXPECT_EQ(scene.company->get_PrefDiv(), 1.5);
    EXPECT_EQ(textOf(scene, "txtPrefDiv"), "1.50");
}

TEST(UnitOption, ARecordThatRefusesKeepsTheUnitInForce) {
    EntryScene scene;
    const auto company = std::make_shared<ScriptedRecord>(datedCompany());
    company->put_TotalDebt(5);
    scene.load(company);
    company->failing = {"put intUnit"};
    goTo(scene, "optCurrency(0)");
    EXPECT_TRUE(scene.form().get<OptionButton>("optCurrency", 1).value());
    EXPECT_EQ(textOf(scene, "txtTotalDebt"), "5.00");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// --- choosing what is chosen -----------------------------------------------------------------

TEST(Options, ChoosingWhatIsChosenChangesNothing) {
    for (const int unit : {3, 6, 9})
        for (const bool second : {false, true}) {
            const auto record = evenCompany();
            record->get_Settings()->put(setting::unit, std::int16_t(unit));
            record->get_Settings()->put(setting::taxRate, second);
            record->get_Settings()->put(setting::bookValue, second);
            OptionsScene scene(record);
            scene.entry->put_FractionDisplay(second);
            EXPECT_FALSE(scene.entry->get_blnDirty());
            const auto texts = scene.texts();
            const auto before = scene.company->clone();
            scene.choose("optCurrency", unit / 3 - 1);
            scene.choose("optPTI", second ? 1 : 0);
            scene.choose("optCommEq", second ? 1 : 0);
            scene.choose("optDisplay", second ? 1 : 0);
            EXPECT_FALSE(scene.entry->get_blnDirty());
            EXPECT_EQ(scene.texts(), texts);
            EXPECT_EQ(changedData(*before, *scene.company), std::vector<std::string>{});
        }
}

TEST(Options, LoadingNeverMarksChangedAndShowsTheChoicesOfTheCompany) {
    EntryScene scene;
    for (const bool rate : {true, false})
        for (const bool book : {true, false})
            for (const int unit : {0, 3, 6, 9}) {
                const auto record = evenCompany();
                record->get_Settings()->put(setting::unit, std::int16_t(unit));
                record->get_Settings()->put(setting::taxRate, rate);
                record->get_Settings()->put(setting::bookValue, book);
                scene.load(record);
                EXPECT_FALSE(scene.entry->get_blnDirty());
                EXPECT_TRUE(scene.form().get<OptionButton>("optPTI", rate ? 1 : 0).value());
                EXPECT_TRUE(scene.form().get<OptionButton>("optCommEq", book ? 1 : 0).value());
                EXPECT_TRUE(scene.form()
                                .get<OptionButton>("optCurrency", unit == 0 ? 1 : unit / 3 - 1)
                                .value());
            }
    // Nor does it take a mark away.
    scene.entry->put_blnDirty(true);
    scene.load(evenCompany());
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

TEST(Options, EveryRealChangeMarksTheCompanyAndClosesTheHelpFrame) {
    struct {
        const char* option;
        int index;
    } changes[] = {{"optCurrency", 0}, {"optDisplay", 1}, {"optPTI", 1}, {"optCommEq", 1},
                   {"optCurrency", 1}, {"optDisplay", 0}, {"optPTI", 0}, {"optCommEq", 0}};
    OptionsScene scene;
    for (const auto& change : changes) {
        SCOPED_TRACE(std::string(change.option) + " " + std::to_string(change.index));
        scene.entry->put_blnDirty(false);
        scene.desktop.clickTab(toOptions);
        scene.form().get<Frame>("fraDE", 0).setVisible(true);
        scene.choose(change.option, change.index);
        EXPECT_TRUE(scene.entry->get_blnDirty());
        EXPECT_FALSE(scene.form().get<Frame>("fraDE", 0).visible());
        EXPECT_TRUE(scene.chosen(change.option, change.index));
    }
}

TEST(Options, TheRightButtonAndTheMenuKeyOpenTheMenuAndChooseNothing) {
    struct {
        const char* option;
        int count;
        const char* object;
    } groups[] = {{"optCurrency", 3, "55"},
                  {"optDisplay", 2, "59"},
                  {"optPTI", 2, "56"},
                  {"optCommEq", 2, "57"}};
    OptionsScene scene;
    scene.desktop.clickTab(toOptions);
    for (const auto& group : groups)
        for (int index = 0; index < group.count; ++index) {
            SCOPED_TRACE(std::string(group.option) + " " + std::to_string(index));
            const bool was = scene.chosen(group.option, index);
            const auto menus = scene.desktop.menus().size();
            scene.desktop.answerNextMenu("What's This?");
            scene.desktop.rightClick(group.option, index);
            EXPECT_EQ(scene.desktop.control("lblMoreHelp").tag(), group.object);
            EXPECT_TRUE(scene.form().get<Frame>("fraDE", 0).visible());
            scene.form().find(group.option, index)->setFocus();
            scene.desktop.type("{MENU}");
            EXPECT_FALSE(scene.form().get<Frame>("fraDE", 0).visible());
            EXPECT_EQ(scene.desktop.menus().size(), menus + 2);
            EXPECT_EQ(scene.chosen(group.option, index), was);
        }
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(Options, ArrowKeysChooseAsAClickDoes) {
    OptionsScene scene;
    scene.desktop.clickTab(toOptions);
    EXPECT_EQ(scene.desktop.focusedId(), "optCurrency(1)");
    scene.desktop.type("{UP}");
    EXPECT_EQ(scene.storedUnit(), 3);
    scene.desktop.type("{DOWN}{DOWN}");
    EXPECT_EQ(scene.storedUnit(), 9);
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

// --- price display ---------------------------------------------------------------------------

TEST(PriceDisplay, ComesBackWithTheExactDecimalsOfTheRecord) {
    OptionsScene scene(datedCompany());
    scene.company->put_CurrentPrice(2.95);
    scene.company->put_High52W(3.14159);
    scene.company->put_Low52W(0.3);
    for (int element = 0; element <= 10; ++element) {
        putElement(*scene.company, "YHighSeries", element, element + 0.3);
        putElement(*scene.company, "YLowSeries", element, element == 5 ? -1.5 : 0);
    }
    scene.load(scene.company);
    const auto before = scene.company->clone();
    EXPECT_EQ(scene.text("txtCurrentPrice"), "2.950");
    const auto decimals = scene.texts();
    scene.choose("optDisplay", 1);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "2 1/1");
    EXPECT_EQ(scene.text("txt52WHigh"), "3 1/8");
    EXPECT_EQ(scene.text("txt52WLow"), "1/4");
    EXPECT_EQ(textOf(scene, "txtHigh(0)"), "10 1/4");
    EXPECT_EQ(textOf(scene, "txtHigh(9)"), "1 1/4");
    EXPECT_EQ(textOf(scene, "txtHigh(10)"), "1/4");
    EXPECT_EQ(textOf(scene, "txtLow(5)"), "");
    for (const TextField* field : allFields(scene))
        EXPECT_EQ(field->tag(), field->text()) << field->id();
    scene.choose("optDisplay", 0);
    EXPECT_EQ(scene.texts(), decimals);
    EXPECT_EQ(changedData(*before, *scene.company), std::vector<std::string>{});
}

TEST(PriceDisplay, FollowsTheHostsPropertyWithoutAMark) {
    OptionsScene scene;
    scene.company->put_CurrentPrice(2.5);
    scene.load(scene.company);
    scene.entry->put_FractionDisplay(true);
    EXPECT_TRUE(scene.chosen("optDisplay", 1));
    EXPECT_EQ(scene.text("txtCurrentPrice"), "2 1/2");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    scene.entry->put_FractionDisplay(false);
    EXPECT_TRUE(scene.chosen("optDisplay", 0));
    EXPECT_EQ(scene.text("txtCurrentPrice"), "2.500");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(PriceDisplay, KeepsAPriceThatIsBeingTyped) {
    OptionsScene scene;
    typeAt(scene, "txtCurrentPrice", "^a{DEL}7.5");
    scene.entry->put_FractionDisplay(true);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "7 1/2");
    scene.desktop.type("{TAB}");
    EXPECT_EQ(scene.company->get_CurrentPrice(), 7.5);
    // In the grid as well.
    typeAt(scene, "txtHigh(4)", "^a{DEL}9 3/8");
    scene.entry->put_FractionDisplay(false);
    EXPECT_EQ(textOf(scene, "txtHigh(4)"), "9.375");
    scene.desktop.type("{TAB}");
    EXPECT_EQ(elementOf(*scene.company, "YHighSeries", 6), 9.375);
}

std::shared_ptr<CompanyRecord> pricedCompany(double price) {
    auto company = datedCompany();
    company->put_CurrentPrice(price);
    putElement(*company, "YHighSeries", 10, price);
    return company;
}

TEST(PriceDisplay, GivesUpAPriceThatIsBeingTypedForTheStoredOne) {
    struct {
        const char* id;
        const char* datum;
        const char* typed; // in eighths
    } rows[] = {{"txtCurrentPrice", "CurrentPrice", "7 1/2"},
                {"txt52WHigh", "High52W", "3 1/"},
                {"txtHigh(0)", "YHighSeries", "7 1/2"}};
    for (const auto& row : rows)
        for (const bool readable : {true, false}) {
            SCOPED_TRACE(std::string(row.id) + (readable ? "" : ", which cannot be read"));
            const auto company = pricedCompany(5.125);
            company->put_High52W(5.125);
            const auto before = company->clone();
            const auto record = std::make_shared<ScriptedRecord>(company);
            EntryScene scene;
            scene.load(record);
            scene.entry->put_FractionDisplay(true);
            typeAt(scene, row.id, std::string("^a{DEL}") + row.typed);
            if (!readable)
                record->failing = {std::string("read ") + row.datum};
            scene.entry->put_FractionDisplay(false);
            scene.desktop.type("{ESC}");
            EXPECT_EQ(textOf(scene, row.id), "5.125");
            record->failing.clear();
            scene.desktop.type("{TAB}");
            EXPECT_EQ(changedData(*before, *company), std::vector<std::string>{});
        }
}

TEST(PriceDisplay, LosesNoPriceThatIsBeingTypedWhereMemoryRunsOut) {
    for (const bool readable : {true, false})
        for (const auto& [id, fails] : {std::pair{"txtCurrentPrice", FailingMemory::Fails::once},
                                        {"txtCurrentPrice", FailingMemory::Fails::fromThenOn},
                                        {"txtHigh(0)", FailingMemory::Fails::once},
                                        {"txtHigh(0)", FailingMemory::Fails::fromThenOn}}) {
            bool failed = true;
            for (int nth = 1; failed; ++nth) {
                SCOPED_TRACE(std::string(id) + (readable ? " " : " unreadable ") +
                             std::to_string(nth));
                const auto company = pricedCompany(5.125);
                const auto record = std::make_shared<ScriptedRecord>(company);
                EntryScene scene;
                scene.load(record);
                scene.entry->put_FractionDisplay(true);
                typeAt(scene, id, "^a{DEL}7 1/2");
                if (!readable)
                    record->failing = {"read CurrentPrice", "read YHighSeries"};
                {
                    const FailingMemory memory(nth, fails);
                    scene.entry->put_FractionDisplay(false);
                    failed = memory.hasFailed();
                }
                record->failing.clear();
                typeAt(scene, id, "{TAB}");
                EXPECT_EQ(std::string_view(id) == "txtHigh(0)"
                              ? elementOf(*company, "YHighSeries", 10)
                              : company->get_CurrentPrice(),
                          7.5);
            }
        }
}

// Eighths would lose digits that nobody has stored yet.
TEST(PriceDisplay, KeepsTheDigitsOfAPriceThatIsBeingTyped) {
    struct {
        const char* typed;
        double stored;
        const char* eighths;
    } cases[] = {{"7.6", 7.6, "7 5/8"},  {"9.9999", 9.9999, "10"},
                 {"12.06", 12.06, "12"}, {"2.95", 2.95, "2 1/1"},
                 {"0.01", 0.01, "0"},    {"3 1/3", 3.33333333333333, "3 3/8"}};
    for (const char* id : {"txtCurrentPrice", "txt52WHigh", "txt52WLow", "txtHigh(9)", "txtLow(0)"})
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(id) + " " + one.typed);
            OptionsScene scene(datedCompany());
            typeAt(scene, id, "^a{DEL}" + keysOf(one.typed));
            scene.entry->put_FractionDisplay(true);
            EXPECT_EQ(textOf(scene, id), one.typed);
            scene.desktop.type("{TAB}");
            const std::map<std::string, double> stored = {
                {"txtCurrentPrice", scene.company->get_CurrentPrice()},
                {"txt52WHigh", scene.company->get_High52W()},
                {"txt52WLow", scene.company->get_Low52W()},
                {"txtHigh(9)", elementOf(*scene.company, "YHighSeries", 1)},
                {"txtLow(0)", elementOf(*scene.company, "YLowSeries", 10)}};
            EXPECT_EQ(stored.at(id), one.stored);
            EXPECT_EQ(textOf(scene, id), one.eighths);
        }
}

TEST(PriceDisplay, HoldsAPriceThatIsBeingTypedAgainstTheStoredOneInTheNewForm) {
    struct {
        const char* behaviour;
        double stored;
        const char* typed;
        const char* then;
        const char* shown;
        double left;
    } cases[] = {
        {"emptied, as it had no eighths", 0.0004, "3", "^a{DEL}", "", 0},
        {"typed again as stored", 5.1251, "9", "^a5.125", "5.125", 5.1251},
        {"another one of the same eighths", 5.0304, "5.03", "", "5.030", 5.03},
    };
    for (const char* id : {"txtCurrentPrice", "txtHigh(0)"})
        for (const auto& one : cases) {
            SCOPED_TRACE(std::string(id) + " " + one.behaviour);
            OptionsScene scene(pricedCompany(one.stored));
            scene.entry->put_FractionDisplay(true);
            typeAt(scene, id, one.typed);
            scene.entry->put_FractionDisplay(false);
            EXPECT_EQ(textOf(scene, id), one.typed);
            scene.desktop.type(one.then);
            scene.desktop.type("{TAB}");
            EXPECT_EQ(textOf(scene, id), one.shown);
            EXPECT_EQ(std::string_view(id) == "txtHigh(0)"
                          ? elementOf(*scene.company, "YHighSeries", 10)
                          : scene.company->get_CurrentPrice(),
                      one.left);
        }
}

TEST(PriceDisplay, KeepsTheCaretWhereItIs) {
    for (const char* id : {"txtCurrentPrice", "txtHigh(0)"}) {
        SCOPED_TRACE(id);
        OptionsScene scene(pricedCompany(5.125));
        goTo(scene, id);
        scene.entry->put_FractionDisplay(true);
        scene.desktop.type("31"); // over the whole price, which stays selected
        EXPECT_EQ(textOf(scene, id), "31");
        scene.desktop.type("{LEFT}");
        scene.entry->put_FractionDisplay(false);
        scene.desktop.type("2");
        EXPECT_EQ(textOf(scene, id), "321");
        scene.desktop.type("{END}.5");
        scene.entry->put_FractionDisplay(true);
        EXPECT_EQ(textOf(scene, id), "321 1/2");
        scene.desktop.type("{BS}8");
        EXPECT_EQ(textOf(scene, id), "321 1/8");
    }
}

TEST(PriceDisplay, KeepsATypedPriceApartFromTheStoredOneThatLooksAlike) {
    for (const char* id : {"txtCurrentPrice", "txtHigh(0)"}) {
        SCOPED_TRACE(id);
        OptionsScene scene(pricedCompany(3.13));
        typeAt(scene, id, "^a3 1/8");
        scene.entry->put_FractionDisplay(true); // 3.13 is 3 1/8 there
        EXPECT_EQ(textOf(scene, id), "3 1/8");
        scene.desktop.type("{TAB}");
        EXPECT_EQ(std::string_view(id) == "txtHigh(0)"
                      ? elementOf(*scene.company, "YHighSeries", 10)
                      : scene.company->get_CurrentPrice(),
                  3.125);
    }
}

TEST(PriceDisplay, LeavesWhatIsTypedInPartAlone) {
    for (const char* typed : {"3 1/", "1,23", "(5", "$", ".", "1e"})
        for (const bool fractions : {false, true}) {
            SCOPED_TRACE(std::string(typed) + (fractions ? " in eighths" : ""));
            OptionsScene scene(pricedCompany(7));
            scene.entry->put_FractionDisplay(fractions);
            scene.desktop.setClipboardText(typed);
            typeAt(scene, "txtCurrentPrice", "^a^v");
            scene.entry->put_FractionDisplay(!fractions);
            EXPECT_EQ(scene.text("txtCurrentPrice"), typed);
        }
}

TEST(PriceDisplay, LoadsInTheFormInForce) {
    EntryScene scene;
    scene.entry->put_FractionDisplay(true);
    const auto company = datedCompany();
    company->put_Low52W(4.625);
    putElement(*company, "YLowSeries", 1, 8.125);
    scene.load(company);
    EXPECT_EQ(scene.text("txt52WLow"), "4 5/8");
    EXPECT_EQ(textOf(scene, "txtLow(9)"), "8 1/8");
    typeOver(scene, "txtLow(8)", "6.75");
    EXPECT_EQ(textOf(scene, "txtLow(8)"), "6 3/4");
    EXPECT_EQ(elementOf(*company, "YLowSeries", 2), 6.75);
}

// --- the option rows -------------------------------------------------------------------------

TEST(OptionRows, SwitchTheSeriesTheScaleAndTheCaption) {
    const auto record = evenCompany();
    record->get_Settings()->put(setting::unit, std::int16_t{3});
    OptionsScene scene(record);
    struct {
        const char* option;
        const char* cell;
        const char* first;
        const char* second;
        int element;
        bool scaledSecond;
    } rows[] = {{"optPTI", "txtYOption(9)", "YPTISeries", "YTaxRateSeries", 1, false},
                {"optPTI", "txtQOption(0)", "QPTISeries", "QTaxRateSeries", 0, false},
                {"optCommEq", "txtYOption2(9)", "YCommEqSeries", "YBookValSeries", 1, false}};
    for (const auto& row : rows)
        for (const int index : {1, 0, 1, 0}) {
            SCOPED_TRACE(std::string(row.cell) + " " + std::to_string(index));
            scene.choose(row.option, index);
            const char* series = index == 0 ? row.first : row.second;
            const double factor = index == 0 ? 1000 : 1;
            EXPECT_EQ(textOf(scene, row.cell),
                      fixed(elementOf(*scene.company, series, row.element) * factor));
            // What is typed goes into the series on show, at its scale.
            const auto before = scene.company->clone();
            typeOver(scene, row.cell, index == 0 ? "7500" : "33.25");
            EXPECT_EQ(elementOf(*scene.company, series, row.element), index == 0 ? 7.5 : 33.25);
            EXPECT_EQ(changedData(*before, *scene.company),
                      std::vector<std::string>{std::string(series) + "(" +
                                               std::to_string(row.element) + ")"});
            // A minus can be typed in either.
            typeOver(scene, row.cell, index == 0 ? "-2500" : "-2.5");
            EXPECT_EQ(elementOf(*scene.company, series, row.element), -2.5);
            EXPECT_EQ(textOf(scene, row.cell), index == 0 ? "-2500.00" : "-2.50");
        }
}

TEST(OptionRows, SwitchTheHeadsAlsoBeforeThereIsACompany) {
    EntryScene scene;
    scene.entry->put_CurrentTab(toOptions);
    const auto headsAfter = [&](const char* option) {
        scene.form().click(scene.desktop.control(option));
        std::vector<std::string> captions;
        for (const char* id : {"lblYOption", "lblQOption", "lblYOption2"})
            captions.push_back(scene.desktop.control(id).caption());
        return captions;
    };
    const std::string income = "Pre-Tax Income (M)";
    const std::string rate = "Tax Rate (%)";
    using Captions = std::vector<std::string>;
    EXPECT_EQ(headsAfter("optCommEq(1)"), (Captions{income, income, "Book Value"}));
    EXPECT_EQ(headsAfter("optPTI(1)"), (Captions{rate, rate, "Book Value"}));
    EXPECT_EQ(headsAfter("optCommEq(0)"), (Captions{rate, rate, "Common Equity (M)"}));
    EXPECT_EQ(headsAfter("optPTI(0)"), (Captions{income, income, "Common Equity (M)"}));
}

TEST(OptionRows, SwitchingWritesNoSeries) {
    OptionsScene scene;
    const auto before = scene.company->clone();
    scene.choose("optPTI", 1);
    scene.choose("optCommEq", 1);
    scene.choose("optPTI", 0);
    scene.choose("optCommEq", 0);
    EXPECT_EQ(changedData(*before, *scene.company), std::vector<std::string>{});
}

TEST(OptionRows, SwitchingBackAndForthAndSavingKeepsTheFigures) {
    OptionsScene scene(datedCompany());
    // Quotients of these leave stray digits in binary.
    for (int element = 1; element <= 10; ++element) {
        putElement(*scene.company, "YNetIncSeries", element, (7000 * element + 20021) / 100.0);
        putElement(*scene.company, "YPTISeries", element, (10000 * element + 28733) / 100.0);
        putElement(*scene.company, "QNetIncSeries", element, 7 * element / 1000.0);
        putElement(*scene.company, "QPTISeries", element, (100 * element + 13) / 13000.0);
    }
    putElement(*scene.company, "YNetIncSeries", 1, 70);
    putElement(*scene.company, "YPTISeries", 1, 100);
    scene.load(scene.company);
    (void)scene.entry->get_objCompany();
    const auto before = scene.company->clone();
    for (int round = 0; round < 3; ++round)
        for (const int index : {1, 0}) {
            scene.choose("optPTI", index);
            (void)scene.entry->get_objCompany();
            SCOPED_TRACE(std::to_string(round) + " " + std::to_string(index));
            EXPECT_EQ(changedData(*before, *scene.company),
                      index == 1 ? std::vector<std::string>{"blnTaxRate"}
                                 : std::vector<std::string>{});
        }
}

// 1 - 0.93 and 1.1 x 3 leave stray digits in binary.
TEST(OptionRows, APairThatAgreesStaysAsItWasTyped) {
    OptionsScene scene(datedCompany());
    const std::pair<const char*, double> typed[] = {
        {"YNetIncSeries", 0.93}, {"YPTISeries", 1}, {"YTaxRateSeries", 7},
        {"YBookValSeries", 1.1}, {"YCSOSeries", 3}, {"YCommEqSeries", 3.3},
    };
    for (const auto& [series, figure] : typed)
        putElement(*scene.company, series, 1, figure);
    scene.company->get_Settings()->put(setting::bookValue, true);
    for (const bool taxRate : {false, true}) {
        scene.company->get_Settings()->put(setting::taxRate, taxRate);
        scene.load(scene.company);
        (void)scene.entry->get_objCompany();
        for (const auto& [series, figure] : typed)
            EXPECT_EQ(elementOf(*scene.company, series, 1), figure) << series << taxRate;
    }
}

TEST(OptionRows, AFigureThatIsEditedTakesItsPartnerAlong) {
    OptionsScene scene(datedCompany());
    putElement(*scene.company, "YNetIncSeries", 1, 70);
    putElement(*scene.company, "YTaxRateSeries", 1, 30);
    scene.company->get_Settings()->put(setting::taxRate, true);
    scene.load(scene.company);
    (void)scene.entry->get_objCompany();
    EXPECT_EQ(elementOf(*scene.company, "YPTISeries", 1), 100);
    typeOver(scene, "txtYOption(9)", "12.5");
    (void)scene.entry->get_objCompany();
    EXPECT_EQ(elementOf(*scene.company, "YPTISeries", 1), 80);
    EXPECT_EQ(elementOf(*scene.company, "YTaxRateSeries", 1), 12.5);
    scene.choose("optPTI", 0);
    (void)scene.entry->get_objCompany();
    EXPECT_EQ(elementOf(*scene.company, "YTaxRateSeries", 1), 12.5);
    typeOver(scene, "txtYOption(9)", "140");
    (void)scene.entry->get_objCompany();
    EXPECT_EQ(elementOf(*scene.company, "YTaxRateSeries", 1), 50);
}

TEST(OptionRows, EveryTypedRateComesBackFromItsIncome) {
    OptionsScene scene(datedCompany());
    for (int first = 1; first < 100; first += 10) {
        for (int i = 0; i < 10 && first + i < 100; ++i) {
            putElement(*scene.company, "YNetIncSeries", i + 1, 207.21);
            putElement(*scene.company, "YPTISeries", i + 1, 0);
            putElement(*scene.company, "YTaxRateSeries", i + 1, first + i + 0.35);
        }
        scene.company->get_Settings()->put(setting::taxRate, true);
        scene.load(scene.company);
        (void)scene.entry->get_objCompany();
        const auto before = scene.company->clone();
        for (const int index : {0, 1, 0, 1}) {
            scene.choose("optPTI", index);
            (void)scene.entry->get_objCompany();
        }
        EXPECT_EQ(changedData(*before, *scene.company), std::vector<std::string>{}) << first;
    }
}

// --- currency symbol -------------------------------------------------------------------------

TEST(CurrencySymbol, StandsBesideEveryMoneyFieldAtEachKeystroke) {
    OptionsScene scene;
    const auto expectEverywhere = [&](const std::string& symbol) {
        for (const char* array : {"lblCurrency", "lblQCurrency"})
            for (int i = 0; i <= scene.form().upperBound(array); ++i)
                if (const auto* label = scene.form().find(array, i)) {
                    EXPECT_EQ(label->caption(), symbol) << label->id();
                }
    };
    expectEverywhere("$");
    typeAt(scene, "txtCurSymbol", "C");
    expectEverywhere("C");
    scene.desktop.type("H");
    expectEverywhere("CH");
    scene.desktop.type("F");
    expectEverywhere("CHF");
    scene.desktop.type("{BACKSPACE}");
    expectEverywhere("CH");
    scene.desktop.setClipboardText("\u20ac");
    scene.desktop.type("^a^v");
    expectEverywhere("\u20ac");
    scene.desktop.type("^z");
    expectEverywhere("CH");
    EXPECT_FALSE(scene.entry->get_blnDirty());
    scene.desktop.type("{TAB}");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    EXPECT_EQ(scene.entry->get_objCompany()->get_Settings()->get(setting::currencySymbol).toText(),
              "CH");
    // Another company brings its own.
    const auto other = datedCompany();
    other->get_Settings()->put(setting::currencySymbol, "kr");
    scene.load(other);
    expectEverywhere("kr");
    EXPECT_EQ(scene.text("txtCurSymbol"), "kr");
}

TEST(CurrencySymbol, IsADollarWhereTheCompanyHasNone) {
    const auto record = datedCompany();
    record->get_Settings()->put(setting::currencySymbol, "");
    OptionsScene scene(record);
    EXPECT_EQ(scene.text("txtCurSymbol"), "$");
    EXPECT_EQ(scene.caption("lblCurrency", 0), "$");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(CurrencySymbol, IsSelectedOnEntryAndShownAsItIsTyped) {
    OptionsScene scene;
    goTo(scene, "txtCurSymbol");
    EXPECT_EQ(scene.field("txtCurSymbol").selText(), "$");
    scene.desktop.type("&k");
    EXPECT_EQ(scene.text("txtCurSymbol"), "&k");
    EXPECT_EQ(withoutMnemonic(scene.caption("lblCurrency", 0)), "&k");
    EXPECT_EQ(mnemonicOf(scene.caption("lblCurrency", 0)), 0U);
}

TEST(CurrencySymbol, LeavingItUnchangedMarksNothing) {
    OptionsScene scene;
    typeAt(scene, "txtCurSymbol", "x{BACKSPACE}${TAB}");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

// --- colours ---------------------------------------------------------------------------------

TEST(ColorOptions, AChosenColourIsShownAndMarksTheCompany) {
    struct {
        int button;
        Color (VKRDataEntry::*read)() const;
    } buttons[] = {{0, &VKRDataEntry::get_ShadeColorLocked},
                   {1, &VKRDataEntry::get_ShadeColorYear},
                   {2, &VKRDataEntry::get_ShadeColorQuarter}};
    OptionsScene scene;
    for (const auto& one : buttons) {
        SCOPED_TRACE(one.button);
        scene.entry->put_blnDirty(false);
        scene.desktop.forget();
        const std::string id = "cmdColor(" + std::to_string(one.button) + ")";
        goTo(scene, id); // given up
        EXPECT_FALSE(scene.entry->get_blnDirty());
        scene.desktop.answerNextColor(colors::paleCyan); // the same again
        goTo(scene, id);
        EXPECT_FALSE(scene.entry->get_blnDirty());
        EXPECT_EQ((*scene.entry.*one.read)(), colors::paleCyan);
        scene.desktop.answerNextColor(0x123456);
        goTo(scene, id);
        EXPECT_TRUE(scene.entry->get_blnDirty());
        EXPECT_EQ((*scene.entry.*one.read)(), 0x123456U);
        EXPECT_EQ(scene.desktop.control("lblSample", one.button).backColor(), 0x123456U);
        ASSERT_EQ(scene.desktop.colorDialogs().size(), 3U);
        EXPECT_EQ(scene.desktop.colorDialogs()[0].shown, colors::paleCyan);
    }
}

// Escape would bring it back as it was written before.
TEST(Options, APriceThatWasRefusedIsNotTakenBackInTheOtherDisplay) {
    const auto record = std::make_shared<ScriptedRecord>(evenCompany());
    EntryScene scene;
    scene.load(record);
    record->failing = {"write CurrentPrice"};
    scene.typeAt("txtCurrentPrice", "^a7");
    scene.entry->leaveField();
    ASSERT_TRUE(scene.field("txtCurrentPrice").isUnstored());
    scene.entry->put_FractionDisplay(true);
    scene.desktop.type("{ESC}");
    EXPECT_EQ(scene.text("txtCurrentPrice"), "7");
}

} // namespace
} // namespace vkr
