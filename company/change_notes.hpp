// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_group.hpp"
#include "company/record_snapshot.hpp"
#include "platform/error_trap.hpp"
#include "platform/object.hpp"
#include "record/actions.hpp"

#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vkr {

// What a journal has noted. The settings objects that it hands out write into it, too.
//
// Outside of an action nothing is known of one: no name, no state before, no writes. Within one the
// state before is taken at the first write.
class ChangeNotes {
  public:
    explicit ChangeNotes(std::shared_ptr<iVKR_Company> held) : record(std::move(held)) {}

    // What is taken back at once: a group with what followed from it, or several under a title.
    struct Step {
        std::vector<ChangeGroup> groups;
        std::optional<ChangeGroup> title;

        [[nodiscard]] const ChangeGroup& told() const { return title ? *title : groups.front(); }
    };

    std::shared_ptr<iVKR_Company> record;
    std::vector<Step> done;
    std::vector<Step> undone;
    std::vector<ChangeGroup> unsaved;
    std::optional<Change> place;
    using Listener = std::function<void(const ChangeGroup* added)>;
    Listener unsavedChanged;
    Listener groupsChanged;
    std::function<void(ChangeGroup& back, const ChangeGroup& step)> nameTakenBack;

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
    void beginStep(const std::string& name);
    void endStep();
    [[nodiscard]] const Step* toUndo() const;
    std::optional<std::string> undo();
    std::optional<std::string> redo();
    std::optional<std::string> apply(const ChangeGroup& group);
    void forget(); // what was done and undone

  private:
    // A datum and its element; `whole` stands for all of the datum.
    using Key = std::pair<Datum, int>;
    static constexpr int whole = std::numeric_limits<int>::min();
    struct Mark {
        int order = std::numeric_limits<int>::max();
        // A change without a write has followed from another one.
        std::optional<Origin> origin = Origin::derived;
        std::string document;
    };
    // A series that was moved, or written as a whole.
    struct Whole {
        std::optional<int> periods; // by which it moved; nothing where figures changed, too
        Variant after;
    };

    class Own {
      public:
        explicit Own(ChangeNotes& notes) : notes_(notes.isOpen() ? nullptr : &notes) {
            if (notes_ != nullptr)
                notes_->begin({});
        }
        ~Own() {
            if (notes_ != nullptr)
                notes_->end();
        }
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;

      private:
        ChangeNotes* notes_;
    };
    // Notes where the values come from that a write has changed. It does so also where the write
    // fails half-way.
    class Touch {
      public:
        Touch(ChangeNotes& notes, std::optional<Datum> datum);
        ~Touch() {
            ifPossible([&] { note(); });
        }
        Touch(const Touch&) = delete;
        Touch& operator=(const Touch&) = delete;

      private:
        void note();

        ChangeNotes& notes_;
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
    void noteMove(Datum series, const Variant& before, const Variant& after, const Mark& said);
    void moveMarks(Datum series, int periods);
    [[nodiscard]] Mark markOf(const Key& key) const;
    ChangeGroup noted(const RecordSnapshot& before) const;
    void add(ChangeGroup group);
    // Of the way from what was saved.
    void leadTo(ChangeGroup group);
    void leadBack(const ChangeGroup& group, ChangeGroup back, const ChangeGroup& step);
    static void tell(const Listener& listener, const ChangeGroup* added);
    void showPlace(const ChangeGroup& group);
    // After the record has changed: no step leads back over what is not known for want of memory.
    template <typename Notes>
    void noteDone(const Notes& notes) noexcept;
    void clearWritten();
    void checkInvariants() const;

    bool isJoining_ = false;           // a step was begun
    std::optional<ChangeGroup> title_; // of it, while it has no group yet
    std::vector<Action> open_;
    std::string name_;                     // of the action under way
    std::optional<RecordSnapshot> before_; // its first write
    std::map<Key, Mark> marks_;
    std::map<Datum, Whole> wholes_;
    std::vector<std::pair<int, Change>> settings_; // by the place of the first write
};

} // namespace vkr
