// SPDX-License-Identifier: MIT
#include "record/enumerations.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <type_traits>
#include <utility>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

struct HostInterface : testing::Test {
    EntryScene scene;
    VKRDataEntry& entry = *scene.entry;
    VirtualDesktop& desktop = scene.desktop;

    [[nodiscard]] const Names& notified() const { return desktop.propertyChanges(); }
    [[nodiscard]] ScrollBar& bar(std::string_view name) const {
        return scene.form().get<ScrollBar>(name);
    }
    [[nodiscard]] const Control& control(std::string_view id) const { return desktop.control(id); }
    void scrollMouse(KeyCode key, std::int16_t shift = 0) {
        std::int16_t code = key;
        entry.ScrollMouse(code, shift);
    }
};

// --- enumerations --------------------------------------------------------------------------------

TEST(Enumerations, TabsStartAtOneAndObjectsAtNought) {
    EXPECT_EQ(
        (Names{std::to_string(toCompany), std::to_string(toYearly), std::to_string(toQuarterly),
               std::to_string(toOther), std::to_string(toOptions)}),
        (Names{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(doName, 0);
}

TEST(Enumerations, ObjectsAreNumberedConsecutively) {
    constexpr DataEntryObject inOrder[] = {
        doName,          doSymbol,         doExchange,        doIndustry,
        doTotalCap,      doSource,         doLastStudied,     doUpdatedBy,
        doCurrentPrice,  do52WHigh,        do52WLow,          doPriceUpdatedDate,
        doLast4QEPS,     doORBEPSProj,     doTotalDebt,       doInsiderHolding,
        doInstitutional, doPrefShares,     doCommShares,      doDilutedShares,
        doLastFY,        doLastFYDate,     doYRevenue,        doYPTI,
        doYTaxRate,      doYNetInc,        doYCommEq,         doYBookVal,
        doYEPS,          doYDividend,      doYHigh,           doYLow,
        doYCSO,          doLastQDate,      doQRevenue,        doQEPS,
        doQPTI,          doQTaxRate,       doQNetInc,         doAddress1,
        doAddress2,      doCity,           doState,           doZip,
        doCountry,       doInternetURL,    doContactPerson,   doTel,
        doVLTimelines,   doVLSafety,       doReportingPeriod, doNotes,
        doPrefDiv,       doCommDiv,        doEstTaxRate,      doUnit,
        doPTI_TaxRate,   doCommEq_BookVal, doLockInfo,        doDisplayOption,
        doYearLabel,     doQuarterLabel,   doPercentDilution, doPercentTotalCap,
        doTabCompany,    doTabYearly,      doTabQuarterly,    doTabOther,
        doTabOptions,    doDateOfSource};
    ASSERT_EQ(std::ssize(inOrder), dataEntryObjectCount);
    for (int i = 0; i < dataEntryObjectCount; ++i)
        EXPECT_EQ(inOrder[i], i);
}

TEST(Enumerations, AreThirtyTwoBitsWideWithTheirAgreedValues) {
    static_assert(std::is_same_v<std::underlying_type_t<TABObject>, std::int32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<DataEntryObject>, std::int32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<UserModeType>, std::int32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<PlatformType>, std::int32_t>);
    static_assert(std::is_same_v<std::underlying_type_t<UnloadModeType>, std::int32_t>);
    EXPECT_EQ(umDefault, 0);
    EXPECT_EQ(ptStandard, 0);
    EXPECT_EQ(ptZX, 1);
    EXPECT_EQ(ulConfirm, 0);
    EXPECT_EQ(ulCancel, -1);
}

// --- initial values ------------------------------------------------------------------------------

TEST_F(HostInterface, StartsWithTheAgreedValues) {
    EXPECT_FALSE(entry.blnExistsQuarterlyData());
    EXPECT_FALSE(entry.get_blnDirty());
    EXPECT_EQ(entry.get_UserMode(), umDefault);
    EXPECT_EQ(entry.get_ShadeColorLocked(), 0xFFFFC0U);
    EXPECT_EQ(entry.get_ShadeColorYear(), 0xFFFFC0U);
    EXPECT_EQ(entry.get_ShadeColorQuarter(), 0xFFFFC0U);
    EXPECT_EQ(entry.get_VisibleQuarters(), 9);
    EXPECT_FALSE(entry.get_ShowReportingPeriod());
    EXPECT_FALSE(entry.get_ShowVLs());
    EXPECT_EQ(entry.get_CurrentTab(), toCompany);
    EXPECT_EQ(entry.get_PercentFormat(), "#0.00%");
    EXPECT_EQ(entry.get_DateFormat(), "MMM/DD/YYYY");
    EXPECT_EQ(entry.get_NumberFormat(), "#0.00");
    EXPECT_FALSE(entry.get_FractionDisplay());
    EXPECT_EQ(entry.get_BorderStyle(), BorderStyle::none);
    EXPECT_EQ(entry.get_objCompany(), nullptr);
    EXPECT_EQ(entry.get_Platform(), ptStandard);
}

// --- notifications -------------------------------------------------------------------------------

TEST_F(HostInterface, NotifiesTheContainerAtEveryAssignmentOfThese) {
    struct Row {
        std::string name;
        void (*put)(VKRDataEntry&);
    };
    const Row rows[] = {
        {"ShowReportingPeriod", [](VKRDataEntry& e) { e.put_ShowReportingPeriod(true); }},
        {"ShowVLs", [](VKRDataEntry& e) { e.put_ShowVLs(true); }},
        {"CurrentTab", [](VKRDataEntry& e) { e.put_CurrentTab(toOther); }},
        {"PercentFormat", [](VKRDataEntry& e) { e.put_PercentFormat("0%"); }},
        {"DateFormat", [](VKRDataEntry& e) { e.put_DateFormat("YYYY-MM-DD"); }},
        {"NumberFormat", [](VKRDataEntry& e) { e.put_NumberFormat("0"); }},
        {"UserMode", [](VKRDataEntry& e) { e.put_UserMode(umCustom); }},
        {"Platform", [](VKRDataEntry& e) { e.put_Platform(ptZX); }},
    };
    for (const auto& row : rows)
        for (int again = 0; again < 2; ++again) {
            desktop.forget();
            row.put(entry);
            EXPECT_EQ(notified(), Names{row.name});
        }
}

TEST_F(HostInterface, InitPropertiesBringsTheRowsBackWithTheirNumber) {
    const auto rows = [&] { return entry.form().upperBound("txtRevenue") + 1; };
    entry.put_VisibleQuarters(20);
    EXPECT_EQ(rows(), 20);
    entry.InitProperties();
    EXPECT_EQ(entry.get_VisibleQuarters(), 9);
    EXPECT_EQ(rows(), 9);
    entry.put_VisibleQuarters(9);
    EXPECT_EQ(rows(), 9);
}

TEST_F(HostInterface, TellsOfThePriceDisplayWhoeverChangesIt) {
    int told = 0;
    entry.fractionDisplayChanged = [&] { ++told; };
    entry.put_objCompany(fullCompany()); // without one there is no tab to click
    EXPECT_EQ(told, 0);
    entry.put_FractionDisplay(true);
    EXPECT_EQ(told, 1);
    entry.put_FractionDisplay(true);
    EXPECT_EQ(told, 1);
    desktop.clickTab(toOptions);
    desktop.click("optDisplay(0)");
    EXPECT_FALSE(entry.get_FractionDisplay());
    EXPECT_EQ(told, 2);
}

TEST_F(HostInterface, LoadingWhileAFieldHasTheFocusSelectsItsNewText) {
    entry.put_objCompany(fullCompany());
    for (const char* id : {"txtName", "txtSales(2)", "txtEPS(1)", "cmbExchange"}) {
        entry.showField(id);
        ASSERT_EQ(desktop.focusedId(), id);
        entry.put_objCompany(fullCompany());
        const auto& field = dynamic_cast<TextField&>(desktop.control(id));
        EXPECT_EQ(field.selText(), field.text()) << id;
        EXPECT_EQ(desktop.focusedId(), id);
    }
    entry.showField("txtName");
    entry.put_objCompany(fullCompany());
    desktop.type("Typed over");
    EXPECT_EQ(dynamic_cast<TextField&>(desktop.control("txtName")).text(), "Typed over");
}

TEST_F(HostInterface, NotifiesShadesAndVisibleQuartersWhenTheyReallyChange) {
    struct Row {
        std::string name;
        void (*put)(VKRDataEntry&);
    };
    const Row rows[] = {
        {"ShadeColorLocked", [](VKRDataEntry& e) { e.put_ShadeColorLocked(0x123456); }},
        {"ShadeColorYear", [](VKRDataEntry& e) { e.put_ShadeColorYear(0x123456); }},
        {"ShadeColorQuarter", [](VKRDataEntry& e) { e.put_ShadeColorQuarter(0x123456); }},
        {"VisibleQuarters", [](VKRDataEntry& e) { e.put_VisibleQuarters(12); }},
    };
    for (const auto& row : rows) {
        desktop.forget();
        row.put(entry);
        EXPECT_EQ(notified(), Names{row.name});
        row.put(entry);
        EXPECT_EQ(notified(), Names{row.name}) << "the same value again";
    }
}

TEST_F(HostInterface, ANumberOfQuartersThatIsCutToTheOneInForceIsNoChange) {
    for (const auto& [most, beyond] : {std::pair{35, 40}, {1, -5}}) {
        entry.put_VisibleQuarters(static_cast<std::int16_t>(most));
        desktop.forget();
        entry.put_VisibleQuarters(static_cast<std::int16_t>(beyond));
        EXPECT_EQ(notified(), Names{}) << beyond;
    }
}

TEST_F(HostInterface, KeepsBorderFractionsListsAndDirtyToItself) {
    entry.put_BorderStyle(BorderStyle::fixedSingle);
    entry.put_FractionDisplay(true);
    entry.put_vntSource(textArray({"Own"}));
    entry.put_vntExchange(textArray({"NYSE"}));
    entry.put_vntIndustry(textArray({"Steel"}));
    entry.put_blnDirty(true);
    entry.put_blnDirty(false);
    entry.put_objCompany(fullCompany());
    EXPECT_EQ(notified(), Names{});
}

TEST_F(HostInterface, PlatformNotifiesBeforeItLooksForTheLocalizer) {
    Names before;
    desktop.factory().add(zxLocalizerId, [&] {
        before = notified();
        return std::make_shared<ZxLocalizer>();
    });
    entry.put_Platform(ptZX);
    EXPECT_EQ(before, Names{"Platform"});
}

TEST_F(HostInterface, TabChangeComesBeforeTheNotification) {
    struct Watcher final : VKRDataEntryEvents {
        explicit Watcher(const VirtualDesktop& theDesktop) : desktop(theDesktop) {}
        void TabChange(TABObject /*tab*/) override { seen = desktop.propertyChanges(); }
        const VirtualDesktop& desktop;
        Names seen{"never raised"};
    } watcher(desktop);
    entry.setEvents(&watcher);
    entry.put_CurrentTab(toOther);
    EXPECT_EQ(watcher.seen, Names{});
    EXPECT_EQ(notified(), Names{"CurrentTab"});
}

// --- blnDirty ------------------------------------------------------------------------------------

TEST_F(HostInterface, SettingDirtyNeverWritesIntoTheRecord) {
    const auto record = std::make_shared<ScriptedRecord>(fullCompany());
    entry.put_objCompany(record);
    record->log.clear();
    entry.put_blnDirty(true);
    EXPECT_TRUE(entry.get_blnDirty());
    EXPECT_EQ(record->log, Names{});
}

TEST_F(HostInterface, ClearingDirtyCommitsAndKeepsTheRecord) {
    const auto record = std::make_shared<ScriptedRecord>(fullCompany());
    entry.put_objCompany(record);
    entry.put_blnDirty(true);
    record->log.clear();
    entry.put_blnDirty(false);
    EXPECT_FALSE(entry.get_blnDirty());
    ASSERT_FALSE(record->log.empty());
    EXPECT_EQ(record->log.back(), "read SettingsApply");
    EXPECT_EQ(entry.get_objCompany(), record);
}

TEST_F(HostInterface, ClearingDirtyWithoutARecordOnlyStores) {
    entry.put_blnDirty(true);
    entry.put_blnDirty(false);
    EXPECT_FALSE(entry.get_blnDirty());
    EXPECT_EQ(entry.get_objCompany(), nullptr);
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(HostInterface, DisplayPropertiesLeaveDirtyAsItIs) {
    entry.put_objCompany(fullCompany());
    for (const bool dirty : {false, true}) {
        entry.put_blnDirty(dirty);
        entry.put_UserMode(umCustom);
        entry.put_ShadeColorLocked(dirty ? 1 : 2);
        entry.put_ShadeColorYear(dirty ? 1 : 2);
        entry.put_ShadeColorQuarter(dirty ? 1 : 2);
        entry.put_VisibleQuarters(dirty ? 5 : 6);
        entry.put_ShowVLs(true);
        entry.put_ShowReportingPeriod(true);
        entry.put_CurrentTab(toOptions);
        entry.put_FractionDisplay(!dirty);
        entry.put_BorderStyle(BorderStyle::fixedSingle);
        entry.put_Platform(ptZX);
        entry.put_vntIndustry(textArray({"Steel"}));
        entry.Clear();
        entry.put_objCompany(fullCompany());
        EXPECT_EQ(entry.get_blnDirty(), dirty);
    }
}

// --- UserMode ------------------------------------------------------------------------------------

TEST_F(HostInterface, UserModeNoughtResetsTwoShadesButNotTheQuarters) {
    entry.put_ShadeColorLocked(1);
    entry.put_ShadeColorYear(2);
    entry.put_ShadeColorQuarter(3);
    desktop.forget();
    entry.put_UserMode(umDefault);
    EXPECT_EQ(entry.get_ShadeColorLocked(), colors::paleCyan);
    EXPECT_EQ(entry.get_ShadeColorYear(), colors::paleCyan);
    EXPECT_EQ(entry.get_ShadeColorQuarter(), 3U);
    EXPECT_EQ(notified(), (Names{"ShadeColorYear", "ShadeColorLocked", "UserMode"}));
}

TEST_F(HostInterface, OtherUserModesLeaveTheShades) {
    entry.put_ShadeColorLocked(1);
    entry.put_ShadeColorYear(2);
    entry.put_UserMode(umCustom);
    EXPECT_EQ(entry.get_UserMode(), umCustom);
    EXPECT_EQ(entry.get_ShadeColorLocked(), 1U);
    EXPECT_EQ(entry.get_ShadeColorYear(), 2U);
}

// --- what is shown -------------------------------------------------------------------------------

TEST_F(HostInterface, ShowReportingPeriodShowsListAndLabel) {
    for (const bool shown : {true, false, true}) {
        entry.put_ShowReportingPeriod(shown);
        EXPECT_EQ(entry.get_ShowReportingPeriod(), shown);
        EXPECT_EQ(control("cmbReportingPeriod").visible(), shown);
        EXPECT_EQ(control("lblLabel(53)").visible(), shown);
    }
}

TEST_F(HostInterface, ShowVLsShowsFourControlsAndLeavesNoGap) {
    const Twips left = control("cmbReportingPeriod").left();
    for (const bool shown : {true, false, true}) {
        entry.put_ShowVLs(shown);
        EXPECT_EQ(entry.get_ShowVLs(), shown);
        for (const auto* id : {"lblLabel(51)", "lblLabel(52)", "txtVLTimelines", "txtVLSafety"})
            EXPECT_EQ(control(id).visible(), shown) << id;
        const auto below = [&](const char* first, const char* second) {
            return shown ? 2 * control(second).top() - control(first).top() : control(first).top();
        };
        EXPECT_EQ(control("cmbReportingPeriod").top(), below("txtVLTimelines", "txtVLSafety"));
        EXPECT_EQ(control("lblLabel(53)").top(), below("lblLabel(51)", "lblLabel(52)"));
        EXPECT_EQ(control("cmbReportingPeriod").left(), left);
    }
}

TEST_F(HostInterface, FormatsAreKeptAsTheyAreGiven) {
    for (const char* text : {"", "no pattern at all", "0.0;;\"x\"", "ä"}) {
        entry.put_PercentFormat(text);
        entry.put_DateFormat(text);
        entry.put_NumberFormat(text);
        EXPECT_EQ(entry.get_PercentFormat(), text);
        EXPECT_EQ(entry.get_DateFormat(), text);
        EXPECT_EQ(entry.get_NumberFormat(), text);
    }
}

TEST_F(HostInterface, BorderStylePassesThroughToTheForm) {
    entry.put_BorderStyle(BorderStyle::fixedSingle);
    EXPECT_EQ(scene.form().borderStyle(), BorderStyle::fixedSingle);
    scene.form().setBorderStyle(BorderStyle::none);
    EXPECT_EQ(entry.get_BorderStyle(), BorderStyle::none);
}

// --- CurrentTab ----------------------------------------------------------------------------------

TEST_F(HostInterface, CurrentTabReadsTheStripNotTheRememberedTab) {
    scene.form().get<TabStrip>("tbsDataEntry").selectTab(toQuarterly);
    EXPECT_EQ(entry.get_CurrentTab(), toQuarterly);
    entry.put_CurrentTab(toOther);
    EXPECT_EQ(scene.form().get<TabStrip>("tbsDataEntry").selected(), toOther);
}

TEST_F(HostInterface, SelectingTheSelectedTabRaisesNoTabChange) {
    entry.put_CurrentTab(toCompany);
    EXPECT_EQ(scene.events.log, Names{});
    entry.put_CurrentTab(toYearly);
    entry.put_CurrentTab(toYearly);
    EXPECT_EQ(scene.events.log, Names{"TabChange 2"});
}

TEST_F(HostInterface, ATabThatIsNotThereIsIgnored) {
    for (const int tab : {0, 6, -1, 1000}) {
        EXPECT_NO_THROW(entry.put_CurrentTab(static_cast<TABObject>(tab)));
        EXPECT_EQ(entry.get_CurrentTab(), toCompany);
    }
    EXPECT_EQ(scene.events.log, Names{});
}

TEST_F(HostInterface, SetNextAndSetPreviousGoRound) {
    for (int i = 0; i < 5; ++i)
        entry.SetNext();
    EXPECT_EQ(scene.events.log,
              (Names{"TabChange 2", "TabChange 3", "TabChange 4", "TabChange 5", "TabChange 1"}));
    scene.events.log.clear();
    for (int i = 0; i < 5; ++i)
        entry.SetPrevious();
    EXPECT_EQ(scene.events.log,
              (Names{"TabChange 5", "TabChange 4", "TabChange 3", "TabChange 2", "TabChange 1"}));
}

TEST_F(HostInterface, TurningTabsHidesTheHelpFrame) {
    auto& help = scene.form().get<Frame>("fraDE", 0);
    help.setVisible(true);
    entry.SetNext();
    EXPECT_FALSE(help.visible());
    help.setVisible(true);
    entry.SetPrevious();
    EXPECT_FALSE(help.visible());
}

// --- lists ---------------------------------------------------------------------------------------

struct ListRow {
    std::string_view list;
    void (VKRDataEntry::*put)(const Variant&);
};
constexpr ListRow lists[] = {{"cmbSource", &VKRDataEntry::put_vntSource},
                             {"cmbExchange", &VKRDataEntry::put_vntExchange},
                             {"cmbIndustry", &VKRDataEntry::put_vntIndustry}};

TEST_F(HostInterface, ListsAreFilledFromLowerToUpperBoundAndNoOthers) {
    for (const auto& row : lists) {
        const auto& list = scene.form().get<ComboBox>(row.list);
        std::invoke(row.put, entry, textArray({"b", "a", "", "b"}, -2));
        EXPECT_EQ(list.list(), (Names{"b", "a", "", "b"})) << row.list;
        for (const auto& other : lists)
            if (other.list != row.list) {
                EXPECT_EQ(scene.form().get<ComboBox>(other.list).list(), Names{});
            }
        std::invoke(row.put, entry, textArray({"new"}, 7));
        EXPECT_EQ(list.list(), Names{"new"});
        std::invoke(row.put, entry, textArray({}));
    }
}

TEST_F(HostInterface, ListElementsOfOtherKindsAreConvertedToText) {
    entry.put_vntIndustry(numberArray({1.5, -2}, 1));
    EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").list(), (Names{"1.5", "-2"}));
    entry.put_vntIndustry(
        Variant(VariantArray(0, std::vector<Variant>{"x", std::int16_t{7}, Variant()})));
    EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").list(), (Names{"x", "7", ""}));
}

TEST_F(HostInterface, AListTakesNothingButAnArray) {
    entry.put_vntIndustry(textArray({"Steel"}));
    for (const Variant& value :
         {Variant("Paper"), Variant(), Variant(8193.0), Variant(true), Variant(std::int32_t{9000})})
        entry.put_vntIndustry(value);
    EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").list(), Names{"Steel"});
}

TEST_F(HostInterface, AnArrayWithoutElementsLeavesTheListEmpty) {
    entry.put_vntIndustry(textArray({"Steel"}));
    entry.put_vntIndustry(textArray({}));
    EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").list(), Names{});
}

TEST_F(HostInterface, FillingAListKeepsWhatTheFieldShows) {
    entry.put_objCompany(fullCompany());
    entry.put_vntIndustry(textArray({"Steel", "Industry text"}));
    EXPECT_EQ(scene.text("cmbIndustry"), "Industry text");
    EXPECT_EQ(scene.form().get<ComboBox>("cmbIndustry").listIndex(), 1);
}

// --- FractionDisplay -----------------------------------------------------------------------------

TEST_F(HostInterface, FractionDisplayChoosesItsOptionAndRewritesThePrices) {
    const auto record = fullCompany();
    record->put_CurrentPrice(3.125);
    record->put_High52W(4.5);
    record->put_Low52W(2);
    entry.put_objCompany(record);
    EXPECT_EQ(scene.text("txtCurrentPrice"), "3.125");

    entry.put_FractionDisplay(true);
    EXPECT_TRUE(entry.get_FractionDisplay());
    EXPECT_TRUE(scene.form().get<OptionButton>("optDisplay", 1).value());
    EXPECT_EQ(scene.text("txtCurrentPrice"), "3 1/8");
    EXPECT_EQ(scene.text("txt52WHigh"), "4 1/2");
    EXPECT_EQ(scene.text("txt52WLow"), "2");

    entry.put_FractionDisplay(false);
    EXPECT_TRUE(scene.form().get<OptionButton>("optDisplay", 0).value());
    EXPECT_EQ(scene.text("txtCurrentPrice"), "3.125");
    EXPECT_EQ(scene.text("txt52WHigh"), "4.500");
    EXPECT_EQ(record->get_CurrentPrice(), 3.125);
    EXPECT_FALSE(entry.get_blnDirty());
}

TEST_F(HostInterface, FractionDisplayRewritesTheYearlyPrices) {
    const auto record = fullCompany();
    Variant highs = record->get_YHighSeries();
    for (int i = 0; i <= 10; ++i)
        highs.array().setNumber(i, i + 0.5);
    record->put_YHighSeries(highs);
    entry.put_objCompany(record);
    const auto before = record->clone();
    entry.put_FractionDisplay(true);
    for (int cell = 0; cell < 10; ++cell)
        EXPECT_EQ(scene.text("txtHigh", cell), std::to_string(10 - cell) + " 1/2");
    EXPECT_EQ(scene.text("txtHigh", 10), "1/2");
    EXPECT_TRUE(sameAs(*before, *record));
}

TEST_F(HostInterface, WithoutARecordFractionDisplayRewritesWhatIsOnScreen) {
    const char* prices[] = {"txtCurrentPrice", "txt52WHigh", "txt52WLow", "txtHigh(0)",
                            "txtHigh(9)",      "txtLow(0)",  "txtLow(9)"};
    const auto text = [&](const char* id) -> TextField& {
        return dynamic_cast<TextField&>(desktop.control(id));
    };
    for (const auto* id : prices)
        text(id).setText("-12.5");
    entry.put_FractionDisplay(true);
    for (const auto* id : prices)
        EXPECT_EQ(text(id).text(), "-12 1/2") << id;
    entry.put_FractionDisplay(false);
    for (const auto* id : prices)
        EXPECT_EQ(text(id).text(), "-12.5") << id;
}

TEST_F(HostInterface, TheSameFractionDisplayAgainDoesNothingAtAll) {
    entry.put_objCompany(fullCompany());
    auto& price = scene.field("txtCurrentPrice");
    price.setText("12 1/2");
    price.select(2, 3);
    entry.put_FractionDisplay(false);
    EXPECT_EQ(price.text(), "12 1/2");
    EXPECT_EQ(price.selStart(), 2);
    EXPECT_EQ(price.selLength(), 3);
}

// --- Platform ------------------------------------------------------------------------------------

TEST_F(HostInterface, APlatformWithoutLocalizerSaysSoAndKeepsTheCaptions) {
    const std::string caption = control("lblLabel(0)").caption();
    entry.put_Platform(static_cast<PlatformType>(2));
    EXPECT_EQ(entry.get_Platform(), 2);
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].text, "Bad or missing Localizer object\rData Entry");
    EXPECT_EQ(desktop.messages()[0].buttons, message_box::exclamationIcon);
    EXPECT_EQ(desktop.messages()[0].title, "VKRDataEntry");
    EXPECT_EQ(control("lblLabel(0)").caption(), caption);
}

TEST_F(HostInterface, ThePlatformDecidesWhichLocalizerIsCreated) {
    struct Row {
        PlatformType platform;
        std::string_view missing;
        bool complains;
    };
    for (const auto& [platform, missing, complains] :
         {Row{ptStandard, standardLocalizerId, true}, Row{ptStandard, zxLocalizerId, false},
          Row{ptZX, zxLocalizerId, true}, Row{ptZX, standardLocalizerId, false}}) {
        EntryScene other;
        other.desktop.factory().remove(missing);
        other.entry->put_Platform(platform);
        EXPECT_EQ(!other.desktop.messages().empty(), complains) << platform << " " << missing;
    }
}

TEST_F(HostInterface, AnObjectThatIsNoLocalizerCountsAsMissing) {
    const ObjectFactory::Creator none[] = {
        [] { return std::make_shared<Object>(); },
        []() -> std::shared_ptr<Object> { throw std::runtime_error("not registered"); }};
    for (const auto& creator : none) {
        desktop.forget();
        desktop.factory().add(zxLocalizerId, creator);
        EXPECT_NO_THROW(entry.put_Platform(ptZX));
        ASSERT_EQ(desktop.messages().size(), 1U);
        EXPECT_EQ(desktop.messages()[0].text, "Bad or missing Localizer object\rData Entry");
    }
}

TEST_F(HostInterface, TheHelpLinkGetsItsPointerFromTheLocalizer) {
    EXPECT_EQ(scene.form().get<Label>("lblMoreHelp").mouseIcon(),
              StandardLocalizer().LoadPicture(101, 0));
}

// --- Clear ---------------------------------------------------------------------------------------

TEST_F(HostInterface, ClearBlanksTheFourDataTabs) {
    const auto record = fullCompany();
    record->get_Settings()->put(setting::lockBasicInfo, true);
    entry.put_objCompany(record);
    entry.put_vntExchange(textArray({"NYSE"}));
    entry.Clear();
    for (const auto& any : scene.form().controls())
        if (const auto* field = dynamic_cast<const TextField*>(any.get())) {
            if (field->name() == "txtCurSymbol")
                continue; // on the Options tab
            EXPECT_EQ(field->text(), "") << field->id();
            EXPECT_EQ(field->tag(), "") << field->id();
            EXPECT_FALSE(field->locked()) << field->id();
        } else if (any->name() == "lblYear" || any->name() == "lblQLabel") {
            EXPECT_EQ(any->caption(), "") << any->id();
        }
    EXPECT_FALSE(scene.form().get<CheckBox>("chkLockInfo").value());
    EXPECT_EQ(scene.text("txtCurSymbol"), "$");
    EXPECT_EQ(scene.form().get<ComboBox>("cmbExchange").list(), Names{"NYSE"});
}

TEST_F(HostInterface, ClearAndAnotherCompanyTakeAwayWhatTheHostSaidOfFigures) {
    const FieldOrigin filed{"Filed.", true};
    for (const bool clears : {true, false}) {
        entry.put_objCompany(fullCompany());
        entry.setRemarks({{{Datum::TotalDebt, {}}, "Odd."}, {{Datum::YEPSSeries, 1}, "Odd."}});
        entry.setOrigins({{{Datum::TotalDebt, {}}, filed}, {{Datum::YEPSSeries, 1}, filed}});
        ASSERT_EQ(scene.field("txtTotalDebt").origin(), filed);
        ASSERT_EQ(scene.field("txtYEPS", 9).remark(), "Odd.");
        if (clears)
            entry.Clear();
        else
            entry.put_objCompany(fullCompany());
        for (const auto* field : {&scene.field("txtTotalDebt"), &scene.field("txtYEPS", 9)}) {
            EXPECT_EQ(field->origin(), FieldOrigin()) << field->id();
            EXPECT_EQ(field->remark(), "") << field->id();
        }
    }
}

TEST_F(HostInterface, ClearTouchesNeitherRecordNorDirtyFlag) {
    const auto figures = fullCompany();
    const auto record = std::make_shared<ScriptedRecord>(figures);
    entry.put_objCompany(record);
    entry.put_blnDirty(true);
    record->log.clear();
    entry.Clear();
    EXPECT_EQ(record->log, Names{});
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(HostInterface, WhatWasClearedIsStillInTheRecordAfterEveryFieldWasLeft) {
    const auto record = fullCompany();
    entry.put_ShowVLs(true);
    entry.put_objCompany(record);
    static_cast<void>(entry.get_objCompany()); // the hidden rates are derived
    const auto before = record->clone();
    entry.Clear();
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        desktop.clickTab(tab);
        desktop.tabWalk();
    }
    static_cast<void>(entry.get_objCompany());
    EXPECT_TRUE(sameAs(*before, *record));
    EXPECT_FALSE(entry.get_blnDirty());
}

// --- ScrollMouse ---------------------------------------------------------------------------------

TEST_F(HostInterface, TheWheelMovesTheQuarterBarByItsSmallChangeAndStopsAtItsEnds) {
    entry.put_VisibleQuarters(35);
    entry.put_objCompany(fullCompany());
    entry.put_CurrentTab(toQuarterly);
    auto& quarters = bar("vscrQuarterly");
    ASSERT_GT(quarters.maximum(), 3);
    scrollMouse(keys::down);
    EXPECT_EQ(quarters.value(), quarters.smallChange());
    EXPECT_EQ(scene.form().get<Frame>("fraDE", 3).top(),
              15 - scene.field("txtEPS", quarters.value()).top());
    scrollMouse(keys::up);
    EXPECT_EQ(quarters.value(), 0);
    scrollMouse(keys::up);
    EXPECT_EQ(quarters.value(), quarters.minimum());
    for (int i = 0; i < 40; ++i)
        scrollMouse(keys::down);
    EXPECT_EQ(quarters.value(), quarters.maximum());
}

TEST_F(HostInterface, TheWheelPansTheYearsOnTheirTab) {
    entry.put_objCompany(fullCompany());
    entry.put_CurrentTab(toYearly);
    auto& years = bar("hscrYearly");
    ASSERT_GT(years.maximum(), years.smallChange());
    scrollMouse(keys::down);
    EXPECT_EQ(years.value(), years.smallChange());
    EXPECT_EQ(scene.form().get<Frame>("fraDE", 2).left(), -years.value());
    for (int i = 0; i < 9; ++i)
        scrollMouse(keys::down);
    EXPECT_EQ(years.value(), years.maximum());
    for (int i = 0; i < 9; ++i)
        scrollMouse(keys::up);
    EXPECT_EQ(years.value(), years.minimum());
}

TEST_F(HostInterface, TheWheelDoesNothingElsewhereNorForOtherKeys) {
    entry.put_VisibleQuarters(35);
    entry.put_objCompany(fullCompany());
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        for (const KeyCode key : {keys::left, keys::right, keys::pageDown, KeyCode{0}})
            scrollMouse(key);
        if (tab != toYearly && tab != toQuarterly)
            for (const KeyCode key : {keys::down, keys::down, keys::up})
                scrollMouse(key);
        EXPECT_EQ(bar("hscrYearly").value(), 0) << tab;
        EXPECT_EQ(bar("vscrQuarterly").value(), 0) << tab;
    }
}

TEST_F(HostInterface, TheWheelIgnoresShiftAndLeavesItsArguments) {
    entry.put_objCompany(fullCompany());
    entry.put_CurrentTab(toYearly);
    std::int16_t key = keys::down;
    std::int16_t shift = shifts::control;
    entry.ScrollMouse(key, shift);
    EXPECT_EQ(bar("hscrYearly").value(), bar("hscrYearly").smallChange());
    EXPECT_EQ(key, keys::down);
    EXPECT_EQ(shift, shifts::control);
}

TEST_F(HostInterface, ATurnOfTheWheelThatNoControlUsesScrollsTheGridOnShow) {
    entry.put_VisibleQuarters(35);
    entry.put_objCompany(fullCompany());
    Form& form = scene.form();
    for (const auto& [tab, name] :
         {std::pair(toYearly, "hscrYearly"), std::pair(toQuarterly, "vscrQuarterly")}) {
        entry.put_CurrentTab(tab);
        EXPECT_TRUE(form.userWheel(2)) << name;
        EXPECT_EQ(bar(name).value(), 2 * bar(name).smallChange()) << name;
        EXPECT_TRUE(form.userWheel(-1)) << name;
        EXPECT_EQ(bar(name).value(), bar(name).smallChange()) << name;
        EXPECT_TRUE(form.userWheel(0)) << name << ": a part of a step";
        EXPECT_EQ(bar(name).value(), bar(name).smallChange()) << name;
    }
    for (const TABObject tab : {toCompany, toOther, toOptions}) {
        entry.put_CurrentTab(tab);
        EXPECT_FALSE(form.userWheel(1)) << tab;
    }
}

// --- events --------------------------------------------------------------------------------------

TEST_F(HostInterface, TheHelpButtonNamesTheSelectedTab) {
    entry.put_objCompany(fullCompany());
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        scene.events.log.clear();
        desktop.click("cmdHelp");
        EXPECT_EQ(scene.events.log, Names{"MoreHelp " + std::to_string(3063 + tab)});
    }
}

TEST_F(HostInterface, TheHelpLinkHidesTheFrameAndNamesItsObject) {
    entry.put_objCompany(fullCompany());
    auto& help = scene.form().get<Frame>("fraDE", 0);
    scene.form().get<Label>("lblMoreHelp").setTag("66");
    help.setVisible(true);
    desktop.click("lblMoreHelp");
    EXPECT_FALSE(help.visible());
    EXPECT_EQ(scene.events.log, Names{"MoreHelp 3066"});
}

TEST_F(HostInterface, F1NamesTheObjectWhileTheFrameIsUpAndTheTabOtherwise) {
    entry.put_objCompany(fullCompany());
    desktop.click("txtName");
    auto& help = scene.form().get<Frame>("fraDE", 0);
    scene.form().get<Label>("lblMoreHelp").setTag("8");
    help.setVisible(true);
    desktop.type("{F1}");
    EXPECT_FALSE(help.visible());
    EXPECT_EQ(scene.events.log, Names{"MoreHelp 3008"});
    desktop.type("{F1}");
    EXPECT_EQ(scene.events.log, (Names{"MoreHelp 3008", "MoreHelp 3064"}));
}

TEST_F(HostInterface, TheHelpFrameIsGoneWhenTheHostHearsOfLinkAndF1) {
    struct Watcher final : VKRDataEntryEvents {
        explicit Watcher(const Frame& theHelp) : help(theHelp) {}
        void MoreHelp(std::int16_t /*object*/) override { shown.push_back(help.visible()); }
        const Frame& help;
        std::vector<bool> shown;
    };
    entry.put_objCompany(fullCompany());
    auto& help = scene.form().get<Frame>("fraDE", 0);
    Watcher watcher(help);
    entry.setEvents(&watcher);
    desktop.click("txtName");
    help.setVisible(true);
    desktop.click("lblMoreHelp");
    help.setVisible(true);
    desktop.type("{F1}");
    EXPECT_EQ(watcher.shown, (std::vector<bool>{false, false}));
    entry.setEvents(nullptr);
}

TEST_F(HostInterface, TheThreeUpdateEventsAreNeverRaised) {
    entry.put_objCompany(fullCompany());
    scene.enter("txtCurrentPrice", "55");
    desktop.clickTab(toYearly);
    scene.enter("txtSales(9)", "55");
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddYear");
    desktop.clickTab(toQuarterly);
    scene.enter("txtEPS(0)", "55");
    desktop.answerNext(MessageAnswer::yes);
    desktop.click("cmdAddQuarter");
    desktop.clickTab(toOptions);
    desktop.click("optCurrency(0)");
    desktop.click("optPTI(1)");
    desktop.click("cmdOK");
    desktop.click("cmdCancel");
    for (const auto& event : scene.events.log)
        EXPECT_FALSE(event.starts_with("Update")) << event;
    EXPECT_TRUE(desktop.scriptUsedUp());
}

TEST_F(HostInterface, NobodyHasToListen) {
    entry.setEvents(nullptr);
    entry.put_objCompany(fullCompany());
    EXPECT_NO_THROW(entry.SetNext());
    EXPECT_NO_THROW(desktop.click("cmdHelp"));
    EXPECT_NO_THROW(desktop.click("cmdOK"));
    EXPECT_EQ(scene.events.log, Names{});
}

// --- what a host does when it hears of a change --------------------------------------------------

TEST_F(HostInterface, AnotherRecordHandedInAtAChangeGetsNothingOfWhatWasTyped) {
    struct Row {
        int tab;
        const char* field;
        const char* typed;
    };
    for (const auto& [tab, field, typed] :
         {Row{toCompany, "txtName", "Typed"}, Row{toCompany, "cmbExchange", "Typed"},
          Row{toCompany, "txtTotalDebt", "7"}, Row{toCompany, "txtLastUpdate", "Feb/03/2026"},
          Row{toYearly, "txtLastFY", "2024"}, Row{toYearly, "txtDateofLastFY", "Nov/30/2025"},
          Row{toYearly, "txtSales(9)", "7"}, Row{toQuarterly, "txtRevenue(8)", "7"},
          Row{toQuarterly, "txtLastQDate", "Sep/29/2026"}}) {
        const auto first = fullCompany();
        const auto second = fullCompany();
        entry.stateChanged = nullptr;
        entry.put_objCompany(second);
        const auto secondBefore = second->clone();
        entry.put_objCompany(first);
        const auto firstBefore = first->clone();
        entry.put_blnDirty(false);
        entry.put_CurrentTab(static_cast<TABObject>(tab));
        bool replaced = false;
        entry.stateChanged = [&] {
            if (!std::exchange(replaced, true))
                entry.put_objCompany(second);
        };
        scene.enter(field, typed);
        EXPECT_TRUE(replaced) << field;
        const auto stored = differences(*firstBefore, *first);
        EXPECT_TRUE(std::ranges::any_of(
            stored,
            [](const Difference& change) { return !change.datum.ends_with("TaxRateSeries"); }))
            << field << ": what was typed is stored";
        for (const auto& change : differences(*secondBefore, *second))
            ADD_FAILURE() << field << ": " << change.datum << " " << change.after;
    }
}

TEST_F(HostInterface, RowsCanBeTakenAwayWhenACellInThemChanged) {
    for (const auto* keys : {"{TAB}", "{ENTER}", "^{LEFT}", "^{HOME}"}) {
        const auto record = fullCompany();
        entry.stateChanged = nullptr;
        entry.put_VisibleQuarters(9);
        entry.put_objCompany(record);
        entry.put_blnDirty(false);
        entry.put_CurrentTab(toQuarterly);
        desktop.click("txtNetInc(8)");
        entry.stateChanged = [&] { entry.put_VisibleQuarters(2); };
        desktop.type("^a7" + std::string(keys));
        EXPECT_EQ(entry.get_VisibleQuarters(), 2) << keys;
        EXPECT_EQ(scene.form().upperBound("txtNetInc"), 1) << keys;
        EXPECT_EQ(record->get_QNetIncSeries().array().number(8), 7) << keys;
        EXPECT_TRUE(desktop.control(desktop.focusedId()).canTakeFocus()) << keys;
    }
}

TEST_F(HostInterface, ACellThatTheHostTakesAwayWhileItIsPressedIsGone) {
    for (const bool right : {false, true}) {
        SCOPED_TRACE(right ? "right" : "left");
        const auto record = fullCompany();
        entry.stateChanged = nullptr;
        entry.put_objCompany(record);
        entry.put_VisibleQuarters(12);
        entry.put_blnDirty(false);
        entry.put_CurrentTab(toQuarterly);
        desktop.click("txtNetInc(0)");
        desktop.type("^a7");
        entry.stateChanged = [&] { entry.put_VisibleQuarters(2); };
        if (right)
            desktop.rightClick("txtRevenue(11)");
        else
            desktop.click("txtRevenue(11)");
        EXPECT_EQ(scene.form().upperBound("txtRevenue"), 1);
        EXPECT_EQ(record->get_QNetIncSeries().array().number(0), 7);
        EXPECT_TRUE(desktop.control(desktop.focusedId()).canTakeFocus());
    }
}

TEST_F(HostInterface, OnlyTheFieldThatHasTheFocusIsLeftForTheHost) {
    entry.put_objCompany(fullCompany());
    auto& name = scene.field("txtName");
    // Beside the form there is none.
    desktop.click("txtName");
    desktop.leaveForm();
    name.select(1, 0);
    entry.leaveField();
    EXPECT_EQ(name.selText(), "");
    // It hands the focus on.
    desktop.click("txtName");
    desktop.type("x");
    name.select(1, 0);
    entry.stateChanged = [&] {
        entry.stateChanged = nullptr;
        entry.put_CurrentTab(toOther);
    };
    entry.leaveField();
    EXPECT_EQ(desktop.focusedId(), "txtAddress1");
    EXPECT_EQ(name.selText(), "");
}

// --- a field that the user is led to -----------------------------------------------------------

TEST_F(HostInterface, AFieldIsShownFromAnyTab) {
    entry.put_objCompany(fullCompany());
    entry.put_VisibleQuarters(20);
    struct Row {
        const char* id;
        TABObject tab;
    };
    for (const auto& row : {Row{"txtPriceUpdate", toCompany}, Row{"txtCSO(3)", toYearly},
                            Row{"txtRevenue(19)", toQuarterly}, Row{"txtNotes", toOther},
                            Row{"txtCurSymbol", toOptions}})
        for (int from = toCompany; from <= toOptions; ++from) {
            SCOPED_TRACE(std::string(row.id) + " from " + std::to_string(from));
            entry.put_CurrentTab(static_cast<TABObject>(from));
            entry.showField(row.id);
            EXPECT_EQ(entry.get_CurrentTab(), row.tab);
            EXPECT_EQ(desktop.focusedId(), row.id);
            EXPECT_TRUE(desktop.canReach(row.id));
        }
    // What there is not changes nothing.
    for (const char* none : {"", "txtNone", "txtRevenue(20)", "txtRevenue"}) {
        entry.showField(none);
        EXPECT_EQ(desktop.focusedId(), "txtCurSymbol");
    }
}

TEST_F(HostInterface, AFigureThatIsShownIsSelectedAlsoWhereItHadTheFocus) {
    entry.put_objCompany(fullCompany());
    for (const auto& [id, datum] : {std::pair("txtCurrentPrice", Datum::CurrentPrice),
                                    std::pair("txtTotalDebt", Datum::TotalDebt)}) {
        desktop.click(id);
        desktop.type("{END}");
        EXPECT_TRUE(entry.showFigure({datum, {}}));
        EXPECT_EQ(scene.field(id).selText(), scene.text(id));
    }
}

TEST_F(HostInterface, AFigureThatThereIsNoMemoryToShowIsToldAsNotShown) {
    entry.put_objCompany(fullCompany());
    bool shown = true;
    {
        const FailingMemory memory(1, FailingMemory::Fails::fromThenOn);
        shown = entry.showFigure({Datum::YEPSSeries, 1});
    }
    // A library that needs no memory for short texts gets there.
    EXPECT_EQ(shown, desktop.focusedId() == "txtYEPS(9)");
    EXPECT_TRUE(entry.showFigure({Datum::YEPSSeries, 1}));
}

// --- quarterly data ------------------------------------------------------------------------------

TEST_F(HostInterface, QuarterlyDataExistsInTheRecordOrOnScreen) {
    EXPECT_FALSE(entry.blnExistsQuarterlyData());
    entry.put_objCompany(nullptr);
    EXPECT_FALSE(entry.blnExistsQuarterlyData());
    scene.field("txtRevenue", 2).setText("1.5");
    EXPECT_TRUE(entry.blnExistsQuarterlyData());
    scene.field("txtRevenue", 2).setText("none");
    EXPECT_FALSE(entry.blnExistsQuarterlyData());
    entry.put_objCompany(fullCompany());
    EXPECT_TRUE(entry.blnExistsQuarterlyData());
}

TEST_F(HostInterface, VisibleQuartersAreCutToWhatTheGridCanShow) {
    struct Row {
        std::int16_t count;
        int rows;
    };
    for (const auto& [count, rows] : {Row{0, 1}, Row{40, 35}, Row{-5, 1}, Row{12, 12}}) {
        entry.put_VisibleQuarters(count);
        EXPECT_EQ(entry.get_VisibleQuarters(), rows);
        for (const auto* array : {"lblQLabel", "txtRevenue", "txtQOption", "txtNetInc", "txtEPS"})
            EXPECT_EQ(scene.form().upperBound(array), rows - 1) << array;
    }
}

// While a message box is up the host goes on, and may hand in another record.
TEST(Questions, AreAnsweredForTheRecordThatTheyWereAskedOf) {
    struct Asking final : TableLocalizer {
        Asking() : TableLocalizer({standardStrings()}) {}
        [[nodiscard]] std::string LoadString(int number) const override {
            if (number == 406 && asked)
                asked();
            return TableLocalizer::LoadString(number);
        }
        std::function<void()> asked;
    };
    for (const char* button : {"cmdAddYear", "cmdRemoveYear", "cmdAddQuarter"}) {
        SCOPED_TRACE(button);
        EntryScene scene;
        const auto localizer = std::make_shared<Asking>();
        scene.desktop.factory().add(standardLocalizerId, [&] { return localizer; });
        scene.entry->put_Platform(ptStandard);
        scene.load(fullCompany());
        const auto other = fullCompany();
        std::shared_ptr<CompanyRecord> loaded;
        localizer->asked = [&] {
            scene.load(other);
            loaded = other->clone();
        };
        scene.desktop.clickTab(std::string_view(button) == "cmdAddQuarter" ? toQuarterly
                                                                           : toYearly);
        scene.desktop.answerNext(MessageAnswer::yes);
        scene.desktop.click(button);
        ASSERT_NE(loaded, nullptr);
        EXPECT_TRUE(differences(*loaded, *other).empty());
    }
}

} // namespace
} // namespace vkr
