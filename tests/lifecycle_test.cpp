// SPDX-License-Identifier: MIT
#include "tests/support/entry_scene.hpp"

#include <gtest/gtest.h>
#include <map>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

// A component that was only created, on a desktop that a test prepares first.
struct Lifecycle : testing::Test {
    VirtualDesktop desktop = VirtualDesktop();
    std::unique_ptr<VKRDataEntry> entry;

    Lifecycle() {
        registerLocalizers(desktop.factory());
        registerCompanyRecord(desktop.factory());
    }
    VKRDataEntry& create() {
        entry = std::make_unique<VKRDataEntry>(desktop);
        desktop.attach(entry->form());
        return *entry;
    }
    VKRDataEntry& restore(const PropertyBag& bag) {
        create().ReadProperties(bag);
        return *entry;
    }
    [[nodiscard]] const Control& control(std::string_view id) const { return desktop.control(id); }
    [[nodiscard]] std::string caption(std::string_view id) const { return control(id).caption(); }
};

// --- start-up ------------------------------------------------------------------------------------

TEST_F(Lifecycle, ARunningHostGetsNoLocalizerAtStartUp) {
    desktop.factory().remove(standardLocalizerId); // would be complained about
    create();
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_TRUE(entry->form().mouseIcon().empty());
    EXPECT_EQ(entry->get_Platform(), ptStandard);
}

TEST_F(Lifecycle, DesignTimeGetsLocalizerAndPointerButNoCaptionsAndNoNotice) {
    struct Shouting final : TableLocalizer {
        Shouting() : TableLocalizer({standardStrings()}) {}
        [[nodiscard]] std::string LoadString(int number) const override {
            return "!" + TableLocalizer::LoadString(number);
        }
    };
    desktop.factory().add(standardLocalizerId, [] { return std::make_shared<Shouting>(); });
    desktop.setUserMode(false);
    create();
    EXPECT_EQ(entry->form().mouseIcon(), StandardLocalizer().LoadPicture(101, 0));
    EXPECT_EQ(caption("lblLabel(0)"), "Name");
    EXPECT_EQ(control("lblLabel(0)").tag(), "500");
    EXPECT_EQ(desktop.propertyChanges(), Names{});
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(Lifecycle, AnUnreadableRunModeCountsAsDesignTime) {
    desktop.makeUserModeUnreadable();
    create();
    EXPECT_FALSE(entry->form().mouseIcon().empty());
}

TEST_F(Lifecycle, TheApplicationTitleChoosesThePlatform) {
    struct Row {
        std::string_view title;
        PlatformType platform;
        std::string_view created;
    };
    for (const auto& row :
         {Row{"VKRDataEntry", ptStandard, standardLocalizerId},
          Row{"VKR ZX Analyst", ptZX, zxLocalizerId}, Row{"My VKR ZX 3", ptZX, zxLocalizerId},
          Row{"VKR ZX", ptStandard, standardLocalizerId},
          Row{"vkr zx Analyst", ptStandard, standardLocalizerId}}) {
        Names created;
        for (const auto id : {standardLocalizerId, zxLocalizerId})
            desktop.factory().add(id, [&created, id] {
                created.emplace_back(id);
                return std::make_shared<StandardLocalizer>();
            });
        desktop.setUserMode(false);
        desktop.setApplicationTitle(row.title);
        create();
        EXPECT_EQ(entry->get_Platform(), row.platform) << row.title;
        EXPECT_EQ(created, Names{std::string(row.created)}) << row.title;
    }
}

TEST_F(Lifecycle, ARunningHostIsStandardWhateverItsTitle) {
    desktop.setApplicationTitle("VKR ZX Analyst");
    create();
    EXPECT_EQ(entry->get_Platform(), ptStandard);
}

TEST_F(Lifecycle, AMissingLocalizerIsReportedInTheWordsOfStartUp) {
    desktop.setUserMode(false);
    desktop.setApplicationTitle("VKR ZX Analyst");
    desktop.factory().remove(zxLocalizerId);
    create();
    ASSERT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(desktop.messages()[0].text, "Bad or missing value object\rData Entry");
    EXPECT_EQ(desktop.messages()[0].buttons, message_box::exclamationIcon);
    EXPECT_EQ(desktop.messages()[0].title, "VKR ZX Analyst");
    EXPECT_EQ(caption("lblLabel(0)"), "Name");
    EXPECT_TRUE(entry->form().mouseIcon().empty());
    EXPECT_EQ(entry->get_DateFormat(), "MMM/DD/YYYY"); // the rest of the start-up has run
}

TEST_F(Lifecycle, StartsEmptyWithItsFormats) {
    create();
    EXPECT_EQ(entry->get_DateFormat(), "MMM/DD/YYYY");
    EXPECT_EQ(entry->get_NumberFormat(), "#0.00");
    EXPECT_EQ(entry->get_PercentFormat(), "#0.00%");
    for (const auto& any : entry->form().controls()) {
        if (const auto* field = dynamic_cast<const TextField*>(any.get())) {
            EXPECT_EQ(field->text(), field->name() == "txtCurSymbol" ? "$" : "") << field->id();
        }
        if (const auto* list = dynamic_cast<const ComboBox*>(any.get())) {
            EXPECT_EQ(list->list(), Names{}) << list->id();
        }
    }
    EXPECT_EQ(entry->get_CurrentTab(), toCompany);
    EXPECT_TRUE(entry->form().get<Label>("lblYOption").autoSize());
    EXPECT_EQ(control("fraDE(3)").left(), 0);
    EXPECT_EQ(control("fraDE(3)").top(), 0);
    EXPECT_EQ(desktop.focusedId(), "");
}

TEST_F(Lifecycle, PricesStartWithThreeDecimals) {
    restore({});
    const auto record = fullCompany();
    record->put_CurrentPrice(12.5);
    entry->put_objCompany(record);
    EXPECT_EQ(entry->form().get<TextField>("txtCurrentPrice").text(), "12.500");
}

// --- colours -------------------------------------------------------------------------------------

TEST_F(Lifecycle, EveryControlHasTheColorsOfItsKind) {
    create();
    entry->put_ShadeColorYear(colors::white); // so that no cell is shaded
    entry->put_ShadeColorQuarter(colors::white);
    EXPECT_EQ(entry->form().backColor(), colors::buttonFace);
    for (const auto& any : entry->form().controls()) {
        const Control& one = *any;
        const bool ownColors = one.container() == &control("fraDE(0)");
        const bool shows = one.name() == "lblSample" || one.name() == "lblLegend";
        const bool yearAgo = one.index() == 4 && one.container() == &control("fraDE(3)") &&
                             one.name() != "lblQCurrency";
        if (!one.hasColors() || ownColors)
            continue;
        const bool field =
            one.kind() == ControlKind::textBox || one.kind() == ControlKind::comboBox;
        EXPECT_EQ(one.foreColor(), field ? 0xFF0000U : 0U) << one.id();
        if (shows)
            continue;
        EXPECT_EQ(one.backColor(), yearAgo ? colors::yellow
                                   : field ? 0xFFFFFFU
                                           : 0x8000000FU)
            << one.id();
    }
}

TEST_F(Lifecycle, TheHelpFrameKeepsItsDesignColors) {
    struct Colors {
        Color back;
        Color fore;
        bool operator==(const Colors&) const = default;
    };
    create();
    std::map<std::string, Colors> kept;
    for (const auto* name :
         {"lblMoreHelp", "lblToolTip", "shaBackground", "shaBorder", "picToolTip"})
        kept[name] = {control(name).backColor(), control(name).foreColor()};
    EXPECT_EQ(kept["lblToolTip"].back, kept["shaBackground"].back);
    EXPECT_NE(kept["lblToolTip"].back, colors::buttonFace);
    EXPECT_EQ(kept["lblMoreHelp"].fore, colors::blue);
    entry->put_UserMode(umDefault);
    entry->ReadProperties({});
    entry->put_objCompany(fullCompany());
    for (const auto& [name, design] : kept)
        EXPECT_EQ((Colors{control(name).backColor(), control(name).foreColor()}), design) << name;
}

TEST_F(Lifecycle, ShadesAreThereFromTheStart) {
    create();
    for (const auto* id : {"txtSales(8)", "txtSales(9)", "txtYEPS(5)", "txtYEPS(9)", "txtHigh(5)",
                           "txtLow(9)", "txtSales(3)", "txtSales(4)"})
        EXPECT_EQ(control(id).backColor(), colors::paleCyan) << id;
    for (const auto* id : {"txtSales(7)", "txtSales(10)", "txtYEPS(4)", "txtHigh(10)", "txtCSO(9)"})
        EXPECT_EQ(control(id).backColor(), colors::white) << id;
    for (const auto* id :
         {"lblQLabel(4)", "txtRevenue(4)", "txtEPS(4)", "txtQOption(4)", "txtNetInc(4)"})
        EXPECT_EQ(control(id).backColor(), colors::yellow) << id;
}

// --- size ----------------------------------------------------------------------------------------

TEST_F(Lifecycle, WithoutARecordItIsAPlaceholderWithTheStripOutOfSight) {
    create();
    for (const Twips size : {382.5, 100.0, 8070.0}) {
        entry->form().setSize(size, size);
        entry->Resize(size, size);
        EXPECT_EQ(entry->form().width(), 382.5);
        EXPECT_EQ(entry->form().height(), 382.5);
        EXPECT_EQ(control("tbsDataEntry").left(), 382.5);
        EXPECT_EQ(control("tbsDataEntry").top(), 382.5);
    }
    EXPECT_FALSE(desktop.canReach("tbsDataEntry"));
}

// Answers every new size with another resize, as containers do.
struct Container final : FormObserver {
    explicit Container(VKRDataEntry& placed) : entry(placed) { entry.form().setObserver(this); }
    ~Container() override { entry.form().setObserver(nullptr); }
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    void formChanged() override {
        ++sizes;
        ASSERT_LT(sizes, 10);
        entry.Resize(entry.form().width(), entry.form().height());
    }
    VKRDataEntry& entry;
    int sizes = 0;
};

TEST_F(Lifecycle, ThePlaceholderComesOnceAndDoesNotRecurse) {
    Container container(create());
    entry->form().setSize(5000, 4000);
    EXPECT_EQ(entry->form().width(), 382.5);
    EXPECT_EQ(container.sizes, 2); // the container's change and the answer to it
}

// Without an end to it they would answer each other for ever.
TEST_F(Lifecycle, ThePlaceholderGivesInToAContainerThatInsists) {
    struct Insisting final : FormObserver {
        explicit Insisting(VKRDataEntry& placed) : entry(placed) { entry.form().setObserver(this); }
        ~Insisting() override { entry.form().setObserver(nullptr); }
        Insisting(const Insisting&) = delete;
        Insisting& operator=(const Insisting&) = delete;
        void formChanged() override {
            if (++sizes > 20)
                return;
            entry.form().setSize(1000, 1000);
            entry.Resize(1000, 1000);
        }
        VKRDataEntry& entry;
        int sizes = 0;
    };
    Insisting container(create());
    entry->form().setSize(5000, 4000);
    EXPECT_LT(container.sizes, 20);
}

TEST_F(Lifecycle, WithARecordItHasItsWorkingSizeWhateverTheContainerWants) {
    Container container(restore({}));
    entry->put_objCompany(nullptr);
    for (const Twips size : {382.5, 1.0, 20000.0, 8070.0}) {
        container.sizes = 0;
        entry->form().setSize(size, size);
        EXPECT_EQ(entry->form().width(), 8070);
        EXPECT_EQ(entry->form().height(), 5835);
        EXPECT_EQ(control("tbsDataEntry").left(), 0);
        EXPECT_EQ(control("tbsDataEntry").top(), 0);
    }
}

TEST_F(Lifecycle, LoadingBringsTheWorkingSizeAtOnce) {
    restore({}).put_objCompany(fullCompany());
    EXPECT_EQ(entry->form().width(), VKRDataEntry::workingWidth);
    EXPECT_EQ(entry->form().height(), VKRDataEntry::workingHeight);
    EXPECT_TRUE(desktop.canReach("tbsDataEntry"));
}

TEST_F(Lifecycle, LoadingSelectsNothingWhileTheFocusIsInTheHost) {
    restore({}).put_objCompany(fullCompany());
    desktop.click("txtCurrentPrice");
    ASSERT_TRUE(desktop.leaveForm());
    entry->put_objCompany(fullCompany());
    EXPECT_EQ(entry->form().get<TextBox>("txtCurrentPrice").selLength(), 0);
}

// --- property set --------------------------------------------------------------------------------

TEST_F(Lifecycle, AFreshInstanceGetsNineQuartersAndNothingElse) {
    create();
    desktop.forget();
    const auto before = desktop.snapshot();
    entry->InitProperties();
    EXPECT_EQ(entry->get_VisibleQuarters(), 9);
    EXPECT_EQ(desktop.snapshot(), before);
    EXPECT_EQ(desktop.propertyChanges(), Names{});
}

TEST_F(Lifecycle, TheStartValuesAreThereWithoutAPropertySet) {
    create();
    EXPECT_EQ(entry->get_VisibleQuarters(), 9);
    EXPECT_EQ(entry->get_ShadeColorYear(), 0xFFFFC0U);
    EXPECT_EQ(entry->get_ShadeColorQuarter(), 0xFFFFC0U);
    EXPECT_EQ(entry->get_UserMode(), umDefault);
    EXPECT_EQ(entry->get_CurrentTab(), toCompany);
    EXPECT_FALSE(entry->get_blnDirty());
    EXPECT_FALSE(entry->get_FractionDisplay());
    EXPECT_TRUE(entry->form().get<OptionButton>("optCommEq", 0).value());
    EXPECT_FALSE(entry->form().get<OptionButton>("optCommEq", 1).value());
    EXPECT_TRUE(entry->form().get<OptionButton>("optPTI", 0).value());
    EXPECT_FALSE(entry->form().get<OptionButton>("optPTI", 1).value());
    EXPECT_FALSE(entry->get_ShowReportingPeriod());
    EXPECT_FALSE(entry->get_ShowVLs());
}

TEST_F(Lifecycle, DefaultsAreNotStored) {
    restore({});
    PropertyBag bag;
    entry->WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());
}

TEST_F(Lifecycle, EveryKeyIsStoredWithItsType) {
    restore({}).put_objCompany(fullCompany());
    desktop.clickTab(toOptions);
    desktop.click("optCommEq(1)");
    desktop.click("optPTI(1)");
    entry->put_Platform(ptZX);
    entry->put_UserMode(umCustom);
    entry->put_ShadeColorLocked(1);
    entry->put_ShadeColorYear(2);
    entry->put_ShadeColorQuarter(3);
    entry->put_VisibleQuarters(12);
    entry->put_ShowReportingPeriod(true);
    entry->put_ShowVLs(true);
    entry->put_BorderStyle(BorderStyle::fixedSingle);
    entry->put_FractionDisplay(true);
    entry->put_PercentFormat("0%");
    entry->put_DateFormat("YYYY");
    entry->put_NumberFormat("0");

    PropertyBag bag;
    entry->WriteProperties(bag);
    const std::map<std::string, Variant, std::less<>> expected{
        {"Platform", std::int32_t{1}},
        {"UserMode", std::int32_t{1}},
        {"ShadeColorLocked", std::int32_t{1}},
        {"ShadeColorYear", std::int32_t{2}},
        {"ShadeColorQuarter", std::int32_t{3}},
        {"VisibleQuarters", std::int16_t{12}},
        {"ShowReportingPeriod", true},
        {"ShowVLs", true},
        {"CurrentTab", std::int32_t{5}},
        {"CommEquityData", false},
        {"TaxRateData", true},
        {"BorderStyle", std::int32_t{1}},
        {"FractionDisplay", true},
    };
    EXPECT_EQ(bag.values(), expected);
}

TEST_F(Lifecycle, AValueThatIsTheDefaultAgainIsTakenOut) {
    restore({});
    PropertyBag bag;
    entry->put_ShowVLs(true);
    entry->WriteProperties(bag);
    ASSERT_TRUE(bag.contains("ShowVLs"));
    entry->put_ShowVLs(false);
    entry->WriteProperties(bag);
    EXPECT_FALSE(bag.contains("ShowVLs"));
}

TEST_F(Lifecycle, SavingShowsTheRememberedTab) {
    restore({});
    entry->put_objCompany(fullCompany());
    entry->put_CurrentTab(toYearly);
    desktop.click("txtSales(9)");
    auto& strip = entry->form().get<TabStrip>("tbsDataEntry");
    PropertyBag bag;
    entry->WriteProperties(bag);
    EXPECT_EQ(strip.selected(), toYearly);
    EXPECT_EQ(bag.read("CurrentTab", std::int32_t{1}), Variant(std::int32_t{toYearly}));
    EXPECT_EQ(control("fraDE(11)").left(), 60);
    EXPECT_EQ(desktop.focusedId(), "txtLastFY");
}

TEST_F(Lifecycle, SavingWhileATabIsOnlyComingUpBringsTheRememberedOneBack) {
    EventRecorder events;
    restore({}).put_objCompany(fullCompany());
    entry->setEvents(&events);
    desktop.click("txtName");
    desktop.type("x");
    PropertyBag bag;
    bag.write("CurrentTab", std::int32_t{toOther}, std::int32_t{toCompany});
    auto& strip = entry->form().get<TabStrip>("tbsDataEntry");
    int selected = 0;
    entry->stateChanged = [&] {
        selected = strip.selected();
        entry->WriteProperties(bag);
    };
    entry->put_CurrentTab(toOther); // the name is left for its first field
    EXPECT_EQ(selected, toOther);
    EXPECT_FALSE(bag.contains("CurrentTab")) << "the first tab, which is the default";
    EXPECT_EQ(strip.selected(), toCompany);
    EXPECT_EQ(control("fraDE(10)").left(), 60);
    EXPECT_FALSE(control("fraDE(13)").enabled());
    EXPECT_EQ(desktop.focusedId(), "txtCurrentPrice");
    EXPECT_EQ(events.log, Names{});
}

TEST_F(Lifecycle, RestoringAssignsEveryReadKeyInOrder) {
    create();
    PropertyBag bag;
    bag.write("Platform", std::int32_t{1}, std::int32_t{0});
    bag.write("UserMode", std::int32_t{1}, std::int32_t{0});
    bag.write("ShadeColorLocked", std::int32_t{1}, std::int32_t{0});
    bag.write("ShadeColorYear", std::int32_t{2}, std::int32_t{0});
    bag.write("ShadeColorQuarter", std::int32_t{3}, std::int32_t{0});
    bag.write("VisibleQuarters", std::int16_t{12}, std::int16_t{9});
    bag.write("ShowReportingPeriod", true, false);
    bag.write("ShowVLs", true, false);
    bag.write("CurrentTab", std::int32_t{4}, std::int32_t{1});
    bag.write("BorderStyle", std::int32_t{1}, std::int32_t{0});
    bag.write("FractionDisplay", true, false);
    entry->ReadProperties(bag);
    EXPECT_EQ(
        desktop.propertyChanges(),
        (Names{"Platform", "UserMode", "ShadeColorLocked", "ShadeColorYear", "ShadeColorQuarter",
               "VisibleQuarters", "ShowReportingPeriod", "ShowVLs", "CurrentTab"}));
    EXPECT_EQ(entry->get_Platform(), ptZX);
    EXPECT_EQ(entry->get_UserMode(), umCustom);
    EXPECT_EQ(entry->get_ShadeColorLocked(), 1U);
    EXPECT_EQ(entry->get_ShadeColorYear(), 2U);
    EXPECT_EQ(entry->get_ShadeColorQuarter(), 3U);
    EXPECT_EQ(entry->get_VisibleQuarters(), 12);
    EXPECT_TRUE(entry->get_ShowReportingPeriod());
    EXPECT_TRUE(entry->get_ShowVLs());
    EXPECT_EQ(entry->get_CurrentTab(), toOther);
    EXPECT_EQ(entry->get_BorderStyle(), BorderStyle::fixedSingle);
    EXPECT_TRUE(entry->get_FractionDisplay());
    EXPECT_FALSE(entry->get_blnDirty());
    EXPECT_EQ(desktop.focusedId(), "");
}

TEST_F(Lifecycle, TheUserModeIsRestoredBeforeTheShadesThatItResets) {
    PropertyBag bag;
    bag.write("UserMode", std::int32_t{0}, std::int32_t{1});
    bag.write("ShadeColorLocked", std::int32_t{1}, std::int32_t{0});
    bag.write("ShadeColorYear", std::int32_t{2}, std::int32_t{0});
    restore(bag);
    EXPECT_EQ(entry->get_UserMode(), umDefault);
    EXPECT_EQ(entry->get_ShadeColorLocked(), 1U);
    EXPECT_EQ(entry->get_ShadeColorYear(), 2U);
}

TEST_F(Lifecycle, SystemColorsComeBackAsTheyWere) {
    restore({});
    entry->put_ShadeColorLocked(colors::buttonFace);
    entry->put_ShadeColorYear(0xFFFFFFFFU);
    PropertyBag bag;
    entry->WriteProperties(bag);
    restore(bag);
    EXPECT_EQ(entry->get_ShadeColorLocked(), colors::buttonFace);
    EXPECT_EQ(entry->get_ShadeColorYear(), 0xFFFFFFFFU);
}

TEST_F(Lifecycle, TheHostHearsOfARestoredTab) {
    EventRecorder events;
    PropertyBag bag;
    bag.write("CurrentTab", std::int32_t{toOther}, std::int32_t{toCompany});
    create().setEvents(&events);
    entry->ReadProperties(bag);
    EXPECT_EQ(events.log, Names{"TabChange 4"});
    entry->ReadProperties(bag);
    EXPECT_EQ(events.log, Names{"TabChange 4"}) << "selected already";
}

TEST_F(Lifecycle, AnEmptySetRestoresTheDefaultsAndNotifies) {
    create();
    entry->ReadProperties({});
    EXPECT_EQ(desktop.propertyChanges(),
              (Names{"Platform", "UserMode", "ShowReportingPeriod", "ShowVLs", "CurrentTab"}));
    EXPECT_EQ(caption("lblLabel(47)"), "Telephone"); // texts of the localizer are there
}

TEST_F(Lifecycle, WhatIsWrittenButNeverReadStartsAsAlways) {
    PropertyBag bag;
    bag.write("CommEquityData", false, true);
    bag.write("TaxRateData", true, false);
    bag.write("PercentFormat", "0%", "");
    restore(bag);
    EXPECT_TRUE(entry->form().get<OptionButton>("optCommEq", 0).value());
    EXPECT_TRUE(entry->form().get<OptionButton>("optPTI", 0).value());
    EXPECT_EQ(caption("lblYOption2"), "Common Equity");
    EXPECT_EQ(caption("lblYOption"), "Pre-Tax Income");
    EXPECT_EQ(entry->get_PercentFormat(), "#0.00%");
}

TEST_F(Lifecycle, AChangedFormatIsNotKeptAcrossSavingAndRestoring) {
    restore({});
    entry->put_PercentFormat("0%");
    entry->put_DateFormat("YYYY");
    entry->put_NumberFormat("0");
    PropertyBag bag;
    entry->WriteProperties(bag);
    restore(bag);
    EXPECT_EQ(entry->get_PercentFormat(), "#0.00%");
    EXPECT_EQ(entry->get_DateFormat(), "MMM/DD/YYYY");
    EXPECT_EQ(entry->get_NumberFormat(), "#0.00");
}

TEST_F(Lifecycle, ASetOfNonsenseRestoresWhatCanBeRead) {
    PropertyBag bag;
    bag.write("Platform", "nonsense", "");
    bag.write("VisibleQuarters", 1e9, 0.0);
    bag.write("CurrentTab", std::int32_t{77}, std::int32_t{1});
    bag.write("ShowVLs", textArray({"x"}), false);
    bag.write("ShowReportingPeriod", true, false);
    EXPECT_NO_THROW(restore(bag));
    EXPECT_EQ(entry->get_Platform(), ptStandard);
    EXPECT_GE(entry->get_VisibleQuarters(), 1);
    EXPECT_LE(entry->get_VisibleQuarters(), 35);
    EXPECT_EQ(entry->get_CurrentTab(), toCompany);
    EXPECT_FALSE(entry->get_ShowVLs());
    EXPECT_TRUE(entry->get_ShowReportingPeriod());
}

// --- the other platform --------------------------------------------------------------------------

constexpr const char* hiddenOnZx[] = {
    "lblUnit(0)",      "lblUnit(10)",     "lblLabel(18)", "lblLabel(11)",      "lblCurrency(3)",
    "lblCurrency(16)", "txtTotalDebt",    "txtTotalCap",  "txtInsiderHolding", "txtInstitutional",
    "lblUnit(1)",      "lblUnit(2)",      "lblUnit(3)",   "lblCurrency(6)",    "txtPreferredShares",
    "txtCommonShares", "txtDilutedShares"};

PropertyBag zxSet() {
    PropertyBag bag;
    bag.write("Platform", std::int32_t{1}, std::int32_t{0});
    return bag;
}

TEST_F(Lifecycle, TheOtherPlatformHidesSeventeenControlsAndHasTwoCaptionsOfItsOwn) {
    restore(zxSet());
    for (const auto* id : hiddenOnZx)
        EXPECT_FALSE(control(id).visible()) << id;
    EXPECT_EQ(caption("lblLabel(15)"), "EPS Projection");
    EXPECT_EQ(entry->form().get<TabStrip>("tbsDataEntry").tab(toOther).caption, "&Other Data");
    entry->put_objCompany(fullCompany());
    for (const auto* id : hiddenOnZx)
        EXPECT_FALSE(control(id).visible()) << id;
    EXPECT_EQ(caption("lblLabel(15)"), "EPS Projection");
}

TEST_F(Lifecycle, ABlankTextReplacesNeitherOfTheTwoCaptions) {
    static constexpr StringRow blanks[] = {{613, "  "}, {614, " \t"}};
    desktop.factory().add(zxLocalizerId, [] {
        return std::make_shared<TableLocalizer>(
            std::vector<StringTable>{blanks, standardStrings()});
    });
    restore(zxSet());
    EXPECT_EQ(caption("lblLabel(15)"), "ORB EPS Projection");
    EXPECT_EQ(entry->form().get<TabStrip>("tbsDataEntry").tab(toOther).caption, "Company &Other");
}

TEST_F(Lifecycle, TheStandardPlatformShowsThemAll) {
    restore({});
    for (const auto* id : hiddenOnZx)
        EXPECT_TRUE(control(id).visible()) << id;
    EXPECT_EQ(caption("lblLabel(15)"), "ORB EPS Projection");
    EXPECT_EQ(entry->form().get<TabStrip>("tbsDataEntry").tab(toOther).caption, "Company &Other");
}

TEST_F(Lifecycle, DesignTimeHidesNothingOnTheOtherPlatform) {
    for (const bool readable : {true, false}) {
        desktop.setUserMode(false);
        if (!readable)
            desktop.makeUserModeUnreadable();
        restore(zxSet());
        for (const auto* id : hiddenOnZx)
            EXPECT_TRUE(control(id).visible()) << id;
        EXPECT_EQ(caption("lblLabel(15)"), "ORB EPS Projection");
    }
}

TEST_F(Lifecycle, TheOtherPlatformHidesThemWithoutItsLocalizerToo) {
    desktop.factory().remove(zxLocalizerId);
    restore(zxSet());
    for (const auto* id : hiddenOnZx)
        EXPECT_FALSE(control(id).visible()) << id;
    EXPECT_EQ(caption("lblLabel(15)"), "ORB EPS Projection");
    EXPECT_EQ(entry->form().get<TabStrip>("tbsDataEntry").tab(toOther).caption, "Company &Other");
    EXPECT_EQ(desktop.messages().size(), 1U);
}

// --- what closes the help frame ------------------------------------------------------------------

TEST_F(Lifecycle, SurfaceFocusAndKeysCloseTheHelpFrame) {
    restore({}).put_objCompany(fullCompany());
    auto& help = entry->form().get<Frame>("fraDE", 0);
    const std::map<std::string, std::function<void()>> ways{
        {"click on the surface", [&] { desktop.clickSurface(); }},
        {"key released", [&] { desktop.type("{END}"); }},
        {"click on a field", [&] { desktop.click("txtSymbol"); }},
        {"click on the text", [&] { desktop.click("lblToolTip"); }},
        {"focus leaves", [&] { desktop.leaveForm(); }},
    };
    for (const auto& [way, act] : ways) {
        desktop.click("txtName");
        help.setVisible(true);
        act();
        EXPECT_FALSE(help.visible()) << way;
    }
}

TEST_F(Lifecycle, F1ActsAsTheHelpButtonOnceAPress) {
    EventRecorder events;
    restore({}).put_objCompany(fullCompany());
    entry->setEvents(&events);
    desktop.click("txtName");
    desktop.type("{F1}");
    desktop.type("{F2}");
    EXPECT_EQ(events.log, Names{"MoreHelp 3064"});
}

TEST_F(Lifecycle, AFormThatWasOnlyCreatedShowsWhatEveryHostHas) {
    create();
    for (const char* asked : {"cmbReportingPeriod", "txtVLTimelines", "txtVLSafety"})
        EXPECT_FALSE(control(asked).visible()) << asked;
    const Form& form = entry->form();
    const auto chosen = [&](const char* name, int index) {
        return form.get<OptionButton>(name, index).value();
    };
    EXPECT_TRUE(chosen("optCurrency", 1)) << "millions";
    for (int unit : {0, 2})
        EXPECT_FALSE(chosen("optCurrency", unit));
    for (const char* ofOtherTabs : {"cmdAddYear", "cmdRemoveYear"})
        EXPECT_FALSE(control(ofOtherTabs).visible()) << ofOtherTabs;
    EXPECT_FALSE(control("vscrQuarterly").visible()) << "all nine quarters have room";
    EXPECT_EQ(form.width(), 382.5) << "there is no company";
}

} // namespace
} // namespace vkr
