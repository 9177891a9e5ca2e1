// SPDX-License-Identifier: MIT
#include "control/right_click_menu.hpp"
#include "platform/text.hpp"
#include "tests/support/component_parts.hpp"
#include "tests/support/entry_object_rows.hpp"
#include "tests/support/hostile_desktop.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <initializer_list>
#include <utility>

namespace vkr {
namespace {

using namespace test;
using Names = std::vector<std::string>;
using Menu = VirtualDesktop::Menu;

constexpr int firstWithoutACommand = mcTakePrevious + 1;

// A company on a form that shows everything it can show.
class RightClick : public testing::Test {
  protected:
    RightClick() {
        showEveryField(scene);
        entry.put_vntExchange(textArray({"NYSE", "Nasdaq"}));
        reload();
        desktop.tabInto();
        scene.events.log.clear();
    }

    // Loading and storing work out some figures.
    void reload() {
        scene.load(company);
        loaded = company->clone();
    }

    // The menu that the right button opens; what is chosen has been scripted before.
    Menu open(std::string_view id) {
        show(scene, id);
        const auto before = desktop.menus().size();
        desktop.rightClick(id);
        return lastOf(before, id);
    }
    Menu openWith(std::string_view keys) {
        const auto before = desktop.menus().size();
        desktop.type(keys);
        return lastOf(before, keys);
    }
    Menu choose(std::string_view id, std::string_view caption) {
        desktop.answerNextMenu(caption);
        auto menu = open(id);
        EXPECT_EQ(menu.refusal, "") << id;
        return menu;
    }
    void lock() {
        if (!scene.form().get<CheckBox>("chkLockInfo").value())
            desktop.click("chkLockInfo");
        entry.put_blnDirty(false);
        loaded = company->clone();
    }
    [[nodiscard]] TextField& fieldOf(std::string_view id) const {
        return dynamic_cast<TextField&>(desktop.control(id));
    }
    [[nodiscard]] Names changes() const { return changedData(*loaded, *company); }
    void expectUntouched(std::string_view step) {
        EXPECT_FALSE(entry.get_blnDirty()) << step;
        EXPECT_EQ(changes(), Names{}) << step;
        EXPECT_TRUE(desktop.messages().empty()) << step;
    }

    EntryScene scene;
    VirtualDesktop& desktop = scene.desktop;
    VKRDataEntry& entry = *scene.entry;
    std::shared_ptr<CompanyRecord> company = fullCompany();
    std::shared_ptr<CompanyRecord> loaded;

  private:
    Menu lastOf(std::size_t before, std::string_view step) {
        if (desktop.menus().size() == before + 1)
            return desktop.menus().back();
        ADD_FAILURE() << "no menu: " << step;
        return {};
    }
};

bool isEnabled(const Menu& menu, MenuCommand command) {
    for (const auto& entry : menu.entries)
        if (entry.tag == std::to_string(command))
            return entry.enabled;
    ADD_FAILURE() << "no entry for " << command;
    return false;
}

void apply(EntryScene& scene, Choice choice) {
    if (choice == Choice::none)
        return;
    scene.desktop.clickTab(toOptions);
    scene.desktop.click(choice == Choice::taxRate ? "optPTI(1)" : "optCommEq(1)");
}

// --- the entries ---------------------------------------------------------------------------------

TEST_F(RightClick, EveryObjectHasItsEntries) {
    desktop.setClipboardText("held");
    for (const bool locked : {false, true})
        for (const auto& row : entryObjectRows) {
            const std::string_view id = row.control;
            if (id.empty())
                continue;
            SCOPED_TRACE(std::to_string(row.object) + (locked ? " locked" : ""));
            if (locked)
                lock();
            apply(scene, row.choice);
            if (isTab(row)) {
                desktop.rightClickTab(row.object - doTabCompany + 1);
                EXPECT_EQ(described(desktop.menus().back()), described(expectedExtras("", true)));
                continue;
            }
            const auto menu = open(id);
            const auto* box = dynamic_cast<const TextBox*>(&desktop.control(id));
            if (box != nullptr) {
                EXPECT_FALSE(box->text().empty());
                EXPECT_EQ(described(menu),
                          described(expectedTextMenu(row.extras, true, !locked, false, true)));
            } else {
                EXPECT_EQ(described(menu), described(expectedExtras(row.extras, !locked)));
            }
            EXPECT_EQ(menu.chosen, -1);
            if (row.choice != Choice::none) {
                desktop.clickTab(toOptions);
                desktop.click("optPTI(0)");
                desktop.click("optCommEq(0)");
            }
        }
}

TEST_F(RightClick, EveryLabelHasTheEntriesOfItsObject) {
    for (const bool locked : {false, true})
        for (const auto& row : entryObjectRows) {
            const std::string_view id = row.label;
            if (id.empty())
                continue;
            SCOPED_TRACE(std::to_string(row.object) + (locked ? " locked" : ""));
            if (locked)
                lock();
            apply(scene, row.choice);
            EXPECT_EQ(described(open(id)), described(expectedExtras(row.extras, !locked)));
        }
}

TEST_F(RightClick, TheMenuOpensAtTheControl) {
    for (const auto* id : {"txtName", "lblLabel(0)", "txtSales(3)", "txtEPS(2)"}) {
        const auto menu = open(id);
        EXPECT_EQ(menu.left, desktop.control(id).formLeft()) << id;
        EXPECT_EQ(menu.top, desktop.control(id).formTop()) << id;
    }
}

TEST_F(RightClick, AnEmptyFieldOffersUndoAndPasteOnlyWhereTheyDoSomething) {
    typeOver(scene, "txtCity", "");
    desktop.click("txtState");
    struct {
        bool undo;
        bool clipboard;
    } constexpr rows[] = {{false, false}, {false, true}, {true, false}, {true, true}};
    for (const auto& row : rows) {
        desktop.setClipboardText(row.clipboard ? "held" : "");
        fieldOf("txtCity").setText("x"); // whatever could be undone is gone
        fieldOf("txtCity").setText("");
        desktop.click("txtCity");
        if (row.undo)
            desktop.type("x{BS}");
        EXPECT_EQ(described(open("txtCity")),
                  described(expectedTextMenu("a", false, true, row.undo, row.clipboard)));
    }
}

TEST_F(RightClick, WithoutASelectionThereIsNothingToCutOrClear) {
    goTo(scene, "txtName");
    desktop.clickAt(2);
    const auto menu = open("txtName");
    EXPECT_FALSE(isEnabled(menu, mcCut));
    EXPECT_TRUE(isEnabled(menu, mcCopy)) << "the whole text can be copied";
    EXPECT_FALSE(isEnabled(menu, mcClear));
    EXPECT_TRUE(isEnabled(menu, mcSelectAll));
    EXPECT_EQ(fieldOf("txtName").selStart(), 2) << "the press leaves the caret where it was";
}

TEST_F(RightClick, OtherButtonsOpenNothing) {
    for (const auto button : {MouseButton::left, MouseButton::middle})
        for (const auto* id : {"txtName", "lblLabel(0)", "cmbExchange", "chkLockInfo"}) {
            desktop.press(id, Control::noIndex, button);
            desktop.dragAway();
        }
    EXPECT_TRUE(desktop.menus().empty());
}

TEST_F(RightClick, ButtonsAndBarsHaveNoMenu) {
    desktop.clickTab(toYearly);
    for (const auto* id : {"cmdHelp", "cmdOK", "cmdCancel", "cmdAddYear", "hscrYearly"})
        desktop.rightClick(id);
    entry.put_VisibleQuarters(20);
    desktop.clickTab(toQuarterly);
    for (const auto* id : {"cmdAddQuarter", "vscrQuarterly"})
        desktop.rightClick(id);
    EXPECT_TRUE(desktop.menus().empty());
    EXPECT_EQ(scene.events.log, (Names{"TabChange 2", "TabChange 3"}));
}

TEST_F(RightClick, ARightPressChoosesNothing) {
    desktop.clickTab(toOptions);
    desktop.rightClick("optCurrency(0)");
    desktop.rightClick("optPTI(1)");
    desktop.rightClick("optDisplay(1)");
    desktop.rightClick("chkLockInfo");
    desktop.rightClickTab(toCompany);
    EXPECT_EQ(desktop.menus().size(), 5U);
    EXPECT_FALSE(scene.form().get<OptionButton>("optCurrency", 0).value());
    EXPECT_FALSE(scene.form().get<CheckBox>("chkLockInfo").value());
    EXPECT_EQ(entry.get_CurrentTab(), toOptions);
    expectUntouched("right presses");
}

TEST_F(RightClick, ADismissedMenuDoesNothing) {
    desktop.setClipboardText("held");
    for (const auto& row : entryObjectRows) {
        if (row.control[0] == '\0' || isTab(row))
            continue;
        desktop.dismissNextMenu();
        EXPECT_EQ(open(row.control).chosen, -1);
    }
    desktop.clickTab(toCompany);
    expectUntouched("every menu");
    EXPECT_EQ(desktop.clipboardText(), "held");
}

// --- from the keyboard ---------------------------------------------------------------------------

TEST_F(RightClick, MenuKeyAndShiftF10OpenTheMenuBelowTheFocus) {
    for (const auto* keys : {"{MENU}", "+{F10}"})
        for (const auto* id : {"txtName", "cmbExchange", "txtSales(3)", "txtEPS(2)", "txtNotes",
                               "optCurrency(1)", "chkLockInfo"}) {
            show(scene, id);
            auto& control = desktop.control(id);
            control.setFocus();
            ASSERT_EQ(desktop.focusedId(), id);
            const auto menu = openWith(keys);
            EXPECT_EQ(menu.entries.back().caption, "What's This?");
            EXPECT_EQ(menu.entries.size() > 8, dynamic_cast<TextBox*>(&control) != nullptr) << id;
            EXPECT_EQ(menu.left, control.formLeft()) << id;
            EXPECT_EQ(menu.top, control.formTop() + control.height()) << id;
            EXPECT_EQ(desktop.focusedId(), id);
        }
    expectUntouched("menus alone");
}

TEST_F(RightClick, TheTabStripOpensTheMenuOfItsSelectedTab) {
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        desktop.clickTab(tab);
        scene.form().get<TabStrip>("tbsDataEntry").setFocus();
        desktop.answerNextMenu("What's This?");
        openWith("{MENU}");
        EXPECT_EQ(scene.form().get<Label>("lblMoreHelp").tag(),
                  std::to_string(doTabCompany + tab - 1));
    }
}

// The desktop's own menu stays away, and the letter of the key.
TEST_F(RightClick, TheKeysThatOpenSomethingAreUsedUp) {
    desktop.click("txtLastUpdate");
    for (const auto& [key, shift] :
         std::initializer_list<std::pair<KeyCode, int>>{{keys::menu, shifts::none},
                                                        {keys::f10, shifts::shift},
                                                        {keys::f4, shifts::none},
                                                        {keys::down, shifts::alt}})
        EXPECT_FALSE(scene.form().keyDown(key, shift)) << key;
    EXPECT_EQ(desktop.menus().size(), 2U);
    EXPECT_EQ(desktop.calendars().size(), 2U);
}

TEST_F(RightClick, OtherShiftsOpenNoMenu) {
    desktop.click("txtName");
    desktop.type("{F10}^{F10}%{F10}+^{F10}+{MENU}^{MENU}");
    desktop.click("cmdHelp");
    desktop.type("{MENU}+{F10}");
    EXPECT_TRUE(desktop.menus().empty());
    EXPECT_EQ(fieldOf("txtName").text(), "Name text");
}

TEST_F(RightClick, AMenuFromTheKeyboardActsOnTheField) {
    desktop.click("txtName");
    desktop.answerNextMenu("Clear");
    openWith("+{F10}");
    EXPECT_EQ(fieldOf("txtName").text(), "");
    desktop.answerNextMenu("Undo");
    openWith("{MENU}");
    EXPECT_EQ(fieldOf("txtName").text(), "Name text");
    desktop.type("{TAB}");
    expectUntouched("taken back");
}

// --- undo, cut, copy, paste, clear, select all ---------------------------------------------------

TEST_F(RightClick, UndoIsThatOfTheField) {
    goTo(scene, "txtCity");
    desktop.type("Oslo");
    choose("txtCity", "Undo");
    EXPECT_EQ(fieldOf("txtCity").text(), "City text");
    EXPECT_FALSE(isEnabled(open("txtCity"), mcUndo));
    desktop.type("{TAB}");
    expectUntouched("undone");
}

TEST_F(RightClick, EveryCommandThatChangesTheTextCanBeUndone) {
    desktop.setClipboardText("pasted");
    for (const auto* caption : {"Clear", "Paste", "Cut"}) {
        goTo(scene, "txtCity");
        fieldOf("txtCity").select(0, 9);
        choose("txtCity", caption);
        EXPECT_NE(fieldOf("txtCity").text(), "City text") << caption;
        choose("txtCity", "Undo");
        EXPECT_EQ(fieldOf("txtCity").text(), "City text") << caption;
    }
    desktop.type("{TAB}");
    expectUntouched("undone");
}

TEST_F(RightClick, CutTakesTheWholeText) {
    desktop.setClipboardText("before");
    goTo(scene, "txtCity");
    desktop.dragOver(0, 2);
    choose("txtCity", "Cut");
    EXPECT_EQ(desktop.clipboardText(), "City text");
    EXPECT_EQ(fieldOf("txtCity").text(), "");
    EXPECT_EQ(company->get_City(), "City text") << "before leaving";
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_City(), "");
    EXPECT_EQ(changes(), Names{"City"});
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(RightClick, CopyTakesTheWholeTextAndChangesNothing) {
    for (const auto* id : {"txtCity", "txtNotes", "txtSales(3)", "txtRevenue(1)", "txtLastFY"}) {
        goTo(scene, id);
        fieldOf(id).select(1, 1);
        choose(id, "Copy");
        EXPECT_EQ(desktop.clipboardText(), textOf(scene, id)) << id;
        desktop.type("{TAB}");
    }
    expectUntouched("copied");
}

TEST_F(RightClick, ClearTakesTheWholeTextAndNotTheClipboard) {
    desktop.setClipboardText("held");
    goTo(scene, "txtCity");
    desktop.dragOver(0, 2);
    choose("txtCity", "Clear");
    EXPECT_EQ(fieldOf("txtCity").text(), "");
    EXPECT_EQ(desktop.clipboardText(), "held");
    desktop.type("{TAB}");
    EXPECT_EQ(changes(), Names{"City"});
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(RightClick, SelectAllSelectsEveryCharacter) {
    fieldOf("txtCity").setText("Zürich €");
    goTo(scene, "txtCity");
    desktop.clickAt(3);
    choose("txtCity", "Select All");
    EXPECT_EQ(fieldOf("txtCity").selStart(), 0);
    EXPECT_EQ(fieldOf("txtCity").selLength(), 8);
}

struct PasteRow {
    const char* id;
    std::string text;
    int start;
    int length;
    std::string clipboard;
    std::string result;
    int caret;
};

TEST_F(RightClick, PasteReplacesTheSelection) {
    const PasteRow rows[] = {
        {"txtCity", "abcdef", 2, 3, "XY", "abXYf", 4},
        {"txtCity", "abcdef", 0, 6, "XY", "XY", 2},
        {"txtCity", "abcdef", 6, 0, "XY", "abcdefXY", 8},
        {"txtCity", "abcdef", 0, 0, "XY", "XYabcdef", 2},
        {"txtCity", "Zürich €", 7, 1, "öß", "Zürich öß", 9},
        {"txtCity", "", 0, 0, "XY", "XY", 2},
        // No key filter.
        {"txtTotalDebt", "12", 1, 0, "a-b.c", "1a-b.c2", 6},
        {"txtSymbol", "", 0, 0, "abc!", "ABC!", 4},
        {"txtSales(3)", "1", 1, 0, "-x", "1-x", 3},
        {"txtEPS(3)", "1", 1, 0, "(5)", "1(5)", 4},
        // As much as there is room for.
        {"txtZip", "12345", 1, 2, std::string(30, '7'), "1" + std::string(17, '7') + "45", 18},
        {"txtZip", std::string(20, '5'), 3, 0, "7", std::string(20, '5'), 3},
        // What can't stand in the field.
        {"txtCity", "ab", 1, 0, "x\ty\r\nz\x07\x01", "ax y zb", 6},
        {"txtCity", "ab", 1, 0, "\x07\x1B", "ab", 1},
        {"txtNotes", "ab", 1, 0, "x\ty\r\nz\rw\nv\x07", "ax\ty\nz\nw\nvb", 10},
        {"txtNotes", "a\nb", 0, 3, "c\n\nd", "c\n\nd", 4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.id) + " " + row.clipboard);
        goTo(scene, row.id);
        auto& field = fieldOf(row.id);
        field.setText(row.text);
        field.select(row.start, row.length);
        desktop.setClipboardText(row.clipboard);
        choose(row.id, "Paste");
        EXPECT_EQ(field.text(), row.result);
        EXPECT_EQ(field.selStart(), row.caret);
        EXPECT_EQ(field.selLength(), 0);
        EXPECT_EQ(desktop.clipboardText(), row.clipboard);
    }
}

TEST_F(RightClick, APastedTextIsValidatedOnLeaving) {
    desktop.setClipboardText("1,234.5");
    goTo(scene, "txtTotalDebt");
    choose("txtTotalDebt", "Paste");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_TotalDebt(), 1234.5);
    desktop.setClipboardText("no date");
    goTo(scene, "txtLastUpdate");
    choose("txtLastUpdate", "Paste");
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastUpdate(), loaded->get_LastUpdate());
    EXPECT_NE(markOf(scene, "txtLastUpdate"), "");
    EXPECT_EQ(changes(), Names{"TotalDebt"});
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(RightClick, APastedYearCountsAsATypedOne) {
    desktop.clickTab(toYearly);
    desktop.setClipboardText("2026");
    choose("txtLastFY", "Select All");
    choose("txtLastFY", "Paste");
    EXPECT_EQ(company->get_LastFY(), 2026);
    desktop.setClipboardText("1066");
    choose("txtLastFY", "Select All");
    choose("txtLastFY", "Paste");
    EXPECT_EQ(textOf(scene, "txtLastFY"), "2026") << "out of range: the old year is back";
}

TEST_F(RightClick, APastedCurrencySymbolIsShownAtOnce) {
    desktop.clickTab(toOptions);
    desktop.setClipboardText("CHF");
    desktop.click("txtCurSymbol");
    choose("txtCurSymbol", "Paste");
    EXPECT_EQ(desktop.control("lblCurrency(0)").caption(), "CHF");
    choose("txtCurSymbol", "Undo");
    EXPECT_EQ(desktop.control("lblCurrency(0)").caption(), "$");
}

TEST_F(RightClick, ACurrencySymbolThatIsTakenAwayIsShownNoLonger) {
    for (const auto* command : {"Cut", "Clear"}) {
        typeOver(scene, "txtCurSymbol", "CHF");
        goTo(scene, "txtCurSymbol");
        ASSERT_EQ(desktop.control("lblCurrency(0)").caption(), "CHF");
        choose("txtCurSymbol", command);
        EXPECT_EQ(textOf(scene, "txtCurSymbol"), "");
        EXPECT_NE(desktop.control("lblCurrency(0)").caption(), "CHF") << command;
    }
}

TEST_F(RightClick, AFieldThatDoesNotGetTheFocusHasNoMenu) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    entry.put_objCompany(record);
    desktop.click("txtTotalDebt");
    record->hook = [&](const std::string& operation) {
        if (operation == "write TotalDebt")
            fieldOf("txtTotalDebt").setFocus(); // the host holds on to it
    };
    desktop.rightClick("txtName");
    EXPECT_EQ(desktop.focusedId(), "txtTotalDebt");
    EXPECT_TRUE(desktop.menus().empty());
    record->hook = nullptr;
    desktop.rightClick("txtName");
    EXPECT_EQ(desktop.menus().size(), 1U);
}

TEST_F(RightClick, TheMenuActsOnTheFieldUnderThePointer) {
    goTo(scene, "txtCity");
    desktop.type("Oslo");
    choose("txtState", "Clear");
    EXPECT_EQ(desktop.focusedId(), "txtState");
    EXPECT_EQ(textOf(scene, "txtState"), "");
    EXPECT_EQ(company->get_City(), "Oslo") << "the field before was left";
    desktop.type("{TAB}");
    EXPECT_EQ(changes(), (Names{"City", "State"}));
}

// Every entry of the text is chosen once in every text box.
TEST_F(RightClick, EveryTextBoxTakesEveryTextCommand) {
    for (const auto& row : entryObjectRows) {
        const std::string_view id = row.control;
        if (id.empty() || dynamic_cast<TextBox*>(&desktop.control(id)) == nullptr ||
            row.choice != Choice::none)
            continue;
        SCOPED_TRACE(std::string(id));
        goTo(scene, id);
        const auto text = textOf(scene, id);
        choose(id, "Copy");
        EXPECT_EQ(desktop.clipboardText(), text);
        choose(id, "Select All");
        EXPECT_EQ(fieldOf(id).selLength(), textLength(text));
        choose(id, "Clear");
        EXPECT_EQ(textOf(scene, id), "");
        choose(id, "Paste");
        EXPECT_EQ(textOf(scene, id), text);
        choose(id, "Select All");
        choose(id, "Cut");
        EXPECT_EQ(textOf(scene, id), "");
        EXPECT_EQ(desktop.clipboardText(), text);
        choose(id, "Undo");
        EXPECT_EQ(textOf(scene, id), text);
        desktop.type("{TAB}");
        EXPECT_EQ(textOf(scene, id), text);
    }
    expectUntouched("back as it was");
}

// --- under the lock ------------------------------------------------------------------------------

TEST_F(RightClick, NoMenuChangesALockedFieldAndCopyWorks) {
    lock();
    const auto before = desktop.snapshot();
    desktop.setClipboardText("held");
    for (const auto& row : entryObjectRows) {
        const std::string_view id = row.control;
        const auto* box = id.empty() ? nullptr : dynamic_cast<const TextBox*>(&desktop.control(id));
        if (box == nullptr)
            continue;
        SCOPED_TRACE(std::string(id));
        goTo(scene, id);
        const auto text = box->text();
        for (const auto* caption :
             {"Undo", "Cut", "Paste", "Clear", "Pick a Date...", "Use Date of Last Quarter"}) {
            desktop.answerNextMenu(caption);
            EXPECT_NE(open(id).refusal, "") << caption;
            EXPECT_EQ(box->text(), text) << caption;
        }
        choose(id, "Copy");
        EXPECT_EQ(desktop.clipboardText(), text);
        fieldOf(id).select(0, 0);
        choose(id, "Select All");
        EXPECT_EQ(box->selLength(), textLength(text));
        desktop.setClipboardText("held");
    }
    desktop.clickTab(toCompany);
    expectUntouched("locked");
    EXPECT_TRUE(desktop.calendars().empty());
}

TEST_F(RightClick, YearsUnderTheLockSayWhyNot) {
    lock();
    for (const auto* id : {"txtLastFY", "txtSales(3)", "lblYear(3)", "lblUnit(4)"}) {
        desktop.forget();
        choose(id, "Add New Year");
        choose(id, "Remove Year");
        ASSERT_EQ(desktop.messages().size(), 2U) << id;
        EXPECT_EQ(desktop.messages()[0].text,
                  "Data is locked!\r\rYou must unlock data to add a new year.");
        EXPECT_EQ(desktop.messages()[1].text,
                  "Data is locked!\r\rYou must unlock data to remove a year.");
    }
    EXPECT_EQ(changes(), Names{});
    EXPECT_FALSE(entry.get_blnDirty());
}

// --- years, last quarter's date, assistant -------------------------------------------------------

TEST_F(RightClick, YearsAreAddedAndRemovedAfterTheQuestion) {
    for (const auto* id : {"txtLastFY", "txtSales(3)", "txtLow(5)", "lblYear(0)", "lblLabel(20)"}) {
        SCOPED_TRACE(id);
        const int year = company->get_LastFY();
        desktop.answerNext(MessageAnswer::no);
        choose(id, "Add New Year");
        EXPECT_EQ(company->get_LastFY(), year);
        desktop.answerNext(MessageAnswer::yes);
        choose(id, "Add New Year");
        EXPECT_EQ(company->get_LastFY(), year + 1);
        EXPECT_EQ(textOf(scene, "txtLastFY"), std::to_string(year + 1));
        EXPECT_TRUE(entry.get_blnDirty());
        desktop.answerNext(MessageAnswer::no);
        choose(id, "Remove Year");
        EXPECT_EQ(company->get_LastFY(), year + 1);
        desktop.answerNext(MessageAnswer::yes);
        choose(id, "Remove Year");
        EXPECT_EQ(company->get_LastFY(), year);
    }
    EXPECT_EQ(desktop.messages().size(), 20U);
    EXPECT_TRUE(desktop.scriptUsedUp());
}

TEST_F(RightClick, TheLastQuartersDateIsTakenOver) {
    goTo(scene, "txtDateofLastFY");
    choose("txtDateofLastFY", "Use Date of Last Quarter");
    EXPECT_EQ(textOf(scene, "txtDateofLastFY"), "Sep/30/2026");
    EXPECT_TRUE(entry.get_blnDirty());
    EXPECT_EQ(company->get_LastFYDate(), loaded->get_LastFYDate()) << "before leaving";
    desktop.type("{TAB}");
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2026, 9, 30));
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(RightClick, OfAClearedFormNoLastQuartersDateIsTakenOver) {
    entry.Clear();
    goTo(scene, "txtDateofLastFY");
    choose("txtDateofLastFY", "Use Date of Last Quarter");
    EXPECT_EQ(textOf(scene, "txtDateofLastFY"), "");
}

TEST_F(RightClick, TheLastQuartersDateIsTakenOverFromEveryLabel) {
    for (const auto* id : {"lblLabel(21)", "lblLabel(31)", "lblDatOfLastFY"}) {
        SCOPED_TRACE(id);
        company = fullCompany();
        reload();
        choose(id, "Use Date of Last Quarter");
        EXPECT_EQ(textOf(scene, "txtDateofLastFY"), "Sep/30/2026");
        desktop.clickTab(toOther);
        EXPECT_EQ(company->get_LastFYDate(), *makeDate(2026, 9, 30));
    }
}

TEST_F(RightClick, WithoutQuartersThereIsNoDateToTakeOver) {
    company = std::make_shared<CompanyRecord>();
    reload();
    const auto before = company->clone();
    scene.form().get<Label>("lblQLabel", 0).setTag("");
    const auto text = textOf(scene, "txtDateofLastFY");
    choose("txtDateofLastFY", "Use Date of Last Quarter");
    EXPECT_EQ(textOf(scene, "txtDateofLastFY"), text);
    EXPECT_FALSE(entry.get_blnDirty());
    EXPECT_EQ(changedData(*before, *company), Names{});
}

TEST_F(RightClick, TheAssistantIsAskedAboutEveryDatum) {
    for (const auto& row : entryObjectRows) {
        if (row.extras.find('a') == std::string_view::npos || row.control[0] == '\0')
            continue;
        apply(scene, row.choice);
        for (const std::string_view id : {row.control, row.label}) {
            if (id.empty())
                continue;
            SCOPED_TRACE(std::string(id));
            show(scene, id);
            scene.events.log.clear();
            choose(id, "Ask the Assistant...");
            const auto* field = dynamic_cast<const TextField*>(&desktop.control(row.control));
            const bool ofField = id == row.control || field->index() == Control::noIndex;
            const auto& control = desktop.control(id);
            auto asked = ofField ? field->text() : withoutMnemonic(control.caption());
            if (asked.empty())
                asked = field->accessibleName();
            EXPECT_FALSE(asked.empty());
            EXPECT_EQ(scene.events.log,
                      Names{"Assistant " + std::to_string(row.object) + " " + asked});
        }
        if (row.choice != Choice::none) {
            desktop.clickTab(toOptions);
            desktop.click("optPTI(0)");
            desktop.click("optCommEq(0)");
        }
    }
}

TEST_F(RightClick, AnEmptyFieldIsNamedToTheAssistant) {
    typeOver(scene, "txtCity", "");
    scene.events.log.clear();
    choose("txtCity", "Ask the Assistant...");
    choose("lblLabel(41)", "Ask the Assistant...");
    EXPECT_EQ(scene.events.log, (Names{"Assistant 41 City", "Assistant 41 City"}));
}

TEST_F(RightClick, TheAssistantIsAskedUnderTheLock) {
    lock();
    choose("txtName", "Ask the Assistant...");
    EXPECT_EQ(scene.events.log, Names{"Assistant 0 Name text"});
    expectUntouched("asked");
}

// --- dates ---------------------------------------------------------------------------------------

Date lastFiscalYearDate(const CompanyRecord& company) {
    return company.get_LastFYDate();
}
Date sourceDate(const CompanyRecord& company) {
    return company.get_DateOfSource();
}
Date updateDate(const CompanyRecord& company) {
    return company.get_LastUpdate();
}
Date priceDate(const CompanyRecord& company) {
    return company.get_PriceUpdatedDate();
}
Date quarterDate(const CompanyRecord& company) {
    return company.get_LastQDateForGrid();
}

struct DateField {
    const char* field;
    const char* label;
    const char* name; // that the calendar bears
    Date (*stored)(const CompanyRecord& company);
    Date picked; // the quarter's is the one of the next quarter
    const char* text;
    bool inMenu; // else by double-click and keys alone
};

const DateField dateFields[] = {
    {"txtLastUpdate", "lblLabel(5)", "Last Update", updateDate, *makeDate(2026, 2, 28),
     "Feb/28/2026", true},
    {"txtPriceUpdate", "lblLabel(10)", "Price Update Date", priceDate, *makeDate(2026, 2, 28),
     "Feb/28/2026", true},
    {"txtDateOfSource", "lblLabel(12)", "Date of Source", sourceDate, *makeDate(2026, 2, 28),
     "Feb/28/2026", true},
    {"txtDateofLastFY", "lblLabel(21)", "Date of Last FY", lastFiscalYearDate,
     *makeDate(2025, 6, 30), "Jun/30/2025", true},
    {"txtLastQDate", "lblLabel(30)", "Date of Last Quarter", quarterDate, *makeDate(2026, 12, 31),
     "Dec/31/2026", false},
};

// The ways to the calendar of a field.
void openCalendar(EntryScene& scene, const DateField& row, int way) {
    goTo(scene, row.field);
    switch (way) {
    case 0:
        scene.desktop.doubleClick(row.field);
        break;
    case 1:
        scene.desktop.type("{F4}");
        break;
    case 2:
        scene.desktop.addHostShortcut("%{DOWN}"); // it has no use for here
        scene.desktop.type("%{DOWN}");
        break;
    case 3:
        scene.desktop.answerNextMenu("Pick a Date...");
        scene.desktop.rightClick(row.field);
        break;
    default:
        scene.desktop.answerNextMenu("Pick a Date...");
        scene.desktop.rightClick(row.label);
        break;
    }
}
constexpr int pickingWays = 5;
constexpr int menuWay = 3;

// Each field of a date, by each way to its calendar, on a form of its own.
template <typename Act>
void everyWayToACalendar(Act act) {
    for (const auto& row : dateFields)
        for (int way = 0; way < (row.inMenu ? pickingWays : menuWay); ++way) {
            SCOPED_TRACE(std::string(row.field) + " way " + std::to_string(way));
            EntryScene scene;
            const auto company = fullCompany();
            scene.load(company);
            act(scene, *company, row, [&] { openCalendar(scene, row, way); });
        }
}

TEST(DatePicking, APickedDateIsStoredWhenTheFieldIsLeft) {
    everyWayToACalendar(
        [](EntryScene& scene, CompanyRecord& company, const DateField& row, const auto& open) {
            const Date before = row.stored(company);
            scene.desktop.answerNextDate(row.picked);
            open();
            ASSERT_EQ(scene.desktop.calendars().size(), 1U);
            EXPECT_EQ(scene.desktop.calendars()[0].shown, before);
            EXPECT_EQ(scene.desktop.calendars()[0].caption, row.name);
            EXPECT_EQ(textOf(scene, row.field), row.text);
            EXPECT_TRUE(scene.entry->get_blnDirty());
            EXPECT_EQ(row.stored(company), before) << "before leaving";
            EXPECT_EQ(scene.desktop.focusedId(), row.field);
            scene.desktop.answerNext(MessageAnswer::yes); // to the quarter that is added
            scene.desktop.type("{TAB}");
            EXPECT_EQ(row.stored(company), row.picked);
            EXPECT_EQ(textOf(scene, row.field), row.text);
            EXPECT_EQ(markOf(scene, row.field), "");
        });
}

TEST(DatePicking, ADayOfTheStoredMonthIsStoredInPlaceOfATextThatIsNoDate) {
    for (const bool isRefusedBefore : {true, false}) {
        SCOPED_TRACE(isRefusedBefore);
        EntryScene scene;
        scene.entry->put_DateFormat("MMM YYYY");
        const auto company = fullCompany();
        company->put_LastUpdate(*makeDate(2005, 12, 31));
        scene.load(company);
        if (isRefusedBefore)
            typeOver(scene, "txtLastUpdate", "soon");
        scene.desktop.answerNextDate(*makeDate(2005, 12, 15));
        typeAt(scene, "txtLastUpdate", isRefusedBefore ? "{F4}{TAB}" : "^a{DEL}soon{F4}{TAB}");
        EXPECT_EQ(company->get_LastUpdate(), makeDate(2005, 12, 15));
        EXPECT_EQ(markOf(scene, "txtLastUpdate"), "");
    }
}

TEST(DatePicking, CancelLeavesTextAndRecord) {
    everyWayToACalendar(
        [](EntryScene& scene, CompanyRecord& company, const DateField& row, const auto& open) {
            const auto loaded = company.clone();
            const auto text = textOf(scene, row.field);
            scene.desktop.answerNextDate(std::nullopt);
            open();
            ASSERT_EQ(scene.desktop.calendars().size(), 1U);
            EXPECT_EQ(textOf(scene, row.field), text);
            scene.desktop.type("{TAB}");
            EXPECT_FALSE(scene.entry->get_blnDirty());
            EXPECT_EQ(changedData(*loaded, company), Names{});
        });
}

TEST(DatePicking, CancelLeavesAHalfTypedText) {
    EntryScene scene;
    scene.load(fullCompany());
    scene.typeAt("txtLastUpdate", "^a{DEL}1/2");
    scene.desktop.answerNextDate(std::nullopt);
    scene.desktop.type("{F4}");
    EXPECT_EQ(textOf(scene, "txtLastUpdate"), "1/2");
}

TEST(DatePicking, TheDateThatIsThereChangesNothing) {
    everyWayToACalendar(
        [](EntryScene& scene, CompanyRecord& company, const DateField& row, const auto& open) {
            const auto loaded = company.clone();
            scene.desktop.confirmNextDate();
            open();
            scene.desktop.type("{TAB}");
            EXPECT_EQ(scene.desktop.calendars()[0].chosen, row.stored(company));
            EXPECT_FALSE(scene.entry->get_blnDirty());
            EXPECT_TRUE(scene.desktop.messages().empty());
            EXPECT_EQ(changedData(*loaded, company), Names{});
        });
}

TEST(DatePicking, OkWithoutAValidDateKeepsTheCalendarOpen) {
    for (const auto& row : dateFields) {
        EntryScene scene;
        const auto company = fullCompany();
        scene.load(company);
        for (const Date none : {Date{}, *makeDate(1899, 1, 1), *makeDate(3000, 1, 1)})
            scene.desktop.answerNextDate(none);
        scene.desktop.answerNextDate(row.picked);
        openCalendar(scene, row, 0);
        EXPECT_TRUE(scene.desktop.scriptUsedUp());
        ASSERT_EQ(scene.desktop.calendars().size(), 1U) << "one dialog all the time";
        EXPECT_EQ(textOf(scene, row.field), row.text);
    }
}

TEST(DatePicking, NoDateStartsAtToday) {
    for (const auto& row : dateFields)
        for (const auto* typed : {"", "rubbish", "Feb 31, 2026", "1/1/3000"}) {
            SCOPED_TRACE(std::string(row.field) + " " + typed);
            EntryScene scene;
            scene.load(fullCompany());
            typeAt(scene, row.field, std::string("^a{DEL}") + typed);
            scene.desktop.doubleClick(row.field);
            ASSERT_EQ(scene.desktop.calendars().size(), 1U);
            EXPECT_EQ(scene.desktop.calendars()[0].shown, *makeDate(2026, 11, 21));
            EXPECT_EQ(textOf(scene, row.field), typed);
        }
}

TEST(DatePicking, ATypedDateIsWhereTheCalendarStarts) {
    for (const auto& row : dateFields) {
        EntryScene scene;
        scene.load(fullCompany());
        typeAt(scene, row.field, "^a{DEL}5/17/2024");
        scene.desktop.type("{F4}");
        EXPECT_EQ(scene.desktop.calendars()[0].shown, *makeDate(2024, 5, 17)) << row.field;
    }
}

TEST(DatePicking, APickTakesTheMarkOffARefusedText) {
    for (const auto& row : dateFields) {
        if (std::string_view(row.field).find("Last") == 3 && row.field[7] == 'Q')
            continue; // refuses with a message, and puts the old date back
        EntryScene scene;
        const auto company = fullCompany();
        scene.load(company);
        typeOver(scene, row.field, "rubbish");
        ASSERT_NE(markOf(scene, row.field), "") << row.field;
        goTo(scene, row.field);
        scene.desktop.answerNextDate(row.picked);
        scene.desktop.type("{F4}{TAB}");
        EXPECT_EQ(markOf(scene, row.field), "") << row.field;
        EXPECT_EQ(row.stored(*company), row.picked) << row.field;
    }
}

TEST(DatePicking, APickTakesTheMarkOffAtOnce) {
    for (const auto& row : dateFields) {
        if (!row.inMenu)
            continue; // refuses with a message, and puts the old date back
        for (const bool storedDay : {false, true}) {
            EntryScene scene;
            const auto company = fullCompany();
            scene.load(company);
            const auto before = company->clone();
            typeOver(scene, row.field, "rubbish");
            goTo(scene, row.field);
            scene.desktop.answerNextDate(storedDay ? row.stored(*company) : row.picked);
            scene.desktop.type("{F4}");
            EXPECT_EQ(markOf(scene, row.field), "") << row.field;
            EXPECT_EQ(row.stored(*company), row.stored(*before)) << "before leaving";
            scene.desktop.type("{TAB}");
            EXPECT_EQ(markOf(scene, row.field), "") << row.field;
            EXPECT_EQ(row.stored(*company), storedDay ? row.stored(*before) : row.picked);
        }
    }
}

TEST(DatePicking, APickIntoAMarkedFieldThatIsUndoneIsMarkedAgain) {
    EntryScene scene;
    scene.load(fullCompany());
    typeOver(scene, "txtLastUpdate", "rubbish");
    goTo(scene, "txtLastUpdate");
    scene.desktop.answerNextDate(*makeDate(2026, 2, 28));
    scene.desktop.type("{F4}^z");
    ASSERT_EQ(textOf(scene, "txtLastUpdate"), "rubbish");
    scene.desktop.type("{TAB}");
    EXPECT_NE(markOf(scene, "txtLastUpdate"), "");
    typeOver(scene, "txtLastUpdate", "Nov/19/2026");
    EXPECT_EQ(markOf(scene, "txtLastUpdate"), "");
}

// The day that the record refused may be the one that it takes by now.
TEST(DatePicking, ThePickOfARefusedDayTriesItAgain) {
    for (const char* field : {"txtLastUpdate", "txtDateofLastFY", "txtLastQDate"}) {
        SCOPED_TRACE(field);
        EntryScene scene;
        const auto company = fullCompany();
        const auto record = std::make_shared<ScriptedRecord>(company);
        scene.load(record);
        record->failing = {"write LastUpdate", "write LastFYDate", "write LastQDate"};
        typeOver(scene, field, "9/28/2026");
        ASSERT_NE(markOf(scene, field), "");
        record->failing.clear();
        goTo(scene, field);
        scene.desktop.answerNextDate(*makeDate(2026, 9, 28));
        scene.desktop.type("{F4}");
        EXPECT_EQ(markOf(scene, field), "");
        scene.desktop.type("{TAB}");
        EXPECT_EQ(markOf(scene, field), "");
        EXPECT_EQ(textOf(scene, field), "Sep/28/2026");
        const auto& row = *std::ranges::find(dateFields, std::string_view(field),
                                             [](const auto& one) { return one.field; });
        EXPECT_EQ(row.inMenu ? row.stored(*company) : company->get_LastQDate(),
                  *makeDate(2026, 9, 28));
    }
}

TEST(DatePicking, ALastQuarterThatIsRejectedIsNoChange) {
    for (const bool changedBefore : {false, true})
        for (const Date picked : {*makeDate(2005, 12, 31), *makeDate(2026, 12, 31)}) { // and No
            EntryScene scene;
            const auto company = fullCompany();
            scene.load(company);
            scene.entry->put_blnDirty(changedBefore);
            const auto before = company->clone();
            goTo(scene, "txtLastQDate");
            scene.desktop.answerNextDate(picked);
            scene.desktop.type("{F4}");
            EXPECT_TRUE(scene.entry->get_blnDirty()) << "until it is left";
            scene.desktop.answerNext(MessageAnswer::no);
            scene.desktop.type("{TAB}");
            EXPECT_EQ(scene.desktop.messages().size(), 1U);
            EXPECT_EQ(textOf(scene, "txtLastQDate"), "Sep/30/2026");
            EXPECT_EQ(scene.entry->get_blnDirty(), changedBefore);
            EXPECT_EQ(changedData(*before, *company), Names{});
        }
}

TEST(DatePicking, ALastQuarterThatIsTakenIsAChange) {
    EntryScene scene;
    scene.load(fullCompany());
    goTo(scene, "txtLastQDate");
    scene.desktop.answerNextDate(*makeDate(2026, 12, 31));
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.type("{F4}{TAB}");
    EXPECT_TRUE(scene.entry->get_blnDirty());
    scene.entry->put_blnDirty(false);
    typeAt(scene, "txtLastQDate", "{F4}"); // nothing is picked
    scene.entry->put_blnDirty(true);
    scene.desktop.type("{TAB}");
    EXPECT_TRUE(scene.entry->get_blnDirty()) << "by the host";
}

TEST(DatePicking, ADateIsForTheRecordThatItWasPickedFor) {
    EntryScene scene;
    scene.load(fullCompany());
    const auto other = fullCompany();
    const auto before = other->clone();
    scene.entry->stateChanged = [&] {
        scene.entry->stateChanged = nullptr;
        scene.load(other);
    };
    scene.typeAt("txtName", "A");
    scene.desktop.answerNextMenu("Pick a Date...");
    scene.desktop.answerNextDate(*makeDate(2026, 2, 28));
    scene.desktop.rightClick("lblLabel(5)"); // the name is left behind the calendar
    EXPECT_TRUE(scene.desktop.scriptUsedUp());
    scene.desktop.type("{TAB}");
    EXPECT_EQ(other->get_LastUpdate(), before->get_LastUpdate());
}

TEST(DatePicking, LeadsToTheFieldOfTheDate) {
    EntryScene scene;
    scene.load(fullCompany());
    scene.typeAt("txtName", "A");
    scene.desktop.answerNextMenu("Pick a Date...");
    scene.desktop.answerNextDate(*makeDate(2026, 2, 28));
    scene.desktop.rightClick("lblLabel(5)");
    EXPECT_EQ(scene.desktop.focusedId(), "txtLastUpdate");
}

struct LossyRow {
    const char* format;
    Date picked;
    const char* text;
};

TEST(DatePicking, WhatWasPickedIsStoredWhereverThePatternLosesADigit) {
    const LossyRow rows[] = {
        {"MM/DD/YY", *makeDate(2035, 6, 30), "06/30/35"},
        {"MM/DD/YY", *makeDate(1935, 6, 30), "06/30/35"},
        {"MMM YYYY", *makeDate(2025, 6, 17), "Jun 2025"},
        {"YYYY", *makeDate(2025, 6, 17), "2025"},
    };
    for (const auto& row : rows)
        for (const auto& field : dateFields) {
            if (!field.inMenu)
                continue; // a quarter's date goes by its month
            SCOPED_TRACE(std::string(field.field) + " " + row.text);
            EntryScene scene;
            const auto company = fullCompany();
            scene.entry->put_DateFormat(row.format);
            scene.load(company);
            goTo(scene, field.field);
            scene.desktop.answerNextDate(row.picked);
            scene.desktop.type("{F4}");
            EXPECT_EQ(textOf(scene, field.field), row.text);
            scene.desktop.type("{TAB}");
            EXPECT_EQ(field.stored(*company), row.picked);
            EXPECT_EQ(textOf(scene, field.field), row.text);
            // And it is where the calendar starts the next time.
            goTo(scene, field.field);
            scene.desktop.answerNextDate(std::nullopt);
            scene.desktop.type("{F4}");
            EXPECT_EQ(scene.desktop.calendars().back().shown, row.picked);
        }
}

TEST(DatePicking, ADayOfTheSameMonthIsStoredBehindAPatternWithoutDays) {
    EntryScene scene;
    const auto company = fullCompany();
    scene.entry->put_DateFormat("MMM YYYY");
    scene.load(company);
    const auto before = textOf(scene, "txtLastUpdate"); // 19 November
    scene.desktop.click("txtLastUpdate");
    scene.desktop.answerNextDate(makeDate(2026, 11, 3));
    scene.desktop.type("{F4}{TAB}");
    EXPECT_EQ(textOf(scene, "txtLastUpdate"), before);
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 11, 3));
    EXPECT_TRUE(scene.entry->get_blnDirty());
}

TEST(DatePicking, WhatIsTypedAfterAPickCounts) {
    EntryScene scene;
    const auto company = fullCompany();
    scene.load(company);
    scene.desktop.click("txtLastUpdate");
    scene.desktop.answerNextDate(makeDate(2026, 2, 28));
    scene.desktop.type("{F4}^a3/1/2026{TAB}");
    EXPECT_EQ(company->get_LastUpdate(), *makeDate(2026, 3, 1));
}

TEST(DatePicking, APickCanBeUndone) {
    EntryScene scene;
    const auto company = fullCompany();
    scene.load(company);
    const auto loaded = company->clone();
    scene.desktop.click("txtLastUpdate");
    scene.desktop.answerNextDate(makeDate(2026, 2, 28));
    scene.desktop.type("{F4}^z{TAB}");
    EXPECT_EQ(textOf(scene, "txtLastUpdate"), "Nov/19/2026");
    EXPECT_EQ(changedData(*loaded, *company), Names{});
}

TEST(DatePicking, APickThatIsTakenBackIsNoChange) {
    for (const auto& row : dateFields)
        for (const char* takenBack : {"{ESC}", "^z"})
            for (const bool changedBefore : {false, true}) {
                SCOPED_TRACE(std::string(row.field) + takenBack);
                EntryScene scene;
                const auto company = fullCompany();
                scene.load(company);
                scene.entry->put_blnDirty(changedBefore);
                const auto loaded = company->clone();
                goTo(scene, row.field);
                scene.desktop.answerNextDate(row.picked);
                scene.desktop.type("{F4}");
                ASSERT_TRUE(scene.entry->get_blnDirty());
                scene.desktop.type(takenBack + std::string("{TAB}"));
                EXPECT_EQ(scene.entry->get_blnDirty(), changedBefore);
                EXPECT_EQ(changedData(*loaded, *company), Names{});
            }
}

TEST(DatePicking, ALockedFieldOpensNoCalendar) {
    EntryScene scene;
    const auto company = fullCompany();
    scene.load(company);
    const auto loaded = company->clone();
    scene.desktop.click("chkLockInfo");
    for (const auto& row : dateFields)
        for (int way = 0; way < menuWay; ++way)
            openCalendar(scene, row, way);
    EXPECT_TRUE(scene.desktop.calendars().empty());
    EXPECT_EQ(changedData(*loaded, *company), (Names{}));
}

TEST(DatePicking, OtherFieldsOpenNoCalendar) {
    EntryScene scene;
    scene.load(fullCompany());
    for (const auto* id : {"txtName", "txtCurrentPrice", "txtLastFY", "txtSales(3)", "txtEPS(1)",
                           "txtNotes", "lblLabel(5)"}) {
        show(scene, id);
        scene.desktop.doubleClick(id);
        scene.desktop.type("{F4}%{DOWN}");
    }
    EXPECT_TRUE(scene.desktop.calendars().empty());
}

TEST(DatePicking, OtherKeysOpenNoCalendar) {
    EntryScene scene;
    scene.load(fullCompany());
    for (const auto* keys : {"{DOWN}", "+{DOWN}", "^{DOWN}", "%{UP}", "%{LEFT}", "%{DEL}", "+{F4}",
                             "^{F4}", "%{F4}", "{F2}"})
        typeAt(scene, "txtLastUpdate", keys);
    EXPECT_TRUE(scene.desktop.calendars().empty());
}

TEST(DatePicking, TheLockThatComesMeanwhileKeepsTheDate) {
    HostileScene scene;
    scene.start();
    const auto company = fullCompany();
    scene.entry->put_objCompany(company);
    const auto loaded = company->clone();
    const std::string shown = scene.field("txtLastUpdate").text();
    scene.desktop.failing = {"showModal"};
    scene.desktop.fail = [&] {
        company->get_Settings()->put(setting::lockBasicInfo, true);
        scene.entry->recordChanged();
    };
    scene.desktop.answerNextDate(*makeDate(2026, 2, 28));
    scene.desktop.click("txtLastUpdate");
    scene.desktop.type("{F4}");
    ASSERT_EQ(scene.desktop.calendars().size(), 1U);
    EXPECT_EQ(scene.field("txtLastUpdate").text(), shown);
    EXPECT_FALSE(scene.entry->get_blnDirty());
    scene.desktop.type("{TAB}");
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    EXPECT_EQ(changedData(*loaded, *company), (Names{"blnLockBasicInfo"}));
}

TEST(DatePicking, ALabelOfAnotherPageStoresAtOnce) {
    for (const auto* id : {"lblLabel(31)", "lblDatOfLastFY"}) {
        EntryScene scene;
        const auto company = fullCompany();
        scene.load(company);
        show(scene, id);
        scene.desktop.answerNextMenu("Pick a Date...");
        scene.desktop.answerNextDate(makeDate(2025, 6, 30));
        scene.desktop.rightClick(id);
        EXPECT_EQ(company->get_LastFYDate(), *makeDate(2025, 6, 30)) << id;
        EXPECT_TRUE(scene.entry->get_blnDirty());
        EXPECT_EQ(scene.entry->get_CurrentTab(), toQuarterly);
        EXPECT_EQ(scene.desktop.control("lblDatOfLastFY").caption(), "Jun/30/2025") << id;
    }
}

// --- the command routine alone -------------------------------------------------------------------

class Commands : public testing::Test, protected ComponentParts, private MenuHost {
  protected:
    Commands() {
        form.setHandler(&handler);
        desktop.attach(form);
        desktop.setClipboardText("held");
    }

    void addYear() override { asked.emplace_back("add"); }
    void removeYear() override { asked.emplace_back("remove"); }
    std::optional<Date> dateOf(const TextField& /*field*/) override { return held; }
    void fieldChanged(TextField& field) override { asked.push_back("change " + field.id()); }
    void leave(TextField& field) override { asked.push_back("leave " + field.id()); }
    void askAssistant(DataEntryObject /*object*/, const std::string& /*text*/) override {}
    std::optional<MenuCells> cellsWith(const Control& /*control*/) const override { return {}; }
    void carryOut(MenuCommand command) override {
        asked.push_back("cells " + std::to_string(command));
    }

    struct Handler : FormHandler {
    } handler;
    HelpFrame help{context};
    RightClickMenu menu{context, objects, help, *this};
    std::optional<Date> held; // by the field that is asked for
    Names asked;
};

TEST_F(Commands, NoneChangesALockedField) {
    form.get<Label>("lblQLabel", 0).setTag("46000");
    std::size_t passedOn = 0;
    for (const auto* name : {"txtName", "txtLastUpdate", "txtDateofLastFY", "txtNotes"})
        for (int command = -1; command <= firstWithoutACommand; ++command) {
            SCOPED_TRACE(std::string(name) + " " + std::to_string(command));
            passedOn +=
                isOfCells(command) || command == mcAddYear || command == mcRemoveYear ? 1U : 0U;
            auto& field = form.get<TextBox>(name);
            field.setText("kept");
            field.select(1, 2);
            field.setLocked(true);
            menu.DoMenuCommand(command, &field);
            EXPECT_EQ(field.text(), "kept");
            EXPECT_EQ(desktop.clipboardText(), command == mcCopy ? "kept" : "held");
            EXPECT_EQ(field.selLength(), command == mcSelectAll ? 4 : 2);
            desktop.setClipboardText("held");
        }
    EXPECT_TRUE(desktop.calendars().empty());
    EXPECT_FALSE(context.isDirty());
    for (const auto& what : asked)
        EXPECT_TRUE(what == "add" || what == "remove" || what.starts_with("cells ")) << what;
    EXPECT_EQ(asked.size(), passedOn) << "the handlers of buttons and cells know the lock";
}

TEST_F(Commands, NumbersWithoutACommandDoNothing) {
    auto& field = form.get<TextBox>("txtName");
    field.setText("kept");
    for (const int command : {mcHelp + 0, mcSeparator + 0, -1, firstWithoutACommand, 1000})
        menu.DoMenuCommand(command, &field);
    EXPECT_EQ(field.text(), "kept");
    EXPECT_EQ(desktop.clipboardText(), "held");
    EXPECT_EQ(asked, Names{});
}

TEST_F(Commands, WithoutAFieldTheYearsAloneCanBeChanged) {
    for (int command = 0; command < firstWithoutACommand; ++command)
        if (!isOfCells(command))
            menu.DoMenuCommand(command, nullptr);
    EXPECT_EQ(asked, (Names{"add", "remove"}));
    EXPECT_EQ(desktop.clipboardText(), "held");
    EXPECT_TRUE(desktop.calendars().empty());
}

TEST_F(Commands, AnEntryBeforeAnyMenuDoesNothing) {
    menu.mnuItem_Click(0);
    menu.mnuItem_Click(7);
    menu.mnuItem_Click(-1);
    EXPECT_EQ(asked, Names{});
    EXPECT_FALSE(help.visible());
}

TEST_F(Commands, TheCalendarCanStartFromToday) {
    auto& field = form.get<TextBox>("txtLastUpdate");
    field.setText("Jan/1/2020");
    held = makeDate(2020, 1, 1);
    menu.ShowDatePicker(field, true);
    menu.ShowDatePicker(field, false);
    ASSERT_EQ(desktop.calendars().size(), 2U);
    EXPECT_EQ(desktop.calendars()[0].shown, VirtualDesktop::defaultToday);
    EXPECT_EQ(desktop.calendars()[1].shown, *makeDate(2020, 1, 1));
}

} // namespace
} // namespace vkr
