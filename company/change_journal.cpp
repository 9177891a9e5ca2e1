// SPDX-License-Identifier: MIT
#include "company/change_journal.hpp"

#include "company/record_snapshot.hpp"
#include "company/setting_table.hpp"
#include "platform/error_trap.hpp"

#include <algorithm>
#include <limits>
#include <map>
#include <utility>

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

// What is noted. The settings objects that were handed out know of it, too.
class ChangeJournal::Noting : public std::enable_shared_from_this<Noting> {
  public:
    explicit Noting(std::shared_ptr<iVKR_Company> held) : record(std::move(held)) {}

    std::shared_ptr<iVKR_Company> record;
    std::vector<ChangeGroup> done;
    std::vector<std::vector<ChangeGroup>> undone; // each a group with what followed from it
    std::vector<ChangeGroup> unsaved;
    std::optional<Change> place;
    const std::function<void(const ChangeGroup*)>* told = nullptr;

    [[nodiscard]] bool isOpen() const { return !open_.empty(); }
    void begin(const Action& action);
    void end() noexcept;
    // One write of the record, within an action of its own where none was begun.
    template <typename Write>
    auto written(std::optional<Datum> datum, Write&& write) {
        const Own own(*this);
        const Touch touch(*this, datum);
        return std::forward<Write>(write)();
    }
    void writeSetting(Object& held, std::string_view name, const Variant& value);
    [[nodiscard]] auto toUndo() const {
        return std::ranges::find_if_not(done.crbegin(), done.crend(), followsOnly);
    }
    std::optional<std::string> undo();
    std::optional<std::string> redo();
    std::optional<std::string> apply(const ChangeGroup& group);

  private:
    // A datum and its element; one below all others is the whole datum.
    using Key = std::pair<Datum, int>;
    static constexpr int whole = std::numeric_limits<int>::min();
    struct Mark {
        int order = std::numeric_limits<int>::max();
        Origin origin = Origin::derived; // what nobody wrote follows from something else
        std::string document;
    };

    class Own {
      public:
        explicit Own(Noting& noting) : noting_(noting.isOpen() ? nullptr : &noting) {
            if (noting_ != nullptr)
                noting_->begin({});
        }
        ~Own() {
            if (noting_ != nullptr)
                noting_->end();
        }
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;

      private:
        Noting* noting_;
    };
    // Says of what a write has changed where it comes from, also where it fails half-way.
    class Touch {
      public:
        Touch(Noting& noting, std::optional<Datum> datum);
        ~Touch() {
            ifPossible([&] { note(); });
        }
        Touch(const Touch&) = delete;
        Touch& operator=(const Touch&) = delete;

      private:
        void note();

        Noting& noting_;
        std::optional<Datum> datum_;
        std::optional<Variant> before_;
    };

    static Key keyOf(const Change& change) {
        return {change.datum, change.element.value_or(whole)};
    }
    [[nodiscard]] int nextOrder() const {
        return static_cast<int>(marks_.size() + settings_.size());
    }
    void mark(const Key& key, const Mark& mark);
    ChangeGroup noted(const RecordSnapshot& before) const;
    void add(ChangeGroup group);
    void leadTo(const ChangeGroup& group); // of the way from what was saved
    void tell(const ChangeGroup* added) const;
    void showPlace(const ChangeGroup& group);
    void forget();

    std::vector<Action> open_;
    std::string name_; // of the action under way
    std::optional<RecordSnapshot> before_;
    std::map<Key, Mark> marks_;
    std::vector<std::pair<int, Change>> settings_; // by the place of the first write
};

// --- noting --------------------------------------------------------------------------------------

void ChangeJournal::Noting::begin(const Action& action) {
    open_.push_back(action);
    if (name_.empty())
        name_ = action.name;
}

void ChangeJournal::Noting::end() noexcept {
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

void ChangeJournal::Noting::forget() {
    done.clear();
    undone.clear();
}

ChangeJournal::Noting::Touch::Touch(Noting& noting, std::optional<Datum> datum)
    : noting_(noting), datum_(datum) {
    if (!noting.before_)
        noting.before_ = snapshotOf(*noting.record);
    if (datum)
        ifPossible([&] { before_ = readDatum(*noting.record, *datum); });
}

void ChangeJournal::Noting::Touch::note() {
    const Action& action = noting_.open_.back();
    const Mark mark{noting_.nextOrder(), action.origin, action.document};
    if (!datum_ || !before_)
        return;
    const Variant after = readDatum(*noting_.record, *datum_);
    if (isSame(*before_, after))
        return;
    RecordSnapshot one;
    RecordSnapshot other;
    one[static_cast<std::size_t>(*datum_)] = *before_;
    other[static_cast<std::size_t>(*datum_)] = after;
    if (action.origin == Origin::shifted)
        noting_.mark({*datum_, whole}, mark);
    else
        for (const Change& change : changesBetween(one, other))
            noting_.mark(keyOf(change), mark);
}

void ChangeJournal::Noting::mark(const Key& key, const Mark& mark) {
    const auto [found, isNew] = marks_.try_emplace(key, mark);
    if (isNew)
        return;
    found->second.origin = mark.origin;
    found->second.document = mark.document;
}

ChangeGroup ChangeJournal::Noting::noted(const RecordSnapshot& before) const {
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

void ChangeJournal::Noting::writeSetting(Object& held, std::string_view name,
                                         const Variant& value) {
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

void ChangeJournal::Noting::add(ChangeGroup group) {
    leadTo(group);
    if (!followsOnly(group)) {
        undone.clear();
        done.push_back(std::move(group));
    } else if (!std::ranges::all_of(group.changes, isLock)) {
        done.push_back(std::move(group)); // goes with the one before it, where there is any
    }
}

void ChangeJournal::Noting::leadTo(const ChangeGroup& group) {
    if (!unsaved.empty() && unsaved.back() == inverse(group)) {
        unsaved.pop_back();
        tell(nullptr);
    } else {
        unsaved.push_back(group);
        tell(&unsaved.back());
    }
}

void ChangeJournal::Noting::tell(const ChangeGroup* added) const {
    if (told != nullptr && *told)
        ifPossible([&] { (*told)(added); });
}

void ChangeJournal::Noting::showPlace(const ChangeGroup& group) {
    const auto first = std::ranges::find_if(group.changes, [](const Change& change) {
        return change.origin != Origin::derived && !isLock(change);
    });
    place = first == group.changes.end() ? std::nullopt : std::optional(*first);
}

std::optional<std::string> ChangeJournal::Noting::undo() {
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

std::optional<std::string> ChangeJournal::Noting::redo() {
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

std::optional<std::string> ChangeJournal::Noting::apply(const ChangeGroup& group) {
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

// --- the settings --------------------------------------------------------------------------------

namespace {

// An object of the record that writes through the journal.
template <typename Noting>
class NotedObject final : public Object {
  public:
    NotedObject(std::shared_ptr<Noting> noting, std::shared_ptr<Object> held)
        : noting_(std::move(noting)), held_(std::move(held)) {}

    [[nodiscard]] Variant get(std::string_view name) const override { return held_->get(name); }
    void put(std::string_view name, const Variant& value) override {
        noting_->writeSetting(*held_, name, value);
    }

  private:
    std::shared_ptr<Noting> noting_;
    std::shared_ptr<Object> held_;
};

template <typename Noting>
std::shared_ptr<Object> notedObject(const std::shared_ptr<Noting>& noting,
                                    std::shared_ptr<Object> held) {
    if (held == nullptr)
        return nullptr;
    return std::make_shared<NotedObject<Noting>>(noting, std::move(held));
}

} // namespace

std::shared_ptr<Object> ChangeJournal::get_Settings() const {
    return notedObject(noting_, record()->get_Settings());
}
std::shared_ptr<Object> ChangeJournal::get_ReportingPeriod() const {
    return notedObject(noting_, record()->get_ReportingPeriod());
}

// --- the public face -----------------------------------------------------------------------------

ChangeJournal::ChangeJournal(std::shared_ptr<iVKR_Company> record)
    : noting_(std::make_shared<Noting>(std::move(record))) {
    noting_->told = &unsavedChanged;
}

ChangeJournal::~ChangeJournal() {
    noting_->told = nullptr;
}

const std::shared_ptr<iVKR_Company>& ChangeJournal::record() const {
    return noting_->record;
}

bool ChangeJournal::canUndo() const {
    return toUndo() != nullptr;
}
bool ChangeJournal::canRedo() const {
    return toRedo() != nullptr;
}
const ChangeGroup* ChangeJournal::toUndo() const {
    const auto last = noting_->toUndo();
    return last == noting_->done.crend() ? nullptr : &*last;
}
const ChangeGroup* ChangeJournal::toRedo() const {
    return noting_->undone.empty() ? nullptr : &noting_->undone.back().front();
}

std::optional<std::string> ChangeJournal::undo() {
    return noting_->undo();
}
std::optional<std::string> ChangeJournal::redo() {
    return noting_->redo();
}
const std::optional<Change>& ChangeJournal::place() const {
    return noting_->place;
}
std::optional<std::string> ChangeJournal::apply(const ChangeGroup& group) {
    return noting_->apply(group);
}

void ChangeJournal::startOver() {
    noting_->done.clear();
    noting_->undone.clear();
    noting_->unsaved.clear();
    noting_->place.reset();
}

std::vector<ChangeGroup> ChangeJournal::groups() const {
    return noting_->done;
}
const std::vector<ChangeGroup>& ChangeJournal::unsaved() const {
    return noting_->unsaved;
}
void ChangeJournal::setSavePoint() {
    noting_->unsaved.clear();
}

void ChangeJournal::beginAction(const Action& action) {
    noting_->begin(action);
}
void ChangeJournal::endAction() noexcept {
    noting_->end();
}

// --- what is passed on ---------------------------------------------------------------------------

#define VKR_NOTED(kind, name, unit, key, place)                                                    \
    void ChangeJournal::put_##name(datum_kind::kind::Argument value) {                             \
        noting_->written(Datum::name, [&] { record()->put_##name(value); });                       \
    }
VKR_DATA(VKR_NOTED)
#undef VKR_NOTED

void ChangeJournal::put_QuarterlyFlag(const Variant& value) {
    noting_->written(std::nullopt, [&] { record()->put_QuarterlyFlag(value); });
}

// A record may change whatever it likes in these.
#define VKR_NOTED_CALL(name)                                                                       \
    Variant ChangeJournal::name(std::int16_t value) {                                              \
        return noting_->written(std::nullopt, [&] { return record()->name(value); });              \
    }
#define VKR_NOTED_READ(name)                                                                       \
    Variant ChangeJournal::name() const {                                                          \
        return noting_->written(std::nullopt, [&] { return record()->name(); });                   \
    }
VKR_NOTED_CALL(BeginYearShift)
VKR_NOTED_CALL(YearShiftState)
VKR_NOTED_CALL(EndYearShift)
VKR_NOTED_CALL(YearShiftUnit)
VKR_NOTED_READ(get_YearShiftFirst)
VKR_NOTED_READ(get_YearShiftLast)
VKR_NOTED_READ(get_YearShiftCount)
VKR_NOTED_READ(get_ReportingPeriodEnd)
VKR_NOTED_READ(get_YearShiftPrices)
VKR_NOTED_READ(get_YearShiftEarnings)
VKR_NOTED_READ(get_YearShiftDividends)
VKR_NOTED_READ(get_YearShiftShares)
VKR_NOTED_READ(get_SettingsApply)
#undef VKR_NOTED_CALL
#undef VKR_NOTED_READ

} // namespace vkr
