// SPDX-License-Identifier: MIT
#include "company/company_record.hpp"
#include "control/vkr_data_entry.hpp"
#include "desktop/vkr_data_entry_widget.hpp"
#include "form/form_layout.hpp"
#include "tests/qt/support/dialog_answers.hpp"
#include "tests/qt/support/entry_window.hpp"
#include "tests/qt/support/field_actions.hpp"
#include "tests/qt/support/wheel.hpp"
#include "tests/support/entry_scene.hpp"

#include <map>
#include <set>
#include <tuple>

namespace vkr {
namespace {

// The widget with all of its fields on show; every page comes to the front in turn.
class EveryField : public EntryWindow {
  protected:
    EveryField() : EntryWindow(HostField::above) {
        entry->setShowVLs(true);
        entry->setShowReportingPeriod(true);
        entry->setVisibleQuarters(rows);
        entry->setExchanges({"AMEX", "NASDAQ", "NYSE"});
        entry->setIndustries({"Coal", "Steel", "Zinc"});
        entry->setSources({"Letter", "Press", "Report"});
    }
    // 0 for what belongs to no page.
    static int tabOf(const Control& control) {
        for (const auto* frame = control.container(); frame != nullptr; frame = frame->container())
            if (frame->name() == "fraDE" && frame->index() >= frame::firstPage &&
                frame->index() <= frame::lastPage)
                return frame->index() - frame::firstPage + 1;
        return 0;
    }
    template <typename Kind>
    [[nodiscard]] std::vector<Kind*> all() const {
        std::vector<Kind*> found;
        for (const auto& control : form().controls())
            if (auto* kind = dynamic_cast<Kind*>(control.get()))
                found.push_back(kind);
        return found;
    }
    void bringUp(const Control& control) {
        if (const int tab = tabOf(control); tab != 0 && tab != entry->currentTab())
            entry->setCurrentTab(tab);
    }
    // Types a character and takes it back, which leaves the field something to undo.
    void giveHistory(TextField& field) {
        const std::string text = field.text();
        field.setFocus();
        QTest::keyClick(widgetOf(field), Qt::Key_End);
        QTest::keyClick(widgetOf(field), '7');
        if (field.text() != text)
            QTest::keyClick(widgetOf(field), Qt::Key_Backspace);
        ASSERT_EQ(field.text(), text) << field.id();
    }
    void expectEveryFieldToWithstandEverything(const CompanyRecord& record);

    static constexpr int rows = 35;
};

std::string summaryOf(const std::vector<Difference>& found) {
    std::string text;
    for (const auto& difference : found)
        text += difference.datum + ": " + difference.before + " -> " + difference.after + "\n";
    return text;
}

void EveryField::expectEveryFieldToWithstandEverything(const CompanyRecord& record) {
    DialogAnswers noDialog;
    entry->component().historyAsked = [](HistoryStep) {
        ADD_FAILURE() << "a step was asked for under the lock";
        return false;
    };
    std::ignore = entry->company(); // what the commit derives is in the record now
    ASSERT_FALSE(entry->isDirty());
    const auto before = record.clone();
    const auto fields = all<TextField>();
    std::set<const TextField*> withstood;
    std::map<const TextField*, std::string> texts;
    for (const auto* field : fields)
        texts[field] = field->text();
    for (int tab = toCompany; tab <= toOptions; ++tab) {
        entry->setCurrentTab(tab);
        for (auto* field : fields) {
            if (tabOf(*field) != tab || !field->locked())
                continue;
            auto& widget = *widgetOf(*field);
            const QString shown = shownBy(widget);
            for (const auto& action : fieldActions) {
                field->setFocus();
                ASSERT_EQ(form().activeControl(), field) << field->id();
                field->select(0, 1);
                QApplication::clipboard()->setText("pasted");
                perform(action, widget);
                ASSERT_EQ(field->text(), texts[field]) << field->id() << " " << action.name;
                ASSERT_EQ(shownBy(widget), shown) << field->id() << " " << action.name;
                ASSERT_FALSE(entry->isDirty()) << field->id() << " " << action.name;
                const auto changed = differences(*before, *entry->company());
                ASSERT_TRUE(changed.empty()) << field->id() << " " << action.name << "\n"
                                             << summaryOf(changed);
                ASSERT_EQ(entry->currentTab(), tab) << field->id() << " " << action.name;
            }
            withstood.insert(field);
        }
    }
    EXPECT_EQ(withstood.size(), fields.size()) << "every field is locked, and on a page";
    EXPECT_GT(fields.size(), 250U);
    for (const auto* field : fields)
        EXPECT_EQ(field->text(), texts[field]) << field->id();
}

TEST_F(EveryField, LockedByTheRecordWithstandsEverything) {
    auto record = fullCompany();
    record->get_Settings()->put("blnLockBasicInfo", true);
    open(record);
    expectEveryFieldToWithstandEverything(*record);
}

TEST_F(EveryField, LockedAfterTypingWithstandsEverything) {
    auto record = fullCompany();
    open(record);
    for (auto* field : all<TextField>()) {
        bringUp(*field);
        giveHistory(*field);
    }
    auto& lock = form().get<CheckBox>("chkLockInfo");
    bringUp(lock);
    QTest::mouseClick(widgetOf(lock), Qt::LeftButton, {}, QPoint(8, 10));
    ASSERT_TRUE(lock.value());
    entry->setDirty(false);
    expectEveryFieldToWithstandEverything(*record);
}

// --- the wheel -----------------------------------------------------------------------------------

class Wheel : public EveryField {
  protected:
    // What every control but the scroll bars stands at.
    [[nodiscard]] std::map<std::string, std::string> values() const {
        std::map<std::string, std::string> found;
        for (const auto& control : form().controls())
            if (const auto* list = dynamic_cast<const ComboBox*>(control.get()))
                found[list->id()] = std::to_string(list->listIndex()) + " " + list->text();
            else if (const auto* field = dynamic_cast<const TextField*>(control.get()))
                found[field->id()] = field->text();
            else if (const auto* option = dynamic_cast<const OptionButton*>(control.get()))
                found[option->id()] = std::to_string(static_cast<int>(option->value()));
            else if (const auto* check = dynamic_cast<const CheckBox*>(control.get()))
                found[check->id()] = std::to_string(static_cast<int>(check->value()));
            else if (const auto* spinner = dynamic_cast<const Spinner*>(control.get()))
                found[spinner->id()] = std::to_string(spinner->value());
            else if (const auto* strip = dynamic_cast<const TabStrip*>(control.get()))
                found[strip->id()] = std::to_string(strip->selected());
        return found;
    }
    void turnOver(const Control& control) {
        auto& widget = *widgetOf(control);
        for (const int delta : {-120, 120, -360}) {
            turnWheel(widget, delta);
            turnWheel(surfaceOf(widget), delta);
        }
    }
};

TEST_F(Wheel, ChangesNothingThatDoesNotHaveTheFocus) {
    auto record = fullCompany();
    record->put_Exchange("NASDAQ");
    open(record);
    std::ignore = entry->company(); // what the commit derives is in the record now
    entry->setDirty(false);
    const auto before = record->clone();
    std::set<ControlKind> kinds;
    std::size_t turned = 0;
    for (const auto& control : form().controls()) {
        if (!control->isFocusable() || control->kind() == ControlKind::scrollBar)
            continue;
        bringUp(*control);
        // A neighbour on the page, or the host's own field.
        Control* neighbour = nullptr;
        for (const auto& other : form().controls())
            if (other != control && tabOf(*other) == entry->currentTab() && other->isFocusable())
                neighbour = other.get();
        for (const bool within : {true, false}) {
            if (within) {
                ASSERT_NE(neighbour, nullptr) << control->id();
                neighbour->setFocus();
                ASSERT_EQ(form().activeControl(), neighbour) << control->id();
            } else {
                hostField->setFocus();
                ASSERT_FALSE(form().hasFocus());
            }
            const auto values = this->values();
            turnOver(*control);
            ASSERT_EQ(this->values(), values) << control->id() << " within " << within;
            ASSERT_FALSE(entry->isDirty()) << control->id() << " within " << within;
        }
        kinds.insert(control->kind());
        ++turned;
    }
    EXPECT_TRUE(sameAs(*before, *entry->company()))
        << summaryOf(differences(*before, *entry->company()));
    EXPECT_GT(turned, all<TextField>().size());
    for (const auto kind : {ControlKind::textBox, ControlKind::comboBox, ControlKind::optionButton,
                            ControlKind::checkBox, ControlKind::tabStrip})
        EXPECT_TRUE(kinds.contains(kind)) << static_cast<int>(kind);
}

TEST_F(Wheel, ChangesTheListThatHasTheFocus) {
    auto record = fullCompany();
    record->put_Exchange("NASDAQ");
    open(record);
    auto& list = form().get<ComboBox>("cmbExchange");
    bringUp(list);
    list.setFocus();
    ASSERT_EQ(list.text(), "NASDAQ");
    turnWheel(*widgetOf(list), -120);
    EXPECT_EQ(list.text(), "NYSE");
}

} // namespace
} // namespace vkr
