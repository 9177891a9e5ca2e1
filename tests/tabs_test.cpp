// SPDX-License-Identifier: MIT
#include "tests/support/entry_scene.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

struct Tabs : testing::Test {
    EntryScene scene;
    VKRDataEntry& entry = *scene.entry;
    VirtualDesktop& desktop = scene.desktop;

    Tabs() { entry.put_objCompany(fullCompany()); }
    [[nodiscard]] TabStrip& strip() const { return scene.form().get<TabStrip>("tbsDataEntry"); }
    [[nodiscard]] Frame& page(int tab) const { return scene.form().get<Frame>("fraDE", 9 + tab); }
    void expectShown(int selected) const {
        for (int tab = 1; tab <= 5; ++tab) {
            EXPECT_EQ(page(tab).left(), tab == selected ? 60 : -20000) << tab;
            EXPECT_EQ(page(tab).enabled(), tab == selected) << tab;
            EXPECT_TRUE(page(tab).visible()) << tab;
        }
        for (const auto* id : {"cmdAddYear", "cmdRemoveYear"})
            EXPECT_EQ(desktop.control(id).visible(), selected == toYearly) << id;
    }
};

TEST_F(Tabs, FiveTabsInOrderWithKeysTagsAndToolTips) {
    VirtualDesktop bare;
    VKRDataEntry untouched(bare);
    const auto& design = untouched.form().get<TabStrip>("tbsDataEntry");
    ASSERT_EQ(design.count(), 5);
    const struct {
        const char* caption;
        const char* key;
        const char* tag;
        const char* toolTip;
    } expected[] = {{"&Company Data", "CompanyData", "565", "Company Data"},
                    {"&Yearly Data", "YearlyData", "566", "Yearly Data"},
                    {"&Quarterly Data", "QuarterlyData", "567", "Quarterly Data"},
                    {"Company &Other", "CompanyOther", "568", "Other Company Data"},
                    {"O&ptions", "Options", "569", "Options"}};
    Twips width = 0;
    for (int tab = 1; tab <= 5; ++tab) {
        EXPECT_EQ(design.tab(tab).caption, expected[tab - 1].caption);
        EXPECT_EQ(design.tab(tab).key, expected[tab - 1].key);
        EXPECT_EQ(design.tab(tab).tag, expected[tab - 1].tag);
        EXPECT_EQ(design.tab(tab).toolTip, expected[tab - 1].toolTip);
        EXPECT_GT(design.tab(tab).width, 0);
        width += design.tab(tab).width;
    }
    EXPECT_LE(width, design.width());
}

TEST_F(Tabs, StartOnTheCompanyPage) {
    EXPECT_EQ(strip().selected(), toCompany);
    expectShown(toCompany);
}

TEST_F(Tabs, ASelectedTabShowsItsPageAndParksTheOthers) {
    for (const int tab : {5, 2, 4, 3, 1}) {
        desktop.clickTab(tab);
        expectShown(tab);
    }
    EXPECT_EQ(scene.events.log,
              (Names{"TabChange 5", "TabChange 2", "TabChange 4", "TabChange 3", "TabChange 1"}));
}

TEST_F(Tabs, EveryWayOfSelectingShowsThePage) {
    entry.put_CurrentTab(toOptions);
    expectShown(toOptions);
    entry.SetNext();
    expectShown(toCompany);
    entry.SetPrevious();
    expectShown(toOptions);
    desktop.type("%y");
    expectShown(toYearly);
    desktop.type("^{PGDN}");
    expectShown(toQuarterly);
    desktop.type("^{PGUP}");
    expectShown(toYearly);
}

TEST_F(Tabs, PageKeysWithoutCtrlAreUsedByTheQuartersAlone) {
    entry.put_VisibleQuarters(20);
    for (int tab = toCompany; tab <= toOptions; ++tab)
        for (const KeyCode key : {keys::pageDown, keys::pageUp})
            for (const int shift : {shifts::none + 0, shifts::shift + 0, shifts::alt + 0}) {
                desktop.clickTab(tab);
                EXPECT_EQ(!scene.form().keyDown(key, shift),
                          tab == toQuarterly && shift == shifts::none)
                    << tab << " with " << shift;
                EXPECT_EQ(strip().selected(), tab);
            }
}

TEST_F(Tabs, TheFirstFieldOfThePageGetsTheFocus) {
    struct Row {
        int tab;
        const char* focus;
    };
    for (const auto& [tab, focus] :
         {Row{2, "txtLastFY"}, Row{3, "txtRevenue(0)"}, Row{4, "txtAddress1"},
          Row{5, "optCurrency(1)"}, Row{1, "txtCurrentPrice"}}) {
        desktop.clickTab(tab);
        EXPECT_EQ(desktop.focusedId(), focus);
    }
}

TEST_F(Tabs, ANamelessCompanyStartsAtItsName) {
    entry.put_objCompany(nullptr);
    desktop.clickTab(toYearly);
    desktop.clickTab(toCompany);
    EXPECT_EQ(desktop.focusedId(), "txtName");
}

TEST_F(Tabs, OptionsStartAtTheUnitThatIsChosen) {
    for (int unit = 0; unit <= 2; ++unit) {
        scene.form().get<OptionButton>("optCurrency", unit).setValue(true);
        desktop.clickTab(toOptions);
        EXPECT_EQ(desktop.focusedId(), "optCurrency(" + std::to_string(unit) + ")");
    }
}

TEST_F(Tabs, TheFieldWithTheFocusIsSelectedAsAWhole) {
    desktop.clickTab(toOther);
    const auto& field = scene.field("txtAddress1");
    EXPECT_EQ(field.selText(), "Address1 text");
}

TEST_F(Tabs, ReselectingMovesTheFocusAgainButRaisesNothing) {
    desktop.clickTab(toOther);
    desktop.click("txtCity");
    scene.events.log.clear();
    desktop.clickTab(toOther);
    EXPECT_EQ(desktop.focusedId(), "txtAddress1");
    EXPECT_EQ(scene.events.log, Names{});
}

TEST_F(Tabs, TheHostSelectingTheTabAgainMovesTheFocusToo) {
    entry.put_CurrentTab(toOther);
    desktop.click("txtCity");
    scene.events.log.clear();
    entry.put_CurrentTab(toOther);
    EXPECT_EQ(desktop.focusedId(), "txtAddress1");
    EXPECT_EQ(scene.events.log, Names{});
}

TEST_F(Tabs, PageFocusAndRecordAreReadyWhenTheEventComes) {
    struct Watcher final : VKRDataEntryEvents {
        explicit Watcher(const EntryScene& theScene, const iVKR_Company& theRecord)
            : scene(theScene), record(theRecord) {}
        void TabChange(TABObject /*tab*/) override {
            seen = {scene.desktop.focusedId(), record.get_Name(), record.get_Country()};
            added = scene.desktop.control("cmdAddYear").visible();
            left = scene.form().get<Frame>("fraDE", 11).left();
        }
        const EntryScene& scene;
        const iVKR_Company& record;
        Names seen;
        bool added = false;
        Twips left = 0;
    };
    const auto record = fullCompany();
    entry.put_objCompany(record);
    Watcher watcher(scene, *record);
    entry.setEvents(&watcher);
    desktop.click("txtName");
    desktop.type("^aTyped");
    entry.put_CurrentTab(toYearly);
    EXPECT_EQ(watcher.seen, (Names{"txtLastFY", "Typed", "Country text"}));
    EXPECT_TRUE(watcher.added);
    EXPECT_EQ(watcher.left, 60);
    entry.setEvents(nullptr);
}

TEST_F(Tabs, TheQuarterlyGridIsLaidOutBeforeItIsShown) {
    scene.form().get<Frame>("fraDE", 3).move(0, -3000);
    desktop.clickTab(toQuarterly);
    EXPECT_EQ(scene.form().get<Frame>("fraDE", 3).top(), 15 - scene.field("txtEPS", 0).top());
    EXPECT_TRUE(desktop.canReach("txtRevenue(0)"));
}

TEST_F(Tabs, TheRememberedTabIsUpToDateWhenTheEventComes) {
    struct Saver final : VKRDataEntryEvents {
        explicit Saver(VKRDataEntry& theEntry) : entry(theEntry) {}
        void TabChange(TABObject tab) override {
            PropertyBag bag;
            entry.WriteProperties(bag);
            saved = bag.read("CurrentTab", std::int32_t{1});
            told = tab;
            ++count;
        }
        VKRDataEntry& entry;
        Variant saved;
        int told = 0;
        int count = 0;
    } saver(entry);
    entry.setEvents(&saver);
    desktop.clickTab(toQuarterly);
    EXPECT_EQ(saver.saved, Variant(std::int32_t{toQuarterly}));
    EXPECT_EQ(saver.told, toQuarterly);
    EXPECT_EQ(saver.count, 1);
    EXPECT_EQ(entry.get_CurrentTab(), toQuarterly);
    entry.setEvents(nullptr);
}

TEST_F(Tabs, AHostMayTurnBackFromWithinTheEvent) {
    struct Back final : VKRDataEntryEvents {
        explicit Back(VKRDataEntry& theEntry) : entry(theEntry) {}
        void TabChange(TABObject tab) override {
            if (tab != toCompany)
                entry.put_CurrentTab(toCompany);
        }
        VKRDataEntry& entry;
    } back(entry);
    entry.setEvents(&back);
    desktop.clickTab(toOther);
    expectShown(toCompany);
    EXPECT_EQ(desktop.focusedId(), "txtCurrentPrice");
    entry.setEvents(nullptr);
}

TEST_F(Tabs, SelectingClosesTheHelpFrame) {
    auto& help = scene.form().get<Frame>("fraDE", 0);
    help.setVisible(true);
    entry.put_CurrentTab(toCompany);
    EXPECT_FALSE(help.visible());
}

TEST_F(Tabs, AFieldIsLeftWhenItsPageGoes) {
    desktop.click("txtName");
    desktop.type("^aRenamed");
    desktop.clickTab(toOther);
    EXPECT_EQ(entry.get_objCompany()->get_Name(), "Renamed");
}

TEST_F(Tabs, WithoutItsFirstFieldAPageTakesTheFocusInTheNextOne) {
    const auto none = std::make_shared<ScriptedRecord>(fullCompany());
    none->missing = 35;
    entry.put_objCompany(none);
    desktop.click("txtName");
    entry.put_CurrentTab(toQuarterly);
    EXPECT_FALSE(desktop.control("txtRevenue(0)").enabled());
    EXPECT_TRUE(desktop.control(desktop.focusedId()).isShown()) << desktop.focusedId();
}

TEST_F(Tabs, AFieldThatAnotherPlatformLacksLosesTheFocusToOneOnShow) {
    desktop.click("txtTotalDebt");
    PropertyBag bag;
    bag.write("Platform", std::int32_t{ptZX}, std::int32_t{-1});
    entry.ReadProperties(bag);
    EXPECT_FALSE(desktop.control("txtTotalDebt").visible());
    EXPECT_TRUE(desktop.control(desktop.focusedId()).canTakeFocus()) << desktop.focusedId();
}

TEST_F(Tabs, AFieldThatTheHostHidesLosesTheFocusToOneOnShow) {
    entry.put_ShowVLs(true);
    entry.put_ShowReportingPeriod(true);
    desktop.clickTab(toOther);
    struct Hidden {
        const char* id;
        void (*hide)(VKRDataEntry& entry);
    };
    for (const auto& row :
         {Hidden{"txtVLSafety", [](VKRDataEntry& shown) { shown.put_ShowVLs(false); }},
          Hidden{"cmbReportingPeriod",
                 [](VKRDataEntry& shown) { shown.put_ShowReportingPeriod(false); }}}) {
        desktop.click(row.id);
        ASSERT_EQ(desktop.focusedId(), row.id);
        row.hide(entry);
        EXPECT_TRUE(desktop.control(desktop.focusedId()).canTakeFocus()) << desktop.focusedId();
    }
}

} // namespace
} // namespace vkr
