// SPDX-License-Identifier: MIT
#include "tests/support/entry_scene.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>

namespace vkr {
namespace {

using Names = std::vector<std::string>;

const Names confirmed{"UnloadRequest 0"};
const Names cancelled{"UnloadRequest -1"};

// Captions with letters that no tab has.
struct OtherLetters final : TableLocalizer {
    OtherLetters() : TableLocalizer({rows, standardStrings()}) {}
    static constexpr StringRow rows[] = {{574, "O&K"}, {575, "Ca&ncel"}, {576, "&Help"}};
};

// A form whose buttons have letters.
struct LetteredScene : EntryScene {
    LetteredScene() {
        desktop.factory().add(standardLocalizerId, [] { return std::make_shared<OtherLetters>(); });
        entry = std::make_unique<VKRDataEntry>(desktop);
        entry->setEvents(&events);
        desktop.attach(form());
        entry->ReadProperties({});
    }
};

struct Closing : testing::Test {
    EntryScene scene;
    VKRDataEntry& entry = *scene.entry;
    VirtualDesktop& desktop = scene.desktop;
    std::shared_ptr<CompanyRecord> company = fullCompany();

    Closing() { start(); }
    void start() {
        entry.put_objCompany(company);
        scene.events.log.clear();
    }
    [[nodiscard]] const Names& events() const { return scene.events.log; }
    void typeInto(std::string_view id, std::string_view keys) {
        desktop.click(id);
        desktop.type("^a{DEL}" + std::string(keys));
    }
};

struct Moved {
    int tab;
    const char* field;
    const char* typed;   // accepted
    const char* invalid; // refused
};
// The two dates that rebuild a grid.
constexpr Moved pendingDates[] = {{toYearly, "txtDateofLastFY", "Nov/30/2025", "no date"},
                                  {toQuarterly, "txtLastQDate", "Dec/31/2026", "no date"}};

// --- OK ------------------------------------------------------------------------------------------

TEST_F(Closing, OkAsksToConfirm) {
    desktop.click("cmdOK");
    EXPECT_EQ(events(), confirmed);
    EXPECT_FALSE(entry.get_blnDirty());
}

TEST_F(Closing, OkFirstStoresTheDateThatIsBeingTyped) {
    const struct {
        const char* field;
        Datum datum;
    } rows[] = {{"txtLastUpdate", Datum::LastUpdate},
                {"txtPriceUpdate", Datum::PriceUpdatedDate},
                {"txtDateOfSource", Datum::DateOfSource}};
    for (const auto& row : rows) {
        scene.events.log.clear();
        typeInto(row.field, "Feb/03/2026");
        desktop.click("cmdOK");
        EXPECT_EQ(readDate(*company, row.datum), *makeDate(2026, 2, 3)) << row.field;
        EXPECT_EQ(events(), confirmed);
    }
}

TEST_F(Closing, OkSettlesChangedDatesInOrderEvenIfNobodyLeftThem) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    entry.put_objCompany(record);
    for (const auto* field : {"txtDateOfSource", "txtPriceUpdate", "txtLastUpdate"})
        scene.field(field).setText("Feb/03/2026");
    record->log.clear();
    desktop.click("cmdOK");
    EXPECT_EQ(record->logged("write "),
              (Names{"write LastUpdate", "write PriceUpdatedDate", "write DateOfSource"}));
    EXPECT_EQ(events(), confirmed);
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(Closing, OkLeavesUnchangedDatesAlone) {
    const auto record = std::make_shared<ScriptedRecord>(company);
    entry.put_objCompany(record);
    record->log.clear();
    desktop.click("cmdOK");
    EXPECT_EQ(record->log, Names{});
}

TEST_F(Closing, AnInvalidDateIsNotStoredAndTheHostCanTell) {
    typeInto("txtPriceUpdate", "someday");
    desktop.click("cmdOK");
    EXPECT_EQ(events(), confirmed);
    EXPECT_EQ(company->get_PriceUpdatedDate(), *makeDate(2026, 11, 20));
    EXPECT_EQ(scene.text("txtPriceUpdate"), "someday");
    const auto unstored = entry.unstoredFields();
    ASSERT_EQ(unstored.size(), 1U);
    EXPECT_EQ(unstored[0].control, "txtPriceUpdate");
    EXPECT_EQ(unstored[0].label, "Price Update Date");
    EXPECT_EQ(unstored[0].text, "someday");
    EXPECT_EQ(unstored[0].reason, "This is not a date and was not stored.");
}

TEST_F(Closing, ATextThatIsNotStoredIsToldOfWithoutItsWordsWhereThereIsNoMemoryForThem) {
    typeInto("txtPriceUpdate", "someday{TAB}");
    for (int time = 0; time < 2; ++time) {
        std::vector<MarkedField> told;
        {
            const FailingMemory memory(1, FailingMemory::Fails::fromThenOn);
            told = entry.unstoredFields();
        }
        EXPECT_EQ(told.size(), 1U);
        told = entry.unstoredFields();
        ASSERT_EQ(told.size(), 1U);
        EXPECT_EQ(told[0].control, "txtPriceUpdate");
    }
}

TEST_F(Closing, TheFirstOkProcessesAPendingDateAndTheSecondConfirms) {
    for (const auto& date : pendingDates) {
        start();
        desktop.clickTab(date.tab);
        scene.events.log.clear();
        desktop.answerNext(MessageAnswer::yes); // asked where a quarter is added
        typeInto(date.field, date.typed);
        desktop.click("cmdOK");
        EXPECT_EQ(events(), Names{}) << date.field;
        EXPECT_EQ(scene.text(date.field), date.typed);
        EXPECT_TRUE(entry.get_blnDirty());
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed) << date.field;
        entry.put_blnDirty(false);
    }
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2025, 11, 30));
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 12, 31));
}

TEST_F(Closing, AnUnchangedPendingDateTakesTheFirstOkAsWell) {
    for (const auto& date : pendingDates) {
        desktop.clickTab(date.tab);
        desktop.click(date.field);
        scene.events.log.clear();
        desktop.click("cmdOK");
        EXPECT_EQ(events(), Names{}) << date.field;
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed) << date.field;
    }
    EXPECT_TRUE(desktop.messages().empty());
}

TEST_F(Closing, APendingDateAndTheKeyboard) {
    LetteredScene other;
    other.load(company);
    for (const auto& date : pendingDates) {
        other.desktop.clickTab(date.tab);
        other.desktop.click(date.field);
        other.events.log.clear();
        other.desktop.answerNext(MessageAnswer::yes);
        other.desktop.type("^a" + std::string(date.typed) + "%k");
        EXPECT_EQ(other.events.log, Names{}) << date.field;
        EXPECT_EQ(other.desktop.focusedId(), "cmdOK");
        other.desktop.type("%k");
        EXPECT_EQ(other.events.log, confirmed) << date.field;
    }
    EXPECT_EQ(company->get_LastFYDate(), *makeDate(2025, 11, 30));
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 12, 31));
}

TEST_F(Closing, TabbedToOkConfirmsAtOnceSinceTheDateWasLeft) {
    for (const auto& date : pendingDates) {
        desktop.clickTab(date.tab);
        desktop.click(date.field);
        scene.events.log.clear();
        for (int i = 0; i < 200 && desktop.focusedId() != "cmdOK"; ++i)
            desktop.type("{TAB}");
        ASSERT_EQ(desktop.focusedId(), "cmdOK");
        desktop.type("{ENTER}");
        EXPECT_EQ(events(), confirmed) << date.field;
    }
}

TEST_F(Closing, AGivenUpOkConfirmsNothing) {
    for (const auto& date : pendingDates) {
        desktop.clickTab(date.tab);
        desktop.click(date.field);
        scene.events.log.clear();
        desktop.press("cmdOK");
        desktop.dragAway();
        EXPECT_EQ(events(), Names{});
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed);
    }
}

TEST_F(Closing, APendingDateStaysPendingWhenAnotherCompanyIsHandedIn) {
    for (const auto& date : pendingDates) {
        desktop.clickTab(date.tab);
        desktop.click(date.field);
        company = fullCompany();
        start();
        ASSERT_EQ(desktop.focusedId(), date.field);
        desktop.answerNext(MessageAnswer::yes);
        desktop.type("^a{DEL}" + std::string(date.typed));
        desktop.click("cmdOK");
        EXPECT_EQ(events(), Names{}) << date.field;
        EXPECT_EQ(scene.field(date.field).tag(), date.typed) << "accepted";
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed) << date.field;
    }
}

TEST_F(Closing, OkAfterACancelThatTheHostDeclinedSettlesTheSkippedDate) {
    for (const auto& date : pendingDates) {
        company = fullCompany();
        start();
        desktop.clickTab(date.tab);
        typeInto(date.field, date.typed);
        desktop.click("cmdCancel"); // the host asks its user, who goes on
        scene.events.log.clear();
        desktop.answerNext(MessageAnswer::yes);
        desktop.click("cmdOK");
        EXPECT_EQ(events(), Names{}) << date.field;
        EXPECT_EQ(scene.field(date.field).tag(), date.typed) << "accepted";
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed) << date.field;
    }
    EXPECT_EQ(company->get_LastQDate(), *makeDate(2026, 12, 31));
    EXPECT_EQ(desktop.messages().size(), 1U) << "the question before a quarter is added";
}

TEST_F(Closing, OkAfterADeclinedCancelMarksADateThatIsNone) {
    desktop.clickTab(toYearly);
    typeInto("txtDateofLastFY", "no date");
    desktop.click("cmdCancel");
    scene.events.log.clear();
    desktop.click("cmdOK");
    EXPECT_EQ(events(), Names{});
    ASSERT_EQ(entry.unstoredFields().size(), 1U);
    desktop.click("cmdOK");
    EXPECT_EQ(events(), confirmed) << "the host decides about the text that is not stored";
}

TEST_F(Closing, OkIsNotHeldUpByADateThatWasLockedAfterADeclinedCancel) {
    for (const auto& date : pendingDates) {
        company = fullCompany();
        start();
        desktop.clickTab(date.tab);
        typeInto(date.field, date.typed);
        desktop.click("cmdCancel");
        desktop.click("chkLockInfo");
        scene.events.log.clear();
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed) << date.field;
        desktop.click("chkLockInfo");
    }
}

TEST_F(Closing, ARejectedQuarterWarnsAndOkMustBePressedAgain) {
    desktop.clickTab(toQuarterly);
    scene.events.log.clear();
    typeInto("txtLastQDate", "Mar/31/2020");
    desktop.click("cmdOK");
    EXPECT_EQ(events(), Names{});
    EXPECT_EQ(desktop.messages().size(), 1U);
    EXPECT_EQ(scene.text("txtLastQDate"), "Sep/30/2026");
    desktop.click("cmdOK");
    EXPECT_EQ(events(), confirmed);
    EXPECT_EQ(desktop.messages().size(), 1U);
}

// --- Cancel --------------------------------------------------------------------------------------

TEST_F(Closing, CancelAsksToCancelAndDiscardsNothing) {
    scene.enter("txtName", "Changed");
    desktop.click("cmdCancel");
    EXPECT_EQ(events(), cancelled);
    EXPECT_EQ(company->get_Name(), "Changed");
    EXPECT_TRUE(entry.get_blnDirty());
}

TEST_F(Closing, CancelSkipsThePendingDatesWithoutAWord) {
    for (const auto& date : pendingDates)
        for (const auto* typed : {date.typed, date.invalid}) {
            company = fullCompany();
            start();
            desktop.clickTab(date.tab);
            scene.events.log.clear();
            const auto before = company->clone();
            typeInto(date.field, typed);
            desktop.click("cmdCancel");
            EXPECT_EQ(events(), cancelled) << date.field << " " << typed;
            EXPECT_TRUE(desktop.messages().empty());
            EXPECT_TRUE(entry.unstoredFields().empty());
            EXPECT_TRUE(sameAs(*before, *company));
        }
}

TEST_F(Closing, ADateThatWasPickedAndThatCancelSkipsIsStillAChange) {
    for (const auto& date : pendingDates) {
        start();
        entry.put_blnDirty(false);
        desktop.clickTab(date.tab);
        desktop.answerNextDate(*makeDate(2026, 12, 31));
        desktop.click(date.field);
        desktop.type("{F4}");
        desktop.click("cmdCancel");
        EXPECT_TRUE(entry.get_blnDirty()) << date.field;
    }
}

TEST_F(Closing, CancelByItsLetterSkipsThemToo) {
    LetteredScene other;
    other.load(company);
    for (const auto& date : pendingDates) {
        other.desktop.clickTab(date.tab);
        other.desktop.click(date.field);
        other.events.log.clear();
        other.desktop.type("^a" + std::string(date.invalid) + "%n");
        EXPECT_EQ(other.events.log, cancelled) << date.field;
        EXPECT_TRUE(other.desktop.messages().empty());
    }
}

TEST_F(Closing, TheCancelFlagEndsWithTheClick) {
    for (const auto& date : pendingDates) {
        company = fullCompany();
        start();
        desktop.clickTab(date.tab);
        desktop.click("cmdCancel");
        typeInto(date.field, date.invalid);
        desktop.type("{TAB}");
        EXPECT_TRUE(!entry.unstoredFields().empty() || !desktop.messages().empty()) << date.field;
        desktop.forget();
    }
}

TEST_F(Closing, ACancelThatIsGivenUpLeavesTheDateAsAnyOtherMoveWould) {
    for (const auto& date : pendingDates) {
        company = fullCompany();
        start();
        desktop.clickTab(date.tab);
        scene.events.log.clear();
        typeInto(date.field, date.typed);
        desktop.press("cmdCancel");
        desktop.answerNext(MessageAnswer::yes);
        desktop.dragAway();
        EXPECT_EQ(events(), Names{});
        EXPECT_EQ(scene.text(date.field), date.typed);
        EXPECT_EQ(scene.field(date.field).tag(), date.typed) << "accepted";
        desktop.click("cmdOK");
        EXPECT_EQ(events(), confirmed);
    }
    EXPECT_EQ(desktop.messages().size(), 1U) << "the question before a quarter is added";
}

TEST_F(Closing, ACancelThatIsGivenUpStillMarksAnInvalidDate) {
    desktop.clickTab(toYearly);
    typeInto("txtDateofLastFY", "no date");
    desktop.press("cmdCancel");
    desktop.dragAway();
    ASSERT_EQ(entry.unstoredFields().size(), 1U);
    EXPECT_EQ(entry.unstoredFields()[0].control, "txtDateofLastFY");
}

TEST_F(Closing, OtherFieldsAreStoredOnTheWayToCancel) {
    typeInto("txtName", "Typed");
    desktop.click("cmdCancel");
    EXPECT_EQ(company->get_Name(), "Typed");
}

TEST_F(Closing, TabOnCancelGoesToTheFirstFieldOfThePage) {
    const struct {
        int tab;
        const char* focus;
    } rows[] = {{toCompany, "txtCurrentPrice"},
                {toYearly, "txtLastFY"},
                {toQuarterly, "txtRevenue(0)"},
                {toOther, "txtAddress1"},
                {toOptions, "optCurrency(1)"}};
    for (const auto& row : rows) {
        desktop.clickTab(row.tab);
        desktop.click("cmdCancel");
        scene.events.log.clear();
        desktop.type("{TAB}");
        EXPECT_EQ(desktop.focusedId(), row.focus);
        EXPECT_EQ(events(), Names{});
    }
}

TEST_F(Closing, TabOnCancelGoesOnWhereThePageHasNoFirstField) {
    const auto none = std::make_shared<ScriptedRecord>(company);
    none->missing = 35;
    entry.put_objCompany(none);
    desktop.clickTab(toQuarterly);
    desktop.click("cmdCancel");
    desktop.type("{TAB}");
    EXPECT_NE(desktop.focusedId(), "cmdCancel");
    EXPECT_TRUE(desktop.control(desktop.focusedId()).canTakeFocus()) << desktop.focusedId();
}

TEST_F(Closing, ShiftTabOnCancelGoesBack) {
    desktop.click("cmdCancel");
    desktop.type("+{TAB}");
    EXPECT_EQ(desktop.focusedId(), "cmdOK");
}

// --- Help ----------------------------------------------------------------------------------------

TEST_F(Closing, HelpOnTheFirstTab) {
    desktop.click("cmdHelp");
    desktop.type("%h");
    desktop.type("{ENTER}");
    EXPECT_EQ(events(), (Names{"MoreHelp 3064", "MoreHelp 3064", "MoreHelp 3064"}));
}

TEST_F(Closing, HelpDoesNotDropWhatIsBeingTyped) {
    typeInto("txtName", "Typed");
    desktop.click("cmdHelp");
    EXPECT_EQ(company->get_Name(), "Typed");
}

} // namespace
} // namespace vkr
