// SPDX-License-Identifier: MIT
#include "binding/entry_context.hpp"
#include "company/company_base.hpp"
#include "form/build_form.hpp"
#include "form/controls.hpp"
#include "platform/virtual_desktop.hpp"
#include "tests/support/failing_memory.hpp"

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

    VirtualDesktop desktop;
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
    { const EntryContext::UpdateScope first(context, Action{Origin::typed, "Type", {}}); }
    EXPECT_EQ(record->heard,
              (std::vector<std::string>{"begin ", "begin Add", "end", "end", "begin Type", "end"}));
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
    field.setText("Typed");
    {
        const FailingMemory memory(1, FailingMemory::Fails::fromThenOn);
        context.guarded(field, [] { throw std::bad_alloc(); });
    }
    EXPECT_EQ(field.mark(), (FieldMark{MarkKind::unstored, "Not stored."}));
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
