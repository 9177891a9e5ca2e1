// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"
#include "record/actions.hpp"
#include "record/data_list.hpp"
#include "record/ivkr_company.hpp"
#include "record/notice_list.hpp"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vkr {

class ChangeNotes;

// A record that stands between the component and the host's record, passes everything on, and notes
// what becomes another one on the way: whatever the host's record has changed when an action ends,
// also where one datum of it follows another.
//
//     const auto journal = std::make_shared<ChangeJournal>(record);
//     entry.put_objCompany(journal);
//     journal->startOver(); // what loading has suggested is no change
//     entry.historyAsked = [&](HistoryStep step) {
//         const bool back = step == HistoryStep::undo;
//         if (!(back ? journal->canUndo() : journal->canRedo()) ||
//             (back ? journal->undo() : journal->redo()))
//             return false;
//         entry.recordChanged();
//         return true;
//     };
//
// The outermost action is a group; one that has changed nothing is none. A series is noted element
// by element. Where an action of Origin::shifted has moved its figures, the move is noted as one
// change of the whole series, and what was written into it element by element behind that. A group
// that holds nothing but what was worked out, such as a commit leaves behind, belongs to the group
// before it; the settings that a commit writes stay, whatever is taken back, and so does the lock.
//
// What the host's record throws is passed on. The journal itself throws nothing but std::bad_alloc,
// before anything is written. Where memory runs out behind that, there is nothing to undo and to
// redo any more, and what was done last may be missing in unsaved().
class ChangeJournal final : public iVKR_Company, public ActionListener {
  public:
    explicit ChangeJournal(std::shared_ptr<iVKR_Company> record);
    ~ChangeJournal() override;
    ChangeJournal(const ChangeJournal&) = delete;
    ChangeJournal& operator=(const ChangeJournal&) = delete;

    [[nodiscard]] const std::shared_ptr<iVKR_Company>& record() const;

    // --- undo and redo
    [[nodiscard]] bool canUndo() const;
    [[nodiscard]] bool canRedo() const;
    // The group that is next, or one with the name of a step of several; null where there is none.
    [[nodiscard]] const ChangeGroup* toUndo() const;
    [[nodiscard]] const ChangeGroup* toRedo() const;
    // A group whole or not at all. No value where it is done. A value where it is refused: the
    // record's words, which may be empty; record and journal are as before then. Nothing to do, and
    // a call in the middle of an action, are refusals.
    [[nodiscard]] std::optional<std::string> undo();
    [[nodiscard]] std::optional<std::string> redo();
    // The change that the last undo, redo or apply is about, where the focus belongs.
    [[nodiscard]] const std::optional<Change>& place() const;
    // Does what a group says, such as one that was found after a crash, as a step to undo.
    [[nodiscard]] std::optional<std::string> apply(const ChangeGroup& group);

    // What is applied in between is one step to undo, called like this, and stays group by group.
    void beginStep(const std::string& name);
    void endStep();

    // Whatever is in the record now is how it began: nothing to undo, and all saved.
    void startOver();

    // --- what was done
    // Since the beginning, without what was taken back.
    [[nodiscard]] std::vector<ChangeGroup> groups() const;
    // Called after each change of groups(). `added` is the group that is the last one now; null
    // where others than that one are not what they were.
    using GroupsChanged = std::function<void(const ChangeGroup* added)>;
    void onGroupsChanged(GroupsChanged call);
    // What leads from the record as it was saved to the record as it is, step by step. A group that
    // was saved and taken back since is in there the other way round.
    [[nodiscard]] const std::vector<ChangeGroup>& unsaved() const;
    void setSavePoint(); // the record was saved as it is; undo goes back beyond it
    // Called after each change of unsaved(), but not by setSavePoint and startOver. `added` is the
    // group that is the last one now; null where the last one has gone.
    using UnsavedChanged = std::function<void(const ChangeGroup* added)>;
    void onUnsavedChanged(UnsavedChanged call);
    // Called when a saved step is taken back, for each group `back` that leads back and becomes
    // part of unsaved(): gives it its name and its figures' origins.
    using NameTakenBack = std::function<void(ChangeGroup& back, const ChangeGroup& step)>;
    void onTakenBack(NameTakenBack call);

    // --- of an action, and of the record
    void beginAction(const Action& action) override;
    void endAction() noexcept override;

#define VKR_PASSED_ON(kind, name, title, unit, key, place)                                         \
    [[nodiscard]] datum_kind::kind::Value get_##name() const override {                            \
        return record()->get_##name();                                                             \
    }                                                                                              \
    void put_##name(datum_kind::kind::Argument value) override;
    VKR_DATA(VKR_PASSED_ON)
#undef VKR_PASSED_ON
    [[nodiscard]] std::shared_ptr<Object> get_Settings() const override;
    [[nodiscard]] std::shared_ptr<Object> get_ReportingPeriod() const override;
    void put_QuarterlyFlag(const Variant& value) override;
#define VKR_DECLARED_CALL(name) Variant name(std::int16_t value) override;
#define VKR_DECLARED_READ(name) [[nodiscard]] Variant get_##name() const override;
    VKR_NOTICES(VKR_DECLARED_CALL, VKR_DECLARED_READ)
    VKR_DECLARED_READ(SettingsApply)
#undef VKR_DECLARED_CALL
#undef VKR_DECLARED_READ

  private:
    std::shared_ptr<ChangeNotes> notes_;
};

} // namespace vkr
