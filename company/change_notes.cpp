// SPDX-License-Identifier: MIT
#include "company/change_notes.hpp"

#include "company/period_moves.hpp"
#include "company/taken_back.hpp"
#include "record/setting_table.hpp"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

namespace vkr {

namespace {

bool isLock(const Change& change) {
    return change.setting == setting::lockBasicInfo;
}

// A group that people do not undo on its own.
bool followsOnly(const ChangeGroup& group) {
    return std::ranges::all_of(group.changes, [](const Change& change) {
        return change.origin == Origin::derived || isLock(change);
    });
}

Change changeOf(Datum datum, std::optional<int> element, Variant before, Variant after) {
    Change change;
    static_cast<DatumChange&>(change) = {datum, element, std::move(before), std::move(after)};
    return change;
}

// Of the two dates of the quarters a record may let one follow the other until it is stated: where
// a group changes one of them alone the other stays.
std::vector<Change> withOtherDate(const iVKR_Company& record, std::vector<Change> changes) {
    const auto speakOf = [&](Datum datum) {
        return std::ranges::any_of(changes, [&](const Change& change) {
            return change.setting.empty() && change.datum == datum;
        });
    };
    const bool isOfLast = speakOf(Datum::LastQDate);
    if (isOfLast == speakOf(Datum::LastQDateForGrid))
        return changes;
    const Datum other = isOfLast ? Datum::LastQDateForGrid : Datum::LastQDate;
    ifPossible([&] {
        const Variant held = readDatum(record, other);
        if (held == readDatum(record, isOfLast ? Datum::LastQDate : Datum::LastQDateForGrid))
            changes.push_back(changeOf(other, std::nullopt, held, held));
    });
    return changes;
}

// Without the lock, which stays as it is.
void addChanges(std::vector<Change>& all, const ChangeGroup& group) {
    std::ranges::copy_if(group.changes, std::back_inserter(all),
                         [](const Change& change) { return !isLock(change); });
}

} // namespace

// --- notes ---------------------------------------------------------------------------------------

void ChangeNotes::begin(const Action& action) {
    open_.push_back(action);
    if (name_.empty())
        name_ = action.name;
    checkInvariants();
}

void ChangeNotes::end() noexcept {
    if (open_.size() > 1) {
        open_.pop_back();
        return;
    }
    noteDone([&] {
        if (before_) {
            ChangeGroup group = noted(*before_);
            group.name = name_;
            group.at = std::chrono::system_clock::now();
            if (!group.changes.empty())
                add(std::move(group));
        }
    });
    open_.clear();
    name_.clear();
    before_.reset();
    clearWritten();
    checkInvariants();
}

template <typename Notes>
void ChangeNotes::noteDone(const Notes& notes) noexcept {
    if (attempt(notes))
        return;
    forget();
    clearWritten();
}

void ChangeNotes::clearWritten() {
    marks_.clear();
    wholes_.clear();
    settings_.clear();
}

void ChangeNotes::forget() {
    done.clear();
    undone.clear();
    tell(groupsChanged, nullptr);
}

void ChangeNotes::checkInvariants() const {
    assert(isOpen() || (!before_ && name_.empty()));
    assert(before_ || (marks_.empty() && wholes_.empty() && settings_.empty()));
}

ChangeNotes::Touch::Touch(ChangeNotes& notes, std::optional<Datum> datum)
    : notes_(notes), datum_(datum) {
    if (!notes.before_)
        notes.before_ = snapshotOf(*notes.record);
    if (datum)
        ifPossible([&] { before_ = readDatum(*notes.record, *datum); });
}

void ChangeNotes::Touch::note() {
    const Action& action = notes_.open_.back();
    const Mark mark{notes_.nextOrder(), action.origin, action.document};
    if (!datum_ || !before_)
        return;
    const Variant after = readDatum(*notes_.record, *datum_);
    if (isSame(*before_, after))
        return;
    RecordSnapshot one;
    RecordSnapshot other;
    one[static_cast<std::size_t>(*datum_)] = *before_;
    other[static_cast<std::size_t>(*datum_)] = after;
    if (action.origin == Origin::shifted)
        notes_.noteMove(*datum_, *before_, after, mark);
    else
        for (const Change& change : changesBetween(one, other))
            notes_.mark(keyOf(change), mark);
}

void ChangeNotes::noteMove(Datum series, const Variant& before, const Variant& after,
                           const Mark& said) {
    mark({series, whole}, said);
    if (!after.isArray())
        return;
    const auto periods = periodsMoved(before, after);
    if (periods)
        moveMarks(series, *periods);
    const auto [found, isFirst] = wholes_.try_emplace(series, Whole{periods, after});
    if (isFirst)
        return;
    Whole& noted = found->second;
    noted.periods =
        noted.periods && periods ? std::optional(*noted.periods + *periods) : std::nullopt;
    noted.after = after;
}

// What was written before goes with its figure.
void ChangeNotes::moveMarks(Datum series, int periods) {
    std::map<Key, Mark> moved;
    for (auto one = marks_.begin(); one != marks_.end();) {
        const auto [datum, element] = one->first;
        if (datum != series || element == whole) {
            ++one;
            continue;
        }
        moved.emplace(Key(datum, element + periods), one->second);
        one = marks_.erase(one);
    }
    marks_.merge(moved);
}

ChangeNotes::Mark ChangeNotes::markOf(const Key& key) const {
    const auto found = marks_.find(key);
    return found == marks_.end() ? Mark() : found->second;
}

void ChangeNotes::mark(const Key& key, const Mark& mark) {
    const auto [found, isNew] = marks_.try_emplace(key, mark);
    if (!isNew)
        found->second = {found->second.order, mark.origin, mark.document};
}

ChangeGroup ChangeNotes::noted(const RecordSnapshot& before) const {
    const RecordSnapshot after = snapshotOf(*record);
    RecordSnapshot from = before;
    std::vector<std::pair<int, Change>> found;
    const auto addNoted = [&](Change change, const Mark& said, int first) {
        change.origin = said.origin;
        change.document = said.document;
        found.emplace_back(std::max(said.order, first), std::move(change));
    };
    std::map<Datum, int> moves; // what was written into a moved series comes behind its move
    for (const auto& [datum, written] : wholes_) {
        auto& held = from[static_cast<std::size_t>(datum)];
        const auto& now = after[static_cast<std::size_t>(datum)];
        if (!held || !now || isSame(*held, *now))
            continue;
        Variant reached = written.periods ? movedOn(*held, *written.periods) : written.after;
        const Mark move = markOf({datum, whole});
        if (!isSame(*held, reached))
            addNoted(changeOf(datum, std::nullopt, *held, reached), move, 0);
        moves[datum] = move.order;
        held = std::move(reached);
    }
    for (Change& change : changesBetween(from, after)) {
        const auto move = moves.find(change.datum);
        const Mark said = markOf(keyOf(change));
        addNoted(std::move(change), said, move == moves.end() ? 0 : move->second);
    }
    for (const auto& setting : settings_)
        if (setting.second.before.toText() != setting.second.after.toText())
            found.push_back(setting);
    std::ranges::stable_sort(found, {}, &std::pair<int, Change>::first);
    ChangeGroup group;
    for (auto& [order, change] : found)
        group.changes.push_back(std::move(change));
    group.counted = countedFrom(before, after, group.changes);
    return group;
}

void ChangeNotes::writeSetting(Object& held, std::string_view name, const Variant& value) {
    const SettingRow* const row = settingNamed(name);
    if (row == nullptr) {
        held.put(name, value);
        return;
    }
    written(std::nullopt, [&] {
        Variant before;
        const bool isKnown = attempt([&] { before = held.get(name); });
        held.put(name, value);
        auto noted = std::ranges::find(settings_, row->name,
                                       [](const auto& one) { return one.second.setting; });
        if (noted == settings_.end() && isKnown) {
            Change change;
            change.setting = row->name;
            change.before = before;
            noted = settings_.emplace(noted, nextOrder(), std::move(change));
        }
        if (noted != settings_.end()) {
            noted->second.after = held.get(name);
            noted->second.origin = open_.back().origin;
        }
    });
}

// --- groups --------------------------------------------------------------------------------------

void ChangeNotes::add(ChangeGroup group) {
    leadTo(group);
    const bool follows = followsOnly(group);
    if (!follows)
        undone.clear();
    else // how figures are shown is settled by a commit, whatever was done before it
        std::erase_if(group.changes, [](const Change& change) { return !change.setting.empty(); });
    if (group.changes.empty())
        return;
    // What a commit works out goes with the step before, where there is any.
    if (!title_ && (isJoining_ || follows) && !done.empty())
        done.back().groups.push_back(std::move(group));
    else
        done.push_back({{std::move(group)}, std::exchange(title_, std::nullopt)});
    tell(groupsChanged, &done.back().groups.back());
}

void ChangeNotes::leadTo(ChangeGroup group) {
    if (!unsaved.empty() && takesBack(unsaved.back(), group)) {
        unsaved.pop_back();
        return tell(unsavedChanged, nullptr);
    }
    unsaved.push_back(std::move(group));
    tell(unsavedChanged, &unsaved.back());
}

void ChangeNotes::leadBack(const ChangeGroup& group, ChangeGroup back, const ChangeGroup& step) {
    if (!unsaved.empty() && unsaved.back() == group) {
        unsaved.pop_back();
        return tell(unsavedChanged, nullptr);
    }
    if (nameTakenBack)
        ifPossible([&] { nameTakenBack(back, step); });
    unsaved.push_back(std::move(back));
    tell(unsavedChanged, &unsaved.back());
}

void ChangeNotes::tell(const Listener& listener, const ChangeGroup* added) {
    if (listener)
        ifPossible([&] { listener(added); });
}

void ChangeNotes::showPlace(const ChangeGroup& group) {
    const auto first = std::ranges::find_if(group.changes, [](const Change& change) {
        return change.origin != Origin::derived && !isLock(change);
    });
    place = first == group.changes.end() ? std::nullopt : std::optional(*first);
}

void ChangeNotes::beginStep(const std::string& name) {
    isJoining_ = true;
    title_ = ChangeGroup{name, std::chrono::system_clock::now(), {}};
}

void ChangeNotes::endStep() {
    isJoining_ = false;
    title_.reset();
}

const ChangeNotes::Step* ChangeNotes::toUndo() const {
    const bool hasStep = !done.empty() && (done.back().title ||
                                           !std::ranges::all_of(done.back().groups, followsOnly));
    return hasStep ? &done.back() : nullptr;
}

std::optional<std::string> ChangeNotes::undo() {
    if (isOpen() || toUndo() == nullptr)
        return std::string();
    const std::vector<ChangeGroup>& groups = done.back().groups;
    std::vector<Change> back;
    // All that needs memory comes before the record changes.
    std::vector<ChangeGroup> ways;
    for (auto group = groups.rbegin(); group != groups.rend(); ++group) {
        addChanges(back, inverse(*group));
        ways.push_back(takenBack(*group));
    }
    unsaved.reserve(unsaved.size() + groups.size());
    undone.reserve(undone.size() + 1);
    if (auto refusal = putChanges(*record, back))
        return refusal;
    noteDone([&] {
        Step step = std::move(done.back());
        done.pop_back();
        tell(groupsChanged, nullptr);
        auto way = ways.begin();
        for (auto group = step.groups.rbegin(); group != step.groups.rend(); ++group)
            leadBack(*group, std::move(*way++), step.told());
        showPlace(step.groups.front());
        undone.push_back(std::move(step));
    });
    return std::nullopt;
}

std::optional<std::string> ChangeNotes::redo() {
    if (isOpen() || undone.empty())
        return std::string();
    std::vector<Change> again;
    for (const ChangeGroup& group : undone.back().groups)
        addChanges(again, group);
    std::vector<ChangeGroup> ways = undone.back().groups;
    unsaved.reserve(unsaved.size() + ways.size());
    done.reserve(done.size() + 1);
    std::vector<ChangeGroup> shown;
    shown.reserve(ways.size());
    if (auto refusal = putChanges(*record, again))
        return refusal;
    noteDone([&] {
        Step step = std::move(undone.back());
        undone.pop_back();
        done.push_back({std::move(shown), std::move(step.title)});
        for (std::size_t i = 0; i < ways.size(); ++i) {
            leadTo(std::move(ways[i]));
            done.back().groups.push_back(std::move(step.groups[i]));
            tell(groupsChanged, &done.back().groups.back());
        }
        showPlace(done.back().groups.front());
    });
    return std::nullopt;
}

std::optional<std::string> ChangeNotes::apply(const ChangeGroup& group) {
    if (isOpen())
        return std::string();
    const RecordSnapshot before = snapshotOf(*record);
    if (auto refusal = putChanges(*record, withOtherDate(*record, group.changes)))
        return refusal;
    noteDone([&] {
        for (const Change& change : group.changes) {
            const int order = nextOrder();
            if (change.after.isArray())
                wholes_.insert_or_assign(change.datum, Whole{std::nullopt, change.after});
            if (change.setting.empty())
                mark(keyOf(change), {order, change.origin, change.document});
            else
                settings_.emplace_back(order, change);
        }
        ChangeGroup again = noted(before);
        clearWritten(); // before the listeners, who may write
        again.name = group.name;
        again.at = group.at;
        showPlace(again);
        if (!again.changes.empty())
            add(std::move(again));
    });
    checkInvariants();
    return std::nullopt;
}

} // namespace vkr
