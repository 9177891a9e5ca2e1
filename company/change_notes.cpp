// SPDX-License-Identifier: MIT
#include "company/change_notes.hpp"

#include "company/setting_table.hpp"

#include <algorithm>
#include <iterator>

namespace vkr {

namespace {

bool isLock(const Change& change) {
    return change.setting == setting::lockBasicInfo;
}

// What nobody would take back by itself.
bool followsOnly(const ChangeGroup& group) {
    return std::ranges::all_of(group.changes, [](const Change& change) {
        return change.origin == Origin::derived || isLock(change);
    });
}

ChangeGroup inverse(ChangeGroup group) {
    std::ranges::reverse(group.changes);
    for (Change& change : group.changes)
        std::swap(change.before, change.after);
    return group;
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
}

void ChangeNotes::end() noexcept {
    if (open_.size() > 1) {
        open_.pop_back();
        return;
    }
    const bool whole_ = attempt([&] {
        if (before_) {
            ChangeGroup group = noted(*before_);
            group.name = name_;
            group.at = std::chrono::system_clock::now();
            if (!group.changes.empty())
                add(std::move(group));
        }
    });
    if (!whole_) // for want of memory: no step leads back over what is not known
        forget();
    open_.clear();
    name_.clear();
    before_.reset();
    marks_.clear();
    settings_.clear();
}

void ChangeNotes::forget() {
    done.clear();
    undone.clear();
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
        notes_.mark({*datum_, whole}, mark);
    else
        for (const Change& change : changesBetween(one, other))
            notes_.mark(keyOf(change), mark);
}

void ChangeNotes::mark(const Key& key, const Mark& mark) {
    const auto [found, isNew] = marks_.try_emplace(key, mark);
    if (isNew)
        return;
    found->second.origin = mark.origin;
    found->second.document = mark.document;
}

ChangeGroup ChangeNotes::noted(const RecordSnapshot& before) const {
    const RecordSnapshot after = snapshotOf(*record);
    std::vector<std::pair<int, Change>> found;
    for (Change& change : changesBetween(before, after)) {
        const auto shifted = marks_.find({change.datum, whole});
        const bool isWhole = shifted != marks_.end();
        const auto own = isWhole ? shifted : marks_.find(keyOf(change));
        const Mark mark = own == marks_.end() ? Mark() : own->second;
        if (isWhole && change.element) {
            if (!found.empty() && found.back().second.datum == change.datum)
                continue;
            change.element.reset();
            change.before = *before[static_cast<std::size_t>(change.datum)];
            change.after = *after[static_cast<std::size_t>(change.datum)];
        }
        change.origin = mark.origin;
        change.document = mark.document;
        found.emplace_back(mark.order, std::move(change));
    }
    for (const auto& setting : settings_)
        if (setting.second.before.toText() != setting.second.after.toText())
            found.push_back(setting);
    std::ranges::stable_sort(found, {}, &std::pair<int, Change>::first);
    ChangeGroup group;
    for (auto& [order, change] : found)
        group.changes.push_back(std::move(change));
    return group;
}

void ChangeNotes::writeSetting(Object& held, std::string_view name, const Variant& value) {
    const auto row = std::ranges::find(settingTable, name, &SettingRow::name);
    if (row == std::end(settingTable)) {
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
        if (noted == settings_.end())
            return;
        noted->second.after = held.get(name);
        noted->second.origin = open_.back().origin;
    });
}

// --- groups --------------------------------------------------------------------------------------

void ChangeNotes::add(ChangeGroup group) {
    leadTo(group);
    if (!followsOnly(group)) {
        undone.clear();
        done.push_back(std::move(group));
    } else if (!std::ranges::all_of(group.changes, isLock)) {
        done.push_back(std::move(group)); // goes with the one before it, where there is any
    }
}

void ChangeNotes::leadTo(const ChangeGroup& group) {
    if (!unsaved.empty() && unsaved.back() == inverse(group)) {
        unsaved.pop_back();
        tell(nullptr);
    } else {
        unsaved.push_back(group);
        tell(&unsaved.back());
    }
}

void ChangeNotes::tell(const ChangeGroup* added) const {
    if (told != nullptr && *told)
        ifPossible([&] { (*told)(added); });
}

void ChangeNotes::showPlace(const ChangeGroup& group) {
    const auto first = std::ranges::find_if(group.changes, [](const Change& change) {
        return change.origin != Origin::derived && !isLock(change);
    });
    place = first == group.changes.end() ? std::nullopt : std::optional(*first);
}

std::vector<ChangeGroup>::const_reverse_iterator ChangeNotes::toUndo() const {
    return std::ranges::find_if_not(done.crbegin(), done.crend(), followsOnly);
}

std::optional<std::string> ChangeNotes::undo() {
    const auto last = toUndo();
    if (isOpen() || last == done.crend())
        return std::string();
    const auto first = done.begin() + (last.base() - done.cbegin()) - 1;
    std::vector<ChangeGroup> step(first, done.end());
    std::vector<Change> back;
    for (auto group = step.rbegin(); group != step.rend(); ++group)
        addChanges(back, inverse(*group));
    undone.reserve(undone.size() + 1);
    if (auto refusal = putChanges(*record, back))
        return refusal;
    done.erase(first, done.end());
    for (auto group = step.rbegin(); group != step.rend(); ++group)
        leadTo(inverse(*group));
    showPlace(step.front());
    undone.push_back(std::move(step));
    return std::nullopt;
}

std::optional<std::string> ChangeNotes::redo() {
    if (isOpen() || undone.empty())
        return std::string();
    std::vector<Change> again;
    for (const ChangeGroup& group : undone.back())
        addChanges(again, group);
    if (auto refusal = putChanges(*record, again))
        return refusal;
    const std::vector<ChangeGroup> step = std::move(undone.back());
    undone.pop_back();
    for (const ChangeGroup& group : step) {
        leadTo(group);
        done.push_back(group);
    }
    showPlace(step.front());
    return std::nullopt;
}

std::optional<std::string> ChangeNotes::apply(const ChangeGroup& group) {
    if (isOpen())
        return std::string();
    const RecordSnapshot before = snapshotOf(*record);
    if (auto refusal = putChanges(*record, group.changes))
        return refusal;
    for (const Change& change : group.changes) {
        const int order = nextOrder();
        if (change.setting.empty())
            mark(keyOf(change), {order, change.origin, change.document});
        else
            settings_.emplace_back(order, change);
    }
    ChangeGroup again = noted(before);
    marks_.clear();
    settings_.clear();
    again.name = group.name;
    again.at = group.at;
    showPlace(again);
    if (!again.changes.empty())
        add(std::move(again));
    return std::nullopt;
}

} // namespace vkr
