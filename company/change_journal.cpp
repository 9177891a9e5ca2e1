// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"

#include "company/change_notes.hpp"

#include <utility>

namespace vkr {

// --- the settings --------------------------------------------------------------------------------

namespace {

// An object of the record that writes through the journal.
class NotedObject final : public Object {
  public:
    NotedObject(std::shared_ptr<ChangeNotes> notes, std::shared_ptr<Object> held)
        : notes_(std::move(notes)), held_(std::move(held)) {}

    [[nodiscard]] Variant get(std::string_view name) const override { return held_->get(name); }
    void put(std::string_view name, const Variant& value) override {
        notes_->writeSetting(*held_, name, value);
    }

  private:
    std::shared_ptr<ChangeNotes> notes_;
    std::shared_ptr<Object> held_;
};

std::shared_ptr<Object> notedObject(const std::shared_ptr<ChangeNotes>& notes,
                                    std::shared_ptr<Object> held) {
    if (held == nullptr)
        return nullptr;
    return std::make_shared<NotedObject>(notes, std::move(held));
}

} // namespace

std::shared_ptr<Object> ChangeJournal::get_Settings() const {
    return notedObject(notes_, record()->get_Settings());
}
std::shared_ptr<Object> ChangeJournal::get_ReportingPeriod() const {
    return notedObject(notes_, record()->get_ReportingPeriod());
}

// --- the public face -----------------------------------------------------------------------------

ChangeJournal::ChangeJournal(std::shared_ptr<iVKR_Company> record)
    : notes_(std::make_shared<ChangeNotes>(std::move(record))) {}

// A settings object that was handed out may note on; nobody hears of it any more.
ChangeJournal::~ChangeJournal() {
    notes_->unsavedChanged = nullptr;
    notes_->groupsChanged = nullptr;
}

void ChangeJournal::onUnsavedChanged(UnsavedChanged call) {
    notes_->unsavedChanged = std::move(call);
}
void ChangeJournal::onGroupsChanged(GroupsChanged call) {
    notes_->groupsChanged = std::move(call);
}
void ChangeJournal::onTakenBack(NameTakenBack call) {
    notes_->nameTakenBack = std::move(call);
}

const std::shared_ptr<iVKR_Company>& ChangeJournal::record() const {
    return notes_->record;
}

bool ChangeJournal::canUndo() const {
    return toUndo() != nullptr;
}
bool ChangeJournal::canRedo() const {
    return toRedo() != nullptr;
}
const ChangeGroup* ChangeJournal::toUndo() const {
    const auto* last = notes_->toUndo();
    return last == nullptr ? nullptr : &last->told();
}
const ChangeGroup* ChangeJournal::toRedo() const {
    return notes_->undone.empty() ? nullptr : &notes_->undone.back().told();
}

std::optional<std::string> ChangeJournal::undo() {
    return notes_->undo();
}
std::optional<std::string> ChangeJournal::redo() {
    return notes_->redo();
}
const std::optional<Change>& ChangeJournal::place() const {
    return notes_->place;
}
std::optional<std::string> ChangeJournal::apply(const ChangeGroup& group) {
    return notes_->apply(group);
}
void ChangeJournal::beginStep(const std::string& name) {
    notes_->beginStep(name);
}
void ChangeJournal::endStep() {
    notes_->endStep();
}

void ChangeJournal::startOver() {
    notes_->forget();
    notes_->unsaved.clear();
    notes_->place.reset();
}

std::vector<ChangeGroup> ChangeJournal::groups() const {
    std::vector<ChangeGroup> all;
    for (const ChangeNotes::Step& step : notes_->done)
        all.insert(all.end(), step.groups.begin(), step.groups.end());
    return all;
}
const std::vector<ChangeGroup>& ChangeJournal::unsaved() const {
    return notes_->unsaved;
}
void ChangeJournal::setSavePoint() {
    notes_->unsaved.clear();
}

void ChangeJournal::beginAction(const Action& action) {
    notes_->begin(action);
}
void ChangeJournal::endAction() noexcept {
    notes_->end();
}

// --- what is passed on ---------------------------------------------------------------------------

#define VKR_NOTED(kind, name, title, unit, key, place)                                             \
    void ChangeJournal::put_##name(datum_kind::kind::Argument value) {                             \
        notes_->written(Datum::name, [&] { record()->put_##name(value); });                        \
    }
VKR_DATA(VKR_NOTED)
#undef VKR_NOTED

void ChangeJournal::put_QuarterlyFlag(const Variant& value) {
    notes_->written(std::nullopt, [&] { record()->put_QuarterlyFlag(value); });
}

// A record may change whatever it likes in these.
#define VKR_NOTED_CALL(name)                                                                       \
    Variant ChangeJournal::name(std::int16_t value) {                                              \
        return notes_->written(std::nullopt, [&] { return record()->name(value); });               \
    }
#define VKR_NOTED_READ(name)                                                                       \
    Variant ChangeJournal::get_##name() const {                                                    \
        return notes_->written(std::nullopt, [&] { return record()->get_##name(); });              \
    }
VKR_NOTICES(VKR_NOTED_CALL, VKR_NOTED_READ)
VKR_NOTED_READ(SettingsApply)
#undef VKR_NOTED_CALL
#undef VKR_NOTED_READ

} // namespace vkr
