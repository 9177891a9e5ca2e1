// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <optional>
#include <string>
#include <string_view>

namespace vkr {

// What is to be told of a field's text, the gravest last.
enum class MarkKind {
    none,
    quiet,    // stored, and somebody should look at the figure
    doubtful, // stored, though not all of what was typed
    unstored, // not in the record
};

struct FieldMark {
    MarkKind kind = MarkKind::none;
    std::string reason; // what people are told; empty without a mark

    friend bool operator==(const FieldMark&, const FieldMark&) = default;
};

// What the text of a field is to the record. At any time it is
//
//   stored    shown by the program for the stored datum, or looked at and taken
//   typed     changed since by a person, and not looked at yet
//   refused   looked at, and not in the record: the mark is `unstored`
//
// A stored text is in doubt while its mark is `doubtful`. A refused text that is changed is typed,
// and its mark stays until what stands there now was looked at. Whoever asks gives the text on
// show. It is compared with
//
//   accepted   what was shown or looked at last: the field's tag
//   standing   the text that would stand for the stored datum. It counts while the mark is
//              `unstored`
//
// A text may be held as typed though it is the accepted one. A person then means another datum than
// the stored one, which the program shows in the same words.
//
// A text with a mark has a reason, and one without has none.
class FieldState {
  public:
    [[nodiscard]] const std::string& accepted() const { return accepted_; }
    [[nodiscard]] const FieldMark& mark() const { return mark_; }
    [[nodiscard]] bool isUnstored() const { return mark_.kind == MarkKind::unstored; }
    [[nodiscard]] bool isDoubtful() const { return mark_.kind == MarkKind::doubtful; }
    [[nodiscard]] bool isTyped(std::string_view text) const { return held_ || text != accepted_; }
    // The text stands for the stored datum itself, not for what its rounded picture says.
    [[nodiscard]] bool standsForStored(std::string_view text) const {
        return isUnstored() ? standing_ == text : !isTyped(text);
    }

    // The program shows the stored datum.
    void show(std::string_view text);
    // A text counts as no change from here on; the mark stays.
    void accept(std::string_view text);
    // The field is left with a text that was typed. One that was refused before and stands for the
    // stored datum again is refused no more.
    void lookAt(std::string_view text);
    // Of a text that was looked at: it is taken (no mark), doubtful, or refused.
    void setMark(const FieldMark& mark) {
        assert(mark.kind != MarkKind::none || mark.reason.empty());
        mark_ = mark;
    }
    // The text on show counts as typed, whatever it says.
    void holdAsTyped() { held_ = true; }
    // A text for another datum than the stored one has taken the place of what was there. It is
    // typed, also where it is the same text.
    void replace(std::string_view text);
    // A refused text is back, while `stored` is what the program has shown for the datum.
    void putBackRefused(std::string_view text, std::string_view stored, const FieldMark& mark);
    // The same in other words.
    template <typename Rewritten>
    void rewrite(const Rewritten& rewritten) {
        accepted_ = rewritten(accepted_);
        if (standing_)
            standing_ = rewritten(*standing_);
    }

  private:
    std::string accepted_;
    std::optional<std::string> standing_; // may be a former one while nothing is refused
    FieldMark mark_;
    bool held_ = false;
};

} // namespace vkr
