// SPDX-License-Identifier: MIT
#include "input/mdlDataEntry.hpp"
#include "platform/text.hpp"
#include "tests/support/field_steps.hpp"

#include <gtest/gtest.h>
#include <string>

namespace vkr {
namespace {

using namespace test;

struct EscapeScene : EntryScene {
    EscapeScene() {
        showEveryField(*this);
        entry->put_vntExchange(textArray({"NYSE", "NASDAQ", "AMEX"}));
        load(fullCompany());
    }
    // Whether the key is left to the host.
    bool escapeGoesOn() { return form().keyDown(keys::escape, shifts::none); }
};

TEST(Escape, TakesEveryFieldBackToWhatItShowedOnEntry) {
    EscapeScene scene;
    const auto before = dynamic_cast<const CompanyRecord&>(*scene.entry->get_objCompany()).clone();
    for (const auto& id : allFieldIds(scene)) {
        SCOPED_TRACE(id);
        auto& field = dynamic_cast<TextField&>(scene.desktop.control(id));
        if (!field.enabled() || id == "txtCurSymbol" || id == "cmbReportingPeriod")
            continue;
        goTo(scene, id);
        const std::string shown = field.text();
        scene.desktop.type(id == "txtLastFY" ? "^a{DEL}2" : "^a{DEL}12");
        ASSERT_NE(field.text(), shown);
        scene.desktop.type("{ESC}");
        EXPECT_EQ(field.text(), shown);
        EXPECT_EQ(field.selLength(), textLength(shown));
        EXPECT_EQ(scene.desktop.focusedId(), id);
        scene.desktop.type("+{TAB}");
        EXPECT_TRUE(field.standsForStored());
    }
    EXPECT_FALSE(scene.entry->get_blnDirty());
    EXPECT_TRUE(scene.entry->unstoredFields().empty());
    EXPECT_TRUE(changedData(*before, *scene.entry->get_objCompany()).empty());
}

TEST(Escape, GoesOnToTheHostFromAFieldWithoutChanges) {
    EscapeScene scene;
    for (const char* id : {"txtName", "txtSales(3)", "txtEPS(0)", "cmbExchange", "txtNotes"}) {
        SCOPED_TRACE(id);
        goTo(scene, id);
        EXPECT_TRUE(scene.escapeGoesOn());
        scene.desktop.type("1");
        EXPECT_FALSE(scene.escapeGoesOn());
        EXPECT_TRUE(scene.escapeGoesOn());
    }
    scene.desktop.click("cmdOK");
    scene.form().get<Control>("cmdOK").setFocus();
    EXPECT_TRUE(scene.escapeGoesOn());
}

TEST(Escape, AFieldThatWasLeftKeepsWhatWasTyped) {
    EscapeScene scene;
    scene.enter("txtName", "Acme");
    typeAt(scene, "txtName", "s{ESC}");
    EXPECT_EQ(scene.text("txtName"), "Acme");
    // What the host has taken over counts as left.
    scene.desktop.type("^a{DEL}Bolt");
    scene.entry->leaveField();
    EXPECT_TRUE(scene.escapeGoesOn());
    EXPECT_EQ(scene.text("txtName"), "Bolt");
}

TEST(Escape, IsOneStepOfUndo) {
    EscapeScene scene;
    goTo(scene, "txtName");
    const std::string shown = scene.text("txtName");
    scene.desktop.type("^a{DEL}Acme{ESC}");
    EXPECT_EQ(scene.text("txtName"), shown);
    scene.desktop.type("^z");
    EXPECT_EQ(scene.text("txtName"), "Acme");
}

TEST(Escape, ChangesNothingUnderTheLock) {
    EscapeScene scene;
    typeAt(scene, "txtName", "x");
    scene.form().get<CheckBox>("chkLockInfo").setValue(true);
    for (TextField* field : allFields(scene))
        field->setLocked(true);
    const std::string typed = scene.text("txtName");
    EXPECT_TRUE(scene.escapeGoesOn());
    EXPECT_EQ(scene.text("txtName"), typed);
}

TEST(Escape, TakesAChoiceOfTheListBack) {
    EscapeScene scene;
    auto& list = scene.form().get<ComboBox>("cmbExchange");
    goTo(scene, "cmbExchange");
    const std::string shown = list.text();
    scene.desktop.type("{DOWN}{DOWN}");
    ASSERT_EQ(list.text(), "NASDAQ");
    scene.desktop.type("{ESC}");
    EXPECT_EQ(list.text(), shown);
    scene.desktop.type("{TAB}");
    EXPECT_EQ(scene.entry->get_objCompany()->get_Exchange(), shown);
}

TEST(Escape, TakesATypedYearBack) {
    EscapeScene scene;
    goTo(scene, "txtLastFY");
    const std::string year = scene.text("txtLastFY");
    const std::string label = scene.form().get<Label>("lblYear", 10).caption();
    scene.desktop.type("^a2010");
    ASSERT_NE(scene.form().get<Label>("lblYear", 10).caption(), label);
    scene.desktop.type("{ESC}");
    EXPECT_EQ(scene.text("txtLastFY"), year);
    EXPECT_EQ(scene.form().get<Label>("lblYear", 10).caption(), label);
    // A year that was added is none to be taken back by a key.
    scene.desktop.answerNext(MessageAnswer::yes);
    scene.desktop.answerNextMenu("Add New Year");
    scene.desktop.rightClick("txtLastFY");
    ASSERT_EQ(scene.desktop.focusedId(), "txtLastFY");
    ASSERT_NE(scene.text("txtLastFY"), year);
    EXPECT_TRUE(scene.escapeGoesOn());
}

TEST(Escape, ARecordThatIsHandedInIsANewEntry) {
    EscapeScene scene;
    typeAt(scene, "txtTotalDebt", "12");
    scene.load(datedCompany());
    EXPECT_TRUE(scene.escapeGoesOn());
    EXPECT_EQ(scene.text("txtTotalDebt"), "");
    scene.desktop.type("{TAB}");
    EXPECT_FALSE(scene.entry->get_blnDirty());
}

TEST(Escape, ARefusedTextStaysRefused) {
    EscapeScene scene;
    typeOver(scene, "txtPriceUpdate", "no date");
    typeAt(scene, "txtPriceUpdate", "1/2/2024{ESC}");
    EXPECT_EQ(scene.text("txtPriceUpdate"), "no date");
    scene.desktop.type("{TAB}");
    EXPECT_EQ(scene.entry->unstoredFields().size(), 1U);
}

} // namespace
} // namespace vkr
