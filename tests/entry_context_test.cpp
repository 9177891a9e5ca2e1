// SPDX-License-Identifier: MIT
#include "binding/entry_context.hpp"
#include "company/company_base.hpp"
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "tests/support/failing_memory.hpp"
#include "tests/support/hostile_desktop.hpp"
#include "tests/support/scripted_record.hpp"

#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

namespace vkr {
namespace {

// Counts what it is told.
struct Counted : Consequences {
    void stateChanged() override { ++states; }
    void workDone() override { ++works; }
    int states = 0;
    int works = 0;
};

struct EntryContextTest : testing::Test {
    EntryContextTest() { buildForm(form); }

    HostileDesktop desktop;
    Form form;
    Counted told;
    EntryContext context{form, desktop, &told};
};

TEST_F(EntryContextTest, TellsAtTheEndOfTheWorkAndNotBefore) {
    {
        const EntryContext::UpdateScope outer(context);
        {
            const EntryContext::UpdateScope inner(context);
            context.markChanged();
        }
        EXPECT_TRUE(context.isUpdating());
        EXPECT_EQ(told.works, 0);
        EXPECT_EQ(told.states, 0);
        context.markChanged();
    }
    EXPECT_FALSE(context.isUpdating());
    EXPECT_EQ(told.works, 1);
    EXPECT_EQ(told.states, 1);
    { const EntryContext::UpdateScope nothing(context); }
    EXPECT_EQ(told.works, 2);
    EXPECT_EQ(told.states, 1);
}

// Writes down which actions it is told of.
struct ListeningRecord final : CompanyBase, ActionListener {
    void beginAction(const Action& action) override { heard.push_back("begin " + action.name); }
    void endAction() noexcept override { heard.emplace_back("end"); }

    std::vector<std::string> heard;
};

TEST_F(EntryContextTest, MakesOneActionOfTheWorkAndThoseThatAreNamedWithinIt) {
    const auto record = std::make_shared<ListeningRecord>();
    context.company = record;
    {
        const EntryContext::UpdateScope outer(context);
        const EntryContext::UpdateScope nested(context);
        const EntryContext::UpdateScope named(context, Action{Origin::shifted, "Add", {}});
    }
    { const EntryContext::UpdateScope alone(context); }
    { const EntryContext::UpdateScope first(context, Action{Origin::typed, "Type", {}}); }
    EXPECT_EQ(record->heard, (std::vector<std::string>{"begin ", "begin Add", "end", "end",
                                                       "begin ", "end", "begin Type", "end"}));
}

TEST_F(EntryContextTest, EndsTheActionBeforeAnybodyHearsOfIt) {
    struct Asking : Consequences {
        void workDone() override { record->heard.emplace_back("done"); }
        void stateChanged() override { record->heard.emplace_back("state"); }
        std::shared_ptr<ListeningRecord> record = std::make_shared<ListeningRecord>();
    } asking;
    EntryContext asked(form, desktop, &asking);
    asked.company = asking.record;
    {
        const EntryContext::UpdateScope work(asked);
        asked.markChanged();
    }
    EXPECT_EQ(asking.record->heard, (std::vector<std::string>{"begin ", "end", "done", "state"}));
}

TEST_F(EntryContextTest, KnowsInWhichUnitATextWasCopiedWhileItCanBeAsked) {
    desktop.setClipboardText("5");
    context.noteCopy("5");
    EXPECT_EQ(context.copiedIn("5"), 0) << "the same unit";
    context.takeUnit(3);
    EXPECT_EQ(context.copiedIn("5"), 6);
    EXPECT_EQ(context.copiedIn("6"), 0);
    desktop.failing = {"clipboardText"};
    EXPECT_EQ(context.copiedIn("5"), 0);
}

TEST_F(EntryContextTest, ReadsADateThatTheRecordHasNoValidOneFor) {
    const auto record = std::make_shared<CompanyRecord>();
    context.company = record;
    auto& field = context[controls::lastFiscalYearDate];
    field.showStored("12/31/2025");
    record->put_LastFYDate(*makeDate(2025, 12, 30)); // which the pattern may not show
    EXPECT_EQ(context.dateOf(field, Datum::LastFYDate), *makeDate(2025, 12, 30));
    record->put_LastFYDate(Date{-346306});
    EXPECT_EQ(context.dateOf(field, Datum::LastFYDate), *makeDate(2025, 12, 31));
}

TEST_F(EntryContextTest, ARefusalIsNoneOnlyWhereTheRecordShowsTheDate) {
    const auto record = std::make_shared<ScriptedRecord>(std::make_shared<CompanyRecord>());
    context.company = record;
    const Date date = *makeDate(2025, 12, 31);
    record->failing = {"write LastFYDate"};
    EXPECT_EQ(context.refusalOf(Datum::LastFYDate, date), "write LastFYDate fails");
    record->company->put_LastFYDate(date);
    EXPECT_EQ(context.refusalOf(Datum::LastFYDate, date), std::nullopt);
    record->failing = {"write LastFYDate", "read LastFYDate"};
    EXPECT_EQ(context.refusalOf(Datum::LastFYDate, date), "write LastFYDate fails");
}

// Whoever counts what there is to save looks again, also where something was changed before.
TEST_F(EntryContextTest, TellsOfEveryChangeAndOfDirtyOnlyWhereItTurns) {
    context.markChanged();
    context.markChanged();
    EXPECT_EQ(told.states, 2);
    context.setDirty(true);
    EXPECT_EQ(told.states, 2);
    context.setDirty(false);
    context.setDirty(false);
    EXPECT_EQ(told.states, 3);
}

TEST_F(EntryContextTest, CountsAPickedDateAsAChangeUntilItIsTakenBack) {
    context.markPicked();
    EXPECT_TRUE(context.isDirty());
    context.markPicked();
    context.takePickBack();
    EXPECT_FALSE(context.isDirty());
    context.markPicked();
    context.markChanged();
    context.takePickBack();
    EXPECT_TRUE(context.isDirty());
    context.markPicked();
    context.takePickBack();
    EXPECT_TRUE(context.isDirty()) << "something else was changed before";
    context.setDirty(false);
    context.markPicked();
    context.setDirty(true); // by the host
    context.takePickBack();
    EXPECT_TRUE(context.isDirty());
}

TEST_F(EntryContextTest, CutsWhatARecordSaysOfARefusalWhereItIsTooLong) {
    const std::string said = context.refusedText("");
    EXPECT_EQ(context.refusedText(std::string(200, 'x')), said + " " + std::string(200, 'x'));
    EXPECT_EQ(context.refusedText(std::string(201, 'x')), said + " " + std::string(200, 'x'));
    EXPECT_EQ(context.refusedText(" No\tlosses \r\n"), said + " No losses");
    EXPECT_EQ(context.refusedText(" \n"), said);
}

TEST_F(EntryContextTest, CutsWhatWasLeftOutWhereItIsTooLong) {
    auto& field = context[controls::name];
    for (const std::size_t length : {40U, 41U}) {
        context.markDoubtful(field, std::string(length, 'x'));
        const std::string& reason = field.mark().reason;
        EXPECT_NE(reason.find(std::string(40, 'x')), std::string::npos);
        EXPECT_EQ(reason.find("\u2026") != std::string::npos, length == 41);
    }
}

TEST_F(EntryContextTest, ATextThatIsNotStoredForWantOfMemoryIsToldAllTheSame) {
    auto& field = context[controls::name];
    for (const bool locked : {false, true}) {
        field.showStored("");
        field.setText("Typed");
        field.setLocked(locked);
        const FailingMemory memory(1, FailingMemory::Fails::fromThenOn);
        context.guarded(field, [&] {
            if (!locked)
                throw std::bad_alloc();
        });
        EXPECT_TRUE((field.mark() == FieldMark{MarkKind::unstored, "Not stored."}));
    }
}

TEST_F(EntryContextTest, AUnitThatIsNoneIsMillions) {
    for (const int unit : {0, 1, 2, 4, 5, 6, 7, 8, 10, -3}) {
        context.takeUnit(unit);
        EXPECT_EQ(context.unit(), 6) << unit;
        EXPECT_EQ(context.unitFactor(), 1);
        EXPECT_EQ(context.unitText(), "(M)");
    }
    context.takeUnit(3);
    EXPECT_EQ(context.unitFactor(), 1000);
    EXPECT_EQ(context.unitText(), "(K)");
    context.takeUnit(9);
    EXPECT_EQ(context.unitFactor(), 0.001);
    EXPECT_EQ(context.unitText(), "(B)");
}

} // namespace
} // namespace vkr
