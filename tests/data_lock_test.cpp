// SPDX-License-Identifier: MIT
#include "company/split.hpp"
#include "form/form_layout.hpp"
#include "tests/support/change_lists.hpp"
#include "tests/support/company_on_form.hpp"
#include "tests/support/period_import.hpp"

#include <functional>
#include <gtest/gtest.h>

namespace vkr {
namespace {

struct DataLock : test::CompanyOnFullForm {
    DataLock() : CompanyOnFullForm(fullCompany()) {
        for (const auto& fill : {&VKRDataEntry::put_vntSource, &VKRDataEntry::put_vntExchange,
                                 &VKRDataEntry::put_vntIndustry})
            std::invoke(fill, entry, textArray({"One", "Two"}));
        company->get_Settings()->put(setting::leadPeriod, std::int16_t{1});
        load();
        desktop.setClipboardText("9");
    }
    [[nodiscard]] std::vector<TextField*> fields() const { return test::allFields(scene); }
    void lock(bool on) {
        if (scene.form().get<CheckBox>("chkLockInfo").value() != on)
            desktop.click("chkLockInfo");
    }
    // The page of a control comes up, and a panned or scrolled cell comes into view by its focus.
    void reveal(TextField& field) {
        const Control* page = &field;
        while (page->container() != nullptr)
            page = page->container();
        entry.put_CurrentTab(static_cast<TABObject>(page->index() - 9));
        field.setFocus();
        ASSERT_EQ(desktop.focusedId(), field.id());
    }
};

TEST_F(DataLock, LocksEveryTextBoxAndListAndUnlocksThemAgain) {
    ASSERT_GT(fields().size(), 150U);
    for (const bool on : {true, false, true, false}) {
        lock(on);
        for (const auto* field : fields())
            EXPECT_EQ(field->locked(), on) << field->id();
    }
}

TEST_F(DataLock, RowsThatAreAddedLaterAreLockedToo) {
    lock(true);
    entry.put_VisibleQuarters(20);
    for (const auto* field : fields())
        EXPECT_TRUE(field->locked()) << field->id();
}

// --- every field, and whatever changes it or the record while it is not locked ------------------

// What a host changes as one action.
struct HostAction {
    Action action;
    std::vector<DatumChange> (*changes)(const CompanyRecord& company);
};

const HostAction hostActions[] = {
    {{Origin::typed, "Split", ""},
     [](const CompanyRecord& company) {
         return test::changesOf(splitChanges(company, {{2, 1}, *makeDate(2026, 11, 1)}));
     }},
    {{Origin::imported, "Import", "0001-25-7"},
     [](const CompanyRecord& company) {
         std::vector<DatumChange> changes;
         for (const test::ImportPart& part : test::periodImport(company, 2))
             changes.insert(changes.end(), part.changes.begin(), part.changes.end());
         return changes;
     }},
    {{Origin::typed, "Restore", ""},
     [](const CompanyRecord& company) { return test::elementChanges(company, CompanyRecord()); }},
};

struct Attempt {
    std::string name;
    std::function<void(DataLock& at, TextField& field)> make;
};

std::vector<Attempt> attempts() {
    std::vector<Attempt> all = {
        {"undo by the desktop", [](DataLock& at, TextField& field) { at.desktop.undo(field); }},
        {"a command of the desktop",
         [](DataLock&, TextField& field) { EXPECT_FALSE(field.editText("by a command", 0)); }},
        {"an entry of the list",
         [](DataLock& at, TextField& field) {
             const auto* list = dynamic_cast<ComboBox*>(&field);
             if (list == nullptr)
                 return;
             ASSERT_FALSE(list->list().empty());
             for (std::size_t entry = 0; entry < list->list().size(); ++entry)
                 at.desktop.pick(list->id(), static_cast<int>(entry));
             at.desktop.type("{DOWN}{UP}{UP}");
         }},
        {"a step back", [](DataLock& at, TextField&) { at.entry.step(HistoryStep::undo); }},
        {"a step forward", [](DataLock& at, TextField&) { at.entry.step(HistoryStep::redo); }},
    };
    for (const HostAction& host : hostActions)
        all.push_back({host.action.name, [&host](DataLock& at, TextField&) {
                           EXPECT_EQ(at.entry.changeRecord(host.changes(*at.company), host.action),
                                     "The data is locked. Unlock it to change anything.");
                       }});
    for (const std::string keys :
         {"7",           "x",         "{DEL}",     "{BACKSPACE}", "^a{DEL}",   "^a^x",
          "^a^v",        "^z",        "+{INSERT}", "^a+{DEL}",    "-",         "^{BACKSPACE}",
          "^{DEL}",      "^y",        "^+z",       "^d",          "^'",        "+{DOWN}{DEL}",
          "+{DOWN}{BS}", "+{DOWN}^x", "+{UP}^d",   "+{DOWN}^'",   "^a^a{DEL}", "^a^a^v"})
        all.push_back({keys, [keys](DataLock& at, TextField&) {
                           // Alone in its field the clipboard has a figure, over several cells
                           // a block.
                           at.desktop.setClipboardText(keys.starts_with("^a^a") ? "1\t2\n3\t4"
                                                                                : "9");
                           at.desktop.acceptNextPaste();
                           at.desktop.type(keys);
                       }});
    return all;
}

TEST_F(DataLock, NothingThatAPersonOrAHostDoesChangesALockedField) {
    entry.historyAsked = [](HistoryStep) {
        ADD_FAILURE() << "a step was asked for under the lock";
        return false;
    };
    lock(true);
    entry.put_blnDirty(false);
    const auto before = company->clone();
    for (auto* field : fields()) {
        const std::string text = field->text();
        reveal(*field);
        for (const Attempt& attempt : attempts()) {
            SCOPED_TRACE(field->id() + " " + attempt.name);
            field->setFocus();
            attempt.make(*this, *field);
            EXPECT_EQ(field->text(), text);
            EXPECT_FALSE(entry.get_blnDirty());
        }
        entry.leaveField();
        EXPECT_EQ(field->text(), field->tag()) << field->id();
        EXPECT_TRUE(sameAs(*before, *company)) << field->id();
    }
    EXPECT_EQ(desktop.clipboardText(), "1\t2\n3\t4");
    EXPECT_TRUE(desktop.messages().empty());
    EXPECT_TRUE(desktop.pastes().empty());
}

TEST_F(DataLock, WhatAHostChangesAsOneActionIsTakenOnceItIsOff) {
    for (const HostAction& host : hostActions) {
        SCOPED_TRACE(host.action.name);
        const auto before = company->clone();
        const std::vector<DatumChange> changes = host.changes(*company);
        EXPECT_GT(changes.size(), 20U);
        lock(true);
        EXPECT_NE(entry.changeRecord(changes, host.action), std::nullopt);
        lock(false);
        EXPECT_EQ(entry.changeRecord(changes, host.action), std::nullopt);
        EXPECT_FALSE(sameAs(*before, *company));
    }
}

// The lock comes from elsewhere, such as a step that is taken back, while a person is typing.
TEST(DataLockFromElsewhere, WhatIsBeingTypedInAnyFieldIsToldAsNotStored) {
    struct Locked : EntryScene {
        std::shared_ptr<CompanyRecord> company = fullCompany();
        Locked() {
            test::showEveryField(*this);
            for (const auto& fill : {&VKRDataEntry::put_vntSource, &VKRDataEntry::put_vntExchange,
                                     &VKRDataEntry::put_vntIndustry})
                std::invoke(fill, *entry, textArray({"One", "Two"}));
            load(company);
        }
        void lock(bool on) {
            company->get_Settings()->put(setting::lockBasicInfo, on);
            entry->recordChanged();
        }
    };
    for (const auto& id : test::allFieldIds(Locked())) {
        SCOPED_TRACE(id);
        Locked scene;
        test::typeAt(scene, id, "^a7");
        scene.lock(true);
        const auto before = scene.company->clone();
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
        const bool typed = !field.standsForStored();
        EXPECT_TRUE(typed || !field.canTakeFocus());
        scene.desktop.type("{TAB}");
        if (id == "txtLastFY") {
            EXPECT_TRUE(field.isDoubtful()); // a part of a year gives way
        } else if (typed) {
            const auto told = scene.entry->unstoredFields();
            ASSERT_EQ(told.size(), 1U);
            EXPECT_EQ(told[0].control, id);
            EXPECT_EQ(told[0].text, "7");
            EXPECT_EQ(told[0].reason, "The data is locked. Unlock it to change anything.");
        }
        static_cast<void>(scene.entry->get_objCompany());
        EXPECT_TRUE(sameAs(*before, *scene.company));
        scene.entry->recordChanged();
        EXPECT_EQ(scene.entry->unstoredFields().size(), typed && id != "txtLastFY" ? 1U : 0U);
    }
}

TEST(DataLockFromElsewhere, WhatWasTypedBeforeItIsStoredOnceItIsOff) {
    EntryScene scene;
    const auto company = test::datedCompany();
    test::showEveryField(scene);
    scene.load(company);
    const auto lock = [&](bool on) {
        company->get_Settings()->put(setting::lockBasicInfo, on);
        scene.entry->recordChanged();
    };
    for (const auto* id : {"txtTotalDebt", "txtYEPS(9)", "txtEPS(0)", "txtCurSymbol"}) {
        test::typeAt(scene, id, "^a7");
        lock(true);
        scene.desktop.type("{TAB}");
        EXPECT_EQ(scene.entry->unstoredFields().size(), 1U) << id;
        test::typeAt(scene, id, "{TAB}");
        EXPECT_EQ(scene.entry->unstoredFields().size(), 1U) << id;
        lock(false);
        EXPECT_EQ(scene.entry->unstoredFields().size(), 1U) << id;
        test::typeAt(scene, id, "{TAB}");
        EXPECT_EQ(scene.entry->unstoredFields().size(), 0U) << id;
    }
    EXPECT_EQ(company->get_TotalDebt(), 7);
    EXPECT_EQ(test::elementOf(*company, Datum::YEPSSeries, 1), 7);
    EXPECT_EQ(test::elementOf(*company, Datum::QEPSSeries, 0), 7);
    static_cast<void>(scene.entry->get_objCompany());
    EXPECT_EQ(company->get_Settings()->get(setting::currencySymbol).toText(), "7");
}

TEST(DataLockFromElsewhere, ALastQuarterThatWasBeingTypedIsAskedAboutOnceItIsOff) {
    EntryScene scene;
    const auto company = test::datedCompany();
    test::putElement(*company, Datum::QEPSSeries, 0, 1.5);
    scene.load(company);
    test::typeAt(scene, "txtLastQDate", "^a12/31/2026");
    company->get_Settings()->put(setting::lockBasicInfo, true);
    scene.entry->recordChanged();
    scene.desktop.type("{TAB}");
    EXPECT_EQ(scene.entry->unstoredFields().size(), 1U);
    static_cast<void>(scene.entry->get_objCompany());
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 9, 30));
    company->get_Settings()->put(setting::lockBasicInfo, false);
    scene.entry->recordChanged();
    scene.desktop.answerNext(MessageAnswer::yes);
    test::typeAt(scene, "txtLastQDate", "{TAB}");
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 12, 31));
    EXPECT_EQ(test::elementOf(*company, Datum::QEPSSeries, 1), 1.5);
    EXPECT_EQ(scene.entry->unstoredFields().size(), 0U);
}

TEST_F(DataLock, NoStepIsTakenBackOrDoneAgain) {
    int asked = 0;
    entry.historyAsked = [&](HistoryStep) { return ++asked > 0; };
    desktop.click("txtName");
    desktop.type("^z^y");
    ASSERT_EQ(asked, 2);
    lock(true);
    desktop.click("txtName");
    desktop.type("^z^y^+z");
    entry.step(HistoryStep::undo);
    entry.step(HistoryStep::redo);
    EXPECT_EQ(asked, 2);
}

TEST_F(DataLock, CopyingStillWorks) {
    lock(true);
    desktop.click("txtName");
    desktop.type("^a^c");
    EXPECT_EQ(desktop.clipboardText(), "Name text");
}

TEST_F(DataLock, WhatWasTypedBeforeTheLockIsStoredFirst) {
    desktop.click("txtName");
    desktop.type("^aTyped");
    desktop.click("chkLockInfo");
    EXPECT_EQ(company->get_Name(), "Typed");
    EXPECT_TRUE(scene.field("txtName").locked());
}

TEST_F(DataLock, UnlockedFieldsCanBeEditedAgain) {
    lock(true);
    lock(false);
    scene.enter("txtName", "Edited");
    EXPECT_EQ(company->get_Name(), "Edited");
    desktop.clickTab(toYearly);
    scene.enter("txtSales(9)", "12");
    EXPECT_EQ(company->get_YRevenueSeries().array().number(1), 12);
    desktop.clickTab(toQuarterly);
    scene.enter("txtNetInc(0)", "-3");
    EXPECT_EQ(company->get_QNetIncSeries().array().number(0), -3);
}

TEST_F(DataLock, AClickOnTheBoxMarksTheCompanyChangedBothWays) {
    for (int i = 0; i < 2; ++i) {
        entry.put_blnDirty(false);
        desktop.click("chkLockInfo");
        EXPECT_TRUE(entry.get_blnDirty());
    }
}

TEST_F(DataLock, AClickOnTheBoxClosesTheHelpFrame) {
    auto& help = scene.form().get<Frame>("fraDE", 0);
    desktop.press("chkLockInfo");
    help.setVisible(true);
    desktop.release();
    EXPECT_FALSE(help.visible());
}

TEST_F(DataLock, TheSpaceKeyLocksToo) {
    scene.form().get<CheckBox>("chkLockInfo").setFocus();
    desktop.type(" ");
    EXPECT_TRUE(scene.field("txtName").locked());
}

TEST_F(DataLock, LabelsOfLockedDataTakeTheirShade) {
    entry.put_ShadeColorLocked(0x112233);
    const auto& label = desktop.control("lblLabel(0)");
    EXPECT_EQ(label.backColor(), colors::buttonFace);
    lock(true);
    EXPECT_EQ(label.backColor(), 0x112233U);
    entry.put_ShadeColorLocked(0x445566);
    EXPECT_EQ(label.backColor(), 0x445566U);
    lock(false);
    EXPECT_EQ(label.backColor(), colors::buttonFace);
}

TEST_F(DataLock, OnlyLabelsOfTheCompanysPagesTakeTheShade) {
    entry.put_ShadeColorLocked(0x112233);
    lock(true);
    for (const auto& field : fieldRows()) {
        const Label& label = field.label.control.in(scene.form());
        EXPECT_EQ(label.backColor() == 0x112233U, field.page == toCompany || field.page == toOther)
            << label.id();
    }
}

TEST_F(DataLock, ShadesAreRedrawn) {
    auto& cell = scene.field("txtSales", 9);
    auto& yellow = scene.field("txtEPS", 4);
    cell.setBackColor(1);
    yellow.setBackColor(1);
    lock(true);
    EXPECT_EQ(cell.backColor(), entry.get_ShadeColorYear());
    EXPECT_EQ(yellow.backColor(), colors::yellow);
}

TEST_F(DataLock, ButtonsThatChangeTheSpanRefuseWithTheirOwnWords) {
    const struct {
        int tab;
        const char* button;
        const char* text;
    } rows[] = {
        {toYearly, "cmdAddYear", "Data is locked!\r\rYou must unlock data to add a new year."},
        {toYearly, "cmdRemoveYear", "Data is locked!\r\rYou must unlock data to remove a year."},
        {toQuarterly, "cmdAddQuarter",
         "Data is locked!\r\rYou must unlock data to add a new quarter."},
    };
    lock(true);
    entry.put_blnDirty(false);
    const auto before = company->clone();
    const auto year = scene.text("txtLastFY");
    const auto quarter = scene.text("txtLastQDate");
    for (const auto& row : rows) {
        desktop.forget();
        desktop.clickTab(row.tab);
        desktop.click(row.button);
        ASSERT_EQ(desktop.messages().size(), 1U) << row.button;
        EXPECT_EQ(desktop.messages()[0].text, row.text);
        EXPECT_EQ(desktop.messages()[0].buttons, message_box::okOnly);
        EXPECT_EQ(desktop.messages()[0].title, "VKRDataEntry");
    }
    EXPECT_EQ(scene.text("txtLastFY"), year);
    EXPECT_EQ(scene.text("txtLastQDate"), quarter);
    EXPECT_FALSE(entry.get_blnDirty());
    EXPECT_TRUE(sameAs(*before, *company));
}

TEST_F(DataLock, SpinnerAndQuarterLabelsMoveNothing) {
    lock(true);
    desktop.clickTab(toQuarterly);
    const auto before = company->clone();
    const auto quarter = scene.text("txtLastQDate");
    desktop.spin("spnQuarter", 1);
    desktop.spin("spnQuarter", -1);
    desktop.doubleClick("lblQLabel(2)");
    EXPECT_EQ(scene.text("txtLastQDate"), quarter);
    EXPECT_TRUE(sameAs(*before, *company));
    for (const auto& message : desktop.messages())
        EXPECT_TRUE(message.text.starts_with("Data is locked!\r\r")) << message.text;
}

} // namespace
} // namespace vkr
