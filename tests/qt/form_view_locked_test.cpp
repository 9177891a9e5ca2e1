// SPDX-License-Identifier: MIT
#include "tests/qt/support/field_actions.hpp"

namespace vkr {
namespace {

enum class FieldKind { textBox, list, notes };

class LockedField : public FormScene,
                    public testing::WithParamInterface<std::tuple<FieldKind, FieldAction>> {
  protected:
    TextField& field() {
        switch (std::get<FieldKind>(GetParam())) {
        case FieldKind::list:
            return *exchange;
        case FieldKind::notes:
            return *notes;
        default:
            return *name;
        }
    }
    [[nodiscard]] std::string shown() { return fromQt(shownBy(*native(field()))); }
};

TEST_P(LockedField, KeepsItsText) {
    open();
    // With a history, so that there is something to undo.
    enter(field(), "start");
    QTest::keyClick(native(field()), Qt::Key_End);
    QTest::keyClick(native(field()), 's');
    ASSERT_EQ(field().text(), "starts");
    field().select(0, 3);
    field().setLocked(true);
    QApplication::clipboard()->setText("pasted");
    handler.log.clear();
    perform(std::get<FieldAction>(GetParam()), *native(field()));
    EXPECT_EQ(field().text(), "starts");
    EXPECT_EQ(shown(), "starts");
    for (const auto& noted : handler.log)
        EXPECT_FALSE(noted.starts_with("change") || noted.starts_with("choice")) << noted;
}

std::string lockedName(const testing::TestParamInfo<LockedField::ParamType>& info) {
    static const char* const kinds[] = {"TextBox", "List", "Notes"};
    return std::string(kinds[static_cast<std::size_t>(std::get<FieldKind>(info.param))]) +
           std::get<FieldAction>(info.param).name;
}

INSTANTIATE_TEST_SUITE_P(All, LockedField,
                         testing::Combine(testing::Values(FieldKind::textBox, FieldKind::list,
                                                          FieldKind::notes),
                                          testing::ValuesIn(fieldActions)),
                         lockedName);

using FormViewLocked = FormScene;

TEST_F(FormViewLocked, ALockedFieldCanBeReadSelectedAndCopied) {
    open();
    enter(*name, "secret");
    name->setLocked(true);
    EXPECT_TRUE(line(*name)->isReadOnly());
    EXPECT_FALSE(line(*name)->acceptDrops());
    press(Qt::Key_Home);
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(name->selText(), "s");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "secret");
}

TEST_F(FormViewLocked, UnlockingMakesItEditableAgain) {
    open();
    enter(*name, "abc");
    name->setLocked(true);
    name->setLocked(false);
    EXPECT_TRUE(line(*name)->acceptDrops());
    type("x");
    EXPECT_EQ(name->text(), "x");
}

// Middle-click paste needs a selection clipboard, which not every platform has.
TEST_F(FormViewLocked, EditsThatTheLockRefusesGoThroughWithoutIt) {
    open();
    struct Row {
        const char* action;
        const char* result;
    };
    for (const auto& row :
         {Row{"Delete", "art"}, Row{"CutKey", "art"}, Row{"PasteKey", "pastedart"},
          Row{"SlotPaste", "pastedart"}, Row{"SlotClear", ""}, Row{"MethodSetText", "set"},
          Row{"InputMethod", "committedart"}, Row{"Drop", "droppedstart"}}) {
        enter(*name, "start");
        name->select(0, 2);
        QApplication::clipboard()->setText("pasted");
        const auto* action = std::find_if(std::begin(fieldActions), std::end(fieldActions),
                                          [&row](const FieldAction& candidate) {
                                              return std::string(candidate.name) == row.action;
                                          });
        perform(*action, *native(*name));
        EXPECT_EQ(name->text(), row.result) << row.action;
        EXPECT_EQ(line(*name)->text(), row.result) << row.action;
    }
}

} // namespace
} // namespace vkr
