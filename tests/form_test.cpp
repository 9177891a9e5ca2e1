// SPDX-License-Identifier: MIT
#include "platform/error_trap.hpp"
#include "platform/form.hpp"
#include "platform/stroke.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/form_recorder.hpp"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vkr {
namespace {

class Observer : public FormObserver {
  public:
    Events events;
    void controlAdded(Control& control) override { events.push_back("added " + control.id()); }
    void controlRemoved(Control& control) override { events.push_back("removed " + control.id()); }
    void controlChanged(Control& control, Property property) override {
        events.push_back("changed " + std::to_string(static_cast<int>(property)) + " " +
                         control.id());
    }
    void focusChanged() override { events.emplace_back("focus"); }
    void formChanged() override { events.emplace_back("form"); }
};

// An adapter with controls of the host beside the form.
class Neighbour : public FormObserver {
  public:
    std::function<bool(FocusDirection)> asked;
    bool takesTab(FocusDirection direction) override { return asked(direction); }
};

class FormTest : public testing::Test {
  protected:
    FormTest() { form.setHandler(&heard); }

    TextBox& box(std::string_view name, int index = Control::noIndex) {
        return form.add<TextBox>(name, index);
    }
    CommandButton& button(std::string_view name, std::string_view caption = "") {
        auto& added = form.add<CommandButton>(name);
        added.setCaption(caption);
        return added;
    }
    OptionButton& option(std::string_view name, int index) {
        return form.add<OptionButton>(name, index);
    }
    [[nodiscard]] std::string active() const {
        return form.activeControl() == nullptr ? "" : form.activeControl()->id();
    }
    Events takeEvents() { return std::exchange(heard.events, {}); }

    Form form;
    FormRecorder heard;
};

// --- controls ----------------------------------------------------------------------------------

TEST_F(FormTest, FindsControlsByNameAndIndex) {
    auto& name = box("txtName");
    auto& third = box("txtSales", 3);
    box("txtSales", 1);
    EXPECT_EQ(form.find("txtName"), &name);
    EXPECT_EQ(form.find("txtSales", 3), &third);
    EXPECT_EQ(form.find("txtSales"), nullptr);
    EXPECT_EQ(form.find("txtSales", 2), nullptr);
    EXPECT_EQ(form.find("txtnone", 0), nullptr);
    EXPECT_EQ(form.lowerBound("txtSales"), 1);
    EXPECT_EQ(form.upperBound("txtSales"), 3);
    option("optUnit", 0);
    EXPECT_EQ(form.lowerBound("optUnit"), 0);
    EXPECT_EQ(form.lowerBound("txtName"), 0);
    EXPECT_EQ(form.lowerBound("none"), 0);
    EXPECT_EQ(form.upperBound("none"), -1);
}

TEST_F(FormTest, RefusesASecondControlOfTheSameNameAndIndex) {
    box("txtName");
    EXPECT_THROW(box("txtName"), std::invalid_argument);
    EXPECT_EQ(form.controls().size(), 1U);
}

TEST_F(FormTest, AskingForAnotherKindOfControlThrows) {
    box("txtName");
    EXPECT_THROW(static_cast<void>(form.get<Label>("txtName")), std::out_of_range);
    EXPECT_THROW(static_cast<void>(form.get<TextBox>("txtName", 4)), std::out_of_range);
    const auto failureOf = [this](int index) {
        try {
            static_cast<void>(form.get<Label>("txtName", index));
        } catch (const std::out_of_range& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(failureOf(Control::noIndex), "no control txtName");
    EXPECT_EQ(failureOf(4), "no control txtName(4)");
}

TEST_F(FormTest, ObserverHearsOfControlsThatComeAndGo) {
    Observer observer;
    form.setObserver(&observer);
    auto& item = form.add<MenuItem>("mnuItem", 1);
    form.remove(item);
    EXPECT_EQ(observer.events, (Events{"added mnuItem(1)", "removed mnuItem(1)"}));
    EXPECT_EQ(form.find("mnuItem", 1), nullptr);
    EXPECT_EQ(form.upperBound("mnuItem"), -1);
}

TEST_F(FormTest, RemovingTheFocusedControlLeavesNoFocusBehind) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    takeEvents();
    form.remove(first);
    EXPECT_EQ(form.activeControl(), nullptr);
    char32_t character = 'a';
    EXPECT_TRUE(form.keyDown('A', shifts::none));
    EXPECT_TRUE(form.keyPress(character));
    form.keyUp('A', shifts::none);
    EXPECT_EQ(takeEvents(), Events{});
    second.setFocus();
    EXPECT_EQ(takeEvents(), Events{"got txtSecond"});
}

TEST_F(FormTest, WhereMemoryRunsOutAControlIsNotThere) {
    for (int before = 0; before < 40; ++before) {
        const std::string added = "txtAdded" + std::to_string(before);
        bool failed = true;
        for (int nth = 1; failed; ++nth) {
            {
                const FailingMemory memory(nth);
                static_cast<void>(attempt([&] { box(added); }));
                failed = memory.hasFailed();
            }
            const std::size_t there = static_cast<std::size_t>(before) + (failed ? 0 : 1);
            ASSERT_EQ(form.find(added) != nullptr, !failed) << nth;
            ASSERT_EQ(form.controls().size(), there) << nth;
            ASSERT_EQ(form.tabOrder().size(), there) << nth;
        }
    }
}

TEST_F(FormTest, OfARemovedControlNothingIsToldAtTheEndOfAnUpdate) {
    Observer observer;
    form.setObserver(&observer);
    auto& name = box("txtName");
    {
        const Form::Update update(form);
        name.setEnabled(false);
        form.remove(name);
        observer.events.clear();
    }
    EXPECT_EQ(observer.events, Events{});
}

TEST_F(FormTest, AnUpdateWithinAnotherTellsAtTheEndOfBoth) {
    Observer observer;
    auto& name = box("txtName");
    form.setObserver(&observer);
    {
        const Form::Update outer(form);
        {
            const Form::Update inner(form);
            name.setEnabled(false);
        }
        EXPECT_EQ(observer.events, Events{});
    }
    EXPECT_EQ(observer.events.size(), 1U);
    name.setEnabled(true);
    EXPECT_EQ(observer.events.size(), 2U);
}

TEST_F(FormTest, RemovingAFrameRemovesWhatItHolds) {
    auto& outer = form.add<Frame>("fraOuter");
    auto& inner = form.add<Frame>("fraInner", Control::noIndex, &outer);
    form.add<TextBox>("txtDeep", Control::noIndex, &inner);
    box("txtBeside");
    form.remove(outer);
    EXPECT_EQ(form.find("fraInner"), nullptr);
    EXPECT_EQ(form.find("txtDeep"), nullptr);
    ASSERT_EQ(form.controls().size(), 1U);
    EXPECT_EQ(form.tabOrder().size(), 1U);
}

TEST_F(FormTest, TellsTheObserverOfItsOwnLooksOnce) {
    Observer observer;
    form.setObserver(&observer);
    form.setSize(100, 50);
    form.setSize(100, 50);
    EXPECT_EQ(observer.events, Events{"form"});
}

TEST_F(FormTest, TellsTheObserverOfEachOfItsLooks) {
    Observer observer;
    form.setObserver(&observer);
    const std::function<void()> changes[] = {
        [&] { form.setSize(100, 50); },
        [&] { form.setSize(110, 50); },
        [&] { form.setSize(110, 60); },
        [&] { form.setBackColor(colors::yellow); },
        [&] { form.setBorderStyle(BorderStyle::fixedSingle); },
        [&] {
            form.setMouseIcon({1, "<svg/>"});
        },
    };
    for (const auto& change : changes) {
        observer.events.clear();
        change();
        EXPECT_EQ(observer.events, Events{"form"}) << &change - changes;
    }
    EXPECT_EQ(form.width(), 110);
    EXPECT_EQ(form.height(), 60);
    EXPECT_EQ(form.backColor(), colors::yellow);
    EXPECT_EQ(form.borderStyle(), BorderStyle::fixedSingle);
    EXPECT_EQ(form.mouseIcon().id, 1);
}

TEST_F(FormTest, ANoteIsOverAsSoonAsTheUserGoesOnOrItsFieldIsLocked) {
    struct : FormObserver {
        int over = 0;
        void noteOver() override { ++over; }
    } observer;
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    form.setObserver(&observer);
    const std::function<void()> ends[] = {
        [&] { form.keyDown('A', shifts::none); },
        [&] { form.mouseDown(first, MouseButton::left); },
        [&] { form.userPaste(first, "5"); },
        [&] { first.setLocked(true); },
        [&] { second.setFocus(); },
        [&] { form.remove(second); },
    };
    for (const auto& end : ends) {
        observer.over = 0;
        end();
        EXPECT_GT(observer.over, 0) << &end - ends;
    }
    observer.over = 0;
    form.keyDown('A', shifts::none, KeyDown::repeated); // as when the note came
    first.setText("6");
    first.setEnabled(false);
    EXPECT_EQ(observer.over, 0);
    form.setObserver(nullptr);
}

// --- focus -------------------------------------------------------------------------------------

TEST_F(FormTest, LeavesTheOldControlBeforeItEntersTheNewOne) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    EXPECT_TRUE(form.focus(second));
    EXPECT_EQ(takeEvents(), (Events{"got txtFirst", "lost txtFirst", "got txtSecond"}));
}

TEST_F(FormTest, FocusingTheFocusedControlDoesNothing) {
    auto& first = box("txtFirst");
    first.setFocus();
    takeEvents();
    EXPECT_TRUE(form.focus(first));
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(FormTest, ControlsThatCannotTakeTheFocusLeaveItWhereItIs) {
    auto& first = box("txtFirst");
    auto& hidden = box("txtHidden");
    hidden.setVisible(false);
    auto& disabled = box("txtDisabled");
    disabled.setEnabled(false);
    auto& page = form.add<Frame>("fraPage");
    page.move(Control::parkedLeft, 0);
    auto& parked = form.add<TextBox>("txtParked", Control::noIndex, &page);
    auto& label = form.add<Label>("lblName");
    first.setFocus();
    takeEvents();
    for (Control* control : std::vector<Control*>{&hidden, &disabled, &parked, &label})
        EXPECT_FALSE(form.focus(*control)) << control->id();
    EXPECT_EQ(takeEvents(), Events{});
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(FormTest, ALeaveHandlerCanSendTheFocusElsewhere) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    auto& third = box("txtThird");
    first.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control& left) {
        if (&left == &first)
            third.setFocus();
    };
    EXPECT_FALSE(form.focus(second));
    EXPECT_EQ(takeEvents(), (Events{"lost txtFirst", "got txtThird"}));
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(FormTest, ALeaveHandlerThatAlwaysSendsTheFocusElsewhereRunsOnce) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control& left) { (&left == &first ? second : first).setFocus(); };
    form.focus(second);
    EXPECT_EQ(takeEvents(), (Events{"lost txtFirst", "got txtSecond"}));
}

TEST_F(FormTest, ALeaveHandlerCanKeepTheFocus) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control& left) { left.setFocus(); };
    EXPECT_FALSE(form.focus(second));
    EXPECT_EQ(active(), "txtFirst");
    EXPECT_EQ(takeEvents(), (Events{"lost txtFirst", "got txtFirst"}));
    heard.lostFocus = nullptr;
    EXPECT_TRUE(form.focus(second));
    EXPECT_EQ(takeEvents(), (Events{"lost txtFirst", "got txtSecond"}));
}

TEST_F(FormTest, ALeaveHandlerCanKeepTheFocusFromLeavingTheForm) {
    auto& first = box("txtFirst");
    first.setFocus();
    heard.lostFocus = [&](Control& left) { left.setFocus(); };
    form.focusLeft();
    EXPECT_TRUE(form.hasFocus());
    EXPECT_EQ(takeEvents(), (Events{"got txtFirst", "lost txtFirst", "got txtFirst"}));
}

TEST_F(FormTest, AnEnterHandlerCanSendTheFocusOn) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    auto& third = box("txtThird");
    first.setFocus();
    takeEvents();
    heard.gotFocus = [&](Control& entered) {
        if (&entered == &second)
            third.setFocus();
    };
    EXPECT_FALSE(form.focus(second));
    EXPECT_EQ(takeEvents(),
              (Events{"lost txtFirst", "got txtSecond", "lost txtSecond", "got txtThird"}));
}

TEST_F(FormTest, FocusStaysWhenTheLeaveHandlerTakesTheTargetAway) {
    struct Row {
        const char* how;
        std::function<void(Form&, Control&)> takeAway;
    };
    const Row rows[] = {
        {"hidden", [](Form&, Control& target) { target.setVisible(false); }},
        {"disabled", [](Form&, Control& target) { target.setEnabled(false); }},
        {"removed", [](Form& owner, Control& target) { owner.remove(target); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.how);
        Form own;
        FormRecorder recorder;
        own.setHandler(&recorder);
        auto& first = own.add<TextBox>("txtFirst");
        auto& second = own.add<TextBox>("txtSecond");
        first.setFocus();
        recorder.events.clear();
        recorder.lostFocus = [&](Control&) { row.takeAway(own, second); };
        EXPECT_FALSE(own.focus(second));
        EXPECT_EQ(own.activeControl(), &first);
        EXPECT_EQ(recorder.events, (Events{"lost txtFirst", "got txtFirst"}));
    }
}

TEST_F(FormTest, WhereTheLeaveHandlerTakesBothAwayTheNextControlHasTheFocus) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    box("txtThird");
    first.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control&) {
        first.setEnabled(false);
        second.setEnabled(false);
    };
    EXPECT_FALSE(form.focus(second));
    EXPECT_EQ(active(), "txtThird");
    EXPECT_EQ(takeEvents(), (Events{"lost txtFirst", "lost txtFirst", "got txtThird"}));
}

TEST_F(FormTest, ALeaveHandlerMayRemoveTheControlThatIsLeft) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control& left) { form.remove(left); };
    EXPECT_TRUE(form.focus(second));
    EXPECT_EQ(active(), "txtSecond");
    EXPECT_EQ(form.find("txtFirst"), nullptr);
    heard.lostFocus = nullptr;
    second.setFocus();
    EXPECT_EQ(active(), "txtSecond");
}

TEST_F(FormTest, WhereALeaveHandlerHasSentTheFocusItIsLeftAgain) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    auto& third = box("txtThird");
    auto& fourth = box("txtFourth");
    first.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control& left) {
        if (&left == &first)
            third.setFocus();
    };
    heard.gotFocus = [&](Control& entered) {
        if (&entered == &third)
            fourth.setFocus();
    };
    form.focus(second);
    EXPECT_EQ(takeEvents(),
              (Events{"lost txtFirst", "got txtThird", "lost txtThird", "got txtFourth"}));
}

TEST_F(FormTest, LeavingTheFormLeavesTheControlAndRemembersIt) {
    auto& first = box("txtFirst");
    first.setFocus();
    takeEvents();
    form.focusLeft();
    form.focusLeft();
    EXPECT_EQ(takeEvents(), (Events{"lost txtFirst", "left the form"}));
    EXPECT_FALSE(form.hasFocus());
    EXPECT_EQ(form.activeControl(), &first);
    first.setFocus();
    EXPECT_EQ(takeEvents(), Events{"got txtFirst"});
}

TEST_F(FormTest, ObserverHearsWhereTheFocusHasSettled) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    Observer observer;
    form.setObserver(&observer);
    first.setFocus();
    second.setFocus();
    EXPECT_EQ(observer.events, (Events{"focus", "focus"}));
    observer.events.clear();
    heard.lostFocus = [&](Control& left) { left.setFocus(); };
    first.setFocus();
    EXPECT_EQ(observer.events, Events{"focus"}); // so that an adapter takes it back as well
    form.setObserver(nullptr);
    heard.lostFocus = [&](Control&) { first.setEnabled(false); };
    form.setObserver(&observer);
    observer.events.clear();
    EXPECT_FALSE(form.focus(first));
    EXPECT_EQ(active(), "txtSecond");
    EXPECT_EQ(std::count(observer.events.begin(), observer.events.end(), "focus"), 1);
}

// --- tab order -----------------------------------------------------------------------------------

TEST_F(FormTest, AnUpdateTellsOnceWhereTheFocusHasSettledAndOnlyWhereItMoved) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    Observer observer;
    form.setObserver(&observer);
    {
        const Form::Update update(form);
        first.setFocus();
        second.setFocus();
        EXPECT_EQ(observer.events, Events{});
    }
    EXPECT_EQ(observer.events, Events{"focus"});
    {
        const Form::Update update(form);
        second.setFocus();
    }
    EXPECT_EQ(observer.events, Events{"focus"});
}

TEST_F(FormTest, AFocusThatCameToWhatTakesNoneGoesWhereItWas) {
    box("txtFirst");
    auto& second = box("txtSecond");
    auto& shown = form.add<Label>("lblShown");
    second.setFocus();
    for (Control* control : {static_cast<Control*>(nullptr), static_cast<Control*>(&shown)}) {
        form.focusLeft();
        form.focusCame(control, std::nullopt);
        EXPECT_TRUE(form.hasFocus());
        EXPECT_EQ(active(), "txtSecond");
    }
}

TEST_F(FormTest, AFocusThatWasTabbedInStartsAtTheEndItComesFrom) {
    box("txtFirst");
    auto& second = box("txtSecond");
    box("txtLast");
    second.setFocus();
    form.focusLeft();
    form.focusCame(&second, FocusDirection::forward);
    EXPECT_EQ(active(), "txtFirst");
    form.focusCame(&second, FocusDirection::forward);
    EXPECT_EQ(active(), "txtSecond") << "within the form it is where it came";
    form.focusLeft();
    form.focusCame(nullptr, FocusDirection::backward);
    EXPECT_EQ(active(), "txtLast");
}

TEST_F(FormTest, TabGoesThroughTheTabOrderAndAround) {
    auto& first = box("txtFirst");
    box("txtSecond");
    auto& third = box("txtThird");
    third.setTabIndex(1);
    EXPECT_EQ(third.tabIndex(), 1);
    first.setFocus();
    Events walk;
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(form.keyDown(keys::tab, shifts::none));
        walk.push_back(active());
    }
    EXPECT_EQ(walk, (Events{"txtThird", "txtSecond", "txtFirst"}));
    form.keyDown(keys::tab, shifts::shift);
    EXPECT_EQ(active(), "txtSecond");
}

TEST_F(FormTest, TabIndexIsCutToTheControlsThereAre) {
    auto& first = box("txtFirst");
    box("txtSecond");
    first.setTabIndex(99);
    EXPECT_EQ(first.tabIndex(), 1);
    first.setTabIndex(-5);
    EXPECT_EQ(first.tabIndex(), 0);
}

TEST_F(FormTest, TabSkipsWhatCannotTakeTheFocus) {
    auto& first = box("txtFirst");
    box("txtHidden").setVisible(false);
    box("txtDisabled").setEnabled(false);
    form.add<Label>("lblName");
    form.add<ScrollBar>("hscrYearly");
    box("txtLast");
    first.setFocus();
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "txtLast");
}

TEST_F(FormTest, TabStopsAtTheChosenOptionOfAGroup) {
    auto& before = box("txtBefore");
    option("optUnit", 0);
    auto& chosen = option("optUnit", 1);
    option("optUnit", 2);
    box("txtAfter");
    chosen.setValue(true);
    before.setFocus();
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "optUnit(1)");
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "txtAfter");
    form.keyDown(keys::tab, shifts::shift);
    EXPECT_EQ(active(), "optUnit(1)");
}

TEST_F(FormTest, TabStopsOnceAtAGroupWithoutAChoice) {
    auto& before = box("txtBefore");
    option("optUnit", 0);
    option("optUnit", 1);
    box("txtAfter");
    before.setFocus();
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "optUnit(0)");
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "txtAfter");
}

TEST_F(FormTest, TabbingOutIsOfferedToTheAdapterAtTheEndsOnly) {
    auto& first = box("txtFirst");
    box("txtSecond");
    std::vector<FocusDirection> offered;
    Neighbour neighbour;
    form.setObserver(&neighbour);
    neighbour.asked = [&](FocusDirection direction) {
        offered.push_back(direction);
        return true;
    };
    first.setFocus();
    form.keyDown(keys::tab, shifts::none);
    EXPECT_TRUE(offered.empty());
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(offered, std::vector{FocusDirection::forward});
    EXPECT_EQ(active(), "txtSecond"); // where the adapter has taken the focus is its own business
    offered.clear();
    form.keyDown(keys::tab, shifts::shift);
    EXPECT_TRUE(offered.empty());
    EXPECT_EQ(active(), "txtFirst");
    form.keyDown(keys::tab, shifts::shift);
    EXPECT_EQ(offered, std::vector{FocusDirection::backward});
}

TEST_F(FormTest, TabInAFieldThatKeepsTheFocusGoesNowhere) {
    box("txtFirst");
    auto& second = box("txtSecond");
    box("txtThird");
    bool offered = false;
    Neighbour neighbour;
    form.setObserver(&neighbour);
    neighbour.asked = [&](FocusDirection) { return offered = true; };
    second.setFocus();
    heard.lostFocus = [&](Control& left) { left.setFocus(); };
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "txtSecond");
    EXPECT_FALSE(offered);
}

TEST_F(FormTest, TabAtTheEndInAFieldThatKeepsTheFocusGoesNowhere) {
    box("txtFirst");
    auto& last = box("txtLast");
    Neighbour neighbour;
    form.setObserver(&neighbour);
    neighbour.asked = [&](FocusDirection) {
        form.focusLeft();
        return !form.hasFocus();
    };
    last.setFocus();
    heard.lostFocus = [&](Control& left) { left.setFocus(); };
    takeEvents();
    form.keyDown(keys::tab, shifts::none);
    EXPECT_EQ(active(), "txtLast");
    EXPECT_EQ(takeEvents(), (Events{"down 9/0 txtLast", "lost txtLast", "got txtLast"}));
}

TEST_F(FormTest, TabWithControlOrAltDoesNotMoveTheFocus) {
    auto& first = box("txtFirst");
    box("txtSecond");
    first.setFocus();
    EXPECT_TRUE(form.keyDown(keys::tab, shifts::control));
    EXPECT_TRUE(form.keyDown(keys::tab, shifts::alt));
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(FormTest, EnteringWithTabStartsAtTheEndItComesFrom) {
    box("txtFirst");
    box("txtLast");
    EXPECT_TRUE(form.enterFocus(FocusDirection::forward));
    EXPECT_EQ(active(), "txtFirst");
    form.focusLeft();
    EXPECT_TRUE(form.enterFocus(FocusDirection::backward));
    EXPECT_EQ(active(), "txtLast");
}

TEST_F(FormTest, AFormOfOneControlIsEnteredThere) {
    box("txtOnly");
    EXPECT_TRUE(form.enterFocus(FocusDirection::forward));
    EXPECT_EQ(active(), "txtOnly");
}

TEST_F(FormTest, AFormWithNothingToFocusTakesNoFocus) {
    form.add<Label>("lblName");
    EXPECT_FALSE(form.enterFocus(FocusDirection::forward));
    EXPECT_FALSE(form.hasFocus());
    Form empty;
    EXPECT_FALSE(empty.moveFocus(FocusDirection::backward));
}

// --- keys ----------------------------------------------------------------------------------------

TEST_F(FormTest, AHandlerThatUsesAKeyUpStopsIt) {
    auto& first = box("txtFirst");
    box("txtSecond");
    first.setFocus();
    heard.keyDown = [](Control&, KeyCode& key) { key = keys::none; };
    EXPECT_FALSE(form.keyDown('A', shifts::none));
    EXPECT_FALSE(form.keyDown(keys::tab, shifts::none));
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(FormTest, AHandlerThatMovesTheFocusUsesTheKeyUp) {
    auto& first = box("txtFirst");
    auto& second = box("txtSecond");
    first.setFocus();
    heard.keyDown = [&](Control&, KeyCode&) { second.setFocus(); };
    EXPECT_FALSE(form.keyDown(keys::enter, shifts::none));
}

TEST_F(FormTest, AKeyEndsWhereItsHandlerHasTakenTheControlAway) {
    for (const bool moved : {false, true}) {
        auto& first = box("txtFirst");
        auto& second = box("txtSecond");
        auto& third = box("txtThird");
        first.setFocus();
        heard.keyDown = [&](Control&, KeyCode&) {
            if (moved)
                second.setFocus();
            form.remove(*form.activeControl());
        };
        EXPECT_FALSE(form.keyDown(keys::tab, shifts::none));
        EXPECT_EQ(active(), "");
        form.remove(moved ? first : second);
        form.remove(third);
    }
}

TEST_F(FormTest, KeyPressCanBeReplacedOrSwallowed) {
    box("txtFirst").setFocus();
    char32_t character = 'a';
    heard.keyPress = [](char32_t& pressed) { pressed = 'A'; };
    EXPECT_TRUE(form.keyPress(character));
    EXPECT_EQ(character, U'A');
    heard.keyPress = [](char32_t& pressed) { pressed = 0; };
    EXPECT_FALSE(form.keyPress(character));
}

TEST_F(FormTest, ACharacterThatTheFilterHasNotSeenIsNotTyped) {
    box("txtName").setFocus();
    heard.keyPress = [](char32_t&) { throw std::runtime_error("no memory"); };
    char32_t character = 'a';
    EXPECT_FALSE(form.keyPress(character));
    EXPECT_EQ(character, 0U);
}

TEST_F(FormTest, AFullFieldTakesNoCharacterButThoseThatEdit) {
    auto& first = box("txtFirst");
    first.setMaxLength(2);
    first.setText("ab");
    first.setFocus();
    first.select(2, 0);
    for (const char32_t character : {U'x', U' ', U'\u20AC'}) {
        char32_t pressed = character;
        EXPECT_FALSE(form.keyPress(pressed)) << std::uint32_t{character};
    }
    for (const char32_t character : {U'\b', U'\r', U'\x1F', U'\x7F'}) {
        char32_t pressed = character;
        EXPECT_TRUE(form.keyPress(pressed)) << std::uint32_t{character};
    }
}

TEST_F(FormTest, ASentKeyWaitsForTheOneInProgress) {
    auto& first = box("txtFirst");
    box("txtSecond");
    first.setFocus();
    takeEvents();
    heard.keyPress = [&](char32_t& pressed) {
        pressed = 0;
        form.sendKey(keys::tab);
    };
    form.keyDown(keys::enter, shifts::none);
    char32_t character = 13;
    form.keyPress(character);
    EXPECT_EQ(active(), "txtFirst");
    form.keyDone();
    form.keyUp(keys::enter, shifts::none);
    EXPECT_EQ(takeEvents(),
              (Events{"down 13/0 txtFirst", "press 13 txtFirst", "down 9/0 txtFirst",
                      "lost txtFirst", "got txtSecond", "up 9 txtSecond", "up 13 txtSecond"}));
    form.keyDone();
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(FormTest, KeysSentWhileSentKeysRunFollowThem) {
    auto& first = box("txtFirst");
    box("txtSecond");
    box("txtThird");
    first.setFocus();
    heard.keyDown = [&](Control& control, KeyCode&) {
        if (&control == &first) {
            form.sendKey(keys::tab);
            form.keyDone(); // from inside: the loop outside goes on
        }
    };
    form.sendKey(keys::tab);
    form.keyDone();
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(FormTest, ButtonsAndCheckBoxesArePressedWithTheKeyboard) {
    auto& ok = button("cmdOK");
    auto& lock = form.add<CheckBox>("chkLockInfo");
    ok.setFocus();
    takeEvents();
    EXPECT_FALSE(form.keyDown(keys::enter, shifts::none));
    EXPECT_EQ(takeEvents(),
              (Events{"down 13/0 cmdOK", "mouse 1 cmdOK", "click cmdOK", "ended cmdOK"}));
    EXPECT_FALSE(form.keyDown(keys::space, shifts::none));
    lock.setFocus();
    EXPECT_FALSE(form.keyDown(keys::space, shifts::none));
    EXPECT_TRUE(lock.value());
    EXPECT_TRUE(form.keyDown(keys::space, shifts::control));
    EXPECT_TRUE(lock.value());
}

TEST_F(FormTest, ArrowsChooseTheNextOptionThatCanBeChosen) {
    auto& first = option("optUnit", 0);
    option("optUnit", 1).setEnabled(false);
    auto& last = option("optUnit", 2);
    first.setValue(true);
    first.setFocus();
    form.keyDown(keys::down, shifts::none);
    EXPECT_TRUE(last.value());
    EXPECT_FALSE(first.value());
    EXPECT_EQ(active(), "optUnit(2)");
    form.keyDown(keys::right, shifts::none);
    EXPECT_TRUE(last.value());
    form.keyDown(keys::left, shifts::none);
    EXPECT_TRUE(first.value());
}

TEST_F(FormTest, TheSpaceBarChoosesTheOptionThatHasTheFocus) {
    auto& first = option("optUnit", 0);
    auto& second = option("optUnit", 1);
    first.setValue(true);
    second.setFocus();
    takeEvents();
    EXPECT_FALSE(form.keyDown(keys::space, shifts::none));
    EXPECT_TRUE(second.value());
    EXPECT_FALSE(first.value());
    EXPECT_EQ(takeEvents(), (Events{"down 32/0 optUnit(1)", "mouse 1 optUnit(1)",
                                    "click optUnit(1)", "ended optUnit(1)"}));
}

TEST_F(FormTest, AnArrowChoosesTheNeighbourAlone) {
    auto& first = option("optUnit", 0);
    auto& next = option("optUnit", 1);
    auto& last = option("optUnit", 2);
    first.setValue(true);
    first.setFocus();
    takeEvents();
    form.keyDown(keys::down, shifts::none);
    EXPECT_TRUE(next.value());
    EXPECT_EQ(active(), "optUnit(1)");
    Events clicked = takeEvents();
    std::erase_if(clicked, [](const std::string& event) { return !event.starts_with("click"); });
    EXPECT_EQ(clicked, Events{"click optUnit(1)"});
    last.setValue(true);
    last.setFocus();
    form.keyDown(keys::up, shifts::none);
    EXPECT_TRUE(next.value());
    EXPECT_EQ(active(), "optUnit(1)");
}

TEST_F(FormTest, ArrowsSelectTheNextTab) {
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    for (const char* caption : {"One", "Two"}) {
        Tab tab;
        tab.caption = caption;
        strip.addTab(tab);
    }
    strip.setFocus();
    takeEvents();
    EXPECT_FALSE(form.keyDown(keys::right, shifts::none));
    EXPECT_TRUE(form.keyDown(keys::right, shifts::none));
    EXPECT_EQ(strip.selected(), 2);
    EXPECT_EQ(takeEvents(),
              (Events{"down 39/0 tbsDataEntry", "tab 2 tbsDataEntry", "down 39/0 tbsDataEntry"}));
}

TEST_F(FormTest, ArrowsChooseListEntriesUnlessLocked) {
    auto& list = form.add<ComboBox>("cmbExchange");
    list.setList({"NYSE", "Nasdaq"});
    list.setFocus();
    takeEvents();
    EXPECT_FALSE(form.keyDown(keys::down, shifts::none));
    EXPECT_FALSE(form.keyDown(keys::down, shifts::none));
    EXPECT_FALSE(form.keyDown(keys::down, shifts::none));
    EXPECT_EQ(list.text(), "Nasdaq");
    EXPECT_EQ(list.listIndex(), 1);
    list.setLocked(true);
    EXPECT_FALSE(form.keyDown(keys::up, shifts::none));
    EXPECT_EQ(list.text(), "Nasdaq");
    list.setLocked(false);
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(form.keyDown(keys::up, shifts::none));
    EXPECT_EQ(list.listIndex(), 0);
}

TEST_F(FormTest, OnlyItsOwnKeysActOnAControlAndOnlyAlone) {
    auto& chosen = option("optUnit", 1);
    option("optUnit", 0);
    option("optUnit", 2);
    auto& list = form.add<ComboBox>("cmbExchange");
    list.setList({"NYSE", "Nasdaq", "Amex"});
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    for (int i = 0; i < 3; ++i)
        strip.addTab({});
    const struct {
        Control& control;
        std::string keys;
    } rows[] = {
        {button("cmdOK"), "enter space "},
        {form.add<CheckBox>("chkLockInfo"), "space "},
        {chosen, "space left right up down "},
        {strip, "left right up down "},
        {list, "up down "},
        {box("txtName"), ""},
    };
    const struct {
        KeyCode key;
        const char* name;
    } allKeys[] = {{keys::enter, "enter"}, {keys::space, "space"}, {keys::left, "left"},
                   {keys::right, "right"}, {keys::up, "up"},       {keys::down, "down"},
                   {keys::escape, "esc"},  {keys::home, "home"},   {'A', "A"}};
    for (const auto& row : rows)
        for (const int shift : {shifts::none, shifts::shift, shifts::control, shifts::alt}) {
            std::string used;
            for (const auto& one : allKeys) {
                chosen.setValue(true);
                list.setListIndex(1);
                strip.selectTab(2);
                row.control.setFocus();
                used += form.keyDown(one.key, shift) ? "" : std::string(one.name) + " ";
            }
            EXPECT_EQ(used, shift == shifts::none ? row.keys : "") << row.control.id() << shift;
        }
}

TEST_F(FormTest, AtTheFirstAndTheLastTabAnArrowGoesNowhere) {
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    for (int i = 0; i < 3; ++i)
        strip.addTab({});
    strip.setFocus();
    strip.selectTab(1);
    EXPECT_TRUE(form.keyDown(keys::left, shifts::none));
    EXPECT_TRUE(form.keyDown(keys::up, shifts::none));
    EXPECT_EQ(strip.selected(), 1);
    for (const int expected : {2, 3, 3}) {
        form.keyDown(keys::down, shifts::none);
        EXPECT_EQ(strip.selected(), expected);
    }
    for (const int expected : {2, 1, 1}) {
        form.keyDown(keys::up, shifts::none);
        EXPECT_EQ(strip.selected(), expected);
    }
}

TEST_F(FormTest, AKeyThatOpensSomethingActsOnceHoweverLongItIsHeld) {
    box("txtName").setFocus();
    for (const KeyCode key : {keys::menu, keys::f1, keys::f4, keys::f12})
        for (const KeyDown press : {KeyDown::first, KeyDown::repeated}) {
            takeEvents();
            const bool acts = press == KeyDown::first;
            EXPECT_EQ(form.keyDown(key, shifts::none, press), acts) << key;
            EXPECT_EQ(takeEvents().empty(), !acts) << key;
        }
    for (const KeyCode key :
         {KeyCode{'A'}, KeyCode{keys::f1 - 1}, KeyCode{keys::f12 + 1}, keys::left})
        EXPECT_TRUE(form.keyDown(key, shifts::none, KeyDown::repeated)) << key;
}

// --- mnemonics -----------------------------------------------------------------------------------

TEST_F(FormTest, LettersAndDigitsAreMnemonics) {
    for (const char letter : {'0', '9', 'A', 'Z'}) {
        auto& one = button("cmdOne", std::string("&") + letter);
        takeEvents();
        EXPECT_FALSE(form.keyDown(letter, shifts::alt)) << letter;
        EXPECT_FALSE(takeEvents().empty()) << letter;
        form.remove(one);
    }
    for (const char other : {'/', '['}) { // such key codes are those of other keys
        auto& one = button("cmdOne", std::string("&") + other);
        EXPECT_TRUE(form.keyDown(other, shifts::alt)) << other;
        form.remove(one);
    }
}

TEST_F(FormTest, AMnemonicPressesAButtonWhereverTheFocusIs) {
    box("txtName").setFocus();
    button("cmdOK", "&OK");
    takeEvents();
    EXPECT_FALSE(form.keyDown('O', shifts::alt));
    EXPECT_EQ(takeEvents(),
              (Events{"mouse 1 cmdOK", "lost txtName", "got cmdOK", "click cmdOK", "ended cmdOK"}));
}

TEST_F(FormTest, AMnemonicOfALabelGoesToTheFieldBehindIt) {
    auto& label = form.add<Label>("lblName");
    label.setCaption("Co&mpany");
    box("txtHidden").setVisible(false);
    box("txtName");
    EXPECT_TRUE(form.mnemonic('m'));
    EXPECT_EQ(active(), "txtName");
}

TEST_F(FormTest, AMnemonicOfALabelGoesToItsBuddyOrTheElementsBelowIt) {
    auto& label = form.add<Label>("lblSales");
    label.setCaption("&Sales");
    box("txtNext");
    auto& first = form.add<TextBox>("txtSales", 0);
    form.add<TextBox>("txtSales", 1);
    label.setBuddy(&first);
    EXPECT_TRUE(form.mnemonic('s'));
    EXPECT_EQ(active(), "txtSales(0)");
    first.setEnabled(false);
    EXPECT_TRUE(form.mnemonic('s'));
    EXPECT_EQ(active(), "txtSales(1)");
    form.find("txtSales", 1)->setVisible(false);
    EXPECT_FALSE(form.hasMnemonic('s'));
    EXPECT_FALSE(form.mnemonic('s'));
    // The buddy goes: what follows in tab order takes its place.
    form.remove(first);
    EXPECT_EQ(label.buddy(), nullptr);
    EXPECT_TRUE(form.mnemonic('s'));
    EXPECT_EQ(active(), "txtNext");
}

TEST_F(FormTest, AMnemonicOfALabelStaysWithinItsContainer) {
    auto& frame = form.add<Frame>("fraDE", 10);
    auto& label = form.add<Label>("lblLegend", Control::noIndex, &frame);
    label.setCaption("&Legend");
    box("txtName");
    EXPECT_FALSE(form.mnemonic('L'));
    form.add<TextBox>("txtSales", Control::noIndex, &frame);
    EXPECT_TRUE(form.mnemonic('L'));
    EXPECT_EQ(active(), "txtSales");
}

TEST_F(FormTest, AMnemonicOfAFrameGoesToWhereTabStopsInIt) {
    auto& frame = form.add<Frame>("fraDE", 5);
    frame.setCaption("&Unit");
    box("txtName");
    form.add<OptionButton>("optUnit", 0, &frame);
    form.add<OptionButton>("optUnit", 1, &frame).setValue(true);
    EXPECT_TRUE(form.hasMnemonic('U'));
    EXPECT_TRUE(form.mnemonic('U'));
    EXPECT_EQ(active(), "optUnit(1)");
    for (const auto& event : takeEvents())
        EXPECT_EQ(event.find("click"), std::string::npos) << event;
}

TEST_F(FormTest, AMnemonicOfAFrameLooksIntoTheFramesInsideIt) {
    auto& frame = form.add<Frame>("fraDE", 5);
    frame.setCaption("&Unit");
    auto& inner = form.add<Frame>("fraInner", Control::noIndex, &frame);
    box("txtName");
    form.add<TextBox>("txtSales", Control::noIndex, &inner);
    EXPECT_TRUE(form.mnemonic('U'));
    EXPECT_EQ(active(), "txtSales");
}

TEST_F(FormTest, ATabWinsOverAButtonWithTheSameLetter) {
    button("cmdOther", "&Other");
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    Tab tab;
    tab.caption = "Company";
    strip.addTab(tab);
    tab.caption = "&Other Company Data";
    strip.addTab(tab);
    EXPECT_TRUE(form.mnemonic('O'));
    EXPECT_EQ(strip.selected(), 2);
    EXPECT_EQ(takeEvents(), Events{"tab 2 tbsDataEntry"});
}

TEST_F(FormTest, ASharedMnemonicGoesAroundWithoutPressing) {
    button("cmdAdd", "&Add");
    button("cmdAnother", "&Another");
    Events walk;
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(form.mnemonic('A'));
        walk.push_back(active());
    }
    EXPECT_EQ(walk, (Events{"cmdAdd", "cmdAnother", "cmdAdd"}));
    for (const auto& event : takeEvents())
        EXPECT_EQ(event.find("click"), std::string::npos) << event;
}

TEST_F(FormTest, MnemonicsThatCannotBeSeenOrUsedDoNothing) {
    button("cmdHidden", "&Add").setVisible(false);
    button("cmdDisabled", "&Add").setEnabled(false);
    auto& label = form.add<Label>("lblName");
    label.setCaption("&Name");
    auto& field = box("txtName");
    EXPECT_FALSE(form.mnemonic('A'));
    EXPECT_FALSE(form.mnemonic('Z'));
    label.setVisible(false);
    EXPECT_FALSE(form.mnemonic('N'));
    label.setVisible(true);
    label.setEnabled(false);
    EXPECT_FALSE(form.mnemonic('N'));
    label.setEnabled(true);
    EXPECT_TRUE(form.mnemonic('N'));
    EXPECT_EQ(form.activeControl(), &field);
}

TEST_F(FormTest, EntriesOfTheMenuHaveNoMnemonicsOnTheForm) {
    form.add<MenuItem>("mnuItem", 0).setCaption("&Undo");
    box("txtName");
    EXPECT_FALSE(form.mnemonic('U'));
    EXPECT_EQ(active(), "");
}

TEST_F(FormTest, AltGrTypesCharactersAndIsNoMnemonic) {
    box("txtName").setFocus();
    button("cmdEdit", "&Edit");
    EXPECT_TRUE(form.keyDown('E', shifts::control | shifts::alt));
    EXPECT_EQ(active(), "txtName");
}

// --- edits ---------------------------------------------------------------------------------------

TEST_F(FormTest, AnEditOfTheUserIsAChange) {
    auto& name = box("txtName");
    EXPECT_TRUE(form.userEdit(name, "abc", 1, 1));
    EXPECT_EQ(name.text(), "abc");
    EXPECT_EQ(name.selText(), "b");
    EXPECT_TRUE(form.userEdit(name, "abc", 3, 0));
    EXPECT_EQ(takeEvents(), Events{"change txtName"});
}

TEST_F(FormTest, TheCaretStandsBehindWhatWasPutInBetweenLikeLetters) {
    for (const auto& [length, capitals] :
         {std::pair{0, false}, {4, false}, {5, false}, {0, true}, {4, true}}) {
        SCOPED_TRACE(std::to_string(length) + (capitals ? " capitals" : ""));
        auto& name = box("txtName" + std::to_string(length) + (capitals ? "C" : ""));
        name.setMaxLength(length);
        name.setCapitals(capitals);
        name.setText("ABB");
        name.select(1, 1);
        EXPECT_TRUE(form.userPaste(name, "XB"));
        EXPECT_EQ(name.text(), "AXBB");
        EXPECT_EQ(name.selStart(), 3);
    }
}

TEST_F(FormTest, WhereMemoryRunsOutAnEditIsNone) {
    const std::string longText(100, 'x');
    auto& name = box("txtName");
    bool failed = true;
    for (int nth = 1; failed; ++nth) {
        bool edited = false;
        {
            const FailingMemory memory(nth);
            edited = form.userEdit(name, longText, 0, 0);
            failed = memory.hasFailed();
        }
        ASSERT_EQ(edited, !failed) << nth;
        ASSERT_EQ(name.text(), failed ? "" : longText) << nth;
    }
    EXPECT_EQ(takeEvents(), Events{"change txtName"});
}

TEST_F(FormTest, AHandlerThatCannotTellOfACutLeavesADoubtBehind) {
    struct : FormHandler {
        bool onPaste(TextField& /*field*/, std::string_view /*text*/) override { return true; }
        void onPasteCut(TextField& /*field*/, std::string_view /*leftOut*/) override {
            throw std::runtime_error("no memory");
        }
    } failing;
    form.setHandler(&failing);
    auto& name = box("txtName");
    name.setMaxLength(3);
    EXPECT_TRUE(form.userPaste(name, "abc"));
    EXPECT_FALSE(name.isDoubtful());
    form.userEdit(name, "", 0, 0);
    EXPECT_TRUE(form.userPaste(name, "abcd"));
    EXPECT_EQ(name.text(), "abc");
    EXPECT_EQ(name.mark(), (FieldMark{MarkKind::doubtful, "Cut short."}));
}

TEST_F(FormTest, APasteTellsWhetherAnyOfItWasTaken) {
    auto& name = box("txtName");
    name.setMaxLength(3);
    EXPECT_FALSE(form.userPaste(name, ""));
    EXPECT_FALSE(form.userPaste(name, "\n"));
    EXPECT_TRUE(form.userPaste(name, "ab"));
    EXPECT_TRUE(form.userPaste(name, "c"));
    EXPECT_FALSE(form.userPaste(name, "d"));
    name.setText("abcde"); // more than a person may enter
    EXPECT_FALSE(form.userPaste(name, "f"));
    EXPECT_EQ(name.text(), "abcde");
}

TEST_F(FormTest, AHandlerThatFailsHasAnsweredNo) {
    struct : FormHandler {
        bool onPaste(TextField& /*field*/, std::string_view /*text*/) override { fail(); }
        bool onWheel(int /*steps*/) override { fail(); }
        bool onDrag(Control& /*pressed*/, Control& /*over*/) override { fail(); }
        [[nodiscard]] bool keepsFocus(const Control& /*control*/,
                                      MouseButton /*button*/) const override {
            fail();
        }
        [[nodiscard]] bool wantsKey(const Control& /*control*/, KeyCode /*key*/,
                                    int /*shift*/) const override {
            fail();
        }
        [[noreturn]] static void fail() { throw std::runtime_error("no memory"); }
    } failing;
    auto& name = box("txtName");
    auto& ok = button("cmdOK");
    ok.setFocus();
    form.setHandler(&failing);
    EXPECT_FALSE(form.userPaste(name, "abc"));
    EXPECT_EQ(name.text(), "");
    EXPECT_FALSE(form.userWheel(1));
    EXPECT_FALSE(form.userDrag(name, ok));
    EXPECT_FALSE(form.uses(Stroke{keys::escape, shifts::none, {}, 0}));
    form.mouseDown(name, MouseButton::left);
    EXPECT_EQ(active(), "txtName");
}

TEST_F(FormTest, ALockedFieldRefusesEditsAndTakesSelections) {
    auto& name = box("txtName");
    name.setText("abc");
    name.setLocked(true);
    EXPECT_FALSE(form.userEdit(name, "x", 0, 0));
    EXPECT_FALSE(form.userPaste(name, "x"));
    form.userSelect(name, 1, 99);
    EXPECT_EQ(name.text(), "abc");
    EXPECT_EQ(name.selText(), "bc");
    EXPECT_EQ(takeEvents(), Events{});
}

TEST_F(FormTest, ATypedEntryIsTheChosenOne) {
    auto& list = form.add<ComboBox>("cmbExchange");
    list.setList({"NYSE", "Nasdaq"});
    form.userEdit(list, "Nasdaq", 6, 0);
    EXPECT_EQ(list.listIndex(), 1);
    form.userEdit(list, "Nasda", 5, 0);
    EXPECT_EQ(list.listIndex(), -1);
}

// --- pointer -------------------------------------------------------------------------------------

TEST_F(FormTest, ButtonsHearOfThePointerBeforeTheFocusMovesAndFieldsAfter) {
    auto& name = box("txtName");
    auto& cancel = button("cmdCancel");
    auto& city = box("txtCity");
    name.setFocus();
    takeEvents();
    form.mouseDown(cancel, MouseButton::left);
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 cmdCancel", "lost txtName", "got cmdCancel"}));
    form.mouseDown(city, MouseButton::left);
    EXPECT_EQ(takeEvents(), (Events{"lost cmdCancel", "got txtCity", "mouse 1 txtCity"}));
    form.mouseDown(option("optUnit", 0), MouseButton::left);
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 optUnit(0)", "lost txtCity", "got optUnit(0)"}));
    form.mouseDown(form.add<CheckBox>("chkLockInfo"), MouseButton::left);
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 chkLockInfo", "lost optUnit(0)", "got chkLockInfo"}));
}

TEST_F(FormTest, AControlThatIsTakenAwayByThePressOnItHearsNoMore) {
    auto& name = box("txtName");
    auto& city = box("txtCity");
    auto& cancel = button("cmdCancel");
    name.setFocus();
    takeEvents();
    heard.lostFocus = [&](Control&) { form.remove(city); };
    form.mouseDown(city, MouseButton::right);
    EXPECT_EQ(takeEvents(), (Events{"lost txtName", "got txtName"}));
    heard.lostFocus = nullptr;
    heard.mouseDown = [&](Control& pressed) { form.remove(pressed); };
    form.mouseDown(cancel, MouseButton::left);
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 cmdCancel"}));
    EXPECT_EQ(active(), "txtName");
}

TEST_F(FormTest, AClickActsAndEndsThePress) {
    auto& lock = form.add<CheckBox>("chkLockInfo");
    form.click(lock);
    EXPECT_TRUE(lock.value());
    form.click(lock);
    EXPECT_FALSE(lock.value());
    EXPECT_EQ(takeEvents(), (Events{"click chkLockInfo", "ended chkLockInfo", "click chkLockInfo",
                                    "ended chkLockInfo"}));
}

TEST_F(FormTest, AClickTakesTheChoiceFromTheOtherOptions) {
    auto& first = option("optUnit", 0);
    auto& second = option("optUnit", 1);
    auto& other = option("optOther", 0);
    other.setValue(true);
    first.setValue(true);
    form.click(second);
    EXPECT_FALSE(first.value());
    EXPECT_TRUE(second.value());
    EXPECT_TRUE(other.value());
    form.add<CommandButton>("optUnit", 2); // no choice to take away
    form.click(first);
    EXPECT_TRUE(first.value());
    EXPECT_FALSE(second.value());
}

TEST_F(FormTest, APressGivenUpEndsWithoutAClick) {
    auto& ok = button("cmdOK");
    form.mouseDown(ok, MouseButton::left);
    form.pressGivenUp(ok);
    EXPECT_EQ(takeEvents(), (Events{"mouse 1 cmdOK", "got cmdOK", "ended cmdOK"}));
}

TEST_F(FormTest, HiddenAndDisabledControlsHearOfNoClick) {
    auto& hidden = button("cmdHidden");
    hidden.setVisible(false);
    auto& disabled = form.add<CheckBox>("chkDisabled");
    disabled.setEnabled(false);
    for (Control* control : std::vector<Control*>{&hidden, &disabled}) {
        form.mouseDown(*control, MouseButton::left);
        form.click(*control);
        form.doubleClick(*control);
    }
    EXPECT_FALSE(disabled.value());
    EXPECT_EQ(takeEvents(), (Events{"ended cmdHidden", "ended chkDisabled"}));
}

TEST_F(FormTest, AClickHandlerMayRemoveItsControl) {
    auto& ok = button("cmdOK");
    heard.click = [&](Control& clicked) { form.remove(clicked); };
    form.click(ok);
    EXPECT_EQ(takeEvents(), Events{"click cmdOK"});
}

TEST_F(FormTest, PickingAnEntryIsAChoiceOnlyWhenItIsAnotherOne) {
    auto& list = form.add<ComboBox>("cmbExchange");
    list.setList({"NYSE", "Nasdaq"});
    EXPECT_TRUE(form.userPick(list, 1));
    EXPECT_TRUE(form.userPick(list, 1));
    EXPECT_FALSE(form.userPick(list, 2));
    EXPECT_FALSE(form.userPick(list, -1));
    EXPECT_EQ(list.text(), "Nasdaq");
    EXPECT_EQ(list.selText(), "Nasdaq");
    EXPECT_EQ(takeEvents(), Events{"choice 1 cmbExchange"});
}

TEST_F(FormTest, OfEqualEntriesThePickedOneIsChosen) {
    auto& list = form.add<ComboBox>("cmbExchange");
    list.setList({"NYSE", "NYSE"});
    form.userPick(list, 1);
    EXPECT_EQ(list.listIndex(), 1);
    form.userPick(list, 1);
    EXPECT_EQ(takeEvents(), Events{"choice 1 cmbExchange"});
}

TEST_F(FormTest, ATurnGoesThroughTheEntriesOfAListUpToItsEnds) {
    auto& list = form.add<ComboBox>("cmbExchange");
    EXPECT_TRUE(form.userTurn(list, 1));
    EXPECT_EQ(list.listIndex(), -1) << "nothing to choose";
    struct Row {
        std::vector<std::string> entries;
        int before;
        int steps;
        int after;
    };
    const std::vector<std::string> three{"NYSE", "Nasdaq", "Amex"};
    const Row rows[] = {{three, -1, 1, 0}, {three, 0, 1, 1},    {three, 1, 5, 2},
                        {three, 2, 1, 2},  {three, 2, -1, 1},   {three, 1, -5, 0},
                        {three, 0, -1, 0}, {{"NYSE"}, -1, 2, 0}};
    for (const Row& row : rows) {
        list.setList(row.entries);
        list.setListIndex(row.before);
        EXPECT_TRUE(form.userTurn(list, row.steps));
        EXPECT_EQ(list.listIndex(), row.after) << row.before << " by " << row.steps;
    }
    list.select(1, 2);
    EXPECT_TRUE(form.userTurn(list, 1));
    EXPECT_EQ(list.selText(), "YS") << "what leads nowhere leaves the selection";
    list.setLocked(true);
    EXPECT_FALSE(form.userTurn(list, 1)) << "the page turns in its place";
}

TEST_F(FormTest, BarsSpinnersTabsAndTheSurfaceReport) {
    auto& bar = form.add<ScrollBar>("vscrQuarterly");
    bar.setRange(0, 26, 1, 9);
    auto& spinner = form.add<Spinner>("spnQuarter");
    auto& strip = form.add<TabStrip>("tbsDataEntry");
    strip.addTab({});
    form.userScroll(bar, 99);
    form.userScroll(bar, 26);
    form.userSpin(spinner, -1);
    form.userSelectTab(strip, 1);
    form.surfaceClick();
    EXPECT_EQ(takeEvents(), (Events{"scroll 26 vscrQuarterly", "spin -1 spnQuarter",
                                    "tab 1 tbsDataEntry", "surface"}));
    strip.addTab({});
    strip.setEnabled(false);
    form.userSelectTab(strip, 2);
    strip.setEnabled(true);
    strip.setVisible(false);
    form.userSelectTab(strip, 2);
    EXPECT_EQ(takeEvents(), Events{});
}

} // namespace
} // namespace vkr
