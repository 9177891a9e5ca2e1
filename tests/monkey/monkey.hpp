// SPDX-License-Identifier: MIT
#pragma once

#include "company/change_journal.hpp"
#include "company/kept_figures.hpp"
#include "tests/support/entry_scene.hpp"
#include "tests/support/scripted_record.hpp"

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vkr::test {

// A scene for the monkey: its record fails on demand, and its host reacts to events by calls of its
// own. As the host does it holds the record by a journal, and keeps figures from being worked out
// over. A printed sequence is pasted behind
//
//     MonkeyScene scene;
//
class MonkeyScene final : public EntryScene, private VKRDataEntryEvents {
  public:
    MonkeyScene();

    std::shared_ptr<ScriptedRecord> record; // the one that is held; null at first
    bool hostCalled = false;                // by an event, since it was last set to false
    std::string broken;                     // what an act has found to be broken

    // Everything that a record can hold, by its number; its series end `missing` elements early.
    void loadRandom(unsigned number, int missing = 0);
    void load(const std::shared_ptr<ScriptedRecord>& loaded);
    void loadNothing(); // the component makes a record
    void fail(std::string_view operation);
    void repair(); // nothing fails any more
    // What the host does when it hears of anything, from now on: see the .cpp.
    void react(int how) { reaction_ = how; }

    void fill(std::string_view id, std::string_view keys); // shows it, and types over its text
    // These show what they are done with as well.
    void pick(std::string_view id, int number);
    void scroll(std::string_view id, int value);
    void scrollPages(std::string_view id, int pages);
    void spin(int steps);
    void drag(std::string_view from, std::string_view to);
    void pasteNext(int choice);
    void withoutLocalizers();
    void withLocalizers() { registerLocalizers(desktop.factory()); }
    void restore(std::string_view property, int value); // from a saved set with this value changed
    void fillLists(int entries);
    void useMarks(int language);
    void scrollMouse(std::int16_t key);
    void step(HistoryStep asked) { entry->step(asked); } // by the host's menu
    void commit();                                       // and keeps what is to be kept
    void split(int number);              // of all that was before the day of the last quarter
    void import(unsigned number);        // the figures of another company, from its tables
    void importPeriods(unsigned number); // as of filings: later years and quarters, and figures
    void lookOver();                     // findings, as marks at their fields
    void walkBackAndForth();             // all that was done is taken back, and done again
    void save();                         // what was done since is kept as on a disk
    void endAndRestore();                // the next program finds it there
    [[nodiscard]] bool isLocked() const;

  private:
    void TabChange(TABObject) override { answer(1); }
    void MoreHelp(std::int16_t) override { answer(2); }
    void Assistant(std::int16_t, const Variant&) override { answer(2); }
    void UnloadRequest(UnloadModeType) override { answer(4); }
    void answer(int event);
    void begin();
    void setSavePoint();
    [[nodiscard]] bool isWatched() const;
    void expectTheWayFromSaved(const char* invariant);
    std::shared_ptr<iVKR_Company> hold(const std::shared_ptr<ScriptedRecord>& loaded);
    bool takeStep(HistoryStep asked);
    void expect(bool holds, const char* invariant, const std::string& particulars);
    void expectSame(const CompanyRecord& wanted, const char* invariant);
    void change(const std::vector<DatumChange>& changes, const Action& action);

    std::shared_ptr<ChangeJournal> journal_;
    std::shared_ptr<KeptFigures> kept_;
    std::shared_ptr<const CompanyRecord> beginning_; // of the journal
    std::shared_ptr<const CompanyRecord> saved_;
    std::vector<ChangeGroup> onDisk_;  // what is not saved
    std::vector<ChangeGroup> settled_; // what was saved of settings
    bool isAllNoted_ = true;           // no reading has failed since
    int reaction_ = 0;
    bool answering_ = false;
    unsigned loads_ = 0;
};

// One event, as data: an act and what it is done with.
struct MonkeyStep {
    std::size_t act = 0;
    std::string text;
    std::string second;
    int number = 0;

    [[nodiscard]] std::string code() const; // a statement
};

struct MonkeyRun {
    std::vector<MonkeyStep> steps; // up to the one that broke something, where one did
    std::string failure;           // "" when every invariant held
};

// Plays a random sequence; the same seed plays the same one. A step that nobody could take at that
// moment is none of the `events`. `told` hears of each step beforehand.
[[nodiscard]] MonkeyRun playMonkey(unsigned seed, int events,
                                   const std::function<void(const MonkeyStep&)>& told = {});
// Plays given steps.
[[nodiscard]] MonkeyRun replay(const std::vector<MonkeyStep>& steps);
// The steps that are needed to break the same invariant.
[[nodiscard]] MonkeyRun shrunk(const MonkeyRun& run);

// The shortest part of a sequence, in its order, that still fails: no element can be left out.
template <typename Element, typename Fails>
std::vector<Element> shortest(std::vector<Element> sequence, Fails fails) {
    for (std::size_t size = std::max<std::size_t>(1, sequence.size() / 2); size > 0;) {
        bool shorter = false;
        for (std::size_t start = 0; start < sequence.size();) {
            auto rest = sequence;
            const auto from = rest.begin() + static_cast<std::ptrdiff_t>(start);
            const auto count = std::min(size, sequence.size() - start);
            rest.erase(from, from + static_cast<std::ptrdiff_t>(count));
            if (fails(rest)) {
                sequence = std::move(rest);
                shorter = true;
            } else {
                start += size;
            }
        }
        if (size > 1)
            size /= 2;
        else if (!shorter)
            break;
    }
    return sequence;
}

} // namespace vkr::test
